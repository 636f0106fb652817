// Writing documents under hostile conditions: odd names, full disks, read-only
// places, special files, links, concurrent writers and killed writers. Each
// case checks the promise that matters: the target holds a whole document, old
// or new, and no temporary file is left behind.

#include <gtest/gtest.h>

#include <clocale>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <functional>
#include <random>
#include <set>
#include <string>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <utils/fileError.h>

#include <param/errors.h>
#include <param/params/penArray.h>
#include <param/seri/seriDocument.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::readFile;
using testing_support::TempDir;
using testing_support::writeFile;
using utils::JsonLoad;
using utils::JsonSave;
namespace fs = std::filesystem;
namespace uerr = utils::errc;

namespace {

const SeriOption kEncodings[] = {SeriOption(SeriOption::Base64), SeriOption(SeriOption::Xor, 0, 1),
                                 SeriOption(SeriOption::Lzma), SeriOption(SeriOption::Aes, 0, 2)};

// A document of `count` pens, each with laser power `power`; the pen names
// carry noise so that LZMA cannot shrink the document to nothing.
SeriDocument penDocument(std::size_t count, int power) {
  PenArray pens(count);
  std::mt19937 gen(static_cast<unsigned>(power));
  for (std::size_t i = 0; i < count; ++i) {
    pens[i].laserPower = power;
    std::snprintf(pens[i].penName, sizeof pens[i].penName, "%08x", static_cast<unsigned>(gen()));
  }
  SeriDocument doc(JsonSave::instance, "");
  SeriObject table(JsonSave::instance);
  EXPECT_EQ(pens.save(table), 0u);
  EXPECT_EQ(doc.setSeriObject("pens", std::move(table)), 0u);
  return doc;
}

// The power of the first pen in the document at `file`, or -1 when it does
// not read as a whole document.
int powerIn(const fs::path& file) {
  SeriDocument doc(JsonLoad::instance);
  if (doc.readFromFile(file) != 0) return -1;
  SeriObject table(JsonLoad::instance);
  PenArray pens(1);
  if (doc.getSeriObject("pens", table) != 0 || pens.load(table) != 0) return -1;
  return pens[0].laserPower;
}

std::set<std::string> names(const fs::path& dir) {
  std::set<std::string> out;
  for (const auto& entry : fs::directory_iterator(dir))
    out.insert(entry.path().filename().string());
  return out;
}

// Runs `body` in a child process: its return value is the child's exit status;
// -signal when a signal ended it.
int inChild(const std::function<int()>& body) {
  const pid_t pid = fork();
  if (pid == 0) _exit(body());
  int status = 0;
  waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

bool contains(const char* text, const char* part) {
  return std::strstr(text, part) != nullptr;
}

}  // namespace

TEST(DocumentSafety, AnyNameWritesAndReadsBackInTheCLocale) {
  std::setlocale(LC_ALL, "C");
  TempDir dir;
  std::string longCjk;
  for (int i = 0; i < 83; ++i)
    longCjk += "\xe4\xbd\x9c";  // 249 bytes of three-byte characters
  const std::string nameList[] = {"caf\xc3\xa9.cfg", "\xe5\xae\xa2\xe6\x88\xb7.cfg",
                                  std::string(251, 'a') + ".cfg", longCjk + ".cfg"};
  std::set<std::string> expected;
  for (const std::string& name : nameList) {
    SCOPED_TRACE(name.size());
    const fs::path file = dir.path() / name;
    for (SeriOption option : kEncodings) {
      SeriDocument doc = penDocument(4, 7);
      ASSERT_EQ(doc.writeToFile(file, option), 0u) << errorText(uerr::fileIoError);
      EXPECT_EQ(doc.info()->extension, ".cfg");
      EXPECT_EQ(powerIn(file), 7);
    }
    expected.insert(name);
    EXPECT_EQ(names(dir.path()), expected);  // the shortened temporary name is gone too
  }
  // A failure names the file in the words of the system, whatever the script.
  SeriDocument doc(JsonLoad::instance);
  EXPECT_EQ(doc.readFromFile(dir.path() / "\xe7\xbc\xba.cfg"), errc::mapFailed);
  EXPECT_TRUE(contains(errorText(errc::mapFailed), "\xe7\xbc\xba.cfg: not found"));
}

TEST(DocumentSafety, FileSizeLimitFailsTheWriteAndKeepsTheOldDocument) {
  TempDir dir;
  const fs::path file = dir / "job.cfg";
  for (SeriOption option : kEncodings) {
    SCOPED_TRACE(option.word);
    ASSERT_EQ(penDocument(2, 5).writeToFile(file, option), 0u);
    const std::string before = readFile(file);
    const int status = inChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);  // a host under a size limit must, or it dies here
      const rlimit limit{512, 512};
      setrlimit(RLIMIT_FSIZE, &limit);
      const SdkError e = penDocument(400, 9).writeToFile(file, option);
      return e == uerr::diskFull && contains(errorText(e), "file size limit") ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(names(dir.path()), std::set<std::string>{"job.cfg"});
  }
}

