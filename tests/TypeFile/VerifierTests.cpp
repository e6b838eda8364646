// One small case a fault: what the verifier says of it, and where. All names are one character
// long, so that the fields of a kind begin 14 bytes into the record: size, kind, name, flags.

#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace TypeFile;
using namespace RTTI;
using testing::HasSubstr;

constexpr unsigned int FILE_LEVEL = TypeFileFormat::NO_TYPE_ID;
constexpr unsigned int NO_BASE = TypeFileFormat::NO_TYPE_ID;
constexpr unsigned int BODY = 14;
constexpr int OPEN = -2;

std::vector<Finding> findingsOf(const std::string& image, unsigned long long base = 0,
                                const VerifyLimits& limits = {}) {
    RecordingBlockManager storage(image);
    return verify(storage, image.size(), base, limits);
}

std::vector<Finding> findingsOf(const TypeFileBuilder& file, const VerifyLimits& limits = {}) {
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

/// Exactly this finding; the answer is its sentence.
std::string expectError(const std::vector<Finding>& findings, FindingCode code, unsigned int typeId,
                        const std::string& field, unsigned long long offset) {
    EXPECT_EQ(findings.size(), 1u) << linesOf(findings);
    expectFinding(findings, 0, code, Severity::ERROR, typeId, field, offset);
    return findings.empty() ? "" : findings[0].text;
}

/// Exactly this finding; the answer is its sentence.
std::string expectWarning(const std::vector<Finding>& findings, FindingCode code,
                          unsigned int typeId, const std::string& field,
                          unsigned long long offset) {
    EXPECT_EQ(findings.size(), 1u) << linesOf(findings);
    expectFinding(findings, 0, code, Severity::WARNING, typeId, field, offset);
    return findings.empty() ? "" : findings[0].text;
}

/// A one-dimensional packed array of `element` with one range.
TypeFileBuilder& addArray(TypeFileBuilder& file, unsigned int element, int direction = 1) {
    file.record(ClassId::ARRAY, "a").u32(VLOG_FIXED_PACKED_ARRAY).u32(element);
    return file.u32(1).u32(0).u32(1).range(0, 7, direction).i32(-99);
}

TypeFileBuilder& addTypedef(TypeFileBuilder& file, unsigned int data) {
    return file.record(ClassId::TYPEDEF, "t").u32(data).u32(0);
}

/// A struct; its members are named "m" and have no constraints.
TypeFileBuilder& addStruct(TypeFileBuilder& file, const std::vector<unsigned int>& members) {
    file.record(ClassId::RECORD, "s").u32(VLOG_UNPACKED_STRUCT);
    file.u32(static_cast<unsigned int>(members.size()));
    for (const unsigned int member : members)
        file.str("m").u32(member).u32(0);
    return file.i32(-99);
}

TypeFileBuilder& addClass(TypeFileBuilder& file, unsigned int base,
                          const std::vector<unsigned int>& members) {
    file.record(ClassId::CLASS, "c").u32(base).i32(1);
    file.u32(static_cast<unsigned int>(members.size()));
    for (const unsigned int member : members)
        file.str("m").u32(member).u32(0).u32(0);
    return file;
}

void patch(std::string& image, unsigned long long offset, unsigned char value) {
    image[offset] = static_cast<char>(value);
}

TEST(FindingCodes, HaveDistinctTexts) {
    std::set<std::string_view> texts;
    for (int code = 0; code <= static_cast<int>(FindingCode::MORE_FINDINGS); ++code)
        texts.insert(codeText(static_cast<FindingCode>(code)));
    EXPECT_EQ(texts.size(), static_cast<std::size_t>(FindingCode::MORE_FINDINGS) + 1);
}

TEST(FindingLine, NamesSeverityCodeTypeFieldAndOffset) {
    const Finding ofType{
        FindingCode::RECORD_OUTSIDE_STORAGE, Severity::ERROR, 7, "record", 0x1234, "So it is."};
    EXPECT_EQ(lineOf(ofType),
              "error record-outside-storage type 7 field \"record\" at 0x1234: So it is.");
    const Finding ofFile{
        FindingCode::MARKED_UNUSABLE, Severity::WARNING, FILE_LEVEL, "version", 0, "It is."};
    EXPECT_EQ(lineOf(ofFile), "warning marked-unusable file field \"version\" at 0x0: It is.");
}

TEST(Verifier, FindsNothingInAFileWithEveryKind) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(2).str("0").str("1").i32(1);         // 0
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(1).i32(2).str("A").bytes("xy").u32(0); // 1
    file.integer("i");                                                                         // 2
    file.record(ClassId::FLOAT, "f").i32(3).f64(-1).f64(1).f64(1);                             // 3
    addTypedef(file, 1);                                                                       // 4
    file.record(ClassId::ACCESS, "p").u32(5).u32(8).u32(8);                                    // 5
    file.record(ClassId::CHANDLE, "h");                                                        // 6
    file.record(ClassId::EVENT, "v").i32(1);                                                   // 7
    file.record(ClassId::FILE_TYPE, "x").u32(2).u32(4).u32(4);                                 // 8
    file.record(ClassId::PHYSICAL, "y").i32(1).str("fs").i64(1);                               // 9
    addArray(file, 2);                                                                         // 10
    addStruct(file, {10, 4});                                                                  // 11
    file.record(ClassId::DYNAMIC_ARRAY, "n").u32(11).i32(5);                                   // 12
    file.record(ClassId::QUEUE, "q").u32(12).i32(5);                                           // 13
    file.record(ClassId::ASSOC_ARRAY, "k").u32(13).i32(5).u32(16);                             // 14
    addClass(file, NO_BASE, {15, 14});                                                         // 15
    file.string("z");                                                                          // 16
    file.record(ClassId::WILDCARD, "w");                                                       // 17
    expectClean(file);
}

