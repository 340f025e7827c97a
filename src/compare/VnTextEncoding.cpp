// VnTextEncoding.cpp - decoded text back to the bytes of a code page.
#include "compare/VnTextEncoding.h"

#include "afx/os/OsSeam.h"
#include "afx/portable/VnCodePages.h"

namespace {

const unsigned kUtf8 = 65001, kUtf16LE = 70001, kUtf16BE = 70000;
const size_t kPiece = 1 << 24;

void AppendUtf16(const WCHAR* text, size_t count, bool bigEndian, std::string& out) {
  const size_t at = out.size();
  out.resize(at + 2 * count);
  for (size_t i = 0; i < count; ++i) {
    const unsigned unit = static_cast<unsigned>(text[i]) & 0xFFFF;
    out[at + 2 * i + (bigEndian ? 1 : 0)] = static_cast<char>(unit & 0xFF);
    out[at + 2 * i + (bigEndian ? 0 : 1)] = static_cast<char>(unit >> 8);
  }
}

}  // namespace

bool VnEncodeUnits(unsigned codePage, const WCHAR* text, size_t count, std::string& out) {
  if (count == 0)
    return true;
  switch (codePage) {
  case kUtf8:
    VnAppendUtf8(text, count, out);
    return true;
  case kUtf16LE:
  case kUtf16BE:
    AppendUtf16(text, count, codePage == kUtf16BE, out);
    return true;
  default:
    // In pieces, so that a count never overflows the converter's int; a
    // piece never ends between the two halves of a surrogate pair.
    for (size_t at = 0; at < count;) {
      size_t n = count - at < kPiece ? count - at : kPiece;
      if (at + n < count && (static_cast<unsigned>(text[at + n - 1]) & 0xFC00) == 0xD800)
        --n;
      const std::string bytes = vn::os::WideToMultiByte(codePage, text + at, static_cast<int>(n));
      if (bytes.empty())
        return false;
      out += bytes;
      at += n;
    }
    return true;
  }
}

std::string VnByteOrderMark(unsigned codePage) {
  switch (codePage) {
  case kUtf8: return "\xEF\xBB\xBF";
  case kUtf16LE: return "\xFF\xFE";
  case kUtf16BE: return "\xFE\xFF";
  default: return std::string();
  }
}

bool VnIsAsciiBased(unsigned codePage) {
  const VnCodePage* page = VnFindCodePage(codePage);
  return page && page->asciiSame;
}
