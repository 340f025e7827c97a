// OsSeam.h - the operating system services the portable code stands on.
//
// The one seam between the component and the system: files, paths, file
// mapping, times, code pages and their conversion, the ANSI code page,
// temporary names and the last error, in Win32's terms: failures are Win32
// error codes, code pages are Win32 numbers.  The Os*Win32.cpp files call the
// real API; the Os*Posix.cpp files map POSIX and iconv onto the same contract
// (errno becomes the matching Win32 code), one behaviour per operation, so
// the code above cannot tell the platforms apart.
#ifndef VN_AFX_OS_OSSEAM_H
#define VN_AFX_OS_OSSEAM_H

#include "afx/portable/AfxTypes.h"

#include <cstdint>
#include <string>

namespace vn {
namespace os {

typedef std::basic_string<WCHAR> WideText;

//===-- Errors -------------------------------------------------------------===//

DWORD GetLastError();
void SetLastError(DWORD code);
// The system's text for a Win32 error code, empty when it has none.
WideText SystemMessage(DWORD code);

//===-- Code pages ---------------------------------------------------------===//

// The process's ANSI code page.  Natively it follows the locale (65001 under
// UTF-8, else 1252) unless a test has fixed it with SetAnsiCodePage.
UINT GetACP();
void SetAnsiCodePage(UINT codePage);  // 0 restores the locale's answer
bool IsValidCodePage(UINT codePage);
// Converts with the platform's replacement for undecodable input; the result
// is empty and the last error set when the code page is unknown.
WideText MultiByteToWide(UINT codePage, const char* bytes, int count);
std::string WideToMultiByte(UINT codePage, const WCHAR* text, int count);
// GetCPInfo: the UTF-16 pages are no code pages to it.
bool GetCPInfo(UINT codePage, CPINFO& info);
// GetCPInfoExW when the system has it, else null.  Natively the names are
// those of the code page table (VnCodePages.h).
typedef int (*GetCPInfoExFn)(UINT codePage, DWORD flags, CPINFOEXW* info);
GetCPInfoExFn FindGetCPInfoEx();
// Test hook: true makes FindGetCPInfoEx answer null, as on a system without
// GetCPInfoExW.
void HideGetCPInfoExForTesting(bool hide);

//===-- Files --------------------------------------------------------------===//

typedef intptr_t FileHandle;
const FileHandle kInvalidFile = -1;

enum FileAccess : DWORD { kRead = 1, kWrite = 2, kReadWrite = 3 };
enum FileDisposition : DWORD {
  kOpenExisting,   // fail when missing
  kCreateAlways,   // create or truncate
  kOpenAlways,     // open or create, keep content
  kCreateNew       // fail when present
};
enum SeekOrigin : DWORD { kBegin = 0, kCurrent = 1, kEnd = 2 };

// Each call returns false (or kInvalidFile) on failure with the last error set.
FileHandle OpenFile(LPCWSTR path, FileAccess access, FileDisposition disposition);
bool CloseFile(FileHandle h);
bool ReadFile(FileHandle h, void* buffer, DWORD count, DWORD& done);
bool WriteFile(FileHandle h, const void* buffer, DWORD count, DWORD& done);
bool SeekFile(FileHandle h, int64_t offset, SeekOrigin origin, uint64_t& position);
bool GetFileSize(FileHandle h, uint64_t& size);
bool SetFileSize(FileHandle h, uint64_t size);
bool FlushFile(FileHandle h);
bool DeleteFile(LPCWSTR path);
// Never replaces: an existing target, even a dangling link, fails with 183.
bool MoveFile(LPCWSTR from, LPCWSTR to);
// Attributes in Win32's terms (FILE_ATTRIBUTE_DIRECTORY = 0x10, read-only =
// 0x1, hidden = 0x2, normal = 0x80); 0xFFFFFFFF when the path does not
// exist.  Natively read-only is a missing owner write bit (what
// SetFileAttributes takes away), hidden a name that starts with a dot.
DWORD GetFileAttributes(LPCWSTR path);
// A pipe, FIFO, socket or character device: what it reports as its size
// says nothing of the bytes it gives.  Natively by stat (so /dev/fd/N is the
// pipe behind it); on Windows a name in the device namespace (\\.\NAME).
bool IsStream(LPCWSTR path);
// The directory for temporary files, ending in a separator.
WideText TempDirectory();
// Creates one directory level; an existing one fails with 183.
bool CreateDirectory(LPCWSTR path);
// Copies a file's bytes; with failIfExists an existing target fails with 80.
bool CopyFile(LPCWSTR from, LPCWSTR to, bool failIfExists);
// Sets attributes in Win32's terms; natively only read-only (0x1) has effect.
bool SetFileAttributes(LPCWSTR path, DWORD attributes);
// The process's current directory, without an end separator unless it is a
// root; empty on failure.
WideText CurrentDirectory();
// The full path of the running program; empty on failure.
WideText ModuleFileName();
// Bytes free to the caller on the volume that holds path.
bool DiskFreeSpace(LPCWSTR path, uint64_t& freeToCaller);
// GetFullPathNameW: the full form of a path; empty with the last error set
// on failure.  Natively made by text (OsFullPathPosix.cpp).
WideText FullPathName(LPCWSTR path);
// GetDriveTypeW of a root ("c:\\"); natively "/" is a fixed disk (3) and a
// drive letter names no root (1).
UINT DriveType(LPCWSTR root);
// FindFirstFileW of one name (no wildcards).  Natively there is no creation
// time (zero), and a name starting with a dot is hidden.
bool FindFile(LPCWSTR path, WIN32_FIND_DATAW& found);
// Null times are left as they are.
bool SetFileTimes(LPCWSTR path, const FILETIME* creation, const FILETIME* access, const FILETIME* modified);
bool FileTimeToSystemTime(const FILETIME& ft, SYSTEMTIME& st);
bool SystemTimeToFileTime(const SYSTEMTIME& st, FILETIME& ft);
// Creates a new empty file named dir\PREuuuu.tmp and gives its name; empty
// on failure.
WideText TempFileName(LPCWSTR dir, LPCWSTR prefix3);

//===-- Mapping ------------------------------------------------------------===//

// Opens for mapping with the open-always disposition: a missing file is made.
FileHandle OpenForMapping(LPCWSTR path, bool write);
// A mapping object; natively there is none and any non-zero value stands
// for it.  0 on failure.
FileHandle CreateMapping(FileHandle file, bool write);
void* MapView(FileHandle file, FileHandle mapping, DWORD size, bool write);
bool UnmapView(void* view, DWORD size);
bool CloseMapping(FileHandle mapping);

//===-- Memory -------------------------------------------------------------===//

// A hint that the n bytes at p are about to be written from start to end:
// where the system backs memory with large pages on request, the whole large
// pages inside the range get them, which saves a fault per small page.  Only
// pages that lie wholly inside the range are affected, so no memory beyond
// what is written is taken.  Does nothing where there is no such request.
void PrepareLargeWrite(void* p, size_t n);
// The size of those large pages, or 0 where PrepareLargeWrite does nothing.
size_t LargePageSize();
// The n bytes at p hold nothing worth keeping: the small pages wholly inside
// go back to the system and read as zeros when touched again.  Splits a
// large page that the range cuts.  Does nothing where there is no such call.
void DiscardPages(void* p, size_t n);

}  // namespace os
}  // namespace vn

#endif  // VN_AFX_OS_OSSEAM_H
