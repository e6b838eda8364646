#pragma once

#include "RTTI/RTType.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// `text` with all bytes but printable ASCII escaped, so that a terminal shows what is there and
/// does nothing else.
std::string escaped(std::string_view text);

/// `text` escaped, quotes and backslashes as well, in double quotes.
std::string quoted(std::string_view text);

/// Whether somebody gave the name: others are null, empty, or a word in angle
/// brackets as "<anonymous>" is.
bool isGivenName(const char* name);

/// A member's or literal's name, quoted, or "(no name)".
std::string quotedName(const char* name);

/// A name as it stands in a path: as it is where it has letters, digits and `_`, `$` and `:` alone,
/// else quoted. A null name counts as empty.
std::string pathName(const char* name);

/// A range as the languages write it: "7 downto 0", "0 to 15", "open".
std::string rangeText(const RTTI::FullConstraints& range);

/// Equal ranges that follow one another.
struct RangeRun {
    RTTI::FullConstraints range; ///< Each of them.
    std::size_t count;           ///< How many there are, at least 1.
};

/// Puts equal neighbours together, up to the first `most` runs.
std::vector<RangeRun> runsOf(const std::vector<RTTI::FullConstraints>& ranges, std::size_t most);

/// `(7 downto 0)`, with ` x 5` where it stands for more than one.
std::string runText(const RangeRun& run);

/// Steps of the walk for the flattened ranges of a type that is shown, unless more are asked for: a
/// short file can hold a type of any number of them.
inline constexpr std::size_t MOST_WALK_STEPS = 1'000'000;

/// So many runs have a place in a line.
inline constexpr std::size_t MOST_RUNS_IN_LINE = 8;

/// A list of ranges that stays short: `(31 downto 0) x 5, (63 downto 0), ... 3764 in all`. Where
/// `isComplete` is false there are more than the ranges that are given, and the text says so.
/// "none" for none.
std::string runsText(const std::vector<RTTI::FullConstraints>& ranges, bool isComplete = true);

/// The range of the values of an integer, real, enumeration or physical type: that of the type, or
/// `narrowing` where that is not null. Empty where the type has none, for an enumeration with all
/// of its literals, and for a real that may be any.
std::string valueRangeText(const RTTI::RTBaseType& type, const RTTI::FullConstraints* narrowing);

/// A value encoding's name, or its number where it has none.
std::string encodingText(RTTI::ValueEncoding encoding);

/// The enumerator's name of a kind, or its number where it has none.
/// @{
std::string arrayKindText(RTTI::ArrayKind kind);
std::string recordKindText(RTTI::RecordKind kind);
std::string enumKindText(RTTI::EnumKind kind);
/// @}

} // namespace Inspect
