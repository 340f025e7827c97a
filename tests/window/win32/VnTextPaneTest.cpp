// VnTextPaneTest.cpp - the text pane: tab stops measured in the font, and
// search through the real Find dialog, driven with real messages: hits up
// and down to the last one, then the message (asked through the scripted
// prompt) and a collapsed selection; the dialog's closing; copy.
#include "DialogDriver.h"
#include "PaneTestSupport.h"
#include "ScriptedPrompt.h"

#include "window/VnFindReplaceDialog.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using vn::test::HostedPane;
using vn::test::Selection;

namespace {

// The Find dialog's controls.
const int kFindText = 0x480, kMatchCase = 0x411, kUp = 0x420, kDown = 0x421;
const char kNotFound[] = "The search text was not  found.";

// The search state is shared by every pane of the process: each test
// starts from the state of a new process.
struct FreshSearch : CVnTextPane {
  static void Reset() {
    m_aFindString.Empty();
    m_bMatchCase = 0;
    m_bSearchDown = 1;
  }
};

// A pane with its text and its Find dialog open, found among the windows.
struct SearchedPane {
  explicit SearchedPane(const std::wstring& rows) {
    FreshSearch::Reset();
    p.Load(rows);
    p.pane.SetCaption(L"left.txt");
    p.TextPane().Find();
    dialog = vn::test::WaitForDialog(nullptr, L"(left.txt)");
  }
  ~SearchedPane() {
    p.pane.CloseFindReplace();
    vn::test::WaitUntilGone(dialog);
  }
  // Fills the dialog as the user would and presses Find Next.
  void FindNext(const wchar_t* text, bool down, bool matchCase) {
    vn::test::SetItemText(dialog, kFindText, text);
    vn::test::PressButton(dialog, down ? kDown : kUp);
    vn::test::SetItemCheck(dialog, kMatchCase, matchCase);
    vn::test::PressButton(dialog, IDOK);
  }
  HostedPane<> p;
  HWND dialog = nullptr;
};

// Each press of Find Next gives the selection's start, -1 for no hit; a
// search never wraps around.
TEST(VnTextPaneSearch, HitsUpAndDownToTheLastThenSaysNotFound) {
  struct Case {
    const char* what;
    const wchar_t* text;
    long caret;
    const wchar_t* find;
    bool down, matchCase;
    std::vector<long> hits;
    std::pair<long, long> after;  // the selection after the failed search
  } cases[] = {
      {"down, overlapping hits", L"aaaa", 0, L"aa", true, false, {0, 1, 2, -1}, {4, 4}},
      {"up, from the end", L"aaaa", 4, L"aa", false, false, {2, 0, -1}, {0, 0}},
      {"up from the start", L"aaaa", 0, L"aa", false, false, {-1}, {0, 0}},
      {"with regard to case", L"Ab ab AB", 0, L"ab", true, true, {3, -1}, {5, 5}},
      {"without regard to case", L"Ab ab AB", 0, L"ab", true, false, {0, 3, 6, -1}, {8, 8}},
      {"across lines", L"one|two|one", 0, L"one", true, false, {0, 8, -1}, {11, 11}},
      {"longer than the text", L"abc", 0, L"abcd", true, false, {-1}, {0, 0}},
  };
  for (const Case& c : cases) {
    SearchedPane s(c.text);
    ASSERT_TRUE(s.dialog) << c.what;
    s.p.TextPane().SetSel(c.caret, c.caret);
    vn::test::ScriptedPrompt prompt({IDOK});
    std::vector<long> hits;
    for (size_t k = 0; k < c.hits.size(); ++k) {
      size_t asked = prompt.Asked().size();
      s.FindNext(c.find, c.down, c.matchCase);
      hits.push_back(prompt.Asked().size() > asked ? -1 : Selection(s.p.TextPane()).first);
    }
    EXPECT_EQ(c.hits, hits) << c.what;
    EXPECT_EQ(c.after, Selection(s.p.TextPane())) << c.what;
    ASSERT_EQ(1u, prompt.Asked().size()) << c.what;
    EXPECT_EQ(kNotFound, prompt.Asked()[0].text);
    EXPECT_EQ(0u, prompt.Asked()[0].type);
  }
}

// The first hit of a new search brings its line to the top; the next hit,
// already in view, only moves the selection.  A failed search makes the
// next one new again.
TEST(VnTextPaneSearch, FirstHitOfANewSearchComesToTheTop) {
  std::wstring rows;
  for (int k = 0; k < 120; ++k)
    rows += (k ? L"|" : L"") + std::wstring(k == 60 || k == 62 ? L"needle" : L"hay");
  SearchedPane s(rows);
  s.FindNext(L"needle", true, false);
  EXPECT_EQ(60, s.p.TextPane().GetFirstVisibleLine());
  EXPECT_EQ(0, s.p.TextPane().m_bNewSearch);
  s.FindNext(L"needle", true, false);
  EXPECT_EQ(s.p.TextPane().LineIndex(62), Selection(s.p.TextPane()).first);
  EXPECT_EQ(60, s.p.TextPane().GetFirstVisibleLine());
  // The direction alone changed: still the same search.
  s.FindNext(L"needle", false, false);
  EXPECT_EQ(s.p.TextPane().LineIndex(60), Selection(s.p.TextPane()).first);
  EXPECT_EQ(0, s.p.TextPane().m_bNewSearch);
  // The number column came along with every hit.
  EXPECT_EQ(60, s.p.Numbers().GetFirstVisibleLine());
}

// Closing the dialog collapses the selection at its end in the search
// direction, searches nothing, and the pane forgets the dialog; FindNext
// with no search text brings it back.
TEST(VnTextPaneFindDialog, ClosingCollapsesTheSelectionAndForgetsTheDialog) {
  for (bool down : {true, false}) {
    SearchedPane s(L"one two one");
    vn::test::ScriptedPrompt prompt;
    s.p.TextPane().SetSel(down ? 0 : 11, down ? 0 : 11);
    s.FindNext(L"two", down, false);
    ASSERT_EQ(std::make_pair(4L, 7L), Selection(s.p.TextPane()));
    EXPECT_EQ(CVnTextPane::m_pFindDialog, CWnd::FromHandlePermanent(s.dialog));
    vn::test::PressButton(s.dialog, IDCANCEL);
    EXPECT_TRUE(vn::test::WaitUntilGone(s.dialog));
    long at = down ? 7 : 4;
    EXPECT_EQ(std::make_pair(at, at), Selection(s.p.TextPane())) << down;
    EXPECT_EQ(nullptr, CVnTextPane::m_pFindDialog);
    EXPECT_TRUE(prompt.Asked().empty());
    // Without a search text, FindNext opens the dialog again.
    FreshSearch::Reset();
    s.p.TextPane().FindNext();
    s.dialog = vn::test::WaitForDialog(nullptr, L"(left.txt)");
    EXPECT_TRUE(s.dialog && vn::test::GetItemText(s.dialog, kFindText).empty());
  }
}

// Every tabSize columns of a fixed-pitch font: a character behind a tab
// stands where that many characters would.
TEST(VnTextPaneTabStops, LieEveryTabSizeColumnsOfTheFont) {
  HostedPane<> p(900, 300);
  CHARFORMATW format = p.pane.GetDefaultCharFormat();
  EXPECT_EQ(1, p.TextPane().SetTabStops(format, 4)) << "an empty pane takes no stops";
  PARAFORMAT para = {sizeof(para)};
  p.TextPane().SendMessage(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&para));
  EXPECT_NE(MAX_TAB_STOPS, para.cTabCount);

