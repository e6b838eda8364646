// The page as text: what its data holds, and that nothing in it is taken for HTML. What it does in
// a browser is tested there.

#include "Inspect/html/HtmlPage.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <zlib.h>

#include <sstream>

namespace {

using namespace Inspect;
using namespace RTTI;
using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

std::string bytesOf(const std::string& base64) {
    const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string bytes;
    unsigned int bits = 0;
    for (std::size_t i = 0; i < base64.size() && base64[i] != '='; ++i) {
        bits = bits << 6 | static_cast<unsigned int>(digits.find(base64[i]));
        if (i % 4 > 0)
            bytes += static_cast<char>(bits >> (6 - 2 * (i % 4)));
    }
    return bytes;
}

std::string inflated(const std::string& bytes) {
    std::string text(1 << 20, '\0');
    uLongf size = text.size();
    EXPECT_EQ(uncompress(reinterpret_cast<Bytef*>(text.data()), &size,
                         reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()),
              Z_OK);
    text.resize(size);
    return text;
}

/// The page of a built file, with its data taken apart.
class Page {
public:
    explicit Page(const TypeFileBuilder& file, unsigned int count, const std::string& title = "t",
                  RangeLists lists = RangeLists::SHORT) {
        const std::string image = file.image();
        RecordingBlockManager storage(image);
        RTTypeManager manager;
        manager.setupDeserializer(storage, file.baseOffset());
        const TypeTable types{count, [&](unsigned int id) { return manager.getRTType(id); }};
        std::ostringstream out;
        writeHtmlPage(out, {title, "V 1", storage, image.size(), file.baseOffset(), types, lists},
                      [this](unsigned int done) { m_progress.push_back(done); });
        m_text = out.str();
    }

    const std::string& text() const { return m_text; }
    const std::vector<unsigned int>& progress() const { return m_progress; }

    /// The data blocks of a name, in their order.
    std::vector<json> blocks(const std::string& name) const {
        std::vector<json> found;
        for (const std::string& text : texts("application/json", name))
            found.push_back(json::parse(text));
        return found;
    }

    std::vector<json> details() const {
        std::vector<json> found;
        for (const std::string& text : texts("text/plain", "details"))
            found.push_back(json::parse(inflated(bytesOf(text))));
        return found;
    }

private:
    std::vector<std::string> texts(const std::string& mediaType, const std::string& name) const {
        const std::string begin = "<script type=\"" + mediaType + "\" class=\"" + name + "\">";
        std::vector<std::string> found;
        for (auto at = m_text.find(begin); at != std::string::npos; at = m_text.find(begin, at)) {
            at += begin.size();
            found.push_back(m_text.substr(at, m_text.find("</script>", at) - at));
        }
        return found;
    }

    std::string m_text;
    std::vector<unsigned int> m_progress;
};

TEST(HtmlPage, HasTheBytesOfRecords) {
    TypeFileBuilder file;
    file.record(ClassId::STRING, "").record(ClassId::STRING, "s");
    const json records = Page(file, 2).blocks("records").at(0);
    EXPECT_EQ(records["first"], 0);
    EXPECT_EQ(records["sizes"], json({13, 14}));
    EXPECT_EQ(records["addresses"], json({"28", "35"}));
    // 0D000000 180000A0 00 00000000, 0E000000 180000A0 7300 00000000
    EXPECT_EQ(records["bytes"], "DQAAABgAAKAAAAAAAA4AAAAYAACgcwAAAAAA");
}

TEST(HtmlPage, PadsTheBytesOfRecords) {
    TypeFileBuilder one;
    one.record(ClassId::STRING, "");
    EXPECT_EQ(Page(one, 1).blocks("records").at(0)["bytes"], "DQAAABgAAKAAAAAAAA==");
    TypeFileBuilder two;
    two.record(ClassId::STRING, "s");
    EXPECT_EQ(Page(two, 1).blocks("records").at(0)["bytes"], "DgAAABgAAKBzAAAAAAA=");
}

TEST(HtmlPage, HasWhatTypesAnswer) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "bit").u32(1).u32(1).u32(2).str("0").str("1").u32(1);
    file.record(ClassId::ARRAY, "byte_t").u32(VLOG_FIXED_PACKED_ARRAY).u32(0).u32(1).u32(0);
    file.u32(1).range(7, 0, 0).i32(-99);
    const json details = Page(file, 2).details().at(0);
    EXPECT_EQ(details[0][0], 1); // 2-State
    EXPECT_EQ(details[0][1], 1);
    EXPECT_EQ(details[0][3], 0);
    EXPECT_THAT(details[1][2].get<std::string>(), HasSubstr("byte_t"));
    EXPECT_EQ(details[1][3], 1);
    EXPECT_EQ(details[1][4], true);
    EXPECT_EQ(details[1][5], json::parse("[[1, 7, 0, 0]]"));
}

