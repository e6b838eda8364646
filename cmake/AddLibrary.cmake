# Shared by all libraries of the package.

# publish_library(RTTI_NAME HEADER... [DESCRIPTION TEXT] [PACKAGES NAME...] [MODULES NAME...]):
# publishes the target RTTI_NAME as RTTI::NAME, in the build tree and in the installed package, and as
# the pkg-config module qd_wavedata_RTTI_NAME. Call it when the links of the target are known.
# PACKAGES are the CMake packages, MODULES the pkg-config modules, of other projects that its users
# have to link; a library with PACKAGES is available if these are found, or required as a component.
function(publish_library target)
    cmake_parse_arguments(arg "" "DESCRIPTION" "PACKAGES;MODULES" ${ARGN})
    if(NOT target MATCHES "^RTTI_(.+)$")
        message(FATAL_ERROR "${target}: targets are named RTTI_..., which no other project's are")
    endif()
    set(name ${CMAKE_MATCH_1})
    get_target_property(type ${target} TYPE)
    set(scope PUBLIC)
    if(type STREQUAL INTERFACE_LIBRARY)
        set(scope INTERFACE)
    else()
        set_target_properties(${target} PROPERTIES OUTPUT_NAME qd_wavedata_RTTI_${name})
    endif()
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    target_sources(${target} ${scope}
        FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_UNPARSED_ARGUMENTS})
    target_compile_features(${target} INTERFACE cxx_std_17)
    add_library(RTTI::${name} ALIAS ${target})
    if(NOT PROJECT_IS_TOP_LEVEL)
        return()
    endif()

    set_property(GLOBAL APPEND PROPERTY RTTI_PUBLISHED_LIBRARIES ${target})
    set(export_set RTTITargets)
    if(arg_PACKAGES)
        set(export_set RTTI${name}Targets)
        set_property(GLOBAL APPEND PROPERTY RTTI_COMPONENTS_WITH_PACKAGES ${name})
        set_property(GLOBAL PROPERTY RTTI_PACKAGES_OF_${name} ${arg_PACKAGES})
    else()
        set_property(GLOBAL APPEND PROPERTY RTTI_PLAIN_COMPONENTS ${name})
    endif()
    install(TARGETS ${target} EXPORT ${export_set}
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development
        FILE_SET HEADERS COMPONENT Development)
    if(NOT type STREQUAL INTERFACE_LIBRARY)
        publish_module(${target} ${name} "${arg_DESCRIPTION}" "${arg_MODULES}")
    endif()
endfunction()

# publish_module(TARGET NAME DESCRIPTION MODULES): the pkg-config module of a library. It requires those
# of the libraries that TARGET links, and MODULES. It does not name the prefix: an installed tree may
# be moved.
function(publish_module target name description modules)
    set(RTTI_PC_NAME qd_wavedata_RTTI_${name})
    set(RTTI_PC_DESCRIPTION "${description}")
    get_target_property(libraries ${target} LINK_LIBRARIES)
    list(FILTER libraries INCLUDE REGEX "^RTTI::")
    list(REMOVE_ITEM libraries RTTI::OVAT_interface) # Headers, and no more than the include path.
    list(TRANSFORM libraries REPLACE "^RTTI::" "qd_wavedata_RTTI_")
    list(JOIN libraries " " own)
    list(JOIN modules " " others)
    string(STRIP "${own} ${others}" RTTI_PC_REQUIRES)

    # From the folder of the module to the prefix, and from there to the libraries and headers.
    set(prefix ${CMAKE_INSTALL_PREFIX})
    file(RELATIVE_PATH RTTI_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${prefix})
    string(REGEX REPLACE "/$" "" RTTI_PC_PREFIX ${RTTI_PC_PREFIX})
    file(RELATIVE_PATH RTTI_PC_LIBDIR ${prefix} ${CMAKE_INSTALL_FULL_LIBDIR})
    file(RELATIVE_PATH RTTI_PC_INCLUDEDIR ${prefix} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
    set(module ${PROJECT_BINARY_DIR}/${RTTI_PC_NAME}.pc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/module.pc.in ${module} @ONLY)
    install(FILES ${module} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
endfunction()
