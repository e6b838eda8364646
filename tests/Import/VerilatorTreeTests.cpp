#include "Import/Importer.h"

#include "Import/ImportError.h"
#include "Import/TreeLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Import;
using namespace RTTI;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Texts = std::vector<std::string>;

/// A tree with the given design, and the given types in its table.
std::string tree(const std::string& design, const std::string& types) {
    return "Verilator Tree Dump (format 0x3900) from <e0> to <e9>\n"
           "     NETLIST 0x1 {a0aa}  $root [1ps/1ps]\n" +
           design + "    3: TYPETABLE 0x2 {a0aa}\n\t\t logic  -> BASICDTYPE 0x3 {a0aa}\n" + types +
           "    3: CONSTPOOL 0x4 {a0aa}\n    3:1: MODULE 0x5 {a0aa}  @CONST-POOL@  L0 [NONE]\n";
}

/// A tree whose package p declares `t`, the type with the address 0xa.
std::string typedefTree(const std::string& types) {
    return tree("    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
                "    1:2: TYPEDEF 0x7 {c2aj} @dt=0xa@(w1)  t -> NODE 0xa {c2aj} @dt=this@(w1)\n",
                types);
}

class VerilatorTreeTest : public testing::Test {
protected:
    void importTree(const std::string& text) {
        std::istringstream stream(text);
        Input input(stream, "x.tree");
        types.clear();
        importer = std::make_unique<Importer>(options, notes);
        importer->read(input);
        importer->finish([this](const RTBaseType& type) { types.push_back(&type); });
    }

    /// What is wrong with a text that cannot be imported.
    std::string faultOf(const std::string& text) {
        try {
            importTree(text);
        } catch (const ImportError& error) {
            return error.what();
        }
        return "no fault";
    }

    Texts names() const {
        Texts all;
        for (const auto& type : types)
            all.emplace_back(type->m_name);
        return all;
    }

    template <typename Type> const Type& at(std::size_t id) const {
        return dynamic_cast<const Type&>(*types.at(id));
    }

    /// The last type is the typedef p::t: what it names.
    template <typename Type> const Type& named() const {
        return at<Type>(at<RTTypedefType>(types.size() - 1).m_dataTypeId);
    }

    ImportOptions options;
    Texts notesTaken;
    Notes notes{[this](const Place& place, const std::string& note) {
        notesTaken.push_back(place.text() + ": " + note);
    }};
    std::unique_ptr<Importer> importer; ///< What the types of a tree belong to.
    std::vector<const RTBaseType*> types;
};

std::string bytesOf(const RTDiscreteEnumType& type, std::size_t literal) {
    return {type.m_enumerators.at(literal).value, type.m_valueSize};
}

TEST_F(VerilatorTreeTest, AScalarAndAVectorDifferInTheirRange) {
    importTree(tree("    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n"
                    "    1:2: VAR 0x7 {c2al} @dt=0xa@(w1)  a [VSTATIC]  VAR\n"
                    "    1:2: VAR 0x8 {c2al} @dt=0xb@(w1)  b [VSTATIC]  VAR\n",
                    "    3:1: BASICDTYPE 0xa {c2ad} @dt=this@(w1)  logic kwd=logic\n"
                    "    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(w1)  bit kwd=bit range=[-2:5]\n"));
    EXPECT_THAT(names(), ElementsAre("logic", "bit", "int", ""));
    const auto& vector = at<RTArrayType>(3);
    EXPECT_EQ(vector.m_arrayKind, VLOG_FIXED_PACKED_ARRAY);
    EXPECT_EQ(vector.m_elementTypeId, 1u);
    EXPECT_THAT(vector.m_indexTypeIds, ElementsAre(2u));
    ASSERT_EQ(vector.m_constraints.size(), 1u);
    EXPECT_EQ(vector.m_constraints[0].si, -2);
    EXPECT_EQ(vector.m_constraints[0].ei, 5);
    EXPECT_EQ(vector.m_constraints[0].dir, TypeFileFormat::TO_DIRECTION);
}

