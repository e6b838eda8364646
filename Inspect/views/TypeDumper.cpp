#include "Inspect/views/TypeDumper.h"

#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/IndentedLines.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/ConstraintPopulation.h"
#include "TypeFile/TypeFields.h"

#include <fmt/format.h>

#include <streambuf>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Inspect {

using namespace RTTI;
using TypeFile::fieldWords;
namespace Form = TypeFile::Form;
using TypeFile::forEachField;

namespace {

/// Writes the fields of a type's own class, in the order of its record, then its answers.
class FieldWriter {
public:
    FieldWriter(std::ostream& out, const TypeTable& types, const TextStyle& style, RangeLists lists)
        : m_out(out), m_types(types), m_style(style), m_lists(lists) {}

    void writeFields(const RTBaseType& type) {
        TypeFile::asItsClass(type, [this](const auto& object) {
            forEachField(object, [&](const char* field, const auto& value, const auto& form) {
                write(object, field, value, form);
            });
        });
    }

    /// What the type answers when it is asked, whatever its class.
    void writeAnswers(const RTBaseType& type) {
        line("value encoding", namedText(m_types.encodings->of(type)));
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
        m_line.assign("  ").append(label).append(": ").append(value).append("\n");
        m_out << m_line;
    }

    void item(std::size_t index, std::string_view value) {
        m_line.assign("    ").append(m_style.paint(Ink::COMMENT, fmt::format("[{}]", index)));
        m_line.append(" ").append(value).append("\n");
        m_out << m_line;
    }

    template <typename Value> std::string number(const Value& value) const {
        return m_style.paint(Ink::NUMBER, fmt::format("{}", value));
    }

    std::string name(std::string_view quotedName) const {
        return m_style.paint(Ink::NAME, quotedName);
    }

    template <typename Number, typename FieldForm>
    void write(const RTBaseType&, const char* field, Number value, const FieldForm&) {
        line(fieldWords(field), number(value));
    }
    template <typename Enum>
    void write(const RTBaseType&, const char* field, Enum value, Form::Named) {
        line(fieldWords(field), namedText(value));
    }
    void write(const RTBaseType&, const char* field, const FullConstraints& range, Form::Range) {
        line(fieldWords(field), number(rangeText(range)));
    }
    void write(const RTBaseType&, const char* field, const std::vector<FullConstraints>& list,
               Form::Ranges) {
        ranges(fieldWords(field), list);
    }

    /// The type answers it as well.
    void write(const RTBaseType&, const char*, unsigned int size, Form::ValueSize) {
        m_valueSize = size;
    }

    void write(const RTBaseType&, const char* field, int id, Form::SVTypeId) {
        line(fieldWords(field), id == TypeFileFormat::NO_SV_TYPE_ID ? "none" : number(id));
    }

    template <typename Object, typename Link>
    void write(const Object& object, const char* field, unsigned int id,
               const Form::TypeId<Link>& form) {
        line(fieldWords(field), reference(id, object.*form.link));
    }

    template <typename List, typename Item>
    void write(const RTBaseType&, const char* field, const List& list, const Form::Items<Item>&) {
        line(fieldWords(field), number(list.size()));
        for (std::size_t i = 0; i < list.size(); ++i)
            item(i, itemText(list[i]));
    }
    std::string itemText(const char* text) const { return name(quotedName(text)); }
    std::string itemText(unsigned int id) const { return reference(id, m_types.typeOf(id)); }

    template <typename Object, typename List, typename Entry>
    void write(const Object& object, const char* field, const List& list,
               const Form::Entries<Entry>& form) {
        line(fieldWords(field), number(list.size()));
        for (std::size_t i = 0; i < list.size(); ++i) {
            EntryText entry{*this};
            if constexpr (std::is_base_of_v<RTAggregateType, Object>)
                entry.linked = i < object.m_memberTypes.size() ? object.m_memberTypes[i] : nullptr;
            const bool isThere = forEachField(form, list, i, entry);
            item(i, isThere ? entry.text : "(no member)");
            if (entry.ranges != nullptr)
                rangeLines("      ", *entry.ranges);
        }
    }

    /// An entry of a list in a line.
    struct EntryText {
        const FieldWriter& writer;
        const RTBaseType* linked = nullptr; ///< What a member's type id leads to.
        std::string text = {};
        const std::vector<FullConstraints>* ranges = nullptr;

        void operator()(const char*, const std::string& name, Form::Name) {
            text = writer.name(quoted(name));
        }
        void operator()(const char*, const char* name, Form::Name) {
            text = writer.name(quotedName(name));
        }
        void operator()(const char*, long long value, Form::Number) {
            text += " = " + writer.number(value);
        }
        void operator()(const char*, const char* value, Form::Value) {
            text += " = " + writer.bytes(value);
        }
        template <typename Link>
        void operator()(const char*, unsigned int id, const Form::TypeId<Link>&) {
            text += ": " + writer.reference(id, linked);
        }
        void operator()(const char* field, const std::vector<FullConstraints>& list, Form::Ranges) {
            ranges = &list;
            if (!list.empty())
                text += fmt::format(", {}: {}", field, writer.rangesInLine(list, true));
        }
        void operator()(const char* field, bool value, Form::Boolean) {
            text += fmt::format(", {}: {}", field, value);
        }
    };

    std::string reference(unsigned int id, const RTBaseType* type) const {
        if (id == TypeFileFormat::NO_TYPE_ID && type == nullptr)
            return "none";
        if (type == nullptr)
            return number(id) + " (no type)";
        return number(id) + ' ' + name(nameOrShape(m_types, id, *type));
    }

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

    std::string bytes(const char* value) const {
        std::string text = m_valueSize == 0 ? "(no bytes)" : "";
        for (std::size_t i = 0; i < m_valueSize; ++i)
            text +=
                fmt::format("{}{:02X}", i == 0 ? "" : " ", static_cast<unsigned char>(value[i]));
        return number(text);
    }

    std::ostream& m_out;
    const TypeTable& m_types;
    const TextStyle& m_style;
    const RangeLists m_lists;
    std::string m_line;          ///< Its room is kept.
    std::size_t m_valueSize = 0; ///< Of the type's literals.
};

/// Where a stream writes a declaration to: one of a single line stands behind its label, a longer
/// one below it.
class DeclarationField : public std::streambuf {
public:
    explicit DeclarationField(std::ostream& out)
        : m_out(out), m_indented(out, "    "), m_lines(&m_indented) {
        m_lines.exceptions(std::ios::badbit);
        m_out << "  declaration:";
    }

    /// Called once, last.
    void end() {
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
    const TypeDeclarations declarations({0, lookup, types.encodings, types.widths}, Naming::OWN);
    DeclarationField field(out);
    std::ostream lines(&field);
    lines.exceptions(std::ios::badbit); // Else memory that runs out would cut the text.
    declarations.declare(lines, id);
    field.end();
    out << "  flags: " << style.paint(Ink::NUMBER, fmt::format("{:#x}", type.m_flags)) << '\n';
    FieldWriter fields(out, types, style, lists);
    fields.writeFields(type);
    fields.writeAnswers(type);
    out << '\n';
}

} // namespace Inspect
