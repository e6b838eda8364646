#include "Import/GhwFile.h"

#include "Import/ImportError.h"
#include "tests/support/GhwBuilder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Import;

/// The kinds, as the files number them.
enum Kind : unsigned {
    ENUM = 23,
    INTEGER = 25,
    REAL = 27,
    PHYSICAL = 29,
    ARRAY = 31,
    RECORD = 32,
    SCALAR_SUBTYPE = 34,
    ARRAY_SUBTYPE = 35,
    OPEN_ARRAY_SUBTYPE = 37,
    RECORD_SUBTYPE = 38,
    DOWNTO = 128,
};

GhwFile read(const std::string& bytes) {
    std::istringstream stream(bytes);
    Input input(stream, "w.ghw");
    return readGhw(input);
}

std::string refusalOf(const std::string& bytes) {
    try {
        read(bytes);
    } catch (const ImportError& error) {
        return error.what();
    }
    return "no refusal";
}

class GhwFiles : public testing::TestWithParam<GhwBuilder::Order> {
protected:
    GhwBuilder m_file{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(ByteOrders, GhwFiles, testing::Values(GhwBuilder::LITTLE, GhwBuilder::BIG),
                         [](const auto& order) {
                             return order.param == GhwBuilder::LITTLE ? "little" : "big";
                         });

TEST_P(GhwFiles, NamesShareTheirBeginnings) {
    const std::string stem(40, 'n');
    const GhwFile file = read(m_file.names({"'a'", "'b'", "", stem + "1", stem + "22"}).file());
    std::vector<std::string> names;
    for (std::size_t i = 0; i < file.strings.size(); ++i)
        names.emplace_back(file.strings[i]);
    EXPECT_EQ(names, (std::vector<std::string>{"", "'a'", "'b'", "", stem + "1", stem + "22"}));
}

TEST_P(GhwFiles, NamesHoldLatin1) {
    const GhwFile file = read(m_file.names({"\\stra\xDF\x65\\", "'\xFF'"}).file());
    EXPECT_EQ(file.strings[1], "\\stra\xDF\x65\\");
    EXPECT_EQ(file.strings[2], "'\xFF'");
}

TEST_P(GhwFiles, AnEnumerationHasItsLiterals) {
    const GhwFile file = read(m_file.names({"idle", "run", "t"}).type(ENUM, {3, 2, 1, 2}).file());
    ASSERT_EQ(file.types.size(), 2u);
    EXPECT_EQ(file.types[1].kind, GhwKind::ENUM_OF_BYTES);
    EXPECT_EQ(file.types[1].name, 3u);
    ASSERT_EQ(file.types[1].items.count, 2u);
    EXPECT_EQ(file.partsOf(file.types[1])[1].name, 2u);
}

TEST_P(GhwFiles, ARangeOfRealsIsExact) {
    m_file.names({"r"})
        .type(REAL, {1})
        .type(SCALAR_SUBTYPE, {0, 1})
        .reals(REAL | DOWNTO, 0.1, -1e300);
    const GhwFile file = read(m_file.file());
    const GhwRange range = file.rangesOf(file.types.at(2))[0];
    EXPECT_TRUE(range.isReal);
    EXPECT_TRUE(range.isDownto);
    EXPECT_EQ(range.realLeft, 0.1);
    EXPECT_EQ(range.realRight, -1e300);
}

TEST_P(GhwFiles, NumbersHaveUpTo64Bits) {
    const long long most = 9223372036854775807;
    m_file.names({"t", "u", "v"}).type(PHYSICAL, {1, 2, 2}).value(1).then({3}).value(-most - 1);
    m_file.type(SCALAR_SUBTYPE, {0, 1}).range(PHYSICAL, -65, most);
    const GhwFile file = read(m_file.file());
    EXPECT_EQ(file.partsOf(file.types[1])[1].value, -most - 1);
    EXPECT_EQ(file.rangesOf(file.types[2])[0].left, -65);
    EXPECT_EQ(file.rangesOf(file.types[2])[0].right, most);
}

TEST_P(GhwFiles, AnArrayOfOpenArraysHasARangeForEach) {
    m_file.names({"a"}).type(INTEGER, {0});
    m_file.type(ARRAY, {0, 1, 1, 1});        // 2: of integers
    m_file.type(OPEN_ARRAY_SUBTYPE, {0, 2}); // 3: of the same
    m_file.type(ARRAY, {1, 3, 2, 1, 1});     // 4: two dimensions of those
    m_file.type(ARRAY_SUBTYPE, {0, 4}).range(INTEGER, 0, 1);
    m_file.range(INTEGER | DOWNTO, 3, 2).range(INTEGER, 4, 5);
    const GhwFile file = read(m_file.file());
    ASSERT_EQ(file.types[5].items.count, 3u);
    EXPECT_TRUE(file.rangesOf(file.types[5])[1].isDownto);
    EXPECT_EQ(file.rangesOf(file.types[5])[2].right, 5);
}

TEST_P(GhwFiles, AnElementWithRangesNeedsNoMoreOfThem) {
    m_file.type(INTEGER, {0}).type(ARRAY, {0, 1, 1, 1});
    m_file.type(ARRAY_SUBTYPE, {0, 2}).range(INTEGER, 0, 7);
    m_file.type(ARRAY, {0, 3, 1, 1}).type(ARRAY_SUBTYPE, {0, 4}).range(INTEGER, 1, 2);
    EXPECT_EQ(read(m_file.file()).types[5].items.count, 1u);
}

TEST_P(GhwFiles, ASubtypeOfARecordHasTheRangesThatItsMembersLeaveOpen) {
    m_file.names({"a", "b"}).type(INTEGER, {0}).type(ARRAY, {0, 1, 1, 1});
    m_file.type(RECORD, {0, 3, 1, 2, 2, 1, 1, 2}); // Members of types 2, 1 and 2.
    m_file.type(RECORD_SUBTYPE, {0, 3}).range(INTEGER, 0, 1).range(INTEGER, 2, 3);
    const GhwFile file = read(m_file.file());
    ASSERT_EQ(file.types[4].items.count, 2u);
    EXPECT_EQ(file.rangesOf(file.types[4])[1].left, 2);
}

TEST_P(GhwFiles, PositionsAreBytes) {
    m_file.names({"x"})
        .type(ENUM, {1, 1, 1})
        .type(SCALAR_SUBTYPE, {0, 1})
        .positions(ENUM, 200, 255);
    const GhwFile file = read(m_file.file());
    EXPECT_EQ(file.rangesOf(file.types.at(2))[0].left, 200);
}

TEST_P(GhwFiles, WavesArePassedOver) {
    std::string bytes = m_file.names({"x"}).type(ENUM, {1, 1, 1}).file();
    bytes.insert(bytes.size() - 12, 300'000, 'w');
    EXPECT_EQ(read(bytes).types.size(), 2u);
}

TEST_P(GhwFiles, EveryBeginningOfAFileIsRefused) {
    m_file.names({"nat", "natural"}).type(INTEGER, {1}).type(SCALAR_SUBTYPE, {2, 1});
    const std::string bytes = m_file.range(INTEGER, 0, 2147483647).file();
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_NE(refusalOf(bytes.substr(0, size)), "no refusal") << size;
    EXPECT_EQ(refusalOf(bytes), "no refusal");
}

TEST(GhwRefusals, invalid_waves_without_an_end) {
    std::string bytes = GhwBuilder().file();
    bytes.insert(bytes.size() - 12, 300'000, 'w');
    bytes.pop_back();
    EXPECT_EQ(refusalOf(bytes),
              "w.ghw: offset 300061: the file has no end: GHDL was stopped, or is still writing it "
              "(--stop-time=0ns ends a run of which only the types are wanted)");
}

TEST(GhwRefusals, AnEmptyFileMeansThatElaborationFailed) {
    EXPECT_EQ(refusalOf(""),
              "w.ghw: offset 0: the file is empty: the elaboration by GHDL has failed");
}

TEST(GhwRefusals, AFileOfADesignThatWasNotRunHasNoTypes) {
    EXPECT_EQ(refusalOf(std::string("DIR\0\1\4\1\0", 8) + std::string(28, '\0')),
              "w.ghw: offset 1: the file has no types: GHDL was told not to run the design "
              "(--no-run)");
}

TEST(GhwRefusals, AFileWithoutTypesIsOfARunThatFailed) {
    const std::string header = GhwBuilder().file().substr(0, 16);
    EXPECT_EQ(refusalOf(header + std::string("DIR\0\1\4\1\0", 8)),
              "w.ghw: offset 16: the file has no types: GHDL failed before it wrote any");
}

TEST(GhwRefusals, invalid_kind_of_type) {
    EXPECT_EQ(refusalOf(GhwBuilder().type(36, {0, 0}).file()),
              "w.ghw: offset 49: a type of the kind 36, which is not known");
}

TEST(GhwRefusals, invalid_type_that_comes_later) {
    EXPECT_EQ(refusalOf(GhwBuilder().type(OPEN_ARRAY_SUBTYPE, {0, 1}).file()),
              "w.ghw: offset 51: there is no type with the number 1 so far");
}

TEST(GhwRefusals, invalid_number_of_a_name) {
    EXPECT_EQ(refusalOf(GhwBuilder().names({"a"}).type(INTEGER, {2}).file()),
              "w.ghw: offset 51: there is no name with the number 2");
}

TEST(GhwRefusals, invalid_byte_order) {
    std::string bytes = GhwBuilder().file();
    bytes[12] = 3;
    EXPECT_EQ(refusalOf(bytes),
              "w.ghw: offset 13: the byte order is neither 1 (little) nor 2 (big endian)");
}

TEST(GhwRefusals, invalid_type_with_more_than_4096_open_ranges) {
    const auto withDimensions = [](unsigned count) {
        std::vector<unsigned> array(3 + count, 1);
        array[2] = count;
        return GhwBuilder().names({"a"}).type(INTEGER, {1}).type(ARRAY, array).file();
    };
    EXPECT_EQ(refusalOf(withDimensions(4096)), "no refusal");
    EXPECT_EQ(refusalOf(withDimensions(4097)),
              "w.ghw: offset 52: the type leaves more ranges open than any design does");
}

TEST(GhwRefusals, invalid_end_within_a_type) {
    const std::string bytes = GhwBuilder().names({"a"}).type(INTEGER, {1}).file();
    EXPECT_EQ(refusalOf(bytes.substr(0, 51)), // The kind is the last byte.
              "w.ghw: offset 51: the file ends in the middle: GHDL was stopped, or is still "
              "writing it");
}

TEST(GhwRefusals, invalid_name_that_shares_more_than_there_is) {
    std::string bytes = GhwBuilder().names({"a", "ab"}).file();
    bytes[33] = 5; // How much the second shares with the first.
    EXPECT_EQ(refusalOf(bytes), "w.ghw: offset 34: a name is damaged: it shares more with the one "
                                "before than that has");
}

TEST(GhwRefusals, invalid_length_that_a_name_shares) {
    std::string bytes = GhwBuilder().names({"a", "ab"}).file();
    bytes[33] = static_cast<char>(0x81); // More of the length follows, but there is a 'b'.
    EXPECT_EQ(refusalOf(bytes), "w.ghw: offset 35: a name is damaged");
}

TEST(GhwRefusals, invalid_length_of_the_names) {
    std::string bytes = GhwBuilder().names({"a"}).file();
    bytes[28] = 2; // The sum of the lengths.
    EXPECT_EQ(refusalOf(bytes),
              "w.ghw: offset 38: the names are damaged: they do not have the length that the "
              "file says");
}

} // namespace
