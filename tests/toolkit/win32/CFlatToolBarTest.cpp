// CFlatToolBarTest.cpp - the flat toolbar's look and its button updates: a
// checked command shows as a pressed button, and only a real change of an
// enabled button repaints the bar.
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CFrameWnd.h"
#include "toolkit/CFlatToolBar.h"

#include <gtest/gtest.h>

namespace {

enum : UINT { kTools = 600, kCheck = 2001, kOther = 2002 };

class ToolFrame : public CFrameWnd {
public:
  ToolFrame() {
    m_bAutoDelete = FALSE;
    Create(nullptr, L"Flat toolbar", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 300, 200));
    m_bar.Create(this);
    m_loaded = m_bar.LoadToolBar(kTools);
    RecalcLayout();
  }

  // Runs one idle update of the bar; true when it asked for the whole bar
  // to be repainted (the control itself repaints just a button it changes).
  bool Update() {
    ::ValidateRect(m_bar.m_hWnd, nullptr);
    m_bar.SendMessage(WM_IDLEUPDATECMDUI, TRUE, 0);
    CRect dirty, all;
    ::GetUpdateRect(m_bar.m_hWnd, &dirty, FALSE);
    m_bar.GetClientRect(&all);
    return dirty == all;
  }

  CFlatToolBar m_bar;
  BOOL m_loaded = FALSE;
  BOOL m_enabled = TRUE;
  int m_check = 0;

protected:
  void OnCheck() {}
  void OnUpdateCheck(CCmdUI* ui) {
    ui->Enable(m_enabled);
    ui->SetCheck(m_check);
    ui->SetText(L"ignored");
  }
  DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ToolFrame, CFrameWnd)
  ON_COMMAND(kCheck, OnCheck)
  ON_UPDATE_COMMAND_UI(kCheck, OnUpdateCheck)
END_MESSAGE_MAP()

}  // namespace

TEST(CFlatToolBarTest, LoadsFlat) {
  ToolFrame frame;
  ASSERT_TRUE(frame.m_loaded);
  EXPECT_TRUE(::GetWindowLongW(frame.m_bar.m_hWnd, GWL_STYLE) & TBSTYLE_FLAT);
  EXPECT_EQ(2, frame.m_bar.GetCount());
  CFlatToolBar unloaded;
  EXPECT_FALSE(unloaded.Create(&frame, WS_CHILD, AFX_IDW_TOOLBAR + 1) && unloaded.LoadToolBar(kTools + 1));
}

TEST(CFlatToolBarTest, ChecksShowAsPressedAndRepaintOnlyOnChange) {
  ToolFrame frame;
  struct Step { BOOL enabled; int check; bool repaints; bool pressed; } steps[] = {
      {TRUE, 1, true, true},  // checked: pressed, drawn again
      {TRUE, 1, false, true},  // the same again: nothing to draw
      {TRUE, 7, false, true},  // not a state: ignored
      {TRUE, 0, true, false},  // unchecked
      {FALSE, 0, false, false},  // disabled
      {FALSE, 1, false, false},  // checked while disabled: written, not drawn
  };
  for (const Step& step : steps) {
    frame.m_enabled = step.enabled;
    frame.m_check = step.check;
    EXPECT_EQ(step.repaints, frame.Update()) << step.enabled << step.check;
    EXPECT_FALSE(frame.m_bar.SendMessage(TB_ISBUTTONCHECKED, kCheck));
    EXPECT_EQ(step.enabled, frame.m_bar.SendMessage(TB_ISBUTTONENABLED, kCheck) != 0);
    if (step.enabled)
      EXPECT_EQ(step.pressed, frame.m_bar.SendMessage(TB_ISBUTTONPRESSED, kCheck) != 0) << step.check;
  }
  // A button with no handler anywhere is disabled.
  EXPECT_FALSE(frame.m_bar.SendMessage(TB_ISBUTTONENABLED, kOther));
}
