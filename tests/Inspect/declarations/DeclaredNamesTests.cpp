#include "Inspect/declarations/DeclaredNames.h"
#include "Inspect/declarations/Identifiers.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::ElementsAre;

constexpr SourceLanguage VHDL = SourceLanguage::VHDL;
constexpr SourceLanguage SV = SourceLanguage::SYSTEM_VERILOG;

TEST(DeclaredNames, TheFirstTypeKeepsANameThatIsRepeated) {
    LinkedTypes types;
    types.enumeration("state_t", {"idle"});
    types.enumeration("STATE_T", {"busy"});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_EQ(names.typeName(0), "state_t");
    EXPECT_EQ(names.typeName(1), "STATE_T_1");
}

TEST(DeclaredNames, OfTheOtherLanguageDoNotClash) {
    LinkedTypes types;
    types.logic();
    types.array(VLOG_FIXED_PACKED_ARRAY, "word_t", 0, {{7, 0, 0}});
    types.enumeration("word_t", {"a"});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_EQ(names.typeName(2), "word_t");
    EXPECT_EQ(names.typeName(1), "word_t");
    EXPECT_TRUE(names.isOfLanguage(2));
    EXPECT_FALSE(names.isOfLanguage(1));
    EXPECT_FALSE(names.isOfLanguage(3));
}

TEST(DeclaredNames, TypesWithoutANameAreCalledByTheirId) {
    LinkedTypes types;
    types.enumeration("", {"a"});
    types.enumeration("type_0", {"b"});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_EQ(names.typeName(0), "type_0_0") << "type_0 is another type's own name";
    EXPECT_EQ(names.typeName(1), "type_0");
}

TEST(DeclaredNames, ATypedefThatAddsNothingIsItsDataType) {
    LinkedTypes types;
    types.integer("small", -5, 10);
    types.alias("small", 0, {{-5, 10, 1}});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_EQ(names.declaredType(1), 0u);
    EXPECT_EQ(names.typeName(1), "small");
}

TEST(DeclaredNames, ATypedefThatAddsARangeTakesTheNameOfItsDataType) {
    LinkedTypes types;
    types.integer("small", -5, 10);
    types.alias("small", 0, {{0, 10, 1}});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_EQ(names.declaredType(1), 1u);
    EXPECT_EQ(names.typeName(1), "small");
    EXPECT_EQ(names.typeName(0), "small_0");
}

TEST(DeclaredNames, VhdlLiteralsAreSharedByEnumerations) {
    LinkedTypes types;
    types.enumeration("a_t", {"idle", "busy"});
    types.enumeration("b_t", {"idle"});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_THAT(names.literalNames(1), ElementsAre("idle"));
}

TEST(DeclaredNames, VhdlLiteralsAreRenamedWhereATypeHasTheirName) {
    LinkedTypes types;
    types.enumeration("a_t", {"idle", "b_t"});
    types.enumeration("b_t", {"busy"});
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_THAT(names.literalNames(0), ElementsAre("idle", "b_t_0_1"));
}

TEST(DeclaredNames, UnitsOfTwoTypesDiffer) {
    LinkedTypes types;
    TypeFile::addUnit(types.add<RTPhysicalType>("length"), "m", 1);
    TypeFile::addUnit(types.add<RTPhysicalType>("depth"), "m", 1);
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_THAT(names.literalNames(0), ElementsAre("m"));
    EXPECT_THAT(names.literalNames(1), ElementsAre("m_1_0"));
}

TEST(DeclaredNames, SystemVerilogLiteralsOfTwoTypesDiffer) {
    LinkedTypes types;
    TypeFile::addLiteral(types.add<RTDiscreteEnumType>("a_e"), "IDLE", std::string(1, '\0'));
    TypeFile::addLiteral(types.add<RTDiscreteEnumType>("b_e"), "IDLE", std::string(1, '\0'));
    const DeclaredNames names(types.table(), SV, Naming::DISTINCT);
    EXPECT_THAT(names.literalNames(0), ElementsAre("IDLE"));
    EXPECT_THAT(names.literalNames(1), ElementsAre("IDLE_1_0"));
}

