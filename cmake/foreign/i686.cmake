# 32 bits; numbers of 64 bits are aligned to 4 bytes.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(debian_name i386)
set(qemu_name i386)
include(${CMAKE_CURRENT_LIST_DIR}/Machine.cmake)

# An x86-64 processor runs these programs itself, for tests that QEMU's i386 does not bring to an end.
set(direct_emulator ${root}/lib/ld-linux.so.2;--library-path;${root}/lib)
