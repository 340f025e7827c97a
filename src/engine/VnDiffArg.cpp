// VnDiffArg.cpp - cutting a buffer into lines, and reading a line back.
//
// The split is mechanical: scan for the terminator unit, make a record from
// the cursor up to it, step one unit past it.  A buffer that ends in a
// terminator has no empty line behind it; two terminators in a row make an
// empty line between them.  16-bit units are read byte-wise, so a buffer
// need not be aligned; an odd last byte takes no part.  A first pass counts
// the lines, so that the record array is allocated once at its final size.
#include "engine/VnDiffArg.h"

#include "engine/VnLinePool.h"

#include <cstring>
#include <new>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

static const INT_PTR kLineGrowBy = 1000;  // keeps big files from reallocating per line

CVnDiffArg::CVnDiffArg(CVnFileInfo::FileType type, unsigned char eol) {
  m_info.m_nFlags = static_cast<uint32_t>(type);
  switch (type) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt:
  case CVnFileInfo::Text16: m_info.m_nEOLChar = 10; break;
  case CVnFileInfo::Records8: m_info.m_nEOLChar = eol; break;
  default: break;
  }
}

void CVnDiffArg::Create(const void* data, unsigned long size) {
  if (size == 0)
    return;
  switch (m_info.GetFileType()) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt: Create(size, static_cast<const char*>(data)); break;
  case CVnFileInfo::Text16: Create(size, static_cast<const unsigned short*>(data)); break;
  case CVnFileInfo::Records8: Create(size, static_cast<const unsigned char*>(data)); break;
  default: break;
  }
}

// The record for one line, made in `memory` from the line pool.  A line's
// length is 32 bits: a longer line (possible only where a buffer may exceed
// 4 GiB) is refused rather than cut short.
static CVnDiffLine* MakeLine(void* memory, const unsigned char* start, size_t bytes, bool wide) {
  if (bytes > 0xFFFFFFFFu)
    AfxThrowInvalidArgException();
  return ::new (memory) CVnDiffLine(start, static_cast<uint32_t>(bytes), wide);
}

// Unit i, little-endian, through one load where the machine allows it (a
// loop of these compiles to vector compares).
static uint16_t UnitAt(const unsigned char* bytes, size_t unit) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  uint16_t u;
  memcpy(&u, bytes + 2 * unit, sizeof u);
  return u;
#else
  return static_cast<uint16_t>(bytes[2 * unit] | (bytes[2 * unit + 1] << 8));
#endif
}

// The first unit at or after i that is eol, or n.  Eight units at a time
// with SSE2 (every x86-64 has it), else four through 64-bit words: there a
// lane equal to eol is zero after the exclusive or, and a zero lane is one
// whose subtraction of 1 borrows into its top bit while its top bit was clear.
static size_t FindUnit(const unsigned char* data, size_t i, size_t n, uint16_t eol) {
#if defined(__SSE2__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  const __m128i key = _mm_set1_epi16(static_cast<short>(eol));
  for (; i + 8 <= n; i += 8) {
    __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + 2 * i));
    int mask = _mm_movemask_epi8(_mm_cmpeq_epi16(x, key));
    if (mask)
      return i + static_cast<size_t>(__builtin_ctz(static_cast<unsigned>(mask))) / 2;
  }
#elif defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  const uint64_t kOne = 0x0001000100010001ULL, kHigh = 0x8000800080008000ULL, kEol = eol * kOne;
  for (; i + 4 <= n; i += 4) {
    uint64_t x;
    memcpy(&x, data + 2 * i, sizeof x);
    x ^= kEol;
    if ((x - kOne) & ~x & kHigh)
      break;
  }
#endif
  while (i < n && UnitAt(data, i) != eol)
    ++i;
  return i;
}

// Lines in a buffer of n units: one per terminator, and one more for text
// behind the last terminator.
template <class UnitEquals>
static INT_PTR CountLines(size_t n, UnitEquals isEol) {
  size_t ends = 0;
  for (size_t i = 0; i < n; ++i)
    ends += isEol(i) ? 1 : 0;
  return static_cast<INT_PTR>(ends + (n > 0 && !isEol(n - 1) ? 1 : 0));
}

// CountLines for 16-bit units, eight at a time with SSE2.  A matching unit
// is all ones in the compare, that is -1 in its lane: subtracting the
// compare from a lane counter counts it with no branch.  A lane counter
// read as signed would turn negative after 32767 rounds, so the lanes are
// summed every 32767.
static INT_PTR CountUnitLines(const unsigned char* data, size_t n, uint16_t eol) {
  size_t i = 0, ends = 0;
#if defined(__SSE2__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  const __m128i key = _mm_set1_epi16(static_cast<short>(eol));
  while (i + 8 <= n) {
    __m128i lanes = _mm_setzero_si128();
    for (size_t rounds = 0; rounds < 32767 && i + 8 <= n; ++rounds, i += 8) {
      const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + 2 * i));
      lanes = _mm_sub_epi16(lanes, _mm_cmpeq_epi16(x, key));
    }
    // Each lane is at most 32767, a positive 16-bit number: pair them up into 32-bit sums.
    const __m128i sums = _mm_madd_epi16(lanes, _mm_set1_epi16(1));
    uint32_t part[4];
    _mm_storeu_si128(reinterpret_cast<__m128i*>(part), sums);
    ends += static_cast<size_t>(part[0]) + part[1] + part[2] + part[3];
  }
