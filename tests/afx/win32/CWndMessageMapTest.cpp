// CWndMessageMapTest.cpp - message maps: entries found up the class chain,
// registered messages, commands and their update handlers, and
// notifications reflected to the control that sent them.
#include "afx/win32/AfxMsgMap.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const UINT kRegistered = ::RegisterWindowMessageW(L"VnReconcile.Test.MessageMap");
const RECT kRect = {0, 0, 200, 100};
enum : UINT { kCmdA = 100, kCmdB = 101, kRangeFirst = 200, kRangeLast = 209, kButton = 300, kNobody = 400 };

class BaseWnd : public CWnd {
public:
  std::vector<std::string> m_log;

protected:
  void OnSize(UINT type, int cx, int cy) { m_log.push_back("base size " + std::to_string(cx)); }
  LRESULT OnSetText(WPARAM, LPARAM) {
    m_log.push_back("settext");
    return Default();
  }
  void OnCmdA() { m_log.push_back("base A"); }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(BaseWnd, CWnd)
  ON_WM_SIZE()
  ON_MESSAGE(WM_SETTEXT, OnSetText)
  ON_COMMAND(kCmdA, OnCmdA)
END_MESSAGE_MAP()

class DerivedWnd : public BaseWnd {
public:
  BOOL m_bEnableB = FALSE;

protected:
  void OnSize(UINT type, int cx, int cy) { m_log.push_back("derived size " + std::to_string(cx) + "x" + std::to_string(cy)); }
  LRESULT OnRegistered(WPARAM w, LPARAM l) { return w + l; }
  void OnCmdB() { m_log.push_back("B"); }
  void OnRange(UINT id) { m_log.push_back("range " + std::to_string(id)); }
  void OnUpdateB(CCmdUI* ui) {
    ui->Enable(m_bEnableB);
    ui->SetCheck(m_bEnableB);
  }
  void OnParentClicked() { m_log.push_back("parent clicked"); }
  void OnNotifyFromChild(NMHDR* header, LRESULT* result) {
    m_log.push_back("parent notify " + std::to_string(header->code));
    *result = 7;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedWnd, BaseWnd)
  ON_WM_SIZE()
  ON_REGISTERED_MESSAGE(kRegistered, OnRegistered)
  ON_COMMAND(kCmdB, OnCmdB)
  ON_COMMAND_RANGE(kRangeFirst, kRangeLast, OnRange)
  ON_UPDATE_COMMAND_UI(kCmdB, OnUpdateB)
  ON_BN_CLICKED(kButton, OnParentClicked)
  ON_NOTIFY(NM_CLICK, kButton, OnNotifyFromChild)
END_MESSAGE_MAP()

// A button that handles its own click and custom draw notice.
class SelfishButton : public CWnd {
public:
  int m_nClicks = 0;
  int m_nNotifies = 0;

protected:
  void OnReflectedClick() { ++m_nClicks; }
  void OnReflectedNotify(NMHDR*, LRESULT* result) {
    ++m_nNotifies;
    *result = 5;
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SelfishButton, CWnd)
  ON_CONTROL_REFLECT(BN_CLICKED, OnReflectedClick)
  ON_NOTIFY_REFLECT(NM_CLICK, OnReflectedNotify)
END_MESSAGE_MAP()

TEST(CWndMessageMap, TheMostDerivedEntryWinsAndTheRestIsInherited) {
  DerivedWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"map", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  wnd.m_log.clear();
  wnd.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(120, 45));
  wnd.SetWindowText(L"through Default");
  CString text;
  wnd.GetWindowText(text);
  EXPECT_EQ(CString(L"through Default"), text);
  EXPECT_EQ(5, wnd.SendMessage(kRegistered, 2, 3));
  EXPECT_EQ((std::vector<std::string>{"derived size 120x45", "settext"}), wnd.m_log);
}

TEST(CWndMessageMap, CommandsFromMenusAcceleratorsAndRangesReachTheirHandlers) {
  DerivedWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"commands", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  wnd.m_log.clear();
  wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kCmdA, 0));   // menu, base class entry
  wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kCmdB, 1));   // accelerator
  wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kRangeLast, 0));
  wnd.SendMessage(WM_COMMAND, MAKEWPARAM(kRangeLast + 1, 0));
  EXPECT_EQ((std::vector<std::string>{"base A", "B", "range 209"}), wnd.m_log);
}

TEST(CWndMessageMap, UpdateHandlersSetMenuItemsAndUnhandledOnesFollowTheCommandHandler) {
  DerivedWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"update", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  CMenu menu;
  menu.Attach(::CreatePopupMenu());
  for (UINT id : {kCmdA, kCmdB, kNobody})
    ::AppendMenuW(menu, MF_STRING | MF_GRAYED, id, L"item");
  auto state = [&](UINT position) { return ::GetMenuState(menu, position, MF_BYPOSITION); };
  for (BOOL enable : {TRUE, FALSE}) {
    wnd.m_bEnableB = enable;
    for (UINT i = 0; i < 3; ++i) {
      CCmdUI ui;
      ui.m_pMenu = &menu;
      ui.m_nIndex = i;
      ui.m_nID = ::GetMenuItemID(menu, i);
      EXPECT_EQ(i == 1, ui.DoUpdate(&wnd, TRUE) != FALSE);
    }
    EXPECT_FALSE(state(0) & MF_GRAYED) << "a command handler enables its item";
    EXPECT_EQ(!enable, (state(1) & MF_GRAYED) != 0);
    EXPECT_EQ(enable, (state(1) & MF_CHECKED) != 0);
    EXPECT_TRUE(state(2) & MF_GRAYED) << "nobody handles the item";
  }
}

TEST(CWndMessageMap, AControlHandlesItsOwnNotificationsBeforeItsParent) {
  DerivedWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, nullptr, L"parent", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  SelfishButton selfish;
  ASSERT_TRUE(selfish.CreateEx(0, L"BUTTON", L"selfish", WS_CHILD | BS_PUSHBUTTON, kRect, &parent, kButton));
  ASSERT_TRUE(selfish.SubclassCreated());
  CWnd plain;
  ASSERT_TRUE(plain.CreateEx(0, L"BUTTON", L"plain", WS_CHILD | BS_PUSHBUTTON, kRect, &parent, kButton));

  parent.m_log.clear();
  selfish.SendMessage(BM_CLICK);
  plain.SendMessage(BM_CLICK);
  NMHDR fromSelfish = {selfish.GetSafeHwnd(), kButton, static_cast<UINT>(NM_CLICK)};
  NMHDR fromPlain = {plain.GetSafeHwnd(), kButton, static_cast<UINT>(NM_CLICK)};
  EXPECT_EQ(5, parent.SendMessage(WM_NOTIFY, kButton, reinterpret_cast<LPARAM>(&fromSelfish)));
  EXPECT_EQ(7, parent.SendMessage(WM_NOTIFY, kButton, reinterpret_cast<LPARAM>(&fromPlain)));
  EXPECT_EQ(1, selfish.m_nClicks);
  EXPECT_EQ(1, selfish.m_nNotifies);
  EXPECT_EQ((std::vector<std::string>{"parent clicked", "parent notify " + std::to_string(static_cast<UINT>(NM_CLICK))}), parent.m_log);
}

}  // namespace
