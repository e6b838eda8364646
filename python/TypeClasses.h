#pragma once

#include <pybind11/pybind11.h>

namespace Bindings {

namespace py = pybind11;

/// Adds `Type` and a class for each kind of types to the module, with a property for each field
/// that TypeFile/TypeFields.h lists.
void addTypeClasses(py::module_& module);

} // namespace Bindings
