#pragma once

#include "LoadedTable.h"
#include "Tuples.h"
#include "TypeFile/NamedValues.h"
#include "TypeFile/TypeFields.h"

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// Python's form of what types hold. A name of any bytes becomes text: bytes that are no UTF-8 are
// surrogates, as in file names.

namespace Bindings {

/// A type of one kind, as pybind11 tells classes apart.
template <typename Class> struct EntryOf : TypeEntry {};

} // namespace Bindings

/// An entry is shown as an object of the class for its kind.
template <> struct pybind11::polymorphic_type_hook<Bindings::TypeEntry> {
    static const void* get(const Bindings::TypeEntry* entry, const std::type_info*& type) {
        if (entry != nullptr)
            TypeFile::withClass(entry->type->GetClassId(), [&](auto tag) {
                type = &typeid(Bindings::EntryOf<typename decltype(tag)::Class>);
            });
        return entry;
    }
};

namespace Bindings {

namespace Form = TypeFile::Form;

/// The entry of a type as Python's object, which keeps the table alive; None for null. The same
/// object comes back for as long as somebody holds it.
py::object typeObject(TypeEntry* entry);

py::object textOf(std::string_view name);
py::object textOf(const char* name);

/// A path as Python has it.
py::object pathText(const std::string& path);

/// The name of a value, or the value itself where it has none.
template <typename Enum> py::object wordOf(Enum value) {
    const auto number = static_cast<std::underlying_type_t<Enum>>(value);
    const char* name = TypeFile::namesOf(value).nameOf(static_cast<unsigned int>(number));
    return name != nullptr ? py::object(py::str(name)) : py::object(py::int_(number));
}

/// A tuple of a fixed number of items, each made by `make(index)`.
template <typename Make> py::tuple tupleOf(std::size_t size, Make make) {
    py::tuple items(size);
    for (std::size_t i = 0; i < size; ++i)
        items[i] = make(i);
    return items;
}

/// The names of the fields of a class, in the order of its record.
template <typename Class> std::vector<const char*> fieldNames() {
    return std::apply([](const auto&... field) { return std::vector<const char*>{field.name...}; },
                      TypeFile::FIELDS<Class>);
}

/// The class of tuples for the objects of a class that are a part of a type, such as members. Set
/// by `addTupleClasses` and never deleted.
template <typename Part> inline const TupleClass* tupleClass = nullptr;

/// Adds these classes to the module.
void addTupleClasses(py::module_& module);

py::object rangeObject(const RTTI::FullConstraints& range);
py::tuple rangeObjects(const std::vector<RTTI::FullConstraints>& ranges);

/// Makes objects of the fields of a type.
class FieldObjects {
public:
    /// `valueSize` is that of the type's values, which its literals have.
    FieldObjects(LoadedTable& table, std::size_t valueSize)
        : m_table(table), m_valueSize(valueSize) {}

    /// A field of an object. A link that the loader did not follow leads nowhere.
    template <typename Object, typename Field>
    py::object of(const Object& object, const Field& field) const {
        if constexpr (requires { object.*field.form.link; }) {
            if (object.*field.form.link == nullptr)
                return py::none();
        }
        return valueOf(object.*field.member, field.form);
    }

private:
    template <typename Number, typename FieldForm>
    requires std::is_arithmetic_v<Number> py::object valueOf(Number value, const FieldForm&)
    const { return py::cast(value); }
    template <typename Text> py::object valueOf(const Text& name, Form::Name) const {
        return textOf(name);
    }
    template <typename Enum> py::object valueOf(Enum value, Form::Named) const {
        return wordOf(value);
    }
    py::object valueOf(const RTTI::FullConstraints& range, Form::Range) const {
        return rangeObject(range);
    }
    py::object valueOf(const std::vector<RTTI::FullConstraints>& ranges, Form::Ranges) const {
        return rangeObjects(ranges);
    }
    py::object valueOf(const char* bytes, Form::Value) const {
        return py::bytes(bytes != nullptr ? bytes : "", bytes != nullptr ? m_valueSize : 0);
    }
    template <typename Link> py::object valueOf(unsigned int id, const Form::TypeId<Link>&) const {
        return typeObject(m_table.find(id));
    }
    template <typename List, typename Item>
    py::object valueOf(const List& list, const Form::Items<Item>& form) const {
        return tupleOf(list.size(), [&](std::size_t i) { return valueOf(list[i], form.item); });
    }
    template <typename List, typename Entry>
    py::object valueOf(const List& list, const Form::Entries<Entry>& form) const {
        return tupleOf(list.size(), [&](std::size_t i) {
            std::vector<py::object> items;
            TypeFile::forEachField(form, list, i,
                                   [&](const char*, const auto& value, const auto& fieldForm) {
                                       items.push_back(valueOf(value, fieldForm));
                                   });
            return (*tupleClass<Entry>)(std::move(items));
        });
    }

    LoadedTable& m_table;
    std::size_t m_valueSize;
};

} // namespace Bindings
