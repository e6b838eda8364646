// The encodings that printers show: what a type answers when it is asked first.

#include "Inspect/model/TypeEncodings.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RandomTypes.h"
#include "tests/support/StraightforwardModel.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <vector>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Inspect::TypeEncodings;

TEST(TypeEncodings, AreThoseOfTypesThatAreAskedFirst) {
    constexpr unsigned int GRAPHS = 3000;
    constexpr std::size_t STEP_LIMIT = 20000;
    unsigned int compared = 0;
    std::size_t changedByOrder = 0;
    for (unsigned int seed = 0; compared < GRAPHS; ++seed) {
        ASSERT_LT(seed, 2 * GRAPHS) << "too many graphs take too many steps";
        std::mt19937 random(seed);
        const LinkedTypes types = randomTypes(random);
        std::vector<ValueEncoding> expected;
        try {
            for (unsigned int id = 0; id < types.size(); ++id)
                expected.push_back(EncodingModel(STEP_LIMIT).ask(types[id])); // No marks yet.
        } catch (const TooManySteps&) {
            continue;
        }
        TypeEncodings encodings;
        for (unsigned int id = 0; id < types.size(); ++id)
            changedByOrder += types[id].getValueEncoding() != expected[id] ? 1 : 0;
        for (unsigned int id = 0; id < types.size(); ++id)
            ASSERT_EQ(encodings.of(types[id]), expected[id]) << "seed " << seed << ", type " << id;
        ++compared;
    }
    EXPECT_GT(changedByOrder, 100U);
}

TEST(TypeEncodings, LeaveNoMark) {
    LinkedTypes types;
    const auto base = types.classType({types.seqEnum(ENCODING_4_STATE)});
    const auto derived = types.classType({}, base);
    TypeEncodings encodings;
    EXPECT_EQ(encodings.of(types[types.alias(derived)]), ENCODING_4_STATE);
    EXPECT_EQ(encodings.of(types[derived]), ENCODING_4_STATE);
    EXPECT_EQ(types[derived].getValueEncoding(),
              ENCODING_4_STATE); // The first question, which leaves one.
    EXPECT_EQ(types[derived].getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(encodings.of(types[derived]), ENCODING_4_STATE);
}

TEST(TypeEncodings, TakeAMissingMemberForNotTwoState) {
    LinkedTypes types;
    TypeEncodings encodings;
    EXPECT_EQ(encodings.of(types[types.structure({NO_TYPE_ID})]), ENCODING_4_STATE);
    EXPECT_EQ(encodings.of(types[types.structure()]), ENCODING_2_STATE);
    EXPECT_EQ(encodings.of(types[types.alias(NO_TYPE_ID)]), ENCODING_BYTE);
}

TEST(TypeEncodings, OfAWholeTableTakeTimeInProportionToIt) {
    constexpr unsigned int CLASSES = 200000;
    LinkedTypes types;
    for (unsigned int id = 0; id < CLASSES; ++id)
        types.classType({(id + 1) % CLASSES, 0}); // A ring.
    TypeEncodings encodings;
    const std::clock_t begin = std::clock();
    for (unsigned int id = 0; id < CLASSES; ++id)
        ASSERT_EQ(encodings.of(types[id]), ENCODING_2_STATE);
    EXPECT_LT(std::clock() - begin, 20 * CLOCKS_PER_SEC); // A search for each takes hours.
}

} // namespace
