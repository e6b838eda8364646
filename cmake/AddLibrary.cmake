# What the libraries of the package have in common.

# publish_library(TARGET HEADER...): installs TARGET with its public headers, and names it
# RTTI::TARGET, in the build tree as for those who find the package.
function(publish_library target)
    cmake_parse_arguments(arg "" "EXPORT" "" ${ARGN})
    if(NOT arg_EXPORT)
        set(arg_EXPORT RTTITargets)
    endif()
    get_target_property(type ${target} TYPE)
    set(scope PUBLIC)
    if(type STREQUAL INTERFACE_LIBRARY)
        set(scope INTERFACE)
    endif()
    target_sources(${target} ${scope}
        FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_UNPARSED_ARGUMENTS})
    target_compile_features(${target} INTERFACE cxx_std_17)
    add_library(RTTI::${target} ALIAS ${target})
    set_property(GLOBAL APPEND PROPERTY RTTI_PUBLISHED_LIBRARIES ${target})

    install(TARGETS ${target} EXPORT ${arg_EXPORT}
        LIBRARY COMPONENT Runtime NAMELINK_COMPONENT Development
        ARCHIVE COMPONENT Development
        FILE_SET HEADERS COMPONENT Development)
endfunction()
