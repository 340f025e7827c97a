// VnComparisonViewWin32.cpp - filling two panes from a comparison.
#include "window/VnComparisonView.h"

#include "compare/VnFileCaption.h"
#include "compare/VnFormDifference.h"
#include "window/VnRichEditPane.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneWnd.h"
#include "window/VnReconcileFrame.h"
#include "window/VnTextPane.h"

namespace {

const CVnComparison::Side kSides[2] = {CVnComparison::Source, CVnComparison::Target};

long LineOf(const CVnAlignedRow& row, int side) { return side == 0 ? row.m_nSource : row.m_nTarget; }

// The end of the run of rows from begin that agree with it on pred.
template <typename Pred>
size_t RunEnd(const std::vector<CVnAlignedRow>& rows, size_t begin, Pred same) {
  size_t end = begin + 1;
  while (end < rows.size() && same(rows[begin], rows[end]))
    ++end;
  return end;
}

// Quiet and unseen while the rows go in: no synchronisation per insertion,
// no drawing per line.
class PaneBatch {
public:
  explicit PaneBatch(CVnPaneWnd& pane) : m_pane(pane), m_mask(pane.SetEventMask(0)) {
    m_pane.GetTextPane()->SendMessage(WM_SETREDRAW, FALSE);
    m_pane.GetLineNumPane()->SendMessage(WM_SETREDRAW, FALSE);
  }
  ~PaneBatch() {
    m_pane.SetEventMask(m_mask);
    m_pane.GetTextPane()->SendMessage(WM_SETREDRAW, TRUE);
    m_pane.GetLineNumPane()->SendMessage(WM_SETREDRAW, TRUE);
    m_pane.GetTextPane()->Invalidate();
    m_pane.GetLineNumPane()->Invalidate();
  }

private:
  CVnPaneWnd& m_pane;
  long m_mask;
};

}  // namespace

void CVnComparisonView::Show(const CVnComparison& comparison, CVnPaneWnd& source, CVnPaneWnd& target,
                             const CVnReconcileFrame& frame, bool differencesOnly) {
  CVnPaneWnd* panes[2] = {&source, &target};
  const bool formsDiffer = !VnFormDifferences(comparison.GetFile(CVnComparison::Source).GetFacts(),
                                              comparison.GetFile(CVnComparison::Target).GetFacts())
                                 .empty();
  for (int side = 0; side < 2; ++side) {
    panes[side]->SetLineTerminator(L"\r\n");
    panes[side]->SetCaption(VnFileCaption(comparison.GetFile(kSides[side]).GetFacts()));
    panes[side]->SetCaptionColor(formsDiffer ? kVnFormWarningColor : CLR_DEFAULT);
  }
  bool wide = comparison.GetFile(CVnComparison::Source).IsWide() && comparison.GetFile(CVnComparison::Target).IsWide();
  const CVnChangedWords words(comparison);
  {
    PaneBatch quietSource(source), quietTarget(target);
    if (differencesOnly && wide)
      ShowDifferences(comparison, words.GetRows(), panes, frame);
    else
      ShowAll(comparison, words.GetRows(), panes, frame);
    Colour(panes, frame);
    if (wide)
      MarkWords(words, panes, frame);
  }
  m_blocks = VnDifferenceBlocks(m_rows);
}

//===-- The full view ------------------------------------------------------===//

// Gaps in the source pane are blank rows; in the target pane a gap facing
// deleted lines shows their text, any other gap is blank.
void CVnComparisonView::ShowAll(const CVnComparison& comparison, const std::vector<CVnAlignedRow>& rows,
                                CVnPaneWnd* panes[2], const CVnReconcileFrame& frame) {
  m_rows = rows;
  for (int side = 0; side < 2; ++side) {
    const CVnComparedFile& file = comparison.GetFile(kSides[side]);
    panes[side]->SetDefaultText(const_cast<unsigned char*>(file.GetBuffer()), static_cast<int>(file.GetBufferSize()),
                                frame.GetDefaultCharFormat());
  }
  const CVnDiffArg& sourceLines = comparison.GetFile(CVnComparison::Source).GetLines();
  for (int side = 0; side < 2; ++side) {
    for (size_t begin = 0; begin < m_rows.size();) {
      size_t end = RunEnd(m_rows, begin, [side](const CVnAlignedRow& a, const CVnAlignedRow& b) {
        return (LineOf(a, side) < 0) == (LineOf(b, side) < 0) && a.m_nKind == b.m_nKind;
      });
      int row = static_cast<int>(begin) + 1, count = static_cast<int>(end - begin);
      if (LineOf(m_rows[begin], side) < 0) {
        if (side == 1 && m_rows[begin].m_nKind == VnRowKind::Deleted && comparison.GetFile(CVnComparison::Source).IsWide())
          panes[1]->InsertDeletedLines(sourceLines, static_cast<int>(m_rows[begin].m_nSource) + 1, count, row, 0, 0,
                                       frame.GetDeleteCharFormat());
        else
          panes[side]->InsertBlankLines(row, count, 0, 0);
      }
      begin = end;
    }
  }
}

