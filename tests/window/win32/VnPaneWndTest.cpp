// VnPaneWndTest.cpp - a pane of the component's own making: its caption and
// children, their layout, the rows of the number column beside the text's,
// and the number column following the text.
#include "SplitterTestSupport.h"

#include "window/VnPaneMessages.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using vn::test::HostedPane;
using vn::test::PlaceInParent;
using vn::test::Rows;

namespace {

const DWORD kChildStyle = vn::test::kPaneChildStyle;

std::wstring ClassOf(HWND wnd) {
  wchar_t name[64] = {};
  ::GetClassNameW(wnd, name, 64);
  return name;
}

TEST(VnPaneWndCreate, MakesACaptionAndTwoReadOnlyChildrenWithoutScrollBars) {
  HostedPane<> p(400, 200, 100);
  HWND caption = ::GetDlgItem(p.pane, 0xE801);
  ASSERT_TRUE(caption);
  EXPECT_EQ(L"msctls_statusbar32", ClassOf(caption));
  EXPECT_STREQ(L"File Name goes here", p.pane.GetCaption().GetString());

  struct Child {
    HWND wnd;
    int id;
    bool asksSelChange;
  } children[] = {{p.TextPane(), 100, true}, {p.Numbers(), 101, false}};
  for (const Child& c : children) {
    DWORD style = static_cast<DWORD>(::GetWindowLongW(c.wnd, GWL_STYLE));
    EXPECT_EQ(c.id, ::GetDlgCtrlID(c.wnd));
    EXPECT_EQ(kChildStyle, style & kChildStyle) << c.id;
    EXPECT_FALSE(style & (WS_HSCROLL | WS_VSCROLL)) << c.id;
    EXPECT_TRUE(style & ES_READONLY) << c.id;
    LRESULT mask = ::SendMessageW(c.wnd, EM_GETEVENTMASK, 0, 0);
    EXPECT_EQ(c.asksSelChange, (mask & ENM_SELCHANGE) != 0) << c.id;
  }
  // The number column starts with no width; a null caption changes nothing.
  EXPECT_EQ(0, PlaceInParent(p.Numbers()).Width());
  EXPECT_EQ(1, p.pane.SetCaption(L"left.txt"));
  EXPECT_EQ(1, p.pane.SetCaption(nullptr));
  EXPECT_STREQ(L"left.txt", p.TextPane().GetCaption().GetString());
}

// The caption on top, the number column left of the text: after the width
// message both stop at the pane's bottom; after a resize the column keeps
// its width and runs the whole client height (clipped at the edge).
TEST(VnPaneWndLayout, NumberColumnKeepsItsWidthAndTheTextFillsTheRest) {
  HostedPane<> p(400, 200);
  struct Step {
    const char* what;
    std::function<void()> act;
    int width, cx, cy;
    bool fullHeight;
  } steps[] = {
      {"width 40", [&] { p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, 40); }, 40, 400, 200, false},
      {"resized", [&] { p.pane.MoveWindow(0, 0, 300, 150); }, 40, 300, 150, true},
      {"width 0", [&] { p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, 0); }, 0, 300, 150, false},
      {"resized at width 0", [&] { p.pane.MoveWindow(0, 0, 350, 180); }, 0, 350, 180, true},
  };
  for (const Step& s : steps) {
    s.act();
    CRect caption = PlaceInParent(::GetDlgItem(p.pane, 0xE801));
    int h = caption.Height();
    EXPECT_GT(h, 0) << s.what;
    EXPECT_EQ(CRect(0, 0, s.cx, h), caption) << s.what;
    EXPECT_EQ(CRect(0, h, s.width, s.fullHeight ? h + s.cy : s.cy), PlaceInParent(p.Numbers())) << s.what;
    EXPECT_EQ(CRect(s.width, h, s.cx, s.cy), PlaceInParent(p.TextPane())) << s.what;
  }
}

