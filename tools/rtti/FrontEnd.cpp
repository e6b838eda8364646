#include "FrontEnd.h"

#include "UnusableFile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

std::system_error systemError(const std::string& what) {
    return {errno, std::generic_category(), what};
}

constexpr std::array ENDING_SIGNALS = {SIGINT, SIGTERM, SIGHUP};

/// The program that runs, for the handler of signals; and the signal that came meanwhile.
volatile sig_atomic_t runningProgram = 0;
volatile sig_atomic_t caughtSignal = 0;

extern "C" void passSignalOn(int signal) {
    caughtSignal = signal;
    if (runningProgram > 0)
        kill(static_cast<pid_t>(runningProgram), signal);
}

/// While it exists, signals that ask this program to end go to the one that it runs. Afterwards
/// they end this one, too.
class PassedSignals {
public:
    PassedSignals() {
        caughtSignal = 0;
        struct sigaction pass {};
        pass.sa_handler = passSignalOn;
        for (std::size_t i = 0; i < ENDING_SIGNALS.size(); ++i)
            sigaction(ENDING_SIGNALS[i], &pass, &m_before[i]);
    }
    PassedSignals(const PassedSignals&) = delete;
    PassedSignals& operator=(const PassedSignals&) = delete;
    ~PassedSignals() {
        runningProgram = 0;
        for (std::size_t i = 0; i < ENDING_SIGNALS.size(); ++i)
            sigaction(ENDING_SIGNALS[i], &m_before[i], nullptr);
    }

private:
    std::array<struct sigaction, ENDING_SIGNALS.size()> m_before;
};

/// Where the output of a program that is to be started goes.
class Streams {
public:
    explicit Streams(const std::string& outputPath) {
        posix_spawn_file_actions_init(&m_actions);
        if (outputPath.empty())
            posix_spawn_file_actions_adddup2(&m_actions, STDERR_FILENO, STDOUT_FILENO);
        else
            posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, outputPath.c_str(),
                                             O_WRONLY | O_CREAT | O_TRUNC, 0600);
    }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;
    ~Streams() { posix_spawn_file_actions_destroy(&m_actions); }

    const posix_spawn_file_actions_t* actions() const { return &m_actions; }

private:
    posix_spawn_file_actions_t m_actions;
};

} // namespace

TemporaryFolder::TemporaryFolder() {
    std::string path = (std::filesystem::temp_directory_path() / "rtti-import-XXXXXX").string();
    if (mkdtemp(path.data()) == nullptr)
        throw systemError(path);
    m_path = path;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string ProgramEnd::text() const {
    if (signal != 0)
        return "was ended by signal " + std::to_string(signal) + " (" + strsignal(signal) + ')';
    return "ended with exit status " + std::to_string(exitStatus);
}

ProgramEnd runProgram(const std::vector<std::string>& words, const std::string& package,
                      const std::string& outputPath) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    const Streams streams(outputPath);
    const PassedSignals signals;
    pid_t program = 0;
    const int error =
        posix_spawnp(&program, arguments[0], streams.actions(), nullptr, arguments.data(), environ);
    if (error == ENOENT)
        throw UnusableFile(words[0], "the program is not there: install the package " + package,
                           ExitStatus::UNUSABLE);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), words[0]);
    runningProgram = program;

    int status = 0;
    while (waitpid(program, &status, 0) < 0) {
        if (errno != EINTR)
            throw systemError(words[0]);
    }
    ProgramEnd end;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : caughtSignal;
    end.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    return end;
}
