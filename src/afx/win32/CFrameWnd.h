// CFrameWnd.h - a top-level window with a menu, control bars and a client
// pane.
//
// The frame lays out its children by their identifiers (AfxRes.h): control
// bars (AFX_IDW_CONTROLBAR_FIRST..LAST) take their edges through
// RepositionBars, and the child AFX_IDW_PANE_FIRST fills what is left.
// Commands from menus, accelerators and bars are offered to the frame's own
// message map, then to the application object.  Before a menu drops down,
// each of its items is updated through the same routing (CCmdUI), and when
// the application is idle the frame's descendants receive
// WM_IDLEUPDATECMDUI, on which control bars update theirs.
//
// Lifetime: like every frame of the framework, the object deletes itself
// after its window is gone (m_bAutoDelete), so a host makes it with new.  A
// frame that is the application's main window ends the message loop when it
// is destroyed.
#ifndef VN_AFX_WIN32_CFRAMEWND_H
#define VN_AFX_WIN32_CFRAMEWND_H

#include "afx/win32/AfxRes.h"
#include "afx/win32/CCmdUI.h"
#include "afx/win32/CWnd.h"

#define FWS_ADDTOTITLE 0x00008000L

class VN_API CFrameWnd : public CWnd {
  DECLARE_DYNAMIC(CFrameWnd)
public:
  CFrameWnd() = default;
  ~CFrameWnd() override;

  static const RECT rectDefault;

  // menuName: a menu resource of the host's module, or null.
  BOOL Create(LPCWSTR className, LPCWSTR title, DWORD style = WS_OVERLAPPEDWINDOW, const RECT& rect = rectDefault,
              CWnd* parent = nullptr, LPCWSTR menuName = nullptr, DWORD exStyle = 0);
  // Menu, accelerators, icon and title (the string of the same number) from
  // the host's resources under one number.  Resources that are missing are
  // left out; only the window's creation can fail.
  BOOL LoadFrame(UINT resourceId, DWORD style = WS_OVERLAPPEDWINDOW, CWnd* parent = nullptr);
  BOOL LoadAccelTable(LPCWSTR resourceName);

  // Lays out the control bars and the client pane.
  virtual void RecalcLayout(BOOL notify = TRUE);
  // Shows or hides a bar and lays the frame out again (at once: delay is
  // accepted for the callers' sake and not needed here).
  void ShowControlBar(CWnd* bar, BOOL show, BOOL delay);
  // Bars stay on the edge their style names; docking records the sides.
  void EnableDocking(DWORD dockStyle) { m_dwDockStyle = dockStyle; }
  void DockControlBar(CWnd* bar, UINT dockBarId = 0, LPCRECT rect = nullptr);
  // Offers every item of a menu to the command routing.
  void UpdateMenuItems(HMENU menu);

  BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) override;
  BOOL PreTranslateMessage(MSG* msg) override;
  // A tooltip of a bar asks for its text: the part after '\n' of the
  // string with the command's number in the host's module.
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  HACCEL m_hAccelTable = nullptr;
  BOOL m_bAutoDelete = TRUE;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  void PostNcDestroy() override;

  // Standard handlers a derived map may bind: the View menu's bar toggles
  // (the bar is the child whose identifier is the command's) and help.
  BOOL OnBarCheck(UINT id);
  void OnUpdateControlBarMenu(CCmdUI* cmdUI);
  void OnHelp();
  void OnHelpFinder();
  void OnContextHelp();
  void OnClose() override;

  DWORD m_dwDockStyle = 0;
};

#endif  // VN_AFX_WIN32_CFRAMEWND_H