TEST_F(VerilatorTreeTest, LogicHasFourStatesAndBitTwo) {
    importTree(tree("    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n"
                    "    1:2: VAR 0x7 {c2al} @dt=0xa@(w1)  a [VSTATIC]  VAR\n"
                    "    1:2: VAR 0x8 {c2al} @dt=0xb@(w1)  b [VSTATIC]  VAR\n",
                    "    3:1: BASICDTYPE 0xa {c2ad} @dt=this@(w1)  logic kwd=logic\n"
                    "    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_EQ(at<RTSeqEnumType>(0).m_enumeratorNames.size(), 4u);
    EXPECT_EQ(at<RTSeqEnumType>(0).m_valueEncoding, ENCODING_4_STATE);
    EXPECT_EQ(at<RTSeqEnumType>(1).m_enumeratorNames.size(), 2u);
    EXPECT_EQ(at<RTSeqEnumType>(1).m_valueEncoding, ENCODING_2_STATE);
}

TEST_F(VerilatorTreeTest, RegHasFourStates) {
    importTree(
        typedefTree("    3:1: BASICDTYPE 0xa {c2ad} @dt=this@(w8)  reg kwd=reg range=[7:0]\n"));
    const auto& vector = named<RTArrayType>();
    EXPECT_EQ(at<RTSeqEnumType>(vector.m_elementTypeId).m_valueEncoding, ENCODING_4_STATE);
}

TEST_F(VerilatorTreeTest, PredefinedTypesHaveTheirNamesAndWidths) {
    std::string variables = "    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n";
    std::string table;
    int address = 0x10;
    for (const std::string word : {"byte", "shortint", "int", "longint", "integer", "time",
                                   "string", "real", "event", "chandle"}) {
        std::ostringstream hex;
        hex << std::hex << address++;
        variables += "    1:2: VAR 0xf" + hex.str() + " {c2al} @dt=0x" + hex.str() +
                     "@(w1)  v [VSTATIC]  VAR\n";
        const char* const shape = word == "time" || word == "string" || word == "real" ||
                                          word == "event" || word == "chandle"
                                      ? "(w8)"
                                      : "(sw8)";
        table += "    3:1: BASICDTYPE 0x" + hex.str() + " {c2ad} @dt=this@" + shape + "  " + word +
                 " kwd=" + word + "\n";
    }
    importTree(tree(variables, table));
    EXPECT_THAT(names(), ElementsAre("bit", "int", "byte", "shortint", "longint", "logic",
                                     "integer", "time", "string", "real", "event", "chandle"));
    EXPECT_THAT(notesTaken, IsEmpty());
    EXPECT_EQ(at<RTArrayType>(2).m_constraints[0].si, 7);
    EXPECT_EQ(at<RTArrayType>(7).m_constraints[0].si, 63);
    EXPECT_EQ(at<RTArrayType>(7).m_elementTypeId, 5u);
    EXPECT_EQ(at<RTArrayType>(1).m_indexTypeIds[0], TypeFileFormat::NO_TYPE_ID);
}

TEST_F(VerilatorTreeTest, LiteralsWithXAndZHaveTwoPlanes) {
    importTree(
        typedefTree("    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(w10)  logic kwd=logic range=[9:0]\n"
                    "    3:1: ENUMDTYPE 0xa {c2al} @dt=this@(w10)enum  p::t refdt=0xb(w10) enum\n"
                    "    3:1:2: ENUMITEM 0xc {c2bd} @dt=0xa@(w10)enum  A\n"
                    "    3:1:2:2: CONST 0xd {c2bd} @dt=0xa@(w10)enum  10'h2a5\n"
                    "    3:1:2: ENUMITEM 0xe {c2bd} @dt=0xa@(w10)enum  B\n"
                    "    3:1:2:2: CONST 0xf {c2bd} @dt=0xa@(w10)enum  10'b1x0000000z\n"));
    const auto& type = named<RTDiscreteEnumType>();
    EXPECT_STREQ(type.m_name, "p::t");
    EXPECT_EQ(bytesOf(type, 0), std::string("\xA5\x02\x00\x00", 4));
    EXPECT_EQ(bytesOf(type, 1), std::string("\x00\x03\x01\x01", 4));
}

TEST_F(VerilatorTreeTest, AConstantBelowTheValueOfALiteralIsNotItsValue) {
    importTree(typedefTree("    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(w8)  bit kwd=bit range=[7:0]\n"
                           "    3:1: ENUMDTYPE 0xa {c2al} @dt=this@(w8)enum  p::t refdt=0xb(w8)\n"
                           "    3:1:2: ENUMITEM 0xc {c2bd} @dt=0xa@(w8)enum  A\n"
                           "    3:1:2:2: CONST 0xd {c2bd} @dt=0xa@(w8)enum  8'h2a\n"
                           "    3:1:2:2:1: CONST 0xe {c2bd} @dt=0xa@(w8)enum  8'h7\n"));
    EXPECT_EQ(bytesOf(named<RTDiscreteEnumType>(), 0), "\x2A");
}

TEST(TreeAddresses, ATextWithoutDigitsIsNone) {
    EXPECT_EQ(treeAddress("0xaf"), 0xAFu);
    EXPECT_EQ(treeAddress("0x"), 0u);
    EXPECT_EQ(treeAddress("af"), 0u);
}

TEST_F(VerilatorTreeTest, LiteralsOfTwoStatesHaveOnePlane) {
    importTree(
        typedefTree("    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(sw32)  int kwd=int range=[31:0]\n"
                    "    3:1: ENUMDTYPE 0xa {c2al} @dt=this@(sw32)enum  p::t refdt=0xb(sw32) enum\n"
                    "    3:1:2: ENUMITEM 0xc {c2bd} @dt=0xa@(sw32)enum  A\n"
                    "    3:1:2:2: CONST 0xd {c2bd} @dt=0xa@(sw32)enum  32'hfffffffe\n"
                    "    3:1:2: ENUMITEM 0xe {c2bd} @dt=0xa@(sw32)enum  B\n"
                    "    3:1:2:2: CONST 0xf {c2bd} @dt=0xa@(sw32)enum  ?32?sh7\n"));
    const auto& type = named<RTDiscreteEnumType>();
    EXPECT_EQ(bytesOf(type, 0), "\xFE\xFF\xFF\xFF");
    EXPECT_EQ(bytesOf(type, 1), std::string("\x07\0\0\0", 4));
    EXPECT_STREQ(types[type.m_baseTypeId]->m_name, "int");
}

TEST_F(VerilatorTreeTest, StructsAndUnionsAreToldApart) {
    const struct {
        const char* node;
        RecordKind kind;
    } cases[] = {
        {"STRUCTDTYPE 0xa {c2al} @dt=this@(w1)  p::t [PACKED] [4STATE]", VLOG_PACKED_STRUCT},
        {"STRUCTDTYPE 0xa {c2al} @dt=this@(w1)  p::t", VLOG_UNPACKED_STRUCT},
        {"UNIONDTYPE 0xa {c2al} @dt=this@(w1)  p::t [PACKED]", VLOG_PACKED_UNTAGGED_UNION},
        {"UNIONDTYPE 0xa {c2al} @dt=this@(w1)  p::t", VLOG_UNPACKED_UNTAGGED_UNION},
        {"UNIONDTYPE 0xa {c2al} @dt=this@(w1)  p::t [PACKED] [tagged]", VLOG_PACKED_TAGGED_UNION},
        {"UNIONDTYPE 0xa {c2al} @dt=this@(w1)  p::t [tagged]", VLOG_UNPACKED_TAGGED_UNION},
    };
    for (const auto& [node, kind] : cases) {
        importTree(
            typedefTree("    3:1: " + std::string(node) +
                        "\n    3:1:1: MEMBERDTYPE 0xb {c2bd} @dt=this@(w1)  m refdt=0xc(w1)\n"
                        "    3:1: BASICDTYPE 0xc {c2ad} @dt=this@(w1)  bit kwd=bit\n"));
        EXPECT_EQ(named<RTRecordType>().m_recordKind, kind) << node;
        EXPECT_STREQ(named<RTRecordType>().m_members.at(0)->m_memberName, "m");
    }
}

TEST_F(VerilatorTreeTest, AMemberHasTheTypeBehindReferences) {
    importTree(typedefTree(
        "    3:1: STRUCTDTYPE 0xa {c2al} @dt=this@(w1)  p::t [PACKED]\n"
        "    3:1:1: MEMBERDTYPE 0xb {c2bd} @dt=0xe@(w1)  m refdt=0xc(w1)ref name=m\n"
        "    3:1: REFDTYPE 0xc {c2bd} @dt=0xd@(w1)  T refdt=0xd(w1) -> PARAMTYPEDTYPE 0xd {c2}\n"
        "    3:1: PARAMTYPEDTYPE 0xd {c2bd} @dt=0xe@(w1)  T -> CONSTDTYPE 0xe {c2} @dt=this@(w1)\n"
        "    3:1: CONSTDTYPE 0xe {c2ad} @dt=this@(w1) refdt=0xf(w1)\n"
        "    3:1: BASICDTYPE 0xf {c2ad} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_STREQ(types[named<RTRecordType>().m_members.at(0)->m_typeId]->m_name, "bit");
}

TEST_F(VerilatorTreeTest, UnpackedDimensionsAreOfOneTypeAndPackedOnesNot) {
    importTree(typedefTree(
        "    3:1: UNPACKARRAYDTYPE 0xa {c2} @dt=this@(w14)u[1:0] refdt=0xb(w14)u[7:3] [1:0]\n"
        "    3:1:2: RANGE 0x20 {c2}\n"
        "    3:1:2:1: CONST 0x21 {c2} @dt=0x3@(G/swu32/1)  ?32?sh9\n"
        "    3:1: UNPACKARRAYDTYPE 0xb {c2} @dt=this@(w14)u[3:7] refdt=0xc(w14)p[0:3] [3:7]\n"
        "    3:1: PACKARRAYDTYPE 0xc {c2} @dt=this@(w32)p[0:3] refdt=0xd(w8) [0:3]\n"
        "    3:1: BASICDTYPE 0xd {c2} @dt=this@(w8)  bit kwd=bit range=[7:0]\n"));
    const auto& unpacked = named<RTArrayType>();
    EXPECT_EQ(unpacked.m_arrayKind, VLOG_FIXED_UNPACKED_ARRAY);
    ASSERT_EQ(unpacked.m_constraints.size(), 2u);
    EXPECT_EQ(unpacked.m_constraints[0].si, 1);
    EXPECT_EQ(unpacked.m_constraints[1].ei, 7);
    const auto& packed = at<RTArrayType>(unpacked.m_elementTypeId);
    ASSERT_EQ(packed.m_constraints.size(), 1u);
    EXPECT_EQ(packed.m_constraints[0].ei, 3);
    EXPECT_EQ(at<RTArrayType>(packed.m_elementTypeId).m_constraints[0].si, 7);
}

TEST_F(VerilatorTreeTest, ArraysOfVariableSizeHaveElementsAndKeys) {
    importTree(
        typedefTree("    3:1: DYNARRAYDTYPE 0xa {c2} @dt=this@(w0)$[] refdt=0xb(w0)[queue]\n"
                    "    3:1: QUEUEDTYPE 0xb {c2} @dt=this@(w0)[queue] refdt=0xc(w0)[assoc-0xf]\n"
                    "    3:1: ASSOCARRAYDTYPE 0xc {c2} @dt=this@(w0)[assoc-0xf] refdt=0xd(w0)[*]\n"
                    "    3:1: WILDCARDARRAYDTYPE 0xd {c2} @dt=this@(w0)[*] refdt=0xe(w1)\n"
                    "    3:1: BASICDTYPE 0xe {c2} @dt=this@(w1)  bit kwd=bit\n"
                    "    3:1: BASICDTYPE 0xf {c2} @dt=this@(str)  string kwd=string\n"));
    const auto& queue = at<RTQueueType>(named<RTDynamicArrayType>().m_elementTypeId);
    const auto& keyed = at<RTAssocArrayType>(queue.m_elementTypeId);
    EXPECT_STREQ(types[keyed.m_indexTypeId]->m_name, "string");
    const auto& any = at<RTAssocArrayType>(keyed.m_elementTypeId);
    EXPECT_EQ(types[any.m_indexTypeId]->GetClassId(), ClassId::WILDCARD);
    EXPECT_STREQ(types[any.m_elementTypeId]->m_name, "bit");
    EXPECT_THAT(notesTaken, IsEmpty());
}

TEST_F(VerilatorTreeTest, TheBoundOfAQueueIsNoted) {
    importTree(typedefTree("    3:1: QUEUEDTYPE 0xa {c2} @dt=this@(w0)[queue] refdt=0xb(w1)\n"
                           "    3:1:2: CONST 0xc {c2} @dt=0x3@(G/swu32/4)  ?32?shf\n"
                           "    3:1: BASICDTYPE 0xb {c2} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_THAT(notesTaken, ElementsAre("x.tree:7: the bound of this queue is not kept"));
}

TEST_F(VerilatorTreeTest, AConstantWithinTheElementOfAQueueIsNotItsBound) {
    importTree(typedefTree("    3:1: QUEUEDTYPE 0xa {c2} @dt=this@(w0)[queue] refdt=0xb(w1)\n"
                           "    3:1:2: RANGE 0x20 {c2}\n"
                           "    3:1:2:2: CONST 0xc {c2} @dt=0x3@(G/swu32/4)  ?32?shf\n"
                           "    3:1: BASICDTYPE 0xb {c2} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_THAT(notesTaken, IsEmpty());
}

const char* const CLASSES =
    "    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
    "    1:2: CLASS 0x30 {c2ad}  derived  L4 [1ps] [EXT]\n"
    "    1:2:2: VAR 0x31 {c3an} @dt=0x40@(w0)class:derived  next [VAUTOM]  MEMBER\n"
    "    1:2:2: VAR 0x32 {c3an} @dt=0x41@(w1)  count [VSTATIC]  MEMBER\n"
    "    1:2:2: FUNC 0x33 {c4an} @dt=0x42@(w0)void  new [METHOD]\n"
    "    1:2:2:3: VAR 0x34 {c4an} @dt=0x41@(w1)  local INPUT [FUNC] [VAUTOM]  MEMBER\n"
    "    1:2:4: CLASSEXTENDS 0x35 {c2az} @dt=0x44@(w0)class:ic [IMPLEMENTS]\n"
    "    1:2:4: CLASSEXTENDS 0x36 {c2az} @dt=0x43@(w0)class:base__W8\n"
    "    1:2:4:1: CLASSREFDTYPE 0x43 {c2} @dt=this@(w0)class:base__W8  base__W8 cpkg=0x37 -> CLASS "
    "0x37 {c1}  base__W8\n"
    "    1:2: CLASS 0x37 {c1ad}  base__W8  L5 [1ps] [EXT]\n"
    "    1:2:2: VAR 0x38 {c1} @dt=0x41@(w1)  W [VAUTOM]  GPARAM\n"
    "    1:2:2: VAR 0x39 {c1} @dt=0x41@(w1)  v [VAUTOM]  MEMBER\n";
const char* const CLASS_TYPES =
    "    3:1: CLASSREFDTYPE 0x40 {c2} @dt=this@(w0)class:derived  derived cpkg=0x30 -> CLASS 0x30 "
    "{c2}  derived\n"
    "    3:1: BASICDTYPE 0x41 {c2} @dt=this@(w1)  bit kwd=bit\n"
    "    3:1: VOIDDTYPE 0x42 {c2} @dt=this@(w0)void\n";

TEST_F(VerilatorTreeTest, AClassHasItsBaseAndItsOwnMembers) {
    importTree(tree(CLASSES, CLASS_TYPES));
    ASSERT_THAT(names(), ElementsAre("bit", "p::base__W8", "p::derived"));
    const auto& derived = at<RTClassType>(2);
    EXPECT_EQ(derived.m_baseClassTypeId, 1u);
    ASSERT_EQ(derived.m_members.size(), 2u);
    EXPECT_STREQ(derived.m_members[0]->m_memberName, "next");
    EXPECT_EQ(derived.m_members[0]->m_typeId, 2u);
    using Member = RTClassType::t_ClassMember;
    EXPECT_FALSE(static_cast<const Member&>(*derived.m_members[0]).m_memberFlag);
    EXPECT_TRUE(static_cast<const Member&>(*derived.m_members[1]).m_memberFlag);
    EXPECT_EQ(at<RTClassType>(1).m_members.size(), 1u);
}

TEST_F(VerilatorTreeTest, WhatClassesLoseIsNoted) {
    importTree(tree(CLASSES, CLASS_TYPES));
    EXPECT_THAT(notesTaken, ElementsAre("x.tree:4: p::derived: that it implements ic is not kept",
                                        "x.tree:12: p::base__W8: its parameters are not kept"));
}

TEST_F(VerilatorTreeTest, RandomMembersAreNamedAsInTheSource) {
    const std::string head = "    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
                             "    1:2: CLASS 0x30 {c2ad}  c  L4 [1ps]\n    1:2:2: VAR 0x31 {c3an} ";
    const std::string plain = "    3:1: BASICDTYPE 0x41 {c2} @dt=this@(w1)  bit kwd=bit\n";
    const std::string glued = "    3:1: REFDTYPE 0x42 {c2} @dt=0x41@(w1)  T refdt=0x41(w1) -> "
                              "typedef=0x43 -> BASICDTYPE 0x41 {c2}\n";
    const struct {
        std::string text;
        const char* name;
        std::size_t notes;
    } cases[] = {
        {tree(head + "@dt=0x41@(w3)  r [VAUTOM]  MEMBER\n", plain), "r", 0},
        {tree(head + "@dt=0x41@(w3)  rRAND [VAUTOM]  MEMBER\n", plain + glued), "r", 1},
        {tree(head + "@dt=0x41@(w3)  rRANDC [VAUTOM]  MEMBER\n", plain + glued), "r", 1},
        {tree(head + "@dt=0x41@(w3)  r [RAND] [VAUTOMI]  MEMBER\n", plain), "r", 1},
        {tree(head + "@dt=0x41@(w3)  myRAND [RANDC] [VAUTOMI]  MEMBER\n", plain), "myRAND", 1},
    };
    for (const auto& [text, name, noteCount] : cases) {
        notesTaken.clear();
        importTree(text);
        EXPECT_STREQ(at<RTClassType>(1).m_members.at(0)->m_memberName, name) << text;
        EXPECT_EQ(notesTaken.size(), noteCount) << text;
    }
}

TEST_F(VerilatorTreeTest, ACovergroupIsLeftOutAndNoted) {
    importTree(
        tree("    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
             "    1:2: CLASS 0x30 {c2ad}  c  L4 [1ps]\n"
             "    1:2:2: CLASS 0x33 {c2ad}  __vlAnonCG_cg  L5 [1ps] [CG]\n"
             "    1:2:2: VAR 0x31 {c3an} @dt=0x41@(w0)class:__vlAnonCG_cg  cg [VAUTOMI]  MEMBER\n",
             "    3:1: CLASSREFDTYPE 0x41 {c2} @dt=this@(w0)class:x  x cpkg=0x33 -> CLASS "
             "0x33 {c2}  x\n"));
    EXPECT_THAT(names(), ElementsAre("p::c"));
    EXPECT_THAT(at<RTClassType>(0).m_members, IsEmpty());
    EXPECT_THAT(notesTaken,
                ElementsAre("x.tree:6: p::c: the covergroup cg is left out",
                            "x.tree:5: the covergroup p::c::__vlAnonCG_cg is left out"));
}

TEST_F(VerilatorTreeTest, ATypeIsNamedAfterTheScopesOfItsTypedef) {
    importTree(
        tree("    1: MODULE 0x6 {c1ai}  m__W9  L2 [1ps]\n"
             "    1:2: BEGIN 0x7 {c2}  gen__BRA__0__KET__ [GEN]\n"
             "    1:2:1: TYPEDEF 0x8 {c2} @dt=0xa@(w1)  odd__02dname -> STRUCTDTYPE 0xa {c2}\n",
             "    3:1: STRUCTDTYPE 0xa {c2al} @dt=this@(w1)  m.odd__02dname [PACKED]\n"));
    EXPECT_THAT(names(), ElementsAre("m__W9::gen[0]::odd-name", "m__W9::gen[0]::odd-name"));
}

const char* const ANONYMOUS = "    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n"
                              "    1:2: VAR 0x9 {c2} @dt=0xa@(w1)  v [VSTATIC]  VAR\n"
                              "    1:2: TYPEDEF 0x8 {c2} @dt=0xa@(w1)  __typeimpsu1 -> STRUCTDTYPE "
                              "0xa {c2}\n";
const char* const ANONYMOUS_TYPES =
    "    3:1: STRUCTDTYPE 0xa {c2al} @dt=this@(w1)  top.__typeimpsu1 [PACKED]\n";

TEST_F(VerilatorTreeTest, MadeUpNamesAreLeftOut) {
    importTree(tree(ANONYMOUS, ANONYMOUS_TYPES));
    EXPECT_THAT(names(), ElementsAre(""));
}

TEST_F(VerilatorTreeTest, MadeUpNamesAreKeptWhenAskedFor) {
    options.keepAnonymous = true;
    importTree(tree(ANONYMOUS, ANONYMOUS_TYPES));
    EXPECT_THAT(names(), ElementsAre("top::__typeimpsu1", "top::__typeimpsu1"));
}

TEST_F(VerilatorTreeTest, NamesThatTheFrontEndCutAreNoted) {
    importTree(tree("    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
                    "    1:2: TYPEDEF 0x7 {c2} @dt=0xa@(w1)  a__VhshX -> STRUCTDTYPE 0xa {c2}\n",
                    "    3:1: STRUCTDTYPE 0xa {c2} @dt=this@(w1)  p::a__VhshX [PACKED]\n"
                    "    3:1:1: MEMBERDTYPE 0xb {c2} @dt=this@(w1)  b__VhshY refdt=0xc(w1)\n"
                    "    3:1: BASICDTYPE 0xc {c2} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_THAT(notesTaken,
                ElementsAre("x.tree:4: the front end has cut the name p::a__VhshX (Verilator: "
                            "--comp-limit-syms N)",
                            "x.tree:8: the front end has cut the name b__VhshY (Verilator: "
                            "--comp-limit-syms N)"));
}

TEST_F(VerilatorTreeTest, LiteralsAndMembersOfClassesWhoseNamesWereCutAreNoted) {
    const auto cut = [](const std::string& place, const std::string& name) {
        return place + ": the front end has cut the name " + name +
               " (Verilator: --comp-limit-syms N)";
    };
    importTree(typedefTree("    3:1: BASICDTYPE 0xb {c2ad} @dt=this@(w1)  bit kwd=bit\n"
                           "    3:1: ENUMDTYPE 0xa {c2al} @dt=this@(w1)enum  p::t refdt=0xb(w1)\n"
                           "    3:1:2: ENUMITEM 0xc {c2bd} @dt=0xa@(w1)enum  A__VhshX\n"
                           "    3:1:2:2: CONST 0xd {c2bd} @dt=0xa@(w1)enum  1'h1\n"));
    EXPECT_THAT(notesTaken, ElementsAre(cut("x.tree:9", "A__VhshX")));
    notesTaken.clear();
    importTree(tree("    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
                    "    1:2: CLASS 0x30 {c2ad}  c  L4 [1ps]\n"
                    "    1:2:2: VAR 0x31 {c3an} @dt=0x41@(w1)  m__VhshX [VAUTOM]  MEMBER\n",
                    "    3:1: BASICDTYPE 0x41 {c2} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_THAT(notesTaken, ElementsAre(cut("x.tree:5", "m__VhshX")));
}

TEST_F(VerilatorTreeTest, ThePackageStdIsNotTheDesigns) {
    importTree(tree("    1: PACKAGE 0x6 {c1ai}  std  L2 [1ps]\n"
                    "    1:2: TYPEDEF 0x8 {c2} @dt=0xa@(w1)  t -> BASICDTYPE 0xa {c2}\n"
                    "    1:2: CLASS 0x30 {c2ad}  semaphore  L4 [1ps]\n",
                    "    3:1: BASICDTYPE 0xa {c2} @dt=this@(w1)  bit kwd=bit\n"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(VerilatorTreeTest, AVirtualInterfaceBecomesAHandleAndAnInstanceNothing) {
    importTree(tree("    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n"
                    "    1:2: VAR 0x7 {c2} @dt=0xa@(w1)iface  bif__Viftop [VSTATIC]  IFACEREF\n"
                    "    1:2: VAR 0x8 {c2} @dt=0xb@(w0)iface  vif [VSTATICI]  VAR\n",
                    "    3:1: IFACEREFDTYPE 0xa {c2} @dt=this@(w1)iface cell=bif if=bus_if -> CELL "
                    "0x9 {c2}  bif\n"
                    "    3:1: IFACEREFDTYPE 0xb {c2} @dt=this@(w0)iface [VIRT] if=bus_if i-> IFACE "
                    "0xc {c2}  bus_if\n"));
    EXPECT_THAT(names(), ElementsAre("virtual interface bus_if"));
    EXPECT_EQ(types[0]->GetClassId(), ClassId::CHANDLE);
    EXPECT_EQ(notesTaken.size(), 1u);
}

TEST_F(VerilatorTreeTest, AnUnknownNodeLeavesOutWhatNeedsIt) {
    importTree(typedefTree("    3:1: NEWDTYPE 0xa {c2} @dt=this@(w1)\n"));
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(
        notesTaken,
        ElementsAre("x.tree:7: the node NEWDTYPE is not known: types that need it are left out",
                    "x.tree:4: p::t is left out: it needs the node NEWDTYPE"));
}

TEST_F(VerilatorTreeTest, SignsAreNoted) {
    importTree(
        typedefTree("    3:1: BASICDTYPE 0xa {c2} @dt=this@(sw8)  logic kwd=logic range=[7:0]\n"));
    EXPECT_THAT(notesTaken, ElementsAre("x.tree:7: the sign of this logic vector is not kept"));
}

TEST_F(VerilatorTreeTest, APackageIsTakenByItself) {
    options.packages = {"p"};
    importTree(tree("    1: MODULE 0x6 {c1ai}  top  L2 [1ps]\n"
                    "    1:2: VAR 0x7 {c2al} @dt=0xb@(w1)  a [VSTATIC]  VAR\n"
                    "    1: PACKAGE 0x8 {c1aj}  p  L3 [LIB] [1ps]\n"
                    "    1:2: TYPEDEF 0x9 {c2} @dt=0xa@(w1)  t -> BASICDTYPE 0xa {c2}\n",
                    "    3:1: BASICDTYPE 0xa {c2} @dt=this@(w1)  bit kwd=bit\n"
                    "    3:1: BASICDTYPE 0xb {c2} @dt=this@(w1)  logic kwd=logic\n"));
    EXPECT_THAT(names(), ElementsAre("bit", "p::t"));
}

TEST_F(VerilatorTreeTest, DamageIsToldWithItsPlace) {
    const std::string whole =
        typedefTree("    3:1: BASICDTYPE 0xa {c2} @dt=this@(w1)  bit kwd=bit\n");
    EXPECT_EQ(faultOf(whole), "no fault");
    EXPECT_EQ(faultOf(""), "x.tree: the file is empty; GHDL leaves such a one where the "
                           "elaboration has failed");
    EXPECT_THAT(faultOf("module top;\n"), HasSubstr("x.tree: the format is none of"));
    EXPECT_THAT(faultOf(whole.substr(0, whole.size() - 5)),
                HasSubstr("x.tree:9: the tree is cut short: its last line does not end"));
    EXPECT_THAT(faultOf(whole.substr(0, whole.find("    3: CONSTPOOL"))),
                HasSubstr("ends before its pool of constants"));
    EXPECT_THAT(faultOf(whole.substr(0, whole.find("    3: TYPETABLE"))),
                HasSubstr("ends before its table of types"));
    EXPECT_THAT(faultOf(typedefTree("")), HasSubstr("x.tree:4: the tree is damaged or cut short"));
}

TEST_F(VerilatorTreeTest, TypesThatLeadToThemselvesAreDamage) {
    EXPECT_THAT(faultOf(typedefTree("    3:1: REFDTYPE 0xa {c2} @dt=0xa@(w1)  t refdt=0xa(w1)\n")),
                HasSubstr("another name of itself"));
    EXPECT_THAT(faultOf(typedefTree(
                    "    3:1: UNPACKARRAYDTYPE 0xa {c2} @dt=this@(w1) refdt=0xa(w1) [1:0]\n")),
                HasSubstr("its own element"));
    EXPECT_THAT(faultOf(typedefTree(
                    "    3:1: ENUMDTYPE 0xa {c2} @dt=this@(w1)enum  t refdt=0xb(w1)\n"
                    "    3:1: PACKARRAYDTYPE 0xb {c2} @dt=this@(w1) refdt=0xb(w1) [0:0]\n")),
                "no fault");
    EXPECT_THAT(notesTaken.front(), HasSubstr("the base of this enumeration is not known"));
    EXPECT_THAT(
        faultOf(typedefTree("    3:1: QUEUEDTYPE 0xa {c2} @dt=this@(w0)[queue] refdt=0xa(w0)\n")),
        HasSubstr("is a part of itself"));
}

/// A tree whose class p::c extends the type with the address 0xb.
std::string extendingTree(const std::string& type) {
    return tree("    1: PACKAGE 0x6 {c1aj}  p  L3 [LIB] [1ps]\n"
                "    1:2: CLASS 0xc {c2am}  c  L4 [1ps] [EXT]\n"
                "    1:2:4: CLASSEXTENDS 0xd {c2az} @dt=0xb@(w0)class:c\n",
                type);
}

TEST_F(VerilatorTreeTest, InvalidClassThatIsItsOwnBase) {
    EXPECT_EQ(faultOf(extendingTree("    3:1: CLASSREFDTYPE 0xb {c2dg} @dt=this@(w0)class:c  c "
                                    "cpkg=0xc -> CLASS 0xc {c2am}  c  L4 [1ps] [EXT]\n")),
              "x.tree:4: the input is damaged: p::c is a part of itself");
}

TEST_F(VerilatorTreeTest, InvalidClassWhoseBaseIsNoClass) {
    EXPECT_EQ(
        faultOf(extendingTree("    3:1: BASICDTYPE 0xb {c2aj} @dt=this@(w1)  logic kwd=logic\n")),
        "x.tree:4: the tree is damaged: the base of p::c is not a class");
}

} // namespace
