#include "Import/GhdlDumps.h"

#include "Import/ImportError.h"
#include "TypeFile/WriteError.h"
#include "tests/support/GhwBuilder.h"
#include "tests/support/ImportedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Import;
using Lines = std::vector<std::string>;

/// The kinds, as GHW files number them.
enum Kind : unsigned {
    ENUM = 23,
    INTEGER = 25,
    REAL = 27,
    PHYSICAL = 29,
    ARRAY = 31,
    RECORD = 32,
    SCALAR_SUBTYPE = 34,
    ARRAY_SUBTYPE = 35,
    OPEN_ARRAY_SUBTYPE = 37,
    RECORD_SUBTYPE = 38,
    DOWNTO = 128, ///< More in the kind of a range.
};

std::string refusalOfListing(const std::string& text) {
    std::istringstream stream(text);
    Input input(stream, "l");
    Notes notes;
    try {
        GhdlDumps().readListing(input, notes);
    } catch (const ImportError& error) {
        return error.what();
    }
    return "no refusal";
}

TEST(Waves, AnIntegerAndItsFirstSubtypeAreOneType) {
    GhwBuilder file;
    file.names({"my_int"}).type(INTEGER, {1}).type(SCALAR_SUBTYPE, {1, 1}).range(INTEGER, -5, 10);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(), (Lines{"my_int: integer (-5 to 10)"}));
}

TEST(Waves, BitsHaveTheNameAndTheLiterals) {
    GhwBuilder file;
    file.names({"'0'", "'1'", "'2'", "flag", "bit"});
    file.type(ENUM, {4, 2, 1, 2}).type(ENUM, {5, 3, 1, 2, 3});
    std::istringstream stream(file.file());
    Input input(stream, "w");
    GhdlDumps dumps;
    dumps.readWave(input);
    TypeTable table;
    Notes notes;
    dumps.addTo(table, notes);
    std::vector<RTTI::EnumKind> kinds;
    table.finish({}, notes, [&](const RTTI::RTBaseType& type) {
        kinds.push_back(dynamic_cast<const RTTI::RTSeqEnumType&>(type).m_enumKind);
    });
    EXPECT_EQ(kinds, std::vector(2, RTTI::VHDL_OTHER_ENUM));
}

TEST(Waves, ASubtypeOfRealsIsARealTypeWithItsRange) {
    GhwBuilder file;
    file.names({"prob", "real"})
        .type(REAL, {2})
        .type(SCALAR_SUBTYPE, {2, 1})
        .reals(REAL, -1e308, 1e308);
    file.type(SCALAR_SUBTYPE, {1, 1}).reals(REAL, 0, 0.1);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(),
              (Lines{"real: real -1.7976931348623157e+308 to 1.7976931348623157e+308",
                     "prob: real 0 to 0.10000000000000001"}));
}

TEST(Waves, AnArrayAndItsFirstSubtypeAreOneType) {
    GhwBuilder file;
    file.names({"integer", "mem"}).type(INTEGER, {1});
    file.type(ARRAY, {2, 1, 1, 1}).type(ARRAY_SUBTYPE, {2, 2}).range(INTEGER | 128, 3, 1);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)",
                     "mem: array [0] of 0 (3 downto 1)"}));
}

TEST(Waves, ASubtypeOfAnArrayThatHasItsRangesAddsNone) {
    GhwBuilder file;
    file.names({"integer", "mem", "sub"}).type(INTEGER, {1}).type(ARRAY, {2, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {2, 2}).range(INTEGER, 0, 3);
    file.type(ARRAY_SUBTYPE, {3, 2}).range(INTEGER, 0, 3);
    file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER, 0, 3);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)", "mem: array [0] of 0 (0 to 3)",
                     "sub: subtype of 1"}));
}

TEST(Waves, OfAKindEachTypeHasItsOwnPartsAlone) {
    GhwBuilder file;
    file.names({"a", "b", "integer", "t1", "t2", "t3", "t4", "t5", "t6", "t7", "t8"});
    file.type(INTEGER, {3}).type(ENUM, {4, 2, 1, 2}).type(ENUM, {5, 1, 2});
    file.type(ARRAY, {6, 1, 2, 1, 1}).type(ARRAY, {7, 2, 1, 1});
    file.type(ARRAY_SUBTYPE, {0, 4}).range(INTEGER, 0, 1).range(INTEGER, 0, 2);
    file.type(RECORD, {8, 2, 1, 6, 2, 1}).type(RECORD, {9, 1, 2, 2});
    file.type(ARRAY_SUBTYPE, {10, 5}).range(INTEGER, 0, 3).type(SCALAR_SUBTYPE, {11, 1});
    file.range(INTEGER, 4, 5);
    const Lines lines = ImportedTypes().wave(file.file()).lines();
    EXPECT_THAT(lines, testing::IsSupersetOf(
                           {"t1: enum a b", "t2: enum b", "t3: array [0]0] of 0 (open, open)",
                            "t4: array [0] of 1 (open)", "t6: record b:1",
                            "t7: subtype of 4 (0 to 3)", "t8: subtype of 0 (4 to 5)"}));
}

