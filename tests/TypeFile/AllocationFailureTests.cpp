// Writing and verifying while memory runs out: nothing is left half done, and the call made again
// is complete.

#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileVerifier.h"
#include "TypeFile/TypeFileWriter.h"
#include "tests/support/FailingAllocations.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace RTTI;
using TypeFile::TypeFileWriter;
namespace fs = std::filesystem;

/// The types of a file that has one of every kind.
class EveryKind {
public:
    EveryKind() : m_storage(EVERY_KIND_TYPEFILE) {
        m_manager.setupDeserializer(m_storage, 0);
        while (m_manager.getRTType(m_count) != nullptr)
            ++m_count;
    }
    unsigned int count() const { return m_count; }
    const RTBaseType& operator[](unsigned int id) { return *m_manager.getRTType(id); }

    void addTo(TypeFileWriter& writer) {
        for (unsigned int id = 0; id < m_count; ++id)
            writer.add((*this)[id]);
    }

private:
    OVAT::FileBlockManager m_storage;
    RTTypeManager m_manager;
    unsigned int m_count = 0;
};

std::string fileContent(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string textOf(const std::vector<char>& bytes) { return {bytes.begin(), bytes.end()}; }

TEST(WriterWithoutMemory, KeepsWhatWasAddedBefore) {
    EveryKind types;
    ASSERT_GE(types.count(), 25U);
    TypeFileWriter writer;
    std::size_t failures = 0;
    for (unsigned int id = 0; id < types.count(); ++id) {
        failures += failEachAllocation([&] { writer.add(types[id]); },
                                       [&](std::size_t) { ASSERT_EQ(writer.typeCount(), id); });
    }
    EXPECT_GE(failures, 8U); // Both lists grow by doubling.
    EXPECT_EQ(textOf(writer.finish()), fileContent(EVERY_KIND_TYPEFILE));
}

TEST(WriterWithoutMemory, CanFinishAgain) {
    EveryKind types;
    TypeFileWriter writer;
    types.addTo(writer);
    std::vector<char> bytes;
    EXPECT_GE(failEachAllocation([&] { bytes = writer.finish(); }, [](std::size_t) {}), 2U);
    EXPECT_EQ(textOf(bytes), fileContent(EVERY_KIND_TYPEFILE));
}

TEST(WriterWithoutMemory, LeavesAnImageAsItWas) {
    EveryKind types;
    TypeFileWriter writer(4);
    types.addTo(writer);
    std::vector<char> image{'a', 'b', 'c', 'd', 'e'};
    EXPECT_GE(failEachAllocation([&] { writer.finishInto(image); },
                                 [&](std::size_t) { EXPECT_EQ(textOf(image), "abcde"); }),
              2U);
    EXPECT_EQ(textOf(image).substr(0, 10), "abcdBrakel");
}

TEST(WriterWithoutMemory, LeavesNoFileBehind) {
    const fs::path folder = fs::path(testing::TempDir()) / "LeavesNoFileBehind";
    fs::remove_all(folder);
    fs::create_directory(folder);
    const std::string path = (folder / "types.typ").string();
    EveryKind types;
    TypeFileWriter writer;
    types.addTo(writer);
    const std::size_t failures =
        failEachAllocation([&] { writer.finishFile(path, EVERY_KIND_TYPEFILE); },
                           [&](std::size_t) { EXPECT_TRUE(fs::is_empty(folder)); });
    EXPECT_GE(failures, 4U);
    EXPECT_EQ(fileContent(path), fileContent(EVERY_KIND_TYPEFILE));
    fs::remove_all(folder);
}

TEST(VerifierWithoutMemory, CanBeAskedAgain) {
    OVAT::FileBlockManager storage(EVERY_KIND_TYPEFILE);
    const std::size_t findings = TypeFile::verify(storage, storage.size(), 0).size();
    ASSERT_GE(findings, 10U);
    std::size_t found = 0;
    const std::size_t failures = failEachAllocation(
        [&] { found = TypeFile::verify(storage, storage.size(), 0).size(); }, [](std::size_t) {});
    EXPECT_GE(failures, findings);
    EXPECT_EQ(found, findings);
}

} // namespace
