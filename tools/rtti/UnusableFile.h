#pragma once

#include "ExitStatus.h"

#include <stdexcept>
#include <string>

/// Why a file cannot be used, in one line that names it, and the exit status that says so.
class UnusableFile : public std::runtime_error {
public:
    UnusableFile(const std::string& file, const std::string& reason,
                 int exitStatus = ExitStatus::FAULTY)
        : std::runtime_error(file + ": " + reason), m_exitStatus(exitStatus) {}
    int exitStatus() const { return m_exitStatus; }

private:
    int m_exitStatus;
};
