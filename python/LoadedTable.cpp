#include "LoadedTable.h"

#include "Refused.h"
#include "TypeFile/TypeFileVerifier.h"

#include <stdexcept>

namespace Bindings {

namespace {

std::string placeOfType(unsigned int id) { return "type " + std::to_string(id); }

} // namespace

TypeFile::TypeFileFrame usableFrame(const Source& source, unsigned long long offset) {
    TypeFile::TypeFileFrame frame(*source.storage, source.size, offset);
    const std::string reason = frame.reasonUnusable();
    if (!reason.empty())
        throw Refused(source.name, "offset " + std::to_string(offset), reason);
    return frame;
}

std::vector<TypeFile::Finding> findingsIn(const Source& source, unsigned long long offset) {
    return TypeFile::verify(*source.storage, source.size, offset);
}

LoadedTable::LoadedTable(const Source& source, unsigned long long offset) : m_name(source.name) {
    const TypeFile::TypeFileFrame frame = usableFrame(source, offset);
    m_version = frame.version();
    m_manager.setupDeserializer(*source.storage, offset);
    m_entries.reserve(frame.typeCount());
    for (unsigned int id = 0; id < frame.typeCount(); ++id) {
        try {
            m_entries.push_back({this, id, m_manager.getRTType(id)});
        } catch (const std::out_of_range& error) {
            throw Refused(m_name, placeOfType(id), error.what());
        }
    }
    m_types.count = frame.typeCount();
    m_types.typeOf = [this](unsigned int id) {
        return id < m_entries.size() ? m_entries[id].type : nullptr;
    };
}

TypeEntry* LoadedTable::find(unsigned int id) {
    return id < m_entries.size() && m_entries[id].type != nullptr ? &m_entries[id] : nullptr;
}

const Inspect::NameIndex& LoadedTable::names() {
    if (!m_names)
        m_names.emplace(m_types);
    return *m_names;
}

const Inspect::UseIndex& LoadedTable::uses() {
    if (!m_uses)
        m_uses.emplace(m_types);
    return *m_uses;
}

} // namespace Bindings
