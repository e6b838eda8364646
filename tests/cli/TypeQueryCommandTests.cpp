// The subcommands tree, leaves, uses and stats as their users meet them.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(RttiTree, DrawsAStructOfASystemVerilogDesign) {
    const Result result = rtti("tree " + example("svkinds_slang") + " 39");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "39 typedef \"kinds_pkg::us_t\"\n"
              "`-- alias of: 38 unpacked struct \"kinds_pkg::us_t\"\n"
              "    |-- i: 0 packed array \"int\" (31 downto 0)\n"
              "    |   `-- element: 101 sequential enumeration \"bit\"\n"
              "    |-- s: 35 string \"string\"\n"
              "    |-- r: 36 real \"real\"\n"
              "    |-- arr: 37 unpacked array \\kinds_pkg::byte_t [0:3] (0 to 3)\n"
              "    |   `-- element: 15 typedef \"kinds_pkg::byte_t\"\n"
              "    |       `-- alias of: 14 packed array logic [7:0] (7 downto 0)\n"
              "    |           `-- element: 3 sequential enumeration \"logic\"\n"
              "    `-- p: 31 typedef \"kinds_pkg::ps_t\"\n"
              "        `-- alias of: 30 packed struct \"kinds_pkg::ps_t\"\n"
              "            |-- hi: 28 packed array logic [3:0] (3 downto 0)\n"
              "            |   `-- element: 3 sequential enumeration \"logic\"\n"
              "            |-- lo: 29 packed array bit [2:1] (2 downto 1)\n"
              "            |   `-- element: 7 sequential enumeration \"bit\"\n"
              "            `-- e: 6 typedef \"kinds_pkg::enum_logic_e\"\n"
              "                `-- alias of: 5 discrete enumeration \"kinds_pkg::enum_logic_e\"\n"
              "                    `-- base: 4 packed array logic [1:0] (1 downto 0)\n"
              "                        `-- element: 3 sequential enumeration \"logic\"\n");
}

TEST(RttiTree, KeepsToADepth) {
    EXPECT_EQ(rtti("tree --depth 0 " + example("svkinds_slang") + " 39").out,
              "39 typedef \"kinds_pkg::us_t\" ...\n");
}

TEST(RttiTree, OfEveryTypeOfTheLargestExampleIsShallowAtOnce) {
    for (const char* id : {"157", "311", "2639"}) {
        const Result result = rtti("tree --depth 3 " + example("uvm_slang") + " " + id);
        EXPECT_EQ(result.status, 0);
        EXPECT_LT(count(result.out, "\n"), 2000u) << id;
        EXPECT_GT(count(result.out, "\n"), 20u) << id;
    }
}

TEST(RttiLeaves, ListsTheValuesOfAVhdlRecord) {
    const Result result = rtti("leaves " + example("vhkinds_rti") + " 58 | tr -s ' '");
    EXPECT_EQ(result.out, "rec_t.i integer Byte range 0 to 15\n"
                          "rec_t.v std_ulogic Byte 15 downto 0\n"
                          "rec_t.n.a std_ulogic Byte -\n"
                          "rec_t.n.b std_ulogic Byte 3 downto 0\n"
                          "rec_t.t time Byte -\n"
                          "rec_t.e color_t Byte -\n"
                          "rec_t.arr std_ulogic Byte 0 to 3, 7 downto 0\n");
}

TEST(RttiLeaves, HasAJsonObjectALine) {
    const Result result = rtti("leaves --ndjson " + example("vhkinds_rti") + " 58");
    EXPECT_THAT(
        result.out,
        StartsWith("{\"format\":\"HDL simulator type leaves\",\"formatVersion\":1,\"id\":58}\n"
                   "{\"path\":\"rec_t.i\",\"id\":5,"));
    EXPECT_EQ(count(result.out, "\n"), 8u);
}

TEST(RttiUses, ListsWhoRefersToAType) {
    const Result result = rtti("uses " + example("ieee_rti") + " 11");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "11 VHDL array \"string\" is used by:\n"
                          "  19 access type \"line\": designated type\n"
                          "  20 file type \"text\": file element\n");
}

TEST(RttiUses, ListsAllWithTheirWays) {
    EXPECT_THAT(rtti("uses --all " + example("ieee_rti") + " 2").out,
                EndsWith("\n  2  19 access type \"line\": designated type 11 > element 2\n"
                         "  2  20 file type \"text\": file element 11 > element 2\n"));
    EXPECT_THAT(rtti("uses --all --json " + example("ieee_rti") + " 2").out,
                HasSubstr("\"field\":\"refType\",\"distance\":2,\"next\":11}\n]}\n"));
}

TEST(RttiStats, CountsTypesByKind) {
    const Result result = rtti("stats " + example("neorv32_ghw"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out,
                StartsWith("version \"Brakel Ovat TYPE FILE 001\" at 0\n1336 types in "));
    EXPECT_THAT(result.out, HasSubstr("\n      1134 "));
    EXPECT_THAT(result.out, HasSubstr("  typedef\n"));
    EXPECT_THAT(result.out, HasSubstr("\n1336 types of VHDL, 0 of SystemVerilog\n"));
}

TEST(RttiStats, ShowsAsManyTypesAsItIsToldTo) {
    const Result result = rtti("stats --top 1 " + example("ieee_rti"));
    EXPECT_THAT(result.out, HasSubstr("largest records, in bytes\n"
                                      "        1085  2 sequential enumeration \"character\"\n"
                                      "\n"));
}

TEST(RttiStats, CountsTheBytesOfTheWholeFile) {
    const std::string bytes = contentOf(example("ieee_rti"));
    const Result result = rtti("stats --json " + example("ieee_rti"));
    const std::size_t records = bytes.size() - 40 - 46 * 8; // Header, and 46 addresses.
    EXPECT_THAT(result.out, HasSubstr("\"recordBytes\":" + std::to_string(records) + ","));
}

class TypeQueries : public testing::TestWithParam<const char*> {};

TEST_P(TypeQueries, EndWith2ForAnIdThatTheFileDoesNotHave) {
    const Result result = rtti(std::string(GetParam()) + " " + example("ieee_rti") + " 46");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("TYPE 46: the file has 46 types"));
}

TEST_P(TypeQueries, EndWith2ForTwoFormsAtOnce) {
    const Result result =
        rtti(std::string(GetParam()) + " --json --ndjson " + example("ieee_rti") + " 1");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST_P(TypeQueries, EndWith1ForAFileWithErrorsUnlessForced) {
    std::string bytes = contentOf(example("ieee_rti"));
    bytes[40] = '\x7F'; // The size of the first record now ends within the second.
    const std::string call = std::string(GetParam()) + " " + fileOf(bytes) + " 11";
    EXPECT_EQ(rtti(call).status, 1);
    EXPECT_EQ(rtti(call + " --force").status, 0);
}

INSTANTIATE_TEST_SUITE_P(Subcommands, TypeQueries, testing::Values("tree", "leaves", "uses"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST(RttiStats, EndsWith1ForAFileWithErrorsUnlessForced) {
    std::string bytes = contentOf(example("ieee_rti"));
    bytes[40] = '\x7F'; // The size of the first record now ends within the second.
    const std::string call = "stats " + fileOf(bytes);
    EXPECT_EQ(rtti(call).status, 1);
    EXPECT_EQ(rtti(call + " --force").status, 0);
}

TEST(RttiStats, EndsWith2ForAFileThatIsNotThere) {
    const Result result = rtti("stats /nowhere.typ");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

} // namespace
