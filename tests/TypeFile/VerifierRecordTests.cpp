// The verifier on single records. All names are one character long, so that the fields of a kind
// begin 14 bytes into the record: size, kind, name, flags.

#include "tests/TypeFile/ExpectedFindings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using namespace TypeFile;
using testing::HasSubstr;

TEST(Verifier, FindsNothingInAFileWithEveryKind) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(2).str("0").str("1").i32(1);         // 0
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(1).i32(2).str("A").bytes("xy").u32(0); // 1
    file.integer("i");                                                                         // 2
    file.record(ClassId::FLOAT, "f").i32(3).f64(-1).f64(1).f64(1);                             // 3
    file.alias(1);                                                                             // 4
    file.record(ClassId::ACCESS, "p").u32(5).u32(8).u32(8);                                    // 5
    file.record(ClassId::CHANDLE, "h");                                                        // 6
    file.record(ClassId::EVENT, "v").i32(1);                                                   // 7
    file.record(ClassId::FILE_TYPE, "x").u32(2).u32(4).u32(4);                                 // 8
    file.record(ClassId::PHYSICAL, "y").i32(1).str("fs").i64(1);                               // 9
    file.packedArray(2);                                                                       // 10
    file.structure({10, 4});                                                                   // 11
    file.record(ClassId::DYNAMIC_ARRAY, "n").u32(11).i32(5);                                   // 12
    file.record(ClassId::QUEUE, "q").u32(12).i32(5);                                           // 13
    file.record(ClassId::ASSOC_ARRAY, "k").u32(13).i32(5).u32(16);                             // 14
    file.classType(NO_BASE, {15, 14});                                                         // 15
    file.string("z");                                                                          // 16
    file.record(ClassId::WILDCARD, "w");                                                       // 17
    expectClean(file);
}

TEST(Verifier, FindsNothingInAStructWithoutMembers) {
    TypeFileBuilder file;
    expectClean(file.record(0xA0000011, "s").u32(VLOG_UNPACKED_STRUCT).i32(0).i32(-99));
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
    expectError(findingsOf(file), FindingCode::RECORD_OUTSIDE_STORAGE, 0, "recordSize", 40);
}

TEST(InvalidRecord, SizeOfSeven) {
    TypeFileBuilder file;
    file.string("z").claim(7);
    expectError(findingsOf(file), FindingCode::RECORD_SIZE_INVALID, 0, "recordSize", 40);
}

TEST(InvalidRecord, NegativeSize) {
    TypeFileBuilder file;
    file.string("z").claim(-1);
    expectError(findingsOf(file), FindingCode::RECORD_SIZE_INVALID, 0, "recordSize", 40);
}

TEST(InvalidRecord, ReachesIntoTheNext) {
    TypeFileBuilder file;
    file.string("z").claim(BODY + 1).string("z");
    expectError(findingsOf(file), FindingCode::RECORD_OVERLAP, 0, "recordSize", 40);
}

TEST(InvalidRecord, ReachesIntoTheTable) {
    TypeFileBuilder file;
    file.string("z").string("z").claim(BODY + 1);
    EXPECT_THAT(
        expectError(findingsOf(file), FindingCode::RECORD_OVERLAP, 1, "recordSize", 40 + BODY),
        HasSubstr("the address table"));
}

