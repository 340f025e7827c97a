// VnDialogTest.cpp - CVnDialog run modal and driven as a user would: the
// read-only mode, data exchange checks and the validators, each showing its
// message through the prompt and leaving the focus on the offending control.
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxRes.h"
#include "afx/win32/AfxResource.h"
#include "afx/win32/CStatusBar.h"

#include <commctrl.h>
#include "foundation/VnException.h"
#include "toolkit/VnDialog.h"

#include "ModalRun.h"
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace vn::test;

namespace {

enum : UINT { kLayout = 700, kEdit = 1001, kSmall = 1004 };

// The layout dialog whose OK runs a check given by the test.
class CheckedDialog : public CVnDialog {
public:
  CheckedDialog() : CVnDialog(kLayout, nullptr) {}
  std::function<BOOL(CheckedDialog&)> m_check;
  CString m_text;
  UINT m_count = 0;
  CString m_file;
  BOOL m_bResult = FALSE;

  using CVnDialog::ValidateFile;
  using CVnDialog::ValidatePath;

protected:
  void DoDataExchange(CDataExchange* dx) override {
    DDX_Text(dx, kEdit, m_text);
    DDV_NotBlank(dx, ::GetModuleHandleW(L"vnreconcile.dll"), m_text, 32799);
    DDX_Text(dx, kSmall, m_count);
    DDV_MinMaxUInt(dx, m_count, 1, 10);
  }
  void OnOK() override {
    if (m_check && !m_check(*this))
      return;
    CVnDialog::OnOK();
  }
};

TEST(CVnDialogTest, ReadOnlyShowsOnlyAndAlwaysCancels) {
  const struct {
    bool readOnly;
    UINT endWith;
    INT_PTR result;
    const wchar_t* title;
    bool okShown;
    const wchar_t* cancelText;
  } cases[] = {
      {false, IDOK, IDOK, L"Layout", true, L"Cancel"}, {true, IDOK, IDCANCEL, L"Layout (Read-Only)", false, L"Close"},
      {true, IDCANCEL, IDCANCEL, L"Layout (Read-Only)", false, L"Close"},
  };
  for (const auto& c : cases) {
    CheckedDialog dialog;
    dialog.m_text = L"x";
    dialog.m_count = 3;
    if (c.readOnly)
      dialog.SetReadOnly();
    std::wstring title, cancelText;
    bool okShown = false, okEnabled = false;
    const INT_PTR result = RunModal(nullptr, L"Layout", [&](HWND d) {
      title = WindowText(d);
      okShown = ::IsWindowVisible(::GetDlgItem(d, IDOK));
      okEnabled = ::IsWindowEnabled(::GetDlgItem(d, IDOK));
      cancelText = GetItemText(d, IDCANCEL);
      ::SendMessageW(d, WM_COMMAND, c.endWith, 0);
    }, [&] { return dialog.DoModal(); });
    EXPECT_EQ(c.result, result) << c.readOnly;
    EXPECT_EQ(c.title, title);
    EXPECT_EQ(c.okShown, okShown);
    EXPECT_EQ(c.okShown, okEnabled);
    EXPECT_EQ(c.cancelText, cancelText);
  }
}

// Each OK with bad data shows one message and leaves the dialog open with
// the focus on the control; good data closes it with the values taken.
TEST(CVnDialogTest, ExchangeChecksReportAndFocusTheControl) {
  const struct { const wchar_t* text; const wchar_t* count; const char* message; UINT focused; } attempts[] = {
      {L"   ", L"3", "The text cannot be empty", kEdit},
      {L"name", L"42", "Enter a positive integer between 1 and 10.", kSmall},
      {L"name", L"-1", "Enter a positive integer.", kSmall}, {L"name", L"x7", "Enter a positive integer.", kSmall},
      {L"name", L"4294967296", "Enter a positive integer.", kSmall},
  };
  CheckedDialog dialog;
  ScriptedPrompt prompt({IDOK, IDOK, IDOK, IDOK, IDOK});
  std::vector<UINT> focused;
  const INT_PTR result = RunModal(nullptr, L"Layout", [&](HWND d) {
    for (const auto& a : attempts) {
      SetItemText(d, kEdit, a.text);
      SetItemText(d, kSmall, a.count);
      PressButton(d, IDOK);
      focused.push_back(static_cast<UINT>(::GetDlgCtrlID(FocusOf(d))));
    }
    SetItemText(d, kEdit, L"  name ");
    SetItemText(d, kSmall, L"7");
    PressButton(d, IDOK);
  }, [&] { return dialog.DoModal(); });
  EXPECT_EQ(IDOK, result);
  EXPECT_EQ(CString(L"name "), dialog.m_text);
  EXPECT_EQ(7u, dialog.m_count);
  ASSERT_EQ(std::size(attempts), prompt.Asked().size());
  for (size_t i = 0; i < std::size(attempts); ++i) {
    EXPECT_EQ(attempts[i].message, prompt.Asked()[i].text);
    EXPECT_EQ(attempts[i].focused, focused[i]) << i;
  }
}

// A good path is written back in full, with the end slash when asked for;
// the caller's string holds the same text.
TEST(CVnDialogTest, ValidatePathWritesTheFullFormBack) {
  wchar_t temp[MAX_PATH];
  ::GetTempPathW(MAX_PATH, temp);
  std::wstring dir = std::wstring(temp) + L"vn-validate-dir";
  const struct {
    std::wstring text;
    BOOL appendSlash;
    std::wstring written;  // empty: refused
  } cases[] = {
      {L"  " + dir + L"  ", TRUE, dir + L"\\"}, {dir + L"\\sub", FALSE, dir + L"\\sub"}, {L"", TRUE, L""},
  };
  for (const auto& c : cases) {
    CheckedDialog dialog;
    dialog.m_check = [&](CheckedDialog& self) {
      CString path = GetItemText(self.m_hWnd, kEdit).c_str();
      self.m_bResult = self.ValidatePath(kEdit, path, c.appendSlash, static_cast<UINT>(-1), static_cast<UINT>(-1));
      self.m_file = path;
      return FALSE;
    };
    ScriptedPrompt prompt({IDOK});
    std::wstring written;
    RunModal(nullptr, L"Layout", [&](HWND d) {
      SetItemText(d, kEdit, c.text.c_str());
      PressButton(d, IDOK);
      written = GetItemText(d, kEdit);
      PressButton(d, IDCANCEL);
    }, [&] { return dialog.DoModal(); });
    EXPECT_EQ(!c.written.empty(), dialog.m_bResult != FALSE) << VnToUtf8(c.text.c_str());
    if (c.written.empty()) {
      ASSERT_EQ(1u, prompt.Asked().size());
      EXPECT_EQ("The specified path is blank.", prompt.Asked()[0].text);
      continue;
    }
    EXPECT_EQ(0, ::lstrcmpiW(c.written.c_str(), written.c_str())) << VnToUtf8(written.c_str());
    EXPECT_EQ(written, std::wstring(dialog.m_file));
  }
}

TEST(CVnDialogTest, ValidatorsReportAndFocusInOneStep) {
  wchar_t temp[MAX_PATH];
  ::GetTempPathW(MAX_PATH, temp);
  std::wstring existing = std::wstring(temp) + L"vn-validate.txt";
  ::CloseHandle(::CreateFileW(existing.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  std::wstring missing = std::wstring(temp) + L"vn-no-such-file.txt";
  const struct {
    std::wstring text;
    BOOL mustExist;
    const char* message;  // null: accepted
  } cases[] = {
      {L"   ", TRUE, "The specified path is blank."}, {missing, TRUE, "The specified file does not exist."},
      {L"  " + existing + L" ", TRUE, nullptr}, {missing, FALSE, nullptr},
      {L"C:\\a<b>\\c.txt", FALSE, "The specified path is incorrect."},
  };
  for (const auto& c : cases) {
    CheckedDialog dialog;
    dialog.m_text = L"x";
    dialog.m_count = 1;
    dialog.m_check = [&](CheckedDialog& self) {
      CString file = GetItemText(self.m_hWnd, kEdit).c_str();
      self.m_bResult = self.ValidateFile(kEdit, file, c.mustExist, static_cast<UINT>(-1), static_cast<UINT>(-1),
                                         static_cast<UINT>(-1));
      self.m_file = file;
      return FALSE;
    };
    ScriptedPrompt prompt({IDOK});
    HWND focus = nullptr, edit = nullptr;
    std::wstring written;
    RunModal(nullptr, L"Layout", [&](HWND d) {
      PressButton(d, kSmall);  // a control other than the one checked has the focus
      ::SendMessageW(d, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(::GetDlgItem(d, IDCANCEL)), TRUE);
      SetItemText(d, kEdit, c.text.c_str());
      PressButton(d, IDOK);
      focus = FocusOf(d);
      edit = ::GetDlgItem(d, kEdit);
      written = GetItemText(d, kEdit);
      PressButton(d, IDCANCEL);
    }, [&] { return dialog.DoModal(); });
    EXPECT_EQ(c.message == nullptr, dialog.m_bResult != FALSE) << VnToUtf8(c.text.c_str());
    if (c.message) {
      ASSERT_EQ(1u, prompt.Asked().size());
      EXPECT_EQ(c.message, prompt.Asked()[0].text);
      EXPECT_EQ(edit, focus);
    } else {
      EXPECT_TRUE(prompt.Asked().empty());
      EXPECT_EQ(std::wstring(dialog.m_file), written);
    }
  }
  ::DeleteFileW(existing.c_str());
}

// A local dialog names the module of its template; the host's module is
// not searched when the named one lacks it.
class ModuleDialog : public CVnLocalDialog {
public:
  ModuleDialog(HINSTANCE module, UINT id) : CVnLocalDialog(id, nullptr), m_module(module) {}

protected:
  HINSTANCE GetDialogResourceModule() override { return m_module; }
  HINSTANCE m_module;
};

// 1 when f raised CVnOSException, 0 when it raised nothing, -1 for another kind.
template <class F>
int OsFailure(F f) {
  try {
    f();
  } catch (CException* e) {
    const int kind = e->IsKindOf(RUNTIME_CLASS(CVnOSException)) ? 1 : -1;
    e->Delete();
    return kind;
  }
  return 0;
}

TEST(CVnLocalDialogTest, TemplateComesOnlyFromTheNamedModule) {
  const struct { HINSTANCE module; UINT id; bool found; } cases[] = {
      {::GetModuleHandleW(nullptr), 700, true},
      {::GetModuleHandleW(nullptr), 0x10000 + 700, true},  // only the low 16 bits name it
      {::GetModuleHandleW(L"vnreconcile.dll"), 700, false},
  };
  for (const auto& c : cases) {
    ModuleDialog modeless(c.module, c.id), modal(c.module, c.id);
    EXPECT_EQ(c.found ? 0 : 1, OsFailure([&] {
      ASSERT_TRUE(modeless.Create(c.id, nullptr));
      EXPECT_EQ(L"Layout", WindowText(modeless.m_hWnd));
    })) << c.id;
    EXPECT_EQ(c.found ? 0 : 1, OsFailure([&] {
      DialogDriver driver(nullptr, [](HWND d) { PressButton(d, IDCANCEL); }, L"Layout", c.found ? 5000 : 10);
      EXPECT_EQ(IDCANCEL, modal.DoModal());
      EXPECT_TRUE(driver.Acted());
    })) << c.id;
  }
}

enum : UINT { kChecked = 3001, kHandled = 3002, kUnhandled = 3003, kSubFirst = 3004, kSystemRange = 0xF100 };

// A dialog with a menu: its popups get the command updates a frame's
// would.
class MenuDialog : public CVnDialog {
public:
  MenuDialog() : CVnDialog(700, nullptr) {}

protected:
  void OnCommandStub() {}
  void OnUpdateChecked(CCmdUI* ui) { ui->SetCheck(1); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(MenuDialog, CVnDialog)
  ON_COMMAND(kChecked, OnCommandStub)
  ON_UPDATE_COMMAND_UI(kChecked, OnUpdateChecked)
  ON_COMMAND(kHandled, OnCommandStub)
END_MESSAGE_MAP()

TEST(CVnDialogTest, MenuPopupsGetCommandUpdates) {
  MenuDialog dialog;
  ASSERT_TRUE(dialog.Create(700u, nullptr));
  HMENU bar = ::CreateMenu(), popup = ::CreatePopupMenu(), sub = ::CreatePopupMenu();
  ::AppendMenuW(sub, MF_STRING, kSubFirst, L"Sub");
  const UINT items[] = {kChecked, kHandled, kUnhandled, kSystemRange};
  for (UINT id : items)
    ::AppendMenuW(popup, MF_STRING, id, L"Item");
  ::AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
  ::AppendMenuW(popup, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), L"More");
  ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), L"File");
  ::SetMenu(dialog.m_hWnd, bar);
  dialog.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), MAKELPARAM(0, FALSE));
  const struct { UINT id; bool enabled, checked; } expected[] = {
      {kChecked, true, true},  {kHandled, true, false}, {kUnhandled, false, false},
      {kSystemRange, true, false},  // the system's range is never disabled for want of a handler
  };
  for (const auto& e : expected) {
    UINT state = ::GetMenuState(popup, e.id, MF_BYCOMMAND);
    EXPECT_EQ(e.enabled, !(state & MF_GRAYED)) << e.id;
    EXPECT_EQ(e.checked, (state & MF_CHECKED) != 0) << e.id;
  }
  // A submenu is updated by its first item, without disabling.
  EXPECT_FALSE(::GetMenuState(popup, 5, MF_BYPOSITION) & MF_GRAYED);
  // The system menu is left alone.
  ::EnableMenuItem(popup, kHandled, MF_BYCOMMAND | MF_GRAYED);
  dialog.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), MAKELPARAM(0, TRUE));
  EXPECT_TRUE(::GetMenuState(popup, kHandled, MF_BYCOMMAND) & MF_GRAYED);
}

