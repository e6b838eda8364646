#pragma once

#include "Inspect/words/Text.h"
#include "RTTI/RTType.h"
#include "RTTI/Ranges.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// Writes a byte as two hexadecimal digits.
void writeByte(Text& out, char byte);

/// `text` with every byte escaped that is not printable ASCII, so that a terminal shows it and does
/// not act on it.
std::string escaped(std::string_view text);

/// `text` in double quotes, with quotes and backslashes escaped too.
std::string quoted(std::string_view text);

/// Writes the same.
void writeQuoted(Text& out, std::string_view text);

/// Whether the name comes from the design. Other names are null, empty, or a word in angle brackets
/// such as "<anonymous>".
bool isGivenName(const char* name);

/// The name if it comes from the design, else nothing.
std::string_view givenName(const char* name);

/// The name of a member or literal in quotes, or "(no name)".
/// @{
std::string quotedName(const char* name);
void writeQuotedName(Text& out, const char* name);
/// @}

/// A name as part of a path: unchanged if it consists only of letters, digits, `_`, `$` and `:`,
/// else quoted. A null name counts as empty.
std::string pathName(const char* name);

/// A range as text: "7 downto 0", "0 to 15", "open".
/// @{
std::string rangeText(const RTTI::FullConstraints& range);
void writeRange(Text& out, const RTTI::FullConstraints& range);
/// @}

/// How long lists of ranges are shown.
enum class RangeLists {
    SHORT, ///< The first few runs of equal ranges, and the total number.
    WHOLE  ///< Completely.
};

/// The largest number of steps for flattening the ranges of a type that is shown: a short file can
/// hold many types with any number of ranges. The largest walk in the files of UVM takes 71,000
/// steps; 250,000 take 50 ms, and ten million, where the ranges are wanted whole, two seconds.
constexpr std::size_t mostWalkSteps(RangeLists lists) {
    return lists == RangeLists::WHOLE ? 10'000'000 : 250'000;
}

/// The largest number of runs in a line that is short.
inline constexpr std::size_t MOST_RUNS_IN_LINE = 8;

/// Writes a range as an entry of a list: `(7 downto 0)`.
void writeEntry(Text& out, const RTTI::FullConstraints& range);

/// A run of equal entries of a list: of ranges, or of anything else that has `isSame` and
/// `writeEntry`.
template <typename Entry> struct Run {
    Entry entry;       ///< What is repeated.
    std::size_t count; ///< How many there are, at least 1.
};

/// The run that begins with the entry at `first`.
template <typename Entry> Run<Entry> runAt(const std::vector<Entry>& entries, std::size_t first) {
    std::size_t end = first + 1;
    while (end < entries.size() && isSame(entries[end], entries[first]))
        ++end;
    return {entries[first], end - first};
}

/// The first `most` runs of equal entries in a list.
template <typename Entry>
std::vector<Run<Entry>> runsOf(const std::vector<Entry>& entries, std::size_t most) {
    std::vector<Run<Entry>> runs;
    for (std::size_t at = 0; at < entries.size() && runs.size() < most; at += runs.back().count)
        runs.push_back(runAt(entries, at));
    return runs;
}

/// Writes the entry, followed by ` x 5` for a run of 5.
template <typename Entry> void writeRun(Text& out, const Run<Entry>& run) {
    writeEntry(out, run.entry);
    if (run.count != 1)
        out << " x " << run.count;
}

/// Writes a list in one line: `(31 downto 0) x 5, (63 downto 0), ... 3764 in all`. If `isComplete`
/// is false there are more entries than given, and the text says so. "none" for an empty list. The
/// list begins at the index `first`.
template <typename Entry>
void writeRuns(Text& out, const std::vector<Entry>& entries, RangeLists lists = RangeLists::SHORT,
               bool isComplete = true, std::size_t first = 0) {
    std::size_t most = lists == RangeLists::WHOLE ? entries.size() : MOST_RUNS_IN_LINE;
    std::size_t next = first;
    for (; next < entries.size() && most > 0; --most) {
        const Run<Entry> run = runAt(entries, next);
        if (next != first)
            out << ", ";
        writeRun(out, run);
        next += run.count;
    }
    if (!isComplete)
        out << ", ... more than " << entries.size() - first << " in all";
    else if (next < entries.size())
        out << ", ... " << entries.size() - first << " in all";
    else if (next == first)
        out << "none";
}

/// The same as text.
template <typename Entry>
std::string runsText(const std::vector<Entry>& entries, RangeLists lists = RangeLists::SHORT,
                     bool isComplete = true) {
    return written([&](Text& out) { writeRuns(out, entries, lists, isComplete); });
}

/// The range of the values of an integer, real, enumeration or physical type: that of the type, or
/// `narrowing` if it is not null. Empty if the type has none, for an enumeration with all of its
/// literals, and for a real type without limits.
std::string valueRangeText(const RTTI::RTBaseType& type, const RTTI::FullConstraints* narrowing);

/// Writes the name of a value of an enumeration of the library, such as "2-State" or "VHDL_ARRAY",
/// or its number if it has none.
/// @{
void writeNamed(Text& out, RTTI::ValueEncoding encoding);
void writeNamed(Text& out, RTTI::EnumKind kind);
void writeNamed(Text& out, RTTI::ArrayKind kind);
void writeNamed(Text& out, RTTI::RecordKind kind);
/// @}

/// The same as text.
template <typename Enum> std::string namedText(Enum value) {
    return written([&](Text& out) { writeNamed(out, value); });
}

} // namespace Inspect
