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

} // namespace
