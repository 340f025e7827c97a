// VnPropertySheetTest.cpp - CVnPropertySheet run modal and driven as a user
// would: a resizable sheet grows its tab control and active page and moves
// its buttons; a page's failed check brings that page to the front with the
// focus on the control; a read-only sheet hides OK and always cancels.
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxResource.h"
#include "toolkit/VnPropertySheet.h"

#include "ModalRun.h"
#include "Screenshot.h"
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace vn::test;

namespace {

enum : UINT { kPageOne = 710, kPageTwo = 711, kEdit = 1001, kList = 1002, kOther = 1004 };

HWND ActivePage(HWND sheet) { return reinterpret_cast<HWND>(::SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)); }

// A number field that must hold a number when the sheet applies.
class NumberPage : public CVnPropertyPage {
public:
  NumberPage() : CVnPropertyPage(kPageOne) {}

protected:
  BOOL OnInitDialog() override {
    CVnPropertyPage::OnInitDialog();
    m_resizeControls.RegisterControl(VN_RESIZE_GROW_X, kEdit);
    m_resizeControls.RegisterControl(VN_RESIZE_GROW, kList);
    return TRUE;
  }
  BOOL OnApply() override {
    CString text = GetItemText(m_hWnd, kEdit).c_str();
    return ValidateDouble(kEdit, text, static_cast<UINT>(-1));
  }
};

class OtherPage : public CVnPropertyPage {
public:
  OtherPage() : CVnPropertyPage(kPageTwo) {}
};

struct Sheet {
  explicit Sheet(BOOL canResize) : sheet(L"Sheet", nullptr, 0, canResize) {
    sheet.AddPage(&one);
    sheet.AddPage(&two);
  }
  NumberPage one;
  OtherPage two;
  CVnPropertySheet sheet;
};

struct Layout { RECT tab, ok, cancel, page, edit, list; };

