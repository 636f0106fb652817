#include <cstdint>
#include <tuple>

#include <sys/stat.h>
#include <unistd.h>

#include <utils/mmfile.h>
#include <utils/path.h>

#include "support/testSupport.h"

namespace errc = utils::errc;
using namespace testing_support;
using utils::ro_mmfile;
using utils::wo_mmfile;

namespace {
std::string text(const ro_mmfile& map) {
  return map.size() ? std::string(reinterpret_cast<const char*>(map.data()), map.size()) : "";
}
}  // namespace

TEST(MmFile, ReadsBackWhatWasWrittenAndRefusesWhatCannotBeMapped) {
  TempDir dir;
  const std::string bytes = randomBytes(3 * 4096 + 123, 1), f = dir / "f";
  {
    wo_mmfile out(f, bytes.size());
    EXPECT_EQ(out.write(0, bytes.data(), 5000), 0u);
    EXPECT_EQ(out.write(5000, bytes.data() + 5000, bytes.size() - 5000), 0u);
    EXPECT_EQ(out.flush(), 0u);
  }  // the destructor closes
  EXPECT_EQ(readFile(f), bytes);
  // Offset and size of each part (with and without hints); the last three reach
  // past the end.
  const std::size_t n = bytes.size(), all = ro_mmfile::all;
  const std::size_t parts[][2] = {{0, all},   {1, 4096}, {4095, 2},  {4096, 9},    {4097, all},
                                  {n - 1, 1}, {n, all},  {n + 1, 0}, {n - 10, 11}, {1, n}};
  for (std::size_t i = 0; i < 10; ++i) {
    const auto [offset, size] = parts[i];
    const ro_mmfile part(f, size, offset, i % 2 ? 0 : utils::mmflags::sequential);
    EXPECT_EQ(
        std::tuple(part.is_open(), part.error(), text(part)),
        std::tuple(i < 7, i < 7 ? 0u : errc::fileIoError, i < 7 ? bytes.substr(offset, size) : ""))
        << offset;
  }
  // An empty file maps as open with no bytes; a missing file, a directory, a
  // FIFO and an unreadable file do not map.
  wo_mmfile empty(dir / "empty", 0);
  EXPECT_EQ(empty.write(0, "x", 0), 0u);
  EXPECT_EQ(empty.write(0, "x", 1), errc::writeOutOfBounds);
  const ro_mmfile read(dir / "empty");
  EXPECT_TRUE(read.is_open() && read.size() == 0 && read.data() != nullptr);
  ASSERT_EQ(mkfifo((dir / "fifo").c_str(), 0600), 0);
  writeFile(dir / "locked", "secret");
  chmod((dir / "locked").c_str(), 0);
  for (const char* name : {"missing", "", "fifo", "locked"}) {      // "" is the directory
    if (name == std::string("locked") && geteuid() == 0) continue;  // root reads anything
    EXPECT_EQ(ro_mmfile(dir / name).error(), errc::fileIoError) << name;
  }
  EXPECT_EQ(wo_mmfile(dir / "no/dir", 10).error(), errc::fileIoError);
}

TEST(MmFile, WritesStayInBoundsMovesTransferOwnershipAndRenameReplaces) {
  TempDir dir;
  writeFile(dir / "f", std::string(100, 'o'));
  wo_mmfile out(dir / "f", 16);  // truncates the old content
  EXPECT_EQ(out.write(10, "abcdef", 6), 0u);
  for (auto [offset, count] :
       {std::pair<std::size_t, std::size_t>(10, 7), {17, 0}, {SIZE_MAX, 2}, {2, SIZE_MAX}})
    EXPECT_EQ(out.write(offset, "abcdefg", count), errc::writeOutOfBounds) << offset;
  wo_mmfile moved(std::move(out));
  EXPECT_EQ(out.write(0, "a", 1), errc::fileIoError);  // NOLINT: moved-from is not open
  EXPECT_EQ(moved.write(0, "XY", 2), 0u);
  out = std::move(moved);
  out.close();
  out.close();  // twice is harmless
  EXPECT_EQ(out.flush(), errc::fileIoError);
  EXPECT_EQ(readFile(dir / "f"), "XY" + std::string(8, '\0') + "abcdef");
  ro_mmfile a(dir / "f"), b(dir / "f", 1, 3);
  b = std::move(a);                                  // b's own mapping is released
  EXPECT_TRUE(!a.is_open() && a.data() == nullptr);  // NOLINT
  EXPECT_EQ(text(ro_mmfile(std::move(b))).substr(0, 2), "XY");

  EXPECT_EQ(utils::path(dir / "f").replaceFilename("g.tmp"), utils::path(dir / "g.tmp"));
  writeFile(dir / "new", "new content");
  EXPECT_EQ(utils::path::rename(dir / "new", dir / "f"), 0u);
  EXPECT_EQ(readFile(dir / "f"), "new content");
  EXPECT_EQ(utils::path::rename(dir / "new", dir / "f"), errc::fileIoError);
}