TEST(Verifier, FindsNothingInAFileWithoutTypes) { expectClean(TypeFileBuilder()); }

TEST(Verifier, FindsNothingInAStructWithoutMembers) {
    TypeFileBuilder file;
    expectClean(file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(0).i32(-99));
}

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

TEST(Verifier, FindsNothingWhereAnAccessTypeLeadsBackToItself) {
    TypeFileBuilder file;
    file.record(ClassId::ACCESS, "p").u32(1).u32(8).u32(8);
    addStruct(file, {0});
    expectClean(file);
}

TEST(Verifier, FindsNothingWhereAClassHasAMemberOfItsTypedef) {
    TypeFileBuilder file;
    addTypedef(file, 1);
    addClass(file, NO_BASE, {0, 1});
    expectClean(file);
}

TEST(Verifier, FindsNothingWhereAStructHoldsAQueueOfItself) {
    TypeFileBuilder file;
    addStruct(file, {1});
    file.record(ClassId::QUEUE, "q").u32(0).i32(5);
    // The queue is read while nothing is in the table but the struct.
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
                "address table offset", 36);
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
                "address table offset", 36);
}

TEST(InvalidFile, RecordsAskForMoreThanTheLimit) {
    TypeFileBuilder file;
    file.string("z").string("z");
    VerifyLimits limits;
    limits.maxRecordBytes = 2 * BODY;
    EXPECT_EQ(linesOf(findingsOf(file, limits)), "");
    limits.maxRecordBytes = 2 * BODY - 1;
    expectError(findingsOf(file, limits), FindingCode::LOAD_TOO_LARGE, FILE_LEVEL, "address table",
                file.tableOffset());
}

TEST(InvalidRecord, AddressBeyondTheStorage) {
    TypeFileBuilder file;
    file.string("z").string("z");
    std::string image = file.image();
    patch(image, file.tableOffset() + 8 + 5, 1); // The second address is past 2^40.
    expectError(findingsOf(image), FindingCode::RECORD_OUTSIDE_STORAGE, 1, "address",
                file.tableOffset() + 8);
}

TEST(InvalidRecord, SizeBeyondTheStorage) {
    TypeFileBuilder file;
    file.string("z").claim(1000);
    expectError(findingsOf(file), FindingCode::RECORD_OUTSIDE_STORAGE, 0, "record size", 40);
}

TEST(InvalidRecord, SizeOfSeven) {
    TypeFileBuilder file;
    file.string("z").claim(7);
    expectError(findingsOf(file), FindingCode::RECORD_SIZE_INVALID, 0, "record size", 40);
}

TEST(InvalidRecord, NegativeSize) {
    TypeFileBuilder file;
    file.string("z").claim(-1);
    expectError(findingsOf(file), FindingCode::RECORD_SIZE_INVALID, 0, "record size", 40);
}

TEST(InvalidRecord, ReachesIntoTheNext) {
    TypeFileBuilder file;
    file.string("z").claim(BODY + 1).string("z");
    expectError(findingsOf(file), FindingCode::RECORD_OVERLAP, 0, "record size", 40);
}

