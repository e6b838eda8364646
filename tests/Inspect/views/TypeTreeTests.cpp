#include "Inspect/model/PartWalk.h"
#include "Inspect/views/TypeTree.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::EndsWith;
using testing::HasSubstr;

constexpr FullConstraints BYTE{7, 0, 0};
constexpr FullConstraints LANES{0, 3, 1};

std::string treeOf(const TypeTable& types, TreeRequest request) {
    std::ostringstream out;
    writeTree(out, types, request, TextStyle::plain());
    return out.str();
}

std::string treeOf(LinkedTypes& types, unsigned int id) { return treeOf(types.table(), {id}); }

TEST(TypeTree, DrawsMembersWithTheRangesOfTheirArrays) {
    LinkedTypes types;
    const auto logic = types.logic();
    const auto byte = types.alias("byte_t", types.packed(logic, {BYTE}));
    const auto header = types.structure("hdr_t", {{"len", byte}, {"ok", logic}});
    const auto packet = types.structure("pkt_t", {{"hdr", header}, {"crc", byte}});
    EXPECT_EQ(treeOf(types, packet),
              "4 unpacked struct \"pkt_t\"\n"
              "|-- hdr: 3 unpacked struct \"hdr_t\"\n"
              "|   |-- len: 2 typedef \"byte_t\"\n"
              "|   |   `-- data type: 1 packed array logic [7:0] (7 downto 0)\n"
              "|   |       `-- element type: 0 sequential enumeration \"logic\"\n"
              "|   `-- ok: 0 sequential enumeration \"logic\"\n"
              "`-- crc: 2 typedef \"byte_t\"\n"
              "    `-- data type: 1 packed array logic [7:0] (7 downto 0)\n"
              "        `-- element type: 0 sequential enumeration \"logic\"\n");
}

TEST(TypeTree, ShortensLongListsOfRangesUnlessTheyAreToBeWhole) {
    LinkedTypes types;
    Ranges ranges;
    for (int i = 0; i < 9; ++i)
        ranges.push_back({i, 0, 0});
    const auto array = types.packed(types.logic(), ranges);
    const TypeTable table = types.table();
    EXPECT_THAT(treeOf(table, {array}), HasSubstr(", (7 downto 0), ... 9 in all\n"));
    TreeRequest request{array};
    request.lists = RangeLists::WHOLE;
    EXPECT_THAT(treeOf(table, request), HasSubstr(", (7 downto 0), (8 downto 0)\n"));
}

TEST(TypeTree, FillsOpenDimensionsFromTheMemberAndTheTypedef) {
    LinkedTypes types;
    const auto open = types.array(VHDL_ARRAY, "bits", types.logic(), {OPEN});
    const auto nibble = types.alias("nibble", open, {{3, 0, 0}});
    const auto record = types.structure("r", {{"a", open, {BYTE}}, {"b", nibble}});
    EXPECT_EQ(treeOf(types, record),
              "3 unpacked struct \"r\"\n"
              "|-- a: 1 VHDL array \"bits\" (7 downto 0)\n"
              "|   `-- element type: 0 sequential enumeration \"logic\"\n"
              "`-- b: 2 typedef \"nibble\"\n"
              "    `-- data type: 1 VHDL array \"bits\" (3 downto 0)\n"
              "        `-- element type: 0 sequential enumeration \"logic\"\n");
}

TEST(TypeTree, ShowsTheRangeOfAScalarAsTheOutermostLevelNarrowsIt) {
    LinkedTypes types;
    const auto integer = types.integer("integer", -8, 7);
    const auto natural = types.alias("natural", integer, {{0, 7, 1}});
    const auto record =
        types.structure("r", {{"i", integer}, {"n", natural}, {"few", natural, {{0, 3, 1}}}});
    EXPECT_EQ(treeOf(types, record), "2 unpacked struct \"r\"\n"
                                     "|-- i: 0 integer \"integer\" range -8 to 7\n"
                                     "|-- n: 1 typedef \"natural\"\n"
                                     "|   `-- data type: 0 integer \"integer\" range 0 to 7\n"
                                     "`-- few: 1 typedef \"natural\"\n"
                                     "    `-- data type: 0 integer \"integer\" range 0 to 3\n");
}

