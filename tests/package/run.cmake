# Builds a program of examples/, or one beside this file, as an outside project. It runs it when its output is beside it, and the
# one beside this file too.
#   EXAMPLE  its folder
#   WAY      find_package: on the build in BUILD, installed for the occasion; add_subdirectory: on the sources
#   SOURCE   the repository; BUILD its build folder; WORK a scratch folder; GENERATOR; FLAGS for compiler and linker
function(step)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

set(folder ${SOURCE}/examples/${EXAMPLE})
if(NOT EXISTS ${folder})
  set(folder ${SOURCE}/tests/package/${EXAMPLE})
endif()

file(REMOVE_RECURSE ${WORK})
if(WAY STREQUAL "find_package")
  step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
  set(place -DCMAKE_PREFIX_PATH=${WORK}/installed)
else()
  set(place -DZOLT20_SOURCE=${SOURCE})
endif()
step(${CMAKE_COMMAND} -S ${folder} -B ${WORK}/build -G ${GENERATOR} -DCMAKE_CXX_FLAGS=${FLAGS} ${place})
step(${CMAKE_COMMAND} --build ${WORK}/build)

if(folder MATCHES "/tests/package/")
  step(${WORK}/build/${EXAMPLE})
  return()
endif()
if(NOT EXISTS ${folder}/expected.txt)
  return()
endif()
execute_process(COMMAND ${WORK}/build/${EXAMPLE} RESULT_VARIABLE status OUTPUT_VARIABLE output)
file(READ ${folder}/expected.txt expected)
if(NOT status EQUAL 0 OR NOT output STREQUAL expected)
  message(FATAL_ERROR "the program ended with ${status} and printed\n${output}")
endif()
