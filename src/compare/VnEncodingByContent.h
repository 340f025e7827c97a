// VnEncodingByContent.h - the encoding of a file without a byte order mark,
// chosen from its bytes before the intake reads it.
//
// The intake reads such a file in the ANSI code page: on a 1252 system a
// UTF-8 file shows as "cafÃ©", under a UTF-8 locale a Latin-1 file as
// "caf\uFFFD".  A host that asks for the choice by content gets instead:
//   - UTF-8 for valid UTF-8 that holds non-ASCII bytes;
//   - Windows-1252 for other non-ASCII text where the ANSI code page is
//     UTF-8 (the bytes can't be UTF-8, so the system's page can't read them);
//   - the intake's own reading for everything else: a byte order mark, a NUL
//     byte (the binary question stays the intake's), plain ASCII.
// The whole file is scanned: a file whose first non-UTF-8 byte lies deep
// inside is still read right.
#ifndef VN_COMPARE_VNENCODINGBYCONTENT_H
#define VN_COMPARE_VNENCODINGBYCONTENT_H

#include "afx/afx.h"

#include <cstddef>

// How a side's encoding was chosen, as --info and the captions say it.
enum class VnEncodingSource : unsigned char { Default, ByteOrderMark, Content, User };

// What a scan of a file's bytes found.
struct CVnContentScan {
  bool m_bScanned = false;        // false: the file could not be read
  bool m_bByteOrderMark = false;  // UTF-8 or UTF-16 mark at the start
  bool m_bNul = false;
  bool m_bAscii = true;           // no byte above 0x7F
  bool m_bUtf8 = true;            // valid UTF-8 (plain ASCII is)
  bool m_bCarriageReturn = false;
  bool m_bFinalNewline = true;    // empty, or the last byte is LF
};

// With asciiOnly the scan stops at the first byte beyond ASCII (m_bUtf8 is
// then unknown, given as false).  A byte order mark or a NUL byte ends it
// too: the intake decides such a file.
VN_API CVnContentScan VnScanContent(const unsigned char* bytes, size_t size, bool asciiOnly = false);
// The code page to read bytes of this scan in; 0 leaves the intake's own
// detection.  ansiCodePage is the process's.
VN_API unsigned VnCodePageByContent(const CVnContentScan& scan, unsigned ansiCodePage);
// Scans the file at path; a file that can't be opened scans as empty, and
// the reading that follows says why.
VN_API CVnContentScan VnScanFile(const CString& path, bool asciiOnly = false);
// Both files plain ASCII with LF line ends only (no mark, NUL or CR) and a
// final LF: their bytes cut at LF are the lines the intake would give, with
// the same records (an unterminated last line would compare unlike its
// terminated partner as bytes), so a host that prints may compare them raw and skip the UTF-16
// copy of each (half the memory, no conversion).
VN_API bool VnPlainAsciiPair(const CString& a, const CString& b);
// "by byte order mark", "by content", "by user", "by default".
VN_API CString VnEncodingSourceName(VnEncodingSource source);

#endif  // VN_COMPARE_VNENCODINGBYCONTENT_H
