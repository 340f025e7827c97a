// VnDlgAboutTest.cpp - the About box run modal and read as a user would:
// its pages switched by the tree's keys, the Info page's build text, rows
// and buttons, a host's overrides, the dialog grown to its largest page,
// and the parameters' defaults, copies and registry rows.
#include "toolkit/VnDlgAbout.h"

#include "afx/win32/AfxMsgMap.h"
#include "foundation/VnPath.h"
#include "foundation/VnRegistry.h"
#include "resources/VnVersion.h"

#include "DialogDriver.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

using vn::test::DialogDriver;
using vn::test::GetItemText;
using vn::test::PressButton;

namespace {

enum : int { kClose = 1025, kPicture = 1067, kTree = 1069, kFrame = 1070, kBuild = 1071, kList = 1072,
             kSystemInfo = 1025, kDetails = 1073 };

// The page of the dialog that holds the item.
HWND Page(HWND dialog, int item) {
  for (HWND child = ::FindWindowExW(dialog, nullptr, L"#32770", nullptr); child;
       child = ::FindWindowExW(dialog, child, L"#32770", nullptr))
    if (::GetDlgItem(child, item))
      return child;
  return nullptr;
}

RECT RectIn(HWND window, HWND parent) {
  RECT rect;
  ::GetWindowRect(window, &rect);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

std::wstring TreeItems(HWND tree) {
  std::wstring names;
  for (HTREEITEM item = TreeView_GetRoot(tree); item; item = TreeView_GetNextSibling(tree, item)) {
    wchar_t text[64] = {};
    TVITEMW record = {};
    record.mask = TVIF_TEXT;
    record.hItem = item;
    record.pszText = text;
    record.cchTextMax = 64;
    TreeView_GetItem(tree, &record);
    names += std::wstring(text) + L" ";
  }
  return names;
}

std::vector<std::wstring> Rows(HWND list) {
  std::vector<std::wstring> rows;
  for (int i = 0; i < ListView_GetItemCount(list); ++i) {
    wchar_t name[128] = {}, value[128] = {};
    ListView_GetItemText(list, i, 0, name, 128);
    ListView_GetItemText(list, i, 1, value, 128);
    rows.push_back(std::wstring(name) + L"=" + value);
  }
  return rows;
}

// What a user sees of the box; filled by the driver while it is open.
struct Seen {
  std::wstring caption, pages, build;
  bool aboutFirst = false, infoAfterDown = false, aboutHiddenThen = false;
  bool systemInfo = false, details = false;
  std::vector<std::wstring> rows;
  int firstColumn = 0, secondColumn = 0, listWidth = 0;
  RECT frame = {}, aboutPage = {}, infoPage = {};
};

// Opens the box with params, reads it, switches to the Info page with the
// Down key, runs extra while it is open, then closes it with Close.
Seen OpenAndRead(CVnAboutDlgParams& params, const std::function<void(HWND)>& extra = nullptr) {
  Seen seen;
  bool result = true;
  {
    DialogDriver driver(nullptr, [&](HWND d) {
      wchar_t caption[128] = {};
      ::GetWindowTextW(d, caption, 128);
      seen.caption = caption;
      HWND tree = ::GetDlgItem(d, kTree), about = Page(d, kPicture), info = Page(d, kList);
      seen.pages = TreeItems(tree);
      seen.frame = RectIn(::GetDlgItem(d, kFrame), d);
      if (about)
        seen.aboutPage = RectIn(about, d);
      if (info)
        seen.infoPage = RectIn(info, d);
      seen.aboutFirst = about && ::IsWindowVisible(about) && !(info && ::IsWindowVisible(info));
      ::SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
      seen.infoAfterDown = info && ::IsWindowVisible(info);
      seen.aboutHiddenThen = !(about && ::IsWindowVisible(about));
      if (info) {
        seen.build = GetItemText(info, kBuild);
        HWND list = ::GetDlgItem(info, kList);
        seen.rows = Rows(list);
        seen.firstColumn = ListView_GetColumnWidth(list, 0);
        seen.secondColumn = ListView_GetColumnWidth(list, 1);
        RECT client;
        ::GetClientRect(list, &client);
        seen.listWidth = client.right;
        seen.systemInfo = ::IsWindowVisible(::GetDlgItem(info, kSystemInfo));
        seen.details = ::IsWindowVisible(::GetDlgItem(info, kDetails));
      }
      if (extra)
        extra(d);
      PressButton(d, kClose);
    });
    result = CVnDlgAbout::Execute(params);
    EXPECT_TRUE(driver.Acted());
  }
  EXPECT_FALSE(result);  // Close cancels
  return seen;
}

TEST(CVnDlgAboutTest, TheLibraryDefaultsFillBothPages) {
  CVnAboutDlgParams params;
  Seen seen = OpenAndRead(params);
  EXPECT_EQ(L"About Tessera", seen.caption);
  EXPECT_EQ(L"About Info ", seen.pages);
  EXPECT_TRUE(seen.aboutFirst);
  EXPECT_TRUE(seen.infoAfterDown);
  EXPECT_TRUE(seen.aboutHiddenThen);
  EXPECT_EQ(std::wstring(L"Tessera  Build: ") + L"" VN_VERSION_TEXT, seen.build);
  EXPECT_EQ((std::vector<std::wstring>{L"User=Unknown", L"Company=Unknown"}), seen.rows);
  EXPECT_EQ(seen.listWidth / 2 - 2, seen.firstColumn);
  EXPECT_EQ(seen.firstColumn, seen.secondColumn);
  EXPECT_TRUE(seen.systemInfo);  // Wine counts as the NT family
  EXPECT_FALSE(seen.details);    // no details file beside the program
  // Both pages lie over the frame, which grew to the larger page: the
  // Info page's template is larger than the frame's.
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.aboutPage));
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.infoPage));
}

