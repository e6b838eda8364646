#include "TypeFile/RecordEncoder.h"

#include "RTTI/LittleEndian.h"
#include "TypeFile/RecordLayout.h"

#include <array>
#include <bit>
#include <cstring>
#include <type_traits>

namespace TypeFile {

using namespace RTTI;
using namespace RTTI::TypeFileFormat;

namespace {

constexpr char IN_RESERVE[] = "a record does not hold what is kept in reserve";

struct Head {
    static constexpr std::span<const FieldLayout> FIELDS = Layout::HEAD;
};

template <unsigned int KIND> struct Body {
    static constexpr std::span<const FieldLayout> FIELDS = bodyLayout(KIND);
};

/// The place of the field of a name in the description of a class.
template <typename Object> constexpr std::size_t placeOf(std::string_view name) {
    return std::apply(
        [name](const auto&... field) {
            const std::array<std::string_view, sizeof...(field)> names{field.name...};
            std::size_t place = 0;
            while (names[place] != name)
                ++place;
            return place;
        },
        FIELDS<Object>);
}

template <typename Layout> constexpr std::size_t listAfter(std::size_t at) {
    while (Layout::FIELDS[at].form != FieldForm::LIST)
        ++at;
    return at;
}

std::string_view textOf(const char* name) { return name != nullptr ? name : std::string_view(); }
std::string_view textOf(const std::string& name) { return name; }

} // namespace

RecordEncoder::RecordEncoder(std::vector<char>& bytes, std::size_t largestRecord)
    : m_bytes(bytes), m_largestRecord(largestRecord) {}

void RecordEncoder::encode(unsigned int typeId, const RTBaseType& type) {
    const Reference largestBefore = m_largest;
    m_begin = m_bytes.size();
    m_typeId = typeId;
    m_type = &type;
    try {
        m_place = {Field::KIND, nullptr, 0};
        const bool hasKind = withClass(type.GetClassId(), [&](auto tag) {
            using Class = typename decltype(tag)::Class;
            const auto& object = static_cast<const Class&>(type);
            using ItsBody = Body<decltype(tag)::CLASS_ID>;
            fields<Head, 0, Head::FIELDS.size()>(type);
            check(object);
            fields<ItsBody, 0, ItsBody::FIELDS.size()>(object);
        });
        if (!hasKind)
            refuse("its class has no kind of record");
        const auto size = static_cast<int>(m_bytes.size() - m_begin);
        putLittleEndian(m_bytes.data() + m_begin, size);
    } catch (...) {
        m_bytes.resize(m_begin);
        m_largest = largestBefore;
        throw;
    }
}

template <typename Layout, std::size_t AT, std::size_t END, typename Object>
void RecordEncoder::fields(const Object& object) {
    if constexpr (AT != END) {
        constexpr FieldLayout LAYOUT = Layout::FIELDS[AT];
        field<Layout, AT>(object);
        constexpr bool IS_LIST = LAYOUT.form == FieldForm::LIST;
        fields<Layout, (IS_LIST ? endOfList(Layout::FIELDS, AT) : AT) + 1, END>(object);
    }
}

template <typename Layout, std::size_t AT, typename Object>
void RecordEncoder::field(const Object& object) {
    constexpr FieldLayout LAYOUT = Layout::FIELDS[AT];
    if constexpr (LAYOUT.form == FieldForm::RECORD_SIZE) {
        number(0); // It is known at the end.
    } else if constexpr (LAYOUT.form == FieldForm::KIND) {
        number(m_type->GetClassId());
    } else if constexpr (LAYOUT.form == FieldForm::COUNT) {
        constexpr const char* LIST = Layout::FIELDS[listAfter<Layout>(AT)].name;
        m_place.field = LIST;
        const auto& list = object.*std::get<placeOf<Object>(LIST)>(FIELDS<Object>).member;
        number(static_cast<unsigned int>(list.size()));
    } else {
        constexpr const auto& FIELD = std::get<placeOf<Object>(LAYOUT.name)>(FIELDS<Object>);
        m_place.field = LAYOUT.name;
        if constexpr (LAYOUT.form == FieldForm::LIST)
            list<Layout, AT>(object.*FIELD.member, FIELD.form);
        else
            put<Layout, AT>(object.*FIELD.member);
    }
}

template <typename Layout, std::size_t AT, typename List, typename Item>
void RecordEncoder::list(const List& list, const Form::Items<Item>&) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        m_place = {"", Layout::FIELDS[AT].name, i};
        put<Layout, AT + 1>(list[i]);
    }
    m_place.list = nullptr;
}

template <typename Layout, std::size_t AT, typename List, typename Entry>
void RecordEncoder::list(const List& list, const Form::Entries<Entry>&) {
    constexpr std::size_t END = endOfList(Layout::FIELDS, AT);
    for (std::size_t i = 0; i < list.size(); ++i) {
        m_place = {"", Layout::FIELDS[AT].name, i};
        fields<Layout, AT + 1, END>(entryOf<Entry>(list[i]));
    }
    m_place.list = nullptr;
}

