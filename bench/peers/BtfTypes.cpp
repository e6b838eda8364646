#include "bench/peers/BtfTypes.h"

#include <array>
#include <cstring>
#include <functional>
#include <map>

namespace Bench {

using namespace RTTI;

namespace {

int added(int result) {
    if (result < 0)
        throw std::runtime_error("libbpf does not take a type of the table");
    return result;
}

/// Adds the table's types as they come, and the helpers behind them at the end.
class Encoder {
public:
    explicit Encoder(std::size_t typeCount)
        : m_btf(btf__new_empty()), m_typeCount(static_cast<unsigned int>(typeCount)) {}
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
    ~Encoder() { btf__free(m_btf); }

    std::vector<char> finish();

    void operator()(const RTSeqEnumType& type);
    void operator()(const RTDiscreteEnumType& type);
    void operator()(const RTIntType& type) {
        added(btf__add_int(m_btf, type.m_name, sizeof(int), BTF_INT_SIGNED));
    }
    void operator()(const RTFloatType& type) {
        added(btf__add_float(m_btf, type.m_name, sizeof(double)));
    }
    void operator()(const RTStringType& type) {
        added(btf__add_fwd(m_btf, type.m_name, BTF_FWD_STRUCT));
    }
    void operator()(const RTPhysicalType& type);
    void operator()(const RTTypedefType& type) {
        addTypedef(type, narrowed(idOf(type.m_dataTypeId), type.m_constraints));
    }
    void operator()(const RTAccessType& type) {
        addTypedef(type, helper([this, target = idOf(type.m_refTypeId)] {
                       return btf__add_ptr(m_btf, target);
                   }));
    }
    void operator()(const RTArrayType& type);
    /// A queue or a dynamic array.
    void operator()(const RTAbstractArrayType& type) {
        addTypedef(type, array(0, idOf(type.m_elementTypeId)));
    }
    void operator()(const RTAssocArrayType& type) {
        addTypedef(type, array(idOf(type.m_indexTypeId), idOf(type.m_elementTypeId)));
    }
    /// A record or a class.
    void operator()(const RTAggregateType& type) {
        added(btf__add_struct(m_btf, type.m_name, 0));
        for (const RTAggregateType::t_Member* member : type.m_members)
            added(btf__add_field(m_btf, member->m_memberName,
                                 narrowed(idOf(member->m_typeId), member->m_constraints), 0, 0));
    }

private:
    using Adding = std::function<int()>;

    static int idOf(unsigned int typeId) { return static_cast<int>(typeId + 1); }

    /// The id that a helper will have.
    int helper(Adding add) {
        m_helpers.push_back(std::move(add));
        return static_cast<int>(m_typeCount + m_helpers.size());
    }
    void addTypedef(const RTBaseType& type, int target) {
        added(btf__add_typedef(m_btf, type.m_name, target));
    }
    int array(int index, int element) {
        return helper([=, this] { return btf__add_array(m_btf, index, element, 0); });
    }
    int rangeEnum(const FullConstraints& range);
    int narrowed(int id, const std::vector<FullConstraints>& ranges) {
        for (auto range = ranges.rbegin(); range != ranges.rend(); ++range)
            id = array(rangeEnum(*range), id);
        return id;
    }

    btf* m_btf;
    unsigned int m_typeCount;
    std::vector<Adding> m_helpers;
    std::map<std::array<int, 3>, int> m_rangeEnums;
};

int Encoder::rangeEnum(const FullConstraints& range) {
    int& id = m_rangeEnums[{range.si, range.ei, range.dir}];
    if (id == 0)
        id = helper([this, range] {
            const int result = btf__add_enum(m_btf, nullptr, sizeof(int));
            added(btf__add_enum_value(m_btf, "left", range.si));
            added(btf__add_enum_value(m_btf, "right", range.ei));
            added(btf__add_enum_value(m_btf, "direction", range.dir));
            return result;
        });
    return id;
}

void Encoder::operator()(const RTSeqEnumType& type) {
    added(btf__add_enum(m_btf, type.m_name, type.m_valueSize));
    for (std::size_t i = 0; i < type.m_enumeratorNames.size(); ++i)
        added(btf__add_enum_value(m_btf, type.m_enumeratorNames[i], static_cast<long long>(i)));
}

void Encoder::operator()(const RTDiscreteEnumType& type) {
    const int literals = helper([this, &type] {
        const int result = btf__add_enum(m_btf, type.m_name, type.m_valueSize);
        for (const t_enumNameAndValuePair& literal : type.m_enumerators) {
            int value = 0;
            if (type.m_valueSize != sizeof(value))
                throw std::runtime_error("generated enumerations have values of four bytes");
            std::memcpy(&value, literal.value, sizeof(value));
            added(btf__add_enum_value(m_btf, literal.enumName.c_str(), value));
        }
        return result;
    });
    addTypedef(type, narrowed(array(literals, idOf(type.m_baseTypeId)), type.m_constraints));
}

void Encoder::operator()(const RTPhysicalType& type) {
    added(btf__add_enum64(m_btf, type.m_name, sizeof(long long), true));
    for (const t_unitNameAndValuePair& unit : type.m_units)
        added(btf__add_enum64_value(m_btf, unit.unitName.c_str(),
                                    static_cast<unsigned long long>(unit.value)));
}

void Encoder::operator()(const RTArrayType& type) {
    int id = narrowed(idOf(type.m_elementTypeId), type.m_constraints);
    for (auto index = type.m_indexTypeIds.rbegin(); index != type.m_indexTypeIds.rend(); ++index)
        id = array(idOf(*index), id);
    addTypedef(type, id);
}

std::vector<char> Encoder::finish() {
    for (const Adding& add : m_helpers)
        added(add());
    added(btf__add_struct(m_btf, nullptr, m_typeCount));
    unsigned int size = 0;
    const auto* const bytes = static_cast<const char*>(btf__raw_data(m_btf, &size));
    return {bytes, bytes + size};
}

} // namespace

std::vector<char> BtfTypes::encode(const TypeList& types) {
    Encoder encoder(types.size());
    for (const RTBaseType* type : types)
        asItsKind(*type, encoder);
    return encoder.finish();
}

} // namespace Bench
