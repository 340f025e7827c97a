// VnDialogValidateWin32.cpp - validation that reports and focuses in one
// step, and the local dialog's own template loading.
//
// A validator that fails shows one message box and leaves the focus on the
// control it checked, then gives 0; the caller only has to stop.  A message
// number of (UINT)-1 means the component's own default text, from its own
// module, whatever module the dialog names.
#include "toolkit/VnDialog.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxResource.h"
#include "foundation/LocalResources.h"
#include "foundation/VnException.h"
#include "foundation/VnPath.h"
#include "foundation/VnProcess.h"

enum : UINT { kBlankPath = 2899, kBadPath = 2900, kMissingFile = 2902 };
static const UINT kDefault = static_cast<UINT>(-1);

void CVnDialog::ShowErrorMessageBox(UINT messageId, UINT defaultId) {
  if (messageId == kDefault)
    AfxLocalMessageBox(GetResourceModule(), defaultId, 0, kDefault);
  else
    AfxLocalMessageBox(GetDialogResourceModule(), messageId, 0, kDefault);
}

bool CVnDialog::Fail(UINT id, UINT messageId) {
  AfxLocalMessageBox(GetDialogResourceModule(), messageId, 0, kDefault);
  SetDlgItemFocus(id);
  return false;
}

BOOL CVnDialog::ValidateNonEmptyPath(UINT id, CString& path, UINT blankMessage) {
  path.Trim();
  if (!path.IsEmpty())
    return TRUE;
  ShowErrorMessageBox(blankMessage, kBlankPath);
  SetDlgItemFocus(id);
  return FALSE;
}

BOOL CVnDialog::ValidatePath(UINT id, CString& path, BOOL appendSlash, UINT blankMessage, UINT badMessage) {
  if (!ValidateNonEmptyPath(id, path, blankMessage))
    return FALSE;
  if (!ResolveValidatePath(path)) {
    ShowErrorMessageBox(badMessage, kBadPath);
    SetDlgItemFocus(id);
    return FALSE;
  }
  if (appendSlash && !PathHasEndSlash(path))
    AppendEndSlash(path);
  ::SetDlgItemTextW(m_hWnd, id, path);
  return TRUE;
}

// A file that need not exist must at least be one that could be made.
BOOL CVnDialog::ValidateFile(UINT id, CString& file, BOOL mustExist, UINT blankMessage, UINT badMessage,
                             UINT missingMessage) {
  file.Trim();
  UINT message = 0, defaultId = 0;
  if (file.IsEmpty())
    message = blankMessage, defaultId = kBlankPath;
  else if (!GetValidPathName(file))
    message = badMessage, defaultId = kBadPath;
  else if (!IsFile(file) && mustExist)
    message = missingMessage, defaultId = kMissingFile;
  else if (!IsFile(file) && !EnsureValidFile(file))
    message = badMessage, defaultId = kBadPath;
  if (defaultId) {
    ShowErrorMessageBox(message, defaultId);
    SetDlgItemFocus(id);
    return FALSE;
  }
  ::SetDlgItemTextW(m_hWnd, id, file);
  return TRUE;
}

// Only the left is trimmed: blanks alone come out empty, trailing blanks
// stay.
void DDV_NotBlank(CDataExchange* dx, HINSTANCE module, CString& value, UINT messageId) {
  value.TrimLeft();
  if (!dx->m_bSaveAndValidate || value.GetLength() > 0)
    return;
  AfxMessageBox(LoadLocalString(module, messageId), MB_ICONEXCLAMATION, 0);
  dx->Fail();
}

//===-- The local dialog ---------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnLocalDialog, CVnDialog)

BEGIN_MESSAGE_MAP(CVnLocalDialog, CVnDialog)
  ON_WM_HELPINFO()
  ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

static HGLOBAL LoadTemplate(HINSTANCE module, LPCWSTR name) {
  HRSRC found = ::FindResourceW(module, name, RT_DIALOG);
  HGLOBAL loaded = found ? ::LoadResource(module, found) : nullptr;
  if (!loaded)
    AfxThrowOSException(static_cast<DWORD>(-1));
  return loaded;
}

CVnLocalDialog::~CVnLocalDialog() {
  if (m_bTemplateLoaded)
    ::FreeResource(m_hDialogTemplate);
}

BOOL CVnLocalDialog::Create(LPCWSTR templateName, CWnd* parent) {
  HINSTANCE module = GetDialogResourceModule();
  if (!module)
    return CDialog::Create(templateName, parent);
  HGLOBAL loaded = LoadTemplate(module, templateName);
  BOOL created = CDialog::CreateIndirect(loaded, parent, module);
  ::FreeResource(loaded);
  return created;
}

BOOL CVnLocalDialog::Create(UINT templateId, CWnd* parent) {
  return Create(MAKEINTRESOURCEW(LOWORD(templateId)), parent);
}

void CVnLocalDialog::InitLocalModalDialog() {
  if (m_hDialogTemplate || m_lpDialogTemplate)
    return;
  HINSTANCE module = GetDialogResourceModule();
  if (!module)
    module = AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
  m_hDialogTemplate = LoadTemplate(module, m_lpszTemplateName);
  m_lpszTemplateName = nullptr;
  m_bTemplateLoaded = TRUE;
}

INT_PTR CVnLocalDialog::DoModal() {
  InitLocalModalDialog();
  return CVnDialog::DoModal();
}

BOOL CVnLocalDialog::OnHelpInfo(HELPINFO* info) {
  if (info->iContextType != HELPINFO_WINDOW)
    return CVnDialog::OnHelpInfo(info);
  LocalContextHelp(GetDialogResourceModule(), static_cast<unsigned long>(info->dwContextId), HELP_CONTEXTPOPUP);
  return TRUE;
}
