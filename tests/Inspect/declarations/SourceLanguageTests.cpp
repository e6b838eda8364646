#include "Inspect/declarations/SourceLanguage.h"
#include "TypeFile/TypeBuilding.h"
#include "tests/support/LinkedTypes.h"

#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace RTTITest;
using namespace Inspect;

SourceLanguage languageIn(LinkedTypes& types, unsigned int id) {
    return languageOf(*types.table().typeOf(id));
}

constexpr SourceLanguage VHDL = SourceLanguage::VHDL;
constexpr SourceLanguage SV = SourceLanguage::SYSTEM_VERILOG;

TEST(SourceLanguage, IsToldByKindsThatOneLanguageHas) {
    EXPECT_EQ(languageOf(RTAccessType()), VHDL);
    EXPECT_EQ(languageOf(RTPhysicalType()), VHDL);
    EXPECT_EQ(languageOf(RTFileType()), VHDL);
    EXPECT_EQ(languageOf(RTClassType()), SV);
    EXPECT_EQ(languageOf(RTQueueType()), SV);
    EXPECT_EQ(languageOf(RTStringType()), SV);
    EXPECT_EQ(languageOf(RTDiscreteEnumType()), SV);
    EXPECT_EQ(languageOf(RTWildCardType()), SV);
}

TEST(SourceLanguage, OfAnEnumerationIsToldByItsKind) {
    LinkedTypes types;
    EXPECT_EQ(languageIn(types, types.enumeration("e", {"a"})), VHDL);
    EXPECT_EQ(languageIn(types, types.logic()), SV);
}

TEST(SourceLanguage, OfARealIsToldByItsFlavour) {
    RTFloatType real;
    EXPECT_EQ(languageOf(real), VHDL);
    real.m_floatKind = 2;
    EXPECT_EQ(languageOf(real), SV);
}

TEST(SourceLanguage, OfAnIntegerIsToldByItsName) {
    LinkedTypes types;
    EXPECT_EQ(languageIn(types, types.integer("integer", 0, 1)), VHDL);
    EXPECT_EQ(languageIn(types, types.integer("longint", 0, 1)), SV);
}

TEST(SourceLanguage, OfATypedefIsThatOfItsData) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    const unsigned int inner = types.alias("inner", logic);
    EXPECT_EQ(languageIn(types, types.alias("outer", inner)), SV);
}

TEST(SourceLanguage, OfUnpaddedBytesIsThatOfTheElement) {
    LinkedTypes types;
    const unsigned int logic = types.logic();
    EXPECT_EQ(languageIn(types, types.array(BYTE_UNPADDED_ARRAY, "a", logic, {{7, 0, 0}})), SV);
    const unsigned int color = types.enumeration("color", {"red"});
    auto& record = types.add<RTRecordType>("r");
    record.m_recordKind = BYTE_UNPADDED_STRUCT;
    TypeFile::addMember(record, "c", color);
    EXPECT_EQ(languageIn(types, types.last()), VHDL);
}

TEST(SourceLanguage, OfACircleIsVhdl) {
    LinkedTypes types;
    auto& record = types.add<RTRecordType>("r");
    record.m_recordKind = BYTE_UNPADDED_STRUCT;
    TypeFile::addMember(record, "self", 0);
    EXPECT_EQ(languageIn(types, 0), VHDL);
}

} // namespace
