// ResizeTest.cpp - both resizers on real dialogs: CResizeCtrl's shares over
// a drag of many one-pixel steps, its subclassing and sizing frame, and
// CVnResizeControls' flag words, minimum and minimised windows.
#include "afx/win32/CDialog.h"
#include "afx/win32/CPropertySheet.h"
#include "toolkit/CResizeCtrl.h"
#include "toolkit/VnDialog.h"

#include "Screenshot.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>
#include <utility>

namespace {

enum : UINT { kLayout = 700, kFixed = 701, kEdit = 1001, kList = 1002, kCheck = 1003, kSmall = 1004 };

RECT ChildRect(HWND dialog, UINT id) {
  RECT rect;
  ::GetWindowRect(::GetDlgItem(dialog, id), &rect);
  ::MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

std::pair<LONG, LONG> ClientSize(HWND hWnd) {
  RECT rect;
  ::GetClientRect(hWnd, &rect);
  return {rect.right, rect.bottom};
}

std::pair<LONG, LONG> OuterSize(HWND hWnd) {
  RECT rect;
  ::GetWindowRect(hWnd, &rect);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

// Grows or shrinks the window's outer size; the client follows by as much.
void SizeBy(HWND hWnd, int dx, int dy) {
  RECT rect;
  ::GetWindowRect(hWnd, &rect);
  ::SetWindowPos(hWnd, nullptr, 0, 0, rect.right - rect.left + dx, rect.bottom - rect.top + dy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

struct Share { UINT id; int x, y, cx, cy; };

const Share kShares[] = {
    {kEdit, 0, 0, 100, 0},   {kList, 0, 0, 100, 100}, {kCheck, 0, 100, 0, 0},
    {kSmall, 33, 0, 67, 0},  {IDOK, 100, 100, 0, 0},  {IDCANCEL, 50, 100, 50, 0},
};

// What a child's edge must be after a total change t with share part: the
// exact value minus what the carried remainder holds, less than a pixel.
void ExpectWithinCarry(LONG actual, LONG start, int total, int part, const char* what, UINT id) {
  long exact = start * 100L + static_cast<long>(total) * part;
  EXPECT_LT(std::labs(actual * 100L - exact), 100) << what << " of " << id << " after " << total;
}

TEST(CResizeCtrlTest, ChildrenFollowTheirSharesWithNoPixelLost) {
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(kFixed));
  CResizeCtrl resizer(dialog.m_hWnd);
  for (const Share& s : kShares)
    ASSERT_TRUE(resizer.Add(static_cast<int>(s.id), s.x, s.y, s.cx, s.cy));
  std::map<UINT, RECT> start;
  for (const Share& s : kShares)
    start[s.id] = ChildRect(dialog.m_hWnd, s.id);
  const auto origin = ClientSize(dialog.m_hWnd);
  // Out by 41 x 29 one pixel at a time, and back again by other steps.
  const int steps[][2] = {{1, 1}, {-1, -1}, {2, -1}, {-2, 1}};
  const int counts[] = {41, 41, 29, 29};
  for (int phase = 0; phase < 4; ++phase)
    for (int i = 0; i < counts[phase]; ++i) {
      SizeBy(dialog.m_hWnd, steps[phase][0], steps[phase][1]);
      const auto now = ClientSize(dialog.m_hWnd);
      int dx = now.first - origin.first, dy = now.second - origin.second;
      for (const Share& s : kShares) {
        RECT r = ChildRect(dialog.m_hWnd, s.id), r0 = start[s.id];
        ExpectWithinCarry(r.left, r0.left, dx, s.x, "left", s.id);
        ExpectWithinCarry(r.top, r0.top, dy, s.y, "top", s.id);
        ExpectWithinCarry(r.right - r.left, r0.right - r0.left, dx, s.cx, "width", s.id);
        ExpectWithinCarry(r.bottom - r.top, r0.bottom - r0.top, dy, s.cy, "height", s.id);
      }
    }
  // Back at the first size, every child stands exactly where it began.
  ASSERT_EQ(origin, ClientSize(dialog.m_hWnd));
  for (const Share& s : kShares) {
    RECT now = ChildRect(dialog.m_hWnd, s.id);
    EXPECT_TRUE(::EqualRect(&start[s.id], &now)) << s.id;
  }
}

TEST(CResizeCtrlTest, AddRefusesSharesOutsideTheScale) {
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(kFixed));
  CResizeCtrl resizer(dialog.m_hWnd, FALSE);
  const struct { int id, x, y, cx, cy; BOOL added; } cases[] = {
      {kEdit, 60, 0, 40, 0, TRUE},  {kEdit, 60, 0, 41, 0, FALSE}, {kEdit, 0, 60, 0, 41, FALSE},
      {kEdit, -1, 0, 0, 0, FALSE},  {kEdit, 0, 0, 0, 101, FALSE}, {9999, 0, 0, 0, 0, FALSE},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.added, resizer.Add(c.id, c.x, c.y, c.cx, c.cy)) << c.x << " " << c.cx;
  EXPECT_TRUE(resizer.Remove(static_cast<int>(kEdit)));
  EXPECT_FALSE(resizer.Remove(static_cast<int>(kEdit)));
}

// Enabling subclasses the window, gives it a sizing frame around the
// client area that stays in place, and answers the registered message;
// disabling undoes all three.
TEST(CResizeCtrlTest, EnablingSubclassesAndAddsAFrame) {
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(kFixed));
  POINT before = {0, 0};
  ::ClientToScreen(dialog.m_hWnd, &before);
  const auto client = ClientSize(dialog.m_hWnd);
  CResizeCtrl resizer;
  EXPECT_EQ(nullptr, CResizeCtrl::GetResizeCtrl(dialog.m_hWnd));
  ASSERT_TRUE(resizer.Create(dialog.m_hWnd, FALSE));
  EXPECT_FALSE(resizer.Create(dialog.m_hWnd, TRUE));
  EXPECT_TRUE(resizer.SetEnabled(TRUE));
  EXPECT_FALSE(resizer.SetEnabled(TRUE));
  POINT after = {0, 0};
  ::ClientToScreen(dialog.m_hWnd, &after);
  EXPECT_TRUE(::GetWindowLongW(dialog.m_hWnd, GWL_STYLE) & WS_THICKFRAME);
  EXPECT_EQ(std::make_pair(before.x, before.y), std::make_pair(after.x, after.y));
  EXPECT_EQ(client.first, ClientSize(dialog.m_hWnd).first);
  EXPECT_EQ(&resizer, CResizeCtrl::GetResizeCtrl(dialog.m_hWnd));
  EXPECT_EQ(&resizer, ::GetPropW(dialog.m_hWnd, L"___CResizeCtrl___Class___"));
  EXPECT_FALSE(resizer.SetGripEnabled(TRUE));
  EXPECT_TRUE(resizer.SetEnabled(FALSE));
  EXPECT_FALSE(::GetWindowLongW(dialog.m_hWnd, GWL_STYLE) & WS_THICKFRAME);
  EXPECT_EQ(nullptr, CResizeCtrl::GetResizeCtrl(dialog.m_hWnd));
}

TEST(CResizeCtrlTest, TrackingSizesBoundTheWindow) {
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(kFixed));
  CResizeCtrl resizer(dialog.m_hWnd);
  resizer.SetMinimumTrackingSize(CSize(250, 200));
  resizer.SetMaximumTrackingSize(CSize(400, 300));
  ::SetWindowPos(dialog.m_hWnd, nullptr, 0, 0, 100, 100, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(std::make_pair(250L, 200L), OuterSize(dialog.m_hWnd));
  ::SetWindowPos(dialog.m_hWnd, nullptr, 0, 0, 900, 900, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_EQ(std::make_pair(400L, 300L), OuterSize(dialog.m_hWnd));
}

//===-- CVnResizeControls --------------------------------------------------===//

struct Follow {
  UINT id;
  DWORD flags;
  int dLeft, dTop, dRight, dBottom;  // per unit of the change, in halves
};

// Halves so that the centring bits fit: 2 is the whole change.
const Follow kFollow[] = {
    {kEdit, 0x2, 0, 0, 2, 0},          {kList, 0x20002, 0, 0, 2, 2},
    {kCheck, 0x10000, 0, 2, 0, 2},     {kSmall, 0x40004, 1, 1, 1, 1},
    {IDOK, 0x10001, 2, 2, 2, 2},       {IDCANCEL, 0x3, 2, 0, 2, 0},
};

class LayoutDialog : public CVnDialog {
public:
  LayoutDialog(BOOL horizontal, BOOL vertical) : CVnDialog(kLayout, nullptr), m_h(horizontal), m_v(vertical) {}

protected:
  BOOL OnInitDialog() override {
    CVnDialog::OnInitDialog();
    m_resizeControls.OnInitDialog(this, m_h, m_v);
    for (const Follow& f : kFollow)
      m_resizeControls.RegisterControl(f.flags, f.id);
    return TRUE;
  }
  BOOL m_h, m_v;
};

TEST(CVnResizeControlsTest, ControlsFollowTheirFlagWords) {
  LayoutDialog dialog(TRUE, TRUE);
  ASSERT_TRUE(dialog.Create(kLayout));
  dialog.ShowWindow(SW_SHOW);
  dialog.UpdateWindow();
  vn::test::WritePng(vn::test::CaptureWindow(dialog.m_hWnd), vn::test::ScreenshotPath(L"toolkit-layout-small.png"));
  std::map<UINT, RECT> start;
  for (const Follow& f : kFollow)
    start[f.id] = ChildRect(dialog.m_hWnd, f.id);
  // Odd changes: the centred control loses its half pixel each time.
  const int changes[][2] = {{31, 17}, {-5, 9}, {120, 80}};
  int totalX = 0, totalY = 0, driftX = 0, driftY = 0;
  for (const auto& change : changes) {
    SizeBy(dialog.m_hWnd, change[0], change[1]);
    totalX += change[0];
    totalY += change[1];
    driftX += change[0] / 2;
    driftY += change[1] / 2;
    for (const Follow& f : kFollow) {
      RECT r = ChildRect(dialog.m_hWnd, f.id), r0 = start[f.id];
      auto moved = [&](int halves, int total, int drift) { return halves == 1 ? drift : halves / 2 * total; };
      EXPECT_EQ(r0.left + moved(f.dLeft, totalX, driftX), r.left) << f.id;
      EXPECT_EQ(r0.top + moved(f.dTop, totalY, driftY), r.top) << f.id;
      EXPECT_EQ(r0.right + moved(f.dRight, totalX, driftX), r.right) << f.id;
      EXPECT_EQ(r0.bottom + moved(f.dBottom, totalY, driftY), r.bottom) << f.id;
    }
  }
  ::UpdateWindow(dialog.m_hWnd);
  vn::test::WritePng(vn::test::CaptureWindow(dialog.m_hWnd), vn::test::ScreenshotPath(L"toolkit-layout-large.png"));
}

// Minimising and restoring moves nothing: the minimised size is not kept.
TEST(CVnResizeControlsTest, MinimisedSizeIsIgnored) {
  LayoutDialog dialog(TRUE, TRUE);
  ASSERT_TRUE(dialog.Create(kLayout));
  dialog.ShowWindow(SW_SHOW);
  RECT before = ChildRect(dialog.m_hWnd, IDOK);
  dialog.SendMessage(WM_SIZE, SIZE_MINIMIZED, MAKELPARAM(0, 0));
  const auto client = ClientSize(dialog.m_hWnd);
  dialog.SendMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.first, client.second));
  RECT after = ChildRect(dialog.m_hWnd, IDOK);
  EXPECT_TRUE(::EqualRect(&before, &after));
}

// The first outer size is the minimum; an axis that may not change is
// held there.
TEST(CVnResizeControlsTest, MinimumAndFixedAxes) {
  const struct { BOOL h, v; } cases[] = {{TRUE, TRUE}, {TRUE, FALSE}, {FALSE, TRUE}};
  for (const auto& c : cases) {
    LayoutDialog dialog(c.h, c.v);
    ASSERT_TRUE(dialog.Create(kLayout));
    const auto first = OuterSize(dialog.m_hWnd);
    SizeBy(dialog.m_hWnd, -40, -40);
    EXPECT_EQ(first, OuterSize(dialog.m_hWnd));
    SizeBy(dialog.m_hWnd, 60, 60);
    EXPECT_EQ(std::make_pair(first.first + (c.h ? 60 : 0), first.second + (c.v ? 60 : 0)), OuterSize(dialog.m_hWnd))
        << c.h << c.v;
  }
}

// A plain sheet of three pages, made modeless with the second page in
// front; the resizer prepares it, takes its buttons and pages, and then
// stretches tab control and pages with the window.
TEST(CResizeCtrlTest, SheetHelpersPrepareAndStretchASheet) {
  CPropertyPage pages[3] = {CPropertyPage(710), CPropertyPage(711), CPropertyPage(710)};
  CPropertySheet sheet(L"Resized sheet", nullptr, 1);
  for (CPropertyPage& page : pages)
    sheet.AddPage(&page);
  CResizeCtrl resizer;
  EXPECT_FALSE(resizer.PropertySheetPrepare(nullptr));
  ASSERT_TRUE(sheet.Create(nullptr, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE));
  ASSERT_TRUE(resizer.Create(sheet.m_hWnd, FALSE));
  EXPECT_TRUE(resizer.PropertySheetPrepare(&sheet));
  EXPECT_EQ(1, sheet.GetActiveIndex());
  for (CPropertyPage& page : pages)
    EXPECT_TRUE(page.m_hWnd != nullptr);
  // The system's sheet template carries Apply, OK, Cancel and Help, the
  // last hidden when not asked for; a wizard's buttons are not there.
  EXPECT_TRUE(resizer.PropertySheetAddButtons(&sheet, 100, 100, 0, 0));
  sheet.m_psh.dwFlags |= PSH_WIZARD;
  EXPECT_FALSE(resizer.PropertySheetAddButtons(&sheet, 100, 100, 0, 0));
  EXPECT_FALSE(resizer.WizardAddEtchedBar(&sheet, 0, 100, 100, 0));
  sheet.m_psh.dwFlags &= ~PSH_WIZARD;
  EXPECT_TRUE(resizer.PropertySheetAddPages(&sheet, 0, 0, 100, 100));
  EXPECT_FALSE(resizer.WizardAddEtchedBar(&sheet, 0, 100, 100, 0));
  ASSERT_TRUE(resizer.SetEnabled(TRUE));
  HWND tab = sheet.GetTabControl();
  RECT tab0 = ChildRect(sheet.m_hWnd, static_cast<UINT>(::GetDlgCtrlID(tab)));
  RECT ok0 = ChildRect(sheet.m_hWnd, IDOK);
  RECT page0 = ChildRect(sheet.m_hWnd, static_cast<UINT>(::GetDlgCtrlID(pages[1].m_hWnd)));
  SizeBy(sheet.m_hWnd, 50, 30);
  RECT tab1 = ChildRect(sheet.m_hWnd, static_cast<UINT>(::GetDlgCtrlID(tab)));
  RECT ok1 = ChildRect(sheet.m_hWnd, IDOK);
  EXPECT_EQ(std::make_pair(tab0.right + 50, tab0.bottom + 30), std::make_pair(tab1.right, tab1.bottom));
  EXPECT_EQ(std::make_pair(ok0.left + 50, ok0.top + 30), std::make_pair(ok1.left, ok1.top));
  EXPECT_EQ(OuterSize(pages[1].m_hWnd).first, page0.right - page0.left + 50);
  ::DestroyWindow(sheet.m_hWnd);
}

// The grip answers the hit test as the bottom right corner, so the
// system sizes the window from there; elsewhere the window answers.
TEST(CResizeCtrlTest, GripHitTestsAsTheCorner) {
  CDialog dialog;
  ASSERT_TRUE(dialog.Create(kFixed));
  dialog.ShowWindow(SW_SHOW);
  CResizeCtrl resizer(dialog.m_hWnd);
  resizer.SetGripEnabled(TRUE);
  RECT client;
  ::GetClientRect(dialog.m_hWnd, &client);
  POINT corner = {client.right - 2, client.bottom - 2}, middle = {client.right / 2, client.bottom / 2};
  ::ClientToScreen(dialog.m_hWnd, &corner);
  ::ClientToScreen(dialog.m_hWnd, &middle);
  EXPECT_EQ(HTBOTTOMRIGHT, dialog.SendMessage(WM_NCHITTEST, 0, MAKELPARAM(corner.x, corner.y)));
  EXPECT_EQ(HTCLIENT, dialog.SendMessage(WM_NCHITTEST, 0, MAKELPARAM(middle.x, middle.y)));
}

// A wizard's active page is put back inside the margins measured before
// the wizard changed size.
TEST(CResizeCtrlTest, WizardPageKeepsItsMargins) {
  CPropertyPage pages[2] = {CPropertyPage(710), CPropertyPage(711)};
  CPropertySheet wizard(L"Wizard");
  wizard.m_psh.dwFlags |= PSH_WIZARD;
  for (CPropertyPage& page : pages)
    wizard.AddPage(&page);
  ASSERT_TRUE(wizard.Create(nullptr, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE));
  CResizeCtrl resizer(wizard.m_hWnd);
  EXPECT_FALSE(resizer.WizardAdjustPage(&wizard));  // nothing measured yet
  ASSERT_TRUE(resizer.WizardSaveMargins(&wizard));
  RECT sheet0, page0;
  ::GetWindowRect(wizard.m_hWnd, &sheet0);
  ::GetWindowRect(pages[0].m_hWnd, &page0);
  EXPECT_TRUE(resizer.WizardAddEtchedBar(&wizard, 0, 100, 100, 0));
  SizeBy(wizard.m_hWnd, 40, 20);
  ASSERT_TRUE(resizer.WizardAdjustPage(&wizard));
  RECT sheet1, page1;
  ::GetWindowRect(wizard.m_hWnd, &sheet1);
  ::GetWindowRect(pages[0].m_hWnd, &page1);
  const auto margins = [](const RECT& sheet, const RECT& page) {
    return std::make_tuple(page.left - sheet.left, page.top - sheet.top, sheet.right - page.right,
                           sheet.bottom - page.bottom);
  };
  EXPECT_EQ(margins(sheet0, page0), margins(sheet1, page1));
  EXPECT_EQ(page0.right - page0.left + 40, page1.right - page1.left);
  ::DestroyWindow(wizard.m_hWnd);
}

}  // namespace
