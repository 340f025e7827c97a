// VnCompare.cpp - one comparison, step by step.
//
//  1. Strip the common prefix and suffix.  The prefix scan stops one line
//     short of the end of either file and the suffix scan never reaches the
//     line where the prefix scan stopped; prefix lines stay in the arrays as
//     class 0, suffix lines leave them.
//  2. Hash the lines in between and give every line a class number (equal
//     lines, equal numbers), source first.
//  3. Discard lines that match nothing, or too much, on the other side.
//  4. Search the kept lines for a shortest edit script.
//  5. Slide changed runs as late as they go, source side first.
//  6. Gather hunks and turn them into records.
// Steps 3 and 5 shape the result; without them it is a minimal script.
#include "engine/VnCompareState.h"
#include "engine/VnDiffArg.h"
#include "engine/VnDiscard.h"
#include "engine/VnEditSearch.h"
#include "engine/VnHunks.h"
#include "engine/VnShift.h"

#include <cassert>

static CVnCompareHooks g_hooks;

CVnCompareHooks VnGetCompareHooks() { return g_hooks; }
void VnSetCompareHooks(const CVnCompareHooks& hooks) { g_hooks = hooks; }

void CVnCompareSide::KeepAll() {
  m_keptClasses = m_classes;
  m_keptIndex.resize(static_cast<size_t>(m_nRangeEnd));
  for (int32_t k = 0; k < m_nRangeEnd; ++k)
    m_keptIndex[static_cast<size_t>(k)] = k;
  m_nKept = m_nRangeEnd;
}

void CVnCompareState::MakeDiagonalBuffers() {
  const size_t size = static_cast<size_t>(m_source.m_nKept) + static_cast<size_t>(m_target.m_nKept) + 3;
  m_forwardBuf.reset(new int32_t[size]);
  m_backwardBuf.reset(new int32_t[size]);
  m_pForward = m_forwardBuf.get() + m_target.m_nKept + 1;
  m_pBackward = m_backwardBuf.get() + m_target.m_nKept + 1;
}

//===-- Strip --------------------------------------------------------------===//

// Equality of source line i and target line j on the stored hashes; the
// array access is bounds-checked.
static bool SameLine(const CVnDiffLineArray& a, int32_t i, const CVnDiffLineArray& b, int32_t j,
                     const CVnLineFlags& flags) {
  return VnLinesEqual(*a.GetAt(i), *b.GetAt(j), flags);
}

// Sets prefix and range end of both sides.
static void StripCommonEnds(const CVnDiffLineArray& src, const CVnDiffLineArray& tgt, CVnCompareState& st) {
  const int32_t n0 = static_cast<int32_t>(src.GetSize()), n1 = static_cast<int32_t>(tgt.GetSize());
  const int32_t l0 = n0 > 0 ? n0 - 1 : 0, l1 = n1 > 0 ? n1 - 1 : 0;
  int32_t prefix = 0, i = 0, lastI = 0, lastJ = 0;
  if (l0 != 0) {
    for (;;) {
      if (i == l1)
        break;
      lastI = lastJ = i;
      bool same = SameLine(src, i, tgt, i, st.m_flags);
      ++i;
      if (!same)
        break;
      ++prefix;
      if (i == l0)
        break;
    }
  }
  st.m_source.m_nPrefix = st.m_target.m_nPrefix = prefix;
  int32_t suffix = 0;
  if (l0 != lastI) {
    for (int32_t x = l0, y = l1;;) {
      if (y == lastJ)
        break;
      bool same = SameLine(src, x, tgt, y, st.m_flags);
      --x, --y;
      if (!same)
        break;
      ++suffix;
      if (x == lastI)
        break;
    }
  }
  st.m_source.m_nRangeEnd = n0 - suffix;
  st.m_target.m_nRangeEnd = n1 - suffix;
}

//===-- Slots and classes --------------------------------------------------===//

