// VnPathPlatformWin32.cpp - the path functions' file system questions,
// answered by the Win32 API, one call each.
#include "foundation/VnPathPlatform.h"

namespace vn {
namespace pathsys {

DWORD FullPathName(LPCWSTR path, DWORD bufferLength, LPWSTR buffer) {
  return ::GetFullPathNameW(path, bufferLength, buffer, nullptr);
}

DWORD FileAttributes(LPCWSTR path) { return ::GetFileAttributesW(path); }
DWORD LastError() { return ::GetLastError(); }
bool CreateOneDirectory(LPCWSTR path) { return ::CreateDirectoryW(path, nullptr) != 0; }

bool CanOpenForReading(LPCWSTR path) {
  HANDLE h = ::CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  ::CloseHandle(h);
  return true;
}

// CREATE_NEW, so that a file that exists but could not be opened is never
// replaced; delete-on-close removes the trial file with the handle.
bool CanCreateAndDiscard(LPCWSTR path) {
  HANDLE h = ::CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                           FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (h == INVALID_HANDLE_VALUE)
    return false;
  ::CloseHandle(h);
  return true;
}

UINT DriveType(LPCWSTR root) { return ::GetDriveTypeW(root); }

DWORD CurrentDirectory(DWORD bufferLength, LPWSTR buffer) { return ::GetCurrentDirectoryW(bufferLength, buffer); }
DWORD TempPath(DWORD bufferLength, LPWSTR buffer) { return ::GetTempPathW(bufferLength, buffer); }
DWORD ModuleFileName(DWORD bufferLength, LPWSTR buffer) {
  return ::GetModuleFileNameW(nullptr, buffer, bufferLength);
}

}  // namespace pathsys
}  // namespace vn
