#include "bench/Work.h"

#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/diff/TypeDiff.h"
#include "Inspect/json/TypeJsonReader.h"
#include "Inspect/json/TypeJsonWriter.h"
#include "Inspect/views/TypeDumper.h"
#include "Inspect/views/TypeStatistics.h"
#include "RTTI/ConstraintStack.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"

#include <sstream>
#include <string_view>
#include <vector>

namespace Bench {

using namespace Inspect;
using RTTI::RTBaseType;

TypeTable tableOf(const TypeList& types) {
    return {static_cast<unsigned int>(types.size()),
            [&types](unsigned int id) { return id < types.size() ? types[id] : nullptr; }};
}

bool countTypes(OVAT::MemoryBlockManager& storage, unsigned int typeCount) {
    constexpr unsigned int TOP = 10;
    const bool isSound = !TypeFile::hasErrors(TypeFile::verify(storage, storage.size(), 0));
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    const TypeTable types{typeCount, [&](unsigned int id) { return manager.getRTType(id); }};
    std::ostringstream out;
    writeStatistics(out, types, {}, statisticsOf(storage, storage.size(), 0, TOP), TOP,
                    TextStyle::plain());
    return isSound;
}

bool differ(const TypeTable& a, const TypeTable& b, std::size_t added) {
    const TypeDiff diff(a, b);
    return diff.verdict() == DiffVerdict::COMPATIBLE && diff.added().size() == added;
}

std::string jsonOf(const TypeList& types) {
    std::ostringstream text;
    TypeJsonWriter writer(text, JsonForm::DOCUMENT, "generated");
    for (unsigned int id = 0; id < types.size(); ++id)
        writer.type(id, *types[id]);
    writer.end();
    return text.str();
}

std::size_t buildFromJson(const std::string& json) {
    std::istringstream in(json);
    TypeFile::TypeFileWriter writer;
    TypeJsonReader reader([&](unsigned int id, const RTBaseType& type) { writer.add(id, type); },
                          [&](std::string_view version) { writer.setVersion(version); });
    reader.readDocument(in);
    return writer.finish().size();
}

void dump(std::ostream& out, const TypeTable& types) {
    TypeDumper dumper(out, types);
    for (unsigned int id = 0; id < types.count; ++id)
        dumper.type(id, *types.typeOf(id));
}

void declare(std::ostream& out, const TypeTable& types, SourceLanguage language) {
    DeclarationFile declarations(out, types, language, IdComments::NONE);
    for (unsigned int id = 0; id < types.count; ++id)
        declarations.addUnlessSpelledOut(id);
    declarations.end();
}

std::size_t rangesOf(const RTBaseType& type) {
    Brakel_tolv::ConstraintStack<RTTI::FullConstraints> stack;
    static thread_local std::vector<RTTI::FullConstraints> out;
    out.clear();
    type.populateTypeConstraints(stack, out);
    return out.size();
}

} // namespace Bench
