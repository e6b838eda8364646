// Queries over types that are linked at random agree with plain recursion over every path, and
// types that are large or deep are answered at once.

#include "RTTI/ConstraintStack.h"
#include "support/BuildKind.h"
#include "support/StraightforwardModel.h"
#include "support/TypeGraph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <numeric>
#include <random>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Stack = Brakel_tolv::ConstraintStack<FullConstraints>;

constexpr unsigned int graphs = 5000;
constexpr std::size_t stepLimit = 20000;

/// The indices of a graph's types, each one `rounds` times, in random order.
std::vector<std::size_t> questions(const TypeGraph& types, int rounds, std::mt19937& random) {
    std::vector<std::size_t> order;
    for (int round = 0; round < rounds; ++round) {
        std::vector<std::size_t> indices(types.size());
        std::iota(indices.begin(), indices.end(), std::size_t{0});
        std::shuffle(indices.begin(), indices.end(), random);
        order.insert(order.end(), indices.begin(), indices.end());
    }
    return order;
}

Ranges rangesOf(const RTBaseType& type) {
    Stack stack;
    Ranges out;
    type.populateTypeConstraints(stack, out);
    return out;
}

TEST(RandomTypeGraphs, EncodingsAgreeWithPlainRecursionKeptMarksIncluded) {
    unsigned int compared = 0;
    std::size_t keptMarks = 0;
    std::size_t twoStateAggregates = 0;
    for (unsigned int seed = 0; compared < graphs; ++seed) {
        std::mt19937 random(seed);
        const TypeGraph types = randomGraph(random);
        const std::vector<std::size_t> order = questions(types, 3, random);
        EncodingModel model(stepLimit);
        std::vector<ValueEncoding> expected;
        try {
            for (const std::size_t index : order)
                expected.push_back(model.ask(types[index]));
        } catch (const TooManySteps&) {
            continue;
        }
        for (std::size_t i = 0; i < order.size(); ++i) {
            const RTBaseType& type = types[order[i]];
            ASSERT_EQ(type.getValueEncoding(), expected[i])
                << "seed " << seed << ", question " << i << ", type " << order[i];
            const bool isAggregate = dynamic_cast<const RTAggregateType*>(&type) != nullptr;
            twoStateAggregates += isAggregate && expected[i] == ENCODING_2_STATE ? 1 : 0;
        }
        keptMarks += model.keptMarks();
        ++compared;
        ASSERT_LT(seed, graphs + graphs / 10) << "too many graphs take too many steps";
    }
    EXPECT_GT(keptMarks, 500U);
    EXPECT_GT(twoStateAggregates, 5000U);
}

TEST(RandomTypeGraphs, ConstraintsAgreeWithPlainRecursion) {
    unsigned int compared = 0;
    std::size_t entries = 0;
    for (unsigned int seed = 0; compared < graphs; ++seed) {
        std::mt19937 random(seed);
        const TypeGraph types = randomGraph(random);
        std::vector<Ranges> expected;
        try {
            for (std::size_t i = 0; i < types.size(); ++i) {
                ConstraintModel model(stepLimit);
                model.walk(&types[i]);
                expected.push_back(model.output());
            }
        } catch (const TooManySteps&) {
            continue;
        }
        for (const std::size_t i : questions(types, 2, random)) {
            ASSERT_EQ(triples(rangesOf(types[i])), triples(expected[i]))
                << "seed " << seed << ", type " << i;
            entries += expected[i].size();
        }
        ++compared;
        ASSERT_LT(seed, graphs + graphs / 10) << "too many graphs take too many steps";
    }
    EXPECT_GT(entries, 10000U);
}

