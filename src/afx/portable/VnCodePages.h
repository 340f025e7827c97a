// VnCodePages.h - the one table of code pages: numbers, names, facts.
//
// Each row is a Win32 code page number (and the system's own 70001 for
// UTF-16LE, 70000 for UTF-16BE) with what the component says of it: the
// name Windows gives it, the converter's name natively, the names a user
// may type, its longest character in bytes, and whether its first 128 bytes
// are ASCII itself (text in such a page that is all ASCII needs no
// converter).
#ifndef VN_AFX_VNCODEPAGES_H
#define VN_AFX_VNCODEPAGES_H

#include "afx/portable/AfxTypes.h"

#include <string>

struct VnCodePage {
  UINT number;
  const char* title;      // as Windows names it ("ANSI - Latin I"), or null
  const char* converter;  // iconv's name, or null
  const char* aliases;    // lower-case names a user may type, space-separated
  BYTE maxCharSize;
  bool asciiSame;
};

// The row of a page number, or null.
VN_API const VnCodePage* VnFindCodePage(UINT number);
// iconv's name of a page: the row's, or the OEM, ANSI and ISO 8859 pages by
// their pattern; empty when there is none.
VN_API std::string VnConverterName(UINT number);
// The page a user names: a number, "cpN", "windows-N", "iso-8859-N", or an
// alias of the table, any case.  0 when the text names none.  Whether the
// system can convert the page is the caller's question.
VN_API UINT VnCodePageFromName(const std::string& name);

#endif  // VN_AFX_VNCODEPAGES_H
