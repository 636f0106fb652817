#pragma once

#include <cstdint>

namespace param {

// The four 16-byte keys of the document codecs (XOR and AES), by key index 0-3.
// They are build constants: a file reads back only with the table it was
// written with. CMake's PARAM_KEY_TABLE_FILE replaces them.
const std::uint8_t* documentKey(unsigned index);

}  // namespace param
