#pragma once

#include <type_traits>
#include <vector>

#include <utils/keyPath.h>

#include <param/seri/recordIo.h>
#include <param/shape/point2dConcept.h>

namespace param::detail {

// A list of points stored as an array of {"x", "y"} objects, read all or
// nothing: every entry must be an object with numeric "x" and "y", or the list
// and the flag stay as they were and the first bad entry's code is the key's
// code (reported at the entry or coordinate, e.g. "knots[2].y", and raised
// once, by the key's error-response step). A list that is read
// replaces the old one and sets `flag` back to true.
//
// The generic list rule would let the error-response step skip a bad
// coordinate inside an entry and keep the rest of the list, which would put a
// made-up coordinate into a curve's control data.
template <class List, class Flag>
struct PointListField {
  List& points;
  Flag& flag;

  SdkError read(const KeySource& src) {
    SeriArray arr(utils::JsonLoad::instance);
    if (SdkError e = src.getArray(arr)) return e;
    utils::KeyPath& path = utils::KeyPath::current();
    // The first bad entry or coordinate is reported where it is; the whole
    // list is what is kept.
    const auto failed = [&](SdkError e, const auto& where) {
      reportSkipped(path, e, where, static_cast<const std::vector<Point2d>&>(points));
      return e;
    };
    std::vector<Point2d> fresh(arr.size());
    for (std::size_t i = 0; i < arr.size(); ++i) {
      utils::KeyPath::Scope at(path, i);
      const IndexSource element{arr, i};
      SeriObject entry(utils::JsonLoad::instance);
      if (SdkError e = element.getObject(entry)) return failed(e, element);
      for (const char* key : {"x", "y"}) {
        utils::KeyPath::Scope coordinate(path, key);
        const KeySource value{entry, key};
        if (SdkError e = value.get(key[0] == 'x' ? fresh[i].x : fresh[i].y)) {
          return failed(e, value);
        }
      }
    }
    points = std::move(fresh);
    flag = true;
    return 0;
  }

  static void describe(SeriObject& prop) {
    describeArray(prop, &FieldSchema<Point2d>::describe, 0);
  }

  SdkError write(KeySink& dst) const {
    return FieldIo<std::vector<Point2d>>::write(dst,
                                                static_cast<const std::vector<Point2d>&>(points));
  }
};

template <class List, class Flag>
PointListField<List, Flag> pointListField(List& points, Flag& flag) {
  return {points, flag};
}

}  // namespace param::detail
