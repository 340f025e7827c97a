// VnWideSearch.cpp - the search of VnEditSearch.cpp, sixteen diagonals a
// step.
//
// Why a second form of the search, and why it gives the same answer:
//
//  - Where edits are dense nearly all of a comparison's time goes into the
//    furthest-reaching step, one diagonal at a time, with a branch on every
//    snake that the processor cannot predict.  The step is the same
//    arithmetic on every diagonal of a band, so it fits wide registers.
//    With AVX-512 (checked once, when the library is loaded) sixteen
//    diagonals take it together, their lanes' conditions in mask registers.
//    AVX2 forms of the same step were measured too: with eight lanes, no
//    mask registers and no 16-bit permute they spent as long as the
//    portable loop, so a processor without AVX-512 runs the portable one.
//  - The diagonals of one band all have one parity and read only their two
//    neighbours, which have the other.  Each direction therefore keeps its
//    furthest points in two arrays, one per parity: a band is a contiguous
//    run, and its neighbours are the other array at two adjacent offsets.
//  - The search only ever asks whether a source class equals a target
//    class, so the kept classes are renumbered: the classes found on both
//    sides get dense 16-bit numbers, and a class found on one side only
//    becomes one number per side that matches nothing.  A pair whose shared
//    classes do not fit (more than 65534 of them: long files with few
//    edits, where the search costs little) takes the portable search.
//  - Neighbouring diagonals' furthest points stem from one another, so the
//    lanes' points lie close together.  Their classes are read from two
//    windows of 64 classes, one per side, loaded around them and indexed in
//    registers (a gather costs about a load per lane); a lane that starts
//    outside its window compares its first pair alone, and one whose pair
//    leaves its window later gathers it.  Two snake steps are taken without a
//    branch, since most snakes end there where edits are dense; a snake
//    still running after four goes on alone, sixteen classes a compare, as
//    the trimming of a box does.
//  - Which of several minimal scripts comes out is fixed by the order of the
//    search: within one cost the forward pass first, the diagonals from the
//    highest down, the first overlap wins, the split at the backward point
//    of that diagonal.  Here each pass still goes first or second as there,
//    the chunks of a band run from the highest down, and within a chunk the
//    overlap kept is on its highest diagonal; so every middle diagonal, cost
//    and split point, and therefore every mark, is the portable search's.
//    Diagonals below the winning one are never read again.
//  - A box's halves share its corners, and the search of each half would
//    first redo, from the shared corner, the first costs of the box's own
//    search.  So each direction keeps its furthest points at a few costs
//    (an eighth apart) while its band is whole, and a half starts from the
//    latest of them that lies wholly inside it.  Inside the half, the
//    furthest point of a cost is the box's wherever the box's lies inside
//    the half (paths from the corner that end inside stay inside); points
//    only grow with the cost, so every earlier point is inside too, and the
//    half's own passes would have computed the same values.  The overlap
//    checks skipped that way cannot succeed: a half costs at least the
//    box's cost less the other half's bound, and the kept costs are below
//    half of that, where no two passes can meet.
//  - The portable search stays as the reference: tests hold this form
//    against it on any input (CVnCompareHooks::m_bWideSearch).
#include "engine/VnWideSearch.h"

#include "engine/VnEditSearch.h"

#include <cassert>
#include <cstdint>
#include <memory>
#include <vector>

#if (defined(__x86_64__) || defined(__i386__)) && (defined(__GNUC__) || defined(__clang__))
#define VN_SEARCH_WIDE 1
#include <immintrin.h>
// GCC 12 takes the deliberately undefined source operand inside its AVX-512
// intrinsics for an uninitialized variable.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wuninitialized"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#endif

#if defined(VN_SEARCH_WIDE)

#define VN_AVX512 __attribute__((target("avx2,avx512f,avx512bw")))

