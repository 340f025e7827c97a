// VnDiscard.cpp - discarding confusing lines before the search.
//
// A line whose class never occurs on the other side cannot match: it is
// discarded at once.  A line whose class occurs more than M times there
// (M from the side's own length) is provisional: it stays only where it is
// unlikely to mislead the search, judged from the run of discards around it.
// The decision ignores line order, so the overall script need not be
// minimal; in exchange the search never spends effort on lines that have no
// partner.  Common-prefix lines (class 0) are never discarded.
#include "engine/VnDiscard.h"

#include <cassert>

int VnManyThreshold(int32_t lineCount) {
  int many = 5;
  for (int32_t t = (lineCount / 64) / 4; t > 0; t /= 4)
    many *= 2;
  return many;
}

static std::vector<int32_t> CountOccurrences(const CVnCompareSide& side, int32_t classCount) {
  std::vector<int32_t> counts(static_cast<size_t>(classCount), 0);
  for (int32_t i = 0; i < side.m_nRangeEnd; ++i)
    ++counts[static_cast<size_t>(side.m_classes[static_cast<size_t>(i)])];
  return counts;
}

// First marks of one side against the other side's occurrence counts.
static void MarkSide(const CVnCompareSide& side, const std::vector<int32_t>& otherCounts, unsigned char* marks) {
  const int many = VnManyThreshold(side.m_nRangeEnd);
  for (int32_t i = 0; i < side.m_nRangeEnd; ++i) {
    int32_t c = side.m_classes[static_cast<size_t>(i)];
    int32_t n = otherCounts[static_cast<size_t>(c)];
    if (c == 0)
      marks[i] = kKeepLine;
    else if (n == 0)
      marks[i] = kDiscardLine;
    else if (n > many)
      marks[i] = kProvisionalLine;
    else
      marks[i] = kKeepLine;
  }
}

// Longest stretch of provisional lines a run may keep: about the square root
// of a quarter of its length, plus one.
static int StretchLimit(int32_t runLength) {
  int m = 1;
  for (int32_t t = runLength / 16; t > 0; t /= 4)
    m *= 2;
  return m + 1;
}

// Clears every stretch of at least `limit` consecutive provisional marks.
static void ClearLongStretches(unsigned char* run, int32_t length, int limit) {
  int consec = 0;
  for (int32_t j = 0; j < length; ++j) {
    if (run[j] != kProvisionalLine)
      consec = 0;
    else if (++consec == limit)
      j -= consec;  // back to the stretch's start; from there consec > limit
    else if (consec > limit)
      run[j] = kKeepLine;
  }
}

// Clears provisional marks from one end of a run until three certain
// discards in a row, or a certain discard 8 or more lines in.  step is +1
// from the head, -1 from the tail (run then points at the last line).
static void ClearNearEnd(unsigned char* run, int32_t length, int step) {
  int consec = 0;
  for (int32_t j = 0; j < length; ++j) {
    unsigned char& mark = run[j * step];
    if (j >= 8 && mark == kDiscardLine)
      break;
    if (mark == kProvisionalLine) {
      consec = 0;
      mark = kKeepLine;
    } else if (mark == kKeepLine) {
      consec = 0;
    } else if (++consec == 3) {
      break;
    }
  }
}

// Settles one run that starts with a certain discard at i; gives the line at
// which the walk goes on.
static int32_t ResolveRun(unsigned char* marks, int32_t count, int32_t i) {
  int32_t j = i;
  int32_t provisional = 0;
  for (; j < count && marks[j] != kKeepLine; ++j)
    provisional += marks[j] == kProvisionalLine;
  while (j > i && marks[j - 1] == kProvisionalLine) {  // a run ends with a certain discard
    marks[--j] = kKeepLine;
    --provisional;
  }
  const int32_t length = j - i;
  assert(length > 0 && "a run starts with a certain discard");
  if (provisional * 4 > length) {
    for (int32_t k = i; k < j; ++k)
      if (marks[k] == kProvisionalLine)
        marks[k] = kKeepLine;
    return i + 1;
  }
  ClearLongStretches(marks + i, length, StretchLimit(length));
  ClearNearEnd(marks + i, length, +1);
  ClearNearEnd(marks + j - 1, length, -1);
  return j;
}

void VnResolveDiscards(unsigned char* marks, int32_t count) {
  int32_t i = 0;
  while (i < count) {
    if (marks[i] == kDiscardLine) {
      i = ResolveRun(marks, count, i);
      continue;
    }
    if (marks[i] == kProvisionalLine)
      marks[i] = kKeepLine;  // no certain discard opened this run
    ++i;
  }
}

// Kept lines go to the search in order; the rest are changed from the start.
static void FinishSide(CVnCompareSide& side, const unsigned char* marks) {
  side.m_keptClasses.resize(static_cast<size_t>(side.m_nRangeEnd));
  side.m_keptIndex.resize(static_cast<size_t>(side.m_nRangeEnd));
  int32_t k = 0;
  for (int32_t i = 0; i < side.m_nRangeEnd; ++i) {
    if (marks[i] == kKeepLine) {
      side.m_keptClasses[static_cast<size_t>(k)] = side.m_classes[static_cast<size_t>(i)];
      side.m_keptIndex[static_cast<size_t>(k)] = i;
      ++k;
    } else {
      side.m_pChanged[i] = 1;
    }
  }
  side.m_nKept = k;
}

void VnDiscardConfusingLines(CVnCompareState& state) {
  CVnCompareSide& src = state.m_source;
  CVnCompareSide& tgt = state.m_target;
  std::vector<unsigned char> srcMarks(static_cast<size_t>(src.m_nRangeEnd) + 1, 0);
  std::vector<unsigned char> tgtMarks(static_cast<size_t>(tgt.m_nRangeEnd) + 1, 0);
  {
    std::vector<int32_t> srcCounts = CountOccurrences(src, src.m_nClassCount);
    std::vector<int32_t> tgtCounts = CountOccurrences(tgt, tgt.m_nClassCount);
    MarkSide(src, tgtCounts, srcMarks.data());
    MarkSide(tgt, srcCounts, tgtMarks.data());
  }
  VnResolveDiscards(srcMarks.data(), src.m_nRangeEnd);
  VnResolveDiscards(tgtMarks.data(), tgt.m_nRangeEnd);
  FinishSide(src, srcMarks.data());
  FinishSide(tgt, tgtMarks.data());
}
