#pragma once

#include <pybind11/pybind11.h>

namespace Bindings {

/// Adds the class `Table` to the module.
void addTableClass(pybind11::module_& module);

} // namespace Bindings
