#include "Inspect/declarations/TypeLabel.h"

#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"

namespace Inspect {

using namespace RTTI;

namespace {

/// Empty where the language has no way to spell the type out.
std::string spelledOut(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const auto lookup = [&](unsigned int other) {
        return other == id ? &type : types.typeOf(other);
    };
    return TypeDeclarations({types.count, lookup, types.encodings}, Naming::OWN)
        .in(languageOf(type))
        .shapeOf(id);
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

std::string nameOrShape(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    return isGivenName(type.m_name) ? quoted(type.m_name) : shapeOf(types, id, type);
}

std::string describedType(const TypeTable& types, unsigned int id, const RTBaseType& type,
                          const TextStyle& style) {
    const std::string kind = style.paint(Ink::KEYWORD, kindOf(type));
    const bool hasText = type.m_name != nullptr && *type.m_name != '\0';
    std::string text = hasText ? ' ' + style.paint(Ink::NAME, quoted(type.m_name)) : "";
    const std::string shape = shapeBehindKind(types, id, &type);
    return kind + text + (shape.empty() ? "" : ' ' + shape);
}

std::string labelOf(const TypeTable& types, unsigned int id, const RTBaseType* type,
                    const TextStyle& style) {
    const std::string number = style.paint(Ink::COMMENT, std::to_string(id));
    if (type == nullptr)
        return number + ' ' + style.paint(Ink::WARNING, "(no type)");
    return number + ' ' + describedType(types, id, *type, style);
}

} // namespace Inspect
