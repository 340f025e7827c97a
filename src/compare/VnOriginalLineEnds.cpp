// VnOriginalLineEnds.cpp - the line ends a decoded file had in its own bytes.
//
// The intake makes every line end CR LF.  Output that must rebuild a file
// byte for byte needs the ends the file had, read by the rules of the
// intake's repair: CR LF and LF CR are one line end each, a lone CR or LF
// one more.  When the intake saw the file's bytes itself (plain ASCII) it
// reports the kinds it met, and a file with one kind needs no second look;
// otherwise the file is read again in chunks, 8- or 16-bit units as its
// encoding says, and scanned without holding it whole.
#include "compare/VnOriginalLineEnds.h"

#include "intake/VnFile.h"

#include <cstring>
#include <memory>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// The first byte at or after k that is 13 or below, or n.
unsigned long SkipAbove13(const unsigned char* p, unsigned long k, unsigned long n) {
#if defined(__SSE2__)
  const __m128i limit = _mm_set1_epi8(13);
  for (; k + 16 <= n; k += 16) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + k));
    const int low = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(x, limit), x));
    if (low)
      return k + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(low)));
  }
#else
  const uint64_t kLow = 0x0E0E0E0E0E0E0E0EULL, kHigh = 0x8080808080808080ULL;
  for (; k + 8 <= n; k += 8) {
    uint64_t x;
    memcpy(&x, p + k, sizeof x);
    if ((x - kLow) & ~x & kHigh)
      break;
  }
#endif
  while (k < n && p[k] > 13)
    ++k;
  return k;
}

// The same for 16-bit units starting at byte k: the byte offset of the
// first unit that is 13 or below, or of a unit cut off by the end (then the
// caller carries its first byte), stepping two bytes at a time.
unsigned long SkipUnitsAbove13(const unsigned char* p, unsigned long k, unsigned long n, bool bigEndian) {
#if defined(__SSE2__)
  // Units compare unsigned by flipping their top bit and comparing signed.
  const __m128i flip = _mm_set1_epi16(static_cast<short>(0x8000));
  const __m128i limit = _mm_set1_epi16(static_cast<short>(0x8000 + 14));
  for (; k + 16 <= n; k += 16) {
    __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + k));
    if (bigEndian)
      x = _mm_or_si128(_mm_slli_epi16(x, 8), _mm_srli_epi16(x, 8));
    const int low = _mm_movemask_epi8(_mm_cmplt_epi16(_mm_xor_si128(x, flip), limit));
    if (low)
      return k + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(low)));
  }
#endif
  for (; k + 1 < n; k += 2) {
    const unsigned unit = bigEndian ? (p[k] << 8) | p[k + 1] : p[k] | (p[k + 1] << 8);
    if (unit <= 13)
      return k;
  }
  return k;
}

// Collects line ends from a stream of units by the repair's rules.
class LineEndScanner {
public:
  void Unit(unsigned c) {
    if (c > 13 && m_pending == 0)
      return;  // the common case
    if (m_pending == 13) {
      m_pending = 0;
      if (c == 10) {
        m_ends.push_back(VnLineEnd::CRLF);
        return;
      }
      m_ends.push_back(VnLineEnd::CR);
    } else if (m_pending == 10) {
      m_pending = 0;
      if (c == 13) {
        m_ends.push_back(VnLineEnd::LFCR);
        return;
      }
      m_ends.push_back(VnLineEnd::LF);
    }
    if (c == 13 || c == 10)
      m_pending = c;
  }
  // Past bytes that can't be CR or LF sixteen at a time (SSE2), else eight.
  void Bytes(const unsigned char* p, unsigned long n) {
    unsigned long k = 0;
    while (k < n) {
      if (m_pending == 0) {
        k = SkipAbove13(p, k, n);
        if (k == n)
          break;
      }
      Unit(p[k++]);
    }
  }
  bool Idle() const { return m_pending == 0; }
  std::vector<VnLineEnd> Finish() {
    Unit(0);  // settles a pending CR or LF
    return std::move(m_ends);
  }

private:
  unsigned m_pending = 0;
  std::vector<VnLineEnd> m_ends;
};

// Reads the file in chunks, so that finding its line ends costs no copy of it.
std::vector<VnLineEnd> ScanFile(const CString& path, unsigned long skip, int width, bool bigEndian) {
  LineEndScanner scanner;
  CVnFile file(path, CFile::modeRead);
  std::unique_ptr<unsigned char[]> chunk(new unsigned char[1 << 16]);
  int carry = -1;  // the first byte of a unit split between chunks
  for (;;) {
    const unsigned long n = file.ReadRaw(chunk.get(), 1 << 16);
    if (n == 0)
      break;
    unsigned long k = skip < n ? skip : n;
    skip -= k;
    if (width == 1) {
      scanner.Bytes(chunk.get() + k, n - k);
      continue;
    }
    for (; k < n; ++k) {
      if (carry < 0 && scanner.Idle()) {
        k = SkipUnitsAbove13(chunk.get(), k, n, bigEndian);
        if (k >= n)
          break;
      }
      if (carry < 0) {
        carry = chunk[k];
        continue;
      }
      scanner.Unit(bigEndian ? (carry << 8) | chunk[k] : carry | (chunk[k] << 8));
      carry = -1;
    }
  }
  file.Close();
  return scanner.Finish();
}

// The one kind of line end a file had, when the intake saw exactly one
// (and so no NUL cut the text short); None otherwise.
VnLineEnd SingleKind(unsigned kinds) {
  switch (kinds) {
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndLf: return VnLineEnd::LF;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndCrLf: return VnLineEnd::CRLF;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndCr: return VnLineEnd::CR;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndLfCr: return VnLineEnd::LFCR;
  default: return VnLineEnd::None;
  }
}

std::vector<VnLineEnd> Uniform(VnLineEnd end, long count, bool terminated) {
  std::vector<VnLineEnd> ends(static_cast<size_t>(count), end);
  if (count > 0 && !terminated)
    ends.back() = VnLineEnd::None;
  return ends;
}

}  // namespace

std::vector<VnLineEnd> VnOriginalLineEnds(const CVnDiffFile& file, long count, bool terminated) {
  const VnLineEnd single = SingleKind(file.GetLineEndKinds());
  if (single != VnLineEnd::None)
    return Uniform(single, count, terminated);
  int width = 1;
  bool bigEndian = false;
  unsigned long skip = 0;
  if (file.GetFileType() == CVnDiffFile::TypeUnicode) {
    const bool utf8 = file.GetEncoding() == CVnDiffFile::EncodingUTF8;
    width = utf8 ? 1 : 2;
    bigEndian = file.GetEncoding() == CVnDiffFile::EncodingUTF16BE;
    skip = file.HasByteOrderMark() ? (utf8 ? 3 : 2) : 0;
  }
  std::vector<VnLineEnd> ends = ScanFile(file.GetFileName(), skip, width, bigEndian);
  if (count > 0 && !terminated)
    ends.push_back(VnLineEnd::None);
  if (static_cast<long>(ends.size()) != count)
    return Uniform(VnLineEnd::LF, count, terminated);  // a NUL unit cut the repaired text short
  return ends;
}
