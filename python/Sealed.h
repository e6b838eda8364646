#pragma once

#include <pybind11/pybind11.h>

namespace Bindings {

namespace py = pybind11;

/// Lets nobody make objects of a class from Python, or change it: every object has what is behind
/// it, and is of the class that it was made as.
void seal(const py::object& pythonClass);

} // namespace Bindings
