#include "Inspect/declarations/TypeDeclarations.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;

std::string declared(LinkedTypes& types, unsigned int id) {
    return TypeDeclarations(types.table(), Naming::OWN).declarationOf(id);
}

std::string declared(LinkedTypes& types) { return declared(types, types.last()); }

TEST(VhdlDeclarations, AnEnumerationHasIdentifiersAndCharacterLiterals) {
    LinkedTypes types;
    types.enumeration("mixed", {"idle", "'a'", "'\\'", "\\ext id\\", "begin"});
    EXPECT_EQ(declared(types), "type mixed is (idle, 'a', '\\', \\ext id\\, \\begin\\);\n");
}

TEST(VhdlDeclarations, ALongEnumerationIsBroken) {
    LinkedTypes types;
    const std::string literal(30, 'x');
    types.enumeration("e", {literal + "1", literal + "2", literal + "3"});
    EXPECT_EQ(declared(types),
              "type e is (\n    " + literal + "1, " + literal + "2,\n    " + literal + "3);\n");
}

TEST(VhdlDeclarations, AnIntegerHasItsRangeWithItsDirection) {
    LinkedTypes types;
    EXPECT_EQ(declared(types, types.integer("up", -5, 10)), "type up is range -5 to 10;\n");
    EXPECT_EQ(declared(types, types.integer("down", 7, 0)), "type down is range 7 downto 0;\n");
}

TEST(VhdlDeclarations, ARealHasPointsInItsBounds) {
    LinkedTypes types;
    auto& real = types.add<RTFloatType>("r");
    real.m_left = 1e300;
    real.m_right = -3;
    EXPECT_EQ(declared(types), "type r is range 1.0e+300 downto -3.0;\n");
}

TEST(VhdlDeclarations, ARealWithoutFiniteBoundsIsNotLegal) {
    LinkedTypes types;
    types.add<RTFloatType>("r").m_right = HUGE_VAL;
    EXPECT_EQ(declared(types), "type r is range 0.0 downto inf;\n"
                               "-- no legal declaration: its bounds are not numbers\n");
}

TEST(VhdlDeclarations, UnitsAreGivenInThePrimaryUnit) {
    LinkedTypes types;
    auto& type = types.add<RTPhysicalType>("resist");
    TypeFile::addUnit(type, "ohm", 1);
    TypeFile::addUnit(type, "kohm", 1000);
    EXPECT_EQ(
        declared(types),
        "type resist is range -9223372036854775807 to 9223372036854775807 /* not recorded */\n"
        "    units\n"
        "        ohm;\n"
        "        kohm = 1000 ohm;\n"
        "    end units;\n");
}

TEST(VhdlDeclarations, ASubtypeOfAnIntegerHasARange) {
    LinkedTypes types;
    types.integer("integer", -100, 100);
    types.alias("nib", 0, {{0, 15, 1}});
    EXPECT_EQ(declared(types), "subtype nib is integer range 0 to 15;\n");
}

TEST(VhdlDeclarations, ASubtypeOfAnEnumerationHasARangeOfLiterals) {
    LinkedTypes types;
    types.enumeration("color", {"red", "green", "blue"});
    types.alias("warm", 0, {{1, 0, 0}});
    EXPECT_EQ(declared(types), "subtype warm is color range green downto red;\n");
}

TEST(VhdlDeclarations, APositionWithoutALiteralIsGivenAsItIs) {
    LinkedTypes types;
    types.enumeration("color", {"red"});
    types.alias("none", 0, {{0, -1, 1}});
    EXPECT_EQ(declared(types), "subtype none is color range red to color'val(-1);\n");
}

TEST(VhdlDeclarations, AnOpenArrayNamesItsIndexTypes) {
    LinkedTypes types;
    types.integer("index", 0, 100);
    types.enumeration("color", {"red"});
    types.vhdlArray("matrix", 1, {0, 1}, {OPEN, OPEN});
    EXPECT_EQ(declared(types), "type matrix is array (index range <>, color range <>) of color;\n");
}

TEST(VhdlDeclarations, AnOpenArrayWithoutAnIndexTypeHasIntegers) {
    LinkedTypes types;
    types.enumeration("color", {"red"});
    types.vhdlArray("a", 0, {NO_TYPE_ID}, {OPEN});
    EXPECT_EQ(declared(types), "type a is array (integer range <>) of color;\n");
}

TEST(VhdlDeclarations, AConstrainedArrayHasRangesOfItsIndexTypes) {
    LinkedTypes types;
    types.integer("index", 0, 100);
    types.enumeration("color", {"red", "blue"});
    types.vhdlArray("a", 1, {NO_TYPE_ID, 0, 1}, {{3, 1, 0}, {1, 2, 1}, {0, 1, 1}});
    EXPECT_EQ(declared(types), "type a is array (3 downto 1, index range 1 to 2, "
                               "color range red to blue) of color;\n");
}

TEST(VhdlDeclarations, RangesBeyondTheDimensionsConstrainTheElement) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.vhdlArray("bytes", 1, {NO_TYPE_ID}, {OPEN, {7, 0, 0}});
    EXPECT_EQ(declared(types), "type bytes is array (integer range <>) of vector(7 downto 0);\n");
}