Layout Measure(HWND sheet) {
  HWND page = ActivePage(sheet);
  HWND tab = reinterpret_cast<HWND>(::SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
  return {RectIn(sheet, tab), RectIn(sheet, ::GetDlgItem(sheet, IDOK)), RectIn(sheet, ::GetDlgItem(sheet, IDCANCEL)),
          RectIn(sheet, page), RectIn(page, ::GetDlgItem(page, kEdit)), RectIn(page, ::GetDlgItem(page, kList))};
}

TEST(CVnPropertySheetTest, ResizableSheetGrowsTabAndActivePage) {
  Sheet s(TRUE);
  Layout before = {}, after = {};
  DWORD style = 0;
  const int dx = 90, dy = 60;
  const INT_PTR result = RunModal(nullptr, L"Sheet", [&](HWND d) {
    style = ::GetWindowLongW(d, GWL_STYLE);
    before = Measure(d);
    ::RedrawWindow(d, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    WritePng(CaptureWindow(d), ScreenshotPath(L"toolkit-sheet-small.png"));
    RECT rect;
    ::GetWindowRect(d, &rect);
    ::SetWindowPos(d, nullptr, 0, 0, rect.right - rect.left + dx, rect.bottom - rect.top + dy,
                   SWP_NOMOVE | SWP_NOZORDER);
    after = Measure(d);
    ::RedrawWindow(d, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    WritePng(CaptureWindow(d), ScreenshotPath(L"toolkit-sheet-large.png"));
    PressButton(d, IDCANCEL);
  }, [&] { return s.sheet.DoModal(); });
  EXPECT_EQ(IDCANCEL, result);
  EXPECT_TRUE(style & WS_THICKFRAME);
  // The expected moves of each edge.
  const struct { const char* what; RECT from, to; int left, top, right, bottom; } moves[] = {
      {"tab", before.tab, after.tab, 0, 0, dx, dy},       {"OK", before.ok, after.ok, dx, dy, dx, dy},
      {"Cancel", before.cancel, after.cancel, dx, dy, dx, dy}, {"page", before.page, after.page, 0, 0, dx, dy},
      {"edit", before.edit, after.edit, 0, 0, dx, 0},     {"list", before.list, after.list, 0, 0, dx, dy},
  };
  for (const auto& m : moves)
    EXPECT_EQ(std::make_tuple(m.from.left + m.left, m.from.top + m.top, m.from.right + m.right,
                              m.from.bottom + m.bottom),
              std::make_tuple(m.to.left, m.to.top, m.to.right, m.to.bottom)) << m.what;
}

// OK on the second page: the first page's check fails while the sheet
// applies, shows its message, comes to the front and focuses its field;
// the sheet stays open until the number is fixed.
TEST(CVnPropertySheetTest, FailedCheckBringsItsPageToTheFront) {
  const struct { const wchar_t* text; bool accepted; } cases[] = {
      {L"abc", false}, {L".0", false}, {L"", false}, {L"1abc", true}, {L" 0abc", true}, {L"0.5", true},
  };
  for (const auto& c : cases) {
    Sheet s(FALSE);
    ScriptedPrompt prompt({IDOK});
    HWND frontAfterOk = nullptr, pageOne = nullptr, focus = nullptr, edit = nullptr;
    bool openAfterOk = false;
    const INT_PTR result = RunModal(nullptr, L"Sheet", [&](HWND d) {
      pageOne = ActivePage(d);
      edit = ::GetDlgItem(pageOne, kEdit);
      SetItemText(pageOne, kEdit, c.text);
      ::SendMessageW(d, PSM_SETCURSEL, 1, 0);
      PressButton(d, IDOK);
      openAfterOk = ::IsWindowVisible(d) && ActivePage(d) != nullptr;
      frontAfterOk = ActivePage(d);
      focus = FocusOf(d);
      if (openAfterOk) {
        SetItemText(pageOne, kEdit, L"2");
        PressButton(d, IDOK);
      }
    }, [&] { return s.sheet.DoModal(); });
    EXPECT_EQ(IDOK, result) << VnToUtf8(c.text);
    EXPECT_EQ(!c.accepted, openAfterOk) << VnToUtf8(c.text);
    if (c.accepted) {
      EXPECT_TRUE(prompt.Asked().empty());
      continue;
    }
    ASSERT_EQ(1u, prompt.Asked().size());
    EXPECT_EQ("Invalid number.", prompt.Asked()[0].text);
    EXPECT_EQ(pageOne, frontAfterOk);
    EXPECT_EQ(edit, focus);
  }
}

TEST(CVnPropertySheetTest, ReadOnlySheetHidesOkAndCancels) {
  Sheet s(FALSE);
  s.sheet.SetReadOnly(TRUE);
  bool okShown = true;
  std::wstring title, cancel;
  const INT_PTR result = RunModal(nullptr, L"Sheet", [&](HWND d) {
    okShown = ::IsWindowVisible(::GetDlgItem(d, IDOK));
    title = WindowText(d);
    cancel = GetItemText(d, IDCANCEL);
    SetItemText(ActivePage(d), kEdit, L"1");
    ::SendMessageW(d, WM_COMMAND, IDOK, 0);
    PressButton(d, IDCANCEL);
  }, [&] { return s.sheet.DoModal(); });
  EXPECT_EQ(IDCANCEL, result);
  EXPECT_FALSE(okShown);
  EXPECT_EQ(L"Close", cancel);
  EXPECT_NE(std::wstring::npos, title.find(L"(Read-Only)")) << VnToUtf8(title.c_str());
}

// A local page names its module; the local sheet points the page's record
// there before adding it, so template and caption come from that module
// even when the application's resource handle is another.
class HostPage : public CVnLocalPropertyPage {
public:
  HostPage() : CVnLocalPropertyPage(kPageTwo, 3005) {}

protected:
  HINSTANCE GetPageResourceModule() override { return ::GetModuleHandleW(nullptr); }
};

TEST(CVnLocalPropertySheetTest, LocalPagesTakeTemplateAndCaptionFromTheirModule) {
  HINSTANCE previous = AfxGetResourceHandle();
  AfxSetResourceHandle(::GetModuleHandleW(L"vnreconcile.dll"));
  HostPage page;
  CVnLocalPropertySheet sheet(L"Local", nullptr, 0, FALSE);
  sheet.AddPage(&page);
  AfxSetResourceHandle(previous);
  ASSERT_TRUE(sheet.Create(nullptr, WS_POPUP | WS_CAPTION | WS_VISIBLE));
  EXPECT_TRUE(page.m_hWnd != nullptr);
  wchar_t caption[64] = {};
  TCITEMW item = {};
  item.mask = TCIF_TEXT;
  item.pszText = caption;
  item.cchTextMax = 64;
  ::SendMessageW(sheet.GetTabControl(), TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  EXPECT_STREQ(L"Waiting", caption);
  ::DestroyWindow(sheet.m_hWnd);
}

}  // namespace
