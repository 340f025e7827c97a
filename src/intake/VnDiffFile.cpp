// VnDiffFile.cpp - reading an input file into the comparison's one buffer.
//
// Byte order marks: EF BB BF is UTF-8 (code page 65001), FF FE UTF-16LE
// (the system's own 70001), FE FF UTF-16BE (70000).  A mark needs at least
// two bytes in the file; FF FE 00 00 counts as UTF-16LE, there is no UTF-32.
// Without a mark, one NUL byte anywhere in the file makes it binary.
//
// Line-end repair, on UTF-16LE units: CR LF stays; LF CR is swapped in place
// to CR LF; a lone CR or lone LF is marked with a 0 unit and, in a second
// pass, written out as CR LF (in place when the decoder left room for the
// growth, as it does for ASCII text, else into a new array).  A NUL unit ends the scan; the text behind it
// is kept when nothing needed repair and dropped otherwise.  No line end is
// added at the end of the file.  A text with only CR LF ends is scanned once
// and not copied, and UTF-16LE input is not copied at all unless repaired.
//
// The common case takes a shorter road to the same buffer: a file of plain
// ASCII (no mark, no NUL, a page where ASCII is itself) is read in chunks
// and each chunk widened and repaired in one pass, so the file's bytes are
// never held whole; the line-end kinds met on the way are kept for hosts
// that print lines as the file had them.
//
// The load runs in steps (Load): stream plain ASCII, else read the bytes,
// detect (Detect), ask about a binary file (TakeBinary), decode (Decode).
// The one buffer the text lies in is owned by m_pBuffer; bytes on their way
// are owned by a CVnSmartBytePtr until a step takes them over.
#include "intake/VnDiffFile.h"

#include "afx/portable/LargeBuffer.h"
#include "afx/portable/VnCodePages.h"
#include "foundation/LocalResources.h"
#include "intake/VnCPInfo.h"
#include "intake/VnFile.h"

#include <cassert>
#include <cstring>
#include <memory>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

const unsigned char CVnDiffFile::BINARY_MARKER = 0x01;

namespace {

const unsigned char kUtf8Mark[] = {0xEF, 0xBB, 0xBF};
const unsigned char kUtf16LEMark[] = {0xFF, 0xFE};
const unsigned char kUtf16BEMark[] = {0xFE, 0xFF};
const unsigned short kCR = 13;
const unsigned short kLF = 10;

// Up to three leading bytes, the rest zero, so short files compare safely.
void Head(const unsigned char* data, unsigned long size, unsigned char head[3]) {
  head[0] = head[1] = head[2] = 0;
  memcpy(head, data, size < 3 ? size : 3);
}

// Units of the buffer are little-endian whatever the machine's order.
unsigned short FromLE(unsigned short u) {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
  return static_cast<unsigned short>((u >> 8) | (u << 8));
#else
  return u;
#endif
}
unsigned short ToLE(unsigned short u) { return FromLE(u); }

void SetUnit(unsigned char* p, unsigned long i, unsigned short u) {
  p[2 * i] = static_cast<unsigned char>(u);
  p[2 * i + 1] = static_cast<unsigned char>(u >> 8);
}

// The first unit at or after i that is below 14 (a NUL, CR or LF may be
// one), or n.  Eight units are tested at a time with SSE2; else four in a
// 64-bit word: a lane below 14 is one whose subtraction of 14 borrows into
// its top bit while the unit's own top bit was clear.
unsigned long SkipPlainUnits(const unsigned short* u, unsigned long i, unsigned long n) {
#if defined(__SSE2__) && defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  // Eight units at a time; units compare unsigned by flipping the top bit.
  const __m128i flip = _mm_set1_epi16(static_cast<short>(0x8000));
  const __m128i limit = _mm_set1_epi16(static_cast<short>(0x8000 + 14));
  for (; i + 8 <= n; i += 8) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(u + i));
    const int low = _mm_movemask_epi8(_mm_cmplt_epi16(_mm_xor_si128(x, flip), limit));
    if (low)
      return i + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(low))) / 2;
  }
