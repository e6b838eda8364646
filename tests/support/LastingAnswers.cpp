#include "tests/support/LastingAnswers.h"

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"
#include "RTTI/RTTypeVisitor.h"

namespace RTTITest {

using namespace RTTI;

Answers lastingAnswers(const RTBaseType& type) {
    Answers answers{type.GetClassId(), type.getValueSize(),
                    static_cast<std::size_t>(type.getSVTypeId()), type.getSelf(false) != nullptr};
    RTTypeDefaultVisitor visitor;
    answers.push_back(type.accept(visitor));
    const PopulatedConstraints some = populateTypeConstraints(type, 100);
    answers.push_back(some.ranges.size());
    if (some.isComplete) {
        Brakel_tolv::ConstraintStack<FullConstraints> stack;
        std::vector<FullConstraints> ranges;
        type.populateTypeConstraints(stack, ranges);
        answers.push_back(ranges.size());
    }
    if (const auto* array = dynamic_cast<const RTAbstractArrayType*>(&type)) {
        answers.push_back(array->getTotalNumDimensions(true));
        answers.push_back(array->getIndexTypeId());
    }
    return answers;
}

Answers lastingAnswers(RTTypeManager& manager) {
    Answers answers;
    for (unsigned int id = 0; const RTBaseType* type = manager.getRTType(id); ++id) {
        const Answers more = lastingAnswers(*type);
        answers.insert(answers.end(), more.begin(), more.end());
    }
    return answers;
}

Answers encodings(RTTypeManager& manager) {
    Answers answers;
    for (unsigned int id = 0; const RTBaseType* type = manager.getRTType(id); ++id)
        answers.push_back(static_cast<std::size_t>(type->getValueEncoding()));
    return answers;
}

} // namespace RTTITest
