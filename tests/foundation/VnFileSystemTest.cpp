// VnFileSystemTest.cpp - the numbered file store: its names and reading
// them back, the free space query, and the throwing file wrappers.
#include "foundation/VnFileSystem.h"

#include "foundation/VnPath.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <tuple>
#include <utility>

namespace {

using namespace vn::test;

std::string ReadAll(const CString& path) { return ReadBytes(FsPath(path)); }

// What a wrapper threw: the OS code and file name of its CFileException;
// code -2 when it threw nothing, -3 when it threw something else.
using Thrown = std::pair<LONG, std::string>;
const Thrown kNothing(-2, "");
Thrown FileFailure(const std::function<void()>& f) {
  try {
    f();
  } catch (CException* e) {
    CFileException* fe = dynamic_cast<CFileException*>(e);
    Thrown t = fe ? Thrown(fe->m_lOsError, U8(fe->m_strFileName)) : Thrown(-3, "");
    e->Delete();
    return t;
  }
  return kNothing;
}
Thrown Failure(LONG code, const CString& file) { return Thrown(code, U8(file)); }

//===-- Names ---------------------------------------------------------------===//

TEST(VnFileSystemTest, NamesWriteTheIdInEightUpperCaseHexDigits) {
  const CVnFileSystem store(_T("r"), 5);
  struct Case { unsigned long id, second; const char *alone, *pair; } cases[] = {
      {0, 0, "00000000", "00000000.0"}, {0x1A2B, 7, "00001A2B", "00001A2B.7"},
      {0xFFFFFFFFul, 0xFFFFFFFFul, "FFFFFFFF", "FFFFFFFF.-1"},
      {0xABCDEF, 0x80000000ul, "00ABCDEF", "00ABCDEF.-2147483648"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.alone, U8(store.GetFileName(c.id)));
    EXPECT_EQ(c.pair, U8(store.GetFileName(c.id, c.second)));
    EXPECT_EQ(std::string("r\\") + c.pair, U8(store.GetFilePath(c.id, c.second)));
  }
  EXPECT_EQ("r\\00001A2B.txt", U8(store.GetFilePath(0x1A2B, _T("txt"))));
  EXPECT_EQ("r\\00001A2B.", U8(store.GetFilePath(0x1A2B, static_cast<LPCWSTR>(nullptr))));
  // The root gets a backslash only when it has no end separator.
  EXPECT_EQ("c:\\s\\00001A2B", U8(CVnFileSystem(_T("c:\\s\\"), 0).GetFilePath(0x1A2B)));
  EXPECT_EQ("c:\\s/00001A2B", U8(CVnFileSystem(_T("c:\\s/"), 0).GetFilePath(0x1A2B)));
  EXPECT_EQ("\\00001A2B", U8(CVnFileSystem(_T(""), 0).GetFilePath(0x1A2B)));
}

TEST(VnFileSystemTest, AnExtensionMustLeaveTheNameWithin260Characters) {
  const CVnFileSystem store(_T("c:\\s"), 0);
  EXPECT_EQ(5 + 259, store.GetFilePath(1, CString(_T('e'), 250)).GetLength());
  EXPECT_TRUE(RaisesInvalidArg([&] { store.GetFilePath(1, CString(_T('e'), 251)); }));
}

TEST(VnFileSystemTest, FileIdsAreReadFromTheNameBehindTheLastSeparator) {
  const CVnFileSystem store(_T("c:\\store"), 0);
  // 99 where untouched.
  struct Case { const char* path; int result; unsigned long id, second; } cases[] = {
      {"c:\\store\\00001A2B.7", 1, 0x1A2B, 7}, {"c:/store/00001A2B.7", 1, 0x1A2B, 7},
      {"c:\\store\\00001a2b.7", 1, 0x1A2B, 7}, {"c:\\store\\00001A2B", 0, 0x1A2B, 99},
      {"c:\\store\\readme.txt", 0, 99, 99}, {"c:\\store\\FFFFFFFF.-1", 1, 0xFFFFFFFFul, 0xFFFFFFFFul},
      {"c:\\store\\00001A2B.txt", 0, 0x1A2B, 99},
      {"c:\\store\\123456789.5", 0, 0x12345678, 99},  // a ninth digit is not a dot
      {"00000010.20", 1, 0x10, 20},  // no separator at all
      {"c:\\dir.5\\", 0, 99, 99},  // nothing behind the separator
      {"", 0, 99, 99}, {"c:\\s\\1.+4", 1, 1, 4}, {"c:\\s\\a.-", 0, 0xA, 99},
  };
  for (const Case& c : cases) {
    unsigned long id = 99, second = 99;
    const int result = store.GetFileIDs(W(c.path), id, second);
    EXPECT_EQ(std::make_tuple(c.result, c.id, c.second), std::make_tuple(result, id, second)) << c.path;
  }
  unsigned long id = 99, second = 99;
  EXPECT_EQ(0, store.GetFileIDs(nullptr, id, second));
}

TEST(VnFileSystemTest, NamesRoundTripForRandomIdsAndExtensions) {
  const CVnFileSystem store(_T("/some/root"), 0);
  std::mt19937 rng(2024);
  for (int round = 0; round < 2000; ++round) {
    const unsigned long id = rng(), second = rng();
    unsigned long readId = 0, readSecond = 0;
    ASSERT_EQ(1, store.GetFileIDs(store.GetFilePath(id, second), readId, readSecond));
    EXPECT_EQ(std::make_pair(id, second), std::make_pair(readId, readSecond));

    // A letters-only extension reads back as the ID alone, a digits-only one
    // as a second ID.
    CString letters, digits;
    unsigned long number = 0;
    for (int i = 1 + static_cast<int>(rng() % 8); i > 0; --i) {
      letters += static_cast<WCHAR>('a' + rng() % 26);
      int d = static_cast<int>(rng() % 10);
      digits += static_cast<WCHAR>('0' + d);
      number = number * 10 + static_cast<unsigned long>(d);
    }
    readSecond = 12345;
    EXPECT_EQ(0, store.GetFileIDs(store.GetFilePath(id, letters), readId, readSecond));
    EXPECT_EQ(std::make_pair(id, 12345ul), std::make_pair(readId, readSecond));
    EXPECT_EQ(1, store.GetFileIDs(store.GetFilePath(id, digits), readId, readSecond));
    EXPECT_EQ(number, readSecond);
  }
}

//===-- Free space ----------------------------------------------------------===//

TEST(VnFileSystemTest, FreeSpaceIsCappedAt32BitsAndFailsTheSameWay) {
  ScratchDir scratch;
  const std::uintmax_t available = std::filesystem::space(FsPath(scratch.Path())).available;
  unsigned long free = CVnFileSystem(scratch.Path(), 0).GetFreeSpace();
  if (available >= 0xFFFFFFFFull)
    EXPECT_EQ(0xFFFFFFFFul, free);
  else
    EXPECT_NEAR(static_cast<double>(available), static_cast<double>(free), 64.0 * 1024 * 1024);
  EXPECT_EQ(0xFFFFFFFFul, CVnFileSystem(scratch.Path() + _T("no\\such\\dir"), 0).GetFreeSpace());
}

//===-- Throwing wrappers ---------------------------------------------------===//

TEST(VnFileSystemTest, CreateFileReplacesWhatIsThere) {
  ScratchDir scratch;
  CString path = scratch.Path() + _T("f.bin");
  CVnFileSystem::CreateFileW(path, 5, "first");
  EXPECT_EQ("first", ReadAll(path));
  CVnFileSystem::CreateFileW(path, 2, "ab");
  EXPECT_EQ("ab", ReadAll(path));
  CVnFileSystem::CreateFileW(path, 0, nullptr);
  EXPECT_EQ("", ReadAll(path));
  const CString missing = scratch.Path() + _T("no\\f.bin");
  EXPECT_EQ(Failure(3, missing), FileFailure([&] { CVnFileSystem::CreateFileW(missing, 1, "x"); }));
}

TEST(VnFileSystemTest, DeletingWhatIsNotThereIsNoFailure) {
  ScratchDir scratch;
  CString path = scratch.Path() + _T("f");
  CVnFileSystem::CreateFileW(path, 1, "x");
  EXPECT_EQ(kNothing, FileFailure([&] { CVnFileSystem::DeleteFileW(path); }));
  EXPECT_FALSE(std::filesystem::exists(FsPath(path)));
  EXPECT_EQ(kNothing, FileFailure([&] { CVnFileSystem::DeleteFileW(path); }));
  EXPECT_EQ(kNothing, FileFailure([&] { CVnFileSystem::DeleteFileW(scratch.Path() + _T("no\\f")); }));
  // A directory is no file: access is denied.
  const CString dir = scratch.Path().Left(scratch.Path().GetLength() - 1);
  EXPECT_EQ(5, FileFailure([&] { CVnFileSystem::DeleteFileW(dir); }).first);
}

#ifdef _WIN32
TEST(VnFileSystemTest, DeletingAFileInUseThrows) {
  ScratchDir scratch;
  CString path = scratch.Path() + _T("busy");
  CVnFileSystem::CreateFileW(path, 1, "x");
  HANDLE h = ::CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, h);
  Thrown t = FileFailure([&] { CVnFileSystem::DeleteFileW(path); });
  ::CloseHandle(h);
  EXPECT_EQ(Failure(32, path), t);
}
#endif

