# set: one value changed, the rest of the document and its encoding kept.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

set(job ${DIR}/job.cfg)
paramdoc(0 convert ${DEMO}/demo-lzma.cfg ${job} --aes ctr --key 1)
paramdoc(0 info ${job})
string(REGEX MATCH "header word +0x[0-9a-f]+" header "${out}")
paramdoc(0 show --indent 0 ${job})
string(REPLACE "\"laserPower\":75," "\"laserPower\":80," expected "${out}")

paramdoc(0 set ${job} pens.params[3].laserPower 80)
paramdoc(0 info ${job})
expect("${out}" "${header}\n" "the header word")
paramdoc(0 show --indent 0 ${job})
if(NOT out STREQUAL expected)
  message(FATAL_ERROR "set changed more than one value:\n${expected}\n${out}")
endif()

# Options given replace the header's choices; what they do not name is kept.
paramdoc(0 set ${job} pens.params[3].markCount 4 --aes gcm)
paramdoc(0 info ${job})
expect("${out}" "encoding +aes \\(gcm\\), key 1\n" "--aes keeps the key")
paramdoc(2 set ${job} pens.params[3].markCount 5 --key 2 --encoding lzma)

# Another JSON type only with --force; a new last member; strings in quotes.
paramdoc(1 set ${job} pens.params[3].laserPower "\"high\"")
expect("${err}" "pens.params\\[3\\].laserPower holds a number, not a string" "a type change")
paramdoc(0 set ${job} pens.params[3].penName "\"cut 2\"")
paramdoc(0 set ${job} pens.params[3].note "{\"by\": \"service\"}")
paramdoc(0 get --raw ${job} pens.params[3].penName)
expect("${out}" "^cut 2\n$" "a string")
paramdoc(0 get --indent 0 ${job} pens.params[3].note)
expect("${out}" "^{\"by\":\"service\"}\n$" "a new member")
paramdoc(0 set --force ${job} pens.params[3].laserPower "\"high\"")

# Elsewhere, and standard input to standard output.
paramdoc(0 set ${job} pens.params[0].laserPower 1 -o ${DIR}/other.cfg)
paramdoc(0 get ${job} pens.params[0].laserPower)
expect("${out}" "^60\n$" "-o leaves the input alone")
paramdoc(0 set - pens.params[0].laserPower 2 INPUT ${job} OUTPUT ${DIR}/piped.cfg)
paramdoc(0 get ${DIR}/piped.cfg pens.params[0].laserPower)
expect("${out}" "^2\n$" "a piped set")

paramdoc(2 set ${job} __SERIALIZE__INFORMATION__.ver "\"9.9.9.9\"")
paramdoc(2 set ${job} pens.params[0].penName "not json")
expect("${err}" "a string needs its quotes" "a value that is no JSON")
paramdoc(1 set ${job} pens.params[99].laserPower 1)
expect("${err}" "pens.params has 16 elements, no \\[99\\]" "a missing element")
paramdoc(1 set ${DIR} a 1)
expect("${err}" "Is a directory" "a directory")
