// CWnd.h - a window object over an HWND.
//
// The object holds its window's handle and nothing the window already
// knows.  Windows of the component's own classes share one window procedure,
// StaticWindowProc: CreateEx hands the object's address through the create
// parameters, the procedure ties object and handle together at
// WM_NCCREATE, and from then on it finds the object from the handle and
// calls its virtual WindowProc.  A window of a system class (a control) can
// join the same way after creation through SubclassWindow; its original
// procedure then does the default work.  Wrapper methods are one assert and
// one message.
//
// WindowProc offers each message to OnWndMsg: WM_COMMAND goes to OnCommand
// and the command routing, WM_NOTIFY to OnNotify, and every other message
// to the first matching entry of the class's message map (CCmdTarget.h).
// A control's WM_COMMAND or WM_NOTIFY is first reflected to the control's
// own object (OnChildNotify), so a control class can handle its own
// notifications.  WM_CLOSE, WM_HSCROLL and WM_VSCROLL without a map entry
// reach the overridable handlers OnClose, OnHScroll and OnVScroll.  The
// handlers' defaults pass the message on to the default procedure as it
// came (Default).
#ifndef VN_AFX_WIN32_CWND_H
#define VN_AFX_WIN32_CWND_H

#include "afx/afx.h"
#include "afx/win32/CCmdTarget.h"
#include "afx/win32/CGeometry.h"

class CMenu;
class CScrollBar;
class CDC;

class VN_API CWnd : public CCmdTarget {
  DECLARE_DYNAMIC(CWnd)
public:
  CWnd() = default;
  // Destroys the window if the object still holds one.
  ~CWnd() override;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  operator HWND() const { return m_hWnd; }
  HWND GetSafeHwnd() const { return m_hWnd; }
  // The object tied to a window by StaticWindowProc, or null.
  static CWnd* FromHandlePermanent(HWND hWnd);

  // className null: the component's default window class.  Gives FALSE when
  // the system refused; the object then holds no window.
  BOOL CreateEx(DWORD exStyle, LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect, CWnd* parent,
                UINT id, LPVOID param = nullptr);
  BOOL Create(LPCWSTR className, LPCWSTR windowName, DWORD style, const RECT& rect, CWnd* parent, UINT id);
  BOOL DestroyWindow();
  // Holds a window without routing its messages; Detach lets go of it.
  BOOL Attach(HWND hWnd);
  HWND Detach();
  // Routes an existing window's messages through WindowProc; its original
  // procedure becomes the default.
  BOOL SubclassWindow(HWND hWnd);
  HWND UnsubclassWindow();
  // Routes the messages of the parent's dialog item through this object,
  // as SubclassWindow does: a control of a dialog template joins its class.
  BOOL SubclassDlgItem(UINT id, CWnd* parent);
  // For a control just created through this object: routes its messages
  // through WindowProc from now on.  Destroys the control and gives FALSE
  // when that fails.
  BOOL SubclassCreated();

  // The message this thread's window procedure is handling now (hwnd and
  // time not kept); all zero outside one.
  static const MSG* GetCurrentMessage();

  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
  void SetWindowText(LPCWSTR text);
  void GetWindowText(CString& text) const;
  int GetWindowTextLength() const;
  BOOL ShowWindow(int command);
  void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
  void GetClientRect(RECT* rect) const;
  void GetWindowRect(RECT* rect) const;
  HWND SetFocus();
  BOOL IsWindowVisible() const;
  BOOL EnableWindow(BOOL enable = TRUE);
  DWORD GetStyle() const;
  // WM_TIMER comes every elapse milliseconds with id until KillTimer.
  UINT_PTR SetTimer(UINT_PTR id, UINT elapse);
  BOOL KillTimer(UINT_PTR id);
  CWnd* GetParent() const;
  int GetDlgCtrlID() const;
  void Invalidate(BOOL erase = TRUE);
  BOOL UpdateWindow();
  // The caret of this thread, in the client coordinates of its window.
  static CPoint GetCaretPos();
  void ShowCaret();
  // The child with the identifier, if an object holds it; else null.
  CWnd* GetDlgItem(int id) const;


