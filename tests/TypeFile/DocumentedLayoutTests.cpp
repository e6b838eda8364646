#include "Inspect/words/TypeKind.h"
#include "TypeFile/RecordLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

// The tables of docs/type-file-format.md are those of the layouts: what is expected here can be
// copied into the document.

namespace {

using TypeFile::FieldForm;
using TypeFile::FieldLayout;
using TypeFile::NamedValues;
using Tables = std::vector<std::string>;

std::string cell(const std::string& text) { return text.empty() ? " |" : " " + text + " |"; }
std::string code(const std::string& text) { return "`" + text + "`"; }

/// Codes are written as `annotate` does, in hexadecimal digits.
std::string valueText(const NamedValues& names, std::size_t index) {
    std::ostringstream text;
    text << std::hex << names.first + index;
    return names.first != 0 ? code(text.str()) : std::to_string(index);
}

/// What the document says of a form, apart from its width.
std::string meaningOf(const FieldLayout& field) {
    switch (field.form) {
    case FieldForm::RECORD_SIZE: return "bytes of the whole record, these four included; signed";
    case FieldForm::KIND: return "kind code";
    case FieldForm::NAME: return "name";
    case FieldForm::FLAGS: return "flags";
    case FieldForm::NUMBER: return "signed";
    case FieldForm::UNSIGNED: return "unsigned";
    case FieldForm::OFFSET: return "storage offset, unsigned";
    case FieldForm::NAMED:
        return "named value, " + valueText(*field.names, 0) + " to " +
               valueText(*field.names, field.names->count - 1);
    case FieldForm::FLAVOUR:
        return "0 to " + std::to_string(field.last) + "; larger values are replaced by 0";
    case FieldForm::TYPE_ID:
        return TypeFile::Link::has(field.link, TypeFile::Link::OR_NONE) ? "type id, or \"no type\""
                                                                        : "type id";
    case FieldForm::SV_TYPE_ID: return "signed; -99 for none";
    case FieldForm::BOOLEAN: return "0 for false";
    case FieldForm::LONG: return "signed";
    case FieldForm::REAL: return "IEEE 754 double";
    case FieldForm::DIRECTION: return "IEEE 754 double; truncated towards zero";
    case FieldForm::RANGE: return "range";
    case FieldForm::VERSION: return "text; bytes after its zero byte are ignored";
    case FieldForm::COUNT:
        return &field == &TypeFile::Layout::RANGE_COUNT ? "unsigned" : "signed; 0 or less for none";
    case FieldForm::VALUE_SIZE: return "bytes of a value; signed";
    case FieldForm::VALUE: return "bytes of the value";
    case FieldForm::RANGES:
    case FieldForm::LIST:
    case FieldForm::END_OF_LIST: break;
    }
    return "";
}

/// Makes the table of a layout, a row for each field.
class LayoutTable {
public:
    explicit LayoutTable(bool hasPlaces) : m_hasPlaces(hasPlaces) {
        m_text = std::string(hasPlaces ? "| at " : "") + "| bytes | field | content |\n" +
                 (hasPlaces ? "|---" : "") + "|---|---|---|\n";
    }

    void add(std::span<const FieldLayout> fields) {
        for (const FieldLayout& field : fields) {
            if (field.form == FieldForm::LIST) {
                m_list = &field;
            } else if (field.form == FieldForm::END_OF_LIST) {
                m_list = nullptr;
            } else if (field.form == FieldForm::RANGES) {
                addRow(TypeFile::Layout::RANGE_COUNT, "");
                addRow(TypeFile::Layout::RANGE_IN_LIST, "[i]");
            } else {
                addRow(field, "");
            }
        }
    }

    const std::string& text() const { return m_text; }

private:
    void addRow(const FieldLayout& field, const char* index) {
        const std::size_t width = widthOf(field.form);
        std::string name = m_list != nullptr ? std::string(m_list->name) + "[n]" : "";
        name += (name.empty() || *field.name == '\0' ? "" : ".") + std::string(field.name) + index;
        const std::string missing =
            field.missing != 0 ? "; " + std::to_string(field.missing) + " if missing" : "";
        m_text += m_hasPlaces ? "|" + cell(std::to_string(m_place)) : "|";
        m_text += cell(width != 0 ? std::to_string(width) : "") + cell(code(name)) +
                  cell(meaningOf(field) + missing) + "\n";
        m_place += width;
    }

