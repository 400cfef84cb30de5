# The list of exported names exists once, in api/exports.txt. From it are made the module-definition
# file for users, the one that the module is linked with, and the functions behind the latter's
# finders: a host may have the x87 in double precision, and a finder needs it in extended.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS api/exports.txt)
file(STRINGS api/exports.txt exports)
set(finders ${exports})
list(FILTER finders INCLUDE REGEX "^vekr")

list(JOIN exports "\n  " names)
file(CONFIGURE OUTPUT vek.def CONTENT "LIBRARY \"Vek.Dll\"\nEXPORTS\n  @names@\n" @ONLY)
string(REGEX REPLACE "(vekr.._)" "\\1 = extended_\\1" names "${names}")
file(CONFIGURE OUTPUT link.def CONTENT "LIBRARY \"Vek.Dll\"\nEXPORTS\n  @names@\n" @ONLY)

list(TRANSFORM finders REPLACE "(.+)" "int extended_\\1(double* a, double* b, double* tol) {
  return classic::in_extended_precision(\\1, a, b, tol)#
}")
list(JOIN finders "\n\n" finders)
string(REPLACE "#" ";" finders "${finders}")
file(CONFIGURE OUTPUT extended_finders.cpp @ONLY CONTENT
"#include \"api/vek.h\"
#include \"frame/extended_precision_windows.hpp\"

extern \"C\" {

@finders@

}
")
target_sources(vek PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/link.def
                           ${CMAKE_CURRENT_BINARY_DIR}/extended_finders.cpp)

set_target_properties(vek PROPERTIES PREFIX "" OUTPUT_NAME Vek)
# Only system libraries are imported: the compiler's own runtime is inside.
target_link_options(vek PRIVATE -static $<$<CONFIG:Release>:-s>)
