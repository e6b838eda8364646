// Physical types and their units.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::pair<std::string, long long>> unitsOf(const TypeFileBuilder& file) {
    LoadedTypes types(file);
    std::vector<std::pair<std::string, long long>> units;
    for (const auto& unit : types.as<RTPhysicalType>(0).m_units)
        units.emplace_back(unit.unitName, unit.value);
    return units;
}

TEST(PhysicalRecords, EmptyBodyHasNoUnits) {
    EXPECT_THAT(
        LoadedTypes(TypeFileBuilder{}.record(0xA000000D, "t")).as<RTPhysicalType>(0).m_units,
        IsEmpty());
}

TEST(PhysicalRecords, NegativeCountHasNoUnits) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(-2).str("fs").i64(1);
    EXPECT_THAT(LoadedTypes(file).as<RTPhysicalType>(0).m_units, IsEmpty());
}

TEST(PhysicalRecords, UnitWithoutAWholeValueHasZeroAndTheNextBeginsEightBytesOn) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("fs").i32(7);
    LoadedTypes types(file);
    const auto& units = types.as<RTPhysicalType>(0).m_units;
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(units[0].unitName, "fs");
    EXPECT_EQ(units[0].value, 0);
    EXPECT_EQ(units[1].unitName, "");
    EXPECT_EQ(units[1].value, 0);
}

TEST(PhysicalRecords, ValuesMayBeNegativeAndLarge) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("a").i64(-5).str("b").i64(0x123456789ABCDEF0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTPhysicalType>(0).m_units[0].value, -5);
    EXPECT_EQ(types.as<RTPhysicalType>(0).m_units[1].value, 0x123456789ABCDEF0);
}

TEST(PhysicalRecords, CountCutByOneByteIsZero) {
    EXPECT_THAT(unitsOf(TypeFileBuilder{}.record(0xA000000D, "t").bytes(std::string("\1\0\0", 3))),
                IsEmpty());
}

TEST(PhysicalRecords, ValueThatEndsWithTheRecordIsThere) {
    EXPECT_THAT(unitsOf(TypeFileBuilder{}.record(0xA000000D, "t").i32(1).str("fs").i64(-7)),
                ElementsAre(std::pair("fs", -7)));
}

TEST(PhysicalRecords, ValueCutByOneByteIsZero) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(1).str("fs").bytes(std::string(7, '\1'));
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("fs", 0)));
}

TEST(PhysicalRecords, NameWithoutItsZeroByteEndsWithTheRecord) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).bytes("femto");
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("femto", 0), std::pair("", 0)));
}

TEST(PhysicalRecords, EmptyNameTakesOneByte) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("").i64(3).str("s").i64(4);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("", 3), std::pair("s", 4)));
}

TEST(PhysicalRecords, BehindTheCountAreNotRead) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(1).str("fs").i64(1).str("ps").i64(1000);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("fs", 1)));
}

TEST(PhysicalRecords, ValuesReachBothEndsOfSixtyFourBits) {
    const long long lowest = std::numeric_limits<long long>::min();
    const long long highest = std::numeric_limits<long long>::max();
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("a").i64(lowest).str("b").i64(highest);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("a", lowest), std::pair("b", highest)));
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_NE(trace.find("value =   -9223372036854775808   "), std::string::npos) << trace;
}

TEST(PhysicalRecords, NegativeCountIsTracedWithoutASign) {
    const std::string trace =
        LoadedTypes(TypeFileBuilder{}.record(0xA000000D, "t").i32(-2), false).trace();
    EXPECT_NE(trace.find("** Number of units =  4294967294  **  \n"), std::string::npos) << trace;
}

} // namespace
