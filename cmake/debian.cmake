# Debian packages, one for each component. The preset `debian` makes them, whose prefix is /usr.
set(CPACK_GENERATOR DEB)
# Who makes the packages, as Debian's own tools are told.
set(CPACK_PACKAGE_CONTACT "The maintainers of Vek <maintainers@vek.example>")
if(DEFINED ENV{DEBEMAIL} AND DEFINED ENV{DEBFULLNAME})
  set(CPACK_PACKAGE_CONTACT "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL libvek1 libvek-steam1 libvek-dev)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

# package(COMPONENT SECTION DESCRIPTION)
macro(package component section description)
  string(TOUPPER ${component} name)
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${component})
  set(CPACK_DEBIAN_${name}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${name}_DESCRIPTION "Pressure, temperature, volume, enthalpy, entropy, internal energy and
quality: any two give the others, from 0.01 to 800 degrees Celsius and
to 1000 bar.\n\n${description}")
endmacro()
package(libvek1 libs "This is the classic module, exact to its constants and iterations.")
package(libvek-steam1 libs "This is the engine, thread-safe and exact to round-off.")
package(libvek-dev libdevel "These are the headers for C and C++, the Fortran modules, and what the
linker, CMake and pkg-config need.")
package(vek science "This is the command, which prints the properties of a state.")
if(VEK_BUILD_CLI)
  list(APPEND CPACK_COMPONENTS_ALL vek)
endif()
set(CPACK_DEBIAN_LIBVEK-DEV_PACKAGE_DEPENDS
    "libvek1 (= ${PROJECT_VERSION}), libvek-steam1 (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_VEK_PACKAGE_RECOMMENDS "gnuplot-nox")  # draws the charts
foreach(library LIBVEK1 LIBVEK-STEAM1)
  set(CPACK_DEBIAN_${library}_PACKAGE_CONTROL_EXTRA
      ${CMAKE_CURRENT_SOURCE_DIR}/packaging/debian/triggers)
endforeach()

# What every package must tell, in Debian's forms: its licence and its history.
string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in changelog @ONLY)
file(ARCHIVE_CREATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz FORMAT raw COMPRESSION GZip
     COMPRESSION_LEVEL 9 PATHS ${CMAKE_CURRENT_BINARY_DIR}/changelog)
foreach(package IN LISTS CPACK_COMPONENTS_ALL)
  install(FILES packaging/debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${package})
endforeach()
include(CPack)
