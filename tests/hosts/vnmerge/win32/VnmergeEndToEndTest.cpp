// VnmergeEndToEndTest.cpp - the merge tool as version control starts it:
// three files with two clean changes and one conflict, read back through
// the panes' controls, the conflict resolved from the Merge menu, the
// merged file saved and the exit status read; a save that keeps the
// conflict; and bad command lines that must write nothing.
#include "DialogDriver.h"
#include "HostProcess.h"
#include "Screenshot.h"
#include "TestSupport.h"

#include "afx/win32/AfxRes.h"
#include "foundation/VnRegistry.h"

#include <gtest/gtest.h>

#include <commctrl.h>
#include <richedit.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

const UINT kMergeLocal = 32780, kMergeRemote = 32781, kMergeLocalThenRemote = 32782, kNextConflict = 32771;
const UINT kPane = AFX_IDW_PANE_FIRST, kMergedPane = AFX_IDW_PANE_FIRST + 16;

std::wstring ToolPath() { return vn::test::HostProcess::Beside(L"vnmerge.exe"); }

void ForgetSettings() { CVnRegistry().DeleteSection(HKEY_CURRENT_USER, L"Software\\VnReconcile", L"vnmerge"); }

void WriteFile(const CString& path, const std::string& bytes) {
  std::ofstream(std::filesystem::path(path.GetString()), std::ios::binary) << bytes;
}

std::set<std::wstring> Names(const CString& dir) {
  std::set<std::wstring> names;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(dir.GetString())))
    names.insert(entry.path().filename().wstring());
  return names;
}

// BASE has ten lines.  LOCAL changes line 2, REMOTE line 9: clean changes.
// Both change line 5, LOCAL into two lines: the conflict.
struct Triple {
  vn::test::ScratchDir dir;
  CString base = dir.Path() + _T("base.txt"), local = dir.Path() + _T("local.txt"),
          remote = dir.Path() + _T("remote.txt"), merged = dir.Path() + _T("merged.txt");
  Triple() {
    std::string b, l, r;
    for (int i = 1; i <= 10; ++i) {
      std::string line = "line " + std::to_string(i) + "\n";
      b += line;
      l += i == 2 ? "local two\n" : i == 5 ? "local five a\nlocal five b\n" : line;
      r += i == 9 ? "remote nine\n" : i == 5 ? "remote five\n" : line;
    }
    WriteFile(base, b);
    WriteFile(local, l);
    WriteFile(remote, r);
  }
  std::wstring Arguments() const { return vn::test::Quoted(base, local, remote) + L" -o " + vn::test::Quoted(merged); }
};

struct Tool : vn::test::HostProcess {
  explicit Tool(const std::wstring& arguments) : HostProcess(ToolPath(), arguments) {}
  // 0 LOCAL and 1 REMOTE in the nested splitter, 2 the merged pane below;
  // a text pane has its pane's identifier.
  HWND TextPane(int k) const {
    HWND outer = ::GetDlgItem(frame, AFX_IDW_PANE_FIRST);
    HWND pane = k < 2 ? ::GetDlgItem(::GetDlgItem(outer, kPane), kPane + k) : ::GetDlgItem(outer, kMergedPane);
    return ::GetDlgItem(pane, ::GetDlgCtrlID(pane));
  }
  std::vector<std::wstring> Rows(int k) const { return vn::test::ControlRows(TextPane(k)); }
  COLORREF Background(int k, long row, long column) const { return vn::test::CharBackground(TextPane(k), row, column); }
  // The selection's first and last rows.
  std::pair<long, long> Selected(int k) const {
    DWORD start = 0, end = 0;
    ::SendMessageW(TextPane(k), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    long first = static_cast<long>(::SendMessageW(TextPane(k), EM_EXLINEFROMCHAR, 0, start));
    long last = static_cast<long>(::SendMessageW(TextPane(k), EM_EXLINEFROMCHAR, 0, end > start ? end - 1 : end));
    return {first, last};
  }
  // The status bar's conflict count, once the idle update has written it.
  std::wstring Conflicts(const std::wstring& expected) const {
    std::wstring text;
    HWND bar = ::GetDlgItem(frame, AFX_IDW_STATUS_BAR);
    for (int tries = 0; tries < 100 && (text = vn::test::StatusText(bar, 1)) != expected; ++tries)
      ::Sleep(50);
    return text;
  }
};

const wchar_t kKey[] = L"Software\\VnReconcile\\vnmerge";

// The editor option: off, or a command that records the file it was
// given in record.
void SetEditor(bool on, const std::wstring& record = L"") {
  ForgetSettings();
  CVnRegistry registry(HKEY_CURRENT_USER, kKey, L"MergeOptions");
  registry.PutInt(L"EditMergedFile", on ? 1 : 0);
  registry.PutString(L"Editor", (L"cmd.exe /c >\"" + record + L"\" echo").c_str());
  registry.CloseSection();
}

const std::vector<std::wstring> kLocalRows = {L"line 1", L"local two", L"line 3", L"line 4", L"local five a",
                                              L"local five b", L"line 6", L"line 7", L"line 8", L"line 9",
                                              L"line 10"};
const std::vector<std::wstring> kRemoteRows = {L"line 1", L"line 2", L"line 3", L"line 4", L"remote five", L"",
                                               L"line 6", L"line 7", L"line 8", L"remote nine", L"line 10"};

}  // namespace

