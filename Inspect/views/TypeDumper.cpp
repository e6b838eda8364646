#include "Inspect/views/TypeDumper.h"

#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/IndentedLines.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/ConstraintPopulation.h"
#include "RTTI/RTTypeVisitor.h"

#include <fmt/format.h>

#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

using namespace RTTI;

namespace {

/// Writes the fields of a type's own class, in the order of its record.
class FieldWriter : public RTTypeVisitor {
public:
    FieldWriter(std::ostream& out, const TypeTable& types, const TextStyle& style, RangeLists lists)
        : m_out(out), m_types(types), m_style(style), m_lists(lists) {}

    // Classes without fields, and those that no object has.
    bool visit(const RTBaseType&) override { return true; }
    bool visit(const RTEnumType&) override { return true; }
    bool visit(const RTCHandle&) override { return true; }
    bool visit(const RTClassHandle&) override { return true; }
    bool visit(const RTLogicType&) override { return true; }
    bool visit(const RTBitType&) override { return true; }
    bool visit(const RTStringType&) override { return true; }

    bool visit(const RTSeqEnumType& type) override {
        line("encoding", encodingText(type.m_valueEncoding));
        line("enum kind", enumKindText(type.m_enumKind));
        line("literals", number(type.m_enumeratorNames.size()));
        for (std::size_t i = 0; i < type.m_enumeratorNames.size(); ++i)
            item(i, name(quotedName(type.m_enumeratorNames[i])));
        return true;
    }

    bool visit(const RTDiscreteEnumType& type) override {
        line("base type", reference(type.m_baseTypeId, type.m_baseType));
        line("literals", number(type.m_enumerators.size()));
        for (std::size_t i = 0; i < type.m_enumerators.size(); ++i) {
            const t_enumNameAndValuePair& literal = type.m_enumerators[i];
            item(i,
                 name(quoted(literal.enumName)) + " = " + bytes(literal.value, type.m_valueSize));
        }
        ranges("constraints", type.m_constraints);
        return true;
    }

    bool visit(const RTIntType& type) override {
        line("range", number(rangeText(type.m_constraint)));
        return true;
    }

    bool visit(const RTFloatType& type) override {
        line("real kind", number(type.m_floatKind));
        line("left", number(type.m_left));
        line("right", number(type.m_right));
        line("direction", number(type.m_direction));
        return true;
    }

    bool visit(const RTEventType& type) override {
        line("event kind", number(type.m_eventKind));
        return true;
    }

    bool visit(const RTPhysicalType& type) override {
        line("units", number(type.m_units.size()));
        for (std::size_t i = 0; i < type.m_units.size(); ++i)
            item(i, name(quoted(type.m_units[i].unitName)) + " = " + number(type.m_units[i].value));
        return true;
    }

    bool visit(const RTTypedefType& type) override {
        line("data type", reference(type.m_dataTypeId, type.m_dataType));
        ranges("constraints", type.m_constraints);
        return true;
    }

    bool visit(const RTAccessType& type) override { return designated(type, "designated type"); }
    bool visit(const RTFileType& type) override { return designated(type, "element type"); }

    bool visit(const RTArrayType& type) override {
        line("array kind", arrayKindText(type.m_arrayKind));
        line("element type", reference(type.m_elementTypeId, type.m_elementType));
        line("dimensions", number(type.m_indexTypeIds.size()));
        for (std::size_t i = 0; i < type.m_indexTypeIds.size(); ++i)
            item(i, "index type " + reference(type.m_indexTypeIds[i]));
        ranges("constraints", type.m_constraints);
        svTypeId(type);
        return true;
    }

    bool visit(const RTAbstractArrayType& type) override {
        line("element type", reference(type.m_elementTypeId, type.m_elementType));
        svTypeId(type);
        return true;
    }
    bool visit(const RTDynamicArrayType& type) override { return container(type); }
    bool visit(const RTQueueType& type) override { return container(type); }

    bool visit(const RTAssocArrayType& type) override {
        container(type);
        line("index type", reference(type.m_indexTypeId, type.m_indexType));
        return true;
    }

