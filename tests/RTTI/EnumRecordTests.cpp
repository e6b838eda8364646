// Sequential and discrete enumerations.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

TEST(SeqEnumRecords, EmptyBodyGivesDefaultsAndSizeOne) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000003, "e"));
    const auto& type = types.as<RTSeqEnumType>(0);
    EXPECT_EQ(type.m_valueEncoding, ENCODING_4_STATE);
    EXPECT_EQ(type.m_enumKind, INVALID_ENUM);
    EXPECT_THAT(type.m_enumeratorNames, IsEmpty());
    EXPECT_EQ(type.getValueSize(), 1u);
}

TEST(SeqEnumRecords, CountOfZeroOrLessStillReadsTheSize) {
    for (const int count : {0, -1, -2147483647}) {
        LoadedTypes types(
            TypeFileBuilder{}.record(0xA0000003, "e").i32(2).i32(5).i32(count).i32(4));
        EXPECT_THAT(types.as<RTSeqEnumType>(0).m_enumeratorNames, IsEmpty());
        EXPECT_EQ(types.as<RTSeqEnumType>(0).m_valueSize, 4u);
    }
}

TEST(SeqEnumRecords, EncodingAndKindOutsideTheTablesAreKept) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000003, "e").i32(4).i32(6).i32(0).i32(1));
    EXPECT_EQ(static_cast<int>(types.as<RTSeqEnumType>(0).m_valueEncoding), 4);
    EXPECT_EQ(static_cast<int>(types.as<RTSeqEnumType>(0).m_enumKind), 6);
}

TEST(SeqEnumRecords, EncodingIsTheRecordsWhateverTheFlags) {
    TypeFileBuilder file;
    file.record(0xA0000003, "e", 0x10).i32(1).i32(1).i32(0).i32(1);
    EXPECT_EQ(LoadedTypes(file)[0]->getValueEncoding(), ENCODING_2_STATE);
}

TEST(SeqEnumRecords, NamesAreInTheOrderOfTheirDeclaration) {
    TypeFileBuilder file;
    file.record(0xA0000003, "e").i32(2).i32(5).i32(3).str("idle").str("").str("busy").i32(1);
    EXPECT_THAT(LoadedTypes(file).as<RTSeqEnumType>(0).m_enumeratorNames,
                ElementsAre(StrEq("idle"), StrEq(""), StrEq("busy")));
}

TEST(DiscreteEnumRecords, EmptyBodyHasTypeZeroAsItsBase) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000004, "e"));
    const auto& type = types.as<RTDiscreteEnumType>(1);
    EXPECT_EQ(type.m_baseTypeId, 0u);
    EXPECT_EQ(type.m_baseType, types[0]);
    EXPECT_THAT(type.m_enumerators, IsEmpty());
    EXPECT_EQ(type.getValueSize(), 0u);
    EXPECT_THAT(type.m_constraints, IsEmpty());
}

TEST(DiscreteEnumRecords, ValueBytesAreKeptInTheirOrder) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(1).i32(2).str("A").bytes("\x01\xFF");
    file.u32(1).range(3, 0, 0);
    LoadedTypes types(file);
    const auto& type = types.as<RTDiscreteEnumType>(1);
    EXPECT_EQ(type.m_enumerators[0].enumName, "A");
    EXPECT_EQ(std::string(type.m_enumerators[0].value, 2), "\x01\xFF");
    EXPECT_THAT(numbersOf(type.m_constraints), ElementsAre(ElementsAre(3, 0, 0)));
}

TEST(DiscreteEnumRecords, BaseTypeIsReadBeforeTheCountAndDoesNotDisturbTheRecord) {
    TypeFileBuilder file;
    file.record(0xA0000004, "e").u32(1).i32(2).i32(1).str("A").bytes("a").str("B").bytes("b");
    file.u32(0).integer("base");
    LoadedTypes types(file, false);
    const std::string trace = types.trace();
    EXPECT_LT(trace.find("Built in Int Type"), trace.find("Number of enumerators"));
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_baseType, types[1]);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_enumerators[1].enumName, "B");
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_enumerators[1].value[0], 'b');
}

TEST(DiscreteEnumRecords, EncodingIsThatOfTheBaseType) {
    TypeFileBuilder file;
    file.record(0xA0000003, "logic").i32(0).i32(1).i32(0).i32(1);
    file.record(0xA0000003, "bit").i32(1).i32(1).i32(0).i32(1);
    file.record(0xA0000004, "l", 0x10).u32(0).record(0xA0000004, "b", 0x10).u32(1);
    LoadedTypes types(file);
    EXPECT_EQ(types[2]->getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(types[3]->getValueEncoding(), ENCODING_2_STATE);
}

TEST(DiscreteEnumRecords, MissingValueBytesAreZero) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(2).i32(4).str("A").bytes("xy");
    LoadedTypes types(file);
    const auto& type = types.as<RTDiscreteEnumType>(1);
    ASSERT_EQ(type.m_enumerators.size(), 2u);
    EXPECT_EQ(std::string(type.m_enumerators[0].value, 4), std::string("xy\0\0", 4));
    EXPECT_EQ(type.m_enumerators[1].enumName, "");
    EXPECT_EQ(std::string(type.m_enumerators[1].value, 4), std::string(4, '\0'));
}