TEST(DeclaredNames, ANameMadeForALiteralIsNotOneMadeForAType) {
    LinkedTypes types;
    types.add<RTClassType>("x_2");
    types.add<RTClassType>("x_2");
    auto& type = types.add<RTDiscreteEnumType>("e");
    TypeFile::addLiteral(type, "y", "");
    TypeFile::addLiteral(type, "x", "");
    types.add<RTClassType>("x");
    const DeclaredNames names(types.table(), SV, Naming::DISTINCT);
    EXPECT_EQ(names.typeName(1), "x_2_1");
    EXPECT_THAT(names.literalNames(2), ElementsAre("y", "x_2_1_2_1"));
}

TEST(DeclaredNames, RepeatedAndEmptyMembersGetTheirPosition) {
    LinkedTypes types;
    auto& record = types.add<RTRecordType>("r");
    for (const char* name : {"a", "A", "", "a_1"})
        TypeFile::addMember(record, name, 0);
    const DeclaredNames names(types.table(), VHDL, Naming::OWN);
    EXPECT_THAT(names.memberNames(record), ElementsAre("a", "A_1_1", "member_2", "a_1"));
}

TEST(DeclaredNames, PredefinedTypesKeepTheirNamesFromOthers) {
    LinkedTypes types;
    types.integer("integer", 0, 7);
    types.integer("integer", -2147483647 - 1, 2147483647);
    const DeclaredNames names(types.table(), VHDL, Naming::DISTINCT);
    EXPECT_TRUE(names.isPredefined(1));
    EXPECT_EQ(names.typeName(1), "integer");
    EXPECT_FALSE(names.isPredefined(0));
    EXPECT_EQ(names.typeName(0), "integer_0");
}

TEST(DeclaredNames, SystemVerilogKeywordsNeedTheirContent) {
    LinkedTypes types;
    const unsigned int bit = types.bit();
    const unsigned int byte = types.array(VLOG_FIXED_PACKED_ARRAY, "byte", bit, {{7, 0, 0}});
    const unsigned int other = types.array(VLOG_FIXED_PACKED_ARRAY, "byte", bit, {{0, 7, 1}});
    const DeclaredNames names(types.table(), SV, Naming::DISTINCT);
    EXPECT_EQ(names.typeName(byte), "byte");
    EXPECT_EQ(names.typeName(other), "\\byte ");
}

TEST(DeclaredNames, OwnNamesAreTakenAsTheyAre) {
    LinkedTypes types;
    types.enumeration("state_t", {"idle"});
    types.enumeration("state_t", {"busy"});
    EXPECT_EQ(DeclaredNames(types.table(), VHDL, Naming::OWN).typeName(1), "state_t");
}

/// Few letters, so that names clash with one another and with names that are made.
std::string oddName(std::mt19937& random) {
    std::string name(random() % 4, '\0');
    for (char& c : name)
        c = "aA_01\\ "[random() % 7];
    return random() % 4 == 0 ? "type_" + std::to_string(random() % 8) : name;
}

TEST(DeclaredNames, OfAnyTypesAndLiteralsDiffer) {
    for (unsigned int seed = 0; seed < 500; ++seed) {
        std::mt19937 random(seed);
        LinkedTypes types;
        std::vector<std::string> literals;
        for (unsigned int id = 0; id < 8; ++id) {
            auto& type = types.add<RTDiscreteEnumType>(oddName(random));
            literals.push_back(oddName(random));
            TypeFile::addLiteral(type, literals.back(), "");
        }
        const DeclaredNames names(types.table(), SV, Naming::DISTINCT);
        std::set<std::string> identities;
        for (unsigned int id = 0; id < 8; ++id) {
            identities.insert(identityOf(SV, names.typeName(id)));
            identities.insert(identityOf(SV, names.literalNames(id)[0]));
        }
        EXPECT_EQ(identities.size(), 16u) << "seed " << seed;
    }
}

} // namespace
