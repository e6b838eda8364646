#include "Inspect/views/TypeLeaves.h"
#include "RTTI/CTType.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr FullConstraints BYTE{7, 0, 0};
constexpr FullConstraints LANES{0, 3, 1};

std::string leavesOf(const TypeTable& types, unsigned int id) {
    std::ostringstream out;
    writeLeaves(out, types, {id}, TextStyle::plain());
    return out.str();
}

std::string leavesOf(LinkedTypes& types, unsigned int id) { return leavesOf(types.table(), id); }

std::string jsonOf(LinkedTypes& types, unsigned int id) {
    std::ostringstream out;
    writeLeavesJson(out, types.table(), {id}, JsonForm::LINES);
    return out.str();
}

TEST(TypeLeaves, EndBehindAsManyPartsAsTheWalkMayLookAt) {
    LinkedTypes types;
    unsigned int type = types.plain<RTStringType>();
    for (int i = 0; i < 60; ++i) // 2^60 leaves.
        type = types.structure({type, type});
    std::ostringstream out;
    EXPECT_FALSE(writeLeaves(out, types.table(), {type, 1000}, TextStyle::plain()));
    EXPECT_THAT(out.str(), EndsWith("\n... and more\n"));
    std::ostringstream json;
    EXPECT_FALSE(writeLeavesJson(json, types.table(), {type, 1000}, JsonForm::DOCUMENT));
    EXPECT_THAT(json.str(), EndsWith("]}\n"));
}

TEST(TypeLeaves, StandInColumns) {
    LinkedTypes types;
    const auto logic = types.logic();
    const auto byte = types.alias("byte_t", types.packed(logic, {BYTE}));
    const auto header = types.structure("hdr_t", {{"len", byte}, {"ok", logic}});
    const auto packet = types.structure("pkt", {{"hdr", header}, {"text", types.string()}});
    const std::string rows =
        "pkt.hdr.len" + std::string(31, ' ') + "logic" + std::string(21, ' ') + "4-State" +
        std::string(8, ' ') + "7:0" + std::string(6, ' ') + "7 downto 0\n" + "pkt.hdr.ok" +
        std::string(32, ' ') + "logic" + std::string(21, ' ') + "4-State" + std::string(8, ' ') +
        "0" + std::string(8, ' ') + "-\n" + "pkt.text" + std::string(34, ' ') + "string" +
        std::string(20, ' ') + "2-State" + std::string(8, ' ') + "-" + std::string(8, ' ') + "-\n";
    EXPECT_EQ(leavesOf(types, packet), rows);
}

/// The rows with one space for several.
std::string squeezed(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c != ' ' || result.empty() || result.back() != ' ')
            result += c;
    }
    return result;
}

TEST(TypeLeaves, ArrayOfScalarsIsOneLeafWithAllItsDimensions) {
    LinkedTypes types;
    const auto byte = types.alias("byte_t", types.packed(types.logic(), {BYTE}));
    const auto memory = types.array(VLOG_FIXED_UNPACKED_ARRAY, "mem", byte, {LANES, {1, 0, 0}});
    EXPECT_EQ(squeezed(leavesOf(types, memory)),
              "mem logic 4-State 7:0 0 to 3, 1 downto 0, 7 downto 0\n");
}

TEST(TypeLeaves, ArrayOfStructsIsPartOfThePath) {
    LinkedTypes types;
    const auto lane = types.structure("lane_t", {{"data", types.packed(types.logic(), {BYTE})}});
    const auto lanes = types.array(VLOG_FIXED_UNPACKED_ARRAY, "", lane, {LANES, {1, 0, 0}});
    const auto record = types.structure("r", {{"lanes", lanes}, {"all", types.queue(lanes)}});
    EXPECT_EQ(squeezed(leavesOf(types, record)),
              "r.lanes[0 to 3, 1 downto 0].data logic 4-State 7:0 7 downto 0\n"
              "r.all[queue, 0 to 3, 1 downto 0].data logic 4-State 7:0 7 downto 0\n");
}

/// An array of thirteen dimensions whose elements are queues of queues.
unsigned int longArray(LinkedTypes& types, unsigned int elementId) {
    Ranges ranges(5, LANES);
    for (int i = 1; i <= 8; ++i)
        ranges.push_back({i, 0, 0});
    return types.array(VLOG_FIXED_UNPACKED_ARRAY, "", types.queue(types.queue(elementId)), ranges);
}

