// CWndTest.cpp - window objects tied to real windows (under Wine and Xvfb).
#include "afx/win32/CWnd.h"

#include <gtest/gtest.h>

namespace {

const UINT kAnswerMessage = WM_APP + 1;

// Answers one private message and counts the messages it saw.
class CCountingWnd : public CWnd {
public:
  int m_messages = 0;
  bool m_sawNcCreate = false;
  bool m_ended = false;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    ++m_messages;
    if (message == WM_NCCREATE)
      m_sawNcCreate = true;
    if (message == kAnswerMessage)
      return static_cast<LRESULT>(wParam) * 2;
    return CWnd::WindowProc(message, wParam, lParam);
  }
  void PostNcDestroy() override { m_ended = true; }
};

const RECT kRect = {10, 10, 310, 210};

TEST(CWndTest, OwnClassWindowsFindTheirObjectFromWmNcCreateOn) {
  CCountingWnd wnd;
  ASSERT_EQ(TRUE, wnd.CreateEx(0, nullptr, L"test", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  EXPECT_TRUE(wnd.m_sawNcCreate);
  EXPECT_EQ(&wnd, CWnd::FromHandlePermanent(wnd.m_hWnd));
  EXPECT_EQ(42, wnd.SendMessage(kAnswerMessage, 21));
  CString title;
  wnd.GetWindowText(title);
  EXPECT_EQ(0, title.Compare(L"test"));

  HWND hWnd = wnd.m_hWnd;
  EXPECT_EQ(TRUE, wnd.DestroyWindow());
  EXPECT_TRUE(wnd.m_ended);
  EXPECT_EQ(nullptr, wnd.m_hWnd);
  EXPECT_FALSE(::IsWindow(hWnd));
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
}

TEST(CWndTest, ChildControlsAreHeldAndCanBeSubclassed) {
  CWnd parent;
  ASSERT_EQ(TRUE, parent.CreateEx(0, nullptr, L"parent", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  CWnd button;
  RECT r = {0, 0, 80, 20};
  ASSERT_EQ(TRUE, button.Create(L"BUTTON", L"press", WS_CHILD | WS_VISIBLE, r, &parent, 1234));
  EXPECT_EQ(1234, button.GetDlgCtrlID());
  EXPECT_EQ(&parent, button.GetParent());
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(button.m_hWnd));

  HWND hWnd = button.Detach();
  CCountingWnd sub;
  ASSERT_EQ(TRUE, sub.SubclassWindow(hWnd));
  EXPECT_EQ(&sub, CWnd::FromHandlePermanent(hWnd));
  EXPECT_EQ(42, sub.SendMessage(kAnswerMessage, 21));
  CString text;
  sub.GetWindowText(text);  // the button's own procedure still answers
  EXPECT_EQ(0, text.Compare(L"press"));
  EXPECT_EQ(hWnd, sub.UnsubclassWindow());
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(hWnd));
  EXPECT_EQ(0, ::SendMessageW(hWnd, kAnswerMessage, 21, 0));
  parent.DestroyWindow();
  EXPECT_FALSE(::IsWindow(hWnd));
}

TEST(CWndTest, RuntimeClassDataResolvesAcrossTheDllBoundary) {
  // classCObject is data inside vnreconcile.dll; the executable's reference
  // to it must reach the same object the DLL's own code hands out.
  EXPECT_EQ(&CObject::classCObject, RUNTIME_CLASS(CObject));
  EXPECT_EQ(&CWnd::classCWnd, RUNTIME_CLASS(CWnd));
  EXPECT_EQ(&CCmdTarget::classCCmdTarget, CWnd::classCWnd.m_pBaseClass);
  EXPECT_EQ(&CObject::classCObject, CCmdTarget::classCCmdTarget.m_pBaseClass);
}

}  // namespace
