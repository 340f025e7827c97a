// CDialog.cpp - dialogs from templates, the modal routine and data exchange.
//
// A dialog is always created modeless through CreateDialogIndirectParamW
// with this object as the parameter.  DialogProc meets the object at
// WM_INITDIALOG, subclasses the window (the dialog manager's procedure then
// does the default work) and calls OnInitDialog; for every other message it
// answers FALSE, since the object's own procedure already saw it.
#include "afx/win32/CDialog.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxResource.h"
#include "afx/win32/CWinApp.h"

#include <cassert>

#undef SubclassWindow  // windowsx.h's macro hides the member
#include <cerrno>
#include <cwchar>
#include <string>

IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CDialog, CWnd)

void AfxThrowUserException() { throw new CUserException; }

BEGIN_MESSAGE_MAP(CDialog, CWnd)
  ON_COMMAND(IDOK, OnOK)
  ON_COMMAND(IDCANCEL, OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog() = default;

CDialog::CDialog(LPCWSTR templateName, CWnd* parent) : m_lpszTemplateName(templateName), m_pParentWnd(parent) {}

CDialog::CDialog(UINT templateId, CWnd* parent)
    : m_lpszTemplateName(MAKEINTRESOURCEW(LOWORD(templateId))), m_pParentWnd(parent), m_nIDHelp(templateId) {}

CDialog::~CDialog() {
  if (m_hWnd)
    DestroyWindow();
}

//===-- Creation -----------------------------------------------------------===//

INT_PTR CALLBACK CDialog::DialogProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG)
    return FALSE;
  CDialog* self = reinterpret_cast<CDialog*>(lParam);
  if (!self->SubclassWindow(dialog))
    return TRUE;
  return self->OnInitDialog();
}

HWND CDialog::CreateFromTemplate(LPCDLGTEMPLATEW dialogTemplate, CWnd* parent, HINSTANCE module) {
  return CreateFromTemplateTo(dialogTemplate, parent ? parent->m_hWnd : nullptr, module);
}

HWND CDialog::CreateFromTemplateTo(LPCDLGTEMPLATEW dialogTemplate, HWND parent, HINSTANCE module) {
  assert(!m_hWnd && "one window per dialog object");
  if (!module)
    module = AfxGetResourceHandle();
  return ::CreateDialogIndirectParamW(module, dialogTemplate, parent, &CDialog::DialogProc,
                                     reinterpret_cast<LPARAM>(this));
}

// The template the object names: an in-memory one, a loaded handle, or the
// name looked up along the resource chain.  module receives its module.
LPCDLGTEMPLATEW CDialog::LockTemplate(HINSTANCE& module) {
  module = nullptr;
  if (m_lpDialogTemplate)
    return m_lpDialogTemplate;
  HGLOBAL handle = m_hDialogTemplate;
  if (!handle && m_lpszTemplateName) {
    module = AfxFindResourceHandle(m_lpszTemplateName, RT_DIALOG);
    HRSRC found = ::FindResourceW(module, m_lpszTemplateName, RT_DIALOG);
    handle = found ? ::LoadResource(module, found) : nullptr;
  }
  return handle ? static_cast<LPCDLGTEMPLATEW>(::LockResource(handle)) : nullptr;
}

BOOL CDialog::Create(LPCWSTR templateName, CWnd* parent) {
  m_lpszTemplateName = templateName;
  m_pParentWnd = parent;
  HINSTANCE module = nullptr;
  LPCDLGTEMPLATEW dialogTemplate = LockTemplate(module);
  return dialogTemplate && CreateFromTemplate(dialogTemplate, parent, module);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) { return Create(MAKEINTRESOURCEW(LOWORD(templateId)), parent); }

BOOL CDialog::CreateIndirect(HGLOBAL dialogTemplate, CWnd* parent, HINSTANCE module) {
  LPCDLGTEMPLATEW locked = dialogTemplate ? static_cast<LPCDLGTEMPLATEW>(::LockResource(dialogTemplate)) : nullptr;
  return CreateIndirect(locked, parent, module);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATEW dialogTemplate, CWnd* parent, HINSTANCE module) {
  m_pParentWnd = parent;
  return dialogTemplate && CreateFromTemplate(dialogTemplate, parent, module);
}

//===-- The modal routine --------------------------------------------------===//

HWND CDialog::GetSafeOwnerHwnd(CWnd* parent) {
  HWND hWnd = parent ? parent->m_hWnd : nullptr;
  if (!hWnd && AfxGetApp() && AfxGetApp()->m_pMainWnd)
    hWnd = AfxGetApp()->m_pMainWnd->m_hWnd;
  return hWnd ? ::GetAncestor(hWnd, GA_ROOT) : nullptr;
}

// Steps: find the template; disable the owner; create the dialog modeless;
// run the loop until EndDialog; hide it, give the owner back its input and
// activation; destroy it.
INT_PTR CDialog::DoModal() {
  HINSTANCE module = nullptr;
  LPCDLGTEMPLATEW dialogTemplate = LockTemplate(module);
  if (!dialogTemplate)
    return -1;
  HWND owner = GetSafeOwnerHwnd(m_pParentWnd);
  bool enableOwner = owner && ::IsWindowEnabled(owner);
  if (enableOwner)
    ::EnableWindow(owner, FALSE);
  m_nModalResult = -1;
  if (CreateFromTemplateTo(dialogTemplate, owner, module)) {
    DWORD style = ::GetWindowLongW(m_hWnd, GWL_STYLE);
    RunModalLoop(MLF_SHOWONIDLE | ((style & DS_NOIDLEMSG) ? MLF_NOIDLEMSG : 0));
  }
  if (m_hWnd)
    ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                   SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
  if (enableOwner)
    ::EnableWindow(owner, TRUE);
  if (owner && ::GetActiveWindow() == m_hWnd)
    ::SetActiveWindow(owner);
  DestroyWindow();
  return m_nModalResult;
}

