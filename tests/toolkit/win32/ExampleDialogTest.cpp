// ExampleDialogTest.cpp - the worked example of docs/toolkit.md, built and
// run: a host's own resizable dialog on CVnDialog, with data exchange, a
// check that reports and focuses, and controls that follow the size.
#include "afx/win32/AfxMsgMap.h"
#include "toolkit/VnDialog.h"

#include "ModalRun.h"
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace {

//===-- The example, as the page shows it ---------------------------------===//

enum : UINT { IDD_RENAME = 700, IDC_NAME = 1001, IDC_NOTES = 1002 };

class CRenameDialog : public CVnDialog {
public:
  explicit CRenameDialog(CWnd* parent = nullptr) : CVnDialog(IDD_RENAME, parent) {}
  CString m_strName;

protected:
  BOOL OnInitDialog() override {
    CVnDialog::OnInitDialog();
    m_resizeControls.OnInitDialog(this, TRUE, TRUE);
    m_resizeControls.RegisterControl(VN_RESIZE_GROW_X, IDC_NAME);
    m_resizeControls.RegisterControl(VN_RESIZE_GROW, IDC_NOTES);
    m_resizeControls.RegisterControl(VN_RESIZE_CORNER, IDOK);
    m_resizeControls.RegisterControl(VN_RESIZE_CORNER, IDCANCEL);
    return TRUE;
  }
  void DoDataExchange(CDataExchange* dx) override {
    DDX_Text(dx, IDC_NAME, m_strName);
    DDV_MaxChars(dx, m_strName, 8);
  }
  void OnOK() override {
    CString name = vn::test::GetItemText(m_hWnd, IDC_NAME).c_str();
    if (!ValidateNonEmptyPath(IDC_NAME, name, static_cast<UINT>(-1)))
      return;
    CVnDialog::OnOK();
  }
};

//===-- Running it ---------------------------------------------------------===//

TEST(ExampleDialogTest, RenameDialogChecksThenTakesTheName) {
  CRenameDialog dialog;
  dialog.m_strName = L"old";
  vn::test::ScriptedPrompt prompt({IDOK, IDOK});
  std::wstring shown;
  const INT_PTR result = vn::test::RunModal(nullptr, L"Layout", [&](HWND d) {
    shown = vn::test::GetItemText(d, IDC_NAME);
    vn::test::SetItemText(d, IDC_NAME, L"  ");
    vn::test::PressButton(d, IDOK);
    vn::test::SetItemText(d, IDC_NAME, L"far too long");
    vn::test::PressButton(d, IDOK);
    vn::test::SetItemText(d, IDC_NAME, L"new");
    vn::test::PressButton(d, IDOK);
  }, [&] { return dialog.DoModal(); });
  EXPECT_EQ(L"old", shown);
  EXPECT_EQ(IDOK, result);
  EXPECT_EQ(CString(L"new"), dialog.m_strName);
  ASSERT_EQ(2u, prompt.Asked().size());
  EXPECT_EQ("The specified path is blank.", prompt.Asked()[0].text);
  EXPECT_EQ("Enter no more than 8 characters.", prompt.Asked()[1].text);
}

}  // namespace
