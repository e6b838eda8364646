// `rtti tree` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gtest/gtest.h>

namespace {

TEST(RttiTree, DrawsAStructOfASystemVerilogDesign) {
    const Result result = rtti("tree " + example("svkinds_slang") + " 39");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "39 typedef \"kinds_pkg::us_t\"\n"
              "`-- data type: 38 unpacked struct \"kinds_pkg::us_t\"\n"
              "    |-- i: 0 packed array \"int\" (31 downto 0)\n"
              "    |   `-- element type: 101 sequential enumeration \"bit\"\n"
              "    |-- s: 35 string \"string\"\n"
              "    |-- r: 36 real \"real\"\n"
              "    |-- arr: 37 unpacked array \\kinds_pkg::byte_t [0:3] (0 to 3)\n"
              "    |   `-- element type: 15 typedef \"kinds_pkg::byte_t\"\n"
              "    |       `-- data type: 14 packed array logic [7:0] (7 downto 0)\n"
              "    |           `-- element type: 3 sequential enumeration \"logic\"\n"
              "    `-- p: 31 typedef \"kinds_pkg::ps_t\"\n"
              "        `-- data type: 30 packed struct \"kinds_pkg::ps_t\"\n"
              "            |-- hi: 28 packed array logic [3:0] (3 downto 0)\n"
              "            |   `-- element type: 3 sequential enumeration \"logic\"\n"
              "            |-- lo: 29 packed array bit [2:1] (2 downto 1)\n"
              "            |   `-- element type: 7 sequential enumeration \"bit\"\n"
              "            `-- e: 6 typedef \"kinds_pkg::enum_logic_e\"\n"
              "                `-- data type: 5 discrete enumeration \"kinds_pkg::enum_logic_e\"\n"
              "                    `-- base type: 4 packed array logic [1:0] (1 downto 0)\n"
              "                        `-- element type: 3 sequential enumeration \"logic\"\n");
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

} // namespace