TEST(Waves, AnElementWithoutANameGivesItsRangesToTheArray) {
    GhwBuilder file;
    file.names({"bytes", "integer", "vec"}).type(INTEGER, {2}).type(ARRAY, {3, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER | 128, 7, 0).type(ARRAY, {1, 3, 1, 1});
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines()[3],
              "bytes: array [0] of 1 (open, 7 downto 0)");
}

TEST(Waves, SubtypesWithoutANameAreKeptAndEqualOnesOnce) {
    GhwBuilder file;
    file.names({"integer"}).type(INTEGER, {1});
    file.type(SCALAR_SUBTYPE, {0, 1})
        .range(INTEGER, 0, 3)
        .type(SCALAR_SUBTYPE, {0, 1})
        .range(INTEGER, 0, 3);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)", ": subtype of 0 (0 to 3)"}));
}

TEST(Waves, RangesOfPhysicalTypesAreNoted) {
    GhwBuilder file;
    file.names({"dist", "um"}).type(PHYSICAL, {1, 1, 2}).value(1);
    file.type(SCALAR_SUBTYPE, {1, 1}).range(PHYSICAL, 0, 99);
    ImportedTypes types;
    EXPECT_EQ(types.wave(file.file()).lines(), (Lines{"dist: physical um=1"}));
    EXPECT_EQ(types.notes(), (Lines{"w: offset 56: type dist: its range 0 to 99 um is not kept"}));
}

TEST(Waves, RangesOfMoreThan32BitsAreCutAndNoted) {
    GhwBuilder file;
    file.names({"l"}).type(26, {1}).type(SCALAR_SUBTYPE, {1, 1}).range(26, -5, 1LL << 40);
    ImportedTypes types;
    EXPECT_EQ(types.wave(file.file()).lines(), (Lines{"l: integer (-5 to 2147483647)"}));
    EXPECT_EQ(types.notes().size(), 1u);
}

TEST(Waves, WhatCannotBeKeptOfATypeInTwoWavesIsNotedOnce) {
    GhwBuilder file;
    file.names({"i", "s"}).type(INTEGER, {1}).type(SCALAR_SUBTYPE, {1, 1}).range(INTEGER, 0, 9);
    file.type(SCALAR_SUBTYPE, {2, 1}).range(26, -5, 1LL << 40);
    ImportedTypes types;
    types.wave(file.file()).wave(file.file());
    EXPECT_EQ(types.lines(), (Lines{"i: integer (0 to 9)", "s: subtype of 0 (-5 to 2147483647)"}));
    EXPECT_EQ(types.notes().size(), 1u);
}

/// The place of the type that was added last, in words.
std::string placeOfLast(const GhwBuilder& file) {
    return "w: offset " + std::to_string(file.offsetOfLastType()) + ": ";
}

/// A file with an integer type i (1) and an array type v of it without ranges (2).
GhwBuilder waveOfAnArray() {
    GhwBuilder file;
    file.names({"a", "i", "v"}).type(INTEGER, {2}).type(ARRAY, {3, 1, 1, 1});
    file.type(SCALAR_SUBTYPE, {2, 1}).range(INTEGER, 0, 9);
    return file;
}

constexpr long long BEYOND = 1LL << 31; // The first number that does not fit.

TEST(Waves, ADimensionOfAnArrayThatIsCutIsNotedAtItsRanges) {
    GhwBuilder file = waveOfAnArray();
    file.type(ARRAY_SUBTYPE, {3, 2}).range(INTEGER, 1, BEYOND);
    ImportedTypes types;
    EXPECT_EQ(types.wave(file.file()).lines()[1], "v: array [0] of 0 (1 to 2147483647)");
    EXPECT_EQ(types.notes(), (Lines{placeOfLast(file) + "type v: its range 1 to 2147483648 is cut "
                                                        "to 32 bits"}));
}

TEST(Waves, ADimensionOfASubtypeThatIsCutIsNoted) {
    GhwBuilder file = waveOfAnArray();
    file.type(ARRAY_SUBTYPE, {1, 2}).range(INTEGER | DOWNTO, 7, -BEYOND - 1);
    ImportedTypes types;
    EXPECT_EQ(types.wave(file.file()).lines()[2], "a: subtype of 1 (7 downto -2147483648)");
    EXPECT_EQ(types.notes(), (Lines{placeOfLast(file) + "type a: its range 7 downto -2147483649 "
                                                        "is cut to 32 bits"}));
}

TEST(Waves, ADimensionThatIsCutInASubtypeWithoutANameIsNoted) {
    GhwBuilder file = waveOfAnArray();
    file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER, BEYOND, BEYOND + 1);
    ImportedTypes types;
    types.wave(file.file()).lines();
    EXPECT_EQ(types.notes(), (Lines{placeOfLast(file) + "a type without a name: its range "
                                                        "2147483648 to 2147483649 is cut to 32 "
                                                        "bits"}));
}

