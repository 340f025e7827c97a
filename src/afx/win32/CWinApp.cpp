// CWinApp.cpp - the application object.
#include "afx/win32/CWinApp.h"

#include "afx/win32/AfxRes.h"
#include "afx/win32/CWnd.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

static CWinApp* g_pApp = nullptr;

CWinApp* AfxGetApp() { return g_pApp; }

CWinApp::CWinApp(LPCWSTR appName)
    : m_pszAppName(nullptr), m_hInstance(nullptr), m_lpCmdLine(nullptr), m_nCmdShow(SW_SHOWNORMAL),
      m_pszRegistryKey(nullptr), m_pszHelpFilePath(nullptr), m_pMainWnd(nullptr),
      m_nWaitCursorCount(0), m_hcurRestore(nullptr), m_nExitCode(0) {
  if (appName) {
    m_strAppName = appName;
    m_pszAppName = m_strAppName;
  }
  SetCommandLine(_T(""));
  assert(!g_pApp && "one application object per process");
  if (!g_pApp)
    g_pApp = this;
}

CWinApp::~CWinApp() {
  if (g_pApp == this)
    g_pApp = nullptr;
}

BOOL CWinApp::InitInstance() { return TRUE; }

int CWinApp::ExitInstance() { return m_nExitCode; }

BOOL CWinApp::PumpMessage() {
  MSG msg;
  const BOOL got = GetMessageW(&msg, nullptr, 0, 0);
  if (got == 0 || got == -1) {
    m_nExitCode = got == 0 ? static_cast<int>(msg.wParam) : -1;
    return FALSE;
  }
  if (!PreTranslateMessage(&msg)) {
    TranslateMessage(&msg);
    DispatchMessageW(&msg);
  }
  return TRUE;
}

BOOL CWinApp::PreTranslateMessage(MSG* msg) {
  for (HWND hWnd = msg->hwnd; hWnd; hWnd = ::GetParent(hWnd)) {
    CWnd* wnd = CWnd::FromHandlePermanent(hWnd);
    if (wnd && wnd->PreTranslateMessage(msg))
      return TRUE;
    if (!(::GetWindowLongW(hWnd, GWL_STYLE) & WS_CHILD))
      break;
  }
  return FALSE;
}

BOOL CWinApp::OnIdle(LONG count) {
  if (count == 0 && m_pMainWnd && ::IsWindow(m_pMainWnd->m_hWnd)) {
    m_pMainWnd->SendMessage(WM_IDLEUPDATECMDUI, TRUE, 0);
    m_pMainWnd->SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE, 0, TRUE);
  }
  return FALSE;
}

// Idle work runs once the queue has drained, and again only after a message
// that changes what the user sees (not after timers or paints).
int CWinApp::Run() {
  LONG idleCount = 0;
  for (;;) {
    MSG msg;
    bool pending = ::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE);
    while (!pending && OnIdle(idleCount++))
      pending = ::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE);
    if (!pending)
      ::WaitMessage();
    while (::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
      bool quiet = msg.message == WM_TIMER || msg.message == WM_PAINT || msg.message == WM_MOUSEMOVE;
      if (!PumpMessage())
        return ExitInstance();
      if (!quiet)
        idleCount = 0;
    }
  }
}

void CWinApp::WinHelp(DWORD_PTR data, UINT command) {
  HWND owner = nullptr;
  ::WinHelpW(owner, m_pszHelpFilePath, command, data);
}

//===-- Wait cursor ---------------------------------------------------------===//

// step +1 begins, -1 ends, 0 restores.  The cursor that was showing before
// the first Begin comes back with the last End.
void CWinApp::DoWaitCursor(int step) {
  HCURSOR wait = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT));
  if (step > 0) {
    HCURSOR previous = SetCursor(wait);
    if (m_nWaitCursorCount++ == 0)
      m_hcurRestore = previous;
  } else if (step < 0) {
    if (m_nWaitCursorCount == 0)
      return;
    if (--m_nWaitCursorCount == 0)
      SetCursor(m_hcurRestore);
    else
      SetCursor(wait);
  } else if (m_nWaitCursorCount > 0) {
    SetCursor(wait);
  }
}

void CWinApp::BeginWaitCursor() { DoWaitCursor(1); }
void CWinApp::EndWaitCursor() { DoWaitCursor(-1); }
void CWinApp::RestoreWaitCursor() { DoWaitCursor(0); }

//===-- Settings ------------------------------------------------------------===//

void CWinApp::SetRegistryKey(LPCWSTR key) {
  m_strRegistryKey = key ? key : _T("");
  m_pszRegistryKey = m_strRegistryKey.IsEmpty() ? nullptr : m_strRegistryKey.GetString();
}

void CWinApp::SetCommandLine(LPCWSTR cmdLine) {
  m_strCmdLine = cmdLine ? cmdLine : _T("");
  m_lpCmdLine = m_strCmdLine.GetBuffer();
}

void CWinApp::SetHelpFilePath(LPCWSTR path) {
  m_strHelpFilePath = path ? path : _T("");
  m_pszHelpFilePath = path ? m_strHelpFilePath.GetString() : nullptr;
}

//===-- Start ---------------------------------------------------------------===//

// The help file beside the program: its name with ".hlp" for the extension.
static CString HelpPathBeside(HINSTANCE instance) {
  WCHAR name[MAX_PATH] = {0};
  const DWORD length = GetModuleFileNameW(instance, name, MAX_PATH);
  if (length == 0 || length >= MAX_PATH)
    return CString();
  CString path(name, static_cast<int>(length));
  const int dot = path.ReverseFind('.');
  return (dot < 0 ? path : path.Left(dot)) + _T(".hlp");
}

BOOL AfxWinInit(HINSTANCE instance, HINSTANCE, LPWSTR cmdLine, int cmdShow) {
  CWinApp* app = AfxGetApp();
  if (!app)
    return FALSE;
  app->m_hInstance = instance;
  app->SetCommandLine(cmdLine);
  app->m_nCmdShow = cmdShow;
  const CString help = HelpPathBeside(instance);
  app->SetHelpFilePath(help.IsEmpty() ? nullptr : help.GetString());
  return TRUE;
}

int AfxWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow) {
  CWinApp* app = AfxGetApp();
  if (!app || !AfxWinInit(instance, previous, cmdLine, cmdShow))
    return -1;
  if (!app->InitInstance())
    return app->ExitInstance();
  return app->Run();
}
