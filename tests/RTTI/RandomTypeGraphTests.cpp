// Queries over types that are linked at random agree with plain recursion over every path, and
// types that are large or deep are answered at once.

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/BuildKind.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RandomTypes.h"
#include "tests/support/StraightforwardModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <numeric>
#include <random>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;
using Stack = Brakel_tolv::ConstraintStack<FullConstraints>;

constexpr std::size_t stepLimit = 20000;

/// Graphs for each property: 5000, or what RTTI_RANDOM_GRAPHS says.
unsigned int graphs() {
    static const unsigned int count = [] {
        const char* const wanted = std::getenv("RTTI_RANDOM_GRAPHS");
        return wanted != nullptr ? static_cast<unsigned int>(std::stoul(wanted)) : 5000U;
    }();
    return count;
}

/// The ids of a graph's types, each one `rounds` times, in random order.
LinkedTypes::Ids questions(const LinkedTypes& types, int rounds, std::mt19937& random) {
    LinkedTypes::Ids order;
    for (int round = 0; round < rounds; ++round) {
        LinkedTypes::Ids ids(types.size());
        std::iota(ids.begin(), ids.end(), 0U);
        std::shuffle(ids.begin(), ids.end(), random);
        order.insert(order.end(), ids.begin(), ids.end());
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
    for (unsigned int seed = 0; compared < graphs(); ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = randomTypes(random);
        const LinkedTypes::Ids order = questions(types, 3, random);
        EncodingModel model(stepLimit);
        std::vector<ValueEncoding> expected;
        try {
            for (const unsigned int id : order)
                expected.push_back(model.ask(types[id]));
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
        ASSERT_LT(seed, graphs() + graphs() / 10) << "too many graphs take too many steps";
    }
    EXPECT_GT(keptMarks, graphs() / 10);
    EXPECT_GT(twoStateAggregates, graphs());
}

TEST(RandomTypeGraphs, ConstraintsAgreeWithPlainRecursion) {
    unsigned int compared = 0;
    std::size_t entries = 0;
    for (unsigned int seed = 0; compared < graphs(); ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = randomTypes(random);
        std::vector<Ranges> expected;
        try {
            for (unsigned int id = 0; id < types.size(); ++id) {
                ConstraintModel model(stepLimit);
                model.walk(&types[id]);
                expected.push_back(model.output());
            }
        } catch (const TooManySteps&) {
            continue;
        }
        for (const unsigned int id : questions(types, 2, random)) {
            ASSERT_EQ(numbersOf(rangesOf(types[id])), numbersOf(expected[id]))
                << "seed " << seed << ", type " << id;
            entries += expected[id].size();
        }
        ++compared;
        ASSERT_LT(seed, graphs() + graphs() / 10) << "too many graphs take too many steps";
    }
    EXPECT_GT(entries, 2 * graphs());
}

TEST(RandomTypeGraphs, ConstraintsBelowOtherLevelsAgreeWithPlainRecursion) {
    unsigned int compared = 0;
    for (unsigned int seed = 0; compared < graphs(); ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = randomTypes(random);
        const RTBaseType& type = types[randomId(types, random)];
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
        ASSERT_EQ(numbersOf(out), numbersOf(model.output())) << "seed " << seed;
        for (int i = 0; i < 7; ++i) // The two levels hold no more than six entries.
            ASSERT_EQ(numbersOf({stack.getConstraint()}), numbersOf({model.next()}))
                << "seed " << seed;
        ++compared;
        ASSERT_LT(seed, graphs() + graphs() / 10) << "too many graphs take too many steps";
    }
}

TEST(RandomTypeGraphs, BoundedWalksEndAtTheStepThatPlainRecursionCounts) {
    unsigned int compared = 0;
    unsigned int cutOff = 0;
    for (unsigned int seed = 0; compared < graphs(); ++seed) {
        std::mt19937 random(seed);
        const LinkedTypes types = randomTypes(random);
        const RTBaseType& type = types[randomId(types, random)];
        ConstraintModel model(stepLimit);
        try {
            model.walk(&type);
        } catch (const TooManySteps&) {
            continue;
        }
        const std::size_t steps = model.output().size() + model.fruitfulVisits();
        const PopulatedConstraints whole = populateTypeConstraints(type, steps);
        ASSERT_TRUE(whole.isComplete) << "seed " << seed;
        ASSERT_EQ(numbersOf(whole.ranges), numbersOf(model.output())) << "seed " << seed;
        if (steps != 0) {
            const PopulatedConstraints beginning = populateTypeConstraints(type, steps - 1);
            ASSERT_FALSE(beginning.isComplete) << "seed " << seed;
            const Ranges expected(model.output().begin(),
                                  model.output().begin() +
                                      static_cast<std::ptrdiff_t>(beginning.ranges.size()));
            ASSERT_EQ(numbersOf(beginning.ranges), numbersOf(expected)) << "seed " << seed;
            ++cutOff;
        }
        ++compared;
        ASSERT_LT(seed, graphs() + graphs() / 10) << "too many graphs take too many steps";
    }
    EXPECT_GT(cutOff, graphs() / 10);
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
unsigned int classLadder(LinkedTypes& types, int levels, unsigned int bottom) {
    unsigned int type = types.classType({bottom});
    for (int level = 1; level < levels; ++level)
        type = types.classType({type, type});
    return type;
}

unsigned int structLadder(LinkedTypes& types, int levels, unsigned int bottom) {
    unsigned int type = types.structure({bottom});
    for (int level = 1; level < levels; ++level)
        type = types.structure({type, type});
    return type;
}

TEST(Ladders, EncodingOfFortyClassesEndsAtOnce) {
    LinkedTypes types;
    const EndsAtOnce clock;
    const auto bit = types.seqEnum(ENCODING_2_STATE);
    EXPECT_EQ(types[classLadder(types, 40, bit)].getValueEncoding(), ENCODING_2_STATE);
}

TEST(Ladders, EncodingOfFortyStructsEndsAtOnce) {
    LinkedTypes types;
    const EndsAtOnce clock;
    const auto bit = types.seqEnum(ENCODING_2_STATE);
    EXPECT_EQ(types[structLadder(types, 40, bit)].getValueEncoding(), ENCODING_2_STATE);
}

TEST(Ladders, ConstraintsOfFortyClassesWithoutArraysEndAtOnce) {
    LinkedTypes types;
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(types[classLadder(types, 40, types.integer())]).empty());
}

TEST(Ladders, ConstraintsOfFortyStructsWithoutArraysEndAtOnce) {
    LinkedTypes types;
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(types[structLadder(types, 40, types.integer())]).empty());
}

TEST(Ladders, ConstraintsOfThousandLevelsOfClassesWithStructsOfThemselvesEndAtOnce) {
    // Each class: a struct that holds itself, the next class, a class of such a struct, the next
    // class again. No way leads to an array.
    LinkedTypes types;
    const auto selfHolding = [&types] {
        const auto structure = types.structure();
        types.addMember(structure, structure);
        return structure;
    };
    unsigned int type = types.classType();
    for (int level = 0; level < 1000; ++level)
        type = types.classType({selfHolding(), type, types.classType({selfHolding()}), type});
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(types[type]).empty());
    const PopulatedConstraints bounded = populateTypeConstraints(types[type], 1);
    EXPECT_TRUE(bounded.isComplete);
}