TEST(VnmergeEndToEndTest, ResolvesTheConflictFromTheMenuAndSaves) {
  Triple files;
  vn::test::ScratchDir elsewhere;
  const CString record = elsewhere.Path() + _T("edited.txt");
  SetEditor(true, record.GetString());
  Tool tool(files.Arguments());
  ASSERT_TRUE(tool.frame);

  // Above: the regions level, the conflict's shorter side padded.  Below:
  // both clean changes taken, the conflict between its markers.
  EXPECT_EQ(kLocalRows, tool.Rows(0));
  EXPECT_EQ(kRemoteRows, tool.Rows(1));
  const std::vector<std::wstring> marked = {
      L"line 1", L"local two",    L"line 3",         L"line 4", L"<<<<<<< LOCAL", L"local five a",
      L"local five b", L"=======", L"remote five", L">>>>>>> REMOTE", L"line 6", L"line 7",
      L"line 8", L"remote nine", L"line 10"};
  EXPECT_EQ(marked, tool.Rows(2));
  EXPECT_EQ(L"Conflicts left: 1", tool.Conflicts(L"Conflicts left: 1"));

  // The tool opens on the conflict, selected in all three panes.
  EXPECT_EQ(std::make_pair(4L, 5L), tool.Selected(0));
  EXPECT_EQ(std::make_pair(4L, 5L), tool.Selected(1));
  EXPECT_EQ(std::make_pair(4L, 9L), tool.Selected(2));
  ::Sleep(200);
  vn::test::WritePng(vn::test::CaptureWindow(tool.frame), vn::test::ScreenshotPath(L"vnmerge.png"));
  // (The probes below move the selection.)  Changed words in a light shade of their region's colour, on the side
  // that changed: LOCAL's rewritten line 2 whole (insert colour), the
  // conflict's paired lines word by word (delete colour).
  const COLORREF insertShade = RGB(191, 223, 191), conflictShade = RGB(255, 191, 191);
  const struct {
    int pane;
    long row, column;
    COLORREF background;
  } marks[] = {
      {0, 1, 0, insertShade},   {0, 1, 8, insertShade},     {1, 1, 0, CLR_DEFAULT}, {0, 4, 0, conflictShade},
      {0, 4, 7, CLR_DEFAULT},   {0, 4, 11, conflictShade},  {1, 4, 0, conflictShade}, {1, 4, 8, CLR_DEFAULT},
      {0, 5, 0, CLR_DEFAULT},   {0, 0, 0, CLR_DEFAULT},
  };
  for (const auto& m : marks)
    EXPECT_EQ(m.background, tool.Background(m.pane, m.row, m.column))
        << "pane " << m.pane << " row " << m.row << " column " << m.column;

  ::SendMessageW(tool.frame, WM_COMMAND, kMergeRemote, 0);
  std::vector<std::wstring> resolved = marked;
  resolved.erase(resolved.begin() + 4, resolved.begin() + 10);
  resolved.insert(resolved.begin() + 4, L"remote five");
  EXPECT_EQ(resolved, tool.Rows(2));
  EXPECT_EQ(std::make_pair(4L, 4L), tool.Selected(2));
  EXPECT_EQ(L"No conflicts left", tool.Conflicts(L"No conflicts left"));

  ::SendMessageW(tool.frame, WM_COMMAND, ID_FILE_SAVE, 0);
  EXPECT_EQ(0u, tool.Close());
  EXPECT_EQ("line 1\nlocal two\nline 3\nline 4\nremote five\nline 6\nline 7\nline 8\nremote nine\nline 10\n",
            vn::test::ReadBytes(vn::test::FsPath(files.merged)));
  EXPECT_EQ((std::set<std::wstring>{L"base.txt", L"local.txt", L"remote.txt", L"merged.txt"}),
            Names(files.dir.Path()));
  // The editor was started on the merged file.
  std::string edited;
  for (int tries = 0; tries < 100 && edited.empty(); ++tries, ::Sleep(50))
    edited = vn::test::ReadBytes(vn::test::FsPath(record));
  std::wstring wide = files.merged.GetString();
  EXPECT_NE(std::string::npos, edited.find(std::string(wide.begin(), wide.end()))) << edited;
  ForgetSettings();
}

