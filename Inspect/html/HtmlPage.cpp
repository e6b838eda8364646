#include "Inspect/html/HtmlPage.h"

#include "Inspect/bytes/RecordFields.h"
#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/html/PackedForm.h"
#include "Inspect/html/PageText.h"
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

/// ASCII that ends no script element and begins none, wherever names have brackets.
std::string scriptSafe(const Json& json) {
    std::string text;
    for (const char c : json.dump(-1, ' ', true))
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

Json jsonOf(std::span<const TypeFile::FieldLayout> layout);

Json jsonOf(const TypeFile::FieldLayout& field) {
    Json json{{"name", TypeFile::fieldWords(field.name)},
              {"form", wordOf(field.form)},
              {"width", TypeFile::widthOf(field.form)},
              {"missing", field.missing},
              {"last", field.last}};
    if (field.names != nullptr) {
        json["first"] = field.names->first;
        json["names"] =
            std::vector<std::string>(field.names->names, field.names->names + field.names->count);
    }
    if (field.form == FieldForm::RANGE)
        json["parts"] = jsonOf(TypeFile::Layout::RANGE_PARTS);
    if (field.form == FieldForm::RANGES) {
        json["count"] = jsonOf(TypeFile::Layout::RANGE_COUNT);
        json["item"] = jsonOf(TypeFile::Layout::RANGE_IN_LIST);
    }
    return json;
}

Json jsonOf(std::span<const TypeFile::FieldLayout> layout) {
    Json list = Json::array();
    for (const TypeFile::FieldLayout& field : layout)
        list.push_back(jsonOf(field));
    return list;
}

/// The SystemVerilog type ids that mean something, with what they mean.
Json svTypeIdsJson() {
    Json ids = Json::object();
    for (const int id : {NO_SV_TYPE_ID, STRING_SV_TYPE_ID, EVENT_SV_TYPE_ID})
        ids[std::to_string(id)] = svTypeIdMeaning(id);
    return ids;
}

/// What the page has to know to read records: layouts by kind code, words for kinds, and markers.
Json formatJson() {
    Json bodies = Json::object();
    Json words = Json::object();
    Json kinds = Json::object();
    for (unsigned int code = ClassId::SEQ_ENUM; code <= ClassId::WILDCARD; ++code) {
        const std::string key = std::to_string(code);
        words[key] = kindOf(code);
        kinds[key] = kindOf(code, 0);
        if (kindOf(code) != BUILDS_NO_TYPE)
            bodies[key] = jsonOf(TypeFile::bodyLayout(code));
    }
    const auto detailed = [](unsigned int code, const TypeFile::NamedValues& details) {
        Json list = Json::array();
        for (std::size_t i = 0; i < details.count; ++i)
            list.push_back(kindOf(code, details.first + static_cast<unsigned int>(i)));
        return Json{{"first", details.first}, {"kinds", std::move(list)}};
    };
    return {
        {"head", jsonOf(TypeFile::Layout::HEAD)},
        {"bodies", std::move(bodies)},
        {"words", std::move(words)},
        {"kinds", std::move(kinds)},
        {"noTypeId", NO_TYPE_ID},
        {"unpaddedByteFlag", UNPADDED_BYTE_FLAG},
        {"svTypeIds", svTypeIdsJson()},
        {"directions",
         {{"to", TO_DIRECTION}, {"downto", DOWNTO_DIRECTION}, {"open", UNCONSTRAINED_DIRECTION}}},
        {"details",
         {{std::to_string(ClassId::ARRAY), detailed(ClassId::ARRAY, TypeFile::arrayKinds)},
          {std::to_string(ClassId::RECORD), detailed(ClassId::RECORD, TypeFile::recordKinds)}}}};
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
    Json shapesOf(unsigned int first, unsigned int end) const;
    Json packedOf(unsigned int first, unsigned int end) const;
    Json detailsOf(unsigned int id) const;
    unsigned long long addressOf(unsigned int id) const;
    void writeBlock(std::string_view mediaType, std::string_view name, std::string_view text) {
        m_out << fmt::format("<script type=\"{}\" class=\"{}\">{}</script>\n", mediaType, name,
                             text);
    }
    void writeBlock(std::string_view name, const Json& json) {
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
    std::vector<std::string> encodings(TypeFile::valueEncodings.names,
                                       TypeFile::valueEncodings.names +
                                           TypeFile::valueEncodings.count);
    writeBlock("file", {{"title", escaped(m_source.title)},
                        {"version", escaped(m_source.version)},
                        {"count", m_source.types.count},
                        {"storageSize", m_source.storageSize},
                        {"chunk", TYPES_IN_CHUNK},
                        {"mostRecordBytes", MOST_RECORD_BYTES},
                        {"mostFields", ValueDecoder::MOST_FIELDS},
                        {"encodings", std::move(encodings)},
                        {"format", formatJson()}});
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
    Json sizes = Json::array();
    Json addresses = Json::array();
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
    writeBlock("records", {{"first", first},
                           {"sizes", std::move(sizes)},
                           {"addresses", std::move(addresses)},
                           {"shapes", shapesOf(first, end)},
                           {"packed", packedOf(first, end)},
                           {"bytes", base64Of(bytes)}});
}

void HtmlPage::writeDetails(unsigned int first, unsigned int end) {
    Json list = Json::array();
    for (unsigned int id = first; id < end; ++id)
        list.push_back(detailsOf(id));
    writeBlock("text/plain", "details", base64Of(compressed(list.dump())));
}

/// What types without names are, by id: alone, and behind their kind.
Json HtmlPage::shapesOf(unsigned int first, unsigned int end) const {
    Json shapes = Json::object();
    for (unsigned int id = first; id < end; ++id) {
        const RTBaseType* type = m_source.types.typeOf(id);
        if (type != nullptr && !isGivenName(type->m_name))
            shapes[std::to_string(id)] = {shapeOf(m_source.types, id, *type),
                                          shapeBehindKind(m_source.types, id, type)};
    }
    return shapes;
}

/// What packed values consist of, by id; only of types whose whole record the page has.
Json HtmlPage::packedOf(unsigned int first, unsigned int end) const {
    Json forms = Json::object();
    for (unsigned int id = first; id < end; ++id) {
        const RTBaseType* type = m_source.types.typeOf(id);
        if (type == nullptr || m_frame.recordAt(addressOf(id)).size() > MOST_RECORD_BYTES)
            continue;
        Json form = packedForm(m_source.types, id, *type);
        if (!form.is_null())
            forms[std::to_string(id)] = std::move(form);
    }
    return forms;
}

/// Null where there is no type.
Json HtmlPage::detailsOf(unsigned int id) const {
    const RTBaseType* type = m_source.types.typeOf(id);
    if (type == nullptr)
        return {};
    const PopulatedConstraints flattened =
        populateTypeConstraints(*type, mostWalkSteps(m_source.lists));
    const std::size_t most =
        m_source.lists == RangeLists::WHOLE ? flattened.ranges.size() : MOST_RUNS;
    Json runs = Json::array();
    for (const auto& run : runsOf(flattened.ranges, most))
        runs.push_back(Json::array({run.count, run.entry.si, run.entry.ei, run.entry.dir}));
    return Json::array({static_cast<int>(m_source.types.encodings->of(*type)), type->getValueSize(),
                        m_declarations.declarationOf(id), flattened.ranges.size(),
                        flattened.isComplete, std::move(runs)});
}

} // namespace

void writeHtmlPage(std::ostream& out, const HtmlSource& source,
                   const std::function<void(unsigned int)>& progress) {
    HtmlPage(out, source).write(progress);
}

} // namespace Inspect