TEST(Waves, ADimensionThatIsCutInAnElementOrAMemberIsNotedThere) {
    for (const unsigned kind : {ARRAY, RECORD}) {
        GhwBuilder file = waveOfAnArray();
        file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER, 0, BEYOND);
        if (kind == ARRAY)
            file.type(ARRAY, {1, 4, 1, 1});
        else
            file.type(RECORD, {1, 1, 2, 4});
        ImportedTypes types;
        types.wave(file.file()).lines();
        ASSERT_EQ(types.notes().size(), 2u);
        EXPECT_EQ(types.notes()[1],
                  placeOfLast(file) + "type a: its range 0 to 2147483648 is cut to 32 bits");
    }
}

TEST(Waves, ZerosOfBothSignsStayApartAsBounds) {
    GhwBuilder file;
    file.names({"real"}).type(REAL, {1});
    file.type(SCALAR_SUBTYPE, {0, 1}).reals(REAL, 0.0, 1.0);
    file.type(SCALAR_SUBTYPE, {0, 1}).reals(REAL, -0.0, 1.0);
    EXPECT_EQ(ImportedTypes().wave(file.file()).lines(),
              (Lines{"real: real -1.7976931348623157e+308 to 1.7976931348623157e+308",
                     ": real 0 to 1", ": real -0 to 1"}));
}

TEST(Waves, AnOpenSubtypeWithoutANameIsWhatItIsOf) {
    GhwBuilder file; // An array of open arrays, of which some get ranges that GHDL does not write.
    file.names({"integer", "r", "v", "w"}).type(INTEGER, {1}).type(ARRAY, {3, 1, 1, 1});
    file.type(OPEN_ARRAY_SUBTYPE, {3, 2}).type(ARRAY, {4, 3, 1, 1});
    file.type(OPEN_ARRAY_SUBTYPE, {0, 4});
    const std::string place = placeOfLast(file);
    file.type(RECORD, {2, 1, 3, 5});
    ImportedTypes types;
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)", "v: array [0] of 0 (open)",
                     "w: array [0] of 1 (open, open)", "r: record v:2 (open, open)"}));
    EXPECT_EQ(types.notes(), Lines{place + "a type without a name: the input does not say which of "
                                           "its arrays have ranges"});
}

TEST(Waves, invalid_range_of_literals) {
    GhwBuilder file;
    file.names({"a", "t"}).type(ENUM, {2, 1, 1}).type(SCALAR_SUBTYPE, {0, 1}).positions(ENUM, 0, 1);
    EXPECT_THROW(ImportedTypes().wave(file.file()), ImportError);
}

TEST(Listings, EveryScalarHasItsForm) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_e8: e is (run, ')', '(', ',', \\a, b\\, \\c\\\\d)\\)\n"
                  " ghdl_rtik_subtype_scalar, D=0: w is e range run to ','\n"
                  " ghdl_rtik_subtype_scalar, D=0: n is 9 downto -2000000\n"
                  " ghdl_rtik_subtype_scalar, D=0: r is -1.5 to 1e+10\n"
                  " ghdl_rtik_subtype_scalar, D=0: d is 0 to 1000000\n"
                  "  ghdl_rtik_unit64: um = 1\n"
                  "  ghdl_rtik_unitptr: \\M m\\ = 1000\n"
                  " ghdl_rtik_subtype_scalar, D=0: s is n range 3 to 4\n");
    EXPECT_EQ(types.lines(),
              (Lines{"e: enum run ')' '(' ',' \\a, b\\ \\c\\\\d)\\", "w: subtype of 0 (0 to 3)",
                     "n: integer (9 downto -2000000)", "r: real -1.5 to 10000000000",
                     "d: physical um=1 \\M m\\=1000", "s: subtype of 2 (3 to 4)"}));
}

TEST(Listings, ArraysHaveTheRangesOfTheirElements) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_b1: bit is ('0', '1')\n"
                  " ghdl_rtik_type_array: v is array (bit range <>) of bit\n"
                  " ghdl_rtik_type_array: vv is array (bit range <>) of v\n"
                  " ghdl_rtik_subtype_array: m is m (0 to 1, '0' to '1') of v ('1' downto '0')\n"
                  " ghdl_rtik_subtype_array: s is vv ('0' to '0') ('1' to '1')\n"
                  " ghdl_rtik_subtype_unbounded_array: o is v\n"
                  " ghdl_rtik_subtype_array: t is m (0 to 1, '0' to '1') of v ('1' downto '0')\n");
    EXPECT_EQ(
        types.lines(),
        (Lines{"bit: enum '0' '1'", "v: array [0] of 0 (open)", "vv: array [0] of 1 (open, open)",
               "m: array [-]0] of 1 (0 to 1, 0 to 1, 1 downto 0)",
               "s: subtype of 2 (0 to 0, 1 to 1)", "o: subtype of 1 (open)", "t: subtype of 3"}));
}

