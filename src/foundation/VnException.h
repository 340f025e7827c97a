// VnException.h - the component's failures and how they reach the user.
//
// A failure travels as a pointer to a heap object derived from CException;
// whoever catches it owns it and frees it with Delete().  The component's own
// tree:
//
//   CVnException            the common base; owns ReportError and HandleError
//   CVnReconcileException   an internal failure, by error identifier (0..3)
//   CVnOSException          an operating system failure, by Win32 error code
//
// Texts come from the component's string table (LocalResources.h); string
// 160 is the last resort when an exception has no text of its own.
#ifndef VN_FOUNDATION_VNEXCEPTION_H
#define VN_FOUNDATION_VNEXCEPTION_H

#include "afx/afx.h"

// The string table entries this file names.
enum : UINT {
  IDS_VN_UNKNOWN_SYSTEM_ERROR = 160,
  IDS_VN_INTERNAL_ERROR_101 = 162,
  IDS_VN_INTERNAL_ERROR_102 = 163,
  IDS_VN_INTERNAL_ERROR_103 = 164,
  IDS_VN_UNKNOWN_ERROR = 165,
  IDS_VN_COPY_TO_TEMP_FAILED = 166,
};

// The size in characters of the buffer that ReportError and HandleError give
// to GetErrorMessage.
const UINT kVnErrorTextSize = 4096;

class VN_API CVnException : public CException {
  DECLARE_DYNAMIC(CVnException)
public:
  // Shows GetErrorMessage's text, or string 160 when it gives none, with the
  // help context it named; messageId plays no part.  Gives AfxMessageBox's
  // answer.  The exception is not freed.
  int ReportError(UINT type = MB_OK, UINT messageId = 0) override;

  // Puts the exception's text into text and frees the exception.  A null
  // exception gives string 160; any other gives exactly what its
  // GetErrorMessage wrote (possibly nothing), with no fallback.
  static void HandleError(CException* exception, CString& text);
};

class VN_API CVnReconcileException : public CVnException {
  DECLARE_DYNAMIC(CVnReconcileException)
public:
  enum : UINT { InternalError101 = 0, InternalError102 = 1, InternalError103 = 2, CopyToTempFailed = 3 };

  explicit CVnReconcileException(UINT errorId = 0) : m_nError(errorId) {}
  // The identifier's text (string 162, 163, 164, 166; 165 for any other).
  // Null buffer or size 0: gives 0, writes nothing.  Otherwise gives 1, even
  // if the text could not be loaded.
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
  UINT GetError() const { return m_nError; }

  UINT m_nError;
};

class VN_API CVnOSException : public CVnException {
  DECLARE_DYNAMIC(CVnOSException)
public:
  // 0xFFFFFFFF stands for the calling thread's last error, read here.
  explicit CVnOSException(DWORD code = 0xFFFFFFFF);
  // The system's text for the code, at most maxChars - 1 characters.  Null
  // buffer or size 0: gives 0.  Otherwise writes an empty text first, then
  // gives the number of characters written, 0 when the system has no text.
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext = nullptr) const override;
  DWORD GetError() const { return m_dwError; }

  DWORD m_dwError;
};

[[noreturn]] VN_API void AfxThrowReconcileException(UINT errorId);
// 0xFFFFFFFF throws the calling thread's last error.
[[noreturn]] VN_API void AfxThrowOSException(DWORD code);
// Throws the system error that matches a failed shell execute result (32 or
// less); an unknown result, 0 and anything above 32 become 8, not enough
// memory.
[[noreturn]] VN_API void AfxThrowShellException(DWORD shellResult);
// The Win32 error code AfxThrowShellException throws for a shell result.
VN_API DWORD VnShellResultToError(DWORD shellResult);

// Loads string id from module and shows it through AfxMessageBox with type
// and helpId.  A missing or empty string shows nothing and gives 0.
VN_API int AfxLocalMessageBox(HINSTANCE module, UINT id, UINT type = MB_OK, UINT helpId = 0);

#endif  // VN_FOUNDATION_VNEXCEPTION_H
