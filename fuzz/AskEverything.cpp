#include "fuzz/AskEverything.h"

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"
#include "fuzz/QuickLimits.h"

#include <cstdlib>
#include <vector>

namespace Fuzz {

using namespace RTTI;

namespace {

void ask(RTBaseType& type) {
    type.getValueEncoding();
    type.getValueSize();
    type.getSVTypeId();
    type.getSelf(true);
    type.getSelf(false);
    if (auto* array = dynamic_cast<RTAbstractArrayType*>(&type)) {
        array->getArrayKind();
        array->getIndexTypeId();
        array->getNumArrayDimensions();
        array->getTotalNumDimensions(true);
        array->getTotalNumDimensions(false);
    }
    const PopulatedConstraints walked = populateTypeConstraints(type, MOST_STEPS);
    if (!walked.isComplete)
        return;
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    std::vector<FullConstraints> ranges;
    type.populateTypeConstraints(stack, ranges);
    if (ranges.size() != walked.ranges.size())
        std::abort(); // The walk is another when it is bounded.
}

} // namespace

unsigned int askEverything(const LoadedTypes& types) {
    unsigned int holes = 0;
    for (unsigned int id = 0; id < types.count(); ++id) {
        if (RTBaseType* type = types[id])
            ask(*type);
        else
            ++holes;
    }
    return holes;
}

} // namespace Fuzz
