#include "Inspect/translate/ValueDecoder.h"

#include "Inspect/translate/Digits.h"
#include "Inspect/translate/EnumTable.h"
#include "Inspect/translate/PackedElement.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Inspect {

using namespace RTTI;

namespace {

/// "x" of "x.y" is joined with a name by a dot, nothing is not.
std::string memberName(const std::string& above, const char* name) {
    return above + (above.empty() ? "" : ".") + pathName(name);
}

std::string valueText(std::string_view bits) {
    if (bits.size() == 1)
        return std::string(bits);
    const std::string digits = hexDigits(bits);
    return digits.find('X') == std::string::npos ? "0x" + digits : "0b" + std::string(bits);
}

/// The elements of an array, with the indices behind the name: those with the left bounds first.
class ElementNames {
public:
    ElementNames(const PackedElement& element, std::string name)
        : m_dimensions(element.dimensions), m_positions(m_dimensions.size()),
          m_name(std::move(name)) {}

    std::string name() const {
        std::string text = m_name;
        for (std::size_t i = 0; i < m_dimensions.size(); ++i) {
            const FullConstraints& range = m_dimensions[i];
            const auto left = static_cast<std::int64_t>(range.si);
            const auto position = static_cast<std::int64_t>(m_positions[i]);
            text += fmt::format("[{}]", range.si <= range.ei ? left + position : left - position);
        }
        return text;
    }

    /// Goes to the next element; false at the end.
    bool next() {
        for (std::size_t i = m_dimensions.size(); i-- > 0;) {
            if (++m_positions[i] < *lengthOf(m_dimensions[i]))
                return true;
            m_positions[i] = 0;
        }
        return false;
    }

private:
    const std::vector<FullConstraints>& m_dimensions;
    std::vector<std::uint64_t> m_positions;
    std::string m_name;
};

std::uint64_t elementCount(const PackedElement& element) {
    std::uint64_t count = 1;
    for (const FullConstraints& dimension : element.dimensions)
        count *= *lengthOf(dimension);
    return count;
}

} // namespace

ValueDecoder::ValueDecoder(const TypeTable& types, unsigned int id) {
    const RTBaseType* type = types.typeOf(id);
    const auto width = types.widths->of(type);
    if (width) {
        if (*width > MOST_BITS)
            throw UndecodableType(fmt::format("it has more than {} bits", MOST_BITS));
        m_width = *width;
        m_pending.push_back({"", 0, id, type});
        while (!m_pending.empty()) {
            Pending part = std::move(m_pending.back());
            m_pending.pop_back();
            divide(types, std::move(part));
        }
        return;
    }
    type = type != nullptr ? type->getSelf(false) : nullptr;
    const auto table = type != nullptr ? enumTableOf(types, *type) : std::nullopt;
    if (!table)
        throw UndecodableType("it is neither a packed type nor an enumeration");
    m_width = table->width;
    m_fields.push_back({"", 0, m_width, literalsOf(types, *type)});
}

void ValueDecoder::checkCount() const {
    if (m_fields.size() + m_pending.size() + m_emptyParts > MOST_FIELDS)
        throw UndecodableType(fmt::format("it has more than {} fields", MOST_FIELDS));
}

const ValueDecoder::Literals* ValueDecoder::literalsOf(const TypeTable& types,
                                                       const RTBaseType& type) {
    const auto [literals, isNew] = m_literals.emplace(&type, Literals());
    const auto table = isNew ? enumTableOf(types, type) : std::nullopt;
    if (table) {
        for (const EnumEntry& entry : table->entries)
            literals->second.emplace(entry.bits, escaped(entry.name));
    }
    return &literals->second;
}

/// Adds the part to the fields, or what it consists of to the parts.
void ValueDecoder::divide(const TypeTable& types, Pending part) {
    const PackedElement element = packedElementOf(types, part.typeId, *part.type);
    if (!element.dimensions.empty()) {
        const std::uint64_t count = elementCount(element);
        if (count > MOST_FIELDS)
            throw UndecodableType(fmt::format("it has more than {} fields", MOST_FIELDS));
        ElementNames names(element, std::move(part.name));
        const std::size_t first = m_pending.size();
        std::uint64_t offset = part.offset + count * element.width;
        do {
            offset -= element.width;
            m_pending.push_back({names.name(), offset, element.typeId, element.type});
        } while (names.next());
        std::reverse(m_pending.begin() + static_cast<std::ptrdiff_t>(first), m_pending.end());
    } else if (element.kind == PackedElement::Kind::VECTOR) {
        m_fields.push_back({std::move(part.name), part.offset, element.width, nullptr});
    } else if (element.kind == PackedElement::Kind::ENUMERATION) {
        m_fields.push_back(
            {std::move(part.name), part.offset, element.width, literalsOf(types, *element.type)});
    } else {
        addMembers(types, static_cast<const RTRecordType&>(*element.type), part);
    }
    checkCount();
}

void ValueDecoder::addMembers(const TypeTable& types, const RTRecordType& record,
                              const Pending& part) {
    const std::vector<PackedMember> members = packedMembersOf(types, record);
    m_emptyParts += members.empty() ? 1 : 0;
    for (auto member = members.rbegin(); member != members.rend(); ++member)
        m_pending.push_back({memberName(part.name, member->name), part.offset + member->offset,
                             member->typeId, member->type});
}

std::string ValueDecoder::decode(std::string_view line) const {
    const std::size_t begin = line.find_first_not_of(" \t");
    const std::size_t end = line.find_last_not_of(" \t\r");
    const auto bits = begin != std::string_view::npos
                          ? bitsOf(line.substr(begin, end - begin + 1), m_width)
                          : std::nullopt;
    if (!bits)
        return std::string(line);
    std::string text;
    for (const Field& field : m_fields) {
        const std::string_view value =
            std::string_view(*bits).substr(m_width - field.offset - field.width, field.width);
        text += text.empty() ? "" : " ";
        text += field.name.empty() ? "" : field.name + '=';
        const auto literal = field.literals != nullptr ? field.literals->find(std::string(value))
                                                       : Literals::const_iterator();
        const bool isLiteral = field.literals != nullptr && literal != field.literals->end();
        text += isLiteral ? literal->second : valueText(value);
    }
    return text;
}

} // namespace Inspect
