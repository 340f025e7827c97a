// IntakeTestFiles.h - temporary files with given bytes for the intake tests.
#ifndef VN_TESTS_INTAKE_INTAKETESTFILES_H
#define VN_TESTS_INTAKE_INTAKETESTFILES_H

#include "intake/VnFile.h"

#include <string>

namespace vn {
namespace test {

// A file in the system's temporary directory, removed with the object.
class TempFile {
public:
  explicit TempFile(const std::string& bytes = std::string()) : m_path(CVnFile::GetSysTempFileName(_T("vnt"))) {
    Write(bytes);
  }
  ~TempFile() {
    try {
      CVnFile::EnableRW(m_path);
      CVnFile::FileRemove(m_path);
    } catch (CException* e) {
      e->Delete();
    }
  }
  void Write(const std::string& bytes) {
    CFile file(m_path, CFile::modeCreate | CFile::modeWrite);
    if (!bytes.empty())
      file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.Close();
  }
  const CString& Path() const { return m_path; }

private:
  CString m_path;
};

inline std::string Bytes(const unsigned char* data, unsigned long size) {
  return std::string(reinterpret_cast<const char*>(data), size);
}

// UTF-16LE bytes of an ASCII string, for expected buffers.
inline std::string Le(const std::string& ascii) {
  std::string out;
  for (char c : ascii) {
    out += c;
    out += '\0';
  }
  return out;
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_INTAKE_INTAKETESTFILES_H