TEST(TypeLeaves, LongListsOfDimensionsAreShort) {
    LinkedTypes types;
    const auto lane = types.structure("lane_t", {{"data", longArray(types, types.logic())}});
    const auto record = types.structure("r", {{"lanes", longArray(types, lane)}});
    const std::string dimensions =
        "(0 to 3) x 5, (1 downto 0), (2 downto 0), (3 downto 0), (4 downto 0), (5 downto 0), "
        "(6 downto 0), (7 downto 0), ... 15 in all";
    EXPECT_EQ(squeezed(leavesOf(types, record)),
              "r.lanes[" + dimensions + "].data logic 4-State 0 " + dimensions + '\n');
}

TEST(TypeLeaves, LongListsOfDimensionsAreWholeOnRequestAndInJson) {
    LinkedTypes types;
    const auto record = types.structure("r", {{"m", types.logic()}});
    const auto list = types.alias("t", longArray(types, record));
    const std::string path =
        "t[0 to 3, 0 to 3, 0 to 3, 0 to 3, 0 to 3, 1 downto 0, 2 downto 0, 3 downto 0, "
        "4 downto 0, 5 downto 0, 6 downto 0, 7 downto 0, 8 downto 0, queue, queue].m";
    const TypeTable table = types.table();
    LeavesRequest request{list};
    request.lists = RangeLists::WHOLE;
    std::ostringstream out;
    writeLeaves(out, table, request, TextStyle::plain());
    EXPECT_THAT(out.str(), StartsWith(path + "  "));
    std::ostringstream json;
    writeLeavesJson(json, table, {list}, JsonForm::LINES);
    EXPECT_THAT(json.str(), testing::HasSubstr("{\"path\":\"" + path + "\","));
}

TEST(TypeLeaves, VariableDimensionsOfScalarsAreWords) {
    LinkedTypes types;
    const auto byte = types.packed(types.logic(), {BYTE});
    types.add<CTDynamicArrayType>("", byte);
    types.add<CTAssocArrayType>("", types.last(), byte);
    const auto alias = types.alias("t", types.queue(types.last()));
    EXPECT_EQ(squeezed(leavesOf(types, alias)),
              "t logic 4-State 7:0 queue, associative, dynamic, 7 downto 0\n");
}

TEST(TypeLeaves, EnumerationIsNamedForItself) {
    LinkedTypes types;
    const auto base = types.packed(types.logic(), {{1, 0, 0}});
    types.discreteEnum(base);
    const auto list = types.packed(types.last(), {LANES});
    const auto record = types.structure("r", {{"s", list}});
    EXPECT_EQ(squeezed(leavesOf(types, record)),
              "r.s enum logic [1:0] { } 4-State 7:0 0 to 3, 1 downto 0\n");
}

TEST(TypeLeaves, InheritedMembersComeFirst) {
    LinkedTypes types;
    const auto string = types.string();
    const auto base = types.classType("base", {{"id", string}});
    const auto derived = types.classType("derived", {{"more", string}, {"up", 1}}, base);
    EXPECT_EQ(squeezed(leavesOf(types, derived)), "derived.id string 2-State - -\n"
                                                  "derived.more string 2-State - -\n"
                                                  "derived.up.id string 2-State - -\n");
}

TEST(TypeLeaves, ClassThatLeadsBackAndEmptyStructAreLeaves) {
    LinkedTypes types;
    const auto empty = types.structure("empty", {});
    const auto node = types.classType("node", {{"next", 1}, {"none", empty}});
    EXPECT_EQ(squeezed(leavesOf(types, node)), "node.next node (seen above) - - -\n"
                                               "node.none empty - - -\n");
}

TEST(TypeLeaves, ScalarsHaveTheirRange) {
    LinkedTypes types;
    const auto integer = types.integer("integer", -8, 7);
    const auto natural = types.alias("natural", integer, {{0, 7, 1}});
    const auto array = types.array(VHDL_ARRAY, "a", natural, {LANES});
    EXPECT_EQ(squeezed(leavesOf(types, array)), "a integer Byte - 0 to 3, range 0 to 7\n");
}

TEST(TypeLeaves, RealsHaveTheirRangeUnlessItIsAny) {
    LinkedTypes types;
    auto& real = types.add<RTFloatType>();
    real.m_left = 0.5;
    real.m_right = 1e9;
    real.m_direction = 1;
    EXPECT_THAT(leavesOf(types, 0), EndsWith("  range 0.5 to 1000000000\n"));
    real.m_left = -1.79769e+308;
    real.m_right = 1.79769e+308;
    EXPECT_THAT(leavesOf(types, 0), EndsWith("  -\n"));
}

