#pragma once

#include <string>

/// `rtti verify`: which file, and how to print what is found.
struct VerifyOptions {
    std::string file;
    unsigned long long offset = 0;
    bool json = false;
};

/// Prints the findings of a file to standard output and a summary after them. The exit status: 0,
/// or 1 if there are errors. Throws for a file that cannot be read.
int runVerify(const VerifyOptions& options);
