#pragma once

#include "TypeFile/TypeFields.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Inspect {

/// A word of bits.
struct Bits {
    unsigned int bits;
};

/// A SystemVerilog type id. Those from 0 on are ids that a compiler gave away; the negative ones
/// say something about the type.
struct SVTypeId {
    int id;
};

/// What the value of a literal of a discrete enumeration is made of.
struct RawValue {
    std::string_view bytes;
};

inline std::string_view textOf(const char* name) {
    return name != nullptr ? std::string_view(name) : std::string_view();
}
inline std::string_view textOf(const std::string& name) { return name; }

/// Gives the fields of a type to a sink, those of the type itself before its parts:
///
///     value(field, v)  a field of the type, or of the part that was begun last
///     link(id)         a reference, likewise; also where the id says "no type"
///     part(list, name) begins an entry of a list: a literal, a unit or a member
///
/// The name of the type is left out. What has lists of equal length and the same values gives the
/// same number of links, whatever is in them. A member that is missing is one without a name.
template <typename Sink> class FieldWalk {
public:
    explicit FieldWalk(Sink& sink) : m_sink(sink) {}

    void of(const RTTI::RTBaseType& type) {
        m_sink.value(TypeFile::Field::FLAGS, Bits{type.m_flags});
        TypeFile::asItsClass(type, [this](const auto& object) {
            TypeFile::forEachField(object, *this);
            TypeFile::forEachField(object, Parts{*this});
        });
    }

    template <typename Value, typename FieldForm>
    void operator()(const char* field, const Value& value, const FieldForm&) {
        m_sink.value(field, value);
    }
    void operator()(const char* field, unsigned int bits, TypeFile::Form::Flags) {
        m_sink.value(field, Bits{bits});
    }
    void operator()(const char* field, int id, TypeFile::Form::SVTypeId) {
        m_sink.value(field, SVTypeId{id});
    }
    void operator()(const char* field, bool value, TypeFile::Form::Boolean) {
        m_sink.value(field, static_cast<unsigned int>(value));
    }
    void operator()(const char* field, unsigned int size, TypeFile::Form::ValueSize) {
        m_sink.value(field, m_valueSize = size);
    }
    void operator()(const char* field, char* bytes, TypeFile::Form::Value) {
        if (bytes != nullptr)
            m_sink.value(field, RawValue{{bytes, m_valueSize}});
    }
    template <typename Link>
    void operator()(const char*, unsigned int id, const TypeFile::Form::TypeId<Link>&) {
        m_sink.link(id);
    }
    template <typename Link>
    void operator()(const char* field, const std::vector<unsigned int>& ids,
                    const TypeFile::Form::Items<TypeFile::Form::TypeId<Link>>&) {
        m_sink.value(field, static_cast<unsigned int>(ids.size()));
        for (const unsigned int id : ids)
            m_sink.link(id);
    }

    // The name of a part begins it; lists of parts come later.
    template <typename Text> void operator()(const char*, const Text& name, TypeFile::Form::Name) {
        m_sink.part(m_list, textOf(name));
    }
    template <typename List>
    void operator()(const char*, const List&, TypeFile::Form::Items<TypeFile::Form::Name>) {}
    template <typename List, typename Entry>
    void operator()(const char*, const List&, TypeFile::Form::Entries<Entry>) {}

private:
    /// Goes through the lists of parts and leaves out all else.
    struct Parts {
        FieldWalk& walk;

        void operator()(const char* list, const std::vector<char*>& names,
                        TypeFile::Form::Items<TypeFile::Form::Name>) const {
            for (const char* name : names)
                walk.m_sink.part(list, textOf(name));
        }
        template <typename List, typename Entry>
        void operator()(const char* list, const List& entries,
                        TypeFile::Form::Entries<Entry> form) const {
            walk.m_list = list;
            for (std::size_t i = 0; i < entries.size(); ++i) {
                if (TypeFile::forEachField(form, entries, i, walk))
                    continue;
                walk.m_sink.part(list, std::string_view());
                walk.m_sink.link(RTTI::TypeFileFormat::NO_TYPE_ID);
            }
        }
        template <typename Value, typename FieldForm>
        void operator()(const char*, const Value&, const FieldForm&) const {}
    };

    Sink& m_sink;
    const char* m_list = nullptr; ///< What the parts that come are entries of.
    unsigned int m_valueSize = 0; ///< Of the type's literals.
};

} // namespace Inspect
