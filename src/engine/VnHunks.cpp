// VnHunks.cpp - from changed flags to change records.
//
// Walking both sides at once, a pair of unchanged lines is passed over; any
// other position opens a hunk that takes every changed line from there on
// each side.  The pair of unchanged lines that closes a hunk is passed too,
// so two hunks never touch.  A hunk with lines on both sides pairs them off
// into a Change of equal length on both sides, and the longer side's rest
// becomes a Delete or an Insert right behind it.
#include "engine/VnHunks.h"
#include "engine/VnDiffChange.h"

#include <cassert>

CVnHunk* VnBuildHunks(const CVnCompareState& st) {
  const unsigned char* ch0 = st.m_source.m_pChanged;
  const unsigned char* ch1 = st.m_target.m_pChanged;
  const int32_t e0 = st.m_source.m_nRangeEnd, e1 = st.m_target.m_nRangeEnd;
  CVnHunk* head = nullptr;
  CVnHunk** tail = &head;
  int32_t i = 0, j = 0;
  while (i < e0 || j < e1) {
    assert(i <= e0 && j <= e1 && "unchanged lines pair up one to one");
    if (!ch0[i] && !ch1[j]) {
      ++i, ++j;
      continue;
    }
    const int32_t s = i, t = j;
    while (ch0[i])
      ++i;
    while (ch1[j])
      ++j;
    try {
      *tail = new CVnHunk{nullptr, j - t, i - s, s, t};
    } catch (...) {
      VnFreeHunks(head);
      throw;
    }
    tail = &(*tail)->m_pNext;
    ++i, ++j;
  }
  return head;
}

void VnFreeHunks(CVnHunk* hunks) {
  while (hunks) {
    CVnHunk* next = hunks->m_pNext;
    delete hunks;
    hunks = next;
  }
}

static void Append(CPtrArray& changes, CVnDiffChange::Action action, long s0, long e0, long s1, long e1) {
  CVnDiffChange* record = new CVnDiffChange(action, s0, e0, s1, e1);
  try {
    changes.Add(record);
  } catch (...) {
    delete record;
    throw;
  }
}

void VnAppendRecords(const CVnHunk& h, CPtrArray& changes) {
  const long s = h.m_nFirstSource, t = h.m_nFirstTarget;
  const long m = h.m_nDeleted, n = h.m_nInserted;
  if (m == 0) {
    if (n > 0)
      Append(changes, CVnDiffChange::Insert, 0, 0, t + 1, t + n);
  } else if (n == 0) {
    Append(changes, CVnDiffChange::Delete, s + 1, s + m, 0, 0);
  } else if (m == n) {
    Append(changes, CVnDiffChange::Change, s + 1, s + m, t + 1, t + n);
  } else if (m > n) {
    Append(changes, CVnDiffChange::Change, s + 1, s + n, t + 1, t + n);
    Append(changes, CVnDiffChange::Delete, s + n + 1, s + m, 0, 0);
  } else {
    Append(changes, CVnDiffChange::Change, s + 1, s + m, t + 1, t + m);
    Append(changes, CVnDiffChange::Insert, 0, 0, t + m + 1, t + n);
  }
}
