#include "memoryProbe.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "contenders.h"
#include "documentFile.h"
#include "libraryJob.h"

extern char** environ;

namespace peers {
namespace {

// The process's peak resident size, VmHWM. Not getrusage's ru_maxrss: on
// Linux that carries over through exec the peak of the process that started
// this one, and so would hide a job that needs less than the parent had.
long long peakResidentBytes() {
  std::FILE* status = std::fopen("/proc/self/status", "r");
  if (status == nullptr) return -1;
  long long kib = -1;
  char line[256];
  while (std::fgets(line, sizeof line, status) != nullptr) {
    if (std::sscanf(line, "VmHWM: %lld kB", &kib) == 1) break;
  }
  std::fclose(status);
  return kib * 1024;
}

// Runs this program as a memory case; its printed growth in bytes, or -1.
long long runCase(const char* job, const char* contender, const std::string& file,
                  std::size_t pens) {
  const std::string count = std::to_string(pens);
  const char* args[] = {"/proc/self/exe", kMemoryCaseFlag, job,    contender,
                        file.c_str(),     count.c_str(),   nullptr};
  int out[2];
  if (::pipe(out) != 0) return -1;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, out[0]);
  pid_t pid = 0;
  const int spawned =
      posix_spawn(&pid, args[0], &actions, nullptr, const_cast<char**>(args), environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(out[1]);
  std::string text;
  char buffer[256];
  for (ssize_t n; spawned == 0 && (n = ::read(out[0], buffer, sizeof buffer)) > 0;)
    text.append(buffer, static_cast<std::size_t>(n));
  ::close(out[0]);
  int status = 0;
  if (spawned != 0 || ::waitpid(pid, &status, 0) != pid || !WIFEXITED(status) ||
      WEXITSTATUS(status) != 0) {
    return -1;
  }
  return std::atoll(text.c_str());
}

}  // namespace

int memoryCaseMain(int argc, char** argv) {
  if (argc != 6) return 2;
  const std::string job = argv[2];
  const Contender* who = findContender(argv[3]);
  const std::string file = argv[4];
  const std::size_t pens = std::strtoull(argv[5], nullptr, 10);
  if (who == nullptr) return 2;

  bool ok = false;
  long long before = 0;
  if (job == "read") {
    Job into;
    into.pens.resize(pens);
    before = peakResidentBytes();
    ok = who->read(file, into);
  } else if (job == "write" && who->write != nullptr) {
    const Job sample = sampleJob(pens);
    before = peakResidentBytes();
    ok = who->write(sample, file, encodingOption(0));
  }
  if (!ok) return 1;
  std::printf("%lld\n", peakResidentBytes() - before);
  return 0;
}

void printMemoryTable(double megabytes, const std::string& folder) {
  // Pens for the size asked, from the text of a thousand.
  const double perPen = static_cast<double>(librarySavedText(sampleJob(1000)).size()) / 1000.0;
  const auto pens = static_cast<std::size_t>(megabytes * 1e6 / perPen);
  const std::string prefix = folder + "/param-peers-memory-" + std::to_string(::getpid());
  const std::string source = prefix + ".cfg";
  std::size_t textSize = 0;
  {
    std::string text;
    if (!libraryWrite(sampleJob(pens), source, encodingOption(0)) || !readDocument(source, text)) {
      std::fprintf(stderr, "cannot write the large document %s\n", source.c_str());
      std::remove(source.c_str());
      return;
    }
    textSize = text.size();
  }

  std::printf(
      "\nPeak memory ÷ JSON text (%.1f MB of JSON text, %zu pens, base64; param ÷ peer "
      "in brackets)\n\n| job |",
      static_cast<double>(textSize) / 1e6, pens);
  for (const Contender& c : contenders())
    std::printf(" %s |", c.title);
  std::printf("\n|---|");
  for (std::size_t i = 0; i < contenders().size(); ++i)
    std::printf("---|");
  std::printf("\n");
  for (const char* job : {"read", "write"}) {
    std::printf("| %s |", job);
    double library = -1;
    for (const Contender& c : contenders()) {
      const bool isLibrary = &c == &contenders().front();
      const bool reading = std::strcmp(job, "read") == 0;
      if (!reading && c.write == nullptr) {
        std::printf(" |");
        continue;
      }
      const std::string target = reading ? source : prefix + "-" + c.name + ".cfg";
      const long long bytes = runCase(job, c.name, target, pens);
      if (!reading) std::remove(target.c_str());
      if (bytes < 0) {
        std::printf(" failed |");
        continue;
      }
      const double ratio = static_cast<double>(bytes) / static_cast<double>(textSize);
      if (isLibrary) {
        library = ratio;
        std::printf(" %.2f |", ratio);
      } else if (library > 0) {
        std::printf(" %.2f (%.2fx) |", ratio, library / ratio);
      } else {
        std::printf(" %.2f |", ratio);
      }
      std::fflush(stdout);
    }
    std::printf("\n");
  }
  std::fflush(stdout);
  std::remove(source.c_str());
}

}  // namespace peers
