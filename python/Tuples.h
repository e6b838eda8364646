#pragma once

#include <pybind11/pybind11.h>

#include <initializer_list>
#include <vector>

namespace Bindings {

namespace py = pybind11;

/// A class of tuples whose items have names, for values that are not types. Made once for each
/// name, by `collections.namedtuple`.
class TupleClass {
public:
    /// Adds the class to a module. The last `defaults.size()` items may be left out by callers.
    TupleClass(py::module_& module, const char* name, const std::vector<const char*>& items,
               const py::tuple& defaults = py::tuple());

    /// A tuple of these items; those that are missing at the end are None.
    py::object operator()(std::vector<py::object> items) const;

private:
    // Not counted: the class lasts as long as the interpreter, and so does the module.
    PyTypeObject* m_class;
    std::size_t m_size;
};

} // namespace Bindings
