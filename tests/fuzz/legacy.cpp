// The legacy binary stream: bytes read as an object that registers a property
// of every kind (numbers of every width, raw blocks, 16-bit text into wchar_t
// and char16_t arrays, SeaWString, a nested object and an owned one), or
// driven through the stream's primitives in any order. The stream lives in an
// exactly sized heap block, so the sanitizers catch any read outside it; a
// good stream must never report a wrapped position.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include <param/legacy/seaWString.h>
#include <param/legacy/sriBase.h>
#include <param/legacy/sriFile.h>

#include "fuzzInput.h"

namespace {

using namespace param;

struct Inner : SriBase {
  int a = 0;
  SeaWString text;
  void AddProps() override {
    AddProp("a", &a);
    AddProp("text", &text);
  }
};

struct Everything : SriBase {
  bool b = false;
  char c = 0;
  unsigned char uc = 0;
  short s = 0;
  unsigned short us = 0;
  int i = 0;
  unsigned int ui = 0;
  long l = 0;
  unsigned long ul = 0;
  float f = 0;
  long long ll = 0;
  unsigned long long ull = 0;
  double d = 0;
  char raw[7] = {};
  wchar_t w[5] = {};
  char16_t u[5] = {};
  SeaWString text;
  Inner inner;
  int ownedA = 0;

  void AddProps() override {
    AddProp("b", &b), AddProp("c", &c), AddProp("uc", &uc), AddProp("s", &s);
    AddProp("us", &us), AddProp("i", &i), AddProp("ui", &ui), AddProp("l", &l);
    AddProp("ul", &ul), AddProp("f", &f), AddProp("ll", &ll), AddProp("ull", &ull);
    AddProp("d", &d), AddProp("raw", raw, sizeof raw), AddWchar("w", w, 5);
    AddWchar("u", u, 5), AddProp("text", &text), AddProp("inner", &inner);
    auto* owned = new SriBase;
    AddPropEx("owned", owned);
    owned->AddProp("a", &ownedA);
  }
};

// An exactly sized copy of `bytes`, behind a 256-byte header of `version`
// unless `raw`.
std::unique_ptr<char[]> block(std::string_view bytes, bool raw, std::int32_t version,
                              std::size_t& size) {
  const std::size_t header = raw ? 0 : SriFile::headerSize;
  size = header + bytes.size();
  std::unique_ptr<char[]> out(new char[size]);
  if (!raw) {
    std::memset(out.get(), 0, header);
    const std::uint32_t magic = SriFile::magic;
    for (int k = 0; k < 4; ++k) {
      out[k] = static_cast<char>(magic >> (8 * k));
      out[4 + k] = static_cast<char>(static_cast<std::uint32_t>(version) >> (8 * k));
    }
  }
  if (!bytes.empty()) std::memcpy(out.get() + header, bytes.data(), bytes.size());
  return out;
}

void checkPosition(const SriFile& f) {
  // Offsets moved by at most 255 steps of 32-bit ints from the body: a larger
  // value is a position that wrapped below the body start.
  if (f.IsOk() && f.GetPos() > (std::size_t{1} << 48)) {
    std::fprintf(stderr, "a good stream reports the wrapped position %zu\n", f.GetPos());
    std::abort();
  }
}

void primitives(SriFile& f, fuzz::Input& ops, std::size_t count) {
  char target[64];
  for (std::size_t k = 0; k < count; ++k) {
    const std::uint8_t op = ops.byte();
    const auto arg = ops.take<std::int32_t>();
    switch (op % 12) {
      case 0:
        f.SetPos(arg, true);
        break;
      case 1:
        f.SetPos(arg, false);
        break;
      case 2:
        f.RCurSeek(arg);
        break;
      case 3: {
        int value = 0;
        f.ReadInt(value);
        break;
      }
      case 4:
        f.ReadSize(target, static_cast<std::uint32_t>(arg) % sizeof target);
        break;
      case 5:
        f.ReadString();
        break;
      case 6:
        f.ReadWString();
        break;
      case 7:
        f.MoveToDataEnd();
        break;
      case 8:
        f.ReadSplit();
        break;
      case 9:
        f.ReadStart();
        break;
      case 10:
        f.CheckSize(static_cast<std::uint32_t>(arg) % 8192);
        break;
      default: {
        Everything e;
        e.Read(&f);
        break;
      }
    }
    checkPosition(f);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::quietLog();
  fuzz::Input input(data, size);
  const std::uint8_t mode = input.byte();
  const bool raw = (mode & 1) != 0;
  const bool driven = (mode & 2) != 0;
  static const std::int32_t versions[] = {2, 1, 0, 7, -3, 3};
  const std::int32_t version = versions[(mode >> 2) % std::size(versions)];
  const std::size_t opCount = driven ? input.pick(32) : 0;
  // Each operation takes five bytes from the front; the body is what follows.
  std::string_view rest = input.rest();
  const std::string_view opBytes = rest.substr(0, std::min(rest.size(), opCount * 5));
  rest.remove_prefix(opBytes.size());

  std::size_t n = 0;
  const std::unique_ptr<char[]> bytes = block(rest, raw, version, n);
  SriFile f;
  if (!f.readFromStream(bytes.get(), n)) return 0;
  if (driven) {
    fuzz::Input ops(reinterpret_cast<const std::uint8_t*>(opBytes.data()), opBytes.size());
    primitives(f, ops, opCount);
  } else {
    Everything e;
    e.Read(&f);
    checkPosition(f);
  }
  return 0;
}
