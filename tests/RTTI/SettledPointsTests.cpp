// Damaged and cyclic type files, storages that fail, and managers that are used out of order.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <iostream>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

TEST(CutNames, EnumeratorNameEndsWithTheRecordAndTheRestAreEmpty) {
    TypeFileBuilder file;
    file.record(0xA0000003, "e").i32(2).i32(5).i32(3).str("idle").bytes("bu");
    LoadedTypes types(file);
    EXPECT_THAT(types.as<RTSeqEnumType>(0).m_enumeratorNames,
                ElementsAre(StrEq("idle"), StrEq("bu"), StrEq("")));
    EXPECT_EQ(types[0]->getValueSize(), 1u);
}

TEST(CutNames, DiscreteEnumeratorNameEndsWithTheRecordAndItsValueIsZero) {
    TypeFileBuilder file;
    file.string("s").record(0xA0000004, "e").u32(0).i32(1).i32(2).bytes("bu");
    LoadedTypes types(file);
    const auto& enumerator = types.as<RTDiscreteEnumType>(1).m_enumerators[0];
    EXPECT_EQ(enumerator.enumName, "bu");
    EXPECT_EQ(std::string(enumerator.value, 2), std::string(2, '\0'));
}

TEST(CutNames, RecordOfNineBytesHasOneLetterOfItsName) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "int").cut(9));
    EXPECT_STREQ(types[0]->m_name, "i");
}

TEST(CutNames, RecordOfEightBytesHasAnEmptyName) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000005, "int").cut(8));
    EXPECT_STREQ(types[0]->m_name, "");
}

TEST(CutRecords, OfEveryKindLoadAtEverySize) {
    for (unsigned int kind = 0xA0000003; kind <= 0xA0000019; ++kind) {
        for (std::size_t size = 8; size < 50; ++size) {
            TypeFileBuilder file;
            file.record(kind, "name", 0x11)
                .u32(0)
                .u32(1)
                .u32(1)
                .str("m")
                .bytes(std::string(8, '\0'));
            file.u32(1).range(1, 2, 3).i32(4).cut(size);
            LoadedTypes types(file);
            const bool builds = types[0] != nullptr;
            const bool nothing = kind == 0xA000000A || kind == 0xA000000E || kind == 0xA000000F ||
                                 kind == 0xA0000012 || kind == 0xA0000016;
            EXPECT_NE(builds, nothing) << std::hex << kind << " cut to " << std::dec << size;
        }
    }
}

TEST(CutRecords, RecordThatClaimsMoreThanTheStorageHoldsEndsInItsException) {
    TypeFileBuilder file;
    file.integer("int").claim(4000);
    LoadedTypes types(file, false);
    EXPECT_THROW(types[0], std::out_of_range);
    EXPECT_THROW(types.manager().readAllRTTypes(), std::out_of_range);
}

TEST(OutOfRange, ReferencesOfEveryKindAreNull) {
    TypeFileBuilder file;
    file.record(0xA0000004, "e").u32(99).record(0xA0000007, "t").u32(8);
    file.record(0xA0000008, "p").u32(0xFFFFFFFF).record(0xA000000C, "f").u32(8);
    file.record(0xA0000010, "a").u32(0xA00001).u32(8).record(0xA0000014, "q").u32(0x80000000);
    file.record(0xA0000015, "m").u32(8).i32(0).u32(8).record(0xA0000017, "c").u32(8).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_baseType, nullptr);
    EXPECT_EQ(types.as<RTTypedefType>(1).m_dataType, nullptr);
    EXPECT_EQ(types.as<RTAccessType>(2).m_refType, nullptr);
    EXPECT_EQ(types.as<RTFileType>(3).m_refType, nullptr);
    EXPECT_EQ(types.as<RTArrayType>(4).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTQueueType>(5).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(6).m_indexType, nullptr);
    EXPECT_EQ(types.as<RTClassType>(7).m_baseClass, nullptr);
    EXPECT_EQ(types.as<RTClassType>(7).m_baseClassTypeId, 8u);
    EXPECT_EQ(types.storage().takeReads().size(), 8u * 3);
}

