# check: one line per file, exit 1 when any fails as a host's read would.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

file(GLOB documents ${DEMO}/demo-*.cfg)
paramdoc(0 check ${documents})
paramdoc(1 check ${documents} ${DIR}/short.cfg ${DIR}/noinfo.cfg ${DIR}/absent.cfg)
expect("${out}" "short.cfg: file shorter than its header" "a short file")
expect("${out}" "noinfo.cfg: no information block" "a document without information block")
expect("${err}" "absent.cfg: No such file or directory" "a missing file")
string(REGEX MATCHALL ": ok\n" oks "${out}")
list(LENGTH oks count)
if(NOT count EQUAL 7)
  message(FATAL_ERROR "expected 7 documents ok:\n${out}")
endif()

paramdoc(0 check - INPUT ${DEMO}/demo-aes-cbc.cfg)
expect("${out}" "^standard input: ok\n$" "standard input")
paramdoc(2 check - - INPUT ${DEMO}/demo-aes-cbc.cfg)
