// VnFile.cpp - whole-file reads, the NUL test and the file helpers.
#include "intake/VnFile.h"

#include "intake/VnFileMapping.h"

#include <cstring>

IMPLEMENT_DYNAMIC(CVnFile, CFile)

CVnFile::CVnFile(const CString& path, UINT flags) { Open(path, flags); }

int CVnFile::Open(LPCWSTR path, UINT flags) {
  CFileException error(0, -1);
  if (!CFile::Open(path, flags, &error)) {
    int cause = error.m_cause ? error.m_cause : CFileException::genericException;
    AfxThrowFileException(cause, error.m_lOsError, path);
  }
  // A directory opens natively but is no file; Win32 refuses it.
  const DWORD attributes = vn::os::GetFileAttributes(path);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    Abort();
    AfxThrowFileException(CFileException::accessDenied, static_cast<LONG>(ERROR_ACCESS_DENIED), path);
  }
  return 1;
}

unsigned long CVnFile::ReadRaw(void* buffer, unsigned long count) {
  return CFile::Read(buffer, static_cast<UINT>(count));
}

// Reads until count bytes or the end: one read of a large file may stop
// short of what was asked.
unsigned long CVnFile::Read(CVnSmartBytePtr& bytes, unsigned long count) {
  unsigned char* out = bytes.Get();
  if (!out)
    return 0;
  unsigned long done = 0;
  while (done < count) {
    unsigned long n = ReadRaw(out + done, count - done);
    if (n == 0)
      break;
    done += n;
  }
  return done;
}

unsigned long CVnFile::ReadAll(CVnSmartBytePtr& bytes) {
  FileStatus status;
  GetStatus(GetFilePath(), status, true);
  bytes = new unsigned char[status.m_sizeLow];
  return Read(bytes, status.m_sizeLow);
}

bool CVnFile::IsBinary() {
  SeekToBegin();
  unsigned char chunk[65536];
  for (;;) {
    unsigned long n = ReadRaw(chunk, sizeof chunk);
    if (n == 0)
      return false;
    if (IsBinary(n, chunk))
      return true;
  }
}

//===-- The NUL test -------------------------------------------------------===//

bool CVnFile::IsBinary(unsigned long size, const unsigned char* data) {
  return size != 0 && memchr(data, 0, size) != nullptr;
}

unsigned long CVnFile::GetBinary(unsigned long size, const unsigned char* data) {
  if (size == 0)
    return 0;
  const void* nul = memchr(data, 0, size);
  return nul ? size - static_cast<unsigned long>(static_cast<const unsigned char*>(nul) - data) : 0;
}

bool CVnFile::IsBinary(const CString& path) {
  CVnFileMapping mapping;
  mapping.Open(path, 0);
  unsigned long size = 0;
  const void* view = nullptr;
  mapping.GetBuffer(size, view);
  return IsBinary(size, static_cast<const unsigned char*>(view));
}

//===-- Paths --------------------------------------------------------------===//

int CVnFile::IsFile(const CString& path) {
  if (path.FindOneOf(_T("*?")) >= 0)
    return 0;
  return vn::os::GetFileAttributes(path) != INVALID_FILE_ATTRIBUTES ? 1 : 0;
}

void CVnFile::FileCopy(const CString& to, const CString& from, int failIfExists) {
  if (!vn::os::CopyFile(from, to, failIfExists != 0))
    CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), from);
}

void CVnFile::FileMove(const CString& to, const CString& from, int failIfExists) {
  if (!failIfExists && to.FindOneOf(_T("*?")) < 0 && IsFile(to))
    FileRemove(to);
  if (!vn::os::MoveFile(from, to))
    CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), from);
}

void CVnFile::FileRemove(const CString& path) {
  if (vn::os::DeleteFile(path))
    return;
  const DWORD code = vn::os::GetLastError();
  if (code != ERROR_FILE_NOT_FOUND && code != ERROR_PATH_NOT_FOUND)
    CFileException::ThrowOsError(static_cast<LONG>(code), path);
}

CString CVnFile::GetTempFileNameW(const CString& directory, const CString& prefix) {
  return CString(vn::os::TempFileName(directory, prefix.Left(3)).c_str());
}

CString CVnFile::GetSysTempFileName(const CString& prefix) {
  return GetTempFileNameW(CString(vn::os::TempDirectory().c_str()), prefix);
}

void CVnFile::SetAttributes(const CString& path, unsigned long attributes) {
  if (!vn::os::SetFileAttributes(path, static_cast<DWORD>(attributes)))
    CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), path);
}

