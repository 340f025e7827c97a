// VnFileTest.cpp - whole-file reads, the NUL test and the file helpers.
#include "intake/VnFile.h"

#include "IntakeTestFiles.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <utility>

using vn::test::Bytes;
using vn::test::TempFile;

namespace {

// Opens GetBinary, which the class keeps protected, to the tests.
struct FileProbe : CVnFile {
  using CVnFile::GetBinary;
};

const unsigned char* U(const char* s) { return reinterpret_cast<const unsigned char*>(s); }

// The cause of the CFileException f raised, with the file it named; cause -1
// when it raised nothing, -2 when it raised another kind.
template <class F>
std::pair<int, CString> FileFailure(F f) {
  try {
    f();
  } catch (CException* e) {
    CFileException* fe = dynamic_cast<CFileException*>(e);
    std::pair<int, CString> failure(fe ? fe->m_cause : -2, fe ? fe->m_strFileName : CString());
    e->Delete();
    return failure;
  }
  return {-1, CString()};
}

CString DirectoryOf(const CString& path) {
  return path.Left(path.ReverseFind('/') > path.ReverseFind('\\') ? path.ReverseFind('/') : path.ReverseFind('\\'));
}

TEST(VnFileTest, NulTestLooksAtEveryByteAndNothingElse) {
  const struct { std::string data; bool binary; unsigned long fromNul; } cases[] = {
      {"", false, 0}, {"plain text\r\n\xFF\xFE", false, 0}, {std::string("ab\0d", 4), true, 2},
      {std::string("abc\0", 4), true, 1}, {std::string("\0", 1), true, 1},
      {std::string(150000, 'x') + std::string(1, '\0') + std::string(49999, 'x'), true, 50000},  // beyond a chunk
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data.substr(0, 20));
    const unsigned long size = static_cast<unsigned long>(c.data.size());
    EXPECT_EQ(c.binary, CVnFile::IsBinary(size, U(c.data.data())));
    EXPECT_EQ(c.fromNul, FileProbe::GetBinary(size, U(c.data.data())));
    TempFile file(c.data);
    EXPECT_EQ(c.binary, CVnFile::IsBinary(file.Path()));
    CVnFile open(file.Path(), CFile::modeRead);
    EXPECT_EQ(c.binary, open.IsBinary());
  }
}

TEST(VnFileTest, ReadAllGivesTheWholeFile) {
  for (const std::string& data : {std::string(), std::string("abc"), std::string(300000, '\x7F')}) {
    TempFile file(data);
    CVnFile open(file.Path(), CFile::modeRead);
    CVnSmartBytePtr bytes;
    const unsigned long n = open.ReadAll(bytes);
    EXPECT_EQ(data.size(), n);
    EXPECT_NE(nullptr, bytes.Get());  // even an empty file gets an allocation
    EXPECT_EQ(data, Bytes(bytes, n));
  }
  CVnFile none;
  CVnSmartBytePtr empty;
  EXPECT_EQ(0u, none.Read(empty, 10));
}

// A directory opens natively but is no file to open here, as on Win32.
TEST(VnFileTest, OpenFailureRaisesWithCauseAndName) {
  TempFile file;
  const CString missing = file.Path() + _T(".none"), dir = DirectoryOf(file.Path());
  EXPECT_EQ(std::make_pair(static_cast<int>(CFileException::fileNotFound), missing),
            FileFailure([&] { CVnFile open(missing, CFile::modeRead); }));
  EXPECT_EQ(std::make_pair(static_cast<int>(CFileException::accessDenied), dir),
            FileFailure([&] { CVnFile open(dir, CFile::modeRead); }));
}

TEST(VnFileTest, IsFileRejectsWildcardsAndAcceptsDirectories) {
  TempFile file;
  EXPECT_EQ(1, CVnFile::IsFile(file.Path()));
  EXPECT_EQ(0, CVnFile::IsFile(file.Path() + _T("*")));
  EXPECT_EQ(0, CVnFile::IsFile(file.Path() + _T("?")));
  EXPECT_EQ(0, CVnFile::IsFile(file.Path() + _T(".none")));
  EXPECT_EQ(1, CVnFile::IsFile(DirectoryOf(file.Path())));
}

