#pragma once

#include <utils/error.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

// The codes this library produces itself. Missing keys, wrong JSON types, parse
// and codec failures come from the platform layer (utils::errc) unchanged.
namespace errc {
inline constexpr SdkError unknownEncodingOnWrite = 0x210001;  // writeToFile: encoding above 3
inline constexpr SdkError badVersion = 0x210004;       // information block "ver" is no version
inline constexpr SdkError outOfMemory = 0x220001;      // a manager could not be created
inline constexpr SdkError notLoaded = 0x220002;        // a manager used before param::load
inline constexpr SdkError badArcParamType = 0x230002;  // arc "paramType" other than 1 or 2
inline constexpr SdkError mapFailed = 0x230004;        // a file could not be mapped
// An unknown encoding in a file header, a bad Bezier degree or point count, an
// unknown colour mode.
inline constexpr SdkError badFormat = 0x270001;
}  // namespace errc

// A short English description of any code this library or the platform layer
// returns ("bad base64 payload"), for messages and logs; "unknown error" else.
// For a file code, when this thread's most recent file operation failed, the
// text names the file and the operating system's reason: "file could not be
// opened or mapped: open /data/job.cfg: permission denied". The text stays
// valid until the next call of errorText on the same thread.
PARAM_API const char* errorText(SdkError code);

}  // namespace param
