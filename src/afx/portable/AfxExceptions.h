// AfxExceptions.h - the framework's exception classes.
//
// Failures travel as pointers to heap objects derived from CException; the
// catcher owns the object and frees it with Delete().  GetErrorMessage turns
// one into text; ReportError shows that text through AfxMessageBox.
#ifndef VN_AFX_AFXEXCEPTIONS_H
#define VN_AFX_AFXEXCEPTIONS_H

#include "afx/portable/CObject.h"
#include "afx/portable/CString.h"

class VN_API CException : public CObject {
  DECLARE_DYNAMIC(CException)
public:
  CException() = default;
  // Frees a heap exception; the catcher's duty.
  void Delete() { delete this; }
  // Writes the text into buffer (at most maxChars units with the terminator)
  // and gives non-zero when there was one.
  virtual BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const;
  virtual int ReportError(UINT type = MB_OK, UINT messageId = 0);
};

class VN_API CMemoryException : public CException {
  DECLARE_DYNAMIC(CMemoryException)
public:
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
};

class VN_API CInvalidArgException : public CException {
  DECLARE_DYNAMIC(CInvalidArgException)
public:
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
};

class VN_API CNotSupportedException : public CException {
  DECLARE_DYNAMIC(CNotSupportedException)
public:
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
};

class VN_API CFileException : public CException {
  DECLARE_DYNAMIC(CFileException)
public:
  enum {
    none, genericException, fileNotFound, badPath, tooManyOpenFiles, accessDenied, invalidFile,
    removeCurrentDir, directoryFull, badSeek, hardIO, sharingViolation, lockViolation, diskFull,
    endOfFile
  };
  explicit CFileException(int cause = none, LONG osError = -1, LPCWSTR fileName = nullptr)
      : m_cause(cause), m_lOsError(osError), m_strFileName(fileName) {}

  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
  // The cause that matches a Win32 error code.
  static int OsErrorToException(LONG osError);
  static void ThrowOsError(LONG osError, LPCWSTR fileName = nullptr);

  int m_cause;
  LONG m_lOsError;
  CString m_strFileName;
};

[[noreturn]] VN_API void AfxThrowInvalidArgException();
[[noreturn]] VN_API void AfxThrowMemoryException();
[[noreturn]] VN_API void AfxThrowNotSupportedException();
[[noreturn]] VN_API void AfxThrowFileException(int cause, LONG osError = -1, LPCWSTR fileName = nullptr);

// Copies text into a caller's buffer the way GetErrorMessage does: at most
// maxChars - 1 units and a terminator.  Gives FALSE for a null or empty buffer.
BOOL VnCopyMessage(LPCWSTR text, LPWSTR buffer, UINT maxChars);

#endif  // VN_AFX_AFXEXCEPTIONS_H
