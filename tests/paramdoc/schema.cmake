# schema: JSON Schema generated from the key lists, for one type or all.
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 schema --indent 0 PenParam)
expect("${out}" "^\\{\"\\$schema\":\"https://json-schema.org/draft/2020-12/schema\",\"\\$ref\":\"#/\\$defs/PenParam\""
       "the schema of one type")
expect("${out}" "\"laserPower\":\\{\"type\":\"integer\",\"minimum\":-2147483648,\"maximum\":2147483647,"
       "an integer range")
expect("${out}" "\"wobble\":\\{\"\\$ref\":\"#/\\$defs/WobbleParam\"" "a nested record")
paramdoc(0 schema --list)
expect("${out}" "\nLmcParam\n" "the list of types")
expect("${out}" "\nPenArray\n" "record arrays are types too")
paramdoc(2 schema NoSuchRecord)
expect("${err}" "no record type NoSuchRecord" "an unknown type")
