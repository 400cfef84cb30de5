include(CMakePackageConfigHelpers)

install(TARGETS vek steam EXPORT VekTargets)
install(FILES include/vek/vek.h include/vek/vek.f90 include/vek/steam.hpp
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/vek)
if(VEK_BUILD_CLI)
  install(TARGETS vek_command)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vek)
install(EXPORT VekTargets NAMESPACE Vek:: DESTINATION ${package_dir})
configure_package_config_file(cmake/VekConfig.cmake.in VekConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(VekConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VekConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VekConfigVersion.cmake
        DESTINATION ${package_dir})

file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pc ${prefix_from_pc})
configure_file(cmake/vek.pc.in vek.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vek.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
  include(zip)
endif()
