# Installs the build, then configures, builds and runs a project that sees only what was
# installed, and the example of host.h, which PAGE shows too. Everything lies under WORK,
# which is made anew.
file(REMOVE_RECURSE ${WORK})
function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix --config ${CONFIG})
run(${WORK}/prefix/bin/registry-docs --version)

file(READ ${WORK}/prefix/include/registry_docs/host.h header)
string(REGEX MATCH "(//(     [^\n]*)?\n)+" example "${header}")
string(REGEX REPLACE "\n//(     )?" "\n" example "\n${example}")
string(STRIP "${example}" example)
file(WRITE ${WORK}/example.cc "${example}\n")
file(READ ${PAGE} page)
string(FIND "${page}" "```cpp\n${example}\n```\n" place)
if(place EQUAL -1)
  message(FATAL_ERROR "${PAGE}: expected the example of host.h, found none")
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK}/build -G ${GENERATOR}
    -D CMAKE_PREFIX_PATH=${WORK}/prefix -D CMAKE_BUILD_TYPE=${CONFIG}
    -D CMAKE_CXX_COMPILER=${COMPILER} -D CMAKE_CXX_FLAGS=${FLAGS}
    -D EXAMPLE=${WORK}/example.cc)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/consumer ${WORK}/repository)
execute_process(COMMAND ${WORK}/build/example orders customers OUTPUT_VARIABLE blocks
                COMMAND_ERROR_IS_FATAL ANY)
if(NOT blocks MATCHES "`read_orders`.*`read_customers`.*`limit`.*`limit`")
  message(FATAL_ERROR "the example prints:\n${blocks}")
endif()
