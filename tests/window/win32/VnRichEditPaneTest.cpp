// VnRichEditPaneTest.cpp - the line operations, checked through the real
// rich edit control: rows, formats of lines, the selection, the event mask.
//
// The control ends a paragraph in one CR whatever terminator went in, so
// most tables run with both "\r\n" and "\r" and expect the same rows.
#include "PaneTestSupport.h"

#include "engine/VnDiffArg.h"
#include "options/VnReconcileApp.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using vn::test::FormatOfLine;
using vn::test::FormatOfRange;
using vn::test::PaneWindows;
using vn::test::Rows;
using vn::test::Text;

namespace {

const COLORREF kRed = 0x0000FF;
const COLORREF kBlue = 0xFF0000;
const wchar_t* const kTerminators[] = {L"\r\n", L"\r"};

// A pane that records the messages of one kind it receives.
class RecordingPane : public CVnRichEditPane {
public:
  UINT m_watch = 0;
  std::vector<WPARAM> m_seen;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == m_watch)
      m_seen.push_back(wParam);
    return CVnRichEditPane::WindowProc(message, wParam, lParam);
  }
};

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

// A line set over 16-bit text, which must outlive it.
struct WideLineSet {
  explicit WideLineSet(const std::wstring& text) : units(text), arg(CVnFileInfo::Text16, 10) {
    arg.Create(units.data(), static_cast<unsigned long>(units.size() * sizeof(wchar_t)));
  }
  std::wstring units;
  CVnDiffArg arg;
};

TEST(VnRichEditPaneClass, PaneAndPaneWindowAreMadeByTheirRuntimeClass) {
  const struct {
    CRuntimeClass* cls;
    CRuntimeClass* base;
  } cases[] = {{RUNTIME_CLASS(CVnRichEditPane), RUNTIME_CLASS(CRichEditCtrl)},
               {RUNTIME_CLASS(CVnPaneWnd), RUNTIME_CLASS(CWnd)}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.cls->m_lpszClassName);
    CObject* made = c.cls->CreateObject();
    ASSERT_NE(nullptr, made);
    EXPECT_EQ(c.cls, made->GetRuntimeClass());
    EXPECT_TRUE(made->IsKindOf(c.base));
    delete made;
  }
  CVnRichEditPane* pane = static_cast<CVnRichEditPane*>(RUNTIME_CLASS(CVnRichEditPane)->CreateObject());
  RECT rect = {0, 0, 200, 100};
  ASSERT_TRUE(pane->Create(vn::test::kPaneChildStyle, rect, &vn::test::HostWindow(), 3));
  EXPECT_EQ(pane, CWnd::FromHandlePermanent(pane->GetSafeHwnd()));  // its messages come to the object
  EXPECT_EQ(0, pane->m_nFirstVisibleChar);
  EXPECT_EQ(0, pane->m_bHScrollReplay);
  EXPECT_TRUE(pane->m_strLineTerminator.IsEmpty());
  EXPECT_EQ(0, pane->m_aPageStart.GetSize());
  delete pane;
}

//===-- The terminator and the line index ------------------------------------===//

TEST(VnRichEditPaneTerminator, OwnTerminatorFirstThenParentPaneThenEmpty) {
  const struct {
    bool insidePane;
    const wchar_t* own;
    const wchar_t* pane;
    const wchar_t* expected;
  } cases[] = {
      {true, L"", L"\r\n", L"\r\n"},
      {true, L"\r", L"\r\n", L"\r"},
      {true, L"", L"", L""},
      {false, L"", L"\r\n", L""},
      {false, L"\n", L"\r\n", L"\n"},
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
  RECT frame = {0, 0, 300, 200};
  RecordingPane edit;
  ASSERT_TRUE(edit.Create(vn::test::kPaneChildStyle, frame, &vn::test::HostWindow(), 1));
  edit.SetWindowText(L"ab\r\ncd\r\nef");
  edit.m_watch = EM_GETLINECOUNT;
  int saved = CVnReconcileApp::m_bWin2K;
  const struct {
    int win2K;
    size_t counts;
  } cases[] = {{0, 1}, {1, 0}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.win2K);
    CVnReconcileApp::m_bWin2K = c.win2K;
    edit.m_seen.clear();
    EXPECT_EQ(3, edit.LineIndex(1));
    EXPECT_EQ(c.counts, edit.m_seen.size());
    EXPECT_EQ(-1, edit.LineIndex(3));
  }
  CVnReconcileApp::m_bWin2K = saved;
}