namespace {

const int32_t kForwardNone = -1;
const int32_t kBackwardNone = 0x7FFFFFFF;
// Class numbers of classes found on one side only: they match nothing.
const uint16_t kSourceOnly = 0xFFFF;
const uint16_t kTargetOnly = 0xFFFE;
const int32_t kMaxShared = 0xFFFE;
// Snake steps that a chunk takes without a branch, and at most in all,
// before the snakes still running go on one at a time.
const int kFreeSteps = 2;
const int kWindowSteps = 4;
// Spare classes before and after a packed side: a window may start from
// kClassPad before the first class to the count, and may hold 64.
const int32_t kClassPad = 64;
// Spare entries below and above each parity array: a chunk may start up to
// fifteen entries below its band and reads one neighbour further.
const int32_t kPad = 32;

struct Box {
  int32_t xlo, xhi, ylo, yhi;
};

// The band of diagonals one direction has reached.
struct Band {
  int32_t lo, hi;
};

// Where a pass met the other direction: the diagonal and its backward point.
struct Meeting {
  int32_t d, x;
};

// A direction's furthest points at one cost, taken from the corner (x0,
// y0) while its band was whole: diagonals mid - cost to mid + cost, step 2.
struct Snapshot {
  int32_t x0, y0, cost;
  std::vector<int32_t> x;
  int32_t Lowest() const { return x0 - y0 - cost; }
};
using Snapshots = std::vector<std::shared_ptr<const Snapshot>>;

// One direction's furthest points, kept apart by parity: diagonal d is entry
// (d + offset) >> 1 of half[d & 1].  The offset is even, so the parity of
// the sum is that of d.
struct Reach {
  std::unique_ptr<int32_t[]> store[2];
  int32_t* half[2];
  int32_t& At(int32_t d, int32_t offset) const { return half[d & 1][(d + offset) >> 1]; }
};

// Equal classes at a[0], b[0] onward, at most n, sixteen a step: the byte
// mask of the compare shows the first difference.
VN_AVX512 int32_t MatchForward(const uint16_t* a, const uint16_t* b, int32_t n) {
  int32_t k = 0;
  for (; k + 16 <= n; k += 16) {
    const __m256i va = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a + k));
    const __m256i vb = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b + k));
    const uint32_t differ = ~static_cast<uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi16(va, vb)));
    if (differ)
      return k + static_cast<int32_t>(__builtin_ctz(differ) / 2);
  }
  while (k < n && a[k] == b[k])
    ++k;
  return k;
}

// Equal classes at a[-1], b[-1] downward, at most n.
VN_AVX512 int32_t MatchBackward(const uint16_t* a, const uint16_t* b, int32_t n) {
  int32_t k = 0;
  for (; k + 16 <= n; k += 16) {
    const __m256i va = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a - k - 16));
    const __m256i vb = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b - k - 16));
    const uint32_t differ = ~static_cast<uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi16(va, vb)));
    if (differ)
      return k + static_cast<int32_t>(__builtin_clz(differ) / 2);
  }
  while (k < n && a[-k - 1] == b[-k - 1])
    ++k;
  return k;
}

// A window's first class: `ahead` classes before the middle of a and b,
// kept where the padded side can serve all of the window.  a and b may be
// anything (a lane outside the band holds whatever its entry held).
int32_t WindowStart(int32_t a, int32_t b, int32_t ahead, int32_t count) {
  const int64_t first = ((static_cast<int64_t>(a) + b) >> 1) - ahead;
  return first < -kClassPad ? -kClassPad : first > count ? count : static_cast<int32_t>(first);
}

class WideSearch {
public:
  WideSearch(CVnCompareState& st, const uint16_t* xv, const uint16_t* yv);
  int32_t SearchBox(Box box, Snapshots starts, Snapshots ends, int32_t least);

private:
  Meeting Middle(const Box& box, int32_t least, Snapshots& starts, Snapshots& ends);
  void Widen(Band& band, const Box& box, const Reach& reach, int32_t sentinel) const;
  template <bool kForward>
  int32_t Resume(const Snapshots& kept, const Box& box, int32_t most, Band& band) const;
  template <bool kForward>
  void Keep(Snapshots& kept, const Band& band, const Box& box, int32_t cost) const;
  template <bool kForward>
  bool Step(Band& band, const Band& opposite, bool check, const Box& box, Meeting& meeting, int32_t cost,
            Snapshots& kept, int32_t& keep);
  template <bool kForward>
  bool Pass(const Band& band, const Band& opposite, bool check, const Box& box, Meeting& meeting) const;
  template <bool kForward>
  void FinishSnakes(int32_t* xs, const int32_t* ys, unsigned lanes, const Box& box) const;

