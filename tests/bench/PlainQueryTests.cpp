#include "RTTI/RTType.h"
#include "bench/PlainQueries.h"
#include "bench/TypeStorage.h"
#include "bench/Work.h"

#include <gtest/gtest.h>

namespace {

using namespace Bench;

TEST(PlainQueries, AnswerForGeneratedTablesAsTheLibraryDoes) {
    TypeStorage table(20000);
    std::size_t ranges = 0;
    std::size_t twoState = 0;
    for (const RTTI::RTBaseType* type : table.types()) {
        const RTTI::ValueEncoding encoding = plainEncodingOf(*type);
        EXPECT_EQ(encoding, type->getValueEncoding());
        EXPECT_EQ(plainRangesOf(*type), rangesOf(*type));
        twoState += encoding == RTTI::ENCODING_2_STATE ? 1 : 0;
        ranges += plainRangesOf(*type);
    }
    EXPECT_NE(twoState, 0);
    EXPECT_NE(ranges, 0);
}

TEST(PlainQueries, ComeToTheBaseClass) {
    RTTI::RTArrayType array;
    array.m_indexTypeIds = {0};
    array.m_constraints = {{7, 0, 0}};
    RTTI::RTClassType base;
    base.m_memberTypes = {&array};
    RTTI::RTClassType derived;
    derived.m_baseClass = &base;
    EXPECT_EQ(plainRangesOf(derived), 1);
    EXPECT_EQ(plainEncodingOf(derived), RTTI::ENCODING_4_STATE);
}

} // namespace
