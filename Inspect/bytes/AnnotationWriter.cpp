#include "Inspect/bytes/AnnotationWriter.h"

#include "Inspect/json/JsonValues.h"
#include "Inspect/json/PartJson.h"
#include "Inspect/words/Counted.h"
#include "TypeFile/FieldNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace Inspect {

using TypeFile::fieldWords;
using TypeFile::Finding;
using TypeFile::Severity;
using TypeFile::StorageWindow;

namespace {

/// A range fits into a line.
constexpr std::size_t ROW_SIZE = 12;

// Columns of the text, in characters.
constexpr std::size_t HEX_WIDTH = 3 * ROW_SIZE - 1;
constexpr std::size_t NAME_WIDTH = 27;
constexpr std::size_t VALUE_WIDTH = 12;

/// So many of the types that share a record are named.
constexpr std::size_t NAMED_SHARERS = 8;

/// Bytes of a field are written to JSON in pieces of this size.
constexpr std::size_t PIECE_SIZE = 4096;

std::string_view wordOf(AnnotatedPart::Kind kind) {
    constexpr std::string_view WORDS[] = {"header", "address table", "record", "gap", "file"};
    return WORDS[static_cast<std::size_t>(kind)];
}

/// Bytes of the field that are shown.
unsigned long long shownSize(const RecordField& field) {
    return field.state == FieldState::UNREAD ? std::min(field.size, LONGEST_UNREAD) : field.size;
}

std::string padded(std::string_view text, std::size_t width) {
    return fmt::format("{:<{}}", text, width);
}

/// "type 3", "types 3, 7, 9 and 20 more".
std::string typesText(const std::vector<unsigned int>& ids) {
    std::string text = ids.size() == 1 ? "type " : "types ";
    const std::size_t named = std::min(ids.size(), NAMED_SHARERS);
    for (std::size_t i = 0; i < named; ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(ids[i]);
    if (ids.size() > named)
        text += fmt::format(" and {} more", ids.size() - named);
    return text;
}

class TextWriter : public AnnotationWriter {
public:
    TextWriter(std::ostream& out, const TextStyle& style) : m_out(out), m_style(style) {}

    void beginPart(const AnnotatedPart& part) override {
        m_out << (m_isFirst ? "" : "\n");
        m_isFirst = false;
        const std::string title = part.kind == AnnotatedPart::Kind::RECORD
                                      ? typesText(part.typeIds)
                                      : std::string(wordOf(part.kind));
        m_out << m_style.paint(Ink::HEADING, title) << fmt::format(" at {:#x}", part.offset);
        if (part.head.isThere)
            m_out << ": " << m_style.paint(Ink::KEYWORD, part.head.kind)
                  << (part.head.label.empty() ? "" : " ")
                  << m_style.paint(Ink::NAME, part.head.label);
        m_out << ", " << counted(part.size, "byte");
        if (part.kind == AnnotatedPart::Kind::GAP)
            m_out << " that belong to nothing";
        m_out << '\n';
    }

    void field(const RecordField& field, StorageWindow& storage) override {
        const unsigned long long size = shownSize(field);
        unsigned long long at = 0;
        do {
            const auto count =
                static_cast<std::size_t>(std::min<unsigned long long>(ROW_SIZE, size - at));
            m_out << "  " << m_style.paint(Ink::COMMENT, fmt::format("{:08x}", field.offset + at));
            const std::string hex =
                count != 0 ? hexRow(storage.at(field.offset + at, count), count) : "";
            if (at == 0)
                m_out << "  " << firstRow(field, hex);
            else if (count != 0)
                m_out << "  " << hex;
            m_out << '\n';
            at += count;
        } while (at < size);
        if (size < field.size)
            m_out << "  ... " << counted(field.size - size, "more byte") << '\n';
    }

    void finding(const Finding& finding) override {
        const Ink ink = finding.severity == Severity::ERROR ? Ink::ERROR : Ink::WARNING;
        m_out << "            "
              << m_style.paint(ink, fmt::format("^ {} {}", severityText(finding.severity),
                                                codeText(finding.code)))
              << ", " << fieldWords(finding.field) << ": " << finding.text << '\n';
    }

    void endPart() override {}
    void end(std::size_t, std::size_t) override {}

private:
    static std::string hexRow(const char* bytes, std::size_t count) {
        std::string row;
        for (std::size_t i = 0; i < count; ++i)
            row += fmt::format("{}{:02x}", i == 0 ? "" : " ", static_cast<unsigned char>(bytes[i]));
        return row;
    }

    /// Without blanks at its end.
    std::string firstRow(const RecordField& field, const std::string& hex) const {
        std::string name = fieldWords(field.name);
        if (field.lastItem)
            name += fmt::format(" to [{}]", *field.lastItem);
        std::string row = name.empty() ? hex : padded(hex, HEX_WIDTH) + "  ";
        const bool isLast = field.value.empty() && field.meaning.empty();
        row += isLast ? name : padded(name, NAME_WIDTH) + "  ";
        const std::string value =
            field.meaning.empty() ? field.value : padded(field.value, VALUE_WIDTH);
        row += m_style.paint(inkOf(field), value);
        if (!field.meaning.empty())
            row += "  " + m_style.paint(Ink::COMMENT, field.meaning);
        return row;
    }

    static Ink inkOf(const RecordField& field) {
        if (field.state != FieldState::WHOLE)
            return Ink::WARNING;
        return field.form == FieldForm::NAME || field.form == FieldForm::VERSION ? Ink::NAME
                                                                                 : Ink::NUMBER;
    }

    std::ostream& m_out;
    TextStyle m_style;
    bool m_isFirst = true;
};

/// What is inside the last line stays open until the next comes.
class JsonWriter : public AnnotationWriter {
public:
    explicit JsonWriter(std::ostream& out) : m_out(out) {
        openDocument(m_text, "HDL simulator type file bytes");
        m_text.key("parts");
        m_text.openList();
    }

    void beginPart(const AnnotatedPart& part) override {
        m_text.newLine();
        m_text.openObject();
        m_text.member("part", wordOf(part.kind));
        m_text.member("offset", part.offset);
        m_text.member("size", part.size);
        if (part.kind == AnnotatedPart::Kind::RECORD)
            m_text.member("ids", part.typeIds);
        if (part.head.isThere)
            kindMembers(m_text, part.head.kindCode, part.head.detail);
        m_text.key("fields");
        m_text.openList();
    }

    void field(const RecordField& field, StorageWindow& storage) override {
        closeField();
        openField(field.offset);
        m_text.member("size", field.size);
        m_text.key("field");
        if (field.state == FieldState::UNREAD)
            m_text.value(nullptr);
        else
            m_text.value(field.name);
        m_text.member("value", field.value);
        m_text.member("meaning", field.meaning);
        m_text.member("state", wordOf(field.state));
        if (field.typeId != RTTI::TypeFileFormat::NO_TYPE_ID)
            m_text.member("type", field.typeId);
        m_text.key("bytes");
        writeBytes(field, storage);
    }

    void finding(const Finding& finding) override {
        if (!m_isFieldOpen)
            openField(finding.offset);
        if (!m_hasFinding) {
            m_text.key("findings");
            m_text.openList();
        }
        m_hasFinding = true;
        m_text.openObject();
        m_text.member("severity", severityText(finding.severity));
        m_text.member("code", codeText(finding.code));
        m_text.member("field", finding.field);
        m_text.member("offset", finding.offset);
        m_text.member("text", finding.text);
        m_text.closeObject();
    }

    void endPart() override {
        closeField();
        m_text.closeList();
        m_text.closeObject();
        m_text.writeTo(m_out);
    }

    void end(std::size_t errors, std::size_t warnings) override {
        m_text.endOfLines();
        m_text.closeList();
        m_text.member("errors", errors);
        m_text.member("warnings", warnings);
        m_text.closeObject();
        m_text.endOfLines();
        m_text.writeTo(m_out);
    }

private:
    void openField(unsigned long long offset) {
        m_text.newLine();
        m_text.openObject();
        m_text.member("offset", offset);
        m_isFieldOpen = true;
        m_hasFinding = false;
    }

    void writeBytes(const RecordField& field, StorageWindow& storage) {
        m_text.openString();
        const unsigned long long size = shownSize(field);
        for (unsigned long long at = 0; at < size; at += PIECE_SIZE) {
            const auto count =
                static_cast<std::size_t>(std::min<unsigned long long>(PIECE_SIZE, size - at));
            m_text.string(hexOf({storage.at(field.offset + at, count), count}));
            m_text.writeTo(m_out);
        }
        m_text.closeString();
    }

    void closeField() {
        if (!m_isFieldOpen)
            return;
        if (m_hasFinding)
            m_text.closeList();
        m_text.closeObject();
        m_text.writeTo(m_out);
        m_isFieldOpen = false;
    }

    std::ostream& m_out;
    JsonText m_text;
    bool m_isFieldOpen = false;
    bool m_hasFinding = false;
};

} // namespace

std::unique_ptr<AnnotationWriter> textAnnotations(std::ostream& out, const TextStyle& style) {
    return std::make_unique<TextWriter>(out, style);
}

std::unique_ptr<AnnotationWriter> jsonAnnotations(std::ostream& out) {
    return std::make_unique<JsonWriter>(out);
}

} // namespace Inspect
