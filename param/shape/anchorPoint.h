#pragma once

#include <cstdint>

#include <param/export.h>
#include <param/seri/seriObject.h>
#include <param/shape/point2dConcept.h>

namespace param {

// A kind byte and a point (JSON: "type", then "point" as {"x", "y"}).
//
// The default constructor applies the stored default "struct AnchorPoint" of
// the default-parameter manager on top of kind 4 and (0, 0); before param::load
// it logs "please call DefaultParamMgr::load() first" and keeps them.
struct PARAM_API AnchorPoint {
  std::uint8_t type = 4;
  Point2d point;

  AnchorPoint();
  AnchorPoint(const AnchorPoint&) = default;
  AnchorPoint& operator=(const AnchorPoint&) = default;
  ~AnchorPoint() = default;

  [[nodiscard]] SdkError load(const SeriObject& obj);
  [[nodiscard]] SdkError save(SeriObject& obj) const;

  // The same kind, and both coordinates less than 0.0001 apart.
  bool operator==(const AnchorPoint& other) const;
};

}  // namespace param
