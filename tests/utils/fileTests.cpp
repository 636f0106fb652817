#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include <utils/mmfile.h>
#include <utils/path.h>

#include "support/testSupport.h"

namespace errc = utils::errc;
using testing_support::readFile;
using testing_support::writeFile;
using utils::ro_mmfile;
using utils::wo_mmfile;

namespace {
std::string text(const ro_mmfile& map) {
  return std::string(reinterpret_cast<const char*>(map.data()), map.size());
}
}  // namespace

TEST(MmFile, ReadsBackWhatWasWrittenAtAnyOffset) {
  testing_support::TempDir dir;
  const std::string bytes = testing_support::randomBytes(3 * 4096 + 123, 1), f = dir / "f";
  {
    wo_mmfile out(f, bytes.size());
    EXPECT_EQ(out.write(0, bytes.data(), 5000), 0u);
    EXPECT_EQ(out.write(5000, bytes.data() + 5000, bytes.size() - 5000), 0u);
    EXPECT_EQ(out.flush(), 0u);
  }  // the destructor closes
  EXPECT_EQ(readFile(f), bytes);
  EXPECT_EQ(text(ro_mmfile(f)), bytes);
  const std::size_t n = bytes.size(), all = ro_mmfile::all;
  const std::size_t fits[][2] = {{1, 4096},   {4095, 2},  {4096, 9},
                                 {4097, all}, {n - 1, 1}, {n, all}};
  for (const auto& [offset, size] : fits) {
    const ro_mmfile part(f, size, offset, 0);
    ASSERT_TRUE(part.is_open()) << offset;
    EXPECT_EQ(text(part), bytes.substr(offset, size)) << offset;
  }
  const std::size_t beyond[][2] = {{n + 1, 0}, {n - 10, 11}, {1, n}};
  for (const auto& [offset, size] : beyond) {
    EXPECT_EQ(ro_mmfile(f, size, offset).error(), errc::fileIoError) << offset;
  }
}

TEST(MmFile, EmptyMissingAndUnreadableFiles) {
  testing_support::TempDir dir;
  wo_mmfile empty(dir / "empty", 0);
  EXPECT_EQ(empty.write(0, "x", 0), 0u);
  EXPECT_EQ(empty.write(0, "x", 1), errc::writeOutOfBounds);
  empty.close();
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

TEST(MmFile, WritesStayInBoundsAndMovesTransferOwnership) {
  testing_support::TempDir dir;
  writeFile(dir / "f", std::string(100, 'o'));
  wo_mmfile out(dir / "f", 16);  // truncates the old content
  EXPECT_EQ(out.write(10, "abcdef", 6), 0u);
  const std::size_t bad[][2] = {{10, 7}, {17, 0}, {SIZE_MAX, 2}, {2, SIZE_MAX}};
  for (const auto& [offset, count] : bad) {
    EXPECT_EQ(out.write(offset, "abcdefg", count), errc::writeOutOfBounds) << offset;
  }
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
  const ro_mmfile c(std::move(b));
  EXPECT_EQ(text(c).substr(0, 2), "XY");
}

TEST(Path, ExtensionFilenameAndRename) {
  EXPECT_EQ(utils::path("a/b/params.cfg").getExtensionA(), ".cfg");
  EXPECT_EQ(utils::path("a/b/params").getExtensionA(), "");
  EXPECT_EQ(utils::path("a/b/params.cfg").replaceFilename("x.tmp"), utils::path("a/b/x.tmp"));
  testing_support::TempDir dir;
  writeFile(dir / "new", "new content");
  writeFile(dir / "old", "old");
  EXPECT_EQ(utils::path::rename(dir / "new", dir / "old"), 0u);
  EXPECT_EQ(readFile(dir / "old"), "new content");
  EXPECT_EQ(utils::path::rename(dir / "new", dir / "old"), errc::fileIoError);
}
