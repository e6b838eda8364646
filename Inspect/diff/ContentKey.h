#pragma once

#include "Inspect/diff/FieldWalk.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Inspect {

/// The class of a type and all of its fields but name, references and SystemVerilog type ids that a
/// compiler gave away, as bytes: two types have the same key if these are the same. Lists and texts
/// go with their lengths. An object of this class is for one type after the other.
class ContentKey {
public:
    /// The key of a type, or of none; valid until the next call.
    std::string_view of(const RTTI::RTBaseType* type) {
        m_key.clear();
        m_links.clear();
        m_svTypeId = RTTI::TypeFileFormat::NO_SV_TYPE_ID;
        if (type != nullptr) {
            number(type->GetClassId());
            FieldWalk(*this).of(*type);
        }
        return m_key;
    }

    // What the key leaves out of the type that it is of.

    /// The ids that it refers to, in the order of the fields, those that say "no type" as well.
    const std::vector<unsigned int>& links() const { return m_links; }
    int svTypeId() const { return m_svTypeId; }

    void value(const char*, Bits value) { number(value.bits); }
    void value(const char*, RawValue value) { text(value.bytes); }
    void value(const char*, const RTTI::FullConstraints& range) { number(range); }
    void value(const char*, const std::vector<RTTI::FullConstraints>& ranges) {
        number(ranges.size());
        m_key.append(reinterpret_cast<const char*>(ranges.data()),
                     ranges.size() * sizeof(RTTI::FullConstraints));
    }
    void value(const char*, SVTypeId value) {
        m_svTypeId = value.id;
        number(std::min(value.id, 0));
    }
    template <typename Number>
    std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>> value(const char*,
                                                                                   Number value) {
        number(value);
    }

    void link(unsigned int typeId) { m_links.push_back(typeId); }
    void part(const char*, std::string_view name) {
        m_key += '\1';
        text(name);
    }

private:
    template <typename Number> void number(const Number& value) {
        static_assert(std::has_unique_object_representations_v<Number> ||
                      std::is_floating_point_v<Number>);
        m_key.append(reinterpret_cast<const char*>(&value), sizeof(value));
    }
    void text(std::string_view text) {
        number(text.size());
        m_key += text;
    }

    std::string m_key;
    std::vector<unsigned int> m_links;
    int m_svTypeId = RTTI::TypeFileFormat::NO_SV_TYPE_ID;
};

} // namespace Inspect
