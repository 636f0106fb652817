#include <param/errors.h>

namespace param {

const char* errorText(SdkError code) {
  namespace u = utils::errc;
  switch (code) {
    case 0:
      return "success";
    case u::keyMissing:
      return "key missing";
    case u::wrongType:
      return "value of the wrong JSON type";
    case u::outOfRange:
      return "number out of range (of the field, or of a double)";
    case u::indexOutOfRange:
      return "array index out of range";
    case u::parseError:
      return "text is not JSON";
    case u::badBase64:
      return "bad base64 payload";
    case u::corruptLzma:
      return "corrupt or truncated LZMA payload";
    case u::aesAuthFailed:
      return "AES authentication failed (wrong key or damaged payload)";
    case u::aesBadPadding:
      return "AES padding is wrong (wrong key or damaged payload)";
    case u::aesBadInput:
      return "AES payload too short or malformed";
    case u::codecFailure:
      return "codec failure";
    case u::payloadTooLarge:
      return "payload larger than the decode limit";
    case u::fileTooShort:
      return "file shorter than its header";
    case u::fileIoError:
      return "file input/output error";
    case u::writeOutOfBounds:
      return "write past the end of a mapping";
    case errc::unknownEncodingOnWrite:
      return "unknown encoding requested for writing";
    case errc::badVersion:
      return "information block holds no valid version";
    case errc::outOfMemory:
      return "out of memory";
    case errc::notLoaded:
      return "library not initialised: call param::load first";
    case errc::badArcParamType:
      return "unknown arc parameter type";
    case errc::mapFailed:
      return "file could not be opened or mapped";
    case errc::badFormat:
      return "unknown encoding, degree, point count or colour mode";
    default:
      return "unknown error";
  }
}

}  // namespace param
