// VnRichEditPaneMeasureTest.cpp - what a rich edit pane measures and reads
// of positions, checked against the real control: rows that fit, rows after
// alignment, widths of text, the character at a point, the caret, the
// column at the left edge.
#include "PaneTestSupport.h"

#include "engine/VnDiffChange.h"

#include <gtest/gtest.h>

#include <string>

using namespace vn::test;

namespace {

CHARFORMATW FontFormat(LONG twips) {
  CHARFORMATW cf = {};
  cf.cbSize = sizeof(cf);
  cf.dwMask = CFM_SIZE | CFM_FACE;
  cf.yHeight = twips;
  ::lstrcpynW(cf.szFaceName, FixedPitchFace(), LF_FACESIZE);
  return cf;
}

void SetPaneFont(PaneWindows& windows, LONG twips, unsigned tabSize = 4) {
  CVnDisplayOptions options = FixedPitchOptions();
  CHARFORMATW cf = options.GetCharFormat();
  cf.yHeight = twips;
  options.SetCharFormat(cf);
  options.SetTabSize(tabSize);
  windows.Pane().SetDisplayOptions(options);
}

//===-- Rows -----------------------------------------------------------------===//

TEST(VnRichEditPaneGetVisibleLineCount, CountsWholeRowsOfThePaneFontInTheClientArea) {
  const struct { int height; LONG twips; } cases[] = {{300, 180}, {157, 180}, {40, 180}, {300, 360}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.height << " " << c.twips);
    PaneWindows windows(true, 400, c.height);
    SetPaneFont(windows, c.twips);
    windows.Fill(CountedRows(80, L"line ", 0));
    CVnRichEditPane& edit = windows.Edit();
    // The control lays its rows out in the same font: their spacing is the
    // row height the count divides by.
    int spacing = edit.PosFromChar(edit.LineIndex(1)).y - edit.PosFromChar(0).y;
    ASSERT_GT(spacing, 0);
    CRect client;
    edit.GetClientRect(&client);
    EXPECT_EQ(client.bottom / spacing, edit.GetVisibleLineCount());
  }
}

TEST(VnRichEditPaneGetTotalLineCount, AddsDeletesOfTheFirstListAndInsertsOfTheSecond) {
  CVnDiffChangeList first, second;
  first.Add(new CVnDiffChange(CVnDiffChange::Delete, 2, 4, 0, 0));     // 3 rows
  first.Add(new CVnDiffChange(CVnDiffChange::Insert, 0, 0, 1, 9));     // not counted
  first.Add(new CVnDiffChange(CVnDiffChange::Change, 5, 9, 5, 6));     // not counted
  second.Add(new CVnDiffChange(CVnDiffChange::Insert, 0, 0, 7, 8));    // 2 rows
  second.Add(new CVnDiffChange(CVnDiffChange::Delete, 1, 5, 0, 0));    // not counted
  second.Add(new CVnDiffChange(CVnDiffChange::FullFile, -1, -1, -1, -1));
  CVnDiffChangeList none;
  const struct { const CPtrArray *a, *b; int total; } cases[] = {
      {&first, &second, 4 + 3 + 2}, {&none, &none, 4}, {&second, &first, 4 + 5 + 9}, {&first, &none, 4 + 3}};
  PaneWindows windows;
  windows.Fill(L"a|b|c|d");
  for (const auto& c : cases)
    EXPECT_EQ(c.total, windows.Edit().GetTotalLineCount(*c.a, *c.b));
}

//===-- Widths ---------------------------------------------------------------===//

TEST(VnRichEditPaneGetFormattedTextLength, ExpandsTabsToTheTabSizeAndMeasuresAtWholePoints) {
  PaneWindows windows;
  CVnRichEditPane& edit = windows.Edit();
  CHARFORMATW format = FontFormat(180);
  EXPECT_EQ(0, edit.GetFormattedTextLength(format, L""));
  SetPaneFont(windows, 180, 4);
  int tab4 = edit.GetFormattedTextLength(format, L"\t");
  int twoTabs4 = edit.GetFormattedTextLength(format, L"\t\t");
  int shortThenTab = edit.GetFormattedTextLength(format, L"a\t");
  SetPaneFont(windows, 180, 8);
  int tab8 = edit.GetFormattedTextLength(format, L"\t");
  ASSERT_GT(tab4, 0);
  EXPECT_EQ(2 * tab4, tab8);
  EXPECT_EQ(2 * tab4, twoTabs4);
  EXPECT_EQ(tab4, shortThenTab);  // a tab runs to the next stop
  EXPECT_GT(edit.GetFormattedTextLength(format, L"abcdefgh"), edit.GetFormattedTextLength(format, L"abcd"));
  // Fonts are made at whole points.
  auto width = [&](LONG twips) { return edit.GetFormattedTextLength(FontFormat(twips), L"wide text"); };
  const struct { LONG twips, sameAs; } cases[] = {{190, 180}, {199, 180}, {250, 240}};
  for (const auto& c : cases)
    EXPECT_EQ(width(c.sameAs), width(c.twips)) << c.twips;
  EXPECT_LT(width(180), width(400));
}

