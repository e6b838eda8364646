#include "tests/cli/RttiProgram.h"

#include "tests/support/TypeFileBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace {

std::string command(const std::string& assignments, const std::string& arguments) {
    return assignments + (assignments.empty() ? "" : " ") + RTTI_PROGRAM " " + arguments;
}

std::string toFile(const std::string& stream, const std::string& name) {
    return " " + stream + ">'" + scratch(name) + "'";
}

/// A folder of this process alone, which is gone with it.
class ScratchFolder {
public:
    ScratchFolder() { EXPECT_NE(mkdtemp(m_path.data()), nullptr); }
    ~ScratchFolder() {
        std::error_code ignored; // What cannot be removed stays.
        std::filesystem::remove_all(m_path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    const std::string& path() const { return m_path; }

private:
    std::string m_path = testing::TempDir() + "rtti-test-XXXXXX";
};

/// The content of a file that is gone then.
std::string taken(const std::string& name) {
    std::string content = contentOf(scratch(name));
    std::remove(scratch(name).c_str());
    return content;
}

int exitStatus(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }

/// Runs a shell's command on a terminal and gives what it wrote there.
int runOnTerminal(const std::string& shellCommand, std::string& written) {
    termios raw{};
    cfmakeraw(&raw);
    int terminal = -1;
    const pid_t child = forkpty(&terminal, nullptr, &raw, nullptr);
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", shellCommand.c_str(), nullptr);
        _exit(127);
    }
    char piece[4096];
    ssize_t count = 0;
    while ((count = ::read(terminal, piece, sizeof piece)) > 0)
        written.append(piece, static_cast<std::size_t>(count));
    ::close(terminal);
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

} // namespace

Result rtti(const std::string& arguments) { return rttiWith("", arguments); }

Result rttiWith(const std::string& assignments, const std::string& arguments) {
    const int status = std::system(
        (command(assignments, arguments) + toFile("", "out") + toFile("2", "err")).c_str());
    return {exitStatus(status), taken("out"), taken("err")};
}

Result rttiOnTerminal(OnTerminal streams, const std::string& assignments,
                      const std::string& arguments) {
    std::string shellCommand =
        "unset NO_COLOR; export TERM=xterm; " + command(assignments, arguments);
    if (streams == OnTerminal::OUTPUT)
        shellCommand += toFile("2", "err");
    else if (streams == OnTerminal::ERROR)
        shellCommand += toFile("", "out");
    std::string written;
    const int status = exitStatus(runOnTerminal(shellCommand, written));
    if (streams == OnTerminal::ERROR)
        return {status, taken("out"), written};
    return {status, written, taken("err")};
}

std::string scratch(const std::string& name) {
    static const ScratchFolder folder;
    std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    std::replace(test.begin(), test.end(), '/', '-'); // Names of tests with a parameter.
    return folder.path() + '/' + test + '.' + name;
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string example(const std::string& name) { return EXAMPLE_TYPEFILES_DIR "/" + name + ".typ"; }

std::string fileNamed(const std::string& name, const std::string& bytes) {
    std::string path = scratch(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

std::string fileOf(const std::string& bytes) { return fileNamed("typ", bytes); }

std::string oneRecord(unsigned int kind, const std::string& version) {
    return TypeFileBuilder().version(version).record(kind, "abc").image();
}

void expectOneLine(const std::string& text) {
    EXPECT_EQ(text.find('\n'), text.size() - 1) << text;
    EXPECT_THAT(text, testing::StartsWith("rtti: "));
}

std::size_t count(const std::string& text, const std::string& part) {
    std::size_t found = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++found;
    return found;
}