enum : UINT { kIndicator = 3005 };

// A modal dialog with a status bar: the modal loop's idle time updates the
// bar through the dialog's own update handler, as a frame's bars are.
class StatusDialog : public CVnDialog {
public:
  StatusDialog() : CVnDialog(700, nullptr) {}

protected:
  BOOL OnInitDialog() override {
    CVnDialog::OnInitDialog();
    m_bar.Create(this);
    m_bar.SetIndicators(&kIndicatorId, 1);
    return TRUE;
  }
  void OnUpdateIndicator(CCmdUI* ui) { ui->SetText(L"Updated"); }
  CStatusBar m_bar;
  static const UINT kIndicatorId;
  DECLARE_MESSAGE_MAP()
};

const UINT StatusDialog::kIndicatorId = kIndicator;

BEGIN_MESSAGE_MAP(StatusDialog, CVnDialog)
  ON_UPDATE_COMMAND_UI(kIndicator, OnUpdateIndicator)
END_MESSAGE_MAP()

TEST(CVnDialogTest, IdleTimeUpdatesTheStatusBar) {
  StatusDialog dialog;
  std::wstring before, after;
  RunModal(nullptr, L"Layout", [&](HWND d) {
    HWND bar = ::GetDlgItem(d, AFX_IDW_STATUS_BAR);
    wchar_t text[64] = {};
    for (int tries = 0; tries < 200; ++tries, ::Sleep(10)) {
      ::SendMessageW(bar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
      if (before.empty())
        before = text;
      if (std::wstring(text) == L"Updated")
        break;
    }
    after = text;
    PressButton(d, IDCANCEL);
  }, [&] { return dialog.DoModal(); });
  EXPECT_EQ(L"Updated", after) << VnToUtf8(before.c_str());
}

// What the host's module lacks is looked up in the component's, which
// joined the chain when it loaded; what the host has is taken from it.
TEST(AfxResourceChainTest, ComponentStandsBehindTheHost) {
  HINSTANCE host = ::GetModuleHandleW(nullptr), component = ::GetModuleHandleW(L"vnreconcile.dll");
  ASSERT_TRUE(component);
  // String tables are stored in blocks of 16, named by number / 16 + 1.
  const struct { LPCWSTR name; LPCWSTR type; HINSTANCE found; } cases[] = {
      {MAKEINTRESOURCEW(700), RT_DIALOG, host}, {MAKEINTRESOURCEW(3005 / 16 + 1), RT_STRING, host},
      {MAKEINTRESOURCEW(2899 / 16 + 1), RT_STRING, component},
      {MAKEINTRESOURCEW(4242), RT_DIALOG, host},  // nowhere: the resource handle
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.found, AfxFindResourceHandle(c.name, c.type)) << reinterpret_cast<UINT_PTR>(c.name);
}

}  // namespace
