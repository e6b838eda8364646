#pragma once

#include "Inspect/model/LeafWalk.h"
#include "LoadedTable.h"

#include <pybind11/pybind11.h>

#include <memory>
#include <vector>

namespace Bindings {

namespace py = pybind11;

/// Ranges, and words for the dimensions that have none.
py::tuple dimensionObjects(const std::vector<Inspect::Dimension>& dimensions);

/// Adds the method `leaves` to the class of types, and the classes of what it gives.
void addLeaves(py::module_& module, py::class_<TypeEntry, std::shared_ptr<TypeEntry>>& type);

} // namespace Bindings
