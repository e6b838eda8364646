// The verifier on headers, address tables and storages.

#include "tests/TypeFile/ExpectedFindings.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using namespace RTTI;
using namespace TypeFile;

TEST(Verifier, FindsNothingInAFileWithoutTypes) { expectClean(TypeFileBuilder()); }

TEST(Verifier, FindsNothingAtABaseOffset) {
    TypeFileBuilder file;
    file.base(100).integer("i");
    expectClean(file);
}

TEST(Verifier, TakesAnyPrintableVersion) {
    TypeFileBuilder file;
    file.version("TYPES 2").integer("i");
    expectClean(file);
}

TEST(InvalidFile, HeaderCutByOneByte) {
    const std::string image = TypeFileBuilder().image().substr(0, 39);
    expectError(findingsOf(image), FindingCode::HEADER_OUTSIDE_STORAGE, FILE_LEVEL, "header", 0);
}

TEST(InvalidFile, BaseOffsetBeyondTheStorage) {
    expectError(findingsOf(std::string(50, 'x'), 51), FindingCode::HEADER_OUTSIDE_STORAGE,
                FILE_LEVEL, "header", 51);
}

TEST(InvalidFile, VersionNotPrintable) {
    expectError(findingsOf(TypeFileBuilder().version("TYPES\x1b")), FindingCode::VERSION_NOT_TEXT,
                FILE_LEVEL, "version", 0);
}

TEST(InvalidFile, VersionWithoutEnd) {
    expectError(findingsOf(TypeFileBuilder().version(std::string(32, 'x'))),
                FindingCode::VERSION_NOT_TEXT, FILE_LEVEL, "version", 0);
}

TEST(InvalidFile, HeaderOfZeros) {
    expectError(findingsOf(std::string(40, '\0')), FindingCode::VERSION_NOT_TEXT, FILE_LEVEL,
                "version", 0);
}

TEST(InvalidFile, MarkedUnusable) {
    TypeFileBuilder file;
    file.version("Brakel Ovat TYPE FILE 000")
        .count(1000000); // There is no table, and none is read.
    expectError(findingsOf(file), FindingCode::MARKED_UNUSABLE, FILE_LEVEL, "version", 0);
}

TEST(InvalidFile, TableLongerThanTheStorage) {
    TypeFileBuilder file;
    file.integer("i").count(2);
    expectError(findingsOf(file), FindingCode::TABLE_OUTSIDE_STORAGE, FILE_LEVEL,
                "addressTableOffset", 36);
}

TEST(InvalidFile, TableBeginsInTheHeader) {
    // Table at 38: its entry is two zero bytes of the header and 01 00 ... behind it, 0x10000.
    std::string image = TypeFileBuilder().image();
    patch(image, 32, 1);
    patch(image, 36, 38);
    image.resize(0x10000);
    patch(image, 40, 1);
    TypeFileBuilder record;
    record.string("z");
    image += record.image().substr(40, BODY);
    expectError(findingsOf(image), FindingCode::TABLE_OVERLAPS_HEADER, FILE_LEVEL,
                "addressTableOffset", 36);
}

TEST(InvalidFile, RecordsAskForMoreThanTheLimit) {
    TypeFileBuilder file;
    file.string("z").string("z");
    VerifyLimits limits;
    limits.maxRecordBytes = 2 * BODY;
    EXPECT_EQ(linesOf(findingsOf(file, limits)), "");
    limits.maxRecordBytes = 2 * BODY - 1;
    expectError(findingsOf(file, limits), FindingCode::LOAD_TOO_LARGE, FILE_LEVEL, "addressTable",
                file.tableOffset());
}

TEST(InvalidFile, SharedRecordAsksForItsBytesOnceAType) {
    TypeFileBuilder file;
    file.string("z").string("z");
    std::string image = file.image();
    patch(image, file.tableOffset() + 8, 40);
    VerifyLimits limits;
    limits.maxRecordBytes = 2 * BODY - 1;
    const auto findings = findingsOf(image, 0, limits);
    expectFinding(findings, 0, FindingCode::LOAD_TOO_LARGE, Severity::ERROR, FILE_LEVEL,
                  "addressTable", file.tableOffset());
}

TEST(Verifier, PassesOnWhatTheStorageThrows) {
    TypeFileBuilder file;
    file.integer("i");
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    storage.failAtRead(0);
    EXPECT_THROW(verify(storage, image.size(), 0), std::runtime_error);
}

} // namespace
