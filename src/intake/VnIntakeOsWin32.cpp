// VnIntakeOsWin32.cpp - file intake's platform needs: the real Win32 calls.
#include "intake/VnIntakeOs.h"

namespace vn {
namespace intake {

namespace {
bool g_hideCPInfoEx = false;
HANDLE H(Handle h) { return reinterpret_cast<HANDLE>(h); }
Handle FromH(HANDLE h) { return reinterpret_cast<Handle>(h); }
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
int PlatformGetCPInfo(UINT codePage, CPINFO* info) { return ::GetCPInfo(codePage, info); }

bool FindOne(LPCWSTR path, WIN32_FIND_DATAW& found) {
  HANDLE h = FindFirstFileW(path, &found);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  FindClose(h);
  return true;
}

DWORD GetAttributes(LPCWSTR path) { return GetFileAttributesW(path); }
bool SetAttributes(LPCWSTR path, DWORD attributes) { return SetFileAttributesW(path, attributes) != 0; }
bool CopyOne(LPCWSTR from, LPCWSTR to, bool failIfExists) { return CopyFileW(from, to, failIfExists) != 0; }
bool MoveOne(LPCWSTR from, LPCWSTR to) { return MoveFileW(from, to) != 0; }
bool DeleteOne(LPCWSTR path) { return DeleteFileW(path) != 0; }

CString TempPath() {
  wchar_t buf[MAX_PATH];
  DWORD n = GetTempPathW(MAX_PATH, buf);
  return n ? CString(buf) : CString();
}

CString TempFileName(LPCWSTR dir, LPCWSTR prefix3) {
  wchar_t buf[MAX_PATH];
  buf[0] = 0;
  ::GetTempFileNameW(dir, prefix3, 0, buf);
  return CString(buf);
}

bool SetTimes(LPCWSTR path, const FILETIME* creation, const FILETIME* access, const FILETIME* modified) {
  HANDLE h = CreateFileW(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  BOOL ok = SetFileTime(h, creation, access, modified);
  DWORD err = ::GetLastError();
  CloseHandle(h);
  ::SetLastError(err);
  return ok != 0;
}

bool FileTimeToSystem(const FILETIME& ft, SYSTEMTIME& st) { return FileTimeToSystemTime(&ft, &st) != 0; }
bool SystemToFileTime(const SYSTEMTIME& st, FILETIME& ft) { return SystemTimeToFileTime(&st, &ft) != 0; }

Handle OpenForMapping(LPCWSTR path, bool write) {
  HANDLE h = CreateFileW(path, write ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ, write ? 0 : FILE_SHARE_READ,
                         nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  return h == INVALID_HANDLE_VALUE ? kNoHandle : FromH(h);
}

Handle HandleOfFile(const CFile& file) { return static_cast<Handle>(file.m_hFile); }

bool SizeOf(Handle file, uint64_t& size) {
  DWORD high = 0;
  DWORD low = GetFileSize(H(file), &high);
  if (low == INVALID_FILE_SIZE && ::GetLastError() != NO_ERROR)
    return false;
  size = (static_cast<uint64_t>(high) << 32) | low;
  return true;
}

bool SetEnd(Handle file, uint64_t size) {
  LONG high = static_cast<LONG>(size >> 32);
  DWORD low = SetFilePointer(H(file), static_cast<LONG>(size), &high, FILE_BEGIN);
  if (low == INVALID_SET_FILE_POINTER && ::GetLastError() != NO_ERROR)
    return false;
  if (((static_cast<uint64_t>(static_cast<DWORD>(high)) << 32) | low) != size)
    return false;
  return SetEndOfFile(H(file)) != 0;
}

Handle CreateMapping(Handle file, bool write) {
  HANDLE m = CreateFileMappingW(H(file), nullptr, write ? PAGE_READWRITE : PAGE_READONLY, 0, 0, nullptr);
  return m ? FromH(m) : 0;
}

void* MapView(Handle, Handle mapping, DWORD, bool write) {
  return MapViewOfFile(H(mapping), write ? FILE_MAP_WRITE : FILE_MAP_READ, 0, 0, 0);
}

bool UnmapView(void* view, DWORD) { return UnmapViewOfFile(view) != 0; }
bool CloseMapping(Handle mapping) { return CloseHandle(H(mapping)) != 0; }
bool CloseFileHandle(Handle file) { return CloseHandle(H(file)) != 0; }

}  // namespace intake
}  // namespace vn
