# The list of exported names exists once, in api/exports.txt; the linker's script is made from it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS api/exports.txt)
file(STRINGS api/exports.txt exports)
list(JOIN exports "; " exports)
file(CONFIGURE OUTPUT vek.map CONTENT "{ global: @exports@; local: *; };\n" @ONLY)

set_target_properties(vek PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 1
                      LINK_DEPENDS ${CMAKE_CURRENT_BINARY_DIR}/vek.map)
# A module beside another copy of itself calls its own functions.
target_link_options(vek PRIVATE -Wl,-Bsymbolic -Wl,--version-script=${CMAKE_CURRENT_BINARY_DIR}/vek.map
                    -Wl,--no-undefined)