TEST(Ladders, ConstraintsOfStructsAndClassesThatAllLeadBackEndAtOnce) {
    // Twenty structs and twenty classes, each with members of all of them: the paths without a
    // repetition are more than 20! many.
    LinkedTypes types;
    LinkedTypes::Ids structures, classes;
    for (int i = 0; i < 20; ++i) {
        structures.push_back(types.structure());
        classes.push_back(types.classType());
    }
    for (std::size_t i = 0; i < 20; ++i) {
        for (std::size_t j = 0; j < 20; ++j) {
            types.addMember(structures[i], structures[j]);
            types.addMember(structures[i], classes[j]);
            types.addMember(classes[i], structures[j]);
            types.addMember(classes[i], classes[j]);
        }
    }
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(types[structures[0]]).empty());
    EXPECT_TRUE(rangesOf(types[classes[0]]).empty());
    EXPECT_EQ(types[structures[0]].getValueEncoding(), ENCODING_2_STATE);
}

TEST(Ladders, RangesBehindAClassWhoseStructHeldAnotherClassBeforeAreGivenBothTimes) {
    // outer {inner, holder, second}; inner {outer, leaf}; holder derives from an array of second;
    // second {inner}. Behind `second`, `inner` leads back to `outer` and from there to the array,
    // although the paths through it ended at `outer` before, and a class was entered since.
    LinkedTypes types;
    const auto outer = types.structure();
    const auto inner = types.structure({outer, types.classType()});
    const auto second = types.classType({inner});
    const auto array = types.vhdlArray(second, {{0, 7, 1}});
    const auto holder = types.classType({second}, array);
    types.addMember(outer, inner);
    types.addMember(outer, holder);
    types.addMember(outer, second);
    EXPECT_EQ(numbersOf(rangesOf(types[outer])), numbersOf({{0, 7, 1}, {0, 7, 1}}));
}

