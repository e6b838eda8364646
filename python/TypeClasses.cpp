#include "TypeClasses.h"

#include "Inspect/declarations/SourceLanguage.h"
#include "Inspect/declarations/TypeDeclarations.h"
#include "Inspect/declarations/TypeLabel.h"
#include "Inspect/json/JsonValues.h"
#include "Inspect/model/LeafWalk.h"
#include "Inspect/model/TypeReferences.h"
#include "Inspect/words/TextStyle.h"
#include "LeafList.h"
#include "LoadedTable.h"
#include "RTTI/ConstraintPopulation.h"
#include "Refused.h"
#include "Sealed.h"
#include "Values.h"

#include <pybind11/stl.h>

#include <cctype>
#include <sstream>
#include <string>
#include <tuple>

namespace Bindings {

using namespace RTTI;

namespace {

constexpr std::size_t MOST_STEPS = 1'000'000;

const TupleClass* useClass = nullptr; ///< Never deleted.

std::string labelOf(const TypeEntry& entry) {
    return Inspect::describedType(entry.table->types(), entry.id, *entry.type,
                                  Inspect::TextStyle::plain());
}

std::string classNameOf(unsigned int classId) {
    std::string name = Inspect::jsonKindOf(classId);
    name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
    return name;
}

const char* languageWord(Inspect::SourceLanguage language) {
    return language == Inspect::SourceLanguage::VHDL ? "vhdl" : "sv";
}

py::object sizeOf(const TypeEntry& entry) {
    const unsigned int size = entry.type->getValueSize();
    return size != 0 ? py::object(py::int_(size)) : py::none();
}

py::tuple flattenedConstraints(const TypeEntry& entry, std::size_t limit) {
    const PopulatedConstraints flattened = populateTypeConstraints(*entry.type, limit);
    if (!flattened.isComplete)
        throw Refused(entry.table->name(), "type " + std::to_string(entry.id),
                      "its constraints take more than " + std::to_string(limit) + " steps");
    return rangeObjects(flattened.ranges);
}

std::string declarationOf(const TypeEntry& entry, const std::optional<std::string>& language) {
    const std::string own = languageWord(Inspect::languageOf(*entry.type));
    if (language && *language != "sv" && *language != "vhdl")
        throw py::value_error("the language is \"sv\" or \"vhdl\", not \"" + *language + '"');
    if (language && *language != own)
        throw py::value_error("type " + std::to_string(entry.id) + " belongs to \"" + own + '"');
    return Inspect::TypeDeclarations(entry.table->types(), Inspect::Naming::OWN)
        .declarationOf(entry.id);
}

/// The type that refers, the field and what tells it apart, and the way to go.
py::object useObject(LoadedTable& table, const Inspect::Use& use) {
    const RTBaseType& type = *table.types().typeOf(use.typeId);
    const Inspect::TypeLink& link = use.link;
    std::vector<py::object> items{typeObject(table.find(use.typeId)),
                                  py::str(Inspect::fieldOf(link.role, type.GetClassId())),
                                  py::none(),
                                  py::none(),
                                  py::int_(use.distance),
                                  typeObject(table.find(link.typeId))};
    if (link.role == Inspect::LinkRole::MEMBER) {
        const auto& members = static_cast<const RTAggregateType&>(type).m_members;
        items[2] = textOf(members[link.position]->m_memberName);
    }
    if (link.role == Inspect::LinkRole::INDEX && type.GetClassId() == ClassId::ARRAY)
        items[3] = py::int_(link.position);
    return (*useClass)(std::move(items));
}

py::list usesOf(const TypeEntry& entry, bool all) {
    const Inspect::UseIndex& index = entry.table->uses();
    py::list uses;
    for (const Inspect::Use& use : all ? index.usesOf(entry.id) : index.referencesTo(entry.id))
        uses.append(useObject(*entry.table, use));
    return uses;
}

py::tuple referencesOf(const TypeEntry& entry) {
    py::list types;
    for (const unsigned int id : Inspect::referencesOf(*entry.type)) {
        if (TypeEntry* other = entry.table->find(id))
            types.append(typeObject(other));
    }
    return py::tuple(types);
}

std::string reprOf(const TypeEntry& entry) {
    return "<rtti." + classNameOf(entry.type->GetClassId()) + ' ' + std::to_string(entry.id) +
           ": " + labelOf(entry) + '>';
}

/// A property for each field. The getter of a property can be called with an object of any class:
/// what it is, its type says.
template <typename Class, typename PythonClass>
void addFields(PythonClass& pythonClass, unsigned int classId) {
    const auto add = [&](const auto& field) {
        pythonClass.def_property_readonly(field.name, [field, classId](const TypeEntry& entry) {
            if (classId != 0 && entry.type->GetClassId() != classId)
                throw py::type_error("a type of another kind");
            return FieldObjects(*entry.table, entry.type->getValueSize())
                .of(static_cast<const Class&>(*entry.type), field);
        });
    };
    std::apply([&](const auto&... field) { (add(field), ...); }, TypeFile::FIELDS<Class>);
}

void addQueries(py::class_<TypeEntry, std::shared_ptr<TypeEntry>>& type) {
    type.def_readonly("id", &TypeEntry::id)
        .def_property_readonly(
            "table", [](const TypeEntry& entry) { return entry.table->shared_from_this(); })
        .def_property_readonly(
            "kind",
            [](const TypeEntry& entry) { return Inspect::jsonKindOf(entry.type->GetClassId()); })
        .def_property_readonly("label", labelOf)
        .def_property_readonly(
            "language",
            [](const TypeEntry& entry) { return languageWord(Inspect::languageOf(*entry.type)); })
        .def_property_readonly("encoding",
                               [](const TypeEntry& entry) {
                                   return wordOf(entry.table->types().encodings->of(*entry.type));
                               })
        .def_property_readonly("size", sizeOf)
        .def_property_readonly("constraints", [](const TypeEntry&) { return py::tuple(); })
        .def_property_readonly("dimensions",
                               [](const TypeEntry& entry) {
                                   return dimensionObjects(
                                       Inspect::dimensionsOf(entry.id, entry.type));
                               })
        .def("flattened_constraints", flattenedConstraints, py::kw_only(),
             py::arg("limit") = MOST_STEPS)
        .def("declaration", declarationOf, py::arg("language") = py::none())
        .def("uses", usesOf, py::kw_only(), py::arg("all") = false)
        .def("references", referencesOf)
        .def("__repr__", reprOf);
}

} // namespace

void addTypeClasses(py::module_& module) {
    useClass =
        new TupleClass(module, "Use", {"type", "field", "member", "dimension", "distance", "next"});
    py::class_<TypeEntry, std::shared_ptr<TypeEntry>> type(module, "Type");
    addFields<RTBaseType>(type, 0);
    addQueries(type);
    addLeaves(module, type);
    py::dict fields;
    for (unsigned int id = ClassId::BASE_TYPE; id <= ClassId::WILDCARD; ++id)
        TypeFile::withClass(id, [&](auto tag) {
            using Class = typename decltype(tag)::Class;
            py::class_<EntryOf<Class>, TypeEntry, std::shared_ptr<EntryOf<Class>>> kind(
                module, classNameOf(id).c_str());
            addFields<Class>(kind, id);
            seal(kind);
            fields[Inspect::jsonKindOf(id)] = py::tuple(py::cast(fieldNames<RTBaseType>())) +
                                              py::tuple(py::cast(fieldNames<Class>()));
        });
    seal(type);
    module.attr("FIELDS") = fields;
}

} // namespace Bindings
