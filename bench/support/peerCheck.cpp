#include "peerCheck.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "contenders.h"
#include "documentFile.h"
#include "libraryJob.h"
#include "peers.h"

namespace peers {
namespace {

std::string scratch;  // the check's file, removed on failure too

[[noreturn]] void fail(const std::string& what) {
  std::remove(scratch.c_str());
  std::fprintf(stderr, "peer check failed: %s\n", what.c_str());
  std::exit(1);
}

// Where two texts first differ, with some context of each.
std::string firstDifference(const std::string& a, const std::string& b) {
  const auto at = static_cast<std::size_t>(
      std::mismatch(a.begin(),
                    a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size())),
                    b.begin())
          .first -
      a.begin());
  const std::size_t from = at < 40 ? 0 : at - 40;
  return "at byte " + std::to_string(at) + " of " + std::to_string(a.size()) + "/" +
         std::to_string(b.size()) + ":\n  library: ..." + a.substr(from, 80) + "\n  peer:    ..." +
         b.substr(from, 80);
}

bool sameInfo(const Info& a, const Info& b) {
  return a.ver == b.ver && a.os == b.os && a.arch == b.arch && a.extension == b.extension;
}

}  // namespace

void checkPeers(const Job& sample, const std::string& folder) {
  scratch = folder + "/param-peers-check-" + std::to_string(::getpid()) + ".cfg";
  const std::string& file = scratch;
  std::string libraryText;
  if (!libraryWrite(sample, file, encodingOption(0)) || !readDocument(file, libraryText))
    fail("the library's base64 document " + file + " cannot be written or read back by hand");
  const std::pair<const char*, std::string> written[] = {{"nlohmann-json", nlohmannText(sample)},
                                                         {"RapidJSON", rapidjsonText(sample)}};
  for (const auto& [who, text] : written) {
    if (text != libraryText)
      fail(std::string(who) + " writes other text than the library " +
           firstDifference(libraryText, text));
  }

  const std::string expected = librarySavedText(sample);
  for (int encoding = 0; encoding < 4; ++encoding) {
    const std::string where = std::string(" (") + kEncodingNames[encoding] + ")";
    for (const Contender& c : contenders()) {
      if (!libraryWrite(sample, file, encodingOption(encoding)))
        fail("the library cannot write " + file + where);
      Job loaded;
      if (!c.read(file, loaded))
        fail(std::string(c.title) + " cannot read the library's file" + where);
      const std::string got = librarySavedText(loaded);
      if (got != expected || !sameInfo(loaded.info, sample.info))
        fail(std::string(c.title) + " loads other values than were saved" + where + " " +
             firstDifference(expected, got));

      if (c.write == nullptr) continue;
      if (!c.write(sample, file, encodingOption(encoding)))
        fail(std::string(c.title) + " cannot write " + file + where);
      Job back;
      if (!libraryRead(file, back))
        fail("the library cannot read what " + std::string(c.title) + " wrote" + where);
      const std::string again = librarySavedText(back);
      if (again != expected)
        fail("the library reads other values from what " + std::string(c.title) + " wrote" + where +
             " " + firstDifference(expected, again));
    }
  }
  std::remove(file.c_str());
}

}  // namespace peers
