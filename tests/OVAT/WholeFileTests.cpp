#include "OVAT/WholeFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using OVAT::WholeFile;

/// A folder of the test's own.
class WholeFileTest : public testing::Test {
protected:
    void SetUp() override {
        folder = fs::path(testing::TempDir()) /
                 testing::UnitTest::GetInstance()->current_test_info()->name();
        fs::remove_all(folder);
        fs::create_directory(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string pathOf(const char* name) const { return (folder / name).string(); }
    void fill(const char* name, const std::string& text) const {
        std::ofstream(pathOf(name), std::ios::binary) << text;
    }
    std::string content(const char* name) const {
        std::ifstream file(pathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::ptrdiff_t files() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    fs::path folder;
};

using WholeFiles = WholeFileTest;

TEST_F(WholeFiles, AppearsWithItsName) {
    WholeFile file(pathOf("a"));
    file.write(0, "abc", 3);
    EXPECT_FALSE(fs::exists(pathOf("a")));
    file.commit();
    EXPECT_EQ(content("a"), "abc");
    EXPECT_EQ(files(), 1);
}

TEST_F(WholeFiles, LeavesNothingWithoutCommit) {
    fill("a", "old");
    {
        WholeFile file(pathOf("a"));
        file.write(0, "abc", 3);
    }
    EXPECT_EQ(content("a"), "old");
    EXPECT_EQ(files(), 1);
}

TEST_F(WholeFiles, ReplacesALongerFileAndKeepsItsMode) {
    fill("a", "a long old file");
    fs::permissions(pathOf("a"), fs::perms::owner_read | fs::perms::owner_write);
    WholeFile file(pathOf("a"));
    file.write(0, "abc", 3);
    file.commit();
    EXPECT_EQ(content("a"), "abc");
    EXPECT_EQ(fs::status(pathOf("a")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(WholeFiles, HasZerosWhereNothingIsWritten) {
    WholeFile file(pathOf("a"));
    file.write(3, "x", 1);
    file.extend(6);
    file.extend(2);
    file.commit();
    EXPECT_EQ(content("a"), std::string("\0\0\0x\0\0", 6));
}

TEST_F(WholeFiles, WritesThroughASymbolicLink) {
    fill("target", "old");
    fs::create_symlink("target", pathOf("link"));
    WholeFile file(pathOf("link"));
    file.write(0, "new", 3);
    file.commit();
    EXPECT_EQ(content("target"), "new");
    EXPECT_TRUE(fs::is_symlink(pathOf("link")));
}

TEST_F(WholeFiles, RefusesWhatIsNoRegularFile) {
    EXPECT_THROW(WholeFile file(folder.string()), std::system_error);
    ASSERT_EQ(::mkfifo(pathOf("pipe").c_str(), 0600), 0);
    EXPECT_THROW(WholeFile file(pathOf("pipe")), std::system_error);
    EXPECT_EQ(files(), 1);
}

TEST_F(WholeFiles, NamesThePathWhereThereIsNoFolder) {
    try {
        WholeFile file(pathOf("none/a"));
        FAIL();
    } catch (const std::system_error& error) {
        EXPECT_THAT(error.what(), testing::StartsWith(pathOf("none/a")));
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
}

TEST_F(WholeFiles, RefusesMoreThanAFileCanHold) {
    WholeFile file(pathOf("a"));
    EXPECT_THROW(file.write(0x7FFFFFFFFFFFFFFF, "ab", 2), std::system_error);
    EXPECT_THROW(file.write(0xFFFFFFFFFFFFFFFF, "a", 1), std::system_error);
    EXPECT_THROW(file.extend(0xFFFFFFFFFFFFFFFF), std::system_error);
}

TEST_F(WholeFiles, LeavesAForeignTemporaryFileAlone) {
    const std::string taken = "a.new" + std::to_string(::getpid()) + "-0";
    fill(taken.c_str(), "mine");
    WholeFile file(pathOf("a"));
    file.write(0, "abc", 3);
    file.commit();
    EXPECT_EQ(content(taken.c_str()), "mine");
    EXPECT_EQ(content("a"), "abc");
}

} // namespace
