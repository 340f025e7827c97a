// VnShift.h - sliding runs of changed lines as late as they can go.
// Internal to the comparison.
#ifndef VN_ENGINE_VNSHIFT_H
#define VN_ENGINE_VNSHIFT_H

#include "engine/VnCompareState.h"

// One pass over side, with other as the opposite file.  Moves changed flags
// only: the number of changed lines of side stays the same.
void VnShiftBoundaries(CVnCompareSide& side, const CVnCompareSide& other);

// Both passes: the source side first, then the target on what that left.
void VnShiftAll(CVnCompareState& state);

#endif  // VN_ENGINE_VNSHIFT_H
