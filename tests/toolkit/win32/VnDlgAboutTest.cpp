// VnDlgAboutTest.cpp - the About box run modal and read as a user would:
// pages switched with the tree's Down key, the Info page's build text, rows
// and buttons, a host's overrides, the box grown to its largest page; and
// the parameters' registry rows.
#include "toolkit/VnDlgAbout.h"

#include "foundation/VnPath.h"
#include "foundation/VnRegistry.h"
#include "resources/VnVersion.h"

#include "ModalRun.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

using namespace vn::test;

namespace {

enum : int { kPicture = 1067, kTree = 1069, kFrame = 1070, kBuild = 1071, kList = 1072, kSystemInfo = 1025,
             kDetails = 1073, kClose = 1025 };

// The page of the box that holds the item.
HWND Page(HWND box, int item) {
  for (HWND page = ::FindWindowExW(box, nullptr, L"#32770", nullptr); page;
       page = ::FindWindowExW(box, page, L"#32770", nullptr))
    if (::GetDlgItem(page, item))
      return page;
  return nullptr;
}

// What a user sees of the box.
struct Seen {
  std::wstring caption, pages, build, rows;
  bool aboutFirst = false, infoAfterDown = false, systemInfo = false, details = false;
  int column = 0, listWidth = 0;
  RECT frame = {}, aboutPage = {}, infoPage = {};
};

// Opens the box, reads it, goes to the Info page with the Down key, runs
// extra and closes it with Close.
Seen OpenAndRead(CVnAboutDlgParams& params, const std::function<void(HWND)>& extra = nullptr) {
  Seen seen;
  DialogDriver driver(nullptr, [&](HWND box) {
    wchar_t text[128] = {};
    seen.caption = WindowText(box);
    HWND tree = ::GetDlgItem(box, kTree), about = Page(box, kPicture), info = Page(box, kList);
    for (HTREEITEM item = TreeView_GetRoot(tree); item; item = TreeView_GetNextSibling(tree, item)) {
      TVITEMW record = {};
      record.mask = TVIF_TEXT;
      record.hItem = item;
      record.pszText = text;
      record.cchTextMax = 128;
      TreeView_GetItem(tree, &record);
      seen.pages += std::wstring(text) + L" ";
    }
    seen.frame = RectIn(box, ::GetDlgItem(box, kFrame));
    seen.aboutPage = RectIn(box, about);
    seen.infoPage = RectIn(box, info);
    seen.aboutFirst = about && ::IsWindowVisible(about) && !(info && ::IsWindowVisible(info));
    ::SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
    seen.infoAfterDown = info && ::IsWindowVisible(info) && !(about && ::IsWindowVisible(about));
    if (info) {
      seen.build = GetItemText(info, kBuild);
      HWND list = ::GetDlgItem(info, kList);
      for (int i = 0; i < ListView_GetItemCount(list); ++i)
        for (int column : {0, 1}) {
          ListView_GetItemText(list, i, column, text, 128);
          seen.rows += std::wstring(text) + (column ? L" " : L"=");
        }
      seen.column = ListView_GetColumnWidth(list, 1);
      RECT client;
      ::GetClientRect(list, &client);
      seen.listWidth = client.right;
      seen.systemInfo = ::IsWindowVisible(::GetDlgItem(info, kSystemInfo));
      seen.details = ::IsWindowVisible(::GetDlgItem(info, kDetails));
    }
    if (extra)
      extra(box);
    PressButton(box, kClose);
  });
  EXPECT_FALSE(CVnDlgAbout::Execute(params));  // Close cancels
  EXPECT_TRUE(driver.Acted());
  return seen;
}

TEST(CVnDlgAboutTest, TheLibraryDefaultsFillBothPages) {
  CVnAboutDlgParams params;
  Seen seen = OpenAndRead(params);
  EXPECT_EQ(L"About Tessera", seen.caption);
  EXPECT_EQ(L"About Info ", seen.pages);
  EXPECT_TRUE(seen.aboutFirst);
  EXPECT_TRUE(seen.infoAfterDown);
  EXPECT_EQ(L"Tessera  Build: " VN_VERSION_TEXT, seen.build);
  EXPECT_EQ(L"User=Unknown Company=Unknown ", seen.rows);
  EXPECT_EQ(seen.listWidth / 2 - 2, seen.column);
  EXPECT_TRUE(seen.systemInfo);  // Wine counts as the NT family
  EXPECT_FALSE(seen.details);    // no details file beside the program
  // The frame grew to the larger page (the Info page's template is larger
  // than the frame's), and both pages lie over it.
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.aboutPage) && ::EqualRect(&seen.frame, &seen.infoPage));
}

// A host that keeps only the Info page, with rows and buttons of its own.
class HostParams : public CVnAboutDlgParams {
public:
  int m_nDetails = 0;

  const CString Caption() const override { return L"About the host"; }
  bool HasFeature(Feature feature) const override {
    return feature != FeatureSystemInfo && CVnAboutDlgParams::HasFeature(feature);
  }
  int InfoCount() const override { return 5; }
  void GetInfo(int index, CString& name, CString& value) const override {
    name.Format(L"Row %d", index);
    value = L"v";
  }
  void OnInfoDetails() override { ++m_nDetails; }
};

