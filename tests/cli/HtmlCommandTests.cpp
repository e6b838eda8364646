// `rtti html` as its users meet it.

#include "tests/cli/RttiProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(RttiHtml, WritesAPageThatIsThereAsAWhole) {
    const std::string page = scratch("html");
    const Result result = rtti("html " + example("ieee_rti") + " -o " + page);
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(contentOf(page), StartsWith("<!DOCTYPE html>\n"));
    EXPECT_THAT(contentOf(page), EndsWith("</html>\n"));
    EXPECT_THAT(contentOf(page), HasSubstr("<title>ieee_rti.typ</title>"));
}

TEST(RttiHtml, WritesNoPageOfAFaultyFileUnlessItIsForced) {
    const std::string page = scratch("html");
    const std::string damaged = fileOf(oneRecord(0xA0000040));
    const Result refused = rtti("html " + damaged + " -o " + page);
    EXPECT_EQ(refused.status, 1);
    expectOneLine(refused.err);
    EXPECT_EQ(contentOf(page), "");
    EXPECT_EQ(rtti("html --force " + damaged + " -o " + page).status, 0);
    EXPECT_THAT(contentOf(page), HasSubstr("\"count\":1,"));
}

TEST(RttiHtml, EndsWithTwoWhereThePageCannotBeWritten) {
    const Result result = rtti("html " + example("ieee_rti") + " -o /not/there.html");
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err, HasSubstr("/not/there.html"));
    expectOneLine(result.err);
    EXPECT_EQ(rtti("html " + example("ieee_rti")).status, 2);
}

} // namespace
