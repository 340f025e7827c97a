// VnOriginalLineEnds.h - the line ends a decoded file had in its own bytes.
// Internal to the comparison.
#ifndef VN_COMPARE_VNORIGINALLINEENDS_H
#define VN_COMPARE_VNORIGINALLINEENDS_H

#include "compare/VnComparison.h"

#include <vector>

// One line end per line of the file the intake has just loaded: lineCount
// lines, the last one unterminated (None) unless `terminated`.  Raises
// CException* when the file must be read again and can't be.
std::vector<VnLineEnd> VnOriginalLineEnds(const CVnDiffFile& file, long lineCount, bool terminated);

#endif  // VN_COMPARE_VNORIGINALLINEENDS_H