void CVnFile::EnableRW(const CString& path) {
  const DWORD attributes = vn::os::GetFileAttributes(path);
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
    SetAttributes(path, 0);
}

//===-- Status -------------------------------------------------------------===//

int CVnFile::GetStatus(const CString& path, FileStatus& status, bool raise) {
  WIN32_FIND_DATAW found;
  if (!vn::os::FindFile(path, found)) {
    if (raise)
      CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), path);
    return 0;
  }
  return GetStatus(path, found, status);
}

static bool IsZero(const FILETIME& ft) { return ft.dwLowDateTime == 0 && ft.dwHighDateTime == 0; }

int CVnFile::GetStatus(const CString& path, const WIN32_FIND_DATAW& found, FileStatus& status) {
  status.m_attribute = static_cast<BYTE>(found.dwFileAttributes) & 0x7F;
  status.m_sizeHigh = found.nFileSizeHigh;
  status.m_sizeLow = found.nFileSizeLow;
  FileTimeToVnTime(found.ftCreationTime, status.m_ctime);
  FileTimeToVnTime(found.ftLastWriteTime, status.m_mtime);
  FileTimeToVnTime(found.ftLastAccessTime, status.m_atime);
  if (IsZero(found.ftCreationTime))
    status.m_ctime = status.m_mtime;
  status.m_szFullName = path;
  return 1;
}

// Ordered so that a read-only file takes its new time stamps and still ends
// read-only: the read-only bit comes off first and goes back on last.
void CVnFile::SetStatus(const CString& path, FileStatus& status) {
  const DWORD present = vn::os::GetFileAttributes(path);
  if (present == INVALID_FILE_ATTRIBUTES)
    CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), path);
  const bool differ = status.m_attribute != (present & 0x7F);
  if (differ && (present & FILE_ATTRIBUTE_READONLY))
    SetAttributes(path, status.m_attribute);
  if (status.m_mtime.m_dt != 0.0) {
    FILETIME modified = {0, 0}, access = {0, 0}, creation = {0, 0};
    VnTimeToFileTime(status.m_mtime, modified);
    const bool hasAccess = status.m_atime.m_dt != 0.0;
    const bool hasCreation = status.m_ctime.m_dt != 0.0;
    if (hasAccess)
      VnTimeToFileTime(status.m_atime, access);
    if (hasCreation)
      VnTimeToFileTime(status.m_ctime, creation);
    if (!vn::os::SetFileTimes(path, hasCreation ? &creation : nullptr, hasAccess ? &access : nullptr, &modified))
      CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), path);
  }
  if (differ && !(present & FILE_ATTRIBUTE_READONLY))
    SetAttributes(path, status.m_attribute);
}

void CVnFile::FileTimeToVnTime(const FILETIME& fileTime, CVnTime& time) {
  SYSTEMTIME st = {};
  vn::os::FileTimeToSystemTime(fileTime, st);
  time.SetDateTime(st.wYear, st.wMonth, st.wDay, st.wHour, st.wMinute, st.wSecond);
}

void CVnFile::VnTimeToFileTime(const CVnTime& time, FILETIME& fileTime) {
  SYSTEMTIME st = {};
  st.wYear = static_cast<WORD>(time.GetYear());
  st.wMonth = static_cast<WORD>(time.GetMonth());
  st.wDayOfWeek = static_cast<WORD>(time.GetDayOfWeek());
  st.wDay = static_cast<WORD>(time.GetDay());
  st.wHour = static_cast<WORD>(time.GetHour());
  st.wMinute = static_cast<WORD>(time.GetMinute());
  st.wSecond = static_cast<WORD>(time.GetSecond());
  st.wMilliseconds = 0;
  vn::os::SystemTimeToFileTime(st, fileTime);
}

// The removal of the partial file must not hide the failure that left it.
static void RemoveQuietly(const CString& path) {
  try {
    CVnFile::FileRemove(path);
  } catch (CException* e) {
    e->Delete();
  }
}

void VnWriteFileWhole(const CString& path, const void* data, unsigned long size) {
  VnWriteFileWhole(path, [&](CFile& file) {
    if (size)
      file.Write(data, static_cast<UINT>(size));
  });
}

void VnWriteFileWhole(const CString& path, const std::function<void(CFile&)>& write) {
  const CString partial = path + _T(".partial");
  try {
    CFile file(partial, CFile::modeCreate | CFile::modeWrite);
    write(file);
    file.Close();
    CVnFile::FileMove(path, partial, 0);
  } catch (...) {
    RemoveQuietly(partial);
    throw;
  }
}
