#pragma once

#include <string>

/// Has Graphviz's `dot` lay out a graph and gives the picture. The program is looked for on the
/// path and started without a shell. Throws std::runtime_error, in one line, where it is not there
/// or fails, and std::system_error where the operating system refuses.
std::string svgOf(const std::string& dot);
