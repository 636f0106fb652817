#pragma once

#include <param/export.h>
#include <param/params/extAxisParArray.h>
#include <param/params/flyParam.h>
#include <param/params/galvoParam.h>
#include <param/params/ioParam.h>
#include <param/params/laserParam.h>
#include <param/params/markParam.h>
#include <param/params/redlightParam.h>
#include <param/seri/seriObject.h>

namespace param {

// The complete parameter set of one marking control board, saved and loaded as
// one unit. Each section is a child object under its key, except "axParArray",
// which holds the JSON array of axis objects itself.
//
// Loading goes section by section; a section that is missing or unreadable
// keeps its current values unless the error handler stops the load.
struct PARAM_API LmcParam {
  LaserParam laserParam;
  GalvoParam galvoParam;
  MarkParam markParam;
  RedlightParam redParam;
  IOParam ioParam;
  ExtAxisParArray axParArray;  // two axes, ids 0 and 1, by default
  FlyParam flyParam;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;
};

}  // namespace param