  CVnCompareState& m_st;
  const uint16_t* m_xv;
  const uint16_t* m_yv;
  int32_t m_nKept[2];
  int32_t m_offset;
  Reach m_forward, m_backward;
};

WideSearch::WideSearch(CVnCompareState& st, const uint16_t* xv, const uint16_t* yv)
    : m_st(st), m_xv(xv), m_yv(yv) {
  // Diagonals run from -(K1 + 1) to K0 + 1; the offset puts the lowest at
  // entry kPad or above.
  const int32_t k0 = st.m_source.m_nKept, k1 = st.m_target.m_nKept;
  m_nKept[0] = k0;
  m_nKept[1] = k1;
  m_offset = (k1 + 1 + 2 * kPad + 1) & ~1;
  const size_t size = static_cast<size_t>((k0 + 2 + m_offset) >> 1) + kPad;
  for (Reach* r : {&m_forward, &m_backward})
    for (int p = 0; p < 2; ++p) {
      r->store[p].reset(new int32_t[size]);  // not cleared: see CVnCompareState
      r->half[p] = r->store[p].get();
    }
}

// Widen of VnEditSearch.cpp, on the parity arrays.
void WideSearch::Widen(Band& band, const Box& box, const Reach& reach, int32_t sentinel) const {
  const int32_t dmin = box.xlo - box.yhi, dmax = box.xhi - box.ylo;
  if (band.lo > dmin)
    reach.At(--band.lo - 1, m_offset) = sentinel;
  else
    ++band.lo;
  if (band.hi < dmax)
    reach.At(++band.hi + 1, m_offset) = sentinel;
  else
    --band.hi;
}

// Runs the snakes of the given lanes (points xs, ys) to their ends, one
// lane at a time.
template <bool kForward>
void WideSearch::FinishSnakes(int32_t* xs, const int32_t* ys, unsigned lanes, const Box& box) const {
  for (; lanes; lanes &= lanes - 1) {
    const int l = __builtin_ctz(lanes);
    if (kForward) {
      const int32_t room = box.xhi - xs[l] < box.yhi - ys[l] ? box.xhi - xs[l] : box.yhi - ys[l];
      xs[l] += MatchForward(m_xv + xs[l], m_yv + ys[l], room);
    } else {
      const int32_t room = xs[l] - box.xlo < ys[l] - box.ylo ? xs[l] - box.xlo : ys[l] - box.ylo;
      xs[l] -= MatchBackward(m_xv + xs[l], m_yv + ys[l], room);
    }
  }
}