// The column keeps the file's own numbers: rows added to the text by a gap
// or by the other file's lines are empty rows beside it.
TEST(VnPaneWndRows, NumberColumnHasARowForEachTextRowAndEmptyRowsBesideAddedOnes) {
  vn::test::WideLineSet other(L"x\r\ny\r\n");
  CHARFORMATW removed = vn::test::ColorFormat(RGB(255, 0, 0), true);
  struct Case {
    const char* what;
    std::function<int(CVnPaneWnd&)> act;
    int rows;
    const wchar_t* text;
    const wchar_t* numbers;
  } cases[] = {
      {"loaded", [](CVnPaneWnd&) { return 0; }, 0, L"a|b|c", L"1|2|3"},
      {"gap", [](CVnPaneWnd& w) { return w.InsertBlankLines(2, 2, 0, 0); }, 2, L"a|||b|c", L"1|||2|3"},
      {"gap above a limit", [](CVnPaneWnd& w) { return w.InsertBlankLines(2, 2, 1, 4); }, 1, L"a||b|c", L"1||2|3"},
      {"other file's lines",
       [&](CVnPaneWnd& w) { return w.InsertDeletedLines(other.arg, 1, 2, 2, 0, 0, removed); }, 2, L"a|x|y|b|c",
       L"1|||2|3"},
      {"other file's lines at the end",
       [&](CVnPaneWnd& w) { return w.InsertDeletedLines(other.arg, 1, 2, 4, 0, 0, removed); }, 2, L"a|b|c|x|y",
       L"1|2|3||"},
      // Changing one row is the text's own affair: the host mends the numbers.
      {"inserted line", [](CVnPaneWnd& w) { return w.InsertLine(2, L"new\r\n"), 0; }, 0, L"a|new|b|c", L"1|2|3"},
      {"deleted line", [](CVnPaneWnd& w) { return w.DeleteLine(2), 0; }, 0, L"a|c", L"1|2|3"},
  };
  for (const Case& c : cases) {
    HostedPane<> p;
    p.Load(L"a|b|c");
    EXPECT_EQ(c.rows, c.act(p.pane)) << c.what;
    EXPECT_EQ(c.text, Rows(p.TextPane())) << c.what;
    EXPECT_EQ(c.numbers, Rows(p.Numbers())) << c.what;
    EXPECT_EQ(p.TextPane().GetLineCount(), p.pane.SendMessage(WM_PANE_GETMAXLINECOUNT)) << c.what;
  }
}

// What enters through SetDefaultText, as the intake hands it over.
TEST(VnPaneWndSetDefaultText, ShowsTextAndNumbersForEveryKindOfBuffer) {
  struct Case {
    const char* what;
    std::string bytes;  // the buffer; "null" for none
    const wchar_t* text;
    const wchar_t* numbers;
  } cases[] = {
      {"null", "null", L"", L""},
      {"empty", "", L"", L""},
      {"16-bit text", std::string("a\0\r\0\n\0b\0", 8), L"a|b", L"1|2"},
      {"ending in a terminator", std::string("a\0\r\0\n\0", 6), L"a|", L"1|2"},
      {"odd size", std::string("a\0b\0c", 5), L"ab", L"1"},
      {"form feed", std::string("a\0\f\0b\0\r\0\n\0c\0", 12), L"a^Lb|c", L"1|2"},
      {"binary", "AB\xE9" "C\x01", L"AB\u00E9C\u0001", L"1"},
      {"binary with a form feed", "a\fb\x01", L"a\fb\u0001", L"1"},
  };
  for (const Case& c : cases) {
    HostedPane<> p;
    std::string bytes = c.bytes;
    bool null = bytes == "null";
    p.pane.SetDefaultText(null ? nullptr : reinterpret_cast<unsigned char*>(&bytes[0]),
                          null ? 0 : static_cast<int>(bytes.size()), p.pane.GetDefaultCharFormat());
    EXPECT_EQ(c.text, Rows(p.TextPane())) << c.what;
    EXPECT_EQ(c.numbers, Rows(p.Numbers())) << c.what;
  }
}

// Both children show their new text in the format given, whatever format
// the text they had was in.
TEST(VnPaneWndSetDefaultText, ShowsTheTextInTheFormatGiven) {
  HostedPane<> p;
  p.Load(L"old|text");
  p.pane.ColorSelection(1, 2, vn::test::ColorFormat(RGB(255, 0, 0)));
  CHARFORMATW format = p.pane.GetDefaultCharFormat();
  format.yHeight = 280;
  std::wstring text = L"new\r\ntext";
  p.pane.SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]), static_cast<int>(text.size() * 2), format);
  CVnRichEditPane* children[] = {&p.TextPane(), &p.Numbers()};
  for (CVnRichEditPane* child : children) {
    CHARFORMATW read = {};
    child->SetSel(0, -1);
    child->GetSelectionCharFormat(read);
    EXPECT_STREQ(format.szFaceName, read.szFaceName);
    EXPECT_EQ(280, read.yHeight);
    EXPECT_EQ(format.crTextColor, read.crTextColor);
  }
}

TEST(VnPaneWndSetDefaultText, TakesALineOfOneMegabyteWhole) {
  HostedPane<> p;
  std::wstring line(1 << 20, L'x');
  p.Load(line);
  EXPECT_EQ(1, p.TextPane().GetLineCount());
  EXPECT_EQ(1 << 20, p.TextPane().LineLength(0));
  EXPECT_EQ(L"1", Rows(p.Numbers()));
}