TEST(RandomTypeGraphs, ConstraintsBelowOtherLevelsAgreeWithPlainRecursion) {
    unsigned int compared = 0;
    for (unsigned int seed = 0; compared < graphs; ++seed) {
        std::mt19937 random(seed);
        const TypeGraph types = randomGraph(random);
        const RTBaseType& type = types[random() % types.size()];
        ConstraintModel model(stepLimit);
        Stack stack;
        for (int level = 0; level < 2; ++level) {
            const Ranges ranges = randomRanges(random);
            model.push(ranges);
            stack.push(ranges);
        }
        try {
            model.walk(&type);
        } catch (const TooManySteps&) {
            continue;
        }
        Ranges out;
        type.populateTypeConstraints(stack, out);
        ASSERT_EQ(triples(out), triples(model.output())) << "seed " << seed;
        for (int i = 0; i < 7; ++i) // The two levels hold no more than six entries.
            ASSERT_EQ(triples({stack.getConstraint()}), triples({model.next()})) << "seed " << seed;
        ++compared;
        ASSERT_LT(seed, graphs + graphs / 10) << "too many graphs take too many steps";
    }
}

/// Checks that the rest of a case takes less than a second of processor time (ten where nothing is
/// optimised): far more than one look at each type takes, far less than one look along each path.
class EndsAtOnce {
public:
    EndsAtOnce() = default;
    EndsAtOnce(const EndsAtOnce&) = delete;
    EndsAtOnce& operator=(const EndsAtOnce&) = delete;
    ~EndsAtOnce() { EXPECT_LT(std::clock() - m_start, CLOCKS_PER_SEC * (IS_OPTIMISED ? 1 : 10)); }

private:
    std::clock_t m_start = std::clock();
};

/// Each class has two members of the class before it; the first has one member of `bottom`.
const RTClassType& classLadder(TypeGraph& types, int levels, const RTBaseType* bottom) {
    const RTClassType* type = &types.classType({bottom});
    for (int level = 1; level < levels; ++level)
        type = &types.classType({type, type});
    return *type;
}

const RTRecordType& structLadder(TypeGraph& types, int levels, const RTBaseType* bottom) {
    const RTRecordType* type = &types.structure({bottom});
    for (int level = 1; level < levels; ++level)
        type = &types.structure({type, type});
    return *type;
}

TEST(Ladders, EncodingOfFortyClassesEndsAtOnce) {
    TypeGraph types;
    const EndsAtOnce clock;
    const auto& bit = types.seqEnum(ENCODING_2_STATE);
    EXPECT_EQ(classLadder(types, 40, &bit).getValueEncoding(), ENCODING_2_STATE);
}

TEST(Ladders, EncodingOfFortyStructsEndsAtOnce) {
    TypeGraph types;
    const EndsAtOnce clock;
    const auto& bit = types.seqEnum(ENCODING_2_STATE);
    EXPECT_EQ(structLadder(types, 40, &bit).getValueEncoding(), ENCODING_2_STATE);
}

TEST(Ladders, ConstraintsOfFortyClassesWithoutArraysEndAtOnce) {
    TypeGraph types;
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(classLadder(types, 40, &types.add<RTIntType>())).empty());
}

TEST(Ladders, ConstraintsOfFortyStructsWithoutArraysEndAtOnce) {
    TypeGraph types;
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(structLadder(types, 40, &types.add<RTIntType>())).empty());
}

TEST(Ladders, ArrayBelowTwelveClassesIsGivenOnceForEachPath) {
    TypeGraph types;
    const auto& array = types.array(&types.add<RTIntType>(), {{0, 7, 1}});
    const Ranges expected(2048, {0, 7, 1}); // Eleven levels have two members of the next.
    EXPECT_EQ(triples(rangesOf(classLadder(types, 12, &array))), triples(expected));
}

TEST(Ladders, ArraysOnEveryLevelComeInTheOrderOfTheMembers) {
    // Level n: one below, array n, one below. The array at place i is that of the level that is
    // the number of times that two divides i.
    TypeGraph types;
    const RTClassType* type = nullptr;
    for (int level = 0; level < 12; ++level) {
        const auto* array = &types.array(&types.add<RTIntType>(), {{level, 0, 0}});
        type = level == 0 ? &types.classType({array}) : &types.classType({type, array, type});
    }
    Ranges expected;
    for (int place = 1; place < 4096; ++place) {
        int level = 0;
        for (int rest = place; rest % 2 == 0; rest /= 2)
            ++level;
        expected.push_back({level, 0, 0});
    }
    EXPECT_EQ(triples(rangesOf(*type)), triples(expected));
}

