// Type files of real designs, loaded and written again.

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Loads all types of a file and writes them; the bytes of the new file.
std::string rewritten(const fs::path& path, unsigned long long baseOffset) {
    OVAT::FileBlockManager storage(path.string());
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    manager.readAllRTTypes();
    TypeFile::TypeFileWriter writer(baseOffset);
    for (unsigned int id = 0; const RTTI::RTBaseType* type = manager.getRTType(id); ++id)
        writer.add(*type);
    const std::vector<char> bytes = writer.finish();
    return {bytes.begin(), bytes.end()};
}

TEST(RealTypeFiles, AreWrittenAsTheyWere) {
    int files = 0;
    for (const auto& entry : fs::directory_iterator(EXAMPLE_TYPEFILES_DIR)) {
        if (entry.path().extension() != ".typ")
            continue;
        EXPECT_TRUE(rewritten(entry.path(), 0) == contentOf(entry.path())) << entry.path();
        ++files;
    }
    EXPECT_EQ(files, 11);
}

TEST(RealTypeFiles, HoldOtherOffsetsAtAnotherPlaceAndNothingElse) {
    const fs::path path = fs::path(EXAMPLE_TYPEFILES_DIR) / "vhkinds_rti.typ";
    const std::string here = contentOf(path);
    const std::string there = rewritten(path, 256);
    ASSERT_EQ(there.size(), here.size());
    const auto table = static_cast<std::size_t>(static_cast<unsigned char>(here[36])) +
                       256U * static_cast<unsigned char>(here[37]);
    EXPECT_EQ(there.substr(40, table - 40), here.substr(40, table - 40));
    EXPECT_EQ(there[37], here[37] + 1);
    for (std::size_t at = table; at < here.size(); at += 8) {
        EXPECT_EQ(there[at], here[at]);
        EXPECT_EQ(there[at + 1], static_cast<char>(here[at + 1] + 1));
    }
}

} // namespace
