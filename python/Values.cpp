#include "Values.h"

#include <memory>

namespace Bindings {

py::object typeObject(TypeEntry* entry) {
    if (entry == nullptr)
        return py::none();
    return py::cast(std::shared_ptr<TypeEntry>(entry->table->shared_from_this(), entry));
}

py::object textOf(std::string_view name) {
    PyObject* const text =
        PyUnicode_DecodeUTF8(name.data(), static_cast<Py_ssize_t>(name.size()), "surrogateescape");
    if (text == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(text);
}

py::object textOf(const char* name) {
    return textOf(name != nullptr ? std::string_view(name) : std::string_view());
}

py::object pathText(const std::string& path) {
    PyObject* const text =
        PyUnicode_DecodeFSDefaultAndSize(path.data(), static_cast<Py_ssize_t>(path.size()));
    if (text == nullptr)
        throw py::error_already_set();
    return py::reinterpret_steal<py::object>(text);
}

namespace {

template <typename Part>
void addTupleClass(py::module_& module, const char* name, const py::tuple& defaults) {
    tupleClass<Part> = new TupleClass(module, name, fieldNames<Part>(), defaults);
}

} // namespace

void addTupleClasses(py::module_& module) {
    const py::tuple noRanges;
    addTupleClass<RTTI::FullConstraints>(module, "Range", py::tuple());
    addTupleClass<RTTI::t_enumNameAndValuePair>(module, "Literal", py::tuple());
    addTupleClass<RTTI::t_unitNameAndValuePair>(module, "Unit", py::tuple());
    addTupleClass<RTTI::RTAggregateType::t_Member>(module, "Member", py::make_tuple(noRanges));
    addTupleClass<RTTI::RTClassType::t_ClassMember>(module, "ClassMember",
                                                    py::make_tuple(noRanges, false));
}

py::object rangeObject(const RTTI::FullConstraints& range) {
    return (*tupleClass<RTTI::FullConstraints>)({py::int_(range.si), py::int_(range.ei),
                                                 py::int_(range.dir)});
}

py::tuple rangeObjects(const std::vector<RTTI::FullConstraints>& ranges) {
    return tupleOf(ranges.size(), [&](std::size_t i) { return rangeObject(ranges[i]); });
}

} // namespace Bindings