TEST(Listings, RecordsHaveTheRangesOfTheirMembers) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_b1: bit is ('0', '1')\n"
                  " ghdl_rtik_type_array: v is array (bit range <>) of bit\n"
                  " ghdl_rtik_type_unbounded_record: r is record\n"
                  "  ghdl_rtik_element: a: v\n"
                  "  ghdl_rtik_element: \\x: y\\: v ('0' to '1')\n"
                  " ghdl_rtik_type_unbounded_record: q is record\n"
                  "  ghdl_rtik_element: k: r\n"
                  "  ghdl_rtik_element: l: v\n"
                  " ghdl_rtik_subtype_record: s is q (k (a ('1' to '1')), l ('0' to '0'))\n");
    EXPECT_EQ(types.lines(),
              (Lines{"bit: enum '0' '1'", "v: array [0] of 0 (open)",
                     "r: record a:1 (open) \\x: y\\:1 (0 to 1)", "q: record k:2 (open) l:1 (open)",
                     "s: subtype of 3 (1 to 1, 0 to 0)"}));
}

TEST(Listings, AccessTypesMayLeadBackToTheirRecord) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_record: node is record\n"
                  "  ghdl_rtik_element: next: ptr\n"
                  " ghdl_rtik_type_access: ptr is access node\n"
                  " ghdl_rtik_type_record: node is record\n"
                  "  ghdl_rtik_element: next: ptr\n"
                  " ghdl_rtik_type_file: f is file node\n");
    EXPECT_EQ(types.lines().size(), 3u); // The two lines about the record are about one type.
}

TEST(Listings, AnAccessTypeOfASubtypeWithoutANameHasOne) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_b1: bit is ('0', '1')\n"
                  " ghdl_rtik_type_array: v is array (bit range <>) of bit\n"
                  " ghdl_rtik_type_access: p is access v ('0' to '1')\n");
    EXPECT_EQ(types.lines()[2], ": subtype of 1 (0 to 1)");
}

TEST(Listings, ARangeOfRealsWithoutANameIsARealType) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_record: r is record\n"
                  "  ghdl_rtik_element: m: ghdl_rtik_#29 range -1.5 to 2.5\n");
    EXPECT_EQ(types.lines(), (Lines{": real -1.5 to 2.5", "r: record m:0"}));
}

TEST(Listings, ARangeOfAPhysicalTypeWithoutANameIsOfTheOnlyOne) {
    const std::string distance = " ghdl_rtik_subtype_scalar, D=0: d is 0 to 1000000\n"
                                 "  ghdl_rtik_unit64: um = 1\n";
    const std::string record = " ghdl_rtik_type_record: r is record\n"
                               "  ghdl_rtik_element: m: ghdl_rtik_type_p64 range 0 to 5\n";
    const std::string mass = " ghdl_rtik_subtype_scalar, D=0: m is 0 to 1000000\n"
                             "  ghdl_rtik_unit64: g = 1\n";
    EXPECT_EQ(ImportedTypes().package(distance + record).lines(),
              (Lines{"d: physical um=1", ": subtype of 0", "r: record m:1"}));
    EXPECT_EQ(ImportedTypes().package(distance + record + mass).lines(),
              (Lines{"d: physical um=1", "m: physical g=1"}));
}

TEST(Listings, RangesOfRealsMayDifferInTheirDirection) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_record: r is record\n"
                  "  ghdl_rtik_element: a: ghdl_rtik_#29 range 0.5 to 0.5\n"
                  "  ghdl_rtik_element: b: ghdl_rtik_#29 range 0.5 downto 0.5\n");
    EXPECT_EQ(types.lines(),
              (Lines{": real 0.5 to 0.5", ": real 0.5 downto 0.5", "r: record a:0 b:1"}));
}

TEST(Listings, RangesWithoutANameMayDifferInTheirDirection) {
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: n is -9 to 9999999\n"
                  " ghdl_rtik_type_record: r is record\n"
                  "  ghdl_rtik_element: a: n range 4 to 4\n"
                  "  ghdl_rtik_element: b: n range 4 downto 4\n");
    EXPECT_EQ(types.lines(), (Lines{"n: integer (-9 to 9999999)", ": subtype of 0 (4 to 4)",
                                    ": subtype of 0 (4 downto 4)", "r: record a:1 b:2"}));
}

TEST(Listings, AliasesAreWhatOtherReleasesPrintForThem) {
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: n is -9 to 9999999\n"
                  " ghdl_rtik_subtype_scalar, D=0: s is n range 0 to 3\n"
                  " ghdl_rtik_subtype_alias: a is s\n"
                  " ghdl_rtik_subtype_alias: b is n\n");
    EXPECT_EQ(types.lines(),
              (Lines{"n: integer (-9 to 9999999)", "s: subtype of 0 (0 to 3)",
                     "a: subtype of 0 (0 to 3)", "b: subtype of 0 (-9 to 9999999)"}));
}

TEST(Listings, TheNearestDeclarationIsMeant) {
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (outer, other)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_access: far is access e\n"
                  " ghdl_rtik_process, D=2, sloc=1:1: x\n"
                  "  ghdl_rtik_type_e8: e is (inner)\n"
                  "  ghdl_rtik_type_access: near is access e\n");
    EXPECT_EQ(types.lines(),
              (Lines{"e: enum outer other", "far: access 0", "e: enum inner", "near: access 2"}));
}

