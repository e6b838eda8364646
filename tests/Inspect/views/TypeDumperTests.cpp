#include "Inspect/views/TypeDumper.h"
#include "RTTI/CTType.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using namespace Inspect;

char* copyOf(const std::string& text) {
    char* copy = new char[text.size() + 1];
    std::copy_n(text.c_str(), text.size() + 1, copy);
    return copy;
}

std::string dump(unsigned int id, const RTBaseType& type, const RTBaseType* others = nullptr) {
    std::ostringstream out;
    TypeDumper(out, {id + 1, [=](unsigned int) { return others; }}).type(id, type);
    return out.str();
}

TEST(TypeDumper, ShowsARealWithBoundsThatReadBack) {
    RTFloatType type;
    type.m_floatKind = 3;
    type.m_left = 0.1;
    type.m_right = 1e300;
    type.m_direction = 1;
    EXPECT_EQ(dump(4, type), "type 4: real realtime\n"
                             "  declaration: typedef realtime type_4;\n"
                             "  flags: 0x0\n"
                             "  flavour: 3\n"
                             "  left: 0.1\n"
                             "  right: 1e+300\n"
                             "  direction: 1\n"
                             "  value encoding: 4-State\n"
                             "  value size: not recorded\n"
                             "  flattened constraints: none\n"
                             "\n");
}

TEST(TypeDumper, ShowsUnitsWithTheirValues) {
    RTPhysicalType type;
    type.m_flags = 0x10;
    type.m_units = {{"fs", 1}, {"ps", 1000}};
    EXPECT_EQ(dump(0, type),
              "type 0: physical type range -9223372036854775807 to 9223372036854775807 /* not "
              "recorded */ units fs...\n"
              "  declaration:\n"
              "    type type_0 is range -9223372036854775807 to 9223372036854775807 /* not "
              "recorded */\n"
              "        units\n"
              "            fs;\n"
              "            ps = 1000 fs;\n"
              "        end units;\n"
              "  flags: 0x10\n"
              "  units: 2\n"
              "    [0] \"fs\" = 1\n"
              "    [1] \"ps\" = 1000\n"
              "  value encoding: Unpadded-Byte\n"
              "  value size: not recorded\n"
              "  flattened constraints: none\n"
              "\n");
}

TEST(TypeDumper, NamesTheIndexTypesOfAnArray) {
    const CTEventType index;
    CTArrayType type("mem", VHDL_ARRAY, 8, 9);
    type.m_constraints = {{7, 0, 0}, {0, 0, -2}};
    type.m_svTypeId = 6;
    EXPECT_EQ(dump(1, type, &index),
              "type 1: VHDL array \"mem\"\n"
              "  declaration:\n"
              "    type mem is array (type_9 range 7 downto 0) of type_8;\n"
              "    -- no legal declaration: type 8 belongs to SystemVerilog\n"
              "  flags: 0x0\n"
              "  array kind: VHDL_ARRAY\n"
              "  element type: 8 (no type)\n"
              "  index types: 1\n"
              "    [0] 9 event\n"
              "  constraints: (7 downto 0), (open)\n"
              "  SV type id: 6\n"
              "  value encoding: Byte\n"
              "  value size: not recorded\n"
              "  flattened constraints: (7 downto 0)\n"
              "\n");
}

TEST(TypeDumper, ShowsTheMembersOfAClassWithTheirFlags) {
    const CTQueueType queue("q", 3);
    RTClassType type("pkt");
    auto* member = new RTClassType::t_ClassMember;
    member->m_memberName = copyOf("items");
    member->m_typeId = 12;
    member->m_memberFlag = true;
    member->m_constraints = {{0, 3, 1}};
    type.m_members.push_back(member);
    type.m_memberTypes.push_back(&queue);
    EXPECT_EQ(dump(2, type), "type 2: class \"pkt\"\n"
                             "  declaration:\n"
                             "    class pkt;\n"
                             "        static type_12 items; // no place for: (0 to 3)\n"
                             "    endclass\n"
                             "    // no legal declaration: type 12 is missing\n"
                             "  flags: 0x0\n"
                             "  base class: none\n"
                             "  SV type id: none\n"
                             "  members: 1\n"
                             "    [0] \"items\": 12 \"q\", constraints: (0 to 3), flag: true\n"
                             "  value encoding: 4-State\n"
                             "  value size: not recorded\n"
                             "  flattened constraints: none\n"
                             "\n");
}

TEST(TypeDumper, ShowsKindsOutsideTheirTablesAsNumbers) {
    CTRecordType type;
    type.m_recordKind = static_cast<RecordKind>(0xB0009);
    EXPECT_EQ(dump(0, type), "type 0: record of unknown kind end record\n"
                             "  declaration:\n"
                             "    type type_0 is record\n"
                             "    end record;\n"
                             "    -- no legal declaration: a record has at least one member\n"
                             "  flags: 0x0\n"
                             "  record kind: 0xb0009\n"
                             "  members: 0\n"
                             "  SV type id: none\n"
                             "  value encoding: Byte\n"
                             "  value size: not recorded\n"
                             "  flattened constraints: none\n"
                             "\n");
}