// One pass of one direction over its band, sixteen diagonals a chunk,
// chunks from the highest down.  With check set, looks for the first
// overlap with the opposite band, as the portable pass does after each
// diagonal.
template <bool kForward>
VN_AVX512 bool WideSearch::Pass(const Band& band, const Band& opposite, bool check, const Box& box,
                              Meeting& meeting) const {
  const Reach& mine = kForward ? m_forward : m_backward;
  const int p = band.hi & 1;
  int32_t* out = mine.half[p];
  const int32_t* low = mine.half[p ^ 1] - (p == 0 ? 1 : 0);
  const int32_t* theirs = (kForward ? m_backward : m_forward).half[p];
  const int32_t jlo = (band.lo + m_offset) >> 1, jhi = (band.hi + m_offset) >> 1;
  const __m512i twice = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
  const __m512i one = _mm512_set1_epi32(1);
  const __m512i xEdge = _mm512_set1_epi32(kForward ? box.xhi : box.xlo);
  const __m512i yEdge = _mm512_set1_epi32(kForward ? box.yhi : box.ylo);
  for (int32_t j0 = jhi - 15;; j0 -= 16) {
    const __mmask16 live = j0 >= jlo ? 0xFFFF : static_cast<__mmask16>(0xFFFF << (jlo - j0));
    const __m512i d = _mm512_add_epi32(_mm512_set1_epi32(2 * j0 + p - m_offset), twice);
    const __m512i below = _mm512_loadu_si512(low + j0);
    const __m512i above = _mm512_loadu_si512(low + j0 + 1);
    __m512i x = kForward ? _mm512_max_epi32(_mm512_add_epi32(below, one), above)
                         : _mm512_min_epi32(below, _mm512_sub_epi32(above, one));
    const __m512i y = _mm512_sub_epi32(x, d);
    // Steps the snakes can take inside the box; the steps taken.
    const __m512i room = kForward ? _mm512_min_epi32(_mm512_sub_epi32(xEdge, x), _mm512_sub_epi32(yEdge, y))
                                  : _mm512_min_epi32(_mm512_sub_epi32(x, xEdge), _mm512_sub_epi32(y, yEdge));
    __m512i steps = _mm512_setzero_si512();
    __mmask16 active = _mm512_mask_cmpgt_epi32_mask(live, room, steps);
    // The first pairs compared, and the windows around the middle of lanes
    // 0 and 15, a little ahead of the snakes.
    const __m512i xi = kForward ? x : _mm512_sub_epi32(x, one);
    const __m512i yi = kForward ? y : _mm512_sub_epi32(y, one);
    const int32_t ahead = kForward ? 24 : 39;
    const int32_t bx = WindowStart(_mm512_cvtsi512_si32(xi), _mm_extract_epi32(_mm512_extracti32x4_epi32(xi, 3), 3), ahead, m_nKept[0]);
    const int32_t by = WindowStart(_mm512_cvtsi512_si32(yi), _mm_extract_epi32(_mm512_extracti32x4_epi32(yi, 3), 3), ahead, m_nKept[1]);
    const __m512i wx0 = _mm512_loadu_si512(m_xv + bx), wx1 = _mm512_loadu_si512(m_xv + bx + 32);
    const __m512i wy0 = _mm512_loadu_si512(m_yv + by), wy1 = _mm512_loadu_si512(m_yv + by + 32);
    const __m512i ox0 = _mm512_sub_epi32(xi, _mm512_set1_epi32(bx));
    const __m512i oy0 = _mm512_sub_epi32(yi, _mm512_set1_epi32(by));
    // Lanes that start outside their windows compare their first pair
    // alone: most snakes end there, where a gather costs about as much for
    // a few lanes as for sixteen, and a lane whose snake does not end goes
    // on with the long ones.
    __mmask16 alone = 0;
    if (const __mmask16 outside = _mm512_mask_test_epi32_mask(active, _mm512_or_si512(ox0, oy0), _mm512_set1_epi32(~63))) {
      alignas(64) int32_t px[16], py[16];
      _mm512_store_si512(px, xi);
      _mm512_store_si512(py, yi);
      for (unsigned lanes = outside; lanes; lanes &= lanes - 1) {
        const int l = __builtin_ctz(lanes);
        if (m_xv[px[l]] == m_yv[py[l]])
          alone = static_cast<__mmask16>(alone | (1u << l));
      }
      active = static_cast<__mmask16>(active & ~outside);
    }
    // Lanes whose pairs stay inside both windows for every step taken here
    // (offsets 0 to 63, unsigned); the others gather theirs.
    const __m512i lead = _mm512_set1_epi32(kForward ? 0 : kWindowSteps - 1);
    const __mmask16 roaming = _mm512_mask_cmpgt_epu32_mask(
        active, _mm512_max_epu32(_mm512_sub_epi32(ox0, lead), _mm512_sub_epi32(oy0, lead)), _mm512_set1_epi32(64 - kWindowSteps));
    for (int s = 0; s < kWindowSteps; ++s) {
      if (s >= kFreeSteps && !active)
        break;
      const __m512i ox = kForward ? _mm512_add_epi32(ox0, steps) : _mm512_sub_epi32(ox0, steps);
      const __m512i oy = kForward ? _mm512_add_epi32(oy0, steps) : _mm512_sub_epi32(oy0, steps);
      __m512i cx = _mm512_permutex2var_epi16(wx0, ox, wx1), cy = _mm512_permutex2var_epi16(wy0, oy, wy1);
      if (roaming & active) {
        if (const __mmask16 outside = _mm512_mask_test_epi32_mask(roaming & active, _mm512_or_si512(ox, oy), _mm512_set1_epi32(~63))) {
          cx = _mm512_mask_i32gather_epi32(cx, outside, _mm512_add_epi32(ox, _mm512_set1_epi32(bx)), m_xv, 2);
          cy = _mm512_mask_i32gather_epi32(cy, outside, _mm512_add_epi32(oy, _mm512_set1_epi32(by)), m_yv, 2);
        }
      }
      __mmask16 same = _mm512_mask_testn_epi32_mask(active, _mm512_xor_si512(cx, cy), _mm512_set1_epi32(0xFFFF));
      // Hidden from the compiler, which would otherwise branch past a free
      // step when no lane is left: the branch this loop avoids.
      __asm__("" : "+k"(same));
      steps = _mm512_mask_add_epi32(steps, same, steps, one);
      active = _mm512_mask_cmpgt_epi32_mask(same, room, steps);
    }
    x = kForward ? _mm512_add_epi32(x, steps) : _mm512_sub_epi32(x, steps);
    if (const unsigned rest = static_cast<unsigned>(active | alone)) {
      alignas(64) int32_t xs[16], ys[16];
      _mm512_store_si512(xs, x);
      _mm512_store_si512(ys, kForward ? _mm512_add_epi32(y, steps) : _mm512_sub_epi32(y, steps));
      FinishSnakes<kForward>(xs, ys, rest, box);
      x = _mm512_load_si512(xs);
    }
    _mm512_mask_storeu_epi32(out + j0, live, x);
    if (check) {
      const __mmask16 inOpposite = live & _mm512_cmpge_epi32_mask(d, _mm512_set1_epi32(opposite.lo)) &
                                   _mm512_cmple_epi32_mask(d, _mm512_set1_epi32(opposite.hi));
      const __m512i other = _mm512_loadu_si512(theirs + j0);
      const __mmask16 met = inOpposite & (kForward ? _mm512_cmple_epi32_mask(other, x) : _mm512_cmple_epi32_mask(x, other));
      if (met) {
        const int l = 31 - __builtin_clz(static_cast<unsigned>(met));
        meeting.d = 2 * (j0 + l) + p - m_offset;
        meeting.x = m_backward.half[p][j0 + l];
        return true;
      }
    }
    if (j0 <= jlo)
      return false;
  }
}