TEST(InvalidRecord, LiesInTheHeader) {
    // The header's last 28 bytes are a record of 28 bytes: a size, a kind, a name, flags.
    std::string image = "V" + std::string(11, '\0') + std::string("\x1c\0\0\0\x18\0\0\xa0", 8);
    image += std::string(12, '\0') + std::string("\1\0\0\0\x28\0\0\0", 8);
    image += std::string("\x0c\0\0\0\0\0\0\0", 8);
    EXPECT_THAT(expectError(findingsOf(image), FindingCode::RECORD_OVERLAP, 0, "recordSize", 12),
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
    file.structure({0, 1}).cut(BODY + 8 + 10 + 11); // The second name runs over what follows it.
    std::string image = file.image();
    for (unsigned long long at = 40 + BODY + 8 + 10; at < 40 + BODY + 8 + 10 + 11; ++at)
        patch(image, at, 'x');
    expectError(findingsOf(image), FindingCode::NAME_NOT_TERMINATED, 0, "members[1].name",
                40 + BODY + 8 + 10);
}

TEST(InvalidRecord, MembersEndBeforeTheirSecond) {
    TypeFileBuilder file; // The first name has taken the room of the second member.
    file.record(ClassId::RECORD, "s").u32(VLOG_UNPACKED_STRUCT).i32(2);
    file.str("sixteen letters.").u32(1).u32(0).string("z");
    expectError(findingsOf(file), FindingCode::NAME_NOT_TERMINATED, 0, "members[1].name",
                40 + BODY + 8 + 17 + 8);
}

TEST(InvalidRecord, FlagsMissing) {
    TypeFileBuilder file;
    file.string("z").cut(BODY - 1);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "flags", 50);
}

TEST(InvalidRecord, RangeMissing) {
    TypeFileBuilder file;
    file.integer("i").cut(BODY + 11);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "range", 40 + BODY);
}

TEST(InvalidRecord, EnumeratorValueMissing) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(0).i32(1);
    file.record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(2).i32(9);
    file.str("A").bytes("123456789").str("B").bytes("1234");
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 1, "literals[1].value",
                file.address(1) + BODY + 12 + 11 + 2);
}

TEST(InvalidRecord, ClassMemberFlagMissing) {
    TypeFileBuilder file;
    file.record(ClassId::CLASS, "c").u32(NO_BASE).i32(1).i32(2);
    file.str("first").u32(0).u32(0).u32(0).str("m").u32(0).u32(0);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 0, "members[1].flag",
                40 + BODY + 12 + 18 + 10);
}

TEST(InvalidRecord, LastFieldMissing) {
    TypeFileBuilder file;
    file.integer("i");
    file.packedArray(0).cut(BODY + 36 - 1);
    expectError(findingsOf(file), FindingCode::FIELD_MISSING, 1, "svTypeId",
                file.address(1) + BODY + 32);
}

TEST(InvalidRecord, EnumeratorCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(5).i32(1); // Four bytes are left for
                                                                     // five.
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 0, "literalCount", 40 + BODY + 8);
}

TEST(InvalidRecord, MemberCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.record(ClassId::RECORD, "s").u32(VHDL_RECORD).i32(0x7FFFFFFF).i32(-99);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 0, "memberCount", 40 + BODY + 4);
}

TEST(InvalidRecord, ConstraintCountBeyondTheRecord) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::TYPEDEF, "t").u32(0).u32(2).range(0, 1, 1);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 1, "constraintCount",
                file.address(1) + BODY + 4);
}

TEST(InvalidRecord, ConstraintCountWithTheTopBit) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::TYPEDEF, "t").u32(0).u32(0x80000000);
    expectError(findingsOf(file), FindingCode::COUNT_TOO_LARGE, 1, "constraintCount",
                file.address(1) + BODY + 4);
}

TEST(SuspiciousRecord, NegativeCount) {
    TypeFileBuilder file;
    file.record(ClassId::PHYSICAL, "y").i32(-3);
    expectWarning(findingsOf(file), FindingCode::COUNT_NEGATIVE, 0, "unitCount", 40 + BODY);
}

TEST(InvalidRecord, NegativeEnumeratorSize) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(1).i32(1).i32(0).i32(-1);
    EXPECT_EQ(
        expectError(findingsOf(file), FindingCode::SIZE_NEGATIVE, 0, "valueSize", 40 + BODY + 12),
        "Found -1, expected a number of bytes.");
}

TEST(SuspiciousRecord, SizeOfZeroBesideAnotherFaultIsNone) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").i32(4).i32(1).i32(0).i32(0);
    expectWarning(findingsOf(file), FindingCode::ENCODING_UNKNOWN, 0, "encoding", 40 + BODY);
}

