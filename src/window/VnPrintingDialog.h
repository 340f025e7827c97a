// VnPrintingDialog.h - the dialog that shows while a comparison prints.
//
// Modeless, on the printing dialog template (30722): it names the document,
// the printer, the port or output file and the page in hand, and its Cancel
// button asks the job to stop.  The request lives in one static flag, read
// by the job between pages (CVnRichEditPane::PrintAbortProc): one job at a
// time per process.  Windows only.
#ifndef VN_WINDOW_VNPRINTINGDIALOG_H
#define VN_WINDOW_VNPRINTINGDIALOG_H

#include "afx/win32/CDialog.h"

class VN_API CVnPrintingDialog : public CDialog {
  DECLARE_DYNAMIC(CVnPrintingDialog)
public:
  enum { IDD = 30722, IDC_DOCUMENT = 201, IDC_PRINTER = 202, IDC_PORT = 203, IDC_PAGE = 204 };

  // Creates the dialog, hidden, with parent as its parent, and clears the
  // stop request.
  explicit CVnPrintingDialog(CWnd* parent);

  static int m_bUserAbort;  // the user asked the job to stop

protected:
  // The application's name for the title; centred over the parent.
  BOOL OnInitDialog() override;
  // Only asks the job to stop; the job destroys the dialog.
  void OnCancel() override;
};

#endif  // VN_WINDOW_VNPRINTINGDIALOG_H
