#pragma once

#include <string>

/// `rtti show`: which type of which file.
struct ShowOptions {
    std::string file;
    unsigned long long offset = 0;
    bool force = false; ///< Load a file with errors, too.
    unsigned int id = 0;
};

/// Prints a type, the types that it refers to, and a line for each type that refers to it. The exit
/// status is 0. Throws for a wrong call or an unusable file.
int runShow(const ShowOptions& options);
