// CFile.cpp - an open file, over the OS seam.
#include "afx/portable/CFile.h"

IMPLEMENT_DYNAMIC(CFile, CObject)

CFile::CFile(LPCWSTR fileName, UINT openFlags) {
  CFileException error;
  if (!Open(fileName, openFlags, &error))
    AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
  if (IsOpen())
    Abort();
}

static vn::os::FileAccess AccessOf(UINT flags) {
  switch (flags & 3) {
  case CFile::modeWrite: return vn::os::kWrite;
  case CFile::modeReadWrite: return vn::os::kReadWrite;
  default: return vn::os::kRead;
  }
}

static vn::os::FileDisposition DispositionOf(UINT flags) {
  if (!(flags & CFile::modeCreate))
    return vn::os::kOpenExisting;
  return (flags & CFile::modeNoTruncate) ? vn::os::kOpenAlways : vn::os::kCreateAlways;
}

BOOL CFile::Open(LPCWSTR fileName, UINT openFlags, CFileException* error) {
  if (IsOpen())
    Abort();
  m_strFileName = fileName;
  m_hFile = vn::os::OpenFile(fileName, AccessOf(openFlags), DispositionOf(openFlags));
  if (m_hFile != hFileNull)
    return TRUE;
  if (error) {
    LONG code = static_cast<LONG>(vn::os::GetLastError());
    error->m_lOsError = code;
    error->m_cause = CFileException::OsErrorToException(code);
    error->m_strFileName = fileName;
  }
  return FALSE;
}

void CFile::ThrowLastError() const {
  LONG code = static_cast<LONG>(vn::os::GetLastError());
  AfxThrowFileException(CFileException::OsErrorToException(code), code, m_strFileName);
}

UINT CFile::Read(void* buffer, UINT count) {
  DWORD done = 0;
  if (count && !vn::os::ReadFile(m_hFile, buffer, count, done))
    ThrowLastError();
  return done;
}

void CFile::Write(const void* buffer, UINT count) {
  DWORD done = 0;
  if (count && !vn::os::WriteFile(m_hFile, buffer, count, done))
    ThrowLastError();
  if (done != count)
    AfxThrowFileException(CFileException::diskFull, static_cast<LONG>(ERROR_DISK_FULL), m_strFileName);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
  uint64_t pos = 0;
  if (!vn::os::SeekFile(m_hFile, offset, static_cast<vn::os::SeekOrigin>(from), pos))
    ThrowLastError();
  return pos;
}

ULONGLONG CFile::GetLength() const {
  uint64_t size = 0;
  if (!vn::os::GetFileSize(m_hFile, size))
    ThrowLastError();
  return size;
}

void CFile::SetLength(ULONGLONG newLength) {
  if (!vn::os::SetFileSize(m_hFile, newLength))
    ThrowLastError();
}

ULONGLONG CFile::GetPosition() const {
  uint64_t pos = 0;
  if (!vn::os::SeekFile(m_hFile, 0, vn::os::kCurrent, pos))
    ThrowLastError();
  return pos;
}

void CFile::Flush() {
  if (IsOpen() && !vn::os::FlushFile(m_hFile))
    ThrowLastError();
}

void CFile::Close() {
  if (!IsOpen())
    return;
  vn::os::FileHandle h = m_hFile;
  m_hFile = hFileNull;
  if (!vn::os::CloseFile(h))
    ThrowLastError();
}

void CFile::Abort() {
  if (IsOpen())
    vn::os::CloseFile(m_hFile);
  m_hFile = hFileNull;
}

CString CFile::GetFileName() const {
  int cut = m_strFileName.GetLength();
  while (cut > 0 && m_strFileName[cut - 1] != '\\' && m_strFileName[cut - 1] != '/')
    --cut;
  return m_strFileName.Mid(cut);
}

void CFile::Remove(LPCWSTR fileName) {
  if (!vn::os::DeleteFile(fileName)) {
    LONG code = static_cast<LONG>(vn::os::GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(code), code, fileName);
  }
}

void CFile::Rename(LPCWSTR oldName, LPCWSTR newName) {
  if (!vn::os::MoveFile(oldName, newName)) {
    LONG code = static_cast<LONG>(vn::os::GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(code), code, oldName);
  }
}