TEST(Ladders, ArrayBelowTwelveClassesIsGivenOnceForEachPath) {
    LinkedTypes types;
    const auto array = types.vhdlArray(types.integer(), {{0, 7, 1}});
    const Ranges expected(2048, {0, 7, 1}); // Eleven levels have two members of the next.
    EXPECT_EQ(numbersOf(rangesOf(types[classLadder(types, 12, array)])), numbersOf(expected));
}

TEST(Ladders, ArraysOnEveryLevelComeInTheOrderOfTheMembers) {
    // Level n: one below, array n, one below. The array at place i is that of the level that is
    // the number of times that two divides i.
    LinkedTypes types;
    unsigned int type = NO_TYPE_ID;
    for (int level = 0; level < 12; ++level) {
        const auto array = types.vhdlArray(types.integer(), {{level, 0, 0}});
        type = level == 0 ? types.classType({array}) : types.classType({type, array, type});
    }
    Ranges expected;
    for (int place = 1; place < 4096; ++place) {
        int level = 0;
        for (int rest = place; rest % 2 == 0; rest /= 2)
            ++level;
        expected.push_back({level, 0, 0});
    }
    EXPECT_EQ(numbersOf(rangesOf(types[type])), numbersOf(expected));
}

TEST(Wide, EncodingOfAStructToWhichAllItsClassesLeadBackEndsAtOnce) {
    LinkedTypes types;
    const auto structure = types.structure();
    types.addMember(structure, types.seqEnum(ENCODING_2_STATE));
    for (int i = 0; i < 30000; ++i)
        types.addMember(structure, types.classType({structure}));
    const EndsAtOnce clock;
    EXPECT_EQ(types[structure].getValueEncoding(), ENCODING_2_STATE);
    types.addMember(structure, types.seqEnum(ENCODING_4_STATE));
    EXPECT_EQ(types[structure].getValueEncoding(), ENCODING_4_STATE);
}

TEST(Wide, ConstraintsOfAStructToWhichAllItsClassesLeadBackEndAtOnce) {
    LinkedTypes types;
    const auto structure = types.structure();
    for (int i = 0; i < 10000; ++i)
        types.addMember(structure, types.classType({types.string(), structure}));
    const EndsAtOnce clock;
    EXPECT_TRUE(rangesOf(types[structure]).empty());
    EXPECT_TRUE(populateTypeConstraints(types[structure], 1).isComplete);
    EXPECT_TRUE(rangesOf(types[types.vhdlArray(structure, {{0, 1, 1}})]).size() == 1);
}

TEST(Wide, ConstraintsBehindManyFruitlessClassesAreGiven) {
    // The last class has an array; what is around it gives ranges then, and what is beside it none.
    LinkedTypes types;
    const auto structure = types.structure();
    for (int i = 0; i < 3000; ++i)
        types.addMember(structure, types.classType({types.structure()}));
    types.addMember(structure, types.classType({types.vhdlArray(types.integer(), {{7, 0, 0}})}));
    const auto outer = types.structure({structure, structure});
    const EndsAtOnce clock;
    EXPECT_EQ(numbersOf(rangesOf(types[outer])), numbersOf({{7, 0, 0}, {7, 0, 0}}));
}

TEST(Wide, BoundedConstraintsEndWhereTooManyPartsArePassedBy) {
    // No way through the struct leads anywhere but to the outermost class, which is on the path; so
    // each struct on it passes by all classes.
    LinkedTypes types;
    const auto structure = types.structure();
    const auto outer = types.classType({structure});
    types.addMember(outer, types.vhdlArray(types.integer(), {{7, 0, 0}}));
    for (int i = 0; i < 1000; ++i)
        types.addMember(structure, types.classType({structure, outer}));
    const EndsAtOnce clock;
    EXPECT_FALSE(populateTypeConstraints(types[outer], 10).isComplete);
    const PopulatedConstraints whole = populateTypeConstraints(types[outer], 1000000);
    EXPECT_TRUE(whole.isComplete);
    EXPECT_EQ(numbersOf(whole.ranges), numbersOf({{7, 0, 0}}));
}

