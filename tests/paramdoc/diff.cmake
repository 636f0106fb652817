# diff: documents compared member by member whatever their encodings.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 diff ${DEMO}/demo-lzma.cfg ${DEMO}/demo-aes-gcm.cfg)
if(NOT out STREQUAL "")
  message(FATAL_ERROR "equal documents printed differences:\n${out}")
endif()

# One pen's power changed: exactly one line.
paramdoc(0 convert ${DEMO}/demo-lzma.cfg ${DIR}/job.cfg --aes cfb --key 2)
paramdoc(0 set ${DIR}/job.cfg pens.params[3].laserPower 80)
paramdoc(1 diff ${DEMO}/demo-lzma.cfg ${DIR}/job.cfg)
if(NOT out STREQUAL "pens.params[3].laserPower: 75 -> 80\n")
  message(FATAL_ERROR "expected one line for one changed value:\n${out}")
endif()
paramdoc(1 diff --json - ${DIR}/job.cfg INPUT ${DEMO}/demo-xor.cfg)
string(JSON equal GET "${out}" equal)
string(JSON count LENGTH "${out}" differences)
string(JSON path GET "${out}" differences 0 path)
string(JSON key GET "${out}" differences 0 keys 2)
string(JSON from GET "${out}" differences 0 from)
string(JSON to GET "${out}" differences 0 to)
if(NOT (equal STREQUAL "OFF" AND count EQUAL 1 AND path STREQUAL "pens.params[3].laserPower"
        AND key EQUAL 3 AND from EQUAL 75 AND to EQUAL 80))
  message(FATAL_ERROR "unexpected --json output:\n${out}")
endif()

# Added and removed members and elements; names that need escapes.
file(COPY_FILE ${DIR}/job.cfg ${DIR}/edited.cfg)
paramdoc(0 set ${DIR}/edited.cfg "odd\\.key" "{\"a\": [1, 2.5]}")
paramdoc(0 set ${DIR}/edited.cfg board.axParArray "[]")
paramdoc(1 diff ${DIR}/job.cfg ${DIR}/edited.cfg)
expect("${out}" "^board.axParArray\\[0\\]: removed {[^\n]*}\nboard.axParArray\\[1\\]: removed {"
       "removed elements")
expect("${out}" "\nodd\\\\.key: added {\"a\":\\[1,2.5\\]}\n$" "an added member")
paramdoc(1 diff ${DIR}/edited.cfg ${DIR}/job.cfg)
expect("${out}" "\nodd\\\\.key: removed {" "the same, the other way")

# The information block only with --info.
paramdoc(0 show ${DEMO}/demo-lzma.cfg)
file(WRITE ${DIR}/shown.json "${out}")
paramdoc(0 pack ${DIR}/shown.json ${DIR}/a.cfg)
paramdoc(0 pack ${DIR}/shown.json ${DIR}/a.dat)
paramdoc(0 diff ${DIR}/a.cfg ${DIR}/a.dat)
paramdoc(1 diff --info ${DIR}/a.cfg ${DIR}/a.dat)
if(NOT out STREQUAL "__SERIALIZE__INFORMATION__.extension: \".cfg\" -> \".dat\"\n")
  message(FATAL_ERROR "unexpected --info output:\n${out}")
endif()

paramdoc(2 diff - - INPUT ${DIR}/a.cfg)
paramdoc(1 diff ${DIR}/a.cfg ${DIR}/absent.cfg)
expect("${err}" "absent.cfg: No such file or directory" "a missing file")
