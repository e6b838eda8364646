// `rtti show` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(RttiShow, PrintsATypeWhatItRefersToAndWhatRefersToIt) {
    const Result result = rtti("show " + example("svkinds_slang") + " 5");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, StartsWith("type 5: discrete enumeration"));
    EXPECT_THAT(result.out, HasSubstr("\nrefers to:\n\ntype 4: packed array logic [1:0]\n"
                                      "  declaration: typedef logic [1:0] type_4;\n"));
    EXPECT_THAT(result.out, EndsWith("\nreferred to by:\n\ntype 6: typedef "
                                     "\"kinds_pkg::enum_logic_e\"\n"));
}

TEST(RttiShow, RefusesAnIdThatTheFileDoesNotHave) {
    const Result result = rtti("show " + example("svkinds_slang") + " 104");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
}

TEST(RttiShow, RefusesAFileThatIsNotThere) {
    const Result result = rtti("show /not/there.typ 0");
    EXPECT_EQ(result.status, 2);
    expectOneLine(result.err);
}

TEST(RttiShow, RefusesAFileWithErrorsUnlessForced) {
    const std::string file = fileOf(oneRecord(0xA0000020));
    const Result result = rtti("show " + file + " 0");
    EXPECT_EQ(result.status, 1);
    expectOneLine(result.err);
    EXPECT_THAT(result.err, HasSubstr("kind-unknown type 0"));
    EXPECT_EQ(rtti("show --force " + file + " 0").status, 0);
}

/// The file has a type whose record is damaged: it begins at byte 40 and overlaps the next one.
TEST(RttiShow, LooksAtNoOtherTypesThanItPrints) {
    std::string bytes = contentOf(example("ieee_rti"));
    bytes[40] = '\x7F';
    const Result damaged = rtti("show " + fileOf(bytes) + " character");
    const Result sound = rtti("show " + example("ieee_rti") + " character");
    EXPECT_EQ(damaged.status, 0) << damaged.err;
    EXPECT_EQ(damaged.out, sound.out);
}

TEST(RttiShow, ListsTheSameTypesAsAForcedLoad) {
    for (const std::string id : {"0", "1", "4", "11", "33", "103"}) {
        const Result searched = rtti("show " + example("svkinds_slang") + " " + id);
        EXPECT_EQ(searched.out, rtti("show --force " + example("svkinds_slang") + " " + id).out);
        EXPECT_THAT(searched.out, HasSubstr("\nreferred to by:\n"));
    }
}

} // namespace
