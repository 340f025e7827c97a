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

// One side of the host's walk: the pane, the blank rows added so far and
// where they went (1-based rows).
struct Side {
  CVnRichEditPane& edit;
  long added = 0;
  std::set<int> padding;
};

// The host's walk: each record colours its lines on the side(s) it has and
// pads the shorter side below them with blank rows.  Where an insert or a
// delete falls on the other side comes from the comparison's spans.
void Align(Side (&sides)[2], const CVnDiffChangeList& changes, const CVnOptionState& formats) {
  const std::vector<CVnChangeSpan> spans = VnChangeSpans(changes, false);
  ASSERT_EQ(static_cast<size_t>(changes.GetSize()), spans.size());
  for (size_t k = 0; k < spans.size(); ++k) {
    const CVnDiffChange::Action action = changes[static_cast<INT_PTR>(k)]->GetAction();
    const long start[2] = {spans[k].m_nSourceBegin + 1, spans[k].m_nTargetBegin + 1};
    const long count[2] = {spans[k].m_nSourceCount, spans[k].m_nTargetCount};
    const CHARFORMATW* format[2] = {&formats.GetReplaceCharFormat(), &formats.GetReplaceCharFormat()};
    if (action == CVnDiffChange::Delete)
      format[0] = &formats.GetDeleteCharFormat();
    if (action == CVnDiffChange::Insert)
      format[1] = &formats.GetInsertCharFormat();
    for (int side = 0; side < 2; ++side) {
      Side& s = sides[side];
      int row = static_cast<int>(start[side] + s.added), end = row + static_cast<int>(count[side]);
      if (count[side] > 0)
        s.edit.ColorSelection(row, end - 1, *format[side]);
      int gap = static_cast<int>(count[1 - side] - count[side]);
      if (gap > 0)
        s.added += s.edit.InsertBlankLines(end, gap, 0, 0);
      for (int r = end; r < end + gap; ++r)
        s.padding.insert(r);
    }
  }
}

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

std::vector<std::wstring> RowsWithout(CVnRichEditPane& edit, const std::set<int>& padding) {
  std::vector<std::wstring> rows;
  for (int line = 0; line < edit.GetLineCount(); ++line) {
    if (padding.count(line + 1))
      continue;
    CString text;
    edit.GetPaneLine(line, text);
    rows.push_back(text.GetString());
  }
  return rows;
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
  Side sides[2] = {{panes.Left(), 0, {}}, {panes.Right(), 0, {}}};
  Align(sides, changes, formats);

  // Both sides have one row for each aligned row.
  ASSERT_EQ(panes.Left().GetLineCount(), panes.Right().GetLineCount());
  // Take the padding away and each side is its file again.
  EXPECT_EQ(FileLines(source.arg), RowsWithout(panes.Left(), sides[0].padding));
  EXPECT_EQ(FileLines(target.arg), RowsWithout(panes.Right(), sides[1].padding));

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
      pad[side] = sides[side].padding.count(row) != 0;
      format[side] = FormatOfLine(sides[side].edit, row);
      sides[side].edit.GetPaneLine(row - 1, text[side]);
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
