// OsWin32.cpp - the OS seam over the real Win32 API: one call each.
#include "afx/os/OsSeam.h"

#include <vector>

namespace vn {
namespace os {

namespace {
UINT g_ansiOverride = 0;

bool Fail() { return false; }
}  // namespace

DWORD GetLastError() { return ::GetLastError(); }
void SetLastError(DWORD code) { ::SetLastError(code); }

WideText SystemMessage(DWORD code) {
  WCHAR buf[1024];
  DWORD n = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                             MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), buf, 1024, nullptr);
  return WideText(buf, n);
}

UINT GetACP() { return g_ansiOverride ? g_ansiOverride : ::GetACP(); }
void SetAnsiCodePage(UINT codePage) { g_ansiOverride = codePage; }
bool IsValidCodePage(UINT codePage) { return ::IsValidCodePage(codePage) != 0; }

// 70001 and 70000 are the component's own numbers for UTF-16; Win32 names
// them 1200 and 1201 and MultiByteToWideChar knows neither, so both are
// converted here by hand.
static WideText FromUtf16(const char* bytes, int count, bool bigEndian) {
  WideText w(static_cast<size_t>(count) / 2, 0);
  for (size_t i = 0; i < w.size(); ++i) {
    unsigned char a = static_cast<unsigned char>(bytes[2 * i]), b = static_cast<unsigned char>(bytes[2 * i + 1]);
    w[i] = static_cast<WCHAR>(bigEndian ? (a << 8 | b) : (b << 8 | a));
  }
  return w;
}

WideText MultiByteToWide(UINT codePage, const char* bytes, int count) {
  if (!bytes || count == 0)
    return WideText();
  if (codePage == 1200 || codePage == 70001 || codePage == 1201 || codePage == 70000)
    return FromUtf16(bytes, count, codePage == 1201 || codePage == 70000);
  if (codePage == CP_ACP)
    codePage = GetACP();
  int n = ::MultiByteToWideChar(codePage, 0, bytes, count, nullptr, 0);
  if (n <= 0)
    return WideText();
  WideText w(static_cast<size_t>(n), 0);
  ::MultiByteToWideChar(codePage, 0, bytes, count, &w[0], n);
  if (count < 0 && !w.empty() && w.back() == 0)
    w.pop_back();
  return w;
}

std::string WideToMultiByte(UINT codePage, const WCHAR* text, int count) {
  if (!text || count == 0)
    return std::string();
  if (codePage == CP_ACP)
    codePage = GetACP();
  int n = ::WideCharToMultiByte(codePage, 0, text, count, nullptr, 0, nullptr, nullptr);
  if (n <= 0)
    return std::string();
  std::string s(static_cast<size_t>(n), 0);
  ::WideCharToMultiByte(codePage, 0, text, count, &s[0], n, nullptr, nullptr);
  if (count < 0 && !s.empty() && s.back() == 0)
    s.pop_back();
  return s;
}

FileHandle OpenFile(LPCWSTR path, FileAccess access, FileDisposition disposition) {
  DWORD rights = (access & kRead ? GENERIC_READ : 0) | (access & kWrite ? GENERIC_WRITE : 0);
  static const DWORD kCreation[] = {OPEN_EXISTING, CREATE_ALWAYS, OPEN_ALWAYS, CREATE_NEW};
  HANDLE h = ::CreateFileW(path, rights, FILE_SHARE_READ | (access == kRead ? FILE_SHARE_WRITE : 0), nullptr,
                           kCreation[disposition], FILE_ATTRIBUTE_NORMAL, nullptr);
  return h == INVALID_HANDLE_VALUE ? kInvalidFile : reinterpret_cast<FileHandle>(h);
}

static HANDLE H(FileHandle h) { return reinterpret_cast<HANDLE>(h); }

bool CloseFile(FileHandle h) { return ::CloseHandle(H(h)) != 0; }

bool ReadFile(FileHandle h, void* buffer, DWORD count, DWORD& done) {
  return ::ReadFile(H(h), buffer, count, &done, nullptr) != 0;
}