// A host that keeps only the Info page, names its own rows, and takes the
// Details button's press.
class HostParams : public CVnAboutDlgParams {
public:
  std::vector<std::pair<CString, CString>> m_rows;
  int m_nDetails = 0, m_nSystemInfo = 0;

  const CString Caption() const override { return L"About the host"; }
  bool HasFeature(Feature feature) const override {
    return feature != FeatureSystemInfo && CVnAboutDlgParams::HasFeature(feature);
  }
  int InfoCount() const override { return static_cast<int>(m_rows.size()); }
  void GetInfo(int index, CString& name, CString& value) const override {
    name = m_rows[index].first;
    value = m_rows[index].second;
  }
  void OnInfoDetails() override { ++m_nDetails; }
  void OnInfoSystemInfo() override { ++m_nSystemInfo; }
};

TEST(CVnDlgAboutTest, AHostOverridesPagesRowsAndButtons) {
  CString details;
  GetAppPath(details);
  details += L"about-details.html";
  std::ofstream(std::filesystem::path(details.GetString())) << "<p>details</p>";
  HostParams params;
  params.m_dwFeatures = CVnAboutDlgParams::FeatureInfoPage | CVnAboutDlgParams::FeatureDetails;
  params.m_strDetailsPath = details;
  params.m_strProductName = L"Host";
  params.m_strProductBuild = L"7.1.2";
  for (int i = 0; i < 6; ++i)
    params.m_rows.push_back({CString(L"Name ") + CString(std::to_wstring(i).c_str()), CString(L"value")});
  Seen seen = OpenAndRead(params, [](HWND d) {
    PressButton(Page(d, kList), kDetails);
    PressButton(Page(d, kList), kDetails);
  });
  ::DeleteFileW(details);
  EXPECT_EQ(L"About the host", seen.caption);
  EXPECT_EQ(L"Info ", seen.pages);
  EXPECT_EQ(L"Host  Build: 7.1.2", seen.build);
  ASSERT_EQ(6u, seen.rows.size());
  EXPECT_EQ(L"Name 5=value", seen.rows[5]);
  EXPECT_FALSE(seen.systemInfo);
  EXPECT_TRUE(seen.details);
  EXPECT_EQ(2, params.m_nDetails);
  EXPECT_EQ(0, params.m_nSystemInfo);
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.infoPage));  // sized to the one page
}

// A picture larger than both pages: the box grows until the frame holds
// it, each side by half the shortfall.
TEST(CVnDlgAboutTest, TheBoxGrowsToALargePicture) {
  HDC screen = ::GetDC(nullptr);
  HBITMAP picture = ::CreateCompatibleBitmap(screen, 640, 470);
  ::ReleaseDC(nullptr, screen);
  CVnAboutDlgParams params;
  params.m_hGraphic = picture;
  HBITMAP shown = nullptr;
  Seen seen = OpenAndRead(params, [&](HWND d) {
    shown = reinterpret_cast<HBITMAP>(::SendDlgItemMessageW(Page(d, kPicture), kPicture, STM_GETIMAGE, IMAGE_BITMAP, 0));
  });
  EXPECT_EQ(picture, shown);
  EXPECT_LE(std::abs(640 - (seen.frame.right - seen.frame.left)), 1);
  EXPECT_LE(std::abs(470 - (seen.frame.bottom - seen.frame.top)), 1);
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.aboutPage));
  ::DeleteObject(picture);
}

