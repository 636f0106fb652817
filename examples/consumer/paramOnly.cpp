// A host that calls only param:: functions: with the linker dropping unused
// libraries (the default of many distributions), this program depends on
// libparam alone, which must then find libparam_utils by itself.
#include <cstdio>
#include <vector>

#include <param/param.h>

int main() {
  param::PenParam pen;
  pen.wobble.bEnable = true;
  pen.wobble.wobbleSpace = 0.5f;

  param::WobblePathProc proc;
  proc.setWobblePar(pen.wobble);
  const std::vector<param::MPointF2d> line = {{0, 0}, {12, 0}};
  std::vector<param::MPointF2d> wobbled;
  proc.doWobble(line, wobbled);

  const param::Matrix2d turn = param::Matrix2d::makeRotate(90, 0, 0);
  std::printf("%zu wobbled points, determinant %.1f, %s\n", wobbled.size(), turn.determinant(),
              param::errorText(param::errc::badFormat));
  return wobbled.size() > 1000 ? 0 : 1;
}
