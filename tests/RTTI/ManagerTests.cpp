#include "RTTI/RTTypeManager.h"
#include "RTTI/TypeDeserializer.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(Manager, WithATypeCountOfZeroIsSetUpAndReadsNothing) {
    LoadedTypes types(TypeFileBuilder{}, false);
    EXPECT_EQ(types.manager().readAllRTTypes(), nullptr);
    EXPECT_THAT(types.storage().takeReads(), IsEmpty());
}

TEST(Manager, ReadsNoAddressTableOfAFileMarkedInvalid) {
    TypeFileBuilder file;
    file.version("Brakel Ovat TYPE FILE 000").integer("int");
    RecordingBlockManager storage(file.image());
    RTTypeManager manager;
    EXPECT_TRUE(manager.setupDeserializer(storage, 0));
    EXPECT_THAT(storage.takeReads(), ElementsAre(Pair(0u, 40)));
    EXPECT_EQ(manager.readAllRTTypes(), nullptr);
    EXPECT_EQ(manager.getRTType(0), nullptr);
}

TEST(Manager, TakesAVersionThatDiffersFromTheMarkerInAnyCharacterForAnOrdinaryOne) {
    for (std::size_t i = 0; i < 25; ++i) {
        std::string version = "Brakel Ovat TYPE FILE 000";
        version[i] = '#';
        LoadedTypes types(TypeFileBuilder{}.version(version).integer("int"));
        EXPECT_NE(types[0], nullptr) << i;
    }
}

TEST(Manager, TakesTheMarkerWithoutItsTerminatorForAnOrdinaryVersion) {
    LoadedTypes types(TypeFileBuilder{}.version("Brakel Ovat TYPE FILE 000+").integer("int"));
    EXPECT_NE(types[0], nullptr);
}

TEST(Manager, ReadsOneAddressATypeWhateverTheBaseOffset) {
    std::string image(0x118, '\0');
    image.replace(16, 11, "TYPE FILE 1");
    image[16 + 32] = 3;
    image[16 + 37] = 1; // The table stands at 0x100, not at 0x110.
    RecordingBlockManager storage(image);
    RTTypeManager manager;
    EXPECT_TRUE(manager.setupDeserializer(storage, 16));
    EXPECT_THAT(storage.takeReads(),
                ElementsAre(Pair(16u, 40), Pair(0x100u, 8), Pair(0x108u, 8), Pair(0x110u, 8)));
}

TEST(Manager, ReadsSizeThenKindThenTheWholeRecord) {
    TypeFileBuilder file;
    file.string("text");
    LoadedTypes types(file);
    EXPECT_THAT(types.storage().takeReads(),
                ElementsAre(Pair(40u, 4), Pair(44u, 4), Pair(40u, 17)));
}

TEST(Manager, IgnoresDebugModeBeforeSetup) {
    TypeFileBuilder file;
    file.integer("int");
    RecordingBlockManager storage(file.image());
    const CapturedOutput output;
    RTTypeManager manager;
    manager.setDebugMode();
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    EXPECT_EQ(output.text(), "");
}

TEST(Manager, TracesOnlyWhileDebugModeIsOn) {
    LoadedTypes types(TypeFileBuilder{}.integer("a").integer("b"), false);
    const CapturedOutput output;
    types.manager().setDebugMode();
    types[0];
    types.manager().unsetDebugMode();
    const std::string once = output.text();
    types[1];
    EXPECT_NE(once, "");
    EXPECT_EQ(output.text(), once);
}

TEST(Manager, StopsReadingAllAtTheFirstKindThatBuildsNothing) {
    TypeFileBuilder file;
    file.integer("0").integer("1").integer("2").record(0xA000000A, "3").integer("4");
    LoadedTypes types(file, false);
    EXPECT_EQ(types.manager().readAllRTTypes(), nullptr);
    EXPECT_EQ(types.storage().takeReads().size(), 4u * 3);
    EXPECT_STREQ(types.as<RTIntType>(4).m_name, "4");
    EXPECT_EQ(types.storage().takeReads().size(), 3u);
}

TEST(Manager, AnswersWithTheSameObjectWithoutReadingAgain) {
    LoadedTypes types(TypeFileBuilder{}.integer("int"), false);
    const RTBaseType* first = types[0];
    types.storage().takeReads();
    EXPECT_EQ(types[0], first);
    EXPECT_THAT(types.storage().takeReads(), IsEmpty());
}

TEST(Manager, ReturnsTheLastTypeOfAWholeLoad) {
    LoadedTypes types(TypeFileBuilder{}.integer("a").string("b"), false);
    EXPECT_EQ(types.manager().readAllRTTypes(), types[1]);
}

TEST(Manager, ClearsTheSharedInstanceWhenAnyManagerEnds) {
    RTTypeManager shared;
    RTTypeManager::m_instance = &shared;
    { const RTTypeManager other; }
    EXPECT_EQ(RTTypeManager::m_instance, nullptr);
}

TEST(Manager, HoldsOnePointer) { EXPECT_EQ(sizeof(RTTypeManager), sizeof(void*)); }

