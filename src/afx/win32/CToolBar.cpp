// CToolBar.cpp - the toolbar control, its resource and its button updates.
#include "afx/win32/CToolBar.h"

#include "afx/win32/CFrameWnd.h"

#include <cassert>
#include <cstring>
#include <vector>

IMPLEMENT_DYNAMIC(CToolBar, CControlBar)

// The toolbar resource comes in two layouts.  The platform's resource
// compiler writes WORDs: version 1, button width, height, count, then the
// command ids.  GNU windres writes DWORDs and no version: width, height,
// count, ids.  The sizes tell them apart.
struct ToolBarLayout {
  int width = 0;
  int height = 0;
  std::vector<UINT> ids;
};

static const WORD kToolBarType = 241;

BOOL CToolBar::Create(CWnd* parent, DWORD style, UINT id) {
  m_dwStyle = style & CBRS_ALL;
  DWORD windowStyle = (style & ~CBRS_ALL) | CCS_NOPARENTALIGN | CCS_NORESIZE | CCS_NODIVIDER | TBSTYLE_TOOLTIPS;
  if (!CWnd::CreateEx(0, TOOLBARCLASSNAMEW, nullptr, windowStyle, CRect(0, 0, 0, 0), parent, id) ||
      !SubclassCreated())
    return FALSE;
  SendMessage(TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON));
  return TRUE;
}

static bool ReadToolBar(const BYTE* data, DWORD size, ToolBarLayout& layout) {
  WORD words[4] = {};
  if (size >= 8)
    std::memcpy(words, data, 8);
  if (size >= 8 && words[0] == 1 && size >= 8u + 2u * words[3]) {
    layout.width = words[1];
    layout.height = words[2];
    for (WORD i = 0; i < words[3]; ++i)
      layout.ids.push_back(reinterpret_cast<const WORD*>(data + 8)[i]);
    return true;
  }
  DWORD dwords[3] = {};
  if (size < 12)
    return false;
  std::memcpy(dwords, data, 12);
  if (dwords[2] > (size - 12) / 4)
    return false;
  layout.width = static_cast<int>(dwords[0]);
  layout.height = static_cast<int>(dwords[1]);
  for (DWORD i = 0; i < dwords[2]; ++i)
    layout.ids.push_back(reinterpret_cast<const DWORD*>(data + 12)[i]);
  return true;
}

static bool FindToolBar(HINSTANCE module, LPCWSTR name, ToolBarLayout& layout) {
  HRSRC found = ::FindResourceW(module, name, MAKEINTRESOURCEW(kToolBarType));
  if (!found)
    return false;
  auto* data = static_cast<const BYTE*>(::LockResource(::LoadResource(module, found)));
  return data && ReadToolBar(data, ::SizeofResource(module, found), layout);
}

CToolBar::~CToolBar() {
  if (m_hImages)
    ::ImageList_Destroy(m_hImages);
}

