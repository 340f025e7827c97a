// AfxTypes.h - the few platform types the portable code is written in.
//
// The component is defined over Win32 types and 16-bit text.  On Windows they
// come from <windows.h>; elsewhere this header gives the same names the same
// sizes, so portable sources build unchanged on both.  Text is always 16-bit
// units: WCHAR is wchar_t on Windows and char16_t elsewhere, and _T("...")
// makes a literal of that type.
#ifndef VN_AFX_AFXTYPES_H
#define VN_AFX_AFXTYPES_H

#include <cstddef>
#include <cstdint>

#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#ifndef _T
#define _T(x) L##x
#endif
#else

typedef char16_t WCHAR;
typedef uint32_t DWORD;
typedef uint32_t UINT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef int64_t LONGLONG;
typedef uint64_t ULONGLONG;
typedef uint16_t WORD;
typedef uint8_t BYTE;
typedef int BOOL;
typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t DWORD_PTR;
typedef UINT* PUINT;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef WCHAR* LPTSTR;
typedef const WCHAR* LPCTSTR;
typedef WCHAR TCHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef void* HANDLE;
typedef struct VnModule* HINSTANCE;
typedef HINSTANCE HMODULE;
typedef uint32_t COLORREF;

#define TRUE 1
#define FALSE 0
#define _T(x) u##x

// Message box types and results, as Win32 numbers them.
#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_YESNOCANCEL 0x00000003u
#define MB_YESNO 0x00000004u
#define MB_ICONSTOP 0x00000010u
#define MB_ICONERROR 0x00000010u
#define MB_ICONQUESTION 0x00000020u
#define MB_ICONEXCLAMATION 0x00000030u
#define MB_ICONWARNING 0x00000030u
#define MB_ICONINFORMATION 0x00000040u
#define MB_DEFBUTTON2 0x00000100u
#define MB_TYPEMASK 0x0000000Fu
#define MB_DEFMASK 0x00000F00u
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7

#define MAX_PATH 260
#define INVALID_HANDLE_VALUE ((HANDLE)(intptr_t)-1)

#define CP_ACP 0u
#define CP_OEMCP 1u
#define CP_UTF7 65000u
#define CP_UTF8 65001u

// Win32 error codes the portable half reports.
#define ERROR_SUCCESS 0u
#define NO_ERROR 0u
#define ERROR_INVALID_FUNCTION 1u
#define ERROR_FILE_NOT_FOUND 2u
#define ERROR_PATH_NOT_FOUND 3u
#define ERROR_TOO_MANY_OPEN_FILES 4u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_BAD_FORMAT 11u
#define ERROR_INVALID_DATA 13u
#define ERROR_OUTOFMEMORY 14u
#define ERROR_WRITE_PROTECT 19u
#define ERROR_NOT_READY 21u
#define ERROR_SEEK 25u
#define ERROR_WRITE_FAULT 29u
#define ERROR_READ_FAULT 30u
#define ERROR_SHARING_VIOLATION 32u
#define ERROR_LOCK_VIOLATION 33u
#define ERROR_HANDLE_EOF 38u
#define ERROR_HANDLE_DISK_FULL 39u
#define ERROR_NOT_SUPPORTED 50u
#define ERROR_FILE_EXISTS 80u
#define ERROR_INVALID_PARAMETER 87u
#define ERROR_BROKEN_PIPE 109u
#define ERROR_DISK_FULL 112u
#define ERROR_INSUFFICIENT_BUFFER 122u
#define ERROR_INVALID_NAME 123u
#define ERROR_DIR_NOT_EMPTY 145u
#define ERROR_BUSY 170u
#define ERROR_ALREADY_EXISTS 183u
#define ERROR_FILENAME_EXCED_RANGE 206u
#define ERROR_NO_UNICODE_TRANSLATION 1113u
#define ERROR_NO_ASSOCIATION 1155u
#define ERROR_DDE_FAIL 1156u
#define ERROR_DLL_NOT_FOUND 1157u
#define ERROR_DIRECTORY 267u
#define ERROR_TOO_MANY_LINKS 1142u
#define ERROR_CANT_RESOLVE_FILENAME 1921u

// Times: 100-nanosecond intervals since 1 January 1601 (UTC), in two
// halves; and a calendar date with its time of day.
struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};
struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

#define FILE_ATTRIBUTE_READONLY 0x1u
#define FILE_ATTRIBUTE_HIDDEN 0x2u
#define FILE_ATTRIBUTE_DIRECTORY 0x10u
#define FILE_ATTRIBUTE_ARCHIVE 0x20u
#define FILE_ATTRIBUTE_NORMAL 0x80u
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFu
struct WIN32_FIND_DATAW {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD dwReserved0;
  DWORD dwReserved1;
  WCHAR cFileName[MAX_PATH];
  WCHAR cAlternateFileName[14];
};

#define MAX_DEFAULTCHAR 2
#define MAX_LEADBYTES 12
struct CPINFO {
  UINT MaxCharSize;
  BYTE DefaultChar[MAX_DEFAULTCHAR];
  BYTE LeadByte[MAX_LEADBYTES];
};
struct CPINFOEXW {
  UINT MaxCharSize;
  BYTE DefaultChar[MAX_DEFAULTCHAR];
  BYTE LeadByte[MAX_LEADBYTES];
  WCHAR UnicodeDefaultChar;
  UINT CodePage;
  WCHAR CodePageName[MAX_PATH];
};

#endif  // _WIN32

// The component's export annotation: every symbol of the DLL is exported by
// the linker, so this stays empty; it marks the public surface for readers
// (docs/dll-boundary.md).
#define VN_API

#endif  // VN_AFX_AFXTYPES_H
