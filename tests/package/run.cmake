# Builds a program of examples/ as an outside project, and runs it when its output is beside it.
#   EXAMPLE  its folder
#   WAY      find_package: on the build in BUILD, installed for the occasion; add_subdirectory: on the sources
#   SOURCE   the repository; BUILD its build folder; WORK a scratch folder; GENERATOR; FLAGS for compiler and linker
function(step)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
if(WAY STREQUAL "find_package")
  step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
  set(place -DCMAKE_PREFIX_PATH=${WORK}/installed)
else()
  set(place -DZOLT20_SOURCE=${SOURCE})
endif()
step(${CMAKE_COMMAND} -S ${SOURCE}/examples/${EXAMPLE} -B ${WORK}/build -G ${GENERATOR} -DCMAKE_CXX_FLAGS=${FLAGS}
     ${place})
step(${CMAKE_COMMAND} --build ${WORK}/build)

if(NOT EXISTS ${SOURCE}/examples/${EXAMPLE}/expected.txt)
  return()
endif()
execute_process(COMMAND ${WORK}/build/embedding RESULT_VARIABLE status OUTPUT_VARIABLE output)
file(READ ${SOURCE}/examples/${EXAMPLE}/expected.txt expected)
if(NOT status EQUAL 0 OR NOT output STREQUAL expected)
  message(FATAL_ERROR "the program ended with ${status} and printed\n${output}")
endif()