BOOL CToolBar::LoadToolBar(LPCWSTR resourceName) {
  assert(m_hWnd && "the bar's window exists");
  HINSTANCE module = ::GetModuleHandleW(nullptr);
  ToolBarLayout layout;
  if (!FindToolBar(module, resourceName, layout))
    return FALSE;
  auto bitmap = static_cast<HBITMAP>(::LoadImageW(module, resourceName, IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  if (!bitmap)
    return FALSE;
  HIMAGELIST images = ::ImageList_Create(layout.width, layout.height, ILC_COLOR24 | ILC_MASK, 8, 8);
  bool added = images && ::ImageList_AddMasked(images, bitmap, RGB(192, 192, 192)) >= 0;
  ::DeleteObject(bitmap);
  if (!added) {
    if (images)
      ::ImageList_Destroy(images);
    return FALSE;
  }
  if (m_hImages)
    ::ImageList_Destroy(m_hImages);
  m_hImages = images;
  std::vector<TBBUTTON> buttons(layout.ids.size());
  int pictures = 0;
  for (size_t i = 0; i < buttons.size(); ++i) {
    TBBUTTON& b = buttons[i];
    b.idCommand = static_cast<int>(layout.ids[i]);
    b.fsStyle = layout.ids[i] ? TBSTYLE_BUTTON : TBSTYLE_SEP;
    b.fsState = TBSTATE_ENABLED;
    b.iBitmap = layout.ids[i] ? pictures++ : 8;  // a separator's width
  }
  SendMessage(TB_SETBITMAPSIZE, 0, MAKELPARAM(layout.width, layout.height));
  SendMessage(TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(m_hImages));
  return SendMessage(TB_ADDBUTTONSW, buttons.size(), reinterpret_cast<LPARAM>(buttons.data())) != 0;
}

int CToolBar::GetCount() const { return static_cast<int>(SendMessage(TB_BUTTONCOUNT)); }

UINT CToolBar::GetItemID(int index) const {
  TBBUTTON button = {};
  SendMessage(TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button));
  return button.idCommand;
}

UINT CToolBar::GetButtonStyle(int index) const {
  TBBUTTON button = {};
  if (!SendMessage(TB_GETBUTTON, index, reinterpret_cast<LPARAM>(&button)))
    return 0;
  return MAKELONG(button.fsStyle, button.fsState) ^ TBBS_DISABLED;
}

// Style and state are written together through the button's info record,
// and only when they change: the control repaints a button on every write,
// and idle updates write every button many times a second.
void CToolBar::SetButtonStyle(int index, UINT style) {
  if (GetButtonStyle(index) == style)
    return;
  TBBUTTONINFOW info = {};
  info.cbSize = sizeof(info);
  info.dwMask = TBIF_BYINDEX | TBIF_STYLE | TBIF_STATE;
  info.fsStyle = static_cast<BYTE>(LOWORD(style));
  info.fsState = static_cast<BYTE>(HIWORD(style ^ TBBS_DISABLED));
  SendMessage(TB_SETBUTTONINFOW, index, reinterpret_cast<LPARAM>(&info));
}

void CToolBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler) {
  CToolCmdUI state;
  UpdateButtons(state, target, disableIfNoHandler);
}

void CToolBar::UpdateButtons(CCmdUI& state, CFrameWnd* target, BOOL disableIfNoHandler) {
  state.m_pOther = this;
  state.m_nIndexMax = GetCount();
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    if (LOWORD(GetButtonStyle(state.m_nIndex)) & TBSTYLE_SEP)
      continue;
    state.m_nID = GetItemID(state.m_nIndex);
    if (!OnCmdMsg(state.m_nID, CN_UPDATE_COMMAND_UI, &state, nullptr))
      state.DoUpdate(target, disableIfNoHandler);
  }
}

// The height of one row of buttons, the width of the whole row.
CSize CToolBar::CalcFixedLayout(BOOL, BOOL) {
  SIZE size = {0, 0};
  SendMessage(TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
  DWORD buttonSize = static_cast<DWORD>(SendMessage(TB_GETBUTTONSIZE));
  return CSize(size.cx, HIWORD(buttonSize) + 4);
}

//===-- Button updates -----------------------------------------------------===//

void CToolCmdUI::Enable(BOOL on) {
  m_bEnableChanged = TRUE;
  UINT style = Bar()->GetButtonStyle(m_nIndex) & ~TBBS_DISABLED;
  if (!on)
    style = (style & ~TBBS_PRESSED) | TBBS_DISABLED;
  Bar()->SetButtonStyle(m_nIndex, style);
}

void CToolCmdUI::SetCheck(int check) {
  UINT style = Bar()->GetButtonStyle(m_nIndex) & ~(TBBS_CHECKED | TBBS_INDETERMINATE);
  if (check == 1)
    style |= TBBS_CHECKED;
  else if (check == 2)
    style |= TBBS_INDETERMINATE;
  Bar()->SetButtonStyle(m_nIndex, style | TBBS_CHECKBOX);
}
