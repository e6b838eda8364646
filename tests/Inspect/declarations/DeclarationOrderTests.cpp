#include "Inspect/declarations/DeclarationFile.h"
#include "Inspect/declarations/TypeDeclarations.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::HasSubstr;

constexpr SourceLanguage VHDL = SourceLanguage::VHDL;
constexpr SourceLanguage SV = SourceLanguage::SYSTEM_VERILOG;

/// What is done, in its order: "+3" announced, "3" declared, "-3" omitted.
class RecordingSink : public DeclarationSink {
public:
    void announce(unsigned int id) override { note("+", id); }
    void declare(unsigned int id) override { note("", id); }
    void omit(unsigned int id, std::string /*reason*/) override { note("-", id); }
    std::string steps;

private:
    void note(const char* mark, unsigned int id) {
        steps += steps.empty() ? "" : " ";
        steps += mark;
        steps += std::to_string(id);
    }
};

std::string orderOf(LinkedTypes& types, SourceLanguage language,
                    const std::vector<unsigned int>& wanted) {
    const TypeTable table = types.table();
    const TypeDeclarations declarations(table, Naming::DISTINCT);
    RecordingSink sink;
    DeclarationOrder order(table, declarations.in(language), sink);
    for (const unsigned int id : wanted)
        order.add(id);
    order.finish();
    return sink.steps;
}

TEST(DeclarationOrder, TypesFollowWhatTheyNeed) {
    LinkedTypes types;
    types.vhdlArray("a", 2, {3}, {{0, 0, -2}});
    types.alias("s", 0, {{0, 1, 1}});
    types.enumeration("e", {"x"});
    types.integer("i", 0, 1);
    EXPECT_EQ(orderOf(types, VHDL, {1, 3}), "2 3 0 1");
}

TEST(DeclarationOrder, WhatIsNotAskedForAndNotNeededStaysAway) {
    LinkedTypes types;
    types.enumeration("e", {"x"});
    types.enumeration("f", {"y"});
    EXPECT_EQ(orderOf(types, VHDL, {1}), "1");
}

TEST(DeclarationOrder, AnAccessTypeInACircleAnnouncesItsRecord) {
    LinkedTypes types;
    types.structure("r", lettered({1}), VHDL_RECORD);
    types.access("link", 0);
    EXPECT_EQ(orderOf(types, VHDL, {0}), "+0 1 0");
    EXPECT_EQ(orderOf(types, VHDL, {1}), "+0 1 0");
}

TEST(DeclarationOrder, AnAccessTypeAfterItsRecordAnnouncesNothing) {
    LinkedTypes types;
    types.integer("i", 0, 1);
    types.access("link", 0);
    EXPECT_EQ(orderOf(types, VHDL, {0, 1}), "0 1");
}

TEST(DeclarationOrder, AnAccessTypeDesignatesASubtypeThatIsDeclared) {
    LinkedTypes types;
    types.access("link", 2);
    types.integer("i", 0, 10);
    types.alias("s", 1, {{0, 1, 1}});
    EXPECT_EQ(orderOf(types, VHDL, {0}), "1 2 0");
}

TEST(DeclarationOrder, HandlesOfClassesNeedAnAnnouncementAlone) {
    LinkedTypes types;
    types.classType("c", lettered({0, 1}));
    types.classType("c", lettered({0}));
    EXPECT_EQ(orderOf(types, SV, {0, 1}), "+1 0 1");
    EXPECT_EQ(orderOf(types, SV, {0}), "+1 0 1") << "what is announced is declared in the end";
}

TEST(DeclarationOrder, ABaseClassComesFirst) {
    LinkedTypes types;
    types.classType("c", {}, 1);
    types.classType("c", lettered({0}));
    EXPECT_EQ(orderOf(types, SV, {0}), "+0 1 0");
}

TEST(DeclarationOrder, AStructInItselfIsOmittedWithAllThatNeedIt) {
    LinkedTypes types;
    types.structure("r", lettered({1}), VLOG_UNPACKED_STRUCT);
    types.structure("r", lettered({0}), VLOG_UNPACKED_STRUCT);
    types.alias("t", 0);
    EXPECT_EQ(orderOf(types, SV, {0, 1, 2}), "-1 -0 -2");
}

