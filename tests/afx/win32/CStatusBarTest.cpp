// CStatusBarTest.cpp - a status bar's indicators, read back from the
// control: texts from the string table, a missing string, a stretched part
// taking what the others leave, a part's drawing style, the bar's place in
// its parent's layout.
#include "afx/win32/CStatusBar.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

const UINT kTitle = 500;  // "Frame test", in this executable's string table

std::vector<int> PartEdges(CStatusBar& bar) {
  std::vector<int> edges(static_cast<size_t>(bar.SendMessage(SB_GETPARTS, 0, 0)));
  bar.SendMessage(SB_GETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
  return edges;
}

TEST(CStatusBar, IndicatorsTakeTheirStringsAndStopAtAMissingOne) {
  struct Case { std::vector<UINT> ids; BOOL result; std::vector<const wchar_t*> texts; } cases[] = {
      {{kTitle, ID_SEPARATOR}, TRUE, {L"Frame test", L""}}, {{kTitle, 4242, kTitle}, FALSE, {L"Frame test"}},
  };
  for (const Case& c : cases) {
    CWnd parent;
    ASSERT_TRUE(parent.CreateEx(0, nullptr, L"", WS_POPUP, RECT{0, 0, 400, 100}, nullptr, 0));
    CStatusBar bar;
    ASSERT_TRUE(bar.Create(&parent));
    EXPECT_EQ(c.result, bar.SetIndicators(c.ids.data(), static_cast<int>(c.ids.size())));
    ASSERT_EQ(static_cast<int>(c.texts.size()), bar.GetCount());
    for (int k = 0; k < bar.GetCount(); ++k)
      EXPECT_STREQ(c.texts[k], bar.GetPaneText(k).GetString()) << k;
  }
}

// Along the bottom of its parent, full width; the stretched part ends at
// the bar's right edge, the fixed one keeps its width; a part's style
// reaches the control with its text.
TEST(CStatusBar, StretchedPartTakesTheRestOfTheBottomEdge) {
  CWnd parent;
  ASSERT_TRUE(parent.CreateEx(0, nullptr, L"", WS_POPUP, RECT{0, 0, 400, 100}, nullptr, 0));
  CStatusBar bar;
  ASSERT_TRUE(bar.Create(&parent));
  const UINT ids[] = {kTitle, ID_SEPARATOR};
  ASSERT_TRUE(bar.SetIndicators(ids, 2));
  bar.SetPaneInfo(0, kTitle, SBPS_POPOUT, 120);
  bar.SetPaneInfo(1, ID_SEPARATOR, SBPS_STRETCH, 0);
  parent.RepositionBars(AFX_IDW_STATUS_BAR, AFX_IDW_STATUS_BAR, 0);
  CRect place;
  bar.GetWindowRect(&place);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(CRect(0, 100 - place.Height(), 400, 100), place);
  EXPECT_GT(place.Height(), 0);
  EXPECT_EQ((std::vector<int>{120, 400}), PartEdges(bar));
  EXPECT_EQ(SBT_POPOUT, HIWORD(bar.SendMessage(SB_GETTEXTLENGTHW, 0)) & SBT_POPOUT);
  EXPECT_STREQ(L"Frame test", bar.GetPaneText(0).GetString());
}

}  // namespace
