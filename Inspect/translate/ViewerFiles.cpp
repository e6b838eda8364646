#include "Inspect/translate/ViewerFiles.h"

#include "Inspect/model/NameIndex.h"
#include "Inspect/translate/Digits.h"
#include "Inspect/translate/EnumTable.h"
#include "Inspect/translate/PackedElement.h"
#include "Inspect/translate/TranslatedNames.h"
#include "Inspect/translate/ValueDecoder.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <unordered_set>

namespace Inspect {

using namespace RTTI;

namespace {

/// The text of an enumeration's file.
using EnumText = std::string (*)(const std::string& name, const EnumTable& table);

void writeEnums(const TypeTable& types, const FileSink& sink, EnumText textOf) {
    const std::vector<std::string> names = translatedNames(types);
    UniqueNames files;
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        const auto table = type != nullptr ? enumTableOf(types, *type) : std::nullopt;
        if (table)
            sink(files.take(fileNameOf(names[id]), id) + ".txt",
                 textOf(escaped(names[id]), *table));
    }
}

std::string gtkwaveText(const std::string& name, const EnumTable& table) {
    std::string text =
        fmt::format("# {}, {}\n"
                    "# GTKWave: select its signals; Edit > Data Format > Translate Filter File >\n"
                    "# Enable and Select; add this file. Data format: hexadecimal or binary.\n",
                    name, counted(table.width, "bit"));
    for (const EnumEntry& entry : table.entries) {
        const std::string line = ' ' + escaped(entry.name) + '\n';
        const std::string digits = hexDigits(entry.bits);
        text += entry.bits + line;
        if (table.width > 1 && digits.find_first_of("xX") == std::string::npos)
            text += digits + line;
    }
    return text;
}

std::string surferText(const std::string& name, const EnumTable& table) {
    std::string text = fmt::format("Name = {}\nBits = {}\n", name, table.width);
    for (const EnumEntry& entry : table.entries)
        text += "0b" + entry.bits + ' ' + escaped(entry.name) + '\n';
    return text;
}

bool isFiltered(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const auto width = types.widths->of(&type);
    if (!width)
        return type.GetClassId() == ClassId::SEQ_ENUM && enumTableOf(types, type).has_value();
    if (*width > ValueDecoder::MOST_BITS)
        return false;
    const PackedElement element = packedElementOf(types, id, type);
    if (element.dimensions.empty())
        return element.kind != PackedElement::Kind::VECTOR && element.type == &type;
    return isGivenName(type.m_name);
}

/// The name if it leads to the type or to a typedef of it. What looks like an option or an id does
/// not.
std::string argumentOf(const TypeTable& types, const NameIndex& index, const std::string& name,
                       unsigned int id) {
    const std::vector<unsigned int> found = index.idsOf(name);
    const bool isFound = found.size() == 1 && types.typeOf(found.front())->getSelf(false) ==
                                                  types.typeOf(id)->getSelf(false);
    const bool isPlainName =
        name.front() != '-' && name.find_first_not_of("0123456789") != std::string::npos;
    return isFound && isPlainName ? name : std::to_string(id);
}

} // namespace

std::vector<FilterType> filterTypes(const TypeTable& types) {
    const std::vector<std::string> names = translatedNames(types);
    const NameIndex index(types);
    UniqueNames files;
    std::vector<FilterType> found;
    std::unordered_set<std::string> arguments;
    for (unsigned int id = 0; id < types.count; ++id) {
        const RTBaseType* type = types.typeOf(id);
        if (type == nullptr || !isFiltered(types, id, *type))
            continue;
        std::string argument = argumentOf(types, index, names[id], id);
        if (arguments.insert(argument).second) // Once for a typedef of the same name.
            found.push_back(
                {escaped(names[id]), std::move(argument), files.take(fileNameOf(names[id]), id)});
    }
    return found;
}

void writeGtkwaveFilters(const TypeTable& types, const FileSink& sink) {
    writeEnums(types, sink, gtkwaveText);
}

void writeSurferMappings(const TypeTable& types, const FileSink& sink) {
    writeEnums(types, sink, surferText);
}

} // namespace Inspect