TEST(OutOfRange, TypesOfAFileMarkedInvalidAreNullAndNotRead) {
    TypeFileBuilder file;
    file.version("Brakel Ovat TYPE FILE 000");
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types[0], nullptr);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
    EXPECT_THAT(types.storage().takeReads(), IsEmpty());
}

TEST(BeforeSetup, DebugModeCanBeSwitched) {
    RTTypeManager manager;
    manager.setDebugMode();
    manager.unsetDebugMode();
    EXPECT_EQ(manager.getRTType(0xFFFFFFFF), nullptr);
}

TEST(BeforeSetup, ConstructionLeavesTheSharedInstanceAlone) {
    RTTypeManager shared;
    RTTypeManager::m_instance = &shared;
    const auto* other = new RTTypeManager;
    EXPECT_EQ(RTTypeManager::m_instance, &shared);
    delete other;
    EXPECT_EQ(RTTypeManager::m_instance, nullptr);
}

TEST(BeforeSetup, ManagerWhoseFirstSetupFailsStaysEmptyAndCanBeSetUp) {
    TypeFileBuilder file;
    file.integer("int").integer("other");
    for (std::size_t read = 0; read < 3; ++read) {
        RecordingBlockManager failing(file.image());
        failing.failAtRead(read);
        RTTypeManager manager;
        EXPECT_THROW(manager.setupDeserializer(failing, 0), std::runtime_error) << read;
        EXPECT_EQ(manager.readAllRTTypes(), nullptr);
        EXPECT_TRUE(manager.setupDeserializer(failing, 0));
        EXPECT_STREQ(manager.readAllRTTypes()->m_name, "other");
    }
}

TEST(SecondSetup, StartsWithTheTraceOffAndWithoutClasses) {
    TypeFileBuilder file;
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(0);
    LoadedTypes types(file);
    types.manager().setDebugMode();
    const CapturedOutput output;
    types.manager().setupDeserializer(types.storage(), 0);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
    EXPECT_NE(types[0], nullptr);
    EXPECT_EQ(output.text(), "");
}

TEST(SecondSetup, KeepsEveryFormerFileAliveUntilTheManagerEnds) {
    TypeFileBuilder file;
    file.integer("int");
    LoadedTypes types(file);
    const RTBaseType* first = types[0];
    types.manager().setupDeserializer(types.storage(), 0);
    const RTBaseType* second = types[0];
    types.manager().setupDeserializer(types.storage(), 0);
    EXPECT_NE(first, second);
    EXPECT_STREQ(first->m_name, "int");
    EXPECT_STREQ(second->m_name, "int");
}

TEST(NeverEnding, ReferencesOfEveryKindToTheirOwnRecordAreNull) {
    TypeFileBuilder file;
    file.record(0xA0000004, "e").u32(0).record(0xA000000C, "f").u32(1);
    file.record(0xA0000010, "a").u32(0xA00001).u32(2).record(0xA0000013, "d").u32(3);
    file.record(0xA0000014, "q").u32(4).record(0xA0000015, "m").u32(5).i32(0).u32(5);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDiscreteEnumType>(0).m_baseType, nullptr);
    EXPECT_EQ(types.as<RTFileType>(1).m_refType, nullptr);
    EXPECT_EQ(types.as<RTArrayType>(2).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTDynamicArrayType>(3).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTQueueType>(4).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(5).m_elementType, nullptr);
    EXPECT_EQ(types.as<RTAssocArrayType>(5).m_indexType, nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 6u * 3);
}

TEST(NeverEnding, RingOfAncestorsEndsAtTheClassThatWasAskedFor) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(1).i32(0).i32(0).record(0xA0000017, "b").u32(2).i32(0).i32(0);
    file.record(0xA0000017, "c").u32(0).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
    EXPECT_EQ(types.as<RTClassType>(1).m_baseClass, types[2]);
    EXPECT_EQ(types.as<RTClassType>(2).m_baseClass, nullptr);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(2u, 1u, 0u));
    EXPECT_EQ(types.storage().takeReads().size(), 9u);
}

