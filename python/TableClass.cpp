#include "TableClass.h"

#include "Inspect/words/TypeKind.h"
#include "LoadedTable.h"
#include "OVAT/Counted.h"
#include "Sealed.h"
#include "Values.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Bindings {

namespace {

constexpr std::size_t MOST_LISTED = 20;

[[noreturn]] void raiseKeyError(const std::string& text) { throw py::key_error(text); }

std::string bytesOf(const py::str& name) {
    PyObject* const bytes = PyUnicode_AsEncodedString(name.ptr(), "utf-8", "surrogateescape");
    if (bytes == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::bytes>(bytes);
}

/// "4 (class), 7 (packed struct)".
std::string listOf(LoadedTable& table, const std::vector<unsigned int>& ids) {
    std::string text;
    for (std::size_t i = 0; i < std::min(ids.size(), MOST_LISTED); ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(ids[i]) + " (" +
                std::string(Inspect::kindOf(*table.types().typeOf(ids[i]))) + ')';
    return ids.size() > MOST_LISTED ? text + ", ..." : text;
}

/// The id of a number. Those outside the table are IndexErrors, so that counting up to one works.
unsigned int idOf(const LoadedTable& table, const py::object& number) {
    const Py_ssize_t id = PyNumber_AsSsize_t(number.ptr(), PyExc_IndexError);
    if (id == -1 && PyErr_Occurred() != nullptr)
        throw py::error_already_set();
    if (id < 0 || static_cast<std::size_t>(id) >= table.count())
        throw py::index_error("there is no type " + std::to_string(id) + ": the table has " +
                              OVAT::counted(table.count(), "type"));
    return static_cast<unsigned int>(id);
}

py::object typeOfName(LoadedTable& table, const py::str& name) {
    const std::vector<unsigned int> ids = table.names().idsOf(bytesOf(name));
    const std::string shown = py::cast<std::string>(py::repr(name));
    if (ids.empty())
        raiseKeyError("no type has the name " + shown);
    if (ids.size() > 1)
        raiseKeyError(std::to_string(ids.size()) + " types have the name " + shown + ": " +
                      listOf(table, ids));
    return typeObject(table.find(ids.front()));
}

py::object typeOf(LoadedTable& table, const py::object& key) {
    if (py::isinstance<py::str>(key))
        return typeOfName(table, py::reinterpret_borrow<py::str>(key));
    if (PyIndex_Check(key.ptr()) == 0)
        throw py::type_error("a table is indexed by an id or a name");
    const unsigned int id = idOf(table, key);
    if (table.find(id) == nullptr)
        raiseKeyError("the record with the id " + std::to_string(id) + " builds no type");
    return typeObject(table.find(id));
}

py::list typesOfName(LoadedTable& table, const py::str& name) {
    py::list types;
    for (const unsigned int id : table.names().idsOf(bytesOf(name)))
        types.append(typeObject(table.find(id)));
    return types;
}

bool contains(LoadedTable& table, const py::object& key) {
    if (py::isinstance<py::str>(key))
        return !table.names().idsOf(bytesOf(py::reinterpret_borrow<py::str>(key))).empty();
    if (py::isinstance<TypeEntry>(key))
        return key.cast<const TypeEntry&>().table == &table;
    if (PyIndex_Check(key.ptr()) == 0)
        return false;
    const Py_ssize_t id = PyNumber_AsSsize_t(key.ptr(), nullptr);
    if (id == -1 && PyErr_Occurred() != nullptr)
        throw py::error_already_set();
    return id >= 0 && id <= 0xFFFFFFFF && table.find(static_cast<unsigned int>(id)) != nullptr;
}

/// The types of a table, one by one.
struct TypeIterator {
    std::shared_ptr<LoadedTable> table;
    unsigned int next = 0;

    py::object operator()() {
        while (next < table->count()) {
            if (TypeEntry* entry = table->find(next++))
                return typeObject(entry);
        }
        throw py::stop_iteration();
    }
};

std::string reprOf(const LoadedTable& table) {
    const std::string count = OVAT::counted(table.count(), "type");
    if (table.name().empty())
        return "<rtti.Table: " + count + '>';
    return "<rtti.Table " + py::cast<std::string>(py::repr(pathText(table.name()))) + ": " + count +
           '>';
}

} // namespace

void addTableClass(py::module_& module) {
    py::class_<TypeIterator> iterator(module, "TypeIterator");
    iterator.def("__iter__", [](py::object self) { return self; })
        .def("__next__", &TypeIterator::operator());
    seal(iterator);

    py::class_<LoadedTable, std::shared_ptr<LoadedTable>> table(module, "Table");
    table.def("__len__", &LoadedTable::count)
        .def("__getitem__", typeOf)
        .def("__iter__", [](LoadedTable& self) { return TypeIterator{self.shared_from_this()}; })
        .def("__contains__", contains)
        .def("named", typesOfName, py::arg("name"))
        .def_property_readonly("file",
                               [](const LoadedTable& self) {
                                   return self.name().empty() ? py::none() : pathText(self.name());
                               })
        .def_property_readonly("version",
                               [](const LoadedTable& self) { return textOf(self.version()); })
        .def_property_readonly("notes",
                               [](const LoadedTable& self) {
                                   return tupleOf(self.notes().size(), [&](std::size_t i) {
                                       return textOf(self.notes()[i]);
                                   });
                               })
        .def("__repr__", reprOf);
    seal(table);
}

} // namespace Bindings
