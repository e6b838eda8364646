#include "Import/Input.h"

#include "Import/ImportError.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Import;

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    Input input(stream, "text");
    std::vector<std::string> lines;
    std::string_view line;
    while (input.readLine(line))
        lines.emplace_back(line);
    return lines;
}

using Lines = std::vector<std::string>;

TEST(Inputs, LinesComeWithoutTheirEnds) { EXPECT_EQ(linesOf("a\r\n\nb\n"), (Lines{"a", "", "b"})); }

TEST(Inputs, TheLastLineNeedsNoEnd) {
    std::istringstream stream("a\nb");
    Input input(stream, "text");
    std::string_view line;
    ASSERT_TRUE(input.readLine(line));
    EXPECT_TRUE(input.endedLine());
    ASSERT_TRUE(input.readLine(line));
    EXPECT_EQ(line, "b");
    EXPECT_FALSE(input.endedLine());
    EXPECT_FALSE(input.readLine(line));
}

TEST(Inputs, LinesMayBeLongerThanTheirBuffer) {
    const std::string longLine(3'000'000, 'x');
    EXPECT_EQ(linesOf("a\n" + longLine + "\nb\n"), (Lines{"a", longLine, "b"}));
}

TEST(Inputs, ALineWithoutAnEndIsRefusedBeforeItFillsTheMemory) {
    std::istringstream stream("short\n" + std::string(Input::LONGEST_LINE + 1'000'000, 'x'));
    Input input(stream, "text");
    std::string_view line;
    input.readLine(line);
    EXPECT_THROW(input.readLine(line), ImportError);
}

TEST(Inputs, BytesThatAreLookedAtAreStillRead) {
    std::istringstream stream("abcdef");
    Input input(stream, "bytes");
    EXPECT_EQ(input.peek(3), "abc");
    EXPECT_EQ(input.peek(9), "abcdef");
    char bytes[4];
    ASSERT_EQ(input.read(bytes, 4), 4u);
    EXPECT_EQ(std::string(bytes, 4), "abcd");
    EXPECT_EQ(input.skip(9), 2u);
    EXPECT_EQ(input.read(bytes, 1), 0u);
}

TEST(Inputs, PlacesSayLineOrOffset) {
    std::istringstream stream("a\nb\n");
    Input input(stream, "dir/x.tree");
    std::string_view line;
    input.readLine(line);
    input.readLine(line);
    EXPECT_EQ(input.linePlace().text(), "dir/x.tree:2");
    EXPECT_EQ(input.offsetPlace().text(), "dir/x.tree: offset 4");
    EXPECT_EQ(input.place().text(), "dir/x.tree");
    EXPECT_EQ(Place().text(), "");
}

TEST(Inputs, BytesThatMoveToTheFrontOfTheBufferStayWhatTheyAre) {
    std::string text;
    while (text.size() < 800'000)
        text += std::to_string(text.size()) + ' ';
    std::istringstream stream(text);
    Input input(stream, "bytes");
    char first[10];
    input.read(first, sizeof first);
    EXPECT_TRUE(input.peek(500'000) == text.substr(sizeof first, 500'000));
}

TEST(Inputs, ProgressReachesTheWholeInput) {
    std::istringstream stream(std::string(1'000'000, 'x'));
    unsigned long long last = 0;
    Input input(stream, "bytes", [&](unsigned long long bytes) {
        EXPECT_GE(bytes, last);
        last = bytes;
    });
    input.skip(2'000'000);
    EXPECT_EQ(last, 1'000'000u);
}

TEST(Inputs, AnErrorSaysPlaceAndReason) {
    std::istringstream stream("a\n");
    Input input(stream, "x.tree");
    EXPECT_STREQ(ImportError(input.place(), "it is cut short").what(), "x.tree: it is cut short");
    EXPECT_STREQ(ImportError(Place(), "no types").what(), "no types");
}

} // namespace
