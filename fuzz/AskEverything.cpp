#include "fuzz/AskEverything.h"

#include "Inspect/TypeDumper.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTType.h"

#include <ostream>
#include <vector>

namespace Fuzz {

using namespace RTTI;

namespace {

/// Takes text and drops it.
class NoOutput : public std::ostream {
public:
    NoOutput() : std::ostream(nullptr) {}
};

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
    Brakel_tolv::ConstraintStack<FullConstraints> stack;
    std::vector<FullConstraints> ranges;
    type.populateTypeConstraints(stack, ranges);
}

} // namespace

unsigned int askEverything(RTTypeManager& manager, unsigned int typeCount) {
    NoOutput out;
    unsigned int holes = 0;
    manager.readAllRTTypes();
    for (unsigned int id = 0; id < typeCount; ++id) {
        RTBaseType* type = manager.getRTType(id);
        if (type == nullptr) {
            ++holes;
            continue;
        }
        ask(*type);
        Inspect::dumpType(out, id, *type,
                          [&](unsigned int other) { return manager.getRTType(other); });
    }
    return holes;
}

} // namespace Fuzz
