// VnLineIdentity.cpp - line hash, line equality and class numbers.
//
// Hash: h += u * p * w over the units that count, with position p from 1 and
// weight w from 6293815, multiplied by 6293815 after each unit, all unsigned
// 32-bit.  Skipped units (blanks under ignore whitespace, CR/LF under ignore
// line ends) move neither p nor w, so "a b" hashes like "ab".  Under ignore
// case the units are lower-cased up to the first NUL only, the way a C string
// lower-casing would treat a copy of the line: behind a NUL, case counts.
// 8-bit units lower-case by the C locale (A-Z only), 16-bit ones by towlower.
//
// Equality tests cheap facts first (length when no flag can excuse a length
// difference, then the stored hashes) and walks the units only when needed.
#include "engine/VnLineIdentity.h"

#include "engine/VnHashKernels.h"

#include <cassert>
#include <cstring>

static const uint32_t kHashWeight = 6293815;  // 0x600937

static uint32_t Lower8(uint32_t u) { return (u >= 'A' && u <= 'Z') ? u + ('a' - 'A') : u; }
static uint32_t Lower16(uint32_t u) { return static_cast<uint16_t>(VnToLower(static_cast<WCHAR>(u))); }

static bool IsBlank(uint32_t u) { return u == ' ' || u == '\t'; }
static bool IsLineEnd(uint32_t u) { return u == 13 || u == 10; }

// Unit i of a line, zero-extended, read byte-wise (buffers need not be aligned).
struct Units8 {
  static uint32_t At(const unsigned char* p, uint32_t i) { return p[i]; }
  static uint32_t Lower(uint32_t u) { return Lower8(u); }
  static uint32_t Count(uint32_t bytes) { return bytes; }
};
struct Units16 {
  static uint32_t At(const unsigned char* p, uint32_t i) { return p[2 * i] | (p[2 * i + 1] << 8); }
  static uint32_t Lower(uint32_t u) { return Lower16(u); }
  static uint32_t Count(uint32_t bytes) { return bytes / 2; }
};

//===-- Hash ---------------------------------------------------------------===//

template <class U>
static uint32_t HashUnits(const unsigned char* p, uint32_t n, const CVnLineFlags& f) {
  uint32_t h = 0, pos = 1, weight = kHashWeight;
  bool lowering = f.m_bIgnoreCase;
  for (uint32_t i = 0; i < n; ++i) {
    uint32_t u = U::At(p, i);
    if (lowering) {
      if (u == 0)
        lowering = false;  // a C-string lower-casing stops here
      else
        u = U::Lower(u);
    }
    if ((f.m_bIgnoreWhitespace && IsBlank(u)) || (f.m_bIgnoreLineEnds && IsLineEnd(u)))
      continue;
    h += u * pos * weight;
    ++pos;
    weight *= kHashWeight;
  }
  return h;
}

// The same sum when no flag skips or folds a unit, which is nearly every
// call: then unit i (from 0) always weighs (i+1) * K^(i+1), so the weights of
// the first kTableSize positions come from a table and the sum is a dot
// product with no chain from one unit to the next.  Past the table the walk
// above takes over with the weight reached.  Unsigned arithmetic wraps the
// same in any order, so the value is the defined one.
static const uint32_t kTableSize = 512;

struct CoefficientTable {
  uint32_t coef[kTableSize];  // (i+1) * K^(i+1)
  uint32_t next;              // K^(kTableSize+1)
  CoefficientTable() {
    uint32_t weight = kHashWeight;
    for (uint32_t i = 0; i < kTableSize; ++i, weight *= kHashWeight)
      coef[i] = (i + 1) * weight;
    next = weight;
  }
};

static const CoefficientTable& Coefficients() {
  static const CoefficientTable table;
  return table;
}

// The dot product over the table's positions, then the walk with the
// weight reached for any units past it.
static uint32_t HashPlainUnits(const CVnDiffLine& line, uint32_t n) {
  const CoefficientTable& t = Coefficients();
  const uint32_t m = n < kTableSize ? n : kTableSize;
  const unsigned char* p = line.GetBytes();
  uint32_t h = line.IsWide() ? VnDotUnits16(p, t.coef, m) : VnDotUnits8(p, t.coef, m);
  uint32_t weight = t.next;
  for (uint32_t i = m; i < n; ++i, weight *= kHashWeight)
    h += (line.IsWide() ? Units16::At(p, i) : Units8::At(p, i)) * (i + 1) * weight;
  return h;
}

