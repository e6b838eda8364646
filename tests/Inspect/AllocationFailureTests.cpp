// Importing, reading JSON, comparing and printing while memory runs out: nothing is kept, and the
// call made again is complete.

#include "Import/Importer.h"
#include "Inspect/diff/TypeDiffPrinter.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeFileWriter.h"
#include "tests/support/FailingAllocations.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace RTTI;

/// The types of a file, all of them loaded.
class Types {
public:
    explicit Types(const std::string& path) : m_storage(path) {
        m_manager.setupDeserializer(m_storage, 0);
        while (m_manager.getRTType(m_count) != nullptr)
            ++m_count;
    }
    Inspect::TypeTable table() {
        return {m_count, [this](unsigned int id) { return m_manager.getRTType(id); }};
    }

private:
    OVAT::FileBlockManager m_storage;
    RTTypeManager m_manager;
    unsigned int m_count = 0;
};

/// Lets each allocation of `call`, which has a result, fail in turn. What it took is given back
/// each time; and the call that comes to its end has the same result as one that lacks nothing.
void expectWholeAfterEachFailure(const std::function<std::string()>& call, std::size_t atLeast) {
    const std::string expected = call();
    ASSERT_FALSE(expected.empty());
    std::string result;
    std::size_t before = liveAllocations();
    const std::size_t failures = failEachAllocation(
        [&] {
            before = liveAllocations();
            result = call();
        },
        [&](std::size_t number) { ASSERT_EQ(liveAllocations(), before) << "after " << number; });
    EXPECT_GE(failures, atLeast);
    EXPECT_TRUE(result == expected);
}

std::string imported(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    Import::Notes notes;
    Import::Importer importer({}, notes);
    Import::Input input(stream, "dump");
    importer.read(input);
    TypeFile::TypeFileWriter writer;
    for (const auto& type : importer.finish())
        writer.add(*type);
    const std::vector<char> bytes = writer.finish();
    return {bytes.begin(), bytes.end()};
}

TEST(WithoutMemory, AnImportOfATreeKeepsNothing) {
    expectWholeAfterEachFailure([] { return imported(EXAMPLE_DUMP_DIR "/t_enum_func.tree"); }, 100);
}

TEST(WithoutMemory, AnImportOfAWaveKeepsNothing) {
    expectWholeAfterEachFailure([] { return imported(IMPORT_DATA_DIR "/ghdl/kinds-6.0.ghw"); },
                                300);
}

TEST(WithoutMemory, AComparisonKeepsNothing) {
    Types a(EXAMPLE_TYPEFILES_DIR "/ieee_ghw.typ");
    Types b(EXAMPLE_TYPEFILES_DIR "/ieee_rti.typ");
    const auto compare = [&] {
        std::ostringstream out;
        out.exceptions(std::ios::badbit); // Passes on what its text throws.
        const Inspect::TypeDiff diff(a.table(), b.table());
        Inspect::printDiffText(out, diff, Inspect::TextStyle::plain());
        return out.str();
    };
    expectWholeAfterEachFailure(compare, 300);
}

} // namespace
