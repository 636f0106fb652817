# Shared by the paramdoc tests. Each test script runs with
#   -DPARAMDOC=<tool> -DDEMO=<the demo's documents> -DDIR=<a scratch folder>
# and drives the tool as a user would, checking exit status and messages.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${DIR})
file(MAKE_DIRECTORY ${DIR})

# paramdoc(<status> <arguments>... [INPUT <file>] [OUTPUT <file>]) runs the
# tool, fails the test unless it exits with <status>, and sets `out` and `err`.
function(paramdoc status)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "INPUT;OUTPUT" "")
  set(redirect "")
  if(arg_INPUT)
    list(APPEND redirect INPUT_FILE ${arg_INPUT})
  endif()
  if(arg_OUTPUT)
    list(APPEND redirect OUTPUT_FILE ${arg_OUTPUT})
  else()
    list(APPEND redirect OUTPUT_VARIABLE out)
  endif()
  execute_process(COMMAND ${PARAMDOC} ${arg_UNPARSED_ARGUMENTS} ${redirect}
                  RESULT_VARIABLE rc ERROR_VARIABLE err)
  if(NOT "${rc}" STREQUAL "${status}")
    message(FATAL_ERROR "paramdoc ${arg_UNPARSED_ARGUMENTS}: exit ${rc}, expected ${status}\n"
                        "stdout: ${out}\nstderr: ${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
  set(err "${err}" PARENT_SCOPE)
endfunction()

# expect(<text> <regex> <what>): fails the test unless <text> matches.
function(expect text regex what)
  if(NOT "${text}" MATCHES "${regex}")
    message(FATAL_ERROR "${what}: expected /${regex}/ in:\n${text}")
  endif()
endfunction()

# Documents that no host writes, made without the library. A header of eight
# ASCII '0' (0x30) selects base64, like a zero word.
file(WRITE ${DIR}/noinfo.cfg "00000000eyJhIjoxfQ==")   # {"a":1}, no information block
file(WRITE ${DIR}/array.cfg "00000000WzEsMl0=")        # [1,2]
file(WRITE ${DIR}/short.cfg "0000000")
file(WRITE ${DIR}/unknown.cfg "77777777xx")            # encoding 7
