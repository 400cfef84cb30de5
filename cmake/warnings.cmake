add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow
                    $<$<COMPILE_LANGUAGE:CXX>:-Wdouble-promotion>)
if(VEK_WERROR)
  add_compile_options(-Werror)
endif()
