#include "Inspect/html/HtmlPage.h"

#include "Inspect/bytes/RecordFields.h"
#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/html/PackedForm.h"
#include "Inspect/html/PageText.h"
#include "Inspect/json/JsonText.h"
#include "Inspect/json/JsonValues.h"
#include "Inspect/translate/ValueDecoder.h"
#include "Inspect/words/TypeKind.h"
#include "Inspect/words/TypeText.h"
#include "RTTI/ConstraintPopulation.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/RecordLayout.h"
#include "TypeFile/StorageWindow.h"
#include "TypeFile/TypeFileFrame.h"

#include <fmt/format.h>

#include <zlib.h>

#include <algorithm>
#include <map>
#include <new>
#include <span>
#include <string_view>
#include <vector>

namespace Inspect {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

/// Types in one piece of the page's data. The list needs all records, and they come first; the page
/// takes a piece's details apart when one of its types is shown.
constexpr unsigned int TYPES_IN_CHUNK = 1000;

/// Runs of equal ranges that the page has of a type, unless all are wanted.
constexpr std::size_t MOST_RUNS = 1000;
constexpr unsigned long long MOST_RECORD_BYTES = 1ULL << 20;

/// Table and records lie in the order of the ids in most files.
constexpr std::size_t BLOCK = std::size_t{64} * 1024;

std::string base64Of(std::string_view bytes) {
    constexpr char DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        unsigned int group = 0;
        for (std::size_t j = 0; j < 3; ++j)
            group = group << 8 | (j < count ? static_cast<unsigned char>(bytes[i + j]) : 0);
        for (std::size_t j = 0; j < 4; ++j)
            text += j <= count ? DIGITS[group >> (18 - 6 * j) & 0x3F] : '=';
    }
    return text;
}

/// As browsers take it apart: deflated, with zlib's header.
std::string compressed(const std::string& text) {
    uLongf size = compressBound(static_cast<uLong>(text.size()));
    std::string bytes(size, '\0');
    if (compress(reinterpret_cast<Bytef*>(bytes.data()), &size,
                 reinterpret_cast<const Bytef*>(text.data()),
                 static_cast<uLong>(text.size())) != Z_OK)
        throw std::bad_alloc(); // The only fault that is left.
    bytes.resize(size);
    return bytes;
}

/// JSON that ends no script element and begins none, wherever names have brackets.
std::string scriptSafe(const JsonText& json) {
    std::string text;
    for (const char c : json.view())
        text += c == '<' ? "\\u003c" : std::string(1, c);
    return text;
}

/// Text between tags or in an attribute.
std::string htmlText(std::string_view text) {
    std::string result;
    for (const char c : escaped(text))
        result += c == '<'   ? "&lt;"
                  : c == '>' ? "&gt;"
                  : c == '&' ? "&amp;"
                  : c == '"' ? "&quot;"
                             : std::string(1, c);
    return result;
}

std::vector<std::string_view> textsOf(const TypeFile::NamedValues& values) {
    return {values.names, values.names + values.count};
}

void write(JsonText& text, std::span<const TypeFile::FieldLayout> layout);

void write(JsonText& text, const TypeFile::FieldLayout& field) {
    text.openObject();
    text.member("name", TypeFile::fieldWords(field.name));
    text.member("form", wordOf(field.form));
    text.member("width", TypeFile::widthOf(field.form));
    text.member("missing", field.missing);
    text.member("last", field.last);
    if (field.names != nullptr) {
        text.member("first", field.names->first);
        text.member("names", textsOf(*field.names));
    }
    if (field.form == FieldForm::RANGE) {
        text.key("parts");
        write(text, TypeFile::Layout::RANGE_PARTS);
    }
    if (field.form == FieldForm::RANGES) {
        text.key("count");
        write(text, TypeFile::Layout::RANGE_COUNT);
        text.key("item");
        write(text, TypeFile::Layout::RANGE_IN_LIST);
    }
    text.closeObject();
}

void write(JsonText& text, std::span<const TypeFile::FieldLayout> layout) {
    text.openList();
    for (const TypeFile::FieldLayout& field : layout)
        write(text, field);
    text.closeList();
}

/// The SystemVerilog type ids that mean something, with what they mean.
void writeSVTypeIds(JsonText& text) {
    text.key("svTypeIds");
    text.openObject();
    for (const int id : {NO_SV_TYPE_ID, STRING_SV_TYPE_ID, EVENT_SV_TYPE_ID})
        text.member(std::to_string(id), svTypeIdMeaning(id));
    text.closeObject();
}

/// What each kind code has, by the code; `write` gets the code.
void writeByKind(JsonText& text, const char* key, const std::function<void(unsigned int)>& write) {
    text.key(key);
    text.openObject();
    for (unsigned int code = ClassId::SEQ_ENUM; code <= ClassId::WILDCARD; ++code)
        write(code);
    text.closeObject();
}

