// VnIntakeOsPosix.cpp - file intake's platform needs over POSIX.
//
// Files: stat, chmod, rename, utimensat and mmap stand in for the Win32 file
// calls, with errno turned into the matching Win32 error code.  Attributes
// keep to what POSIX can say: directory (0x10), read-only (0x1, no write bit
// for the owner), hidden (0x2, a name starting with a dot), else normal
// (0x80).  There is no creation time: FindOne reports it as zero, and
// callers use the modified time instead.
//
// Code pages: the numbers and names of the Windows code page table, for the
// pages that iconv can convert (vn::os::IsValidCodePage).
#include "intake/VnIntakeOs.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vn {
namespace intake {

namespace {

bool g_hideCPInfoEx = false;

DWORD Win32FromErrno(int e) {
  switch (e) {
  case ENOENT: return ERROR_FILE_NOT_FOUND;
  case ENOTDIR: return ERROR_PATH_NOT_FOUND;
  case EACCES: case EPERM: case EROFS: case EISDIR: return ERROR_ACCESS_DENIED;
  case EEXIST: return ERROR_FILE_EXISTS;
  case ENOSPC: return ERROR_DISK_FULL;
  case EMFILE: case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
  case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
  case EBUSY: return ERROR_BUSY;
  case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
  case EINVAL: return ERROR_INVALID_PARAMETER;
  case EBADF: return ERROR_INVALID_HANDLE;
  default: return ERROR_INVALID_FUNCTION;
  }
}

bool Fail() {
  vn::os::SetLastError(Win32FromErrno(errno));
  return false;
}

// As Win32 tells them apart: a missing file (2) in a directory that exists,
// a missing path (3) when the directory itself is missing.
bool FailOn(const std::string& native) {
  if (errno == ENOENT) {
    const size_t slash = native.find_last_of('/');
    const std::string parent = slash == std::string::npos ? "." : (slash == 0 ? "/" : native.substr(0, slash));
    struct stat st;
    if (stat(parent.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) {
      vn::os::SetLastError(ERROR_PATH_NOT_FOUND);
      return false;
    }
  }
  return Fail();
}

std::string Native(LPCWSTR path) { return path ? VnToUtf8(path) : std::string(); }

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

DWORD AttributesOf(const std::string& native, const struct stat& st) {
  DWORD attr = 0;
  if (S_ISDIR(st.st_mode))
    attr |= FILE_ATTRIBUTE_DIRECTORY;
  if (!(st.st_mode & S_IWUSR))
    attr |= FILE_ATTRIBUTE_READONLY;
  size_t slash = native.find_last_of('/');
  std::string base = slash == std::string::npos ? native : native.substr(slash + 1);
  if (base.size() > 1 && base[0] == '.' && base != "..")
    attr |= FILE_ATTRIBUTE_HIDDEN;
  return attr ? attr : FILE_ATTRIBUTE_NORMAL;
}

struct PageName {
  UINT page;
  const char* name;
};

// The names Windows gives these pages, number padded as it pads them.
const PageName kPageNames[] = {
    {437, "OEM - United States"},      {737, "OEM - Greek 437G"},
    {775, "OEM - Baltic"},             {850, "OEM - Multilingual Latin I"},
    {852, "OEM - Latin II"},           {855, "OEM - Cyrillic"},
    {857, "OEM - Turkish"},            {860, "OEM - Portuguese"},
    {861, "OEM - Icelandic"},          {862, "OEM - Hebrew"},
    {863, "OEM - Canadian French"},    {864, "OEM - Arabic"},
    {865, "OEM - Nordic"},             {866, "OEM - Russian"},
    {869, "OEM - Modern Greek"},       {874, "ANSI/OEM - Thai"},
    {932, "ANSI/OEM - Japanese Shift-JIS"},
    {936, "ANSI/OEM - Simplified Chinese GBK"},
    {949, "ANSI/OEM - Korean"},        {950, "ANSI/OEM - Traditional Chinese Big5"},
    {1250, "ANSI - Central Europe"},   {1251, "ANSI - Cyrillic"},
    {1252, "ANSI - Latin I"},          {1253, "ANSI - Greek"},
    {1254, "ANSI - Turkish"},          {1255, "ANSI - Hebrew"},
    {1256, "ANSI - Arabic"},           {1257, "ANSI - Baltic"},
    {1258, "ANSI/OEM - Viet Nam"},     {10000, "MAC - Roman"},
    {20127, "US-ASCII"},               {20866, "Russian - KOI8"},
    {21866, "Ukrainian - KOI8-U"},     {28591, "ISO 8859-1 Latin I"},
    {28592, "ISO 8859-2 Central Europe"}, {28593, "ISO 8859-3 Latin 3"},
    {28594, "ISO 8859-4 Baltic"},      {28595, "ISO 8859-5 Cyrillic"},
    {28596, "ISO 8859-6 Arabic"},      {28597, "ISO 8859-7 Greek"},
    {28598, "ISO 8859-8 Hebrew"},      {28599, "ISO 8859-9 Latin 5"},
    {28605, "ISO 8859-15 Latin 9"},    {51932, "EUC - Japanese"},
    {51949, "EUC - Korean"},           {54936, "GB18030 Simplified Chinese"},
    {65000, "UTF-7"},                  {65001, "UTF-8"},
};

const char* NameOf(UINT page) {
  for (const PageName& p : kPageNames)
    if (p.page == page)
      return p.name;
  return nullptr;
}

UINT MaxCharSizeOf(UINT page) {
  switch (page) {
  case 932: case 936: case 949: case 950: case 51932: case 51949: return 2;
  case 54936: case 65001: return 4;
  case 65000: return 5;
  default: return 1;
  }
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

// The platform's GetCPInfoExW: the pages GetCPInfo knows, with their names.
int NativeGetCPInfoEx(UINT codePage, DWORD, CPINFOEXW* info) {
  CPINFO basic;
  memset(&basic, 0, sizeof basic);
  if (!PlatformGetCPInfo(codePage, &basic))
    return 0;
  info->MaxCharSize = basic.MaxCharSize;
  memcpy(info->DefaultChar, basic.DefaultChar, sizeof info->DefaultChar);
  memcpy(info->LeadByte, basic.LeadByte, sizeof info->LeadByte);
  info->UnicodeDefaultChar = codePage == 65001 || codePage == 65000 ? 0xFFFD : 63;
  info->CodePage = codePage;
  const char* name = NameOf(codePage);
  char text[MAX_PATH];
  if (name)
    snprintf(text, sizeof text, "%-5u (%s)", codePage, name);
  else
    snprintf(text, sizeof text, "%u", codePage);
  CString wide = VnFromUtf8(text);
  memcpy(info->CodePageName, wide.GetString(), (wide.GetLength() + 1) * sizeof(WCHAR));
  return 1;
}

}  // namespace

//===-- Code pages ---------------------------------------------------------===//

GetCPInfoExFn FindGetCPInfoEx() { return g_hideCPInfoEx ? nullptr : &NativeGetCPInfoEx; }

void HideGetCPInfoExForTesting(bool hide) { g_hideCPInfoEx = hide; }

// The UTF-16 pages are not code pages to GetCPInfo, on either platform.
int PlatformGetCPInfo(UINT codePage, CPINFO* info) {
  if (codePage == 1200 || codePage == 1201 || codePage == 70000 || codePage == 70001 ||
      codePage == 12000 || codePage == 12001 || !vn::os::IsValidCodePage(codePage)) {
    vn::os::SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  info->MaxCharSize = MaxCharSizeOf(codePage);
  info->DefaultChar[0] = codePage == 65001 || codePage == 65000 ? 0 : '?';
  info->DefaultChar[1] = 0;
  memset(info->LeadByte, 0, sizeof info->LeadByte);
  FillLeadBytes(codePage, info->LeadByte);
  return 1;
}

//===-- Files by path ------------------------------------------------------===//

bool FindOne(LPCWSTR path, WIN32_FIND_DATAW& found) {
  std::string native = Native(path);
  if (native.empty() || native.find_first_of("*?") != std::string::npos) {
    vn::os::SetLastError(ERROR_FILE_NOT_FOUND);
    return false;
  }
  struct stat st;
  if (stat(native.c_str(), &st) != 0)
    return FailOn(native);
  memset(&found, 0, sizeof found);
  found.dwFileAttributes = AttributesOf(native, st);
  found.ftCreationTime = FILETIME{0, 0};
  found.ftLastAccessTime = ToFileTime(st.st_atim);
  found.ftLastWriteTime = ToFileTime(st.st_mtim);
  const uint64_t size = S_ISDIR(st.st_mode) ? 0 : static_cast<uint64_t>(st.st_size);
  found.nFileSizeHigh = static_cast<DWORD>(size >> 32);
  found.nFileSizeLow = static_cast<DWORD>(size);
  size_t slash = native.find_last_of('/');
  CString name = VnFromUtf8(slash == std::string::npos ? native : native.substr(slash + 1));
  int n = name.GetLength() < MAX_PATH - 1 ? name.GetLength() : MAX_PATH - 1;
  memcpy(found.cFileName, name.GetString(), n * sizeof(WCHAR));
  return true;
}

DWORD GetAttributes(LPCWSTR path) {
  std::string native = Native(path);
  struct stat st;
  if (native.empty() || stat(native.c_str(), &st) != 0) {
    FailOn(native);
    return INVALID_FILE_ATTRIBUTES;
  }
  return AttributesOf(native, st);
}

// Only the read-only bit has a POSIX meaning: it takes the write bits away.
bool SetAttributes(LPCWSTR path, DWORD attributes) {
  std::string native = Native(path);
  struct stat st;
  if (native.empty() || stat(native.c_str(), &st) != 0)
    return Fail();
  mode_t mode = st.st_mode & 07777;
  if (attributes & FILE_ATTRIBUTE_READONLY)
    mode &= ~static_cast<mode_t>(S_IWUSR | S_IWGRP | S_IWOTH);
  else
    mode |= S_IWUSR;
  if (mode != (st.st_mode & 07777) && chmod(native.c_str(), mode) != 0)
    return Fail();
  return true;
}

bool CopyOne(LPCWSTR from, LPCWSTR to, bool failIfExists) {
  std::string src = Native(from), dst = Native(to);
  int in = open(src.c_str(), O_RDONLY | O_CLOEXEC);
  if (in < 0)
    return Fail();
  struct stat st;
  fstat(in, &st);
  int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (failIfExists ? O_EXCL : O_TRUNC);
  int out = open(dst.c_str(), flags, st.st_mode & 0777);
  if (out < 0) {
    int e = errno;
    close(in);
    errno = e;
    return Fail();
  }
  char buf[65536];
  bool ok = true;
  for (;;) {
    ssize_t n = read(in, buf, sizeof buf);
    if (n == 0)
      break;
    if (n < 0 || write(out, buf, static_cast<size_t>(n)) != n) {
      ok = Fail();
      break;
    }
  }
  close(in);
  if (close(out) != 0 && ok)
    ok = Fail();
  return ok;
}

// Like MoveFileW, an existing destination is an error.
bool MoveOne(LPCWSTR from, LPCWSTR to) {
  std::string src = Native(from), dst = Native(to);
  struct stat st;
  if (lstat(dst.c_str(), &st) == 0) {
    vn::os::SetLastError(ERROR_ALREADY_EXISTS);
    return false;
  }
  if (rename(src.c_str(), dst.c_str()) != 0)
    return Fail();
  return true;
}

bool DeleteOne(LPCWSTR path) { return vn::os::DeleteFile(path); }

CString TempPath() { return CString(vn::os::TempDirectory()); }

CString TempFileName(LPCWSTR dir, LPCWSTR prefix3) {
  CString base(dir);
  if (!base.IsEmpty() && base[base.GetLength() - 1] != '/' && base[base.GetLength() - 1] != '\\')
    base += _T("/");
  static unsigned counter = 0;
  unsigned unique = (static_cast<unsigned>(getpid()) * 7919u + counter) & 0xFFFF;
  for (unsigned tries = 0; tries < 0x10000; ++tries, unique = (unique + 1) & 0xFFFF) {
    if (unique == 0)
      continue;
    CString name;
    name.Format(_T("%s%s%X.tmp"), base.GetString(), prefix3, unique);
    int fd = open(Native(name).c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);  // private, as a temp file is
    if (fd >= 0) {
      close(fd);
      counter = unique + 1;
      return name;
    }
    if (errno != EEXIST) {
      Fail();
      return CString();
    }
  }
  vn::os::SetLastError(ERROR_FILE_EXISTS);
  return CString();
}

bool SetTimes(LPCWSTR path, const FILETIME* creation, const FILETIME* access, const FILETIME* modified) {
  struct timespec times[2];
  times[0].tv_nsec = UTIME_OMIT;
  times[1].tv_nsec = UTIME_OMIT;
  if (access)
    times[0] = FromFileTime(*access);
  if (modified)
    times[1] = FromFileTime(*modified);
  if (utimensat(AT_FDCWD, Native(path).c_str(), times, 0) != 0)
    return Fail();
  return true;
}

// FILETIME counts 100 ns from 1601; an automation date counts days from
// 30 December 1899, 109205 days later.
bool FileTimeToSystem(const FILETIME& ft, SYSTEMTIME& st) {
  uint64_t ticks = (static_cast<uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
  if (ticks >= 0x8000000000000000ULL) {
    vn::os::SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  const uint64_t seconds = ticks / 10000000ULL;
  const double days = static_cast<double>(seconds / 86400) - 109205.0;
  const double frac = static_cast<double>(seconds % 86400) / 86400.0;
  const double value = days >= 0 ? days + frac : days - frac;
  if (!VnVariantTimeToSystemTime(value, st)) {
    vn::os::SetLastError(ERROR_INVALID_PARAMETER);
    return false;
  }
  st.wMilliseconds = static_cast<WORD>(ticks / 10000ULL % 1000);
  return true;
}

bool SystemToFileTime(const SYSTEMTIME& st, FILETIME& ft) {
  SYSTEMTIME whole = st;
  whole.wMilliseconds = 0;
  DATE value;
  if (st.wYear < 1601 || st.wMilliseconds > 999 || !VnSystemTimeToVariantTime(whole, value)) {
    vn::os::SetLastError(ERROR_INVALID_PARAMETER);
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

//===-- Mapping ------------------------------------------------------------===//

Handle OpenForMapping(LPCWSTR path, bool write) {
  std::string native = Native(path);
  int fd = open(native.c_str(), (write ? O_RDWR : O_RDONLY) | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0 && !write && errno == EACCES)
    fd = open(native.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) {
    FailOn(native);
    return kNoHandle;
  }
  return fd;
}

Handle HandleOfFile(const CFile& file) { return static_cast<Handle>(file.m_hFile); }

bool SizeOf(Handle file, uint64_t& size) {
  struct stat st;
  if (fstat(static_cast<int>(file), &st) != 0)
    return Fail();
  size = static_cast<uint64_t>(st.st_size);
  return true;
}

bool SetEnd(Handle file, uint64_t size) {
  if (ftruncate(static_cast<int>(file), static_cast<off_t>(size)) != 0)
    return Fail();
  return true;
}

Handle CreateMapping(Handle file, bool) { return file >= 0 ? 1 : 0; }

void* MapView(Handle file, Handle, DWORD size, bool write) {
  void* view = mmap(nullptr, size, write ? PROT_READ | PROT_WRITE : PROT_READ, MAP_SHARED,
                    static_cast<int>(file), 0);
  if (view == MAP_FAILED) {
    Fail();
    return nullptr;
  }
  return view;
}

bool UnmapView(void* view, DWORD size) { return munmap(view, size) == 0 || Fail(); }
bool CloseMapping(Handle) { return true; }
bool CloseFileHandle(Handle file) { return close(static_cast<int>(file)) == 0 || Fail(); }

}  // namespace intake
}  // namespace vn
