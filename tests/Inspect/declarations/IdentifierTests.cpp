#include "Inspect/declarations/Identifiers.h"
#include "Inspect/declarations/NameOwners.h"
#include "Inspect/declarations/ReservedWords.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstdint>
#include <map>
#include <random>
#include <string>

namespace {

using namespace Inspect;

constexpr SourceLanguage VHDL = SourceLanguage::VHDL;
constexpr SourceLanguage SV = SourceLanguage::SYSTEM_VERILOG;

TEST(Identifiers, LegalNamesStayAsTheyAre) {
    EXPECT_EQ(identifierOf(VHDL, "State_2"), "State_2");
    EXPECT_EQ(identifierOf(SV, "_state$2"), "_state$2");
}

TEST(Identifiers, VhdlExtendsWhatIsNoBasicIdentifier) {
    EXPECT_EQ(identifierOf(VHDL, "_a"), "\\_a\\");
    EXPECT_EQ(identifierOf(VHDL, "a_"), "\\a_\\");
    EXPECT_EQ(identifierOf(VHDL, "a__b"), "\\a__b\\");
    EXPECT_EQ(identifierOf(VHDL, "2a"), "\\2a\\");
    EXPECT_EQ(identifierOf(VHDL, "<anonymous>"), "\\<anonymous>\\");
    EXPECT_EQ(identifierOf(VHDL, "a\\b"), "\\a\\\\b\\");
}

TEST(Identifiers, NoPlaceOfACharacterIsMissed) {
    for (std::size_t size = 1; size <= 20; ++size) {
        for (std::size_t place = 0; place < size; ++place) {
            for (int code = 0; code <= 0xFF; ++code) {
                std::string name(size, 'q');
                name[place] = static_cast<char>(code);
                const bool isAlnum = code < 0x80 && std::isalnum(code) != 0;
                const bool isBegin = place == 0;
                const bool isEnd = place + 1 == size;
                const bool isBasic = isBegin ? isAlnum && std::isdigit(code) == 0
                                             : isAlnum || (code == '_' && !isEnd);
                const bool isSimple = isBegin ? (isAlnum && std::isdigit(code) == 0) || code == '_'
                                              : isAlnum || code == '_' || code == '$';
                EXPECT_EQ(identifierOf(VHDL, name) == name, isBasic) << name;
                EXPECT_EQ(identifierOf(SV, name) == name, isSimple) << name;
            }
        }
    }
}

TEST(Identifiers, VhdlExtendsTwoUnderlinesInARowAnywhere) {
    for (std::size_t size = 3; size <= 30; ++size) {
        for (std::size_t place = 1; place + 1 < size; ++place) {
            std::string name(size, 'q');
            name[place] = '_';
            EXPECT_EQ(identifierOf(VHDL, name), name);
            if (place + 2 == size)
                continue;
            name[place + 1] = '_';
            EXPECT_EQ(identifierOf(VHDL, name), '\\' + name + '\\');
        }
    }
}

TEST(Identifiers, VhdlExtendsReservedWordsInAnyCase) {
    EXPECT_EQ(identifierOf(VHDL, "begin"), "\\begin\\");
    EXPECT_EQ(identifierOf(VHDL, "BEGIN"), "\\BEGIN\\");
    EXPECT_EQ(identifierOf(VHDL, "restrict_guarantee"), "\\restrict_guarantee\\");
    EXPECT_EQ(identifierOf(VHDL, "logic"), "logic");
}

TEST(Identifiers, VhdlKeepsExtendedIdentifiers) {
    EXPECT_EQ(identifierOf(VHDL, "\\extended id\\"), "\\extended id\\");
    EXPECT_EQ(identifierOf(VHDL, "\\a\\b\\"), "\\\\\\a\\\\b\\\\\\") << "a single backslash within";
}

TEST(Identifiers, SystemVerilogEscapesUpToASpace) {
    EXPECT_EQ(identifierOf(SV, "pkg::type_t"), "\\pkg::type_t ");
    EXPECT_EQ(identifierOf(SV, "2a"), "\\2a ");
    EXPECT_EQ(identifierOf(SV, "begin"), "\\begin ");
    EXPECT_EQ(identifierOf(SV, "Begin"), "Begin");
    EXPECT_EQ(identifierOf(SV, "a b"), "\\a\\x20b ");
}

TEST(Identifiers, BytesThatATerminalActsOnAreSpelledOut) {
    EXPECT_EQ(identifierOf(VHDL, "a\x1B\xE9"), "\\a\\\\x1B\\\\xE9\\");
    EXPECT_EQ(identifierOf(SV, "a\x1B\xE9"), "\\a\\x1B\\xE9 ");
}

TEST(Identifiers, CaseTellsVhdlNamesApartOnlyWhereTheyAreExtended) {
    EXPECT_EQ(identityOf(VHDL, "State"), identityOf(VHDL, "STATE"));
    EXPECT_NE(identityOf(VHDL, "\\State\\"), identityOf(VHDL, "\\STATE\\"));
    EXPECT_NE(identityOf(VHDL, "\\state\\"), identityOf(VHDL, "state"));
    EXPECT_NE(identityOf(SV, "State"), identityOf(SV, "STATE"));
    EXPECT_EQ(identityOf(SV, "\\state "), identityOf(SV, "state"));
}

TEST(Identifiers, SuffixesStayWithinExtendedIdentifiers) {
    EXPECT_EQ(suffixed(VHDL, "a", "_1"), "a_1");
    EXPECT_EQ(suffixed(VHDL, "\\a b\\", "_1"), "\\a b_1\\");
    EXPECT_EQ(suffixed(SV, "\\a\\", "_1"), "\\a\\_1");
}

TEST(Identifiers, ReservedWordsAreThoseOfTheStandards) {
    for (const char* word : {"abs", "default", "protected", "xor"})
        EXPECT_TRUE(isReservedWord(VHDL, word)) << word;
    for (const char* word : {"accept_on", "interconnect", "nettype", "xor"})
        EXPECT_TRUE(isReservedWord(SV, word)) << word;
    EXPECT_FALSE(isReservedWord(VHDL, "nettype"));
    EXPECT_FALSE(isReservedWord(SV, "downto"));
}

/// The grammar, written again from the outside: VHDL 15.4, SystemVerilog 5.6.
bool isLegal(SourceLanguage language, const std::string& text) {
    const auto isWord = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) || c == '_';
    };
    if (text.empty())
        return false;
    if (text[0] != '\\') {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (!isWord(text[i]) && !(language == SV && text[i] == '$' && i > 0))
                return false;
        }
        if (std::isdigit(static_cast<unsigned char>(text[0])))
            return false;
        if (language == VHDL &&
            (text[0] == '_' || text.back() == '_' || text.find("__") != std::string::npos))
            return false;
        return !isReservedWord(language, language == VHDL ? identityOf(VHDL, text) : text);
    }
    if (text.size() < 3 || text.back() != (language == VHDL ? '\\' : ' '))
        return false;
    const std::string inner = text.substr(1, text.size() - 2);
    for (std::size_t i = 0; i < inner.size(); ++i) {
        if (inner[i] < (language == VHDL ? ' ' : '!') || inner[i] > '~')
            return false;
        if (language == VHDL && inner[i] == '\\' && (++i == inner.size() || inner[i] != '\\'))
            return false;
    }
    return true;
}