void writeDetailedKinds(JsonText& text, unsigned int code, const TypeFile::NamedValues& details) {
    text.key(std::to_string(code));
    text.openObject();
    text.member("first", details.first);
    text.key("kinds");
    text.openList();
    for (std::size_t i = 0; i < details.count; ++i)
        text.value(kindOf(code, details.first + static_cast<unsigned int>(i)));
    text.closeList();
    text.closeObject();
}

/// What the page has to know to read records: layouts by kind code, words for kinds, and markers.
void writeFormat(JsonText& text) {
    text.openObject();
    text.key("head");
    write(text, TypeFile::Layout::HEAD);
    writeByKind(text, "bodies", [&](unsigned int code) {
        if (!TypeFile::buildsType(code))
            return;
        text.key(std::to_string(code));
        write(text, TypeFile::bodyLayout(code));
    });
    writeByKind(text, "words",
                [&](unsigned int code) { text.member(std::to_string(code), kindOf(code)); });
    writeByKind(text, "kinds",
                [&](unsigned int code) { text.member(std::to_string(code), kindOf(code, 0)); });
    text.member("noTypeId", NO_TYPE_ID);
    text.member("unpaddedByteFlag", UNPADDED_BYTE_FLAG);
    writeSVTypeIds(text);
    text.key("directions");
    text.openObject();
    text.member("to", TO_DIRECTION);
    text.member("downto", DOWNTO_DIRECTION);
    text.member("open", UNCONSTRAINED_DIRECTION);
    text.closeObject();
    text.key("details");
    text.openObject();
    writeDetailedKinds(text, ClassId::ARRAY, TypeFile::arrayKinds);
    writeDetailedKinds(text, ClassId::RECORD, TypeFile::recordKinds);
    text.closeObject();
    text.closeObject();
}

/// One page, written once.
class HtmlPage {
public:
    HtmlPage(std::ostream& out, const HtmlSource& source)
        : m_out(out), m_source(source), m_storage(source.storage, source.storageSize, BLOCK),
          m_frame(source.storage, source.storageSize, source.baseOffset),
          m_declarations(source.types, Naming::DISTINCT) {}

    void write(const std::function<void(unsigned int)>& progress);

private:
    void writeFile();
    void writeChunks(const std::function<void(unsigned int first, unsigned int end)>& writeChunk);
    void writeRecords(unsigned int first, unsigned int end);
    void writeDetails(unsigned int first, unsigned int end);
    void writeShapes(JsonText& text, unsigned int first, unsigned int end) const;
    void writePacked(JsonText& text, unsigned int first, unsigned int end) const;
    void writeDetails(JsonText& text, const RTBaseType& type, unsigned int id) const;
    unsigned long long addressOf(unsigned int id) const;
    void writeBlock(std::string_view mediaType, std::string_view name, std::string_view text) {
        m_out << fmt::format("<script type=\"{}\" class=\"{}\">{}</script>\n", mediaType, name,
                             text);
    }
    void writeBlock(std::string_view name, const JsonText& json) {
        writeBlock("application/json", name, scriptSafe(json));
    }

    std::ostream& m_out;
    const HtmlSource& m_source;
    TypeFile::StorageWindow m_storage;
    TypeFile::TypeFileFrame m_frame;
    TypeDeclarations m_declarations;
};

std::string base64OfHex(std::string_view digits) {
    std::string bytes;
    bytesOfHex(digits, bytes);
    return base64Of(bytes);
}

/// The page with everything at its place; nothing that is put in is looked at again.
void HtmlPage::write(const std::function<void(unsigned int)>& progress) {
    const std::map<std::string_view, std::function<void()>> places{
        {"title", [&] { m_out << htmlText(m_source.title); }},
        {"styleHash", [&] { m_out << base64OfHex(PageText::STYLE_HASH); }},
        {"scriptHash", [&] { m_out << base64OfHex(PageText::SCRIPT_HASH); }},
        {"style", [&] { m_out << PageText::STYLE; }},
        {"script",
         [&] {
             for (const std::string_view part : PageText::SCRIPT)
                 m_out << part;
         }},
        {"records",
         [&] {
             writeFile();
             writeChunks([&](unsigned int first, unsigned int end) { writeRecords(first, end); });
         }},
        {"details", [&] {
             writeChunks([&](unsigned int first, unsigned int end) {
                 writeDetails(first, end);
                 if (progress)
                     progress(end);
             });
         }}};
    std::string_view rest = PageText::PAGE;
    for (auto begin = rest.find("{{"); begin != std::string_view::npos; begin = rest.find("{{")) {
        const auto end = rest.find("}}");
        m_out << rest.substr(0, begin);
        places.at(rest.substr(begin + 2, end - begin - 2))();
        rest.remove_prefix(end + 2);
    }
    m_out << rest;
}

