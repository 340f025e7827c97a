// AfxExceptions.cpp - the framework's exception classes and throw helpers.
#include "afx/portable/AfxExceptions.h"

#include "afx/os/OsSeam.h"
#include "afx/portable/AfxPrompt.h"

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

BOOL VnCopyMessage(LPCWSTR text, LPWSTR buffer, UINT maxChars) {
  if (!buffer || maxChars == 0)
    return FALSE;
  UINT i = 0;
  for (; text && text[i] && i + 1 < maxChars; ++i)
    buffer[i] = text[i];
  buffer[i] = 0;
  return TRUE;
}

BOOL CException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  if (buffer && maxChars)
    buffer[0] = 0;
  return FALSE;
}

int CException::ReportError(UINT type, UINT) {
  WCHAR text[512];
  if (!GetErrorMessage(text, 512, nullptr) || !text[0])
    VnCopyMessage(_T("An unsupported operation was attempted."), text, 512);
  return AfxMessageBox(text, type, 0);
}

BOOL CMemoryException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  return VnCopyMessage(_T("Out of memory."), buffer, maxChars);
}

BOOL CInvalidArgException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  return VnCopyMessage(_T("Encountered an improper argument."), buffer, maxChars);
}

BOOL CNotSupportedException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  return VnCopyMessage(_T("An unsupported operation was attempted."), buffer, maxChars);
}

// The file name leads; the reason is the system's own text for the code when
// it has one, else a line for the cause.
BOOL CFileException::GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT) const {
  static const WCHAR* const kCauses[] = {
      _T("No error occurred."), _T("An unspecified error occurred."), _T("The file was not found."),
      _T("The path is invalid."), _T("Too many files are open."), _T("Access to the file was denied."),
      _T("An invalid file handle was used."), _T("The current working directory cannot be removed."),
      _T("There are no more directory entries."), _T("An error occurred while setting the file position."),
      _T("A hardware I/O error occurred."), _T("A sharing violation occurred."), _T("A locking violation occurred."),
      _T("The disk is full."), _T("The end of the file was reached.")};
  CString reason;
  if (m_lOsError > 0)
    reason = CString(vn::os::SystemMessage(static_cast<DWORD>(m_lOsError)));
  reason.TrimRight();
  if (reason.IsEmpty())
    reason = kCauses[(m_cause >= 0 && m_cause <= endOfFile) ? m_cause : genericException];
  CString text = m_strFileName.IsEmpty() ? reason : m_strFileName + _T(": ") + reason;
  return VnCopyMessage(text, buffer, maxChars);
}

int CFileException::OsErrorToException(LONG osError) {
  switch (static_cast<DWORD>(osError)) {
  case ERROR_SUCCESS: return none;
  case ERROR_FILE_NOT_FOUND: return fileNotFound;
  case ERROR_PATH_NOT_FOUND: case ERROR_INVALID_NAME: case ERROR_FILENAME_EXCED_RANGE: case ERROR_DIRECTORY:
    return badPath;
  case ERROR_TOO_MANY_OPEN_FILES: return tooManyOpenFiles;
  case ERROR_ACCESS_DENIED: case ERROR_WRITE_PROTECT: case ERROR_FILE_EXISTS: case ERROR_ALREADY_EXISTS:
    return accessDenied;
  case ERROR_INVALID_HANDLE: return invalidFile;
  case ERROR_SEEK: return badSeek;
  case ERROR_READ_FAULT: case ERROR_WRITE_FAULT: return hardIO;
  case ERROR_SHARING_VIOLATION: return sharingViolation;
  case ERROR_LOCK_VIOLATION: return lockViolation;
  case ERROR_DISK_FULL: case ERROR_HANDLE_DISK_FULL: return diskFull;
  case ERROR_HANDLE_EOF: return endOfFile;
  default: return genericException;
  }
}

void CFileException::ThrowOsError(LONG osError, LPCWSTR fileName) {
  if (osError != 0)
    AfxThrowFileException(OsErrorToException(osError), osError, fileName);
}

void AfxThrowInvalidArgException() { throw new CInvalidArgException; }
void AfxThrowMemoryException() { throw new CMemoryException; }
void AfxThrowNotSupportedException() { throw new CNotSupportedException; }
void AfxThrowFileException(int cause, LONG osError, LPCWSTR fileName) {
  throw new CFileException(cause, osError, fileName);
}