TEST(TypeDumper, ShowsTheTypeBehindTypedefs) {
    CTArrayType array("a", VLOG_FIXED_PACKED_ARRAY, 8, 9);
    array.m_constraints = {{0, 0, -2}};
    CTTypedefType inner("inner", 3);
    inner.m_dataType = &array;
    CTTypedefType outer("outer", 2);
    outer.m_dataType = &inner;
    outer.m_constraints = {{0, 15, 1}};
    EXPECT_EQ(dump(1, outer), "type 1: typedef \"outer\"\n"
                              "  declaration:\n"
                              "    typedef type_2 outer; // no place for: (0 to 15)\n"
                              "    // no legal declaration: type 2 is missing\n"
                              "  flags: 0x0\n"
                              "  data type: 2 \"inner\"\n"
                              "  constraints: (0 to 15)\n"
                              "  value encoding: Byte\n"
                              "  value size: not recorded\n"
                              "  type behind: 3 \"a\"\n"
                              "  flattened constraints: (0 to 15)\n"
                              "\n");
}

TEST(TypeDumper, CountsTheDimensionsBelowAContainer) {
    RTStringType text;
    CTQueueType inner("inner", 4);
    inner.m_elementType = &text;
    CTDynamicArrayType outer("outer", 5);
    outer.m_elementType = &inner;
    EXPECT_EQ(dump(6, outer), "type 6: dynamic array \"outer\"\n"
                              "  declaration:\n"
                              "    typedef type_5 outer [];\n"
                              "    // no legal declaration: type 5 is missing\n"
                              "  flags: 0x0\n"
                              "  element type: 5 \"inner\"\n"
                              "  SV type id: none\n"
                              "  value encoding: Byte\n"
                              "  value size: not recorded\n"
                              "  total dimensions: 2\n"
                              "  flattened constraints: none\n"
                              "\n");
}

/// Ranges of which each is unlike its neighbours.
std::vector<FullConstraints> distinctRanges(int count) {
    std::vector<FullConstraints> ranges;
    for (int i = 0; i < count; ++i)
        ranges.push_back({i, 0, 0});
    return ranges;
}

std::string lineWith(const std::string& text, const std::string& label) {
    const std::size_t begin = text.find(label);
    return text.substr(begin, text.find('\n', begin) - begin);
}

TEST(TypeDumper, ShortensLongListsOfRanges) {
    CTTypedefType type("t", 2);
    type.m_constraints = distinctRanges(20);
    EXPECT_EQ(
        lineWith(dump(0, type), "  constraints:"),
        "  constraints: (0 downto 0), (1 downto 0), (2 downto 0), (3 downto 0), (4 downto 0), "
        "(5 downto 0), (6 downto 0), (7 downto 0), ... 20 in all");
}

TEST(TypeDumper, GivesLongListsWholeOnRequest) {
    std::ostringstream out;
    CTTypedefType type("t", 2);
    type.m_constraints = distinctRanges(9);
    TypeDumper(out, {1, [](unsigned int) { return nullptr; }}, TextStyle::plain(),
               RangeLists::WHOLE)
        .type(0, type);
    EXPECT_THAT(out.str(), testing::HasSubstr("  constraints: 9\n"
                                              "    (0 downto 0)\n"
                                              "    (1 downto 0)\n"));
    EXPECT_THAT(out.str(), testing::HasSubstr("    (8 downto 0)\n  value encoding:"));
}

TEST(TypeDumper, EndsTheWalkOfATypeThatNeverEnds) {
    // Forty arrays of structs, each with two members of the next: 2^40 ranges.
    std::vector<std::unique_ptr<RTRecordType>> records;
    CTArrayType word("word", VLOG_FIXED_PACKED_ARRAY, 1, 0);
    word.m_constraints = {{7, 0, 0}};
    const RTBaseType* next = &word;
    for (int i = 0; i < 40; ++i) {
        records.push_back(std::make_unique<RTRecordType>());
        for (int m = 0; m < 2; ++m) {
            auto* member = new RTAggregateType::t_Member;
            member->m_memberName = copyOf("m");
            records.back()->m_members.push_back(member);
            records.back()->m_memberTypes.push_back(next);
        }
        next = records.back().get();
    }
    const std::string line = lineWith(dump(0, *records.back()), "  flattened constraints:");
    EXPECT_THAT(line, testing::MatchesRegex("  flattened constraints: \\(7 downto 0\\) x [0-9]+, "
                                            "\\.\\.\\. more than [0-9]+ in all"));
    // A struct gives two ranges, or what two structs give: there are about as many structs as
    // ranges, and each of both is one of 250,000 steps.
    EXPECT_NEAR(std::stod(line.substr(line.find("than ") + 5)), 125'000, 50);
}

} // namespace