    bool m_hasPlaces;
    std::string m_text;
    const FieldLayout* m_list = nullptr;
    std::size_t m_place = 0;
};

std::string tableOf(std::span<const FieldLayout> layout, bool hasPlaces = false) {
    LayoutTable table(hasPlaces);
    table.add(layout);
    return table.text();
}

std::string kindTable() {
    std::ostringstream table;
    table << "| kind | type |\n|---|---|\n" << std::hex;
    for (unsigned int kind = 0; kind != 0x100; ++kind) {
        const unsigned int kindCode = RTTI::ClassId::BASE_TYPE + kind;
        if (TypeFile::isKind(kindCode))
            table << "| `" << kindCode << "` | " << Inspect::kindOf(kindCode) << " |\n";
    }
    return table.str();
}

/// The tables of the values that fields of all kinds name.
Tables namedValueTables() {
    Tables tables;
    for (unsigned int kind = 0; kind != 0x100; ++kind) {
        for (const FieldLayout& field : TypeFile::bodyLayout(RTTI::ClassId::BASE_TYPE + kind)) {
            if (field.names == nullptr)
                continue;
            std::string table = "| value | " + code(field.name) + " |\n|---|---|\n";
            for (std::size_t i = 0; i < field.names->count; ++i)
                table += "| " + valueText(*field.names, i) + " | " + field.names->names[i] + " |\n";
            tables.push_back(table);
        }
    }
    return tables;
}

/// The tables under each heading of the document, headings in lower case.
std::map<std::string, Tables> documentedTables() {
    std::ifstream file(TYPE_FILE_FORMAT);
    std::map<std::string, Tables> sections;
    std::string heading;
    bool isInTable = false;
    for (std::string line; std::getline(file, line);) {
        const bool isRow = line.starts_with('|');
        if (line.starts_with("## ") || line.starts_with("### ")) {
            heading = line.substr(line.find(' ') + 1);
            for (char& c : heading)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            sections[heading];
        } else if (isRow && !isInTable) {
            sections[heading].emplace_back();
        }
        if (isRow)
            sections[heading].back() += line + "\n";
        isInTable = isRow;
    }
    return sections;
}

TEST(DocumentedLayout, OfEveryKindIsTheTableUnderItsHeading) {
    const auto documented = documentedTables();
    std::map<std::string, Tables> expected;
    for (unsigned int kind = 0; kind != 0x100; ++kind) {
        const unsigned int kindCode = RTTI::ClassId::BASE_TYPE + kind;
        if (!TypeFile::buildsType(kindCode))
            continue;
        const std::string_view words = Inspect::kindOf(kindCode);
        const auto section =
            std::find_if(documented.begin(), documented.end(), [&](const auto& entry) {
                return entry.first.find(words) != std::string::npos;
            });
        ASSERT_NE(section, documented.end()) << "There is no heading for the " << words;
        Tables& tables = expected[section->first];
        const auto layout = TypeFile::bodyLayout(kindCode);
        const std::string table = tableOf(layout);
        if (!layout.empty() && std::find(tables.begin(), tables.end(), table) == tables.end())
            tables.push_back(table);
    }
    for (const auto& [heading, tables] : expected)
        EXPECT_EQ(documented.at(heading), tables) << heading;
}

TEST(DocumentedLayout, OfWhatAllKindsShareIsComplete) {
    const auto documented = documentedTables();
    EXPECT_EQ(documented.at("header"), Tables{tableOf(TypeFile::Layout::HEADER, true)});
    EXPECT_EQ(documented.at("ranges"), Tables{tableOf(TypeFile::Layout::RANGE_PARTS)});
    EXPECT_EQ(documented.at("named values"), namedValueTables());
    const Tables records{tableOf(TypeFile::Layout::HEAD), kindTable()};
    EXPECT_EQ(documented.at("records"), records);
}

} // namespace
