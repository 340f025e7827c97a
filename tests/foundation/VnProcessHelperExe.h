// VnProcessHelperExe.h - starting the tests' second process.
//
// vn_settings_helper.exe, a console program, and vn_settings_gui_helper.exe,
// the same as a windowed program (tests/options/helper), are built beside the
// test executables.  RunHelper starts the console one through RunApp,
// hidden, and waits for its exit code.
#ifndef VN_TESTS_FOUNDATION_VNPROCESSHELPEREXE_H
#define VN_TESTS_FOUNDATION_VNPROCESSHELPEREXE_H

#include "afx/afx.h"
#include "foundation/VnProcess.h"

namespace vn {
namespace test {

// The quoted path of a helper beside this executable.
inline CString HelperCommand(bool windowed = false) {
  WCHAR self[MAX_PATH] = {0};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  CString path(self);
  path = path.Left(path.ReverseFind('\\') + 1) + (windowed ? _T("vn_settings_gui_helper.exe") : _T("vn_settings_helper.exe"));
  return _T("\"") + path + _T("\"");
}

inline bool HelperExists(bool windowed = false) {
  CString cmd = HelperCommand(windowed);
  return GetFileAttributesW(cmd.Mid(1, cmd.GetLength() - 2)) != INVALID_FILE_ATTRIBUTES;
}

inline long RunHelper(const CString& args) {
  return RunApp(HelperCommand() + _T(" ") + args, 0, 1, 0, 0);
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_FOUNDATION_VNPROCESSHELPEREXE_H
