// paramdoc: shows, checks, compares, edits and converts parameter document
// files. Each command lives in its own source file (see command.h).
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

#include <utils/logger.h>
#include <utils/version.h>

#include "command.h"
#include "io.h"

namespace {

// The command a user meant: the first argument that is not an option.
const char* firstWord(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (argv[i][0] != '-' || std::strcmp(argv[i], "-") == 0) return argv[i];
  }
  return nullptr;
}

bool isCommand(const char* word) {
  const auto& all = paramdoc::commands();
  return std::any_of(all.begin(), all.end(), [&](const paramdoc::CommandEntry& c) {
    return std::strcmp(c.name, word) == 0;
  });
}

int parseError(const CLI::App& app, const CLI::ParseError& e, int argc, char** argv) {
  const char* word = firstWord(argc, argv);
  if (word != nullptr && !isCommand(word)) {
    std::fprintf(stderr,
                 "paramdoc: unknown command '%s'\nRun 'paramdoc --help' for the commands.\n", word);
    return paramdoc::kUsage;
  }
  if (word == nullptr && argc > 1) {
    std::fprintf(stderr, "paramdoc: unknown option '%s'\nRun 'paramdoc --help' for the options.\n",
                 argv[1]);
    return paramdoc::kUsage;
  }
  if (word == nullptr) {
    std::string names;
    for (const CLI::App* sub : app.get_subcommands({}))
      names += " " + sub->get_name();
    std::fprintf(stderr, "paramdoc: %s\nCommands:%s\nRun 'paramdoc --help' for more.\n", e.what(),
                 names.c_str());
    return paramdoc::kUsage;
  }
  return paramdoc::usage(word, e.what());
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "paramdoc: shows, checks, compares, edits and converts parameter document files.\n"
      "A document file is an 8-byte option word followed by the document's JSON text,\n"
      "encoded as base64, XOR, LZMA (.xz) or AES.",
      "paramdoc"};
  app.require_subcommand(1);
  app.set_version_flag("--version", "paramdoc " + utils::Version::g_sdkBuildVersion.toString());
  app.footer(
      "A file name of '-' reads standard input or writes standard output.\n"
      "Exit status: 0 success, 1 a document that cannot be read or documents that differ,\n"
      "2 wrong usage. 'paramdoc <command> --help' describes each command.");

  std::vector<paramdoc::CommandEntry> entries = paramdoc::commands();
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return std::strcmp(a.name, b.name) < 0; });
  std::vector<std::pair<CLI::App*, std::unique_ptr<paramdoc::Command>>> live;
  for (const auto& entry : entries) {
    CLI::App* sub = app.add_subcommand(entry.name, entry.summary);
    auto command = entry.make();
    command->define(*sub);
    live.emplace_back(sub, std::move(command));
  }

  int status = paramdoc::kSuccess;
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    // --help and --version exit 0; anything else is wrong usage.
    status = e.get_exit_code() == 0 ? app.exit(e) : parseError(app, e, argc, argv);
    return paramdoc::finishStandardOutput() ? status : paramdoc::kFailure;
  }

  // The tool reports failures itself; the library's own log lines show only
  // when PARAM_LOG_LEVEL asks for them.
  if (std::getenv("PARAM_LOG_LEVEL") == nullptr) {
    utils::Logger::setSink([](utils::LogLevel, std::string_view, std::string_view) {});
  }
  for (auto& [sub, command] : live) {
    if (sub->parsed()) status = command->run();
  }
  return paramdoc::finishStandardOutput() ? status : paramdoc::kFailure;
}
