// TestSupport.h - small helpers every test file may use.
#ifndef VN_TESTS_TESTSUPPORT_H
#define VN_TESTS_TESTSUPPORT_H

#include "afx/afx.h"

#include <filesystem>
#include <string>

namespace vn {
namespace test {

inline std::string U8(const CString& s) { return VnToUtf8(s); }
inline CString W(const char* utf8) { return VnFromUtf8(utf8); }

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

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_TESTSUPPORT_H
