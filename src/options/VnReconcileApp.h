// VnReconcileApp.h - the application class a host derives its own from.
//
// It does almost nothing by itself: it records once, at construction, whether
// the running system is of the 2000/XP/2003 family (m_bWin2K), for the rich
// edit panes, whose control behaves differently there, and it offers the
// parser of the host's command line over m_lpCmdLine.  Everything else in an
// application's life is the host's.  Windows only.
#ifndef VN_OPTIONS_VNRECONCILEAPP_H
#define VN_OPTIONS_VNRECONCILEAPP_H

#include "afx/afx.h"

#ifdef _WIN32

#include "afx/win32/CWinApp.h"
#include "options/VnAppFlags.h"

// m_bWin2K comes from CVnAppFlags, which the window classes read.
class VN_API CVnReconcileApp : public CWinApp, public CVnAppFlags {
  DECLARE_DYNCREATE(CVnReconcileApp)
public:
  // Gives 1; a host overrides it.
  BOOL InitInstance() override;
  // CWinApp::ExitInstance's result.
  int ExitInstance() override;

  // Left to the host; 0 after construction and read by nothing here.
  int m_nHostData;

protected:
  CVnReconcileApp();
  ~CVnReconcileApp() override;

  // Splits m_lpCmdLine into args[0 .. capacity-1]; the result and the rules
  // are those of the free ParseCmdLine (options/VnCmdLine.h): the count,
  // capacity + 1 for text left over, -1 for a malformed line.
  int ParseCmdLine(CString* args, int capacity);
};

// For a host run where nobody watches the screen: every message goes to
// standard error as "program: text" (an information message as it stands)
// and every question takes its default answer, so no box ever waits.
VN_API void VnUseHeadlessPrompt(LPCWSTR programName);

#endif  // _WIN32

#endif  // VN_OPTIONS_VNRECONCILEAPP_H
