// CWinApp.h - the application object of a host.
//
// One per process: the constructor registers it for AfxGetApp, the
// destructor lets go.  AfxWinMain fills in the instance, the command line
// and the show command (AfxWinInit), then runs InitInstance and the message
// loop.  Besides the life cycle it carries the few services the component
// asks of the application: the wait cursor, one message pump step, help by
// the file m_pszHelpFilePath names, and the registry key of the options.
#ifndef VN_AFX_WIN32_CWINAPP_H
#define VN_AFX_WIN32_CWINAPP_H

#include "afx/afx.h"
#include "afx/win32/CCmdTarget.h"

class CWnd;

class VN_API CWinApp : public CCmdTarget {
  DECLARE_DYNAMIC(CWinApp)
public:
  explicit CWinApp(LPCWSTR appName = nullptr);
  ~CWinApp() override;
  CWinApp(const CWinApp&) = delete;
  CWinApp& operator=(const CWinApp&) = delete;

  // Gives non-zero to go on into the message loop.
  virtual BOOL InitInstance();
  // Gives the exit code of the process: the WM_QUIT code once Run ended.
  virtual int ExitInstance();
  // The message loop: pumps until WM_QUIT, then gives ExitInstance().
  virtual int Run();
  // Takes one message off the queue (waiting for one) and dispatches it.
  // Gives 0 when the message was WM_QUIT: the application is ending.
  virtual BOOL PumpMessage();
  // Called when the queue is empty.  The default updates the main window's
  // bars and menu items (WM_IDLEUPDATECMDUI) once per idle spell; gives
  // TRUE to be called again before the loop waits.
  virtual BOOL OnIdle(LONG count);
  // Offers a message to the windows it is for, from the target up to its
  // top-level window, before it is dispatched (accelerators).  TRUE when
  // one of them used it up.
  virtual BOOL PreTranslateMessage(MSG* msg);
  // Asks the help file that m_pszHelpFilePath names.
  virtual void WinHelp(DWORD_PTR data, UINT command = HELP_CONTEXT);

  // Nested: the wait cursor shows from the first Begin to the matching End;
  // Restore puts it back after something changed the cursor meanwhile.
  void BeginWaitCursor();
  void EndWaitCursor();
  void RestoreWaitCursor();
  int GetWaitCursorCount() const { return m_nWaitCursorCount; }

  // The options then live below HKEY_CURRENT_USER\Software\<key>\<app name>.
  void SetRegistryKey(LPCWSTR key);
  // Points m_lpCmdLine at a copy of cmdLine; AfxWinInit uses it, and so can
  // a caller that runs an application object without AfxWinMain.
  void SetCommandLine(LPCWSTR cmdLine);
  // Points m_pszHelpFilePath at a copy of path (null for none).
  void SetHelpFilePath(LPCWSTR path);

  LPCWSTR m_pszAppName;
  HINSTANCE m_hInstance;
  LPWSTR m_lpCmdLine;
  int m_nCmdShow;
  LPCWSTR m_pszRegistryKey;
  LPCWSTR m_pszHelpFilePath;
  CWnd* m_pMainWnd;

private:
  void DoWaitCursor(int step);

  CString m_strAppName;
  CString m_strCmdLine;
  CString m_strRegistryKey;
  CString m_strHelpFilePath;
  int m_nWaitCursorCount;
  HCURSOR m_hcurRestore;
  int m_nExitCode;
};

// The application object of this process, or null before one exists.
VN_API CWinApp* AfxGetApp();
// Fills the application's instance, command line, show command and help path.
VN_API BOOL AfxWinInit(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow);
// The body of a host's wWinMain.
VN_API int AfxWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow);

#endif  // VN_AFX_WIN32_CWINAPP_H
