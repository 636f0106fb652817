// The C interface's wobble gives exactly the C++ result, and its records
// exactly what the C++ records save.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include <param_c.h>

#include <param/params/penParam.h>
#include <param/wobble/wobblePathProc.h>

#include "support/testSupport.h"

TEST(CInterface, WobbleAndRecordsEqualTheCxxResults) {
  const std::vector<param::Point2d> star = {{0, 0}, {10, 3}, {2, 8}, {5, -4}, {8, 8}, {0, 0}};
  std::vector<double> xy;
  for (const auto& p : star) {
    xy.push_back(p.x);
    xy.push_back(p.y);
  }
  for (int type = 0; type < 5; ++type) {
    param::WobbleParam w;
    w.bEnable = true;
    w.wobbleType = type;
    w.wobbleDiaX = 1.25f;
    w.wobbleDiaY = 0.75f;
    w.wobbleSpace = 0.3f;
    std::vector<param::Point2d> expected;
    param::WobblePathProc proc;
    proc.setWobblePar(w);
    proc.doWobble(star, expected);

    const double params[PARAM_WOBBLE_PARAM_COUNT] = {1, double(type), w.wobbleDiaX, w.wobbleDiaY,
                                                     w.wobbleSpace};
    double* out = nullptr;
    std::size_t count = 0;
    ASSERT_EQ(param_wobble(params, PARAM_WOBBLE_PARAM_COUNT, xy.data(), star.size(), &out, &count),
              0u);
    ASSERT_EQ(count, expected.size());
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_EQ(out[2 * i], expected[i].x) << type << " " << i;  // bit for bit
      ASSERT_EQ(out[2 * i + 1], expected[i].y) << type << " " << i;
    }
    param_free(out);
  }

  char* saved = nullptr;
  ASSERT_EQ(param_record_load("PenParam", "{}", &saved, nullptr), 0u);
  EXPECT_STREQ(saved, testing_support::jsonOf(param::PenParam()).c_str());
  param_free(saved);
}
