// TestSupport.h - small helpers every test file may use.
#ifndef VN_TESTS_TESTSUPPORT_H
#define VN_TESTS_TESTSUPPORT_H

#include "afx/afx.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>

class CVnOSException;

namespace vn {
namespace test {

inline std::string U8(const CString& s) { return VnToUtf8(s); }
inline CString W(const char* utf8) { return VnFromUtf8(utf8); }

// Runs f; what read gives for the exception of class E (or one derived from
// it) that f raised, -1 when it raised nothing, -2 when it raised another
// kind.  The exception is freed here either way.
template <class E, class F, class R>
long long Raised(F f, R read) {
  try {
    f();
  } catch (CException* e) {
    const long long value = e->IsKindOf(RUNTIME_CLASS(E)) ? static_cast<long long>(read(*static_cast<E*>(e))) : -2;
    e->Delete();
    return value;
  }
  return -1;
}

// The code of the CVnOSException f raised (-1: nothing, -2: another kind).
template <class E = CVnOSException, class F>
long long RaisedOsCode(F f) {
  return Raised<E>(f, [](E& e) { return e.GetError(); });
}

// Runs f; true when it raised a CException of class cls or one derived from
// it.  The exception is freed here either way.
template <class F>
bool RaisesKindOf(const CRuntimeClass* cls, F f) {
  try {
    f();
  } catch (CException* e) {
    bool ok = e->IsKindOf(cls);
    e->Delete();
    return ok;
  }
  return false;
}

template <class F>
bool RaisesInvalidArg(F f) {
  return RaisesKindOf(RUNTIME_CLASS(CInvalidArgException), f);
}

// A path for std::filesystem, with the component's backslashes made native.
inline std::filesystem::path FsPath(const CString& p) {
#ifdef _WIN32
  return std::filesystem::path(std::wstring(p.GetString()));
#else
  std::string s = U8(p);
  for (char& c : s)
    if (c == '\\')
      c = '/';
  return std::filesystem::path(s);
#endif
}

// The whole content of a file; empty when it can't be read.
inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

#ifdef _WIN32
// Removes a tree with the system's own calls: they reach the full 260
// characters that the path tests create, where the C runtime stops short.
inline void RemoveTree(const std::wstring& dir) {
  WIN32_FIND_DATAW found;
  HANDLE h = ::FindFirstFileW((dir + L"\\*").c_str(), &found);
  if (h != INVALID_HANDLE_VALUE) {
    do {
      const std::wstring name = found.cFileName, full = dir + L"\\" + name;
      if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        if (name != L"." && name != L"..")
          RemoveTree(full);
      } else {
        ::SetFileAttributesW(full.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(full.c_str());
      }
    } while (::FindNextFileW(h, &found));
    ::FindClose(h);
  }
  ::RemoveDirectoryW(dir.c_str());
}
#endif

// A fresh directory below the temporary directory for one test, removed with
// everything in it (read-only entries too) at the end of its scope.  Its
// path ends in a backslash.
class ScratchDir {
public:
  ScratchDir() {
    static int counter = 0;
    const std::filesystem::path base = std::filesystem::temp_directory_path();
#ifdef _WIN32
    m_path = CString(base.wstring().c_str());
#else
    m_path = VnFromUtf8(base.string());
#endif
    m_path.TrimRight(_T('\\')).TrimRight(_T('/'));
    m_path.AppendFormat(_T("\\vntest-%d-%d\\"), static_cast<int>(std::random_device()() % 100000), ++counter);
    std::filesystem::create_directories(FsPath(m_path));
  }
  ~ScratchDir() {
    const CString dir = m_path.Left(m_path.GetLength() - 1);
#ifdef _WIN32
    RemoveTree(dir.GetString());
#else
    namespace fs = std::filesystem;
    std::error_code ignored;
    for (fs::recursive_directory_iterator it(FsPath(dir), ignored), end; it != end; it.increment(ignored))
      fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(FsPath(dir), ignored);
#endif
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;
  const CString& Path() const { return m_path; }

private:
  CString m_path;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_TESTSUPPORT_H
