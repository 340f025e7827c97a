// VnPaneDemoTest.cpp - two panes filled from a real comparison, the way a
// host fills them: the change records of Compare walked in order, changed
// lines coloured with the default replace, delete and insert formats, and
// blank rows inserted so that equal lines stand level.  The window's
// picture is written to <build>/screenshots/panes.png for a person to look
// at.
#include "PaneTestSupport.h"
#include "Screenshot.h"

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
      RECT rect = {0, 0, 1000, 330};
      EXPECT_TRUE(CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rect, &vn::test::HostWindow(), 10));
    }
  } frame;  // made before the panes that go in it
  vn::test::PaneWindows left{true, 498, 330, &frame, 0}, right{true, 498, 330, &frame, 502};
  CVnRichEditPane& Left() { return left.Edit(); }
  CVnRichEditPane& Right() { return right.Edit(); }
};

// The host's walk: each record colours its lines on the side(s) it has and
// pads the shorter side below them with blank rows.  A record's unused
// side holds 0, so where an insert or a delete falls on the other side
// follows from the equal lines since the last record.  The padding rows
// (1-based) of each side are collected.
void Align(SideBySide& panes, const CPtrArray& changes, const CVnOptionState& formats, std::set<int>& leftPadding,
           std::set<int>& rightPadding) {
  long sourceDone = 0, targetDone = 0, leftAdded = 0, rightAdded = 0;
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange& change = *static_cast<const CVnDiffChange*>(changes.GetAt(k));
    long sourceStart = change.StartSource(), sourceCount = change.SourceChangeLen();
    long targetStart = change.StartTarget(), targetCount = change.TargetChangeLen();
    const CHARFORMATW* leftFormat = &formats.GetReplaceCharFormat();
    const CHARFORMATW* rightFormat = &formats.GetReplaceCharFormat();
    if (change.GetAction() == CVnDiffChange::Delete) {
      targetCount = 0;
      targetStart = targetDone + (sourceStart - 1 - sourceDone) + 1;
      leftFormat = &formats.GetDeleteCharFormat();
    } else if (change.GetAction() == CVnDiffChange::Insert) {
      sourceCount = 0;
      sourceStart = sourceDone + (targetStart - 1 - targetDone) + 1;
      rightFormat = &formats.GetInsertCharFormat();
    }
    int leftRow = static_cast<int>(sourceStart + leftAdded);
    int rightRow = static_cast<int>(targetStart + rightAdded);
    if (sourceCount > 0)
      panes.Left().ColorSelection(leftRow, leftRow + sourceCount - 1, *leftFormat);
    if (targetCount > 0)
      panes.Right().ColorSelection(rightRow, rightRow + targetCount - 1, *rightFormat);
    long gap = targetCount - sourceCount;
    if (gap > 0) {
      int at = leftRow + static_cast<int>(sourceCount);
      leftAdded += panes.Left().InsertBlankLines(at, static_cast<int>(gap), 0, 0);
      for (int r = at; r < at + gap; ++r)
        leftPadding.insert(r);
    } else if (gap < 0) {
      int at = rightRow + static_cast<int>(targetCount);
      rightAdded += panes.Right().InsertBlankLines(at, static_cast<int>(-gap), 0, 0);
      for (int r = at; r < at - gap; ++r)
        rightPadding.insert(r);
    }
    sourceDone = sourceStart + sourceCount - 1;
    targetDone = targetStart + targetCount - 1;
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
  std::set<int> leftPadding, rightPadding;
  Align(panes, changes, formats, leftPadding, rightPadding);

  // Both sides have one row for each aligned row.
  ASSERT_EQ(panes.Left().GetLineCount(), panes.Right().GetLineCount());
  // Take the padding away and each side is its file again.
  EXPECT_EQ(FileLines(source.arg), RowsWithout(panes.Left(), leftPadding));
  EXPECT_EQ(FileLines(target.arg), RowsWithout(panes.Right(), rightPadding));

  // Row by row: uncoloured text stands beside the same text; a deleted or
  // inserted line stands beside a padding row.
  const COLORREF replace = formats.GetReplaceCharFormat().crTextColor;
  const COLORREF removed = formats.GetDeleteCharFormat().crTextColor;
  const COLORREF added = formats.GetInsertCharFormat().crTextColor;
  std::set<COLORREF> seen;
  for (int row = 1; row <= panes.Left().GetLineCount() - 1; ++row) {
    SCOPED_TRACE(row);
    CString leftText, rightText;
    panes.Left().GetPaneLine(row - 1, leftText);
    panes.Right().GetPaneLine(row - 1, rightText);
    auto left = FormatOfLine(panes.Left(), row);
    auto right = FormatOfLine(panes.Right(), row);
    bool leftPad = leftPadding.count(row) != 0, rightPad = rightPadding.count(row) != 0;
    if (!leftPad)
      seen.insert(left.color);
    if (!rightPad)
      seen.insert(right.color);
    if (!leftPad && left.color == removed) {
      EXPECT_TRUE(left.struck);
      EXPECT_TRUE(rightPad);
    } else if (!rightPad && right.color == added) {
      EXPECT_TRUE(leftPad);
    } else if (!leftPad && !rightPad && left.color != replace && right.color != replace) {
      EXPECT_STREQ(leftText.GetString(), rightText.GetString());
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