// Hashes each line of the side's range and gives it its class; prefix lines
// are class 0 and are not hashed.  A slot lives only for its own call: the
// table keeps the founder's hash and record, not the slot.  A line is hashed
// kAhead lines before its class is looked up, and its bucket and first node
// are fetched on the way, so that the table's cache misses overlap with
// other work; the line's own text is still in the cache when it is compared.
static void ClassifySide(CVnClassTable& table, const CVnDiffLineArray& lines, CVnCompareSide& side,
                         const CVnLineFlags& flags) {
  const int32_t first = side.m_nPrefix, end = side.m_nRangeEnd;
  side.m_classes.assign(static_cast<size_t>(end), 0);
  CVnDiffLine* const* line = reinterpret_cast<CVnDiffLine* const*>(lines.GetData());
  const int32_t kAhead = 16;
  for (int32_t i = first; i < end && i < first + kAhead; ++i)
    table.PrefetchBucket(VnHashLine(*line[i], flags));
  for (int32_t i = first; i < end; ++i) {
    if (i + kAhead < end)
      table.PrefetchBucket(VnHashLine(*line[i + kAhead], flags));
    if (i + kAhead / 2 < end)
      table.PrefetchHead(line[i + kAhead / 2]->GetHash());
    const CVnLineSlot slot = {line[i], i, line[i]->GetHash()};
    side.m_classes[static_cast<size_t>(i)] = table.ClassOf(slot);
  }
  side.m_nLineTotal = side.m_nRangeEnd;
}

// The table lives only while classes are handed out.
static void AssignClasses(const CVnDiffLineArray& src, const CVnDiffLineArray& tgt, CVnCompareState& st) {
  const uint32_t size = static_cast<uint32_t>(st.m_source.m_nRangeEnd) + static_cast<uint32_t>(st.m_target.m_nRangeEnd) + 5;
  CVnClassTable table(size, st.m_flags);
  ClassifySide(table, src, st.m_source, st.m_flags);
  ClassifySide(table, tgt, st.m_target, st.m_flags);
  st.m_source.m_nClassCount = st.m_target.m_nClassCount = table.Count();
}

//===-- The call -----------------------------------------------------------===//

static void EmitRecords(const CVnCompareState& st, CPtrArray& changes) {
  CVnHunk* hunks = VnBuildHunks(st);
  try {
    for (const CVnHunk* h = hunks; h; h = h->m_pNext)
      VnAppendRecords(*h, changes);
  } catch (...) {
    VnFreeHunks(hunks);
    throw;
  }
  VnFreeHunks(hunks);
}

void CVnDiffArg::Compare(int ignoreWhitespace, int ignoreCase, int ignoreLineEnds, CVnDiffArg& target,
                         CPtrArray& changes) {
  CVnCompareState st;
  st.m_flags.m_bIgnoreWhitespace = ignoreWhitespace != 0;
  st.m_flags.m_bIgnoreCase = ignoreCase != 0;
  st.m_flags.m_bIgnoreLineEnds = ignoreLineEnds != 0;

  StripCommonEnds(m_lines, target.m_lines, st);
  CVnCompareSide& src = st.m_source;
  CVnCompareSide& tgt = st.m_target;
  if (src.m_nPrefix == src.m_nRangeEnd && tgt.m_nPrefix == tgt.m_nRangeEnd)
    return;
  assert(src.m_nPrefix <= src.m_nRangeEnd && tgt.m_nPrefix <= tgt.m_nRangeEnd && "suffix stops before the prefix");

  AssignClasses(m_lines, target.m_lines, st);
  src.MakeChanged();
  tgt.MakeChanged();
  if (g_hooks.m_bDiscard) {
    VnDiscardConfusingLines(st);
  } else {
    src.KeepAll();
    tgt.KeepAll();
  }
  VnSearchKeptLines(st);
  if (g_hooks.m_bShift)
    VnShiftAll(st);
  EmitRecords(st, changes);
}
