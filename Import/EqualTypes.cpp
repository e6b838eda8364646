#include "Import/EqualTypes.h"

#include "Import/TypeIds.h"
#include "TypeFile/RecordEncoder.h"
#include "TypeFile/StablePartition.h"

#include <memory_resource>
#include <string>
#include <unordered_map>
#include <utility>

namespace Import {

namespace {

constexpr unsigned int NONE = RTTI::TypeFileFormat::NO_TYPE_ID;

/// Tells types apart by all that their records hold but the ids of other types.
class Contents {
public:
    explicit Contents(std::size_t count) { m_numbers.reserve(count); }

    /// The number of the type's content; the ids in the type are appended to `ids`.
    unsigned int numberOf(RTTI::RTBaseType& type, std::vector<unsigned int>& ids) {
        const std::size_t begin = ids.size();
        forEachTypeId(type, [&](unsigned int& id) { ids.push_back(std::exchange(id, 0)); });
        m_bytes.clear();
        m_encoder.encode(0, type);
        std::size_t next = begin;
        forEachTypeId(type, [&](unsigned int& id) { id = ids[next++]; });
        const auto count = static_cast<unsigned int>(m_numbers.size());
        m_content.assign(m_bytes.data(), m_bytes.size());
        return m_numbers.try_emplace(m_content, count).first->second;
    }

private:
    std::vector<char> m_bytes;
    std::pmr::string m_content;
    TypeFile::RecordEncoder m_encoder{m_bytes};
    std::pmr::monotonic_buffer_resource m_memory; // Entries are many, and released all at once.
    std::pmr::unordered_map<std::pmr::string, unsigned int> m_numbers{&m_memory};
};

} // namespace

std::vector<unsigned int> firstEqualTypes(const std::vector<RTTI::RTBaseType*>& types) {
    Contents contents(types.size());
    std::vector<unsigned int> blocks(types.size());
    std::vector<TypeFile::LabelledEdge> edges;
    std::vector<unsigned int> ids;
    for (unsigned int type = 0; type < types.size(); ++type) {
        ids.clear();
        blocks[type] = contents.numberOf(*types[type], ids);
        for (unsigned int i = 0; i < ids.size(); ++i)
            edges.push_back({type, i, ids[i]});
    }
    std::vector<unsigned int> classes = TypeFile::stablePartition(blocks, edges);
    std::vector<unsigned int> first(types.size(), NONE);
    for (unsigned int type = 0; type < types.size(); ++type) {
        unsigned int& firstOfClass = first[classes[type]];
        if (firstOfClass == NONE)
            firstOfClass = type;
        classes[type] = firstOfClass;
    }
    return classes;
}

} // namespace Import
