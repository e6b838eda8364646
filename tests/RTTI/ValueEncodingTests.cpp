// How types say that their values are encoded: the parts decide, and classes guard against cycles.

#include "OVAT/IBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "tests/support/TypeGraph.h"

#include <gtest/gtest.h>

#include <cstring>
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
    TypeGraph types;
    const RTBaseType* bit = &types.seqEnum(ENCODING_2_STATE);
    const RTBaseType* logic = &types.seqEnum(ENCODING_4_STATE);
    const RTBaseType* byte = &types.seqEnum(ENCODING_BYTE);
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
    auto& type = types.seqEnum(ENCODING_2_STATE);
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
}

/// One record: header of 40 bytes, record from byte 40, address table behind it.
class OneRecordStorage : public OVAT::IBlockManager {
public:
    explicit OneRecordStorage(const std::string& record) {
        m_bytes.assign(32, '\0');
        addNumber(1, 4);
        addNumber(40 + record.size(), 4);
        m_bytes += record;
        addNumber(40, 8);
    }
    bool read(unsigned long long offset, void* buffer, long long count) override {
        std::memcpy(buffer, m_bytes.substr(offset).data(), static_cast<std::size_t>(count));
        return true;
    }

private:
    void addNumber(unsigned long long number, int width) {
        for (int i = 0; i < width; ++i)
            m_bytes += static_cast<char>(number >> (8 * i) & 0xFF);
    }

    std::string m_bytes;
};

TEST_F(ValueEncodings, SeqEnumReadWithAShortEncodingFieldIsFourState) {
    // Size 15, seq enum, name "e", flags, then one byte of the four that the encoding takes.
    OneRecordStorage storage(std::string("\x0F\0\0\0\x03\0\0\xA0"
                                         "e\0"
                                         "\0\0\0\0"
                                         "\x01",
                                         15));
    RTTypeManager manager;
    ASSERT_TRUE(manager.setupDeserializer(storage, 0));
    const RTBaseType* type = manager.getRTType(0);
    ASSERT_NE(type, nullptr);
    ASSERT_EQ(type->GetClassId(), ClassId::SEQ_ENUM);
    EXPECT_EQ(type->getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, DiscreteEnumAnswersForItsBaseTypeNotItself) {
    auto& type = types.discreteEnum(bit);
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, DiscreteEnumWithoutBaseTypeAnswersByItsFlags) {
    auto& type = types.discreteEnum(nullptr);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, TypedefFollowsItsChainToTheEnd) {
    auto& inner = types.alias(logic);
    EXPECT_EQ(types.alias(&inner).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, TypedefWithoutTypeAnswersByItsFlags) {
    auto& type = types.alias(nullptr);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_UNPADDED_BYTE);
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
    const auto& type = types.array(VLOG_FIXED_PACKED_ARRAY, bit, 1, {});
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, QueueKindOfTwoStateIsByte) {
    EXPECT_EQ(types.array(VLOG_QUEUE, bit, 1, {}).getValueEncoding(), ENCODING_BYTE);
    EXPECT_EQ(types.container<RTQueueType>(bit).getValueEncoding(), ENCODING_BYTE);
}

TEST_F(ValueEncodings, FixedArraysAnswerForTheirElement) {
    auto& unpadded = types.add<RTIntType>();
    unpadded.m_flags = 0x10;
    for (const ArrayKind kind : {VLOG_FIXED_UNPACKED_ARRAY, VLOG_FIXED_PACKED_ARRAY}) {
        EXPECT_EQ(types.array(kind, logic, 1, {}).getValueEncoding(), ENCODING_4_STATE);
        EXPECT_EQ(types.array(kind, &unpadded, 1, {}).getValueEncoding(), ENCODING_UNPADDED_BYTE);
    }
}

TEST_F(ValueEncodings, EveryOtherArrayKindIsByteButUnpaddedByteArrays) {
    for (const unsigned int kind :
         {0U, 0xA00000U, 0xA00001U, 0xA00004U, 0xA00005U, 0xA00006U, 0xA00008U, 0xFFFFFFFFU}) {
        const auto& type = types.array(static_cast<ArrayKind>(kind), bit, 1, {});
        EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE) << std::hex << kind;
    }
    const auto& unpadded = types.array(BYTE_UNPADDED_ARRAY, bit, 1, {});
    EXPECT_EQ(unpadded.getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, ArrayWithoutElementIsByteWhateverItsFlags) {
    auto& type = types.array(VLOG_FIXED_PACKED_ARRAY, nullptr, 1, {});
    type.m_flags = 0x10;
    EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE);
}

