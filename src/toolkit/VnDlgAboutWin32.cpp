// VnDlgAboutWin32.cpp - the About box, its two pages and its parameters.
//
// The dialog's template holds the tree of page names, a hidden frame that
// marks where the pages stand, and the Close button.  At initialisation:
//   1. the caption and one tree item per page the parameters allow;
//   2. the pages, child dialogs, each at its own size (the About page fits
//      its picture);
//   3. the dialog grows, on both sides evenly, until the frame is as large
//      as the largest page, and every page is laid over the frame;
//   4. the page of the selected tree item shows, the others hide.
// Growing moves the controls through the resize helper: the tree grows
// down, the frame both ways, the Close button follows the corner.
#include "toolkit/VnDlgAbout.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxResource.h"
#include "afx/win32/CGdiObject.h"
#include "foundation/LocalResources.h"
#include "foundation/VnPath.h"
#include "foundation/VnProcess.h"
#include "foundation/VnRegistry.h"
#include "toolkit/VnListCtrl.h"

enum : UINT {
  kBitmap = 161,
  kCaptionText = 169,
  kAppTitleText = 57344,  // AFX_IDS_APP_TITLE
  kDialog = 5043,
  kAboutTemplate = 5031,
  kInfoTemplate = 5044,
  kClose = 1025,
  kPicture = 1067,
  kTree = 1069,
  kFrame = 1070,
  kBuildText = 1071,
  kInfoList = 1072,
  kSystemInfo = 1025,
  kDetails = 1073,
};

//===-- The parameters -----------------------------------------------------===//

// Loaded on first use and kept for the process: every parameter object
// may hand it out, and none owns it.
static HBITMAP ComponentGraphic() {
  static HBITMAP graphic = [] {
    CBitmap bitmap;
    return LoadLocalBitmap(GetResourceModule(), kBitmap, bitmap) ? static_cast<HBITMAP>(bitmap.Detach()) : nullptr;
  }();
  return graphic;
}

// "major.minor.patch" from the fixed part of the module's version
// resource, with the fourth number when it isn't 0; empty without one.
static CString ModuleVersionText(HMODULE module) {
  WCHAR path[MAX_PATH] = {};
  if (!::GetModuleFileNameW(module, path, MAX_PATH))
    return CString();
  DWORD ignored = 0, size = ::GetFileVersionInfoSizeW(path, &ignored);
  if (size == 0)
    return CString();
  CByteArray block;
  block.SetSize(size);
  VS_FIXEDFILEINFO* fixed = nullptr;
  UINT length = 0;
  if (!::GetFileVersionInfoW(path, 0, size, block.GetData()) ||
      !::VerQueryValueW(block.GetData(), L"\\", reinterpret_cast<void**>(&fixed), &length) || !fixed)
    return CString();
  CString text;
  text.Format(L"%u.%u.%u", HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
              HIWORD(fixed->dwFileVersionLS));
  if (LOWORD(fixed->dwFileVersionLS)) {
    CString fourth;
    fourth.Format(L".%u", LOWORD(fixed->dwFileVersionLS));
    text += fourth;
  }
  return text;
}

CVnAboutDlgParams::CVnAboutDlgParams()
    : m_strCaption(L"About Tessera"),
      m_dwFeatures(FeatureAboutPage | FeatureInfoPage | FeatureSystemInfo | FeatureDetails),
      m_hGraphic(nullptr),
      m_strProductName(L"Tessera"),
      m_strProductBuild(L"X.X.XXX"),
      m_strUser(L"Unknown"),
      m_strCompany(L"Unknown") {
  LoadDefaults();
}

// The host's texts win over the component's where the host has them.
void CVnAboutDlgParams::LoadDefaults() {
  m_hGraphic = ComponentGraphic();
  GetAppPath(m_strDetailsPath);
  m_strDetailsPath += L"Patches\\Patches.html";
  CString text;
  if (LoadLocalString(AfxGetResourceHandle(), kCaptionText, text))
    m_strCaption = text;
  if (LoadLocalString(AfxGetResourceHandle(), kAppTitleText, text))
    m_strProductName = text;
  m_strProductBuild = ModuleVersionText(GetResourceModule());
}

