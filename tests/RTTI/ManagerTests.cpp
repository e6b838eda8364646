// A manager before its setup, after it, and after the next one.

#include "RTTI/RTTypeManager.h"
#include "RTTI/TypeDeserializer.h"
#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

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
