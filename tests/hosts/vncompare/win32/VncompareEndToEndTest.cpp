// VncompareEndToEndTest.cpp - the compare tool as a user meets it: started
// on two files, its panes read through the controls, stepped through the
// differences, closed from the title bar, started again in the place it was
// left; its About box; its options, encodings and printing; and its
// answers to bad command lines and missing files.
#include "DialogDriver.h"
#include "HostProcess.h"
#include "PrintDialogs.h"
#include "Screenshot.h"
#include "TestSupport.h"

#include "afx/win32/AfxRes.h"
#include "afx/win32/CGeometry.h"
#include "compare/VnChangedWords.h"
#include "compare/VnComparison.h"
#include "compare/VnDifferenceBlocks.h"
#include "foundation/VnRegistry.h"
#include "resources/VnVersion.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <richedit.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

const wchar_t kKey[] = L"Software\\VnReconcile\\vncompare";
const UINT kNextDiff = 32771, kToolsOptions = 32776, kToolsEncoding = 32777;

std::wstring ToolPath() { return vn::test::HostProcess::Beside(L"vncompare.exe"); }

void ForgetSettings() { CVnRegistry().DeleteSection(HKEY_CURRENT_USER, L"Software\\VnReconcile", L"vncompare"); }

// Two files of a few hundred lines with every kind of change: edits,
// insertions, deletions, a changed block of unequal length.
struct Pair {
  vn::test::ScratchDir dir;
  CString oldPath = dir.Path() + _T("old.txt"), newPath = dir.Path() + _T("new.txt");
  Pair() {
    std::ofstream a(vn::test::FsPath(oldPath), std::ios::binary), b(vn::test::FsPath(newPath), std::ios::binary);
    for (int i = 1; i <= 300; ++i) {
      std::string line = "line " + std::to_string(i) + " of the report\r\n";
      a << line;
      if (i == 20 || i == 150)
        b << "line " << i << " OF THE REPORT, changed\r\n";
      else if (i == 60)
        b << line << "an inserted line\r\nanother inserted line\r\n";
      else if (i < 100 || i > 104)
        b << line;
      if (i == 200)
        b << "first new line of a block\r\nsecond new line\r\nthird new line\r\n";
    }
  }
  std::wstring Arguments() const { return vn::test::Quoted(oldPath, newPath); }
};

