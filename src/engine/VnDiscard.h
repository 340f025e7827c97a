// VnDiscard.h - taking lines that cannot or should not match out of the
// search.  Internal to the comparison.
#ifndef VN_ENGINE_VNDISCARD_H
#define VN_ENGINE_VNDISCARD_H

#include "engine/VnCompareState.h"

// Marks of one line: keep it, discard it (no equal line on the other side),
// or discard provisionally (too many equal lines on the other side).
enum VnDiscardMark : unsigned char { kKeepLine = 0, kDiscardLine = 1, kProvisionalLine = 2 };

// The threshold above which a line matches "many" lines: 5 for E below 256,
// doubling each time E quadruples.
int VnManyThreshold(int32_t lineCount);

// Settles the provisional marks of one side in place: a provisional line is
// discarded only inside a run that starts and ends with certain discards,
// when few of the run are provisional and it is not near the run's ends.
void VnResolveDiscards(unsigned char* marks, int32_t count);

// Fills kept classes, kept index and kept count of both sides and marks the
// discarded lines changed.  Needs the class arrays and the class count.
void VnDiscardConfusingLines(CVnCompareState& state);

#endif  // VN_ENGINE_VNDISCARD_H