#elif defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
  const uint64_t kLow = 0x000E000E000E000EULL, kHigh = 0x8000800080008000ULL;
  for (; i + 4 <= n; i += 4) {
    uint64_t x;
    memcpy(&x, u + i, sizeof x);
    if ((x - kLow) & ~x & kHigh)
      break;
  }
#endif
  while (i < n && FromLE(u[i]) > 13)
    ++i;
  return i;
}

// The first 0 unit at or after i, or n; eight or four units at a time as above.
unsigned long FindZeroUnit(const unsigned short* u, unsigned long i, unsigned long n) {
#if defined(__SSE2__)
  const __m128i zero = _mm_setzero_si128();
  for (; i + 8 <= n; i += 8) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(u + i));
    const int hit = _mm_movemask_epi8(_mm_cmpeq_epi16(x, zero));
    if (hit)
      return i + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(hit))) / 2;
  }
#endif
  const uint64_t kOne = 0x0001000100010001ULL, kHigh = 0x8000800080008000ULL;
  for (; i + 4 <= n; i += 4) {
    uint64_t x;
    memcpy(&x, u + i, sizeof x);
    if ((x - kOne) & ~x & kHigh)
      break;
  }
  while (i < n && u[i] != 0)
    ++i;
  return i;
}

// One past the last 0 unit before k, or 0 when there is none; four units
// at a time as above, going backwards.
unsigned long ZeroUnitBefore(const unsigned short* u, unsigned long k) {
  const uint64_t kOne = 0x0001000100010001ULL, kHigh = 0x8000800080008000ULL;
  while (k >= 4) {
    uint64_t x;
    memcpy(&x, u + k - 4, sizeof x);
    if ((x - kOne) & ~x & kHigh)
      break;
    k -= 4;
  }
  while (k > 0 && u[k - 1] != 0)
    --k;
  return k;
}

// Second pass of the repair into a new array: the runs between marks are
// copied whole, and every 0 unit among the first n becomes CR LF.
void CopyGrowingMarks(const unsigned short* u, unsigned long n, unsigned short* out) {
  unsigned long w = 0, k = 0;
  while (k < n) {
    const unsigned long run = FindZeroUnit(u, k, n);
    memcpy(out + w, u + k, 2 * (run - k));
    w += run - k;
    if (run == n)
      break;
    out[w++] = ToLE(kCR);
    out[w++] = ToLE(kLF);
    k = run + 1;
  }
}

// The same in place, when the array has room: from the end backwards, so
// that no unit is overwritten before it has moved.
void GrowMarksInPlace(unsigned short* u, unsigned long n, unsigned long marks) {
  unsigned long w = n + marks, k = n;
  while (k > 0) {
    const unsigned long start = ZeroUnitBefore(u, k);
    w -= k - start;
    memmove(u + w, u + start, 2 * (k - start));
    k = start;
    if (k > 0) {
      --k;
      u[--w] = ToLE(kLF);
      u[--w] = ToLE(kCR);
    }
  }
  assert(w == 0 && "every mark grew by exactly one unit");
}

// Pages in which every byte below 0x80 is the ASCII character itself, so
// pure ASCII input can be widened without asking the converter.
bool AsciiIsIdentity(unsigned int cp) {
  const VnCodePage* page = VnFindCodePage(cp);
  return page && page->asciiSame;
}

// Set bits of a mask; line ends are sparse, so the loop is short.
unsigned CountBits(unsigned m) {
  unsigned n = 0;
  for (; m; m &= m - 1)
    ++n;
  return n;
}