struct Tool : vn::test::HostProcess {
  explicit Tool(const std::wstring& arguments) : HostProcess(ToolPath(), arguments) {}
  HWND TextPane(int column) const { return ColumnPane(column); }
  HWND NumberPane(int column) const {
    HWND text = TextPane(column);
    return ::GetDlgItem(::GetParent(text), AFX_IDW_PANE_FIRST + column + 1);
  }
  // The vertical scroll position in pixels, read through the tool's memory.
  LONG ScrollY(HWND pane) const;
  std::vector<std::wstring> Rows(int column) const { return vn::test::ControlRows(TextPane(column)); }
  long SelectedLine(int column) const {
    DWORD start = 0;
    ::SendMessageW(TextPane(column), EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    return static_cast<long>(::SendMessageW(TextPane(column), EM_EXLINEFROMCHAR, 0, start));
  }
};

CVnCompareOptions ByContent() {
  CVnCompareOptions options;
  options.m_bEncodingByContent = true;
  return options;
}

// What each pane must show row by row: the library's rows, like lines of a
// replaced block level.
void ExpectLibraryRows(const Tool& tool, const CString& oldPath, const CString& newPath,
                       const CVnCompareOptions& options = ByContent()) {
  CVnComparison comparison(options);
  ASSERT_TRUE(comparison.Open(CVnComparison::Source, oldPath) && comparison.Open(CVnComparison::Target, newPath));
  comparison.Compare();
  std::vector<std::wstring> left = tool.Rows(0), right = tool.Rows(1);
  std::vector<CVnAlignedRow> rows = CVnChangedWords(comparison).GetRows();
  ASSERT_GE(left.size(), rows.size());
  ASSERT_EQ(left.size(), right.size());
  auto text = [&](CVnComparison::Side side, long line) {
    CString s = comparison.GetFile(side).GetLines().GetLine(static_cast<int>(line));
    return std::wstring(s.GetString()).substr(0, s.GetLength() - (s.GetLength() && s[s.GetLength() - 1] == L'\r'));
  };
  for (size_t r = 0; r < rows.size(); ++r) {
    const CVnAlignedRow& row = rows[r];
    std::wstring expectLeft = row.m_nSource >= 0 ? text(CVnComparison::Source, row.m_nSource) : L"";
    std::wstring expectRight = row.m_nTarget >= 0 ? text(CVnComparison::Target, row.m_nTarget)
                               : row.m_nKind == VnRowKind::Deleted ? text(CVnComparison::Source, row.m_nSource)
                                                                   : L"";
    EXPECT_EQ(expectLeft, left[r]) << "row " << r;
    EXPECT_EQ(expectRight, right[r]) << "row " << r;
  }
}

// The colour of a row's first character, and the pane's first tab stop.
COLORREF RowColor(HWND pane, long row) {
  LRESULT start = ::SendMessageW(pane, EM_LINEINDEX, row, 0);
  ::SendMessageW(pane, EM_SETSEL, start, start + 1);
  CHARFORMATW format = {};
  format.cbSize = sizeof(format);
  return vn::test::SendRemote(pane, EM_GETCHARFORMAT, SCF_SELECTION, format) ? format.crTextColor : 0xFFFFFFFF;
}

LONG FirstTabStop(HWND pane) {
  PARAFORMAT format = {};
  format.cbSize = sizeof(format);
  return vn::test::SendRemote(pane, EM_GETPARAFORMAT, 0, format) && format.cTabCount ? format.rgxTabs[0] : -1;
}

LONG Tool::ScrollY(HWND pane) const {
  POINT position = {-1, -1};
  vn::test::SendRemote(pane, EM_GETSCROLLPOS, 0, position);
  return position.y;
}

CRect FrameRect(HWND frame) {
  CRect rect;
  ::GetWindowRect(frame, &rect);
  return rect;
}

}  // namespace

TEST(VncompareEndToEndTest, ShowsStepsClosesAndComesBackWhereItWasLeft) {
  Pair files;
  ForgetSettings();
  std::wstring arguments = files.Arguments();
  CRect placed;
  {
    Tool tool(arguments);
    ASSERT_TRUE(tool.frame);
    ExpectLibraryRows(tool, files.oldPath, files.newPath);
    vn::test::WritePng(vn::test::CaptureWindow(tool.frame), vn::test::ScreenshotPath(L"vncompare.png"));

    // The tool opens on the first difference; two steps on is the third.
    CVnComparison comparison;
    comparison.Open(CVnComparison::Source, files.oldPath);
    comparison.Open(CVnComparison::Target, files.newPath);
    comparison.Compare();
    std::vector<CVnRowBlock> blocks = VnDifferenceBlocks(comparison.GetRows());
    ASSERT_GE(blocks.size(), 4u);
    EXPECT_EQ(blocks[0].m_nFirst, tool.SelectedLine(0));
    ::SendMessageW(tool.frame, WM_COMMAND, kNextDiff, 0);
    ::SendMessageW(tool.frame, WM_COMMAND, kNextDiff, 0);
    EXPECT_EQ(blocks[2].m_nFirst, tool.SelectedLine(0));
    EXPECT_EQ(blocks[2].m_nFirst, tool.SelectedLine(1));
    for (int column = 0; column < 2; ++column)
      EXPECT_EQ(tool.ScrollY(tool.TextPane(column)), tool.ScrollY(tool.NumberPane(column))) << "numbers level";
    ::Sleep(200);
    vn::test::WritePng(vn::test::CaptureWindow(tool.frame), vn::test::ScreenshotPath(L"vncompare-third-difference.png"));

    ::SetWindowPos(tool.frame, nullptr, 37, 41, 700, 500, SWP_NOZORDER);
    placed = FrameRect(tool.frame);
    EXPECT_EQ(1u, tool.Close());
  }
  CVnRegistry registry(HKEY_CURRENT_USER, kKey, L"Display");
  EXPECT_EQ(static_cast<DWORD>(placed.left), registry.GetInt(L"WndPlcmntLeft", 12345));
  EXPECT_EQ(static_cast<DWORD>(placed.right), registry.GetInt(L"WndPlcmntRight", 12345));
  registry.CloseSection();
  registry.OpenSection(L"DisplayOptions");
  EXPECT_EQ(4u, registry.GetInt(L"TabSize", 0));
  registry.CloseSection();

  // Started again: the stored place; closed from the title bar this time.
  {
    Tool tool(arguments);
    ASSERT_TRUE(tool.frame);
    EXPECT_EQ(placed, FrameRect(tool.frame));
    ::PostMessageW(tool.frame, WM_SYSCOMMAND, SC_CLOSE, 0);
    EXPECT_EQ(1u, tool.Wait());
  }
  // The same file twice: the same, exit status 0.
  {
    Tool tool(vn::test::Quoted(files.oldPath, files.oldPath));
    ASSERT_TRUE(tool.frame);
    EXPECT_EQ(0u, tool.Close());
  }
  ForgetSettings();
}

