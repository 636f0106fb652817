# Drives paramdoc over the demo's files: check, show, pack, convert, and the
# refusal of a broken file.
function(paramdoc expect_ok)
  execute_process(COMMAND ${PARAMDOC} ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  if(expect_ok AND NOT rc EQUAL 0)
    message(FATAL_ERROR "paramdoc ${ARGN} failed (${rc}): ${out}${err}")
  elseif(NOT expect_ok AND rc EQUAL 0)
    message(FATAL_ERROR "paramdoc ${ARGN} accepted what it must refuse: ${out}")
  endif()
  set(out "${out}${err}" PARENT_SCOPE)
endfunction()

file(GLOB documents ${DIR}/demo-*.cfg)
paramdoc(TRUE check ${documents})

paramdoc(TRUE show --indent 0 ${DIR}/demo-lzma.cfg)
set(original "${out}")
file(WRITE ${DIR}/shown.json "${original}")
paramdoc(TRUE pack ${DIR}/shown.json ${DIR}/packed.cfg --encoding aes --aes cbc --key 3)
paramdoc(TRUE convert ${DIR}/packed.cfg ${DIR}/converted.cfg --encoding base64)
paramdoc(TRUE show --indent 0 ${DIR}/converted.cfg)
if(NOT out STREQUAL original)
  message(FATAL_ERROR "pack and convert changed the document:\n${original}\n${out}")
endif()

file(WRITE ${DIR}/broken.cfg "short")
paramdoc(FALSE check ${DIR}/broken.cfg)
if(NOT out MATCHES "file shorter than its header")
  message(FATAL_ERROR "unexpected message for a broken file: ${out}")
endif()
paramdoc(TRUE info ${DIR}/demo-aes-gcm.cfg)
if(NOT out MATCHES "encoding +aes \\(gcm\\), key 2")
  message(FATAL_ERROR "info does not describe the header: ${out}")
endif()

# A number no double holds is refused when packing, and no file is written: the
# library never writes a document it cannot read back.
file(WRITE ${DIR}/huge.json "{\"runSpeed\": 1e400}")
file(REMOVE ${DIR}/huge.cfg)
paramdoc(FALSE pack ${DIR}/huge.json ${DIR}/huge.cfg)
if(NOT out MATCHES "number out of range" OR EXISTS ${DIR}/huge.cfg)
  message(FATAL_ERROR "unexpected result of packing 1e400: ${out}")
endif()
