// CWndHandlersTest.cpp - the close and scroll messages reach their
// overridable handlers, with the scroll bar that sent them.
#include "afx/win32/CScrollBar.h"
#include "afx/win32/CWnd.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

class HandlerRecorder : public CWnd {
public:
  struct Scroll { bool horizontal; UINT code, pos; CScrollBar* bar; HWND barWnd; };
  int m_nCloses = 0;
  std::vector<Scroll> m_scrolls;

protected:
  void OnClose() override { ++m_nCloses; }
  void OnHScroll(UINT code, UINT pos, CScrollBar* bar) override { Record(true, code, pos, bar); }
  void OnVScroll(UINT code, UINT pos, CScrollBar* bar) override { Record(false, code, pos, bar); }

private:
  void Record(bool horizontal, UINT code, UINT pos, CScrollBar* bar) {
    m_scrolls.push_back({horizontal, code, pos, bar, bar ? bar->m_hWnd : nullptr});
  }
};

// Windows that are never shown: they come and go without waiting on X.
const RECT kRect = {0, 0, 200, 100};

TEST(CWndHandlers, CloseGoesToOnCloseAndTheDefaultDestroys) {
  HandlerRecorder recorder;
  ASSERT_TRUE(recorder.CreateEx(0, nullptr, L"close", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  recorder.SendMessage(WM_CLOSE);
  EXPECT_EQ(1, recorder.m_nCloses);
  EXPECT_TRUE(::IsWindow(recorder.GetSafeHwnd()));

  CWnd plain;
  ASSERT_TRUE(plain.CreateEx(0, nullptr, L"plain", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  HWND hWnd = plain.GetSafeHwnd();
  plain.SendMessage(WM_CLOSE);
  EXPECT_FALSE(::IsWindow(hWnd));
  EXPECT_EQ(nullptr, plain.GetSafeHwnd());
}

TEST(CWndHandlers, ScrollMessagesCarryCodePositionAndTheSendingBar) {
  HandlerRecorder recorder;
  ASSERT_TRUE(recorder.CreateEx(0, nullptr, L"scroll", WS_OVERLAPPEDWINDOW, kRect, nullptr, 0));
  CScrollBar owned;
  ASSERT_TRUE(owned.Create(WS_CHILD | SBS_HORZ, kRect, &recorder, 1));
  // A bar that no object holds is lent to the handler for the call only.
  HWND loose = ::CreateWindowExW(0, L"SCROLLBAR", nullptr, WS_CHILD | SBS_VERT, 0, 0, 20, 100, recorder, nullptr,
                                 nullptr, nullptr);
  ASSERT_NE(nullptr, loose);
  const struct { UINT message, code, pos; HWND bar; } cases[] = {
      {WM_HSCROLL, SB_LINERIGHT, 0, owned}, {WM_VSCROLL, SB_THUMBTRACK, 77, loose},
      {WM_HSCROLL, SB_THUMBPOSITION, 65535, nullptr}, {WM_VSCROLL, SB_PAGEDOWN, 0, nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.message << " " << c.code);
    recorder.m_scrolls.clear();
    recorder.SendMessage(c.message, MAKEWPARAM(c.code, c.pos), reinterpret_cast<LPARAM>(c.bar));
    ASSERT_EQ(1u, recorder.m_scrolls.size());
    const auto& s = recorder.m_scrolls[0];
    EXPECT_EQ(c.message == WM_HSCROLL, s.horizontal);
    EXPECT_EQ(c.code, s.code);
    EXPECT_EQ(c.pos, s.pos);
    EXPECT_EQ(c.bar, s.barWnd);
    EXPECT_EQ(c.bar == nullptr, s.bar == nullptr);
    if (c.bar == owned.GetSafeHwnd()) {
      EXPECT_EQ(&owned, s.bar);
    }
  }
  EXPECT_TRUE(::IsWindow(loose));  // lending doesn't destroy
  EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(loose));
}

}  // namespace
