enable_language(RC)

# export_names(TARGET LIST): the library exports the names in a file and nothing else. From it is made
# TARGET.def, the module-definition file for users and for the linker.
function(export_names target list)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} names)
  get_target_property(library ${target} OUTPUT_NAME)
  write_definitions(${target}.def ${library}.dll "${names}")
  link_as_windows_library(${target} ${target}.def)
endfunction()

function(write_definitions file library names)
  list(JOIN names "\n  " names)
  file(CONFIGURE OUTPUT ${file} CONTENT "LIBRARY \"@library@\"\nEXPORTS\n  @names@\n" @ONLY)
endfunction()

# link_as_windows_library(TARGET DEFINITIONS): with the exports of that file, and the version that Windows
# shows.
function(link_as_windows_library target definitions)
  get_target_property(library ${target} OUTPUT_NAME)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${target}.rc @ONLY)
  target_sources(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${definitions}
                                   ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  set_target_properties(${target} PROPERTIES PREFIX "")
  # Only system libraries are imported: the compiler's own runtime is inside.
  target_link_options(${target} PRIVATE -static $<$<CONFIG:Release>:-s>)
endfunction()
