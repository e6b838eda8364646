#pragma once

#include <string>
#include <vector>

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
/// passes to standard error, unless a path says which file takes its standard output. A signal that
/// asks this program to end goes to that one, and then to this one. Throws UnusableFile if it is
/// not there, with `package` as what to install.
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
