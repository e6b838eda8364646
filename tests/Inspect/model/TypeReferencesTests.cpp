#include "Inspect/model/TypeReferences.h"
#include "RTTI/CTType.h"
#include "TypeFile/TypeBuilding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace RTTI;
using namespace Inspect;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned int NONE = TypeFileFormat::NO_TYPE_ID;

testing::Matcher<const TypeLink&> link(LinkRole role, unsigned int position, unsigned int typeId) {
    return testing::AllOf(testing::Field(&TypeLink::role, role),
                          testing::Field(&TypeLink::position, position),
                          testing::Field(&TypeLink::typeId, typeId));
}

std::vector<TypeLink> linksOf(const RTBaseType& type) {
    std::vector<TypeLink> links;
    Inspect::linksOf(type, links);
    return links;
}

TEST(TypeReferences, ATypedefAliasesItsType) {
    EXPECT_THAT(linksOf(CTTypedefType("t", 7)), ElementsAre(link(LinkRole::ALIASED, 0, 7)));
}

TEST(TypeReferences, ADiscreteEnumerationHasABaseType) {
    RTDiscreteEnumType type;
    type.m_baseTypeId = 3;
    EXPECT_THAT(linksOf(type), ElementsAre(link(LinkRole::BASE_TYPE, 0, 3)));
}

TEST(TypeReferences, AnAccessTypeDesignatesAndAFileTypeHasElements) {
    EXPECT_THAT(linksOf(CTAccessType("a", 1)), ElementsAre(link(LinkRole::DESIGNATED, 0, 1)));
    EXPECT_THAT(linksOf(CTFileType("f", 2)), ElementsAre(link(LinkRole::FILE_ELEMENT, 0, 2)));
}

TEST(TypeReferences, AnArrayHasAnElementAndAnIndexForEachDimension) {
    CTArrayType type("m", VHDL_ARRAY, 9, 4);
    type.m_indexTypeIds = {4, 5};
    EXPECT_THAT(linksOf(type),
                ElementsAre(link(LinkRole::ELEMENT, 0, 9), link(LinkRole::INDEX, 0, 4),
                            link(LinkRole::INDEX, 1, 5)));
}

TEST(TypeReferences, ContainersHaveElementsAndAssociativeArraysAnIndex) {
    EXPECT_THAT(linksOf(CTQueueType("q", 1)), ElementsAre(link(LinkRole::ELEMENT, 0, 1)));
    EXPECT_THAT(linksOf(CTDynamicArrayType("d", 2)), ElementsAre(link(LinkRole::ELEMENT, 0, 2)));
    EXPECT_THAT(linksOf(CTAssocArrayType("a", 3, 4)),
                ElementsAre(link(LinkRole::ELEMENT, 0, 3), link(LinkRole::INDEX, 0, 4)));
}

TEST(TypeReferences, MembersKeepTheirPositions) {
    RTRecordType type;
    TypeFile::addMember(type, "a", 8);
    TypeFile::addMember(type, "none", NONE);
    TypeFile::addMember(type, "b", 8);
    EXPECT_THAT(linksOf(type),
                ElementsAre(link(LinkRole::MEMBER, 0, 8), link(LinkRole::MEMBER, 2, 8)));
}

TEST(TypeReferences, ABaseClassComesBeforeTheMembers) {
    RTClassType type;
    type.m_baseClassTypeId = 5;
    TypeFile::addMember(type, "m", 6);
    EXPECT_THAT(linksOf(type),
                ElementsAre(link(LinkRole::BASE_CLASS, 0, 5), link(LinkRole::MEMBER, 0, 6)));
}

TEST(TypeReferences, MembersThatAreNotThereReferToNothing) {
    RTRecordType type;
    type.m_members = {nullptr};
    TypeFile::addMember(type, "m", 6);
    EXPECT_THAT(linksOf(type), ElementsAre(link(LinkRole::MEMBER, 1, 6)));
}

TEST(TypeReferences, IdsThatSayNoTypeGiveNoLink) {
    EXPECT_THAT(linksOf(CTTypedefType("t", NONE)), IsEmpty());
    EXPECT_THAT(linksOf(CTAccessType("a", NONE)), IsEmpty());
    EXPECT_THAT(linksOf(CTAssocArrayType("a", NONE, 4)), ElementsAre(link(LinkRole::INDEX, 0, 4)));
    CTArrayType array("m", VHDL_ARRAY, NONE, NONE);
    array.m_indexTypeIds = {NONE, 2};
    EXPECT_THAT(linksOf(array), ElementsAre(link(LinkRole::INDEX, 1, 2)));
    RTClassType type;
    type.m_baseClassTypeId = NONE;
    EXPECT_THAT(linksOf(type), IsEmpty());
}

TEST(TypeReferences, ScalarsReferToNothing) {
    EXPECT_THAT(linksOf(CTIntType()), IsEmpty());
    EXPECT_THAT(linksOf(CTSeqEnumType()), IsEmpty());
    EXPECT_THAT(linksOf(RTStringType()), IsEmpty());
}

TEST(TypeReferences, EachRoleHasItsFieldInTheClassesThatHaveIt) {
    EXPECT_STREQ(fieldOf(LinkRole::INDEX, ClassId::ARRAY), "indexTypes");
    EXPECT_STREQ(fieldOf(LinkRole::INDEX, ClassId::ASSOC_ARRAY), "indexType");
    EXPECT_STREQ(fieldOf(LinkRole::MEMBER, ClassId::RECORD), "members");
    EXPECT_STREQ(fieldOf(LinkRole::FILE_ELEMENT, ClassId::FILE_TYPE), "refType");
    EXPECT_EQ(fieldOf(LinkRole::BASE_CLASS, ClassId::RECORD), nullptr);
}

TEST(TypeReferences, AListIsReplacedNotAppendedTo) {
    std::vector<TypeLink> links = {{LinkRole::MEMBER, 1, 2}};
    Inspect::linksOf(CTIntType(), links);
    EXPECT_THAT(links, IsEmpty());
}

TEST(TypeReferences, EachReferredTypeIsListedOnceInTheOrderOfTheFields) {
    RTRecordType type;
    for (const unsigned int id : {8u, 3u, 8u, NONE, 3u, 1u})
        TypeFile::addMember(type, "m", id);
    EXPECT_THAT(referencesOf(type), ElementsAre(8, 3, 1));
}

TEST(TypeReferences, AreTheIdsOfAllFieldsEachOnce) {
    CTArrayType array("a", VHDL_ARRAY, 8, 9);
    array.m_indexTypeIds = {9, 8, 9};
    EXPECT_THAT(referencesOf(array), ElementsAre(8u, 9u));
    RTClassType derived;
    EXPECT_THAT(referencesOf(derived), IsEmpty());
    derived.m_baseClassTypeId = 3;
    EXPECT_THAT(referencesOf(derived), ElementsAre(3u));
    EXPECT_THAT(referencesOf(CTAssocArrayType("m", 1, 2)), ElementsAre(1u, 2u));
    EXPECT_THAT(referencesOf(CTTypedefType("t", 5)), ElementsAre(5u));
    EXPECT_THAT(referencesOf(RTStringType()), IsEmpty());
}

} // namespace