TEST(TypeTree, ShowsTheRangeOfAnEnumerationUnlessItHasAllLiterals) {
    LinkedTypes types;
    const auto states = types.enumeration("state", {"idle", "run", "stop"});
    const auto record = types.structure("r", {{"all", states, {{0, 2, 1}}},
                                              {"begin", states, {{0, 1, 1}}},
                                              {"end", states, {{1, 2, 1}}}});
    EXPECT_EQ(treeOf(types, record), "1 unpacked struct \"r\"\n"
                                     "|-- all: 0 sequential enumeration \"state\"\n"
                                     "|-- begin: 0 sequential enumeration \"state\" range 0 to 1\n"
                                     "`-- end: 0 sequential enumeration \"state\" range 1 to 2\n");
}

TEST(TypeTree, RangeOfAnArrayDoesNotNarrowItsElement) {
    LinkedTypes types;
    const auto integer = types.integer("integer", -8, 7);
    const auto array = types.array(VHDL_ARRAY, "a", integer, {OPEN});
    const auto narrow = types.alias("n", array, {LANES});
    EXPECT_EQ(treeOf(types, narrow), "2 typedef \"n\"\n"
                                     "`-- data type: 1 VHDL array \"a\" (0 to 3)\n"
                                     "    `-- element type: 0 integer \"integer\" range -8 to 7\n");
}

TEST(TypeTree, DrawsAClassThatLeadsBackToItselfOnce) {
    LinkedTypes types;
    const auto base = types.classType("base", {{"peer", 1}});
    const auto derived = types.classType("derived", {{"all", 2}}, base);
    types.queue(derived);
    EXPECT_EQ(treeOf(types, derived), "1 class \"derived\"\n"
                                      "|-- base class: 0 class \"base\"\n"
                                      "|   `-- peer: 1 class \"derived\" (seen above)\n"
                                      "`-- all: 2 queue derived [$]\n"
                                      "    `-- element type: 1 class \"derived\" (seen above)\n");
}

TEST(TypeTree, DrawsAClassThatStandsSideBySideEachTime) {
    LinkedTypes types;
    const auto inner = types.classType("inner", {{"s", types.string()}});
    const auto outer = types.classType("outer", {{"a", inner}, {"b", inner}});
    EXPECT_EQ(treeOf(types, outer), "2 class \"outer\"\n"
                                    "|-- a: 1 class \"inner\"\n"
                                    "|   `-- s: 0 string \"string\"\n"
                                    "`-- b: 1 class \"inner\"\n"
                                    "    `-- s: 0 string \"string\"\n");
}

TEST(TypeTree, BelowAQueueGivesTheRangesThatTheElementHasByItself) {
    LinkedTypes types;
    const auto open = types.array(VLOG_FIXED_UNPACKED_ARRAY, "", types.logic(), {OPEN});
    const auto queue = types.queue(open);
    const auto alias = types.alias("q_t", queue, {BYTE});
    EXPECT_EQ(treeOf(types, alias),
              "3 typedef \"q_t\"\n"
              "`-- data type: 2 queue logic [$][]\n"
              "    `-- element type: 1 unpacked array logic [] (0 downto 0)\n"
              "        `-- element type: 0 sequential enumeration \"logic\"\n");
}

TEST(TypeTree, NamesTheTypeThatAnAccessTypeDesignates) {
    LinkedTypes types;
    const auto node = types.structure("node", {{"next", 1}});
    types.access("node_ptr", node);
    EXPECT_EQ(treeOf(types, node), "0 unpacked struct \"node\"\n"
                                   "`-- next: 1 access type \"node_ptr\" to 0 unpacked struct "
                                   "\"node\"\n");
}

