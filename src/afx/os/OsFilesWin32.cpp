// OsFilesWin32.cpp - the seam's files by name, times, mapping and code page
// facts: the real Win32 calls, one each.
#include "afx/os/OsSeam.h"

#include <vector>

namespace vn {
namespace os {

namespace {
bool g_hideCPInfoEx = false;
HANDLE H(FileHandle h) { return reinterpret_cast<HANDLE>(h); }
FileHandle FromH(HANDLE h) { return reinterpret_cast<FileHandle>(h); }
}  // namespace

GetCPInfoExFn FindGetCPInfoEx() {
  if (g_hideCPInfoEx)
    return nullptr;
  HMODULE kernel = GetModuleHandleW(L"kernel32");
  if (!kernel)
    return nullptr;
  return reinterpret_cast<GetCPInfoExFn>(reinterpret_cast<void*>(GetProcAddress(kernel, "GetCPInfoExW")));
}

void HideGetCPInfoExForTesting(bool hide) { g_hideCPInfoEx = hide; }
bool GetCPInfo(UINT codePage, CPINFO& info) { return ::GetCPInfo(codePage, &info) != 0; }

// Asked once for the size, then filled.
WideText FullPathName(LPCWSTR path) {
  const DWORD needed = ::GetFullPathNameW(path, 0, nullptr, nullptr);
  if (needed == 0)
    return WideText();
  std::vector<WCHAR> buffer(needed + 1, 0);
  const DWORD length = ::GetFullPathNameW(path, needed + 1, buffer.data(), nullptr);
  return length && length <= needed ? WideText(buffer.data(), length) : WideText();
}

UINT DriveType(LPCWSTR root) { return ::GetDriveTypeW(root); }

bool FindFile(LPCWSTR path, WIN32_FIND_DATAW& found) {
  HANDLE h = FindFirstFileW(path, &found);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  FindClose(h);
  return true;
}

bool SetFileTimes(LPCWSTR path, const FILETIME* creation, const FILETIME* access, const FILETIME* modified) {
  HANDLE h = CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  BOOL ok = SetFileTime(h, creation, access, modified);
  DWORD err = ::GetLastError();
  CloseHandle(h);
  ::SetLastError(err);
  return ok != 0;
}

bool FileTimeToSystemTime(const FILETIME& ft, SYSTEMTIME& st) { return ::FileTimeToSystemTime(&ft, &st) != 0; }
bool SystemTimeToFileTime(const SYSTEMTIME& st, FILETIME& ft) { return ::SystemTimeToFileTime(&st, &ft) != 0; }

WideText TempFileName(LPCWSTR dir, LPCWSTR prefix3) {
  WCHAR buf[MAX_PATH];
  buf[0] = 0;
  return ::GetTempFileNameW(dir, prefix3, 0, buf) ? WideText(buf) : WideText();
}

FileHandle OpenForMapping(LPCWSTR path, bool write) {
  HANDLE h = CreateFileW(path, write ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ, write ? 0 : FILE_SHARE_READ,
                         nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  return h == INVALID_HANDLE_VALUE ? kInvalidFile : FromH(h);
}

FileHandle CreateMapping(FileHandle file, bool write) {
  HANDLE m = CreateFileMappingW(H(file), nullptr, write ? PAGE_READWRITE : PAGE_READONLY, 0, 0, nullptr);
  return m ? FromH(m) : 0;
}

void* MapView(FileHandle, FileHandle mapping, DWORD, bool write) {
  return MapViewOfFile(H(mapping), write ? FILE_MAP_WRITE : FILE_MAP_READ, 0, 0, 0);
}

bool UnmapView(void* view, DWORD) { return UnmapViewOfFile(view) != 0; }
bool CloseMapping(FileHandle mapping) { return CloseHandle(H(mapping)) != 0; }

}  // namespace os
}  // namespace vn
