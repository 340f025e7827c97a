// VnFilePickersWin32.cpp - the file and directory pickers, the Browse
// button's helper and the retriever of several files.
#include "toolkit/VnFilePickers.h"

#include "afx/win32/AfxMsgMap.h"
#include "foundation/LocalResources.h"
#include "foundation/VnPath.h"

#include <cderr.h>

#include <vector>

enum : UINT {
  kDirectoryTitle = 1,
  kOkText = 2,
  kFileTitle = 4,
  kTooManyFiles = 132,
  kBufferTooSmall = 133,
};

// Items of the system's Open dialog: file type label and box, file name
// edit, its combo box, and the file name label.
static const int kFileItems[] = {1089, 1090, 1152, 1148, 1136};

IMPLEMENT_DYNAMIC(CVnFileDialog, CFileDialog)
IMPLEMENT_DYNAMIC(CVnDirectoryDialog, CFileDialog)

CVnFileDialog::CVnFileDialog(LPCWSTR fileName, DWORD flags, CWnd* parent, LPCWSTR defaultExtension, LPCWSTR filter)
    : CFileDialog(TRUE, defaultExtension, fileName, flags | OFN_HIDEREADONLY | OFN_NOVALIDATE, filter, parent) {
  m_strTitle = LoadLocalString(GetResourceModule(), kFileTitle);
  m_ofn.lpstrTitle = m_strTitle;
}

BOOL CVnFileDialog::OnInitDialog() {
  CDialog::OnInitDialog();
  ::SetDlgItemTextW(::GetParent(m_hWnd), IDOK, LoadLocalString(GetResourceModule(), kOkText));
  return TRUE;
}

// The filter's one pattern matches no ordinary file, so only folders show.
CVnDirectoryDialog::CVnDirectoryDialog(LPCWSTR fileName, DWORD flags, CWnd* parent)
    : CFileDialog(TRUE, nullptr, fileName, flags | OFN_HIDEREADONLY | OFN_NOVALIDATE, L"*|*.-+-||", parent) {
  m_strTitle = LoadLocalString(GetResourceModule(), kDirectoryTitle);
  m_ofn.lpstrTitle = m_strTitle;
}

BOOL CVnDirectoryDialog::OnInitDialog() {
  for (int id : kFileItems)
    HideControl(id);
  CDialog::OnInitDialog();
  ::SetDlgItemTextW(::GetParent(m_hWnd), IDOK, LoadLocalString(GetResourceModule(), kOkText));
  return TRUE;
}

//===-- The Browse button --------------------------------------------------===//

void CVnFileBrowser::Attach(CDialog& dialog, UINT editId, BOOL initialise) {
  m_pDialog = &dialog;
  m_nEditId = editId;
  if (!initialise)
    return;
  CString path;
  GetCurrentPath(path);
  ::SetDlgItemTextW(dialog.m_hWnd, static_cast<int>(editId), path);
}

void CVnFileBrowser::OnBrowse(int, const CString& defaultExtension, const CString& filter) {
  HWND edit = ::GetDlgItem(m_pDialog->m_hWnd, static_cast<int>(m_nEditId));
  CString text;
  int length = ::GetWindowTextLengthW(edit);
  ::GetWindowTextW(edit, text.GetBufferSetLength(length), length + 1);
  text.ReleaseBuffer();
  CVnFileDialog picker(text, 0, m_pDialog, defaultExtension, filter);
  if (picker.DoModal() != IDOK)
    return;
  CString path = picker.GetPathName();
  if (path.GetLength() > 0)
    ::SetWindowTextW(edit, path);
}

//===-- Several files ------------------------------------------------------===//

CVnMultipleFileRetriever::CVnMultipleFileRetriever(LPCWSTR filter, int maxFiles)
    : m_strFilter(filter ? filter : L""), m_nMaxFiles(maxFiles) {}

// Steps: one dialog with room for maxFiles names (100 when unbounded);
// walk its selection into names up to maxFiles; too many is an error,
// too few asks again.
BOOL CVnMultipleFileRetriever::GetFileNames(CVnStringArray& names) {
  const DWORD flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
  CFileDialog dialog(TRUE, nullptr, nullptr, flags, m_strFilter.IsEmpty() ? nullptr : static_cast<LPCWSTR>(m_strFilter));
  std::vector<WCHAR> buffer(static_cast<size_t>(m_nMaxFiles ? m_nMaxFiles : 100) * 256, 0);
  dialog.m_ofn.lpstrFile = buffer.data();
  dialog.m_ofn.nMaxFile = static_cast<DWORD>(buffer.size());
  if (dialog.DoModal() != IDOK) {
    if (::CommDlgExtendedError() == FNERR_BUFFERTOOSMALL)
      AfxMessageBox(LoadLocalString(GetResourceModule(), kBufferTooSmall));
    return FALSE;
  }
  POSITION pos = dialog.GetStartPosition();
  while (pos && (m_nMaxFiles == 0 || names.GetSize() < m_nMaxFiles))
    names.Add(dialog.GetNextPathName(pos));
  if (m_nMaxFiles == 0)
    return TRUE;
  if (pos) {
    CString text;
    text.Format(LoadLocalString(GetResourceModule(), kTooManyFiles), m_nMaxFiles);
    AfxMessageBox(text);
    return FALSE;
  }
  if (names.GetSize() >= m_nMaxFiles)
    return TRUE;
  return GetFileNames(names);
}
