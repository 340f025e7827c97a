// VnFormDifference.cpp - what two files' facts say about their form.
#include "compare/VnFormDifference.h"

#include "afx/portable/VnCodePages.h"
#include "compare/VnFileCaption.h"

namespace {

// The short name users type and editors show: "UTF-8", "UTF-16LE",
// "Windows-1252", "ISO-8859-1", "CP437".
CString EncodingName(const CVnFileFacts& f) {
  std::string name = VnConverterName(f.m_nCodePage);
  if (name.compare(0, 5, "CP125") == 0 && name.size() == 6)
    name = "Windows-" + name.substr(2);
  CString text = name.empty() ? f.m_strEncoding : CString(name.c_str());
  return f.m_bHasBOM ? text + _T(" with BOM") : text;
}

bool EightBit(const CVnFileFacts& f) { return !f.m_bHasBOM && f.m_nFileType != CVnDiffFile::TypeUnicode; }

bool IsUtf8(const CVnFileFacts& f) { return f.m_nCodePage == 65001; }

bool EncodingsDiffer(const CVnFileFacts& a, const CVnFileFacts& b) {
  if (EncodingName(a) == EncodingName(b))
    return false;
  // Plain ASCII is the same bytes in UTF-8 and every ANSI page.
  if (a.m_bAscii && (EightBit(b) || (IsUtf8(b) && !b.m_bHasBOM)))
    return false;
  return !(b.m_bAscii && (EightBit(a) || (IsUtf8(a) && !a.m_bHasBOM)));
}

}  // namespace

std::vector<CVnFormDifference> VnFormDifferences(const CVnFileFacts& s, const CVnFileFacts& t) {
  std::vector<CVnFormDifference> out;
  if (s.m_nFileType == CVnDiffFile::TypeBinary || t.m_nFileType == CVnDiffFile::TypeBinary)
    return out;
  if (EncodingsDiffer(s, t))
    out.push_back({VnFormKind::Encoding, EncodingName(s), EncodingName(t)});
  // A file without any line end has no style; its last line tells below.
  if (s.m_nLineEnds != t.m_nLineEnds && s.m_nLineEnds != VnLineEnd::None && t.m_nLineEnds != VnLineEnd::None)
    out.push_back({VnFormKind::LineEnds, VnLineEndName(s.m_nLineEnds), VnLineEndName(t.m_nLineEnds)});
  if (s.m_bFinalNewline != t.m_bFinalNewline)
    out.push_back({VnFormKind::FinalNewline, s.m_bFinalNewline ? _T("yes") : _T("no"),
                   t.m_bFinalNewline ? _T("yes") : _T("no")});
  return out;
}

CString VnFormDifferenceText(const CVnFormDifference& d) {
  static const TCHAR* const kNames[] = {_T("encoding"), _T("line ends"), _T("final newline")};
  return CString(kNames[static_cast<int>(d.m_nKind)]) + _T(": ") + d.m_strSource + _T(" / ") + d.m_strTarget;
}

bool VnFormDifferenceCounts(VnFormKind kind, const CVnCompareOptions& options) {
  return kind == VnFormKind::Encoding ? !options.m_bIgnoreEncoding : !options.m_bIgnoreLineEnds;
}