TEST(Listings, DeclarationsOfTheScopesAroundAreInSight) {
    ImportedTypes types;
    types.listing("ghdl_rtik_architecture, D=1, sloc=1:1: a\n"
                  " ghdl_rtik_entity, D=1, sloc=1:1: t\n"
                  "  ghdl_rtik_type_e8: e is (a)\n"
                  " ghdl_rtik_block, D=2, sloc=1:1: b\n"
                  "  ghdl_rtik_process, D=3, sloc=1:1: x\n"
                  "   ghdl_rtik_type_access: p is access e\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum a", "p: access 0"}));
}

TEST(Listings, WhatFollowsInAnotherPackageIsNotMeant) {
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (a)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_file: f is file e\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: r\n"
                  " ghdl_rtik_type_e8: e is (b)\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum a", "f: file 0", "e: enum b"}));
    EXPECT_EQ(types.notes(), Lines());
}

TEST(Listings, LiteralsAreThoseOfTheIndexType) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_e8: e is (a, b, c)\n"
                  " ghdl_rtik_type_e8: f is (d, b, a)\n"
                  " ghdl_rtik_type_array: v is array (f range <>) of e\n"
                  " ghdl_rtik_subtype_array: s is v (b to a)\n");
    EXPECT_EQ(types.lines()[3], "s: subtype of 2 (1 to 2)");
}

TEST(Listings, LiteralsOfAWholeTypeAreTakenForThatType) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_b1: bit is ('0', '1')\n"
                  " ghdl_rtik_type_e8: logic is ('U', '0', '1')\n"
                  " ghdl_rtik_subtype_array: m is m ('0' to '1') of bit\n");
    EXPECT_EQ(types.lines()[2], "m: array [0] of 0 (0 to 1)");
}

TEST(Listings, ANameOfTwoPackagesIsNoted) {
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (a)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_e8: e is (b)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: r\n"
                  " ghdl_rtik_type_access: t is access e\n");
    EXPECT_EQ(types.lines()[2], "t: access 1");
    EXPECT_EQ(types.notes(), (Lines{"l:7: type t: the input does not say which e it uses; there "
                                    "are 2; the nearest is taken"}));
}

// The source may say p.e.
TEST(Listings, ANameThatHidesAnotherOneIsNoted) {
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (outer)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_e8: e is (inner)\n"
                  " ghdl_rtik_type_access: t is access e\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum outer", "e: enum inner", "t: access 1"}));
    EXPECT_EQ(types.notes(), (Lines{"l:6: type t: the input does not say which e it uses; there "
                                    "are 2; the nearest is taken"}));
}

TEST(Listings, ATypeThatIsNotToldLeavesOutThoseThatNeedIt) {
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: rb is rb\n"
                  " ghdl_rtik_type_protected: prot is protected\n"
                  " ghdl_rtik_type_access: t is access rb\n"
                  " ghdl_rtik_type_e8: e is (a)\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum a"}));
    EXPECT_EQ(types.notes(), (Lines{"l:3: type rb: the listing does not say what it is",
                                    "l:4: type prot: there are no records of protected types",
                                    "l:5: t is left out: it needs type rb"}));
}

TEST(Listings, ANameWithAZeroByteIsRefused) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> cases[] = {
        {" ghdl_rtik_type_e8: \\t\0\\ is (a)\n"s, "name: "},
        {" ghdl_rtik_type_e8: t is (a, '\0')\n"s, "literals[1]: "},
        {" ghdl_rtik_subtype_scalar, D=0: t is 0 to 9\n  ghdl_rtik_unit64: \\u\0\\ = 1\n"s,
         "units[0].name: "},
        {" ghdl_rtik_type_e8: e is (a)\n ghdl_rtik_type_record: t is record\n"
         "  ghdl_rtik_element: a: e\n  ghdl_rtik_element: \\b\0\\: e\n"s,
         "members[1].name: "}};
    for (const auto& [lines, place] : cases) {
        ImportedTypes types;
        types.package(lines);
        try {
            types.lines();
            ADD_FAILURE() << place;
        } catch (const TypeFile::WriteError& error) {
            EXPECT_EQ(error.what(),
                      place + "there is a zero byte in the name, where a record's names end");
        }
    }
}

TEST(Listings, ALineOfAnUnknownKindIsNoted) {
    ImportedTypes types;
    types.package(" ghdl_rtik_type_view: v is view\n ghdl_rtik_type_e8: e is (a)\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum a"}));
    EXPECT_EQ(types.notes(), (Lines{"l:3: a line of the kind ghdl_rtik_type_view, which is not "
                                    "known, is passed over"}));
}

TEST(Listings, PackagesAreKept) {
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (a)\n"
                  "ghdl_rtik_package_body, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: f is (a)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_e8: g is (a)\n");
    EXPECT_EQ(types.lines({"p"}), (Lines{"e: enum a", "f: enum a"}));
}

TEST(Listings, ValuesOfObjectsArePassedOver) {
    ImportedTypes types;
    types.package(" ghdl_rtik_constant, D=0, sloc=1:1; c: t := (a => 1, ) := \"ghdl_rtik_type_e8:\n"
                  " ghdl_rtik_type_e8: e is (a)\n");
    EXPECT_EQ(types.lines(), (Lines{"e: enum a"}));
}

