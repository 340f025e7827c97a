// ResizeShare.h - one edge of a child following its share of a size change.
//
// A child that owns part/maxPart of a change of delta pixels moves by
// delta*part/maxPart, which is seldom whole.  The fraction left over is
// kept in rest, in units of 1/maxPart pixel, and pays out a pixel as soon
// as it reaches a whole one, so that a drag of many small steps ends
// where one large step would.  A width or height may not go below 0: what
// the clamp cuts off stays in rest as a debt that later growth repays first.
#ifndef VN_TOOLKIT_RESIZESHARE_H
#define VN_TOOLKIT_RESIZESHARE_H

#include "afx/afx.h"

// Applies a change of delta to value (left, top, width or height) by the
// share part of maxPart, carrying rest.  Gives 0 when there was nothing to
// do (no share, or no change), 1 otherwise, even if value came out equal.
VN_API int VnResizeCalcValue(int delta, int part, int maxPart, int& rest, int& value, bool clamp);

#endif  // VN_TOOLKIT_RESIZESHARE_H