TEST(InvalidRecord, ReachesIntoTheTable) {
    TypeFileBuilder file;
    file.string("z").string("z").claim(BODY + 1);
    EXPECT_THAT(
        expectError(findingsOf(file), FindingCode::RECORD_OVERLAP, 1, "record size", 40 + BODY),
        HasSubstr("the address table"));
}

TEST(InvalidRecord, LiesInTheHeader) {
    // The header's last 28 bytes are a record of 28 bytes: a size, a kind, a name, flags.
    std::string image = "V" + std::string(11, '\0') + std::string("\x1c\0\0\0\x18\0\0\xa0", 8);
    image += std::string(12, '\0') + std::string("\1\0\0\0\x28\0\0\0", 8);
    image += std::string("\x0c\0\0\0\0\0\0\0", 8);
    EXPECT_THAT(expectError(findingsOf(image), FindingCode::RECORD_OVERLAP, 0, "record size", 12),
                HasSubstr("the header"));
}

TEST(SuspiciousRecord, SharedByTwoTypes) {
    TypeFileBuilder file;
    file.string("z").string("z");
    std::string image = file.image();
    patch(image, file.tableOffset() + 8, 40);
    expectWarning(findingsOf(image), FindingCode::RECORD_SHARED, 1, "address",
                  file.tableOffset() + 8);
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
                  "address table", file.tableOffset());
}

TEST(InvalidRecord, KindBeyondTheTable) {
    TypeFileBuilder file;
    file.record(0xA000001A, "?");
    expectError(findingsOf(file), FindingCode::KIND_UNKNOWN, 0, "kind", 44);
}

TEST(InvalidRecord, KindThatBuildsNoType) {
    for (const unsigned int kind : {ClassId::CLASS_HANDLE, ClassId::LOGIC, ClassId::BIT,
                                    ClassId::ABSTRACT_ARRAY, ClassId::AGGREGATE}) {
        TypeFileBuilder file;
        file.record(kind, "?");
        expectError(findingsOf(file), FindingCode::KIND_WITHOUT_TYPE, 0, "kind", 44);
    }
}

TEST(InvalidRecord, NameWithoutEnd) {
    TypeFileBuilder file;
    file.string("z").cut(9);
    expectError(findingsOf(file), FindingCode::NAME_NOT_TERMINATED, 0, "name", 48);
}

TEST(InvalidRecord, MemberNameWithoutEnd) {
    TypeFileBuilder file;
    addStruct(file, {0, 1}).cut(BODY + 8 + 10 + 11); // The second name runs over what follows it.
    std::string image = file.image();
    for (unsigned long long at = 40 + BODY + 8 + 10; at < 40 + BODY + 8 + 10 + 11; ++at)
        patch(image, at, 'x');
    expectError(findingsOf(image), FindingCode::NAME_NOT_TERMINATED, 0, "member[1].name",
                40 + BODY + 8 + 10);
}

TEST(InvalidRecord, FlagsMissing) {
    TypeFileBuilder file;
    file.string("z").cut(BODY - 1);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "flags", 50);
}

TEST(InvalidRecord, RangeMissing) {
    TypeFileBuilder file;
    file.integer("i").cut(BODY + 11);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "constraint", 40 + BODY);
}

TEST(InvalidRecord, EnumeratorValueMissing) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(0).i32(1);
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(2).i32(9);
    file.str("A").bytes("123456789").str("B").bytes("1234");
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 1, "enumerator[1].value",
                file.address(1) + BODY + 12 + 11 + 2);
}

TEST(InvalidRecord, ClassMemberFlagMissing) {
    TypeFileBuilder file;
    file.record(ClassId::CLASS, "c").u32(NO_BASE).i32(1).i32(2);
    file.str("first").u32(0).u32(0).u32(0).str("m").u32(0).u32(0);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "member[1].flag",
                40 + BODY + 12 + 18 + 10);
}

TEST(InvalidRecord, LastFieldMissing) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0).cut(BODY + 36 - 1);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 1, "SV type id",
                file.address(1) + BODY + 32);
}

TEST(InvalidRecord, EnumeratorCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(5).i32(1); // Four bytes are left for
                                                                     // five.
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 0, "enumerator count",
                40 + BODY + 8);
}

TEST(InvalidRecord, MemberCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.record(ClassId::RECORD, "s").u32(VHDL_RECORD).i32(0x7FFFFFFF).i32(-99);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 0, "member count", 40 + BODY + 4);
}

