#include "Inspect/declarations/TypeLabel.h"

#include "Inspect/declarations/SystemVerilogDeclarations.h"
#include "Inspect/declarations/VhdlDeclarations.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

#include <functional>

namespace Inspect {

using namespace RTTI;

namespace {

/// Empty where the language has no way to spell the type out.
std::string spelledOut(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const auto lookup = [&](unsigned int other) {
        return other == id ? &type : types.typeOf(other);
    };
    const TypeTable table = {types.count, std::cref(lookup), types.encodings, types.widths};
    const SourceLanguage language = languageOf(type);
    const DeclaredNames names(table, language, Naming::OWN);
    return language == SourceLanguage::VHDL ? VhdlDeclarations(table, names).shapeOf(id)
                                            : SystemVerilogDeclarations(table, names).shapeOf(id);
}

/// Whether the kind says a keyword already: "struct" in "packed struct".
bool isWordOf(std::string_view kind, std::string_view keyword) {
    const std::string word = keyword == "enum" ? "enumeration" : std::string(keyword);
    return !word.empty() &&
           (' ' + std::string(kind) + ' ').find(' ' + word + ' ') != std::string::npos;
}

} // namespace

std::string shapeOf(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const std::string shape = spelledOut(types, id, type);
    return shape.empty() ? std::string(kindOf(type)) : shape;
}

std::string shapeBehindKind(const TypeTable& types, unsigned int id, const RTBaseType* type) {
    if (type == nullptr || isGivenName(type->m_name))
        return "";
    std::string shape = spelledOut(types, id, *type);
    for (std::size_t end = shape.find(' '); isWordOf(kindOf(*type), shape.substr(0, end));
         end = shape.find(' '))
        shape.erase(0, end == std::string::npos ? end : end + 1);
    return shape;
}

void writeNameOrShape(Text& out, const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const std::string_view name = givenName(type.m_name);
    if (!name.empty())
        writeQuoted(out, name);
    else
        out << shapeOf(types, id, type);
}

std::string nameOrShape(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    return written([&](Text& out) { writeNameOrShape(out, types, id, type); });
}

void writeDescription(Text& out, const TypeTable& types, unsigned int id, const RTBaseType& type,
                      const TextStyle& style) {
    out << style.begin(Ink::KEYWORD) << kindOf(type) << style.end();
    if (type.m_name != nullptr && *type.m_name != '\0') {
        out << ' ' << style.begin(Ink::NAME);
        writeQuoted(out, type.m_name);
        out << style.end();
    }
    const std::string shape = shapeBehindKind(types, id, &type);
    if (!shape.empty())
        out << ' ' << shape;
}

std::string describedType(const TypeTable& types, unsigned int id, const RTBaseType& type,
                          const TextStyle& style) {
    return written([&](Text& out) { writeDescription(out, types, id, type, style); });
}

std::string labelOf(const TypeTable& types, unsigned int id, const RTBaseType* type,
                    const TextStyle& style) {
    const std::string number = style.paint(Ink::COMMENT, std::to_string(id));
    if (type == nullptr)
        return number + ' ' + style.paint(Ink::WARNING, "(no type)");
    return number + ' ' + describedType(types, id, *type, style);
}

} // namespace Inspect
