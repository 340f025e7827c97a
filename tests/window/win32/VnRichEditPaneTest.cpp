// VnRichEditPaneTest.cpp - the line operations, checked through the real
// rich edit control: rows, formats of lines, the selection, the event mask.
//
// The control ends a paragraph in one CR whatever terminator went in, so
// most tables run with both "\r\n" and "\r" and expect the same rows.
#include "PaneTestSupport.h"

#include "options/VnReconcileApp.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace vn::test;

namespace {

const COLORREF kRed = 0x0000FF;
const COLORREF kBlue = 0xFF0000;
const wchar_t* const kTerminators[] = {L"\r\n", L"\r"};

// The rows after op ran on a fresh pane holding rows.  The pane window's
// terminator is "\r\n", then "\r": the rows must not differ.
template <class Op>
std::wstring RowsAfter(const std::wstring& rows, Op op) {
  std::wstring after[2];
  for (int k = 0; k < 2; ++k) {
    PaneWindows windows;
    windows.Fill(rows, kTerminators[k]);
    op(windows.Edit());
    after[k] = Rows(windows.Edit());
  }
  EXPECT_EQ(after[0], after[1]) << "with \\r for a terminator";
  return after[0];
}

// A pane window that counts the selection changes its child reports.
class NotifiedPane : public CVnPaneWnd {
public:
  int m_nSelChanges = 0;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == EN_SELCHANGE)
      ++m_nSelChanges;
    return CVnPaneWnd::WindowProc(message, wParam, lParam);
  }
};

TEST(VnRichEditPaneClass, PaneAndPaneWindowAreMadeByTheirRuntimeClass) {
  const struct { CRuntimeClass *cls, *base; } cases[] = {
      {RUNTIME_CLASS(CVnRichEditPane), RUNTIME_CLASS(CRichEditCtrl)}, {RUNTIME_CLASS(CVnPaneWnd), RUNTIME_CLASS(CWnd)}};
  for (const auto& c : cases) {
    std::unique_ptr<CObject> made(c.cls->CreateObject());
    ASSERT_NE(nullptr, made) << c.cls->m_lpszClassName;
    EXPECT_EQ(c.cls, made->GetRuntimeClass());
    EXPECT_TRUE(made->IsKindOf(c.base));
  }
}

//===-- The terminator and the line index ------------------------------------===//