// One pass over the bytes: whether all are ASCII, and an upper bound of the
// line ends the repair will have to grow (every CR and LF may become CR LF,
// except the two units of a CR LF pair, which never do).  Sixteen bytes at a
// time with SSE2; a CR LF pair may straddle two blocks.
bool ScanAscii(const unsigned char* data, unsigned long size, unsigned long& bound) {
  unsigned char any = 0;
  unsigned long ends = 0, pairs = 0, i = 0;
  bool crBefore = false;  // the byte before i is a CR
#if defined(__SSE2__)
  __m128i seen = _mm_setzero_si128();
  const __m128i lfKey = _mm_set1_epi8(10), crKey = _mm_set1_epi8(13);
  for (; i + 16 <= size; i += 16) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(data + i));
    seen = _mm_or_si128(seen, x);
    const unsigned lf = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(x, lfKey)));
    const unsigned cr = static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(x, crKey)));
    if (lf | cr) {
      ends += CountBits(lf | cr);
      pairs += CountBits(cr & (lf >> 1)) + ((crBefore && (lf & 1)) ? 1 : 0);
    }
    crBefore = (cr >> 15) != 0;
  }
  any = _mm_movemask_epi8(seen) ? 0x80 : 0;
#endif
  for (; i < size; ++i) {
    any |= data[i];
    ends += (data[i] == 10) | (data[i] == 13);
    pairs += (crBefore && data[i] == 10) ? 1 : 0;
    crBefore = data[i] == 13;
  }
  bound = ends - 2 * pairs;
  return (any & 0x80) == 0;
}

// MultiByteToWideChar(codePage, 0, ...) into a new array of 2 bytes a unit,
// which the caller owns:
// the length is asked first, then the text converted.  Input the page can't
// decode becomes what the platform makes of it; an unknown page gives none.
// `capacity` is the array's size: ASCII text gets room for its line-end
// repair, so that the repair needs no second array.
std::unique_ptr<unsigned char[]> DecodeToUtf16(unsigned int codePage, const unsigned char* in, unsigned long size,
                                               unsigned long& outSize, size_t& capacity) {
  unsigned long bound = 0;
  if (AsciiIsIdentity(codePage) && ScanAscii(in, size, bound)) {
    capacity = 2 * (static_cast<size_t>(size) + bound);
    std::unique_ptr<unsigned char[]> out(new unsigned char[capacity]);
    for (unsigned long i = 0; i < size; ++i) {
      out[2 * i] = in[i];
      out[2 * i + 1] = 0;
    }
    outSize = 2 * size;
    return out;
  }
#ifdef _WIN32
  const char* src = reinterpret_cast<const char*>(in);
  int units = MultiByteToWideChar(codePage, 0, src, static_cast<int>(size), nullptr, 0);
  capacity = 2 * static_cast<size_t>(units > 0 ? units : 0);
  std::unique_ptr<unsigned char[]> out(new unsigned char[capacity]);
  if (units > 0)
    MultiByteToWideChar(codePage, 0, src, static_cast<int>(size), reinterpret_cast<wchar_t*>(out.get()), units);
  outSize = 2 * static_cast<unsigned long>(units);
  return out;
#else
  vn::os::WideText wide = vn::os::MultiByteToWide(codePage, reinterpret_cast<const char*>(in), static_cast<int>(size));
  capacity = 2 * wide.size();
  std::unique_ptr<unsigned char[]> out(new unsigned char[capacity]);
  for (size_t i = 0; i < wide.size(); ++i)
    SetUnit(out.get(), static_cast<unsigned long>(i), static_cast<unsigned short>(wide[i]));
  outSize = 2 * static_cast<unsigned long>(wide.size());
  return out;
#endif
}

