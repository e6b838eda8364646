// `rtti verify` as its users meet it.

#include "tests/cli/RttiProgram.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::HasSubstr;

TEST(RttiVerify, PrintsASummaryForAFileWithoutFindings) {
    const std::string file = example("svkinds_slang");
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, file + ": 0 errors, 0 warnings\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiVerify, PrintsALineForEveryFinding) {
    const std::string file = fileOf(oneRecord(0xA0000020));
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "error kind-unknown type 0 field \"kind\" at 0x2c: Found 0xa0000020, "
                          "expected a kind from 0xa0000003 to 0xa0000019.\n" +
                              file + ": 1 error, 0 warnings\n");
    EXPECT_EQ(result.err, "");
}

TEST(RttiVerify, FindsAWarningWithoutFailing) {
    TypeFileBuilder event;
    event.record(0xA000000B, "").u32(7);
    const std::string file = fileOf(event.image());
    const Result result = rtti("verify " + file);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "warning flavour-unknown type 0 field \"flavour\" at 0x35: Found 7, "
                          "expected 0 or 1.\n" +
                              file + ": 0 errors, 1 warning\n");
}

TEST(RttiVerify, PrintsJson) {
    const std::string file = fileOf(oneRecord(0xA0000020).substr(0, 63));
    const Result result = rtti("verify --json " + file);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "{\n"
                          "  \"format\": \"HDL simulator type file findings\",\n"
                          "  \"formatVersion\": 1,\n"
                          "  \"file\": \"" +
                              file +
                              "\",\n"
                              "  \"errors\": 1,\n"
                              "  \"warnings\": 0,\n"
                              "  \"findings\": [\n"
                              "    {\n"
                              "      \"severity\": \"error\",\n"
                              "      \"code\": \"table-outside-storage\",\n"
                              "      \"id\": null,\n"
                              "      \"field\": \"addressTableOffset\",\n"
                              "      \"offset\": 36,\n"
                              "      \"text\": \"The table of 1 type takes 8 bytes at 0x38, and "
                              "the storage ends at 0x3f.\"\n"
                              "    }\n"
                              "  ]\n"
                              "}\n");
}

TEST(RttiVerify, FindsATypeFileAtAnOffset) {
    std::string bytes = oneRecord(0xA0000018);
    bytes += bytes.substr(0, 40);
    EXPECT_EQ(rtti("verify --offset 64 " + fileOf(bytes)).status, 0);
    EXPECT_EQ(rtti("verify --offset 65 " + fileOf(bytes)).status, 1);
}

TEST(RttiVerify, RefusesAFileThatIsNotThere) {
    const Result result = rtti("verify /not/there.typ");
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    expectOneLine(result.err);
}

TEST(RttiVerify, ShowsHelpWithAnExample) {
    const Result result = rtti("verify --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.out, HasSubstr("Example:"));
    EXPECT_THAT(result.out, HasSubstr("--json"));
}

} // namespace