TEST(VnRichEditPaneGetFormattedTextLength, OutsideAPaneUsesTheDefaultTabSize) {
  PaneWindows outside(false);
  PaneWindows inside;
  SetPaneFont(inside, 180, 4);
  CHARFORMATW format = FontFormat(180);
  EXPECT_EQ(inside.Edit().GetFormattedTextLength(format, L"\tx"),
            outside.Edit().GetFormattedTextLength(format, L"\tx"));
  EXPECT_GT(outside.Edit().GetVisibleLineCount(), 0);
}

//===-- Positions ------------------------------------------------------------===//

TEST(VnRichEditPaneCharFromPos, GivesTheCharacterAtAPoint) {
  PaneWindows windows;
  windows.Fill(L"abc|defg|hi");
  CVnRichEditPane& edit = windows.Edit();
  for (int c : {1, 2, 3, 4, 6, 8, 9})
    EXPECT_EQ(c, edit.CharFromPos(edit.PosFromChar(c)));
  EXPECT_EQ(11, edit.CharFromPos(CPoint(5, 1000)));  // below the text: its length
}

// The control shows no caret over a selection, and its position stays
// where it was last drawn: the table puts it there by collapsing the
// selection first.  Which end of the selection has the caret's position
// decides the column.
TEST(VnRichEditPaneGetCurrentCaret, TellsTheLineAndColumnOfTheCaret) {
  PaneWindows windows;
  windows.Fill(L"abc|defg|hi");
  CVnRichEditPane& edit = windows.Edit();
  edit.SetFocus();
  ASSERT_EQ(edit.GetSafeHwnd(), ::GetFocus());
  const struct { long caretAt, start, end, line, column; } cases[] = {
      {5, 5, 5, 1, 1},
      {0, 0, 0, 0, 0},
      {11, 11, 11, 2, 2},
      {7, 5, 7, 1, 3},   // caret at the end
      {5, 5, 7, 1, 1},   // caret at the start
      {4, 1, 4, 0, 4},   // ends at a line's start: one past the line before
      {11, 0, -1, 2, 2},  // the whole text: not beyond its last character
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.start << "," << c.end << " caret at " << c.caretAt);
    edit.SetSel(c.caretAt, c.caretAt);
    edit.SetSel(c.start, c.end);
    long line = -1, column = -1;
    edit.GetCurrentCaret(line, column);
    EXPECT_EQ(c.line, line);
    EXPECT_EQ(c.column, column);
  }
}

TEST(VnRichEditPaneGetFirstVisibleChar, WorksOutTheLeftColumnFromTheCaretOrWithoutTheFocusGivesTheStoredOne) {
  PaneWindows windows(true, 300, 200);
  windows.Fill(std::wstring(200, L'x') + L"|\tab|short");
  CVnRichEditPane& edit = windows.Edit();
  edit.SetFocus();
  ASSERT_EQ(edit.GetSafeHwnd(), ::GetFocus());
  edit.SetSel(10, 10);
  EXPECT_EQ(0, edit.GetFirstVisibleChar());
  edit.SetSel(204, 204);  // after "\tab": tabs are measured character by character
  EXPECT_EQ(0, edit.GetFirstVisibleChar());
  // Scrolled: the first column whose left edge is in view.
  edit.HScroll(12, nullptr);
  edit.SetSel(60, 60);
  int firstInView = 0;
  while (edit.PosFromChar(firstInView).x < 0)
    ++firstInView;
  EXPECT_NE(0, firstInView);
  EXPECT_EQ(firstInView, edit.GetFirstVisibleChar());
  EXPECT_EQ(firstInView, edit.m_nFirstVisibleChar);
  HostWindow().SetFocus();
  edit.m_nFirstVisibleChar = 7;
  EXPECT_EQ(7, edit.GetFirstVisibleChar());
}

}  // namespace
