// CString.h - a string of 16-bit units with value semantics.
//
// The subset of the framework's string class that the component calls: one
// contiguous, zero-terminated buffer of WCHAR.  Narrow text given to a
// constructor is widened through the process's ANSI code page.  GetBuffer
// hands out writable space; ReleaseBuffer takes the length back, from the
// terminating zero when none is named.
#ifndef VN_AFX_CSTRING_H
#define VN_AFX_CSTRING_H

#include "afx/portable/AfxTypes.h"

#include <cstdarg>
#include <string>

class VN_API CString {
public:
  typedef std::basic_string<WCHAR> Storage;

  CString() = default;
  CString(const CString&) = default;
  CString(CString&&) noexcept = default;
  CString(LPCWSTR text);
  CString(LPCWSTR text, int length);
  CString(WCHAR ch, int repeat = 1);
  explicit CString(const char* ansi);
  explicit CString(const Storage& s) : m_str(s) {}

  CString& operator=(const CString&) = default;
  CString& operator=(CString&&) noexcept = default;
  CString& operator=(LPCWSTR text);
  CString& operator=(WCHAR ch);

  int GetLength() const { return static_cast<int>(m_str.size()); }
  bool IsEmpty() const { return m_str.empty(); }
  void Empty() { m_str.clear(); }
  WCHAR GetAt(int index) const;
  void SetAt(int index, WCHAR ch);
  WCHAR operator[](int index) const { return GetAt(index); }
  operator LPCWSTR() const { return m_str.c_str(); }
  LPCWSTR GetString() const { return m_str.c_str(); }
  const Storage& Str() const { return m_str; }

  CString& operator+=(const CString& s) { m_str += s.m_str; return *this; }
  CString& operator+=(LPCWSTR s);
  CString& operator+=(WCHAR ch) { m_str += ch; return *this; }
  void Append(LPCWSTR s, int length);

  int Compare(LPCWSTR s) const;
  int CompareNoCase(LPCWSTR s) const;

  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Left(int count) const;
  CString Right(int count) const;

  int Find(WCHAR ch, int start = 0) const;
  int Find(LPCWSTR sub, int start = 0) const;
  int ReverseFind(WCHAR ch) const;
  int FindOneOf(LPCWSTR chars) const;

  CString& MakeLower();
  CString& MakeUpper();
  CString& Trim();
  CString& TrimLeft();
  CString& TrimRight();
  CString& TrimLeft(WCHAR ch);
  CString& TrimRight(WCHAR ch);
  int Replace(WCHAR from, WCHAR to);
  int Replace(LPCWSTR from, LPCWSTR to);
  int Remove(WCHAR ch);
  int Insert(int index, WCHAR ch);
  int Insert(int index, LPCWSTR s);
  int Delete(int index, int count = 1);

  // Writable space for at least minLength units plus the terminator.
  LPWSTR GetBuffer(int minLength = 0);
  LPWSTR GetBufferSetLength(int length);
  // Fixes the length: newLength units, or up to the first zero when -1.
  void ReleaseBuffer(int newLength = -1);

  // printf-style formatting; %s takes a wide string, %hs/%S a narrow one.
  void Format(LPCWSTR format, ...);
  void FormatV(LPCWSTR format, va_list args);
  void AppendFormat(LPCWSTR format, ...);

private:
  Storage m_str;
};

CString operator+(const CString& a, const CString& b);
CString operator+(const CString& a, LPCWSTR b);
CString operator+(LPCWSTR a, const CString& b);
CString operator+(const CString& a, WCHAR b);
bool operator==(const CString& a, const CString& b);
bool operator==(const CString& a, LPCWSTR b);
bool operator==(LPCWSTR a, const CString& b);
bool operator!=(const CString& a, const CString& b);
bool operator!=(const CString& a, LPCWSTR b);
bool operator!=(LPCWSTR a, const CString& b);
bool operator<(const CString& a, const CString& b);

// Length of a zero-terminated 16-bit text (wcslen for either WCHAR).
size_t VnStrLen(LPCWSTR s);
// Lower-cases one unit the way towlower does for the platform's WCHAR.
WCHAR VnToLower(WCHAR ch);
WCHAR VnToUpper(WCHAR ch);
// Narrow (UTF-8) view of a text, for messages on a console and tests.
std::string VnToUtf8(LPCWSTR s, int length = -1);
// The one UTF-16 to UTF-8 encoder: appends `length` units at s to out; a
// surrogate without its partner becomes U+FFFD, as Win32 makes it.
void VnAppendUtf8(const WCHAR* s, size_t length, std::string& out);
CString VnFromUtf8(const std::string& s);

#endif  // VN_AFX_CSTRING_H
