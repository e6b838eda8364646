// `rtti leaves` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::StartsWith;

TEST(RttiLeaves, ListsTheValuesOfAVhdlRecord) {
    const Result result = rtti("leaves " + example("vhkinds_rti") + " 58 | tr -s ' '");
    EXPECT_EQ(result.out, "rec_t.i integer Byte - range 0 to 15\n"
                          "rec_t.v std_ulogic Byte - 15 downto 0\n"
                          "rec_t.n.a std_ulogic Byte - -\n"
                          "rec_t.n.b std_ulogic Byte - 3 downto 0\n"
                          "rec_t.t time Byte - -\n"
                          "rec_t.e color_t Byte - -\n"
                          "rec_t.arr std_ulogic Byte - 0 to 3, 7 downto 0\n");
}

TEST(RttiLeaves, HasAJsonObjectALine) {
    const Result result = rtti("leaves --ndjson " + example("vhkinds_rti") + " 58");
    EXPECT_THAT(
        result.out,
        StartsWith("{\"format\":\"HDL simulator type leaves\",\"formatVersion\":1,\"id\":58}\n"
                   "{\"path\":\"rec_t.i\",\"id\":5,"));
    EXPECT_EQ(count(result.out, "\n"), 8u);
}

} // namespace
