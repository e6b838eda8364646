#include "tests/TypeFile/ExpectedFindings.h"

#include <gtest/gtest.h>

using namespace TypeFile;

std::vector<Finding> findingsOf(const std::string& image, unsigned long long base,
                                const VerifyLimits& limits) {
    RecordingBlockManager storage(image);
    return verify(storage, image.size(), base, limits);
}

std::vector<Finding> findingsOf(const TypeFileBuilder& file, const VerifyLimits& limits) {
    return findingsOf(file.image(), file.baseOffset(), limits);
}

std::string linesOf(const std::vector<Finding>& findings) {
    std::string lines;
    for (const Finding& finding : findings)
        lines += lineOf(finding) + '\n';
    return lines;
}

void expectClean(const TypeFileBuilder& file) { EXPECT_EQ(linesOf(findingsOf(file)), ""); }

void expectFinding(const std::vector<Finding>& findings, std::size_t place, FindingCode code,
                   Severity severity, unsigned int typeId, const std::string& field,
                   unsigned long long offset) {
    ASSERT_LT(place, findings.size()) << linesOf(findings);
    const Finding& finding = findings[place];
    EXPECT_EQ(codeText(finding.code), codeText(code)) << linesOf(findings);
    EXPECT_EQ(severityText(finding.severity), severityText(severity));
    EXPECT_EQ(finding.typeId, typeId);
    EXPECT_EQ(finding.field, field);
    EXPECT_EQ(finding.offset, offset);
    EXPECT_NE(finding.text, "");
}

namespace {

std::string expectOnly(const std::vector<Finding>& findings, Severity severity, FindingCode code,
                       unsigned int typeId, const std::string& field, unsigned long long offset) {
    EXPECT_EQ(findings.size(), 1u) << linesOf(findings);
    expectFinding(findings, 0, code, severity, typeId, field, offset);
    return findings.empty() ? "" : findings[0].text;
}

} // namespace

std::string expectError(const std::vector<Finding>& findings, FindingCode code, unsigned int typeId,
                        const std::string& field, unsigned long long offset) {
    return expectOnly(findings, Severity::ERROR, code, typeId, field, offset);
}

std::string expectWarning(const std::vector<Finding>& findings, FindingCode code,
                          unsigned int typeId, const std::string& field,
                          unsigned long long offset) {
    return expectOnly(findings, Severity::WARNING, code, typeId, field, offset);
}

void patch(std::string& image, unsigned long long offset, unsigned char value) {
    image[offset] = static_cast<char>(value);
}