void HtmlPage::writeFile() {
    JsonText text;
    text.openObject();
    text.member("title", escaped(m_source.title));
    text.member("version", escaped(m_source.version));
    text.member("count", m_source.types.count);
    text.member("storageSize", m_source.storageSize);
    text.member("chunk", TYPES_IN_CHUNK);
    text.member("mostRecordBytes", MOST_RECORD_BYTES);
    text.member("mostFields", ValueDecoder::MOST_FIELDS);
    text.member("encodings", textsOf(TypeFile::valueEncodings));
    text.key("format");
    writeFormat(text);
    text.closeObject();
    writeBlock("file", text);
}

void HtmlPage::writeChunks(const std::function<void(unsigned int, unsigned int)>& writeChunk) {
    for (unsigned int first = 0; first < m_source.types.count && m_out;) {
        const unsigned int end = first + std::min(TYPES_IN_CHUNK, m_source.types.count - first);
        writeChunk(first, end);
        first = end;
    }
}

/// Behind the storage where the table has none.
unsigned long long HtmlPage::addressOf(unsigned int id) const {
    return id < m_frame.entryCount() ? m_frame.addressOf(id) : m_source.storageSize;
}

/// Addresses as text: not every one is a number in JavaScript.
void HtmlPage::writeRecords(unsigned int first, unsigned int end) {
    std::vector<unsigned long long> sizes;
    std::vector<std::string> addresses;
    std::string bytes;
    for (unsigned int id = first; id < end; ++id) {
        const unsigned long long address = addressOf(id);
        const TypeFile::RecordFrame record = m_frame.recordAt(address);
        const unsigned long long size =
            record.hasHead() ? std::min(record.size(), MOST_RECORD_BYTES) : 0;
        sizes.push_back(size);
        addresses.push_back(fmt::format("{:x}", address));
        for (unsigned long long at = 0; at < size;) {
            const auto count =
                static_cast<std::size_t>(std::min<unsigned long long>(BLOCK, size - at));
            bytes.append(m_storage.at(address + at, count), count);
            at += count;
        }
    }
    JsonText text;
    text.openObject();
    text.member("first", first);
    text.member("sizes", sizes);
    text.member("addresses", addresses);
    writeShapes(text, first, end);
    writePacked(text, first, end);
    text.member("bytes", base64Of(bytes));
    text.closeObject();
    writeBlock("records", text);
}

/// Null where there is no type.
void HtmlPage::writeDetails(unsigned int first, unsigned int end) {
    JsonText text;
    text.openList();
    for (unsigned int id = first; id < end; ++id) {
        if (const RTBaseType* type = m_source.types.typeOf(id))
            writeDetails(text, *type, id);
        else
            text.value(nullptr);
    }
    text.closeList();
    writeBlock("text/plain", "details", base64Of(compressed(std::string(text.view()))));
}

/// What types without names are, by id: alone, and behind their kind.
void HtmlPage::writeShapes(JsonText& text, unsigned int first, unsigned int end) const {
    text.key("shapes");
    text.openObject();
    for (unsigned int id = first; id < end; ++id) {
        const RTBaseType* type = m_source.types.typeOf(id);
        if (type != nullptr && !isGivenName(type->m_name))
            text.member(std::to_string(id), std::vector{shapeOf(m_source.types, id, *type),
                                                        shapeBehindKind(m_source.types, id, type)});
    }
    text.closeObject();
}

/// What packed values consist of, by id; only of types whose whole record the page has.
void HtmlPage::writePacked(JsonText& text, unsigned int first, unsigned int end) const {
    text.key("packed");
    text.openObject();
    for (unsigned int id = first; id < end; ++id) {
        const RTBaseType* type = m_source.types.typeOf(id);
        if (type == nullptr || m_frame.recordAt(addressOf(id)).size() > MOST_RECORD_BYTES ||
            !hasPackedForm(m_source.types, *type))
            continue;
        text.key(std::to_string(id));
        writePackedForm(text, m_source.types, id, *type);
    }
    text.closeObject();
}

void HtmlPage::writeDetails(JsonText& text, const RTBaseType& type, unsigned int id) const {
    const PopulatedConstraints flattened =
        populateTypeConstraints(type, mostWalkSteps(m_source.lists));
    const std::size_t most =
        m_source.lists == RangeLists::WHOLE ? flattened.ranges.size() : MOST_RUNS;
    text.openList();
    text.value(static_cast<int>(m_source.types.encodings->of(type)));
    text.value(type.getValueSize());
    text.value(m_declarations.declarationOf(id));
    text.value(flattened.ranges.size());
    text.value(flattened.isComplete);
    text.openList();
    for (const auto& run : runsOf(flattened.ranges, most)) {
        text.openList();
        text.value(run.count);
        text.value(run.entry.si);
        text.value(run.entry.ei);
        text.value(run.entry.dir);
        text.closeList();
    }
    text.closeList();
    text.closeList();
}

} // namespace

void writeHtmlPage(std::ostream& out, const HtmlSource& source,
                   const std::function<void(unsigned int)>& progress) {
    HtmlPage(out, source).write(progress);
}

} // namespace Inspect