TEST_F(ValueEncodings, StructWithOneFourStateMemberIsFourState) {
    EXPECT_EQ(types.structure({bit, bit, logic, bit}).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithOneByteMemberIsFourState) {
    EXPECT_EQ(types.structure({bit, byte, bit}).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithOneUnpaddedByteMemberIsFourState) {
    auto& unpadded = types.record(BYTE_UNPADDED_STRUCT);
    EXPECT_EQ(types.structure({bit, &unpadded}).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructWithoutMembersIsTwoState) {
    EXPECT_EQ(types.structure().getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, StructAsksNoMemberBehindTheFirstThatIsNotTwoState) {
    auto& throwing = types.add<ThrowingType>();
    EXPECT_EQ(types.structure({logic, &throwing}).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, VhdlRecordIsByteWhateverItsMembers) {
    EXPECT_EQ(types.record(VHDL_RECORD).getValueEncoding(), ENCODING_BYTE);
    EXPECT_EQ(types.record(VHDL_RECORD, {bit}).getValueEncoding(), ENCODING_BYTE);
    EXPECT_EQ(types.record(VHDL_RECORD, {logic}).getValueEncoding(), ENCODING_BYTE);
}

TEST_F(ValueEncodings, RecordKindsFromTwoToSevenLookAtTheirMembersAndNoOtherDoes) {
    for (unsigned int kind = VLOG_UNPACKED_STRUCT; kind <= VLOG_UNPACKED_UNTAGGED_UNION; ++kind) {
        const auto recordKind = static_cast<RecordKind>(kind);
        EXPECT_EQ(types.record(recordKind, {bit}).getValueEncoding(), ENCODING_2_STATE);
        EXPECT_EQ(types.record(recordKind, {byte}).getValueEncoding(), ENCODING_4_STATE);
    }
    for (const unsigned int kind : {0U, 0xB0000U, 0xB0009U, 0xFFFFFFFFU}) {
        const auto& type = types.record(static_cast<RecordKind>(kind), {bit});
        EXPECT_EQ(type.getValueEncoding(), ENCODING_BYTE) << std::hex << kind;
    }
    const auto& unpadded = types.record(BYTE_UNPADDED_STRUCT, {bit});
    EXPECT_EQ(unpadded.getValueEncoding(), ENCODING_UNPADDED_BYTE);
}

TEST_F(ValueEncodings, MissingMemberCountsAsNotTwoState) {
    EXPECT_EQ(types.structure({bit, nullptr}).getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(types.classType({bit, nullptr}).getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructThatComesBackToItselfCountsAsTwoStateThere) {
    auto& type = types.structure({bit});
    addMember(type, &type);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
    addMember(type, logic);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, StructIsWalkedAgainBehindAClass) {
    // outer: class, then throwing. The class comes back to outer, which leads to `throwing` before
    // the class's own 4-state member is asked.
    auto& throwing = types.add<ThrowingType>();
    auto& outer = types.structure();
    auto& inner = types.classType({&outer, logic});
    addMember(outer, &inner);
    addMember(outer, &throwing);
    EXPECT_THROW(outer.getValueEncoding(), std::runtime_error);
}

TEST_F(ValueEncodings, ClassOfTwoStateMembersIsTwoState) {
    EXPECT_EQ(types.classType().getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(types.classType({bit, bit}).getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, ClassWithAHandleOfItselfIsTwoStateIfTheRestIs) {
    auto& base = types.classType({bit});
    auto& type = types.classType({bit}, &base);
    addMember(type, &type);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, ClassWithAHandleOfItselfIsFourStateIfAnotherMemberIs) {
    auto& type = types.classType();
    addMember(type, &type);
    addMember(type, logic);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassOverAFourStateBaseClassIsFourStateOnceThenTwoState) {
    auto& base = types.classType({logic});
    auto& type = types.classType({bit}, &base);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(base.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, EveryClassDerivedFromAFourStateBaseClassKeepsItsMark) {
    auto& root = types.classType({logic});
    auto& middle = types.classType({}, &root);
    auto& leaf = types.classType({}, &middle);
    auto& holder = types.classType({&leaf});
    EXPECT_EQ(holder.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(leaf.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(middle.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(holder.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(root.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassIsMarkedForAPartOfTheStructsAroundItThatItsBaseClassLeadsTo) {
    // The base class comes back to the outer struct, and through it to the inner struct's last
    // member, while the derived class waits for its answer.
    auto& outer = types.structure();
    auto& base = types.classType({&outer});
    auto& derived = types.classType({}, &base);
    addMember(outer, &types.structure({bit, &derived, logic}));
    EXPECT_EQ(outer.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(derived.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(base.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, ClassIsMarkedForAPartThatAnEarlierPartOfItsStructLeadsBackTo) {
    // outer {inner, logic}; inner {back, derived}; back {outer}. The base class comes to `inner`
    // again, and through `back`, which ended at `outer` before, to the last member of `outer`.
    auto& outer = types.structure();
    auto& inner = types.structure({&types.structure({&outer})});
    auto& base = types.classType({&inner});
    auto& derived = types.classType({}, &base);
    addMember(inner, &derived);
    addMember(outer, &inner);
    addMember(outer, logic);
    EXPECT_EQ(outer.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(derived.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(base.getValueEncoding(), ENCODING_4_STATE);
}

TEST_F(ValueEncodings, TypedefOfAClassLeavesAndSeesTheMark) {
    auto& base = types.classType({byte});
    auto& type = types.classType({}, &base);
    auto& name = types.alias(&type);
    EXPECT_EQ(name.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(name.getValueEncoding(), ENCODING_2_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, DestroyedClassLosesItsMark) {
    auto& base = types.classType({logic});
    alignas(RTClassType) unsigned char room[sizeof(RTClassType)];
    auto* first = new (room) RTClassType;
    first->m_baseClass = &base;
    EXPECT_EQ(first->getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(first->getValueEncoding(), ENCODING_2_STATE);
    first->~RTClassType();
    auto* second = new (room) RTClassType;
    second->m_baseClass = &base;
    EXPECT_EQ(second->getValueEncoding(), ENCODING_4_STATE);
    second->~RTClassType();
}

TEST_F(ValueEncodings, ExceptionTakesTheMarksOfTheQueryBack) {
    auto& throwing = types.add<ThrowingType>();
    auto& base = types.classType({bit, &throwing});
    auto& derived = types.classType({}, &base);
    auto& type = types.classType({bit, &derived});
    EXPECT_THROW(type.getValueEncoding(), std::runtime_error);
    throwing.m_throws = false;
    EXPECT_EQ(base.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(type.getValueEncoding(), ENCODING_4_STATE);
    EXPECT_EQ(derived.getValueEncoding(), ENCODING_2_STATE); // Marked by the query before.
}

TEST_F(ValueEncodings, ExceptionLeavesMarksThatWereKeptBefore) {
    auto& throwing = types.add<ThrowingType>();
    auto& base = types.classType({logic});
    auto& marked = types.classType({}, &base);
    EXPECT_EQ(marked.getValueEncoding(), ENCODING_4_STATE);
    auto& type = types.classType({&marked, &throwing});
    EXPECT_THROW(type.getValueEncoding(), std::runtime_error);
    EXPECT_EQ(marked.getValueEncoding(), ENCODING_2_STATE);
}

TEST_F(ValueEncodings, GetSelfOfATypedefKeepsItOrStripsEveryLayer) {
    const auto& number = types.add<RTIntType>();
    auto& inner = types.alias(&number);
    auto& outer = types.alias(&inner);
    EXPECT_EQ(outer.getSelf(true), &outer);
    EXPECT_EQ(outer.getSelf(false), &number);
    EXPECT_EQ(types.alias(nullptr).getSelf(false), nullptr);
}

TEST_F(ValueEncodings, GetSelfOfAnyOtherTypeIsTheTypeItself) {
    const auto& aliased = types.alias(bit);
    const Links others = {&types.add<RTIntType>(),
                          bit,
                          &types.discreteEnum(&aliased),
                          &types.classType({&aliased}),
                          &types.structure({&aliased}),
                          &types.array(&aliased, {{0, 1, 1}}),
                          &types.container<RTQueueType>(&aliased)};
    for (const RTBaseType* type : others) {
        EXPECT_EQ(type->getSelf(true), type);
        EXPECT_EQ(type->getSelf(false), type);
    }
}

TEST_F(ValueEncodings, ValueSizeIsRecordedByEnumsAccessAndFileTypes) {
    types.add<RTSeqEnumType>().m_valueSize = 1;
    types.add<RTDiscreteEnumType>().m_valueSize = 2;
    types.add<RTAccessType>().m_valueSize = 3;
    types.add<RTFileType>().m_valueSize = 4;
    const std::size_t count = types.size();
    for (unsigned int i = 0; i < 4; ++i)
        EXPECT_EQ(types[count - 4 + i].getValueSize(), i + 1);
}

TEST_F(ValueEncodings, ValueSizeOfEveryOtherTypeIsZero) {
    auto& access = types.add<RTAccessType>();
    access.m_valueSize = 8;
    const Links others = {&types.add<RTIntType>(),
                          &types.add<RTFloatType>(),
                          &types.add<RTStringType>(),
                          &types.add<RTWildCardType>(),
                          &types.add<RTEventType>(),
                          &types.add<RTPhysicalType>(),
                          &types.add<RTCHandle>(),
                          &types.add<RTEnumType>(),
                          &types.alias(&access),
                          &types.array(&access, {{0, 1, 1}}),
                          &types.structure({&access}),
                          &types.classType({&access}),
                          &types.container<RTDynamicArrayType>(&access),
                          &types.container<RTQueueType>(&access),
                          &types.container<RTAssocArrayType>(&access)};
    for (const RTBaseType* type : others)
        EXPECT_EQ(type->getValueSize(), 0U) << std::hex << type->GetClassId();
}

} // namespace
