// VnPaneScreenshotTest.cpp - one pane with a real file, as a host shows it:
// the file read by the intake, its name in the caption, the number column
// as wide as its numbers, a gap, changed lines in the default formats and a
// search hit found through the Find dialog.  The picture is written to
// <build>/screenshots/pane.png for a person to look at.
#include "DialogDriver.h"
#include "PaneTestSupport.h"
#include "Screenshot.h"
#include "TestSupport.h"

#include "intake/VnDiffFile.h"
#include "options/VnDisplayOptions.h"
#include "window/VnPaneMessages.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

const char kFile[] =
    "/* greeting.c - says hello a few times */\n"
    "#include <stdio.h>\n"
    "\n"
    "static int count = 3;\n"
    "\n"
    "int main(void)\n"
    "{\n"
    "\tint i;\n"
    "\tfor (i = 0; i < count; i++)\n"
    "\t\tprintf(\"Hello, world\\n\");\n"
    "\treturn 0;\n"
    "}\n";

TEST(VnPaneScreenshot, OnePaneWithCaptionNumbersGapChangesAndAHit) {
  vn::test::ScratchDir dir;
  CString path = dir.Path() + L"greeting.c";
  FILE* out = _wfopen(path, L"wb");
  ASSERT_TRUE(out);
  fwrite(kFile, 1, sizeof(kFile) - 1, out);
  fclose(out);
  CVnDiffFile file;
  file.SetFileName(path);
  unsigned char* text = nullptr;
  unsigned long size = 0;
  ASSERT_TRUE(file.GetFileContents(text, size));

  vn::test::HostedPane<> p(560, 300);
  CVnOptionState formats;
  const CHARFORMATW& format = p.pane.GetDefaultCharFormat();
  p.pane.SetCaption(L"greeting.c");
  p.pane.SetDefaultText(text, static_cast<int>(size), format);
  p.pane.SetTabStops(format, p.pane.GetDisplayOptions().GetTabSize());
  ASSERT_EQ(13, p.pane.GetLineCount());
  p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, p.pane.GetLineNumWidth(format, p.pane.GetLineCount()));

  // The other file had a line here that this one lacks, and two this one
  // hasn't; line 4 is changed.
  vn::test::WideLineSet other(L"#include <string.h>\r\n\tputs(\"bye\");\r\n\tputs(\"again\");\r\n");
  p.pane.ColorSelection(4, 4, formats.GetReplaceCharFormat());
  EXPECT_EQ(1, p.pane.InsertDeletedLines(other.arg, 1, 1, 3, 0, 0, formats.GetDeleteCharFormat()));
  EXPECT_EQ(2, p.pane.InsertBlankLines(12, 2, 0, 0));
  ASSERT_EQ(p.TextPane().GetLineCount(), p.Numbers().GetLineCount());

  // A search for "printf", through the dialog, which then steps aside.
  p.TextPane().SetSel(0, 0);
  p.TextPane().Find();
  HWND dialog = vn::test::WaitForDialog(nullptr, L"(greeting.c)");
  ASSERT_TRUE(dialog);
  vn::test::SetItemText(dialog, 0x480, L"printf");
  vn::test::PressButton(dialog, 0x421);  // down
  vn::test::PressButton(dialog, IDOK);
  long start = 0, end = 0;
  p.TextPane().GetSel(start, end);
  EXPECT_EQ(6, end - start);
  ::SetWindowPos(dialog, nullptr, 900, 800, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  // The user's click back into the text: Wine draws a selection only in
  // the window that has the focus.
  p.TextPane().SetFocus();
  EXPECT_EQ(std::make_pair(start, end), vn::test::Selection(p.TextPane()));

  ::RedrawWindow(p.pane, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  vn::test::PumpMessages();
  vn::test::Picture picture = vn::test::CaptureWindow(p.pane);
  ASSERT_TRUE(vn::test::WritePng(picture, vn::test::ScreenshotPath(L"pane.png")));
  p.pane.CloseFindReplace();
  EXPECT_TRUE(vn::test::WaitUntilGone(dialog));

  // Not a blank capture: the deleted line's red and the changed line's blue
  // are both in it.
  bool red = false, blue = false;
  for (size_t k = 0; k + 2 < picture.rgb.size(); k += 3) {
    const unsigned char* px = &picture.rgb[k];
    red = red || (px[0] > 200 && px[1] < 80 && px[2] < 80);
    blue = blue || (px[0] < 80 && px[1] < 80 && px[2] > 200);
  }
  EXPECT_TRUE(red && blue);
}

}  // namespace
