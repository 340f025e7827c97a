// VnSplitterDemoTest.cpp - real comparisons in the synchronised splitter,
// filled the way a host fills it: the change records of Compare walked in
// order, changed lines coloured, blank rows put in so that equal lines
// stand level, then the bars set up and the view scrolled to the middle
// through the vertical bar.  Every visible row is checked (equal lines
// level, each number beside its own line), and the pictures are written to
// <build>/screenshots/splitter-two-panes.png and splitter-three-panes.png
// for a person to look at.
#include "Screenshot.h"
#include "SplitterTestSupport.h"

#include "options/VnDisplayOptions.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

using vn::test::SplitterWindows;
using vn::test::WideLineSet;

namespace {

// A few hundred lines of a program; `edit` 1 changes, removes and adds
// lines here and there.
std::wstring Program(int edit) {
  std::wstring text;
  for (int n = 1; n <= 320; ++n) {
    if (edit && n >= 100 && n < 105)
      continue;  // removed
    std::wstring line = L"    total_" + std::to_wstring(n % 41) + L" += weight(" + std::to_wstring(n) + L");";
    if (n % 9 == 0)
      line = L"";
    if (edit && n % 37 == 0)
      line = L"    total_" + std::to_wstring(n % 41) + L" -= penalty(" + std::to_wstring(n) + L");  // changed";
    text += line + L"\r\n";
    if (edit && n == 160)
      for (int k = 1; k <= 6; ++k)
        text += L"    log_step(" + std::to_wstring(k) + L");  // added\r\n";
  }
  return text;
}

// What each row of a pane holds: a file's 1-based line, or 0 for padding.
using RowMap = std::vector<int>;

// The host's walk: each record colours its lines on the side(s) that have
// them and pads the shorter side below them with blank rows.
void Align(CVnPaneWnd* (&panes)[2], const CPtrArray& changes, long (&lines)[2], RowMap (&rows)[2]) {
  CVnOptionState formats;
  long done[2] = {0, 0};
  for (int side = 0; side < 2; ++side)
    rows[side].clear();
  auto copyEqual = [&](int side, long upTo) {
    for (long n = done[side] + 1; n <= upTo; ++n)
      rows[side].push_back(static_cast<int>(n));
  };
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange& change = *static_cast<const CVnDiffChange*>(changes.GetAt(k));
    long start[2] = {change.StartSource(), change.StartTarget()};
    long count[2] = {change.SourceChangeLen(), change.TargetChangeLen()};
    const CHARFORMATW* format[2] = {&formats.GetReplaceCharFormat(), &formats.GetReplaceCharFormat()};
    int only = change.GetAction() == CVnDiffChange::Delete ? 0 : change.GetAction() == CVnDiffChange::Insert ? 1 : -1;
    if (only >= 0) {
      count[1 - only] = 0;
      start[1 - only] = done[1 - only] + (start[only] - done[only]);
      format[only] = only == 0 ? &formats.GetDeleteCharFormat() : &formats.GetInsertCharFormat();
    }
    for (int side = 0; side < 2; ++side) {
      copyEqual(side, start[side] - 1);
      int row = static_cast<int>(rows[side].size()) + 1;
      if (count[side] > 0)
        panes[side]->ColorSelection(row, row + static_cast<int>(count[side]) - 1, *format[side]);
      for (long n = 0; n < count[side]; ++n)
        rows[side].push_back(static_cast<int>(start[side] + n));
      long gap = count[1 - side] - count[side];
      if (gap > 0)
        panes[side]->InsertBlankLines(static_cast<int>(rows[side].size()) + 1, static_cast<int>(gap), 0, 0);
      rows[side].insert(rows[side].end(), static_cast<size_t>(gap > 0 ? gap : 0), 0);
      done[side] = start[side] + count[side] - 1;
    }
  }
  for (int side = 0; side < 2; ++side)
    copyEqual(side, lines[side]);
}

// Fills panes[0] and panes[1] from two texts, aligned.
void FillCompared(CVnPaneWnd* (&panes)[2], const std::wstring& first, const std::wstring& second, RowMap (&rows)[2],
                  std::vector<std::wstring> (&fileLines)[2]) {
  WideLineSet source(first), target(second);
  CVnDiffChangeList changes;
  source.arg.Compare(0, 0, 0, target.arg, changes);
  ASSERT_GT(changes.GetSize(), 0);
  const std::wstring* texts[2] = {&first, &second};
  long counts[2] = {source.arg.GetLineCount(), target.arg.GetLineCount()};
  for (int side = 0; side < 2; ++side) {
    std::wstring text = *texts[side];
    panes[side]->SetLineTerminator(GetLineTerminator(nullptr, 0));
    panes[side]->SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]),
                                static_cast<int>(text.size() * sizeof(wchar_t)), panes[side]->GetDefaultCharFormat());
    fileLines[side].clear();
    for (size_t at = 0, end; (end = text.find(L"\r\n", at)) != std::wstring::npos; at = end + 2)
      fileLines[side].push_back(text.substr(at, end - at));
  }
  Align(panes, changes, counts, rows);
}

std::wstring RowText(CRichEditCtrl& edit, int row) {
  CString text;
  edit.GetLine(row, text);
  std::wstring s = text.GetString();
  while (!s.empty() && (s.back() == L'\r' || s.back() == L'\n' || s.back() == L' '))
    s.pop_back();
  return s;
}

