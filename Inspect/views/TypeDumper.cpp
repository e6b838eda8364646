#include "Inspect/views/TypeDumper.h"

#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/words/Counted.h"
#include "Inspect/words/IndentedLines.h"
#include "RTTI/ConstraintPopulation.h"
#include "TypeFile/TypeFields.h"

#include <fmt/format.h>

#include <string_view>
#include <type_traits>
#include <vector>

namespace Inspect {

using namespace RTTI;
using TypeFile::fieldWords;
namespace Form = TypeFile::Form;
using TypeFile::forEachField;

/// Writes the fields of a type's own class, in the order of its record, then its answers.
class TypeDumper::Fields {
public:
    explicit Fields(TypeDumper& dumper)
        : m_out(dumper.m_out), m_types(dumper.m_types), m_style(dumper.m_style),
          m_lists(dumper.m_lists), m_fieldLabels(dumper.m_fieldLabels) {}

    void writeFields(const RTBaseType& type) {
        TypeFile::asItsClass(type, [this](const auto& object) {
            forEachField(object, [&](const char* field, const auto& value, const auto& form) {
                write(object, field, value, form);
            });
        });
    }

    /// What the type answers when it is asked, whatever its class.
    void writeAnswers(const RTBaseType& type) {
        label("value encoding");
        writeNamed(m_out, m_types.encodings->of(type));
        endLine();
        label("value size");
        const unsigned int size = type.getValueSize();
        m_out << (size != 0 ? counted(size, "byte") : "not recorded");
        endLine();
        switch (type.GetClassId()) {
        case ClassId::TYPEDEF: behind(static_cast<const RTTypedefType&>(type)); break;
        case ClassId::DYNAMIC_ARRAY:
        case ClassId::QUEUE:
        case ClassId::ASSOC_ARRAY:
            label("total dimensions");
            number(static_cast<const RTAbstractArrayType&>(type).getTotalNumDimensions(false));
            endLine();
            break;
        default: break;
        }
        const PopulatedConstraints flattened =
            populateTypeConstraints(type, mostWalkSteps(m_lists));
        label("flattened constraints");
        ranges(flattened.ranges, flattened.isComplete);
    }

private:
    void label(std::string_view words) { m_out << "  " << words << ": "; }
    void fieldLabel(const char* field) {
        std::string& words = m_fieldLabels[field];
        if (words.empty())
            words = "  " + fieldWords(field) + ": ";
        m_out << words;
    }
    void endLine() { m_out << '\n'; }

    void beginItem(std::size_t index) {
        m_out << "    " << m_style.begin(Ink::COMMENT) << '[' << index << ']' << m_style.end()
              << ' ';
    }

    template <typename Value> void number(const Value& value) {
        m_out << m_style.begin(Ink::NUMBER);
        if constexpr (std::is_same_v<Value, FullConstraints>)
            writeRange(m_out, value);
        else if constexpr (std::is_floating_point_v<Value>)
            m_out << fmt::format("{}", value);
        else
            m_out << value;
        m_out << m_style.end();
    }

    void name(const char* text) {
        m_out << m_style.begin(Ink::NAME);
        writeQuotedName(m_out, text);
        m_out << m_style.end();
    }

    /// A field of a line.
    /// @{
    template <typename Number, typename FieldForm>
    void write(const RTBaseType&, const char* field, Number value, const FieldForm&) {
        fieldLabel(field);
        number(value);
        endLine();
    }
    template <typename Enum>
    void write(const RTBaseType&, const char* field, Enum value, Form::Named) {
        fieldLabel(field);
        writeNamed(m_out, value);
        endLine();
    }
    void write(const RTBaseType&, const char* field, const std::vector<FullConstraints>& list,
               Form::Ranges) {
        fieldLabel(field);
        ranges(list, true);
    }
    void write(const RTBaseType&, const char* field, int id, Form::SVTypeId) {
        fieldLabel(field);
        if (id == TypeFileFormat::NO_SV_TYPE_ID)
            m_out << "none";
        else
            number(id);
        endLine();
    }
    template <typename Object, typename Link>
    void write(const Object& object, const char* field, unsigned int id,
               const Form::TypeId<Link>& form) {
        fieldLabel(field);
        reference(id, object.*form.link);
        endLine();
    }
    /// @}

    /// The type answers it as well.
    void write(const RTBaseType&, const char*, unsigned int size, Form::ValueSize) {
        m_valueSize = size;
    }

    template <typename List, typename Item>
    void write(const RTBaseType&, const char* field, const List& list, const Form::Items<Item>&) {
        fieldLabel(field);
        number(list.size());
        endLine();
        for (std::size_t i = 0; i < list.size(); ++i) {
            beginItem(i);
            item(list[i]);
            endLine();
        }
    }
    void item(const char* text) { name(text); }
    void item(unsigned int id) { reference(id, m_types.typeOf(id)); }

    template <typename Object, typename List, typename Entry>
    void write(const Object& object, const char* field, const List& list,
               const Form::Entries<Entry>& form) {
        fieldLabel(field);
        number(list.size());
        endLine();
        for (std::size_t i = 0; i < list.size(); ++i) {
            EntryWriter entry{*this};
            if constexpr (std::is_base_of_v<RTAggregateType, Object>)
                entry.linked = i < object.m_memberTypes.size() ? object.m_memberTypes[i] : nullptr;
            beginItem(i);
            if (!forEachField(form, list, i, entry))
                m_out << "(no member)";
            endLine();
            if (entry.ranges != nullptr)
                rangeLines("      ", *entry.ranges);
        }
    }

