// `rtti annotate` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::HasSubstr;

TEST(RttiAnnotate, EndsWithOneForAnErrorAmongWhatItShows) {
    EXPECT_EQ(rtti("annotate " + example("ieee_rti")).status, 0);
    EXPECT_EQ(rtti("annotate " + example("ieee_rti") + " 45").status, 0);
    const std::string damaged = fileOf(oneRecord(0xA0000040));
    const Result result = rtti("annotate " + damaged);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("            ^ error kind-unknown, kind: Found 0xa0000040"));
    EXPECT_EQ(rtti("annotate " + damaged + " 0").status, 1);
}

TEST(RttiAnnotate, EndsWithTwoForWhatIsNotThere) {
    const Result noType = rtti("annotate " + example("ieee_rti") + " 46");
    EXPECT_EQ(noType.status, 2);
    EXPECT_THAT(noType.err, HasSubstr("TYPE 46: the file has 46 types"));
    expectOneLine(noType.err);
    const Result noFile = rtti("annotate /not/there.typ");
    EXPECT_EQ(noFile.status, 2);
    expectOneLine(noFile.err);
}

TEST(RttiAnnotate, ShowsAFileThatIsNone) {
    const Result result = rtti("annotate " + fileOf("short"));
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.out, HasSubstr("header-outside-storage"));
    EXPECT_EQ(rtti("annotate --json " + fileOf("short")).status, 1);
}

TEST(RttiAnnotate, FindsATypeFileInsideAStorage) {
    const std::string file = scratch("storage");
    const std::string json = fileOf(rtti("dump --json " + example("ieee_rti")).out);
    ASSERT_EQ(rtti("build --offset 64 -o " + file + ' ' + json).status, 0);
    const Result result = rtti("annotate --offset 64 " + file + " 0");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("type 0 at 0x68: sequential enumeration \"boolean\""));
}

} // namespace
