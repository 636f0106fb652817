# validate: every key a host's load would skip, with its path, and exit 1.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 validate ${DEMO}/demo-aes-gcm.cfg)
expect("${out}" "every key reads" "the demo's own document")

set(job ${DIR}/job.cfg)
paramdoc(0 convert ${DEMO}/demo-lzma.cfg ${job})
paramdoc(0 set --force ${job} pens.params[3].laserPower "\"75\"")
paramdoc(0 set --force ${job} board.galvoParam "{}")
paramdoc(1 validate ${job} --as pens=PenArray --as pens.params[3]=PenParam)
expect("${out}" "pens.params\\[3\\].laserPower: value of the wrong JSON type; found \"75\"; kept 60\n"
       "a wrong type inside the pen table")
expect("${out}" "pens.params\\[3\\].laserPower: value of the wrong JSON type" "a member path")
paramdoc(1 validate ${job})
expect("${out}" "board.galvoParam.[a-zA-Z]+: key missing; found nothing; kept " "the usual members")

paramdoc(2 validate ${job} --as pens=NoSuchRecord)
expect("${err}" "no record type NoSuchRecord" "an unknown type")
paramdoc(2 validate ${job} --as pens)
paramdoc(1 validate ${job} --as nothing.here=PenParam)
expect("${out}" "nothing.here: key missing" "a member that is not there")