uint32_t VnHashLine(CVnDiffLine& line, const CVnLineFlags& flags) {
  uint32_t n = line.GetUnitCount();
  uint32_t h = 0;
  if (n != 0 && !flags.Any())
    h = HashPlainUnits(line, n);
  else if (n != 0)
    h = line.IsWide() ? HashUnits<Units16>(line.GetBytes(), n, flags)
                      : HashUnits<Units8>(line.GetBytes(), n, flags);
  line.SetHash(h);
  return h;
}

//===-- Equality -----------------------------------------------------------===//

// The unit walk.  A side that has run out stays run out; under ignore line
// ends a CR/LF pairs with a CR/LF opposite, or with the end of the other line.
template <class U>
static bool WalkEqual(const CVnDiffLine& a, const CVnDiffLine& b, const CVnLineFlags& f) {
  const unsigned char* pa = a.GetBytes();
  const unsigned char* pb = b.GetBytes();
  const uint32_t na = U::Count(a.GetLength()), nb = U::Count(b.GetLength());
  uint32_t i = 0, j = 0;
  for (;;) {
    if (f.m_bIgnoreWhitespace) {
      while (i < na && IsBlank(U::At(pa, i)))
        ++i;
      while (j < nb && IsBlank(U::At(pb, j)))
        ++j;
    }
    bool endA = i >= na, endB = j >= nb;
    bool pass = false;
    if (f.m_bIgnoreLineEnds) {
      bool eolA = !endA && IsLineEnd(U::At(pa, i));
      bool eolB = !endB && IsLineEnd(U::At(pb, j));
      pass = (eolA && eolB) || (endA && eolB) || (endB && eolA);
    }
    if (!pass) {
      if (endA && endB)
        return true;
      if (endA || endB)
        return false;
      uint32_t ua = U::At(pa, i), ub = U::At(pb, j);
      if (f.m_bIgnoreCase) {
        ua = U::Lower(ua);
        ub = U::Lower(ub);
      }
      if (ua != ub)
        return false;
    }
    if (!endA)
      ++i;
    if (!endB)
      ++j;
    if (i >= na && j >= nb)
      return true;
  }
}

bool VnLinesEqual(const CVnDiffLine& a, const CVnDiffLine& b, const CVnLineFlags& flags) {
  if (!flags.m_bIgnoreWhitespace && !flags.m_bIgnoreLineEnds && a.GetLength() != b.GetLength())
    return false;
  if (a.GetHash() != b.GetHash())
    return false;
  if (!flags.Any())
    return a.GetLength() == 0 || memcmp(a.GetBytes(), b.GetBytes(), a.GetLength()) == 0;
  return a.IsWide() ? WalkEqual<Units16>(a, b, flags) : WalkEqual<Units8>(a, b, flags);
}

//===-- Classes ------------------------------------------------------------===//

CVnClassTable::CVnClassTable(uint32_t size, const CVnLineFlags& flags)
    : m_nSize(size), m_nReciprocal(UINT64_MAX / size + 1), m_flags(flags) {
  assert(size > 0 && "the table always has the five spare buckets");
  const size_t bucketBytes = (sizeof(uint32_t) * size + alignof(CVnEquivalence) - 1) & ~(alignof(CVnEquivalence) - 1);
  const size_t bytes = bucketBytes + sizeof(CVnEquivalence) * size;
  m_block = CVnLargeBuffer(bytes, bytes);
  m_buckets = reinterpret_cast<uint32_t*>(m_block.Start());
  memset(m_buckets, 0, sizeof(uint32_t) * size);
  m_pool = reinterpret_cast<CVnEquivalence*>(m_block.Start() + bucketBytes);
}

int32_t CVnClassTable::ClassOf(const CVnLineSlot& slot) {
  uint32_t& head = m_buckets[BucketOf(slot.m_nHash)];
  CVnEquivalence* last = nullptr;
  for (uint32_t k = head; k != 0; k = last->m_nNext) {
    last = &m_pool[k];
    if (last->m_nHash == slot.m_nHash && VnLinesEqual(*slot.m_pLine, *last->m_pLine, m_flags))
      return static_cast<int32_t>(k);
  }
  if (static_cast<uint32_t>(m_nCounter) >= m_nSize)
    throw last;
  CVnEquivalence& node = m_pool[static_cast<size_t>(m_nCounter)];
  node.m_nNext = head;
  node.m_nHash = slot.m_nHash;
  node.m_pLine = slot.m_pLine;
  head = static_cast<uint32_t>(m_nCounter);
  return m_nCounter++;
}
