// OsFilesPosix.cpp - the seam's files by name, times, mapping and code page
// facts over POSIX.
//
// stat, rename, utimensat and mmap stand in for the Win32 calls.  There is
// no creation time: FindFile reports it as zero.  The full path of a text is
// made the way Win32 makes it, by text: "." and ".." elements are resolved,
// separator runs collapse, an end separator stays.  Three forms are told
// apart:
//   "c:..." (a drive)         stays a Windows path, with backslashes;
//   "\\server\share\..."      stays a network path, with backslashes, and
//                             ".." never climbs above the share;
//   anything else             is a file system path here: a relative one is
//                             taken from the current directory, and the
//                             result uses slashes.
// So the text functions give the same answers on a drive path as on
// Windows, while real files are reached by their real names.
#include "afx/os/OsPosixInternal.h"

#include "afx/portable/COleDateTime.h"
#include "afx/portable/CString.h"
#include "afx/portable/VnCodePages.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <cwctype>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace vn {
namespace os {

namespace {

bool g_hideCPInfoEx = false;

// 100-ns ticks between 1 January 1601 and 1 January 1970.
const uint64_t kEpochTicks = 116444736000000000ULL;

FILETIME ToFileTime(const struct timespec& ts) {
  uint64_t ticks = kEpochTicks + static_cast<uint64_t>(ts.tv_sec) * 10000000ULL + ts.tv_nsec / 100;
  FILETIME ft = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  return ft;
}

struct timespec FromFileTime(const FILETIME& ft) {
  uint64_t ticks = (static_cast<uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
  int64_t rel = static_cast<int64_t>(ticks - kEpochTicks);
  struct timespec ts;
  ts.tv_sec = static_cast<time_t>(rel / 10000000);
  ts.tv_nsec = static_cast<long>(rel % 10000000) * 100;
  if (ts.tv_nsec < 0) {
    ts.tv_nsec += 1000000000L;
    ts.tv_sec -= 1;
  }
  return ts;
}

bool IsSep(WCHAR c) { return c == '\\' || c == '/'; }

// A path cut into its root, its elements, and the separator it is written with.
struct FullForm {
  WideText root;
  std::vector<WideText> elements;
  size_t keep = 0;  // elements that ".." must not remove (server, share)
  WCHAR sep = '/';
};

void AddElements(FullForm& form, const WideText& rest) {
  size_t start = 0;
  for (size_t i = 0; i <= rest.size(); ++i) {
    if (i < rest.size() && !IsSep(rest[i]))
      continue;
    WideText element = rest.substr(start, i - start);
    start = i + 1;
    if (element.empty() || element == WideText(1, '.'))
      continue;
    if (element == WideText(2, '.')) {
      if (form.elements.size() > form.keep)
        form.elements.pop_back();
      continue;
    }
    form.elements.push_back(element);
  }
}

bool MakeFullForm(const WideText& text, FullForm& form) {
  if (text.size() >= 2 && std::iswalpha(static_cast<wint_t>(text[0])) && text[1] == ':') {
    form.root = text.substr(0, 2) + WideText(1, '\\');
    form.sep = '\\';
    AddElements(form, text.substr(2));
  } else if (text.size() >= 2 && IsSep(text[0]) && IsSep(text[1])) {
    form.root = WideText(2, '\\');
    form.sep = '\\';
    form.keep = 2;
    AddElements(form, text.substr(2));
  } else if (IsSep(text[0])) {
    form.root = WideText(1, '/');
    AddElements(form, text.substr(1));
  } else {
    WideText cwd = CurrentDirectory();
    if (cwd.empty())
      return false;
    form.root = WideText(1, '/');
    AddElements(form, cwd);
    AddElements(form, text);
  }
  return true;
}

// Lead byte ranges of the double-byte pages, as pairs ending in 0, 0.
void FillLeadBytes(UINT page, BYTE* lead) {
  if (page == 932) {
    const BYTE r[] = {0x81, 0x9F, 0xE0, 0xFC};
    memcpy(lead, r, sizeof r);
  } else if (page == 936 || page == 949 || page == 950) {
    const BYTE r[] = {0x81, 0xFE};
    memcpy(lead, r, sizeof r);
  }
}

// The system's GetCPInfoExW: the pages GetCPInfo knows, with their names.
int NativeGetCPInfoEx(UINT codePage, DWORD, CPINFOEXW* info) {
  CPINFO basic;
  memset(&basic, 0, sizeof basic);
  if (!GetCPInfo(codePage, basic))
    return 0;
  info->MaxCharSize = basic.MaxCharSize;
  memcpy(info->DefaultChar, basic.DefaultChar, sizeof info->DefaultChar);
  memcpy(info->LeadByte, basic.LeadByte, sizeof info->LeadByte);
  info->UnicodeDefaultChar = codePage == 65001 || codePage == 65000 ? 0xFFFD : 63;
  info->CodePage = codePage;
  const VnCodePage* page = VnFindCodePage(codePage);
  char text[MAX_PATH];
  if (page && page->title)
    snprintf(text, sizeof text, "%-5u (%s)", codePage, page->title);
  else
    snprintf(text, sizeof text, "%u", codePage);
  CString wide = VnFromUtf8(text);
  memcpy(info->CodePageName, wide.GetString(), (wide.GetLength() + 1) * sizeof(WCHAR));
  return 1;
}

}  // namespace

//===-- Code page facts ----------------------------------------------------===//

GetCPInfoExFn FindGetCPInfoEx() { return g_hideCPInfoEx ? nullptr : &NativeGetCPInfoEx; }

void HideGetCPInfoExForTesting(bool hide) { g_hideCPInfoEx = hide; }

// The UTF-16 and UTF-32 pages are not code pages to GetCPInfo, on either
// platform.
bool GetCPInfo(UINT codePage, CPINFO& info) {
  const VnCodePage* page = VnFindCodePage(codePage);
  if (codePage == 1200 || codePage == 1201 || codePage == 70000 || codePage == 70001 || codePage == 12000 ||
      codePage == 12001 || !IsValidCodePage(codePage)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  info.MaxCharSize = page ? page->maxCharSize : 1;
  info.DefaultChar[0] = codePage == 65001 || codePage == 65000 ? 0 : '?';
  info.DefaultChar[1] = 0;
  memset(info.LeadByte, 0, sizeof info.LeadByte);
  FillLeadBytes(codePage, info.LeadByte);
  return true;
}

//===-- Files by name ------------------------------------------------------===//

WideText FullPathName(LPCWSTR path) {
  if (!path || !*path) {
    SetLastError(ERROR_INVALID_NAME);
    return WideText();
  }
  const WideText text(path);
  FullForm form;
  if (!MakeFullForm(text, form))
    return WideText();
  WideText full = form.root;
  for (size_t i = 0; i < form.elements.size(); ++i)
    full += (i ? WideText(1, form.sep) : WideText()) + form.elements[i];
  if (IsSep(text.back()) && !form.elements.empty())
    full += form.sep;
  return full;
}

UINT DriveType(LPCWSTR root) { return root && IsSep(root[0]) ? 3 : 1; }

bool FindFile(LPCWSTR path, WIN32_FIND_DATAW& found) {
  const std::string native = PathToNative(path);
  if (native.empty() || native.find_first_of("*?") != std::string::npos) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return false;
  }
  struct stat st;
  if (stat(native.c_str(), &st) != 0) {
    FailOnMissing(native);
    return false;
  }
  memset(&found, 0, sizeof found);
  found.dwFileAttributes = AttributesOf(native, st);
  found.ftLastAccessTime = ToFileTime(st.st_atim);
  found.ftLastWriteTime = ToFileTime(st.st_mtim);
  const uint64_t size = S_ISDIR(st.st_mode) ? 0 : static_cast<uint64_t>(st.st_size);
  found.nFileSizeHigh = static_cast<DWORD>(size >> 32);
  found.nFileSizeLow = static_cast<DWORD>(size);
  const size_t slash = native.find_last_of('/');
  CString name = VnFromUtf8(slash == std::string::npos ? native : native.substr(slash + 1));
  const int n = name.GetLength() < MAX_PATH - 1 ? name.GetLength() : MAX_PATH - 1;
  memcpy(found.cFileName, name.GetString(), n * sizeof(WCHAR));
  return true;
}

bool SetFileTimes(LPCWSTR path, const FILETIME*, const FILETIME* access, const FILETIME* modified) {
  struct timespec times[2];
  times[0].tv_nsec = UTIME_OMIT;
  times[1].tv_nsec = UTIME_OMIT;
  if (access)
    times[0] = FromFileTime(*access);
  if (modified)
    times[1] = FromFileTime(*modified);
  return utimensat(AT_FDCWD, PathToNative(path).c_str(), times, 0) == 0 || FailWithErrno();
}

// FILETIME counts 100 ns from 1601; an automation date counts days from
// 30 December 1899, 109205 days later.
bool FileTimeToSystemTime(const FILETIME& ft, SYSTEMTIME& st) {
  uint64_t ticks = (static_cast<uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
  if (ticks >= 0x8000000000000000ULL) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  const uint64_t seconds = ticks / 10000000ULL;
  const double days = static_cast<double>(seconds / 86400) - 109205.0;
  const double frac = static_cast<double>(seconds % 86400) / 86400.0;
  const double value = days >= 0 ? days + frac : days - frac;
  if (!VnVariantTimeToSystemTime(value, st)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  st.wMilliseconds = static_cast<WORD>(ticks / 10000ULL % 1000);
  return true;
}

bool SystemTimeToFileTime(const SYSTEMTIME& st, FILETIME& ft) {
  SYSTEMTIME whole = st;
  whole.wMilliseconds = 0;
  DATE value;
  if (st.wYear < 1601 || st.wMilliseconds > 999 || !VnSystemTimeToVariantTime(whole, value)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  const double days = std::floor(value);
  const long long dayNumber = static_cast<long long>(days) + 109205;
  const long long secs = dayNumber * 86400LL + st.wHour * 3600LL + st.wMinute * 60LL + st.wSecond;
  const uint64_t ticks = static_cast<uint64_t>(secs) * 10000000ULL + st.wMilliseconds * 10000ULL;
  ft.dwLowDateTime = static_cast<DWORD>(ticks);
  ft.dwHighDateTime = static_cast<DWORD>(ticks >> 32);
  return true;
}

// Private to the user, as a temporary file is.
WideText TempFileName(LPCWSTR dir, LPCWSTR prefix3) {
  CString base(dir);
  if (!base.IsEmpty() && !IsSep(base[base.GetLength() - 1]))
    base += _T("/");
  static unsigned counter = 0;
  unsigned unique = (static_cast<unsigned>(getpid()) * 7919u + counter) & 0xFFFF;
  for (unsigned tries = 0; tries < 0x10000; ++tries, unique = (unique + 1) & 0xFFFF) {
    if (unique == 0)
      continue;
    CString name;
    name.Format(_T("%s%s%X.tmp"), base.GetString(), prefix3, unique);
    const int fd = open(PathToNative(name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd >= 0) {
      close(fd);
      counter = unique + 1;
      return WideText(name.GetString());
    }
    if (errno != EEXIST) {
      FailWithErrno();
      return WideText();
    }
  }
  SetLastError(ERROR_FILE_EXISTS);
  return WideText();
}

//===-- Mapping ------------------------------------------------------------===//

FileHandle OpenForMapping(LPCWSTR path, bool write) {
  const std::string native = PathToNative(path);
  int fd = open(native.c_str(), (write ? O_RDWR : O_RDONLY) | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0 && !write && errno == EACCES)
    fd = open(native.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    FailOnMissing(native);
    return kInvalidFile;
  }
  return fd;
}

FileHandle CreateMapping(FileHandle file, bool) { return file >= 0 ? 1 : 0; }

void* MapView(FileHandle file, FileHandle, DWORD size, bool write) {
  void* view = mmap(nullptr, size, write ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED, static_cast<int>(file), 0);
  if (view == MAP_FAILED) {
    FailWithErrno();
    return nullptr;
  }
  return view;
}

bool UnmapView(void* view, DWORD size) { return munmap(view, size) == 0 || FailWithErrno(); }
bool CloseMapping(FileHandle) { return true; }

}  // namespace os
}  // namespace vn
