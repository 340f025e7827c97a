// VnFileCaption.cpp - a file's name with its encoding and line ends.
#include "compare/VnFileCaption.h"

CString VnLineEndName(VnLineEnd ends) {
  switch (ends) {
  case VnLineEnd::CRLF: return _T("CR LF");
  case VnLineEnd::LF: return _T("LF");
  case VnLineEnd::CR: return _T("CR");
  case VnLineEnd::LFCR: return _T("LF CR");
  case VnLineEnd::Mixed: return _T("mixed line ends");
  default: return _T("no line ends");
  }
}

static void AddPart(CString& parts, const CString& part) {
  if (part.IsEmpty())
    return;
  if (!parts.IsEmpty())
    parts += _T(", ");
  parts += part;
}

CString VnFileCaption(const CVnFileFacts& facts) {
  CString parts;
  if (facts.m_nFileType == CVnDiffFile::TypeBinary) {
    parts = _T("binary");
  } else {
    CString encoding = facts.m_strEncoding;
    if (facts.m_nEncodingSource == VnEncodingSource::Content || facts.m_nEncodingSource == VnEncodingSource::User)
      encoding += _T(" ") + VnEncodingSourceName(facts.m_nEncodingSource);
    AddPart(parts, encoding);
    if (facts.m_bHasBOM)
      AddPart(parts, _T("BOM"));
    AddPart(parts, VnLineEndName(facts.m_nLineEnds));
    if (!facts.m_bFinalNewline)
      AddPart(parts, _T("no final newline"));
  }
  return facts.m_strDisplayName + _T("  (") + parts + _T(")");
}

CString VnFormSummary(const std::vector<CVnFormDifference>& differences, bool sameText) {
  static const TCHAR* const kNames[] = {_T("encoding"), _T("line ends"), _T("final newline")};
  CString kinds;
  for (size_t k = 0; k < differences.size(); ++k) {
    if (k)
      kinds += k + 1 == differences.size() ? _T(" and ") : _T(", ");
    kinds += kNames[static_cast<int>(differences[k].m_nKind)];
  }
  if (kinds.IsEmpty())
    return kinds;
  return sameText ? _T("Files differ only in ") + kinds : _T("Also different: ") + kinds;
}
