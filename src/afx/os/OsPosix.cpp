// OsPosix.cpp - the OS seam over POSIX and iconv.
//
// Paths arrive as 16-bit text and go to the file system as UTF-8.  Every
// failure sets a thread-local Win32 error code translated from errno, so
// exceptions carry the numbers users of the Windows build see, and
// SystemMessage gives the Windows wording for the codes users meet.
#include "afx/os/OsSeam.h"
#include "afx/os/OsPosixInternal.h"
#include "afx/portable/VnCodePages.h"
#include "afx/portable/CString.h"

#include <cerrno>
#include <clocale>
#include <cstring>
#include <fcntl.h>
#include <iconv.h>
#include <langinfo.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace vn {
namespace os {

namespace {
thread_local DWORD t_lastError = 0;
UINT g_ansiOverride = 0;
}  // namespace

DWORD Win32FromErrno(int e) {
  switch (e) {
  case 0: return ERROR_SUCCESS;
  case ENOENT: return ERROR_FILE_NOT_FOUND;
  case ENOTDIR: return ERROR_PATH_NOT_FOUND;
  case EACCES: case EPERM: case EISDIR: return ERROR_ACCESS_DENIED;
  case EEXIST: return ERROR_FILE_EXISTS;
  case EMFILE: case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
  case EBADF: return ERROR_INVALID_HANDLE;
  case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
  case ENOSPC: case EDQUOT: return ERROR_DISK_FULL;
  case EROFS: return ERROR_WRITE_PROTECT;
  case EBUSY: case ETXTBSY: return ERROR_SHARING_VIOLATION;
  case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
  case EINVAL: return ERROR_INVALID_PARAMETER;
  case ENOTEMPTY: return ERROR_DIR_NOT_EMPTY;
  case ELOOP: return ERROR_CANT_RESOLVE_FILENAME;
  case EIO: return ERROR_READ_FAULT;
  case EPIPE: return ERROR_BROKEN_PIPE;
  case EXDEV: return 17;  // ERROR_NOT_SAME_DEVICE
  case EFBIG: case EOVERFLOW: return ERROR_DISK_FULL;
  default: return ERROR_INVALID_FUNCTION;
  }
}

bool FailWithErrno() {
  t_lastError = Win32FromErrno(errno);
  return false;
}

// Directory (0x10), read-only (0x1: no write bit for the owner, as
// SetFileAttributes leaves it), hidden (0x2: a name that starts with a
// dot), else normal (0x80).
DWORD AttributesOf(const std::string& native, const struct stat& st) {
  DWORD attr = S_ISDIR(st.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0;
  if (!(st.st_mode & S_IWUSR))
    attr |= FILE_ATTRIBUTE_READONLY;
  const size_t slash = native.find_last_of('/');
  const std::string base = slash == std::string::npos ? native : native.substr(slash + 1);
  if (base.size() > 1 && base[0] == '.' && base != "..")
    attr |= FILE_ATTRIBUTE_HIDDEN;
  return attr ? attr : FILE_ATTRIBUTE_NORMAL;
}

// Windows tells a missing file (2) from a missing directory on the way to it
// (3); POSIX says ENOENT for both, so look at the parent.
void FailOnMissing(const std::string& native) {
  FailWithErrno();
  if (errno != ENOENT)
    return;
  size_t cut = native.find_last_of('/');
  if (cut == std::string::npos || cut == 0)
    return;
  struct stat st;
  if (::stat(native.substr(0, cut).c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
    t_lastError = ERROR_PATH_NOT_FOUND;
}

// The component counts the backslash and the slash alike and adds
// backslashes itself; the file system here knows only the slash.
std::string PathToNative(LPCWSTR path) {
  std::string native = path ? WideToMultiByte(CP_UTF8, path, -1) : std::string();
  for (char& c : native)
    if (c == '\\')
      c = '/';
  return native;
}

namespace {

// Win32's own wording, so that both builds show users the same reasons.
struct MessageEntry {
  DWORD code;
  const char* text;
};
const MessageEntry kMessages[] = {
    {0, "The operation completed successfully."},
    {1, "Incorrect function."},
    {2, "The system cannot find the file specified."},
    {3, "The system cannot find the path specified."},
    {4, "The system cannot open the file."},
    {5, "Access is denied."},
    {6, "The handle is invalid."},
    {8, "Not enough memory resources are available to process this command."},
    {11, "An attempt was made to load a program with an incorrect format."},
    {13, "The data is invalid."},
    {14, "Not enough memory resources are available to complete this operation."},
    {17, "The system cannot move the file to a different disk drive."},
    {19, "The media is write protected."},
    {21, "The device is not ready."},
    {25, "The drive cannot locate a specific area or track on the disk."},
    {29, "The system cannot write to the specified device."},
    {30, "The system cannot read from the specified device."},
    {32, "The process cannot access the file because it is being used by another process."},
    {33, "The process cannot access the file because another process has locked a portion of the file."},
    {38, "Reached the end of the file."},
    {39, "The disk is full."},
    {50, "The request is not supported."},
    {80, "The file exists."},
    {87, "The parameter is incorrect."},
    {109, "The pipe has been ended."},
    {112, "There is not enough space on the disk."},
    {122, "The data area passed to a system call is too small."},
    {123, "The filename, directory name, or volume label syntax is incorrect."},
    {145, "The directory is not empty."},
    {170, "The requested resource is in use."},
    {183, "Cannot create a file when that file already exists."},
    {206, "The filename or extension is too long."},
    {267, "The directory name is invalid."},
    {1113, "No mapping for the Unicode character exists in the target multi-byte code page."},
    {1155, "No application is associated with the specified file for this operation."},
    {1156, "An error occurred in sending the command to the application."},
    {1157, "One of the library files needed to run this application cannot be found."},
    {1921, "The name of the file cannot be resolved by the system."},
};

}  // namespace

DWORD GetLastError() { return t_lastError; }
void SetLastError(DWORD code) { t_lastError = code; }

WideText SystemMessage(DWORD code) {
  for (const MessageEntry& m : kMessages)
    if (m.code == code) {
      std::string s = std::string(m.text) + "\r\n";  // as FormatMessageW ends them
      return WideText(s.begin(), s.end());
    }
  return WideText();
}

//===-- Code pages ---------------------------------------------------------===//

UINT GetACP() {
  if (g_ansiOverride)
    return g_ansiOverride;
  const char* lc = setlocale(LC_CTYPE, nullptr);
  std::string codeset = lc ? nl_langinfo(CODESET) : "";
  if (codeset == "UTF-8")
    return CP_UTF8;
  const char* env = getenv("LC_ALL");
  if (!env || !*env)
    env = getenv("LC_CTYPE");
  if (!env || !*env)
    env = getenv("LANG");
  if (env && (strstr(env, "UTF-8") || strstr(env, "utf8") || strstr(env, "UTF8") || strstr(env, "utf-8")))
    return CP_UTF8;
  return 1252;
}

void SetAnsiCodePage(UINT codePage) { g_ansiOverride = codePage; }

// The iconv name of a Win32 code page number (VnCodePages.h), or empty.
static std::string IconvName(UINT cp) {
  if (cp == CP_ACP)
    cp = GetACP();
  else if (cp == CP_OEMCP)
    cp = 437;
  return VnConverterName(cp);
}

static iconv_t OpenIconv(const std::string& to, const std::string& from) {
  if (to.empty() || from.empty())
    return reinterpret_cast<iconv_t>(-1);
  return iconv_open(to.c_str(), from.c_str());
}

bool IsValidCodePage(UINT codePage) {
  if (codePage == CP_ACP || codePage == CP_OEMCP)
    return false;  // pseudo code pages, as IsValidCodePage says
  iconv_t cd = OpenIconv("UTF-16LE", IconvName(codePage));
  if (cd == reinterpret_cast<iconv_t>(-1))
    return false;
  iconv_close(cd);
  return true;
}

// Runs iconv over the whole input, putting `replacement` (in the output
// encoding) for each byte it cannot convert, as Win32 does without strict
// flags.
static bool ConvertAll(iconv_t cd, const char* in, size_t inLeft, std::string& out,
                       const std::string& replacement) {
  char buf[8192];
  char* src = const_cast<char*>(in);
  while (inLeft > 0) {
    char* dst = buf;
    size_t dstLeft = sizeof buf;
    size_t r = iconv(cd, &src, &inLeft, &dst, &dstLeft);
    out.append(buf, sizeof buf - dstLeft);
    if (r == static_cast<size_t>(-1)) {
      if (errno == E2BIG)
        continue;
      // EILSEQ or EINVAL (truncated tail): replace one unit and go on.
      out += replacement;
      ++src;
      --inLeft;
      iconv(cd, nullptr, nullptr, nullptr, nullptr);
    }
  }
  char* dst = buf;
  size_t dstLeft = sizeof buf;
  iconv(cd, nullptr, nullptr, &dst, &dstLeft);
  out.append(buf, sizeof buf - dstLeft);
  return true;
}

WideText MultiByteToWide(UINT codePage, const char* bytes, int count) {
  if (!bytes || count == 0)
    return WideText();
  if (count < 0)
    count = static_cast<int>(strlen(bytes));
  iconv_t cd = OpenIconv("UTF-16LE", IconvName(codePage));
  if (cd == reinterpret_cast<iconv_t>(-1)) {
    t_lastError = ERROR_INVALID_PARAMETER;
    return WideText();
  }
  std::string raw;
  ConvertAll(cd, bytes, static_cast<size_t>(count), raw, std::string("\xFD\xFF", 2));
  iconv_close(cd);
  WideText w(raw.size() / 2, 0);
  for (size_t i = 0; i < w.size(); ++i)
    w[i] = static_cast<WCHAR>(static_cast<unsigned char>(raw[2 * i]) | (static_cast<unsigned char>(raw[2 * i + 1]) << 8));
  return w;
}

std::string WideToMultiByte(UINT codePage, const WCHAR* text, int count) {
  if (!text || count == 0)
    return std::string();
  if (count < 0) {
    count = 0;
    while (text[count])
      ++count;
  }
  if (codePage == CP_UTF8) {  // the one encoder, which both builds share
    std::string out;
    VnAppendUtf8(text, static_cast<size_t>(count), out);
    return out;
  }
  iconv_t cd = OpenIconv(IconvName(codePage), "UTF-16LE");
  if (cd == reinterpret_cast<iconv_t>(-1)) {
    t_lastError = ERROR_INVALID_PARAMETER;
    return std::string();
  }
  std::string raw(static_cast<size_t>(count) * 2, 0);
  for (int i = 0; i < count; ++i) {
    raw[2 * i] = static_cast<char>(text[i] & 0xFF);
    raw[2 * i + 1] = static_cast<char>(text[i] >> 8);
  }
  std::string out;
  // A lone surrogate or an unmappable unit becomes '?', two bytes of input.
  char* src = &raw[0];
  size_t inLeft = raw.size();
  char buf[8192];
  while (inLeft > 0) {
    char* dst = buf;
    size_t dstLeft = sizeof buf;
    size_t r = iconv(cd, &src, &inLeft, &dst, &dstLeft);
    out.append(buf, sizeof buf - dstLeft);
    if (r == static_cast<size_t>(-1) && errno != E2BIG) {
      out += '?';
      size_t skip = inLeft < 2 ? inLeft : 2;
      src += skip;
      inLeft -= skip;
      iconv(cd, nullptr, nullptr, nullptr, nullptr);
    }
  }
  iconv_close(cd);
  return out;
}

//===-- Files --------------------------------------------------------------===//

FileHandle OpenFile(LPCWSTR path, FileAccess access, FileDisposition disposition) {
  int flags = O_CLOEXEC;
  flags |= access == kRead ? O_RDONLY : (access == kWrite ? O_WRONLY : O_RDWR);
  switch (disposition) {
  case kOpenExisting: break;
  case kCreateAlways: flags |= O_CREAT | O_TRUNC; break;
  case kOpenAlways: flags |= O_CREAT; break;
  case kCreateNew: flags |= O_CREAT | O_EXCL; break;
  }
  std::string native = PathToNative(path);
  if (native.empty()) {
    t_lastError = ERROR_PATH_NOT_FOUND;
    return kInvalidFile;
  }
  int fd = ::open(native.c_str(), flags, 0666);
  if (fd < 0) {
    FailOnMissing(native);
    return kInvalidFile;
  }
  // Windows refuses to open a directory as a file; so do we.
  struct stat st;
  if (fstat(fd, &st) == 0 && S_ISDIR(st.st_mode)) {
    ::close(fd);
    t_lastError = ERROR_ACCESS_DENIED;
    return kInvalidFile;
  }
  return fd;
}

bool CloseFile(FileHandle h) { return ::close(static_cast<int>(h)) == 0 || FailWithErrno(); }

bool ReadFile(FileHandle h, void* buffer, DWORD count, DWORD& done) {
  done = 0;
  char* p = static_cast<char*>(buffer);
  while (done < count) {
    ssize_t n = ::read(static_cast<int>(h), p + done, count - done);
    if (n < 0 && errno == EINTR)
      continue;
    if (n < 0)
      return FailWithErrno();
    if (n == 0)
      break;
    done += static_cast<DWORD>(n);
  }
  return true;
}

bool WriteFile(FileHandle h, const void* buffer, DWORD count, DWORD& done) {
  done = 0;
  const char* p = static_cast<const char*>(buffer);
  while (done < count) {
    ssize_t n = ::write(static_cast<int>(h), p + done, count - done);
    if (n < 0 && errno == EINTR)
      continue;
    if (n < 0)
      return FailWithErrno();
    done += static_cast<DWORD>(n);
  }
  return true;
}

bool SeekFile(FileHandle h, int64_t offset, SeekOrigin origin, uint64_t& position) {
  int whence = origin == kBegin ? SEEK_SET : (origin == kCurrent ? SEEK_CUR : SEEK_END);
  off_t r = ::lseek(static_cast<int>(h), static_cast<off_t>(offset), whence);
  if (r < 0) {
    t_lastError = errno == EINVAL ? ERROR_SEEK : Win32FromErrno(errno);
    return false;
  }
  position = static_cast<uint64_t>(r);
  return true;
}

bool GetFileSize(FileHandle h, uint64_t& size) {
  struct stat st;
  if (fstat(static_cast<int>(h), &st) != 0)
    return FailWithErrno();
  size = static_cast<uint64_t>(st.st_size);
  return true;
}

bool SetFileSize(FileHandle h, uint64_t size) {
  return ::ftruncate(static_cast<int>(h), static_cast<off_t>(size)) == 0 || FailWithErrno();
}

bool FlushFile(FileHandle h) { return ::fsync(static_cast<int>(h)) == 0 || FailWithErrno(); }

bool DeleteFile(LPCWSTR path) {
  std::string native = PathToNative(path);
  struct stat st;
  if (::stat(native.c_str(), &st) == 0 && S_ISDIR(st.st_mode)) {
    t_lastError = ERROR_ACCESS_DENIED;
    return false;
  }
  if (::unlink(native.c_str()) == 0)
    return true;
  FailOnMissing(native);
  return false;
}

bool MoveFile(LPCWSTR from, LPCWSTR to) {
  std::string src = PathToNative(from), dst = PathToNative(to);
  struct stat st;
  if (::lstat(dst.c_str(), &st) == 0) {  // MoveFile never replaces
    t_lastError = ERROR_ALREADY_EXISTS;
    return false;
  }
  return ::rename(src.c_str(), dst.c_str()) == 0 || FailWithErrno();
}

DWORD GetFileAttributes(LPCWSTR path) {
  const std::string native = PathToNative(path);
  struct stat st;
  if (native.empty() || ::stat(native.c_str(), &st) != 0) {
    FailOnMissing(native);
    return INVALID_FILE_ATTRIBUTES;
  }
  return AttributesOf(native, st);
}

bool IsStream(LPCWSTR path) {
  struct stat st;
  const std::string native = PathToNative(path);
  return !native.empty() && ::stat(native.c_str(), &st) == 0 &&
         (S_ISFIFO(st.st_mode) || S_ISCHR(st.st_mode) || S_ISSOCK(st.st_mode));
}

WideText TempDirectory() {
  const char* dir = getenv("TMPDIR");
  std::string d = dir && *dir ? dir : "/tmp";
  if (d.back() != '/')
    d += '/';
  return MultiByteToWide(CP_UTF8, d.data(), static_cast<int>(d.size()));
}

bool CreateDirectory(LPCWSTR path) {
  std::string native = PathToNative(path);
  if (native.empty()) {
    t_lastError = ERROR_PATH_NOT_FOUND;
    return false;
  }
  if (::mkdir(native.c_str(), 0777) == 0)
    return true;
  if (errno == EEXIST) {
    t_lastError = ERROR_ALREADY_EXISTS;
    return false;
  }
  FailOnMissing(native);
  return false;
}

// The bytes go through the seam's own file calls, so every failure carries
// the same codes as an open, read or write would; the copy gets the
// source's permissions, as Win32's copy gets its attributes.
bool CopyFile(LPCWSTR from, LPCWSTR to, bool failIfExists) {
  FileHandle in = OpenFile(from, kRead, kOpenExisting);
  if (in == kInvalidFile)
    return false;
  FileHandle out = OpenFile(to, kWrite, failIfExists ? kCreateNew : kCreateAlways);
  if (out == kInvalidFile) {
    DWORD err = t_lastError;
    CloseFile(in);
    t_lastError = err;
    return false;
  }
  struct stat st;
  if (fstat(static_cast<int>(in), &st) == 0)
    fchmod(static_cast<int>(out), st.st_mode & 07777);
  char buffer[65536];
  DWORD got = 0, put = 0;
  bool ok = true;
  while (ok && (ok = ReadFile(in, buffer, sizeof buffer, got)) && got > 0)
    ok = WriteFile(out, buffer, got, put);
  DWORD err = t_lastError;
  CloseFile(in);
  ok = CloseFile(out) && ok;
  if (!ok && err)
    t_lastError = err;
  return ok;
}

bool SetFileAttributes(LPCWSTR path, DWORD attributes) {
  std::string native = PathToNative(path);
  struct stat st;
  if (::stat(native.c_str(), &st) != 0) {
    FailOnMissing(native);
    return false;
  }
  mode_t mode = st.st_mode & 07777;
  mode = (attributes & 0x1u) ? (mode & ~static_cast<mode_t>(0222)) : (mode | S_IWUSR);
  return ::chmod(native.c_str(), mode) == 0 || FailWithErrno();
}

WideText CurrentDirectory() {
  char buffer[4096];
  if (!::getcwd(buffer, sizeof buffer)) {
    FailWithErrno();
    return WideText();
  }
  return MultiByteToWide(CP_UTF8, buffer, static_cast<int>(std::strlen(buffer)));
}

WideText ModuleFileName() {
  char buffer[4096];
  ssize_t n = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  if (n <= 0) {
    FailWithErrno();
    return WideText();
  }
  return MultiByteToWide(CP_UTF8, buffer, static_cast<int>(n));
}

bool DiskFreeSpace(LPCWSTR path, uint64_t& freeToCaller) {
  struct statvfs vfs;
  if (::statvfs(PathToNative(path).c_str(), &vfs) != 0)
    return FailWithErrno();
  freeToCaller = static_cast<uint64_t>(vfs.f_bavail) * vfs.f_frsize;
  return true;
}

// Transparent huge pages are 2 MiB on the machines this builds for; the
// request is advice, so a kernel without them just says no.
size_t LargePageSize() {
#if defined(MADV_HUGEPAGE)
  return size_t(2) << 20;
#else
  return 0;
#endif
}

void DiscardPages(void* p, size_t n) {
  const uintptr_t small = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
  const uintptr_t begin = (reinterpret_cast<uintptr_t>(p) + small - 1) & ~(small - 1);
  const uintptr_t end = (reinterpret_cast<uintptr_t>(p) + n) & ~(small - 1);
  if (end > begin)
    ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
}

void PrepareLargeWrite(void* p, size_t n) {
#if defined(MADV_HUGEPAGE)
  const uintptr_t kHuge = LargePageSize();
  const uintptr_t begin = (reinterpret_cast<uintptr_t>(p) + kHuge - 1) & ~(kHuge - 1);
  const uintptr_t end = (reinterpret_cast<uintptr_t>(p) + n) & ~(kHuge - 1);
  if (end > begin)
    ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);
#else
  (void)p;
  (void)n;
#endif
}

}  // namespace os
}  // namespace vn