// ASCII text with no NUL byte, widened and repaired in one pass: every CR
// LF, LF CR, lone CR and lone LF (taken greedily from the left, as the
// in-place repair takes them) comes out as CR LF, all else unit for unit.
// This is what decoding and then repairing give, without the marks and the
// second pass.  `out` must have room for 2 * (size + bound) bytes, bound
// from ScanAscii; returns the bytes written and adds the kinds of line end
// it met to `kinds`.
unsigned long WidenAndRepair(const unsigned char* in, unsigned long size, unsigned char* out, unsigned& kinds) {
  unsigned long i = 0, w = 0;
  while (i < size) {
#if defined(__SSE2__)
    // Sixteen bytes at a time until one of them may be a line end (below 14).
    const __m128i zero = _mm_setzero_si128(), limit = _mm_set1_epi8(14);
    while (i + 16 <= size) {
      const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + i));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + w), _mm_unpacklo_epi8(x, zero));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(out + w + 16), _mm_unpackhi_epi8(x, zero));
      const int low = _mm_movemask_epi8(_mm_cmplt_epi8(x, limit));
      if (low) {
        const unsigned skip = static_cast<unsigned>(__builtin_ctz(static_cast<unsigned>(low)));
        i += skip;
        w += 2 * skip;
        break;
      }
      i += 16;
      w += 32;
    }
    if (i >= size)
      break;
#endif
    const unsigned char c = in[i];
    if (c == kCR || c == kLF) {
      const unsigned char partner = c == kCR ? kLF : kCR;
      const bool pair = i + 1 < size && in[i + 1] == partner;
      kinds |= c == kCR ? (pair ? CVnDiffFile::EndCrLf : CVnDiffFile::EndCr)
                        : (pair ? CVnDiffFile::EndLfCr : CVnDiffFile::EndLf);
      i += pair ? 2 : 1;
      SetUnit(out, w / 2, kCR);
      SetUnit(out, w / 2 + 1, kLF);
      w += 4;
    } else {
      SetUnit(out, w / 2, c);
      w += 2;
      ++i;
    }
  }
  return w;
}

// Whether every byte is ASCII and none is NUL: b | (b - 1) has its top bit
// set exactly for 0 and for 0x80 and above.  A plain reduction, vectorized.
bool PlainAscii(const unsigned char* p, unsigned long n) {
  unsigned char any = 0;
  for (unsigned long i = 0; i < n; ++i)
    any |= static_cast<unsigned char>(p[i] | (p[i] - 1));
  return (any & 0x80) == 0;
}

// 1 when the bytes end in a line-end byte that the greedy pairing leaves
// alone (its partner may open the next chunk), else 0.  Only the trailing
// run of CR and LF bytes matters: pairing starts afresh where it starts.
unsigned long LoneEndAtTheEnd(const unsigned char* p, unsigned long n) {
  unsigned long i = n;
  while (i > 0 && (p[i - 1] == kCR || p[i - 1] == kLF))
    --i;
  bool lone = false;
  while (i < n) {
    lone = !(i + 1 < n && p[i] != p[i + 1]);
    i += lone ? 1 : 2;
  }
  return lone ? 1 : 0;
}

// Files up to this size may be streamed; the output is sized for the worst
// case (every byte a lone line end, four bytes out), so the cap keeps that
// reservation sane.  Pages of it that the text doesn't reach are never
// touched.
const unsigned long kStreamLimit = 256ul << 20;

CString LocalText(UINT id) { return LoadLocalString(GetResourceModule(), id); }

}  // namespace

CVnDiffFile::CVnDiffFile()
    : m_pText(nullptr), m_dwTextLength(0), m_nBufferSize(0), m_nCodePage(vn::os::GetACP()),
      m_nFileType(TypeText), m_nEncoding(EncodingNone), m_bLoaded(false), m_bHasBOM(false),
      m_bEncodingSet(false), m_nLineEnds(0) {}

CVnDiffFile::~CVnDiffFile() = default;

CVnDiffFile::CVnDiffFile(const CVnDiffFile& other) : m_pText(nullptr), m_nBufferSize(0) {
  CopyFrom(other);
}

CVnDiffFile& CVnDiffFile::operator=(const CVnDiffFile& other) {
  if (this != &other) {
    ReleaseBuffer();
    CopyFrom(other);
  }
  return *this;
}

