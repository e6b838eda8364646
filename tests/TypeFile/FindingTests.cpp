// How findings are worded, ordered and counted.

#include "tests/TypeFile/ExpectedFindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace {

using namespace RTTI;
using namespace TypeFile;
using testing::HasSubstr;

TEST(FindingCodes, HaveDistinctTexts) {
    std::set<std::string_view> texts;
    for (int code = 0; code <= static_cast<int>(FindingCode::MORE_FINDINGS); ++code)
        texts.insert(codeText(static_cast<FindingCode>(code)));
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(FindingCode::MORE_FINDINGS) + 1);
}

TEST(FindingLine, NamesSeverityCodeTypeFieldAndOffset) {
    const Finding ofType{
        FindingCode::RECORD_OUTSIDE_STORAGE, Severity::ERROR, 7, "recordSize", 0x1234, "So it is."};
    EXPECT_EQ(lineOf(ofType),
              "error record-outside-storage type 7 field \"record size\" at 0x1234: So it is.");
    const Finding ofFile{
        FindingCode::MARKED_UNUSABLE, Severity::WARNING, FILE_LEVEL, "version", 0, "It is."};
    EXPECT_EQ(lineOf(ofFile), "warning marked-unusable file field \"version\" at 0x0: It is.");
}

TEST(Findings, AreOrderedByTypeAndOffset) {
    TypeFileBuilder file;
    file.string("z").bytes("x").version("\t");
    file.record(ClassId::SEQ_ENUM, "e").i32(9).i32(9).i32(0).i32(1);
    const auto findings = findingsOf(file);
    ASSERT_EQ(findings.size(), 4u);
    EXPECT_EQ(findings[0].code, FindingCode::VERSION_NOT_TEXT);
    EXPECT_EQ(findings[1].code, FindingCode::LEFTOVER_BYTES);
    EXPECT_EQ(findings[2].code, FindingCode::ENCODING_UNKNOWN);
    EXPECT_EQ(findings[3].code, FindingCode::ENUM_KIND_UNKNOWN);
}

TEST(Findings, BeyondTheLimitAreCounted) {
    TypeFileBuilder file;
    for (int i = 0; i < 3; ++i)
        file.string("z").bytes("x").record(0, "?");
    VerifyLimits limits;
    limits.maxFindings = 2;
    const auto findings = findingsOf(file, limits);
    ASSERT_EQ(findings.size(), 3u);
    EXPECT_EQ(findings[0].typeId, 1u); // Errors are kept before warnings.
    EXPECT_EQ(findings[1].typeId, 3u);
    expectFinding(findings, 2, FindingCode::MORE_FINDINGS, Severity::ERROR, FILE_LEVEL, "findings",
                  0);
    EXPECT_THAT(findings[2].text, HasSubstr("1 more error and 3 more warnings"));
    limits.maxFindings = 4;
    EXPECT_EQ(findingsOf(file, limits).back().severity, Severity::WARNING);
    EXPECT_TRUE(hasErrors(findingsOf(file, limits)));
}

} // namespace