template <typename Entry, typename Item> const Entry& RecordEncoder::entryOf(const Item& item) {
    if constexpr (std::is_same_v<Entry, Item>) {
        return item;
    } else {
        if (item == nullptr)
            refuse("there is no member");
        const auto* const entry = dynamic_cast<const Entry*>(item);
        m_place.field = Field::FLAG;
        if (entry == nullptr)
            refuse("a member of a class must be an RTClassType::t_ClassMember");
        return *entry;
    }
}

template <typename Layout, std::size_t AT, typename Value>
void RecordEncoder::put(const Value& value) {
    using enum FieldForm;
    constexpr FieldLayout LAYOUT = Layout::FIELDS[AT];
    if constexpr (LAYOUT.form == NAME) {
        name(textOf(value));
    } else if constexpr (LAYOUT.form == TYPE_ID) {
        // Nothing is ever looked up for an id that says that there is no type.
        if (!Link::has(LAYOUT.link, Link::OR_NONE) || value != NO_TYPE_ID)
            refersTo(value);
        number(value);
    } else if constexpr (LAYOUT.form == FLAVOUR) {
        if (value > LAYOUT.last)
            refuse(std::to_string(value) + " is above " + std::to_string(LAYOUT.last) +
                   ", the largest that is kept");
        number(value);
    } else if constexpr (LAYOUT.form == VALUE) {
        if (value == nullptr && m_valueSize != 0)
            refuse("there are no value bytes");
        append(value, m_valueSize);
    } else if constexpr (LAYOUT.form == RANGES) {
        number(static_cast<unsigned int>(value.size()));
        for (const FullConstraints& each : value)
            range(each);
    } else if constexpr (LAYOUT.form == RANGE) {
        range(value);
    } else if constexpr (LAYOUT.form == BOOLEAN) {
        number(value ? 1U : 0U);
    } else if constexpr (LAYOUT.form == DIRECTION) {
        number(static_cast<double>(value));
    } else if constexpr (std::is_same_v<Value, double>) {
        number(std::bit_cast<unsigned long long>(value)); // Each NaN stays as it is, with x87 too.
    } else {
        static_assert(sizeof(Value) == widthOf(LAYOUT.form));
        number(value);
    }
}

void RecordEncoder::check(const RTSeqEnumType& type) {
    m_place.field = Field::RESERVED;
    if (type.m_reservedNumber != 0 || type.m_reservedPointer != nullptr)
        refuse(IN_RESERVE);
}

void RecordEncoder::check(const RTArrayType& type) {
    m_place.field = Field::RESERVED;
    if (!type.m_reserved.empty())
        refuse(IN_RESERVE);
}

void RecordEncoder::check(const RTDiscreteEnumType& type) {
    m_valueSize = type.m_valueSize;
    m_place.field = Field::VALUE_SIZE;
    if (m_valueSize > LARGEST_RECORD_SIZE)
        refuse(std::to_string(m_valueSize) + " bytes are more than a record holds");
    m_place.field = Field::LITERALS;
    if (type.m_enumerators.size() > m_largestRecord / (m_valueSize + 1)) // A name takes a byte.
        refuseSize();
}

void RecordEncoder::append(const void* bytes, std::size_t count) {
    if (count > m_largestRecord - (m_bytes.size() - m_begin))
        refuseSize();
    const char* first = static_cast<const char*>(bytes);
    m_bytes.insert(m_bytes.end(), first, first + count);
}

template <typename T> void RecordEncoder::number(T value) {
    if constexpr (std::is_enum_v<T>) {
        number(static_cast<std::underlying_type_t<T>>(value));
    } else {
        char bytes[sizeof(T)];
        putLittleEndian(bytes, value);
        append(bytes, sizeof(T));
    }
}

void RecordEncoder::name(std::string_view text) {
    if (text.find('\0') != std::string_view::npos)
        refuse("there is a zero byte in the name, where a record's names end");
    append(text.data(), text.size());
    append("", 1);
}

void RecordEncoder::range(const FullConstraints& range) {
    forEachField(range, [this](const char*, int part, Form::Number) { number(part); });
}

void RecordEncoder::refersTo(unsigned int id) {
    if (!m_largest.exists || id > m_largest.to)
        m_largest = {id, m_typeId, m_place, true};
}

void RecordEncoder::refuse(const std::string& reason) const {
    throw WriteError(m_typeId, m_type->m_name, m_place.text(), reason);
}

void RecordEncoder::refuseSize() const {
    refuse("the record would be larger than " + std::to_string(m_largestRecord) + " bytes");
}

} // namespace TypeFile
