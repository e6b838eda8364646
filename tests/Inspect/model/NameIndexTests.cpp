#include "Inspect/model/NameIndex.h"
#include "tests/support/LinkedTypes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Inspect::NameIndex;
using RTTITest::LinkedTypes;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(NameIndex, FindsEveryTypeOfAName) {
    LinkedTypes types;
    types.structure("pair_t", {});
    types.string();
    types.structure("pair_t", {});
    const NameIndex names(types.table());
    EXPECT_THAT(names.idsOf("pair_t"), ElementsAre(0u, 2u));
    EXPECT_THAT(names.idsOf("string"), ElementsAre(1u));
    EXPECT_THAT(names.idsOf("pair"), IsEmpty());
}

TEST(NameIndex, TakesATypedefForTheTypeOfItsNameBehindIt) {
    LinkedTypes types;
    types.structure("pair_t", {});
    types.alias("pair_t", 0);
    types.structure("pair_t", {});
    EXPECT_THAT(NameIndex(types.table()).idsOf("pair_t"), ElementsAre(1u, 2u));
}

TEST(NameIndex, KeepsATypedefOfATypeWithAnotherName) {
    LinkedTypes types;
    types.structure("pair_t", {});
    types.alias("other_t", 0);
    const NameIndex names(types.table());
    EXPECT_THAT(names.idsOf("pair_t"), ElementsAre(0u));
    EXPECT_THAT(names.idsOf("other_t"), ElementsAre(1u));
}

} // namespace
