// The module rtti._core: the part of the Python package that is compiled.

#include "Operations.h"
#include "TableClass.h"
#include "TypeClasses.h"
#include "Values.h"

#include <pybind11/pybind11.h>

PYBIND11_MODULE(_core, module) {
    Bindings::addTupleClasses(module);
    Bindings::addTableClass(module);
    Bindings::addTypeClasses(module);
    Bindings::addOperations(module);
    module.attr("__version__") = RTTI_VERSION;
}
