#pragma once

#include <array>
#include <csignal>
#include <string>
#include <vector>

/// While it exists, the signals that ask this program to end are passed on to the one that it runs,
/// and take effect here when it is destroyed: what was created after it is removed before.
class CaughtSignals {
public:
    CaughtSignals();
    CaughtSignals(const CaughtSignals&) = delete;
    CaughtSignals& operator=(const CaughtSignals&) = delete;
    ~CaughtSignals();

    /// Throws if a signal has come; nothing sees the exception but destructors.
    static void check();

private:
    std::array<struct sigaction, 3> m_before;
};

/// A folder that exists as long as the object, with all that is put into it.
class TemporaryFolder {
public:
    /// Throws std::system_error.
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

/// How a program ended.
struct ProgramEnd {
    int exitStatus = 0;
    int signal = 0; ///< That ended it, or 0.

    bool isSuccess() const { return exitStatus == 0 && signal == 0; }

    /// "ended with exit status 1", "was ended by signal 15 (Terminated)".
    std::string text() const;
};

/// Runs a program that is found along PATH, in the current folder, and waits for it. What it prints
/// passes to standard error, unless a path says which file takes its standard output; it has no
/// input. Throws UnusableFile if it is not there, with `package` as what to install, and what
/// CaughtSignals::check throws if a signal has ended it.
ProgramEnd runProgram(const std::vector<std::string>& words, const std::string& package,
                      const std::string& outputPath = "");

/// What a front end was asked for, and what it has written: files to import.
struct FrontEndRun {
    std::vector<std::string> files;
    std::string complaint; ///< How it ended, if it wrote the files and failed all the same.
};

/// The front ends that --run names.
std::vector<std::string> frontEndNames();

/// Starts a front end with the arguments of the call and those that make it write what can be
/// imported, into `folder`. Throws UnusableFile where it fails.
FrontEndRun runFrontEnd(const std::string& name, const std::vector<std::string>& arguments,
                        const std::string& folder);

/// As runFrontEnd, of one front end each.
/// @{
FrontEndRun runVerilator(const std::vector<std::string>& arguments, const std::string& folder);
FrontEndRun runGhdl(const std::vector<std::string>& arguments, const std::string& folder);
/// @}