// Whether a snapshot can start a direction's search of this box: taken at
// the box's corner, with every point inside the box.  Its band then lies
// within the box's diagonals, since a point on a diagonal beyond them is
// outside, so the box's own band would have been whole up to that cost.
template <bool kForward>
bool Fits(const Snapshot& s, const Box& box) {
  if (kForward ? (s.x0 != box.xlo || s.y0 != box.ylo) : (s.x0 != box.xhi || s.y0 != box.yhi))
    return false;
  const int32_t lo = s.Lowest();
  for (size_t i = 0; i < s.x.size(); ++i) {
    const int32_t x = s.x[i], y = x - (lo + 2 * static_cast<int32_t>(i));
    if (kForward ? (x > box.xhi || y > box.yhi) : (x < box.xlo || y < box.ylo))
      return false;
  }
  return true;
}

// Starts a direction from the latest snapshot that fits the box and was
// taken at a cost of at most `most`; gives that cost, or 0 with the band
// left at the corner.
template <bool kForward>
int32_t WideSearch::Resume(const Snapshots& kept, const Box& box, int32_t most, Band& band) const {
  const Reach& reach = kForward ? m_forward : m_backward;
  for (auto it = kept.rbegin(); it != kept.rend(); ++it) {
    const Snapshot& s = **it;
    if (s.cost > most || !Fits<kForward>(s, box))
      continue;
    band = {s.Lowest(), s.Lowest() + 2 * s.cost};
    for (size_t i = 0; i < s.x.size(); ++i)
      reach.At(band.lo + 2 * static_cast<int32_t>(i), m_offset) = s.x[i];
    return s.cost;
  }
  return 0;
}

