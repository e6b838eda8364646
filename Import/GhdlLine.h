#pragma once

#include "Import/ListedUse.h"
#include "Import/Place.h"

#include <string>
#include <string_view>

namespace Import {

/// A line of GHDL's type listing, taken apart from left to right. What is not as it has to be
/// throws ImportError.
class GhdlLine {
public:
    GhdlLine(std::string_view text, Place place) : m_rest(text), m_place(std::move(place)) {}

    bool isAtEnd() const { return m_rest.empty(); }

    /// Whether the text comes next.
    bool isAt(std::string_view text) const { return m_rest.substr(0, text.size()) == text; }

    /// Passes over the text if it comes next.
    bool take(std::string_view text);

    /// Passes over the text, which has to come next.
    void expect(std::string_view text);

    /// Nothing may come next.
    void finish() const;

    /// What stands up to the text, which is passed over as well.
    std::string_view takeUpTo(std::string_view text);

    /// The word that comes next, up to a comma, colon or space, which stay.
    std::string_view takeWord();

    /// An identifier or a literal as it stands; empty for GHDL's word for no name.
    std::string takeName();

    /// A number or a literal.
    std::string takeBound();

    long long takeNumber();

    ListedRange takeRange();

    /// A subtype indication.
    ListedUse takeUse();

    /// Ranges of an array or record, if any come next.
    void takeConstraint(ListedUse& use);

private:
    [[noreturn]] void fail(const std::string& expected) const;
    std::size_t wordLength() const;
    void takeGroup(ListedUse& use, unsigned int level);

    std::string_view m_rest;
    Place m_place;
};

} // namespace Import
