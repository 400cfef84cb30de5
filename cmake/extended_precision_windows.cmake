# The classic module's functions that compute are exported through others, made here from the list of
# names: a host may have the x87 in double precision, and they need it in extended.
set(list ${CMAKE_CURRENT_SOURCE_DIR}/api/exports.txt)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
file(STRINGS ${list} exports)
set(finders ${exports})
list(FILTER finders INCLUDE REGEX "^vekr")

write_definitions(vek.def Vek.Dll "${exports}")
list(TRANSFORM exports REPLACE "^(vek|vekr.._)$" "\\1 = extended_\\1")
write_definitions(vek_link.def Vek.Dll "${exports}")
link_as_windows_library(vek vek_link.def)

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
target_sources(vek PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/extended_precision.cpp)
