// What every record has in common, and the kinds without a reader of their own.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::Pair;

TEST(RecordFraming, KindThatBuildsNothingIsReadAtEveryRequest) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA000000E, "logic"), false);
    EXPECT_EQ(types[0], nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
    EXPECT_EQ(types[0], nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
}

TEST(RecordFraming, KindsWithoutAReaderBuildNothing) {
    for (const unsigned int kind :
         {0u, 0xA0000001u, 0xA0000002u, 0xA000000Au, 0xA000000Eu, 0xA000000Fu, 0xA0000012u,
          0xA0000016u, 0xA000001Au, 0xFFFFFFFFu}) {
        LoadedTypes types(TypeFileBuilder{}.record(kind, "x"));
        EXPECT_EQ(types[0], nullptr) << std::hex << kind;
    }
}

TEST(RecordFraming, RealThatStopsAfterItsFlavourHasZeroBounds) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000006, "r").i32(2));
    EXPECT_EQ(types.as<RTFloatType>(0).m_floatKind, 2);
    EXPECT_EQ(types.as<RTFloatType>(0).m_left, 0.0);
    EXPECT_EQ(types.as<RTFloatType>(0).m_right, 0.0);
    EXPECT_EQ(types.as<RTFloatType>(0).m_direction, 0);
}

TEST(RecordFraming, RealFlavourAboveThreeIsDroppedAndANegativeOneKept) {
    TypeFileBuilder file;
    file.record(0xA0000006, "7").i32(7).record(0xA0000006, "-1").i32(-1);
    file.record(0xA0000006, "3").i32(3);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTFloatType>(0).m_floatKind, 0);
    EXPECT_EQ(types.as<RTFloatType>(1).m_floatKind, -1);
    EXPECT_EQ(types.as<RTFloatType>(2).m_floatKind, 3);
    EXPECT_EQ(types[0]->getValueEncoding(), ENCODING_BYTE);
    EXPECT_EQ(types[1]->getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(types[2]->getValueEncoding(), ENCODING_4_STATE);
}

int directionOf(double direction) {
    TypeFileBuilder file;
    file.record(0xA0000006, "r").i32(0).f64(0).f64(0).f64(direction);
    return LoadedTypes(file).as<RTFloatType>(0).m_direction;
}

TEST(RecordFraming, RealDirectionIsTruncatedTowardZero) {
    EXPECT_EQ(directionOf(1.9), 1);
    EXPECT_EQ(directionOf(-0.5), 0);
    EXPECT_EQ(directionOf(2147483647.9), 2147483647);
    EXPECT_EQ(directionOf(-2147483648.9), std::numeric_limits<int>::min());
}

TEST(RecordFraming, RealDirectionThatDoesNotFitIsTheSmallestNumber) {
    const int lowest = std::numeric_limits<int>::min();
    EXPECT_EQ(directionOf(std::numeric_limits<double>::quiet_NaN()), lowest);
    EXPECT_EQ(directionOf(std::numeric_limits<double>::infinity()), lowest);
    EXPECT_EQ(directionOf(-std::numeric_limits<double>::infinity()), lowest);
    EXPECT_EQ(directionOf(2147483648.0), lowest);
}

TEST(RecordFraming, RealBoundsAreKeptBitForBit) {
    TypeFileBuilder file;
    file.record(0xA0000006, "r").i32(0).f64(-0.0).f64(5e-324).f64(0);
    LoadedTypes types(file);
    EXPECT_TRUE(std::signbit(types.as<RTFloatType>(0).m_left));
    EXPECT_EQ(types.as<RTFloatType>(0).m_right, 5e-324);
}

TEST(RecordFraming, EventFlavourAboveOneIsDropped) {
    TypeFileBuilder file;
    file.record(0xA000000B, "2").i32(2).record(0xA000000B, "1").i32(1);
    file.record(0xA000000B, "-1").i32(-1).record(0xA000000B, "short");
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTEventType>(0).m_eventKind, 0);
    EXPECT_EQ(types.as<RTEventType>(1).m_eventKind, 1);
    EXPECT_EQ(types.as<RTEventType>(2).m_eventKind, -1);
    EXPECT_EQ(types.as<RTEventType>(3).m_eventKind, 0);
}

