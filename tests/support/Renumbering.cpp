#include "tests/support/Renumbering.h"

#include "TypeFile/TypeFields.h"

namespace RTTITest {

void mapReferences(RTTI::RTBaseType& type, const std::function<unsigned int(unsigned int)>& newId) {
    TypeFile::forEachReference(type,
                               [&](unsigned int& id, const auto&, std::size_t) { id = newId(id); });
}

} // namespace RTTITest