TEST(VnRichEditPaneTerminator, OwnTerminatorFirstThenParentPaneThenEmpty) {
  const struct { bool insidePane; const wchar_t *own, *pane, *expected; } cases[] = {
      {true, L"", L"\r\n", L"\r\n"}, {true, L"\r", L"\r\n", L"\r"},  {true, L"", L"", L""},
      {false, L"", L"\r\n", L""},    {false, L"\n", L"\r\n", L"\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.insidePane << " own " << c.own[0] + 0);
    PaneWindows windows(c.insidePane);
    windows.Pane().SetLineTerminator(c.pane);
    windows.Edit().m_strLineTerminator = c.own;
    EXPECT_STREQ(c.expected, windows.Edit().GetLineTerminator().GetString());
  }
}

TEST(VnRichEditPaneLineIndex, AsksForTheLineCountFirstOutsideThe2000Family) {
  BasicPaneWindows<RecordingPane> windows(false, 300, 200);
  RecordingPane& edit = windows.Edit();
  edit.SetWindowText(L"ab\r\ncd\r\nef");
  edit.m_watch = EM_GETLINECOUNT;
  int saved = CVnReconcileApp::m_bWin2K;
  for (int win2K : {0, 1}) {
    SCOPED_TRACE(win2K);
    CVnReconcileApp::m_bWin2K = win2K;
    edit.m_seen.clear();
    EXPECT_EQ(3, edit.LineIndex(1));
    EXPECT_EQ(win2K ? 0u : 1u, edit.m_seen.size());
    EXPECT_EQ(-1, edit.LineIndex(3));
  }
  CVnReconcileApp::m_bWin2K = saved;
}

//===-- Inserting ------------------------------------------------------------===//

TEST(VnRichEditPaneInsertBlankLines, AddsRowsInFrontOfALineAndTakesOneBackAboveTheLimit) {
  const struct { int line, count, flag, limit, rows; const wchar_t* expected; } cases[] = {
      {2, 2, 0, 0, 2, L"a|||b|c"},  // flag 0: exactly count, whatever the count
      {2, 2, 1, 5, 2, L"a|||b|c"},  // at the limit: nothing taken back
      {2, 2, 1, 4, 1, L"a||b|c"},   // above it: one row back
      {2, 3, 1, 0, 2, L"a|||b|c"},  // one row at most, however far above
      {1, 1, 0, 0, 1, L"|a|b|c"},
      {2, 1, 1, 0, 0, L"a|b|c"},    // the row taken back is the one added
      {2, 0, 0, 0, 0, L"a|b|c"},
      {2, -3, 0, 0, 0, L"a|b|c"},
      {2, 0, 1, 0, 0, L"a|b|c"},    // nothing added, nothing of the text taken
      {4, 2, 0, 0, 2, L"a|b|c||"},  // past the end: at the end of the text
      {9, 2, 1, 4, 1, L"a|b|c|"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "line " << c.line << " count " << c.count << " flag " << c.flag << " limit "
                                    << c.limit);
    EXPECT_EQ(c.expected, RowsAfter(L"a|b|c", [&](CVnRichEditPane& e) {
                EXPECT_EQ(c.rows, e.InsertBlankLines(c.line, c.count, c.flag, c.limit));
              }));
  }
}

TEST(VnRichEditPaneInsertDeletedLines, PutsLinesOfTheOtherFileInFrontOfALine) {
  const struct { int source, count, line, noLeadingBreak, lastLineBreak; const wchar_t* expected; } cases[] = {
      {1, 2, 2, 0, 0, L"a|x|y|b|c"},
      {2, 2, 1, 1, 1, L"y|z|a|b|c"},   // the flags count only past the end
      {1, 2, 4, 0, 0, L"a|b|c|x|y"},   // past the end: a break in front, none behind
      {1, 2, 4, 1, 0, L"a|b|cx|y"},
      {1, 2, 4, 0, 1, L"a|b|c|x|y|"},
      {3, 1, 7, 1, 1, L"a|b|cz|"},
      {1, 0, 2, 0, 0, L"a|b|c"},
  };
  WideLineSet other(L"x\r\ny\r\nz\r\n");
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "source " << c.source << " count " << c.count << " line " << c.line);
    EXPECT_EQ(c.expected, RowsAfter(L"a|b|c", [&](CVnRichEditPane& e) {
                EXPECT_EQ(c.count, e.InsertDeletedLines(other.arg, c.source, c.count, c.line, c.noLeadingBreak,
                                                        c.lastLineBreak, ColorFormat(kRed, true)));
              }));
  }
}

TEST(VnRichEditPaneInsertDeletedLines, DropsAFinalCarriageReturnAndNothingElse) {
  const struct { const wchar_t *lineSet, *expected; } cases[] = {
      {L"p\r\nq\r\n", L"p|q|a"}, {L"p;\nq\n", L"p;|q|a"}, {L"p \nq\t\n", L"p |q\t|a"}, {L"\r\n\r\n", L"||a"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.expected);
    WideLineSet other(c.lineSet);
    std::wstring rows = RowsAfter(L"a", [&](CVnRichEditPane& e) {
      e.InsertDeletedLines(other.arg, 1, 2, 1, 0, 0, ColorFormat(kRed, true));
    });
    for (wchar_t& ch : rows)
      if (ch == L'\r')
        ch = L'R';
    EXPECT_EQ(std::wstring(c.expected), rows);
  }
}

// The inserted lines show in the format given; a source outside the line
// set fails after the lines before it went in.
TEST(VnRichEditPaneInsertDeletedLines, ShowsTheLinesInTheFormatAndFailsAtASourceOutsideTheLineSet) {
  WideLineSet other(L"x\r\ny\r\n");
  PaneWindows windows;
  windows.Fill(L"a|b", L"\r\n");
  CVnRichEditPane& edit = windows.Edit();
  edit.InsertDeletedLines(other.arg, 1, 2, 2, 0, 0, ColorFormat(kRed, true));
  ASSERT_EQ(std::wstring(L"a|x|y|b"), Rows(edit));
  for (int line = 1; line <= 4; ++line) {
    bool inserted = line == 2 || line == 3;
    auto f = FormatOfLine(edit, line);
    EXPECT_TRUE(f.uniformColor) << line;
    EXPECT_EQ(inserted, f.color == kRed) << line;
    EXPECT_EQ(inserted, f.struck) << line;
  }
  EXPECT_TRUE(RaisesInvalidArg([&] { edit.InsertDeletedLines(other.arg, 2, 3, 2, 0, 0, ColorFormat(kRed)); }));
  EXPECT_EQ(std::wstring(L"a|y|x|y|b"), Rows(edit));
}

