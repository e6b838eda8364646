#include "Import/GhdlLine.h"

#include "Import/ImportError.h"

#include <algorithm>
#include <charconv>

namespace Import {

namespace {

constexpr std::string_view KIND = "ghdl_rtik_";
constexpr std::string_view REAL = "ghdl_rtik_#29";           ///< GHDL has a number alone for it.
constexpr std::string_view SMALL_PHYSICAL = "ghdl_rtik_#30"; ///< Likewise.
constexpr std::string_view PHYSICAL = "ghdl_rtik_type_p";    ///< And 32 or 64.

/// No real record nests so deeply.
constexpr unsigned int MOST_LEVELS = 100;

bool isOfName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isOfNumber(char c) {
    return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.' || (c >= 'a' && c <= 'z');
}

} // namespace

void GhdlLine::fail(const std::string& expected) const {
    std::string reason = expected + " expected, ";
    if (isAtEnd())
        reason += "the end of the line";
    else
        reason.append("\"").append(m_rest.substr(0, 30)).append("\"");
    throw ImportError(m_place, reason + " found");
}

bool GhdlLine::take(std::string_view text) {
    if (!isAt(text))
        return false;
    m_rest.remove_prefix(text.size());
    return true;
}

void GhdlLine::expect(std::string_view text) {
    if (!take(text))
        fail(std::string("\"").append(text).append("\""));
}

void GhdlLine::finish() const {
    if (!isAtEnd())
        fail("the end of the line");
}

std::string_view GhdlLine::takeUpTo(std::string_view text) {
    const std::size_t at = m_rest.find(text);
    if (at == std::string_view::npos)
        fail(std::string("\"").append(text).append("\""));
    const std::string_view taken = m_rest.substr(0, at);
    m_rest.remove_prefix(at + text.size());
    return taken;
}

std::string_view GhdlLine::takeWord() {
    const std::string_view word = m_rest.substr(0, m_rest.find_first_of(",: "));
    m_rest.remove_prefix(word.size());
    return word;
}

/// The length of an identifier or literal; 0 if none comes next.
std::size_t GhdlLine::wordLength() const {
    if (isAt("'"))
        return m_rest.size() >= 3 && m_rest[2] == '\'' ? 3 : 0;
    if (!isAt("\\"))
        return static_cast<std::size_t>(std::find_if_not(m_rest.begin(), m_rest.end(), isOfName) -
                                        m_rest.begin());
    // A backslash within stands twice.
    for (std::size_t at = m_rest.find('\\', 1); at != std::string_view::npos;
         at = m_rest.find('\\', at + 2)) {
        if (m_rest.substr(at + 1, 1) != "\\")
            return at + 1;
    }
    return 0;
}

std::string GhdlLine::takeName() {
    if (take("<anonymous>"))
        return "";
    const std::size_t length = wordLength();
    if (length == 0)
        fail("a name");
    std::string name(m_rest.substr(0, length));
    m_rest.remove_prefix(length);
    return name;
}

std::string GhdlLine::takeBound() {
    const bool isNumber =
        !m_rest.empty() && (m_rest[0] == '-' || (m_rest[0] >= '0' && m_rest[0] <= '9'));
    if (!isNumber)
        return takeName();
    const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isOfNumber);
    std::string bound(m_rest.begin(), end);
    m_rest.remove_prefix(bound.size());
    return bound;
}

long long GhdlLine::takeNumber() {
    long long number = 0;
    const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), number);
    if (error != std::errc())
        fail("a number");
    m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
    return number;
}

ListedRange GhdlLine::takeRange() {
    ListedRange range;
    if (take("?Scal")) {
        range.isSaid = false;
        return range;
    }
    range.left = takeBound();
    range.isDownto = take(" downto ");
    if (!range.isDownto)
        expect(" to ");
    range.right = takeBound();
    return range;
}

ListedUse GhdlLine::takeUse() {
    ListedUse use;
    if (isAt(KIND) || isAt("?") || isAt("#")) {
        use.form = isAt(REAL)                               ? ListedUse::Form::REAL
                   : isAt(PHYSICAL) || isAt(SMALL_PHYSICAL) ? ListedUse::Form::PHYSICAL
                                                            : ListedUse::Form::UNSAID;
        if (use.form == ListedUse::Form::UNSAID ||
            m_rest.find(" range ") == std::string_view::npos) {
            use.form = ListedUse::Form::UNSAID;
            m_rest = {};
            return use;
        }
        takeUpTo(" range ");
        use.hasRange = true;
        use.range = takeRange();
        return use;
    }
    use.name = takeName();
    use.hasRange = take(" range ");
    if (use.hasRange)
        use.range = takeRange();
    else
        takeConstraint(use);
    return use;
}

void GhdlLine::takeConstraint(ListedUse& use) {
    while (take(" (")) {
        const bool isFirst = !use.isConstrained;
        use.isConstrained = true;
        takeGroup(use, 0);
        if (isFirst)
            use.dimensions = use.ranges.size();
    }
}

/// What stands in a pair of parentheses, whose first is passed: ranges, or members with theirs.
void GhdlLine::takeGroup(ListedUse& use, unsigned int level) {
    if (level == MOST_LEVELS)
        fail("fewer members within members");
    if (take(")"))
        return;
    do {
        ListedRange range;
        if (isAt("?")) {
            use.ranges.push_back(takeRange());
            continue;
        }
        range.left = takeBound();
        if (isAt(" (")) {
            while (take(" ("))
                takeGroup(use, level + 1);
            continue;
        }
        range.isDownto = take(" downto ");
        if (!range.isDownto)
            expect(" to ");
        range.right = takeBound();
        use.ranges.push_back(range);
    } while (take(", "));
    expect(")");
}

} // namespace Import
