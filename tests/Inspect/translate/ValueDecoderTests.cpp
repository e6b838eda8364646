#include "Inspect/translate/ValueDecoder.h"

#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using namespace std::string_literals;

/// SystemVerilog types that tests decode values of.
class PackedTypes : public LinkedTypes {
public:
    unsigned int vector(int width) { return packed(m_logic, {{width - 1, 0, 0}}); }

    /// enum logic [1:0] {IDLE, RUN = 2, ODD = 2'b1x}
    unsigned int state() {
        const unsigned int base = vector(2);
        auto& type = add<RTDiscreteEnumType>("state_e");
        type.m_baseTypeId = base;
        TypeFile::addLiteral(type, "IDLE", "\x00\x00"s);
        TypeFile::addLiteral(type, "RUN", "\x02\x00"s);
        TypeFile::addLiteral(type, "ODD", "\x03\x01"s);
        return last();
    }

    unsigned int record(RecordKind kind, const std::vector<Member>& members) {
        return LinkedTypes::structure("record_t", members, kind);
    }
    unsigned int structure(const std::vector<Member>& members) {
        return record(VLOG_PACKED_STRUCT, members);
    }

    std::string decoded(unsigned int id, const std::string& line) {
        return ValueDecoder(table(), id).decode(line);
    }

private:
    unsigned int m_logic = logic();
};

TEST(ValueDecoder, NamesTheFieldsOfAStruct) {
    PackedTypes types;
    const auto id = types.structure({{"st", types.state()}, {"n", types.vector(5)}, {"on", 0}});
    EXPECT_EQ(types.decoded(id, "10001101"), "st=RUN n=0x06 on=1");
    EXPECT_EQ(types.decoded(id, "8d"), "st=RUN n=0x06 on=1");
    EXPECT_EQ(types.decoded(id, "0xd"), "st=IDLE n=0x06 on=1");
}

TEST(ValueDecoder, KeepsWhatIsUnknown) {
    PackedTypes types;
    const auto id = types.structure({{"st", types.state()}, {"n", types.vector(8)}, {"on", 0}});
    EXPECT_EQ(types.decoded(id, "1xxxxxzzzzx"), "st=ODD n=0xxz on=x");
    EXPECT_EQ(types.decoded(id, "11xx0xzzzz0"), "st=0x3 n=0bxx0xzzzz on=0");
}

TEST(ValueDecoder, EntersStructsAndArraysOfThem) {
    PackedTypes types;
    const auto state = types.state();
    const auto inner = types.structure({{"st", state}, {"on", 0}});
    const auto id = types.structure({{"lanes", types.packed(inner, {{0, 1, 1}, {4, 3, 0}})},
                                     {"states", types.packed(state, {{2, 1, 0}})},
                                     {"words", types.packed(types.vector(3), {{1, 0, 0}})}});
    EXPECT_EQ(types.decoded(id, "0000011001010010000101"),
              "lanes[0][4].st=IDLE lanes[0][4].on=0 lanes[0][3].st=IDLE lanes[0][3].on=1 "
              "lanes[1][4].st=RUN lanes[1][4].on=0 lanes[1][3].st=RUN lanes[1][3].on=1 "
              "states[2]=IDLE states[1]=RUN words=0x05");
}

TEST(ValueDecoder, GivesAllMembersOfAUnionFromTheRight) {
    PackedTypes types;
    const auto id =
        types.record(VLOG_PACKED_UNTAGGED_UNION, {{"all", types.vector(6)}, {"st", types.state()}});
    EXPECT_EQ(types.decoded(id, "100110"), "all=0x26 st=RUN");
}

TEST(ValueDecoder, LeavesTheTagOfATaggedUnionOut) {
    PackedTypes types;
    types.record(VLOG_UNPACKED_STRUCT, {});
    const auto nothing = types.last();
    const auto id =
        types.record(VLOG_PACKED_TAGGED_UNION, {{"n", types.vector(4)}, {"none", nothing}});
    EXPECT_EQ(types.decoded(id, "10110"), "n=0x6");
}

TEST(ValueDecoder, GivesTheLiteralOfAnEnumeration) {
    PackedTypes types;
    const auto id = types.alias("alias_t", types.state());
    EXPECT_EQ(types.decoded(id, "10"), "RUN");
    EXPECT_EQ(types.decoded(id, "2"), "RUN");
    EXPECT_EQ(types.decoded(id, "11"), "0x3");
    EXPECT_EQ(types.decoded(id, " 00 \r"), "IDLE");
}

TEST(ValueDecoder, GoesByThePositionInAVhdlEnumeration) {
    PackedTypes types;
    const auto id = types.alias("color_t", types.enumeration("color", {"red", "green", "'x'"}));
    EXPECT_EQ(types.decoded(id, "01"), "green");
    EXPECT_EQ(types.decoded(id, "2"), "'x'");
    EXPECT_EQ(types.decoded(id, "3"), "0x3");
}

TEST(ValueDecoder, ReturnsAnyOtherLine) {
    PackedTypes types;
    const auto id = types.structure({{"n", types.vector(5)}});
    for (const char* line : {"", " ", "hello", "1010", "101010", "0x20", "\x1B[0m"})
        EXPECT_EQ(types.decoded(id, line), line);
}

TEST(ValueDecoder, EscapesWhatADesignCallsItsFields) {
    PackedTypes types;
    const auto id = types.structure({{"a b", 0}, {"\n", 0}, {"", 0}});
    EXPECT_EQ(types.decoded(id, "101"), "\"a b\"=1 \"\\n\"=0 \"\"=1");
}

TEST(ValueDecoder, RefusesTypesWithoutBits) {
    PackedTypes types;
    const auto open = types.packed(0, {{0, 0, -2}});
    types.add<RTStringType>("string");
    for (const unsigned int id : {open, types.last(), types.last() + 1})
        EXPECT_THROW(ValueDecoder(types.table(), id), UndecodableType);
}

TEST(ValueDecoder, RefusesTypesOfTooManyFields) {
    PackedTypes types;
    auto id = types.structure({{"on", 0}});
    const auto wide = types.packed(id, {{2147483647, 0, 0}});
    EXPECT_THROW(ValueDecoder(types.table(), wide), UndecodableType);
    for (int i = 0; i < 40; ++i) // 2^40 fields in one bit.
        id = types.record(VLOG_PACKED_UNTAGGED_UNION, {{"a", id}, {"b", id}});
    EXPECT_THROW(ValueDecoder(types.table(), id), UndecodableType);
}

TEST(ValueDecoder, RefusesTypesOfTooManyUnionsWithoutAValue) {
    PackedTypes types;
    types.record(VLOG_UNPACKED_STRUCT, {});
    const auto nothing = types.last();
    auto id = types.record(VLOG_PACKED_TAGGED_UNION, {{"a", nothing}, {"b", nothing}});
    for (int i = 0; i < 40; ++i)
        id = types.record(VLOG_PACKED_UNTAGGED_UNION, {{"a", id}, {"b", id}});
    EXPECT_THROW(ValueDecoder(types.table(), id), UndecodableType);
}

TEST(ValueDecoder, RefusesTypesOfTooManyBits) {
    PackedTypes types;
    EXPECT_EQ(types.decoded(types.vector(1 << 24), "0x1").size(), (1u << 22) + 2);
    EXPECT_THROW(ValueDecoder(types.table(), types.vector((1 << 24) + 1)), UndecodableType);
}

} // namespace
