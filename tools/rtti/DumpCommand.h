#pragma once

#include <string>
#include <vector>

/// `rtti dump`: what to print.
struct DumpOptions {
    std::string file;
    unsigned long long offset = 0;
    bool force = false;            ///< Load a file with errors, too.
    std::vector<unsigned int> ids; ///< None for all.
    std::string kind;              ///< Empty for all.
    std::string name;              ///< A glob; empty for all.
    bool trace = false;
    bool json = false;
    bool ndjson = false;
};

/// Prints the types of a file to standard output. The exit status: 0, or 1 if the file has faults,
/// each of which is a line on standard error. Throws for a wrong call or an unusable file.
int runDump(const DumpOptions& options);
