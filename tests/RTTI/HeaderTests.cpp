// The header and the address table: which bytes are read, and which of them count.

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

using namespace RTTI;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// What a setup reads from an image whose header stands at `offset`.
std::vector<RecordingBlockManager::Read> setupReads(const std::string& image,
                                                    unsigned long long offset = 0) {
    RecordingBlockManager storage(image);
    RTTypeManager manager;
    EXPECT_TRUE(manager.setupDeserializer(storage, offset));
    return storage.takeReads();
}

/// Storage that answers every read beyond 4 GiB with the bytes of an image moved there.
class FarStorage : public OVAT::IBlockManager {
public:
    static constexpr unsigned long long FAR = 0x500000000;

    explicit FarStorage(std::string image) : m_near(std::move(image)) {}
    bool read(unsigned long long offset, void* buffer, long long count) override {
        return m_near.read(offset >= FAR ? offset - FAR : offset, buffer, count);
    }

private:
    RecordingBlockManager m_near;
};

TEST(Header, WithATypeCountOfZeroIsAllThatSetupReads) {
    EXPECT_THAT(setupReads(TypeFileBuilder{}.image()), ElementsAre(Pair(0u, 40)));
}

TEST(Header, WithATypeCountOfZeroLeavesTypesUnread) {
    TypeFileBuilder file;
    file.integer("int").count(0);
    LoadedTypes types(file);
    EXPECT_EQ(types[0], nullptr);
    EXPECT_THAT(types.storage().takeReads(), IsEmpty());
}

TEST(Header, MarkedInvalidWithoutTypesIsSetUpAndEmpty) {
    LoadedTypes types(TypeFileBuilder{}.version("Brakel Ovat TYPE FILE 000"));
    EXPECT_EQ(types.manager().readAllRTTypes(), nullptr);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
}

TEST(Header, MarkerCountsWhateverBytesFollowItsTerminator) {
    TypeFileBuilder file;
    file.version(std::string("Brakel Ovat TYPE FILE 000\0junk!!", 32)).integer("int");
    EXPECT_THAT(setupReads(file.image()), ElementsAre(Pair(0u, 40)));
}

TEST(Header, VersionWithoutAnyTerminatorIsAnOrdinaryOne) {
    LoadedTypes types(TypeFileBuilder{}.version(std::string(32, 'v')).integer("int"));
    EXPECT_STREQ(types.as<RTIntType>(0).m_name, "int");
}

TEST(Header, TypeCountMayLeaveOutRecordsAtTheEnd) {
    TypeFileBuilder file;
    file.integer("a").integer("b").integer("c").count(2);
    LoadedTypes types(file);
    EXPECT_STREQ(types.manager().readAllRTTypes()->m_name, "b");
    EXPECT_EQ(types[2], nullptr);
}

TEST(Header, CountBeyondTheStorageEndsInTheStoragesException) {
    TypeFileBuilder file;
    file.integer("int").count(2);
    RecordingBlockManager storage(file.image());
    RTTypeManager manager;
    EXPECT_THROW(manager.setupDeserializer(storage, 0), std::out_of_range);
    EXPECT_EQ(manager.getRTType(0), nullptr);
}

TEST(Header, OffsetIsTakenWithAllSixtyFourBits) {
    TypeFileBuilder file;
    file.integer("int");
    FarStorage storage(file.image());
    RTTypeManager manager;
    manager.setupDeserializer(storage, FarStorage::FAR);
    EXPECT_STREQ(manager.getRTType(0)->m_name, "int");
}

TEST(AddressTable, EntriesHaveAllSixtyFourBits) {
    TypeFileBuilder file;
    file.integer("int");
    std::string image = file.image();
    image[file.tableOffset() + 4] = 5; // The record's address is 0x500000028 now.
    FarStorage storage(image);
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    EXPECT_STREQ(manager.getRTType(0)->m_name, "int");
    RecordingBlockManager near(image);
    manager.setupDeserializer(near, 0);
    EXPECT_THROW(manager.getRTType(0), std::out_of_range);
}

TEST(AddressTable, OffsetHasItsTopBitCountedAsPositive) {
    std::string image(40, '\0');
    image[32] = 1;
    image[39] = '\x80'; // The table stands at 0x80000000.
    RecordingBlockManager storage(image);
    RTTypeManager manager;
    EXPECT_THROW(manager.setupDeserializer(storage, 0), std::out_of_range);
    EXPECT_THAT(storage.takeReads(), ElementsAre(Pair(0u, 40), Pair(0x80000000u, 8)));
}

TEST(AddressTable, TwoIdsMayShareOneRecordAndStillBeTwoTypes) {
    TypeFileBuilder file;
    file.integer("a").integer("b");
    std::string image = file.image();
    image[file.tableOffset() + 8] = 40; // Both entries name the first record.
    RecordingBlockManager storage(image);
    RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    EXPECT_STREQ(manager.getRTType(1)->m_name, "a");
    EXPECT_NE(manager.getRTType(1), manager.getRTType(0));
}

TEST(AddressTable, IsReadOnceForAllTypes) {
    TypeFileBuilder file;
    file.string("a").string("b");
    LoadedTypes types(file);
    for (const auto& [offset, count] : types.storage().takeReads())
        EXPECT_LT(offset, file.tableOffset()) << count;
}

TEST(Header, TypesOfAFileMarkedInvalidAreNullAndNotRead) {
    TypeFileBuilder file;
    file.version("Brakel Ovat TYPE FILE 000");
    file.record(0xA0000017, "c").u32(0xFFFFFFFF).i32(0).i32(0);
    LoadedTypes types(file);
    EXPECT_EQ(types[0], nullptr);
    EXPECT_THAT(types.manager().getRTClassTypeIds(), IsEmpty());
    EXPECT_THAT(types.storage().takeReads(), IsEmpty());
}

} // namespace
