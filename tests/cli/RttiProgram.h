#pragma once

// The program `rtti`, run by tests as its users run it.

#include <cstddef>
#include <string>

/// How a run ended, and what it printed.
struct Result {
    int status; ///< -1 where a signal ended it.
    std::string out;
    std::string err;
};

/// Runs the program; a shell splits the arguments.
Result rtti(const std::string& arguments);

/// The same with a shell's assignments in front, such as "PATH=/nowhere".
Result rttiWith(const std::string& assignments, const std::string& arguments);

/// The same with standard output, standard error or both on a terminal, which changes no byte. What
/// goes there is `out` if standard output is on it, else `err`.
enum class OnTerminal { OUTPUT, ERROR, BOTH };
Result rttiOnTerminal(OnTerminal streams, const std::string& assignments,
                      const std::string& arguments);

/// A path for a file of the running test.
std::string scratch(const std::string& name);

/// The bytes of a file; none if it is not there.
std::string contentOf(const std::string& path);

/// The path of a type file that is an example.
std::string example(const std::string& name);

/// A file of the running test with these bytes.
std::string fileNamed(const std::string& name, const std::string& bytes);
std::string fileOf(const std::string& bytes);

/// The bytes of a type file of one type, "abc", of this kind: its record is at 40, its address
/// at 56.
std::string oneRecord(unsigned int kind, const std::string& version = "TYPES 1");

/// Expects one line that begins like every message of the program.
void expectOneLine(const std::string& text);

/// How often `part` is in `text`.
std::size_t count(const std::string& text, const std::string& part);
