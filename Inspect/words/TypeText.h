#pragma once

#include "RTTI/RTType.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// `text` with every byte escaped that is not printable ASCII, so that a terminal shows it and does
/// not act on it.
std::string escaped(std::string_view text);

/// `text` in double quotes, with quotes and backslashes escaped too.
std::string quoted(std::string_view text);

/// Whether the name comes from the design. Other names are null, empty, or a word in angle brackets
/// such as "<anonymous>".
bool isGivenName(const char* name);

/// The name of a member or literal in quotes, or "(no name)".
std::string quotedName(const char* name);

/// A name as part of a path: unchanged if it consists only of letters, digits, `_`, `$` and `:`,
/// else quoted. A null name counts as empty.
std::string pathName(const char* name);

/// A range as text: "7 downto 0", "0 to 15", "open".
std::string rangeText(const RTTI::FullConstraints& range);

/// A run of equal ranges.
struct RangeRun {
    RTTI::FullConstraints range; ///< The range that is repeated.
    std::size_t count;           ///< How many there are, at least 1.
};

/// The first `most` runs of equal ranges in a list.
std::vector<RangeRun> runsOf(const std::vector<RTTI::FullConstraints>& ranges, std::size_t most);

/// `(7 downto 0)`, followed by ` x 5` for a run of 5.
std::string runText(const RangeRun& run);

/// The default limit of steps for flattening the ranges of a type that is shown: a short file can
/// hold a type with any number of ranges.
inline constexpr std::size_t MOST_WALK_STEPS = 1'000'000;

/// The largest number of runs in a line.
inline constexpr std::size_t MOST_RUNS_IN_LINE = 8;

/// A list of ranges, shortened: `(31 downto 0) x 5, (63 downto 0), ... 3764 in all`. If
/// `isComplete` is false there are more ranges than given, and the text says so. "none" for an
/// empty list.
std::string runsText(const std::vector<RTTI::FullConstraints>& ranges, bool isComplete = true);

/// The range of the values of an integer, real, enumeration or physical type: that of the type, or
/// `narrowing` if it is not null. Empty if the type has none, for an enumeration with all of its
/// literals, and for a real type without limits.
std::string valueRangeText(const RTTI::RTBaseType& type, const RTTI::FullConstraints* narrowing);

/// The name of a value encoding, or its number if it has none.
std::string encodingText(RTTI::ValueEncoding encoding);

/// The enumerator name of a kind, or its number if it has none.
/// @{
std::string arrayKindText(RTTI::ArrayKind kind);
std::string recordKindText(RTTI::RecordKind kind);
std::string enumKindText(RTTI::EnumKind kind);
/// @}

} // namespace Inspect