    bool visit(const RTAggregateType& type) override {
        line("members", number(type.m_members.size()));
        for (std::size_t i = 0; i < type.m_members.size(); ++i)
            member(type, i);
        svTypeId(type);
        return true;
    }

    bool visit(const RTRecordType& type) override {
        line("record kind", recordKindText(type.m_recordKind));
        return visit(static_cast<const RTAggregateType&>(type));
    }

    bool visit(const RTClassType& type) override {
        line("base class", reference(type.m_baseClassTypeId, type.m_baseClass));
        return visit(static_cast<const RTAggregateType&>(type));
    }

    /// What the type answers when it is asked, whatever its class.
    void writeAnswers(const RTBaseType& type) {
        line("value encoding", encodingText(m_types.encodings->of(type)));
        const unsigned int size = type.getValueSize();
        line("value size", size != 0 ? counted(size, "byte") : "not recorded");
        if (const auto* alias = dynamic_cast<const RTTypedefType*>(&type))
            line("type behind", behind(*alias));
        if (const auto* container = dynamic_cast<const RTAbstractArrayType*>(&type))
            line("total dimensions", number(container->getTotalNumDimensions(false)));
        const PopulatedConstraints flattened =
            populateTypeConstraints(type, mostWalkSteps(m_lists));
        ranges("flattened constraints", flattened.ranges, flattened.isComplete);
    }

private:
    void line(std::string_view label, std::string_view value) {
        m_out << "  " << label << ": " << value << '\n';
    }

    void item(std::size_t index, std::string_view value) {
        m_out << "    " << m_style.paint(Ink::COMMENT, fmt::format("[{}]", index)) << ' ' << value
              << '\n';
    }

    template <typename Value> std::string number(const Value& value) const {
        return m_style.paint(Ink::NUMBER, fmt::format("{}", value));
    }

    std::string name(std::string_view quotedName) const {
        return m_style.paint(Ink::NAME, quotedName);
    }

    void svTypeId(const RTBaseType& type) {
        const int id = type.getSVTypeId();
        line("SV type id", id == TypeFileFormat::NO_SV_TYPE_ID ? "none" : number(id));
    }

    template <typename Type> bool designated(const Type& type, std::string_view label) {
        line(label, reference(type.m_refTypeId, type.m_refType));
        line("alignment", number(type.m_alignment));
        return true;
    }

    bool container(const RTAbstractArrayType& type) { return visit(type); }

    void member(const RTAggregateType& type, std::size_t index) {
        const RTAggregateType::t_Member* described = type.m_members[index];
        if (described == nullptr)
            return item(index, "(no member)");
        const RTBaseType* linked =
            index < type.m_memberTypes.size() ? type.m_memberTypes[index] : nullptr;
        std::string text = fmt::format("{}: {}", name(quotedName(described->m_memberName)),
                                       reference(described->m_typeId, linked));
        if (!described->m_constraints.empty())
            text += ", constraints: " + rangesInLine(described->m_constraints, true);
        const auto* classMember = dynamic_cast<const RTClassType::t_ClassMember*>(described);
        if (classMember != nullptr)
            text += classMember->m_memberFlag ? ", flag: true" : ", flag: false";
        item(index, text);
        rangeLines("      ", described->m_constraints);
    }

    std::string reference(unsigned int id, const RTBaseType* type) const {
        if (id == TypeFileFormat::NO_TYPE_ID && type == nullptr)
            return "none";
        if (type == nullptr)
            return number(id) + " (no type)";
        return number(id) + ' ' + name(nameOrShape(m_types, id, *type));
    }

    std::string reference(unsigned int id) const { return reference(id, m_types.typeOf(id)); }

    /// The type that `getSelf(false)` answers, with the id that the last typedef has for it.
    std::string behind(const RTTypedefType& type) const {
        const RTTypedefType* last = &type;
        while (const auto* next = dynamic_cast<const RTTypedefType*>(last->m_dataType))
            last = next;
        return reference(last->m_dataTypeId, type.getSelf(false));
    }

