#pragma once

#include "Inspect/declarations/SourceLanguage.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace Inspect {

/// How a name is spelled: as it is, which is nearly always so and copies nothing, or otherwise. A
/// name that is spelled as it is must outlive the identifier.
class Identifier {
public:
    Identifier() = default;

    /// A name that is spelled as it is.
    explicit Identifier(std::string_view name) : m_name(name) {}

    /// Another spelling, which is not empty.
    explicit Identifier(std::string&& made) : m_made(std::move(made)) {}

    /// Valid as long as the identifier and the name.
    std::string_view view() const { return m_made.empty() ? m_name : std::string_view(m_made); }

    /// The same.
    operator std::string_view() const { return view(); }

    /// Whether the spelling is the name itself.
    bool isName() const { return m_made.empty(); }

    /// Whether the spelling is the same.
    friend bool operator==(const Identifier& one, std::string_view other) {
        return one.view() == other;
    }

private:
    std::string_view m_name;
    std::string m_made; ///< Empty where the name is spelled as it is.
};

/// The identifier that stands for a name in a language: the name itself where it is a legal one and
/// no reserved word of IEEE 1076-2008 or IEEE 1800-2017; else VHDL's extended identifier, `\...\`,
/// or SystemVerilog's escaped one, `\... ` with the space that ends it. What neither can hold
/// (control characters, bytes beyond ASCII, in SystemVerilog spaces) is written as `\xHH` in it.
/// Different names may so have the same identifier. The name must not be empty.
Identifier identifierOf(SourceLanguage language, std::string_view name);

/// What a compiler tells identifiers apart by: without SystemVerilog's escape, and in lower case
/// where VHDL makes no difference.
std::string identityOf(SourceLanguage language, std::string_view identifier);

/// A number that is the same for identifiers of the same identity, and hardly ever for others.
std::uint64_t identityHash(SourceLanguage language, std::string_view identifier);

/// A name with text added at its end, within the quotes of a VHDL extended identifier.
std::string suffixed(SourceLanguage language, std::string_view name, std::string_view suffix);

/// Whether a name is a VHDL character literal such as `'a'`, of printable ASCII.
bool isCharacterLiteral(std::string_view name);

} // namespace Inspect
