// CFileTest.cpp - files and the OS seam: reading, writing, failures with
// Win32 codes, code page conversion.
#include "afx/afx.h"
#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

#include <string>

namespace {

CString TempName(const char* leaf) {
  CString dir(vn::os::TempDirectory());
  return dir + CString(leaf);
}

// Runs f and gives the Win32 code of the CFileException it raised (0: none).
template <class F>
LONG FileErrorOf(F f) {
  try {
    f();
  } catch (CFileException* e) {
    LONG code = e->m_lOsError;
    e->Delete();
    return code;
  }
  return 0;
}

TEST(CFileTest, WritesSeeksAndReadsBack) {
  CString name = TempName("vn_cfile_test.bin");
  {
    CFile f(name, CFile::modeCreate | CFile::modeWrite);
    f.Write("hello world", 11);
    EXPECT_EQ(11u, f.GetLength());
    f.SetLength(5);
    f.Close();
  }
  CFile f(name, CFile::modeRead);
  char buf[16] = {};
  EXPECT_EQ(5u, f.Read(buf, sizeof buf));
  EXPECT_EQ(std::string("hello"), std::string(buf, 5));
  EXPECT_EQ(2u, f.Seek(2, CFile::begin));
  EXPECT_EQ(3u, f.Read(buf, 3));
  EXPECT_EQ(0u, f.Read(buf, 3));  // end of file is no failure
  f.Close();
  EXPECT_EQ(CString(_T("vn_cfile_test.bin")), f.GetFileName());
  CFile::Remove(name);
  EXPECT_EQ(0xFFFFFFFFu, vn::os::GetFileAttributes(name));
}

TEST(CFileTest, FailuresCarryWin32CodesAndTheFileName) {
  CString missing = TempName("vn_no_such_dir/file.txt");
  EXPECT_EQ(static_cast<LONG>(ERROR_PATH_NOT_FOUND), FileErrorOf([&] { CFile f(missing, CFile::modeRead); }));
  EXPECT_EQ(static_cast<LONG>(ERROR_FILE_NOT_FOUND),
            FileErrorOf([&] { CFile f(TempName("vn_no_such_file"), CFile::modeRead); }));
  EXPECT_EQ(static_cast<LONG>(ERROR_ACCESS_DENIED),
            FileErrorOf([&] { CFile f(CString(vn::os::TempDirectory()), CFile::modeRead); }));
  EXPECT_EQ(static_cast<LONG>(ERROR_FILE_NOT_FOUND), FileErrorOf([&] { CFile::Remove(TempName("vn_no_such_file")); }));

  CFileException error;
  CFile f;
  EXPECT_FALSE(f.Open(TempName("vn_no_such_file"), CFile::modeRead, &error));
  EXPECT_EQ(CFileException::fileNotFound, error.m_cause);
  WCHAR text[256];
  ASSERT_TRUE(error.GetErrorMessage(text, 256));
  std::string message = VnToUtf8(text);
  EXPECT_NE(std::string::npos, message.find("vn_no_such_file")) << message;
  CString reason(vn::os::SystemMessage(ERROR_FILE_NOT_FOUND));  // Wine words it differently
  EXPECT_NE(std::string::npos, message.find(VnToUtf8(reason.TrimRight()))) << message;
}

TEST(OsSeamTest, ConvertsCodePagesWithReplacement) {
  const struct { UINT cp; std::string bytes; std::u16string text; } cases[] = {
      {CP_UTF8, "a\xC3\xA9", u"a\u00E9"}, {1252, "\x80\xE9", u"\u20AC\u00E9"}, {70001, std::string("a\0b\0", 4), u"ab"},
      {70000, std::string("\0a\0b", 4), u"ab"}, {CP_UTF8, "a\xFF" "b", u"a\uFFFDb"},
  };
  for (const auto& c : cases) {
    vn::os::WideText w = vn::os::MultiByteToWide(c.cp, c.bytes.data(), static_cast<int>(c.bytes.size()));
    EXPECT_EQ(c.text, std::u16string(w.begin(), w.end())) << c.cp;
  }
  EXPECT_TRUE(vn::os::IsValidCodePage(1252));
  EXPECT_TRUE(vn::os::IsValidCodePage(CP_UTF8));
  EXPECT_FALSE(vn::os::IsValidCodePage(12345));
}

TEST(OsSeamTest, AnsiCodePageCanBeFixedForTests) {
  vn::os::SetAnsiCodePage(1252);
  EXPECT_EQ(1252u, vn::os::GetACP());
  EXPECT_EQ(CString(_T("\u00E9")), CString("\xE9"));
  vn::os::SetAnsiCodePage(CP_UTF8);
  EXPECT_EQ(CString(_T("\u00E9")), CString("\xC3\xA9"));
  vn::os::SetAnsiCodePage(0);
}

}  // namespace
