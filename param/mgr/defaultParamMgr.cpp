#include <param/mgr/defaultParamMgr.h>

#include <functional>
#include <new>

#include <utils/logger.h>

namespace param {

namespace {

// The manager and the file it was loaded from. The path outlives unload: it is
// replaced only by the next load that creates a manager.
std::shared_ptr<DefaultParamMgr> g_instance;
utils::path g_savePath;

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
  ScopeExit saveOnExit([this, file = g_savePath] { save(file); });
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
      paramLog(utils::LogLevel::Error)
          .write("load default param from ")
          .write(init.path)
          .write(" failed, ")
          .write(e);
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
