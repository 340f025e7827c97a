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
#include <vector>

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

std::vector<std::wstring> FileLines(const CVnDiffArg& arg) {
  std::vector<std::wstring> lines;
  for (int k = 0; k < arg.GetLineCount(); ++k) {
    CString line = arg.GetLine(k);
    std::wstring text = line.GetString();
    if (!text.empty() && text.back() == L'\r')
      text.pop_back();
    lines.push_back(text);
  }
  lines.push_back(L"");  // the empty last line after the final terminator
  return lines;
}

// The rows of a pane that are no padding.
std::vector<std::wstring> RowsWithout(CVnRichEditPane& edit, const std::vector<int>& rows) {
  std::vector<std::wstring> shown;
  for (int line = 0; line < edit.GetLineCount(); ++line) {
    CString text;
    edit.GetPaneLine(line, text);
    if (static_cast<size_t>(line) >= rows.size() || rows[static_cast<size_t>(line)])
      shown.push_back(text.GetString());
  }
  return shown;
}

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

  // Both sides have one row for each aligned row.
  ASSERT_EQ(panes.Left().GetLineCount(), panes.Right().GetLineCount());
  // Take the padding away and each side is its file again.
  EXPECT_EQ(FileLines(source.arg), RowsWithout(panes.Left(), rows[0]));
  EXPECT_EQ(FileLines(target.arg), RowsWithout(panes.Right(), rows[1]));

  // Row by row: uncoloured text stands beside the same text; a deleted or
  // inserted line stands beside a padding row.
  const COLORREF replace = formats.GetReplaceCharFormat().crTextColor;
  const COLORREF removed = formats.GetDeleteCharFormat().crTextColor;
  const COLORREF added = formats.GetInsertCharFormat().crTextColor;
  std::set<COLORREF> seen;
  for (int row = 1; row < panes.Left().GetLineCount(); ++row) {
    bool pad[2];
    vn::test::LineFormat format[2];
    CString text[2];
    for (int side = 0; side < 2; ++side) {
      pad[side] = static_cast<size_t>(row) <= rows[side].size() && !rows[side][static_cast<size_t>(row - 1)];
      format[side] = FormatOfLine(*edits[side], row);
      edits[side]->GetPaneLine(row - 1, text[side]);
      if (!pad[side])
        seen.insert(format[side].color);
    }
    if (!pad[0] && format[0].color == removed) {
      EXPECT_TRUE(format[0].struck && pad[1]) << row;
    } else if (!pad[1] && format[1].color == added) {
      EXPECT_TRUE(pad[0]) << row;
    } else if (!pad[0] && !pad[1] && format[0].color != replace && format[1].color != replace) {
      EXPECT_STREQ(text[0].GetString(), text[1].GetString()) << row;
    }
  }
  EXPECT_TRUE(seen.count(replace) && seen.count(removed) && seen.count(added))
      << "the example shows all three kinds of change";

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
