#include "tests/support/LinkedTypes.h"

#include "TypeFile/TypeFields.h"

namespace RTTITest {

using namespace RTTI;
namespace Form = TypeFile::Form;

namespace {

/// Sets the links of an object from its fields.
template <typename Object> class FieldLinker {
public:
    FieldLinker(Object& object, const LinkedTypes& types) : m_object(object), m_types(types) {}

    template <typename Link>
    void operator()(const char*, unsigned int id, const Form::TypeId<Link>& form) {
        m_object.*form.link = typeOf(id);
    }
    template <typename Member, typename Entry>
    void operator()(const char*, const std::vector<Member*>& members, Form::Entries<Entry>) {
        m_object.m_memberTypes.clear();
        for (const Member* member : members)
            m_object.m_memberTypes.push_back(member == nullptr ? nullptr
                                                               : typeOf(member->m_typeId));
    }
    template <typename Value, typename FieldForm>
    void operator()(const char*, const Value&, const FieldForm&) {}

    /// Whether no type to come is referred to.
    bool isWhole() const { return m_isWhole; }

private:
    const RTBaseType* typeOf(unsigned int id) {
        m_isWhole = m_isWhole && (id < m_types.size() || id == NO_TYPE_ID);
        return m_types.find(id);
    }

    Object& m_object;
    const LinkedTypes& m_types;
    bool m_isWhole = true;
};

void addMemberTo(RTAggregateType& aggregate, std::unique_ptr<RTAggregateType::t_Member> member,
                 const LinkedTypes::Member& wanted) {
    member->m_memberName = copyOfName(wanted.name);
    member->m_typeId = wanted.typeId;
    member->m_constraints = wanted.ranges;
    aggregate.m_members.push_back(member.get());
    static_cast<void>(member.release()); // The aggregate deletes it.
}

void appendMember(RTAggregateType& aggregate, const LinkedTypes::Member& member) {
    if (dynamic_cast<RTClassType*>(&aggregate) != nullptr)
        addMemberTo(aggregate, std::make_unique<RTClassType::t_ClassMember>(), member);
    else
        addMemberTo(aggregate, std::make_unique<RTAggregateType::t_Member>(), member);
}

std::vector<LinkedTypes::Member> withoutNames(const LinkedTypes::Ids& types) {
    std::vector<LinkedTypes::Member> members;
    for (const unsigned int type : types)
        members.push_back({"", type});
    return members;
}

} // namespace

unsigned int LinkedTypes::integer(const std::string& name, int left, int right) {
    add<RTIntType>(name).m_constraint = {left, right, left <= right ? 1 : 0};
    return last();
}

unsigned int LinkedTypes::enumeration(const std::string& name,
                                      const std::vector<std::string>& literals) {
    auto& type = add<RTSeqEnumType>(name);
    type.m_enumKind = VHDL_OTHER_ENUM;
    type.m_valueEncoding = ENCODING_BYTE;
    type.m_valueSize = 1;
    for (const std::string& literal : literals)
        type.m_enumeratorNames.push_back(copyOfName(literal));
    return last();
}

unsigned int LinkedTypes::seqEnum(ValueEncoding encoding) {
    add<RTSeqEnumType>().m_valueEncoding = encoding;
    return last();
}

unsigned int LinkedTypes::discreteEnum(unsigned int base, Ranges ranges) {
    auto& type = add<RTDiscreteEnumType>();
    type.m_baseTypeId = base;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::string() {
    add<RTStringType>("string");
    return last();
}

unsigned int LinkedTypes::alias(const std::string& name, unsigned int data, Ranges ranges) {
    auto& type = add<RTTypedefType>(name);
    type.m_dataTypeId = data;
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::vhdlArray(const std::string& name, unsigned int element,
                                    const Ids& indices, Ranges ranges) {
    array(VHDL_ARRAY, name, element, std::move(ranges));
    static_cast<RTArrayType&>(*m_places.back().type).m_indexTypeIds = indices;
    return last();
}

unsigned int LinkedTypes::array(ArrayKind kind, const std::string& name, unsigned int element,
                                Ranges ranges) {
    auto& type = add<RTArrayType>(name);
    type.m_arrayKind = kind;
    type.m_elementTypeId = element;
    type.m_indexTypeIds.assign(ranges.size(), NO_TYPE_ID);
    type.m_constraints = std::move(ranges);
    return last();
}

unsigned int LinkedTypes::array(ArrayKind kind, unsigned int element, std::size_t dimensions,
                                Ranges ranges) {
    array(kind, "", element, std::move(ranges));
    auto& type = static_cast<RTArrayType&>(*m_places.back().type);
    type.m_indexTypeIds.assign(dimensions, NO_TYPE_ID);
    return last();
}

unsigned int LinkedTypes::access(const std::string& name, unsigned int designated) {
    add<RTAccessType>(name).m_refTypeId = designated;
    return last();
}

unsigned int LinkedTypes::structure(const std::string& name, const std::vector<Member>& members,
                                    RecordKind kind) {
    auto& type = add<RTRecordType>(name);
    type.m_recordKind = kind;
    for (const Member& member : members)
        appendMember(type, member);
    return last();
}

unsigned int LinkedTypes::record(RecordKind kind, const Ids& members) {
    return structure("", withoutNames(members), kind);
}

unsigned int LinkedTypes::classType(const std::string& name, const std::vector<Member>& members,
                                    unsigned int base) {
    auto& type = add<RTClassType>(name);
    type.m_baseClassTypeId = base;
    for (const Member& member : members)
        appendMember(type, member);
    return last();
}

unsigned int LinkedTypes::classType(const Ids& members, unsigned int base) {
    return classType("", withoutNames(members), base);
}

void LinkedTypes::addMember(unsigned int aggregate, const Member& member) {
    appendMember(dynamic_cast<RTAggregateType&>(*m_places.at(aggregate).type), member);
    markForLinking(aggregate);
}

unsigned int LinkedTypes::logic() {
    auto& type = as<RTSeqEnumType>(enumeration("logic", {"0", "1", "x", "z"}));
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_4_STATE;
    return last();
}

unsigned int LinkedTypes::bit() {
    auto& type = as<RTSeqEnumType>(enumeration("bit", {"0", "1"}));
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_2_STATE;
    return last();
}

unsigned int LinkedTypes::hole() {
    append(nullptr);
    return last();
}

void LinkedTypes::append(std::unique_ptr<RTBaseType> type) {
    m_places.push_back({std::move(type)});
    markForLinking(last());
}

const RTBaseType* LinkedTypes::find(unsigned int id) const {
    return id < m_places.size() ? m_places[id].type.get() : nullptr;
}

RTBaseType& LinkedTypes::operator[](unsigned int id) {
    linkMarked();
    markForLinking(id);
    return *m_places.at(id).type;
}

const RTBaseType& LinkedTypes::operator[](unsigned int id) const {
    linkMarked();
    return *m_places.at(id).type;
}

void LinkedTypes::markForLinking(unsigned int id) const {
    if (!std::exchange(m_places.at(id).isMarked, true))
        m_marked.push_back(id);
}

void LinkedTypes::linkMarked() const {
    for (const unsigned int id : std::exchange(m_marked, {})) {
        m_places[id].isMarked = false;
        if (m_places[id].type != nullptr && !link(*m_places[id].type))
            markForLinking(id);
    }
}

void LinkedTypes::linkAll() const {
    for (unsigned int id = 0; id < size(); ++id)
        markForLinking(id);
    linkMarked();
}

bool LinkedTypes::link(RTBaseType& type) const {
    bool isWhole = true;
    TypeFile::asItsClass(type, [&](auto& object) {
        FieldLinker linker(object, *this);
        TypeFile::forEachField(object, linker);
        isWhole = linker.isWhole();
    });
    return isWhole;
}

std::vector<LinkedTypes::Member> lettered(const LinkedTypes::Ids& types) {
    std::vector<LinkedTypes::Member> members = withoutNames(types);
    char letter = 'a';
    for (LinkedTypes::Member& member : members)
        member.name = letter++;
    return members;
}

} // namespace RTTITest