// Help > About opens the library's About box over the tool, with the
// tool's caption and name and the library's build; both pages are
// pictured, the second reached with the tree's Down key.
TEST(VncompareEndToEndTest, HelpAboutShowsTheAboutBox) {
  Pair files;
  Tool tool(files.Arguments());
  ASSERT_TRUE(tool.frame);
  // Alt+H opens the Help menu, A picks About: the keys a user would press.
  // The tool's own menu, read from its file (Wine keeps a menu to the
  // process that made it); its Help > About item's command goes to the frame
  // as a click on it would send it.
  HMODULE file = ::LoadLibraryExW(ToolPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  ASSERT_TRUE(file);
  HMENU bar = ::LoadMenuW(file, MAKEINTRESOURCEW(128));
  ASSERT_TRUE(bar);
  HMENU help = ::GetSubMenu(bar, ::GetMenuItemCount(bar) - 1);
  wchar_t text[64] = {};
  ::GetMenuStringW(bar, ::GetMenuItemCount(bar) - 1, text, 64, MF_BYPOSITION);
  EXPECT_EQ(std::wstring(L"&Help"), text);
  ::GetMenuStringW(help, 0, text, 64, MF_BYPOSITION);
  EXPECT_EQ(std::wstring(L"&About vncompare..."), text);
  UINT command = ::GetMenuItemID(help, 0);
  ::DestroyMenu(bar);
  ::FreeLibrary(file);
  ::PostMessageW(tool.frame, WM_COMMAND, command, 0);

  HWND about = vn::test::WaitForNextDialog(tool.frame, L"About", nullptr);
  ASSERT_TRUE(about);
  ::GetWindowTextW(about, text, 64);
  EXPECT_EQ(std::wstring(L"About vncompare"), text);
  ::Sleep(300);
  vn::test::WritePng(vn::test::CaptureWindow(about), vn::test::ScreenshotPath(L"about-about-page.png"));
  ::PostMessageW(::GetDlgItem(about, 1069), WM_KEYDOWN, VK_DOWN, 0);
  ::Sleep(300);
  HWND info = nullptr;
  for (HWND page = ::FindWindowExW(about, nullptr, L"#32770", nullptr); page;
       page = ::FindWindowExW(about, page, L"#32770", nullptr))
    if (::GetDlgItem(page, 1071))
      info = page;
  ASSERT_TRUE(info);
  EXPECT_TRUE(::IsWindowVisible(info));
  ::GetDlgItemTextW(info, 1071, text, 64);
  EXPECT_EQ(std::wstring(L"vncompare  Build: ") + L"" VN_VERSION_TEXT, text);
  vn::test::WritePng(vn::test::CaptureWindow(about), vn::test::ScreenshotPath(L"about-info-page.png"));

  ::PostMessageW(::GetDlgItem(about, 1025), BM_CLICK, 0, 0);
  for (int tries = 0; tries < 100 && ::IsWindow(about) && ::IsWindowVisible(about); ++tries)
    ::Sleep(50);
  EXPECT_FALSE(::IsWindow(about) && ::IsWindowVisible(about));
  EXPECT_EQ(1u, tool.Close());
  ForgetSettings();
}

// Trouble never shows a half-drawn window: a message (on standard error
// with --headless) and exit status 2.
TEST(VncompareEndToEndTest, BadInputEndsWithStatusTwo) {
  vn::test::ScratchDir dir;
  CString file = dir.Path() + _T("a.txt");
  std::ofstream(std::filesystem::path(file.GetString())) << "a\n";
  const std::wstring a = vn::test::Quoted(file);
  const std::wstring folder = vn::test::Quoted(dir.Path().Left(dir.Path().GetLength() - 1));
  const std::wstring cases[] = {
      L"--headless " + a,                                  // one file
      L"--headless " + a + L" " + a + L" " + a,            // three
      L"--headless --no-such-option " + a + L" " + a,      // an unknown option
      L"--headless " + a + L" \"Z:\\no\\such\\file.txt\"",  // a missing file
      L"--headless " + a + L" " + folder,                  // a directory
      L"--headless \"unclosed " + a,                       // a malformed line
  };
  for (const std::wstring& arguments : cases) {
    Tool tool(arguments);
    EXPECT_EQ(nullptr, tool.frame) << std::string(arguments.begin(), arguments.end());
    EXPECT_EQ(2u, tool.Wait()) << std::string(arguments.begin(), arguments.end());
  }
}

// The user's way through options and encodings: a UTF-16 file without a
// mark is binary to detection, so the question comes first; the File
// Encoding dialog makes it text and the panes show the comparison of the
// decoded text.  A tab size and the colours changed on the option sheet
// reach the panes, and the next start reads them back.
TEST(VncompareEndToEndTest, OptionsAndEncodingsFromTheMenus) {
  Pair files;
  const CString widePath = files.dir.Path() + _T("new16.txt");
  {
    std::ifstream narrow(std::filesystem::path(files.newPath.GetString()), std::ios::binary);
    std::ofstream wide(std::filesystem::path(widePath.GetString()), std::ios::binary);
    for (char c; narrow.get(c);)
      wide.put(c).put('\0');
  }
  ForgetSettings();
  CVnRegistry colors(HKEY_CURRENT_USER, kKey, L"ColorOptions");
  colors.PutInt(L"Replace", 0x123456);
  colors.CloseSection();
  const long changedRow = 19;  // line 20 is changed on the right
  LONG tabBefore = 0, tabAfter = 0;
  {
    vn::test::DialogDriver question(nullptr, [](HWND box) { vn::test::PressButton(box, IDYES); });
    Tool tool(vn::test::Quoted(files.oldPath, widePath));
    ASSERT_TRUE(tool.frame);
    ASSERT_TRUE(question.Acted());

    ::PostMessageW(tool.frame, WM_COMMAND, kToolsEncoding, 0);
    HWND encoding = vn::test::WaitForDialog(tool.frame, L"File Encoding");
    ASSERT_TRUE(encoding);
    int count = static_cast<int>(::SendDlgItemMessageW(encoding, 1067, LB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
      if (::SendDlgItemMessageW(encoding, 1067, LB_GETITEMDATA, i, 0) == 70001)
        ::SendDlgItemMessageW(encoding, 1067, LB_SETCURSEL, i, 0);
    vn::test::PressButton(encoding, IDOK);
    ASSERT_TRUE(vn::test::WaitUntilGone(encoding));
    CVnCompareOptions wide = ByContent();
    wide.m_nTargetCodePage = 70001;
    ExpectLibraryRows(tool, files.oldPath, widePath, wide);
    EXPECT_EQ(0x123456u, RowColor(tool.TextPane(1), changedRow));

    tabBefore = FirstTabStop(tool.TextPane(0));
    ::PostMessageW(tool.frame, WM_COMMAND, kToolsOptions, 0);
    HWND sheet = vn::test::WaitForDialog(nullptr, L"Options");
    ASSERT_TRUE(sheet);
    ::SendMessageW(sheet, PSM_SETCURSEL, 0, 0);
    vn::test::SetItemText(PropSheet_GetCurrentPageHwnd(sheet), 1001, L"8");
    ::SendMessageW(sheet, PSM_SETCURSEL, 1, 0);
    vn::test::PressButton(PropSheet_GetCurrentPageHwnd(sheet), 1051);
    vn::test::PressButton(sheet, IDOK);
    ASSERT_TRUE(vn::test::WaitUntilGone(sheet));
    tabAfter = FirstTabStop(tool.TextPane(0));
    EXPECT_EQ(2 * tabBefore, tabAfter);
    EXPECT_EQ(0xFF0000u, RowColor(tool.TextPane(1), changedRow));
    EXPECT_EQ(1u, tool.Close());
  }
  CVnRegistry stored(HKEY_CURRENT_USER, kKey, L"ColorOptions");
  EXPECT_EQ(0xFF0000u, stored.GetInt(L"Replace", 0));
  stored.CloseSection();
  {
    Tool tool(files.Arguments());
    ASSERT_TRUE(tool.frame);
    EXPECT_EQ(tabAfter, FirstTabStop(tool.TextPane(1)));
    EXPECT_EQ(0xFF0000u, RowColor(tool.TextPane(1), changedRow));
    EXPECT_EQ(1u, tool.Close());
  }
  ForgetSettings();
}

// File > Print through the system's Print dialog to a file: the job runs
// under the document's own title and ends whole.  Under Wine the rich edit
// control lays out no page (docs/printing.md), so the job ends after one
// empty page there; the paging itself is tested in window_tests.
TEST(VncompareEndToEndTest, PrintsBothFilesFromTheFileMenu) {
  Pair files;
  const std::wstring output = vn::test::ScreenshotPath(L"vncompare-print.ps");
  ::DeleteFileW(output.c_str());
  Tool tool(files.Arguments());
  ASSERT_TRUE(tool.frame);
  {
    vn::test::PrintDialogs dialogs({}, output);
    ::PostMessageW(tool.frame, WM_COMMAND, ID_FILE_PRINT, 0);
  }
  // The tool pumps messages while it prints: the job has ended when its
  // file is closed with the end of the document.
  std::string text;
  for (int tries = 0; tries < 600 && text.find("%%EOF") == std::string::npos; ++tries) {
    ::Sleep(100);
    text = vn::test::ReadBytes(output);
  }
  size_t pages = 0;
  for (size_t at = text.find("%%Page:"); at != std::string::npos; at = text.find("%%Page:", at + 1))
    ++pages;
  EXPECT_GE(pages, 1u);
  EXPECT_NE(std::string::npos, text.find("%%Title: Sideview Output"));
  EXPECT_EQ(1u, tool.Close());
}

// A UTF-8 file with LF against a UTF-16LE file with a byte order mark and
// CR LF: the captions name both forms in a warning colour, the status bar
// says what else differs, and in replaced lines the changed words have a
// background of their own.  Files that differ only in form say so, and
// count as the same only when the form is ignored.
TEST(VncompareEndToEndTest, MarksChangedWordsAndShowsDifferencesInForm) {
  vn::test::ScratchDir dir;
  CString oldPath = dir.Path() + _T("report-utf8.txt"), newPath = dir.Path() + _T("report-utf16.txt");
  std::string oldText, newText;
  for (int i = 1; i <= 24; ++i) {
    std::string line = "line " + std::to_string(i) + ": the total of the caf\xC3\xA9 is counted";
    oldText += line + "\n";
    if (i == 5)
      line = "line 5: the total of the caf\xC3\xA9 is summed twice";
    else if (i == 9)
      line = "line 9: the sum of the caf\xC3\xA9 is counted";
    else if (i == 14)
      line = "}";
    newText += line + "\r\n";
  }
  auto writeUtf16 = [](const CString& path, const std::string& utf8) {
    const CString text = vn::test::W(utf8.c_str());
    std::ofstream out(vn::test::FsPath(path), std::ios::binary);
    out.write("\xFF\xFE", 2);
    out.write(reinterpret_cast<const char*>(text.GetString()), text.GetLength() * 2);
  };
  std::ofstream(vn::test::FsPath(oldPath), std::ios::binary) << oldText;
  writeUtf16(newPath, newText);
  ForgetSettings();
  {
    Tool tool(vn::test::Quoted(oldPath, newPath));
    ASSERT_TRUE(tool.frame);
    ExpectLibraryRows(tool, oldPath, newPath);
    ::Sleep(200);
    const vn::test::Picture picture = vn::test::CaptureWindow(tool.frame);
    vn::test::WritePng(picture, vn::test::ScreenshotPath(L"vncompare-changed-words.png"));

    HWND captions[2] = {::GetDlgItem(::GetParent(tool.TextPane(0)), AFX_IDW_STATUS_BAR),
                        ::GetDlgItem(::GetParent(tool.TextPane(1)), AFX_IDW_STATUS_BAR)};
    const std::wstring left = vn::test::StatusText(captions[0], 0), right = vn::test::StatusText(captions[1], 0);
    EXPECT_NE(std::wstring::npos, left.find(L"report-utf8.txt  (")) << std::string(left.begin(), left.end());
    EXPECT_NE(std::wstring::npos, left.find(L"by content, LF)"));
    EXPECT_NE(std::wstring::npos, right.find(L"BOM, CR LF)")) << std::string(right.begin(), right.end());
    // The caption's far end, clear of its text, is in the warning colour.
    CRect frameRect, captionRect;
    ::GetWindowRect(tool.frame, &frameRect);
    for (HWND caption : captions) {
      ::GetWindowRect(caption, &captionRect);
      const size_t x = static_cast<size_t>(captionRect.right - frameRect.left - 30);
      const size_t y = static_cast<size_t>((captionRect.top + captionRect.bottom) / 2 - frameRect.top);
      const unsigned char* rgb = &picture.rgb[(y * static_cast<size_t>(picture.width) + x) * 3];
      EXPECT_EQ(RGB(255, 214, 140), RGB(rgb[0], rgb[1], rgb[2]));
    }
    EXPECT_EQ(L"Also different: encoding and line ends", vn::test::StatusText(::GetDlgItem(tool.frame, AFX_IDW_STATUS_BAR), 0));

    // Row 4 is line 5 on both sides: its changed words, and only they, are
    // in the light shade of the replace colour; line 14 ("}") is not like
    // its old line and is marked whole.
    const COLORREF shade = RGB(191, 191, 255);
    const struct {
      int column;
      long row, at;
      bool marked;
    } cases[] = {
        {0, 4, 0, false},  {0, 4, 29, false}, {0, 4, 34, true},  {0, 4, 39, true},
        {1, 4, 34, true},  {1, 4, 41, true},  {1, 4, 44, true},  {1, 8, 12, true},
        {1, 8, 8, false},  {0, 8, 12, true},  {0, 13, 0, true},  {0, 13, 30, true},
        {1, 13, 0, true},  {0, 3, 12, false}, {1, 3, 12, false},
    };
    for (const auto& c : cases)
      EXPECT_EQ(c.marked ? shade : CLR_DEFAULT, vn::test::CharBackground(tool.TextPane(c.column), c.row, c.at))
          << "pane " << c.column << " row " << c.row << " column " << c.at;
    EXPECT_EQ(1u, tool.Close());
  }
  // The same text in both forms: the status bar says what differs, and the
  // files are the same only when that is ignored.
  std::string sameText;
  for (char c : oldText)
    sameText += c == '\n' ? std::string("\r\n") : std::string(1, c);
  writeUtf16(newPath, sameText);
  const struct {
    const wchar_t* flags;
    unsigned status;
  } runs[] = {{L"", 1}, {L"--ignore-encoding ", 1}, {L"--ignore-encoding --ignore-line-ends ", 0}};
  for (const auto& run : runs) {
    Tool tool(run.flags + vn::test::Quoted(oldPath, newPath));
    ASSERT_TRUE(tool.frame);
    EXPECT_EQ(L"Files differ only in encoding and line ends", vn::test::StatusText(::GetDlgItem(tool.frame, AFX_IDW_STATUS_BAR), 0));
    EXPECT_EQ(run.status, tool.Close()) << std::wstring(run.flags).size();
  }
  ForgetSettings();
}
