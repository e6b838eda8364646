#include "Import/EqualTypes.h"

#include "TypeFile/KeyNumbers.h"
#include "TypeFile/RecordEncoder.h"
#include "TypeFile/StablePartition.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string_view>

namespace Import {

using RTTI::RTBaseType;

namespace {

constexpr unsigned int NONE = RTTI::TypeFileFormat::NO_TYPE_ID;

using Numbers = std::vector<unsigned int>;

/// Which types share their name with another one: all that do, and a few that do not.
std::vector<bool> mayShareNames(unsigned int count, const NameOf& nameOf) {
    const std::size_t slots = std::bit_ceil(32 * std::size_t{count} + 1);
    std::vector<bool> isTaken(slots), isShared(slots);
    std::vector<std::size_t> slotOf;
    slotOf.reserve(count);
    for (unsigned int type = 0; type < count; ++type) {
        const std::size_t slot = std::hash<std::string_view>()(nameOf(type)) & (slots - 1);
        isShared[slot] = isShared[slot] || isTaken[slot];
        isTaken[slot] = true;
        slotOf.push_back(slot);
    }
    std::vector<bool> mayShare;
    mayShare.reserve(count);
    for (const std::size_t slot : slotOf)
        mayShare.push_back(isShared[slot]);
    return mayShare;
}

/// Numbers types by all that their records hold but the ids of other types.
class ContentNumbers {
public:
    explicit ContentNumbers(std::size_t count) : m_keys(count) {}

    unsigned int of(RTBaseType& type) {
        m_ids.clear();
        forEachTypeId(type, [this](unsigned int& id) { m_ids.push_back(std::exchange(id, 0)); });
        m_bytes.clear();
        m_encoder.encode(0, type);
        auto next = m_ids.begin();
        forEachTypeId(type, [&](unsigned int& id) { id = *next++; });
        return m_keys.of({m_bytes.data(), m_bytes.size()});
    }

private:
    TypeFile::KeyNumbers m_keys;
    Numbers m_ids;
    std::vector<char> m_bytes;
    TypeFile::RecordEncoder m_encoder{m_bytes};
};

/// For each type a block of those that have the same content. A name that no other type has is
/// enough to tell; most types have one.
Numbers contentBlocks(unsigned int count, const NameOf& nameOf, const ObjectOf& objectOf) {
    const std::vector<bool> mayShareName = mayShareNames(count, nameOf);
    Numbers blockOfContent;
    ContentNumbers contents(0);
    Numbers blocks;
    blocks.reserve(count);
    unsigned int next = 0;
    for (unsigned int type = 0; type < count; ++type) {
        if (!mayShareName[type]) {
            blocks.push_back(next++);
            continue;
        }
        const unsigned int content = contents.of(objectOf(type));
        if (content == blockOfContent.size())
            blockOfContent.push_back(next++);
        blocks.push_back(blockOfContent[content]);
    }
    return blocks;
}

} // namespace

std::vector<unsigned int> firstEqualTypes(const References& references, const NameOf& nameOf,
                                          const ObjectOf& objectOf) {
    const unsigned int count = references.count();
    Numbers blocks = contentBlocks(count, nameOf, objectOf);
    if (count > 0 && *std::max_element(blocks.begin(), blocks.end()) + 1 == count)
        return blocks; // Each is the next one: there are no two of the same content.
    std::vector<TypeFile::LabelledEdge> edges;
    for (unsigned int type = 0; type < count; ++type) {
        const std::span<const unsigned int> ids = references.of(type);
        for (unsigned int i = 0; i < ids.size(); ++i)
            edges.push_back({type, i, ids[i]});
    }
    Numbers classes = TypeFile::stablePartition(blocks, edges);
    Numbers first(count, NONE);
    for (unsigned int type = 0; type < count; ++type) {
        unsigned int& firstOfClass = first[classes[type]];
        if (firstOfClass == NONE)
            firstOfClass = type;
        classes[type] = firstOfClass;
    }
    return classes;
}

} // namespace Import
