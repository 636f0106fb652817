# Installs the build in BUILD_DIR into a fresh prefix, moves the prefix
# elsewhere, and builds examples/consumer against the moved copy, so that a
# broken install rule, package file or run path fails a test. Every program
# runs without LD_LIBRARY_PATH: the installed files must find each other.
file(REMOVE_RECURSE ${WORK_DIR})
set(installed ${WORK_DIR}/installed)
set(prefix ${WORK_DIR}/moved)

function(run)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH ${ARGV}
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "command failed (${rc}): ${ARGV}\n${out}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${installed})
file(RENAME ${installed} ${prefix})

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/consumer -B ${WORK_DIR}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)

# The param-only host must depend on libparam alone, or it proves nothing
# about libparam finding libparam_utils.
find_program(READELF readelf)
if(READELF)
  run(${READELF} -d ${WORK_DIR}/build/consumer_param_only)
  if(out MATCHES "libparam_utils")
    message(FATAL_ERROR "consumer_param_only links libparam_utils directly:\n${out}")
  endif()
endif()

run(${WORK_DIR}/build/consumer ${WORK_DIR}/consumer.cfg)
run(${WORK_DIR}/build/consumer_param_only)
if(EXISTS ${prefix}/bin/paramdoc)
  run(${prefix}/bin/paramdoc check ${WORK_DIR}/consumer.cfg)
endif()

# A C host and a Python script against the moved prefix, as a new user would:
# the C program built with the system's C compiler, the package found through
# PYTHONPATH alone (no LASERPARAM_LIBRARY), the library through its run path.
find_program(CC NAMES cc gcc)
if(CC)
  run(${CC} -std=c11 -o ${WORK_DIR}/capi_test ${SOURCE_DIR}/tests/c/capiTest.c
      -I${prefix}/include -L${prefix}/lib -lparam_c -lm -Wl,-rpath,${prefix}/lib)
  file(MAKE_DIRECTORY ${WORK_DIR}/capi)
  run(${WORK_DIR}/capi_test ${WORK_DIR}/capi)
endif()
if(EXISTS /usr/bin/python3 AND EXISTS ${prefix}/lib/python3/dist-packages/laserparam)
  run(${CMAKE_COMMAND} -E env PYTHONPATH=${prefix}/lib/python3/dist-packages
      /usr/bin/python3 -m pytest -q -p no:cacheprovider ${SOURCE_DIR}/tests/python)
endif()
message(STATUS "consumers built and ran against ${prefix}")
