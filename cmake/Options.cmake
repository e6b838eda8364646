# What can be chosen. As a part of another project, this one offers its libraries and takes the
# parent's BUILD_SHARED_LIBS: RTTI::RTType is static unless that is on. The other libraries are static
# in every case; what nobody links is not built.
include(CMakeDependentOption)

set(has_printer_libraries ON)
if(NOT PROJECT_IS_TOP_LEVEL)
    set_property(DIRECTORY ${PROJECT_SOURCE_DIR} PROPERTY EXCLUDE_FROM_ALL ON)
    foreach(package fmt nlohmann_json ZLIB)
        find_package(${package} QUIET)
        if(NOT ${package}_FOUND)
            set(has_printer_libraries OFF)
        endif()
    endforeach()
else()
    option(BUILD_SHARED_LIBS "Build RTTI::RTType as a shared library" ON)
    option(BUILD_TESTING "Build the tests; they need the program" ON)
    if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
        set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, RelWithDebInfo or Debug" FORCE)
    endif()
endif()

option(RTTI_BUILD_INSPECT "Build the printers; they need fmt, nlohmann-json and zlib"
    ${has_printer_libraries})
cmake_dependent_option(RTTI_BUILD_TOOLS "Build the program rtti; it needs CLI11"
    ${PROJECT_IS_TOP_LEVEL} RTTI_BUILD_INSPECT OFF)
cmake_dependent_option(RTTI_BUILD_PYTHON
    "Build the Python package rtti; it needs pybind11 and Python's headers" OFF
    "PROJECT_IS_TOP_LEVEL;RTTI_BUILD_INSPECT" OFF)
option(RTTI_WERROR "Treat warnings as errors" OFF)
option(RTTI_COVERAGE "Count the lines that the tests run" OFF)
option(RTTI_FUZZ "Let the fuzz targets make inputs of their own (only clang++ can)" OFF)
set(RTTI_SANITIZE "" CACHE STRING "Sanitizers to build with, such as address,undefined")

set(RTTI_BUILD_TESTS OFF)
if(PROJECT_IS_TOP_LEVEL AND BUILD_TESTING AND (RTTI_BUILD_TOOLS OR CMAKE_CROSSCOMPILING))
    set(RTTI_BUILD_TESTS ON)
endif()
