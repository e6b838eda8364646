# A machine other than the one that builds: Debian's cross compiler for CMAKE_SYSTEM_PROCESSOR, and
# QEMU's user mode, in which CTest runs the programs. qemu_name is QEMU's name of the processor, if it
# is another.
if(NOT qemu_name)
    set(qemu_name ${CMAKE_SYSTEM_PROCESSOR})
endif()
set(CMAKE_SYSTEM_NAME Linux)
set(root /usr/${CMAKE_SYSTEM_PROCESSOR}-linux-gnu)
set(CMAKE_CXX_COMPILER ${CMAKE_SYSTEM_PROCESSOR}-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${qemu_name};-L;${root})

# Nothing of this machine is linked. What the libraries and tests need from other projects is here as
# headers and sources, which are the same on every machine.
set(CMAKE_FIND_ROOT_PATH ${root})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_FIND_PACKAGE_PREFER_CONFIG ON)
foreach(package fmt GTest nlohmann_json ZLIB)
    set(${package}_DIR ${CMAKE_CURRENT_LIST_DIR})
endforeach()

# use_headers(TARGET NAME...): the target's users find /usr/include/NAME, a folder or a file, and nothing
# beside it.
macro(use_headers target)
    set(headers ${CMAKE_BINARY_DIR}/headers)
    file(MAKE_DIRECTORY ${headers})
    foreach(name ${ARGN})
        file(CREATE_LINK /usr/include/${name} ${headers}/${name} SYMBOLIC)
    endforeach()
    target_include_directories(${target} SYSTEM INTERFACE ${headers})
endmacro()
