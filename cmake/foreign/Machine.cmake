# A machine other than the one that builds: Debian's cross compiler for CMAKE_SYSTEM_PROCESSOR, QEMU's
# user mode, in which CTest runs the programs, and that machine's own Debian packages, which
# tools/foreign has unpacked. debian_name and qemu_name are the processor's other names, if it has them.
foreach(name debian_name qemu_name)
    if(NOT ${name})
        set(${name} ${CMAKE_SYSTEM_PROCESSOR})
    endif()
endforeach()
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_CXX_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu-g++)
set(root /usr/${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
set(packages ${CMAKE_CURRENT_LIST_DIR}/../../build/foreign/${CMAKE_SYSTEM_PROCESSOR})
cmake_path(NORMAL_PATH packages)

# Nothing of this machine is linked. QEMU looks for libraries that a program names below `root`, but
# for those of the packages.
set(CMAKE_CXX_LIBRARY_ARCHITECTURE ${debian_name}-linux-gnu)
set(CMAKE_FIND_ROOT_PATH ${packages} ${root})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${qemu_name};-L;${root})
