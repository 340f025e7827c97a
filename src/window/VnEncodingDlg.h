// VnEncodingDlg.h - the File Encoding dialog: the two files' encodings side
// by side, and the user's choice passed back to the intake.
//
// Each list holds the installed code pages in the system's order, then
// UTF-16 little and big endian.  OK gives a changed choice to the file
// (CVnDiffFile::SetFileEncoding) and asks the frame to read its files again
// (ReopenFiles); confirming what detection found changes nothing.  The
// system's enumeration callback takes no context, so the two lists stand
// at module level and one such dialog runs at a time, modally.
#ifndef VN_WINDOW_VNENCODINGDLG_H
#define VN_WINDOW_VNENCODINGDLG_H

#include "afx/win32/CCommonDialogs.h"
#include "intake/VnDiffFile.h"
#include "toolkit/VnDialog.h"

class CVnReconcileFrame;

class VN_API CVnEncodingDlg : public CVnLocalDialog {
  DECLARE_DYNAMIC(CVnEncodingDlg)
public:
  enum { IDD = 160 };
  CVnEncodingDlg(CVnReconcileFrame* frame, CVnDiffFile& file1, CVnDiffFile& file2);

protected:
  HINSTANCE GetDialogResourceModule() override;
  void DoDataExchange(CDataExchange* dx) override;
  BOOL OnInitDialog() override;
  void OnOK() override;

  CVnDiffFile* m_pFile1;
  CVnDiffFile* m_pFile2;
  CVnReconcileFrame* m_pFrame;
  HWND m_hSystemCodePage = nullptr;
};

#endif  // VN_WINDOW_VNENCODINGDLG_H