bool WriteFile(FileHandle h, const void* buffer, DWORD count, DWORD& done) {
  return ::WriteFile(H(h), buffer, count, &done, nullptr) != 0;
}

bool SeekFile(FileHandle h, int64_t offset, SeekOrigin origin, uint64_t& position) {
  LARGE_INTEGER off, pos;
  off.QuadPart = offset;
  if (!::SetFilePointerEx(H(h), off, &pos, origin))
    return Fail();
  position = static_cast<uint64_t>(pos.QuadPart);
  return true;
}

bool GetFileSize(FileHandle h, uint64_t& size) {
  LARGE_INTEGER s;
  if (!::GetFileSizeEx(H(h), &s))
    return Fail();
  size = static_cast<uint64_t>(s.QuadPart);
  return true;
}

bool SetFileSize(FileHandle h, uint64_t size) {
  uint64_t here = 0, ignored = 0;
  if (!SeekFile(h, 0, kCurrent, here) || !SeekFile(h, static_cast<int64_t>(size), kBegin, ignored))
    return false;
  bool ok = ::SetEndOfFile(H(h)) != 0;
  DWORD err = ::GetLastError();
  SeekFile(h, static_cast<int64_t>(here < size ? here : size), kBegin, ignored);
  ::SetLastError(err);
  return ok;
}

bool FlushFile(FileHandle h) { return ::FlushFileBuffers(H(h)) != 0; }
bool DeleteFile(LPCWSTR path) { return ::DeleteFileW(path) != 0; }
bool MoveFile(LPCWSTR from, LPCWSTR to) { return ::MoveFileW(from, to) != 0; }
DWORD GetFileAttributes(LPCWSTR path) { return ::GetFileAttributesW(path); }

// Opening a pipe to ask its type would take one of its connections, so the
// name decides.
bool IsStream(LPCWSTR path) { return wcsncmp(path, L"\\\\.\\", 4) == 0; }

// A getter of Win32's buffer form, asked with a growing buffer until its
// answer fits: the whole text, or empty on failure.
template <class Getter>
static WideText Whole(Getter getter) {
  std::vector<WCHAR> buffer(MAX_PATH + 1);
  for (;;) {
    const DWORD n = getter(static_cast<DWORD>(buffer.size()), buffer.data());
    if (n == 0)
      return WideText();
    if (n < buffer.size() - 1 || (n == buffer.size() - 1 && buffer[n] == 0))
      return WideText(buffer.data(), n);
    buffer.resize(buffer.size() * 2 > n + 1 ? buffer.size() * 2 : n + 1);
  }
}

WideText TempDirectory() {
  return Whole([](DWORD size, LPWSTR buf) { return ::GetTempPathW(size, buf); });
}

bool CreateDirectory(LPCWSTR path) { return ::CreateDirectoryW(path, nullptr) != 0; }
bool CopyFile(LPCWSTR from, LPCWSTR to, bool failIfExists) { return ::CopyFileW(from, to, failIfExists) != 0; }
bool SetFileAttributes(LPCWSTR path, DWORD attributes) { return ::SetFileAttributesW(path, attributes) != 0; }

WideText CurrentDirectory() {
  return Whole([](DWORD size, LPWSTR buf) { return ::GetCurrentDirectoryW(size, buf); });
}

WideText ModuleFileName() {
  return Whole([](DWORD size, LPWSTR buf) { return ::GetModuleFileNameW(nullptr, buf, size); });
}

bool DiskFreeSpace(LPCWSTR path, uint64_t& freeToCaller) {
  ULARGE_INTEGER avail;
  if (!::GetDiskFreeSpaceExW(path, &avail, nullptr, nullptr))
    return false;
  freeToCaller = avail.QuadPart;
  return true;
}

// Large pages on Windows need a privilege ordinary users lack.
void PrepareLargeWrite(void*, size_t) {}
size_t LargePageSize() { return 0; }
void DiscardPages(void*, size_t) {}

}  // namespace os
}  // namespace vn