TEST(CVnDlgAboutTest, AHostOverridesPagesRowsAndButtons) {
  CString details;
  GetAppPath(details);
  details += L"about-details.html";
  const struct { DWORD features; bool file; bool details; } cases[] = {
      {CVnAboutDlgParams::FeatureInfoPage | CVnAboutDlgParams::FeatureDetails, true, true},
      {CVnAboutDlgParams::FeatureInfoPage | CVnAboutDlgParams::FeatureDetails, false, false},
      {CVnAboutDlgParams::FeatureInfoPage, true, true},  // Details shares the Info page's bit
  };
  for (const auto& c : cases) {
    if (c.file)
      std::ofstream(std::filesystem::path(details.GetString())) << "<p>details</p>";
    HostParams params;
    params.m_dwFeatures = c.features;
    params.m_strDetailsPath = details;
    params.m_strProductName = L"Host";
    params.m_strProductBuild = L"7.1.2";
    Seen seen = OpenAndRead(params, [](HWND box) {
      if (::IsWindowVisible(::GetDlgItem(Page(box, kList), kDetails)))
        PressButton(Page(box, kList), kDetails);
    });
    ::DeleteFileW(details);
    EXPECT_EQ(L"About the host", seen.caption);
    EXPECT_EQ(L"Info ", seen.pages);
    EXPECT_EQ(L"Host  Build: 7.1.2", seen.build);
    EXPECT_EQ(L"Row 0=v Row 1=v Row 2=v Row 3=v Row 4=v ", seen.rows);
    EXPECT_FALSE(seen.systemInfo);
    EXPECT_EQ(c.details, seen.details);
    EXPECT_EQ(c.details ? 1 : 0, params.m_nDetails);
    EXPECT_TRUE(::EqualRect(&seen.frame, &seen.infoPage));
  }
}

// A picture larger than both pages: the box grows, half the shortfall on
// each side, until the frame holds it.
TEST(CVnDlgAboutTest, TheBoxGrowsToALargePicture) {
  HDC screen = ::GetDC(nullptr);
  HBITMAP picture = ::CreateCompatibleBitmap(screen, 640, 470);
  ::ReleaseDC(nullptr, screen);
  CVnAboutDlgParams params;
  params.m_hGraphic = picture;
  HBITMAP shown = nullptr;
  std::vector<int> widths;
  RECT list = {};
  Seen seen = OpenAndRead(params, [&](HWND box) {
    shown = reinterpret_cast<HBITMAP>(
        ::SendDlgItemMessageW(Page(box, kPicture), kPicture, STM_GETIMAGE, IMAGE_BITMAP, 0));
    // Only a plain size change sets the columns.
    HWND info = Page(box, kList), control = ::GetDlgItem(info, kList);
    for (WPARAM type : {SIZE_MAXIMIZED, SIZE_MINIMIZED, SIZE_RESTORED}) {
      ListView_SetColumnWidth(control, 0, 17);
      ::SendMessageW(info, WM_SIZE, type, MAKELPARAM(400, 300));
      widths.push_back(ListView_GetColumnWidth(control, 0));
    }
    ::GetClientRect(control, &list);
  });
  EXPECT_EQ(picture, shown);
  EXPECT_LE(std::abs(640 - (seen.frame.right - seen.frame.left)), 1);
  EXPECT_LE(std::abs(470 - (seen.frame.bottom - seen.frame.top)), 1);
  EXPECT_TRUE(::EqualRect(&seen.frame, &seen.aboutPage));
  EXPECT_EQ((std::vector<int>{17, 17, static_cast<int>(list.right) / 2 - 2}), widths);
  ::DeleteObject(picture);
}

// The user and the company from a section below HKEY_LOCAL_MACHINE, made
// if missing; a key that doesn't open leaves "Unknown".  Copies carry them.
class RegistryParams : public CVnAboutDlgParams {
public:
  using CVnAboutDlgParams::LoadUserAndCompany;
};

TEST(CVnDlgAboutTest, UserAndCompanyFromTheRegistry) {
  const wchar_t kKey[] = L"Software\\VnReconcileTest";
  CVnRegistry writer(HKEY_LOCAL_MACHINE, kKey, L"About");
  ASSERT_TRUE(writer.PutString(L"RegisteredOwner", L"Ada") &&
              writer.PutString(L"RegisteredOrganization", L"Engines Ltd"));
  writer.CloseSection();
  const struct { const wchar_t *key, *section, *rows; } cases[] = {
      {kKey, L"About", L"User=Ada Company=Engines Ltd ="}, {kKey, L"Elsewhere", L"User=Unknown Company=Unknown ="},
      {L"Software\\VnReconcileTest\\Missing", L"About", L"User=Unknown Company=Unknown ="},
  };
  for (const auto& c : cases) {
    RegistryParams params;
    params.LoadUserAndCompany(c.key, c.section);
    RegistryParams copy(params);
    std::wstring rows;
    for (int i = 0; i <= copy.InfoCount(); ++i) {  // one past the last row: two empty texts
      CString name = L"x", value = L"y";
      copy.GetInfo(i, name, value);
      rows += std::wstring(name.GetString()) + L"=" + value.GetString() + (i < copy.InfoCount() ? L" " : L"");
    }
    EXPECT_EQ(c.rows, rows) << c.section;
  }
  CVnRegistry().DeleteSection(HKEY_LOCAL_MACHINE, L"Software", L"VnReconcileTest");
}

}  // namespace