TEST(NeverEnding, FieldsBehindTheReferenceAreReadAllTheSame) {
    LoadedTypes types(TypeFileBuilder{}.record(0xA0000007, "t").u32(0).u32(1).range(1, 2, 3));
    EXPECT_THAT(numbersOf(types.as<RTTypedefType>(0).m_constraints),
                ElementsAre(ElementsAre(1, 2, 3)));
}

TEST(ReadTwice, BaseClassWithAMemberOfTheDerivedClassIsTracedTwice) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(0).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(0).i32(1).str("d").u32(0).u32(0).u32(0);
    const std::string trace = LoadedTypes(file, false).trace();
    const std::string begin = "**** Type Id  =  0   begin ****  \n";
    const std::size_t first = trace.find(begin);
    ASSERT_NE(first, std::string::npos);
    const std::size_t second = trace.find(begin, first + 1);
    ASSERT_NE(second, std::string::npos);
    EXPECT_EQ(trace.find(begin, second + 1), std::string::npos);
    EXPECT_EQ(trace.find("**** Type Id  =  1   begin", trace.find("Type Id  =  1   begin") + 1),
              std::string::npos);
}

TEST(ReadTwice, ObjectIsTheSameWhicheverOfThemIsAskedForFirst) {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(0).i32(0);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(0).i32(1).str("d").u32(0).u32(0).u32(0);
    for (const unsigned int first : {0u, 1u}) {
        LoadedTypes types(file, false);
        const RTBaseType* asked = types[first];
        EXPECT_EQ(types[first], asked);
        EXPECT_EQ(types.as<RTClassType>(0).m_baseClass, types[1]);
        EXPECT_THAT(types.as<RTClassType>(1).m_memberTypes, ElementsAre(types[0]));
        EXPECT_EQ(types.storage().takeReads().size(), first == 0 ? 9u : 6u);
        EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(1u, 0u));
    }
}

TEST(ReadTwice, ArrayOfAStructWithAMemberOfThatArrayIsOneObject) {
    TypeFileBuilder file;
    file.record(0xA0000013, "children").u32(1).i32(3);
    file.record(0xA0000011, "node").u32(0xB0002).i32(1).str("children").u32(0).u32(0).i32(-99);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTDynamicArrayType>(0).m_elementType, types[1]);
    EXPECT_THAT(types.as<RTRecordType>(1).m_memberTypes, ElementsAre(types[0]));
    EXPECT_EQ(types[0]->getSVTypeId(), 3);
    EXPECT_EQ(types.storage().takeReads().size(), 9u);
}

TEST(ReadTwice, FileOfAnAccessTypeThatDesignatesTheFileIsOneObject) {
    TypeFileBuilder file;
    file.record(0xA000000C, "f").u32(1).u32(1).u32(2).record(0xA0000008, "p").u32(0).u32(3).u32(4);
    LoadedTypes types(file);
    EXPECT_EQ(types.as<RTFileType>(0).m_refType, types[1]);
    EXPECT_EQ(types.as<RTAccessType>(1).m_refType, types[0]);
}

/// Storage that runs an action just before the read with a given number.
class ActingStorage : public RecordingBlockManager {
public:
    ActingStorage(std::string image, std::size_t number, std::function<void()> action)
        : RecordingBlockManager(std::move(image)), m_number(number), m_action(std::move(action)) {}
    bool read(unsigned long long offset, void* buffer, long long count) override {
        if (m_done++ == m_number)
            m_action();
        return RecordingBlockManager::read(offset, buffer, count);
    }

private:
    std::size_t m_number;
    std::size_t m_done = 0;
    std::function<void()> m_action;
};

TEST(TraceSwitch, TakesEffectInTheMiddleOfARecord) {
    RTTypeManager manager;
    TypeFileBuilder file;
    file.string("s"); // Two reads of the setup, then size, kind and record.
    ActingStorage storage(file.image(), 4, [&] { manager.setDebugMode(); });
    const CapturedOutput output;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    EXPECT_EQ(output.text(), " ** Built in String Type   Type name =  s  , flags =  0  **  \n"
                             "**** Type Id  =  0   end ****  \n"
                             " ===============================================  \n");
}

