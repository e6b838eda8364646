// The encodings that printers show: what a type answers when it is asked first.

#include "Inspect/model/TypeEncodings.h"
#include "tests/support/StraightforwardModel.h"
#include "tests/support/TypeGraph.h"

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
        const TypeGraph types = randomGraph(random);
        std::vector<ValueEncoding> expected;
        try {
            for (std::size_t i = 0; i < types.size(); ++i)
                expected.push_back(EncodingModel(STEP_LIMIT).ask(types[i])); // No marks yet.
        } catch (const TooManySteps&) {
            continue;
        }
        TypeEncodings encodings;
        for (std::size_t i = 0; i < types.size(); ++i)
            changedByOrder += types[i].getValueEncoding() != expected[i] ? 1 : 0;
        for (std::size_t i = 0; i < types.size(); ++i)
            ASSERT_EQ(encodings.of(types[i]), expected[i]) << "seed " << seed << ", type " << i;
        ++compared;
    }
    EXPECT_GT(changedByOrder, 100U);
}

TEST(TypeEncodings, LeaveNoMark) {
    TypeGraph types;
    const RTClassType& base = types.classType({&types.seqEnum(ENCODING_4_STATE)});
    const RTClassType& derived = types.classType({}, &base);
    TypeEncodings encodings;
    EXPECT_EQ(encodings.of(types.alias(&derived)), ENCODING_4_STATE);
    EXPECT_EQ(encodings.of(derived), ENCODING_4_STATE);
    EXPECT_EQ(derived.getValueEncoding(),
              ENCODING_4_STATE); // The first question, which leaves one.
    EXPECT_EQ(derived.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(encodings.of(derived), ENCODING_4_STATE);
}

TEST(TypeEncodings, TakeAMissingMemberForNotTwoState) {
    TypeGraph types;
    TypeEncodings encodings;
    EXPECT_EQ(encodings.of(types.structure({nullptr})), ENCODING_4_STATE);
    EXPECT_EQ(encodings.of(types.structure()), ENCODING_2_STATE);
    EXPECT_EQ(encodings.of(types.alias(nullptr)), ENCODING_BYTE);
}

TEST(TypeEncodings, OfAWholeTableTakeTimeInProportionToIt) {
    constexpr std::size_t CLASSES = 200000;
    TypeGraph types;
    std::vector<RTClassType*> ring;
    for (std::size_t i = 0; i < CLASSES; ++i)
        ring.push_back(&types.classType());
    for (std::size_t i = 0; i < CLASSES; ++i)
        ring[i]->m_memberTypes = {ring[(i + 1) % CLASSES], ring[0]};
    TypeEncodings encodings;
    const std::clock_t begin = std::clock();
    for (const RTClassType* type : ring)
        ASSERT_EQ(encodings.of(*type), ENCODING_2_STATE);
    EXPECT_LT(std::clock() - begin, 20 * CLOCKS_PER_SEC); // A search for each takes hours.
}

} // namespace