TEST(HtmlPage, HasTheShapesOfTypesWithoutNames) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "bit").u32(1).u32(1).u32(2).str("0").str("1").u32(1);
    file.record(ClassId::ARRAY, "").u32(VLOG_FIXED_PACKED_ARRAY).u32(0).u32(1).u32(0);
    file.u32(1).range(7, 0, 0).i32(-99);
    const json records = Page(file, 2).blocks("records").at(0);
    EXPECT_EQ(records["shapes"], json({{"1", {"bit [7:0]", "bit [7:0]"}}}));
}

/// `logic` and `logic [3:0]`, ids 0 and 1.
TypeFileBuilder logicTypes() {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "logic").u32(0).u32(VLOG_BUILTIN_ENUM).u32(0).u32(1);
    file.record(ClassId::ARRAY, "").u32(VLOG_FIXED_PACKED_ARRAY).u32(0).u32(1).u32(0);
    return file.u32(1).range(3, 0, 1).i32(-99);
}

TypeFileBuilder& addEnum(TypeFileBuilder& file, std::initializer_list<const char*> values) {
    file.record(ClassId::DISCRETE_ENUM, "e").u32(1).u32(static_cast<unsigned int>(values.size()));
    file.u32(2);
    for (const char* value : values)
        file.str("L").bytes({value, 2});
    return file.u32(0);
}

TEST(HtmlPage, HasTheWidthsOfPackedTypesAndWhereTheirMembersAre) {
    TypeFileBuilder file = logicTypes();
    file.record(ClassId::RECORD, "s").u32(VLOG_PACKED_STRUCT).u32(2);
    file.str("a").u32(1).u32(0).str("b").u32(0).u32(0).i32(-99);
    file.record(ClassId::ARRAY, "rows").u32(VLOG_FIXED_PACKED_ARRAY).u32(2).u32(2).u32(0).u32(0);
    file.u32(2).range(0, 1, 0).range(7, 6, 1).i32(-99).string("no bits");
    const json packed = Page(file, 5).blocks("records").at(0)["packed"];
    EXPECT_EQ(packed["0"], json({{"width", 1}}));
    EXPECT_EQ(packed["1"], json({{"width", 4}}));
    EXPECT_EQ(packed["2"], json({{"width", 5}, {"offsets", {1, 0}}}));
    EXPECT_EQ(packed["3"], json({{"of", 2}, {"ranges", {{0, 1}, {7, 6}}}}));
    EXPECT_EQ(packed.size(), 4u);
}

TEST(HtmlPage, HasTheValuesOfLiteralsThatAreNoPositions) {
    TypeFileBuilder file = logicTypes();
    addEnum(file, {"\x00\x00", "\x01\x00"});
    addEnum(file, {"\x0A\x00", "\x00\x00", "\x0F\x0F", "\x01\x08"});
    const json packed = Page(file, 4).blocks("records").at(0)["packed"];
    EXPECT_EQ(packed["2"], json({{"width", 4}, {"values", nullptr}}));
    EXPECT_EQ(packed["3"], json({{"width", 4}, {"values", {"$a", "$0", "$x", "%z001"}}}));
}

TEST(HtmlPage, HasNothingOfPackedValuesWhereTheRecordIsCut) {
    TypeFileBuilder file = logicTypes();
    file.record(ClassId::TYPEDEF, std::string(2 << 20, 'n')).u32(0).u32(0);
    const json packed = Page(file, 3).blocks("records").at(0)["packed"];
    EXPECT_TRUE(packed.contains("1"));
    EXPECT_FALSE(packed.contains("2"));
}

TEST(HtmlPage, SaysWhereThereIsNoType) {
    TypeFileBuilder file;
    file.record(ClassId::LOGIC, "l").string("s").claim(0x7FFFFFFF);
    const Page page(file, 1);
    EXPECT_EQ(page.details().at(0), json::array({nullptr}));
}

TEST(HtmlPage, HasTheFirstThousandRunsOfRanges) {
    TypeFileBuilder file;
    file.string("s").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0).u32(1500);
    for (int i = 0; i < 1500; ++i)
        file.u32(0);
    file.u32(1500);
    for (int i = 0; i < 1500; ++i)
        file.range(i, 0, 0);
    file.i32(-99);
    const json details = Page(file, 2).details().at(0);
    EXPECT_EQ(details[1][3], 1500);
    ASSERT_EQ(details[1][5].size(), 1000u);
    EXPECT_EQ(details[1][5][999], json({1, 999, 0, 0}));
}

TEST(HtmlPage, HasTheFirstMebibyteOfARecord) {
    TypeFileBuilder file;
    file.record(ClassId::STRING, std::string(2 << 20, 'n'));
    const json records = Page(file, 1).blocks("records").at(0);
    EXPECT_EQ(records["sizes"], json::array({1 << 20}));
    EXPECT_EQ(records["bytes"].get<std::string>().size(), ((1u << 20) + 2) / 3 * 4);
}