TEST(InvalidRecord, ConstraintCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::TYPEDEF, "t").u32(0).u32(2).range(0, 1, 1);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 1, "constraint count",
                file.address(1) + BODY + 4);
}

TEST(InvalidRecord, ConstraintCountWithTheTopBit) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::TYPEDEF, "t").u32(0).u32(0x80000000);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 1, "constraint count",
                file.address(1) + BODY + 4);
}

TEST(SuspiciousRecord, NegativeCount) {
    TypeFileBuilder file;
    file.record(ClassId::PHYSICAL, "y").i32(-3);
    expectWarning(findingsOf(file), FindingCode::COUNT_NEGATIVE, 0, "unit count", 40 + BODY);
}

TEST(InvalidRecord, NegativeEnumeratorSize) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(0).i32(-1);
    expectError(findingsOf(file), FindingCode::SIZE_NEGATIVE, 0, "enumerator size", 40 + BODY + 12);
}

TEST(InvalidRecord, NegativeDiscreteEnumeratorSize) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(0).i32(-1).u32(0);
    expectError(findingsOf(file), FindingCode::SIZE_NEGATIVE, 1, "enumerator size",
                file.address(1) + BODY + 8);
}

TEST(SuspiciousRecord, BytesBehindTheLastField) {
    TypeFileBuilder file;
    file.string("z").bytes("abc");
    EXPECT_THAT(expectWarning(findingsOf(file), FindingCode::LEFTOVER_BYTES, 0, "record size", 40),
                HasSubstr("3 bytes"));
    TypeFileBuilder one;
    one.string("z").bytes("a");
    EXPECT_EQ(expectWarning(findingsOf(one), FindingCode::LEFTOVER_BYTES, 0, "record size", 40),
              "The last field ends 1 byte before the record.");
}

TEST(SuspiciousRecord, ArrayKindOutsideItsTableIsShownAsTheFormatWritesIt) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(0xA00008).u32(0).u32(0).u32(0).i32(-99);
    EXPECT_EQ(expectWarning(findingsOf(file), FindingCode::ARRAY_KIND_UNKNOWN, 1, "array kind",
                            file.address(1) + BODY),
              "Found 0xa00008, expected one of 0xa00000 to 0xa00007.");
}

TEST(SuspiciousRecord, ArrayKindOutsideItsTable) {
    for (const unsigned int kind : {0x9FFFFFu, 0xA00008u}) {
        TypeFileBuilder file;
        file.integer("i").record(ClassId::ARRAY, "a").u32(kind).u32(0).u32(0).u32(0).i32(-99);
        expectWarning(findingsOf(file), FindingCode::ARRAY_KIND_UNKNOWN, 1, "array kind",
                      file.address(1) + BODY);
    }
}

TEST(SuspiciousRecord, RecordKindOutsideItsTable) {
    for (const unsigned int kind : {0xAFFFFu, 0xB0009u}) {
        TypeFileBuilder file;
        file.record(ClassId::RECORD, "s").u32(kind).u32(0).i32(-99);
        expectWarning(findingsOf(file), FindingCode::RECORD_KIND_UNKNOWN, 0, "record kind",
                      40 + BODY);
    }
}

TEST(SuspiciousRecord, EncodingOutsideItsTable) {
    for (const int encoding : {-1, 4}) {
        TypeFileBuilder file;
        file.record(ClassId::SEQ_ENUM, "e").i32(encoding).i32(1).i32(0).i32(1);
        expectWarning(findingsOf(file), FindingCode::ENCODING_UNKNOWN, 0, "encoding", 40 + BODY);
    }
}

TEST(SuspiciousRecord, EnumKindOutsideItsTable) {
    for (const int kind : {-1, 6}) {
        TypeFileBuilder file;
        file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(kind).i32(0).i32(1);
        expectWarning(findingsOf(file), FindingCode::ENUM_KIND_UNKNOWN, 0, "enum kind",
                      40 + BODY + 4);
    }
}

TEST(SuspiciousRecord, FlavourOutsideItsTable) {
    for (const int flavour : {-1, 4}) {
        TypeFileBuilder file;
        file.record(ClassId::FLOAT, "f").i32(flavour).f64(0).f64(1).f64(1);
        expectWarning(findingsOf(file), FindingCode::FLAVOUR_UNKNOWN, 0, "real kind", 40 + BODY);
    }
    TypeFileBuilder file;
    file.record(ClassId::EVENT, "v").i32(2);
    expectWarning(findingsOf(file), FindingCode::FLAVOUR_UNKNOWN, 0, "event kind", 40 + BODY);
}

