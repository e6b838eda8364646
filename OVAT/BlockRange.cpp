#include "OVAT/BlockRange.h"

#include "OVAT/Counted.h"

#include <stdexcept>
#include <string>

namespace OVAT {

void checkBlockRange(unsigned long long offset, long long count, unsigned long long size) {
    if (count >= 0 && offset <= size && static_cast<unsigned long long>(count) <= size - offset)
        return;
    const std::string readSize = count >= 0
                                     ? counted(static_cast<unsigned long long>(count), "byte")
                                     : std::to_string(count) + " bytes";
    throw std::out_of_range("read of " + readSize + " at offset " + std::to_string(offset) +
                            " is outside the storage of " + counted(size, "byte"));
}

} // namespace OVAT