// Keeps a direction's points after the pass of `cost`, while its band is
// whole.
template <bool kForward>
void WideSearch::Keep(Snapshots& kept, const Band& band, const Box& box, int32_t cost) const {
  if (band.hi - band.lo != 2 * cost)
    return;
  const Reach& reach = kForward ? m_forward : m_backward;
  auto s = std::make_shared<Snapshot>();
  s->x0 = kForward ? box.xlo : box.xhi;
  s->y0 = kForward ? box.ylo : box.yhi;
  s->cost = cost;
  s->x.resize(static_cast<size_t>(cost) + 1);
  for (int32_t i = 0; i <= cost; ++i)
    s->x[static_cast<size_t>(i)] = reach.At(band.lo + 2 * i, m_offset);
  kept.push_back(std::move(s));
}

// The next cost to keep, an eighth on: closer steps let a half skip more
// of its passes, for more memory.
int32_t NextKept(int32_t cost) { return cost + (cost < 8 ? 1 : cost / 8); }

// Drops the snapshots taken above `most`.
void Prune(Snapshots& kept, int32_t most) {
  while (!kept.empty() && kept.back()->cost > most)
    kept.pop_back();
}

// One direction's pass of `cost`: widens its band, runs the pass (true when
// it meets the other direction) and keeps its points when `keep` is due.
template <bool kForward>
bool WideSearch::Step(Band& band, const Band& opposite, bool check, const Box& box, Meeting& meeting,
                      int32_t cost, Snapshots& kept, int32_t& keep) {
  Widen(band, box, kForward ? m_forward : m_backward, kForward ? kForwardNone : kBackwardNone);
  if (Pass<kForward>(band, opposite, check, box, meeting))
    return true;
  if (cost == keep) {
    Keep<kForward>(kept, band, box, cost);
    keep = NextKept(cost);
  }
  return false;
}

// VnMiddleDiagonal of VnEditSearch.cpp: the same bands, passes and answer.
// The box costs at least `least`.  `starts` and `ends` bring the snapshots
// of the box's corners and take back those for its halves.
Meeting WideSearch::Middle(const Box& box, int32_t least, Snapshots& starts, Snapshots& ends) {
  const int32_t fmid = box.xlo - box.ylo, bmid = box.xhi - box.yhi;
  const bool odd = ((fmid - bmid) & 1) != 0;
  Band f = {fmid, fmid}, b = {bmid, bmid};
  m_forward.At(fmid, m_offset) = box.xlo;
  m_backward.At(bmid, m_offset) = box.xhi;
  // Passes of costs up to `most` meet nowhere: they could only meet for
  // less than `least`.
  const int32_t most = least > 0 ? (least - 1) / 2 : 0;
  int32_t cf = Resume<true>(starts, box, most, f), cb = Resume<false>(ends, box, most, b);
  Prune(starts, cf);
  Prune(ends, cb);
  int32_t keepF = NextKept(cf), keepB = NextKept(cb);
  Meeting meeting = {0, 0};
  // The direction that starts behind catches up, without checks.
  for (; cf < cb; ++cf)
    Step<true>(f, b, false, box, meeting, cf + 1, starts, keepF);
  for (; cb < cf; ++cb)
    Step<false>(b, f, false, box, meeting, cb + 1, ends, keepB);
  for (int32_t c = cf + 1;; ++c) {
    if (Step<true>(f, b, odd, box, meeting, c, starts, keepF)) {
      m_st.m_nCost = 2 * c - 1;
      break;
    }
    if (Step<false>(b, f, !odd, box, meeting, c, ends, keepB)) {
      m_st.m_nCost = 2 * c;
      break;
    }
  }
  // A half starts from costs up to (least - 1) / 2, where least is c, the
  // last cost of the passes, for the first half and at most c for the
  // second: keep only those.
  const int32_t c = (m_st.m_nCost + 1) / 2;
  Prune(starts, (c - 1) / 2);
  Prune(ends, (c - 1) / 2);
  return meeting;
}

