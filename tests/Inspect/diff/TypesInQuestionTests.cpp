#include "Inspect/diff/TypesInQuestion.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace RTTI;
using namespace RTTITest;
using testing::ElementsAre;
using testing::IsEmpty;

/// The nodes in question: types of A by id, then those of B.
std::vector<unsigned int> inQuestion(const LinkedTypes& a, const LinkedTypes& b) {
    const auto question = Inspect::typesInQuestion(a.table(), b.table());
    std::vector<unsigned int> nodes;
    for (unsigned int node = 0; node < question.nodes.size(); ++node) {
        if (question.nodes[node])
            nodes.push_back(node);
    }
    return nodes;
}

/// A string, a struct of it, and a type of that struct.
struct Chain : LinkedTypes {
    Chain() {
        string();
        structure("pair", {{"first", 0}});
        alias("t", 1);
        alias("u", 0);
    }
};

TEST(TypesInQuestion, AreNoneOfTheSameFile) {
    const Chain a, b;
    EXPECT_TRUE(Inspect::typesInQuestion(a.table(), b.table()).areNone);
}

TEST(TypesInQuestion, LeaveOutWhatHasNotChanged) {
    Chain a, b;
    b.integer("new");
    EXPECT_THAT(inQuestion(a, b), ElementsAre(8));
    EXPECT_FALSE(Inspect::typesInQuestion(a.table(), b.table()).areNone);
}

TEST(TypesInQuestion, AreAllThatLeadToAChangedType) {
    Chain a, b;
    b[1].m_flags = 1;
    EXPECT_THAT(inQuestion(a, b), ElementsAre(0, 1, 2, 4, 5, 6));
}

TEST(TypesInQuestion, AreAllThatHaveTheNameOfAChangedType) {
    Chain a, b;
    b.integer("u");
    EXPECT_THAT(inQuestion(a, b), ElementsAre(0, 3, 4, 7, 8));
}

TEST(TypesInQuestion, AreAllThatAChangedTypeLeadsTo) {
    Chain a, b;
    b.alias("new", 1);
    EXPECT_THAT(inQuestion(a, b), ElementsAre(0, 1, 4, 5, 8));
}

TEST(TypesInQuestion, AreTypesThatLeadToAnIdOfOneFileAlone) {
    Chain a, b;
    for (Chain* types : {&a, &b})
        types->alias("next", 5);
    b.string();
    EXPECT_THAT(inQuestion(a, b), ElementsAre(0, 4, 5, 9, 10));
}

TEST(TypesInQuestion, AreAllWhereMostIdsHaveOtherTypes) {
    LinkedTypes a, b;
    for (const char* name : {"kept", "one", "two", "three"})
        a.integer(name);
    for (const char* name : {"kept", "four", "five", "six"})
        b.integer(name);
    EXPECT_EQ(inQuestion(a, b).size(), 8u);
}

TEST(TypesInQuestion, AreNoneWhereACompilerGaveAwayOtherIds) {
    LinkedTypes a, b;
    a.add<RTQueueType>("q").m_svTypeId = 5;
    b.add<RTQueueType>("q").m_svTypeId = 7;
    EXPECT_THAT(inQuestion(a, b), IsEmpty());
    EXPECT_FALSE(Inspect::typesInQuestion(a.table(), b.table()).areNone);
}

} // namespace
