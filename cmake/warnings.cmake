add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow>"
                    $<$<COMPILE_LANGUAGE:CXX>:-Wdouble-promotion>
                    "$<$<COMPILE_LANGUAGE:Fortran>:-Wall;-Wextra>")
if(VEK_WERROR)
  add_compile_options(-Werror)
endif()