//===-- Inserting ------------------------------------------------------------===//

TEST(VnRichEditPaneInsertBlankLines, AddsRowsInFrontOfALineAndTakesOneBackAboveTheLimit) {
  const struct {
    int line, count, flag, limit;
    int rows;
    const wchar_t* expected;
  } cases[] = {
      {2, 2, 0, 0, 2, L"a|||b|c"},    // flag 0: exactly count, whatever the count
      {2, 2, 1, 5, 2, L"a|||b|c"},    // at the limit: nothing taken back
      {2, 2, 1, 4, 1, L"a||b|c"},     // above it: one row back
      {2, 3, 1, 0, 2, L"a|||b|c"},    // one row at most, however far above
      {1, 1, 0, 0, 1, L"|a|b|c"},
      {2, 1, 1, 0, 0, L"a|b|c"},      // the row taken back is the one added
      {2, 0, 0, 0, 0, L"a|b|c"},
      {2, -3, 0, 0, 0, L"a|b|c"},
      {2, 0, 1, 0, 0, L"a|b|c"},      // nothing added, nothing of the text taken
      {4, 2, 0, 0, 2, L"a|b|c||"},    // past the end: at the end of the text
      {9, 2, 1, 4, 1, L"a|b|c|"},
  };
  for (const wchar_t* terminator : kTerminators) {
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "line " << c.line << " count " << c.count << " flag " << c.flag
                                      << " limit " << c.limit << " terminator length " << wcslen(terminator));
      PaneWindows windows;
      windows.Pane().SetLineTerminator(terminator);
      windows.Fill(L"a|b|c");
      EXPECT_EQ(c.rows, windows.Edit().InsertBlankLines(c.line, c.count, c.flag, c.limit));
      EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
    }
  }
}

TEST(VnRichEditPaneInsertDeletedLines, PutsLinesOfTheOtherFileInFrontOfALine) {
  const struct {
    int source, count, line, noLeadingBreak, lastLineBreak;
    const wchar_t* expected;
  } cases[] = {
      {1, 2, 2, 0, 0, L"a|x|y|b|c"},
      {2, 2, 1, 1, 1, L"y|z|a|b|c"},  // the flags count only past the end
      {1, 2, 4, 0, 0, L"a|b|c|x|y"},  // past the end: a break in front, none behind
      {1, 2, 4, 1, 0, L"a|b|cx|y"},
      {1, 2, 4, 0, 1, L"a|b|c|x|y|"},
      {3, 1, 7, 1, 1, L"a|b|cz|"},
      {1, 0, 2, 0, 0, L"a|b|c"},
  };
  WideLineSet other(L"x\r\ny\r\nz\r\n");
  for (const wchar_t* terminator : kTerminators) {
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "source " << c.source << " count " << c.count << " line " << c.line
                                      << " flags " << c.noLeadingBreak << c.lastLineBreak);
      PaneWindows windows;
      windows.Pane().SetLineTerminator(terminator);
      windows.Fill(L"a|b|c");
      CHARFORMATW format = vn::test::ColorFormat(kRed, true);
      EXPECT_EQ(c.count, windows.Edit().InsertDeletedLines(other.arg, c.source, c.count, c.line, c.noLeadingBreak,
                                                           c.lastLineBreak, format));
      EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
    }
  }
}

