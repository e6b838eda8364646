# The CMake package RTTI. It does not name the prefix: an installed tree may be moved.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/RTTI)
install(EXPORT RTTITargets NAMESPACE RTTI:: DESTINATION ${package_dir} COMPONENT Development)

get_property(RTTI_PLAIN_COMPONENTS GLOBAL PROPERTY RTTI_PLAIN_COMPONENTS)
# rtti_component(NAME PACKAGE...) for each library that links other projects.
get_property(components GLOBAL PROPERTY RTTI_COMPONENTS_WITH_PACKAGES)
set(RTTI_COMPONENT_CALLS)
foreach(component IN LISTS components)
    get_property(packages GLOBAL PROPERTY RTTI_PACKAGES_OF_${component})
    list(JOIN packages " " packages)
    string(APPEND RTTI_COMPONENT_CALLS "rtti_component(${component} ${packages})\n")
    install(EXPORT RTTI${component}Targets NAMESPACE RTTI:: DESTINATION ${package_dir}
        COMPONENT Development)
endforeach()

configure_package_config_file(cmake/RTTIConfig.cmake.in ${PROJECT_BINARY_DIR}/RTTIConfig.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RTTIConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/RTTIConfig.cmake ${PROJECT_BINARY_DIR}/RTTIConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT Development)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documents)
