// CFileDialog.cpp - the Open and Save As dialogs.
#include "afx/win32/CFileDialog.h"

#include "afx/win32/CWnd.h"

IMPLEMENT_DYNAMIC(CFileDialog, CObject)

// The system wants the filter's parts ended by NUL, the whole by two.
static CString SystemFilter(LPCWSTR filter) {
  CString text = filter ? filter : L"";
  for (int i = 0; i < text.GetLength(); ++i)
    if (text.GetAt(i) == L'|')
      text.SetAt(i, L'\0');
  return text;
}

CFileDialog::CFileDialog(BOOL openFileDialog, LPCWSTR defaultExt, LPCWSTR fileName, DWORD flags, LPCWSTR filter,
                         CWnd* parent)
    : m_ofn(), m_bOpenFileDialog(openFileDialog), m_strDefaultExt(defaultExt ? defaultExt : L""),
      m_strFilter(SystemFilter(filter)), m_szFileName() {
  ::lstrcpynW(m_szFileName, fileName ? fileName : L"", MAX_PATH);
  m_ofn.lStructSize = sizeof(m_ofn);
  m_ofn.hwndOwner = parent ? parent->GetSafeHwnd() : nullptr;
  m_ofn.lpstrFile = m_szFileName;
  m_ofn.nMaxFile = MAX_PATH;
  m_ofn.lpstrFilter = m_strFilter.IsEmpty() ? nullptr : m_strFilter.GetString();
  m_ofn.lpstrDefExt = m_strDefaultExt.IsEmpty() ? nullptr : m_strDefaultExt.GetString();
  m_ofn.Flags = flags | OFN_EXPLORER;
}

INT_PTR CFileDialog::DoModal() {
  BOOL chosen = m_bOpenFileDialog ? ::GetOpenFileNameW(&m_ofn) : ::GetSaveFileNameW(&m_ofn);
  return chosen ? IDOK : IDCANCEL;
}