void CDialog::EndDialog(int result) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  if (m_bContinueModal)
    EndModalLoop(result);
  ::EndDialog(m_hWnd, result);
}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  if (UpdateData(TRUE))
    EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

// The dialog manager's keys (Tab, Enter, Escape, mnemonics) for messages to
// this dialog or its controls.
BOOL CDialog::PreTranslateMessage(MSG* msg) {
  if (msg->hwnd != m_hWnd && !::IsChild(m_hWnd, msg->hwnd))
    return FALSE;
  return ::IsDialogMessageW(m_hWnd, msg);
}

//===-- Data exchange ------------------------------------------------------===//

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
  CDataExchange dx(this, saveAndValidate);
  try {
    DoDataExchange(&dx);
  } catch (CUserException* e) {
    e->Delete();
    return FALSE;
  }
  return TRUE;
}

CDataExchange::CDataExchange(CWnd* dialog, BOOL saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

HWND CDataExchange::PrepareCtrl(int id) {
  HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
  assert(control && "the dialog has the control it exchanges");
  m_hWndLastControl = control;
  m_bEditLastControl = FALSE;
  return control;
}

HWND CDataExchange::PrepareEditCtrl(int id) {
  HWND control = PrepareCtrl(id);
  m_bEditLastControl = TRUE;
  return control;
}

void CDataExchange::Fail() {
  if (m_bSaveAndValidate && m_hWndLastControl) {
    ::SendMessageW(m_pDlgWnd->m_hWnd, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_hWndLastControl), TRUE);
    if (m_bEditLastControl)
      ::SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
  }
  AfxThrowUserException();
}

static CString ControlText(HWND control) {
  CString text;
  int length = ::GetWindowTextLengthW(control);
  ::GetWindowTextW(control, text.GetBufferSetLength(length), length + 1);
  text.ReleaseBuffer();
  return text;
}

void DDX_Text(CDataExchange* dx, int id, CString& value) {
  HWND control = dx->PrepareEditCtrl(id);
  if (dx->m_bSaveAndValidate)
    value = ControlText(control);
  else
    ::SetWindowTextW(control, value);
}

// Reads a whole number, blanks around it allowed; false for anything else.
static bool ParseNumber(const CString& text, long long& number) {
  const wchar_t* start = reinterpret_cast<const wchar_t*>(static_cast<LPCWSTR>(text));
  wchar_t* end = nullptr;
  errno = 0;
  number = std::wcstoll(start, &end, 10);
  if (end == start || errno)
    return false;
  while (*end == L' ' || *end == L'\t')
    ++end;
  return *end == 0;
}

template <class T>
static void ExchangeNumber(CDataExchange* dx, int id, T& value, long long minimum, long long maximum,
                           LPCWSTR message) {
  HWND control = dx->PrepareEditCtrl(id);
  if (!dx->m_bSaveAndValidate) {
    ::SetWindowTextW(control, std::to_wstring(static_cast<long long>(value)).c_str());
    return;
  }
  long long number = 0;
  if (!ParseNumber(ControlText(control), number) || number < minimum || number > maximum) {
    AfxMessageBox(message, MB_ICONEXCLAMATION);
    dx->Fail();
  }
  value = static_cast<T>(number);
}

void DDX_Text(CDataExchange* dx, int id, UINT& value) {
  ExchangeNumber(dx, id, value, 0, 0xFFFFFFFFLL, L"Enter a positive integer.");
}

void DDX_Text(CDataExchange* dx, int id, int& value) {
  ExchangeNumber(dx, id, value, -0x80000000LL, 0x7FFFFFFFLL, L"Enter an integer.");
}

void DDX_Check(CDataExchange* dx, int id, int& value) {
  HWND control = dx->PrepareCtrl(id);
  if (dx->m_bSaveAndValidate)
    value = static_cast<int>(::SendMessageW(control, BM_GETCHECK, 0, 0));
  else
    ::SendMessageW(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

// Filling the dialog limits the edit instead, so the user cannot type more.
void DDV_MaxChars(CDataExchange* dx, const CString& value, int count) {
  if (!dx->m_bSaveAndValidate) {
    if (dx->m_hWndLastControl && dx->m_bEditLastControl)
      ::SendMessageW(dx->m_hWndLastControl, EM_LIMITTEXT, static_cast<WPARAM>(count), 0);
    return;
  }
  if (value.GetLength() <= count)
    return;
  AfxMessageBox(std::wstring(L"Enter no more than " + std::to_wstring(count) + L" characters.").c_str(),
                MB_ICONEXCLAMATION);
  dx->Fail();
}

static void FailRange(CDataExchange* dx, long long minimum, long long maximum, bool positive) {
  std::wstring text = positive ? L"Enter a positive integer between " : L"Enter an integer between ";
  text += std::to_wstring(minimum) + L" and " + std::to_wstring(maximum) + L".";
  AfxMessageBox(text.c_str(), MB_ICONEXCLAMATION);
  dx->Fail();
}

void DDV_MinMaxUInt(CDataExchange* dx, UINT value, UINT minimum, UINT maximum) {
  if (dx->m_bSaveAndValidate && (value < minimum || value > maximum))
    FailRange(dx, minimum, maximum, true);
}

void DDV_MinMaxInt(CDataExchange* dx, int value, int minimum, int maximum) {
  if (dx->m_bSaveAndValidate && (value < minimum || value > maximum))
    FailRange(dx, minimum, maximum, false);
}
