// VnPaneDemoTest.cpp - two panes filled from a real comparison, the way a
// host fills them: the change records of Compare walked in order and placed
// by the comparison's spans, changed lines coloured with the default
// replace, delete and insert formats, and blank rows inserted so that equal
// lines stand level.  The window's
// picture is written to <build>/screenshots/panes.png for a person to look
// at.
#include "PaneTestSupport.h"
#include "Screenshot.h"

#include "compare/VnComparison.h"
#include "options/VnDisplayOptions.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using vn::test::FormatOfLine;
using vn::test::WideLineSet;

namespace {

const wchar_t kSource[] =
    L"// Greeting, version one\r\n"
    L"#include <stdio.h>\r\n"
    L"\r\n"
    L"static int count = 3;\r\n"
    L"\r\n"
    L"int main(void)\r\n"
    L"{\r\n"
    L"    printf(\"Hello, world\\n\");\r\n"
    L"    return 0;\r\n"
    L"}\r\n"
    L"/* old trailing comment */\r\n";

const wchar_t kTarget[] =
    L"// Greeting, version two\r\n"
    L"#include <stdio.h>\r\n"
    L"#include <string.h>\r\n"
    L"\r\n"
    L"int main(void)\r\n"
    L"{\r\n"
    L"    int i;\r\n"
    L"    for (i = 0; i < 3; i++)\r\n"
    L"        printf(\"Hello, world\\n\");\r\n"
    L"    return 0;\r\n"
    L"}\r\n";

// Two pane windows side by side in one frame, each with a rich edit pane.
struct SideBySide {
  struct Frame : CWnd {
    Frame() {
      const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
      EXPECT_TRUE(CreateEx(0, nullptr, L"", style, RECT{0, 0, 1000, 330}, &vn::test::HostWindow(), 10));
    }
  } frame;  // made before the panes that go in it
  vn::test::PaneWindows left{true, 498, 330, &frame, 0}, right{true, 498, 330, &frame, 502};
  CVnRichEditPane& Left() { return left.Edit(); }
  CVnRichEditPane& Right() { return right.Edit(); }
};

TEST(VnPaneDemo, EqualLinesStandLevelAndChangesShowInTheDefaultFormats) {
  WideLineSet source(kSource), target(kTarget);
  CVnDiffChangeList changes;
  source.arg.Compare(0, 0, 0, target.arg, changes);
  ASSERT_GT(changes.GetSize(), 0);

  SideBySide panes;
  panes.left.Fill(kSource, L"\r\n");  // neither file has a '|' for Fill to take as a break
  panes.right.Fill(kTarget, L"\r\n");
  CVnOptionState formats;
  CVnRichEditPane* edits[2] = {&panes.Left(), &panes.Right()};
  const std::array<std::vector<int>, 2> rows =
      vn::test::AlignAsAHost(edits, changes, {source.arg.GetLineCount(), target.arg.GetLineCount()});

  // Both sides have one row for each aligned row; the rows themselves are
  // checked in the splitter demo.  A deleted line is struck through, red,
  // and faces padding; every kind of change shows.
  ASSERT_EQ(panes.Left().GetLineCount(), panes.Right().GetLineCount());
  const COLORREF replace = formats.GetReplaceCharFormat().crTextColor;
  const COLORREF removed = formats.GetDeleteCharFormat().crTextColor;
  const COLORREF added = formats.GetInsertCharFormat().crTextColor;
  std::set<COLORREF> seen;
  for (size_t row = 0; row < rows[0].size(); ++row) {
    const vn::test::LineFormat left = FormatOfLine(panes.Left(), static_cast<int>(row) + 1);
    if (rows[0][row] && left.color == removed) {
      EXPECT_TRUE(left.struck && !rows[1][row]) << row;
    }
    for (int side = 0; side < 2; ++side)
      if (rows[side][row])
        seen.insert(FormatOfLine(*edits[side], static_cast<int>(row) + 1).color);
  }
  EXPECT_TRUE(seen.count(replace) && seen.count(removed) && seen.count(added));

  // The picture, for a person to look at.
  panes.Left().SetSel(0, 0);
  panes.Right().SetSel(0, 0);
  panes.frame.Invalidate(TRUE);
  ::RedrawWindow(panes.frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  vn::test::PumpMessages();
  vn::test::Picture picture = vn::test::CaptureWindow(panes.frame);
  std::wstring path = vn::test::ScreenshotPath(L"panes.png");
  ASSERT_TRUE(vn::test::WritePng(picture, path));
  // Not a blank capture: the picture holds the text's colours.
  bool red = false, blue = false;
  for (size_t p = 0; p + 2 < picture.rgb.size(); p += 3) {
    red = red || (picture.rgb[p] > 200 && picture.rgb[p + 1] < 80 && picture.rgb[p + 2] < 80);
    blue = blue || (picture.rgb[p] < 80 && picture.rgb[p + 1] < 80 && picture.rgb[p + 2] > 200);
  }
  EXPECT_TRUE(red && blue) << "the captured picture shows the coloured lines";
}

}  // namespace
