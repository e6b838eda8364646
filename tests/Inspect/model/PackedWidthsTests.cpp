#include "Inspect/model/PackedWidths.h"

#include "tests/support/RunOnStack.h"
#include "tests/support/TypeGraph.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::PackedWidths;

constexpr FullConstraints BYTE{7, 0, 0};
constexpr FullConstraints LANES{0, 3, 1};

/// Types that end at SystemVerilog's bit.
class PackedTypes : public TypeGraph {
public:
    PackedTypes() { m_bit.m_enumKind = VLOG_BUILTIN_ENUM; }

    const RTSeqEnumType& bit() const { return m_bit; }
    RTArrayType& packed(const RTBaseType& element, const Ranges& ranges) {
        return array(VLOG_FIXED_PACKED_ARRAY, &element, ranges.size(), ranges);
    }
    RTArrayType& bits(int width) { return packed(m_bit, {{width - 1, 0, 0}}); }

private:
    RTSeqEnumType& m_bit = seqEnum(ENCODING_2_STATE);
};

std::optional<std::uint64_t> widthOf(const RTBaseType& type) { return PackedWidths().of(&type); }

TEST(PackedWidths, OfArraysAreTheProductOfTheirDimensions) {
    PackedTypes types;
    EXPECT_EQ(widthOf(types.bit()), 1u);
    const auto& word = types.packed(types.packed(types.bit(), {BYTE, LANES}), {{-2, 3, 1}});
    EXPECT_EQ(widthOf(word), 6u * 8 * 4);
    EXPECT_EQ(widthOf(types.alias(&types.discreteEnum(&word))), 6u * 8 * 4);
}

TEST(PackedWidths, OfStructsAreTheSumAndOfUnionsTheLargestOfTheirMembers) {
    PackedTypes types;
    const Links members{&types.bits(3), &types.bit(), &types.bits(5)};
    EXPECT_EQ(widthOf(types.record(VLOG_PACKED_STRUCT, members)), 9u);
    EXPECT_EQ(widthOf(types.record(VLOG_PACKED_UNTAGGED_UNION, members)), 5u);
}

TEST(PackedWidths, OfTaggedUnionsHoldTheTag) {
    PackedTypes types;
    const auto& byte = types.bits(8);
    const auto& nothing = types.structure({});
    const auto tagged = [&](const Links& members) {
        return widthOf(types.record(VLOG_PACKED_TAGGED_UNION, members));
    };
    EXPECT_EQ(tagged({&byte}), 8u);
    EXPECT_EQ(tagged({&byte, &byte}), 9u);
    EXPECT_EQ(tagged({&byte, &byte, &nothing}), 10u);
    EXPECT_EQ(tagged({&byte, &byte, &byte, &byte}), 10u);
    EXPECT_EQ(tagged({&byte, &byte, &byte, &byte, &byte}), 11u);
    EXPECT_EQ(widthOf(types.record(VLOG_PACKED_STRUCT, {&byte, &nothing})), std::nullopt);
}

TEST(PackedWidths, AreThoseOfPackedTypesAlone) {
    PackedTypes types;
    const auto& byte = types.bits(8);
    auto& vhdlBit = types.seqEnum(ENCODING_BYTE);
    vhdlBit.m_enumKind = VHDL_BIT_ENUM;
    const std::vector<const RTBaseType*> others{
        nullptr,
        &vhdlBit,
        &types.add<RTIntType>(),
        &types.add<RTStringType>(),
        &types.alias(nullptr),
        &types.array(VLOG_FIXED_UNPACKED_ARRAY, &byte, 1, {LANES}),
        &types.array(VHDL_ARRAY, &byte, 1, {LANES}),
        &types.container<RTQueueType>(&byte),
        &types.structure({&byte}),
        &types.classType({&byte}),
        &types.record(VHDL_RECORD, {&byte}),
        &types.record(VLOG_PACKED_STRUCT, {}),
    };
    for (const RTBaseType* type : others) {
        EXPECT_EQ(PackedWidths().of(type), std::nullopt);
        EXPECT_EQ(widthOf(types.record(VLOG_PACKED_STRUCT, {&byte, type, &byte})), std::nullopt);
        EXPECT_EQ(widthOf(types.record(VLOG_PACKED_UNTAGGED_UNION, {type, &byte})), std::nullopt);
    }
}

TEST(PackedWidths, OfOpenDimensionsAreNone) {
    PackedTypes types;
    EXPECT_EQ(widthOf(types.packed(types.bit(), {BYTE, OPEN})), std::nullopt);
    EXPECT_EQ(widthOf(types.packed(types.bit(), {FULL_RANGE})), std::nullopt);
    EXPECT_EQ(widthOf(types.array(VLOG_FIXED_PACKED_ARRAY, &types.bit(), 1, {})), std::nullopt);
}

TEST(PackedWidths, CountUpTo64Bits) {
    PackedTypes types;
    const FullConstraints all{2147483647, -2147483647 - 1, 0}; // 2^32 indices
    const auto& half = types.packed(types.bit(), {all, {2147483647, 0, 0}});
    EXPECT_EQ(widthOf(half), 1ULL << 63);
    EXPECT_EQ(widthOf(types.record(VLOG_PACKED_STRUCT, {&half, &half})), std::nullopt);
    EXPECT_EQ(widthOf(types.packed(half, {{1, 0, 0}})), std::nullopt);
    EXPECT_EQ(widthOf(types.record(VLOG_PACKED_UNTAGGED_UNION, {&half, &half})), 1ULL << 63);
}

TEST(PackedWidths, OfTypesThatLeadBackToThemselvesAreNone) {
    PackedTypes types;
    auto& ring = types.record(VLOG_PACKED_STRUCT, {&types.bit()});
    const auto& alias = types.alias(&ring);
    const auto& outer = types.record(VLOG_PACKED_STRUCT, {&alias, &types.bit()});
    addMember(ring, &types.packed(alias, {LANES}));
    auto& self = types.alias(nullptr);
    self.m_dataType = &self;
    PackedWidths widths;
    for (const RTBaseType* type :
         {static_cast<const RTBaseType*>(&outer), static_cast<const RTBaseType*>(&ring),
          static_cast<const RTBaseType*>(&alias), static_cast<const RTBaseType*>(&self)})
        EXPECT_EQ(widths.of(type), std::nullopt);
}

TEST(PackedWidths, OfMembersThatAreMissingAreNone) {
    PackedTypes types;
    auto& record = types.record(VLOG_PACKED_STRUCT, {&types.bit(), &types.bit()});
    delete record.m_members[1];
    record.m_members[1] = nullptr;
    EXPECT_EQ(widthOf(record), std::nullopt);
}

TEST(PackedWidths, AreFoundBehindAMillionTypedefs) {
    PackedTypes types;
    const RTBaseType* type = &types.bits(8);
    for (int i = 0; i < 1000000; ++i)
        type = &types.alias(type);
    std::optional<std::uint64_t> width;
    runOnStack(smallStack(), [&] { width = widthOf(*type); });
    EXPECT_EQ(width, 8u);
}

TEST(PackedWidths, OfTypesThatAreSharedTakeOneLookAtEach) {
    PackedTypes types;
    const RTBaseType* type = &types.bit();
    for (int i = 0; i < 60; ++i) // 2^60 paths.
        type = &types.record(VLOG_PACKED_STRUCT, {type, type});
    EXPECT_EQ(widthOf(*type), 1ULL << 60);
}

} // namespace
