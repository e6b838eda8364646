#pragma once

#include <pybind11/pybind11.h>

namespace Bindings {

/// Adds the functions that work on whole files and tables. Python's lock is released while they
/// read, load, verify, compare, import and write.
void addOperations(pybind11::module_& module);

} // namespace Bindings
