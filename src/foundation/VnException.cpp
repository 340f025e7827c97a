// VnException.cpp - the component's failures and how they reach the user.
//
// ReportError and HandleError are the two ways out: one shows a box, the
// other hands back text.  Both give GetErrorMessage a buffer of 4096
// characters; only ReportError falls back to string 160 when there is no
// text.  An OS exception's text is the system's own (FormatMessageW on
// Windows, the OS seam's table of the same wording natively).
#include "foundation/VnException.h"

#include "afx/os/OsSeam.h"
#include "foundation/LocalResources.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CVnException, CException)
IMPLEMENT_DYNAMIC(CVnReconcileException, CVnException)
IMPLEMENT_DYNAMIC(CVnOSException, CVnException)

//===-- Reporting ----------------------------------------------------------===//

int CVnException::ReportError(UINT type, UINT) {
  WCHAR buffer[kVnErrorTextSize];
  UINT helpContext = 0;
  if (!GetErrorMessage(buffer, kVnErrorTextSize, &helpContext))
    VnCopyMessage(LoadLocalString(GetResourceModule(), IDS_VN_UNKNOWN_SYSTEM_ERROR), buffer, kVnErrorTextSize);
  return AfxMessageBox(buffer, type, helpContext);
}

void CVnException::HandleError(CException* exception, CString& text) {
  if (!exception) {
    text = LoadLocalString(GetResourceModule(), IDS_VN_UNKNOWN_SYSTEM_ERROR);
    return;
  }
  // One character of the buffer stays out of reach, as the caller's contract
  // has always been; what the exception leaves unwritten keeps its old text.
  exception->GetErrorMessage(text.GetBuffer(kVnErrorTextSize), kVnErrorTextSize - 1, nullptr);
  exception->Delete();
  text.ReleaseBuffer();
}

//===-- Internal failures --------------------------------------------------===//

static UINT StringForErrorId(UINT errorId) {
  switch (errorId) {
  case CVnReconcileException::InternalError101: return IDS_VN_INTERNAL_ERROR_101;
  case CVnReconcileException::InternalError102: return IDS_VN_INTERNAL_ERROR_102;
  case CVnReconcileException::InternalError103: return IDS_VN_INTERNAL_ERROR_103;
  case CVnReconcileException::CopyToTempFailed: return IDS_VN_COPY_TO_TEMP_FAILED;
  default: return IDS_VN_UNKNOWN_ERROR;
  }
}

BOOL CVnReconcileException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  if (!buffer || maxChars == 0)
    return FALSE;
  VnCopyMessage(LoadLocalString(GetResourceModule(), StringForErrorId(m_nError)), buffer, maxChars);
  return TRUE;
}

//===-- Operating system failures ------------------------------------------===//

CVnOSException::CVnOSException(DWORD code) : m_dwError(code == 0xFFFFFFFF ? vn::os::GetLastError() : code) {}

#ifdef _WIN32
// FROM_SYSTEM alone: no source module and no insert handling, in the
// neutral language; the system fails (gives 0) when the text does not fit.
static DWORD SystemText(DWORD code, LPWSTR buffer, UINT maxChars) {
  return ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), buffer,
                          maxChars - 1, nullptr);
}
#else
// The same contract over the OS seam's table: all or nothing, the text with
// its line end, 0 when there is none or it does not fit in maxChars - 1.
static DWORD SystemText(DWORD code, LPWSTR buffer, UINT maxChars) {
  vn::os::WideText text = vn::os::SystemMessage(code);
  if (text.empty() || text.size() + 2 > maxChars)
    return 0;
  VnCopyMessage(text.c_str(), buffer, maxChars);
  return static_cast<DWORD>(text.size());
}
#endif

BOOL CVnOSException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  if (!buffer || maxChars == 0)
    return FALSE;
  buffer[0] = 0;
  DWORD written = SystemText(m_dwError, buffer, maxChars);
  // Some systems leave a partial text behind when it does not fit; 0 means
  // no text, so none is left.
  if (written == 0)
    buffer[0] = 0;
  return static_cast<BOOL>(written);
}

//===-- Throwing -----------------------------------------------------------===//

void AfxThrowReconcileException(UINT errorId) { throw new CVnReconcileException(errorId); }

void AfxThrowOSException(DWORD code) { throw new CVnOSException(code); }

DWORD VnShellResultToError(DWORD shellResult) {
  switch (shellResult) {
  case 2: return 2;      // SE_ERR_FNF
  case 3: return 3;      // SE_ERR_PNF
  case 5: return 5;      // SE_ERR_ACCESSDENIED
  case 11: return 11;    // not a valid executable
  case 26: return 32;    // SE_ERR_SHARE: sharing violation
  case 27: return 1155;  // SE_ERR_ASSOCINCOMPLETE: no association
  case 28: return 1156;  // SE_ERR_DDETIMEOUT: DDE failed
  case 29: return 1156;  // SE_ERR_DDEFAIL
  case 30: return 1156;  // SE_ERR_DDEBUSY
  case 31: return 1155;  // SE_ERR_NOASSOC
  case 32: return 1157;  // SE_ERR_DLLNOTFOUND
  default: return 8;     // out of memory, and every result that is no failure
  }
}

void AfxThrowShellException(DWORD shellResult) { AfxThrowOSException(VnShellResultToError(shellResult)); }

//===-- Messages by number -------------------------------------------------===//

int AfxLocalMessageBox(HINSTANCE module, UINT id, UINT type, UINT helpId) {
  CString text;
  if (!LoadLocalString(module, id, text))
    return 0;
  return AfxMessageBox(text, type, helpId);
}
