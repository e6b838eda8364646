// The verifier of single types: what it looks at, and that it finds what a verification of the
// whole file does.

#include "tests/TypeFile/ExpectedFindings.h"

#include "OVAT/MemoryBlockManager.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <numeric>
#include <random>
#include <string>

namespace {

using namespace RTTI;
using namespace TypeFile;

/// A verifier over an image that it keeps.
struct Verified {
    explicit Verified(std::string bytes, const VerifyLimits& limits = {})
        : image(std::move(bytes)), storage(image.data(), image.size()),
          verifier(storage, image.size(), 0, limits) {}

    std::string image;
    OVAT::MemoryBlockManager storage;
    TypeVerifier verifier;
};

/// A typedef of a typedef of a type that is not there, and an integer.
TypeFileBuilder twoAliases() {
    TypeFileBuilder file;
    file.alias(1).alias(9).integer("i");
    return file;
}

TEST(TypeVerifier, FindsWhatIsWrongBelowAType) {
    Verified file(twoAliases().image());
    expectError(file.verifier.verify({0}), FindingCode::TYPE_ID_OUTSIDE_TABLE, 1, "dataType",
                twoAliases().address(1) + BODY);
}

TEST(TypeVerifier, SaysNothingOfOtherTypes) {
    Verified file(twoAliases().image());
    EXPECT_EQ(linesOf(file.verifier.verify({2})), "");
}

TEST(TypeVerifier, SaysWhatIsWrongOnce) {
    Verified file(twoAliases().image());
    EXPECT_EQ(file.verifier.verify({1}).size(), 1u);
    EXPECT_EQ(linesOf(file.verifier.verify({0, 1})), "");
}

TEST(TypeVerifier, TakesAnIdOutsideTheTableForNoType) {
    Verified file(twoAliases().image());
    EXPECT_EQ(linesOf(file.verifier.verify({3, 0xFFFFFFFF})), "");
}

TEST(TypeVerifier, FindsOverlapsWithTheRecordBehind) {
    TypeFileBuilder file;
    file.integer("i").claim(static_cast<int>(file.address(1)) - 40 + 1);
    file.integer("j");
    Verified verified(file.image());
    expectError(verified.verifier.verify({0}), FindingCode::RECORD_OVERLAP, 0, "recordSize", 40);
}

TEST(TypeVerifier, FindsAHeaderThatIsCut) {
    Verified file("no header");
    EXPECT_TRUE(hasErrors(file.verifier.verify({0})));
}

TEST(TypeVerifier, CountsTheWalkOfATypeAboveOneThatWasVerified) {
    TypeFileBuilder file;
    file.integer("i").packedArray(0).structure({1, 1}).structure({2, 2});
    VerifyLimits limits;
    limits.maxWalkSteps = 5; // The inner struct takes three.
    Verified verified(file.image(), limits);
    EXPECT_EQ(linesOf(verified.verifier.verify({2})), "");
    const auto findings = verified.verifier.verify({3});
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, FindingCode::WALK_TOO_LARGE);
    EXPECT_EQ(findings[0].typeId, 3u);
}

TEST(TypeVerifier, StopsWhereRecordsTakeMoreThanTheLimit) {
    TypeFileBuilder file;
    file.structure({1, 1}).structure({2, 2}).integer("i");
    VerifyLimits limits;
    limits.maxRecordBytes = 50;
    Verified verified(file.image(), limits);
    const auto findings = verified.verifier.verify({0});
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].code, FindingCode::LOAD_TOO_LARGE);
}

std::string realFile(const std::string& name) {
    std::ifstream file(EXAMPLE_TYPEFILES_DIR "/" + name + ".typ", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class DamagedFiles : public testing::TestWithParam<const char*> {};

/// All types at once, in the opposite order, and each by itself.
TEST_P(DamagedFiles, HaveTheFindingsOfAWholeVerification) {
    const std::string sound = realFile(GetParam());
    std::mt19937 random(7);
    int withErrors = 0;
    for (int round = 0; round < 40; ++round) {
        std::string image = sound;
        for (unsigned int change = 0; change < 1 + random() % 4; ++change)
            image[40 + random() % (image.size() - 40)] = static_cast<char>(random() % 256);
        const std::string whole = linesOf(findingsOf(image));
        withErrors += whole.empty() ? 0 : 1;
        std::vector<unsigned int> ids(5000);
        std::iota(ids.rbegin(), ids.rend(), 0);
        EXPECT_EQ(linesOf(Verified(image).verifier.verify(ids)), whole) << "round " << round;
        Verified single(image);
        std::size_t found = 0;
        for (const unsigned int id : ids)
            found += single.verifier.verify({id}).size();
        EXPECT_EQ(found, findingsOf(image).size()) << "round " << round;
    }
    EXPECT_GT(withErrors, 10);
}

INSTANTIATE_TEST_SUITE_P(Examples, DamagedFiles,
                         testing::Values("svkinds_slang", "vhkinds_rti", "ibex_slang"),
                         [](const auto& tested) { return std::string(tested.param); });

} // namespace
