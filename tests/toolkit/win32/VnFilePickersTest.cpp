// VnFilePickersTest.cpp - the pickers through the real common dialog: the
// Browse button fills its edit, the directory picker hides the file items,
// and the retriever gathers a fixed number of files across dialogs.
#include "toolkit/VnDialog.h"
#include "toolkit/VnFilePickers.h"

#include "ModalRun.h"
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vn::test;

namespace {

enum : UINT { kLayout = 700, kEdit = 1001, kFileNameCombo = 1148, kFileNameLabel = 1136 };

// A folder of three small files, made current while the test runs, so the
// dialogs open there.
class PickerFolder {
public:
  PickerFolder() {
    wchar_t temp[MAX_PATH];
    ::GetTempPathW(MAX_PATH, temp);
    m_dir = std::wstring(temp) + L"vn-pickers";
    ::CreateDirectoryW(m_dir.c_str(), nullptr);
    for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.txt"})
      ::CloseHandle(::CreateFileW(Path(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ::GetCurrentDirectoryW(MAX_PATH, m_previous);
    ::SetCurrentDirectoryW(m_dir.c_str());
  }
  ~PickerFolder() {
    ::SetCurrentDirectoryW(m_previous);
    for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.txt"})
      ::DeleteFileW(Path(name).c_str());
    ::RemoveDirectoryW(m_dir.c_str());
  }
  std::wstring Path(const wchar_t* name) const { return m_dir + L"\\" + name; }

private:
  std::wstring m_dir;
  wchar_t m_previous[MAX_PATH];
};

// Types a name into the dialog's file name box and presses OK, or Cancel
// for a null name.
void Choose(HWND dialog, const wchar_t* name) {
  if (!name) {
    PressButton(dialog, IDCANCEL);
    return;
  }
  SetItemText(dialog, kFileNameCombo, name);
  PressButton(dialog, IDOK);
}

TEST(CVnFileBrowserTest, BrowseFillsTheEditOnOkOnly) {
  PickerFolder folder;
  CVnDialog dialog(kLayout, nullptr);
  ASSERT_TRUE(dialog.Create(kLayout));
  CVnFileBrowser browser;
  browser.Attach(dialog, kEdit, TRUE);
  EXPECT_EQ(0, ::lstrcmpiW(folder.Path(L"").c_str(), GetItemText(dialog.m_hWnd, kEdit).c_str()));
  const struct { const wchar_t* choice; std::wstring edit; } cases[] = {
      {L"b.txt", folder.Path(L"b.txt")}, {nullptr, folder.Path(L"b.txt")},
      {L"new.txt", folder.Path(L"new.txt")},  // need not exist
  };
  for (const auto& c : cases) {
    std::wstring okText;
    RunModal(dialog.m_hWnd, L"Select File", [&](HWND d) {
      okText = GetItemText(d, IDOK);
      Choose(d, c.choice);
    }, [&] { browser.OnBrowse(0, L"txt", L"Text files|*.txt||"); });
    EXPECT_EQ(L"OK", okText);  // the dialog showed
    EXPECT_EQ(0, ::lstrcmpiW(c.edit.c_str(), GetItemText(dialog.m_hWnd, kEdit).c_str()))
        << VnToUtf8(GetItemText(dialog.m_hWnd, kEdit).c_str());
  }
}

TEST(CVnDirectoryDialogTest, HidesTheFileItemsAndGivesThePath) {
  PickerFolder folder;
  CVnDirectoryDialog picker(L"", 0, nullptr);
  bool nameShown = true, labelShown = true;
  std::wstring okText, chosen = folder.Path(L"pick");
  EXPECT_EQ(IDOK, RunModal(nullptr, L"Select Directory", [&](HWND d) {
    nameShown = ::IsWindowVisible(::GetDlgItem(d, kFileNameCombo));
    labelShown = ::IsWindowVisible(::GetDlgItem(d, kFileNameLabel));
    okText = GetItemText(d, IDOK);
    Choose(d, chosen.c_str());
  }, [&] { return picker.DoModal(); }));
  EXPECT_FALSE(nameShown || labelShown);
  EXPECT_EQ(L"OK", okText);
  EXPECT_EQ(0, ::lstrcmpiW(chosen.c_str(), picker.GetPathName()));
}

TEST(CVnMultipleFileRetrieverTest, GathersTheNumberOfFilesAcrossDialogs) {
  PickerFolder folder;
  // One choice per dialog; null cancels.
  const struct {
    int maxFiles;
    std::vector<const wchar_t*> choices;
    BOOL result;
    std::vector<const wchar_t*> names;
    const char* message;
  } cases[] = {
      {2, {L"\"a.txt\" \"b.txt\""}, TRUE, {L"a.txt", L"b.txt"}, nullptr},
      {2, {L"a.txt", L"c.txt"}, TRUE, {L"a.txt", L"c.txt"}, nullptr},
      {2, {L"a.txt", nullptr}, FALSE, {L"a.txt"}, nullptr},
      {2, {L"\"a.txt\" \"b.txt\" \"c.txt\""}, FALSE, {L"a.txt", L"b.txt"}, "Select only 2 files, please."},
      {0, {L"\"a.txt\" \"b.txt\" \"c.txt\""}, TRUE, {L"a.txt", L"b.txt", L"c.txt"}, nullptr},
  };
  for (const auto& c : cases) {
    CVnMultipleFileRetriever retriever(L"Text files|*.txt|All files|*.*||", c.maxFiles);
    CVnStringArray names;
    ScriptedPrompt prompt({IDOK});
    int dialogs = 0;
    const BOOL result = RunModal(nullptr, L"Open", [&](HWND d) {
      for (const wchar_t* choice : c.choices) {
        if (dialogs++ && !(d = WaitForNextDialog(nullptr, L"Open", d)))
          return;
        Choose(d, choice);
      }
    }, [&] { return retriever.GetFileNames(names); });
    EXPECT_EQ(c.result, result) << c.maxFiles << " " << VnToUtf8(c.choices[0]);
    EXPECT_EQ(static_cast<int>(c.choices.size()), dialogs);
    ASSERT_EQ(static_cast<INT_PTR>(c.names.size()), names.GetSize());
    for (size_t i = 0; i < c.names.size(); ++i)
      EXPECT_EQ(0, ::lstrcmpiW(folder.Path(c.names[i]).c_str(), names[static_cast<INT_PTR>(i)]));
    ASSERT_EQ(c.message ? 1u : 0u, prompt.Asked().size());
    if (c.message)
      EXPECT_EQ(c.message, prompt.Asked()[0].text);
  }
}

}  // namespace