// VnSearchBox of VnEditSearch.cpp, trimming sixteen classes a step; gives
// the box's cost.  The box costs at least `least`; `starts` and `ends` are
// snapshots taken at its top-left and bottom-right corners.
int32_t WideSearch::SearchBox(Box box, Snapshots starts, Snapshots ends, int32_t least) {
  int32_t total = -1;
  int32_t &xlo = box.xlo, &xhi = box.xhi, &ylo = box.ylo, &yhi = box.yhi;
  for (;;) {
    int32_t k = MatchForward(m_xv + xlo, m_yv + ylo, xhi - xlo < yhi - ylo ? xhi - xlo : yhi - ylo);
    xlo += k, ylo += k;
    k = MatchBackward(m_xv + xhi, m_yv + yhi, xhi - xlo < yhi - ylo ? xhi - xlo : yhi - ylo);
    xhi -= k, yhi -= k;
    if (xlo == xhi || ylo == yhi) {
      if (xlo == xhi)
        VnMarkKept(m_st.m_target, ylo, yhi);
      else
        VnMarkKept(m_st.m_source, xlo, xhi);
      return total >= 0 ? total : (yhi - ylo) + (xhi - xlo);
    }
    const Meeting m = Middle(box, least, starts, ends);
    const int32_t cost = m_st.m_nCost;
    assert(cost >= 2 && "differing ends make every split a real one");
    if (total < 0)
      total = cost;
    // The first half costs at least the box's cost less the second's bound,
    // the backward cost of the meeting; the second at least what the first
    // leaves.
    const int32_t first = SearchBox(Box{xlo, m.x, ylo, m.x - m.d}, std::move(starts), Snapshots(), cost - cost / 2);
    starts.clear();
    xlo = m.x;
    ylo = m.x - m.d;
    least = cost - first;
  }
}

// The kept classes of both sides renumbered into 16 bits, each side with
// kClassPad spare classes at both ends that match nothing; false when the
// classes found on both sides are too many.
bool Pack(const CVnCompareState& st, std::vector<uint16_t>& xv, std::vector<uint16_t>& yv) {
  const CVnCompareSide& src = st.m_source;
  const CVnCompareSide& tgt = st.m_target;
  const int32_t kUnseen = -2, kInSource = -1;
  std::vector<int32_t> number(static_cast<size_t>(src.m_nClassCount), kUnseen);
  for (int32_t k = 0; k < src.m_nKept; ++k)
    number[static_cast<size_t>(src.m_keptClasses[static_cast<size_t>(k)])] = kInSource;
  int32_t shared = 0;
  for (int32_t k = 0; k < tgt.m_nKept; ++k) {
    int32_t& n = number[static_cast<size_t>(tgt.m_keptClasses[static_cast<size_t>(k)])];
    if (n == kInSource) {
      if (shared == kMaxShared)
        return false;
      n = shared++;
    }
  }
  xv.assign(static_cast<size_t>(src.m_nKept) + 2 * kClassPad, kSourceOnly);
  yv.assign(static_cast<size_t>(tgt.m_nKept) + 2 * kClassPad, kTargetOnly);
  for (int32_t k = 0; k < src.m_nKept; ++k) {
    const int32_t n = number[static_cast<size_t>(src.m_keptClasses[static_cast<size_t>(k)])];
    xv[static_cast<size_t>(k + kClassPad)] = n >= 0 ? static_cast<uint16_t>(n) : kSourceOnly;
  }
  for (int32_t k = 0; k < tgt.m_nKept; ++k) {
    const int32_t n = number[static_cast<size_t>(tgt.m_keptClasses[static_cast<size_t>(k)])];
    yv[static_cast<size_t>(k + kClassPad)] = n >= 0 ? static_cast<uint16_t>(n) : kTargetOnly;
  }
  return true;
}

bool HasAvx512() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx2");
}

const bool kAvx512 = HasAvx512();

}  // namespace

bool VnWideSearchAvailable() { return kAvx512; }

bool VnWideSearch(CVnCompareState& st) {
  assert(kAvx512 && "the wide search runs only where the processor has AVX-512");
  std::vector<uint16_t> xv, yv;
  if (!Pack(st, xv, yv))
    return false;
  // The 32-bit classes are not read again.
  std::vector<int32_t>().swap(st.m_source.m_keptClasses);
  std::vector<int32_t>().swap(st.m_target.m_keptClasses);
  WideSearch(st, xv.data() + kClassPad, yv.data() + kClassPad)
      .SearchBox(Box{0, st.m_source.m_nKept, 0, st.m_target.m_nKept}, Snapshots(), Snapshots(), 0);
  return true;
}

#else

bool VnWideSearchAvailable() { return false; }

bool VnWideSearch(CVnCompareState& st) {
  (void)st;
  return false;
}

#endif
