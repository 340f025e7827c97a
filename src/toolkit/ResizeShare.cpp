// ResizeShare.cpp - the carried arithmetic of proportional resizing.
#include "toolkit/ResizeShare.h"

#include <cassert>

// C++ division truncates toward zero and the remainder takes the sign of
// the dividend, which is what keeps growing and shrinking symmetric.
int VnResizeCalcValue(int delta, int part, int maxPart, int& rest, int& value, bool clamp) {
  assert(maxPart > 0 && "the scale of the shares is positive");
  if (part < 1)
    return 0;
  int product = delta * part;
  if (product == 0)
    return 0;
  rest += product % maxPart;
  if (rest >= maxPart) {
    rest -= maxPart;
    value += 1;
  } else if (rest <= -maxPart) {
    rest += maxPart;
    value -= 1;
  }
  value += product / maxPart;
  if (clamp && value < 0) {
    rest += maxPart * value;
    value = 0;
  }
  return 1;
}
