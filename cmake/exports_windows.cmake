# The list of exported names exists once, in api/exports.txt. From it are made the module-definition
# file for users, the one that the module is linked with, and the functions behind those of the latter
# that compute: a host may have the x87 in double precision, and they need it in extended.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS api/exports.txt)
file(STRINGS api/exports.txt exports)
set(finders ${exports})
list(FILTER finders INCLUDE REGEX "^vekr")

list(JOIN exports "\n  " names)
file(CONFIGURE OUTPUT vek.def CONTENT "LIBRARY \"Vek.Dll\"\nEXPORTS\n  @names@\n" @ONLY)
list(TRANSFORM exports REPLACE "^(vek|vekr.._)$" "\\1 = extended_\\1")
list(JOIN exports "\n  " names)
file(CONFIGURE OUTPUT link.def CONTENT "LIBRARY \"Vek.Dll\"\nEXPORTS\n  @names@\n" @ONLY)

list(TRANSFORM finders REPLACE "(.+)" "int extended_\\1(double* a, double* b, double* tol) {
  const classic::ExtendedPrecision precision#
  return \\1(a, b, tol)#
}")
list(JOIN finders "\n\n" finders)
string(REPLACE "#" ";" finders "${finders}")
file(CONFIGURE OUTPUT extended_precision.cpp @ONLY CONTENT
"#include \"vek/vek.h\"
#include \"classic/frame/extended_precision_windows.hpp\"

extern \"C\" {

int extended_vek(VekFinder finder, const double* x, const double* y, const char* list,
                 double* result) {
  const classic::ExtendedPrecision precision;
  return vek(finder, x, y, list, result);
}

@finders@

}
")
target_sources(vek PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/link.def
                           ${CMAKE_CURRENT_BINARY_DIR}/extended_precision.cpp)

set_target_properties(vek PROPERTIES PREFIX "" OUTPUT_NAME Vek)
# Only system libraries are imported: the compiler's own runtime is inside.
target_link_options(vek PRIVATE -static $<$<CONFIG:Release>:-s>)
