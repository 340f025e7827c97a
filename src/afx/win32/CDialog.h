// CDialog.h - a dialog window made from a dialog template.
//
// Create makes a modeless dialog and returns at once; DoModal runs a modal
// one and returns the code EndDialog was given.  At WM_INITDIALOG the dialog
// joins the one window procedure (CWnd.h), the system's dialog procedure
// doing the default work, and OnInitDialog runs; the buttons IDOK and
// IDCANCEL (and Esc, and closing the window) reach OnOK and OnCancel.
//
// The template is looked up by number: in the program's own module, then in
// the module this code lives in.
#ifndef VN_AFX_WIN32_CDIALOG_H
#define VN_AFX_WIN32_CDIALOG_H

#include "afx/win32/CWnd.h"

class VN_API CDialog : public CWnd {
  DECLARE_DYNAMIC(CDialog)
public:
  explicit CDialog(UINT templateId = 0, CWnd* parent = nullptr);

  // A modeless dialog.  FALSE, with no window, when the template is missing
  // or the system refused.
  virtual BOOL Create(UINT templateId, CWnd* parent = nullptr);
  // IDOK, IDCANCEL or the code given to EndDialog; -1 when it could not show.
  virtual INT_PTR DoModal();
  void EndDialog(int result);

protected:
  // After the system's setup; non-zero gives the focus to the first control.
  virtual BOOL OnInitDialog();
  // End a modal dialog with IDOK or IDCANCEL; a modeless one overrides them.
  virtual void OnOK();
  virtual void OnCancel();
  BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;

  UINT m_nIDTemplate;
  CWnd* m_pParentWnd;

private:
  static HINSTANCE FindTemplate(UINT templateId);
  static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
};

#endif  // VN_AFX_WIN32_CDIALOG_H
