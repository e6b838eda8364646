#include "Tuples.h"

namespace Bindings {

TupleClass::TupleClass(py::module_& module, const char* name, const std::vector<const char*>& items,
                       const py::tuple& defaults)
    : m_size(items.size()) {
    py::list names;
    for (const char* item : items)
        names.append(item);
    py::object made = py::module_::import("collections")
                          .attr("namedtuple")(name, names, py::arg("defaults") = defaults,
                                              py::arg("module") = "rtti");
    module.attr(name) = made;
    m_class = reinterpret_cast<PyTypeObject*>(made.release().ptr());
}

py::object TupleClass::operator()(std::vector<py::object> items) const {
    items.resize(m_size, py::none());
    // No Python code runs between these lines: nobody sees a tuple that is not filled.
    PyObject* const made = m_class->tp_alloc(m_class, static_cast<Py_ssize_t>(m_size));
    if (made == nullptr)
        throw py::error_already_set();
    for (std::size_t i = 0; i < m_size; ++i)
        PyTuple_SET_ITEM(made, static_cast<Py_ssize_t>(i), items[i].release().ptr());
    return py::reinterpret_steal<py::object>(made);
}

} // namespace Bindings
