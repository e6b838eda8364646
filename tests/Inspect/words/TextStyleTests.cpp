#include "Inspect/views/TypeDumper.h"
#include "Inspect/words/TextStyle.h"
#include "OVAT/FileBlockManager.h"
#include "RTTI/RTTypeManager.h"
#include "TypeFile/TypeBuilding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <string>

namespace {

using namespace Inspect;
using testing::HasSubstr;
using testing::Not;

constexpr Ink inks[] = {Ink::HEADING, Ink::KEYWORD, Ink::NAME,    Ink::NUMBER, Ink::COMMENT,
                        Ink::ADDED,   Ink::REMOVED, Ink::CHANGED, Ink::ERROR,  Ink::WARNING};

/// A text without its escape sequences of colours.
std::string withoutColours(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\x1B')
            i = text.find('m', i);
        else
            result += text[i];
    }
    return result;
}

std::string dump(const RTTI::RTBaseType& type, const TypeLookup& types, const TextStyle& style) {
    std::ostringstream out;
    TypeDumper(out, {1, types}, style).type(0, type);
    return out.str();
}

TEST(TextStyle, PlainTextPassesThroughAsItIs) {
    for (const Ink ink : inks)
        EXPECT_EQ(TextStyle::plain().paint(ink, "a\x1B[31mb"), "a\x1B[31mb");
    EXPECT_TRUE(TextStyle::plain().isPlain());
}

TEST(TextStyle, ColouredTextBeginsWithItsColourAndEndsWithNone) {
    EXPECT_EQ(TextStyle::coloured().paint(Ink::HEADING, "type"), "\x1B[1mtype\x1B[0m");
    EXPECT_EQ(TextStyle::coloured().paint(Ink::ERROR, "error"), "\x1B[1;31merror\x1B[0m");
    EXPECT_FALSE(TextStyle::coloured().isPlain());
}

TEST(TextStyle, EveryInkHasAColour) {
    for (const Ink ink : inks) {
        const std::string painted = TextStyle::coloured().paint(ink, "x");
        EXPECT_EQ(withoutColours(painted), "x");
        EXPECT_EQ(painted.rfind("\x1B[", 0), 0u);
        EXPECT_NE(painted.rfind("\x1B[0m", 0), 0u);
    }
}

TEST(TextStyle, WhatIsAddedRemovedAndChangedLooksDifferent) {
    std::set<std::string> painted;
    for (const Ink ink : {Ink::ADDED, Ink::REMOVED, Ink::CHANGED})
        painted.insert(TextStyle::coloured().paint(ink, "x"));
    EXPECT_EQ(painted.size(), 3u);
}

TEST(TextStyle, NothingToPaintIsNothing) {
    EXPECT_EQ(TextStyle::coloured().paint(Ink::NAME, ""), "");
}

TEST(TypeDumperColours, SetOffKindNameAndNumbers) {
    RTTI::RTIntType type;
    TypeFile::setName(type, "byte_t");
    type.m_constraint = {7, 0, RTTI::TypeFileFormat::DOWNTO_DIRECTION};
    const std::string text = dump(type, nullptr, TextStyle::coloured());
    EXPECT_THAT(text, HasSubstr("\x1B[1mtype 0:\x1B[0m \x1B[35minteger\x1B[0m "
                                "\x1B[36m\"byte_t\"\x1B[0m\n"));
    EXPECT_THAT(text, HasSubstr("range: \x1B[33m7 downto 0\x1B[0m\n"));
}

TEST(TypeDumperColours, LeaveTheBytesOfANameEscaped) {
    RTTI::RTIntType type;
    TypeFile::setName(type, "\x1B[31mred");
    EXPECT_THAT(dump(type, nullptr, TextStyle::coloured()), HasSubstr("\"\\x1B[31mred\""));
}

/// What is dumped of a file that is loaded anew: a class answers for its encoding once.
std::string dumpAll(const std::string& path, const TextStyle& style) {
    OVAT::FileBlockManager storage(path);
    RTTI::RTTypeManager manager;
    manager.setupDeserializer(storage, 0);
    const TypeLookup types = [&](unsigned int id) { return manager.getRTType(id); };
    std::string text;
    for (unsigned int id = 0; const RTTI::RTBaseType* type = types(id); ++id)
        text += dump(*type, types, style); // The examples have no gaps.
    return text;
}

class RealFileColours : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(RealFileColours, ChangeNothingButTheColours) {
    const std::string plain = dumpAll(GetParam().string(), TextStyle::plain());
    const std::string coloured = dumpAll(GetParam().string(), TextStyle::coloured());
    EXPECT_EQ(plain.find('\x1B'), std::string::npos);
    EXPECT_GT(plain.size(), 46u * 100); // The smallest example has 46 types.
    EXPECT_GT(coloured.size(), plain.size());
    EXPECT_TRUE(withoutColours(coloured) == plain);
}

std::vector<std::filesystem::path> examples() {
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(EXAMPLE_TYPEFILES_DIR)) {
        if (entry.path().extension() == ".typ")
            paths.push_back(entry.path());
    }
    return paths;
}

INSTANTIATE_TEST_SUITE_P(Examples, RealFileColours, testing::ValuesIn(examples()),
                         [](const auto& tested) { return tested.param.stem().string(); });

} // namespace