// The text lies inside the buffer, so copying the buffer up to the text's
// end and keeping the offset gives the copy the same text of its own.
void CVnDiffFile::CopyFrom(const CVnDiffFile& other) {
  m_strFileName = other.m_strFileName;
  m_dwTextLength = other.m_dwTextLength;
  m_nCodePage = other.m_nCodePage;
  m_nFileType = other.m_nFileType;
  m_nEncoding = other.m_nEncoding;
  m_bLoaded = other.m_bLoaded;
  m_bHasBOM = other.m_bHasBOM;
  m_bEncodingSet = other.m_bEncodingSet;
  m_nLineEnds = other.m_nLineEnds;
  m_pBuffer.reset();
  m_nBufferSize = 0;
  m_pText = nullptr;
  if (other.m_pBuffer && other.m_pText) {
    const size_t offset = static_cast<size_t>(other.m_pText - other.m_pBuffer.get());
    m_nBufferSize = offset + other.m_dwTextLength;
    m_pBuffer.reset(new unsigned char[m_nBufferSize]);
    memcpy(m_pBuffer.get(), other.m_pBuffer.get(), offset + other.m_dwTextLength);
    m_pText = m_pBuffer.get() + offset;
  }
}

void CVnDiffFile::ReleaseBuffer() {
  m_nLineEnds = 0;
  m_pBuffer.reset();
  m_nBufferSize = 0;
  m_pText = nullptr;
  m_dwTextLength = 0;
}

void CVnDiffFile::SetFileName(const CString& name) {
  m_strFileName = name;
  m_bLoaded = false;
  m_bHasBOM = false;
  m_bEncodingSet = false;
  m_nCodePage = vn::os::GetACP();
}

void CVnDiffFile::SetFileEncoding(unsigned int codePage) {
  m_nCodePage = codePage;
  m_bEncodingSet = true;
  m_bLoaded = false;
  m_bHasBOM = false;
  switch (codePage) {
  case 65001: m_nFileType = TypeUnicode; m_nEncoding = EncodingUTF8; break;
  case 70001: m_nFileType = TypeUnicode; m_nEncoding = EncodingUTF16LE; break;
  case 70000: m_nFileType = TypeUnicode; m_nEncoding = EncodingUTF16BE; break;
  default: m_nFileType = TypeText; m_nEncoding = EncodingNone; break;
  }
}

//===-- The load -----------------------------------------------------------===//

bool CVnDiffFile::GetFileContents(unsigned char*& text, unsigned long& length) {
  if (!m_bLoaded && !Load())
    return false;
  text = m_pText;
  length = m_dwTextLength;
  return true;
}

// The load, one step at a time: plain ASCII streams straight to the text;
// anything else is read whole, its type found, the binary question asked,
// and the text decoded.  A file that can't be opened leaves the old buffer.
bool CVnDiffFile::Load() {
  CVnFile file(m_strFileName, CFile::modeRead);
  ReleaseBuffer();
  if (!StreamAscii(file)) {
    CVnSmartBytePtr bytes;
    const unsigned long size = file.ReadAll(bytes);
    file.Close();
    Detect(bytes, size);
    if (m_nFileType == TypeBinary) {
      if (!TakeBinary(bytes, size))
        return false;
    } else {
      Decode(bytes, size);
    }
  }
  m_bLoaded = true;
  return true;
}

// Finds type, encoding and mark, unless the user chose the encoding; then
// only whether the file carries that encoding's mark.
void CVnDiffFile::Detect(unsigned char* data, unsigned long size) {
  if (!m_bEncodingSet)
    DetermineFileTypeAndEncoding(data, size);
  else
    m_bHasBOM = HasBOM(data, size);
}

// Asks whether to go on with a binary file; on yes the bytes become the
// text, NUL bytes made spaces and the marker put last.
bool CVnDiffFile::TakeBinary(CVnSmartBytePtr& bytes, unsigned long size) {
  CString question;
  question.Format(LocalText(161), m_strFileName.GetString());
  if (AfxMessageBox(question, MB_YESNO | MB_ICONEXCLAMATION, 0) != IDYES)
    return false;
  m_pBuffer.reset(bytes.Detach());
  m_nBufferSize = size;
  m_pText = m_pBuffer.get();
  m_dwTextLength = static_cast<uint32_t>(size);
  ConvertNullsToSpaces(m_pText, size);
  return true;
}

