# Checks that the page for hosts shows the program of examples/embedding as it is. SOURCE is the repository.
file(READ ${SOURCE}/docs/hosts.md page)
file(READ ${SOURCE}/examples/embedding/main.cpp program)
string(FIND "${page}" "```cpp\n${program}```" found)
if(found EQUAL -1)
  message(FATAL_ERROR "docs/hosts.md shows another program than examples/embedding/main.cpp")
endif()