    /// Whether a list has lines of its own, so that all of it can be there.
    bool hasLines(const std::vector<FullConstraints>& list) const {
        return m_lists == RangeLists::WHOLE &&
               runsOf(list, MOST_RUNS_IN_LINE + 1).size() > MOST_RUNS_IN_LINE;
    }

    std::string rangesInLine(const std::vector<FullConstraints>& list, bool isComplete) const {
        if (!hasLines(list))
            return list.empty() ? "none" : number(runsText(list, RangeLists::SHORT, isComplete));
        return number(list.size()) + (isComplete ? "" : " and more");
    }

    void rangeLines(std::string_view indentation, const std::vector<FullConstraints>& list) {
        if (!hasLines(list))
            return;
        for (const auto& run : runsOf(list, list.size()))
            m_out << indentation << number(runText(run)) << '\n';
    }

    void ranges(std::string_view label, const std::vector<FullConstraints>& list,
                bool isComplete = true) {
        line(label, rangesInLine(list, isComplete));
        rangeLines("    ", list);
    }

    std::string bytes(const char* value, std::size_t size) const {
        std::string text = size == 0 ? "(no bytes)" : "";
        for (std::size_t i = 0; i < size; ++i)
            text +=
                fmt::format("{}{:02X}", i == 0 ? "" : " ", static_cast<unsigned char>(value[i]));
        return number(text);
    }

    std::ostream& m_out;
    const TypeTable& m_types;
    const TextStyle& m_style;
    const RangeLists m_lists;
};

/// Where a stream writes a declaration to: one of a single line stands behind its label, a longer
/// one below it.
class DeclarationField : public std::streambuf {
public:
    explicit DeclarationField(std::ostream& out)
        : m_out(out), m_indented(out, "    "), m_lines(&m_indented) {
        m_out << "  declaration:";
    }
    DeclarationField(const DeclarationField&) = delete;
    DeclarationField& operator=(const DeclarationField&) = delete;
    ~DeclarationField() override {
        if (!m_isLong)
            m_out << ' ' << m_firstLine;
    }

private:
    int_type overflow(int_type byte) override {
        const char text = traits_type::to_char_type(byte);
        return xsputn(&text, 1) == 1 ? traits_type::not_eof(byte) : traits_type::eof();
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override {
        const std::string_view added(text, static_cast<std::size_t>(size));
        if (m_isLong) {
            m_lines << added;
            return size;
        }
        const std::size_t before = m_firstLine.size();
        m_firstLine += added;
        const std::size_t end = m_firstLine.find('\n', before == 0 ? 0 : before - 1);
        if (end != std::string::npos && end + 1 < m_firstLine.size()) {
            m_isLong = true;
            m_out << '\n';
            m_lines << m_firstLine;
        }
        return size;
    }

    std::ostream& m_out;
    IndentedLines m_indented;
    std::ostream m_lines;
    std::string m_firstLine;
    bool m_isLong = false;
};

} // namespace

void dumpHeading(std::ostream& out, unsigned int id, const RTBaseType& type, const TypeTable& types,
                 const TextStyle& style) {
    out << style.paint(Ink::HEADING, fmt::format("type {}:", id)) << ' '
        << describedType(types, id, type, style) << '\n';
}

void dumpType(std::ostream& out, unsigned int id, const RTBaseType& type, const TypeTable& types,
              const TextStyle& style, RangeLists lists) {
    dumpHeading(out, id, type, types, style);
    const auto lookup = [&](unsigned int other) {
        return other == id ? &type : types.typeOf(other);
    };
    const TypeDeclarations declarations({0, lookup, types.encodings}, Naming::OWN);
    {
        DeclarationField field(out);
        std::ostream lines(&field);
        declarations.declare(lines, id);
    }
    out << "  flags: " << style.paint(Ink::NUMBER, fmt::format("{:#x}", type.m_flags)) << '\n';
    FieldWriter fields(out, types, style, lists);
    type.accept(fields);
    fields.writeAnswers(type);
    out << '\n';
}

} // namespace Inspect
