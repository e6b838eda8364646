#include "OVAT/FileBlockManager.h"
#include "OVAT/MemoryBlockManager.h"
#include "OVAT/WholeFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <unistd.h>

namespace {

using OVAT::FileBlockManager;
using testing::AllOf;
using testing::HasSubstr;
using testing::Property;
using testing::Throws;
using testing::ThrowsMessage;

constexpr char BYTES[] = "0123456789"; // Ten bytes; the eleventh is not part of any storage.
constexpr unsigned long long SIZE = 10;

std::string readFrom(OVAT::IBlockManager& storage, unsigned long long offset, long long count) {
    std::string buffer(static_cast<std::size_t>(count), '?');
    EXPECT_TRUE(storage.read(offset, buffer.data(), count));
    return buffer;
}

/// A file with the given bytes, removed at the end.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& bytes) {
        const int file = ::mkstemp(m_path.data());
        EXPECT_EQ(::write(file, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        ::close(file);
    }
    ~TemporaryFile() { std::remove(m_path.c_str()); }
    const std::string& path() const { return m_path; }

private:
    std::string m_path = testing::TempDir() + "storageXXXXXX";
};

struct Storage {
    const char* name;
    std::unique_ptr<OVAT::IBlockManager> (*make)(const std::string& path);
};

class EveryStorage : public testing::TestWithParam<Storage> {
protected:
    TemporaryFile m_file{BYTES};
    std::unique_ptr<OVAT::IBlockManager> m_storage{GetParam().make(m_file.path())};
    std::array<char, 16> m_buffer{};
};

TEST_P(EveryStorage, ReadsBytesAtTheirOffset) { EXPECT_EQ(readFrom(*m_storage, 3, 4), "3456"); }

TEST_P(EveryStorage, ReadsAllOfItself) { EXPECT_EQ(readFrom(*m_storage, 0, 10), BYTES); }

TEST_P(EveryStorage, ReadsNoBytesAtItsEnd) { EXPECT_EQ(readFrom(*m_storage, 10, 0), ""); }

TEST_P(EveryStorage, RefusesOneByteTooMany) {
    EXPECT_THROW(m_storage->read(7, m_buffer.data(), 4), std::out_of_range);
}

TEST_P(EveryStorage, RefusesNoBytesBehindItsEnd) {
    EXPECT_THROW(m_storage->read(11, m_buffer.data(), 0), std::out_of_range);
}

TEST_P(EveryStorage, RefusesANegativeCount) {
    EXPECT_THROW(m_storage->read(0, m_buffer.data(), -1), std::out_of_range);
}

TEST_P(EveryStorage, RefusesAnOffsetWhoseEndOverflows) {
    const auto last = std::numeric_limits<unsigned long long>::max();
    EXPECT_THROW(m_storage->read(last, m_buffer.data(), 2), std::out_of_range);
}

TEST_P(EveryStorage, LeavesTheBufferAloneWhenItRefuses) {
    EXPECT_THROW(m_storage->read(7, m_buffer.data(), 4), std::out_of_range);
    EXPECT_EQ(m_buffer, (std::array<char, 16>{}));
}

TEST_P(EveryStorage, SaysOffsetCountAndSize) {
    EXPECT_THAT([&] { m_storage->read(7, m_buffer.data(), 4); },
                ThrowsMessage<std::out_of_range>(
                    "read of 4 bytes at offset 7 is outside the storage of 10 bytes"));
}

INSTANTIATE_TEST_SUITE_P(
    Storages, EveryStorage,
    testing::Values(Storage{"View",
                            [](const std::string&) -> std::unique_ptr<OVAT::IBlockManager> {
                                return std::make_unique<OVAT::MemoryBlockManager>(BYTES, SIZE);
                            }},
                    Storage{"Owner",
                            [](const std::string&) -> std::unique_ptr<OVAT::IBlockManager> {
                                return std::make_unique<OVAT::OwningMemoryBlockManager>(
                                    std::vector<char>(BYTES, BYTES + SIZE));
                            }},
                    Storage{"MappedFile",
                            [](const std::string& path) -> std::unique_ptr<OVAT::IBlockManager> {
                                return std::make_unique<FileBlockManager>(path);
                            }},
                    Storage{"ReadFile",
                            [](const std::string& path) -> std::unique_ptr<OVAT::IBlockManager> {
                                return std::make_unique<FileBlockManager>(
                                    path, FileBlockManager::Access::POSITIONED_READS);
                            }}),
    [](const auto& storage) { return storage.param.name; });

TEST(MemoryBlockManager, ShowsBytesThatItsOwnerChanges) {
    std::string bytes = "old";
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    bytes = "new";
    EXPECT_EQ(readFrom(storage, 0, 3), "new");
}

TEST(MemoryBlockManager, MayBeEmpty) {
    OVAT::MemoryBlockManager storage(nullptr, 0);
    char byte = 0;
    EXPECT_EQ(storage.size(), 0u);
    EXPECT_THROW(storage.read(0, &byte, 1), std::out_of_range);
}

TEST(OwningMemoryBlockManager, KnowsItsSize) {
    EXPECT_EQ(OVAT::OwningMemoryBlockManager(std::vector<char>(7)).size(), 7u);
}

TEST(FileBlockManager, MapsAFileUnlessToldOtherwise) {
    const TemporaryFile file(BYTES);
    EXPECT_TRUE(FileBlockManager(file.path()).isMapped());
    EXPECT_FALSE(
        FileBlockManager(file.path(), FileBlockManager::Access::POSITIONED_READS).isMapped());
}

TEST(FileBlockManager, ReadsAnEmptyFileAsAnEmptyStorage) {
    const TemporaryFile file("");
    FileBlockManager storage(file.path());
    char byte = 0;
    EXPECT_EQ(storage.size(), 0u);
    EXPECT_FALSE(storage.isMapped());
    EXPECT_THROW(storage.read(0, &byte, 1), std::out_of_range);
}

TEST(FileBlockManager, ReadsWhatLiesBehindTheAddressesOf32Bits) {
    constexpr unsigned long long OFFSET = 0x140000000;
    const std::string path = testing::TempDir() + "behind-" + std::to_string(::getpid());
    OVAT::WholeFile file(path);
    file.write(OFFSET, "end", 3);
    file.commit();
    for (const auto access : {FileBlockManager::Access::MAP_WHERE_POSSIBLE,
                              FileBlockManager::Access::POSITIONED_READS}) {
        FileBlockManager storage(path, access);
        EXPECT_EQ(storage.size(), OFFSET + 3);
        EXPECT_EQ(readFrom(storage, OFFSET, 3), "end");
        EXPECT_THROW(readFrom(storage, OFFSET + 1, 3), std::out_of_range);
    }
    std::remove(path.c_str());
}

TEST(FileBlockManager, ThrowsWhenAFileThatIsNotMappedHasShrunk) {
    const TemporaryFile file(BYTES);
    FileBlockManager storage(file.path(), FileBlockManager::Access::POSITIONED_READS);
    ASSERT_EQ(::truncate(file.path().c_str(), 6), 0);
    std::array<char, 8> buffer{};
    EXPECT_THAT([&] { storage.read(4, buffer.data(), 5); },
                ThrowsMessage<std::out_of_range>(
                    "read of 5 bytes at offset 4 is outside the storage of 6 bytes"));
}

TEST(FileBlockManager, NamesAFileThatIsNotThere) {
    const std::string path = testing::TempDir() + "not-there.typ";
    EXPECT_THAT([&] { FileBlockManager storage(path); },
                ThrowsMessage<std::system_error>(HasSubstr(path)));
}

TEST(FileBlockManager, RefusesADirectory) {
    EXPECT_THAT([] { FileBlockManager storage(testing::TempDir()); },
                Throws<std::system_error>(Property(
                    &std::system_error::code, std::error_code(EISDIR, std::generic_category()))));
}

} // namespace
