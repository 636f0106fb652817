#pragma once

namespace param {

// Two values are within 0.0001 of each other when their difference lies strictly
// between -0.0001 and 0.0001. The comparisons of marking records use this
// beside exact equality where a value must match to the bit.
inline bool within0001(double a, double b) {
  const double d = a - b;
  return d > -0.0001 && d < 0.0001;
}

}  // namespace param
