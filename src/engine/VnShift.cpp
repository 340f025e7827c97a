// VnShift.cpp - normalising the position of changed runs.
//
// The search may report a run of changed lines at any of several equal
// positions.  While the first line of a run equals the line just behind it,
// the run can slide one line towards the end of the file without changing
// what it says; it does, so runs end up as late as possible and merge with a
// run they reach.  A run never moves up, and it stays put when it touches the
// run before it, when it stands right behind a change in the other file, or
// when the other file has a change where it would move to.  j follows the
// line of the other side that corresponds to line i; the zero byte behind
// each changed array ends the scans.
#include "engine/VnShift.h"

#include <cassert>

void VnShiftBoundaries(CVnCompareSide& side, const CVnCompareSide& other) {
  unsigned char* changed = side.m_pChanged;
  const unsigned char* otherChanged = other.m_pChanged;
  const int32_t* classes = side.m_classes.data();
  const int32_t end = side.m_nRangeEnd;
  int32_t i = 0, j = 0, preceding = -1, otherPreceding = -1;
  for (;;) {
    // Up to the next run, pairing unchanged lines with the other side.
    while (i < end && !changed[i]) {
      while (otherChanged[j])
        otherPreceding = ++j;
      assert(j <= other.m_nRangeEnd && "unchanged lines pair up one to one");
      ++j;
      ++i;
    }
    if (i == end)
      return;
    int32_t start = i;
    const int32_t otherStart = j;
    for (;;) {
      while (i < end && changed[i])
        ++i;
      if (i == end)
        break;
      if (classes[start] != classes[i] || otherChanged[j] || (preceding >= 0 && start == preceding) ||
          (otherPreceding >= 0 && otherStart == otherPreceding))
        break;
      changed[i] = 1;  // slide the run down by one line
      changed[start] = 0;
      ++start, ++i, ++j;
    }
    preceding = i;
    otherPreceding = j;
  }
}

void VnShiftAll(CVnCompareState& state) {
  VnShiftBoundaries(state.m_source, state.m_target);
  VnShiftBoundaries(state.m_target, state.m_source);
}