TEST(RecordFraming, ChandleHasTheNameOfItsRecordEvenAnEmptyOne) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000009, "handle_t").record(0xA0000009, ""));
    EXPECT_STREQ(types.as<RTCHandle>(0).m_name, "handle_t");
    EXPECT_STREQ(types.as<RTCHandle>(1).m_name, "");
}

TEST(RecordFraming, FlagsAreKeptWhole) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000018, "s", 0xFFFFFFEF));
    EXPECT_EQ(types[0]->m_flags, 0xFFFFFFEFu);
}

TEST(RecordFraming, ShortFlagsAreZero) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000018, "s", 0xFFFFFFFF).cut(13));
    EXPECT_EQ(types[0]->m_flags, 0u);
}

TEST(RecordFraming, NameWithoutItsZeroByteEndsWithTheRecord) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000018, "string", 1).cut(8 + 3));
    EXPECT_STREQ(types[0]->m_name, "str");
    EXPECT_EQ(types[0]->m_flags, 0u);
}

TEST(RecordFraming, SizeBelowEightIsARecordWithoutABody) {
    for (int size = 1; size < 8; ++size) {
        TypeFileBuilder file;
        file.record(0xA0000005, "int").range(1, 2, 3).claim(size);
        LoadedTypes types(file);
        EXPECT_STREQ(types.as<RTIntType>(0).m_name, "");
        EXPECT_EQ(types.as<RTIntType>(0).m_constraint.dir, 0);
        EXPECT_THAT(types.storage().takeReads(),
                    ElementsAre(Pair(40u, 4), Pair(44u, 4), Pair(40u, size)));
    }
}

TEST(RecordFraming, SizeOfZeroOrLessMakesNoThirdRead) {
    for (const int size : {0, -1, std::numeric_limits<int>::min()}) {
        LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "int").range(1, 2, 3).claim(size));
        EXPECT_STREQ(types.as<RTIntType>(0).m_name, "");
        EXPECT_EQ(types.as<RTIntType>(0).m_constraint.si, 0);
        EXPECT_THAT(types.storage().takeReads(), ElementsAre(Pair(40u, 4), Pair(44u, 4)));
    }
}

TEST(RecordFraming, RecordsAreFoundAtAnyBaseOffset) {
    LoadedTypes types(TypeFileBuilder{}.base(1000).integer("a").string("b"));
    EXPECT_STREQ(types[1]->m_name, "b");
}

TEST(CutRecords, RecordOfNineBytesHasOneLetterOfItsName) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "int").cut(9));
    EXPECT_STREQ(types[0]->m_name, "i");
}

TEST(CutRecords, RecordOfEightBytesHasAnEmptyName) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "int").cut(8));
    EXPECT_STREQ(types[0]->m_name, "");
}

TEST(CutRecords, OfEveryKindLoadAtEverySize) {
    for (unsigned int kind = 0xA0000003; kind <= 0xA0000019; ++kind) {
        for (std::size_t size = 8; size < 50; ++size) {
            TypeFileBuilder file;
            file.record(kind, "name", 0x11)
                .u32(0)
                .u32(1)
                .u32(1)
                .str("m")
                .bytes(std::string(8, '\0'));
            file.u32(1).range(1, 2, 3).i32(4).cut(size);
            LoadedTypes types(file);
            const bool builds = types[0] != nullptr;
            const bool nothing = kind == 0xA000000A || kind == 0xA000000E || kind == 0xA000000F ||
                                 kind == 0xA0000012 || kind == 0xA0000016;
            EXPECT_NE(builds, nothing) << std::hex << kind << " cut to " << std::dec << size;
        }
    }
}

TEST(CutRecords, RecordThatClaimsMoreThanTheStorageHoldsEndsInItsException) {
    TypeFileBuilder file;
    file.integer("int").claim(4000);
    LoadedTypes types(file, false);
    EXPECT_THROW(types[0], std::out_of_range);
    EXPECT_THROW(types.manager().readAllRTTypes(), std::out_of_range);
}

} // namespace