TEST(SuspiciousRecord, RealDirectionThatIsNoInteger) {
    TypeFileBuilder file;
    file.record(ClassId::FLOAT, "f").i32(0).f64(0).f64(1).f64(2147483648.0);
    expectWarning(findingsOf(file), FindingCode::REAL_DIRECTION_UNUSABLE, 0, "direction",
                  40 + BODY + 20);
}

TEST(InvalidReference, TypedefOfAnIdOutsideTheTable) {
    TypeFileBuilder file;
    addTypedef(file, 1);
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "data type id", 40 + BODY);
}

TEST(InvalidReference, AssocArrayIndexOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ASSOC_ARRAY, "k").u32(0).i32(1).u32(2);
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 1, "index type id",
                file.address(1) + BODY + 8);
}

TEST(InvalidReference, MemberOfAnIdOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i");
    addStruct(file, {0, 2});
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 1, "member[1].type id",
                file.address(1) + BODY + 8 + 10 + 2);
}

TEST(InvalidReference, LastOfMoreMembersThanAreKept) {
    constexpr unsigned int MEMBERS = 3000;
    TypeFileBuilder file;
    file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(MEMBERS);
    for (unsigned int i = 1; i < MEMBERS; ++i)
        file.str("m").u32(1).u32(0); // Of the integer, which comes behind the struct.
    file.str("m").u32(7).u32(0).i32(-99).integer("i");
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "member[2999].type id",
                file.address(0) + BODY + 8 + (MEMBERS - 1) * 10 + 2);
}

TEST(InvalidReference, ClassMemberWithoutAType) {
    TypeFileBuilder file;
    addClass(file, NO_BASE, {0, NO_BASE});
    expectError(findingsOf(file), FindingCode::TYPE_ID_OUTSIDE_TABLE, 0, "member[1].type id",
                40 + BODY + 12 + 14 + 2);
}

TEST(SuspiciousReference, IndexTypeOutsideTheTable) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(NO_BASE).u32(2).u32(2).range(0, 1, 1).range(0, 1, 1).i32(-99);
    expectWarning(findingsOf(file), FindingCode::INDEX_TYPE_ID_OUTSIDE_TABLE, 1,
                  "dimension[1].index type id", file.address(1) + BODY + 16);
}

TEST(InvalidReference, ToAKindThatBuildsNoType) {
    TypeFileBuilder file;
    file.record(ClassId::LOGIC, "l");
    addTypedef(file, 0);
    addStruct(file, {0});
    const auto findings = findingsOf(file);
    ASSERT_EQ(findings.size(), 3u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::KIND_WITHOUT_TYPE, Severity::ERROR, 0, "kind", 44);
    expectFinding(findings, 1, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 1, "data type id",
                  file.address(1) + BODY);
    expectFinding(findings, 2, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 2,
                  "member[0].type id", file.address(2) + BODY + 8 + 2);
}

TEST(SuspiciousReference, BaseThatIsNoClass) {
    TypeFileBuilder file;
    file.integer("i");
    addClass(file, 0, {});
    expectWarning(findingsOf(file), FindingCode::BASE_IS_NO_CLASS, 1, "base class type id",
                  file.address(1) + BODY);
}

TEST(InvalidReference, TypedefOfItself) {
    TypeFileBuilder file;
    addTypedef(file, 0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 0, "data type id", 40 + BODY);
}

TEST(InvalidReference, ArrayOfATypedefOfTheArray) {
    TypeFileBuilder file;
    addArray(file, 1);
    addTypedef(file, 0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "data type id",
                file.address(1) + BODY);
}

TEST(InvalidReference, DiscreteEnumBasedOnItself) {
    TypeFileBuilder file;
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(0).i32(1).u32(0);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 0, "base type id", 40 + BODY);
}

TEST(InvalidReference, FileOfQueuesOfTheFile) {
    TypeFileBuilder file;
    file.record(ClassId::FILE_TYPE, "x").u32(1).u32(4).u32(4);
    file.record(ClassId::QUEUE, "q").u32(0).i32(1);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "element type id",
                file.address(1) + BODY);
}

TEST(InvalidReference, AssocArrayIndexedByItself) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ASSOC_ARRAY, "k").u32(0).i32(1).u32(1);
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "index type id",
                file.address(1) + BODY + 8);
}

