#pragma once

/// How the program ends, whichever subcommand runs. What is said here goes into every --help; man
/// page and documents say the same.
struct ExitStatus {
    enum : int { DONE = 0, FAULTY = 1, UNUSABLE = 2 };

    static constexpr const char* TABLE =
        "Exit status:\n"
        "  0  done\n"
        "  1  the file has faults, the files differ, or something was not kept\n"
        "  2  the call is wrong, or a file cannot be read or written";
};
