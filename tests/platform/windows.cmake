# What only Windows has: the entry routine's many calls, the message box, and the archive for users.
loading_program(module_object module_object.cpp module_windows.cpp)
target_include_directories(platform_module_object PRIVATE ${PROJECT_SOURCE_DIR}/src)
add_test(NAME platform/module_object COMMAND platform_module_object $<TARGET_FILE:vek>)

add_executable(platform_math_error_notice math_error_notice.cpp)
target_link_libraries(platform_math_error_notice PRIVATE vek_classic)
add_test(NAME platform/math_error_notice COMMAND platform_math_error_notice)

add_test(NAME platform/version
         COMMAND ${Python3_EXECUTABLE} -c "
import sys
told = ('FileVersion\\0\\0' + sys.argv[1]).encode('utf-16-le')
sys.exit([file for file in sys.argv[2:] if told not in open(file, 'rb').read()] or None)"
                 ${PROJECT_VERSION} $<TARGET_FILE:vek> $<TARGET_FILE:vek-steam>)

# A host linked by the import libraries for Microsoft's linker.
add_executable(platform_import_libraries import_libraries.c)
target_include_directories(platform_import_libraries PRIVATE ${PROJECT_SOURCE_DIR}/include)
target_link_libraries(platform_import_libraries PRIVATE ${PROJECT_BINARY_DIR}/Vek.lib
                      ${PROJECT_BINARY_DIR}/vek-steam.lib)
add_dependencies(platform_import_libraries microsoft_import_libraries)
add_test(NAME platform/import_libraries COMMAND platform_import_libraries)

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  add_test(NAME platform/zip
           COMMAND ${CMAKE_CPACK_COMMAND} --config ${PROJECT_BINARY_DIR}/CPackConfig.cmake
                   -B ${CMAKE_CURRENT_BINARY_DIR}/zip)
  set_tests_properties(platform/zip PROPERTIES FIXTURES_SETUP zip)
  set(libraries Vek.dll Vek.lib libVek.dll.a libvek-steam.dll.a vek-steam.def vek-steam.dll
                vek-steam.lib vek.def)
  list(TRANSFORM libraries PREPEND win32/ OUTPUT_VARIABLE win32)
  list(TRANSFORM libraries PREPEND win64/ OUTPUT_VARIABLE win64)
  add_test(NAME platform/zip_contents
           COMMAND ${Python3_EXECUTABLE} -c "
import sys, zipfile
found = sorted(name for name in zipfile.ZipFile(sys.argv[1]).namelist() if name[-1] != '/')
sys.exit(found != sorted(sys.argv[2:]) and found)"
                   ${CMAKE_CURRENT_BINARY_DIR}/zip/Vek-${PROJECT_VERSION}-windows.zip
                   README.txt include/vek/steam.f90 include/vek/steam.h include/vek/steam.hpp
                   include/vek/vek.f90 include/vek/vek.h include/vek/version.h ${win32} ${win64})
  set_tests_properties(platform/zip_contents PROPERTIES FIXTURES_REQUIRED zip)
endif()
