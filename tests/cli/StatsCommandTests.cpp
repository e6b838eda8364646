// `rtti stats` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

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
