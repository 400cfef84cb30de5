# The list of exported names exists once, in api/exports.txt; the module-definition file is made
# from it. It also gives the module its file name.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS api/exports.txt)
file(STRINGS api/exports.txt exports)
list(JOIN exports "\n  " exports)
file(CONFIGURE OUTPUT vek.def CONTENT "LIBRARY \"Vek.Dll\"\nEXPORTS\n  @exports@\n" @ONLY)
target_sources(vek PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/vek.def)

set_target_properties(vek PROPERTIES PREFIX "" OUTPUT_NAME Vek)
# Only system libraries are imported: the compiler's own runtime is inside.
target_link_options(vek PRIVATE -static $<$<CONFIG:Release>:-s>)
