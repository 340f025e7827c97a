// VnComparisonView.h - a comparison of two files shown in two panes, row
// beside row.
//
// The panes show the comparison's aligned rows, so that row n of the
// source pane stands beside row n of the target pane:
//
//   Same      both lines, in the default format
//   Changed   both lines in the replace format; a gap on the shorter side
//   Deleted   the source line in the delete format; the target pane shows
//             the same text, struck through and without a number
//   Inserted  a gap in the source pane; the target line in the insert format
//
// The full view enters each file whole (SetDefaultText) and then walks the
// rows top down with the panes' line operations: every insertion lands at a
// row whose rows above are already final.  The differences-only view shows
// just the changed blocks, each after a separator row, with the files' own
// line numbers.  Either way the view keeps the rows it shows, which is what
// the host steps through (GetBlocks) and what a row of a pane means.
//
// The rows are those of the changed words (VnChangedWords.h): within a
// replaced block, like lines stand level, and the words that changed in a
// Changed row get a background in a light shade of the replace colour.
// Captions name each file's form; when the forms differ, both captions take
// a warning colour.
#ifndef VN_WINDOW_VNCOMPARISONVIEW_H
#define VN_WINDOW_VNCOMPARISONVIEW_H

#include "compare/VnChangedWords.h"
#include "compare/VnDifferenceBlocks.h"

class CVnPaneWnd;
class CVnReconcileFrame;

// The caption colour of two files whose forms differ: a pale amber.
const COLORREF kVnFormWarningColor = RGB(255, 214, 140);

class VN_API CVnComparisonView {
public:
  // Fills both panes anew and sets up the splitter's bars through frame.
  void Show(const CVnComparison& comparison, CVnPaneWnd& source, CVnPaneWnd& target,
            const CVnReconcileFrame& frame, bool differencesOnly);

  // The rows the panes show, pane row by pane row; a separator row has -1
  // on both sides.
  const std::vector<CVnAlignedRow>& GetShownRows() const { return m_rows; }
  // The difference blocks in pane rows.
  const std::vector<CVnRowBlock>& GetBlocks() const { return m_blocks; }

private:
  void ShowAll(const CVnComparison& comparison, const std::vector<CVnAlignedRow>& rows, CVnPaneWnd* panes[2],
               const CVnReconcileFrame& frame);
  void ShowDifferences(const CVnComparison& comparison, const std::vector<CVnAlignedRow>& rows, CVnPaneWnd* panes[2],
                       const CVnReconcileFrame& frame);
  void Colour(CVnPaneWnd* panes[2], const CVnReconcileFrame& frame);
  void MarkWords(const CVnChangedWords& words, CVnPaneWnd* panes[2], const CVnReconcileFrame& frame);

  std::vector<CVnAlignedRow> m_rows;
  std::vector<CVnRowBlock> m_blocks;
};

#endif  // VN_WINDOW_VNCOMPARISONVIEW_H
