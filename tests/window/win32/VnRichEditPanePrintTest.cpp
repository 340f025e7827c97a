// VnRichEditPanePrintTest.cpp - printing a comparison: the combined text
// two panes give, and print jobs through the real Print and Save As dialogs
// to a PostScript file on the test printer (scripts/printer).
#include "PrintTestSupport.h"
#include "ScriptedPrompt.h"

#include "afx/win32/AfxRes.h"
#include "afx/win32/CWinApp.h"
#include "Screenshot.h"
#include "options/VnDisplayOptions.h"

#include <gtest/gtest.h>

using namespace vn::test;

namespace {

const wchar_t kAppName[] = L"Vn Reconcile Test";

//===-- The combined text --------------------------------------------------===//

struct CombineCase {
  const char* shows;
  std::wstring left, right;
  std::wstring combined;  // rows joined by '|', the second header's line first
  int selected;           // the right pane's selection runs from inside this row into the next; -1 none
};

// The rows selected in the right pane are selected in the combined text,
// two lines further down for the headers.
TEST(CombineForPrint, RowsStandSideBySideInTheLeftColumnsWidthAndKeepTheRightPanesSelection) {
  const CombineCase cases[] = {
      {"equal counts", L"a|bb|ccc", L"x|y|z", L"H2|H1|a   x|bb  y|ccc z|", -1},
      {"a longer right side: empty left rows keep the width", L"abc", L"1|2|3", L"H2|H1|abc 1|    2|    3|", -1},
      {"a longer left side: empty right rows", L"a|b|c", L"1", L"H2|H1|a 1|b |c |", -1},
      {"an empty left pane: every row starts with one blank", L"", L"one|two", L"H2|H1| one| two|", -1},
      {"a tab counts as one character", L"\tx|y", L"r|s", L"H2|H1|\tx r|y  s|", -1},
      {"rows 3 and 4 selected", L"a|b|c|d|e", L"v|w|xx|yy|z", L"H2|H1|a v|b w|c xx|d yy|e z|", 2},
  };
  for (const CombineCase& c : cases) {
    SCOPED_TRACE(c.shows);
    PaneWindows left, right, print;
    left.Fill(c.left, L"\r\n");
    right.Fill(c.right, L"\r\n");
    if (c.selected >= 0)
      right.Edit().SetSel(right.Edit().LineIndex(c.selected) + 1, right.Edit().LineIndex(c.selected + 1) + 1);
    print.Pane().SetLineTerminator(L"\r\n");
    print.Edit().CombineForPrint(&left.Edit(), &right.Edit(), L"H1", L"H2", print.Pane().GetDefaultCharFormat());
    EXPECT_EQ(c.combined, Rows(print.Edit()));
    const std::pair<long, long> expected(c.selected < 0 ? 0 : print.Edit().LineIndex(c.selected + 2),
                                         c.selected < 0 ? 0 : print.Edit().LineIndex(c.selected + 4));
    EXPECT_EQ(expected, Selection(print.Edit())) << "from the start of the first row to the start of the row after";
  }
}

// Rows 2 and 4 of the left pane are deleted lines (struck through), row 3
// of the right pane only is struck: only the rows of the left pane's struck
// lines print struck, over the whole row, in their colour; the headers and
// every other row take the given format.
TEST(CombineForPrint, StrikesTheRowsOfDeletedLinesOnly) {
  PaneWindows left, right, print;
  left.Fill(L"keep|gone|keep|gone too|keep", L"\r\n");
  right.Fill(L"keep|||changed|keep", L"\r\n");
  const COLORREF red = RGB(200, 0, 0), blue = RGB(0, 0, 200);
  left.Edit().ColorSelection(2, 2, ColorFormat(red, true));
  left.Edit().ColorSelection(4, 4, ColorFormat(red, true));
  right.Edit().ColorSelection(3, 3, ColorFormat(blue, true));
  CHARFORMATW plain = print.Pane().GetDefaultCharFormat();
  plain.dwMask |= CFM_COLOR | CFM_STRIKEOUT;
  plain.dwEffects = 0;
  plain.crTextColor = RGB(0, 0, 0);
  print.Pane().SetLineTerminator(L"\r\n");
  print.Edit().CombineForPrint(&left.Edit(), &right.Edit(), L"old.txt", L"new.txt", plain);

  const bool struck[] = {false, false, false, true, false, true, false};  // headers, then 5 rows
  for (int line = 1; line <= 7; ++line) {
    SCOPED_TRACE(line);
    long start = print.Edit().LineIndex(line - 1);
    long end = start + print.Edit().LineLength(start);
    LineFormat format = FormatOfRange(print.Edit(), start, end);
    EXPECT_TRUE(format.uniformColor) << "one format over the whole row";
    EXPECT_EQ(struck[line - 1], format.struck);
    EXPECT_EQ(struck[line - 1] ? red : RGB(0, 0, 0), format.color);
  }
}

//===-- Print jobs ---------------------------------------------------------===//

// A job's results: the rows that open each printed page, in paper order,
// the PostScript file, and the state the job left behind.
struct JobResult {
  bool selectionOffered, selectionChosen;  // in the Print dialog
  std::vector<int> pages;
  std::string postScript;
  bool parentEnabled;
  INT_PTR pageStarts;
};

JobResult PrintJob(BasicPaneWindows<FormattingPane>& pane, const PrintChoice& choice, const wchar_t* file,
                   std::function<void(HWND)> duringJob = nullptr) {
  std::wstring output = TempPath(file);
  bool offered = false, chosen = false;
  {
    PrintDialogs dialogs(choice, output);
    std::unique_ptr<DialogDriver> job;
    if (duringJob)
      job.reset(new DialogDriver(HostWindow(), duringJob, kAppName, 10000));
    pane.Edit().OnFilePrint(&HostWindow());
    offered = dialogs.selectionOffered;
    chosen = dialogs.selectionChosen;
  }
  return {offered, chosen, pane.Edit().m_printedRows, ReadBytes(output), ::IsWindowEnabled(HostWindow()) != 0,
          pane.Edit().m_aPageStart.GetSize()};
}

struct JobCase {
  const char* shows;
  PrintChoice choice;
  std::pair<long, long> selection;  // character range, or {0, 0}
  std::vector<int> pages;           // the first row of each printed page
};

// 200 rows at 70 a page (an A4 page at 240 twips a row): pages open with
// rows 1, 71 and 141.
TEST(OnFilePrint, PrintsThePagesAskedForInTheOrderAskedFor) {
  CWinApp app(kAppName);
  const JobCase cases[] = {
      {"the whole text", {}, {0, 0}, {1, 71, 141}},
      {"a range from the middle", {2, 3}, {0, 0}, {71, 141}},
      {"a descending range", {3, 2}, {0, 0}, {141, 71}},
      {"a range beyond the end stops at the last page", {2, 9}, {0, 0}, {71, 141}},
      {"a range wholly beyond the end prints nothing", {5, 6}, {0, 0}, {}},
      {"the selection: its rows only", {}, {1000, 1100}, {}},
      {"cancelled dialogs: nothing, and no file", PrintChoice{0, 0, true}, {0, 0}, {}},
  };
  for (const JobCase& c : cases) {
    SCOPED_TRACE(c.shows);
    BasicPaneWindows<FormattingPane> pane;
    pane.Fill(CountedRows(200, L"row "), L"\r\n");
    pane.Edit().SetSel(c.selection.first, c.selection.second);
    std::vector<int> expected = c.pages;
    if (c.selection.second)  // the job starts at the selected rows' first character
      expected = {pane.Edit().LineFromChar(c.selection.first) + 1};
    JobResult job = PrintJob(pane, c.choice, L"vn-print-job.ps");
    bool selection = c.selection.second != 0;
    EXPECT_EQ(selection, job.selectionOffered) << "the dialog offers a selection only when there is one";
    EXPECT_EQ(selection, job.selectionChosen);
    EXPECT_EQ(expected, job.pages);
    EXPECT_EQ(static_cast<int>(expected.size()), CountOf(job.postScript, "%%Page:")) << "pages on paper";
    EXPECT_EQ(c.choice.cancel ? 0 : 1, CountOf(job.postScript, "%%Title: Sideview Output"));
    EXPECT_EQ(c.choice.cancel, job.postScript.empty());
    EXPECT_TRUE(job.parentEnabled);
    EXPECT_EQ(0, job.pageStarts) << "the page list is emptied after the job";
  }
}

// Cancel in the printing dialog stops the job after the page in hand.  The
// dialog's picture goes to <build>/screenshots/printing-dialog.png.
TEST(OnFilePrint, CancelInThePrintingDialogEndsTheJob) {
  CWinApp app(kAppName);
  BasicPaneWindows<FormattingPane> pane;
  pane.Fill(CountedRows(7000, L"row "), L"\r\n");  // 100 pages
  std::wstring document, port;
  JobResult job = PrintJob(pane, {}, L"vn-print-cancel.ps", [&](HWND dialog) {
    document = GetItemText(dialog, 201);
    port = GetItemText(dialog, 203);
    WritePng(CaptureWindow(dialog), ScreenshotPath(L"printing-dialog.png"));
    PressButton(dialog, IDCANCEL);
  });
  EXPECT_EQ(L"Sideview Output", document);
  EXPECT_NE(std::wstring::npos, port.find(L"vn-print-cancel.ps")) << "the port text names the file";
  EXPECT_FALSE(job.pages.empty());
  EXPECT_LT(job.pages.size(), 100u) << "the job stopped early";
  EXPECT_TRUE(job.parentEnabled);
  EXPECT_EQ(0, job.pageStarts);
}

// A comparison of a few hundred lines, aligned as a host aligns it (gaps
// across from deleted and inserted lines, deleted lines struck through),
// printed whole.  The PostScript stays in <build>/screenshots for a person
// to turn into pictures (docs/printing.md).
TEST(OnFilePrint, PrintsAComparisonSideBySide) {
  CWinApp app(kAppName);
  PaneWindows left, right;
  std::wstring leftRows, rightRows;
  std::vector<int> deleted, inserted;
  for (int row = 1; row <= 300; ++row) {
    std::wstring sep = row > 1 ? L"|" : L"";
    std::wstring text = L"line " + std::to_wstring(row) + L" of the common text";
    if (row % 37 == 5) {
      deleted.push_back(row);
      leftRows += sep + L"line " + std::to_wstring(row) + L" only in the old file";
      rightRows += sep;
    } else if (row % 41 == 9) {
      inserted.push_back(row);
      leftRows += sep;
      rightRows += sep + L"line " + std::to_wstring(row) + L" only in the new file, a longer one";
    } else {
      leftRows += sep + text;
      rightRows += sep + text;
    }
  }
  left.Fill(leftRows, L"\r\n");
  right.Fill(rightRows, L"\r\n");
  CVnOptionState formats;
  for (int row : deleted)
    left.Edit().ColorSelection(row, row, formats.GetDeleteCharFormat());
  for (int row : inserted)
    right.Edit().ColorSelection(row, row, formats.GetInsertCharFormat());
  right.Edit().SetSel(0, 0);

  BasicPaneWindows<FormattingPane> print;
  print.Pane().SetLineTerminator(L"\r\n");
  print.Edit().CombineForPrint(&left.Edit(), &right.Edit(), L"Old: C:\\work\\old.txt", L"New: C:\\work\\new.txt",
                               print.Pane().GetDefaultCharFormat());
  std::wstring output = ScreenshotPath(L"printed-comparison.ps");
  ::DeleteFileW(output.c_str());
  {
    PrintDialogs dialogs({}, output);
    print.Edit().OnFilePrint(&HostWindow());
  }
  std::string ps = ReadBytes(output);
  EXPECT_EQ((std::vector<int>{1, 71, 141, 211, 281}), print.Edit().m_printedRows) << "302 rows, 70 a page";
  EXPECT_EQ(5, CountOf(ps, "%%Page:"));
  EXPECT_EQ(1, CountOf(ps, "%%Title: Sideview Output"));
}

// The control's own formatter: the job ends, on paper, whatever the
// formatter manages (Wine's lays out nothing and the job ends after one
// empty page; docs/printing.md).
TEST(OnFilePrint, EndsWithTheControlsOwnFormatter) {
  CWinApp app(kAppName);
  PaneWindows pane;
  pane.Fill(CountedRows(200, L"row "), L"\r\n");
  std::wstring output = TempPath(L"vn-print-control.ps");
  {
    PrintDialogs dialogs({}, output);
    pane.Edit().OnFilePrint(&HostWindow());
  }
  std::string ps = ReadBytes(output);
  EXPECT_GE(CountOf(ps, "%%Page:"), 1);
  EXPECT_LE(CountOf(ps, "%%Page:"), 5) << "200 rows take a few pages, not endless empty ones";
  EXPECT_EQ(1, CountOf(ps, "%%Title: Sideview Output"));
  EXPECT_EQ(0, pane.Edit().m_aPageStart.GetSize());
  EXPECT_TRUE(::IsWindowEnabled(HostWindow()));
}

// Direct printing to the printer the command line names: a printer that
// can't be reached is reported, and no dialog shows.
TEST(OnFilePrint, DirectPrintingToAMissingPrinterSaysSo) {
  struct CommandWindow : CWnd {
    CVnRichEditPane* pane = nullptr;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
      if (LOWORD(wParam) != ID_FILE_PRINT_DIRECT)
        return CWnd::OnCommand(wParam, lParam);
      pane->OnFilePrint(this);
      return TRUE;
    }
  } window;
  CWinApp app(kAppName);
  CCommandLineInfo command;
  command.m_nShellCommand = CCommandLineInfo::FilePrintTo;
  command.m_strPrinterName = L"No Such Printer";
  command.m_strDriverName = L"winspool";
  command.m_strPortName = L"LPT9:";
  app.m_pCmdInfo = &command;
  BasicPaneWindows<FormattingPane> pane;
  pane.Fill(CountedRows(20, L"row "), L"\r\n");
  window.pane = &pane.Edit();
  ASSERT_TRUE(window.CreateEx(0, nullptr, L"", WS_CHILD, RECT{0, 0, 10, 10}, &HostWindow(), 7));
  ScriptedPrompt prompt({IDOK});
  window.SendMessage(WM_COMMAND, ID_FILE_PRINT_DIRECT, 0);
  ASSERT_EQ(1u, prompt.Asked().size());
  EXPECT_NE(std::string::npos, prompt.Asked()[0].text.find("could not be started"));
  EXPECT_TRUE(pane.Edit().m_printedRows.empty());
  EXPECT_TRUE(::IsWindowEnabled(window));
}

}  // namespace
