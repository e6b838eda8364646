// How types say that their values are encoded: the parts decide, and classes guard against cycles.

#include "tests/support/LinkedTypes.h"
#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace {

using namespace RTTI;
using namespace RTTITest;

/// Throws when it is asked, until it is told not to.
class ThrowingType : public RTStringType {
public:
    unsigned int GetClassId() const override { return ClassId::BASE_TYPE; }
    ValueEncoding getValueEncoding() const override {
        if (m_throws)
            throw std::runtime_error("asked");
        return m_encoding;
    }

    bool m_throws = true;
    ValueEncoding m_encoding = ENCODING_4_STATE;
};

class ValueEncodings : public testing::Test {
protected:
    ValueEncoding encodingOf(unsigned int id) { return types[id].getValueEncoding(); }

    LinkedTypes types;
    unsigned int bit = types.seqEnum(ENCODING_2_STATE);
    unsigned int logic = types.seqEnum(ENCODING_4_STATE);
    unsigned int byte = types.seqEnum(ENCODING_BYTE);
};

TEST_F(ValueEncodings, TypeWithoutTheUnpaddedFlagIsByte) {
    auto& type = types.add<RTIntType>();
    type.m_flags = 0xFFFFFFEF;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
}

TEST_F(ValueEncodings, TypeWithTheUnpaddedFlagIsUnpaddedByte) {
    auto& type = types.add<RTQueueType>();
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, SeqEnumAnswersItsOwnEncodingWhateverItsFlags) {
    const auto type = types.seqEnum(ENCODING_2_STATE);
    types[type].m_flags = 0x10;
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, SeqEnumReadWithAShortEncodingFieldIsFourState) {
    TypeFileBuilder file;
    file.record(ClassId::SEQ_ENUM, "e").bytes("\x01"); // One byte of four.
    LoadedTypes loaded(file);
    EXPECT_EQ(loaded.as<RTSeqEnumType>(0).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, DiscreteEnumAnswersForItsBaseTypeNotItself) {
    const auto type = types.discreteEnum(bit);
    types[type].m_flags = 0x10;
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, DiscreteEnumWithoutBaseTypeAnswersByItsFlags) {
    const auto type = types.discreteEnum(NO_TYPE_ID);
    EXPECT_EQ(encodingOf(type), ENCODING_BYTE);
    types[type].m_flags = 0x10;
    EXPECT_EQ(encodingOf(type), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, TypedefFollowsItsChainToTheEnd) {
    const auto inner = types.alias(logic);
    EXPECT_EQ(encodingOf(types.alias(inner)), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, TypedefWithoutTypeAnswersByItsFlags) {
    const auto type = types.alias(NO_TYPE_ID);
    EXPECT_EQ(encodingOf(type), ENCODING_BYTE);
    types[type].m_flags = 0x10;
    EXPECT_EQ(encodingOf(type), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, FloatIsByteForFlavourZeroAndFourStateForEveryOther) {
    auto& type = types.add<RTFloatType>();
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
    for (const int flavour : {1, 2, 3, -1}) {
        type.m_floatKind = flavour;
        EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE) << flavour;
    }
}

TEST_F(ValueEncodings, StringsAndEventsAreTwoStateWhateverTheirFlags) {
    auto& text = types.add<RTStringType>();
    auto& event = types.add<RTEventType>();
    text.m_flags = event.m_flags = 0x10;
    EXPECT_EQ(text.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(event.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, FixedPackedArrayOfTwoStateIsTwoState) {
    const auto type = types.array(VLOG_FIXED_PACKED_ARRAY, bit, 1, {});
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, QueueKindOfTwoStateIsByte) {
    EXPECT_EQ(encodingOf(types.array(VLOG_QUEUE, bit, 1, {})), ENCODING_BYTE);
    EXPECT_EQ(encodingOf(types.container<RTQueueType>(bit)), ENCODING_BYTE);
}

TEST_F(ValueEncodings, FixedArraysAnswerForTheirElement) {
    const auto unpadded = types.integer();
    types[unpadded].m_flags = 0x10;
    for (const ArrayKind kind : {VLOG_FIXED_UNPACKED_ARRAY, VLOG_FIXED_PACKED_ARRAY}) {
        EXPECT_EQ(encodingOf(types.array(kind, logic, 1, {})), ENCODING_4_STATE);
        EXPECT_EQ(encodingOf(types.array(kind, unpadded, 1, {})), ENCODING_UNPADDED_BYTE);
    }
}

TEST_F(ValueEncodings, EveryOtherArrayKindIsByteButUnpaddedByteArrays) {
    for (const unsigned int kind :
         {0U, 0xA00000U, 0xA00001U, 0xA00004U, 0xA00005U, 0xA00006U, 0xA00008U, 0xFFFFFFFFU}) {
        const auto type = types.array(static_cast<ArrayKind>(kind), bit, 1, {});
        EXPECT_EQ(encodingOf(type), ENCODING_BYTE) << std::hex << kind;
    }
    const auto unpadded = types.array(BYTE_UNPADDED_ARRAY, bit, 1, {});
    EXPECT_EQ(encodingOf(unpadded), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, ArrayWithoutElementIsByteWhateverItsFlags) {
    const auto type = types.array(VLOG_FIXED_PACKED_ARRAY, NO_TYPE_ID, 1, {});
    types[type].m_flags = 0x10;
    EXPECT_EQ(encodingOf(type), ENCODING_BYTE);
}

TEST_F(ValueEncodings, StructWithOneFourStateMemberIsFourState) {
    EXPECT_EQ(encodingOf(types.structure({bit, bit, logic, bit})), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithOneByteMemberIsFourState) {
    EXPECT_EQ(encodingOf(types.structure({bit, byte, bit})), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithOneUnpaddedByteMemberIsFourState) {
    const auto unpadded = types.record(BYTE_UNPADDED_STRUCT);
    EXPECT_EQ(encodingOf(types.structure({bit, unpadded})), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithoutMembersIsTwoState) {
    EXPECT_EQ(encodingOf(types.structure()), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, StructAsksNoMemberBehindTheFirstThatIsNotTwoState) {
    const auto throwing = types.plain<ThrowingType>();
    EXPECT_EQ(encodingOf(types.structure({logic, throwing})), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, VhdlRecordIsByteWhateverItsMembers) {
    EXPECT_EQ(encodingOf(types.record(VHDL_RECORD)), ENCODING_BYTE);
    EXPECT_EQ(encodingOf(types.record(VHDL_RECORD, {bit})), ENCODING_BYTE);
    EXPECT_EQ(encodingOf(types.record(VHDL_RECORD, {logic})), ENCODING_BYTE);
}

TEST_F(ValueEncodings, RecordKindsFromTwoToSevenLookAtTheirMembersAndNoOtherDoes) {
    for (unsigned int kind = VLOG_UNPACKED_STRUCT; kind <= VLOG_UNPACKED_UNTAGGED_UNION; ++kind) {
        const auto recordKind = static_cast<RecordKind>(kind);
        EXPECT_EQ(encodingOf(types.record(recordKind, {bit})), ENCODING_2_STATE);
        EXPECT_EQ(encodingOf(types.record(recordKind, {byte})), ENCODING_4_STATE);
    }
    for (const unsigned int kind : {0U, 0xB0000U, 0xB0009U, 0xFFFFFFFFU}) {
        const auto type = types.record(static_cast<RecordKind>(kind), {bit});
        EXPECT_EQ(encodingOf(type), ENCODING_BYTE) << std::hex << kind;
    }
    const auto unpadded = types.record(BYTE_UNPADDED_STRUCT, {bit});
    EXPECT_EQ(encodingOf(unpadded), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, MissingMemberCountsAsNotTwoState) {
    EXPECT_EQ(encodingOf(types.structure({bit, NO_TYPE_ID})), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(types.classType({bit, NO_TYPE_ID})), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructThatComesBackToItselfCountsAsTwoStateThere) {
    const auto type = types.structure({bit});
    types.addMember(type, type);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
    types.addMember(type, logic);
    EXPECT_EQ(encodingOf(type), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructIsWalkedAgainBehindAClass) {
    // outer: class, then throwing. The class comes back to outer, which leads to `throwing` before
    // the class's own 4-state member is asked.
    const auto throwing = types.plain<ThrowingType>();
    const auto outer = types.structure();
    const auto inner = types.classType({outer, logic});
    types.addMember(outer, inner);
    types.addMember(outer, throwing);
    EXPECT_THROW(encodingOf(outer), std::runtime_error);
}

TEST_F(ValueEncodings, ClassOfTwoStateMembersIsTwoState) {
    EXPECT_EQ(encodingOf(types.classType()), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(types.classType({bit, bit})), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, ClassWithAHandleOfItselfIsTwoStateIfTheRestIs) {
    const auto base = types.classType({bit});
    const auto type = types.classType({bit}, base);
    types.addMember(type, type);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, ClassWithAHandleOfItselfIsFourStateIfAnotherMemberIs) {
    const auto type = types.classType();
    types.addMember(type, type);
    types.addMember(type, logic);
    EXPECT_EQ(encodingOf(type), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassOverAFourStateBaseClassIsFourStateOnceThenTwoState) {
    const auto base = types.classType({logic});
    const auto type = types.classType({bit}, base);
    EXPECT_EQ(encodingOf(type), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(base), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, EveryClassDerivedFromAFourStateBaseClassKeepsItsMark) {
    const auto root = types.classType({logic});
    const auto middle = types.classType({}, root);
    const auto leaf = types.classType({}, middle);
    const auto holder = types.classType({leaf});
    EXPECT_EQ(encodingOf(holder), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(leaf), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(middle), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(holder), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(root), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassIsMarkedForAPartOfTheStructsAroundItThatItsBaseClassLeadsTo) {
    // The base class comes back to the outer struct, and through it to the inner struct's last
    // member, while the derived class waits for its answer.
    const auto outer = types.structure();
    const auto base = types.classType({outer});
    const auto derived = types.classType({}, base);
    types.addMember(outer, types.structure({bit, derived, logic}));
    EXPECT_EQ(encodingOf(outer), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(derived), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(base), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassIsMarkedForAPartThatAnEarlierPartOfItsStructLeadsBackTo) {
    // outer {inner, logic}; inner {back, derived}; back {outer}. The base class comes to `inner`
    // again, and through `back`, which ended at `outer` before, to the last member of `outer`.
    const auto outer = types.structure();
    const auto inner = types.structure({types.structure({outer})});
    const auto base = types.classType({inner});
    const auto derived = types.classType({}, base);
    types.addMember(inner, derived);
    types.addMember(outer, inner);
    types.addMember(outer, logic);
    EXPECT_EQ(encodingOf(outer), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(derived), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(base), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, TypedefOfAClassLeavesAndSeesTheMark) {
    const auto base = types.classType({byte});
    const auto type = types.classType({}, base);
    const auto name = types.alias(type);
    EXPECT_EQ(encodingOf(name), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(name), ENCODING_2_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, DestroyedClassLosesItsMark) {
    const auto base = types.classType({logic});
    alignas(RTClassType) unsigned char room[sizeof(RTClassType)];
    auto* first = new (room) RTClassType;
    first->m_baseClass = &types[base];
    EXPECT_EQ(first->getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(first->getValueEncoding(), ENCODING_2_STATE);
    first->~RTClassType();
    auto* second = new (room) RTClassType;
    second->m_baseClass = &types[base];
    EXPECT_EQ(second->getValueEncoding(), ENCODING_4_STATE);
    second->~RTClassType();
}

TEST_F(ValueEncodings, ExceptionTakesTheMarksOfTheQueryBack) {
    auto& throwing = types.add<ThrowingType>();
    const auto base = types.classType({bit, types.last()});
    const auto derived = types.classType({}, base);
    const auto type = types.classType({bit, derived});
    EXPECT_THROW(encodingOf(type), std::runtime_error);
    throwing.m_throws = false;
    EXPECT_EQ(encodingOf(base), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(type), ENCODING_4_STATE);
    EXPECT_EQ(encodingOf(derived), ENCODING_2_STATE); // Marked by the query before.
}

TEST_F(ValueEncodings, ExceptionLeavesMarksThatWereKeptBefore) {
    const auto throwing = types.plain<ThrowingType>();
    const auto base = types.classType({logic});
    const auto marked = types.classType({}, base);
    EXPECT_EQ(encodingOf(marked), ENCODING_4_STATE);
    const auto type = types.classType({marked, throwing});
    EXPECT_THROW(encodingOf(type), std::runtime_error);
    EXPECT_EQ(encodingOf(marked), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, GetSelfOfATypedefKeepsItOrStripsEveryLayer) {
    const auto number = types.integer();
    const auto inner = types.alias(number);
    const auto outer = types.alias(inner);
    EXPECT_EQ(types[outer].getSelf(true), &types[outer]);
    EXPECT_EQ(types[outer].getSelf(false), &types[number]);
    EXPECT_EQ(types[types.alias(NO_TYPE_ID)].getSelf(false), nullptr);
}

TEST_F(ValueEncodings, GetSelfOfAnyOtherTypeIsTheTypeItself) {
    const auto aliased = types.alias(bit);
    const LinkedTypes::Ids others = {types.integer(),
                                     bit,
                                     types.discreteEnum(aliased),
                                     types.classType({aliased}),
                                     types.structure({aliased}),
                                     types.vhdlArray(aliased, {{0, 1, 1}}),
                                     types.container<RTQueueType>(aliased)};
    for (const unsigned int other : others) {
        const RTBaseType& type = types[other];
        EXPECT_EQ(type.getSelf(true), &type);
        EXPECT_EQ(type.getSelf(false), &type);
    }
}

TEST_F(ValueEncodings, ValueSizeIsRecordedByEnumsAccessAndFileTypes) {
    types.add<RTSeqEnumType>().m_valueSize = 1;
    types.add<RTDiscreteEnumType>().m_valueSize = 2;
    types.add<RTAccessType>().m_valueSize = 3;
    types.add<RTFileType>().m_valueSize = 4;
    for (unsigned int size = 1; size <= 4; ++size)
        EXPECT_EQ(types[types.size() - 5 + size].getValueSize(), size);
}

TEST_F(ValueEncodings, ValueSizeOfEveryOtherTypeIsZero) {
    types.add<RTAccessType>().m_valueSize = 8;
    const auto access = types.last();
    const LinkedTypes::Ids others = {types.integer(),
                                     types.plain<RTFloatType>(),
                                     types.string(),
                                     types.plain<RTWildCardType>(),
                                     types.plain<RTEventType>(),
                                     types.plain<RTPhysicalType>(),
                                     types.plain<RTCHandle>(),
                                     types.plain<RTEnumType>(),
                                     types.alias(access),
                                     types.vhdlArray(access, {{0, 1, 1}}),
                                     types.structure({access}),
                                     types.classType({access}),
                                     types.container<RTDynamicArrayType>(access),
                                     types.container<RTQueueType>(access),
                                     types.container<RTAssocArrayType>(access)};
    for (const unsigned int other : others)
        EXPECT_EQ(types[other].getValueSize(), 0U) << std::hex << types[other].GetClassId();
}

} // namespace