TEST(DiscreteEnumRecords, NegativeSizeIsStoredAsZeroAndTracedAsRead) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(1).i32(-3).str("A").u32(1).range(1, 2, 3);
    LoadedTypes types(file, false);
    EXPECT_NE(types.trace().find("** Size of enumerators =  -3  **  \n"), std::string::npos);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(1).getValueSize(), 0u);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(1).m_enumerators[0].enumName, "A");
    EXPECT_EQ(types.as<RTDiscreteEnumType>(1).m_constraints.size(), 1u);
}

TEST(DiscreteEnumRecords, NegativeCountIsTracedWithoutASign) {
    LoadedTypes types(TypeFileBuilder{}.string("s").record(0xA0000004, "e").u32(0).i32(-1), false);
    EXPECT_NE(types.trace().find("** Number of enumerators =  4294967295  **  \n"),
              std::string::npos);
    EXPECT_THAT(types.as<RTDiscreteEnumType>(1).m_enumerators, IsEmpty());
}

TEST(SeqEnumRecords, EmptyBodyIsTracedWithItsDefaults) {
    const std::string trace = LoadedTypes(TypeFileBuilder{}.record(0xA0000003, "e"), false).trace();
    EXPECT_NE(trace.find("  Encoding:  4-State  \n  Kind:  INVALID_ENUM  \n**  Size:  1  \n"),
              std::string::npos)
        << trace;
}

TEST(SeqEnumRecords, EncodingsAndKindsAreTracedByName) {
    const char* encodings[] = {"4-State", "2-State", "Byte", "Unpadded-Byte", "<Bad Encoding>"};
    const char* kinds[] = {"INVALID_ENUM",        "VLOG_BUILTIN_ENUM", "VHDL_BIT_ENUM",
                           "VHDL_STD_LOGIC_ENUM", "VHDL_CHAR_ENUM",    "VHDL_OTHER_ENUM",
                           "<Bad Kind>"};
    for (int kind = 0; kind < 7; ++kind) {
        const int encoding = kind < 5 ? kind : 4;
        TypeFileBuilder file;
        file.record(0xA0000003, "e").i32(encoding).i32(kind).i32(0).i32(1);
        const std::string trace = LoadedTypes(file, false).trace();
        EXPECT_NE(trace.find(std::string("  Encoding:  ") + encodings[encoding] +
                             "  \n  Kind:  " + kinds[kind] + "  \n"),
                  std::string::npos)
            << trace;
    }
}

TEST(DiscreteEnumRecords, EnumeratorsWithoutValueBytesFollowEachOther) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(2).i32(0).str("A").str("B");
    file.u32(1).range(1, 0, 0);
    LoadedTypes types(file, false);
    EXPECT_NE(types.trace().find("** Enumerator[ 1 ] =   B  (value, byte by byte =   )  \n"),
              std::string::npos);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(1).m_enumerators[1].enumName, "B");
    EXPECT_EQ(types.as<RTDiscreteEnumType>(1).m_constraints.size(), 1u);
}

TEST(DiscreteEnumRecords, ValueBytesAreTracedWithTheirSign) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(1).i32(3).str("A").bytes("\x80\x7F");
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_NE(trace.find("(value, byte by byte =   -128    127    0    )  \n"), std::string::npos)
        << trace;
}

TEST(DiscreteEnumRecords, ConstraintsFollowTheSizeWhereThereAreNoEnumerators) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(0).i32(4).u32(1).range(5, 6, 1);
    LoadedTypes types(file);
    EXPECT_EQ(types[1]->getValueSize(), 4u);
    EXPECT_THAT(numbersOf(types.as<RTDiscreteEnumType>(1).m_constraints),
                ElementsAre(ElementsAre(5, 6, 1)));
}

TEST(SeqEnumRecords, EnumeratorNameEndsWithTheRecordAndTheRestAreEmpty) {
    TypeFileBuilder file;
    file.record(0xA0000003, "e").i32(2).i32(5).i32(3).str("idle").bytes("bu");
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTSeqEnumType>(0).m_enumeratorNames,
                ElementsAre(StrEq("idle"), StrEq("bu"), StrEq("")));
    EXPECT_EQ(types[0]->getValueSize(), 1u);
}

TEST(DiscreteEnumRecords, EnumeratorNameEndsWithTheRecordAndItsValueIsZero) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(1).i32(2).bytes("bu");
    LoadedTypes types(file);
    const auto& enumerator = types.as<RTDiscreteEnumType>(1).m_enumerators[0];
    EXPECT_EQ(enumerator.enumName, "bu");
    EXPECT_EQ(std::string(enumerator.value, 2), std::string(2, '\0'));
}

} // namespace
