// VnCompareState.h - the working state of one comparison.
//
// Made on the stack of Compare and released on every way out.  Each side
// keeps, for its lines 0 to E-1 (E: line count less the common suffix), a
// class number, a changed byte, and the subsequence of kept lines that goes
// to the search.  The changed array has one zero byte before line 0 and one
// behind line E-1, so scans may look one step past either end.
#ifndef VN_ENGINE_VNCOMPARESTATE_H
#define VN_ENGINE_VNCOMPARESTATE_H

#include "engine/VnLineIdentity.h"

#include <cstdint>
#include <memory>
#include <vector>

struct CVnCompareSide {
  int32_t m_nLineTotal = 0;  // lines in the arrays: E once classes are given
  int32_t m_nPrefix = 0;     // P: lines common to both sides at the start
  int32_t m_nRangeEnd = 0;   // E: lines E and above take no part
  int32_t m_nClassCount = 0; // every class number lies below it
  std::vector<int32_t> m_classes;      // per line, 0 to E-1
  int32_t m_nKept = 0;                 // K: lines that go to the search
  std::vector<int32_t> m_keptClasses;  // classes of the kept lines, in order
  std::vector<unsigned char> m_changedBuf;
  unsigned char* m_pChanged = nullptr;  // m_changedBuf + 1: indexes -1 and E are 0
  std::vector<int32_t> m_keptIndex;     // kept line k -> its line number

  void MakeChanged() {
    m_changedBuf.assign(static_cast<size_t>(m_nRangeEnd) + 2, 0);
    m_pChanged = m_changedBuf.data() + 1;
  }
  // Every line goes to the search unchanged: the state without discarding.
  void KeepAll();
};

struct CVnCompareState {
  CVnLineFlags m_flags;
  CVnCompareSide m_source;
  CVnCompareSide m_target;
  // Left uninitialised: the search writes every entry it reads (the band's
  // start and a sentinel beyond each new edge), and on pairs that differ
  // little it reads only diagonals near the middle, so most pages of these
  // arrays are never touched.
  std::unique_ptr<int32_t[]> m_forwardBuf;
  std::unique_ptr<int32_t[]> m_backwardBuf;
  int32_t* m_pForward = nullptr;   // element K1 + 1: diagonals -(K1+1)..K0+1 index directly
  int32_t* m_pBackward = nullptr;
  int32_t m_nCost = 0;             // cost of the last middle-diagonal search

  void MakeDiagonalBuffers();
};

// The two shaping steps around the search can be switched off, which leaves
// a minimal edit script; tests use this to check the search on its own.
// The wide search (VnWideSearch.h) can be switched off too, so that tests
// hold it against the portable one.
struct CVnCompareHooks {
  bool m_bDiscard = true;
  bool m_bShift = true;
  bool m_bWideSearch = true;
};
CVnCompareHooks VnGetCompareHooks();
void VnSetCompareHooks(const CVnCompareHooks& hooks);

#endif  // VN_ENGINE_VNCOMPARESTATE_H
