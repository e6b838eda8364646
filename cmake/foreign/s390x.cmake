# IBM Z: the highest byte first, 64 bits, characters without a sign.
set(CMAKE_SYSTEM_PROCESSOR s390x)
include(${CMAKE_CURRENT_LIST_DIR}/Machine.cmake)
