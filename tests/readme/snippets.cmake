# Compiles every ```cpp block of README.md with the project's warnings as
# errors, so that the README's examples cannot drift from the interface.
# A block with main(), a namespace or PARAM_RECORD_IO is a file of its own;
# any other block becomes the body of a function, all of them in one file.
# Names a block takes from the host around it are declared in prelude.h.
#
# -DREADME=... -DCXX=... -DFLAGS="..." -DSOURCE_DIR=... -DWORK_DIR=...
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
file(READ ${README} text)
get_filename_component(here ${CMAKE_CURRENT_LIST_FILE} DIRECTORY)
set(prelude "#include \"${here}/prelude.h\"\n")

set(fence "```")
set(bodies "${prelude}")
set(files "")
set(count 0)
while(TRUE)
  string(FIND "${text}" "${fence}cpp\n" start)
  if(start EQUAL -1)
    break()
  endif()
  math(EXPR start "${start} + 7")
  string(SUBSTRING "${text}" ${start} -1 text)
  string(FIND "${text}" "\n${fence}" end)
  if(end EQUAL -1)
    message(FATAL_ERROR "README.md: a ${fence}cpp block is not closed")
  endif()
  string(SUBSTRING "${text}" 0 ${end} block)
  string(SUBSTRING "${text}" ${end} -1 text)
  math(EXPR count "${count} + 1")
  set(probe "\n${block}")
  if(probe MATCHES "int main\\(" OR probe MATCHES "\nnamespace " OR probe MATCHES "PARAM_RECORD_IO\\(")
    file(WRITE ${WORK_DIR}/block${count}.cpp "${prelude}${block}\n")
    list(APPEND files ${WORK_DIR}/block${count}.cpp)
  else()
    string(APPEND bodies "\n[[maybe_unused]] param::SdkError block${count}() {\n${block}\nreturn 0;\n}\n")
  endif()
endwhile()
if(count LESS 5)
  message(FATAL_ERROR "README.md: only ${count} C++ blocks found; is the fence still ${fence}cpp?")
endif()
file(WRITE ${WORK_DIR}/blocks.cpp "${bodies}")
list(APPEND files ${WORK_DIR}/blocks.cpp)

separate_arguments(flags UNIX_COMMAND "${FLAGS}")
foreach(f ${files})
  execute_process(COMMAND ${CXX} -std=c++20 -O2 ${flags} -Werror -I${SOURCE_DIR} -c ${f}
                          -o ${f}.o
                  RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT rc EQUAL 0)
    file(READ ${f} source)
    message(FATAL_ERROR "a README snippet does not compile cleanly:\n${out}\n--- ${f}:\n${source}")
  endif()
endforeach()
message(STATUS "${count} README blocks compile without warnings")
