#include "Terminal.h"

#include "Inspect/TypeText.h"

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>

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

Inspect::TextStyle outputStyle() {
    const bool isColoured = isatty(STDOUT_FILENO) != 0 && !isDumbTerminal() && !isColourUnwanted();
    return isColoured ? Inspect::TextStyle::coloured() : Inspect::TextStyle::plain();
}

Progress::Progress(std::string what, unsigned long long total)
    : m_what(std::move(what)), m_total(total),
      m_isTerminal(isatty(STDERR_FILENO) != 0 && !isDumbTerminal()),
      m_showAt(Clock::now() + PATIENCE) {}

Progress::~Progress() {
    if (m_isTerminal && m_isShown)
        std::cerr << ERASE_LINE << std::flush;
}

void Progress::look(unsigned long long done) {
    m_next = done + STEPS;
    if (Clock::now() < m_showAt)
        return;
    show(done);
    m_showAt = Clock::now() + (m_isTerminal ? Clock::duration(TERMINAL_INTERVAL) : LOG_INTERVAL);
}

void Progress::show(unsigned long long done) {
    const unsigned long long share = m_total == 0 ? 100 : done * 100 / m_total;
    std::cerr << (m_isTerminal ? ERASE_LINE : "rtti: ") << Inspect::escaped(m_what) << ": " << share
              << " %" << (m_isTerminal ? "" : "\n") << std::flush;
    m_isShown = true;
}