TEST(VhdlDeclarations, ASubtypeConstrainsAnArrayAndItsElements) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.vhdlArray("vectors", 1, {NO_TYPE_ID}, {OPEN, OPEN});
    types.alias("v", 2, {{0, 1, 1}, {3, 0, 0}});
    EXPECT_EQ(declared(types), "subtype v is vectors(0 to 1)(3 downto 0);\n");
}

TEST(VhdlDeclarations, ADimensionThatIsConstrainedAlreadyStandsOpen) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.vhdlArray("pair", 1, {NO_TYPE_ID}, {{0, 1, 1}});
    types.alias("v", 2, {{3, 0, 0}});
    EXPECT_EQ(declared(types), "subtype v is pair(open)(3 downto 0);\n");
}

TEST(VhdlDeclarations, RangesThatASubtypeRepeatsStandOpen) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.vhdlArray("vectors", 1, {NO_TYPE_ID}, {OPEN, OPEN});
    types.alias("pair", 2, {{0, 1, 1}, OPEN});
    types.alias("v", 3, {{0, 1, 1}, {3, 0, 0}});
    EXPECT_EQ(declared(types), "subtype v is pair(open)(3 downto 0);\n");
}

TEST(VhdlDeclarations, RangesThatASubtypeRepeatsAtAnotherPlaceStandOpen) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.vhdlArray("vectors", 1, {NO_TYPE_ID}, {OPEN, OPEN});
    types.alias("bytes", 2, {OPEN, {7, 0, 0}});
    types.alias("v", 3, {{0, 1, 1}, {7, 0, 0}, {5, 6, 1}});
    EXPECT_EQ(declared(types), "subtype v is bytes(0 to 1) /* no place for: (5 to 6) */;\n");
}

TEST(VhdlDeclarations, ASubtypeConstrainsTheOpenMembersOfARecord) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    auto& record = types.add<RTRecordType>("r");
    record.m_recordKind = VHDL_RECORD;
    TypeFile::addMember(record, "k", 0);
    TypeFile::addMember(record, "fixed", 1, {{3, 0, 0}});
    TypeFile::addMember(record, "d", 1, {OPEN});
    types.alias("r8", 2, {{7, 0, 0}});
    EXPECT_EQ(declared(types, 2), "type r is record\n"
                                  "    k : bit_t;\n"
                                  "    fixed : vector(3 downto 0);\n"
                                  "    d : vector;\n"
                                  "end record;\n");
    EXPECT_EQ(declared(types, 3), "subtype r8 is r(d(7 downto 0));\n");
}

TEST(VhdlDeclarations, RangesThatFindNoPlaceAreToldInAComment) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("pair", 0, {NO_TYPE_ID}, {{0, 1, 1}});
    types.alias("v", 1, {{3, 0, 0}});
    EXPECT_EQ(declared(types), "subtype v is pair /* no place for: (3 downto 0) */;\n");
}

TEST(VhdlDeclarations, DimensionsWithoutNumberAreNotRepeatedByEachUser) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vast", 0, std::vector<unsigned int>(257, NO_TYPE_ID),
                    std::vector<FullConstraints>(257, OPEN));
    types.alias("v", 1, {{7, 0, 0}});
    EXPECT_EQ(declared(types), "subtype v is vast /* no place for: (7 downto 0) */;\n");
}

TEST(VhdlDeclarations, ANullRangeIsKept) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.alias("empty", 1, {{0, 1, 0}});
    EXPECT_EQ(declared(types), "subtype empty is vector(0 downto 1);\n");
}

TEST(VhdlDeclarations, ASubtypeWithoutANameIsWrittenOut) {
    LinkedTypes types;
    types.enumeration("bit_t", {"'0'", "'1'"});
    types.vhdlArray("vector", 0, {NO_TYPE_ID}, {OPEN});
    types.alias("", 1, {{7, 0, 0}});
    types.vhdlArray("bytes", 2, {NO_TYPE_ID}, {OPEN});
    EXPECT_EQ(declared(types), "type bytes is array (integer range <>) of vector(7 downto 0);\n");
    EXPECT_EQ(declared(types, 2), "subtype type_2 is vector(7 downto 0);\n");
}

TEST(VhdlDeclarations, AccessAndFileTypesNameTheirType) {
    LinkedTypes types;
    types.integer("i", 0, 1);
    types.access("link", 0);
    types.add<RTFileType>("file_t").m_refTypeId = 0;
    EXPECT_EQ(declared(types, 1), "type link is access i;\n");
    EXPECT_EQ(declared(types, 2), "type file_t is file of i;\n");
}

TEST(VhdlDeclarations, ATypeOfTheOtherLanguageIsAnObstacle) {
    LinkedTypes types;
    types.access("link", types.logic());
    EXPECT_EQ(declared(types), "type link is access logic;\n"
                               "-- no legal declaration: type 0 belongs to SystemVerilog\n");
}

TEST(VhdlDeclarations, AnEmptyRecordIsNotLegal) {
    LinkedTypes types;
    types.add<RTRecordType>("r").m_recordKind = VHDL_RECORD;
    EXPECT_EQ(declared(types), "type r is record\n"
                               "end record;\n"
                               "-- no legal declaration: a record has at least one member\n");
}

} // namespace
