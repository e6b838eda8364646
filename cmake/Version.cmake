# The version is stated once, in RTTI/Version.h: the library also compiles without CMake.
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/../RTTI/Version.h lines REGEX "^#define RTTI_VERSION_[A-Z]+ [0-9]+$")
string(REGEX MATCHALL "[0-9]+" RTTI_VERSION_NUMBERS "${lines}")
list(JOIN RTTI_VERSION_NUMBERS "." RTTI_HEADER_VERSION)
if(NOT RTTI_HEADER_VERSION MATCHES "^[0-9]+\\.[0-9]+\\.[0-9]+$")
    message(FATAL_ERROR "RTTI/Version.h does not define major, minor and patch, each on a line")
endif()