TEST(VnRichEditPaneInsertDeletedLines, DropsAFinalCarriageReturnAndNothingElse) {
  const struct {
    const wchar_t* lineSet;
    const wchar_t* expected;
  } cases[] = {
      {L"p\r\nq\r\n", L"p|q|a"},
      {L"p;\nq\n", L"p;|q|a"},
      {L"p \nq\t\n", L"p |q\t|a"},
      {L"\r\n\r\n", L"||a"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.expected);
    WideLineSet other(c.lineSet);
    PaneWindows windows;
    windows.Pane().SetLineTerminator(L"\r\n");
    windows.Fill(L"a");
    windows.Edit().InsertDeletedLines(other.arg, 1, 2, 1, 0, 0, vn::test::ColorFormat(kRed, true));
    std::wstring rows = Rows(windows.Edit());
    for (wchar_t& ch : rows) if (ch == L'\r') ch = L'R';
    EXPECT_EQ(std::wstring(c.expected), rows);
  }
}

TEST(VnRichEditPaneInsertDeletedLines, ShowsTheInsertedLinesInTheFormat) {
  WideLineSet other(L"x\r\ny\r\n");
  PaneWindows windows;
  windows.Pane().SetLineTerminator(L"\r\n");
  windows.Fill(L"a|b");
  windows.Edit().InsertDeletedLines(other.arg, 1, 2, 2, 0, 0, vn::test::ColorFormat(kRed, true));
  ASSERT_EQ(std::wstring(L"a|x|y|b"), Rows(windows.Edit()));
  for (int line : {2, 3}) {
    auto f = FormatOfLine(windows.Edit(), line);
    EXPECT_TRUE(f.uniformColor);
    EXPECT_EQ(kRed, f.color) << line;
    EXPECT_TRUE(f.struck) << line;
  }
  for (int line : {1, 4}) {
    auto f = FormatOfLine(windows.Edit(), line);
    EXPECT_NE(kRed, f.color) << line;
    EXPECT_FALSE(f.struck) << line;
  }
}

TEST(VnRichEditPaneInsertDeletedLines, ASourceOutsideTheLineSetFailsAfterTheLinesBeforeIt) {
  WideLineSet other(L"x\r\ny\r\n");
  PaneWindows windows;
  windows.Pane().SetLineTerminator(L"\r\n");
  windows.Fill(L"a|b");
  EXPECT_TRUE(vn::test::RaisesInvalidArg(
      [&] { windows.Edit().InsertDeletedLines(other.arg, 2, 3, 2, 0, 0, vn::test::ColorFormat(kRed)); }));
  EXPECT_EQ(std::wstring(L"a|y|b"), Rows(windows.Edit()));
}

TEST(VnRichEditPaneInsertLine, PutsTextInFrontOfALineOrAfterTheEnd) {
  const struct {
    int line;
    const wchar_t* text;
    const wchar_t* expected;
  } cases[] = {
      {2, L"new\r\n", L"a|new|b|c"},
      {1, L"new\r\n", L"new|a|b|c"},
      {2, L"new", L"a|newb|c"},  // no terminator of its own: joins the line
      {3, L"new\r\n", L"a|b|new|c"},
      {4, L"new", L"a|b|c|new"},  // past the count: a terminator first
      {9, L"new", L"a|b|c|new"},
      {0, L"new\r\n", L"a|b|new|c"},  // line 0: in front of the caret's line
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    PaneWindows windows;
    windows.Pane().SetLineTerminator(L"\r\n");
    windows.Fill(L"a|b|c");
    windows.Edit().SetSel(5, 5);  // the caret on line c
    windows.Edit().InsertLine(c.line, c.text);
    EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
  }
}

//===-- Deleting and replacing -------------------------------------------------===//

