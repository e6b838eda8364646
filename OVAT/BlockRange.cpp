#include "OVAT/BlockRange.h"

#include <stdexcept>
#include <string>

namespace OVAT {

void checkBlockRange(unsigned long long offset, long long count, unsigned long long size) {
    if (count >= 0 && offset <= size && static_cast<unsigned long long>(count) <= size - offset)
        return;
    throw std::out_of_range("read of " + std::to_string(count) + " bytes at offset " +
                            std::to_string(offset) + " is outside the storage of " +
                            std::to_string(size) + " bytes");
}

} // namespace OVAT
