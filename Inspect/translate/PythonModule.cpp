#include "Inspect/translate/PythonModule.h"

#include "Inspect/translate/Digits.h"
#include "Inspect/translate/EnumTable.h"
#include "Inspect/translate/PackedElement.h"
#include "Inspect/translate/PythonNames.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/TypeText.h"

#include <fmt/format.h>

#include <algorithm>

namespace Inspect {

using namespace RTTI;

namespace {

constexpr const char* HEAD =
    R"(# The packed types of a hardware design for its test bench. Written by rtti translate --to python.
#
# Each enumeration is an IntEnum. Each packed struct is a dataclass, each packed union a class whose
# properties are its members, which share their bits: what a property returns is a copy. WIDTH is the
# number of bits; SLICES has the most and the least significant bit of each member; from_int and
# to_int make an object of a value and a value of an object. An array of enumerations, structs or
# unions is a dict by its indices; all other values are ints without a sign, but are taken with one.
# Where a value is none of its enumeration's, it is an int.
from __future__ import annotations

from dataclasses import dataclass, field
from enum import IntEnum
from typing import ClassVar, Iterator, TypeVar

_E = TypeVar("_E", bound=IntEnum)


def _enum(kind: type[_E], bits: int) -> _E | int:
    try:
        return kind(bits)
    except ValueError:
        return bits


def _fit(value: int, width: int) -> int:
    """The bits of a value, which may be negative."""
    if not -(1 << width) // 2 <= value < 1 << width:
        raise ValueError(f"{value} does not fit in {width} bits")
    return value & (1 << width) - 1


def _cut(bits: int, offset: int, width: int) -> int:
    return bits >> offset & (1 << width) - 1


def _indices(left: int, right: int) -> range:
    return range(left, right - 1, -1) if left > right else range(left, right + 1)


def _split(bits: int, left: int, right: int, width: int) -> Iterator[tuple[int, int]]:
    """The indices of an array's elements, each with its bits, which are width ones."""
    indices = _indices(left, right)
    for position, index in enumerate(indices):
        yield index, _cut(bits, (len(indices) - 1 - position) * width, width)


def _join(elements: dict[int, int], left: int, right: int, width: int) -> int:
    indices = _indices(left, right)
    if sorted(elements) != sorted(indices):
        raise ValueError(f"the indices are not {left} to {right}")
    bits = 0
    for index in indices:
        bits = bits << width | elements[index]
    return bits
)";

/// A member of a struct or union.
struct PythonMember {
    std::string name;
    PackedElement element;
    std::uint64_t offset;
    std::uint64_t width;
};

bool isVector(const PythonMember& member) {
    return member.element.kind == PackedElement::Kind::VECTOR;
}

/// The outermost dimension of an array.
struct Row {
    explicit Row(const PackedElement& array) : level(array.dimensions.size()), element(array) {
        const FullConstraints& range = array.dimensions.front();
        element.dimensions.erase(element.dimensions.begin());
        std::uint64_t width = array.width;
        for (const FullConstraints& dimension : element.dimensions)
            width *= *lengthOf(dimension);
        shape = fmt::format("{}, {}, {}", range.si, range.ei, width);
    }

    std::size_t level;
    PackedElement element; ///< What has the other dimensions.
    std::string shape;     ///< Both bounds, and the bits of an element.
};

class ModuleWriter {
public:
    ModuleWriter(std::ostream& out, const TypeTable& types, const std::vector<unsigned int>& ids)
        : m_out(out), m_types(types), m_names(types, ids) {}

    void write() {
        m_out << HEAD;
        writeScope(m_names.module());
    }

private:
    template <typename... Arguments>
    void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
        m_out << std::string(m_depth * 4, ' ')
              << fmt::format(format, std::forward<Arguments>(arguments)...) << '\n';
    }

    void beginClass() { m_out << (m_depth == 0 ? "\n\n" : "\n"); }

