#pragma once

// A document file read and written by hand, as a host using another JSON
// library would: the 8-byte option word, then the JSON text encoded through the
// same codec functions the library uses (utils::algorithm) with the same keys.
// Writing is a plain POSIX write of a temporary file, fsync, rename over the
// target and fsync of the folder.

#include <string>
#include <string_view>

#include <param/seri/seriOption.h>

namespace peers {

// The decoded JSON text of `file`; false when it cannot be read or decoded.
bool readDocument(const std::string& file, std::string& text);

// Encodes `text` as `option` says and replaces `file` with it durably.
bool writeDocument(const std::string& file, param::SeriOption option, std::string_view text);

}  // namespace peers
