# Checks that everything that tells the version tells the one of the file VERSION. SOURCE is the repository, BUILD its build folder.
file(READ ${SOURCE}/VERSION version)
if(NOT version MATCHES "^([0-9]+\\.[0-9]+)\\.[0-9]+\n$")
  message(FATAL_ERROR "VERSION holds no version of three numbers and a line end")
endif()
set(library_version ${CMAKE_MATCH_1})
string(STRIP ${version} version)

# FILE, PATTERN: the pattern's group is what the file tells, the first time that it does.
function(expect file pattern expected)
  file(READ ${file} text)
  if(NOT text MATCHES ${pattern})
    message(FATAL_ERROR "${file} tells no version")
  endif()
  if(NOT CMAKE_MATCH_1 STREQUAL expected)
    message(FATAL_ERROR "${file} tells the version ${CMAKE_MATCH_1}, and VERSION ${expected}")
  endif()
endfunction()

# What find_package reads.
expect(${BUILD}/zolt20ConfigVersion.cmake "set\\(PACKAGE_VERSION \"([^\"]*)\"\\)" ${version})
# The newest version that it has a section for.
expect(${SOURCE}/CHANGELOG.md "\n## ([0-9.]+)" ${version})
expect(${SOURCE}/docs/windows.md "type library \\| `ZOLT20MappingCtrl` ([0-9.]+)" ${library_version})