TEST(VnRichEditPaneDeleteLine, RemovesALineWithItsTerminator) {
  const struct {
    const wchar_t* rows;
    int line;
    const wchar_t* expected;
  } cases[] = {
      {L"a|b|c", 1, L"b|c"},
      {L"a|b|c", 2, L"a|c"},
      {L"a|b|c", 3, L"a|b|"},  // the last line runs to the end; its break stays
      {L"a|b|", 3, L"a|b"},    // the empty last line takes the break in front
      {L"a|b|c", 7, L"a|b|c"},
      {L"", 1, L""},
  };
  for (const wchar_t* terminator : kTerminators) {
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << c.rows << " line " << c.line << " terminator " << wcslen(terminator));
      PaneWindows windows;
      windows.Pane().SetLineTerminator(terminator);
      windows.Fill(c.rows);
      windows.Edit().DeleteLine(c.line);
      EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
    }
  }
}

TEST(VnRichEditPaneDeleteLines, RemovesARunOfLines) {
  const struct {
    int first, count;
    const wchar_t* expected;
  } cases[] = {
      {2, 2, L"a|d"},
      {1, 1, L"b|c|d"},
      {3, 5, L"a|b|"},
      {1, 4, L""},
      {6, 1, L"a|b|c|d"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.first << "," << c.count);
    PaneWindows windows;
    windows.Fill(L"a|b|c|d");
    windows.Edit().DeleteLines(c.first, c.count);
    EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
  }
}

TEST(VnRichEditPaneReplaceLine, ReplacesTheTextAndKeepsTheTerminator) {
  const struct {
    int line;
    const wchar_t* text;
    const wchar_t* expected;
  } cases[] = {
      {2, L"BEE", L"a|BEE|c"},
      {3, L"", L"a|b|"},
      {1, L"x\r\ny", L"x|y|b|c"},
      {8, L"z", L"a|b|cz"},  // beyond the end: at the end of the text
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    PaneWindows windows;
    windows.Fill(L"a|b|c");
    windows.Edit().ReplaceLine(c.line, c.text);
    EXPECT_EQ(std::wstring(c.expected), Rows(windows.Edit()));
  }
}

//===-- Formats ----------------------------------------------------------------===//

TEST(VnRichEditPaneColorSelection, ColoursWholeLinesAndThePargraphMarkOnlyForAOneCharacterTerminator) {
  const struct {
    const wchar_t* terminator;
    int first, last;
    bool markColoured;
  } cases[] = {
      {L"\r\n", 2, 3, false},
      {L"\r", 2, 3, true},
      {L"\r\n", 3, 4, true},  // to the last line: runs to the end
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.first << "-" << c.last << " terminator " << wcslen(c.terminator));
    PaneWindows windows;
    windows.Pane().SetLineTerminator(c.terminator);
    windows.Fill(L"aa|bb|cc|dd");
    CVnRichEditPane& edit = windows.Edit();
    edit.ColorSelection(c.first, c.last, vn::test::ColorFormat(kBlue));
    for (int line = 1; line <= 4; ++line) {
      bool inside = line >= c.first && line <= c.last;
      EXPECT_EQ(inside, FormatOfLine(edit, line).color == kBlue) << "line " << line;
    }
    if (c.last < 4) {
      int mark = edit.LineIndex(c.last) - 1;
      EXPECT_EQ(c.markColoured, FormatOfRange(edit, mark, mark + 1).color == kBlue);
    }
  }
}

TEST(VnRichEditPaneColorSelection, RestoresTheEventMaskAndReportsNoSelectionChange) {
  RECT frame = {0, 0, 400, 300};
  NotifiedPane pane;
  ASSERT_TRUE(pane.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE, frame, &vn::test::HostWindow(), 1));
  pane.SetLineTerminator(L"\r\n");
  CVnRichEditPane edit;
  ASSERT_TRUE(edit.Create(vn::test::kPaneChildStyle, frame, &pane, 2));
  edit.SetWindowText(Text(L"aa|bb|cc").c_str());
  edit.SetEventMask(ENM_SELCHANGE);
  pane.m_nSelChanges = 0;

  edit.ColorSelection(1, 2, vn::test::ColorFormat(kBlue));
  EXPECT_EQ(static_cast<DWORD>(ENM_SELCHANGE), edit.GetEventMask());
  EXPECT_EQ(0, pane.m_nSelChanges);

  // SelectLines leaves the mask alone: the same move is reported.
  edit.SelectLines(2, 3);
  EXPECT_GT(pane.m_nSelChanges, 0);
}

