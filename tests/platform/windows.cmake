# What only Windows has: the entry routine's many calls, the message box, and the archive for users.
loading_program(module_object module_object.cpp module_windows.cpp)
target_include_directories(platform_module_object PRIVATE ${PROJECT_SOURCE_DIR}/src)
add_test(NAME platform/module_object COMMAND platform_module_object $<TARGET_FILE:vek>)

add_executable(platform_math_error_notice math_error_notice.cpp)
target_link_libraries(platform_math_error_notice PRIVATE classic)
add_test(NAME platform/math_error_notice COMMAND platform_math_error_notice)

add_test(NAME platform/zip
         COMMAND ${CMAKE_CPACK_COMMAND} --config ${PROJECT_BINARY_DIR}/CPackConfig.cmake
                 -B ${CMAKE_CURRENT_BINARY_DIR}/zip)
set_tests_properties(platform/zip PROPERTIES FIXTURES_SETUP zip)
add_test(NAME platform/zip_contents
         COMMAND ${Python3_EXECUTABLE} -c "
import sys, zipfile
found = sorted(zipfile.ZipFile(sys.argv[1]).namelist())
sys.exit(found != sorted(sys.argv[2:]) and found)"
                 ${CMAKE_CURRENT_BINARY_DIR}/zip/Vek-${PROJECT_VERSION}-win32.zip
                 README.txt Vek.dll libVek.dll.a vek.def vek.h)
set_tests_properties(platform/zip_contents PROPERTIES FIXTURES_REQUIRED zip)
