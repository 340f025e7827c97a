// VnFilePickers.h - file and directory pickers over the common Open dialog.
//
// CVnFileDialog is the Open dialog with the component's title and OK text,
// accepting names that need not exist.  CVnDirectoryDialog is the same
// dialog made to pick a folder: a filter that no ordinary file matches
// leaves only folders in the list, and the file name and type items are
// hidden.  CVnFileBrowser ties a Browse button to an edit field of a
// dialog.  CVnMultipleFileRetriever asks for a fixed number of files,
// however many dialogs that takes.
#ifndef VN_TOOLKIT_VNFILEPICKERS_H
#define VN_TOOLKIT_VNFILEPICKERS_H

#include "afx/win32/CFileDialog.h"
#include "foundation/collections/VnArray.h"

class VN_API CVnFileDialog : public CFileDialog {
  DECLARE_DYNAMIC(CVnFileDialog)
public:
  CVnFileDialog(LPCWSTR fileName, DWORD flags, CWnd* parent, LPCWSTR defaultExtension, LPCWSTR filter);

protected:
  BOOL OnInitDialog() override;
  BOOL OnFileNameOK() override { return FALSE; }
  CString m_strTitle;
};

class VN_API CVnDirectoryDialog : public CFileDialog {
  DECLARE_DYNAMIC(CVnDirectoryDialog)
public:
  CVnDirectoryDialog(LPCWSTR fileName, DWORD flags, CWnd* parent);

protected:
  BOOL OnInitDialog() override;
  BOOL OnFileNameOK() override { return FALSE; }
  CString m_strTitle;
};

class VN_API CVnFileBrowser {
public:
  CVnFileBrowser() = default;
  // initialise: the edit starts with the current directory.  The browser
  // must not outlive the dialog.
  void Attach(CDialog& dialog, UINT editId, BOOL initialise);
  // Shows the file picker on the edit's text; OK with a name writes it back.
  void OnBrowse(int, const CString& defaultExtension, const CString& filter);

private:
  CDialog* m_pDialog = nullptr;
  UINT m_nEditId = static_cast<UINT>(-1);
};

class VN_API CVnMultipleFileRetriever {
public:
  // maxFiles 0: any number, in one dialog.
  CVnMultipleFileRetriever(LPCWSTR filter, int maxFiles);
  // Appends the chosen paths to names (which is not emptied first) until it
  // holds maxFiles, opening dialogs as needed.  0 on Cancel, on too many
  // files at once (with a message), or when the names overflow the buffer;
  // names then keeps what was gathered.
  BOOL GetFileNames(CVnStringArray& names);

private:
  CString m_strFilter;
  int m_nMaxFiles;
};

#endif  // VN_TOOLKIT_VNFILEPICKERS_H