TEST(ListingRefusals, invalid_beginning_and_end) {
    const std::string header = "DISP_RTI.Disp_All: ghdl_rtik_top\n";
    const std::string package =
        "ghdl_rtik_package, D=1, sloc=1:1: p\n ghdl_rtik_type_e8: e is (a)\n";
    const std::string design = "ghdl_rtik_architecture, D=1, sloc=1:1: a\n";
    EXPECT_EQ(refusalOfListing(package + design), "l: not a type listing of GHDL (--dump-rti)");
    const std::string cut = "the listing ends in the middle: GHDL failed, was stopped, or is still "
                            "writing it";
    EXPECT_EQ(refusalOfListing(header + package), "l:3: " + cut);
    EXPECT_EQ(refusalOfListing(header + package + design + " ghdl_rtik_type_e8: f is (b)"),
              "l:5: " + cut);
    EXPECT_EQ(refusalOfListing(header + package + design +
                               " ghdl_rtik_constant, D=0, sloc=1:1; c: t := 1"),
              "l:5: " + cut);
    EXPECT_EQ(refusalOfListing("start\n" + header + package + design + "the design's own"),
              "no refusal");
}

TEST(ListingRefusals, invalid_end_within_a_value) {
    EXPECT_EQ(
        refusalOfListing("DISP_RTI.Disp_All: ghdl_rtik_top\n"
                         "ghdl_rtik_architecture, D=1, sloc=1:1: a\n"
                         " ghdl_rtik_signal, D=1, sloc=1:1; s: t := (ghdl:error: NULL access\n"
                         "  instance: /a/P0\n"
                         "ghdl:error: simulation failed\n"),
        "l:4: the listing ends in the middle: GHDL failed, was stopped, or is still writing "
        "it");
}

TEST(ListingRefusals, invalid_line) {
    EXPECT_EQ(refusalOfListing("DISP_RTI.Disp_All: ghdl_rtik_top\n"
                               "ghdl_rtik_architecture, D=1, sloc=1:1: a\n"
                               " ghdl_rtik_type_e8: e is (a; b)\n"),
              "l:3: \")\" expected, \"; b)\" found");
}

TEST(ListingRefusals, TheBeginningOfALongRestOfALineIsTold) {
    EXPECT_EQ(refusalOfListing("DISP_RTI.Disp_All: ghdl_rtik_top\n"
                               "ghdl_rtik_architecture, D=1, sloc=1:1: a\n"
                               " ghdl_rtik_type_e8: e is (a; 0123456789012345678901234567890)\n"),
              "l:3: \")\" expected, \"; 0123456789012345678901234567\" found");
}

TEST(JoinedDumps, WavesHaveTheDigitsAndTheListingThePackage) {
    GhwBuilder file;
    file.names({"third"}).type(REAL, {1}).type(SCALAR_SUBTYPE, {1, 1}).reals(REAL, 0, 1.0 / 3);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: third is 0 to 0.333333\n").wave(file.file());
    EXPECT_EQ(types.lines({"p"}), (Lines{"third: real 0 to 0.33333333333333331"}));
    EXPECT_EQ(types.notes(), Lines());
}

TEST(JoinedDumps, WavesTellRealsFromIntegers) {
    GhwBuilder file;
    file.names({"norm"}).type(REAL, {1}).type(SCALAR_SUBTYPE, {1, 1}).reals(REAL, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: norm is 0 to 1\n").wave(file.file());
    EXPECT_EQ(types.lines(), (Lines{"norm: real 0 to 1"}));
}

TEST(JoinedDumps, WavesHaveIndexTypesAndTheListingTheRangesOfUnusedArrays) {
    GhwBuilder file; // A subtype of the array is used, the array itself is not.
    file.names({"integer", "mem", "sub"}).type(INTEGER, {1}).type(ARRAY, {2, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {3, 2}).range(INTEGER, 0, 3);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: integer is -2147483648 to 2147483647\n"
                  " ghdl_rtik_subtype_array: mem is mem (0 to 3) of integer\n"
                  " ghdl_rtik_subtype_array: sub is mem (0 to 3) of integer\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)", "mem: array [0] of 0 (0 to 3)",
                     "sub: subtype of 1"}));
}

