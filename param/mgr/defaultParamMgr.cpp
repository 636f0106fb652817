#include <param/mgr/defaultParamMgr.h>

#include <cerrno>
#include <functional>
#include <new>
#include <string>

#include <utils/fileError.h>
#include <utils/logger.h>

namespace param {

namespace {

// The manager and the file it was loaded from. The path outlives unload: it is
// replaced only by the next load that creates a manager.
std::shared_ptr<DefaultParamMgr> g_instance;
utils::path g_savePath;
// The file existed but could not be read: it is moved aside before the first
// save would replace it, so that nobody's defaults vanish without a trace.
bool g_unreadable = false;

// Runs an action when it goes out of scope, however the scope is left.
class ScopeExit {
 public:
  explicit ScopeExit(std::function<void()> action) : action_(std::move(action)) {}
  ~ScopeExit() {
    if (action_) action_();
  }
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;

 private:
  std::function<void()> action_;
};

utils::Logger paramLog(utils::LogLevel level) {
  return utils::Logger(level, "Param");
}

// Renames `file` to "<file>.unreadable" (or "-2", "-3"... when taken).
SdkError moveAside(const utils::path& file) {
  SdkError e = utils::errc::fileIoError;
  for (int n = 1; n < 100; ++n) {
    std::string name = file.string() + ".unreadable";
    if (n > 1) name += "-" + std::to_string(n);
    e = utils::path::renameNoReplace(file, name);
    if (e == 0) {
      paramLog(utils::LogLevel::Warning)
          .write("the defaults file ")
          .write(file)
          .write(" could not be read; it is kept as ")
          .write(name)
          .write(" and a new one is written");
      return 0;
    }
    if (utils::lastFileFailure().osError != EEXIST) break;
  }
  paramLog(utils::LogLevel::Error)
      .write("the defaults file ")
      .write(file)
      .write(" could not be read nor moved aside (")
      .write(utils::lastFileFailure().describe())
      .write("); it is left as it is and the defaults are kept in memory only");
  return e;
}

}  // namespace

DefaultParamMgr::DefaultParamMgr(const std::string& extension)
    : SeriDocument(utils::JsonSave::instance, extension) {}

std::shared_ptr<DefaultParamMgr> DefaultParamMgr::instance() {
  if (!g_instance) paramLog(utils::LogLevel::Error) << "please call DefaultParamMgr::load() first";
  return g_instance;
}

SdkError DefaultParamMgr::load(const utils::path& file) {
  return readFromFile(file);
}

SdkError DefaultParamMgr::save(const utils::path& file) const {
  return writeToFile(file, SeriOption());
}

SdkError DefaultParamMgr::getDefaultValue(const char* key, SeriObject& value) {
  return getSeriObject(key, value);
}

SdkError DefaultParamMgr::setDefaultValue(const char* key, SeriObject&& value) {
  // The save's result does not change what this returns (the value is stored
  // either way), but a failure is logged with the key that stays unsaved.
  ScopeExit saveOnExit([this, file = g_savePath, name = std::string(key ? key : "")] {
    if (g_unreadable) {
      if (moveAside(file) != 0) return;
      g_unreadable = false;
    }
    if (SdkError e = save(file)) {
      paramLog(utils::LogLevel::Error)
          .write("the default \"")
          .write(name)
          .write("\" is kept in memory only: saving ")
          .write(file)
          .write(" failed, ")
          .write(e)
          .write(": ")
          .write(errorText(e));
    }
  });
  return setSeriObject(key, std::move(value));
}

SdkError DefaultParamMgr::load(InitParam init) {
  if (!g_instance) {
    // A struct that can reach the protected constructor for make_shared-like
    // allocation without exceptions escaping as anything but a null pointer.
    struct Constructible : DefaultParamMgr {};
    g_instance.reset(new (std::nothrow) Constructible());
    if (!g_instance) {
      paramLog(utils::LogLevel::Error) << "not enough memory to initialize defaultParamMgr";
      return errc::outOfMemory;
    }
    if (SdkError e = g_instance->load(init.path)) {
      // A file that is not there yet is the first start; one that is there but
      // cannot be read is kept until a save would replace it.
      g_unreadable = init.path.exists();
      paramLog(utils::LogLevel::Error)
          .write("load default param from ")
          .write(init.path)
          .write(" failed, ")
          .write(e);
    } else {
      g_unreadable = false;
    }
    g_savePath = init.path;
  }
  paramLog(utils::LogLevel::Verbose) << "defaultParamMgr loaded.";
  return 0;
}

void DefaultParamMgr::unload() {
  std::shared_ptr<DefaultParamMgr> dropped = std::move(g_instance);
  g_instance.reset();
  dropped.reset();
  paramLog(utils::LogLevel::Verbose) << "defaultParamMgr unloaded.";
}

}  // namespace param
