#include "Inspect/model/PackedWidths.h"

#include "tests/support/LinkedTypes.h"
#include "tests/support/RunOnStack.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <utility>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::PackedWidths;

constexpr FullConstraints BYTE{7, 0, 0};
constexpr FullConstraints LANES{0, 3, 1};

/// Types that end at SystemVerilog's bit, and their widths.
class PackedTypes : public LinkedTypes {
public:
    unsigned int scalar() const { return m_scalar; }
    unsigned int bits(int width) { return packed(m_scalar, {{width - 1, 0, 0}}); }
    std::optional<std::uint64_t> widthOf(unsigned int id) const {
        return PackedWidths().of(&(*this)[id]);
    }

private:
    unsigned int m_scalar = bit();
};

TEST(PackedWidths, OfArraysAreTheProductOfTheirDimensions) {
    PackedTypes types;
    EXPECT_EQ(types.widthOf(types.scalar()), 1u);
    const auto word = types.packed(types.packed(types.scalar(), {BYTE, LANES}), {{-2, 3, 1}});
    EXPECT_EQ(types.widthOf(word), 6u * 8 * 4);
    EXPECT_EQ(types.widthOf(types.alias(types.discreteEnum(word))), 6u * 8 * 4);
}

TEST(PackedWidths, OfStructsAreTheSumAndOfUnionsTheLargestOfTheirMembers) {
    PackedTypes types;
    const LinkedTypes::Ids members{types.bits(3), types.scalar(), types.bits(5)};
    EXPECT_EQ(types.widthOf(types.record(VLOG_PACKED_STRUCT, members)), 9u);
    EXPECT_EQ(types.widthOf(types.record(VLOG_PACKED_UNTAGGED_UNION, members)), 5u);
}

TEST(PackedWidths, OfTaggedUnionsHoldTheTag) {
    PackedTypes types;
    const auto byte = types.bits(8);
    const auto nothing = types.structure({});
    const auto tagged = [&](const LinkedTypes::Ids& members) {
        return types.widthOf(types.record(VLOG_PACKED_TAGGED_UNION, members));
    };
    EXPECT_EQ(tagged({byte}), 8u);
    EXPECT_EQ(tagged({byte, byte}), 9u);
    EXPECT_EQ(tagged({byte, byte, nothing}), 10u);
    EXPECT_EQ(tagged({byte, byte, byte, byte}), 10u);
    EXPECT_EQ(tagged({byte, byte, byte, byte, byte}), 11u);
    EXPECT_EQ(types.widthOf(types.record(VLOG_PACKED_STRUCT, {byte, nothing})), std::nullopt);
}

TEST(PackedWidths, AreThoseOfPackedTypesAlone) {
    PackedTypes types;
    const auto byte = types.bits(8);
    const auto vhdlBit = types.seqEnum(ENCODING_BYTE);
    types.as<RTSeqEnumType>(vhdlBit).m_enumKind = VHDL_BIT_ENUM;
    const LinkedTypes::Ids others{
        NO_TYPE_ID,
        vhdlBit,
        types.integer(),
        types.string(),
        types.alias(NO_TYPE_ID),
        types.array(VLOG_FIXED_UNPACKED_ARRAY, byte, 1, {LANES}),
        types.vhdlArray(byte, {LANES}),
        types.queue(byte),
        types.structure({byte}),
        types.classType({byte}),
        types.record(VHDL_RECORD, {byte}),
        types.record(VLOG_PACKED_STRUCT, {}),
    };
    for (const unsigned int type : others) {
        const auto record = types.record(VLOG_PACKED_STRUCT, {byte, type, byte});
        const auto either = types.record(VLOG_PACKED_UNTAGGED_UNION, {type, byte});
        const Inspect::TypeTable table = types.table();
        EXPECT_EQ(PackedWidths().of(table.typeOf(type)), std::nullopt);
        EXPECT_EQ(types.widthOf(record), std::nullopt);
        EXPECT_EQ(types.widthOf(either), std::nullopt);
    }
}

TEST(PackedWidths, OfOpenDimensionsAreNone) {
    PackedTypes types;
    const auto bit = types.scalar();
    EXPECT_EQ(types.widthOf(types.packed(bit, {BYTE, OPEN})), std::nullopt);
    EXPECT_EQ(types.widthOf(types.packed(bit, {FULL_RANGE})), std::nullopt);
    EXPECT_EQ(types.widthOf(types.array(VLOG_FIXED_PACKED_ARRAY, bit, 1, {})), std::nullopt);
}

TEST(PackedWidths, CountUpTo64Bits) {
    PackedTypes types;
    const FullConstraints all{2147483647, -2147483647 - 1, 0}; // 2^32 indices
    const auto half = types.packed(types.scalar(), {all, {2147483647, 0, 0}});
    EXPECT_EQ(types.widthOf(half), 1ULL << 63);
    EXPECT_EQ(types.widthOf(types.record(VLOG_PACKED_STRUCT, {half, half})), std::nullopt);
    EXPECT_EQ(types.widthOf(types.packed(half, {{1, 0, 0}})), std::nullopt);
    EXPECT_EQ(types.widthOf(types.record(VLOG_PACKED_UNTAGGED_UNION, {half, half})), 1ULL << 63);
}

TEST(PackedWidths, OfTypesThatLeadBackToThemselvesAreNone) {
    PackedTypes types;
    const auto ring = types.record(VLOG_PACKED_STRUCT, {types.scalar()});
    const auto alias = types.alias(ring);
    const auto outer = types.record(VLOG_PACKED_STRUCT, {alias, types.scalar()});
    types.addMember(ring, types.packed(alias, {LANES}));
    const auto self = types.alias(types.size());
    const Inspect::TypeTable table = types.table();
    for (const unsigned int type : {outer, ring, alias, self})
        EXPECT_EQ(table.widths->of(table.typeOf(type)), std::nullopt);
}

TEST(PackedWidths, OfMembersThatAreMissingAreNone) {
    PackedTypes types;
    auto& record =
        types.as<RTRecordType>(types.record(VLOG_PACKED_STRUCT, {types.scalar(), types.scalar()}));
    delete std::exchange(record.m_members[1], nullptr); // The link to its type stays.
    EXPECT_EQ(PackedWidths().of(&record), std::nullopt);
}

TEST(PackedWidths, AreFoundBehindAMillionTypedefs) {
    PackedTypes types;
    auto type = types.bits(8);
    for (int i = 0; i < 1000000; ++i)
        type = types.alias(type);
    std::optional<std::uint64_t> width;
    runOnStack(smallStack(), [&] { width = types.widthOf(type); });
    EXPECT_EQ(width, 8u);
}

TEST(PackedWidths, OfTypesThatAreSharedTakeOneLookAtEach) {
    PackedTypes types;
    auto type = types.scalar();
    for (int i = 0; i < 60; ++i) // 2^60 paths.
        type = types.record(VLOG_PACKED_STRUCT, {type, type});
    EXPECT_EQ(types.widthOf(type), 1ULL << 60);
}

} // namespace
