// `rtti uses` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;

TEST(RttiUses, ListsWhoRefersToAType) {
    const Result result = rtti("uses " + example("ieee_rti") + " 11");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "11 VHDL array \"string\" is used by:\n"
                          "  19 access type \"line\": referenced type\n"
                          "  20 file type \"text\": referenced type\n");
}

TEST(RttiUses, ListsAllWithTheirWays) {
    EXPECT_THAT(rtti("uses --all " + example("ieee_rti") + " 2").out,
                EndsWith("\n  2  19 access type \"line\": referenced type 11 > element type 2\n"
                         "  2  20 file type \"text\": referenced type 11 > element type 2\n"));
    EXPECT_THAT(rtti("uses --all --json " + example("ieee_rti") + " 2").out,
                HasSubstr("\"field\":\"refType\",\"distance\":2,\"next\":11}\n]}\n"));
}

} // namespace