TEST(TypeTree, MarksWhatLiesTooDeep) {
    LinkedTypes types;
    const auto bits = types.packed(types.logic(), {BYTE});
    const auto inner = types.structure("inner", {{"bits", bits}});
    const auto outer = types.structure("outer", {{"inner", inner}, {"s", types.string()}});
    const TypeTable table = types.table();
    EXPECT_EQ(treeOf(table, {outer, 0}), "4 unpacked struct \"outer\" ...\n");
    EXPECT_EQ(treeOf(table, {outer, 1}), "4 unpacked struct \"outer\"\n"
                                         "|-- inner: 2 unpacked struct \"inner\" ...\n"
                                         "`-- s: 3 string \"string\"\n");
}

TEST(TypeTree, GivesTheSameRangesWhateverTheDepth) {
    LinkedTypes types;
    const auto open = types.array(VHDL_ARRAY, "open", types.logic(), {OPEN});
    const auto inner = types.structure("inner", {{"x", open}});
    const auto outer = types.structure("outer", {{"a", inner}, {"b", open}});
    const auto alias = types.alias("t", outer, {LANES, BYTE}); // x takes the first of them.
    EXPECT_THAT(treeOf(types.table(), {alias, 2}),
                EndsWith("    |-- a: 2 unpacked struct \"inner\" ...\n"
                         "    `-- b: 1 VHDL array \"open\" (7 downto 0) ...\n"));
}

TEST(TypeTree, EscapesNames) {
    LinkedTypes types;
    const auto string = types.string();
    const auto record = types.structure("\x1B[2J", {{"a b", string}, {"\n", string}, {"", string}});
    EXPECT_EQ(treeOf(types, record), "1 unpacked struct \"\\x1B[2J\"\n"
                                     "|-- \"a b\": 0 string \"string\"\n"
                                     "|-- \"\\n\": 0 string \"string\"\n"
                                     "`-- \"\": 0 string \"string\"\n");
}

TEST(TypeTree, ShowsMissingTypesAndMembers) {
    LinkedTypes types;
    const auto record = types.structure({NO_TYPE_ID, 9});
    delete std::exchange(types.as<RTRecordType>(record).m_members[0], nullptr);
    EXPECT_EQ(treeOf(types, record), "0 unpacked struct { type_9 member_0; }\n"
                                     "|-- (no member): 4294967295 (no type)\n"
                                     "`-- \"\": 9 (no type)\n");
}

TEST(TypeTree, SaysThatAnIdHasNoType) {
    const TypeTable table{1, [](unsigned int) { return nullptr; }};
    EXPECT_EQ(treeOf(table, {0}), "0 (no type)\n");
}

TEST(TypeTree, NumbersTheLevelsFromTheFortiethOn) {
    LinkedTypes types;
    unsigned int type = types.plain<RTStringType>();
    for (int i = 0; i < 42; ++i)
        type = types.structure({type});
    const std::string tree = treeOf(types, type);
    const std::string last = std::string(40 * 4 - 4, ' ');
    EXPECT_THAT(tree, HasSubstr("\n" + last + "`-- \"\": "));
    EXPECT_THAT(tree, HasSubstr("\n" + last + "    [41] \"\": "));
    EXPECT_THAT(tree, EndsWith("\n" + last + "    [42] \"\": 0 string\n"));
}

TEST(TypeTree, ChainOfAHundredThousandStructsDoesNotUseUpTheCallStack) {
    LinkedTypes types;
    unsigned int type = types.plain<RTStringType>();
    for (int i = 0; i < 100000; ++i)
        type = types.structure({type});
    const std::string tree = treeOf(types, type);
    EXPECT_THAT(tree, EndsWith("[100000] \"\": 0 string\n"));
    EXPECT_LT(tree.size(), 100001u * 250);
}

/// Takes no more than it is asked to.
class FullAfter : public std::stringbuf {
public:
    explicit FullAfter(std::size_t size) : m_left(size) {}

protected:
    std::streamsize xsputn(const char*, std::streamsize count) override {
        const auto size = static_cast<std::size_t>(count);
        const std::size_t taken = std::min(m_left, size);
        m_left -= taken;
        return static_cast<std::streamsize>(taken);
    }
    int overflow(int) override { return m_left == 0 ? EOF : static_cast<int>(m_left--); }

private:
    std::size_t m_left;
};

