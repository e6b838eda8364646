// Every query over chains of a million types, on the smallest stack that there is.

#include "RTTI/ConstraintPopulation.h"
#include "RTTI/ConstraintStack.h"
#include "tests/support/BuildKind.h"
#include "tests/support/RunOnStack.h"
#include "tests/support/TypeGraph.h"

#include <gtest/gtest.h>

#include <iterator>
#include <ostream>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;

/// Links of a chain. Under sanitizers a million take half a minute each.
constexpr std::size_t CHAIN = HAS_SANITIZERS ? 100000 : 1000000;

/// A chain, and what its first type answers. At its end is a "2-State" array of range 0 to 7.
struct Style {
    const char* name;
    const RTBaseType* (*link)(TypeGraph& types, const RTBaseType* next, std::size_t index);
    ValueEncoding encoding;
    std::size_t ranges;     ///< Of the links, and that of the array where it comes through.
    std::size_t dimensions; ///< Of a queue of the chain.
};

void PrintTo(const Style& style, std::ostream* out) { *out << style.name; }

const RTBaseType* addAlias(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.alias(next, {OPEN});
}
const RTBaseType* addEnum(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.discreteEnum(next, {OPEN});
}
const RTBaseType* addArray(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {{0, 3, 1}});
}
const RTBaseType* addOpenArray(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {OPEN});
}
const RTBaseType* addArrayWithoutRanges(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.array(VLOG_FIXED_UNPACKED_ARRAY, next, 1, {});
}
const RTBaseType* addQueue(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.container<RTQueueType>(next);
}
const RTBaseType* addAccess(TypeGraph& types, const RTBaseType* next, std::size_t) {
    auto& access = types.add<RTAccessType>();
    access.m_refType = next;
    return &access;
}
const RTBaseType* addStruct(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.structure({next});
}
const RTBaseType* addClass(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.classType({next});
}
const RTBaseType* addDerived(TypeGraph& types, const RTBaseType* next, std::size_t) {
    return &types.classType({}, next);
}
const RTBaseType* addMixed(TypeGraph& types, const RTBaseType* next, std::size_t index) {
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

    void checkRanges() const {
        Brakel_tolv::ConstraintStack<FullConstraints> stack;
        Ranges ranges;
        m_first->populateTypeConstraints(stack, ranges);
        EXPECT_EQ(ranges.size(), GetParam().ranges);
        EXPECT_TRUE(ranges.empty() || ranges.back().ei == 7);
        EXPECT_EQ(populateTypeConstraints(*m_first, 0).isComplete, ranges.empty());
    }

    TypeGraph m_types;
    const RTBaseType* m_first =
        &m_types.array(VLOG_FIXED_PACKED_ARRAY, &m_types.seqEnum(ENCODING_2_STATE), 1, {{0, 7, 1}});
};

TEST_P(QueriesOfAMillion, AreAnsweredOnASmallStack) {
    const auto& queue = m_types.container<RTQueueType>(m_first);
    runOnStack(smallStack(), [&] {
        EXPECT_EQ(m_first->getValueEncoding(), GetParam().encoding);
        const bool isAlias = m_first->GetClassId() == ClassId::TYPEDEF;
        EXPECT_EQ(m_first->getSelf(true), m_first);
        EXPECT_EQ(m_first->getSelf(false) == m_first, !isAlias);
        EXPECT_EQ(m_first->getSVTypeId(), -99);
        EXPECT_EQ(m_first->getValueSize(), 0U);
        EXPECT_EQ(queue.getTotalNumDimensions(false), GetParam().dimensions);
        checkRanges();
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