TEST(InvalidReference, ClassThatIsItsOwnAncestor) {
    TypeFileBuilder file;
    addClass(file, 1, {});
    addClass(file, 0, {});
    expectError(findingsOf(file), FindingCode::REFERENCE_ENDLESS, 1, "base class type id",
                file.address(1) + BODY);
}

/// Classes that are each derived from the next one and have a member of the first.
TypeFileBuilder lineage(unsigned int classes) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < classes; ++id)
        addClass(file, id + 1 < classes ? id + 1 : NO_BASE, {0});
    return file;
}

TEST(SuspiciousReference, RecordThatIsOpenedMoreThanSixteenTimes) {
    // The first class is opened by itself, and again by the members of each class below it.
    expectClean(lineage(16));
    const TypeFileBuilder file = lineage(17);
    expectWarning(findingsOf(file), FindingCode::RECORD_REOPENED, 0, "base class type id",
                  40 + BODY);
}

TEST(SuspiciousReference, IsSaidOnceOfAGroup) {
    const TypeFileBuilder file = lineage(40); // From the twenty-fourth on there are seventeen.
    expectWarning(findingsOf(file), FindingCode::RECORD_REOPENED, 23, "base class type id",
                  file.address(23) + BODY);
}

TEST(Verifier, FindsNothingInAChainThatDoesNotLeadBack) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 40; ++id)
        addClass(file, id < 39 ? id + 1 : NO_BASE, {id});
    expectClean(file); // Each class leads back to itself alone.
}

TEST(Verifier, FindsNothingInAChainOfTypedefsToAClassThatLeadsBack) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 40; ++id)
        addTypedef(file, id + 1);
    expectClean(addClass(file, NO_BASE, {0})); // Once the class is there, it stays.
}

TEST(InvalidReference, ChainOfAMillionTypedefs) {
    // 21 bytes a record: size, kind, empty name, flags, data type id, no constraints.
    constexpr unsigned int TYPES = 1000000;
    constexpr unsigned int RECORD = 21;
    const auto word = [](unsigned long long value, int width) {
        std::string bytes;
        for (int i = 0; i < width; ++i)
            bytes += static_cast<char>(value >> (8 * i) & 0xFF);
        return bytes;
    };
    std::string image = "V" + std::string(31, '\0') + word(TYPES, 4) + word(40 + TYPES * RECORD, 4);
    for (unsigned int id = 0; id < TYPES; ++id) {
        const bool isLast = id + 1 == TYPES;
        image += word(RECORD, 4) + word(isLast ? ClassId::ACCESS : ClassId::TYPEDEF, 4) + '\0' +
                 word(0, 4) + word(id + 1 < TYPES ? id + 1 : id, 4) + word(0, 4);
    }
    for (unsigned int id = 0; id < TYPES; ++id)
        image += word(40 + id * RECORD, 8);
    image[40 + static_cast<std::size_t>(TYPES - 1) * RECORD + 4] = 0x07; // A typedef of itself.
    const auto findings = findingsOf(image);
    expectError(findings, FindingCode::REFERENCE_ENDLESS, TYPES - 1, "data type id",
                40 + static_cast<unsigned long long>(TYPES - 1) * RECORD + 13);
}

TEST(InvalidStruct, ContainsItself) {
    TypeFileBuilder file;
    file.integer("i");
    addStruct(file, {0, 1});
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 1, "member[1].type id",
                file.address(1) + BODY + 8 + 10 + 2);
}

TEST(InvalidStruct, ContainsItselfThroughATypedefAndAnArray) {
    TypeFileBuilder file;
    addStruct(file, {1});
    addTypedef(file, 2);
    addArray(file, 0);
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 2, "element type id",
                file.address(2) + BODY + 4);
}

TEST(InvalidStruct, FromATypedefOnward) {
    TypeFileBuilder file;
    addTypedef(file, 1);
    addStruct(file, {0});
    expectError(findingsOf(file), FindingCode::STRUCT_CONTAINS_ITSELF, 1, "member[0].type id",
                file.address(1) + BODY + 8 + 2);
}

TEST(Verifier, FindsNothingWhereAClassHandleLeadsBackToAStruct) {
    TypeFileBuilder file;
    addStruct(file, {1});
    addClass(file, NO_BASE, {0, 1});
    expectClean(file);
}

TEST(SuspiciousConstraints, FewerThanDimensions) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(0).u32(0).u32(1).range(0, 7, 1).i32(-99);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 1, "constraint count",
                  file.address(1) + BODY + 20);
}

