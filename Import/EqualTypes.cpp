#include "Import/EqualTypes.h"

#include "TypeFile/KeyNumbers.h"
#include "TypeFile/RecordEncoder.h"
#include "TypeFile/StablePartition.h"

#include <algorithm>

namespace Import {

using RTTI::RTBaseType;

namespace {

constexpr unsigned int NONE = RTTI::TypeFileFormat::NO_TYPE_ID;

using Numbers = std::vector<unsigned int>;
using Types = std::vector<std::unique_ptr<RTBaseType>>;

/// For each type the number of its name.
Numbers nameNumbers(const Types& types) {
    TypeFile::KeyNumbers names(types.size());
    Numbers numbers;
    numbers.reserve(types.size());
    for (const auto& type : types)
        numbers.push_back(names.of(type->m_name != nullptr ? type->m_name : ""));
    return numbers;
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
Numbers contentBlocks(const Types& types) {
    const Numbers names = nameNumbers(types);
    Numbers users(types.size(), 0);
    for (const unsigned int name : names)
        ++users[name];
    Numbers blockOfContent;
    ContentNumbers contents(0);
    Numbers blocks;
    blocks.reserve(types.size());
    unsigned int next = 0;
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (users[names[i]] == 1) {
            blocks.push_back(next++);
            continue;
        }
        const unsigned int content = contents.of(*types[i]);
        if (content == blockOfContent.size())
            blockOfContent.push_back(next++);
        blocks.push_back(blockOfContent[content]);
    }
    return blocks;
}

} // namespace

std::vector<unsigned int> firstEqualTypes(const Types& types, const References& references) {
    Numbers blocks = contentBlocks(types);
    if (!types.empty() && *std::max_element(blocks.begin(), blocks.end()) + 1 == types.size())
        return blocks; // Each is the next one: there are no two of the same content.
    std::vector<TypeFile::LabelledEdge> edges;
    for (unsigned int type = 0; type < types.size(); ++type) {
        const std::span<const unsigned int> ids = references.of(type);
        for (unsigned int i = 0; i < ids.size(); ++i)
            edges.push_back({type, i, ids[i]});
    }
    Numbers classes = TypeFile::stablePartition(blocks, edges);
    Numbers first(types.size(), NONE);
    for (unsigned int type = 0; type < types.size(); ++type) {
        unsigned int& firstOfClass = first[classes[type]];
        if (firstOfClass == NONE)
            firstOfClass = type;
        classes[type] = firstOfClass;
    }
    return classes;
}

} // namespace Import
