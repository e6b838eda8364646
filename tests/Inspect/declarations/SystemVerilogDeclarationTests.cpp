#include "Inspect/declarations/EnumValues.h"
#include "Inspect/declarations/TypeDeclarations.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using namespace std::string_literals;

std::string declared(LinkedTypes& types, unsigned int id) {
    return TypeDeclarations(types.table(), Naming::OWN).declarationOf(id);
}

std::string declared(LinkedTypes& types) { return declared(types, types.last()); }

TEST(SystemVerilogDeclarations, PackedDimensionsStandBeforeTheName) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    types.array(VLOG_FIXED_PACKED_ARRAY, "word_t", logic, {{3, 0, 0}, {0, 7, 1}});
    EXPECT_EQ(declared(types), "typedef logic [3:0][0:7] word_t;\n");
}

TEST(SystemVerilogDeclarations, TheDimensionsOfAPackedArrayStandBeforeThoseOfItsElement) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{7, 0, 0}});
    types.array(VLOG_FIXED_PACKED_ARRAY, "word_t", byte, {{0, 3, 1}});
    EXPECT_EQ(declared(types), "typedef logic [0:3][7:0] word_t;\n");
}

TEST(SystemVerilogDeclarations, APackedArrayOfABuiltInIntegerHasItsBits) {
    LinkedTypes types;
    const unsigned int bit = types.bit();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "byte", bit, {{7, 0, 0}});
    types.array(VLOG_FIXED_PACKED_ARRAY, "word_t", byte, {{1, 0, 0}});
    EXPECT_EQ(declared(types), "typedef bit [1:0][7:0] word_t;\n");
}

TEST(SystemVerilogDeclarations, UnpackedDimensionsStandAfterTheName) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{7, 0, 0}});
    types.array(VLOG_FIXED_UNPACKED_ARRAY, "mem_t", byte, {{0, 3, 1}, {2, 0, 0}});
    EXPECT_EQ(declared(types), "typedef logic [7:0] mem_t [0:3][2:0];\n");
}

TEST(SystemVerilogDeclarations, ArraysWithNamesAreNamed) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "p::byte_t", logic, {{7, 0, 0}});
    types.array(VLOG_FIXED_UNPACKED_ARRAY, "p::mem_t", byte, {{0, 3, 1}});
    EXPECT_EQ(declared(types), "typedef \\p::byte_t \\p::mem_t [0:3];\n");
}

TEST(SystemVerilogDeclarations, ContainersHaveTheirBrackets) {
    LinkedTypes types;
    const unsigned int text = types.plain<RTStringType>("string");
    const unsigned int inner = types.container<RTDynamicArrayType>("", text);
    EXPECT_EQ(declared(types, types.container<RTQueueType>("q_t", inner)),
              "typedef string q_t [$][];\n");
    const unsigned int any = types.plain<RTWildCardType>("*");
    const unsigned int map = types.container<RTAssocArrayType>("map_t", text);
    types.add<RTAssocArrayType>("any_t").m_elementTypeId = map;
    const_cast<RTAssocArrayType&>(dynamic_cast<const RTAssocArrayType&>(*types.table().typeOf(map)))
        .m_indexTypeId = text;
    const_cast<RTAssocArrayType&>(
        dynamic_cast<const RTAssocArrayType&>(*types.table().typeOf(types.last())))
        .m_indexTypeId = any;
    EXPECT_EQ(declared(types, map), "typedef string map_t [string];\n");
    EXPECT_EQ(declared(types), "typedef map_t any_t [*];\n");
}

TEST(SystemVerilogDeclarations, AnEnumerationHasItsBaseAndSizedValues) {
    LinkedTypes types;
    const unsigned int bit = types.bit();
    const unsigned int base = types.array(VLOG_FIXED_PACKED_ARRAY, "", bit, {{9, 0, 0}});
    auto& type = types.add<RTDiscreteEnumType>("e_t");
    type.m_baseTypeId = base;
    TypeFile::addLiteral(type, "LOW", "\x05\x00"s);
    TypeFile::addLiteral(type, "HIGH", "\x01\x02"s);
    EXPECT_EQ(declared(types), "typedef enum bit [9:0] {\n"
                               "    LOW = 10'h005,\n"
                               "    HIGH = 10'h201\n"
                               "} e_t;\n");
}

std::string enumValue(const char* bytes, unsigned int size, std::uint64_t width, bool isFourState) {
    return written([=](Text& out) { writeEnumValue(out, bytes, size, width, isFourState); });
}

