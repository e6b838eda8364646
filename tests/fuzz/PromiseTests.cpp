#include "fuzz/DamagedFiles.h"
#include "fuzz/Promise.h"
#include "tests/support/BuildKind.h"
#include "tests/support/TypeFileBuilder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

namespace {

using Fuzz::Damage;
using Fuzz::tryPromise;

constexpr char EXAMPLE[] = EXAMPLE_TYPEFILES_DIR "/svkinds_slang.typ";
constexpr char CORPUS[] = FUZZ_CORPUS_DIR "/typefile/";
const std::string SOUND = TypeFileBuilder().integer("int").packedArray(0).image();

TEST(Promise, IsKeptByASoundFile) {
    const Fuzz::PromiseResult result = tryPromise(SOUND, {});
    EXPECT_TRUE(result.isPassed);
    EXPECT_EQ(result.broken, "");
    EXPECT_GT(result.milliseconds, 0);
    EXPECT_GT(result.bytes, SOUND.size());
}

TEST(Promise, IsKeptByAFileThatIsRefused) {
    const std::string file = TypeFileBuilder().integer("int").cut(9).image();
    const Fuzz::PromiseResult result = tryPromise(file, {});
    EXPECT_FALSE(result.isPassed);
    EXPECT_EQ(result.broken, "");
}

class SlowFile : public testing::TestWithParam<const char*> {};

/// Files of a few bytes that took seconds: lists claim thousands of entries, which lead to the type
/// itself, or types lead back to one another on any number of ways.
TEST_P(SlowFile, KeepsThePromise) {
    std::ifstream file(CORPUS + std::string(GetParam()), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(bytes.empty());
    Fuzz::PromiseLimits limits;
    limits.milliseconds *= RTTITest::IS_SLOW || !RTTITest::IS_OPTIMISED ? 20 : 1;
    EXPECT_EQ(tryPromise(bytes, limits).broken, "");
}

INSTANTIATE_TEST_SUITE_P(Promise, SlowFile,
                         testing::Values("many-open-dimensions.typ", "many-missing-indexes.typ",
                                         "many-long-walks.typ", "many-equal-members.typ",
                                         "many-nested-constraints.typ"));

TEST(Promise, IsBrokenByAFileThatTakesTooLong) {
    EXPECT_EQ(tryPromise(SOUND, {0, 1U << 26}).broken, "it takes too long");
}

TEST(Promise, IsBrokenByAFileThatTakesTooMuchMemory) {
    EXPECT_EQ(tryPromise(SOUND, {1000, 100}).broken, "it takes too much memory");
}

TEST(DamagedFiles, AreTheSameForTheSameSeed) {
    const Fuzz::DamagedFiles one({EXAMPLE}, 1);
    const Fuzz::DamagedFiles again({EXAMPLE}, 1);
    const Fuzz::DamagedFiles other({EXAMPLE}, 2);
    for (std::uint64_t number = 0; number < 8; ++number) {
        EXPECT_EQ(one[number].bytes, again[number].bytes);
        EXPECT_NE(one[number].bytes, other[number].bytes);
    }
}

TEST(DamagedFiles, AreOfEverySortAndDiffer) {
    const Fuzz::DamagedFiles files({EXAMPLE}, 1);
    std::set<Damage> sorts;
    std::set<std::string> different;
    for (std::uint64_t number = 0; number < 100; ++number) {
        sorts.insert(files[number].damage);
        different.insert(files[number].bytes);
    }
    EXPECT_EQ(sorts.size(), static_cast<std::size_t>(Damage::COUNT));
    EXPECT_GT(different.size(), 75U); // A file spliced with itself may stay the same.
}

TEST(DamagedFiles, NeedAWholeFileToBeginWith) {
    EXPECT_THROW(Fuzz::DamagedFiles({}, 1), std::runtime_error);
}

} // namespace
