# The archive for users on Windows: what a host needs, flat, without the rest of the installation.
install(FILES $<TARGET_FILE:vek> $<TARGET_LINKER_FILE:vek> include/vek/vek.h
              ${CMAKE_CURRENT_BINARY_DIR}/src/classic/vek.def
        DESTINATION . COMPONENT zip EXCLUDE_FROM_ALL)
install(FILES docs/windows.txt DESTINATION . RENAME README.txt COMPONENT zip EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME Vek-${PROJECT_VERSION}-win32)
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_COMPONENTS_ALL zip)
include(CPack)