    /// First types, then packages, one within the other.
    void writeScope(const PythonScope& scope);
    void writeType(const std::string& name, unsigned int id);
    void writeEnum(const std::string& name, unsigned int id, const EnumTable& table);
    void writeStruct(const std::string& name, unsigned int id, std::uint64_t width,
                     const std::vector<PythonMember>& members);
    void writeUnion(const std::string& name, unsigned int id, std::uint64_t width,
                    const std::vector<PythonMember>& members);
    void writeProperty(const PythonMember& member);
    void beginDataclass(const std::string& name, unsigned int id, std::uint64_t width,
                        const std::vector<PythonMember>& members);
    std::vector<PythonMember> membersOf(const RTRecordType& record) const;

    std::string annotation(const PackedElement& element) const;
    std::string read(const PackedElement& element, const std::string& bits) const;
    std::string write(const PackedElement& element, const std::string& value) const;

    std::ostream& m_out;
    const TypeTable& m_types;
    PythonNames m_names;
    std::size_t m_depth = 0;
};

void ModuleWriter::writeScope(const PythonScope& scope) {
    for (const auto& [name, id] : scope.types)
        writeType(name, id);
    for (const auto& [name, inner] : scope.scopes) {
        beginClass();
        line("class {}:", name);
        ++m_depth;
        writeScope(*inner);
        --m_depth;
    }
}

void ModuleWriter::writeType(const std::string& name, unsigned int id) {
    const RTBaseType& type = *m_types.typeOf(id);
    if (const auto table = enumTableOf(m_types, type))
        return writeEnum(name, id, *table);
    const auto& record = static_cast<const RTRecordType&>(type);
    const std::uint64_t width = *m_types.widths->of(&type);
    const std::vector<PythonMember> members = membersOf(record);
    if (record.m_recordKind == VLOG_PACKED_STRUCT)
        writeStruct(name, id, width, members);
    else
        writeUnion(name, id, width, members);
}

void ModuleWriter::writeEnum(const std::string& name, unsigned int id, const EnumTable& table) {
    beginClass();
    line("class {}(IntEnum):", name);
    ++m_depth;
    line("\"\"\"{}, {}.\"\"\"", m_names.original(id), counted(table.width, "bit"));
    m_out << '\n';
    std::vector<std::string> words;
    for (const EnumEntry& entry : table.entries)
        words.push_back(entry.name);
    const std::vector<std::string> names = m_names.literals(words);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& bits = table.entries[i].bits;
        if (bits.find_first_of("xz") != std::string::npos)
            line("# {} = 0b{}", names[i], bits);
        else
            line("{} = 0x{}", names[i], hexDigits(bits));
    }
    --m_depth;
}

std::vector<PythonMember> ModuleWriter::membersOf(const RTRecordType& record) const {
    std::vector<PythonMember> members;
    std::vector<std::string> words;
    for (const PackedMember& member : packedMembersOf(m_types, record)) {
        words.emplace_back(member.name != nullptr ? member.name : "");
        members.push_back({"", packedElementOf(m_types, member.typeId, *member.type), member.offset,
                           member.width});
    }
    std::vector<std::string> names = m_names.members(words);
    for (std::size_t i = 0; i < members.size(); ++i)
        members[i].name = std::move(names[i]);
    return members;
}

void ModuleWriter::beginDataclass(const std::string& name, unsigned int id, std::uint64_t width,
                                  const std::vector<PythonMember>& members) {
    beginClass();
    line("@dataclass");
    line("class {}:", name);
    ++m_depth;
    line("\"\"\"{}, {}.\"\"\"", m_names.original(id), counted(width, "bit"));
    m_out << '\n';
    line("WIDTH: ClassVar[int] = {}", width);
    line("SLICES: ClassVar[dict[str, tuple[int, int]]] = {{");
    for (const PythonMember& member : members)
        line("    \"{}\": ({}, {}),", member.name, member.offset + (member.width - 1),
             member.offset);
    line("}}");
    m_out << '\n';
}

