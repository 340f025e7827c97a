// VnReconcileAppWin32.cpp - the application base class.
#include "options/VnReconcileApp.h"

#include "foundation/VnProcess.h"
#include "options/VnCmdLine.h"

IMPLEMENT_DYNCREATE(CVnReconcileApp, CWinApp)

// No application name: the host's own resources name it.
CVnReconcileApp::CVnReconcileApp() : CWinApp(nullptr), m_nHostData(0) { m_bWin2K = IsWin2K(); }

CVnReconcileApp::~CVnReconcileApp() {}

BOOL CVnReconcileApp::InitInstance() { return 1; }

int CVnReconcileApp::ExitInstance() { return CWinApp::ExitInstance(); }

int CVnReconcileApp::ParseCmdLine(CString* args, int capacity) {
  return ::ParseCmdLine(m_lpCmdLine, args, capacity);
}
