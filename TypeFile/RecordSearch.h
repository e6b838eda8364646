#pragma once

#include "OVAT/IBlockManager.h"
#include "TypeFile/RecordOrder.h"
#include "TypeFile/TypeFileFrame.h"

#include <string_view>
#include <vector>

namespace TypeFile {

/// Looks for types by what their records contain, without loading any.
///
/// Each search goes through the storage once, at the speed of its memory, for the bytes that such a
/// record must have somewhere, and looks at the fields of those records alone that have them.
/// Records that share bytes with others, or do not lie within the storage, may be missed: a file
/// without errors has none.
class RecordSearch {
public:
    /// Reads the address table. The storage must outlive this object.
    RecordSearch(OVAT::IBlockManager& storage, unsigned long long storageSize,
                 unsigned long long baseOffset);
    RecordSearch(const RecordSearch&) = delete;
    RecordSearch& operator=(const RecordSearch&) = delete;

    /// The ids of the types with a name, in ascending order.
    std::vector<unsigned int> named(std::string_view name) const;

    /// The ids of the types that refer to a type, in ascending order. Records whose fields cannot
    /// be told are among them where they contain the id's bytes.
    std::vector<unsigned int> referringTo(unsigned int typeId) const;

private:
    template <typename Fits>
    std::vector<unsigned int> find(std::string_view bytes, const Fits& fits) const;

    OVAT::IBlockManager& m_storage;
    unsigned long long m_storageSize;
    std::vector<unsigned long long> m_addresses;
    RecordOrder m_order;
};

} // namespace TypeFile