TEST(Wide, EncodingOfAStructToWhichAllItsClassesLeadBackEndsAtOnce) {
    TypeGraph types;
    auto& structure = types.structure();
    addMember(structure, &types.seqEnum(ENCODING_2_STATE));
    for (int i = 0; i < 30000; ++i)
        addMember(structure, &types.classType({&structure}));
    const EndsAtOnce clock;
    EXPECT_EQ(structure.getValueEncoding(), ENCODING_2_STATE);
    addMember(structure, &types.seqEnum(ENCODING_4_STATE));
    EXPECT_EQ(structure.getValueEncoding(), ENCODING_4_STATE);
}

constexpr int chainLength = 100000;

const RTBaseType& classChain(TypeGraph& types, const RTBaseType* end) {
    for (int i = 0; i < chainLength; ++i)
        end = &types.classType({end});
    return *end;
}

const RTTypedefType& typedefChain(TypeGraph& types, const RTBaseType* end, const Ranges& ranges) {
    const RTTypedefType* type = &types.alias(end, ranges);
    for (int i = 1; i < chainLength; ++i)
        type = &types.alias(type, ranges);
    return *type;
}

TEST(Wide, EncodingOfAStructWhoseMembersShareOneTypedefChainEndsAtOnce) {
    TypeGraph types;
    const auto& head = typedefChain(types, &types.seqEnum(ENCODING_2_STATE), {}); // From type 1 on.
    auto& structure = types.structure({&head});
    for (std::size_t i = 1; i <= chainLength; ++i) // Each into the chain at another place.
        addMember(structure, &types[i]);
    const EndsAtOnce clock;
    EXPECT_EQ(structure.getValueEncoding(), ENCODING_2_STATE);
}

TEST(Chains, EncodingOfClassesDoesNotUseUpTheCallStack) {
    TypeGraph types;
    EXPECT_EQ(classChain(types, &types.seqEnum(ENCODING_2_STATE)).getValueEncoding(),
              ENCODING_2_STATE);
    EXPECT_EQ(classChain(types, &types.seqEnum(ENCODING_4_STATE)).getValueEncoding(),
              ENCODING_4_STATE);
}

TEST(Chains, EncodingOfBaseClassesDoesNotUseUpTheCallStack) {
    TypeGraph types;
    const RTBaseType* type = &types.classType({&types.seqEnum(ENCODING_4_STATE)});
    for (int i = 0; i < chainLength; ++i)
        type = &types.classType({}, type);
    EXPECT_EQ(type->getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(type->getValueEncoding(), ENCODING_2_STATE);
}

TEST(Chains, ConstraintsOfClassesDoNotUseUpTheCallStack) {
    TypeGraph types;
    const auto& array = types.array(&types.add<RTIntType>(), {{0, 7, 1}, OPEN});
    EXPECT_EQ(triples(rangesOf(classChain(types, &array))), triples({{0, 7, 1}, {0, 0, 0}}));
}

TEST(Chains, ConstraintsOfTypedefsDoNotUseUpTheCallStack) {
    TypeGraph types;
    const auto& array = types.array(&types.add<RTIntType>(), {OPEN});
    const auto& inner = typedefChain(types, &array, {OPEN});
    EXPECT_EQ(triples(rangesOf(types.alias(&inner, {{3, 0, 0}}))), triples({{3, 0, 0}}));
}

TEST(Chains, TypedefsAnswerForTheTypeAtTheirEnd) {
    TypeGraph types;
    auto& number = types.add<RTQueueType>();
    number.setSVTypeId(12);
    number.m_flags = 0x10;
    const auto& type = typedefChain(types, &number, {});
    EXPECT_EQ(type.getSelf(false), &number);
    EXPECT_EQ(type.getSVTypeId(), 12);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

} // namespace