TEST(VnFileTest, RemoveMoveAndCopy) {
  TempFile a("first"), b("second");
  CVnFile::FileRemove(a.Path() + _T(".none"));  // missing: nothing happens
  CVnFile::FileCopy(a.Path() + _T(".copy"), a.Path(), 1);
  EXPECT_EQ(1, CVnFile::IsFile(a.Path() + _T(".copy")));
  // Moving onto an existing file replaces it unless asked to fail.
  EXPECT_NE(-1, FileFailure([&] { CVnFile::FileMove(b.Path(), a.Path() + _T(".copy"), 1); }).first);
  CVnFile::FileMove(b.Path(), a.Path() + _T(".copy"), 0);
  EXPECT_EQ(0, CVnFile::IsFile(a.Path() + _T(".copy")));
  CVnFile open(b.Path(), CFile::modeRead);
  CVnSmartBytePtr bytes;
  EXPECT_EQ("first", Bytes(bytes, open.ReadAll(bytes)));
}

// Whole or not at all: a written file replaces the old one; a write that
// fails at the last step (a directory stands in the way) leaves the
// directory as it was and no partial file behind.
TEST(VnFileTest, WriteWholeReplacesOrLeavesNothing) {
  TempFile target("old");
  VnWriteFileWhole(target.Path(), "new text", 8);
  CVnFile open(target.Path(), CFile::modeRead);
  CVnSmartBytePtr bytes;
  EXPECT_EQ("new text", Bytes(bytes, open.ReadAll(bytes)));
  EXPECT_EQ(0, CVnFile::IsFile(target.Path() + _T(".partial")));
  const CString dir = target.Path() + _T(".dir");
  ASSERT_TRUE(vn::os::CreateDirectory(dir));
  EXPECT_NE(-1, FileFailure([&] { VnWriteFileWhole(dir, "x", 1); }).first);
  EXPECT_NE(0u, vn::os::GetFileAttributes(dir) & FILE_ATTRIBUTE_DIRECTORY);
  EXPECT_EQ(0, CVnFile::IsFile(dir + _T(".partial")));
  std::filesystem::remove(vn::test::FsPath(dir));
}

TEST(VnFileTest, TempNamesUseThreeLettersOfThePrefixAndExist) {
  const CString name = CVnFile::GetSysTempFileName(_T("abcdef"));
  EXPECT_EQ(_T("abc"), name.Mid(DirectoryOf(name).GetLength() + 1, 3));
  EXPECT_EQ(1, CVnFile::IsFile(name));
  const CString second = CVnFile::GetSysTempFileName(_T("abcdef"));
  EXPECT_NE(name, second);  // the first exists, so the next name differs
  CVnFile::FileRemove(name);
  CVnFile::FileRemove(second);
}

TEST(VnFileTest, StatusReportsSizeAttributesAndTimes) {
  TempFile file("12345");
  CVnFile::FileStatus status;
  ASSERT_EQ(1, CVnFile::GetStatus(file.Path(), status, false));
  EXPECT_EQ(5u, status.m_sizeLow);
  EXPECT_EQ(0u, status.m_sizeHigh);
  EXPECT_EQ(file.Path(), status.m_szFullName);
  EXPECT_EQ(0u, status.m_attribute & FILE_ATTRIBUTE_READONLY);
  EXPECT_GT(status.m_mtime.m_dt, CVnTime(2020, 1, 1, 0, 0, 0).m_dt);
#ifndef _WIN32
  // The native file system gives no creation time: the modified time stands in.
  EXPECT_TRUE(status.m_ctime == status.m_mtime);
#endif
  EXPECT_EQ(0, CVnFile::GetStatus(file.Path() + _T(".none"), status, false));
  EXPECT_EQ(CFileException::fileNotFound,
            FileFailure([&] { CVnFile::GetStatus(file.Path() + _T(".none"), status, true); }).first);
}

