#pragma once

#include <string>

/// `rtti build`: what to make a type file from, and where.
struct BuildOptions {
    std::string file; ///< The text; "-" for standard input.
    std::string output;
    std::string image; ///< A storage file to take the bytes around the type file from, or empty.
    unsigned long long offset = 0;
    bool ndjson = false;
};

/// Writes the types of a JSON text as a type file. The exit status is 0. Throws Inspect::JsonError
/// and TypeFile::WriteError for what is wrong with the text, with the place in it; nothing is
/// written then.
int runBuild(const BuildOptions& options);