// Every visible row of the two panes: equal lines beside each other, and
// each pane's number column showing the number of the line beside it.
void ExpectVisibleRowsLevel(CVnPaneWnd* (&panes)[2], const RowMap (&rows)[2],
                            const std::vector<std::wstring> (&fileLines)[2]) {
  int first = panes[0]->GetTextPane()->GetFirstVisibleLine();
  int visible = panes[0]->GetVisibleLineCount();
  ASSERT_GT(visible, 10);
  // Level to the pixel, too: a row stands at the same height in all four.
  auto top = [first](CRichEditCtrl& edit) {
    RECT rect;
    edit.GetWindowRect(&rect);
    return rect.top + edit.PosFromChar(static_cast<UINT>(edit.LineIndex(first))).y;
  };
  for (int side = 0; side < 2; ++side) {
    EXPECT_EQ(top(*panes[0]->GetTextPane()), top(*panes[side]->GetTextPane())) << side;
    EXPECT_EQ(top(*panes[0]->GetTextPane()), top(*panes[side]->GetLineNumPane())) << side;
  }
  int level = 0;
  for (int row = first; row < first + visible && row < static_cast<int>(rows[0].size()); ++row) {
    std::wstring text[2];
    for (int side = 0; side < 2; ++side) {
      ASSERT_EQ(first, panes[side]->GetTextPane()->GetFirstVisibleLine());
      ASSERT_EQ(first, panes[side]->GetLineNumPane()->GetFirstVisibleLine());
      int line = rows[side][static_cast<size_t>(row)];
      text[side] = RowText(*panes[side]->GetTextPane(), row);
      std::wstring number = RowText(*panes[side]->GetLineNumPane(), row);
      EXPECT_EQ(line ? std::to_wstring(line) : L"", number) << "side " << side << " row " << row;
      if (line)
        EXPECT_EQ(fileLines[side][static_cast<size_t>(line - 1)], text[side]) << "side " << side << " row " << row;
    }
    if (rows[0][static_cast<size_t>(row)] && rows[1][static_cast<size_t>(row)] && text[0] == text[1])
      ++level;
  }
  EXPECT_GT(level, visible / 2) << "most rows in view are equal lines, level";
}

void ScrollToMiddle(SplitterWindows& windows) {
  int middle = windows.BarMax(0xEA10) / 2;
  windows.Scroll(WM_VSCROLL, 0xEA10, SB_THUMBTRACK, static_cast<UINT>(middle));
  windows.Scroll(WM_VSCROLL, 0xEA10, SB_THUMBPOSITION, static_cast<UINT>(middle));
  ASSERT_EQ(middle, windows.BarPos(0xEA10));
}

void Snapshot(SplitterWindows& windows, const wchar_t* name) {
  ::RedrawWindow(windows.Frame(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  vn::test::PumpMessages();
  vn::test::Picture picture = vn::test::CaptureWindow(windows.Frame());
  ASSERT_TRUE(vn::test::WritePng(picture, vn::test::ScreenshotPath(name)));
}

TEST(VnSplitterDemo, TwoComparedFilesScrolledToTheMiddleStandLevelWithTheirNumbers) {
  SplitterWindows windows(SplitterWindows::SideBySide, 1000, 520);
  CVnPaneWnd* panes[2] = {&windows.Pane(0), &windows.Pane(1)};
  RowMap rows[2];
  std::vector<std::wstring> fileLines[2];
  FillCompared(panes, Program(0), Program(1), rows, fileLines);
  ASSERT_EQ(rows[0].size(), rows[1].size());
  windows.Rewind();
  windows.Top().ResizeInternalPanes(windows.Top().GetLineNumWidth(panes[0]->GetDefaultCharFormat(), 1));
  windows.Top().SetupVScrollBars();
  windows.Top().SetupHScrollBars();
  ScrollToMiddle(windows);
  ExpectVisibleRowsLevel(panes, rows, fileLines);
  panes[0]->SetCaption(L"before.c");
  panes[1]->SetCaption(L"after.c");
  Snapshot(windows, L"splitter-two-panes.png");
}

TEST(VnSplitterDemo, ThreePanesOfTheMergeLayoutScrollTogether) {
  SplitterWindows windows(SplitterWindows::Merge, 1000, 640);
  CVnPaneWnd* panes[2] = {&windows.Pane(0), &windows.Pane(1)};
  RowMap rows[2];
  std::vector<std::wstring> fileLines[2];
  FillCompared(panes, Program(0), Program(1), rows, fileLines);
  // The result below: the left side's text with its alignment rows.
  std::wstring merged;
  for (size_t r = 0; r < rows[0].size(); ++r)
    merged += (rows[0][r] ? fileLines[0][static_cast<size_t>(rows[0][r] - 1)] : L"") + L"\r\n";
  CVnPaneWnd& below = windows.Pane(2);
  below.SetLineTerminator(GetLineTerminator(nullptr, 0));
  below.SetDefaultText(reinterpret_cast<unsigned char*>(&merged[0]), static_cast<int>(merged.size() * sizeof(wchar_t)),
                       below.GetDefaultCharFormat());
  windows.Rewind();
  windows.Top().ResizeInternalPanes(windows.Top().GetLineNumWidth(panes[0]->GetDefaultCharFormat(), 1));
  windows.Top().SetupVScrollBars();
  windows.Top().SetupHScrollBars();
  ScrollToMiddle(windows);
  ExpectVisibleRowsLevel(panes, rows, fileLines);
  int first = panes[0]->GetTextPane()->GetFirstVisibleLine();
  EXPECT_EQ(first, below.GetTextPane()->GetFirstVisibleLine());
  EXPECT_EQ(RowText(*panes[0]->GetTextPane(), first + 3), RowText(*below.GetTextPane(), first + 3));
  panes[0]->SetCaption(L"local.c");
  panes[1]->SetCaption(L"remote.c");
  below.SetCaption(L"merged.c");
  Snapshot(windows, L"splitter-three-panes.png");
}

}  // namespace