TEST(DocumentSafety, FullAndReadOnlyFileSystemKeepTheOldDocument) {
  TempDir dir;
  const fs::path mnt = dir / "small";
  fs::create_directory(mnt);
  if (mount("tmpfs", mnt.c_str(), "tmpfs", 0, "size=64k") != 0) {
    GTEST_SKIP() << "mounting a tmpfs is not permitted here";
  }
  const fs::path file = mnt / "job.cfg";
  for (SeriOption option : kEncodings) {
    SCOPED_TRACE(option.word);
    ASSERT_EQ(penDocument(2, 5).writeToFile(file, option), 0u);
    const std::string before = readFile(file);
    writeFile(mnt / "filler", std::string(64 * 1024, 'x'));  // takes what is left
    testing_support::LogCapture log;
    const SdkError e = penDocument(400, 9).writeToFile(file, option);
    EXPECT_EQ(e, uerr::diskFull);
    EXPECT_TRUE(contains(errorText(e), "no space left on device"));
    EXPECT_TRUE(log.contains("job.cfg failed, 0x130004"));
    EXPECT_EQ(readFile(file), before);
    EXPECT_EQ(names(mnt), (std::set<std::string>{"filler", "job.cfg"}));
    fs::remove(mnt / "filler");
  }
  ASSERT_EQ(mount(nullptr, mnt.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  const std::string before = readFile(file);
  const SdkError e = penDocument(2, 6).writeToFile(file, SeriOption());
  EXPECT_EQ(e, errc::mapFailed);
  EXPECT_TRUE(contains(errorText(e), "read-only file system"));
  EXPECT_EQ(readFile(file), before);
  umount2(mnt.c_str(), MNT_DETACH);
}

TEST(DocumentSafety, RefusesSpecialTargetsAndUnwritableDirectories) {
  TempDir dir;
  fs::create_directory(dir / "folder.cfg");
  ASSERT_EQ(mkfifo((dir / "pipe.cfg").c_str(), 0600), 0);
  fs::create_symlink("pipe.cfg", dir / "link-to-pipe.cfg");
  const bool haveDevice = mknod((dir / "null.cfg").c_str(), S_IFCHR | 0666, makedev(1, 3)) == 0;
  for (const char* name : {"folder.cfg", "pipe.cfg", "link-to-pipe.cfg", "null.cfg"}) {
    if (std::string(name) == "null.cfg" && !haveDevice) continue;
    SCOPED_TRACE(name);
    const auto before = fs::symlink_status(dir / name).type();
    EXPECT_EQ(penDocument(1, 1).writeToFile(dir / name, SeriOption()), uerr::notRegularFile);
    EXPECT_EQ(fs::symlink_status(dir / name).type(), before);
  }
  EXPECT_EQ(fs::status(dir / "pipe.cfg").type(), fs::file_type::fifo);
  EXPECT_EQ(names(dir.path()).count("pipe.cfg.tmp"), 0u);

  // A directory the writer may not write to: as root, the writer drops to nobody.
  const fs::path file = dir / "job.cfg";
  ASSERT_EQ(penDocument(1, 3).writeToFile(file, SeriOption()), 0u);
  const std::string before = readFile(file);
  const int status = inChild([&] {
    if (geteuid() == 0 ? setuid(65534) != 0 : chmod(dir.path().c_str(), 0555) != 0) return 2;
    const SdkError e = penDocument(1, 4).writeToFile(file, SeriOption());
    return e == errc::mapFailed && contains(errorText(e), "permission denied") ? 0 : 1;
  });
  chmod(dir.path().c_str(), 0755);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(readFile(file), before);
}

TEST(DocumentSafety, LinksStayLinksAndAttributesAreKept) {
  TempDir dir;
  fs::create_directory(dir / "real");
  const fs::path real = dir / "real" / "job.cfg";
  ASSERT_EQ(penDocument(1, 1).writeToFile(real, SeriOption()), 0u);
  fs::create_symlink("real/job.cfg", dir / "link.cfg");     // relative
  fs::create_symlink(dir / "link.cfg", dir / "chain.cfg");  // to a link
  fs::create_symlink("real/new.cfg", dir / "dangling.cfg");

  ASSERT_EQ(penDocument(1, 2).writeToFile(dir / "chain.cfg", SeriOption()), 0u);
  EXPECT_TRUE(fs::is_symlink(dir / "chain.cfg"));
  EXPECT_TRUE(fs::is_symlink(dir / "link.cfg"));
  EXPECT_EQ(powerIn(real), 2);
  ASSERT_EQ(penDocument(1, 3).writeToFile(dir / "dangling.cfg", SeriOption()), 0u);
  EXPECT_TRUE(fs::is_symlink(dir / "dangling.cfg"));
  EXPECT_EQ(powerIn(dir / "real" / "new.cfg"), 3);
  EXPECT_EQ(names(dir / "real"), (std::set<std::string>{"job.cfg", "new.cfg"}));

  ASSERT_EQ(chmod(real.c_str(), 0640), 0);
  const bool root = geteuid() == 0;
  if (root) {
    ASSERT_EQ(chown(real.c_str(), 65534, 65534), 0);
  }
  ASSERT_EQ(penDocument(1, 4).writeToFile(dir / "link.cfg", SeriOption()), 0u);
  struct stat st {};
  ASSERT_EQ(stat(real.c_str(), &st), 0);
  EXPECT_EQ(st.st_mode & 07777, 0640u);
  if (root) {
    EXPECT_EQ(st.st_uid, 65534u);
  }
  EXPECT_EQ(powerIn(real), 4);
}

TEST(DocumentSafety, ConcurrentWritersNeverTearWhatAReaderSees) {
  TempDir dir;
  const fs::path file = dir / "shared.cfg";
  ASSERT_EQ(penDocument(64, 1).writeToFile(file, SeriOption()), 0u);
  auto writer = [&](int power, SeriOption option) {
    return [&file, power, option] {
      const SeriDocument doc = penDocument(64, power);
      int failures = 0;
      for (int i = 0; i < 150; ++i)
        failures += doc.writeToFile(file, option) != 0;
      return failures;
    };
  };
  const pid_t a = fork();
  if (a == 0) _exit(writer(11, SeriOption())());
  const pid_t b = fork();
  if (b == 0) _exit(writer(22, SeriOption(SeriOption::Aes))());
  const pid_t pids[2] = {a, b};
  int status[2] = {-1, -1};
  int reads = 0;
  int torn = 0;
  while (status[0] == -1 || status[1] == -1) {
    const int power = powerIn(file);
    torn += power != 1 && power != 11 && power != 22;
    ++reads;
    for (int k = 0; k < 2; ++k) {
      int s = 0;
      if (status[k] == -1 && waitpid(pids[k], &s, WNOHANG) == pids[k]) status[k] = s;
    }
  }
  for (int s : status)
    EXPECT_TRUE(WIFEXITED(s) && WEXITSTATUS(s) == 0) << s;
  EXPECT_EQ(torn, 0) << "of " << reads << " reads";
  EXPECT_EQ(names(dir.path()), std::set<std::string>{"shared.cfg"});
}

TEST(DocumentSafety, KilledWritersLeaveAWholeTargetAndNoDebris) {
  TempDir dir;
  const fs::path file = dir / "job.cfg";
  ASSERT_EQ(penDocument(200, 1).writeToFile(file, SeriOption()), 0u);
  std::mt19937 gen(42);
  for (int round = 0; round < 30; ++round) {
    const pid_t pid = fork();
    if (pid == 0) {
      const SeriDocument doc = penDocument(200, 2 + round % 2);
      for (;;)
        (void)doc.writeToFile(file, kEncodings[round % 4]);
    }
    usleep(1000 + gen() % 20000);
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    const int power = powerIn(file);
    EXPECT_TRUE(power >= 1 && power <= 3) << "round " << round;
  }
  // A temporary file of a killed writer, with anything in it, is taken over.
  writeFile(dir / "job.cfg.tmp", "left over");
  ASSERT_EQ(penDocument(200, 5).writeToFile(file, SeriOption(SeriOption::Lzma)), 0u);
  EXPECT_EQ(powerIn(file), 5);
  EXPECT_EQ(names(dir.path()), std::set<std::string>{"job.cfg"});
}
