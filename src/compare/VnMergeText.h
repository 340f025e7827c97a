// VnMergeText.h - lines of the merged sides written out as one text.
// Internal to the merge.
//
// Decoded lines are gathered as UTF-16 units and encoded once at the end,
// raw lines as their bytes.  Each line is written with a line end: its own,
// or, for a line of another side than LOCAL, the one kind LOCAL uses.  A
// line without an end (the last line of its file) gets one only when
// something follows it.
#ifndef VN_COMPARE_VNMERGETEXT_H
#define VN_COMPARE_VNMERGETEXT_H

#include "compare/VnMerge.h"

#include <string>

class CVnMergeWriter {
public:
  // wide: decoded text, encoded at the end in codePage behind `mark`.
  // `uniform`: the end of every terminated line written as foreign, or None
  // to keep each line's own.  `fallback`: the end of markers and of a line
  // without one that something follows.
  CVnMergeWriter(bool wide, unsigned codePage, const std::string& mark, VnLineEnd uniform, VnLineEnd fallback);

  void Lines(const CVnComparedFile& file, CVnLineRange range, bool foreign);
  // A marker line: the seven-character sign, a space and the label (the
  // sign alone for an empty label).
  void Marker(const char* sign, const CString& label);
  // The bytes; false when the code page can't be written.
  bool Finish(std::string& out);

private:
  void End(VnLineEnd end);
  void Close();

  bool m_bWide;
  unsigned m_nCodePage;
  std::string m_strMark;
  VnLineEnd m_nUniform, m_nFallback;
  bool m_bOpenLine = false;  // the last line written has no end yet
  std::basic_string<WCHAR> m_units;
  std::string m_bytes;
};

#endif  // VN_COMPARE_VNMERGETEXT_H
