#include "Inspect/translate/Digits.h"

#include <gtest/gtest.h>

namespace {

using Inspect::bitsOf;
using Inspect::hexDigits;

TEST(Digits, AreThoseThatAViewerShows) {
    EXPECT_EQ(hexDigits("10100001"), "a1");
    EXPECT_EQ(hexDigits("110"), "6");
    EXPECT_EQ(hexDigits("xxxxzzzz"), "xz");
    EXPECT_EQ(hexDigits("x10xzz0z"), "XX");
    EXPECT_EQ(hexDigits("xx0000"), "x0"); // What is in front of the first bit is as that.
    EXPECT_EQ(hexDigits("zz0000"), "z0");
    EXPECT_EQ(hexDigits("1z"), "X");
}

TEST(Digits, TellTheBaseByTheirNumber) {
    EXPECT_EQ(bitsOf("01x0", 4), "01x0");
    EXPECT_EQ(bitsOf("A", 4), "1010");
    EXPECT_EQ(bitsOf("1X", 6), "01xxxx");
    EXPECT_EQ(bitsOf("xz", 6), "xxzzzz");
    EXPECT_EQ(bitsOf("1", 1), "1");
    EXPECT_EQ(bitsOf("11", 2), "11");
    EXPECT_EQ(bitsOf("3", 2), "11");
}

TEST(Digits, MayBeFewerBehindAPrefix) {
    for (const char* text : {"0xa", "0XA", "$A", "0b1010", "0B1010", "%1010", "0x0a", "0b001010"})
        EXPECT_EQ(bitsOf(text, 6), "001010") << text;
}

TEST(Digits, MayHaveUnderscoresBehindThem) {
    EXPECT_EQ(bitsOf("1_0_1010", 6), "101010");
    EXPECT_EQ(bitsOf("0x1_f_", 6), "011111");
    EXPECT_EQ(bitsOf("_1", 1), std::nullopt);
    EXPECT_EQ(bitsOf("0b_1", 6), std::nullopt);
    EXPECT_EQ(bitsOf("_", 1), std::nullopt);
}

TEST(Digits, OfAnotherNumberOrForAnotherWidthAreNone) {
    for (const char* text : {"", "1", "101", "0000101", "0g", "0a0", "4f", "xb0", "0x", "0b",
                             "0xx0a", "0b0101011", "0x40", "21", "-1", "2x0000"})
        EXPECT_EQ(bitsOf(text, 6),
                  text == std::string("21") ? std::optional<std::string>("100001") : std::nullopt)
            << text;
    EXPECT_EQ(bitsOf("5", 2), std::nullopt);
    EXPECT_EQ(bitsOf("2", 1), std::nullopt);
}

} // namespace
