#include "Inspect/words/IndentedLines.h"
#include "Inspect/words/Text.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

namespace {

using Inspect::IndentedLines;
using Inspect::Text;

TEST(Text, HasTextCharactersAndNumbersInOrder) {
    Text text;
    text << "a" << 'b' << -5 << ' ' << std::numeric_limits<unsigned long long>::max();
    EXPECT_EQ(text.view(), "ab-5 18446744073709551615");
    text.truncate(2);
    text.digits(255U, 16);
    EXPECT_EQ(text.view(), "abff");
}

TEST(Text, GoesToItsStreamInPiecesAndWholeWithTheFlush) {
    std::ostringstream out;
    std::string expected;
    Text text(out);
    for (std::size_t i = 0; expected.size() <= 3 * Text::MOST_HELD; ++i) {
        text << i << '\n';
        expected += std::to_string(i) + '\n';
        ASSERT_LE(text.size(), Text::MOST_HELD);
    }
    EXPECT_FALSE(out.str().empty());
    EXPECT_LT(out.str().size(), expected.size());
    text.flush();
    EXPECT_EQ(out.str(), expected);
}

/// What is written of a label with these lines, each in two pieces.
std::string labelled(std::size_t lines, std::size_t length) {
    std::ostringstream out;
    Text text(out);
    text << "label:";
    IndentedLines indented(text, "  ", IndentedLines::Single::BEHIND_LABEL);
    for (std::size_t i = 0; i < lines; ++i)
        text << std::string(length / 2, 'x') << std::string(length - length / 2, 'x') + '\n';
    indented.end();
    text << "end\n";
    text.flush();
    return out.str();
}

TEST(IndentedLines, StandBelowALabelUnlessThereIsOne) {
    EXPECT_EQ(labelled(1, 3), "label: xxx\nend\n");
    EXPECT_EQ(labelled(2, 3), "label:\n  xxx\n  xxx\nend\n");
}

TEST(IndentedLines, HavePrefixesWhereverTheyAreBroken) {
    Text text;
    text << "head ";
    IndentedLines lines(text, "- ");
    text << "a\n\nb";
    lines.end();
    EXPECT_EQ(text.view(), "head - a\n- \n- b");
}

TEST(IndentedLines, AreWholeWhereverTheTextGoesToItsStream) {
    const std::string line(Text::MOST_HELD, 'x');
    EXPECT_EQ(labelled(1, line.size()), "label: " + line + "\nend\n");
    EXPECT_EQ(labelled(2, line.size()), "label:\n  " + line + "\n  " + line + "\nend\n");
    std::string expected = "label:\n";
    for (std::size_t i = 0; i < Text::MOST_HELD; ++i)
        expected += "  xxx\n";
    EXPECT_EQ(labelled(Text::MOST_HELD, 3), expected + "end\n");
}

} // namespace
