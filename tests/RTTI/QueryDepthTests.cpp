// Every query over chains of a million types, on the smallest stack that there is.

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/BuildKind.h"
#include "tests/support/LinkedTypes.h"
#include "tests/support/RunOnStack.h"

#include <gtest/gtest.h>

#include <iterator>
#include <ostream>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;

/// Links of a chain. Under sanitizers a million take half a minute each.
constexpr std::size_t CHAIN = IS_SLOW ? 100000 : 1000000;

/// A chain, and what its first type answers. At its end is a "2-State" array of range 0 to 7.
struct Style {
    const char* name;
    unsigned int (*link)(LinkedTypes& types, unsigned int next, std::size_t index);
    ValueEncoding encoding;
    std::size_t ranges;     ///< Of the links, and that of the array where it comes through.
    std::size_t dimensions; ///< Of a queue of the chain.
};

void PrintTo(const Style& style, std::ostream* out) { *out << style.name; }

unsigned int addAlias(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.alias(next, {OPEN});
}
unsigned int addEnum(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.discreteEnum(next, {OPEN});
}
unsigned int addArray(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {{0, 3, 1}});
}
unsigned int addOpenArray(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {OPEN});
}
unsigned int addArrayWithoutRanges(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {});
}
unsigned int addQueue(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.container<RTQueueType>(next);
}
unsigned int addAccess(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.access("", next);
}
unsigned int addStruct(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.structure({next});
}
unsigned int addClass(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.classType({next});
}
unsigned int addDerived(LinkedTypes& types, unsigned int next, std::size_t) {
    return types.classType({}, next);
}
unsigned int addMixed(LinkedTypes& types, unsigned int next, std::size_t index) {
    static constexpr decltype(Style::link) links[] = {addAlias,  addEnum,  addArrayWithoutRanges,
                                                      addStruct, addClass, addDerived};
    return links[index % std::size(links)](types, next, index);
}

class QueriesOfAMillion : public testing::TestWithParam<Style> {
protected:
    QueriesOfAMillion() {
        for (std::size_t i = 0; i < CHAIN; ++i)
            m_first = GetParam().link(m_types, m_first, i);
    }

    void checkRanges(const RTBaseType& first) const {
        Brakel_tolv::ConstraintStack<FullConstraints> stack;
        Ranges ranges;
        first.populateTypeConstraints(stack, ranges);
        EXPECT_EQ(ranges.size(), GetParam().ranges);
        EXPECT_TRUE(ranges.empty() || ranges.back().ei == 7);
        EXPECT_EQ(populateTypeConstraints(first, 0).isComplete, ranges.empty());
    }

    LinkedTypes m_types;
    const unsigned int m_array = m_types.packed(m_types.seqEnum(ENCODING_2_STATE), {{0, 7, 1}});
    unsigned int m_first = m_array;
};

TEST_P(QueriesOfAMillion, AreAnsweredOnASmallStack) {
    const auto& queue = m_types.as<RTQueueType>(m_types.queue(m_first));
    const RTBaseType& first = m_types[m_first];
    const RTBaseType& array = m_types[m_array];
    runOnStack(smallStack(), [&] {
        EXPECT_EQ(first.getValueEncoding(), GetParam().encoding);
        const bool isAlias = first.GetClassId() == ClassId::TYPEDEF;
        EXPECT_EQ(first.getSelf(true), &first);
        EXPECT_EQ(first.getSelf(false), isAlias ? &array : &first);
        EXPECT_EQ(first.getSVTypeId(), -99);
        EXPECT_EQ(first.getValueSize(), 0U);
        EXPECT_EQ(queue.getTotalNumDimensions(false), GetParam().dimensions);
        const bool isEnum = first.GetClassId() == ClassId::DISCRETE_ENUM;
        EXPECT_EQ(queue.getTotalNumDimensions(true), isEnum ? 1 : GetParam().dimensions);
        checkRanges(first);
    });
}

INSTANTIATE_TEST_SUITE_P(
    Chains, QueriesOfAMillion,
    testing::Values(Style{"Typedefs", addAlias, ENCODING_2_STATE, 1, 2},
                    Style{"DiscreteEnums", addEnum, ENCODING_2_STATE, 1, 2},
                    Style{"Arrays", addArray, ENCODING_2_STATE, CHAIN + 1, CHAIN + 2},
                    Style{"OpenArrays", addOpenArray, ENCODING_2_STATE, CHAIN + 1, CHAIN + 2},
                    Style{"ArraysWithoutRanges", addArrayWithoutRanges, ENCODING_2_STATE, CHAIN + 1,
                          CHAIN + 2},
                    Style{"Queues", addQueue, ENCODING_BYTE, 0, CHAIN + 2},
                    Style{"AccessTypes", addAccess, ENCODING_BYTE, 0, 1},
                    Style{"Structs", addStruct, ENCODING_2_STATE, 1, 1},
                    Style{"Classes", addClass, ENCODING_2_STATE, 1, 1},
                    Style{"BaseClasses", addDerived, ENCODING_2_STATE, 1, 1},
                    Style{"Mixed", addMixed, ENCODING_2_STATE, (CHAIN + 3) / 6 + 1, 1}),
    [](const testing::TestParamInfo<Style>& test) { return std::string(test.param.name); });

} // namespace
