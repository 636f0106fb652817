# info: header and information block, from any input, never an abort.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 info ${DEMO}/demo-aes-gcm.cfg)
expect("${out}" "encoding +aes \\(gcm\\), key 2\n" "the header")
expect("${out}" "written by +[0-9.]+, [A-Za-z]+, (32|64)-bit\nextension +\\.cfg\n" "the writer")
expect("${out}" "members +\"pens\" \"board\" \"colors\"\n" "the members")
paramdoc(0 info - INPUT ${DEMO}/demo-xor.cfg)
expect("${out}" "^file +standard input \\([0-9]+ bytes\\)\n.*encoding +xor, key 1\n" "stdin")

paramdoc(1 info ${DIR})
expect("${err}" "Is a directory" "a directory")
paramdoc(1 info ${DIR}/short.cfg)
expect("${err}" "short.cfg: file shorter than its header" "a short file")
paramdoc(1 info ${DIR}/unknown.cfg)
expect("${out}" "encoding +7 \\(unknown\\)" "an unknown encoding")
expect("${err}" "unknown encoding" "its message")
paramdoc(1 info ${DIR}/array.cfg)
expect("${err}" "not a JSON object" "an array")

paramdoc(0 info ${DIR}/noinfo.cfg)
expect("${out}" "written by +unknown \\(no information block\\)\n.*members +\"a\"\n" "no block")
expect("${err}" "warning: .*noinfo.cfg: no information block" "its warning")
