// VnCodePages.cpp - the one table of code pages.
#include "afx/portable/VnCodePages.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

// Ordered by number.  The titles are Windows' own, padded as it pads them.
const VnCodePage kPages[] = {
    {437, "OEM - United States", "CP437", "", 1, true},
    {737, "OEM - Greek 437G", "CP737", "", 1, false},
    {775, "OEM - Baltic", "CP775", "", 1, false},
    {850, "OEM - Multilingual Latin I", "CP850", "", 1, true},
    {852, "OEM - Latin II", "CP852", "", 1, false},
    {855, "OEM - Cyrillic", "CP855", "", 1, false},
    {857, "OEM - Turkish", "CP857", "", 1, false},
    {860, "OEM - Portuguese", "CP860", "", 1, false},
    {861, "OEM - Icelandic", "CP861", "", 1, false},
    {862, "OEM - Hebrew", "CP862", "", 1, false},
    {863, "OEM - Canadian French", "CP863", "", 1, false},
    {864, "OEM - Arabic", "CP864", "", 1, false},
    {865, "OEM - Nordic", "CP865", "", 1, false},
    {866, "OEM - Russian", "CP866", "", 1, false},
    {869, "OEM - Modern Greek", "CP869", "", 1, false},
    {874, "ANSI/OEM - Thai", "CP874", "", 1, false},
    {932, "ANSI/OEM - Japanese Shift-JIS", "CP932", "shift_jis shift-jis sjis", 2, false},
    {936, "ANSI/OEM - Simplified Chinese GBK", "CP936", "gbk gb2312", 2, false},
    {949, "ANSI/OEM - Korean", "CP949", "", 2, false},
    {950, "ANSI/OEM - Traditional Chinese Big5", "CP950", "big5", 2, false},
    {1200, nullptr, "UTF-16LE", "", 4, false},
    {1201, nullptr, "UTF-16BE", "", 4, false},
    {1250, "ANSI - Central Europe", "CP1250", "", 1, true},
    {1251, "ANSI - Cyrillic", "CP1251", "", 1, true},
    {1252, "ANSI - Latin I", "CP1252", "", 1, true},
    {1253, "ANSI - Greek", "CP1253", "", 1, true},
    {1254, "ANSI - Turkish", "CP1254", "", 1, true},
    {1255, "ANSI - Hebrew", "CP1255", "", 1, true},
    {1256, "ANSI - Arabic", "CP1256", "", 1, true},
    {1257, "ANSI - Baltic", "CP1257", "", 1, true},
    {1258, "ANSI/OEM - Viet Nam", "CP1258", "", 1, true},
    {10000, "MAC - Roman", "MACINTOSH", "mac macintosh", 1, false},
    {12000, nullptr, "UTF-32LE", "", 4, false},
    {12001, nullptr, "UTF-32BE", "", 4, false},
    {20127, "US-ASCII", "ASCII", "ascii us-ascii", 1, true},
    {20866, "Russian - KOI8", "KOI8-R", "koi8-r", 1, false},
    {20932, nullptr, "EUC-JP", "", 2, false},
    {21866, "Ukrainian - KOI8-U", "KOI8-U", "koi8-u", 1, false},
    {28591, "ISO 8859-1 Latin I", "ISO-8859-1", "latin1 latin-1", 1, true},
    {28592, "ISO 8859-2 Central Europe", "ISO-8859-2", "", 1, true},
    {28593, "ISO 8859-3 Latin 3", "ISO-8859-3", "", 1, true},
    {28594, "ISO 8859-4 Baltic", "ISO-8859-4", "", 1, true},
    {28595, "ISO 8859-5 Cyrillic", "ISO-8859-5", "", 1, true},
    {28596, "ISO 8859-6 Arabic", "ISO-8859-6", "", 1, true},
    {28597, "ISO 8859-7 Greek", "ISO-8859-7", "", 1, true},
    {28598, "ISO 8859-8 Hebrew", "ISO-8859-8", "", 1, true},
    {28599, "ISO 8859-9 Latin 5", "ISO-8859-9", "", 1, true},
    {28605, "ISO 8859-15 Latin 9", "ISO-8859-15", "", 1, true},
    {50220, nullptr, "ISO-2022-JP", "", 5, false},
    {51932, "EUC - Japanese", "EUC-JP", "euc-jp", 2, false},
    {51949, "EUC - Korean", "EUC-KR", "euc-kr", 2, false},
    {52936, nullptr, "HZ", "", 5, false},
    {54936, "GB18030 Simplified Chinese", "GB18030", "gb18030", 4, false},
    {65000, "UTF-7", "UTF-7", "utf-7", 5, false},
    {65001, "UTF-8", "UTF-8", "utf-8 utf8", 4, true},
    {70000, nullptr, "UTF-16BE", "utf-16be ucs-2be", 4, false},
    {70001, nullptr, "UTF-16LE", "utf-16le utf-16 utf16 ucs-2le unicode", 4, false},
};

bool AllDigits(const std::string& s) {
  return !s.empty() && s.size() < 10 && s.find_first_not_of("0123456789") == std::string::npos;
}

// The number after `prefix`, or 0 when the text is not prefix and digits.
UINT NumberAfter(const std::string& text, const char* prefix) {
  const size_t n = strlen(prefix);
  if (text.compare(0, n, prefix) != 0 || !AllDigits(text.substr(n)))
    return 0;
  return static_cast<UINT>(atol(text.c_str() + n));
}

// Whether `name` is one of the space-separated words of `aliases`.
bool IsAlias(const char* aliases, const std::string& name) {
  for (const char* p = aliases; *p;) {
    const char* end = strchr(p, ' ');
    const size_t length = end ? static_cast<size_t>(end - p) : strlen(p);
    if (name.size() == length && name.compare(0, length, p, length) == 0)
      return true;
    p += length + (end ? 1 : 0);
  }
  return false;
}

}  // namespace

const VnCodePage* VnFindCodePage(UINT number) {
  for (const VnCodePage& page : kPages)
    if (page.number == number)
      return &page;
  return nullptr;
}

std::string VnConverterName(UINT number) {
  if (const VnCodePage* page = VnFindCodePage(number))
    return page->converter ? page->converter : "";
  char name[32] = "";
  if ((number >= 850 && number <= 869) || (number >= 1250 && number <= 1258))
    snprintf(name, sizeof name, "CP%u", number);
  else if (number >= 28591 && number <= 28606 && number != 28602)
    snprintf(name, sizeof name, "ISO-8859-%u", number - 28590);
  return name;
}

UINT VnCodePageFromName(const std::string& text) {
  std::string name = text;
  for (char& c : name)
    if (c >= 'A' && c <= 'Z')
      c = static_cast<char>(c - 'A' + 'a');
  if (AllDigits(name))
    return static_cast<UINT>(atol(name.c_str()));
  if (UINT page = NumberAfter(name, "cp"))
    return page;
  if (UINT page = NumberAfter(name, "windows-"))
    return page;
  if (UINT page = NumberAfter(name, "iso-8859-"))
    return 28590 + page;
  for (const VnCodePage& page : kPages)
    if (IsAlias(page.aliases, name))
      return page.number;
  return 0;
}
