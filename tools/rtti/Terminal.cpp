#include "Terminal.h"

#include "Inspect/words/TypeText.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

#include <sys/ioctl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/// So long a work goes on without a word.
constexpr auto PATIENCE = 1s;

constexpr auto TERMINAL_INTERVAL = 100ms;
constexpr auto LOG_INTERVAL = 10s;

/// Steps between two looks at the clock: often enough for what takes a microsecond a step.
constexpr unsigned long long STEPS = 1024;

constexpr char ERASE_LINE[] = "\r\x1B[K";

bool isDumbTerminal() {
    const char* const terminal = std::getenv("TERM");
    return terminal == nullptr || std::string_view(terminal) == "dumb";
}

bool isColourUnwanted() {
    const char* const wish = std::getenv("NO_COLOR");
    return wish != nullptr && *wish != '\0';
}

} // namespace

bool isColorWelcome() { return isOutputOnTerminal() && !isDumbTerminal() && !isColourUnwanted(); }

std::size_t textWidth() {
    constexpr int LEAST = 40, USUAL = 80, MOST = 100;
    winsize size{};
    int width = 0;
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0)
        width = size.ws_col;
    else if (const char* const columns = std::getenv("COLUMNS"))
        width = std::atoi(columns);
    return static_cast<std::size_t>(width <= 0 ? USUAL : std::clamp(width, LEAST, MOST));
}

bool isOutputOnTerminal() { return isatty(STDOUT_FILENO) != 0; }

Progress::Progress(std::string what, unsigned long long total)
    : Progress(std::move(what), total, std::cerr, isatty(STDERR_FILENO) != 0 && !isDumbTerminal(),
               Clock::now) {}

Progress::Progress(std::string what, unsigned long long total, std::ostream& out, bool isTerminal,
                   std::function<Clock::time_point()> now)
    : m_what(std::move(what)), m_total(total), m_out(out), m_isTerminal(isTerminal),
      m_now(std::move(now)), m_showAt(m_now() + PATIENCE) {}

Progress::~Progress() {
    if (m_isTerminal && m_isShown)
        m_out << ERASE_LINE << std::flush;
}

void Progress::look(unsigned long long done) {
    m_next = done + STEPS;
    if (m_now() < m_showAt)
        return;
    show(done);
    m_showAt = m_now() + (m_isTerminal ? Clock::duration(TERMINAL_INTERVAL) : LOG_INTERVAL);
}

void Progress::show(unsigned long long done) {
    m_out << (m_isTerminal ? ERASE_LINE : "rtti: ") << Inspect::escaped(m_what) << ": ";
    if (m_total == 0)
        m_out << done;
    else
        m_out << std::min(done * 100 / m_total, 100ULL) << " %";
    m_out << (m_isTerminal ? "" : "\n") << std::flush;
    m_isShown = true;
}
