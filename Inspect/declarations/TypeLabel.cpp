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

} // namespace

std::string shapeOf(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    const std::string shape = spelledOut(types, id, type);
    return shape.empty() ? std::string(kindOf(type)) : shape;
}

std::string nameOrShape(const TypeTable& types, unsigned int id, const RTBaseType& type) {
    return isGivenName(type.m_name) ? quoted(type.m_name) : shapeOf(types, id, type);
}

std::string describedType(const TypeTable& types, unsigned int id, const RTBaseType& type,
                          const TextStyle& style) {
    const std::string kind = style.paint(Ink::KEYWORD, kindOf(type));
    const bool hasText = type.m_name != nullptr && *type.m_name != '\0';
    std::string text = hasText ? ' ' + style.paint(Ink::NAME, quoted(type.m_name)) : "";
    if (!isGivenName(type.m_name)) {
        const std::string shape = spelledOut(types, id, type);
        text += shape.empty() || shape == kindOf(type) ? "" : ' ' + shape;
    }
    return kind + text;
}

std::string labelOf(const TypeTable& types, unsigned int id, const RTBaseType* type,
                    const TextStyle& style) {
    const std::string number = style.paint(Ink::COMMENT, std::to_string(id));
    if (type == nullptr)
        return number + ' ' + style.paint(Ink::WARNING, "(no type)");
    return number + ' ' + describedType(types, id, *type, style);
}

} // namespace Inspect