TEST(SuspiciousConstraints, FewerThanTheOpenDimensionsBelowATypedef) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(2).u32(0).u32(0).u32(2).range(0, 0, OPEN).range(0, 0, OPEN).i32(-99);
    file.record(ClassId::TYPEDEF, "t").u32(1).u32(1).range(0, 7, 1);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 2, "constraint count",
                  file.address(2) + BODY + 4);
}

TEST(SuspiciousConstraints, FewerThanTheOpenDimensionsBelowAMember) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0, OPEN);
    addArray(file, 1, OPEN);
    file.record(ClassId::RECORD, "s").u32(VHDL_RECORD).u32(1);
    file.str("m").u32(2).u32(1).range(0, 7, 1).i32(-99);
    expectWarning(findingsOf(file), FindingCode::CONSTRAINT_LIST_TOO_SHORT, 3,
                  "member[0].constraint count", file.address(3) + BODY + 8 + 6);
}

TEST(Verifier, FindsNothingWhereATypedefFillsTheOpenDimensions) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0, OPEN);
    addArray(file, 1, OPEN);
    file.record(ClassId::TYPEDEF, "t").u32(2).u32(2).range(0, 7, 1).range(0, 3, 1);
    addTypedef(file, 2);
    expectClean(file);
}

/// Structs of two members of the next, `levels` deep, over an array of one dimension.
TypeFileBuilder ladder(unsigned int levels) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    for (unsigned int level = 0; level < levels; ++level)
        addStruct(file, {level + 1, level + 1});
    return file;
}

/// Exactly these types are reported for their walks, and nothing else is found.
void expectLargeWalks(const TypeFileBuilder& file, const VerifyLimits& limits,
                      const std::vector<unsigned int>& types) {
    const auto findings = findingsOf(file, limits);
    ASSERT_EQ(findings.size(), types.size()) << linesOf(findings);
    for (std::size_t i = 0; i < types.size(); ++i)
        expectFinding(findings, i, FindingCode::WALK_TOO_LARGE, Severity::WARNING, types[i],
                      "record", file.address(types[i]));
}

/// The ids from `first` to `last`.
std::vector<unsigned int> idsBetween(unsigned int first, unsigned int last) {
    std::vector<unsigned int> ids;
    for (unsigned int id = first; id <= last; ++id)
        ids.push_back(id);
    return ids;
}

VerifyLimits walkLimit(unsigned int steps) {
    VerifyLimits limits;
    limits.maxWalkSteps = steps;
    return limits;
}

TEST(LargeWalk, LadderOfStructs) {
    // The array gives one range; a struct takes two times what is below it, and itself: 3, 7, 15,
    // ... 2^(k + 1) - 1 for the k-th, which is type k + 1.
    expectLargeWalks(ladder(12), walkLimit(2047), {12, 13});
    expectLargeWalks(ladder(12), walkLimit(2046), {11, 12, 13});
    expectLargeWalks(ladder(40), {}, idsBetween(29, 41));
}

TEST(LargeWalk, LadderOfClasses) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    for (unsigned int level = 0; level < 40; ++level)
        addClass(file, NO_BASE, {level + 1, level + 1});
    expectLargeWalks(file, {}, idsBetween(29, 41));
}

TEST(LargeWalk, OfTypesThatStandBeforeTheirParts) {
    TypeFileBuilder file;
    for (unsigned int id = 0; id < 30; ++id)
        addStruct(file, {id + 1, id + 1});
    addArray(file, 31).integer("i"); // Type 29 takes 3 steps, type 0 takes 2^31 - 1.
    expectLargeWalks(file, {}, {0, 1, 2});
}

TEST(LargeWalk, OfAnArrayIsItsDimensions) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(VHDL_ARRAY).u32(0);
    file.u32(3).u32(0).u32(0).u32(0).u32(3).range(0, 1, 1).range(0, 1, 1).range(0, 1, 1).i32(-99);
    expectLargeWalks(file, walkLimit(3), {});
    expectLargeWalks(file, walkLimit(2), {1});
}

TEST(Verifier, FindsNothingInARowOfClassesThatAlsoLeadBack) {
    // There are more than 2^40 paths, and nearly all of them give nothing.
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    for (unsigned int id = 2; id < 42; ++id) {
        const unsigned int next = std::min(id + 1, 41U);
        addClass(file, NO_BASE, {id == 2 ? 1 : id - 1, next, next});
    }
    expectClean(file);
}

