// What people see of work that takes longer than a second, by a clock of the tests' own.

#include "OVAT/MemoryBlockManager.h"
#include "tools/rtti/ReadProgress.h"
#include "tools/rtti/Terminal.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

using namespace std::chrono_literals;

namespace {

/// So many steps pass between two looks at the clock at most.
constexpr unsigned long long STEPS = 1024;

/// Work that is watched: it says where it is, and how late it is.
class Work {
public:
    explicit Work(bool isTerminal, unsigned long long total = 100 * STEPS,
                  const std::string& what = "loading")
        : m_progress(what, total, m_out, isTerminal, [this] { return m_now; }) {}

    /// What is written when `done` is reached after `time`.
    std::string at(unsigned long long done, std::chrono::milliseconds time) {
        passes(time);
        m_progress.at(done);
        return written();
    }

    /// It is so late now, and what was written before does not count.
    void passes(std::chrono::milliseconds time) {
        m_now = Progress::Clock::time_point() + time;
        m_out.str("");
    }

    std::string written() const { return m_out.str(); }

    Progress& progress() { return m_progress; }

private:
    Progress::Clock::time_point m_now;
    std::ostringstream m_out;
    Progress m_progress;
};

TEST(Progress, SaysNothingInTheFirstSecond) {
    Work work(true);
    EXPECT_EQ(work.at(10 * STEPS, 999ms), "");
    EXPECT_EQ(work.at(20 * STEPS, 1000ms), "\r\x1B[Kloading: 20 %");
}

TEST(Progress, WritesItsLineAgainTenTimesASecondOnATerminal) {
    Work work(true);
    work.at(10 * STEPS, 1000ms);
    EXPECT_EQ(work.at(20 * STEPS, 1099ms), "");
    EXPECT_EQ(work.at(30 * STEPS, 1100ms), "\r\x1B[Kloading: 30 %");
}

TEST(Progress, WritesALineEveryTenSecondsElsewhere) {
    Work work(false);
    EXPECT_EQ(work.at(10 * STEPS, 1000ms), "rtti: loading: 10 %\n");
    EXPECT_EQ(work.at(20 * STEPS, 10999ms), "");
    EXPECT_EQ(work.at(30 * STEPS, 11000ms), "rtti: loading: 30 %\n");
}

TEST(Progress, LooksAtTheClockNowAndThen) {
    Work work(false);
    work.at(0, 0ms);
    EXPECT_EQ(work.at(STEPS - 1, 5000ms), "");
    EXPECT_EQ(work.at(STEPS, 5000ms), "rtti: loading: 1 %\n");
}

TEST(Progress, TakesItsLineAway) {
    std::ostringstream out;
    Progress::Clock::time_point now;
    {
        Progress progress("loading", 2, out, true, [&] { return now; });
        now += 1s;
        progress.at(1);
        EXPECT_EQ(out.str(), "\r\x1B[Kloading: 50 %");
    }
    EXPECT_EQ(out.str(), "\r\x1B[Kloading: 50 %\r\x1B[K");
}

TEST(Progress, TakesNothingAwayWhereNothingWasShown) {
    std::ostringstream out;
    { const Progress progress("loading", 2, out, true, Progress::Clock::now); }
    EXPECT_EQ(out.str(), "");
}

TEST(Progress, KeepsItsLinesElsewhere) {
    std::ostringstream out;
    Progress::Clock::time_point now;
    {
        Progress progress("loading", 2, out, false, [&] { return now; });
        now += 1s;
        progress.at(1);
    }
    EXPECT_EQ(out.str(), "rtti: loading: 50 %\n");
}

TEST(Progress, ShowsTheNumberItselfWhereNobodyKnowsTheTotal) {
    EXPECT_EQ(Work(false, 0).at(5000, 1s), "rtti: loading: 5000\n");
}

TEST(Progress, NeverShowsMoreThanAll) {
    EXPECT_EQ(Work(false, 1000).at(3000, 1s), "rtti: loading: 100 %\n");
}

TEST(Progress, EscapesTheNameOfAFile) {
    EXPECT_EQ(Work(false, 10, "loading \x1B[2J").at(1, 1s), "rtti: loading \\x1B[2J: 10 %\n");
}

TEST(ReadProgress, TakesWhatHasBeenReadOfTheStorage) {
    const std::string bytes(4 * ReadProgress::PIECE, 'x');
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    Work work(false, bytes.size());
    ReadProgress reads(storage, bytes.size(), work.progress());
    std::string buffer(2 * ReadProgress::PIECE, ' ');
    const auto size = static_cast<long long>(buffer.size());
    work.passes(1s);
    EXPECT_TRUE(reads.read(ReadProgress::PIECE, buffer.data(), size));
    EXPECT_EQ(buffer, bytes.substr(0, buffer.size()));
    EXPECT_EQ(work.written(), "rtti: loading: 50 %\n");
}

TEST(ReadProgress, CountsWhatIsReadAgainOnce) {
    const std::string bytes(4 * ReadProgress::PIECE, 'x');
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    Work work(false, bytes.size());
    ReadProgress reads(storage, bytes.size(), work.progress());
    char byte = 0;
    for (int i = 0; i < 3; ++i)
        reads.read(0, &byte, 1);
    work.passes(1s);
    reads.read(3 * ReadProgress::PIECE, &byte, 1);
    EXPECT_EQ(work.written(), "rtti: loading: 50 %\n");
}

TEST(ReadProgress, TakesReadsOfNothingAtTheEnd) {
    const std::string bytes(ReadProgress::PIECE, 'x');
    OVAT::MemoryBlockManager storage(bytes.data(), bytes.size());
    Work work(false);
    ReadProgress reads(storage, bytes.size(), work.progress());
    EXPECT_TRUE(reads.read(bytes.size(), nullptr, 0));
}

TEST(ReadProgress, LetsWhatTheStorageThrowsPass) {
    OVAT::MemoryBlockManager storage("", 0);
    Work work(false);
    ReadProgress reads(storage, 0, work.progress());
    char byte = 0;
    EXPECT_THROW(reads.read(0, &byte, 1), std::out_of_range);
}

} // namespace
