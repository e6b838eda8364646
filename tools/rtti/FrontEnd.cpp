#include "FrontEnd.h"

#include "UnusableFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

std::system_error systemError(const std::string& what) {
    return {errno, std::generic_category(), what};
}

constexpr std::array ENDING_SIGNALS = {SIGINT, SIGTERM, SIGHUP};

/// The group of the program that runs, for the handler of signals; and the signal that came.
volatile sig_atomic_t runningGroup = 0;
volatile sig_atomic_t caughtSignal = 0;

extern "C" void catchSignal(int signal) {
    caughtSignal = signal;
    if (runningGroup > 0)
        kill(-static_cast<pid_t>(runningGroup), signal);
}

/// Attributes with which a program gets a process group of its own: a signal for the group reaches
/// what the program has started, too.
class GroupAttributes {
public:
    GroupAttributes() {
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETPGROUP);
        posix_spawnattr_setpgroup(&m_attributes, 0);
    }
    GroupAttributes(const GroupAttributes&) = delete;
    GroupAttributes& operator=(const GroupAttributes&) = delete;
    ~GroupAttributes() { posix_spawnattr_destroy(&m_attributes); }

    const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawnattr_t m_attributes;
};

/// Ends what is left of a group whose first program has ended, so that nothing writes files any
/// more.
void endGroup(pid_t group) {
    kill(-group, SIGKILL);
    while (waitpid(-group, nullptr, 0) > 0) {
    }
}

/// Where the output of a program that is to be started goes. It has no input: front ends run more
/// than once, and not in the foreground of a terminal.
class Streams {
public:
    explicit Streams(const std::string& outputPath) {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
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

CaughtSignals::CaughtSignals() {
    caughtSignal = 0;
    prctl(PR_SET_CHILD_SUBREAPER, 1); // For endGroup to wait for what others have started.
    signal(SIGTTOU, SIG_IGN); // Else a front end in the background may not write to a terminal.
    struct sigaction action {};
    action.sa_handler = catchSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < ENDING_SIGNALS.size(); ++i) {
        sigaction(ENDING_SIGNALS[i], &action, &m_before[i]);
        if (m_before[i].sa_handler == SIG_IGN) // As under nohup.
            sigaction(ENDING_SIGNALS[i], &m_before[i], nullptr);
    }
}

CaughtSignals::~CaughtSignals() {
    for (std::size_t i = 0; i < ENDING_SIGNALS.size(); ++i)
        sigaction(ENDING_SIGNALS[i], &m_before[i], nullptr);
    if (caughtSignal != 0)
        raise(caughtSignal);
}

void CaughtSignals::check() {
    if (caughtSignal != 0)
        throw std::runtime_error("ended by signal " + std::to_string(caughtSignal));
}

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
    const GroupAttributes group;
    pid_t program = 0;
    CaughtSignals::check();
    const int error = posix_spawnp(&program, arguments[0], streams.actions(), group.attributes(),
                                   arguments.data(), environ);
    if (error == ENOENT)
        throw UnusableFile(words[0], "not found; install the package " + package,
                           ExitStatus::UNUSABLE);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), words[0]);
    runningGroup = program;
    if (caughtSignal != 0) // It came before the handler knew the group.
        kill(-program, caughtSignal);

    int status = 0;
    while (waitpid(program, &status, 0) < 0) {
        if (errno != EINTR)
            throw systemError(words[0]);
    }
    runningGroup = 0;
    if (caughtSignal != 0)
        endGroup(program);
    CaughtSignals::check();
    ProgramEnd end;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    end.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
    return end;
}
