// Threads that load, ask, write, verify and destroy types at random for as long as they are told.
// Fails at the first result that is not the one that a thread alone has, and if memory or open
// files grow. Build it with a sanitizer.
//
//   soak --seconds 3600 FILE...              eight threads, an hour
//   soak --seconds 3600 --threads 2 FILE...
//
// Prints once a minute, ten times in a shorter run: the actions so far, the resident memory of the
// process, and the bytes on the heap.

#include "tests/soak/MixedWork.h"
#include "tests/support/BuildKind.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>

extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr std::size_t MEGABYTE = 1 << 20;

struct Call {
    std::chrono::milliseconds duration{10000};
    unsigned int threads = 8;
    std::vector<std::string> files;
};

/// What the process holds.
struct Holdings {
    std::size_t resident; ///< Bytes, with what the allocator keeps for later.
    std::size_t heap;     ///< Bytes in use.
    std::size_t files;    ///< Open descriptors.
};

std::size_t heapInUse() {
    if (__sanitizer_get_current_allocated_bytes != nullptr)
        return __sanitizer_get_current_allocated_bytes();
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

Holdings holdings() {
    std::ifstream statm("/proc/self/statm");
    std::size_t pages = 0;
    std::size_t residentPages = 0;
    statm >> pages >> residentPages;
    const auto files = std::distance(fs::directory_iterator("/proc/self/fd"), {});
    return {residentPages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)), heapInUse(),
            static_cast<std::size_t>(files)};
}

/// The threads, from the constructor to `stop`.
class Workers {
public:
    Workers(Soak::CommonTables& tables, const Call& call, const fs::path& folder) {
        for (unsigned int i = 0; i < call.threads; ++i)
            m_work.emplace_back(tables, i, folder / (std::to_string(i) + ".typ"));
        for (Soak::MixedWork& work : m_work)
            m_threads.emplace_back([this, &work] { run(work); });
    }

    unsigned long long actions() const { return m_actions; }
    bool isRunning() const { return !m_isToStop; }

    /// Waits for the threads. Throws what the first that failed has thrown.
    void stop() {
        m_isToStop = true;
        for (std::thread& thread : m_threads)
            thread.join();
        if (m_fault)
            std::rethrow_exception(m_fault);
    }

    void printCounts() const {
        for (std::size_t action = 0; action < Soak::MixedWork::ACTIONS.size(); ++action) {
            unsigned long long count = 0;
            for (const Soak::MixedWork& work : m_work)
                count += work.counts()[action];
            std::cout << std::setw(10) << count << ' ' << Soak::MixedWork::ACTIONS[action].name
                      << '\n';
        }
    }

private:
    void run(Soak::MixedWork& work) {
        try {
            for (; !m_isToStop; ++m_actions)
                work.act();
        } catch (...) {
            const std::lock_guard lock(m_mutex);
            if (!m_fault)
                m_fault = std::current_exception();
            m_isToStop = true;
        }
    }

    std::vector<Soak::MixedWork> m_work;
    std::vector<std::thread> m_threads;
    std::atomic<unsigned long long> m_actions = 0;
    std::atomic<bool> m_isToStop = false;
    std::mutex m_mutex;
    std::exception_ptr m_fault;
};

void printLine(std::chrono::milliseconds time, unsigned long long actions, const Holdings& held) {
    std::cout << std::setw(6) << time.count() / 1000 << " s " << std::setw(10) << actions
              << " actions " << std::setw(5) << held.resident / MEGABYTE << " MB resident "
              << std::setw(5) << held.heap / MEGABYTE << " MB heap" << std::endl;
}

/// Prints a line for each interval of the run. Returns the resident memory at each.
std::vector<std::size_t> watch(const Workers& workers, std::chrono::milliseconds duration) {
    using namespace std::chrono_literals;
    const auto interval = std::min<std::chrono::milliseconds>(1min, duration / 10);
    const auto begin = Clock::now();
    std::vector<std::size_t> resident;
    for (auto time = interval; time <= duration && workers.isRunning(); time += interval) {
        while (Clock::now() < begin + time && workers.isRunning())
            std::this_thread::sleep_for(std::min<std::chrono::milliseconds>(interval, 100ms));
        const Holdings held = holdings();
        printLine(time, workers.actions(), held);
        resident.push_back(held.resident);
    }
    return resident;
}

/// Memory is flat if the second half of a run never needs notably more than the first did. The
/// tables that are there at the same time, and what the allocator keeps, vary.
void checkFlat(const std::vector<std::size_t>& resident) {
    const auto middle = resident.begin() + static_cast<std::ptrdiff_t>(resident.size() / 2);
    const std::size_t before = *std::max_element(resident.begin(), middle);
    const std::size_t after = *std::max_element(middle, resident.end());
    std::cout << "at most " << before / MEGABYTE << " MB resident in the first half, "
              << after / MEGABYTE << " MB in the second\n";
    if (after > before + before / 10 + 16 * MEGABYTE)
        throw std::runtime_error("the resident memory grows");
}

/// All tables are gone: what is left is what was there at first, but for what threads and streams
/// have set up for the life of the process.
void checkNothingHeld(const Holdings& before, const Holdings& after) {
    std::cout << "at the end " << after.heap << " bytes on the heap, " << before.heap
              << " at the beginning; " << after.files << " open files, " << before.files << '\n';
    if (after.heap > before.heap + MEGABYTE / 4)
        throw std::runtime_error("bytes are left on the heap");
    if (after.files != before.files)
        throw std::runtime_error("files are left open");
}

void soak(const Call& call, const fs::path& folder) {
    const std::vector<Soak::KnownFile> files(call.files.begin(), call.files.end());
    const Holdings before = holdings();
    {
        Soak::CommonTables tables(files);
        Workers workers(tables, call, folder);
        const auto resident = watch(workers, call.duration);
        workers.stop();
        workers.printCounts();
        checkFlat(resident);
    }
    checkNothingHeld(before, holdings());
}

Call callOf(int argc, char** argv) {
    Call call;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--seconds" && i + 1 < argc)
            call.duration = std::chrono::milliseconds(std::stoul(argv[++i]) * 1000);
        else if (word == "--threads" && i + 1 < argc)
            call.threads = static_cast<unsigned int>(std::stoul(argv[++i]));
        else
            call.files.push_back(word);
    }
    if (call.files.empty() || call.duration.count() == 0 || call.threads == 0)
        throw std::invalid_argument("soak [--seconds N] [--threads N] FILE...");
    return call;
}

} // namespace

int main(int argc, char** argv) {
    fs::path folder;
    int status = 0;
    try {
        const Call call = callOf(argc, argv);
        folder = fs::temp_directory_path() / ("soak-" + std::to_string(::getpid()));
        fs::create_directory(folder);
        soak(call, folder);
    } catch (const std::exception& error) {
        std::cerr << "soak: " << error.what() << '\n';
        status = 1;
    }
    if (!folder.empty())
        fs::remove_all(folder);
    return status;
}
