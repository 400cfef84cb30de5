# The archive for users on Windows: headers, and for either width the libraries, the lists of their
# names and import libraries for GCC and for Microsoft's linker. The 64-bit build makes it and takes
# the 32-bit half from that build's folder.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(width win64)
  set(machine i386:x86-64)
else()
  set(width win32)
  set(machine i386)
endif()

find_program(DLLTOOL NAMES llvm-dlltool REQUIRED)
foreach(library classic/vek steam/vek-steam)
  cmake_path(GET library FILENAME target)
  set(definitions ${CMAKE_CURRENT_BINARY_DIR}/src/${library}.def)
  get_target_property(name ${target} OUTPUT_NAME)
  set(${target}_lib ${CMAKE_CURRENT_BINARY_DIR}/${name}.lib)
  add_custom_command(OUTPUT ${${target}_lib} DEPENDS ${definitions}
                     COMMAND ${DLLTOOL} -m ${machine} -d ${definitions} -l ${${target}_lib})
  install(FILES $<TARGET_FILE:${target}> $<TARGET_LINKER_FILE:${target}> ${definitions}
                ${${target}_lib}
          DESTINATION ${width} COMPONENT zip EXCLUDE_FROM_ALL)
endforeach()
add_custom_target(microsoft_import_libraries ALL DEPENDS ${vek_lib} ${vek-steam_lib})
install(DIRECTORY include/vek ${CMAKE_CURRENT_BINARY_DIR}/include/vek
        DESTINATION include COMPONENT zip EXCLUDE_FROM_ALL)
install(FILES docs/windows.txt DESTINATION . RENAME README.txt COMPONENT zip EXCLUDE_FROM_ALL)

if(width STREQUAL win64)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME Vek-${PROJECT_VERSION}-windows)
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  set(CPACK_INSTALL_CMAKE_PROJECTS
    "${CMAKE_CURRENT_BINARY_DIR}" Vek zip /
    "${CMAKE_CURRENT_SOURCE_DIR}/build/windows" Vek zip /)
  include(CPack)
endif()