TEST(Manager, AnswersNullBeforeSetup) {
    RTTypeManager manager;
    EXPECT_EQ(manager.readAllRTTypes(), nullptr);
    EXPECT_EQ(manager.getRTType(0), nullptr);
    manager.getRTClassTypeIds().push_back(7);
    EXPECT_THAT(manager.getRTClassTypeIds(), IsEmpty());
}

TEST(Manager, AnswersNullForIdsOutOfRange) {
    LoadedTypes types(TypeFileBuilder{}.integer("int"));
    EXPECT_EQ(types[1], nullptr);
    EXPECT_EQ(types[0xFFFFFFFF], nullptr);
}

TEST(Manager, KeepsTypesOfAFormerSetupAlive) {
    TypeFileBuilder first;
    first.integer("first");
    TypeFileBuilder second;
    second.string("second");
    RecordingBlockManager firstStorage(first.image());
    RecordingBlockManager secondStorage(second.image());
    RTTypeManager manager;
    manager.setupDeserializer(firstStorage, 0);
    const RTBaseType* kept = manager.getRTType(0);
    manager.setupDeserializer(secondStorage, 0);
    EXPECT_STREQ(manager.getRTType(0)->m_name, "second");
    EXPECT_STREQ(kept->m_name, "first");
}

TEST(Manager, KeepsItsFileWhenASecondSetupFails) {
    TypeFileBuilder file;
    file.integer("int");
    LoadedTypes types(file);
    for (std::size_t read = 0; read < 2; ++read) {
        RecordingBlockManager failing(file.image());
        failing.failAtRead(read);
        EXPECT_THROW(types.manager().setupDeserializer(failing, 0), std::runtime_error);
    }
    EXPECT_STREQ(types[0]->m_name, "int");
}

/// A class with a base class, members of an array, an access and a typedef type that lead back.
TypeFileBuilder tangledFile() {
    TypeFileBuilder file;
    file.record(0xA0000017, "derived").u32(1).i32(-99).u32(1).str("m").u32(2).u32(0).u32(1);
    file.record(0xA0000017, "base").u32(0xFFFFFFFF).i32(3).u32(1).str("d").u32(0).u32(0).u32(0);
    file.record(0xA0000010, "array").u32(0xA00002).u32(3).u32(1).u32(5).u32(0).i32(-99);
    file.record(0xA0000007, "alias").u32(4).u32(1).range(1, 2, 1);
    file.record(0xA0000008, "pointer").u32(0).u32(8).u32(8);
    file.integer("index");
    return file;
}

TEST(Manager, TakesBackALoadThatFailsAtAnyReadAndMakesItAgain) {
    LoadedTypes whole(tangledFile());
    const std::size_t reads = whole.storage().takeReads().size();
    const std::size_t setupReads = 7;
    ASSERT_GE(reads, 6u * 3);
    for (std::size_t read = 0; read < reads; ++read) {
        LoadedTypes types(tangledFile(), false);
        types.storage().failAtRead(setupReads + read);
        EXPECT_THROW(types.manager().readAllRTTypes(), std::runtime_error) << read;
        EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty()) << read;
        types.storage().takeReads();
        EXPECT_NE(types.manager().readAllRTTypes(), nullptr) << read;
        EXPECT_EQ(types.storage().takeReads().size(), reads) << read;
        EXPECT_EQ(types.manager().getRTClassTypeIds(), whole.manager().getRTClassTypeIds());
        EXPECT_EQ(types.as<RTClassType>(1).m_memberTypes[0], types[0]);
        EXPECT_EQ(types.as<RTAccessType>(4).m_refType, types[0]);
    }
}

TEST(Manager, KeepsWhatEarlierCallsReadWhenALaterOneFails) {
    LoadedTypes types(TypeFileBuilder{}.integer("a").integer("b"), false);
    const RTBaseType* first = types[0];
    types.storage().failAtRead(3 + 3 + 2); // Setup, the first type, the second type's record.
    EXPECT_THROW(types[1], std::runtime_error);
    EXPECT_EQ(types[0], first);
    EXPECT_STREQ(types[1]->m_name, "b");
}

TEST(Deserializer, TracesTheAddressTable) {
    TypeFileBuilder file;
    file.integer("int").string("text");
    RecordingBlockManager storage(file.image());
    TypeDeserializer deserializer(storage, 0);
    deserializer.setDebugMode(true);
    const CapturedOutput output;
    deserializer.readHeader();
    EXPECT_EQ(output.text(), " ** Address table begin **  \n"
                             "TypeAddressTable[ 0 ] =   40  \n"
                             "TypeAddressTable[ 1 ] =   68  \n"
                             " ** Address table end **  \n");
}

TEST(Deserializer, WritesAnItemWithoutLabelAndTail) {
    RecordingBlockManager storage("");
    TypeDeserializer deserializer(storage, 0);
    const CapturedOutput output;
    deserializer.printDebugInfo(nullptr, "off", nullptr, true);
    deserializer.setDebugMode(true);
    deserializer.printDebugInfo(nullptr, "value", nullptr, true);
    EXPECT_EQ(output.text(), " value  \n");
}

TEST(Deserializer, WritesNumbersInDecimal) {
    EXPECT_EQ(TypeDeserializer::NumberToString<int>(-1), "-1");
    EXPECT_EQ(TypeDeserializer::NumberToString<unsigned int>(static_cast<unsigned int>(-1)),
              "4294967295");
}

} // namespace
