// CFileDialog.h - the system's Open and Save As dialogs.
//
// The filter is given in the framework's form, "Text (*.txt)|*.txt|All
// (*.*)|*.*||": pairs of a description and a pattern, each ended by '|'.
// DoModal runs GetOpenFileNameW or GetSaveFileNameW on m_ofn, which a caller
// may adjust in between.
#ifndef VN_AFX_WIN32_CFILEDIALOG_H
#define VN_AFX_WIN32_CFILEDIALOG_H

#include "afx/afx.h"

#include <commdlg.h>

class CWnd;

class VN_API CFileDialog : public CObject {
  DECLARE_DYNAMIC(CFileDialog)
public:
  CFileDialog(BOOL openFileDialog, LPCWSTR defaultExt = nullptr, LPCWSTR fileName = nullptr,
              DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCWSTR filter = nullptr,
              CWnd* parent = nullptr);
  CFileDialog(const CFileDialog&) = delete;
  CFileDialog& operator=(const CFileDialog&) = delete;

  // IDOK or IDCANCEL; IDCANCEL also when the system could not show it.
  INT_PTR DoModal();
  CString GetPathName() const { return m_szFileName; }

  OPENFILENAMEW m_ofn;

private:
  BOOL m_bOpenFileDialog;
  CString m_strDefaultExt;
  CString m_strFilter;
  WCHAR m_szFileName[MAX_PATH];
};

#endif  // VN_AFX_WIN32_CFILEDIALOG_H
