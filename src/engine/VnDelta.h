// VnDelta.h - rebuilding a target from its source and a stored delta.
//
// A delta is the change records of a comparison with the delta text: the
// target lines the Insert and Change records add, in record order
// (CVnDiffArg::ExtractChangedLines).  Records read back from storage may
// hold anything, so they are checked whole against the source and the
// delta text before a line is built.
#ifndef VN_ENGINE_VNDELTA_H
#define VN_ENGINE_VNDELTA_H

#include "afx/afx.h"
#include "engine/VnDiffArg.h"

#include <string>

// Rebuilds into `result` (an empty set) the target that `records` and the
// delta text `delta` make from `source`.  The records must name known
// actions, lie inside the source, ascend on both sides and use exactly the
// delta text's lines; a single FullFile record takes the delta text as the
// whole target.  The result's last line ends as the line it came from did.
// False, with the reason in `why` and `result` untouched, when they don't.
VN_API bool VnApplyDelta(const CPtrArray& records, const CVnDiffArg& source, const CVnDiffArg& delta,
                         CVnDiffArg& result, std::string& why);

#endif  // VN_ENGINE_VNDELTA_H
