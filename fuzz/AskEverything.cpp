#include "fuzz/AskEverything.h"

#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/views/TypeDumper.h"
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

void declareAll(std::ostream& out, const Inspect::TypeTable& types) {
    using Inspect::SourceLanguage;
    for (const auto language : {SourceLanguage::VHDL, SourceLanguage::SYSTEM_VERILOG}) {
        Inspect::DeclarationFile file(out, types, language, Inspect::IdComments::SHOWN);
        for (unsigned int id = 0; id < types.count; ++id)
            file.add(id);
        file.end();
    }
}

} // namespace

unsigned int askEverything(RTTypeManager& manager, unsigned int typeCount) {
    NoOutput out;
    unsigned int holes = 0;
    manager.readAllRTTypes();
    const Inspect::TypeTable types{typeCount,
                                   [&](unsigned int id) { return manager.getRTType(id); }};
    for (unsigned int id = 0; id < typeCount; ++id) {
        RTBaseType* type = manager.getRTType(id);
        if (type == nullptr) {
            ++holes;
            continue;
        }
        ask(*type);
        Inspect::dumpType(out, id, *type, types);
    }
    declareAll(out, types);
    return holes;
}

} // namespace Fuzz
