// vnreconcile/Engine.h - the comparison engine: line sets (CVnDiffArg,
// CVnDiffLine), the change records it computes (CVnDiffChange in a
// CVnDiffChangeList, 1-based inclusive ranges), deltas that store the
// records and rebuild the second file from the first (CVnDelta), and the
// files' facts (CVnFileInfo).
#ifndef VNRECONCILE_ENGINE_H
#define VNRECONCILE_ENGINE_H

#include "afx/afx.h"
#include "engine/VnDelta.h"
#include "engine/VnDiffArg.h"
#include "engine/VnDiffChange.h"
#include "engine/VnDiffLine.h"
#include "engine/VnFileInfo.h"

#endif  // VNRECONCILE_ENGINE_H
