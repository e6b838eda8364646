#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

/// Whether standard output is a terminal that shows colours, and the environment does not say
/// NO_COLOR.
bool isColorWelcome();

/// Columns of the text that standard output takes: those of the terminal, or what COLUMNS says
/// elsewhere, but at least 40 and at most 100; 80 where nobody knows.
std::size_t textWidth();

/// Whether what is printed appears on a terminal, where it is progress enough.
bool isOutputOnTerminal();

/// Shows on standard error how far work has come that takes longer than a second: on a terminal as
/// one line that is written again and again and is gone at the end, elsewhere as a line every ten
/// seconds.
class Progress {
public:
    using Clock = std::chrono::steady_clock;

    /// `what` is shown before the share, such as "loading design.typ". A total of 0 is one that
    /// nobody knows: then the number itself is shown.
    Progress(std::string what, unsigned long long total);

    /// The same on a stream and by a clock of the caller's.
    Progress(std::string what, unsigned long long total, std::ostream& out, bool isTerminal,
             std::function<Clock::time_point()> now);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Takes the line away.
    ~Progress();

    /// So much is done. Costs a comparison, and now and then a look at the clock.
    void at(unsigned long long done) {
        if (done >= m_next)
            look(done);
    }

private:
    void look(unsigned long long done);
    void show(unsigned long long done);

    std::string m_what;
    unsigned long long m_total;
    unsigned long long m_next = 0; ///< When to look at the clock again.
    std::ostream& m_out;
    bool m_isTerminal;
    std::function<Clock::time_point()> m_now;
    bool m_isShown = false;
    Clock::time_point m_showAt;
};
