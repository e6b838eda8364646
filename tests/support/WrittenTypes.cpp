#include "tests/support/WrittenTypes.h"

#include "RTTI/CTType.h"
#include "TypeFile/TypeBuilding.h"

namespace RTTITest {

using namespace RTTI;

unsigned int WrittenTypes::logic() {
    RTSeqEnumType type;
    TypeFile::setName(type, "logic");
    type.m_enumKind = VLOG_BUILTIN_ENUM;
    type.m_valueEncoding = ENCODING_4_STATE;
    type.m_valueSize = 1;
    for (const char* literal : {"0", "1", "x", "z"})
        TypeFile::addLiteral(type, literal);
    return add(type);
}

unsigned int WrittenTypes::enumeration(const std::string& name,
                                       const std::vector<std::string>& literals) {
    RTSeqEnumType type;
    TypeFile::setName(type, name);
    type.m_enumKind = VHDL_OTHER_ENUM;
    type.m_valueEncoding = ENCODING_BYTE;
    type.m_valueSize = 1;
    for (const std::string& literal : literals)
        TypeFile::addLiteral(type, literal);
    return add(type);
}

unsigned int WrittenTypes::integer(const std::string& name, FullConstraints range) {
    RTIntType type;
    TypeFile::setName(type, name);
    type.m_constraint = range;
    return add(type);
}

unsigned int WrittenTypes::string() {
    RTStringType type;
    TypeFile::setName(type, "string");
    return add(type);
}

unsigned int WrittenTypes::alias(const std::string& name, unsigned int typeId,
                                 const Ranges& ranges) {
    CTTypedefType type(name.c_str(), typeId);
    type.m_constraints = ranges;
    return add(type);
}

unsigned int WrittenTypes::array(ArrayKind kind, const std::string& name, unsigned int elementId,
                                 const Ranges& ranges) {
    CTArrayType type(name.c_str(), kind, elementId, TypeFileFormat::NO_TYPE_ID);
    type.m_indexTypeIds.assign(ranges.size(), TypeFileFormat::NO_TYPE_ID);
    type.m_constraints = ranges;
    return add(type);
}

unsigned int WrittenTypes::queue(unsigned int elementId) { return add(CTQueueType("", elementId)); }

unsigned int WrittenTypes::access(const std::string& name, unsigned int typeId) {
    return add(CTAccessType(name.c_str(), typeId));
}

unsigned int WrittenTypes::structure(const std::string& name,
                                     const std::vector<NewMember>& members) {
    RTRecordType type(name.c_str());
    type.m_recordKind = VLOG_UNPACKED_STRUCT;
    for (const NewMember& member : members)
        TypeFile::addMember(type, member.name, member.typeId, member.ranges);
    return add(type);
}

unsigned int WrittenTypes::classType(const std::string& name, const std::vector<NewMember>& members,
                                     unsigned int baseId) {
    RTClassType type(name.c_str());
    type.m_baseClassTypeId = baseId;
    for (const NewMember& member : members)
        TypeFile::addMember(type, member.name, member.typeId, member.ranges);
    return add(type);
}

Inspect::TypeTable WrittenTypes::table() {
    const unsigned int count = m_writer.typeCount();
    m_storage = std::make_unique<OVAT::OwningMemoryBlockManager>(m_writer.finish());
    m_manager.setupDeserializer(*m_storage, 0);
    for (unsigned int id = 0; id < count; ++id)
        m_manager.getRTType(id);
    return {count, [this](unsigned int id) { return m_manager.getRTType(id); }};
}

} // namespace RTTITest
