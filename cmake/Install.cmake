# The CMake package RTTI and the pkg-config module qd_wavedata_RTTI_RTType. Neither names the prefix:
# an installed tree may be moved.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/RTTI)

configure_package_config_file(cmake/RTTIConfig.cmake.in ${PROJECT_BINARY_DIR}/RTTIConfig.cmake
    INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/RTTIConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/RTTIConfig.cmake ${PROJECT_BINARY_DIR}/RTTIConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT Development)
install(EXPORT RTTITargets NAMESPACE RTTI:: DESTINATION ${package_dir} COMPONENT Development)
if(RTTI_BUILD_INSPECT)
    install(EXPORT RTTIInspectTargets NAMESPACE RTTI:: DESTINATION ${package_dir}
        COMPONENT Development)
endif()

# From the folder of the module to the prefix, and from there to the libraries and headers.
set(prefix ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH RTTI_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${prefix})
string(REGEX REPLACE "/$" "" RTTI_PC_PREFIX ${RTTI_PC_PREFIX})
file(RELATIVE_PATH RTTI_PC_LIBDIR ${prefix} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH RTTI_PC_INCLUDEDIR ${prefix} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
configure_file(cmake/qd_wavedata_RTTI_RTType.pc.in qd_wavedata_RTTI_RTType.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qd_wavedata_RTTI_RTType.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