//===-- The differences-only view ------------------------------------------===//

void CVnComparisonView::ShowDifferences(const CVnComparison& comparison, const std::vector<CVnAlignedRow>& all,
                                        CVnPaneWnd* panes[2], const CVnReconcileFrame& frame) {
  m_rows.clear();
  for (const CVnRowBlock& block : VnDifferenceBlocks(all)) {
    m_rows.push_back({-1, -1, VnRowKind::Same});
    m_rows.insert(m_rows.end(), all.begin() + block.m_nFirst, all.begin() + block.m_nLast + 1);
  }
  const CVnDiffArg& sourceLines = comparison.GetFile(CVnComparison::Source).GetLines();
  for (int side = 0; side < 2; ++side) {
    const CVnDiffArg& lines = comparison.GetFile(kSides[side]).GetLines();
    CString text, numbers, number;
    for (size_t r = 0; r < m_rows.size(); ++r) {
      const CVnAlignedRow& row = m_rows[r];
      long line = LineOf(row, side);
      if (r) {
        text += L"\r\n";
        numbers += L"\r\n";
      }
      if (line >= 0) {
        text += VnLineText(lines, line);
        number.Format(_T("%ld"), line + 1);
        numbers += number;
      } else if (side == 1 && row.m_nKind == VnRowKind::Deleted) {
        text += VnLineText(sourceLines, row.m_nSource);
      }
    }
    const WCHAR* units = text.GetString();
    panes[side]->SetDefaultText(reinterpret_cast<unsigned char*>(const_cast<WCHAR*>(units)),
                                text.GetLength() * static_cast<int>(sizeof(WCHAR)), frame.GetDefaultCharFormat());
    panes[side]->GetLineNumPane()->SetWindowText(numbers);
  }
}

//===-- Colours ------------------------------------------------------------===//

// Runs of one kind on one side that hold that side's lines.  Deleted lines
// shown in the target pane came in with their format.
void CVnComparisonView::Colour(CVnPaneWnd* panes[2], const CVnReconcileFrame& frame) {
  for (int side = 0; side < 2; ++side) {
    for (size_t begin = 0; begin < m_rows.size();) {
      size_t end = RunEnd(m_rows, begin, [side](const CVnAlignedRow& a, const CVnAlignedRow& b) {
        return a.m_nKind == b.m_nKind && (LineOf(a, side) < 0) == (LineOf(b, side) < 0);
      });
      const CVnAlignedRow& row = m_rows[begin];
      const CHARFORMATW* format = row.m_nKind == VnRowKind::Changed    ? &frame.GetReplaceCharFormat()
                                  : row.m_nKind == VnRowKind::Deleted  ? &frame.GetDeleteCharFormat()
                                  : row.m_nKind == VnRowKind::Inserted ? &frame.GetInsertCharFormat()
                                                                       : nullptr;
      bool deletedShown = side == 1 && row.m_nKind == VnRowKind::Deleted;
      if (format && (LineOf(row, side) >= 0 || deletedShown))
        panes[side]->ColorSelection(static_cast<int>(begin) + 1, static_cast<int>(end), *format);
      begin = end;
    }
  }
}

// The marks of each side's line on a Changed row, in that row.
void CVnComparisonView::MarkWords(const CVnChangedWords& words, CVnPaneWnd* panes[2], const CVnReconcileFrame& frame) {
  const CHARFORMAT2W format = VnChangedWordsFormat(frame.GetReplaceCharFormat());
  for (size_t r = 0; r < m_rows.size(); ++r) {
    if (m_rows[r].m_nKind != VnRowKind::Changed)
      continue;
    for (int side = 0; side < 2; ++side)
      for (const CVnUnitRange& range : words.GetMarks(kSides[side], LineOf(m_rows[r], side)))
        panes[side]->ColorCharacters(static_cast<int>(r) + 1, static_cast<int>(range.m_nBegin),
                                     static_cast<int>(range.m_nEnd), format);
  }
}
