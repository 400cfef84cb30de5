# The binary interfaces against their baselines, and consumers of an installed prefix.
find_program(ABIDIFF abidiff REQUIRED)
foreach(library vek vek-steam)
  add_test(NAME platform/abi_of_${library}
           COMMAND ${ABIDIFF} --exported-interfaces-only --drop-private-types
                   --headers-dir2 ${PROJECT_SOURCE_DIR}/include/vek ${here}/${library}.abi
                   $<TARGET_FILE:${library}>)
endforeach()

set(prefix ${CMAKE_CURRENT_BINARY_DIR}/prefix)
add_test(NAME platform/install
         COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --prefix ${prefix})
set_tests_properties(platform/install PROPERTIES FIXTURES_SETUP prefix)

add_test(NAME platform/find_package
         COMMAND ${CMAKE_CTEST_COMMAND}
                 --build-and-test ${here}/consumer ${CMAKE_CURRENT_BINARY_DIR}/consumer
                 --build-generator ${CMAKE_GENERATOR}
                 --build-options -DCMAKE_PREFIX_PATH=${prefix}
                 --test-command consumer)
add_test(NAME platform/pkg_config
         COMMAND ${here}/consumer/with_pkg_config ${prefix} ${CMAKE_INSTALL_LIBDIR})
set_tests_properties(platform/find_package platform/pkg_config PROPERTIES FIXTURES_REQUIRED prefix)
