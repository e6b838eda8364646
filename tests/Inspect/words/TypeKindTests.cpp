#include "Inspect/words/TypeKind.h"
#include "RTTI/CTType.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace Inspect;
using namespace RTTI;

TEST(TypeKind, MatchesAllItsWordsOrTheLast) {
    EXPECT_TRUE(matchesKind("packed struct", "packed struct"));
    EXPECT_TRUE(matchesKind("packed struct", "struct"));
    EXPECT_TRUE(matchesKind("packed struct", "Packed_Struct"));
    EXPECT_TRUE(matchesKind("discrete enumeration", "enum"));
    EXPECT_TRUE(matchesKind("physical type", "physical"));
    EXPECT_FALSE(matchesKind("packed struct", "packed"));
    EXPECT_FALSE(matchesKind("unpacked struct", "packed struct"));
    EXPECT_FALSE(matchesKind("queue", ""));
}

TEST(TypeKind, NamesEachKindOfStructAndUnion) {
    CTRecordType type;
    const auto kind = [&](unsigned int number) {
        type.m_recordKind = static_cast<RecordKind>(number);
        return kindOf(type);
    };
    EXPECT_EQ(kind(0xB0001), "record");
    EXPECT_EQ(kind(0xB0002), "unpacked struct");
    EXPECT_EQ(kind(0xB0003), "packed struct");
    EXPECT_EQ(kind(0xB0004), "packed tagged union");
    EXPECT_EQ(kind(0xB0005), "unpacked tagged union");
    EXPECT_EQ(kind(0xB0006), "packed union");
    EXPECT_EQ(kind(0xB0007), "unpacked union");
    EXPECT_EQ(kind(0xB0008), "unpadded byte struct");
}

TEST(TypeKind, OfACodeTellsThoseThatBuildNoTypeFromThoseThatNoRecordHas) {
    const std::set<unsigned int> withoutType = {0xA000000A, 0xA000000E, 0xA000000F, 0xA0000012,
                                                0xA0000016};
    for (unsigned int code = 0xA0000003; code <= 0xA0000019; ++code) {
        EXPECT_EQ(kindOf(code) == "builds no type", withoutType.count(code) == 1) << code;
        EXPECT_NE(kindOf(code), "type of unknown class") << code;
    }
    for (const unsigned int code : {0xA0000002U, 0xA000001AU, 0U, 0xFFFFFFFFU})
        EXPECT_EQ(kindOf(code), "type of unknown class") << code;
}

} // namespace