TEST(VnFileTest, SetStatusStampsTimesAndKeepsReadOnlyLast) {
  TempFile file("x");
  CVnFile::FileStatus wanted;
  CVnFile::GetStatus(file.Path(), wanted, true);
  wanted.m_mtime = CVnTime(2004, 1, 14, 12, 30, 15);
  wanted.m_atime = CVnTime(2004, 1, 15, 0, 0, 0);
  wanted.m_attribute |= FILE_ATTRIBUTE_READONLY;
  CVnFile::SetStatus(file.Path(), wanted);
  CVnFile::FileStatus now;
  CVnFile::GetStatus(file.Path(), now, true);
  EXPECT_TRUE(now.m_mtime == wanted.m_mtime);
  EXPECT_NE(0u, now.m_attribute & FILE_ATTRIBUTE_READONLY);
  // A read-only file still takes new stamps, and stays read-only.
  wanted.m_mtime = CVnTime(2010, 6, 1, 8, 0, 0);
  CVnFile::SetStatus(file.Path(), wanted);
  CVnFile::GetStatus(file.Path(), now, true);
  EXPECT_TRUE(now.m_mtime == wanted.m_mtime);
  EXPECT_NE(0u, now.m_attribute & FILE_ATTRIBUTE_READONLY);
  // A zero modified time touches attributes only.
  wanted.m_mtime = CVnTime();
  wanted.m_attribute &= ~FILE_ATTRIBUTE_READONLY;
  CVnFile::SetStatus(file.Path(), wanted);
  CVnFile::GetStatus(file.Path(), now, true);
  EXPECT_TRUE(now.m_mtime == CVnTime(2010, 6, 1, 8, 0, 0));
  EXPECT_EQ(0u, now.m_attribute & FILE_ATTRIBUTE_READONLY);
}

TEST(VnFileTest, EnableRWClearsReadOnlyOnly) {
  TempFile file("x");
  CVnFile::EnableRW(file.Path());  // not read-only: nothing changes
  CVnFile::FileStatus status;
  CVnFile::GetStatus(file.Path(), status, true);
  EXPECT_EQ(0u, status.m_attribute & FILE_ATTRIBUTE_READONLY);
  CVnFile::SetAttributes(file.Path(), FILE_ATTRIBUTE_READONLY);
  CVnFile::EnableRW(file.Path());
  CVnFile::GetStatus(file.Path(), status, true);
  EXPECT_EQ(0u, status.m_attribute & FILE_ATTRIBUTE_READONLY);
}

TEST(VnFileTest, FileTimesConvertBothWaysToTheSecond) {
  const CVnTime times[] = {CVnTime(1601, 1, 1, 0, 0, 0), CVnTime(1970, 1, 1, 0, 0, 0), CVnTime(2004, 2, 29, 23, 59, 59),
                           CVnTime(9999, 12, 31, 12, 0, 0)};
  for (const CVnTime& t : times) {
    FILETIME ft = {0, 0};
    CVnFile::VnTimeToFileTime(t, ft);
    CVnTime back;
    CVnFile::FileTimeToVnTime(ft, back);
    EXPECT_TRUE(back == t) << VnToUtf8(t.FormatUTC(_T(" "), _T(""), false));
  }
  FILETIME epoch = {0xD53E8000u, 0x019DB1DEu};  // 1 January 1970, 00:00:00
  CVnTime t;
  CVnFile::FileTimeToVnTime(epoch, t);
  EXPECT_DOUBLE_EQ(25569.0, t.m_dt);
}

#ifndef _WIN32
// A file of 4 GiB or more shows it in the high half of its size, which is
// what hosts look at before reading (the read takes the low half only).
TEST(VnFileTest, HugeSparseFileShowsItsHighHalf) {
  TempFile file;
  {
    CFile f(file.Path(), CFile::modeReadWrite | CFile::modeNoTruncate);
    f.SetLength((1ULL << 32) + 10);
    f.Close();
  }
  CVnFile::FileStatus status;
  ASSERT_EQ(1, CVnFile::GetStatus(file.Path(), status, true));
  EXPECT_EQ(1u, status.m_sizeHigh);
  EXPECT_EQ(10u, status.m_sizeLow);
}
#endif

}  // namespace
