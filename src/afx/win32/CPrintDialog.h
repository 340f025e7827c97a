// CPrintDialog.h - the system's Print dialog, and the state of one print
// job (CPrintInfo).
//
// CPrintDialog holds a PRINTDLGW record and runs PrintDlgW on it.  The
// record's handles (device mode, device names, the printer's context) are
// the system's: the application object keeps the device between jobs
// (CWinApp::DoPrintDialog), and the context the dialog returns belongs to
// the CPrintInfo of the job, which deletes it.
//
// CPrintInfo is what the pages of a job are numbered and drawn by: the
// current page (1-based), the rectangle of the page in logical units, the
// range the user asked for, and the flags that end a job early.  Page
// numbers run from GetMinPage to GetMaxPage; 0xFFFF as the maximum means
// "as many as the text has", found as the pages are formatted.
#ifndef VN_AFX_WIN32_CPRINTDIALOG_H
#define VN_AFX_WIN32_CPRINTDIALOG_H

#include "afx/afx.h"
#include "afx/win32/CGeometry.h"

#include <commdlg.h>

class CWnd;

class VN_API CPrintDialog : public CObject {
  DECLARE_DYNAMIC(CPrintDialog)
public:
  // printSetupOnly: the setup dialog, returning no context; otherwise the
  // Print dialog returning the chosen printer's context (PD_RETURNDC).
  explicit CPrintDialog(BOOL printSetupOnly, DWORD flags = PD_ALLPAGES | PD_USEDEVMODECOPIES | PD_NOPAGENUMS |
                                                         PD_HIDEPRINTTOFILE | PD_NOSELECTION,
                        CWnd* parent = nullptr);
  CPrintDialog(const CPrintDialog&) = delete;
  CPrintDialog& operator=(const CPrintDialog&) = delete;

  // IDOK or IDCANCEL; IDCANCEL also when the system could not show it.
  INT_PTR DoModal();
  // The default printer's device, without a dialog (PD_RETURNDEFAULT).
  BOOL GetDefaults();

  // The names the device names record holds; empty without one.
  CString GetDeviceName() const;
  CString GetDriverName() const;
  CString GetPortName() const;
  HDC GetPrinterDC() const { return m_pd.hDC; }
  // A context for the chosen device; null if there is none.
  HDC CreatePrinterDC();

  BOOL PrintToFile() const { return (m_pd.Flags & PD_PRINTTOFILE) != 0; }
  BOOL PrintSelection() const { return (m_pd.Flags & PD_SELECTION) != 0; }
  BOOL PrintRange() const { return (m_pd.Flags & PD_PAGENUMS) != 0; }
  int GetFromPage() const { return m_pd.nFromPage; }
  int GetToPage() const { return m_pd.nToPage; }

  PRINTDLGW m_pd;

private:
  CString DevNamesString(WORD DEVNAMES::*offset) const;
};

class VN_API CPrintInfo {
public:
  // A Print dialog offering a page range from 1 to 0xFFFF and asking for
  // all of it, the current page 1, and the job set to go on.
  CPrintInfo();
  // Deletes the printer's context the dialog returned, and the dialog.
  ~CPrintInfo();
  CPrintInfo(const CPrintInfo&) = delete;
  CPrintInfo& operator=(const CPrintInfo&) = delete;

  void SetMinPage(UINT page) { m_pPD->m_pd.nMinPage = static_cast<WORD>(page); }
  void SetMaxPage(UINT page) { m_pPD->m_pd.nMaxPage = static_cast<WORD>(page); }
  UINT GetMinPage() const { return m_pPD->m_pd.nMinPage; }
  UINT GetMaxPage() const { return m_pPD->m_pd.nMaxPage; }
  // The range asked for; with all pages asked for, the whole range.
  UINT GetFromPage() const;
  UINT GetToPage() const;

  CPrintDialog* m_pPD;
  BOOL m_bDirect;            // print at once, without the dialog
  BOOL m_bPreview;           // always 0: there is no preview
  BOOL m_bContinuePrinting;  // cleared when the pages have run out
  UINT m_nCurPage;
  CRect m_rectDraw;          // the page, in logical units
};

#endif  // VN_AFX_WIN32_CPRINTDIALOG_H
