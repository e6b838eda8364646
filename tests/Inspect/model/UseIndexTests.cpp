#include "Inspect/model/UseIndex.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Inspect::LinkRole;
using Inspect::Use;
using Inspect::UseIndex;
using RTTITest::LinkedTypes;
using testing::ElementsAre;
using testing::IsEmpty;

testing::Matcher<const Use&> reference(unsigned int from, LinkRole role, unsigned int position) {
    return testing::AllOf(
        testing::Field(&Use::typeId, from), testing::Field(&Use::distance, 1u),
        testing::Field(&Use::link, testing::Field(&Inspect::TypeLink::role, role)),
        testing::Field(&Use::link, testing::Field(&Inspect::TypeLink::position, position)));
}

TEST(UseIndex, GivesEachReferenceToATypeAndNoneThatLeadThereThroughOthers) {
    LinkedTypes types;
    const auto string = types.string();
    const auto pair = types.structure("pair_t", {{"a", string}, {"b", string}});
    types.alias("alias", pair);
    types.alias("text", string);
    const UseIndex uses(types.table());
    EXPECT_THAT(uses.referencesTo(string),
                ElementsAre(reference(1, LinkRole::MEMBER, 0), reference(1, LinkRole::MEMBER, 1),
                            reference(3, LinkRole::ALIASED, 0)));
    EXPECT_THAT(uses.referencesTo(3), IsEmpty());
    EXPECT_THAT(uses.referencesTo(4), IsEmpty()); // There is no such type.
}

TEST(UseIndex, GivesTheReferencesOfATypeToItself) {
    LinkedTypes types;
    types.classType("node", {{"next", 0}});
    EXPECT_THAT(UseIndex(types.table()).referencesTo(0),
                ElementsAre(reference(0, LinkRole::MEMBER, 0)));
}

} // namespace