  struct Line {
    const wchar_t* text;
    int column;  // of the x behind the tabs
  } lines[] = {{L"\tx", 4}, {L"a\tx", 4}, {L"abc\tx", 4}, {L"abcd\tx", 8}, {L"\t\tx", 8}, {L"abcdefghij\tx", 12}};
  std::wstring rows = L"0123456789";
  for (const Line& l : lines)
    rows += std::wstring(L"|") + l.text;
  rows += L"|" + std::wstring(31, L'\t') + L"x";  // the 32nd stop, the last
  p.Load(rows);
  ASSERT_NE(0, p.TextPane().SetTabStops(format, 4));
  p.TextPane().SendMessage(EM_GETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&para));
  EXPECT_EQ(MAX_TAB_STOPS, para.cTabCount);

  CVnTextPane& text = p.TextPane();
  int origin = text.PosFromChar(0).x;
  double charWidth = (text.PosFromChar(9).x - origin) / 9.0;
  auto columnOfX = [&](int line) {
    int x = text.LineIndex(line) + text.LineLength(text.LineIndex(line)) - 1;
    return (text.PosFromChar(static_cast<UINT>(x)).x - origin) / charWidth;
  };
  for (int k = 0; k < static_cast<int>(sizeof(lines) / sizeof(lines[0])); ++k)
    EXPECT_NEAR(lines[k].column, columnOfX(k + 1), 0.25) << k;
  EXPECT_NEAR(124, columnOfX(7), 0.5);
}

std::wstring ClipboardText() {
  std::wstring text;
  if (::OpenClipboard(nullptr)) {
    if (HANDLE data = ::GetClipboardData(CF_UNICODETEXT))
      text = static_cast<const wchar_t*>(::GlobalLock(data)), ::GlobalUnlock(data);
    ::CloseClipboard();
  }
  return text;
}

// A copy of "one", then one with an empty selection, which leaves it.
TEST(VnTextPaneCopy, CopiesASelectionAndLeavesTheClipboardAloneWithoutOne) {
  HostedPane<> p;
  p.Load(L"one two");
  for (long end : {3L, 5L}) {
    p.TextPane().SetSel(end == 3 ? 0 : end, end);
    p.TextPane().OnCopy();
    EXPECT_EQ(L"one", ClipboardText()) << end;
  }
}

}  // namespace