// Text to UTF-16LE with CR LF line ends: ASCII in one pass, else through
// the converter and the line-end repair.
void CVnDiffFile::Decode(CVnSmartBytePtr& bytes, unsigned long size) {
  if (DecodeAsciiRepaired(bytes, size))
    return;
  unsigned char* data = bytes.Detach();  // the conversion takes the input over
  unsigned char* out = nullptr;
  unsigned long outSize = 0;
  ConvertBufferToUTF16LE(data, size, out, outSize);
  NormalizeCrLfPairs(out, outSize);
  m_pText = out;
  m_dwTextLength = static_cast<uint32_t>(outSize);
}

void CVnDiffFile::DetermineFileTypeAndEncoding(unsigned char* data, unsigned long size) {
  m_nFileType = TypeText;
  m_nEncoding = EncodingNone;
  m_nCodePage = vn::os::GetACP();
  m_bHasBOM = false;
  if (size == 0)
    return;
  if (size >= 2) {
    unsigned char head[3];
    Head(data, size, head);
    if (memcmp(head, kUtf8Mark, 3) == 0) {
      m_nEncoding = EncodingUTF8;
      m_nCodePage = 65001;
    } else if (memcmp(head, kUtf16LEMark, 2) == 0) {
      m_nEncoding = EncodingUTF16LE;
      m_nCodePage = 70001;
    } else if (memcmp(head, kUtf16BEMark, 2) == 0) {
      m_nEncoding = EncodingUTF16BE;
      m_nCodePage = 70000;
    }
    if (m_nEncoding != EncodingNone) {
      m_nFileType = TypeUnicode;
      m_bHasBOM = true;
      return;
    }
  }
  if (memchr(data, 0, size))
    m_nFileType = TypeBinary;
}

// Whether the data carries the mark of the encoding chosen; the mark of
// another encoding doesn't count.
bool CVnDiffFile::HasBOM(unsigned char* data, unsigned long size) {
  unsigned char head[3];
  Head(data, size, head);
  if (m_nFileType != TypeUnicode)
    return false;
  switch (m_nEncoding) {
  case EncodingUTF8: return memcmp(head, kUtf8Mark, 3) == 0;
  case EncodingUTF16LE: return memcmp(head, kUtf16LEMark, 2) == 0;
  case EncodingUTF16BE: return memcmp(head, kUtf16BEMark, 2) == 0;
  default: return false;
  }
}

// Takes `in` over: afterwards it is null and 0, except for UTF-16LE, where
// the input itself becomes the buffer and `out` points into it past the mark.
void CVnDiffFile::ConvertBufferToUTF16LE(unsigned char*& in, unsigned long& inSize, unsigned char*& out,
                                         unsigned long& outSize) {
  out = nullptr;
  outSize = 0;
  if (inSize == 0) {
    delete[] in;
    in = nullptr;
    return;
  }
  CVnSmartBytePtr input(in);  // released on every way out but UTF-16LE's
  unsigned long skip = 0;
  if (m_nFileType == TypeUnicode && m_bHasBOM)
    skip = m_nEncoding == EncodingUTF8 ? 3 : 2;
  const unsigned char* start = in + skip;
  const unsigned long rest = inSize - skip;

  if (m_nFileType == TypeUnicode && m_nEncoding == EncodingUTF16LE) {
    m_pBuffer.reset(input.Detach());
    m_nBufferSize = inSize;
    out = m_pBuffer.get() + skip;
    outSize = rest;
    return;
  }
  if (m_nFileType == TypeUnicode && m_nEncoding == EncodingUTF16BE) {
    m_pBuffer.reset(new unsigned char[rest]);
    unsigned char* swapped = m_pBuffer.get();
    memcpy(swapped, start, rest);
    for (unsigned long i = 0; i + 1 < rest; i += 2) {
      swapped[i] = start[i + 1];
      swapped[i + 1] = start[i];
    }
    out = swapped;
    m_nBufferSize = rest;
    outSize = rest;
  } else {
    const unsigned int page = m_nFileType == TypeUnicode ? 65001u : m_nCodePage;
    m_pBuffer = DecodeToUtf16(page, start, rest, outSize, m_nBufferSize);
    out = m_pBuffer.get();
  }
  in = nullptr;
  inSize = 0;
}