TEST(SystemVerilogDeclarations, UnknownBitsOfAValueAreInItsSecondHalf) {
    EXPECT_EQ(enumValue("\x06\x00", 2, 4, true), "4'h6");
    EXPECT_EQ(enumValue("\xF6\xF0", 2, 4, true), "4'h6");
    EXPECT_EQ(enumValue("\x0C\x0A", 2, 4, true), "4'bx1z0");
    EXPECT_EQ(enumValue("\x01\x02\x00\x80", 4, 16, true), "16'bz000001000000001");
}

TEST(SystemVerilogDeclarations, AValueWiderThanItsBytesHasZerosBeforeThem) {
    EXPECT_EQ(enumValue("\xFF", 1, 12, false), "12'hff");
    EXPECT_EQ(enumValue("\x80\x80", 2, 12, true), "12'b0x0000000");
    EXPECT_EQ(enumValue("", 0, 1, true), "1'h0");
}

TEST(SystemVerilogDeclarations, AStructHasItsMembers) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{7, 0, 0}});
    const unsigned int pair = types.array(VLOG_FIXED_UNPACKED_ARRAY, "", byte, {{0, 1, 1}});
    types.structure("s_t", {{"valid", logic}, {"data", pair}, {"end", byte}});
    EXPECT_EQ(declared(types), "typedef struct {\n"
                               "    logic valid;\n"
                               "    logic [7:0] data [0:1];\n"
                               "    logic [7:0] \\end ;\n"
                               "} s_t;\n");
}

TEST(SystemVerilogDeclarations, EachKindOfAggregateHasItsWords) {
    const std::pair<RecordKind, std::string> words[] = {
        {VLOG_PACKED_STRUCT, "struct packed"},
        {VLOG_PACKED_TAGGED_UNION, "union tagged packed"},
        {VLOG_UNPACKED_TAGGED_UNION, "union tagged"},
        {VLOG_PACKED_UNTAGGED_UNION, "union packed"},
        {VLOG_UNPACKED_UNTAGGED_UNION, "union"},
        {BYTE_UNPADDED_STRUCT, "struct"}};
    for (const auto& [kind, expected] : words) {
        LinkedTypes types;
        const unsigned int logic = types.logic();
        types.structure("t", {{"a", logic}}, kind);
        EXPECT_EQ(declared(types), "typedef " + expected + " {\n    logic a;\n} t;\n");
    }
}

TEST(SystemVerilogDeclarations, AClassExtendsItsBase) {
    LinkedTypes types;
    types.add<RTClassType>("p::base_c");
    auto& type = types.add<RTClassType>("derived_c");
    type.m_baseClassTypeId = 0;
    TypeFile::addMember(type, "next", 1);
    TypeFile::addMember(type, "count", 0, {}, true);
    EXPECT_EQ(declared(types, 0), "class \\p::base_c ;\nendclass\n");
    EXPECT_EQ(declared(types, 1), "class derived_c extends \\p::base_c ;\n"
                                  "    derived_c next;\n"
                                  "    static \\p::base_c count;\n"
                                  "endclass\n");
}

TEST(SystemVerilogDeclarations, ATypedefOfAnArrayWithoutANameWritesItOut) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "", logic, {{7, 0, 0}});
    const unsigned int queue = types.container<RTQueueType>("", byte);
    types.alias("q_t", queue);
    EXPECT_EQ(declared(types), "typedef logic [7:0] q_t [$];\n");
}

TEST(SystemVerilogDeclarations, ATypedefOfItsOwnNameIsOneDeclarationWithItsData) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    types.structure("s_t", {{"a", logic}}, VLOG_PACKED_STRUCT);
    types.alias("s_t", 1);
    EXPECT_EQ(declared(types, 2), declared(types, 1));
}

TEST(SystemVerilogDeclarations, DeepArraysWithoutNamesAreCalledByAName) {
    LinkedTypes types;
    unsigned int id = types.logic();
    for (int i = 0; i < 100000; ++i)
        id = types.array(VLOG_FIXED_PACKED_ARRAY, "", id, {{0, 0, 0}});
    EXPECT_EQ(declared(types), "typedef type_99992 [0:0][0:0][0:0][0:0][0:0][0:0][0:0][0:0] "
                               "type_100000;\n");
}

TEST(SystemVerilogDeclarations, RangesThatFindNoPlaceAreToldInAComment) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    types.alias("t", logic, {{0, 3, 1}});
    EXPECT_EQ(declared(types), "typedef logic t; // no place for: (0 to 3)\n");
}

TEST(SystemVerilogDeclarations, AnOpenPackedDimensionIsNotLegal) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    types.array(VLOG_FIXED_PACKED_ARRAY, "t", logic, {{0, 0, -2}});
    EXPECT_EQ(declared(types), "typedef logic [] t;\n"
                               "// no legal declaration: a packed dimension has bounds\n");
}

} // namespace
