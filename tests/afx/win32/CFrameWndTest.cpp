// CFrameWndTest.cpp - a frame lays out its bars and client, and routes
// commands from menus, accelerators and toolbar buttons, with their updates.
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CFrameWnd.h"
#include "afx/win32/CToolBar.h"
#include "afx/win32/CWinApp.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

enum : UINT { kResource = 500, kFirst = 1001, kSecond = 1002, kOrphan = 1009 };

class TestFrame : public CFrameWnd {
public:
  TestFrame() {
    m_bAutoDelete = FALSE;
    const RECT rect = {0, 0, 420, 300};
    Create(nullptr, L"Frame test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, rect, nullptr, MAKEINTRESOURCEW(kResource));
    m_top.Create(this, WS_CHILD | WS_VISIBLE | CBRS_TOP, AFX_IDW_TOOLBAR);
    m_top.LoadToolBar(kResource);
    m_bottom.Create(this, WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, AFX_IDW_STATUS_BAR);
    m_client.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 10, 10), this, AFX_IDW_PANE_FIRST);
    RecalcLayout();
  }

  CToolBar m_top, m_bottom;
  CWnd m_client;
  std::vector<UINT> m_ran;

protected:
  void OnFirst() { m_ran.push_back(kFirst); }
  void OnSecond() { m_ran.push_back(kSecond); }
  void OnUpdateFirst(CCmdUI* ui) { ui->Enable(FALSE); }
  void OnUpdateSecond(CCmdUI* ui) { ui->SetCheck(1); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestFrame, CFrameWnd)
  ON_COMMAND(kFirst, OnFirst)
  ON_COMMAND(kSecond, OnSecond)
  ON_UPDATE_COMMAND_UI(kFirst, OnUpdateFirst)
  ON_UPDATE_COMMAND_UI(kSecond, OnUpdateSecond)
END_MESSAGE_MAP()

CRect ChildRect(const CWnd& frame, const CWnd& child) {
  CRect rect;
  child.GetWindowRect(&rect);
  ::MapWindowPoints(nullptr, frame.m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

UINT MenuState(const TestFrame& frame, UINT id) {
  HMENU popup = ::GetSubMenu(::GetMenu(frame.m_hWnd), 0);
  frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup), 0);
  return ::GetMenuState(popup, id, MF_BYCOMMAND);
}

}  // namespace

TEST(CFrameWndTest, BarsTakeTheirEdgesAndTheClientTheRest) {
  TestFrame frame;
  ::SetWindowPos(frame.m_hWnd, nullptr, 0, 0, 500, 360, SWP_NOMOVE | SWP_NOZORDER);
  CRect client, top = ChildRect(frame, frame.m_top), bottom = ChildRect(frame, frame.m_bottom);
  frame.GetClientRect(&client);
  CRect pane = ChildRect(frame, frame.m_client);
  EXPECT_EQ(0, top.top);
  EXPECT_GT(top.Height(), 15);
  EXPECT_EQ(top.bottom, pane.top);
  EXPECT_EQ(bottom.top, pane.bottom);
  EXPECT_EQ(client.bottom, bottom.bottom);
  EXPECT_EQ(client.Width(), pane.Width());
  EXPECT_TRUE(MenuState(frame, ID_VIEW_TOOLBAR) & MF_CHECKED);

  // The View menu's toggle hides the toolbar; the client takes its place.
  frame.SendMessage(WM_COMMAND, ID_VIEW_TOOLBAR, 0);
  EXPECT_FALSE(frame.m_top.IsWindowVisible());
  EXPECT_EQ(0, ChildRect(frame, frame.m_client).top);
  EXPECT_FALSE(MenuState(frame, ID_VIEW_TOOLBAR) & MF_CHECKED);
  frame.SendMessage(WM_COMMAND, ID_VIEW_TOOLBAR, 0);
  EXPECT_EQ(top.bottom, ChildRect(frame, frame.m_client).top);
}

// One update handler serves a command wherever it shows: menu item and
// toolbar button alike; a command nobody handles is disabled.
TEST(CFrameWndTest, ItemsFollowTheUpdateHandlers) {
  TestFrame frame;
  ASSERT_EQ(4, frame.m_top.GetCount());
  EXPECT_EQ(static_cast<UINT>(TBBS_SEPARATOR), frame.m_top.GetButtonStyle(1) & TBBS_SEPARATOR);
  frame.m_top.SendMessage(WM_IDLEUPDATECMDUI, TRUE, 0);
  EXPECT_FALSE(frame.m_top.SendMessage(TB_ISBUTTONENABLED, kFirst));
  EXPECT_TRUE(frame.m_top.SendMessage(TB_ISBUTTONCHECKED, kSecond));
  EXPECT_TRUE(frame.m_top.SendMessage(TB_ISBUTTONENABLED, kSecond));
  EXPECT_FALSE(frame.m_top.SendMessage(TB_ISBUTTONENABLED, kOrphan));

  EXPECT_TRUE(MenuState(frame, kFirst) & MF_GRAYED);
  EXPECT_TRUE(MenuState(frame, kSecond) & MF_CHECKED);
  EXPECT_TRUE(MenuState(frame, kOrphan) & MF_GRAYED);

  // A button's tooltip is the second half of its command's string.
  NMTTDISPINFOW tip = {};
  tip.hdr = {frame.m_top.m_hWnd, kSecond, static_cast<UINT>(TTN_GETDISPINFOW)};
  frame.SendMessage(WM_NOTIFY, kSecond, reinterpret_cast<LPARAM>(&tip));
  EXPECT_STREQ(L"Second", tip.lpszText);
}

// Keys reach commands through the application's loop: the frame's
// accelerators translate them before the focused child sees them.
TEST(CFrameWndTest, AcceleratorsRunCommandsFromTheLoop) {
  CWinApp app;
  TestFrame frame;
  app.m_pMainWnd = &frame;
  ASSERT_TRUE(frame.LoadAccelTable(MAKEINTRESOURCEW(kResource)));
  frame.m_client.SetFocus();
  frame.m_client.PostMessage(WM_KEYDOWN, VK_F3, 1);
  EXPECT_TRUE(app.PumpMessage());
  EXPECT_EQ(std::vector<UINT>{kSecond}, frame.m_ran);
  app.m_pMainWnd = nullptr;
}
