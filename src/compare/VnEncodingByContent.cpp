// VnEncodingByContent.cpp - UTF-8 or not, from the whole of a file's bytes.
#include "compare/VnEncodingByContent.h"

#include "intake/VnFile.h"
#include "intake/VnFileMapping.h"

#include <cstring>

namespace {

const unsigned kUtf8 = 65001;
const unsigned kWestern = 1252;

bool StartsWithMark(const unsigned char* b, size_t n) {
  if (n >= 3 && b[0] == 0xEF && b[1] == 0xBB && b[2] == 0xBF)
    return true;
  return n >= 2 && ((b[0] == 0xFF && b[1] == 0xFE) || (b[0] == 0xFE && b[1] == 0xFF));
}

// Bytes of the sequence a lead byte opens, 0 for a byte no sequence starts
// with.  Overlong forms (C0, C1, E0 80.., F0 80..) and code points past
// U+10FFFF or among the surrogates are checked by the caller.
int SequenceLength(unsigned char lead) {
  if (lead < 0xC2)
    return 0;
  if (lead < 0xE0)
    return 2;
  if (lead < 0xF0)
    return 3;
  return lead < 0xF5 ? 4 : 0;
}

bool ValidSequence(const unsigned char* b, int len) {
  for (int k = 1; k < len; ++k)
    if ((b[k] & 0xC0) != 0x80)
      return false;
  if (len == 3)
    return !(b[0] == 0xE0 && b[1] < 0xA0) && !(b[0] == 0xED && b[1] >= 0xA0);
  if (len == 4)
    return !(b[0] == 0xF0 && b[1] < 0x90) && !(b[0] == 0xF4 && b[1] >= 0x90);
  return true;
}

// Eight bytes at a time while they are ASCII and hold no NUL or CR: most
// text is.
size_t AsciiRun(const unsigned char* b, size_t i, size_t n) {
  const uint64_t high = 0x8080808080808080ull, ones = 0x0101010101010101ull, cr = 0x0D0D0D0D0D0D0D0Dull;
  while (i + 8 <= n) {
    uint64_t w;
    memcpy(&w, b + i, 8);
    const uint64_t c = w ^ cr;
    if ((w & high) != 0 || ((w - ones) & ~w & high) != 0 || ((c - ones) & ~c & high) != 0)
      break;
    i += 8;
  }
  return i;
}

}  // namespace

CVnContentScan VnScanContent(const unsigned char* b, size_t n, bool asciiOnly) {
  CVnContentScan scan;
  scan.m_bScanned = true;
  scan.m_bFinalNewline = n == 0 || b[n - 1] == '\n';
  scan.m_bByteOrderMark = StartsWithMark(b, n);
  if (scan.m_bByteOrderMark) {  // the mark decides; UTF-16 would make the rest slow to walk
    scan.m_bAscii = false;
    return scan;
  }
  for (size_t i = 0; i < n;) {
    i = AsciiRun(b, i, n);
    if (i >= n)
      break;
    const unsigned char c = b[i];
    if (c == 0) {  // binary: the intake's question decides the rest
      scan.m_bNul = true;
      scan.m_bAscii = false;
      return scan;
    }
    if (c < 0x80) {
      scan.m_bCarriageReturn = scan.m_bCarriageReturn || c == '\r';
      ++i;
      continue;
    }
    scan.m_bAscii = false;
    const int len = SequenceLength(c);
    if (asciiOnly || len == 0 || i + len > n || !ValidSequence(b + i, len)) {
      scan.m_bUtf8 = false;
      scan.m_bNul = memchr(b + i, 0, n - i) != nullptr;  // all that still matters
      return scan;
    }
    i += static_cast<size_t>(len);
  }
  return scan;
}

unsigned VnCodePageByContent(const CVnContentScan& scan, unsigned ansiCodePage) {
  if (scan.m_bByteOrderMark || scan.m_bNul || scan.m_bAscii)
    return 0;
  if (scan.m_bUtf8)
    return kUtf8;
  return ansiCodePage == kUtf8 ? kWestern : 0;
}

CVnContentScan VnScanFile(const CString& path, bool asciiOnly) {
  try {
    CVnFile file(path, CFile::modeRead);
    CVnFileMapping mapping;
    mapping.Open(file, 0);
    unsigned long size = 0;
    const void* view = nullptr;
    mapping.GetBuffer(size, view);
    CVnContentScan scan = VnScanContent(static_cast<const unsigned char*>(view), size, asciiOnly);
    mapping.Close();
    return scan;
  } catch (CException* e) {
    e->Delete();
    return CVnContentScan();
  }
}

bool VnPlainAsciiPair(const CString& a, const CString& b) {
  for (const CString* path : {&a, &b}) {
    const CVnContentScan scan = VnScanFile(*path, true);
    if (!scan.m_bScanned || !scan.m_bAscii || scan.m_bNul || scan.m_bCarriageReturn || scan.m_bByteOrderMark ||
        !scan.m_bFinalNewline)
      return false;
  }
  return true;
}

CString VnEncodingSourceName(VnEncodingSource source) {
  switch (source) {
  case VnEncodingSource::ByteOrderMark: return _T("by byte order mark");
  case VnEncodingSource::Content: return _T("by content");
  case VnEncodingSource::User: return _T("by user");
  default: return _T("by default");
  }
}
