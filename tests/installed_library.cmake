# What others build on, from the installed files alone: the headers stand on their own and are all
# that the command line's windowless sources include, and the example tells what it should. Usage:
# cmake -DBUILD=FOLDER -DCONFIG=NAME -DCOMPILER=C++ -DSOURCE=FOLDER -DWINDOWLESS=FILE|FILE
#       -DFOLDER=SCRATCH_FOLDER -P FILE
cmake_minimum_required(VERSION 3.22)
file(REMOVE_RECURSE ${FOLDER})
set(prefix ${FOLDER}/prefix)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --config ${CONFIG} --prefix ${prefix}
                        --component development
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE headers RELATIVE ${prefix}/include/zelkova ${prefix}/include/*.h)
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"\n" OUTPUT_VARIABLE includes)
list(JOIN includes "" includes)
file(WRITE ${FOLDER}/headers.cpp "${includes}")
execute_process(COMMAND ${COMPILER} -std=c++20 -Wall -Wextra -Werror -fsyntax-only
                        -I${prefix}/include/zelkova ${FOLDER}/headers.cpp
                COMMAND_ERROR_IS_FATAL ANY)

string(REPLACE "|" ";" sources "${WINDOWLESS}")
foreach(source ${sources})
  file(STRINGS ${source} lines REGEX "^#include \"")
  foreach(line ${lines})
    string(REGEX REPLACE "^#include \"(.*)\"$" "\\1" header "${line}")
    if(NOT header MATCHES "^frontend/batch/" AND NOT header IN_LIST headers)
      message(SEND_ERROR "${source} includes ${header}, which is not installed")
    endif()
  endforeach()
endforeach()

set(example ${SOURCE}/examples/image_differences)
execute_process(COMMAND ${CMAKE_COMMAND} -S ${example} -B ${FOLDER}/example -G Ninja
                        -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_PREFIX_PATH=${prefix}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${FOLDER}/example
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${FOLDER}/example/image_differences car.adr former.hex now.srec
                WORKING_DIRECTORY ${example} OUTPUT_VARIABLE told COMMAND_ERROR_IS_FATAL ANY)
file(READ ${example}/expected.txt expected)
if(NOT told STREQUAL expected)
  message(SEND_ERROR "The example tells\n${told}instead of\n${expected}")
endif()
