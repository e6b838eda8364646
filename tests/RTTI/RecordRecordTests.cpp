// Records, structs and unions in records that end early, and the names of their kinds.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Structs, KindIsTracedByNameAndKeptAsItIs) {
    const char* names[] = {"RECORD_KIND_INVALID",        "VHDL_RECORD",
                           "VLOG_UNPACKED_STRUCT",       "VLOG_PACKED_STRUCT",
                           "VLOG_PACKED_TAGGED_UNION",   "VLOG_UNPACKED_TAGGED_UNION",
                           "VLOG_PACKED_UNTAGGED_UNION", "VLOG_UNPACKED_UNTAGGED_UNION",
                           "BYTE_UNPADDED_STRUCT",       "RECORD_KIND_UNKNOWN"};
    for (unsigned int i = 0; i < std::size(names); ++i) {
        TypeFileBuilder file;
        file.record(0xA0000011, "r").u32(0xB0000 + i);
        const std::string trace = LoadedTypes(file, false).trace();
        EXPECT_NE(trace.find(std::string("** Record Kind =  ") + names[i] + "  **  \n"),
                  std::string::npos);
        LoadedTypes types(file);
        EXPECT_EQ(static_cast<unsigned int>(types.as<RTRecordType>(0).m_recordKind), 0xB0000 + i);
    }
}

TEST(Structs, MissingKindIsTracedAsUnknown) {
    const std::string trace = LoadedTypes(TypeFileBuilder{}.record(0xA0000011, "r"), false).trace();
    EXPECT_NE(trace.find("** Record Kind =  RECORD_KIND_UNKNOWN  **  \n"), std::string::npos);
    EXPECT_EQ(trace.find("Struct with SV Type Id"), std::string::npos);
}

TEST(Structs, NegativeSVTypeIdIsTracedWithItsSign) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(0).i32(-98);
    EXPECT_NE(LoadedTypes(file, false).trace().find("** Struct with SV Type Id =  -98  **  \n"),
              std::string::npos);
}

TEST(Structs, CutInTheirSVTypeIdHaveNone) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(0).bytes("\1\1\1");
    EXPECT_EQ(LoadedTypes(file)[0]->getSVTypeId(), -99);
}

TEST(Structs, MemberNameWithoutItsZeroByteEndsWithTheRecord) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000011, "r").u32(0xB0002).i32(1).bytes("mem");
    LoadedTypes types(file);
    const auto& type = types.as<RTRecordType>(1);
    ASSERT_EQ(type.m_members.size(), 1u);
    EXPECT_STREQ(type.m_members[0]->m_memberName, "mem");
    EXPECT_EQ(type.m_members[0]->m_typeId, 0u);
    EXPECT_THAT(type.m_memberTypes, ElementsAre(types[0]));
}

TEST(Structs, MemberCutInItsConstraintsHasThemAllWithZeros) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000011, "r").u32(0xB0002).i32(1).str("m").u32(0).u32(2).i32(9);
    LoadedTypes types(file);
    EXPECT_THAT(numbersOf(types.as<RTRecordType>(1).m_members[0]->m_constraints),
                ElementsAre(ElementsAre(9, 0, 0), ElementsAre(0, 0, 0)));
    EXPECT_EQ(types[1]->getSVTypeId(), -99);
}

TEST(Structs, MembersAreReadAfterTheStructsOwnFieldsAreTraced) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(2).str("a").u32(1).u32(0).str("b").u32(1).u32(0);
    file.i32(3).integer("i");
    const std::string trace = LoadedTypes(file, false).trace();
    EXPECT_LT(trace.find("** Struct with SV Type Id =  3"), trace.find("Built in Int Type"));
}

TEST(Structs, MembersOfOneTypeShareItsObject) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(2).str("a").u32(1).u32(0).str("b").u32(1).u32(0);
    LoadedTypes types(file.i32(-99).integer("i"));
    EXPECT_THAT(types.as<RTRecordType>(0).m_memberTypes, ElementsAre(types[1], types[1]));
    EXPECT_EQ(types.storage().takeReads().size(), 6u);
}

TEST(Structs, ThatReachEachOtherAreOneObjectEach) {
    TypeFileBuilder file;
    file.record(0xA0000011, "a").u32(0xB0002).i32(1).str("b").u32(1).u32(0).i32(-99);
    file.record(0xA0000011, "b").u32(0xB0002).i32(1).str("a").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTRecordType>(0).m_memberTypes, ElementsAre(types[1]));
    EXPECT_THAT(types.as<RTRecordType>(1).m_memberTypes, ElementsAre(types[0]));
    EXPECT_EQ(types.storage().takeReads().size(), 6u);
}

TEST(Structs, AreNotListedAsClasses) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000011, "r").u32(0xB0002).i32(0).i32(1));
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
}

} // namespace