// Only a plain size change sets the columns: a maximised or minimised one
// leaves them.
TEST(CVnDlgAboutTest, ColumnsFollowOnlyARestoredSize) {
  CVnAboutDlgParams params;
  std::vector<int> widths;
  OpenAndRead(params, [&](HWND d) {
    HWND info = Page(d, kList), list = ::GetDlgItem(info, kList);
    for (WPARAM type : {SIZE_MAXIMIZED, SIZE_MINIMIZED, SIZE_RESTORED}) {
      ListView_SetColumnWidth(list, 0, 17);
      ::SendMessageW(info, WM_SIZE, type, MAKELPARAM(400, 300));
      widths.push_back(ListView_GetColumnWidth(list, 0));
    }
  });
  ASSERT_EQ(3u, widths.size());
  EXPECT_EQ(17, widths[0]);
  EXPECT_EQ(17, widths[1]);
  EXPECT_NE(17, widths[2]);
}

TEST(CVnDlgAboutTest, DetailsButtonNeedsAnExistingFile) {
  CString present;
  GetAppPath(present);
  present += L"about-present.html";
  std::ofstream(std::filesystem::path(present.GetString())) << "x";
  const struct {
    const wchar_t* path;
    DWORD features;
    bool shown;
  } cases[] = {
      {L"Z:\\no\\such\\Patches.html", CVnAboutDlgParams::FeatureDetails, false},
      {L"", CVnAboutDlgParams::FeatureDetails, false},
      {present, CVnAboutDlgParams::FeatureDetails, true},
      {present, CVnAboutDlgParams::FeatureInfoPage, true},  // shares the Info page's bit
      {present, CVnAboutDlgParams::FeatureAboutPage, false},
  };
  for (const auto& c : cases) {
    CVnAboutDlgParams params;
    params.m_strDetailsPath = c.path;
    params.m_dwFeatures = c.features;
    EXPECT_EQ(c.shown, params.HasFeature(CVnAboutDlgParams::FeatureDetails)) << c.features;
  }
  ::DeleteFileW(present);
}

// The user and the company from a section of HKEY_LOCAL_MACHINE, made if
// missing; a key that doesn't open leaves "Unknown".
class RegistryParams : public CVnAboutDlgParams {
public:
  using CVnAboutDlgParams::LoadUserAndCompany;
};

TEST(CVnDlgAboutTest, ParamsDefaultsCopiesAndRegistryRows) {
  CVnAboutDlgParams first, second;
  EXPECT_NE(nullptr, first.AboutGraphic());
  EXPECT_EQ(first.AboutGraphic(), second.AboutGraphic());  // one picture for all
  EXPECT_EQ(CString(L"" VN_VERSION_TEXT), first.ProductBuild());
  CString name = L"x", value = L"y";
  first.GetInfo(2, name, value);
  EXPECT_TRUE(name.IsEmpty() && value.IsEmpty());

  const wchar_t kKey[] = L"Software\\VnReconcileTest";
  CVnRegistry writer(HKEY_LOCAL_MACHINE, kKey, L"About");
  ASSERT_TRUE(writer.PutString(L"RegisteredOwner", L"Ada"));
  ASSERT_TRUE(writer.PutString(L"RegisteredOrganization", L"Engines Ltd"));
  writer.CloseSection();
  const struct {
    const wchar_t* key;
    const wchar_t* section;
    const wchar_t* rows;
  } cases[] = {
      {kKey, L"About", L"User=Ada Company=Engines Ltd "},
      {kKey, L"Elsewhere", L"User=Unknown Company=Unknown "},
      {L"Software\\VnReconcileTest\\Missing", L"About", L"User=Unknown Company=Unknown "},
  };
  for (const auto& c : cases) {
    RegistryParams params;
    params.LoadUserAndCompany(c.key, c.section);
    RegistryParams copy(params);
    std::wstring rows;
    for (int i = 0; i < copy.InfoCount(); ++i) {
      copy.GetInfo(i, name, value);
      rows += std::wstring(name.GetString()) + L"=" + value.GetString() + L" ";
    }
    EXPECT_EQ(c.rows, rows) << c.section;
  }
  CVnRegistry().DeleteSection(HKEY_LOCAL_MACHINE, L"Software", L"VnReconcileTest");
}

}  // namespace
