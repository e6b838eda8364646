#include "bench/peers/ContentSum.h"
#include "bench/peers/LoadedTypes.h"
#include "tests/bench/SampleTypes.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Bench;

template <bool WithDetails> std::uint64_t sumOf(const SampleTypes& samples) {
    const std::vector<char> table = samples.table();
    ContentSum<WithDetails> content;
    LoadedTypes(table).visit(content);
    return content.sum();
}

TEST(ContentSum, CountsEveryField) {
    const std::uint64_t unchanged = sumOf<true>(SampleTypes());
    for (const FieldChange& change : changesOfEveryField()) {
        SampleTypes samples;
        change.make(samples);
        EXPECT_NE(sumOf<true>(samples), unchanged) << change.field;
    }
}

TEST(ContentSum, LeavesOutDetailsWhereAPeerHasNone) {
    SampleTypes samples;
    samples.array.m_svTypeId = 5;
    EXPECT_EQ(sumOf<false>(samples), sumOf<false>(SampleTypes()));
    samples.array.m_elementTypeId = 2;
    EXPECT_NE(sumOf<false>(samples), sumOf<false>(SampleTypes()));
}

TEST(ContentSum, CountsEveryByteOfANameOfAnyLength) {
    for (std::size_t length = 1; length <= 40; ++length) {
        const std::string name(length, 'a');
        ContentSum<true> unchanged;
        unchanged.name(name);
        for (std::size_t place = 0; place < length; ++place) {
            std::string other = name;
            other[place] = 'b';
            ContentSum<true> content;
            content.name(other);
            EXPECT_NE(content.sum(), unchanged.sum()) << place << " of " << length;
        }
    }
}

} // namespace
