#pragma once

// The commands of paramdoc. Each command is one source file that defines a
// Command and registers it with PARAMDOC_COMMAND; main.cpp finds it there.

#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include <param/errors.h>

namespace paramdoc {

// Exit statuses.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;  // a document that cannot be read, or documents that differ
inline constexpr int kUsage = 2;    // wrong arguments or options

class Command {
 public:
  virtual ~Command() = default;
  // Declares the command's arguments, options and examples on `cmd`.
  virtual void define(CLI::App& cmd) = 0;
  // Runs after the command line parsed; returns the exit status.
  virtual int run() = 0;
};

struct CommandEntry {
  const char* name;
  const char* summary;
  std::unique_ptr<Command> (*make)();
};

// Every registered command, in registration order.
std::vector<CommandEntry>& commands();

struct Registration {
  Registration(const char* name, const char* summary, std::unique_ptr<Command> (*make)()) {
    commands().push_back({name, summary, make});
  }
};

#define PARAMDOC_COMMAND(Type, name, summary)                                                      \
  namespace {                                                                                      \
  const ::paramdoc::Registration registration##Type(name, summary,                                 \
                                                    []() -> std::unique_ptr<::paramdoc::Command> { \
                                                      return std::make_unique<Type>();             \
                                                    });                                            \
  }

// Messages on standard error, each naming what it is about.
// "paramdoc: <subject>: <cause>"; returns kFailure.
int fail(const std::string& subject, const std::string& cause);
// The same with the library's description of `code` and the code itself.
int fail(const std::string& subject, param::SdkError code);
// fail() for functions that answer whether they succeeded: returns false.
bool failed(const std::string& subject, const std::string& cause);
// "paramdoc: warning: <subject>: <cause>".
void warn(const std::string& subject, const std::string& cause);
// "paramdoc <command>: <message>" and where to find help; returns kUsage.
int usage(const std::string& command, const std::string& message);

// The library's description of `code` with the code: "text is not JSON (0x110005)".
std::string describe(param::SdkError code);

}  // namespace paramdoc
