// VnSplitterDemoTest.cpp - a real comparison of a few hundred lines in the
// synchronised splitter, filled the way a host fills it (the change records
// of Compare walked in order, changed lines coloured, blank rows put in so
// that equal lines stand level), then scrolled to the middle through the
// vertical bar.  Every visible row is checked, and the pictures are written
// to <build>/screenshots/splitter-two-panes.png and splitter-three-panes.png
// (the merge layout, with the left file's rows as the result below) for a
// person to look at.
#include "Screenshot.h"
#include "SplitterTestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using vn::test::SplitterWindows;

namespace {

// A program of 320 lines; edited, it has lines changed, removed and added.
std::wstring Program(bool edited) {
  std::wstring text;
  for (int n = 1; n <= 320; ++n) {
    std::wstring total = L"    total_" + std::to_wstring(n % 41);
    std::wstring line = n % 9 == 0 ? L"" : total + L" += weight(" + std::to_wstring(n) + L");";
    if (edited && n % 37 == 0)
      line = total + L" -= penalty(" + std::to_wstring(n) + L");  // changed";
    if (!edited || n < 100 || n >= 105)
      text += line + L"\r\n";
    for (int k = 1; edited && n == 160 && k <= 6; ++k)
      text += L"    log_step(" + std::to_wstring(k) + L");  // added\r\n";
  }
  return text;
}

// A pane and the lines of the file it holds.
struct Side {
  CVnPaneWnd* pane;
  std::vector<std::wstring> lines;

  void Fill(std::wstring text) {
    for (size_t at = 0, end; (end = text.find(L"\r\n", at)) != std::wstring::npos; at = end + 2)
      lines.push_back(text.substr(at, end - at));
    pane->SetLineTerminator(GetLineTerminator(nullptr, 0));
    pane->SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]), static_cast<int>(text.size() * sizeof(wchar_t)),
                         pane->GetDefaultCharFormat());
  }
};

std::wstring RowText(CRichEditCtrl& edit, int row) {
  CString text;
  edit.GetLine(row, text);
  std::wstring s = text.GetString();
  while (!s.empty() && (s.back() == L'\r' || s.back() == L'\n' || s.back() == L' '))
    s.pop_back();
  return s;
}

// Where a row stands on the screen, in a text pane or a number column.
long RowTop(CRichEditCtrl& edit, int row) {
  RECT rect;
  edit.GetWindowRect(&rect);
  return rect.top + edit.PosFromChar(static_cast<UINT>(edit.LineIndex(row))).y;
}

TEST(VnSplitterDemo, ComparedFilesScrolledToTheMiddleStandLevelWithTheirNumbers) {
  for (SplitterWindows::Arrangement arrangement : {SplitterWindows::SideBySide, SplitterWindows::Merge}) {
    SCOPED_TRACE(testing::Message() << "arrangement " << arrangement);
    SplitterWindows windows(arrangement, 1000, arrangement == SplitterWindows::Merge ? 640 : 520);
    Side sides[2] = {{&windows.Pane(0), {}}, {&windows.Pane(1), {}}};
    vn::test::WideLineSet source(Program(false)), target(Program(true));
    CVnDiffChangeList changes;
    source.arg.Compare(0, 0, 0, target.arg, changes);
    sides[0].Fill(Program(false));
    sides[1].Fill(Program(true));
    CVnPaneWnd* panes[2] = {sides[0].pane, sides[1].pane};
    const std::array<std::vector<int>, 2> rows = vn::test::AlignAsAHost(
        panes, changes, {static_cast<long>(sides[0].lines.size()), static_cast<long>(sides[1].lines.size())});
    ASSERT_EQ(rows[0].size(), rows[1].size());
    if (arrangement == SplitterWindows::Merge) {
      std::wstring merged;
      for (int line : rows[0])
        merged += (line ? sides[0].lines[static_cast<size_t>(line - 1)] : L"") + L"\r\n";
      Side below = {&windows.Pane(2), {}};
      below.Fill(merged);
      below.pane->SetCaption(L"merged.c");
    }
    windows.Rewind();
    windows.Top().ResizeInternalPanes(windows.Top().GetLineNumWidth(windows.Pane(0).GetDefaultCharFormat(), 1));
    windows.Top().SetupVScrollBars();
    windows.Top().SetupHScrollBars();
    sides[0].pane->SetCaption(L"before.c");
    sides[1].pane->SetCaption(L"after.c");
    int middle = windows.BarMax(0xEA10) / 2;
    windows.Scroll(WM_VSCROLL, 0xEA10, SB_THUMBTRACK, static_cast<UINT>(middle));
    windows.Scroll(WM_VSCROLL, 0xEA10, SB_THUMBPOSITION, static_cast<UINT>(middle));

    // Every visible row: at one height in every text and number column; a
    // number beside each line of its file, none beside padding; most rows
    // equal lines beside each other.
    int first = windows.TextLine(0), visible = windows.Pane(0).GetVisibleLineCount(), level = 0;
    ASSERT_GT(first, 100);
    ASSERT_GT(visible, 10);
    EXPECT_EQ(RowTop(*windows.Pane(0).GetTextPane(), first), RowTop(*windows.Pane(1).GetTextPane(), first));
    for (size_t k = 0; k < windows.Panes().size(); ++k) {
      EXPECT_EQ(first, windows.TextLine(k)) << k;
      EXPECT_EQ(RowTop(*windows.Pane(k).GetTextPane(), first), RowTop(*windows.Pane(k).GetLineNumPane(), first)) << k;
    }
    for (int row = first; row < first + visible; ++row) {
      std::wstring text[2];
      for (int s = 0; s < 2; ++s) {
        int line = rows[s][static_cast<size_t>(row)];
        text[s] = RowText(*sides[s].pane->GetTextPane(), row);
        std::wstring number = RowText(*sides[s].pane->GetLineNumPane(), row);
        EXPECT_EQ(line ? std::to_wstring(line) : L"", number) << s << ":" << row;
        EXPECT_EQ(line ? sides[s].lines[static_cast<size_t>(line - 1)] : L"", text[s]) << s << ":" << row;
      }
      level += rows[0][static_cast<size_t>(row)] && rows[1][static_cast<size_t>(row)] && text[0] == text[1];
    }
    EXPECT_GT(level, visible / 2);

    ::RedrawWindow(windows.Frame(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    vn::test::PumpMessages();
    const wchar_t* name =
        arrangement == SplitterWindows::Merge ? L"splitter-three-panes.png" : L"splitter-two-panes.png";
    ASSERT_TRUE(vn::test::WritePng(vn::test::CaptureWindow(windows.Frame()), vn::test::ScreenshotPath(name)));
  }
}

}  // namespace
