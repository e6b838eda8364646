// Files that are written and read while system calls fail, are interrupted, or do a part of their
// work.

#include "OVAT/FileBlockManager.h"
#include "OVAT/WholeFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <system_error>

#include <sys/stat.h>
#include <sys/types.h>

namespace {

namespace fs = std::filesystem;
using OVAT::FileBlockManager;
using OVAT::WholeFile;

/// What happens to the calls of one name: how many there have been, and which fails.
struct Plan {
    int calls = 0;
    int failAt = 0; ///< Counted from 1; 0 for never.
    int error = 0;
    std::size_t most = 0; ///< Bytes that a call takes or gives; 0 for any number.
};
std::map<std::string, Plan> plans;

/// Whether this call fails; errno then says why.
bool fails(const char* name) {
    Plan& plan = plans[name];
    if (++plan.calls != plan.failAt)
        return false;
    errno = plan.error;
    return true;
}

std::size_t cut(const char* name, std::size_t count) {
    const std::size_t most = plans[name].most;
    return most == 0 ? count : std::min(count, most);
}

} // namespace

// The linker puts these in the place of the library's calls.
extern "C" {
ssize_t __real_pwrite64(int file, const void* bytes, std::size_t count, off64_t offset);
ssize_t __real_pread64(int file, void* bytes, std::size_t count, off64_t offset);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_ftruncate64(int file, off64_t size);
int __real_fchmod(int file, mode_t mode);
int __real_fstat64(int file, struct stat64* status);

ssize_t __wrap_pwrite64(int file, const void* bytes, std::size_t count, off64_t offset) {
    return fails("pwrite") ? -1 : __real_pwrite64(file, bytes, cut("pwrite", count), offset);
}
ssize_t __wrap_pread64(int file, void* bytes, std::size_t count, off64_t offset) {
    return fails("pread") ? -1 : __real_pread64(file, bytes, cut("pread", count), offset);
}
int __wrap_fsync(int file) { return fails("fsync") ? -1 : __real_fsync(file); }
int __wrap_rename(const char* from, const char* to) {
    return fails("rename") ? -1 : __real_rename(from, to);
}
int __wrap_ftruncate64(int file, off64_t size) {
    return fails("ftruncate") ? -1 : __real_ftruncate64(file, size);
}
int __wrap_fchmod(int file, mode_t mode) {
    return fails("fchmod") ? -1 : __real_fchmod(file, mode);
}
int __wrap_fstat64(int file, struct stat64* status) {
    return fails("fstat") ? -1 : __real_fstat64(file, status);
}
}

namespace {

class FailingCalls : public testing::Test {
protected:
    void SetUp() override {
        plans.clear();
        m_folder = fs::path(testing::TempDir()) /
                   testing::UnitTest::GetInstance()->current_test_info()->name();
        fs::remove_all(m_folder);
        fs::create_directory(m_folder);
        std::ofstream(path()) << "old";
    }
    void TearDown() override {
        plans.clear();
        fs::remove_all(m_folder);
    }

    std::string path() const { return m_folder / "a"; }
    std::string content() const {
        std::ifstream file(path());
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::ptrdiff_t files() const { return std::distance(fs::directory_iterator(m_folder), {}); }

    /// Puts "new file" and two zero bytes in the place of the old file.
    void replace() const {
        WholeFile file(path());
        file.write(0, "new file", 8);
        file.extend(10);
        file.commit();
    }
    const std::string m_new{"new file\0\0", 10};

private:
    fs::path m_folder;
};

TEST_F(FailingCalls, OfAWriteLeaveTheOldFileAloneAndTheNextWriteIsWhole) {
    const std::map<std::string, int> calls{{"pwrite", ENOSPC}, {"fsync", EIO},
                                           {"rename", EACCES}, {"ftruncate", EFBIG},
                                           {"fchmod", EPERM},  {"fstat", EIO}};
    for (const auto& [name, error] : calls) {
        SCOPED_TRACE(name);
        plans.clear();
        std::ofstream(path()) << "old";
        plans[name] = {0, 1, error, 0};
        try {
            replace();
            ADD_FAILURE();
        } catch (const std::system_error& failure) {
            EXPECT_EQ(failure.code().value(), error);
            EXPECT_EQ(std::string(failure.what()).find(path()), 0U);
        }
        EXPECT_EQ(content(), "old");
        EXPECT_EQ(files(), 1);
        replace();
        EXPECT_EQ(content(), m_new);
        EXPECT_EQ(files(), 1);
    }
}

TEST_F(FailingCalls, ThatWriteAPartAreMadeAgainForTheRest) {
    plans["pwrite"].most = 3;
    replace();
    EXPECT_EQ(content(), m_new);
    EXPECT_EQ(plans["pwrite"].calls, 3);
}

TEST_F(FailingCalls, OfTheRestOfAWriteLeaveTheOldFileAlone) {
    plans["pwrite"] = {0, 2, ENOSPC, 3};
    EXPECT_THROW(replace(), std::system_error);
    EXPECT_EQ(content(), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(FailingCalls, ThatAreInterruptedAreMadeAgain) {
    plans["pwrite"] = {0, 2, EINTR, 3};
    replace();
    EXPECT_EQ(content(), m_new);
    EXPECT_EQ(plans["pwrite"].calls, 4);
}

TEST_F(FailingCalls, OfTheFolderDoNotMatterOnceTheFileIsThere) {
    plans["fsync"] = {0, 2, EIO, 0};
    replace();
    EXPECT_EQ(content(), m_new);
    EXPECT_EQ(plans["fsync"].calls, 2);
}

TEST_F(FailingCalls, ThatReadAPartOrAreInterruptedAreMadeAgain) {
    FileBlockManager storage(path(), FileBlockManager::Access::POSITIONED_READS);
    plans["pread"] = {0, 2, EINTR, 1};
    char bytes[3] = {};
    EXPECT_TRUE(storage.read(0, bytes, 3));
    EXPECT_EQ(std::string(bytes, 3), "old");
    EXPECT_EQ(plans["pread"].calls, 4);
}

TEST_F(FailingCalls, OfAReadNameTheFileAndTheNextReadIsWhole) {
    FileBlockManager storage(path(), FileBlockManager::Access::POSITIONED_READS);
    plans["pread"] = {0, 1, EIO, 0};
    char bytes[3] = {};
    EXPECT_THROW(storage.read(0, bytes, 3), std::system_error);
    EXPECT_TRUE(storage.read(0, bytes, 3));
    EXPECT_EQ(std::string(bytes, 3), "old");
}

} // namespace
