#include "Import/LogicValue.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Import::LogicValue;

/// The bits, most significant first; empty for what is no number.
std::string bitsOf(std::string_view text, unsigned int bits) {
    LogicValue value;
    if (!readLogicValue(text, bits, value))
        return "";
    std::string shown;
    for (unsigned int i = bits; i-- > 0;) {
        const bool isSet = (value.planes[i / 8] >> i % 8 & 1) != 0;
        const bool isUnknown = (value.planes[value.planes.size() / 2 + i / 8] >> i % 8 & 1) != 0;
        shown.push_back(isUnknown ? (isSet ? 'x' : 'z') : (isSet ? '1' : '0'));
    }
    return shown;
}

TEST(LogicValues, DigitsOfEachBaseAreRead) {
    EXPECT_EQ(bitsOf("4'b1x0z", 4), "1x0z");
    EXPECT_EQ(bitsOf("6'o52", 6), "101010");
    EXPECT_EQ(bitsOf("8'hA5", 8), "10100101");
    EXPECT_EQ(bitsOf("8'hxz", 8), "xxxxzzzz");
}

TEST(LogicValues, ShortOnesAreFilledWithZeros) {
    EXPECT_EQ(bitsOf("32'h1", 8), "00000001");
    EXPECT_EQ(bitsOf("4'b1x", 4), "001x");
}

TEST(LogicValues, SignedOnesAreWidenedBySign) {
    EXPECT_EQ(bitsOf("4'sh9", 8), "11111001");
    EXPECT_EQ(bitsOf("4'sh7", 8), "00000111");
    EXPECT_EQ(bitsOf("?32?shffffffff", 40), std::string(40, '1'));
}

TEST(LogicValues, ASingleDigitFillsAll) {
    EXPECT_EQ(bitsOf("'1", 3), "111");
    EXPECT_EQ(bitsOf("'x", 3), "xxx");
}

TEST(LogicValues, DigitsBeyondTheWidthAreDropped) { EXPECT_EQ(bitsOf("3'hf", 4), "0111"); }

TEST(LogicValues, OtherTextsAreRefused) {
    for (const char* const text :
         {"", "10", "12", "4'", "4'b", "4'b2", "4'hg", "\"text\"", "?32", "4'h "})
        EXPECT_EQ(bitsOf(text, 4), "") << text;
}

} // namespace