bool CVnAboutDlgParams::HasFeature(Feature feature) const {
  if ((feature & m_dwFeatures) == 0)
    return false;
  switch (feature) {
  case FeatureSystemInfo:
    return IsWinNT() != 0;
  case FeatureDetails:
    return !m_strDetailsPath.IsEmpty() && IsFile(m_strDetailsPath);
  default:
    return true;
  }
}

void CVnAboutDlgParams::GetInfo(int index, CString& name, CString& value) const {
  switch (index) {
  case 0:
    name = L"User";
    value = m_strUser;
    break;
  case 1:
    name = L"Company";
    value = m_strCompany;
    break;
  default:
    name.Empty();
    value.Empty();
    break;
  }
}

// Both run from a button's message: whatever goes wrong stays here.
void CVnAboutDlgParams::OnInfoSystemInfo() {
  if (!IsWinNT())
    return;
  try {
    RunApp(L"winmsd.exe", 1, 0, 1, 1);
  } catch (CException* e) {
    e->Delete();
  }
}

void CVnAboutDlgParams::OnInfoDetails() {
  if (m_strDetailsPath.IsEmpty())
    return;
  try {
    OpenFileAssociation(m_strDetailsPath);
  } catch (CException* e) {
    e->Delete();
  }
}

void CVnAboutDlgParams::LoadUserAndCompany(const CString& key, const CString& section) {
  CVnRegistry registry;
  if (!registry.SetBaseKey(HKEY_LOCAL_MACHINE, key, 0, KEY_ALL_ACCESS) ||
      !registry.OpenSection(section, 1, KEY_ALL_ACCESS))
    return;
  m_strUser = registry.GetString(L"RegisteredOwner", m_strUser);
  m_strCompany = registry.GetString(L"RegisteredOrganization", m_strCompany);
}

//===-- The pages ----------------------------------------------------------===//

// The picture, the page sized so that its client area is the picture's.
class CVnAboutPage : public CVnLocalDialog {
  DECLARE_DYNAMIC(CVnAboutPage)
public:
  explicit CVnAboutPage(CVnAboutDlgParams& params) : m_params(params) {}

protected:
  HINSTANCE GetDialogResourceModule() override { return GetResourceModule(); }
  BOOL OnInitDialog() override;

private:
  CVnAboutDlgParams& m_params;
};

IMPLEMENT_DYNAMIC(CVnAboutPage, CVnLocalDialog)

BOOL CVnAboutPage::OnInitDialog() {
  CVnLocalDialog::OnInitDialog();
  HBITMAP graphic = m_params.AboutGraphic();
  ::SendDlgItemMessageW(m_hWnd, kPicture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(graphic));
  m_resizeControls.OnInitDialog(this, TRUE, TRUE);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW, kPicture);
  BITMAP size = {};
  if (graphic && ::GetObjectW(graphic, sizeof(size), &size)) {
    RECT rect = {0, 0, size.bmWidth, size.bmHeight};
    ::AdjustWindowRectEx(&rect, GetStyle(), FALSE, static_cast<DWORD>(::GetWindowLongW(m_hWnd, GWL_EXSTYLE)));
    MoveWindow(0, 0, rect.right - rect.left, rect.bottom - rect.top);
  }
  return TRUE;
}

// The product's name and build over a list of name and value rows.
class CVnInfoPage : public CVnLocalDialog {
  DECLARE_DYNAMIC(CVnInfoPage)
public:
  explicit CVnInfoPage(CVnAboutDlgParams& params) : m_params(params) {}

protected:
  HINSTANCE GetDialogResourceModule() override { return GetResourceModule(); }
  BOOL OnInitDialog() override;
  void OnSize(UINT type, int cx, int cy);
  // Half the list's width each.
  void FitColumns();
  void OnSystemInfo() { m_params.OnInfoSystemInfo(); }
  void OnDetails() { m_params.OnInfoDetails(); }

