# What is installed where. The components are the Debian packages.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Vek)
# installs_library(COMPONENT-OF-CMAKE PACKAGE TARGET...)
function(installs_library component package)
  install(TARGETS ${ARGN} EXPORT Vek_${component}
    RUNTIME COMPONENT ${package}
    LIBRARY COMPONENT ${package} NAMELINK_COMPONENT libvek-dev
    ARCHIVE COMPONENT libvek-dev)
  install(EXPORT Vek_${component} NAMESPACE Vek:: DESTINATION ${package_dir} COMPONENT libvek-dev)
endfunction()
installs_library(classic libvek1 vek)
installs_library(steam libvek-steam1 vek-steam vek-steam-static)
if(VEK_BUILD_CLI)
  install(TARGETS vek_command COMPONENT vek)
  install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/vek COMPONENT vek
          USE_SOURCE_PERMISSIONS PATTERN *.py EXCLUDE)
endif()

# From here on everything is for those who compile with the libraries.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME libvek-dev)
install(DIRECTORY include/vek ${CMAKE_CURRENT_BINARY_DIR}/include/vek
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

configure_package_config_file(cmake/VekConfig.cmake.in VekConfig.cmake
                              INSTALL_DESTINATION ${package_dir}
                              PATH_VARS CMAKE_INSTALL_INCLUDEDIR)
write_basic_package_version_file(VekConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VekConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/VekConfigVersion.cmake
        DESTINATION ${package_dir})

# installs_pc(NAME WHAT-A-STATIC-LIBRARY-NEEDS)
file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pc ${prefix_from_pc})
function(installs_pc name libs_private)
  configure_file(cmake/pkgconfig.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
installs_pc(vek "")
installs_pc(vek-steam "-lstdc++ -lm -pthread")

if(WIN32)
  include(zip)
elseif(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  include(debian)
endif()