TEST(TypeLeaves, PathOfATypeWithoutANameBeginsWithItsId) {
    LinkedTypes types;
    const auto record = types.structure("", {{"s", types.string()}, {"a.b", 0}, {"\x1B", 0}});
    EXPECT_EQ(squeezed(leavesOf(types, record)), "1.s string 2-State - -\n"
                                                 "1.\"a.b\" string 2-State - -\n"
                                                 "1.\"\\x1B\" string 2-State - -\n");
}

TEST(TypeLeaves, MissingTypesAreLeaves) {
    LinkedTypes types;
    const auto record = types.structure({NO_TYPE_ID, types.alias(NO_TYPE_ID)});
    EXPECT_EQ(squeezed(leavesOf(types, record)), "1.\"\" (no type) - - -\n"
                                                 "1.\"\" (no type) - - -\n");
}

TEST(TypeLeaves, OfAChainOfAHundredThousandStructsIsOne) {
    LinkedTypes types;
    unsigned int type = types.plain<RTStringType>();
    for (int i = 0; i < 100000; ++i)
        type = types.structure({type});
    const std::string leaves = leavesOf(types, type);
    EXPECT_THAT(leaves, StartsWith("100000.\"\".\"\""));
    EXPECT_EQ(leaves.find('\n'), leaves.size() - 1);
}

TEST(TypeLeaves, PackedStructsGiveTheirBits) {
    LinkedTypes types;
    const auto nibble = types.packed(types.logic(), {{3, 0, 0}});
    const auto data = types.packed(nibble, {{0, 1, 1}});
    const auto lane =
        types.structure("lane_t", {{"tag", nibble}, {"data", data}}, VLOG_PACKED_STRUCT);
    const auto lanes = types.packed(lane, {{0, 2, 1}, {4, 3, 0}});
    const auto id = types.structure("pkt_t", {{"lanes", lanes}, {"last", 0}}, VLOG_PACKED_STRUCT);
    const TypeTable table = types.table();
    EXPECT_EQ(squeezed(leavesOf(table, id)),
              "pkt_t.lanes[0 to 2, 4 downto 3].tag logic 4-State 12:9 (3 every 24, 2 every 12) "
              "3 downto 0\n"
              "pkt_t.lanes[0 to 2, 4 downto 3].data logic 4-State 8:1 (3 every 24, 2 every 12) "
              "0 to 1, 3 downto 0\n"
              "pkt_t.last logic 4-State 0 -\n");
    std::ostringstream json;
    writeLeavesJson(json, table, {id}, JsonForm::LINES);
    EXPECT_THAT(json.str(),
                HasSubstr("\"bits\":{\"offset\":9,\"width\":4,\"strides\":[{\"count\":3,"
                          "\"bits\":24},{\"count\":2,\"bits\":12}]}"));
}

TEST(TypeLeaves, JsonHasALeafALine) {
    LinkedTypes types;
    const auto byte = types.alias("byte_t", types.packed(types.logic(), {BYTE}));
    const auto natural = types.alias("n", types.integer("integer", -8, 7), {{0, 7, 1}});
    const auto node = types.classType("c", {{"q", types.queue(byte)}, {"n", natural}, {"me", 6}});
    EXPECT_EQ(jsonOf(types, node),
              "{\"format\":\"HDL simulator type leaves\",\"formatVersion\":1,\"id\":6}\n"
              "{\"path\":\"c.q\",\"id\":0,\"kind\":\"seqEnum\",\"name\":\"logic\","
              "\"declaredType\":5,\"encoding\":\"4-State\",\"dimensions\":[\"queue\","
              "{\"si\":7,\"ei\":0,\"dir\":0}],"
              "\"bits\":{\"offset\":0,\"width\":8,\"strides\":[]}}\n"
              "{\"path\":\"c.n\",\"id\":3,\"kind\":\"integer\",\"name\":\"integer\","
              "\"declaredType\":4,\"encoding\":\"Byte\",\"dimensions\":[],\"bits\":null,"
              "\"valueRange\":{\"si\":0,\"ei\":7,\"dir\":1}}\n"
              "{\"path\":\"c.me\",\"id\":6,\"kind\":\"class\",\"name\":\"c\",\"declaredType\":6,"
              "\"encoding\":null,\"dimensions\":[],\"bits\":null,\"seenAbove\":true}\n");
}

} // namespace