  DECLARE_MESSAGE_MAP()

private:
  CVnAboutDlgParams& m_params;
  CVnListCtrl m_list;
};

IMPLEMENT_DYNAMIC(CVnInfoPage, CVnLocalDialog)

BEGIN_MESSAGE_MAP(CVnInfoPage, CVnLocalDialog)
  ON_WM_SIZE()
  ON_BN_CLICKED(kSystemInfo, OnSystemInfo)
  ON_BN_CLICKED(kDetails, OnDetails)
END_MESSAGE_MAP()

// The columns take their widths from the list's: now, and at every size
// change after.  Laying the page over the frame needn't change its size
// (when it is the largest page it doesn't), so no WM_SIZE can be counted on.
BOOL CVnInfoPage::OnInitDialog() {
  CVnLocalDialog::OnInitDialog();
  CString build;
  build.Format(L"%s  Build: %s", m_params.ProductName().GetString(), m_params.ProductBuild().GetString());
  ::SetDlgItemTextW(m_hWnd, kBuildText, build);
  m_list.SubclassDlgItem(kInfoList, this);
  m_list.InsertColumn(0, L"Name");
  m_list.InsertColumn(1, L"Value");
  for (int i = 0, count = m_params.InfoCount(); i < count; ++i) {
    CString name, value;
    m_params.GetInfo(i, name, value);
    int row = m_list.InsertItem(m_list.GetItemCount(), name);
    m_list.SetItemText(row, 1, value);
  }
  m_list.SetFullRowSelect();
  ShowDlgItem(kSystemInfo, m_params.HasFeature(CVnAboutDlgParams::FeatureSystemInfo));
  ShowDlgItem(kDetails, m_params.HasFeature(CVnAboutDlgParams::FeatureDetails));
  m_resizeControls.OnInitDialog(this, TRUE, TRUE);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW_X, kBuildText);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW, kInfoList);
  m_resizeControls.RegisterControl(VN_RESIZE_MOVE_Y, kSystemInfo);
  m_resizeControls.RegisterControl(VN_RESIZE_MOVE_Y, kDetails);
  FitColumns();
  return TRUE;
}

// Only a plain size change sets them; a maximised page keeps its columns.
void CVnInfoPage::OnSize(UINT type, int cx, int cy) {
  CVnLocalDialog::OnSize(type, cx, cy);
  if (m_list.m_hWnd && type == SIZE_RESTORED)
    FitColumns();
}

void CVnInfoPage::FitColumns() {
  RECT client;
  m_list.GetClientRect(&client);
  int width = client.right / 2 - 2;
  m_list.SetColumnWidth(0, width);
  m_list.SetColumnWidth(1, width);
}

//===-- The dialog ---------------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnDlgAbout, CVnLocalDialog)

BEGIN_MESSAGE_MAP(CVnDlgAbout, CVnLocalDialog)
  ON_COMMAND(kClose, OnCancel)
  ON_NOTIFY(TVN_SELCHANGEDW, kTree, OnSelChanged)
END_MESSAGE_MAP()

CVnDlgAbout::CVnDlgAbout(CVnAboutDlgParams& params) : CVnLocalDialog(kDialog, nullptr), m_params(params) {}

CVnDlgAbout::~CVnDlgAbout() {
  delete m_pAboutPage;
  delete m_pInfoPage;
}

HINSTANCE CVnDlgAbout::GetDialogResourceModule() { return GetResourceModule(); }

// The template's tree and list are common controls: their classes must
// exist before the dialog manager makes them.
bool CVnDlgAbout::Execute(CVnAboutDlgParams& params) {
  CTreeCtrl::ClassName();
  CListCtrl::ClassName();
  CVnDlgAbout dialog(params);
  return dialog.DoModal() == IDOK;
}

BOOL CVnDlgAbout::OnInitDialog() {
  CVnLocalDialog::OnInitDialog();
  SetCaption();
  InitControls();
  InitResizer();
  CreatePages();
  ResizeToPages();
  RepositionPages();
  CenterWindow();
  SelectInitialPage();
  return TRUE;
}

