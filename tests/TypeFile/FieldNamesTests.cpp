// The names of fields in words.

#include "TypeFile/FieldNames.h"

#include <gtest/gtest.h>

namespace {

using TypeFile::fieldWords;

TEST(FieldWords, AreTheWordsOfTheName) {
    EXPECT_EQ(fieldWords("flavour"), "flavour");
    EXPECT_EQ(fieldWords("dataType"), "data type");
    EXPECT_EQ(fieldWords("addressTableOffset"), "address table offset");
    EXPECT_EQ(fieldWords(""), "");
}

TEST(FieldWords, WriteAbbreviationsOut) {
    EXPECT_EQ(fieldWords("svTypeId"), "SV type id");
    EXPECT_EQ(fieldWords("refType"), "referenced type");
    EXPECT_EQ(fieldWords("range.si"), "range.start index");
    EXPECT_EQ(fieldWords("members[2].constraints[0].ei"), "members[2].constraints[0].end index");
    EXPECT_EQ(fieldWords("dir"), "direction");
    EXPECT_EQ(fieldWords("direction"), "direction");
}

TEST(FieldWords, OfAWayKeepItsDotsAndIndexes) {
    EXPECT_EQ(fieldWords("members[12].constraintCount"), "members[12].constraint count");
    EXPECT_EQ(fieldWords("indexTypes[0]"), "index types[0]");
}

} // namespace
