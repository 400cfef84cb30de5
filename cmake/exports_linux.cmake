# export_names(TARGET LIST [NODE]): the shared library exports the names in a file, under the symbol
# version NODE, and nothing else. The linker's script is made from that file.
function(export_names target list)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} names)
  list(JOIN names "; " names)
  set(map ${CMAKE_CURRENT_BINARY_DIR}/${target}.map)
  file(CONFIGURE OUTPUT ${map} CONTENT "@ARGN@ { global: @names@; local: *; };\n" @ONLY)

  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 1
                        LINK_DEPENDS ${map})
  # A library beside another copy of itself calls its own functions.
  target_link_options(${target} PRIVATE -Wl,-Bsymbolic -Wl,--version-script=${map}
                      -Wl,--no-undefined)
endfunction()