TEST(VnRichEditPaneSelectLines, SelectsFromALineToTheStartOfTheOneAfter) {
  const struct {
    int first, last;
    long start, end;
  } cases[] = {
      {1, 1, 0, 3},
      {2, 3, 3, 9},
      {3, 3, 6, 9},
  };
  PaneWindows windows;
  windows.Fill(L"aa|bb|cc|dd");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.first);
    windows.Edit().SelectLines(c.first, c.last);
    long start = -2, end = -2;
    windows.Edit().GetSel(start, end);
    EXPECT_EQ(c.start, start);
    EXPECT_EQ(c.end, end);
  }
}

TEST(VnRichEditPaneFormats, SetDefaultCharFormatSetsTheRecordSizeAndAppliesToAllText) {
  PaneWindows windows;
  windows.Fill(L"aa|bb");
  CHARFORMATW format = vn::test::ColorFormat(kRed);
  format.cbSize = 0;
  EXPECT_NE(0, windows.Edit().SetDefaultCharFormat(format));
  EXPECT_EQ(92u, format.cbSize);
  EXPECT_EQ(kRed, FormatOfLine(windows.Edit(), 1).color);
  EXPECT_EQ(kRed, FormatOfLine(windows.Edit(), 2).color);
}

TEST(VnRichEditPaneFormats, ChangeCharFormatChangesTheFontAndKeepsColoursSelectionAndMask) {
  PaneWindows windows;
  windows.Pane().SetLineTerminator(L"\r\n");
  windows.Fill(L"aa|bb|cc");
  CVnRichEditPane& edit = windows.Edit();
  edit.ColorSelection(2, 2, vn::test::ColorFormat(kBlue));
  edit.SetSel(1, 4);
  edit.SetEventMask(ENM_SELCHANGE | ENM_CHANGE);

  CHARFORMATW font = vn::test::ColorFormat(kRed);
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

TEST(VnRichEditPaneGetPaneLine, ReadsALineWithoutItsTerminator) {
  const struct {
    int line;
    int result;
    const wchar_t* text;
  } cases[] = {
      {0, 1, L"first"}, {1, 1, L""}, {2, 1, L"third"}, {3, 1, L""},
      {4, 0, L"untouched"}, {-1, 0, L"untouched"},
  };
  PaneWindows windows;
  windows.Fill(L"first||third|");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    CString text(L"untouched");
    EXPECT_EQ(c.result, windows.Edit().GetPaneLine(c.line, text));
    EXPECT_STREQ(c.text, text.GetString());
  }
}

TEST(VnRichEditPaneGetPaneLine, PastTheLastLineLeavesAnEmptyStringEmpty) {
  PaneWindows windows;
  windows.Fill(L"a");
  CString text;
  EXPECT_EQ(0, windows.Edit().GetPaneLine(1, text));
  EXPECT_TRUE(text.IsEmpty());
}

TEST(VnRichEditPaneGetMaxLineLength, GivesTheLongestLine) {
  const struct {
    const wchar_t* rows;
    int longest;
  } cases[] = {{L"", 0}, {L"ab|abcd|a", 4}, {L"abc||", 3}, {L"\tx", 2}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.longest);
    PaneWindows windows;
    windows.Fill(c.rows);
    EXPECT_EQ(c.longest, windows.Edit().GetMaxLineLength());
  }
}

TEST(VnRichEditPaneGetSelText, GivesTheSelectedCharacters) {
  PaneWindows windows;
  windows.Fill(L"alpha|beta");
  const struct {
    long start, end;
    const wchar_t* text;
  } cases[] = {{0, 5, L"alpha"}, {2, 2, L""}, {4, 8, L"a\rbe"}};
  for (const auto& c : cases) {
    windows.Edit().SetSel(c.start, c.end);
    EXPECT_STREQ(c.text, windows.Edit().GetSelText().GetString());
  }
}

}  // namespace
