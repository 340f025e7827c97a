// PackageTest.cpp - what check-package built and unpacked, run as a user
// runs it: the sample host built against the installed package shows two
// files in its panes and closes on WM_CLOSE; the compare tool of the
// unpacked zip starts with nothing beside it but the zip's own DLL; and the
// hosts carry the component's version.
#include "HostProcess.h"
#include "TestSupport.h"

#include "afx/win32/AfxRes.h"
#include "compare/VnComparison.h"
#include "resources/VnVersion.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace {

// A path check-package handed over (a Linux path, which Wine shows on Z:).
std::wstring Given(const char* name) {
  const char* value = std::getenv(name);
  std::wstring path = L"Z:";
  for (const char* c = value ? value : ""; *c; ++c)
    path += *c == '/' ? L'\\' : static_cast<wchar_t>(*c);
  return path;
}

void Write(const CString& path, const char* text) {
  std::ofstream(vn::test::FsPath(path), std::ios::binary) << text;
}

TEST(PackageTest, SampleHostShowsTheLibrarysRowsAndCountsAndClosesOnWmClose) {
  vn::test::ScratchDir dir;
  const CString oldPath = dir.Path() + L"old.txt", newPath = dir.Path() + L"new.txt";
  Write(oldPath, "one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix\r\n");
  Write(newPath, "one\r\nTWO\r\nthree\r\nfive\r\nsix\r\nseven\r\neight\r\n");
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnReconcile\\minimal-compare");

  vn::test::HostProcess sample(Given("VN_PACKAGE_SAMPLE"), vn::test::Quoted(oldPath, newPath));
  ASSERT_TRUE(sample.frame) << "the sample host showed no window";
  EXPECT_NE(std::wstring::npos, vn::test::WindowText(sample.frame).find(oldPath.GetString()));

  // Row by row what the library aligns: the deleted line stands, struck
  // through, in the target pane too.
  CVnComparison comparison;
  ASSERT_TRUE(comparison.Open(CVnComparison::Source, oldPath) && comparison.Open(CVnComparison::Target, newPath));
  comparison.Compare();
  const std::vector<CVnAlignedRow> rows = comparison.GetRows();
  std::vector<std::wstring> left = vn::test::ControlRows(sample.ColumnPane(0));
  std::vector<std::wstring> right = vn::test::ControlRows(sample.ColumnPane(1));
  ASSERT_GE(left.size(), rows.size());
  ASSERT_EQ(left.size(), right.size());
  auto line = [&](CVnComparison::Side side, long n) {
    CString s = comparison.GetFile(side).GetLines().GetLine(static_cast<int>(n));
    s.TrimRight(L'\n').TrimRight(L'\r');
    return std::wstring(s.GetString());
  };
  for (size_t r = 0; r < rows.size(); ++r) {
    const long source = rows[r].m_nSource, target = rows[r].m_nTarget;
    EXPECT_EQ(source >= 0 ? line(CVnComparison::Source, source) : L"", left[r]) << "row " << r;
    EXPECT_EQ(target >= 0                                ? line(CVnComparison::Target, target)
              : rows[r].m_nKind == VnRowKind::Deleted ? line(CVnComparison::Source, source)
                                                      : L"",
              right[r])
        << "row " << r;
  }

  // The status bar: three blocks (a change, a deletion, an insertion) and
  // the lines their records remove and add.
  EXPECT_EQ(L"3 differences, 2 lines removed, 3 added",
            vn::test::WindowText(::GetDlgItem(sample.frame, AFX_IDW_STATUS_BAR)));

  EXPECT_EQ(1u, sample.Close()) << "different files end with status 1";
}

TEST(PackageTest, UnpackedCompareToolStartsWithTheZipsOwnDll) {
  vn::test::ScratchDir dir;
  const CString oldPath = dir.Path() + L"old.txt", newPath = dir.Path() + L"new.txt";
  Write(oldPath, "same\r\n");
  Write(newPath, "same\r\n");
  vn::test::HostProcess tool(Given("VN_PACKAGE_ROOT") + L"\\bin\\vncompare.exe",
                             L"--headless " + vn::test::Quoted(oldPath, newPath));
  ASSERT_TRUE(tool.frame) << "vncompare.exe from the zip showed no window";
  EXPECT_EQ(std::vector<std::wstring>({L"same", L""}), vn::test::ControlRows(tool.ColumnPane(1)));
  EXPECT_EQ(0u, tool.Close()) << "equal files end with status 0";
}

// One string of a program's version resource, in the language the hosts
// use (US English, Unicode).
std::wstring VersionString(const std::vector<BYTE>& info, const wchar_t* name) {
  wchar_t* value = nullptr;
  UINT length = 0;
  std::wstring key = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
  if (!::VerQueryValueW(info.data(), key.c_str(), reinterpret_cast<void**>(&value), &length) || !value)
    return L"(none)";
  return value;
}

TEST(PackageTest, HostsOfTheZipCarryTheComponentsVersion) {
  const std::wstring version = VnFromUtf8(VN_VERSION_TEXT).GetString();
  std::wstring descriptions[2];
  const wchar_t* hosts[2] = {L"vndiff.exe", L"vncompare.exe"};
  for (int i = 0; i < 2; ++i) {
    SCOPED_TRACE(hosts[i]);
    const std::wstring path = Given("VN_PACKAGE_ROOT") + L"\\bin\\" + hosts[i];
    DWORD size = ::GetFileVersionInfoSizeW(path.c_str(), nullptr);
    ASSERT_NE(0u, size) << "no version resource";
    std::vector<BYTE> info(size);
    ASSERT_TRUE(::GetFileVersionInfoW(path.c_str(), 0, size, info.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(::VerQueryValueW(info.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(VN_VERSION_MINOR, VN_VERSION_MAJOR)), fixed->dwFileVersionMS);
    EXPECT_EQ(static_cast<DWORD>(MAKELONG(0, VN_VERSION_PATCH)), fixed->dwFileVersionLS);
    EXPECT_EQ(fixed->dwFileVersionMS, fixed->dwProductVersionMS);
    EXPECT_EQ(static_cast<DWORD>(VFT_APP), fixed->dwFileType);
    EXPECT_EQ(L"Vn Reconcile", VersionString(info, L"ProductName"));
    EXPECT_EQ(version, VersionString(info, L"ProductVersion"));
    EXPECT_EQ(version, VersionString(info, L"FileVersion"));
    EXPECT_EQ(hosts[i], VersionString(info, L"OriginalFilename"));
    descriptions[i] = VersionString(info, L"FileDescription");
    EXPECT_NE(std::wstring::npos, descriptions[i].find(L"Vn Reconcile")) << descriptions[i];
  }
  EXPECT_NE(descriptions[0], descriptions[1]) << "each host says what it is";
}

}  // namespace