TEST(TypeTree, OfStructsThatHoldTwoOfTheNextComesAsItIsRead) {
    LinkedTypes types;
    unsigned int type = types.vhdlArray(types.string(), {LANES});
    for (int i = 0; i < 60; ++i)
        type = types.structure({type, type});
    FullAfter reader(100000);
    std::ostream out(&reader);
    writeTree(out, types.table(), {type}, TextStyle::plain());
    EXPECT_FALSE(out);
    EXPECT_EQ(treeOf(types.table(), {type, 1}),
              "61 unpacked struct { type_60 member_0; type_60 member_1; }\n"
              "|-- \"\": 60 unpacked struct { type_59 member_0; type_59 member_1; } ...\n"
              "`-- \"\": 60 unpacked struct { type_59 member_0; type_59 member_1; } ...\n");
}

TEST(TypeTree, EndsBehindAsManyPartsAsItMayLookAt) {
    LinkedTypes types;
    const auto string = types.plain<RTStringType>();
    const auto type = types.structure({string, string});
    std::ostringstream whole;
    EXPECT_TRUE(
        writeTree(whole, types.table(), {type, PartWalk::ANY_DEPTH, 2}, TextStyle::plain()));
    std::ostringstream cut;
    EXPECT_FALSE(writeTree(cut, types.table(), {type, PartWalk::ANY_DEPTH, 1}, TextStyle::plain()));
    EXPECT_THAT(cut.str(), EndsWith("\n|-- \"\": 0 string\n... and more\n"));
    std::ostringstream json;
    EXPECT_FALSE(
        writeTreeJson(json, types.table(), {type, PartWalk::ANY_DEPTH, 1}, JsonForm::LINES));
    EXPECT_THAT(json.str(), HasSubstr("\"depth\":1"));
}

TEST(TypeTree, OfADepthEndsWhereTooManyPartsLieDeeper) {
    LinkedTypes types;
    // An array whose ranges come from above: what takes them has to be gone through.
    unsigned int type = types.vhdlArray(types.string(), {OPEN});
    for (int i = 0; i < 60; ++i)
        type = types.structure({type, type});
    const auto outer = types.alias(type, {LANES});
    std::ostringstream out;
    EXPECT_FALSE(writeTree(out, types.table(), {outer, 1, 1000}, TextStyle::plain()));
}

std::string jsonOf(const TypeTable& types, TreeRequest request, JsonForm form) {
    std::ostringstream out;
    writeTreeJson(out, types, request, form);
    return out.str();
}

TEST(TypeTree, JsonHasAPartALine) {
    LinkedTypes types;
    const auto bits = types.packed(types.logic(), {BYTE});
    const auto record = types.classType("c", {{"\xFF", bits}, {"me", 2}});
    const TypeTable table = types.table();
    EXPECT_EQ(jsonOf(table, {record, 1}, JsonForm::DOCUMENT),
              "{\"format\":\"HDL simulator type tree\",\"formatVersion\":1,\"id\":2,\"parts\":[\n"
              "{\"depth\":0,\"field\":null,\"id\":2,\"kind\":\"class\",\"name\":\"c\","
              "\"ranges\":[]},\n"
              "{\"depth\":1,\"field\":\"members\",\"member\":{\"hex\":\"ff\"},\"id\":1,"
              "\"kind\":\"array\",\"arrayKind\":\"VLOG_FIXED_PACKED_ARRAY\",\"name\":\"\","
              "\"ranges\":[{\"si\":7,\"ei\":0,\"dir\":0}],"
              "\"isCut\":true},\n"
              "{\"depth\":1,\"field\":\"members\",\"member\":\"me\",\"id\":2,\"kind\":\"class\","
              "\"name\":\"c\",\"ranges\":[],\"seenAbove\":true}\n"
              "]}\n");
    EXPECT_EQ(jsonOf(table, {0}, JsonForm::LINES),
              "{\"format\":\"HDL simulator type tree\",\"formatVersion\":1,\"id\":0}\n"
              "{\"depth\":0,\"field\":null,\"id\":0,\"kind\":\"seqEnum\","
              "\"name\":\"logic\",\"ranges\":[]}\n");
}

} // namespace