TEST(Identifiers, HaveTheSameHashOnlyIfTheyHaveTheSameIdentity) {
    std::mt19937 random(11);
    for (const SourceLanguage language : {VHDL, SV}) {
        std::map<std::uint64_t, std::string> identities;
        for (int i = 0; i < 20000; ++i) {
            std::string name(1 + random() % 20, 'a');
            for (char& c : name)
                c = random() % 4 != 0 ? c : "aA0_b'\\"[random() % 7];
            const Identifier identifier = identifierOf(language, name);
            const std::string identity = identityOf(language, identifier);
            const auto found = identities.emplace(identityHash(language, identifier), identity);
            EXPECT_EQ(found.first->second, identity);
            name[0] = 'A';
            const Identifier other = identifierOf(language, name);
            EXPECT_EQ(identityHash(language, other) == found.first->first,
                      identityOf(language, other) == identity);
        }
    }
}

TEST(Identifiers, BelongToTheFirstWhoAsks) {
    NameOwners owners;
    EXPECT_EQ(owners.of(0), NameOwners::NOBODY);
    for (std::uint64_t name = 0; name < 1000; ++name)
        EXPECT_EQ(owners.claim(name * 97, name + 1), name + 1);
    for (std::uint64_t name = 0; name < 1000; ++name) {
        EXPECT_EQ(owners.claim(name * 97, 7), name + 1);
        EXPECT_EQ(owners.of(name * 97), name + 1);
        EXPECT_EQ(owners.of(name * 97 + 1), NameOwners::NOBODY);
    }
}

TEST(Identifiers, OfAnyNameAreLegal) {
    std::mt19937 random(7);
    for (int i = 0; i < 20000; ++i) {
        std::string name(1 + random() % 5, '\0');
        for (char& c : name)
            c = random() % 2 == 0 ? "ab_\\' $1"[random() % 8] : static_cast<char>(random());
        for (const SourceLanguage language : {VHDL, SV}) {
            const std::string identifier(identifierOf(language, name).view());
            EXPECT_TRUE(isLegal(language, identifier)) << identifier;
        }
    }
}

} // namespace