    /// Writes an entry of a list in a line, its name first.
    struct EntryWriter {
        Fields& fields;
        const RTBaseType* linked = nullptr;                   ///< What a member's type id leads to.
        const std::vector<FullConstraints>* ranges = nullptr; ///< Those that it has.

        void operator()(const char*, const std::string& name, Form::Name) const {
            fields.m_out << fields.m_style.begin(Ink::NAME);
            writeQuoted(fields.m_out, name);
            fields.m_out << fields.m_style.end();
        }
        void operator()(const char*, const char* name, Form::Name) const { fields.name(name); }
        void operator()(const char*, long long value, Form::Number) const {
            fields.m_out << " = ";
            fields.number(value);
        }
        void operator()(const char*, const char* value, Form::Value) const {
            fields.m_out << " = ";
            fields.bytes(value);
        }
        template <typename Link>
        void operator()(const char*, unsigned int id, const Form::TypeId<Link>&) const {
            fields.m_out << ": ";
            fields.reference(id, linked);
        }
        void operator()(const char* field, const std::vector<FullConstraints>& list, Form::Ranges) {
            ranges = &list;
            if (list.empty())
                return;
            fields.m_out << ", " << field << ": ";
            fields.rangesInLine(list, true);
        }
        void operator()(const char* field, bool value, Form::Boolean) const {
            fields.m_out << ", " << field << ": " << (value ? "true" : "false");
        }
    };

    void reference(unsigned int id, const RTBaseType* type) {
        if (id == TypeFileFormat::NO_TYPE_ID && type == nullptr) {
            m_out << "none";
            return;
        }
        number(id);
        if (type == nullptr) {
            m_out << " (no type)";
            return;
        }
        m_out << ' ' << m_style.begin(Ink::NAME);
        writeNameOrShape(m_out, m_types, id, *type);
        m_out << m_style.end();
    }

    /// The type that `getSelf(false)` answers, with the id that the last typedef has for it.
    void behind(const RTTypedefType& type) {
        const RTTypedefType* last = &type;
        while (last->m_dataType != nullptr && last->m_dataType->GetClassId() == ClassId::TYPEDEF)
            last = static_cast<const RTTypedefType*>(last->m_dataType);
        label("type behind");
        reference(last->m_dataTypeId, last->m_dataType);
        endLine();
    }

    /// Whether a list has lines of its own, so that all of it can be there.
    bool hasLines(const std::vector<FullConstraints>& list) const {
        return m_lists == RangeLists::WHOLE &&
               runsOf(list, MOST_RUNS_IN_LINE + 1).size() > MOST_RUNS_IN_LINE;
    }

    void rangesInLine(const std::vector<FullConstraints>& list, bool isComplete) {
        if (hasLines(list)) {
            number(list.size());
            m_out << (isComplete ? "" : " and more");
        } else if (list.empty()) {
            m_out << "none";
        } else {
            m_out << m_style.begin(Ink::NUMBER);
            writeRuns(m_out, list, RangeLists::SHORT, isComplete);
            m_out << m_style.end();
        }
    }

    void rangeLines(std::string_view indentation, const std::vector<FullConstraints>& list) {
        if (!hasLines(list))
            return;
        for (std::size_t at = 0; at < list.size();) {
            const auto run = runAt(list, at);
            m_out << indentation << m_style.begin(Ink::NUMBER);
            writeRun(m_out, run);
            m_out << m_style.end() << '\n';
            at += run.count;
        }
    }

    void ranges(const std::vector<FullConstraints>& list, bool isComplete) {
        rangesInLine(list, isComplete);
        endLine();
        rangeLines("    ", list);
    }

    void bytes(const char* value) {
        m_out << m_style.begin(Ink::NUMBER) << (m_valueSize == 0 ? "(no bytes)" : "");
        for (std::size_t i = 0; i < m_valueSize; ++i) {
            m_out << (i == 0 ? "" : " ");
            writeByte(m_out, value[i]);
        }
        m_out << m_style.end();
    }

    Text& m_out;
    const TypeTable& m_types;
    const TextStyle& m_style;
    const RangeLists m_lists;
    std::unordered_map<const char*, std::string>& m_fieldLabels;
    std::size_t m_valueSize = 0; ///< Of the type's literals.
};

TypeDumper::TypeDumper(std::ostream& out, const TypeTable& types, const TextStyle& style,
                       RangeLists lists)
    : m_out(out), m_types(types), m_style(style), m_lists(lists),
      m_declarations({0,
                      [this](unsigned int id) { return id == m_id ? m_type : m_types.typeOf(id); },
                      m_types.encodings, m_types.widths},
                     Naming::OWN) {}

void TypeDumper::heading(unsigned int id, const RTBaseType& type) {
    writeHeading(id, type);
    m_out.flush();
}

void TypeDumper::type(unsigned int id, const RTBaseType& type) {
    writeHeading(id, type);
    m_id = id;
    m_type = &type;
    m_out << "  declaration:";
    IndentedLines lines(m_out, "    ", IndentedLines::Single::BEHIND_LABEL);
    m_declarations.declare(m_out, id);
    lines.end();
    (m_out << "  flags: " << m_style.begin(Ink::NUMBER) << "0x").digits(type.m_flags, 16)
        << m_style.end() << '\n';
    Fields fields(*this);
    fields.writeFields(type);
    fields.writeAnswers(type);
    m_out << '\n';
    m_out.flush();
}

void TypeDumper::writeHeading(unsigned int id, const RTBaseType& type) {
    m_out.truncate(0); // An exception may have ended the call before.
    m_out << m_style.begin(Ink::HEADING) << "type " << id << ':' << m_style.end() << ' ';
    writeDescription(m_out, m_types, id, type, m_style);
    m_out << '\n';
}

} // namespace Inspect