void CVnDlgAbout::SetCaption() { SetWindowText(m_params.Caption()); }

void CVnDlgAbout::InitControls() {
  m_tree.SubclassDlgItem(kTree, this);
  m_frame.SubclassDlgItem(kFrame, this);
  if (m_params.HasFeature(CVnAboutDlgParams::FeatureAboutPage)) {
    m_pAboutPage = new CVnAboutPage(m_params);
    AddPage(L"About", CVnAboutDlgParams::FeatureAboutPage);
  }
  if (m_params.HasFeature(CVnAboutDlgParams::FeatureInfoPage)) {
    m_pInfoPage = new CVnInfoPage(m_params);
    AddPage(L"Info", CVnAboutDlgParams::FeatureInfoPage);
  }
}

void CVnDlgAbout::AddPage(LPCWSTR title, DWORD data) {
  m_tree.InsertItem(TVIF_TEXT | TVIF_PARAM, title, 0, 0, 0, 0, static_cast<LPARAM>(data), TVI_ROOT, TVI_LAST);
}

void CVnDlgAbout::InitResizer() {
  m_resizeControls.OnInitDialog(this, TRUE, TRUE);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW_Y, kTree);
  m_resizeControls.RegisterControl(VN_RESIZE_GROW, kFrame);
  m_resizeControls.RegisterControl(VN_RESIZE_CORNER, kClose);
}

void CVnDlgAbout::CreatePages() {
  if (m_pAboutPage)
    m_pAboutPage->Create(kAboutTemplate, this);
  if (m_pInfoPage)
    m_pInfoPage->Create(kInfoTemplate, this);
}

static SIZE WindowSize(const CWnd* wnd) {
  RECT rect = {0, 0, 0, 0};
  if (wnd && wnd->m_hWnd)
    wnd->GetWindowRect(&rect);
  return {rect.right - rect.left, rect.bottom - rect.top};
}

// The dialog grows by half the shortfall on each side (truncated), so the
// frame, which grows with it, ends as large as the largest page.
void CVnDlgAbout::ResizeToPages() {
  SIZE frame = WindowSize(&m_frame), about = WindowSize(m_pAboutPage), info = WindowSize(m_pInfoPage);
  LONG width = frame.cx, height = frame.cy;
  for (const SIZE& page : {about, info}) {
    width = page.cx > width ? page.cx : width;
    height = page.cy > height ? page.cy : height;
  }
  RECT rect;
  GetWindowRect(&rect);
  ::InflateRect(&rect, (width - frame.cx) / 2, (height - frame.cy) / 2);
  MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

void CVnDlgAbout::RepositionPages() {
  RECT rect;
  m_frame.GetWindowRect(&rect);
  ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
  for (CWnd* page : {static_cast<CWnd*>(m_pAboutPage), static_cast<CWnd*>(m_pInfoPage)})
    if (page && page->m_hWnd)
      page->MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

void CVnDlgAbout::SelectInitialPage() {
  if (HTREEITEM selected = m_tree.GetSelectedItem())
    DisplayPage(m_tree.GetItemData(selected));
}

void CVnDlgAbout::DisplayPage(DWORD_PTR id) {
  for (CWnd* page : {static_cast<CWnd*>(m_pAboutPage), static_cast<CWnd*>(m_pInfoPage)})
    if (page && page->m_hWnd)
      page->ShowWindow(SW_HIDE);
  CWnd* shown = id == CVnAboutDlgParams::FeatureAboutPage  ? static_cast<CWnd*>(m_pAboutPage)
                : id == CVnAboutDlgParams::FeatureInfoPage ? static_cast<CWnd*>(m_pInfoPage)
                                                           : nullptr;
  if (shown && shown->m_hWnd)
    shown->ShowWindow(SW_SHOW);
}

void CVnDlgAbout::OnSelChanged(NMHDR* notify, LRESULT* result) {
  *result = 0;
  DisplayPage(static_cast<DWORD_PTR>(reinterpret_cast<NMTREEVIEWW*>(notify)->itemNew.lParam));
}
