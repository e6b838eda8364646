// Tries what the verifier promises on damaged files, and prints what they took; see USAGE.

#include "fuzz/DamagedFiles.h"
#include "fuzz/Promise.h"

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace {

using Fuzz::Damage;

struct Options {
    std::vector<std::filesystem::path> files;
    std::uint64_t count = 1'000'000;
    std::uint64_t first = 0;
    std::uint64_t seed = 1;
    Fuzz::PromiseLimits limits;
    std::string keep;
};

/// What the files of one sort took.
struct Sum {
    std::uint64_t files = 0;
    double milliseconds = 0;
    double largestMilliseconds = 0;
    std::size_t largestBytes = 0;

    void add(const Fuzz::PromiseResult& result) {
        ++files;
        milliseconds += result.milliseconds;
        largestMilliseconds = std::max(largestMilliseconds, result.milliseconds);
        largestBytes = std::max(largestBytes, result.bytes);
    }
};

volatile std::uint64_t current = 0;

/// Where the library does not come back, the number of the file is all that can be said.
extern "C" void sayWhich(int signal) {
    char text[] = "promise: ended by a signal or out of time at file                     \n";
    char* end = text + sizeof text - 2;
    for (std::uint64_t rest = current; rest != 0 || end == text + sizeof text - 2; rest /= 10)
        *--end = static_cast<char>('0' + rest % 10);
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text, sizeof text - 1);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void keepFile(const std::string& folder, std::uint64_t number, const std::string& bytes) {
    if (folder.empty())
        return;
    std::filesystem::create_directories(folder);
    std::ofstream(folder + "/" + std::to_string(number) + ".typ", std::ios::binary) << bytes;
}

using Sums = std::array<std::array<Sum, 2>, static_cast<std::size_t>(Damage::COUNT)>;

void print(const Sums& sums) {
    fmt::print("| damage | verdict | files | ms, mean | ms, largest | KB, largest |\n"
               "|---|---|---:|---:|---:|---:|\n");
    for (std::size_t damage = 0; damage < sums.size(); ++damage) {
        for (const bool isPassed : {true, false}) {
            const Sum& sum = sums[damage][isPassed ? 1 : 0];
            fmt::print("| {} | {} | {} | {:.2f} | {:.1f} | {} |\n",
                       Fuzz::nameOf(static_cast<Damage>(damage)), isPassed ? "passed" : "refused",
                       sum.files,
                       sum.milliseconds /
                           static_cast<double>(std::max<std::uint64_t>(sum.files, 1)),
                       sum.largestMilliseconds, sum.largestBytes / 1024);
        }
    }
}

/// Whether all files keep the promise.
bool run(const Options& options) {
    const Fuzz::DamagedFiles files(options.files, options.seed);
    Sums sums;
    std::uint64_t broken = 0;
    for (std::uint64_t number = options.first; number < options.first + options.count; ++number) {
        current = number;
        alarm(600);
        const Fuzz::DamagedFiles::File file = files[number];
        const Fuzz::PromiseResult result = Fuzz::tryPromise(file.bytes, options.limits);
        sums[static_cast<std::size_t>(file.damage)][result.isPassed ? 1 : 0].add(result);
        if (result.broken.empty())
            continue;
        ++broken;
        fmt::print(stderr, "promise: file {} of {} bytes: {}\n", number, file.bytes.size(),
                   result.broken);
        keepFile(options.keep, number, file.bytes);
    }
    print(sums);
    fmt::print("\n{} damaged files of {} whole ones, seed {}: the promise is {}.\n", options.count,
               files.size(), options.seed,
               broken == 0 ? "kept" : "broken by " + std::to_string(broken));
    return broken == 0;
}

int runProgram(int argc, char** argv) {
    Options options;
    CLI::App program(
        "Damages type files and tries what the verifier promises: those that it passes "
        "load whole and answer\neverything; no other does harm.");
    program.add_option("FILE", options.files, "Whole type files, and folders with such")
        ->required();
    program.add_option("--count", options.count, "How many damaged files to make (1000000)");
    program.add_option("--first", options.first, "The number of the first (0)");
    program.add_option("--seed", options.seed, "Other numbers give other files (1)");
    program.add_option("--milliseconds", options.limits.milliseconds,
                       "How much time of the processor a file may take (1000)");
    program.add_option("--bytes", options.limits.bytes, "How much memory it may take (67108864)");
    program.add_option("--keep", options.keep, "Folder for the files that break the promise");
    program.footer("Example:\n  promise --count 1000 fuzz/corpus/typefile examples/typefiles");
    CLI11_PARSE(program, argc, argv);
    for (const int signal : {SIGALRM, SIGSEGV, SIGABRT, SIGBUS, SIGFPE})
        std::signal(signal, sayWhich);
    return run(options) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) try {
    return runProgram(argc, argv);
} catch (const std::exception& error) {
    std::fprintf(stderr, "promise: %s\n", error.what());
    return 2;
}
