#include <utils/algorithm/aes.h>

#include <climits>
#include <memory>

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <utils/algorithm/codec.h>

namespace utils::algorithm::aes {

namespace {

constexpr std::size_t kBlock = 16;
constexpr std::size_t kIvLength = 16;     // CBC, CTR, CFB
constexpr std::size_t kNonceLength = 12;  // GCM
constexpr std::size_t kTagLength = 16;    // GCM

// EVP takes int lengths; longer buffers go through in pieces of this size
// (a multiple of the block size, so CBC pieces need no carry-over).
constexpr std::size_t kPiece = std::size_t(1) << 30;

struct CtxDeleter {
  void operator()(EVP_CIPHER_CTX* ctx) const { EVP_CIPHER_CTX_free(ctx); }
};
using Ctx = std::unique_ptr<EVP_CIPHER_CTX, CtxDeleter>;

const EVP_CIPHER* cipherOf(AESAlgorithm algorithm) {
  switch (algorithm) {
    case AESAlgorithm::CBC:
      return EVP_aes_128_cbc();
    case AESAlgorithm::CTR:
      return EVP_aes_128_ctr();
    case AESAlgorithm::GCM:
      return EVP_aes_128_gcm();
    case AESAlgorithm::CFB:
      return EVP_aes_128_cfb128();
  }
  return nullptr;
}

std::size_t ivLengthOf(AESAlgorithm algorithm) {
  return algorithm == AESAlgorithm::GCM ? kNonceLength : kIvLength;
}

std::size_t tagLengthOf(AESAlgorithm algorithm) {
  return algorithm == AESAlgorithm::GCM ? kTagLength : 0;
}

// Sets up `ctx` for `cipher` with `key` and `iv` (GCM: a 12-byte nonce).
bool start(EVP_CIPHER_CTX* ctx, const EVP_CIPHER* cipher, bool encrypting, const std::uint8_t* key,
           const std::uint8_t* iv, AESAlgorithm algorithm) {
  if (EVP_CipherInit_ex(ctx, cipher, nullptr, nullptr, nullptr, encrypting ? 1 : 0) != 1) {
    return false;
  }
  if (algorithm == AESAlgorithm::GCM &&
      EVP_CIPHER_CTX_ctrl(ctx, EVP_CTRL_GCM_SET_IVLEN, static_cast<int>(kNonceLength), nullptr) !=
          1) {
    return false;
  }
  return EVP_CipherInit_ex(ctx, nullptr, nullptr, key, iv, -1) == 1;
}

// Runs `count` bytes through the cipher; `written` gets the bytes produced.
bool update(EVP_CIPHER_CTX* ctx, const std::uint8_t* in, std::size_t count, std::uint8_t* out,
            std::size_t& written) {
  written = 0;
  while (count != 0) {
    const std::size_t piece = count < kPiece ? count : kPiece;
    int produced = 0;
    if (EVP_CipherUpdate(ctx, out + written, &produced, in, static_cast<int>(piece)) != 1) {
      return false;
    }
    written += static_cast<std::size_t>(produced);
    in += piece;
    count -= piece;
  }
  return true;
}

bool validKey(const std::uint8_t* key, std::size_t length) {
  return key != nullptr && length == aes::keyLength;
}

SdkError encryptInto(AESAlgorithm algorithm, const std::uint8_t* in, std::size_t count,
                     const std::uint8_t* key, std::string& out) {
  const EVP_CIPHER* cipher = cipherOf(algorithm);
  if (cipher == nullptr) return errc::aesBadInput;
  const std::size_t ivLength = ivLengthOf(algorithm);
  const std::size_t tagLength = tagLengthOf(algorithm);
  // CBC always adds 1 to 16 bytes of padding; the other modes none.
  const std::size_t body = algorithm == AESAlgorithm::CBC ? (count / kBlock + 1) * kBlock : count;
  out.assign(ivLength + body + tagLength, '\0');
  auto* iv = reinterpret_cast<std::uint8_t*>(out.data());
  std::uint8_t* cipherText = iv + ivLength;

  if (RAND_bytes(iv, static_cast<int>(ivLength)) != 1) return errc::codecFailure;
  Ctx ctx(EVP_CIPHER_CTX_new());
  if (!ctx || !start(ctx.get(), cipher, true, key, iv, algorithm)) return errc::codecFailure;
  std::size_t written = 0;
  if (!update(ctx.get(), in, count, cipherText, written)) return errc::codecFailure;
  int last = 0;
  if (EVP_CipherFinal_ex(ctx.get(), cipherText + written, &last) != 1) return errc::codecFailure;
  written += static_cast<std::size_t>(last);
  if (written != body) return errc::codecFailure;
  if (algorithm == AESAlgorithm::GCM &&
      EVP_CIPHER_CTX_ctrl(ctx.get(), EVP_CTRL_GCM_GET_TAG, static_cast<int>(kTagLength),
                          cipherText + body) != 1) {
    return errc::codecFailure;
  }
  return errc::ok;
}

}  // namespace

SdkError checkPayloadSize(AESAlgorithm algorithm, std::size_t count) {
  if (cipherOf(algorithm) == nullptr) return errc::aesBadInput;
  const std::size_t ivLength = ivLengthOf(algorithm);
  const std::size_t tagLength = tagLengthOf(algorithm);
  if (count < ivLength + tagLength) return errc::aesBadInput;
  const std::size_t body = count - ivLength - tagLength;
  if (algorithm == AESAlgorithm::CBC && (body == 0 || body % kBlock != 0)) {
    return errc::aesBadInput;
  }
  // CBC plaintext is body - 16 to body - 1 bytes; the exact size is checked
  // again once the padding is known.
  const std::size_t smallest = algorithm == AESAlgorithm::CBC ? body - kBlock : body;
  return smallest > decodeLimit() ? errc::payloadTooLarge : errc::ok;
}

namespace {

SdkError decryptInto(AESAlgorithm algorithm, const std::uint8_t* in, std::size_t count,
                     const std::uint8_t* key, std::string& out) {
  if (in == nullptr) return errc::aesBadInput;
  if (SdkError e = checkPayloadSize(algorithm, count)) return e;
  const EVP_CIPHER* cipher = cipherOf(algorithm);
  const std::size_t ivLength = ivLengthOf(algorithm);
  const std::size_t tagLength = tagLengthOf(algorithm);
  const std::size_t body = count - ivLength - tagLength;

  const std::uint8_t* iv = in;
  const std::uint8_t* cipherText = in + ivLength;
  Ctx ctx(EVP_CIPHER_CTX_new());
  if (!ctx || !start(ctx.get(), cipher, false, key, iv, algorithm)) return errc::codecFailure;
  if (algorithm == AESAlgorithm::GCM) {
    // EVP takes the expected tag through a non-const pointer but only reads it.
    void* tag = const_cast<std::uint8_t*>(cipherText + body);
    if (EVP_CIPHER_CTX_ctrl(ctx.get(), EVP_CTRL_GCM_SET_TAG, static_cast<int>(kTagLength), tag) !=
        1) {
      return errc::codecFailure;
    }
  }
  // CBC decryption may write up to one block more than it finally keeps.
  out.assign(body + (algorithm == AESAlgorithm::CBC ? kBlock : 0), '\0');
  auto* plain = reinterpret_cast<std::uint8_t*>(out.data());
  std::size_t written = 0;
  if (!update(ctx.get(), cipherText, body, plain, written)) return errc::codecFailure;
  int last = 0;
  if (EVP_CipherFinal_ex(ctx.get(), plain + written, &last) != 1) {
    if (algorithm == AESAlgorithm::GCM) return errc::aesAuthFailed;
    if (algorithm == AESAlgorithm::CBC) return errc::aesBadPadding;
    return errc::codecFailure;
  }
  written += static_cast<std::size_t>(last);
  if (written > decodeLimit()) return errc::payloadTooLarge;
  out.resize(written);
  return errc::ok;
}

}  // namespace

SdkError encrypt(AESAlgorithm algorithm, const void* bytes, std::size_t count,
                 const std::uint8_t* key, std::size_t keyLength, std::string& out) {
  static const std::uint8_t nothing = 0;
  std::string result;
  SdkError e = errc::aesBadInput;
  if (validKey(key, keyLength) && (bytes != nullptr || count == 0)) {
    const auto* in = bytes ? static_cast<const std::uint8_t*>(bytes) : &nothing;
    e = encryptInto(algorithm, in, count, key, result);
  }
  if (e != errc::ok) result = std::string();
  out = std::move(result);
  return e;
}

SdkError decrypt(AESAlgorithm algorithm, const void* bytes, std::size_t count,
                 const std::uint8_t* key, std::size_t keyLength, std::string& out) {
  std::string result;
  SdkError e = errc::aesBadInput;
  if (validKey(key, keyLength)) {
    e = decryptInto(algorithm, static_cast<const std::uint8_t*>(bytes), count, key, result);
  }
  // Nothing of a payload that failed (a GCM payload whose tag did not match
  // included) is handed out or left readable in freed memory.
  if (e != errc::ok) {
    OPENSSL_cleanse(result.data(), result.size());
    result = std::string();
  }
  out = std::move(result);
  return e;
}

}  // namespace utils::algorithm::aes
