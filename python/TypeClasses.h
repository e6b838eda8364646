#pragma once

#include <pybind11/pybind11.h>

namespace Bindings {

namespace py = pybind11;

/// Adds `Type` and a class for each kind of types to the module, with a property for each field
/// that TypeFile/TypeFields.h lists.
void addTypeClasses(py::module_& module);

/// Lets nobody make objects of a class from Python, or change it: every object has what is behind
/// it, and is of the class that it was made as.
void seal(const py::object& pythonClass);

} // namespace Bindings