//===-- Inserting, deleting and replacing one line at a time -----------------===//

// Each operation on "a|b|c" with the caret on line c (which line 0 of
// InsertLine means); the 1-based line past the count acts at the end.
TEST(VnRichEditPaneLineEdits, InsertDeleteAndReplaceALine) {
  enum Op { Insert, Replace };
  const struct { Op op; int line; const wchar_t *text, *expected; } cases[] = {
      {Insert, 2, L"new\r\n", L"a|new|b|c"},
      {Insert, 1, L"new\r\n", L"new|a|b|c"},
      {Insert, 2, L"new", L"a|newb|c"},       // no terminator of its own: joins the line
      {Insert, 3, L"new\r\n", L"a|b|new|c"},
      {Insert, 4, L"new", L"a|b|c|new"},      // past the count: a terminator first
      {Insert, 9, L"new", L"a|b|c|new"},
      {Insert, 0, L"new\r\n", L"a|b|new|c"},  // line 0: in front of the caret's line
      {Replace, 2, L"BEE", L"a|BEE|c"},       // the terminator is kept
      {Replace, 3, L"", L"a|b|"},
      {Replace, 1, L"x\r\ny", L"x|y|b|c"},
      {Replace, 8, L"z", L"a|b|cz"},          // beyond the end: at the end of the text
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, RowsAfter(L"a|b|c", [&](CVnRichEditPane& e) {
                if (c.op == Insert) {
                  e.SetSel(5, 5);
                  e.InsertLine(c.line, c.text);
                } else {
                  e.ReplaceLine(c.line, c.text);
                }
              })) << "op " << c.op << " line " << c.line;
  }
}

TEST(VnRichEditPaneDeleteLine, RemovesALineWithItsTerminator) {
  const struct { const wchar_t* rows; int line; const wchar_t* expected; } cases[] = {
      {L"a|b|c", 1, L"b|c"},
      {L"a|b|c", 2, L"a|c"},
      {L"a|b|c", 3, L"a|b|"},  // the last line runs to the end; its break stays
      {L"a|b|", 3, L"a|b"},    // the empty last line takes the break in front
      {L"a|b|c", 7, L"a|b|c"},
      {L"", 1, L""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, RowsAfter(c.rows, [&](CVnRichEditPane& e) { e.DeleteLine(c.line); }))
        << c.rows << " line " << c.line;
  }
}

TEST(VnRichEditPaneDeleteLines, RemovesARunOfLines) {
  const struct { int first, count; const wchar_t* expected; } cases[] = {
      {2, 2, L"a|d"}, {1, 1, L"b|c|d"}, {3, 5, L"a|b|"}, {1, 4, L""}, {6, 1, L"a|b|c|d"}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, RowsAfter(L"a|b|c|d", [&](CVnRichEditPane& e) { e.DeleteLines(c.first, c.count); }))
        << c.first << "," << c.count;
  }
}

//===-- Formats ----------------------------------------------------------------===//

TEST(VnRichEditPaneColorSelection, ColoursWholeLinesAndThePargraphMarkOnlyForAOneCharacterTerminator) {
  const struct { const wchar_t* terminator; int first, last; bool markColoured; } cases[] = {
      {L"\r\n", 2, 3, false}, {L"\r", 2, 3, true}, {L"\r\n", 3, 4, true}};  // to the last line: to the end
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.first << "-" << c.last << " terminator " << wcslen(c.terminator));
    PaneWindows windows;
    windows.Fill(L"aa|bb|cc|dd", c.terminator);
    CVnRichEditPane& edit = windows.Edit();
    edit.ColorSelection(c.first, c.last, ColorFormat(kBlue));
    for (int line = 1; line <= 4; ++line)
      EXPECT_EQ(line >= c.first && line <= c.last, FormatOfLine(edit, line).color == kBlue) << "line " << line;
    if (c.last < 4) {
      int mark = edit.LineIndex(c.last) - 1;
      EXPECT_EQ(c.markColoured, FormatOfRange(edit, mark, mark + 1).color == kBlue);
    }
  }
}

