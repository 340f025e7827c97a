// VnStreamCopy.cpp - a stream read to its end into a temporary file.
#include "compare/VnStreamCopy.h"

#include "afx/os/OsSeam.h"
#include "compare/VnComparison.h"
#include "intake/VnFile.h"

#include <cstdio>
#include <cstring>
#include <memory>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

const DWORD kChunk = 1 << 20;
const uint64_t kLimit = 0xFFFFFFFFull;  // the intake reads sizes of 32 bits

// Where the bytes come from: standard input, or a stream opened by name.
class Source {
public:
  explicit Source(const CString& operand) : m_bStdin(operand == _T("-")) {
    if (m_bStdin) {
#ifdef _WIN32
      _setmode(_fileno(stdin), _O_BINARY);  // the bytes as they come
#endif
      return;
    }
    m_hFile = vn::os::OpenFile(operand, vn::os::kRead, vn::os::kOpenExisting);
    if (m_hFile == vn::os::kInvalidFile)
      CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), operand);
  }
  ~Source() {
    if (m_hFile != vn::os::kInvalidFile)
      vn::os::CloseFile(m_hFile);
  }
  // Bytes read into buffer; 0 at the end.  Failures raise, naming operand.
  DWORD Read(void* buffer, const CString& operand) {
    if (m_bStdin) {
      const size_t n = fread(buffer, 1, kChunk, stdin);
      if (n == 0 && ferror(stdin))
        CFileException::ThrowOsError(30, operand);  // ERROR_READ_FAULT
      return static_cast<DWORD>(n);
    }
    DWORD done = 0;
    if (!vn::os::ReadFile(m_hFile, buffer, kChunk, done))
      CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), operand);
    return done;
  }

private:
  bool m_bStdin;
  vn::os::FileHandle m_hFile = vn::os::kInvalidFile;
};

bool AllZero(const unsigned char* p, DWORD n) { return n > 0 && p[0] == 0 && memcmp(p, p + 1, n - 1) == 0; }

// Copies operand to path; false when it passed the limit.
bool CopyStream(const CString& operand, const CString& path) {
  Source source(operand);
  CFile target(path, CFile::modeCreate | CFile::modeWrite);
  std::unique_ptr<unsigned char[]> buffer(new unsigned char[kChunk]);
  uint64_t total = 0;
  for (DWORD n; (n = source.Read(buffer.get(), operand)) > 0;) {
    total += n;
    if (total > kLimit)
      return false;
    if (AllZero(buffer.get(), n))
      target.Seek(static_cast<LONGLONG>(n), CFile::current);
    else
      target.Write(buffer.get(), n);
  }
  target.SetLength(total);  // a hole at the end still counts
  target.Close();
  return true;
}

}  // namespace

CVnStreamCopies::~CVnStreamCopies() {
  for (const Copy& copy : m_copies) {
    try {
      CVnFile::FileRemove(copy.path);
    } catch (CException* e) {
      e->Delete();  // a leftover temporary file is no reason to fail
    }
  }
}

CString CVnStreamCopies::Resolve(const CString& operand, CString& why) {
  why.Empty();
  if (operand != _T("-") && !vn::os::IsStream(operand))
    return operand;
  for (const Copy& copy : m_copies)
    if (copy.operand == operand)
      return copy.path;
  m_copies.push_back({operand, CVnFile::GetSysTempFileName(_T("vnd"))});  // removed from here on
  if (CopyStream(operand, m_copies.back().path))
    return m_copies.back().path;
  why = VnTooLargeText();
  return CString();
}

CString CVnStreamCopies::Label(const CString& path) const {
  for (const Copy& copy : m_copies)
    if (copy.path == path)
      return copy.operand;
  return path;
}

CString CVnStreamCopies::Relabel(CString message) const {
  for (const Copy& copy : m_copies)
    message.Replace(copy.path, copy.operand);
  return message;
}