// A save with the conflict left asks first; yes writes the markers, and
// the status says the merge is not done.
TEST(VnmergeEndToEndTest, SavingWithAConflictLeftAsksAndEndsWithStatusOne) {
  Triple files;
  SetEditor(false);
  Tool tool(files.Arguments());
  ASSERT_TRUE(tool.frame);
  {
    vn::test::DialogDriver question(tool.frame, [](HWND box) { vn::test::PressButton(box, IDYES); });
    ::SendMessageW(tool.frame, WM_COMMAND, ID_FILE_SAVE, 0);
    ASSERT_TRUE(question.Acted());
  }
  std::string withMarkers = vn::test::ReadBytes(vn::test::FsPath(files.merged));
  EXPECT_NE(std::string::npos,
            withMarkers.find("<<<<<<< LOCAL\nlocal five a\nlocal five b\n=======\nremote five\n>>>>>>> REMOTE\n"))
      << withMarkers;
  EXPECT_EQ(1u, tool.Close());
  ForgetSettings();
}

// Closing without saving writes nothing and says so in the status; LOCAL
// then REMOTE comes out in that order.
TEST(VnmergeEndToEndTest, ClosedWithoutSavingEndsWithStatusOne) {
  Triple files;
  SetEditor(false);
  Tool tool(files.Arguments());
  ASSERT_TRUE(tool.frame);
  ::SendMessageW(tool.frame, WM_COMMAND, kNextConflict, 0);
  ::SendMessageW(tool.frame, WM_COMMAND, kMergeLocalThenRemote, 0);
  std::vector<std::wstring> rows = tool.Rows(2);
  ASSERT_GE(rows.size(), 8u);
  EXPECT_EQ((std::vector<std::wstring>{L"local five a", L"local five b", L"remote five", L"line 6"}),
            std::vector<std::wstring>(rows.begin() + 4, rows.begin() + 8));
  EXPECT_EQ(1u, tool.Close());
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(files.merged.GetString())));
  ForgetSettings();
}

// Trouble shows no window, writes nothing and ends with status 2.
TEST(VnmergeEndToEndTest, BadInputEndsWithStatusTwoAndWritesNothing) {
  Triple files;
  SetEditor(false);
  const CString binary = files.dir.Path() + _T("binary.bin");
  WriteFile(binary, std::string("line 1\n\0\1\2\3 bytes\n", 16));
  using vn::test::Quoted;
  const std::wstring three = Quoted(files.base, files.local, files.remote), out = L" -o " + Quoted(files.merged);
  const std::wstring cases[] = {
      L"--headless " + Quoted(files.base, L"Z:\\no\\such\\file.txt", files.remote) + out,
      L"--headless " + three + L" -o " + Quoted(files.dir.Path() + _T("missing\\merged.txt")),
      L"--headless " + three,                             // no -o
      L"--headless " + Quoted(files.local) + out,         // one side only
      L"--headless --no-such-option " + three + out,
      L"--headless \"unclosed " + three + out,
      L"--headless " + Quoted(files.base, files.dir.Path().Left(files.dir.Path().GetLength() - 1), files.remote) +
          out,  // a directory
      // The binary question's default answer lets it through; the tool
      // still refuses it.
      L"--headless " + Quoted(files.base, binary, files.remote) + out,
  };
  for (const std::wstring& arguments : cases) {
    Tool tool(arguments);
    EXPECT_EQ(nullptr, tool.frame) << std::string(arguments.begin(), arguments.end());
    EXPECT_EQ(2u, tool.Wait()) << std::string(arguments.begin(), arguments.end());
  }
  EXPECT_EQ((std::set<std::wstring>{L"base.txt", L"local.txt", L"remote.txt", L"binary.bin"}),
            Names(files.dir.Path()));
}

// Without a base every difference is a conflict.  Next Conflict moves the
// selection in all three panes, and a choice there counts down the status.
TEST(VnmergeEndToEndTest, TwoWayMergeStepsThroughItsConflicts) {
  Triple files;
  SetEditor(false);
  Tool tool(vn::test::Quoted(files.local, files.remote) + L" -o " + vn::test::Quoted(files.merged));
  ASSERT_TRUE(tool.frame);
  EXPECT_EQ(L"Conflicts left: 3", tool.Conflicts(L"Conflicts left: 3"));
  EXPECT_EQ(std::make_pair(1L, 1L), tool.Selected(0));
  EXPECT_EQ(std::make_pair(1L, 5L), tool.Selected(2));
  ::SendMessageW(tool.frame, WM_COMMAND, kNextConflict, 0);
  EXPECT_EQ(std::make_pair(4L, 5L), tool.Selected(0));
  EXPECT_EQ(std::make_pair(4L, 5L), tool.Selected(1));
  EXPECT_EQ(std::make_pair(8L, 13L), tool.Selected(2));
  ::SendMessageW(tool.frame, WM_COMMAND, kMergeLocal, 0);
  EXPECT_EQ(L"Conflicts left: 2", tool.Conflicts(L"Conflicts left: 2"));
  std::vector<std::wstring> rows = tool.Rows(2);
  ASSERT_GE(rows.size(), 11u);
  EXPECT_EQ((std::vector<std::wstring>{L"line 4", L"local five a", L"local five b", L"line 6"}),
            std::vector<std::wstring>(rows.begin() + 7, rows.begin() + 11));
  EXPECT_EQ(1u, tool.Close());
  ForgetSettings();
}