void ModuleWriter::writeStruct(const std::string& name, unsigned int id, std::uint64_t width,
                               const std::vector<PythonMember>& members) {
    beginDataclass(name, id, width, members);
    for (const PythonMember& member : members)
        line("{}: {} = {}", member.name, annotation(member.element),
             isVector(member)
                 ? "0"
                 : fmt::format("field(default_factory=lambda: {})", read(member.element, "0")));
    m_out << '\n';
    line("@classmethod");
    line("def from_int(cls, value: int) -> {}:", m_names.of(id));
    line("    bits = _fit(value, {})", width);
    line("    return cls(");
    for (const PythonMember& member : members)
        line("        {}={},", member.name,
             read(member.element, fmt::format("_cut(bits, {}, {})", member.offset, member.width)));
    line("    )");
    m_out << '\n';
    line("def to_int(self) -> int:");
    line("    bits = 0");
    for (const PythonMember& member : members)
        line("    bits |= {} << {}", write(member.element, "self." + member.name), member.offset);
    line("    return bits");
    --m_depth;
}

void ModuleWriter::writeUnion(const std::string& name, unsigned int id, std::uint64_t width,
                              const std::vector<PythonMember>& members) {
    beginDataclass(name, id, width, members);
    line("_bits: int = 0");
    m_out << '\n';
    line("@classmethod");
    line("def from_int(cls, value: int) -> {}:", m_names.of(id));
    line("    return cls(_fit(value, {}))", width);
    m_out << '\n';
    line("def to_int(self) -> int:");
    line("    return self._bits");
    for (const PythonMember& member : members)
        writeProperty(member);
    --m_depth;
}

void ModuleWriter::writeProperty(const PythonMember& member) {
    const std::string type = annotation(member.element);
    m_out << '\n';
    line("@property");
    line("def {}(self) -> {}:", member.name, type);
    line("    return {}",
         read(member.element, fmt::format("_cut(self._bits, 0, {})", member.width)));
    m_out << '\n';
    line("@{}.setter", member.name);
    line("def {}(self, new: {}) -> None:", member.name, type);
    line("    self._bits = self._bits >> {0} << {0} | {1}", member.width,
         write(member.element, "new"));
}

std::string ModuleWriter::annotation(const PackedElement& element) const {
    if (element.kind == PackedElement::Kind::VECTOR)
        return "int";
    std::string text = m_names.of(element.typeId);
    if (element.kind == PackedElement::Kind::ENUMERATION)
        text += " | int";
    for (std::size_t i = 0; i < element.dimensions.size(); ++i)
        text = fmt::format("dict[int, {}]", text);
    return text;
}

/// The value of a Python expression for the bits, which are no more than those of the type.
std::string ModuleWriter::read(const PackedElement& element, const std::string& bits) const {
    if (!element.dimensions.empty()) {
        const Row row(element);
        return fmt::format("{{i{0}: {1} for i{0}, bits{0} in _split({2}, {3})}}", row.level,
                           read(row.element, fmt::format("bits{}", row.level)), bits, row.shape);
    }
    switch (element.kind) {
    case PackedElement::Kind::VECTOR: return bits;
    case PackedElement::Kind::ENUMERATION:
        return fmt::format("_enum({}, {})", m_names.of(element.typeId), bits);
    default: return fmt::format("{}.from_int({})", m_names.of(element.typeId), bits);
    }
}

/// The bits of the value of a Python expression.
std::string ModuleWriter::write(const PackedElement& element, const std::string& value) const {
    if (!element.dimensions.empty()) {
        const Row row(element);
        return fmt::format("_join({{i{0}: {1} for i{0}, new{0} in {2}.items()}}, {3})", row.level,
                           write(row.element, fmt::format("new{}", row.level)), value, row.shape);
    }
    switch (element.kind) {
    case PackedElement::Kind::VECTOR:
    case PackedElement::Kind::ENUMERATION: return fmt::format("_fit({}, {})", value, element.width);
    default: return value + ".to_int()";
    }
}

bool isTranslated(const TypeTable& types, const RTBaseType* type) {
    if (type == nullptr)
        return false;
    if (type->GetClassId() == ClassId::RECORD)
        return types.widths->of(type).has_value();
    return enumTableOf(types, *type).has_value();
}

} // namespace

void writePythonModule(std::ostream& out, const TypeTable& types) {
    std::vector<unsigned int> ids;
    for (unsigned int id = 0; id < types.count; ++id) {
        if (isTranslated(types, types.typeOf(id)))
            ids.push_back(id);
    }
    ModuleWriter(out, types, ids).write();
}

} // namespace Inspect