constexpr int chainLength = 100000;

unsigned int classChain(LinkedTypes& types, unsigned int end) {
    for (int i = 0; i < chainLength; ++i)
        end = types.classType({end});
    return end;
}

unsigned int typedefChain(LinkedTypes& types, unsigned int end, const Ranges& ranges) {
    unsigned int type = types.alias(end, ranges);
    for (int i = 1; i < chainLength; ++i)
        type = types.alias(type, ranges);
    return type;
}

TEST(Wide, EncodingOfAStructWhoseMembersShareOneTypedefChainEndsAtOnce) {
    LinkedTypes types;
    const auto head = typedefChain(types, types.seqEnum(ENCODING_2_STATE), {}); // From type 1 on.
    const auto structure = types.structure({head});
    for (unsigned int id = 1; id <= chainLength; ++id) // Each into the chain at another place.
        types.addMember(structure, id);
    const EndsAtOnce clock;
    EXPECT_EQ(types[structure].getValueEncoding(), ENCODING_2_STATE);
}

TEST(Chains, EncodingOfClassesDoesNotUseUpTheCallStack) {
    LinkedTypes types;
    EXPECT_EQ(types[classChain(types, types.seqEnum(ENCODING_2_STATE))].getValueEncoding(),
              ENCODING_2_STATE);
    EXPECT_EQ(types[classChain(types, types.seqEnum(ENCODING_4_STATE))].getValueEncoding(),
              ENCODING_4_STATE);
}

TEST(Chains, EncodingOfBaseClassesDoesNotUseUpTheCallStack) {
    LinkedTypes types;
    unsigned int type = types.classType({types.seqEnum(ENCODING_4_STATE)});
    for (int i = 0; i < chainLength; ++i)
        type = types.classType({}, type);
    EXPECT_EQ(types[type].getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(types[type].getValueEncoding(), ENCODING_2_STATE);
}

TEST(Chains, ConstraintsOfClassesDoNotUseUpTheCallStack) {
    LinkedTypes types;
    const auto array = types.vhdlArray(types.integer(), {{0, 7, 1}, OPEN});
    EXPECT_EQ(numbersOf(rangesOf(types[classChain(types, array)])),
              numbersOf({{0, 7, 1}, {0, 0, 0}}));
}

TEST(Chains, ConstraintsOfTypedefsDoNotUseUpTheCallStack) {
    LinkedTypes types;
    const auto array = types.vhdlArray(types.integer(), {OPEN});
    const auto inner = typedefChain(types, array, {OPEN});
    EXPECT_EQ(numbersOf(rangesOf(types[types.alias(inner, {{3, 0, 0}})])), numbersOf({{3, 0, 0}}));
}

TEST(Chains, ArraysWithoutEntriesLeftAreNotAskedAgainForEachArrayBelow) {
    for (const Ranges& own : {Ranges{}, Ranges{OPEN}}) {
        LinkedTypes types;
        unsigned int type = types.integer();
        for (int i = 0; i < 1000000; ++i)
            type = types.array(VHDL_ARRAY, type, 1, own);
        const auto alias = types.alias(type, {{1, 2, 1}, {3, 4, 1}});
        const RTBaseType& outermost = types[alias];
        const EndsAtOnce clock;
        const Ranges ranges = rangesOf(outermost);
        ASSERT_EQ(ranges.size(), 1000000U);
        EXPECT_EQ(numbersOf({ranges[0], ranges[1], ranges[2], ranges.back()}),
                  numbersOf({{1, 2, 1}, {3, 4, 1}, {0, 0, 0}, {0, 0, 0}}));
    }
}

TEST(Chains, TypedefsAnswerForTheTypeAtTheirEnd) {
    LinkedTypes types;
    auto& number = types.add<RTQueueType>();
    number.setSVTypeId(12);
    number.m_flags = 0x10;
    const auto type = typedefChain(types, types.last(), {});
    EXPECT_EQ(types[type].getSelf(false), &number);
    EXPECT_EQ(types[type].getSVTypeId(), 12);
    EXPECT_EQ(types[type].getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

} // namespace
