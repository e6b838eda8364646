#include "Inspect/declarations/DeclarationFile.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

/// All types but those that their users spell out, from the first package on.
std::string packagesOf(LinkedTypes& types) {
    std::ostringstream out;
    const TypeTable table = types.table();
    DeclarationFile file(out, table, SourceLanguage::SYSTEM_VERILOG, IdComments::NONE);
    for (unsigned int id = 0; id < table.count; ++id)
        file.addUnlessSpelledOut(id);
    file.end();
    return out.str().substr(out.str().find("\npackage ") + 1);
}

TEST(DeclaredPackages, DeclareTheTypesThatHaveTheirNames) {
    LinkedTypes types;
    types.logic();
    types.alias("p::t", 0);
    types.structure("q::s", {{"m", 1}});
    types.structure("p::s", {{"m", 1}});
    types.alias("top.t", 2);
    EXPECT_EQ(packagesOf(types), "package p;\n"
                                 "    typedef logic t;\n"
                                 "    typedef struct {\n"
                                 "        t m;\n"
                                 "    } s;\n"
                                 "endpackage\n"
                                 "\n"
                                 "package q;\n"
                                 "    typedef struct {\n"
                                 "        p::t m;\n"
                                 "    } s;\n"
                                 "endpackage\n"
                                 "\n"
                                 "package types;\n"
                                 "    typedef q::s \\top.t ;\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, FollowThoseThatTheyNeed) {
    LinkedTypes types;
    types.structure("p::s", {{"m", 2}});
    types.logic();
    types.alias("q::t", 1);
    EXPECT_EQ(packagesOf(types), "package q;\n"
                                 "    typedef logic t;\n"
                                 "endpackage\n"
                                 "\n"
                                 "package p;\n"
                                 "    typedef struct {\n"
                                 "        q::t m;\n"
                                 "    } s;\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, HaveNoTypesThatNeedALaterOne) {
    LinkedTypes types;
    types.logic();
    types.alias("p::t", 0);
    types.structure("q::s", {{"m", 1}});
    types.classType("p::c#(q::s)", lettered({2, 1}));
    types.structure("p::user", {{"m", 3}});
    types.alias("q::last", 4);
    EXPECT_THAT(packagesOf(types),
                EndsWith("    } s;\n"
                         "    // Declared here and not in its own package, as it needs types of "
                         "this one:\n"
                         "    class \\p::c#(q::s) ;\n"
                         "        s a;\n"
                         "        p::t b;\n"
                         "    endclass\n"
                         "    // Declared here and not in its own package, as it needs types of "
                         "this one:\n"
                         "    typedef struct {\n"
                         "        \\p::c#(q::s) m;\n"
                         "    } \\p::user ;\n"
                         "    typedef \\p::user last;\n"
                         "endpackage\n"));
}

TEST(DeclaredPackages, AnnounceTheirOwnClassesOnly) {
    LinkedTypes types;
    types.classType("q::e", lettered({3, 1, 4}));
    types.classType("q::f", {});
    types.classType("p::c", lettered({2, 3}));
    types.classType("p::d", {});
    types.classType("p::z", {});
    EXPECT_EQ(packagesOf(types), "package p;\n"
                                 "    typedef class d;\n"
                                 "    class c;\n"
                                 "        c a;\n"
                                 "        d b;\n"
                                 "    endclass\n"
                                 "    class d;\n"
                                 "    endclass\n"
                                 "    class z;\n"
                                 "    endclass\n"
                                 "endpackage\n"
                                 "\n"
                                 "package q;\n"
                                 "    typedef class f;\n"
                                 "    class e;\n"
                                 "        p::d a;\n"
                                 "        f b;\n"
                                 "        p::z c;\n"
                                 "    endclass\n"
                                 "    class f;\n"
                                 "    endclass\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, ThatNeedOneAnotherHaveBothTypesInTheLater) {
    LinkedTypes types;
    types.classType("p::c", lettered({1}));
    types.classType("q::d", lettered({0}));
    const std::string text = packagesOf(types);
    EXPECT_THAT(text, testing::StartsWith("package p;\n"));
    EXPECT_THAT(text, Not(HasSubstr("package q;")));
    EXPECT_THAT(text, HasSubstr("        c a;\n"));
    EXPECT_THAT(text, HasSubstr("        \\q::d a;\n"));
}

TEST(DeclaredPackages, TakeTypesWithoutOneAlongThatTheyNeedFirst) {
    LinkedTypes types;
    types.logic();
    types.structure("", {{"m", 0}});
    types.structure("q::s", {{"m", 1}});
    types.structure("p::s", {{"m", 4}});
    types.alias("word_t", 0);
    types.structure("q::t", {{"m", 4}});
    types.alias("p::q_user", 2);
    const std::string text = packagesOf(types);
    EXPECT_THAT(text, HasSubstr("package q;\n"
                                "    typedef struct {\n"
                                "        logic m;\n"
                                "    } type_1;\n"));
    EXPECT_THAT(text, HasSubstr("    typedef logic word_t;\n"
                                "    typedef struct {\n"
                                "        word_t m;\n"
                                "    } t;\n"));
    EXPECT_THAT(text, HasSubstr("        q::word_t m;\n"));
    EXPECT_THAT(text, Not(HasSubstr("package types;")));
}

TEST(DeclaredPackages, TakeTypesWithoutOneAlongThatNeedEarlierOnes) {
    LinkedTypes types;
    types.logic();
    types.alias("p::t", 0);
    types.structure("top.s", {{"m", 1}});
    types.alias("q::s", 2);
    EXPECT_EQ(packagesOf(types), "package p;\n"
                                 "    typedef logic t;\n"
                                 "endpackage\n"
                                 "\n"
                                 "package q;\n"
                                 "    typedef struct {\n"
                                 "        p::t m;\n"
                                 "    } \\top.s ;\n"
                                 "    typedef \\top.s s;\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, HaveNoTypeWithoutOneThatNeedsThePackageItself) {
    LinkedTypes types;
    types.classType("p::base", {});
    types.classType("top.item", {}, 0);
    types.classType("p::queue#(top.item)", lettered({1}));
    EXPECT_EQ(packagesOf(types),
              "package p;\n"
              "    class base;\n"
              "    endclass\n"
              "endpackage\n"
              "\n"
              "package types;\n"
              "    import p::base;\n"
              "    class \\top.item extends base;\n"
              "    endclass\n"
              "    // Declared here and not in its own package, as it needs types of this one:\n"
              "    class \\p::queue#(top.item) ;\n"
              "        \\top.item a;\n"
              "    endclass\n"
              "endpackage\n");
}

TEST(DeclaredPackages, ImportBaseClassesOfOthers) {
    LinkedTypes types;
    types.classType("p::base", {});
    types.classType("q::derived", {}, 0);
    types.classType("r::base", {}, 0);
    const std::string text = packagesOf(types);
    EXPECT_THAT(text, HasSubstr("    import p::base;\n"
                                "    class derived extends base;\n"));
    EXPECT_THAT(text, HasSubstr("package r;\n"
                                "    class base extends p::base;\n"))
        << "the name is taken";
}

TEST(DeclaredPackages, AreNotMadeOfClasses) {
    LinkedTypes types;
    types.logic();
    types.classType("c", {});
    types.alias("c::t", 0);
    types.alias("std::t", 0);
    types.alias("$unit::t", 0);
    EXPECT_EQ(packagesOf(types), "package types;\n"
                                 "    class c;\n"
                                 "    endclass\n"
                                 "    typedef logic \\c::t ;\n"
                                 "    typedef logic \\std::t ;\n"
                                 "    typedef logic \\$unit::t ;\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, KeepTheirNamesFromTypes) {
    LinkedTypes types;
    types.logic();
    types.alias("p::q", 0);
    types.alias("q::t", 0);
    types.alias("types::t", 0);
    types.alias("t", 0);
    const std::string text = packagesOf(types);
    EXPECT_THAT(text, HasSubstr("    typedef logic q_1;\n"));
    EXPECT_THAT(text, HasSubstr("package types_;\n    typedef logic t;\n"));
}

TEST(DeclaredPackages, HaveNoArraysThatUsersSpellOut) {
    LinkedTypes types;
    types.logic();
    types.array(VLOG_FIXED_PACKED_ARRAY, "", 0, {{7, 0, 0}});
    types.structure("p::s", {{"m", 1}});
    types.array(VLOG_FIXED_UNPACKED_ARRAY, "", 2, {{0, 3, 1}});
    types.alias("p::s", 2);
    EXPECT_EQ(packagesOf(types), "package p;\n"
                                 "    typedef struct {\n"
                                 "        logic [7:0] m;\n"
                                 "    } s;\n"
                                 "endpackage\n");
}

TEST(DeclaredPackages, DeclareArraysThatAreTooDeepToSpellOut) {
    LinkedTypes types;
    unsigned int id = types.logic();
    for (int i = 0; i < 10; ++i)
        id = types.array(VLOG_FIXED_PACKED_ARRAY, "", id, {{0, 0, 0}});
    types.alias("p::t", id);
    EXPECT_EQ(packagesOf(types), "package p;\n"
                                 "    typedef logic [0:0][0:0] type_2;\n"
                                 "    typedef type_2 [0:0][0:0][0:0][0:0][0:0][0:0][0:0][0:0] t;\n"
                                 "endpackage\n");
}

} // namespace
