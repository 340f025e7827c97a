// CFileDialog.h - the system's Open and Save As dialogs.
//
// DoModal runs GetOpenFileNameW or GetSaveFileNameW in the explorer style
// with a hook: the hook's child dialog joins the one window procedure at
// its WM_INITDIALOG, so a derived class overrides OnInitDialog (GetParent()
// is then the system's dialog itself) and OnFileNameOK, asked before the
// dialog accepts a name.  The filter is written with '|' between its parts,
// as "Text files|*.txt|All files|*.*||".
//
// With OFN_ALLOWMULTISELECT the name buffer holds the folder and then each
// name, each ended by a 0 and the list by a second 0; GetStartPosition and
// GetNextPathName walk it as full paths.  A caller may give the dialog a
// larger buffer through m_ofn.lpstrFile and nMaxFile.
#ifndef VN_AFX_WIN32_CFILEDIALOG_H
#define VN_AFX_WIN32_CFILEDIALOG_H

#include "afx/win32/CDialog.h"

#include <commdlg.h>


class VN_API CFileDialog : public CDialog {
  DECLARE_DYNAMIC(CFileDialog)
public:
  CFileDialog(BOOL openFileDialog, LPCWSTR defaultExtension = nullptr, LPCWSTR fileName = nullptr,
              DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCWSTR filter = nullptr,
              CWnd* parent = nullptr);

  // IDOK or IDCANCEL; CommDlgExtendedError tells a failure from a cancel.
  INT_PTR DoModal() override;
  CString GetPathName() const;
  POSITION GetStartPosition() const;
  // The full path at pos, which moves on (null after the last).
  CString GetNextPathName(POSITION& pos) const;

  OPENFILENAMEW m_ofn;

protected:
  // Nonzero keeps the dialog open on the name chosen.
  virtual BOOL OnFileNameOK() { return FALSE; }
  // Hides an item of the system's dialog.
  void HideControl(int id);
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
  static UINT_PTR CALLBACK HookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
  BOOL m_bOpenFileDialog;
  CString m_strFilter;
  CString m_strDefExt;
  WCHAR m_szFileName[MAX_PATH];
};

#endif  // VN_AFX_WIN32_CFILEDIALOG_H