// The commonest case without holding the file's bytes at all: text without
// a mark or a NUL, all ASCII, in a page where ASCII is itself (what
// detection and DecodeAsciiRepaired would handle), widened and repaired
// chunk by chunk as it is read.  A CR or LF at a chunk's end waits for the
// next chunk, which may hold its partner.  At the first byte that doesn't
// fit (a mark starts with one) it gives up: the buffer goes, the file is
// rewound, and false sends the caller down the general path.
bool CVnDiffFile::StreamAscii(CVnFile& file) {
  if (m_bEncodingSet)
    return false;
  CVnFile::FileStatus status;
  CVnFile::GetStatus(file.GetFilePath(), status, true);
  const unsigned long size = status.m_sizeLow;
  const unsigned int page = vn::os::GetACP();
  if (size == 0 || size > kStreamLimit || !AsciiIsIdentity(page))
    return false;
  const size_t capacity = 4 * static_cast<size_t>(size);
  CVnLargeBuffer out(capacity, 2 * static_cast<size_t>(size));  // at least this much is written
  static const unsigned long kChunk = 1ul << 16;
  std::unique_ptr<unsigned char[]> chunk(new unsigned char[kChunk + 1]);
  unsigned long remaining = size, carry = 0;
  size_t w = 0;
  unsigned kinds = 0;
  while (remaining > 0) {
    const unsigned long n = file.ReadRaw(chunk.get() + carry, remaining < kChunk ? remaining : kChunk);
    if (n == 0)
      break;  // the file is shorter than it was: take what there is, as a whole read does
    if (!PlainAscii(chunk.get() + carry, n)) {
      file.SeekToBegin();
      return false;
    }
    remaining -= n;
    const unsigned long avail = carry + n;
    const unsigned char last = chunk[avail - 1];
    carry = remaining > 0 ? LoneEndAtTheEnd(chunk.get(), avail) : 0;
    out.WillWrite(w + 4 * static_cast<size_t>(avail));
    w += WidenAndRepair(chunk.get(), avail - carry, out.Start() + w, kinds);
    chunk[0] = last;
  }
  if (carry)
    w += WidenAndRepair(chunk.get(), 1, out.Start() + w, kinds);
  assert(w <= capacity && "four bytes out for every byte in at most");
  out.Written(w);
  m_nFileType = TypeText;
  m_nEncoding = EncodingNone;
  m_nCodePage = page;
  m_bHasBOM = false;
  m_nBufferSize = out.Allocated();
  m_pText = out.Start();
  m_pBuffer.reset(out.Release());
  m_dwTextLength = static_cast<uint32_t>(w);
  m_nLineEnds = kinds | EndsKnown;
  return true;
}

