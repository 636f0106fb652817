#pragma once

// In-memory calibration data of the scan head. These records are carried and
// copied with GalvoParam for the host; they are never saved or loaded.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <param/export.h>

namespace param {

// One calibration sample.
struct PARAM_API CalData {
  double x = 0.0;
  double y = 0.0;
};

// A 3 x 3 calibration grid and its block of fitted values.
struct PARAM_API CalDataPt9 {
  static constexpr std::size_t kValueCount = 57;

  std::array<CalData, 9> points{};
  std::array<double, kValueCount> values = defaultValues();

 private:
  static constexpr std::array<double, kValueCount> defaultValues() {
    std::array<double, kValueCount> v{};
    v[2] = 1.0;
    v[7] = 1.0;
    for (std::size_t i = 10; i < 14; ++i)
      v[i] = 50.0;
    for (std::size_t i = 16; i < 22; ++i)
      v[i] = 1.0;
    v[28] = 1.5707963267948966;  // a right angle, radians
    return v;
  }
};

// A stack of calibration samples.
struct PARAM_API StackData {
  std::int32_t count = 5;
  std::int32_t mode = 1;
  std::vector<CalData> samples;
};

// The full calibration state of the scan head.
struct PARAM_API GalvoCalPar {
  static constexpr std::size_t kGridSide = 21;

  std::int32_t calType = 0;
  std::int32_t calState = 0;
  CalDataPt9 pt9;
  std::vector<StackData> stacks;
  std::int32_t sampleCount = 0;
  std::int32_t gridDim = static_cast<std::int32_t>(kGridSide);
  std::array<CalData, kGridSide * kGridSide> table{};
  std::uint64_t stamp = 0;
};

}  // namespace param