  // Frames, placement and focus.
  // Over the owner while it is visible, else in the middle of the work area
  // of the window's monitor; kept on that work area.
  void CenterWindow();
  BOOL GetWindowPlacement(WINDOWPLACEMENT* placement) const;
  BOOL SetWindowPlacement(const WINDOWPLACEMENT* placement);
  // TRUE when wnd is a child of this window at any depth.
  BOOL IsChild(const CWnd* wnd) const;
  // The object of the window that has the keyboard focus, or null when
  // that window is not one of ours.
  static CWnd* GetFocus();
  // Sends to every child, and with deep to their children too.
  void SendMessageToDescendants(UINT message, WPARAM wParam = 0, LPARAM lParam = 0, BOOL deep = TRUE);
  // Lays out the children with identifiers first..last as bars along the
  // edges (WM_SIZEPARENT, CControlBar.h) and gives what is left of the client
  // rectangle (or of *clientRect) to the child leftOver.  With reposQuery
  // nothing moves: *rectParam receives what would be left.
  enum RepositionFlags { reposDefault = 0, reposQuery = 1, reposExtra = 2 };
  void RepositionBars(UINT first, UINT last, UINT leftOver, UINT flag = reposDefault, LPRECT rectParam = nullptr,
                      LPCRECT clientRect = nullptr, BOOL stretch = TRUE);
  // Offered each message the application's loop takes for this window or
  // its children before it is dispatched; TRUE when it was used up (an
  // accelerator, a dialog's navigation key).
  virtual BOOL PreTranslateMessage(MSG* msg) { return FALSE; }

  // The modal loop of a dialog or sheet made modeless (CWndModal.cpp):
  // pumps this thread's messages, sending the window WM_KICKIDLE while the
  // queue is empty, until ContinueModal gives FALSE.  Gives m_nModalResult.
  enum ModalLoopFlags { MLF_NOIDLEMSG = 1, MLF_NOKICKIDLE = 2, MLF_SHOWONIDLE = 4 };
  int RunModalLoop(DWORD flags = 0);
  virtual BOOL ContinueModal() { return m_bContinueModal; }
  void EndModalLoop(int result);
  int m_nModalResult = -1;

  HWND m_hWnd = nullptr;

protected:
  // A window's messages, once tied to this object.  The default passes them
  // to DefWindowProcW, or to the original procedure of a subclassed window.
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // Called after the last message (WM_NCDESTROY), when the handle is gone.
  virtual void PostNcDestroy() {}
  LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // The message being handled, passed on to the default procedure.
  LRESULT Default();

  // Gives TRUE with *result set when the message was handled.
  virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  // A menu item, accelerator or control notification: reflected to the
  // control first, then routed through OnCmdMsg.
  virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
  virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
  // A WM_COMMAND or WM_NOTIFY this window sent its parent, handed back by
  // the parent: the ON_CONTROL_REFLECT and ON_NOTIFY_REFLECT entries.
  virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  // Unpacks a scroll message for OnHScroll and OnVScroll.
  LRESULT DispatchScroll(UINT message, WPARAM wParam, LPARAM lParam);

  // Message handlers.  bar is the scroll bar control that sent the message,
  // null for the window's own bars.
  virtual void OnClose();
  virtual void OnHScroll(UINT code, UINT pos, CScrollBar* bar);
  virtual void OnVScroll(UINT code, UINT pos, CScrollBar* bar);

  // Defaults of the handlers that message map entries name (AfxMsgMap.h):
  // each passes the message on as it came.
  int OnCreate(LPCREATESTRUCTW create);
  void OnDestroy();
  void OnSize(UINT type, int cx, int cy);
  void OnSizing(UINT side, LPRECT rect);
  void OnGetMinMaxInfo(MINMAXINFO* info);
  void OnShowWindow(BOOL show, UINT status);
  void OnActivate(UINT state, CWnd* other, BOOL minimized);
  void OnSetFocus(CWnd* oldWnd);
  void OnKillFocus(CWnd* newWnd);
  void OnPaint();
  BOOL OnEraseBkgnd(CDC* dc);
  void OnSysColorChange();
  void OnTimer(UINT_PTR id);
  BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
  void OnLButtonDown(UINT flags, CPoint point);
  void OnLButtonUp(UINT flags, CPoint point);
  void OnLButtonDblClk(UINT flags, CPoint point);
  void OnMouseMove(UINT flags, CPoint point);
  BOOL OnSetCursor(CWnd* wnd, UINT hitTest, UINT message);
  void OnCaptureChanged(CWnd* wnd);
  void OnCancelMode();
  LRESULT OnNcHitTest(CPoint point);
  void OnKeyDown(UINT key, UINT repeat, UINT flags);
  void OnChar(UINT key, UINT repeat, UINT flags);
  void OnContextMenu(CWnd* wnd, CPoint point);
  BOOL OnHelpInfo(HELPINFO* info);
  void OnInitMenuPopup(CMenu* popup, UINT index, BOOL sysMenu);

private:
  static LRESULT CALLBACK StaticWindowProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);
  static LPCWSTR DefaultClassName();
  static BOOL ReflectToChild(HWND child, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  void Tie(HWND hWnd);
  void Untie();

  WNDPROC m_pfnSuper = nullptr;

protected:
  BOOL m_bContinueModal = FALSE;
};

#endif  // VN_AFX_WIN32_CWND_H
