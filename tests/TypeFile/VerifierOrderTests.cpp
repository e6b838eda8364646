// Most types are checked as soon as their records are read, the others when all are. Which ones
// depends on where the records lie, and what is found does not.

#include "OVAT/MemoryBlockManager.h"
#include "RTTI/TypeFileFormat.h"
#include "TypeFile/TypeFileVerifier.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using RTTITest::ModelFile;

/// The same types in a file of their own, their records one behind the other in this order.
class RearrangedFile {
public:
    RearrangedFile(const ModelFile& file, const std::vector<std::size_t>& order)
        : m_addresses(file.records.size()) {
        const auto count = static_cast<std::uint32_t>(file.records.size());
        m_bytes.assign(RTTI::TypeFileFormat::HEADER_SIZE + 8 * count, '\0');
        const std::string version = RTTI::TypeFileFormat::TYPE_FILE_VERSION;
        std::copy(version.begin(), version.end(), m_bytes.begin());
        put(RTTI::TypeFileFormat::TYPE_COUNT_OFFSET, count, 4);
        put(RTTI::TypeFileFormat::ADDRESS_TABLE_OFFSET, RTTI::TypeFileFormat::HEADER_SIZE, 4);
        for (const std::size_t id : order) {
            m_addresses[id] = m_bytes.size();
            put(RTTI::TypeFileFormat::HEADER_SIZE + 8 * id, m_addresses[id], 8);
            const auto record =
                file.bytes.begin() + static_cast<std::ptrdiff_t>(file.addresses[id]);
            m_bytes.insert(m_bytes.end(), record,
                           record + static_cast<std::ptrdiff_t>(file.records[id].size));
        }
    }

    /// One line a finding, whose offset is that in the record.
    std::vector<std::string> findings(const TypeFile::VerifyLimits& limits) const {
        OVAT::MemoryBlockManager storage(m_bytes.data(), m_bytes.size());
        std::vector<std::string> lines;
        for (TypeFile::Finding finding : TypeFile::verify(storage, m_bytes.size(), 0, limits)) {
            if (finding.typeId != RTTI::TypeFileFormat::NO_TYPE_ID)
                finding.offset -= m_addresses[finding.typeId];
            lines.push_back(lineOf(finding));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

private:
    void put(std::size_t at, std::uint64_t number, std::size_t width) {
        for (std::size_t i = 0; i < width; ++i)
            m_bytes[at + i] = static_cast<char>(number >> (8 * i));
    }

    std::vector<std::uint64_t> m_addresses;
    std::vector<char> m_bytes;
};

/// Checks ascending against descending order; the answer is how much was found.
std::size_t compareOrders(const ModelFile& file, const TypeFile::VerifyLimits& limits) {
    std::vector<std::size_t> order(file.records.size());
    for (std::size_t id = 0; id < order.size(); ++id)
        order[id] = id;
    const auto ascending = RearrangedFile(file, order).findings(limits);
    std::reverse(order.begin(), order.end());
    EXPECT_EQ(RearrangedFile(file, order).findings(limits), ascending);
    return ascending.size();
}

TEST(VerifierOrder, FindsTheSameInRandomFilesWhereverTheRecordsLie) {
    TypeFile::VerifyLimits limits;
    std::size_t found = 0;
    for (std::uint64_t seed = 0; seed < 3000 && !HasFailure(); ++seed) {
        limits.maxWalkSteps = seed % 16;
        SCOPED_TRACE("seed " + std::to_string(seed));
        found += compareOrders(RTTITest::randomFile(seed, 12), limits);
    }
    EXPECT_GT(found, 3000U);
}

TEST(VerifierOrder, FindsTheSameInDeepFilesWhereverTheRecordsLie) {
    TypeFile::VerifyLimits limits;
    limits.maxWalkSteps = 100;
    std::size_t found = 0;
    for (std::uint64_t seed = 0; seed < 300 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        found +=
            compareOrders(RTTITest::deepFile(seed, 60, RTTITest::DeepKinds::ANY_THAT_LINK), limits);
    }
    EXPECT_GT(found, 300U);
}

} // namespace
