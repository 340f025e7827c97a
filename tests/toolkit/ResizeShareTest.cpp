// ResizeShareTest.cpp - the carried arithmetic of proportional resizing:
// remainders pay out whole pixels, shrinking mirrors growing, and a clamped
// size keeps its debt.
#include "toolkit/ResizeShare.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Pass {
  int delta;
  int value, rest;  // after the pass
  int result;
};

struct Case {
  const char* name;
  int part;
  bool clamp;
  int value;  // before the first pass
  std::vector<Pass> passes;
};

TEST(ResizeShareTest, PassesCarryTheirRemainders) {
  const Case cases[] = {
      {"half of +7 twice: 3 then 4", 50, true, 10, {{7, 13, 50, 1}, {7, 17, 0, 1}}},
      {"half of -3 twice: -1 then -2", 50, true, 10, {{-3, 9, -50, 1}, {-3, 7, 0, 1}}},
      {"clamped width drains its debt a pixel a pass", 100, true, 2, {{-10, 0, -800, 1}, {10, 9, -700, 1}}},
      {"a position is never clamped", 100, false, 2, {{-10, -8, 0, 1}}},
      {"a third of 1 for three passes", 33, false, 0, {{1, 0, 33, 1}, {1, 0, 66, 1}, {1, 0, 99, 1}, {1, 1, 32, 1}}},
      {"no share: nothing to do", 0, false, 5, {{9, 5, 0, 0}}},
      {"no change: nothing to do", 40, false, 5, {{0, 5, 0, 0}}},
      {"a negative share counts as none", -5, false, 5, {{9, 5, 0, 0}}},
  };
  for (const Case& c : cases) {
    int value = c.value, rest = 0;
    for (const Pass& pass : c.passes) {
      EXPECT_EQ(pass.result, VnResizeCalcValue(pass.delta, c.part, 100, rest, value, c.clamp)) << c.name;
      EXPECT_EQ(pass.value, value) << c.name;
      EXPECT_EQ(pass.rest, rest) << c.name;
    }
  }
}

// Many small steps end where one step of the same total would: the
// remainder loses nothing in either direction, on any scale.
TEST(ResizeShareTest, ManySmallStepsEqualOneLargeStep) {
  for (int maxPart : {100, 7, 1000})
    for (int part = 0; part <= maxPart; part += maxPart / 7 + 1)
      for (int step : {1, -1, 3, -2}) {
        int value = 500, rest = 0;
        for (int i = 0; i < 97; ++i)
          VnResizeCalcValue(step, part, maxPart, rest, value, false);
        EXPECT_EQ(500 + 97 * step * part / maxPart, value) << maxPart << " " << part << " " << step;
      }
}

}  // namespace