TEST(VnRichEditPaneColorSelection, RestoresTheEventMaskAndReportsNoSelectionChange) {
  BasicPaneWindows<CVnRichEditPane, NotifiedPane> windows;
  CVnRichEditPane& edit = windows.Edit();
  windows.Fill(L"aa|bb|cc", L"\r\n");
  edit.SetEventMask(ENM_SELCHANGE);
  windows.Pane().m_nSelChanges = 0;
  edit.ColorSelection(1, 2, ColorFormat(kBlue));
  EXPECT_EQ(static_cast<DWORD>(ENM_SELCHANGE), edit.GetEventMask());
  EXPECT_EQ(0, windows.Pane().m_nSelChanges);
  // SelectLines leaves the mask alone: the same move is reported.
  edit.SelectLines(2, 3);
  EXPECT_GT(windows.Pane().m_nSelChanges, 0);
}

TEST(VnRichEditPaneSelectLines, SelectsFromALineToTheStartOfTheOneAfter) {
  const struct { int first, last; long start, end; } cases[] = {{1, 1, 0, 3}, {2, 3, 3, 9}, {3, 3, 6, 9}};
  PaneWindows windows;
  windows.Fill(L"aa|bb|cc|dd");
  for (const auto& c : cases) {
    windows.Edit().SelectLines(c.first, c.last);
    long start = -2, end = -2;
    windows.Edit().GetSel(start, end);
    EXPECT_EQ(c.start, start) << c.first;
    EXPECT_EQ(c.end, end) << c.first;
  }
}

TEST(VnRichEditPaneFormats, ChangeCharFormatChangesTheFontAndKeepsColoursSelectionAndMask) {
  PaneWindows windows;
  windows.Fill(L"aa|bb|cc", L"\r\n");
  CVnRichEditPane& edit = windows.Edit();
  edit.ColorSelection(2, 2, ColorFormat(kBlue));
  edit.SetSel(1, 4);
  edit.SetEventMask(ENM_SELCHANGE | ENM_CHANGE);
  CHARFORMATW font = ColorFormat(kRed);
  font.yHeight = 280;
  ::lstrcpynW(font.szFaceName, L"Arial", LF_FACESIZE);
  EXPECT_NE(0, edit.ChangeCharFormat(font));

  long start = 0, end = 0;
  edit.GetSel(start, end);
  EXPECT_EQ(1, start);
  EXPECT_EQ(4, end);
  EXPECT_EQ(static_cast<DWORD>(ENM_SELCHANGE | ENM_CHANGE), edit.GetEventMask());
  EXPECT_TRUE(edit.IsWindowVisible());
  CHARFORMATW cf = {};
  edit.GetLineCharFormat(2, cf);
  EXPECT_EQ(kBlue, cf.crTextColor);  // colours are left alone
  EXPECT_EQ(280, cf.yHeight);
  EXPECT_STREQ(L"Arial", cf.szFaceName);
  EXPECT_NE(kRed, FormatOfLine(edit, 1).color);
}

//===-- Reading ----------------------------------------------------------------===//

TEST(VnRichEditPaneGetPaneLine, ReadsALineWithoutItsTerminatorAndNoLinePastTheEnd) {
  const struct { int line, result; const wchar_t* text; } cases[] = {
      {0, 1, L"first"}, {1, 1, L""}, {2, 1, L"third"}, {3, 1, L""}, {4, 0, L"untouched"}, {-1, 0, L"untouched"}};
  PaneWindows windows;
  windows.Fill(L"first||third|");
  for (const auto& c : cases) {
    CString text(L"untouched");
    EXPECT_EQ(c.result, windows.Edit().GetPaneLine(c.line, text)) << c.line;
    EXPECT_STREQ(c.text, text.GetString()) << c.line;
  }
}

TEST(VnRichEditPaneGetMaxLineLength, GivesTheLongestLine) {
  const struct { const wchar_t* rows; int longest; } cases[] = {
      {L"", 0}, {L"ab|abcd|a", 4}, {L"abc||", 3}, {L"\tx", 2}};
  for (const auto& c : cases) {
    PaneWindows windows;
    windows.Fill(c.rows);
    EXPECT_EQ(c.longest, windows.Edit().GetMaxLineLength()) << c.longest;
  }
}

}  // namespace
