#include "Inspect/words/TypeText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Inspect;
using namespace RTTI;

TEST(TypeText, EscapesWhatATerminalWouldAct) {
    EXPECT_EQ(quoted("a\"b\\c\n\x1B[0m\xFF"), "\"a\\\"b\\\\c\\n\\x1B[0m\\xFF\"");
    EXPECT_EQ(quotedName(nullptr), "(no name)");
}

TEST(TypeText, EscapesACharacterWhereverItStands) {
    for (std::size_t size = 1; size <= 20; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            for (int code = ' '; code <= 0xFF; ++code) {
                std::string name(size, 'n');
                name[place] = static_cast<char>(code);
                const bool isPlain = code <= '~' && code != '"' && code != '\\';
                EXPECT_EQ(Inspect::quoted(name) == '"' + name + '"', isPlain) << name;
            }
        }
    }
}

TEST(TypeText, WritesRangesAsTheLanguagesDo) {
    EXPECT_EQ(rangeText({0, 15, 1}), "0 to 15");
    EXPECT_EQ(rangeText({-1, -4, 0}), "-1 downto -4");
    EXPECT_EQ(rangeText({0, 0, -2}), "open");
    EXPECT_EQ(rangeText({1, 2, -2}), "open (1, 2)");
    EXPECT_EQ(rangeText({1, 2, 7}), "1, 2, direction 7");
}

TEST(TypeText, CountsEqualRangesThatFollowOneAnother) {
    const FullConstraints word = {31, 0, 0};
    const FullConstraints byte = {7, 0, 0};
    const std::vector<FullConstraints> words(2, word);
    EXPECT_EQ(runsText(std::vector{word, word, byte, word}),
              "(31 downto 0) x 2, (7 downto 0), (31 downto 0)");
    EXPECT_EQ(runsText(words, RangeLists::SHORT, false),
              "(31 downto 0) x 2, ... more than 2 in all");
    EXPECT_EQ(runsText(std::vector<FullConstraints>()), "none");
}

TEST(TypeText, EndsALineAfterEightRunsUnlessItIsToBeWhole) {
    std::vector<FullConstraints> ranges;
    for (int i = 0; i < 9; ++i)
        ranges.push_back({i, 0, 0});
    EXPECT_THAT(runsText(ranges), testing::EndsWith("(7 downto 0), ... 9 in all"));
    EXPECT_THAT(runsText(ranges, RangeLists::WHOLE),
                testing::EndsWith("(7 downto 0), (8 downto 0)"));
}

TEST(TypeText, KnowsNamesThatSomebodyGave) {
    EXPECT_TRUE(isGivenName("a"));
    EXPECT_TRUE(isGivenName("<a>b"));
    EXPECT_TRUE(isGivenName("<a><b>"));
    EXPECT_FALSE(isGivenName("<anonymous>"));
    EXPECT_FALSE(isGivenName(""));
    EXPECT_FALSE(isGivenName(nullptr));
}

TEST(TypeText, ShowsAnEncodingOutsideTheTableAsItsNumber) {
    EXPECT_EQ(namedText(ENCODING_UNPADDED_BYTE), "Unpadded-Byte");
    EXPECT_EQ(namedText(static_cast<ValueEncoding>(4)), "4");
    EXPECT_EQ(namedText(static_cast<ValueEncoding>(-1)), "-1");
}

} // namespace
