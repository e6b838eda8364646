#include "Sealed.h"

namespace Bindings {

void seal(const py::object& pythonClass) {
    auto* const type = reinterpret_cast<PyTypeObject*>(pythonClass.ptr());
    type->tp_new = [](PyTypeObject* made, PyObject*, PyObject*) -> PyObject* {
        PyErr_Format(PyExc_TypeError, "objects of %s come from a table", made->tp_name);
        return nullptr;
    };
    type->tp_flags = (type->tp_flags & ~Py_TPFLAGS_BASETYPE) | Py_TPFLAGS_IMMUTABLETYPE;
    PyType_Modified(type);
}

} // namespace Bindings