TEST(VnFileSystemTest, CopyAndMoveNameTheSourceWhenTheyFail) {
  ScratchDir scratch;
  CString a = scratch.Path() + _T("a"), b = scratch.Path() + _T("b"), c = scratch.Path() + _T("c");
  CVnFileSystem::CreateFileW(a, 3, "aaa");
  CVnFileSystem::CreateFileW(b, 1, "b");

  EXPECT_EQ(Failure(80, a), FileFailure([&] { CVnFileSystem::CopyFileW(a, b, TRUE); }));
  EXPECT_EQ("b", ReadAll(b));
  CVnFileSystem::CopyFileW(a, b, FALSE);
  EXPECT_EQ("aaa", ReadAll(b));

  EXPECT_EQ(Failure(183, a), FileFailure([&] { CVnFileSystem::MoveFileW(a, b); }));
  CVnFileSystem::MoveFileW(a, c);
  EXPECT_FALSE(std::filesystem::exists(FsPath(a)));
  EXPECT_EQ("aaa", ReadAll(c));
  EXPECT_EQ(Failure(2, a), FileFailure([&] { CVnFileSystem::CopyFileW(a, b, FALSE); }));
}

TEST(VnFileSystemTest, MakeDirectoryCreatesOneLevelOnly) {
  ScratchDir scratch;
  CString dir = scratch.Path() + _T("d"), deep = scratch.Path() + _T("x\\y");
  CVnFileSystem::MakeDirectory(dir);
  EXPECT_EQ(1, IsDir(dir));
  EXPECT_EQ(183, FileFailure([&] { CVnFileSystem::MakeDirectory(dir); }).first);
  EXPECT_EQ(Failure(3, deep), FileFailure([&] { CVnFileSystem::MakeDirectory(deep); }));
}

TEST(VnFileSystemTest, AttributesSetReadOnlyAndBack) {
  ScratchDir scratch;
  CString path = scratch.Path() + _T("ro.txt"), none = scratch.Path() + _T("none");
  CVnFileSystem::CreateFileW(path, 1, "x");
  auto ownerWrite = [&] {
    return (std::filesystem::status(FsPath(path)).permissions() & std::filesystem::perms::owner_write) !=
           std::filesystem::perms::none;
  };
  CVnFileSystem::SetFileAttributesW(path, 0x1);  // read-only
  EXPECT_FALSE(ownerWrite());
  CVnFileSystem::SetFileAttributesW(path, 0x80);  // normal
  EXPECT_TRUE(ownerWrite());
  EXPECT_EQ(Failure(2, none), FileFailure([&] { CVnFileSystem::SetFileAttributesW(none, 0x80); }));
}

}  // namespace
