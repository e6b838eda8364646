#include "RTTI/Version.h"

#define RTTI_TEXT_OF(number) #number
#define RTTI_VERSION_TEXT(major, minor, patch)                                                     \
    RTTI_TEXT_OF(major) "." RTTI_TEXT_OF(minor) "." RTTI_TEXT_OF(patch)

namespace RTTI {

int libraryVersion() noexcept { return RTTI_VERSION; }

const char* libraryVersionText() noexcept {
    return RTTI_VERSION_TEXT(RTTI_VERSION_MAJOR, RTTI_VERSION_MINOR, RTTI_VERSION_PATCH);
}

} // namespace RTTI