TEST(DeclarationOrder, WhatNeedsAMissingTypeIsOmitted) {
    LinkedTypes types;
    types.hole();
    types.access("link", 0);
    types.access("far", 100);
    types.access("none", TypeFileFormat::NO_TYPE_ID);
    EXPECT_EQ(orderOf(types, VHDL, {1, 2, 3}), "-1 -2 -3");
}

TEST(DeclarationOrder, DepthTakesNoStack) {
    LinkedTypes types;
    constexpr unsigned int DEPTH = 100000;
    for (unsigned int i = 0; i < DEPTH; ++i)
        types.structure("r", lettered({i + 1}), VHDL_RECORD);
    types.integer("i", 0, 1);
    const std::string steps = orderOf(types, VHDL, {0});
    EXPECT_EQ(steps.substr(0, 19), "100000 99999 99998 ");
    EXPECT_EQ(steps.substr(steps.size() - 4), " 1 0");
}

std::string fileOf(LinkedTypes& types, SourceLanguage language,
                   const std::vector<unsigned int>& wanted, IdComments ids = IdComments::SHOWN) {
    std::ostringstream out;
    const TypeTable table = types.table();
    DeclarationFile file(out, table, language, ids);
    for (const unsigned int id : wanted)
        file.add(id);
    file.end();
    return out.str().substr(out.str().find("\npackage ") + 1);
}

TEST(DeclarationFile, NamesTypesOfTheOtherLanguageInComments) {
    LinkedTypes types;
    types.logic();
    types.enumeration("e", {"x"});
    EXPECT_EQ(fileOf(types, VHDL, {0, 1}),
              "package types is\n"
              "    -- type 0: sequential enumeration \"logic\": SystemVerilog\n"
              "    -- type 1: sequential enumeration \"e\"\n"
              "    type e is (x);\n"
              "end package types;\n");
    EXPECT_EQ(fileOf(types, SV, {0, 1}),
              "package types;\n"
              "    // type 0: sequential enumeration \"logic\": predefined\n"
              "    // type 1: sequential enumeration \"e\": VHDL\n"
              "endpackage\n");
}

TEST(DeclarationFile, CommentsOutWhatHasNoDeclaration) {
    LinkedTypes types;
    types.structure("r", lettered({0}), VHDL_RECORD);
    EXPECT_EQ(fileOf(types, VHDL, {0}),
              "package types is\n"
              "    -- type 0: record \"r\" has no declaration: it needs type 0, which needs it in "
              "turn\n"
              "    -- type r is record\n"
              "    --     a : r;\n"
              "    -- end record;\n"
              "end package types;\n");
}

TEST(DeclarationFile, TellsOfTypesThatAreNotThereAndOfSharedDeclarations) {
    LinkedTypes types;
    types.hole();
    types.integer("small", 0, 1);
    types.alias("small", 1);
    EXPECT_EQ(fileOf(types, VHDL, {0, 1, 2}),
              "package types is\n"
              "    -- type 0: builds no type\n"
              "    -- type 1: integer \"small\"\n"
              "    type small is range 0 to 1;\n"
              "    -- type 2: typedef \"small\": declared as type 1\n"
              "end package types;\n");
}

TEST(DeclarationFile, HasNoCommentsOnIdsUnlessTheyAreAskedFor) {
    LinkedTypes types;
    types.hole();
    types.integer("small", 0, 1);
    types.alias("small", 1);
    types.integer("integer", -2147483647 - 1, 2147483647);
    types.logic();
    EXPECT_EQ(fileOf(types, VHDL, {0, 1, 2, 3, 4}, IdComments::NONE),
              "package types is\n"
              "    type small is range 0 to 1;\n"
              "end package types;\n");
}

TEST(DeclarationFile, CountsTheTypesOfTheOtherLanguage) {
    LinkedTypes types;
    types.logic();
    types.bit();
    std::ostringstream out;
    const TypeTable table = types.table();
    DeclarationFile file(out, table, VHDL, IdComments::NONE);
    file.add(0);
    file.add(1);
    file.end();
    EXPECT_THAT(out.str(), HasSubstr("-- 2 types of the other language are left out.\n"
                                     "package types is\nend package types;\n"));
}

TEST(DeclarationFile, EscapesNamesInComments) {
    LinkedTypes types;
    types.enumeration("a\nb", {"x"});
    EXPECT_THAT(fileOf(types, VHDL, {0}), HasSubstr("enumeration \"a\\nb\"\n"));
}

} // namespace
