// VnOptionsSheetTest.cpp - the user edits a frame's options on the option
// sheet, and the File Encoding dialog overrides what intake detected.  Both
// are driven through their controls while they run modally.
#include "window/win32/FrameTestSupport.h"

#include "DialogDriver.h"
#include "Screenshot.h"
#include "ScriptedPrompt.h"
#include "TestSupport.h"
#include "intake/VnDiffFile.h"

#include <dlgs.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>

using namespace vn::test;
using Log = std::vector<std::string>;

namespace {

enum Page { Display, Color, Merge, Compare };
const int kDiffOnly = 1033, kTabSize = 1001, kFontButton = 4, kColorList = 1044, kSample = 1045,
          kDefaultColors = 1051, kIgnoreCase = 1006, kIgnoreWhitespace = 1007;

HWND ShowPage(HWND sheet, int index) {
  ::SendMessageW(sheet, PSM_SETCURSEL, index, 0);
  return reinterpret_cast<HWND>(::SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

void Notify(HWND dialog, int id, int code) {
  ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}

// The Font button opens a modal dialog inside the page's handler, so it is
// posted; the font dialog is then driven on this thread, its size typed.
void ChooseFontSize(HWND sheet, const wchar_t* size, const wchar_t* picture = nullptr) {
  HWND page = ShowPage(sheet, Display);
  ::PostMessageW(page, WM_COMMAND, MAKEWPARAM(kFontButton, BN_CLICKED),
                 reinterpret_cast<LPARAM>(::GetDlgItem(page, kFontButton)));
  HWND font = WaitForNextDialog(nullptr, L"Display Font", sheet);
  ASSERT_TRUE(font);
  ::SendDlgItemMessageW(font, cmb3, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(size));
  Notify(font, cmb3, CBN_SELCHANGE);
  if (picture) {
    ::RedrawWindow(font, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    WritePng(CaptureWindow(font), ScreenshotPath(picture));
  }
  PressButton(font, IDOK);
  ASSERT_TRUE(WaitUntilGone(font));
}

// The sample's colour where it reads at its first character.
COLORREF SampleColor(HWND page) {
  HWND sample = ::GetDlgItem(page, kSample);
  ::SendMessageW(sample, EM_SETSEL, 0, 1);
  CHARFORMATW format = {};
  format.cbSize = sizeof(format);
  ::SendMessageW(sample, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  return format.crTextColor;
}

class OptionsSheetTest : public ::testing::Test {
protected:
  // A shown frame whose colours differ from the sheet's defaults.
  void SetUp() override {
    if (!m_frame.m_hWnd) {
      ASSERT_TRUE(m_frame.Make());
    }
    m_frame.ShowWindow(SW_SHOWNORMAL);
    m_frame.SetColors(0x111111, 0x222222, 0x333333, 0x444444, false);
    m_frame.m_log.clear();
  }
  // Runs the sheet while action works on it; gives whether the action ran.
  bool Run(int reduced, const std::function<void(HWND)>& action) {
    DialogDriver driver(nullptr, action, L"Options");
    m_frame.OnOptions(reduced);
    return driver.Acted();
  }
  COLORREF Replace() const { return m_frame.GetReplaceCharFormat().crTextColor; }

  FrameTestApp m_app;
  TestFrame m_frame;
};

}  // namespace

// On OK each change sets off its own work once, in the order display,
// colours, compare; nothing else runs.  Cancel changes nothing.
TEST_F(OptionsSheetTest, OkSetsOffExactlyTheWorkOfWhatChangedAndCancelNothing) {
  const struct {
    const char* what;
    std::function<void(HWND)> act;
    std::function<bool(const Log&)> expect;
    int button;
  } cases[] = {
      {"nothing changed", [](HWND) {}, [](const Log& log) { return log.empty(); }, IDOK},
      {"font and colour",
       [](HWND s) {
         ChooseFontSize(s, L"12", L"options-font.png");
         PressButton(ShowPage(s, Color), kDefaultColors);
       },
       [](const Log& log) {
         return log.size() >= 2 && log.front().rfind("font 240 ", 0) == 0 && log.back() == "redisplay" &&
                std::count(log.begin(), log.end(), "redisplay") == 1;
       },
       IDOK},
      {"differences only and a colour",
       [](HWND s) {
         SetItemCheck(ShowPage(s, Display), kDiffOnly, true);
         PressButton(ShowPage(s, Color), kDefaultColors);
       },
       [](const Log& log) { return log == Log{"redisplay", "redisplay"}; }, IDOK},
      {"both compare options",
       [](HWND s) {
         HWND page = ShowPage(s, Compare);
         SetItemCheck(page, kIgnoreCase, true);
         SetItemCheck(page, kIgnoreWhitespace, true);
       },
       [](const Log& log) { return log == Log{"recompare"}; }, IDOK},
      {"default colours and a tab size, cancelled",
       [](HWND s) {
         PressButton(ShowPage(s, Color), kDefaultColors);
         SetItemText(ShowPage(s, Display), kTabSize, L"7");
       },
       [this](const Log& log) {
         return log.empty() && Replace() == 0x222222u && m_frame.GetDisplayOptions().GetTabSize() == 4u;
       },
       IDCANCEL},
  };
  for (const auto& c : cases) {
    SetUp();
    ASSERT_TRUE(Run(0, [&](HWND s) { c.act(s), PressButton(s, c.button); })) << c.what;
    EXPECT_TRUE(c.expect(m_frame.m_log)) << c.what << ": " << ::testing::PrintToString(m_frame.m_log);
    EXPECT_EQ(1, m_frame.m_bEditMergedFile) << c.what;
    EXPECT_EQ(CString(L"NOTEPAD.EXE"), m_frame.m_strEditor) << c.what;
  }
  EXPECT_EQ(1, m_frame.m_bIgnoreCase);
  EXPECT_EQ(1, m_frame.m_bIgnoreWhiteSpace);
}

// Display and Color only; the hidden differences-only box still carries
// the frame's value back.
TEST_F(OptionsSheetTest, TheReducedSheetHasTwoTabsAndKeepsDifferencesOnly) {
  CVnDisplayOptions options = m_frame.GetDisplayOptions();
  options.SetDisplayDiffOnly(1);
  m_frame.ApplyDisplayOptions(options, 0);
  m_frame.m_log.clear();
  int tabs = 0;
  bool boxShown = true;
  ASSERT_TRUE(Run(1, [&](HWND s) {
    tabs = static_cast<int>(::SendMessageW(PropSheet_GetTabControl(s), TCM_GETITEMCOUNT, 0, 0));
    boxShown = ::IsWindowVisible(::GetDlgItem(ShowPage(s, Display), kDiffOnly)) != 0;
    PressButton(s, IDOK);
  }));
  EXPECT_EQ(2, tabs);
  EXPECT_FALSE(boxShown);
  EXPECT_EQ(1, m_frame.GetDisplayOptions().GetDisplayDiffOnly());
  EXPECT_TRUE(m_frame.m_log.empty());
}

// The range check keeps the sheet open with the platform's message; a
// refused size is then corrected to 3.
TEST_F(OptionsSheetTest, TabSizesOutsideOneToEightAreRefused) {
  const struct {
    const wchar_t* typed;
    unsigned stored;
  } cases[] = {{L"0", 3}, {L"9", 3}, {L"1", 1}, {L"8", 8}};
  for (const auto& c : cases) {
    SetUp();
    ScriptedPrompt prompt({IDOK});
    bool openAfterOk = false;
    ASSERT_TRUE(Run(0, [&](HWND s) {
      HWND page = ShowPage(s, Display);
      SetItemText(page, kTabSize, c.typed);
      PressButton(s, IDOK);
      openAfterOk = ::IsWindow(s) && PropSheet_GetCurrentPageHwnd(s) != nullptr;
      if (openAfterOk) {
        SetItemText(page, kTabSize, L"3");
        PressButton(s, IDOK);
      }
    }));
    const bool refused = c.stored == 3;
    EXPECT_EQ(refused, openAfterOk) << VnToUtf8(c.typed);
    EXPECT_EQ(c.stored, m_frame.GetDisplayOptions().GetTabSize()) << VnToUtf8(c.typed);
    ASSERT_EQ(refused ? 1u : 0u, prompt.Asked().size()) << VnToUtf8(c.typed);
    if (refused) {
      EXPECT_EQ("Enter a positive integer between 1 and 8.", prompt.Asked()[0].text);
    }
  }
}

// The sample shows one colour at a time, that of the selected row; each
// page is pictured as the user sees it.
TEST_F(OptionsSheetTest, TheSampleShowsTheSelectedRowsColour) {
  std::vector<COLORREF> seen;
  ASSERT_TRUE(Run(0, [&](HWND s) {
    const wchar_t* pictures[] = {L"options-display.png", L"options-color.png", L"options-merge.png",
                                 L"options-compare.png"};
    for (int page = Display; page <= Compare; ++page) {
      ShowPage(s, page);
      ::RedrawWindow(s, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
      WritePng(CaptureWindow(s), ScreenshotPath(pictures[page]));
    }
    HWND page = ShowPage(s, Color);
    for (int row = 0; row < 4; ++row) {
      ::SendDlgItemMessageW(page, kColorList, LB_SETCURSEL, row, 0);
      Notify(page, kColorList, LBN_SELCHANGE);
      seen.push_back(SampleColor(page));
    }
    PressButton(s, IDCANCEL);
  }));
  EXPECT_EQ((std::vector<COLORREF>{0x111111, 0x222222, 0x333333, 0x444444}), seen);
}

//===-- File Encoding ------------------------------------------------------===//

namespace {

int Selected(HWND dialog, int list) {
  int index = static_cast<int>(::SendDlgItemMessageW(dialog, list, LB_GETCURSEL, 0, 0));
  return index < 0 ? -1 : static_cast<int>(::SendDlgItemMessageW(dialog, list, LB_GETITEMDATA, index, 0));
}

void SelectPage(HWND dialog, int list, unsigned codePage) {
  int count = static_cast<int>(::SendDlgItemMessageW(dialog, list, LB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i)
    if (static_cast<unsigned>(::SendDlgItemMessageW(dialog, list, LB_GETITEMDATA, i, 0)) == codePage)
      ::SendDlgItemMessageW(dialog, list, LB_SETCURSEL, i, 0);
}

}  // namespace

// Both lists start on the files' pages; only a changed page reaches its
// file, and the frame reads its files again once.  A UTF-16 file without a
// mark, binary to detection, then reads as text.
TEST_F(OptionsSheetTest, TheEncodingDialogOverridesOnlyWhatTheUserChanged) {
  ScratchDir dir;
  const CString path = dir.Path() + L"utf16.txt";
  std::ofstream(std::filesystem::path(path.GetString()), std::ios::binary).write("a\0b\0\r\0\n\0", 8);
  CVnDiffFile first, second;
  first.SetFileName(path);
  second.SetFileName(path);
  first.SetFileEncoding(850);
  int selectedFirst = 0, selectedSecond = 0;
  std::wstring systemPage;
  for (bool change : {false, true}) {
    m_frame.m_log.clear();
    DialogDriver driver(m_frame.m_hWnd, [&](HWND d) {
      selectedFirst = Selected(d, 1063);
      selectedSecond = Selected(d, 1067);
      systemPage = GetItemText(d, 1066);
      if (change) {
        WritePng(CaptureWindow(d), ScreenshotPath(L"file-encoding.png"));
        SelectPage(d, 1067, 70001);
      }
      PressButton(d, IDOK);
    }, L"File Encoding");
    m_frame.OnEncoding(first, second);
    ASSERT_TRUE(driver.Acted());
    EXPECT_EQ(change ? Log{"reopen"} : Log{}, m_frame.m_log);
  }
  EXPECT_EQ(850, selectedFirst);
  EXPECT_EQ(static_cast<int>(::GetACP()), selectedSecond);
  EXPECT_FALSE(systemPage.empty());
  EXPECT_EQ(850u, first.GetCodePage());
  ASSERT_TRUE(second.IsEncodingSet());
  EXPECT_EQ(70001u, second.GetCodePage());
  unsigned char* text = nullptr;
  unsigned long length = 0;
  ASSERT_TRUE(second.GetFileContents(text, length));
  EXPECT_EQ(std::wstring(L"ab\r\n"), std::wstring(reinterpret_cast<wchar_t*>(text), length / 2));
}
