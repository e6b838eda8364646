#include "Graphviz.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

[[noreturn]] void refuse(int error) {
    throw std::system_error(error, std::generic_category(), "dot");
}

/// A file without a name, gone when it is closed. What `dot` writes goes there, so that it never
/// waits for a reader while its own input waits to be written.
class ScratchFile {
public:
    ScratchFile() : m_file(std::tmpfile()) {
        if (m_file == nullptr)
            refuse(errno);
    }

    int descriptor() const { return fileno(m_file.get()); }

    std::string content() {
        std::rewind(m_file.get());
        std::string text;
        char piece[1 << 16];
        while (const std::size_t count = std::fread(piece, 1, sizeof piece, m_file.get()))
            text.append(piece, count);
        return text;
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };

    std::unique_ptr<std::FILE, Close> m_file;
};

/// While it is there, a reader that goes away shows as a write that fails.
class WithoutPipeSignal {
public:
    WithoutPipeSignal() : m_before(std::signal(SIGPIPE, SIG_IGN)) {}
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;
    ~WithoutPipeSignal() { std::signal(SIGPIPE, m_before); }

private:
    void (*m_before)(int);
};

/// Both ends are closed in a program that is started.
class Pipe {
public:
    Pipe() {
        if (::pipe2(m_ends, O_CLOEXEC) != 0)
            refuse(errno);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeReader();
        closeWriter();
    }

    int reader() const { return m_ends[0]; }
    void closeReader() { close(m_ends[0]); }
    void closeWriter() { close(m_ends[1]); }

    /// Writes until the reader goes away, whose exit status then says why.
    void write(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t written = ::write(m_ends[1], text.data(), text.size());
            if (written < 0 && errno == EPIPE)
                return;
            if (written < 0 && errno != EINTR)
                refuse(errno);
            if (written > 0)
                text.remove_prefix(static_cast<std::size_t>(written));
        }
    }

private:
    static void close(int& end) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }

    int m_ends[2];
};

/// How a program is to be started: its streams, and signals as they are by default.
class SpawnPlan {
public:
    SpawnPlan(int input, int output, int error) {
        posix_spawn_file_actions_init(&m_streams);
        posix_spawn_file_actions_adddup2(&m_streams, input, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&m_streams, output, STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&m_streams, error, STDERR_FILENO);
        posix_spawnattr_init(&m_attributes);
        sigset_t pipeSignal;
        sigemptyset(&pipeSignal);
        sigaddset(&pipeSignal, SIGPIPE);
        posix_spawnattr_setsigdefault(&m_attributes, &pipeSignal);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGDEF);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;
    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&m_streams);
        posix_spawnattr_destroy(&m_attributes);
    }

    /// Starts `dot -Tsvg`.
    pid_t start() const {
        char program[] = "dot";
        char form[] = "-Tsvg";
        char* const arguments[] = {program, form, nullptr};
        pid_t child = 0;
        const int error =
            ::posix_spawnp(&child, program, &m_streams, &m_attributes, arguments, environ);
        if (error == ENOENT)
            throw std::runtime_error("dot: not found; SVG needs Graphviz to be installed");
        if (error != 0)
            refuse(error);
        return child;
    }

private:
    posix_spawn_file_actions_t m_streams;
    posix_spawnattr_t m_attributes;
};

/// How the child ended, as `waitpid` gives it.
int statusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0) {
        if (errno != EINTR)
            refuse(errno);
    }
    return status;
}

std::string failureText(int status, std::string_view complaint) {
    std::string text = WIFSIGNALED(status)
                           ? "ended by signal " + std::to_string(WTERMSIG(status))
                           : "failed with status " + std::to_string(WEXITSTATUS(status));
    const std::string_view line = complaint.substr(0, complaint.find('\n'));
    if (!line.empty())
        text += ": " + std::string(line);
    return "dot: " + text;
}

} // namespace

std::string svgOf(const std::string& dot) {
    ScratchFile picture;
    ScratchFile complaints;
    Pipe text;
    const pid_t child =
        SpawnPlan(text.reader(), picture.descriptor(), complaints.descriptor()).start();
    text.closeReader();
    const WithoutPipeSignal signal;
    text.write(dot);
    text.closeWriter();
    const int status = statusOf(child);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(failureText(status, complaints.content()));
    return picture.content();
}
