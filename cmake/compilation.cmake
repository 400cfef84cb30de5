# How the sources are compiled. The libraries' targets are set one by one, so that they are compiled
# in their own way within any project and leave that project its own.

# The same bits everywhere: no contraction, SSE2 on 32-bit x86 too, no fast-math, no -march.
# Vectors pass between functions of one file only, so that no caller can see how.
set(arithmetic -Wno-psabi -fno-fast-math -ffp-contract=off -fno-math-errno)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
  list(APPEND arithmetic -msse2 -mfpmath=sse)
endif()

set(warnings "")
if(PROJECT_IS_TOP_LEVEL)
  set(warnings -Wall -Wextra $<$<COMPILE_LANGUAGE:CXX>:-Wdouble-promotion>
               "$<$<COMPILE_LANGUAGE:C,CXX>:-Wpedantic;-Wconversion;-Wshadow>"
               # Formulas over a number type combine conditions as several rows at once have to.
               $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-bitwise-instead-of-logical>)
endif()

# Objects of a library: of what they define nothing is seen outside but what is marked.
function(compile_library_objects target)
  target_compile_options(${target} PRIVATE "${arithmetic};${warnings}")
  set_target_properties(${target} PROPERTIES
    CXX_STANDARD 20 CXX_STANDARD_REQUIRED ON CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON POSITION_INDEPENDENT_CODE ON)
endfunction()

# All targets that this project's folders add from here on.
macro(compile_programs_here)
  add_compile_options("${arithmetic};${warnings}")
  set(CMAKE_CXX_STANDARD 20)
  set(CMAKE_CXX_STANDARD_REQUIRED ON)
  set(CMAKE_CXX_EXTENSIONS OFF)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endmacro()
