# pack: JSON text to a document, with options that imply or refuse others.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 show --indent 0 ${DEMO}/demo-lzma.cfg)
file(WRITE ${DIR}/shown.json "${out}")

paramdoc(0 pack ${DIR}/shown.json ${DIR}/packed.cfg --aes cbc --key 3)
paramdoc(0 info ${DIR}/packed.cfg)
expect("${out}" "encoding +aes \\(cbc\\), key 3\n" "--aes implies --encoding aes")
paramdoc(0 pack ${DIR}/shown.json ${DIR}/default.cfg)
paramdoc(0 info ${DIR}/default.cfg)
expect("${out}" "encoding +lzma\n" "the default encoding")

paramdoc(2 pack ${DIR}/shown.json ${DIR}/refused.cfg --encoding lzma --aes gcm)
expect("${err}" "--aes needs --encoding aes, not --encoding lzma" "--aes with lzma")
paramdoc(2 pack ${DIR}/shown.json ${DIR}/refused.cfg --key 1)
expect("${err}" "--key needs --encoding xor or aes" "--key with lzma")
paramdoc(2 pack ${DIR}/shown.json ${DIR}/refused.cfg --encoding zip)
if(EXISTS ${DIR}/refused.cfg)
  message(FATAL_ERROR "a refused command wrote its output")
endif()

# Standard input to standard output.
paramdoc(0 pack - - --encoding xor --key 1 INPUT ${DIR}/shown.json OUTPUT ${DIR}/piped.cfg)
paramdoc(0 info ${DIR}/piped.cfg)
expect("${out}" "encoding +xor, key 1\n" "a piped document")
paramdoc(0 diff ${DEMO}/demo-lzma.cfg ${DIR}/piped.cfg)
paramdoc(1 pack ${DIR}/shown.json - OUTPUT /dev/full)
expect("${err}" "standard output: No space left on device" "pack to /dev/full")

file(WRITE ${DIR}/broken.json "{\"a\": ")
paramdoc(1 pack ${DIR}/broken.json ${DIR}/broken.cfg)
expect("${err}" "broken.json: text is not JSON" "text that is not JSON")
paramdoc(1 pack ${DIR}/shown.json ${DIR}/missing/packed.cfg)
expect("${err}" "missing/packed.cfg: " "a folder that does not exist")

# A number no double holds is refused when packing, and no file is written: the
# library never writes a document it cannot read back.
file(WRITE ${DIR}/huge.json "{\"runSpeed\": 1e400}")
file(REMOVE ${DIR}/huge.cfg)
paramdoc(1 pack ${DIR}/huge.json ${DIR}/huge.cfg)
expect("${err}" "number out of range" "packing 1e400")
if(EXISTS ${DIR}/huge.cfg)
  message(FATAL_ERROR "packing 1e400 wrote a file")
endif()

# A device is no document: refused, and /dev/stdout stays what it is.
paramdoc(1 pack ${DIR}/shown.json /dev/null)
expect("${err}" "not a regular file" "packing onto a device")
