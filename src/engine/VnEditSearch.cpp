// VnEditSearch.cpp - the bidirectional, linear-space O(ND) search.
//
// A box is trimmed of equal lines at both ends; then a forward search from
// its top-left corner and a backward one from its bottom-right corner widen
// their bands of diagonals one edit at a time until their furthest points
// meet.  The box is split at the backward point of the meeting diagonal: the
// first half by recursion, the second by going round the loop again.  There
// is no cost limit and no heuristic: every box is searched to the end, so
// the result on the kept lines is minimal.  Within one cost the forward pass
// runs first and diagonals are tried from the highest down; the first
// overlap wins, which fixes which of several minimal scripts comes out.
#include "engine/VnEditSearch.h"

#include "engine/VnWideSearch.h"

#include <cassert>

static const int32_t kForwardNone = -1;
static const int32_t kBackwardNone = 0x7FFFFFFF;

namespace {

// The band of diagonals one direction has reached.
struct Band {
  int32_t lo, hi;
};

}  // namespace

// Widens a band by one on each side within [dmin, dmax], setting a sentinel
// beyond each new edge; at a limit the band's parity flips inward instead.
static void Widen(Band& band, int32_t dmin, int32_t dmax, int32_t* v, int32_t sentinel) {
  if (band.lo > dmin)
    v[--band.lo - 1] = sentinel;
  else
    ++band.lo;
  if (band.hi < dmax)
    v[++band.hi + 1] = sentinel;
  else
    --band.hi;
}

int32_t VnMiddleDiagonal(CVnCompareState& st, int32_t xlo, int32_t xhi, int32_t ylo, int32_t yhi) {
  const int32_t* xv = st.m_source.m_keptClasses.data();
  const int32_t* yv = st.m_target.m_keptClasses.data();
  int32_t* fd = st.m_pForward;
  int32_t* bd = st.m_pBackward;
  const int32_t dmin = xlo - yhi, dmax = xhi - ylo;
  const int32_t fmid = xlo - ylo, bmid = xhi - yhi;
  const bool odd = ((fmid - bmid) & 1) != 0;
  Band f = {fmid, fmid}, b = {bmid, bmid};
  fd[fmid] = xlo;
  bd[bmid] = xhi;
  for (int32_t c = 1;; ++c) {
    // Forward: one more edit from the top-left corner.
    Widen(f, dmin, dmax, fd, kForwardNone);
    for (int32_t d = f.hi; d >= f.lo; d -= 2) {
      int32_t tlo = fd[d - 1], thi = fd[d + 1];
      int32_t x = tlo >= thi ? tlo + 1 : thi;
      int32_t y = x - d;
      while (x < xhi && y < yhi && xv[x] == yv[y])
        ++x, ++y;
      fd[d] = x;
      if (odd && b.lo <= d && d <= b.hi && bd[d] <= fd[d]) {
        st.m_nCost = 2 * c - 1;
        return d;
      }
    }
    // Backward: one more edit from the bottom-right corner.
    Widen(b, dmin, dmax, bd, kBackwardNone);
    for (int32_t d = b.hi; d >= b.lo; d -= 2) {
      int32_t tlo = bd[d - 1], thi = bd[d + 1];
      int32_t x = tlo < thi ? tlo : thi - 1;
      int32_t y = x - d;
      while (x > xlo && y > ylo && xv[x - 1] == yv[y - 1])
        --x, --y;
      bd[d] = x;
      if (!odd && f.lo <= d && d <= f.hi && bd[d] <= fd[d]) {
        st.m_nCost = 2 * c;
        return d;
      }
    }
  }
}

void VnMarkKept(const CVnCompareSide& side, int32_t lo, int32_t hi) {
  for (int32_t k = lo; k < hi; ++k)
    side.m_pChanged[side.m_keptIndex[static_cast<size_t>(k)]] = 1;
}

void VnSearchBox(CVnCompareState& st, int32_t xlo, int32_t xhi, int32_t ylo, int32_t yhi) {
  const int32_t* xv = st.m_source.m_keptClasses.data();
  const int32_t* yv = st.m_target.m_keptClasses.data();
  for (;;) {
    while (xlo < xhi && ylo < yhi && xv[xlo] == yv[ylo])
      ++xlo, ++ylo;
    while (xhi > xlo && yhi > ylo && xv[xhi - 1] == yv[yhi - 1])
      --xhi, --yhi;
    if (xlo == xhi) {
      VnMarkKept(st.m_target, ylo, yhi);
      return;
    }
    if (ylo == yhi) {
      VnMarkKept(st.m_source, xlo, xhi);
      return;
    }
    int32_t d = VnMiddleDiagonal(st, xlo, xhi, ylo, yhi);
    assert(st.m_nCost >= 2 && "differing ends make every split a real one");
    int32_t x = st.m_pBackward[d];
    int32_t y = x - d;
    VnSearchBox(st, xlo, x, ylo, y);
    xlo = x;
    ylo = y;
  }
}

void VnSearchKeptLines(CVnCompareState& st) {
  if (VnGetCompareHooks().m_bWideSearch && VnWideSearchAvailable() && VnWideSearch(st))
    return;
  st.MakeDiagonalBuffers();
  VnSearchBox(st, 0, st.m_source.m_nKept, 0, st.m_target.m_nKept);
}
