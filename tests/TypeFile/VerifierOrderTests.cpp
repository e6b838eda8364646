// Most types are checked as soon as their records are read, the others when all are. Which ones
// depends on where the records lie, and what is found does not.

#include "tests/TypeFile/ExpectedFindings.h"
#include "tests/support/TypeTableModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using RTTITest::ModelFile;

/// What is found where the records stand in this order: a line a finding, whose offset is that in
/// the record.
std::vector<std::string> findingsIn(const ModelFile& model, const std::vector<std::size_t>& order,
                                    const TypeFile::VerifyLimits& limits) {
    const TypeFileBuilder file = builderOf(model).arrange(order);
    std::vector<std::string> lines;
    for (TypeFile::Finding finding : findingsOf(file, limits)) {
        if (finding.typeId != FILE_LEVEL)
            finding.offset -= file.address(finding.typeId);
        lines.push_back(lineOf(finding));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// Checks ascending against descending order; the answer is how much was found.
std::size_t compareOrders(const ModelFile& file, const TypeFile::VerifyLimits& limits) {
    std::vector<std::size_t> order(file.records.size());
    for (std::size_t id = 0; id < order.size(); ++id)
        order[id] = id;
    const auto ascending = findingsIn(file, order, limits);
    std::reverse(order.begin(), order.end());
    EXPECT_EQ(findingsIn(file, order, limits), ascending);
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
