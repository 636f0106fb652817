#pragma once

#include <utils/path.h>

#include <param/export.h>

namespace param {

using utils::SdkError;

// What param::load needs: the default-parameter document file.
struct InitParam {
  utils::path path;
};

// Brings the library's process-wide state up: the default-parameter manager
// (which reads `init.path`; a missing or unreadable file is only logged) and the
// colour manager. Call it once at start, before constructing the records whose
// defaults are stored (FillLayerParam, RectArrayParam and ArrayParam,
// DataRecordParam, AnchorPoint). A second call keeps both managers as they are.
// Fails only when a manager cannot be allocated (errc::outOfMemory).
PARAM_API SdkError load(InitParam init);

// Drops the colour manager, then the default-parameter manager. Holders of a
// manager's shared pointer keep their object alive.
PARAM_API void unload();

}  // namespace param