TEST(JoinedDumps, WavesSayWhatTheListingHasNoWordsFor) {
    GhwBuilder file;
    file.names({"'0'", "'1'", "bit", "rb"}).type(22, {3, 2, 1, 2});
    file.type(SCALAR_SUBTYPE, {4, 1}).positions(22, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_type_b1: bit is ('0', '1')\n"
                  " ghdl_rtik_subtype_scalar, D=0: rb is rb\n"
                  " ghdl_rtik_type_access: t is access rb\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"bit: enum '0' '1'", "rb: subtype of 0 (0 to 1)", "t: access 1"}));
}

TEST(JoinedDumps, WavesSayWhatAMemberIsThatTheListingDoesNotTell) {
    GhwBuilder file;
    file.names({"integer", "m", "r", "v", "s"}).type(INTEGER, {1}).type(ARRAY, {4, 1, 1, 1});
    file.type(OPEN_ARRAY_SUBTYPE, {4, 2}).type(RECORD, {3, 1, 2, 3});
    file.type(RECORD_SUBTYPE, {5, 4}).range(INTEGER, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: integer is -2147483648 to 2147483647\n"
                  " ghdl_rtik_type_unbounded_record: r is record\n"
                  "  ghdl_rtik_element: m: ghdl_rtik_subtype_unbounded_record \n"
                  " ghdl_rtik_subtype_record: s is r (m (0 to 1))\n"
                  " ghdl_rtik_subtype_unbounded_record: o is r\n");
    EXPECT_EQ(
        types.wave(file.file()).lines({"p"}),
        (Lines{"integer: integer (-2147483648 to 2147483647)", "v: array [0] of 0 (open)",
               "r: record m:1 (open)", "s: subtype of 2 (0 to 1)", "o: subtype of 2 (open)"}));
    EXPECT_EQ(types.notes(), Lines{"l:7: type o: the input does not say which of its arrays have "
                                   "ranges"});
}

TEST(JoinedDumps, WavesHaveTheRangesThatTheListingDoesNotTell) {
    GhwBuilder file; // The literal a is of two enumerations.
    file.names({"a", "b", "c", "d", "e", "f", "mem"}).type(23, {5, 3, 1, 2, 3});
    file.type(23, {6, 3, 4, 2, 1}).type(ARRAY, {7, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {7, 3}).positions(23, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_type_e8: e is (a, b, c)\n"
                  " ghdl_rtik_type_e8: f is (d, b, a)\n"
                  " ghdl_rtik_subtype_array: mem is mem (a to b) of e\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"e: enum a b c", "f: enum d b a", "mem: array [0] of 0 (0 to 1)"}));
}

TEST(JoinedDumps, WavesTellAHiddenTypeFromTheOneThatHidesIt) {
    GhwBuilder file;
    file.names({"e", "inner", "m", "outer", "r"}).type(22, {1, 1, 4});
    file.type(RECORD, {5, 1, 3, 1});
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_e8: e is (outer)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_e8: e is (inner)\n"
                  " ghdl_rtik_type_record: r is record\n"
                  "  ghdl_rtik_element: m: e\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"e: enum outer", "e: enum inner", "r: record m:0"}));
    EXPECT_EQ(types.notes(), Lines());
}

TEST(JoinedDumps, WavesTellAHiddenIndexTypeFromTheOneThatHidesIt) {
    GhwBuilder file;
    file.names({"bit", "e", "inner", "outer", "v"}).type(22, {1, 1, 4}).type(22, {2, 1, 4});
    file.type(ARRAY, {5, 1, 1, 2});
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n"
                  " ghdl_rtik_type_b1: bit is (outer)\n"
                  " ghdl_rtik_type_e8: e is (outer)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n"
                  " ghdl_rtik_type_e8: e is (inner)\n"
                  " ghdl_rtik_type_array: v is array (e range <>) of bit\n"
                  " ghdl_rtik_type_array: unused is array (e range <>, e range <>) of bit\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"bit: enum outer", "e: enum outer", "e: enum inner",
                     "v: array [1] of 0 (open)", "unused: array [2]2] of 0 (open, open)"}));
    EXPECT_EQ(types.notes(), (Lines{"l:8: type unused: the input does not say which e it uses; "
                                    "there are 2; the nearest is taken"}));
}

// Listings have no declarations of packages that are instances.
TEST(JoinedDumps, WavesDeclareTypesThatTheListingOnlyUses) {
    GhwBuilder file;
    file.names({"arr", "f", "fx", "i", "r"}).type(INTEGER, {4}).type(ARRAY, {3, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER | DOWNTO, 3, -4);
    file.type(RECORD, {5, 1, 2, 3}).type(ARRAY, {1, 3, 1, 1});
    file.type(ARRAY_SUBTYPE, {1, 5}).range(INTEGER, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_type_record: r is record\n"
                  "  ghdl_rtik_element: f: fx (3 downto -4)\n"
                  " ghdl_rtik_subtype_array: arr is arr (0 to 1) of fx (3 downto -4)\n"
                  " ghdl_rtik_type_array: open is array (i range <>) of fx\n"
                  " ghdl_rtik_subtype_array: sub is open (1 to 2) (5 to 6)\n"
                  " ghdl_rtik_type_record: unused is record\n"
                  "  ghdl_rtik_element: f: fx (1 to 9)\n"
                  "  ghdl_rtik_element: g: fx\n");
    EXPECT_EQ(types.wave(file.file()).lines({"p"}),
              (Lines{"i: integer (-2147483648 to 2147483647)", "fx: array [0] of 0 (open)",
                     "r: record f:1 (3 downto -4)", "arr: array [0] of 1 (0 to 1, 3 downto -4)",
                     "open: array [0] of 1 (open, open)", "sub: subtype of 4 (1 to 2, 5 to 6)",
                     "unused: record f:1 (1 to 9) g:1 (open)"}));
}

TEST(JoinedDumps, WavesTellAnElementThatTheListingDoesNot) {
    GhwBuilder file;
    file.names({"arr", "integer", "m", "u", "v"}).type(INTEGER, {2}).type(ARRAY, {5, 1, 1, 1});
    file.type(OPEN_ARRAY_SUBTYPE, {5, 2}).type(RECORD, {4, 1, 3, 3});
    file.type(RECORD_SUBTYPE, {0, 4}).range(INTEGER, 0, 7);
    file.type(ARRAY, {1, 5, 1, 1}).type(ARRAY_SUBTYPE, {1, 6}).range(INTEGER, 0, 1);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_array: arr is arr (0 to 1) of ghdl_rtik_subtype_record \n");
    EXPECT_EQ(types.wave(file.file()).lines({"p"}),
              (Lines{"integer: integer (-2147483648 to 2147483647)", "v: array [0] of 0 (open)",
                     "u: record m:1 (open)", "arr: array [0] of 2 (0 to 1, 0 to 7)"}));
    EXPECT_EQ(types.notes(), Lines());
}

TEST(JoinedDumps, TypesOfOneNameWithOtherRangesStayApart) {
    GhwBuilder file;
    file.names({"integer", "mem"}).type(INTEGER, {1}).type(ARRAY, {2, 1, 1, 1});
    file.type(ARRAY_SUBTYPE, {2, 2}).range(INTEGER, 0, 5);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: integer is -2147483648 to 2147483647\n"
                  " ghdl_rtik_subtype_array: mem is mem (0 to 5) of integer\n"
                  " ghdl_rtik_subtype_array: mem is mem (0 to 3) of integer\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"integer: integer (-2147483648 to 2147483647)", "mem: array [0] of 0 (0 to 5)",
                     "mem: array [-] of 0 (0 to 3)"}));
}