TEST(TraceSwitch, FailedOutputDoesNotDisturbTheLoad) {
    TypeFileBuilder file;
    file.record(0xA0000011, "r").u32(0xB0002).i32(1).str("m").u32(1).u32(0).i32(4).integer("i");
    LoadedTypes types(file, false);
    const CapturedOutput output;
    std::cout.setstate(std::ios::badbit);
    types.manager().setDebugMode();
    const RTBaseType* last = types.manager().readAllRTTypes();
    std::cout.clear();
    EXPECT_EQ(last, types[1]);
    EXPECT_EQ(types[0]->getSVTypeId(), 4);
    EXPECT_EQ(output.text(), "");
}

/// Types that lead to one another in every way that a record can.
TypeFileBuilder everyReference() {
    TypeFileBuilder file;
    file.record(0xA0000007, "alias").u32(1).u32(1).range(0, 1, 1);
    file.record(0xA0000017, "class").u32(2).i32(1).i32(2).str("a").u32(0).u32(0).u32(0);
    file.str("b").u32(3).u32(0).u32(1);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(2).i32(1).str("c").u32(1).u32(0).u32(0);
    file.record(0xA0000015, "map").u32(4).i32(3).u32(5);
    file.record(0xA0000008, "pointer").u32(0).u32(8).u32(8);
    file.record(0xA0000004, "enum").u32(6).i32(1).i32(1).str("A").bytes("a").u32(0);
    file.record(0xA0000010, "array").u32(0xA00001).u32(7).i32(0).u32(0).i32(-99);
    file.record(0xA000000C, "file").u32(8).u32(1).u32(1).string("text");
    return file;
}

TEST(FailedReads, LeaveTheTableAsItWasBeforeTheCallWhicheverTypeIsAskedFor) {
    const std::size_t setup = 1 + 9;
    for (unsigned int id = 0; id < 9; ++id) {
        LoadedTypes whole(everyReference(), false);
        ASSERT_NE(whole[id], nullptr);
        const auto reads = whole.storage().takeReads();
        for (std::size_t failing = 0; failing < reads.size(); ++failing) {
            LoadedTypes types(everyReference(), false);
            types.storage().failAtRead(setup + failing);
            EXPECT_THROW(types[id], std::runtime_error) << id << " at " << failing;
            EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
            types.storage().takeReads();
            EXPECT_STREQ(types[id]->m_name, whole[id]->m_name);
            EXPECT_EQ(types.storage().takeReads(), reads) << id << " at " << failing;
        }
    }
}

TEST(FailedReads, OfALaterCallKeepTheClassesOfEarlierOnes) {
    TypeFileBuilder file;
    file.record(0xA0000017, "a").u32(0xFFFFFFFF).i32(1).i32(0);
    file.record(0xA0000017, "b").u32(0xFFFFFFFF).i32(2).i32(1).str("m").u32(2).u32(0).u32(0);
    file.string("s");
    LoadedTypes types(file, false);
    const RTBaseType* first = types[0];
    types.storage().failAtRead(1 + 3 + 3 + 3); // Setup, both classes; the member's type fails.
    EXPECT_THROW(types.manager().readAllRTTypes(), std::runtime_error);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u));
    EXPECT_EQ(types[0], first);
    EXPECT_EQ(types.manager().readAllRTTypes(), types[2]);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), ElementsAre(0u, 1u));
}

TEST(FailedReads, LeaveTheNextRecordItsOwnFields) {
    TypeFileBuilder file;
    file.record(0xA0000007, "t").u32(1).u32(0).string("s").record(0xA0000011, "r").u32(0xB0003);
    file.i32(0).i32(6);
    LoadedTypes types(file, false);
    types.storage().failAtRead(1 + 3 + 3); // In the middle of the typedef: its type's size.
    EXPECT_THROW(types[0], std::runtime_error);
    EXPECT_EQ(types.as<RTRecordType>(2).m_recordKind, VLOG_PACKED_STRUCT);
    EXPECT_EQ(types[2]->getSVTypeId(), 6);
}

} // namespace
