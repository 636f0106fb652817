# docs/records.md is what `paramdoc schema --markdown` prints: the format
# reference cannot drift from the key lists. After changing a key list, run
#   build/release/tools/paramdoc schema --markdown > docs/records.md
include(${CMAKE_CURRENT_LIST_DIR}/support.cmake)

paramdoc(0 schema --markdown OUTPUT ${DIR}/records.md)
file(READ ${DIR}/records.md generated)
file(READ ${CMAKE_CURRENT_LIST_DIR}/../../docs/records.md committed)
if(NOT generated STREQUAL committed)
  message(FATAL_ERROR "docs/records.md no longer matches the key lists; regenerate it with\n"
                      "  paramdoc schema --markdown > docs/records.md")
endif()
expect("${generated}" "\n## PenParam\n" "a table per record")
expect("${generated}" "\n\\| `wobble` \\| \\[WobbleParam\\]\\(#wobbleparam\\) \\|" "nested records link")
