// OsSeamDirectoryTest.cpp - the OS seam's directory, copy, attribute and
// location calls, with the Win32 codes they report on both platforms.
#include "afx/afx.h"
#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace {

using vn::os::WideText;

// A fresh directory name below the temporary directory, ending in a
// backslash: the seam takes both separators on every platform.
CString ScratchName() {
  static int counter = 0;
  CString name(vn::os::TempDirectory());
  name.AppendFormat(_T("vnseam-%d-%d\\"), static_cast<int>(std::random_device()() % 100000), ++counter);
  return name;
}

bool WriteFile(const CString& path, const char* text) {
  vn::os::FileHandle h = vn::os::OpenFile(path, vn::os::kWrite, vn::os::kCreateAlways);
  if (h == vn::os::kInvalidFile)
    return false;
  DWORD done = 0;
  bool ok = vn::os::WriteFile(h, text, static_cast<DWORD>(strlen(text)), done);
  return vn::os::CloseFile(h) && ok;
}

TEST(OsSeamDirectoryTest, CreateDirectoryMakesOneLevelAndReportsWhy) {
  CString dir = ScratchName();
  ASSERT_TRUE(vn::os::CreateDirectory(dir));
  EXPECT_EQ(0x10u, vn::os::GetFileAttributes(dir) & 0x10u);
  EXPECT_FALSE(vn::os::CreateDirectory(dir));
  EXPECT_EQ(ERROR_ALREADY_EXISTS, vn::os::GetLastError());
  EXPECT_FALSE(vn::os::CreateDirectory(dir + _T("a\\b")));
  EXPECT_EQ(ERROR_PATH_NOT_FOUND, vn::os::GetLastError());

  // A file named with backslashes lands inside the directory.
  ASSERT_TRUE(WriteFile(dir + _T("f.txt"), "x"));
  EXPECT_NE(0xFFFFFFFFu, vn::os::GetFileAttributes(dir + _T("/f.txt")));
  EXPECT_TRUE(vn::os::DeleteFile(dir + _T("f.txt")));
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(VnToUtf8(dir.Left(dir.GetLength() - 1))), ignored);
}

TEST(OsSeamDirectoryTest, CopyFileReplacesOnlyWhenAllowed) {
  CString dir = ScratchName();
  ASSERT_TRUE(vn::os::CreateDirectory(dir));
  CString a = dir + _T("a"), b = dir + _T("b");
  ASSERT_TRUE(WriteFile(a, "aaaa"));
  ASSERT_TRUE(WriteFile(b, "b"));
  EXPECT_FALSE(vn::os::CopyFile(a, b, true));
  EXPECT_EQ(ERROR_FILE_EXISTS, vn::os::GetLastError());
  EXPECT_TRUE(vn::os::CopyFile(a, b, false));
  vn::os::FileHandle h = vn::os::OpenFile(b, vn::os::kRead, vn::os::kOpenExisting);
  uint64_t size = 0;
  EXPECT_TRUE(vn::os::GetFileSize(h, size));
  vn::os::CloseFile(h);
  EXPECT_EQ(4u, size);
  EXPECT_FALSE(vn::os::CopyFile(dir + _T("none"), b, false));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, vn::os::GetLastError());

  EXPECT_TRUE(vn::os::SetFileAttributes(a, 0x1));
  EXPECT_TRUE(vn::os::SetFileAttributes(a, 0x80));
  EXPECT_FALSE(vn::os::SetFileAttributes(dir + _T("none"), 0x80));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, vn::os::GetLastError());
  for (const CString* f : {&a, &b})
    vn::os::DeleteFile(*f);
  std::error_code ignored;
  std::filesystem::remove_all(std::filesystem::path(VnToUtf8(dir.Left(dir.GetLength() - 1))), ignored);
}

TEST(OsSeamDirectoryTest, LocationsAndFreeSpaceComeFromTheSystem) {
  WideText cwd = vn::os::CurrentDirectory(), exe = vn::os::ModuleFileName();
  ASSERT_FALSE(cwd.empty());
  ASSERT_FALSE(exe.empty());
  EXPECT_NE(0xFFFFFFFFu, vn::os::GetFileAttributes(cwd.c_str()));
  EXPECT_EQ(0u, vn::os::GetFileAttributes(exe.c_str()) & 0x10u);  // a file
  uint64_t free = 0;
  EXPECT_TRUE(vn::os::DiskFreeSpace(vn::os::TempDirectory().c_str(), free));
  EXPECT_GT(free, 0u);
  EXPECT_FALSE(vn::os::DiskFreeSpace((ScratchName() + _T("x")).GetString(), free));
}

}  // namespace