TEST(HtmlPage, HasAThousandRunsOfRangesUnlessTheyAreToBeWhole) {
    TypeFileBuilder file;
    file.integer("int").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0).u32(1001);
    for (int i = 0; i < 1001; ++i)
        file.u32(0);
    file.u32(1001);
    for (int i = 0; i < 1001; ++i)
        file.range(i, 0, 0);
    file.i32(-99);
    const auto runs = [&](RangeLists lists) {
        return Page(file, 2, "t", lists).details().at(0)[1][5].size();
    };
    EXPECT_EQ(runs(RangeLists::SHORT), 1000u);
    EXPECT_EQ(runs(RangeLists::WHOLE), 1001u);
}

TEST(HtmlPage, ComesInPiecesOfAThousandTypes) {
    TypeFileBuilder file;
    for (int i = 0; i < 1001; ++i)
        file.string("s");
    const Page page(file, 1001);
    const std::vector<json> records = page.blocks("records");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0]["sizes"].size(), 1000u);
    EXPECT_EQ(records[1]["first"], 1000);
    EXPECT_EQ(records[1]["sizes"].size(), 1u);
    EXPECT_EQ(page.details().at(1).size(), 1u);
    EXPECT_EQ(page.blocks("file").at(0)["count"], 1001);
    EXPECT_THAT(page.progress(), ElementsAre(1000u, 1001u));
}

/// A browser shows the list of types before it has read the rest.
TEST(HtmlPage, HasItsScriptBetweenRecordsAndDetails) {
    const std::string text = Page(TypeFileBuilder().string("s"), 1).text();
    const auto script = text.find("<script>");
    EXPECT_LT(text.find("class=\"records\""), script);
    EXPECT_LT(script, text.find("class=\"details\""));
    EXPECT_NE(text.find("class=\"details\""), std::string::npos);
}

/// The script of the page states none of it again.
TEST(HtmlPage, HasTheWidthsAndMarkersOfTheFormat) {
    const json format = Page(TypeFileBuilder(), 0).blocks("file").at(0)["format"];
    EXPECT_EQ(format["head"][0], json::parse(R"({"name": "record size", "form": "recordSize",
                                                 "width": 4, "missing": 0, "last": 0})"));
    const json real = format["bodies"][std::to_string(ClassId::FLOAT)];
    ASSERT_EQ(real.size(), 4u);
    EXPECT_EQ(real[0]["width"], 4);
    EXPECT_EQ(real[0]["last"], 3);
    EXPECT_EQ(real[3]["width"], 8);
    const json ranges = format["bodies"][std::to_string(ClassId::TYPEDEF)][1];
    EXPECT_EQ(ranges["count"]["name"], "constraint count");
    EXPECT_EQ(ranges["item"]["width"], 12);
    ASSERT_EQ(ranges["item"]["parts"].size(), 3u);
    EXPECT_EQ(ranges["item"]["parts"][2]["name"], "direction");
    EXPECT_EQ(format["noTypeId"], 0xFFFFFFFF);
    EXPECT_EQ(format["unpaddedByteFlag"], 0x10);
    EXPECT_EQ(format["directions"], json({{"to", 1}, {"downto", 0}, {"open", -2}}));
    EXPECT_EQ(format["svTypeIds"], json({{"-99", "none"}, {"-5", "string"}, {"-7", "event"}}));
}

TEST(HtmlPage, OfAFileWithoutTypesHasNone) {
    const Page page(TypeFileBuilder(), 0);
    EXPECT_TRUE(page.blocks("records").empty());
    EXPECT_EQ(page.blocks("file").at(0)["count"], 0);
}

TEST(HtmlPage, EscapesTheTitle) {
    const std::string text = Page(TypeFileBuilder(), 0, "<b>&\"\xE4").text();
    EXPECT_THAT(text, HasSubstr("<title>&lt;b&gt;&amp;&quot;\\xE4</title>"));
    EXPECT_THAT(text, Not(HasSubstr("<b>")));
    EXPECT_THAT(text, HasSubstr("\"title\":\"\\u003cb>&\\\"\\\\xE4\""));
}

TEST(HtmlPage, IsAsciiAndAllowsItsOwnScriptAlone) {
    TypeFileBuilder file;
    file.string("</script>\xE2\x80\xA8").string("<!--");
    const std::string text = Page(file, 2).text();
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](char c) { return c > 0 && c < 0x7F; }));
    EXPECT_THAT(text, HasSubstr("content=\"default-src 'none'; script-src 'sha256-"));
    EXPECT_THAT(text, Not(HasSubstr("unsafe-")));
    EXPECT_THAT(text, Not(HasSubstr("{{")));
    EXPECT_THAT(text, Not(HasSubstr("<!--")));
}

} // namespace
