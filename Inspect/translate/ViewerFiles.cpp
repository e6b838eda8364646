#include "Inspect/translate/ViewerFiles.h"

#include "Inspect/translate/Digits.h"
#include "Inspect/translate/EnumTable.h"
#include "Inspect/translate/TranslatedNames.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

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

} // namespace

void writeGtkwaveFilters(const TypeTable& types, const FileSink& sink) {
    writeEnums(types, sink, gtkwaveText);
}

void writeSurferMappings(const TypeTable& types, const FileSink& sink) {
    writeEnums(types, sink, surferText);
}

} // namespace Inspect
