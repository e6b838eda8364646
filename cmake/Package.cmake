# Debian packages, named by Debian's rules: the library after its soname, what builds against it, and
# the program. `cpack --preset package` makes them of the build of that preset.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qd-wavedata-rtti)
set(CPACK_PACKAGE_VENDOR "The RTTI developers")
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <maintainers@rtti.example>" CACHE STRING
    "Name and address of who maintains the Debian packages")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development Tools)
if(RTTI_BUILD_PYTHON)
    list(APPEND CPACK_COMPONENTS_ALL Python)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/RTTI)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(runtime libqd-wavedata-rtti-rttype${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "The shared library with which a simulator loads and queries the types of a design.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqd-wavedata-rtti-rttype-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), libfmt-dev, zlib1g-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "Headers, static libraries (storages, writer and verifier, importers, printers), the CMake package
 RTTI, and the pkg-config modules qd_wavedata_RTTI_*.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME qd-wavedata-rtti-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS graphviz)
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "The program rtti shows, makes, verifies and compares type files.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-rtti)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
if(RTTI_BUILD_PYTHON)
    # The compiled module is of this version of Python and no other.
    math(EXPR next_minor "${RTTI_PYTHON_MINOR} + 1")
    string(APPEND CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
        ", python3 (>= 3.${RTTI_PYTHON_MINOR}~), python3 (<< 3.${next_minor})")
endif()
set(CPACK_DEBIAN_PYTHON_PACKAGE_SUGGESTS python3-matplotlib)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
    "The Python package rtti loads, queries, compares, imports and builds types.")

# A package carries its copyright under its own name. A plain installation has LICENSE in their place.
foreach(component RUNTIME DEVELOPMENT TOOLS PYTHON)
    string(SUBSTRING ${component} 1 -1 rest)
    string(TOLOWER ${rest} rest)
    string(SUBSTRING ${component} 0 1 initial)
    install(FILES cmake/copyright DESTINATION share/doc/${CPACK_DEBIAN_${component}_PACKAGE_NAME}
        COMPONENT ${initial}${rest} EXCLUDE_FROM_ALL)
endforeach()

include(CPack)