#endif
  for (; i < n; ++i)
    ends += UnitAt(data, i) == eol ? 1 : 0;
  return static_cast<INT_PTR>(ends + (n > 0 && UnitAt(data, n - 1) != eol ? 1 : 0));
}

// Sizes the array once for count lines and fills it through makeNext, which
// makes the record of the next line in the memory it is given.  Records
// come from the line pool a run at a time (what `new CVnDiffLine` would
// give, one call for many).  If a record can't be made, the array keeps the
// records made so far and nothing else, and the run's unused blocks go back.
template <class MakeNext>
static void FillLines(CVnDiffLineArray& lines, INT_PTR count, MakeNext makeNext) {
  lines.SetSize(count);
  void** slots = lines.GetData();
  const size_t stride = VnLinePoolStride(sizeof(CVnDiffLine));
  INT_PTR made = 0;
  while (made < count) {
    size_t got = 0;
    unsigned char* run =
        static_cast<unsigned char*>(VnLinePoolAllocRun(sizeof(CVnDiffLine), static_cast<size_t>(count - made), got));
    size_t k = 0;
    try {
      for (; k < got; ++k, ++made)
        slots[made] = makeNext(run + k * stride);
    } catch (...) {
      for (; k < got; ++k)
        VnLinePoolFree(run + k * stride, sizeof(CVnDiffLine));
      lines.SetSize(made);
      throw;
    }
  }
}

// The split shared by the 8-bit overloads.  Appends one record per line and
// gives whether the last byte was the terminator.
static bool SplitBytes(const unsigned char* data, size_t size, unsigned char eol, CVnDiffLineArray& lines) {
  const INT_PTR count = CountLines(size, [=](size_t i) { return data[i] == eol; });
  size_t cursor = 0;
  FillLines(lines, count, [&](void* memory) {
    const void* hit = memchr(data + cursor, eol, size - cursor);
    size_t end = hit ? static_cast<size_t>(static_cast<const unsigned char*>(hit) - data) : size;
    CVnDiffLine* line = MakeLine(memory, data + cursor, end - cursor, false);
    cursor = end + 1;
    return line;
  });
  return size > 0 && data[size - 1] == eol;
}

// The same on 16-bit units; only whole units are read.
static bool SplitUnits(const unsigned char* data, size_t units, uint16_t eol, CVnDiffLineArray& lines) {
  const INT_PTR count = CountUnitLines(data, units, eol);
  size_t cursor = 0;
  FillLines(lines, count, [&](void* memory) {
    size_t end = FindUnit(data, cursor, units, eol);
    CVnDiffLine* line = MakeLine(memory, data + 2 * cursor, 2 * (end - cursor), true);
    cursor = end + 1;
    return line;
  });
  return units > 0 && UnitAt(data, units - 1) == eol;
}

static void ResetLines(CVnDiffLineArray& lines) {
  lines.DeleteAllMembers();
  lines.SetSize(0, kLineGrowBy);
}

void CVnDiffArg::Create(unsigned long size, const char* data) {
  Create(size, reinterpret_cast<const unsigned char*>(data));
}

void CVnDiffArg::Create(unsigned long size, const unsigned char* data) {
  ResetLines(m_lines);
  if (SplitBytes(data, size, static_cast<unsigned char>(m_info.m_nEOLChar & 0xFF), m_lines))
    m_info.m_nFlags |= CVnFileInfo::kEndingTerminator;
}

void CVnDiffArg::Create(unsigned long size, const unsigned short* data) {
  ResetLines(m_lines);
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(data);
  if (SplitUnits(bytes, size / 2, m_info.m_nEOLChar, m_lines))
    m_info.m_nFlags |= CVnFileInfo::kEndingTerminator;
}

CString CVnDiffArg::GetLine(int index) const {
  const CVnDiffLine* line = m_lines.GetAt(index);  // raises for a bad index
  int units = static_cast<int>(line->GetLength() / static_cast<uint32_t>(m_info.GetEOLSize()));
  switch (m_info.GetFileType()) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt:
  case CVnFileInfo::Records8:
    return CString(vn::os::MultiByteToWide(vn::os::GetACP(), reinterpret_cast<const char*>(line->GetBytes()), units));
  case CVnFileInfo::Text16: {
    CString text;
    if (units > 0) {
      WCHAR* out = text.GetBufferSetLength(units);
      memcpy(out, line->GetBytes(), static_cast<size_t>(units) * 2);
      text.ReleaseBuffer(units);
    }
    return text;
  }
  default: return CString();
  }
}