// Whatever the text pane makes of a scroll message, the number column
// comes to the same first line, also when it has no width; the return to
// the beginning brings both to the top.
TEST(VnPaneWndScroll, NumberColumnFollowsEveryVerticalMovement) {
  for (int width : {40, 0}) {
    HostedPane<> p;
    p.Load(vn::test::CountedRows(200));
    p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, width);
    struct Move {
      UINT message, code, pos;
    } moves[] = {{WM_VSCROLL, SB_LINEDOWN, 0}, {WM_VSCROLL, SB_PAGEDOWN, 0}, {WM_VSCROLL, SB_THUMBTRACK, 120},
                 {WM_VSCROLL, SB_LINEUP, 0}, {WM_PANE_GOTOBEGINNING, 0, 0}};
    int before = -1;
    for (const Move& m : moves) {
      p.pane.SendMessage(m.message, m.message == WM_VSCROLL ? MAKEWPARAM(m.code, m.pos) : 0, 0);
      int first = p.TextPane().GetFirstVisibleLine();
      EXPECT_NE(before, first) << "code " << m.code << ": the text moved";
      EXPECT_EQ(first, p.Numbers().GetFirstVisibleLine()) << "width " << width << ", code " << m.code;
      before = first;
    }
    EXPECT_EQ(0, before);
  }
}

// A pane without a frame above it: the pass ends at the pane, after its
// number column came to the text's line.  A hidden text pane starts none.
TEST(VnPaneWndSynchronize, SelectionChangeBringsTheNumberColumnToTheTextsLine) {
  for (bool visible : {true, false}) {
    HostedPane<> p;
    p.Load(vn::test::CountedRows(200));
    p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, 40);
    EXPECT_EQ(nullptr, p.pane.GetParentFrame());
    p.TextPane().LineScroll(100);  // the control tells no one
    ASSERT_EQ(0, p.Numbers().GetFirstVisibleLine());
    if (!visible)
      p.TextPane().ShowWindow(SW_HIDE);
    CHARRANGE range = {p.TextPane().LineIndex(110), p.TextPane().LineIndex(110)};
    p.TextPane().SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
    EXPECT_EQ(visible ? p.TextPane().GetFirstVisibleLine() : 0, p.Numbers().GetFirstVisibleLine()) << visible;
  }
}

// The least frame: nothing of its own to compare or show, and a tab size of
// its own, which the panes below it are to read.
struct Frame : vn::test::SplitterFrame {
  Frame() { m_DisplayOptions.SetTabSize(7); }
};

// A pane reaches its frame through at most two splitters; below a third
// it has no frame and reads its own values.
TEST(VnPaneWndParentFrame, ClimbsAtMostTwoSplitters) {
  for (int levels = 0; levels <= 3; ++levels) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    Frame frame;
    ASSERT_TRUE(frame.Create(nullptr, L"", style, RECT{0, 0, 400, 300}, &vn::test::HostWindow()));
    std::vector<std::unique_ptr<CVnRichEditSplitterWnd>> splitters;
    CWnd* parent = &frame;
    for (int k = 0; k < levels; ++k) {
      splitters.push_back(std::make_unique<CVnRichEditSplitterWnd>());
      UINT id = k ? static_cast<UINT>(CSplitterWnd::IdFromRowCol(0, 0)) : AFX_IDW_PANE_FIRST;
      ASSERT_TRUE(splitters.back()->CreateStatic(parent, 1, 1, style, id));
      parent = splitters.back().get();
    }
    CVnPaneWnd* pane = nullptr;
    std::unique_ptr<CVnPaneWnd> own;
    if (levels) {
      ASSERT_TRUE(splitters.back()->CreateView(0, 0, RUNTIME_CLASS(CVnPaneWnd), SIZE{300, 200}));
      pane = static_cast<CVnPaneWnd*>(splitters.back()->GetPane(0, 0));
    } else {
      own = std::make_unique<CVnPaneWnd>();
      ASSERT_TRUE(own->CreateEx(0, nullptr, L"", style, RECT{0, 0, 300, 200}, &frame, AFX_IDW_PANE_FIRST));
      pane = own.get();
    }
    bool reaches = levels <= 2;
    EXPECT_EQ(reaches ? &frame : nullptr, pane->GetParentFrame()) << levels;
    EXPECT_EQ(reaches ? 7u : 4u, pane->GetDisplayOptions().GetTabSize()) << levels;
    own.reset();
    while (!splitters.empty())  // the innermost first: a splitter deletes its panes
      splitters.pop_back();
  }
}

}  // namespace
