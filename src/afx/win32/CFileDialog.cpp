// CFileDialog.cpp - the common Open and Save As dialogs with a hook.
#include "afx/win32/CFileDialog.h"

#include <cassert>

#undef SubclassWindow  // windowsx.h's macro hides the member

IMPLEMENT_DYNAMIC(CFileDialog, CDialog)

CFileDialog::CFileDialog(BOOL openFileDialog, LPCWSTR defaultExtension, LPCWSTR fileName, DWORD flags,
                         LPCWSTR filter, CWnd* parent)
    : m_ofn(), m_bOpenFileDialog(openFileDialog), m_szFileName() {
  m_pParentWnd = parent;
  m_ofn.lStructSize = sizeof(m_ofn);
  m_ofn.lpstrFile = m_szFileName;
  m_ofn.nMaxFile = MAX_PATH;
  m_ofn.Flags = flags | OFN_ENABLEHOOK | OFN_EXPLORER;
  m_ofn.lpfnHook = &CFileDialog::HookProc;
  m_ofn.lCustData = reinterpret_cast<LPARAM>(this);
  if (fileName)
    ::lstrcpynW(m_szFileName, fileName, MAX_PATH);
  if (defaultExtension) {
    m_strDefExt = defaultExtension;
    m_ofn.lpstrDefExt = m_strDefExt;
  }
  if (filter) {
    // The system wants 0 between the parts; the string keeps its length.
    m_strFilter = filter;
    for (int i = 0; i < m_strFilter.GetLength(); ++i)
      if (m_strFilter[i] == L'|')
        m_strFilter.SetAt(i, 0);
    m_ofn.lpstrFilter = m_strFilter;
  }
}

UINT_PTR CALLBACK CFileDialog::HookProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG)
    return 0;
  CFileDialog* self = reinterpret_cast<CFileDialog*>(reinterpret_cast<OPENFILENAMEW*>(lParam)->lCustData);
  if (!self->SubclassWindow(dialog))
    return TRUE;
  return self->OnInitDialog();
}

INT_PTR CFileDialog::DoModal() {
  m_ofn.hwndOwner = GetSafeOwnerHwnd(m_pParentWnd);
  BOOL chosen = m_bOpenFileDialog ? ::GetOpenFileNameW(&m_ofn) : ::GetSaveFileNameW(&m_ofn);
  return chosen ? IDOK : IDCANCEL;
}

// The system reads the hook's answer to CDN_FILEOK from DWLP_MSGRESULT.
BOOL CFileDialog::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
  const NMHDR* header = reinterpret_cast<const NMHDR*>(lParam);
  if (header->code != static_cast<UINT>(CDN_FILEOK))
    return CDialog::OnNotify(wParam, lParam, result);
  *result = OnFileNameOK() ? 1 : 0;
  ::SetWindowLongPtrW(m_hWnd, DWLP_MSGRESULT, *result);
  return TRUE;
}

void CFileDialog::HideControl(int id) {
  assert(::IsWindow(m_hWnd) && "the dialog is running");
  ::SendMessageW(::GetParent(m_hWnd), CDM_HIDECONTROL, id, 0);
}

CString CFileDialog::GetPathName() const {
  return m_ofn.lpstrFile ? CString(m_ofn.lpstrFile) : CString();
}

// One chosen file: the buffer is its path.  Several: the folder, then the
// names after it.
POSITION CFileDialog::GetStartPosition() const {
  return m_ofn.lpstrFile && *m_ofn.lpstrFile ? reinterpret_cast<POSITION>(m_ofn.lpstrFile) : nullptr;
}

CString CFileDialog::GetNextPathName(POSITION& pos) const {
  LPCWSTR buffer = m_ofn.lpstrFile;
  LPCWSTR at = reinterpret_cast<LPCWSTR>(pos);
  size_t folderLength = ::lstrlenW(buffer);
  if (!(m_ofn.Flags & OFN_ALLOWMULTISELECT) || buffer[folderLength + 1] == 0) {
    pos = nullptr;
    return CString(buffer);
  }
  if (at == buffer)
    at += folderLength + 1;
  CString path(buffer);
  if (path.GetLength() && path[path.GetLength() - 1] != L'\\')
    path += L"\\";
  path += at;
  at += ::lstrlenW(at) + 1;
  pos = *at ? reinterpret_cast<POSITION>(const_cast<LPWSTR>(at)) : nullptr;
  return path;
}