TEST(InvalidRecord, NegativeDiscreteEnumeratorSize) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::DISCRETE_ENUM, "d").u32(0).i32(0).i32(-1).u32(0);
    expectError(findingsOf(file), FindingCode::SIZE_NEGATIVE, 1, "valueSize",
                file.address(1) + BODY + 8);
}

TEST(SuspiciousRecord, BytesBehindTheLastField) {
    TypeFileBuilder file;
    file.string("z").bytes("abc");
    EXPECT_THAT(expectWarning(findingsOf(file), FindingCode::LEFTOVER_BYTES, 0, "recordSize", 40),
                HasSubstr("3 bytes"));
    TypeFileBuilder one;
    one.string("z").bytes("a");
    EXPECT_EQ(expectWarning(findingsOf(one), FindingCode::LEFTOVER_BYTES, 0, "recordSize", 40),
              "The last field ends 1 byte before the record.");
}

TEST(SuspiciousRecord, ArrayKindOutsideItsTableIsShownAsTheFormatWritesIt) {
    TypeFileBuilder file;
    file.integer("i").record(ClassId::ARRAY, "a").u32(0xA00008).u32(0).u32(0).u32(0).i32(-99);
    EXPECT_EQ(expectWarning(findingsOf(file), FindingCode::ARRAY_KIND_UNKNOWN, 1, "arrayKind",
                            file.address(1) + BODY),
              "Found 0xa00008, expected one of 0xa00000 to 0xa00007.");
}

TEST(SuspiciousRecord, ArrayKindOutsideItsTable) {
    for (const unsigned int kind : {0x9FFFFFu, 0xA00008u}) {
        TypeFileBuilder file;
        file.integer("i").record(ClassId::ARRAY, "a").u32(kind).u32(0).u32(0).u32(0).i32(-99);
        expectWarning(findingsOf(file), FindingCode::ARRAY_KIND_UNKNOWN, 1, "arrayKind",
                      file.address(1) + BODY);
    }
}

TEST(SuspiciousRecord, RecordKindOutsideItsTable) {
    for (const unsigned int kind : {0xAFFFFu, 0xB0009u}) {
        TypeFileBuilder file;
        file.record(ClassId::RECORD, "s").u32(kind).u32(0).i32(-99);
        expectWarning(findingsOf(file), FindingCode::RECORD_KIND_UNKNOWN, 0, "recordKind",
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
        expectWarning(findingsOf(file), FindingCode::ENUM_KIND_UNKNOWN, 0, "enumKind",
                      40 + BODY + 4);
    }
}

TEST(SuspiciousRecord, FlavourOutsideItsTable) {
    for (const int flavour : {-1, 4}) {
        TypeFileBuilder file;
        file.record(ClassId::FLOAT, "f").i32(flavour).f64(0).f64(1).f64(1);
        expectWarning(findingsOf(file), FindingCode::FLAVOUR_UNKNOWN, 0, "flavour", 40 + BODY);
    }
    TypeFileBuilder file;
    file.record(ClassId::EVENT, "v").i32(2);
    expectWarning(findingsOf(file), FindingCode::FLAVOUR_UNKNOWN, 0, "flavour", 40 + BODY);
}

TEST(SuspiciousRecord, RealDirectionThatIsNoInteger) {
    TypeFileBuilder file;
    file.record(ClassId::FLOAT, "f").i32(0).f64(0).f64(1).f64(2147483648.0);
    expectWarning(findingsOf(file), FindingCode::REAL_DIRECTION_UNUSABLE, 0, "direction",
                  40 + BODY + 20);
}

TEST(InvalidRecord, KindZeroBuildsNoTypeForOthers) {
    TypeFileBuilder file;
    file.record(0, "?");
    file.alias(0);
    const auto findings = findingsOf(file);
    ASSERT_EQ(findings.size(), 2u) << linesOf(findings);
    expectFinding(findings, 0, FindingCode::KIND_UNKNOWN, Severity::ERROR, 0, "kind", 44);
    expectFinding(findings, 1, FindingCode::LINK_TO_NO_TYPE, Severity::ERROR, 1, "dataType",
                  file.address(1) + BODY);
}

} // namespace
