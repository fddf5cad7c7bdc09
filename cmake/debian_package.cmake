# The package for Debian: what is installed, for those who build programs with it. ./release makes it, by the
# preset "package". CPack gives all of it the time in SOURCE_DATE_EPOCH.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME libzolt20-dev)
set(CPACK_PACKAGE_VENDOR "")
set(CPACK_PACKAGE_CONTACT "ZOLT20MapControl maintainers <maintainers@zolt20.invalid>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "control that composes mapping statements, with its Qt widget")
set(CPACK_PACKAGE_DESCRIPTION
    "A person points at tables, fields and operators, and the control writes
the statement: select statements with all their clauses, and control-flow
statements. The program that shows it gives it names and takes the exact
text back.
.
This package holds headers and libraries of the control, of a helper that
splits stored statements and of the Qt widget, with their CMake files, and
the plugin for Qt Designer.")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-base-dev, libstdc++-12-dev | libstdc++-dev")
# What the plugin needs at run time.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
