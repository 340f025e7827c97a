// Consumer.cpp - compares two files through the installed component and
// prints what a host reads of the comparison: the version, the engine's
// records, their spans and the kinds of the aligned rows.  Exit status 0
// same, 1 different, 2 trouble.
#include <vnreconcile/Compare.h>
#include <vnreconcile/Options.h>

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
  if (argc != 3)
    return 2;
  // The paths through the command line parser, as a host receives them.
  CString files[2];
  CString line = _T("\"") + VnFromUtf8(argv[1]) + _T("\" \"") + VnFromUtf8(argv[2]) + _T("\"");
  if (ParseCmdLine(line, files, 2) != 2)
    return 2;

  CVnComparison comparison;
  try {
    if (!comparison.Open(CVnComparison::Source, files[0]) || !comparison.Open(CVnComparison::Target, files[1]))
      return 2;
    comparison.Compare();
  } catch (CException* e) {
    e->Delete();
    return 2;
  }

  std::printf("version %s\n", VN_VERSION_TEXT);
  const CVnDiffChangeList& changes = comparison.GetChanges();
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& c = *changes[i];
    std::printf("record %d %ld-%ld %ld-%ld\n", static_cast<int>(c.GetAction()), c.StartSource(), c.EndSource(),
                c.StartTarget(), c.EndTarget());
  }
  for (const CVnChangeSpan& s : comparison.GetSpans(false))
    std::printf("span %ld+%ld %ld+%ld\n", s.m_nSourceBegin, s.m_nSourceCount, s.m_nTargetBegin, s.m_nTargetCount);
  std::string kinds;
  for (const CVnAlignedRow& row : comparison.GetRows())
    kinds += "SIDC"[static_cast<int>(row.m_nKind)];
  std::printf("rows %s\n", kinds.c_str());
  return comparison.IsSame() ? 0 : 1;
}
