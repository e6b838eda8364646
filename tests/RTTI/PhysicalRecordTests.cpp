// Units of physical types in records that end early.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

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

TEST(Units, CountCutByOneByteIsZero) {
    EXPECT_THAT(unitsOf(TypeFileBuilder{}.record(0xA000000D, "t").bytes(std::string("\1\0\0", 3))),
                IsEmpty());
}

TEST(Units, ValueThatEndsWithTheRecordIsThere) {
    EXPECT_THAT(unitsOf(TypeFileBuilder{}.record(0xA000000D, "t").i32(1).str("fs").i64(-7)),
                ElementsAre(std::pair("fs", -7)));
}

TEST(Units, ValueCutByOneByteIsZero) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(1).str("fs").bytes(std::string(7, '\1'));
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("fs", 0)));
}

TEST(Units, NameWithoutItsZeroByteEndsWithTheRecord) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).bytes("femto");
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("femto", 0), std::pair("", 0)));
}

TEST(Units, EmptyNameTakesOneByte) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("").i64(3).str("s").i64(4);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("", 3), std::pair("s", 4)));
}

TEST(Units, BehindTheCountAreNotRead) {
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(1).str("fs").i64(1).str("ps").i64(1000);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("fs", 1)));
}

TEST(Units, ValuesReachBothEndsOfSixtyFourBits) {
    const long long lowest = std::numeric_limits<long long>::min();
    const long long highest = std::numeric_limits<long long>::max();
    TypeFileBuilder file;
    file.record(0xA000000D, "t").i32(2).str("a").i64(lowest).str("b").i64(highest);
    EXPECT_THAT(unitsOf(file), ElementsAre(std::pair("a", lowest), std::pair("b", highest)));
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_NE(trace.find("value =   -9223372036854775808   "), std::string::npos) << trace;
}

TEST(Units, NegativeCountIsTracedWithoutASign) {
    const std::string trace =
        LoadedTypes(TypeFileBuilder{}.record(0xA000000D, "t").i32(-2), false).trace();
    EXPECT_NE(trace.find("** Number of units =  4294967294  **  \n"), std::string::npos) << trace;
}

} // namespace