TEST(Verifier, FindsNothingInALongRingOfClasses) {
    constexpr unsigned int CLASSES = 8000;
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    for (unsigned int i = 0; i < CLASSES; ++i)
        addClass(file, NO_BASE, {1, 2 + (i + 1) % CLASSES});
    VerifyLimits limits;
    limits.maxCountingSteps = 0; // It can be told without counting.
    expectLargeWalks(file, limits, {});
}

/// Classes that all have members of all of them, and of type 1, an array.
TypeFileBuilder clique(unsigned int classes, bool givesRanges = true) {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    std::vector<unsigned int> members{givesRanges ? 1u : 0u};
    for (unsigned int id = 2; id < 2 + classes; ++id)
        members.push_back(id);
    for (unsigned int id = 2; id < 2 + classes; ++id)
        addClass(file, NO_BASE, members);
    return file;
}

TEST(LargeWalk, IsNotCountedToTheEndAmongManyClasses) {
    expectClean(clique(5));
    VerifyLimits limits;
    limits.maxCountingSteps = 100000;
    const TypeFileBuilder file = clique(30);
    expectWarning(findingsOf(file, limits), FindingCode::WALKS_NOT_COUNTED, FILE_LEVEL,
                  "address table", file.tableOffset());
}

TEST(LargeWalk, ThroughTwoClassesIsCountedExactly) {
    // From either: the array, the other class with its array, and the two visits.
    expectLargeWalks(clique(2), walkLimit(4), {});
    expectLargeWalks(clique(2), walkLimit(3), {2, 3});
}

/// Type 2 is a class of an array and two handles to type 3, a class of the array and a handle back;
/// type 4 holds ten handles to type 2.
TypeFileBuilder tenTimesTwoClasses() {
    TypeFileBuilder file;
    file.integer("i");
    addArray(file, 0);
    addClass(file, NO_BASE, {1, 3, 3});
    addClass(file, NO_BASE, {1, 2});
    return addStruct(file, std::vector<unsigned int>(10, 2));
}

TEST(LargeWalk, CountsEveryHandleToTheSameClass) {
    // Type 2: 1 + 2 * 2 + 1. Type 3: 1 + 2 + 1. Type 4: 10 * 6 + 1.
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(6), {4});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(5), {2, 4});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(3), {2, 3, 4});
}

TEST(LargeWalk, IsCountedExactlyWhereTheBoundOfAPartWouldPassTheLimit) {
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(61), {});
    expectLargeWalks(tenTimesTwoClasses(), walkLimit(60), {4});
}

TEST(Verifier, FindsNothingWhereManyClassesGiveNoRange) { expectClean(clique(8, false)); }

TEST(InvalidReference, OfEveryTypeThatSharesARecord) {
    TypeFileBuilder file;
    addTypedef(file, 7);
    addTypedef(file, 7);
    std::string image = file.image();
    patch(image, file.tableOffset() + 8, 40);
    const auto findings = findingsOf(image);
    ASSERT_EQ(findings.size(), 3u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::TYPE_ID_OUTSIDE_TABLE, Severity::ERROR, 0,
                  "data type id", 40 + BODY);
    expectFinding(findings, 1, FindingCode::TYPE_ID_OUTSIDE_TABLE, Severity::ERROR, 1,
                  "data type id", 40 + BODY);
    expectFinding(findings, 2, FindingCode::RECORD_SHARED, Severity::WARNING, 1, "address",
                  file.tableOffset() + 8);
}

TEST(InvalidRecord, KindZeroBuildsNoTypeForOthers) {
    TypeFileBuilder file;
    file.record(0, "?");
    addTypedef(file, 0);
    const auto findings = findingsOf(file);
    ASSERT_EQ(findings.size(), 2u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::KIND_UNKNOWN, Severity::ERROR, 0, "kind", 44);
    expectFinding(findings, 1, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 1, "data type id",
                  file.address(1) + BODY);
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

TEST(Verifier, PassesOnWhatTheStorageThrows) {
    TypeFileBuilder file;
    file.integer("i");
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    storage.failAtRead(0);
    EXPECT_THROW(verify(storage, image.size(), 0), std::runtime_error);
}

TEST(Verifier, ReadsNeighbouringRecordsTogether) {
    const TypeFileBuilder file = ladder(20);
    const std::string image = file.image();
    RecordingBlockManager storage(image);
    verify(storage, image.size(), 0);
    EXPECT_LE(storage.takeReads().size(), 5u);
}

} // namespace
