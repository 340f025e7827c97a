// CDialog.h - a dialog box from a template, modal or modeless, with data
// exchange.
//
// The system's dialog manager creates the window from the template and runs
// its default procedure; at WM_INITDIALOG the object joins the one window
// procedure (CWnd.h), so a derived class handles the dialog's messages in
// its map and overrides OnInitDialog, OnOK and OnCancel.  DoModal makes the
// dialog modeless, disables the owner and runs the modal loop itself
// (CWnd::RunModalLoop), which sends WM_KICKIDLE while the queue is empty
// and hands keys to the dialog manager.  OK and Cancel end it through
// EndDialog.
//
// Data exchange: DoDataExchange moves values between members and controls
// in either direction through the DDX_ functions; the DDV_ checks run when
// saving and end the exchange through CDataExchange::Fail, which shows
// nothing itself: the check shows its message first.
#ifndef VN_AFX_WIN32_CDIALOG_H
#define VN_AFX_WIN32_CDIALOG_H

#include "afx/win32/CWnd.h"

// Ends a data exchange that failed; the user has been told.
class VN_API CUserException : public CException {
  DECLARE_DYNAMIC(CUserException)
};

[[noreturn]] VN_API void AfxThrowUserException();

class VN_API CDataExchange {
public:
  CDataExchange(CWnd* dialog, BOOL saveAndValidate);
  // The control's window; it becomes the one a failure focuses.
  HWND PrepareCtrl(int id);
  HWND PrepareEditCtrl(int id);
  // Focuses the last prepared control (an edit's text selected) and throws
  // CUserException.
  [[noreturn]] void Fail();

  BOOL m_bSaveAndValidate;
  CWnd* m_pDlgWnd;
  HWND m_hWndLastControl = nullptr;
  BOOL m_bEditLastControl = FALSE;
};

class VN_API CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)
public:
  CDialog();
  CDialog(LPCWSTR templateName, CWnd* parent = nullptr);
  CDialog(UINT templateId, CWnd* parent = nullptr);
  ~CDialog() override;

  // Gives the code EndDialog got, or -1 when the dialog could not be made.
  virtual INT_PTR DoModal();
  // Modeless, from the template found by AfxFindResourceHandle.
  virtual BOOL Create(LPCWSTR templateName, CWnd* parent = nullptr);
  virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
  // Modeless, from a loaded template of module (null: the resource handle).
  BOOL CreateIndirect(HGLOBAL dialogTemplate, CWnd* parent = nullptr, HINSTANCE module = nullptr);
  BOOL CreateIndirect(LPCDLGTEMPLATEW dialogTemplate, CWnd* parent = nullptr, HINSTANCE module = nullptr);
  void EndDialog(int result);

  BOOL UpdateData(BOOL saveAndValidate = TRUE);
  // The window that owns a dialog of this parent: the parent's top-level
  // window, or the application's main window; null when there is none.
  static HWND GetSafeOwnerHwnd(CWnd* parent);

  LPCWSTR m_lpszTemplateName = nullptr;
  HGLOBAL m_hDialogTemplate = nullptr;
  LPCDLGTEMPLATEW m_lpDialogTemplate = nullptr;
  CWnd* m_pParentWnd = nullptr;
  UINT m_nIDHelp = 0;

protected:
  // After the template's controls exist: fills them (UpdateData(FALSE)).
  // Gives TRUE to let the system put the focus on the first control.
  virtual BOOL OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();
  virtual void DoDataExchange(CDataExchange* dx) {}
  BOOL PreTranslateMessage(MSG* msg) override;

  DECLARE_MESSAGE_MAP()

private:
  static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
  LPCDLGTEMPLATEW LockTemplate(HINSTANCE& module);
  HWND CreateFromTemplate(LPCDLGTEMPLATEW dialogTemplate, CWnd* parent, HINSTANCE module);
  HWND CreateFromTemplateTo(LPCDLGTEMPLATEW dialogTemplate, HWND parent, HINSTANCE module);
};

// Data exchange between a control and a member.  Edit text, numbers as
// text, check boxes.
VN_API void DDX_Text(CDataExchange* dx, int id, CString& value);
VN_API void DDX_Text(CDataExchange* dx, int id, UINT& value);
VN_API void DDX_Text(CDataExchange* dx, int id, int& value);
VN_API void DDX_Check(CDataExchange* dx, int id, int& value);
// Checks, when saving, of the value just exchanged.
VN_API void DDV_MaxChars(CDataExchange* dx, const CString& value, int count);
VN_API void DDV_MinMaxUInt(CDataExchange* dx, UINT value, UINT minimum, UINT maximum);
VN_API void DDV_MinMaxInt(CDataExchange* dx, int value, int minimum, int maximum);

#endif  // VN_AFX_WIN32_CDIALOG_H