TEST(JoinedDumps, PhysicalTypesOfOneNameWithOtherUnitsStayApart) {
    GhwBuilder file;
    file.names({"um", "mm", "d"}).type(PHYSICAL, {3, 2, 1}).value(1).then({2}).value(100);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: d is 0 to 1000000\n"
                  "  ghdl_rtik_unit64: um = 1\n"
                  "  ghdl_rtik_unitptr: mm = 1000\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"d: physical um=1 mm=1000", "d: physical um=1 mm=100"}));
}

TEST(JoinedDumps, TypesOfOneNameAndOtherKindsStayApart) {
    GhwBuilder file;
    file.names({"a", "t"}).type(ENUM, {2, 1, 1});
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: t is -9 to 9999999\n");
    EXPECT_EQ(types.wave(file.file()).lines(), (Lines{"t: integer (-9 to 9999999)", "t: enum a"}));
}

TEST(JoinedDumps, IntegersOfOneNameWithOtherRangesStayApart) {
    GhwBuilder file;
    file.names({"n"}).type(INTEGER, {1}).type(SCALAR_SUBTYPE, {1, 1}).range(INTEGER, -9, 5);
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: n is -9 to 9999999\n");
    EXPECT_EQ(types.wave(file.file()).lines(),
              (Lines{"n: integer (-9 to 9999999)", "n: integer (-9 to 5)"}));
}

TEST(JoinedDumps, WavesNeedNotHaveTheRangeOfReals) {
    GhwBuilder file;
    file.names({"r"}).type(REAL, {1});
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: r is -1.5 to 2.5\n");
    EXPECT_EQ(types.wave(file.file()).lines(), (Lines{"r: real -1.5 to 2.5"}));
}

TEST(JoinedDumps, NotesAreAboutTheFileThatHasTheType) {
    ImportedTypes types;
    for (const char* const name : {"a", "b"}) {
        GhwBuilder file;
        file.names({name, "r"}).type(INTEGER, {1});
        types.wave(file.file(), std::string(name) + ".ghw");
    }
    types.package(" ghdl_rtik_type_protected: prot is protected\n").lines();
    EXPECT_EQ(
        types.notes(),
        (Lines{"l:3: type prot: there are no records of protected types",
               "a.ghw: offset 52: type a: its range is not in the input; 32 bits are assumed",
               "b.ghw: offset 52: type b: its range is not in the input; 32 bits are assumed"}));
}

TEST(JoinedDumps, PackagesAreThoseOfTheListing) {
    GhwBuilder file;
    file.names({"a", "e", "f", "w"}).type(ENUM, {2, 1, 1}).type(ENUM, {3, 1, 1});
    file.type(ENUM, {4, 1, 1});
    ImportedTypes types;
    types.listing("ghdl_rtik_package, D=1, sloc=1:1: p\n ghdl_rtik_type_e8: e is (a)\n"
                  "ghdl_rtik_package, D=1, sloc=1:1: q\n ghdl_rtik_type_e8: f is (a)\n");
    EXPECT_EQ(types.wave(file.file()).lines({"q"}), Lines{"f: enum a"});
}

TEST(JoinedDumps, ANameThatTwoTypesHaveDoesNotTellWhichIsMeant) {
    GhwBuilder file;
    file.names({"a", "b", "t"}).type(ENUM, {3, 1, 1}).type(ENUM, {3, 1, 2});
    ImportedTypes types;
    types.package(" ghdl_rtik_subtype_scalar, D=0: t is t\n");
    EXPECT_EQ(types.wave(file.file()).lines(), (Lines{"t: enum a", "t: enum b"}));
    EXPECT_EQ(types.notes(), Lines{"l:3: type t: the listing does not say what it is"});
}

} // namespace
