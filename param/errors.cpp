#include <param/errors.h>

#include <string>

#include <utils/fileError.h>

namespace param {

namespace {

const char* plainText(SdkError code) {
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
    case u::diskFull:
      return "no space left for the file";
    case u::notRegularFile:
      return "not a regular file (a directory, device or FIFO)";
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

bool isFileCode(SdkError code) {
  namespace u = utils::errc;
  return code == errc::mapFailed || code == u::fileIoError || code == u::diskFull ||
         code == u::notRegularFile || code == u::fileTooShort || code == u::writeOutOfBounds;
}

}  // namespace

const char* errorText(SdkError code) {
  const utils::FileFailure& cause = utils::lastFileFailure();
  if (!isFileCode(code) || cause.code == 0) return plainText(code);
  thread_local std::string text;
  text = plainText(code);
  text += ": ";
  text += cause.describe();
  return text.c_str();
}

}  // namespace param