// The common case in one pass: 8-bit text in a page where ASCII is itself
// (or UTF-8), all of it ASCII, no NUL.  Sets the text when it applies
// (the caller still owns and frees `in`); otherwise changes nothing and
// gives false.
bool CVnDiffFile::DecodeAsciiRepaired(const unsigned char* in, unsigned long inSize) {
  if (m_nFileType == TypeUnicode && m_nEncoding != EncodingUTF8)
    return false;
  const unsigned long skip = m_nFileType == TypeUnicode && m_bHasBOM ? 3 : 0;
  if (inSize <= skip)
    return false;
  const unsigned int page = m_nFileType == TypeUnicode ? 65001u : m_nCodePage;
  const unsigned char* start = in + skip;
  const unsigned long rest = inSize - skip;
  unsigned long bound = 0;
  if (!AsciiIsIdentity(page) || memchr(start, 0, rest) || !ScanAscii(start, rest, bound))
    return false;
  const size_t capacity = 2 * (static_cast<size_t>(rest) + bound);
  CVnLargeBuffer out(capacity, 0);
  out.WillWrite(capacity);
  unsigned kinds = 0;
  const unsigned long length = WidenAndRepair(start, rest, out.Start(), kinds);
  assert(length <= capacity && "the bound covers every line end that grows");
  out.Written(length);
  m_nBufferSize = out.Allocated();
  m_pText = out.Start();
  m_pBuffer.reset(out.Release());
  m_dwTextLength = static_cast<uint32_t>(length);
  m_nLineEnds = kinds | EndsKnown;
  return true;
}

// Repairs line ends in place where it can (LF CR to CR LF) and copies the
// text once when a lone CR or LF has to grow into CR LF.  Units are read
// through a 16-bit pointer: every text handed here starts on an even address
// (a new array, or one past a two-byte mark).
void CVnDiffFile::NormalizeCrLfPairs(unsigned char*& text, unsigned long& size) {
  const unsigned long n = size / 2;
  if (n == 0)
    return;
  assert((reinterpret_cast<uintptr_t>(text) & 1) == 0 && "UTF-16 text starts on an even address");
  unsigned short* u = reinterpret_cast<unsigned short*>(text);
  unsigned long marks = 0;
  unsigned long i = 0;
  for (; i < n; ++i) {
    i = SkipPlainUnits(u, i, n);
    if (i == n)
      break;
    const unsigned short c = FromLE(u[i]);
    if (c > kCR)
      continue;
    if (c == 0)
      break;  // a NUL unit ends the scan
    if (c == kCR) {
      if (!(i + 1 < n && FromLE(u[i + 1]) == kLF)) {
        ++marks;
        u[i] = 0;
      }
    } else if (c == kLF) {
      if (i > 0 && FromLE(u[i - 1]) == kCR)
        continue;
      if (i + 1 < n && FromLE(u[i + 1]) == kCR) {
        u[i] = ToLE(kCR);
        u[i + 1] = ToLE(kLF);
      } else {
        ++marks;
        u[i] = 0;
      }
    }
  }
  if (marks == 0)
    return;

  const size_t grown = 2 * static_cast<size_t>(i + marks);
  if (text == m_pBuffer.get() && m_nBufferSize >= grown) {
    GrowMarksInPlace(u, i, marks);
  } else {
    unsigned short* out = reinterpret_cast<unsigned short*>(new unsigned char[grown]);
    CopyGrowingMarks(u, i, out);
    m_pBuffer.reset(reinterpret_cast<unsigned char*>(out));
    text = m_pBuffer.get();
    m_nBufferSize = grown;
  }
  size = static_cast<unsigned long>(grown);
}

void CVnDiffFile::ConvertNullsToSpaces(unsigned char* data, unsigned long size) {
  if (size == 0)
    return;
  data[size - 1] = BINARY_MARKER;
  for (unsigned long i = 0; i < size; ++i)
    if (data[i] == 0)
      data[i] = 0x20;
}

CString CVnDiffFile::GetEncodingDescription() const {
  if (m_nFileType == TypeBinary)
    return LocalText(154);
  if (m_nFileType == TypeUnicode && m_nEncoding == EncodingUTF16LE)
    return LocalText(151);
  if (m_nFileType == TypeUnicode && m_nEncoding == EncodingUTF16BE)
    return LocalText(150);
  const unsigned int page = m_nFileType == TypeUnicode && m_nEncoding == EncodingUTF8 ? 65001u : m_nCodePage;
  CPINFOEXW info;
  if (!GetVnCPInfo(page, 0, &info))
    return CString();
  return CString(info.CodePageName);
}
