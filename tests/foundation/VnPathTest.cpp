// VnPathTest.cpp - the path functions: separators, splitting, the normal
// form, relative and shortened forms, name patterns, and the functions that
// ask the file system, on tables of awkward inputs.
#include "foundation/VnPath.h"

#include "foundation/VnException.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <tuple>

namespace {

using namespace vn::test;

//===-- Separators ----------------------------------------------------------===//

TEST(VnPathTest, SeparatorsOfEitherKindAreFoundTestedAndTrimmedOneAtATime) {
  // lastSlash -1: none.
  struct Case { const char* path; int lastSlash, hasEnd; const char *trimmed, *appended; } cases[] = {
      {"c:\\a/", 4, 1, "c:\\a", "c:\\a/\\"}, {"c:\\a", 2, 0, "c:\\a", "c:\\a\\"}, {"", -1, 0, "", "\\"},
      {"a\\\\", 2, 1, "a\\", "a\\\\\\"},     {"/", 0, 1, "", "/\\"},           {"a", -1, 0, "a", "a\\"},
      {"a/b\\c", 3, 0, "a/b\\c", "a/b\\c\\"},
  };
  for (const Case& c : cases) {
    CString p = W(c.path);
    LPCWSTR at = FindLastSlash(p);
    EXPECT_EQ(c.lastSlash, at ? static_cast<int>(at - p.GetString()) : -1) << c.path;
    EXPECT_EQ(c.hasEnd, PathHasEndSlash(p)) << c.path;
    CString trimmed = p, appended = p;
    TrimEndSlash(trimmed);
    AppendEndSlash(appended);
    EXPECT_EQ(std::string(c.trimmed) + "|" + c.appended, U8(trimmed + _T("|") + appended)) << c.path;
  }
  EXPECT_EQ(nullptr, FindLastSlash(nullptr));
  EXPECT_EQ(0, PathHasEndSlash(nullptr));
}

//===-- Splitting -----------------------------------------------------------===//

TEST(VnPathTest, SplitFollowsTheRuntimeSplitRulesAndCutsEachPart) {
  struct Case { const char* path; const char *dir, *file, *name, *ext; } cases[] = {
      {"c:\\a\\b.txt", "c:\\a\\", "b.txt", "b", "txt"}, {"c:\\a\\", "c:\\a\\", "", "", ""},
      {"b.txt", "", "b.txt", "b", "txt"}, {"a.tar.gz", "", "a.tar.gz", "a.tar", "gz"},
      {".profile", "", ".profile", "", "profile"}, {"c:", "c:", "", "", ""}, {"c:x.y", "c:", "x.y", "x", "y"},
      {"", "", "", "", ""}, {"/a\\b/c.d", "/a\\b/", "c.d", "c", "d"},
      {"\\\\srv\\sh\\f.", "\\\\srv\\sh\\", "f.", "f", ""}, {"a.b\\c", "a.b\\", "c", "c", ""}, {":", "", ":", ":", ""},
  };
  for (const Case& c : cases) {
    CString dir, file, name, ext;
    SeparatePathAndFile(W(c.path), dir, file);
    EXPECT_EQ(std::string(c.dir) + "|" + c.file, U8(dir + _T("|") + file)) << c.path;
    SeparatePathFileAndExt(W(c.path), dir, name, ext);
    EXPECT_EQ(std::string(c.dir) + "|" + c.name + "|" + c.ext, U8(dir + _T("|") + name + _T("|") + ext)) << c.path;
  }
  // Each part is cut at 255 characters.
  CString longDir(_T('d'), 300), longName(_T('n'), 300), longExt(_T('e'), 300), dir, name, ext;
  SeparatePathFileAndExt(_T("c:") + longDir + _T("\\") + longName + _T(".") + longExt, dir, name, ext);
  EXPECT_EQ(2 + 255, dir.GetLength());
  EXPECT_EQ(255, name.GetLength());
  EXPECT_EQ(254, ext.GetLength());  // the cut counts the dot
  EXPECT_EQ("c:", U8(GetPathDrive(_T("c:") + longDir)));
}

//===-- Classifying ---------------------------------------------------------===//

TEST(VnPathTest, AbsoluteFormsAreToldApart) {
  struct Case { const char* path; int dos, unixAbs, any; } cases[] = {
      {"", 0, 0, 0},          {"c", 0, 0, 0},       {"c:", 1, 0, 1},    {"c:x", 1, 0, 1},
      {"c:\\x", 1, 0, 1},     {"1:\\", 0, 0, 0},    {"\\\\", 0, 0, 0},  {"\\\\x", 1, 0, 1},
      {"//x", 0, 1, 1},       {"/", 0, 1, 1},       {"\\x", 0, 0, 0},   {"x\\y", 0, 0, 0},
  };
  for (const Case& c : cases)
    EXPECT_EQ(std::make_tuple(c.dos, c.unixAbs, c.any),
              std::make_tuple(IsDOSAbsolutePath(W(c.path)), IsUnixAbsolutePath(W(c.path)), IsAbsolutePath(W(c.path))))
        << c.path;
  EXPECT_EQ(0, GetFilesCaseSensitive());
}

//===-- Normal form ---------------------------------------------------------===//

TEST(VnPathTest, CanonicalFormResolvesDotsAndSeparatorsByText) {
  struct Case { const char *path, *canonical; } cases[] = {
      {"a\\b\\..\\c", "a\\c"},  {"a\\.\\b", "a\\b"},      {".\\a", "a"},           {"..\\a", "a"},
      {"a\\..\\..\\b", "b"},    {"a\\b\\..", "a"},        {"a\\b\\.", "a\\b"},     {"a\\..", ""},
      {".", ""},                {"..", ""},               {"c:\\a\\..\\b", "c:\\b"}, {"c:\\..\\b", "b"},
      {"c:\\", "c:"},           {"\\", ""},               {"//srv/sh/x", "\\\\srv\\sh\\x"},
      {"\\\\srv\\sh\\", "\\\\srv\\sh"},                   {"\\\\srv\\..\\x", "\\\\x"},
      {"a//b", "a\\b"},         {"a\\...\\b", "a\\...\\b"}, {"a.\\b", "a.\\b"},   {"", ""},
      {"\\\\\\a", "\\\\a"},     {"./././a", "a"},         {"a/b/../../..", ""},    {"..\\..", ""},
      {"a\\.b\\c", "a\\.b\\c"}, {"c:/A/./B/", "c:\\A\\B"}, {"a\\b\\c\\..\\..", "a"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.canonical, U8(GetCanonicalPathName(W(c.path), 1))) << c.path;
  // Lower case unless kept.
  EXPECT_EQ("c:\\dir\\file.txt", U8(GetCanonicalPathName(_T("C:/Dir/File.TXT"), 0)));
  EXPECT_EQ("C:\\Dir\\File.TXT", U8(GetCanonicalPathName(_T("C:/Dir/File.TXT"), 1)));
}

TEST(VnPathTest, SamePathIgnoresCaseSeparatorsAndDots) {
  struct Case { const char *a, *b; bool same; } cases[] = {
      {"C:\\A\\.\\b\\", "c:/a/B", true}, {"a\\b", "a\\c", false}, {"a\\..\\b", "b", true},
      {"\\\\s\\h", "//S/H/", true},      {"\\s\\h", "\\\\s\\h", false}, {"", ".", true},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.same, IsSamePath(W(c.a), W(c.b))) << c.a << " / " << c.b;
}

//===-- Relative form -------------------------------------------------------===//

TEST(VnPathTest, RelativePathCountsTheLevelsOfTheBase) {
  struct Case { const char *path, *base; int ok; const char* result; } cases[] = {
      {"c:\\a\\b\\f.txt", "c:\\a\\b\\g.txt", 1, "f.txt"},
      {"c:\\a\\b\\f.txt", "c:\\a\\c\\d\\g.txt", 1, "..\\..\\b\\f.txt"},
      {"c:\\a\\b\\f.txt", "c:\\a\\c\\d", 1, "..\\b\\f.txt"}, {"C:\\A\\f.txt", "c:\\a\\", 1, "f.txt"},
      {"c:\\a\\b", "c:\\ab\\g", 1, "..\\a\\b"}, {"f.txt", "c:\\a\\", 1, "f.txt"}, {"\\a\\f", "c:\\a\\g", 1, "f"},
      {"d:\\a", "c:\\a", 0, "d:\\a"}, {"\\\\s\\h\\f", "\\\\s\\h\\g", 0, "\\\\s\\h\\f"},
      {"//s/h/f", "//s/h/g", 0, "//s/h/f"},
      {"c:\\a", "c:\\a\\b\\c", 1, "..\\..\\a"}, {"", "c:\\a", 1, ""}, {"c:/a/b/f", "c:\\a/b\\g", 1, "f"},
      {"c:\\a\\f", "", 0, "c:\\a\\f"}, {"\\x", "", 1, "\\x"},
  };
  for (const Case& c : cases) {
    CString result(_T("stale"));
    const int ok = GetRelativePath(W(c.path), W(c.base), result);
    EXPECT_EQ(std::make_pair(c.ok, std::string(c.result)), std::make_pair(ok, U8(result))) << c.path << " / " << c.base;
  }
}

//===-- Display form --------------------------------------------------------===//

TEST(VnPathTest, AbbreviateLeavesOutWholeDirectoriesInTheMiddle) {
  const char* path = "c:\\alpha\\beta\\gamma\\delta\\file.txt";
  struct Case { const char* path; int max; const char* output; int result; } cases[] = {
      {path, 40, path, 34}, {path, 34, path, 34}, {path, 33, "c:\\alpha\\...\\gamma\\delta\\file.txt", 33},
      {path, 30, "c:\\alpha\\...\\delta\\file.txt", 27}, {path, 21, "c:\\alpha\\...\\file.txt", 21},
      {path, 20, path, 20},
      {path, 7, path, 7},  // the file name alone is too long
      {path, 0, path, 0},
      // Server and share, or the drive, stay in front.
      {"\\\\server\\share\\alpha\\beta\\file.txt", 30, "\\\\server\\share\\...\\file.txt", 27},
      {"c:\\f.txt", 7, "c:\\f.txt", 7},          // prefix "c:": nothing fits
      {"c:\\a\\f.txt", 9, "c:\\a\\f.txt", 9},
      {"rel\\dir\\f.txt", 5, "rel\\dir\\f.txt", 5},  // not a full path
      {"", 10, "", 10},
      {"c:\\a*\\f.txt", 8, "c:\\a*\\f.txt", 8},  // wildcard: no valid directory
  };
  for (const Case& c : cases) {
    CString out;
    const int result = AbbreviatePath(W(c.path), c.max, out);
    EXPECT_EQ(std::make_pair(c.result, std::string(c.output)), std::make_pair(result, U8(out))) << c.path << c.max;
  }
  // A network path without the backslashes the scans look for: the function
  // must stop at the end of the text.  What it gives is open; that it returns
  // a text no longer than the input plus the ellipsis, and never reads
  // outside (checked by the sanitizer build), is the point.
  for (const char* path : {"\\\\server", "\\\\server\\", "\\\\s\\sh", "//server/share/alpha/f.txt", "\\\\\\x\\y"}) {
    for (int max = 0; max < 30; ++max) {
      CString out;
      EXPECT_GE(AbbreviatePath(W(path), max, out), 0) << path;
      EXPECT_LE(out.GetLength(), static_cast<int>(std::string(path).size()) + 4) << path;
    }
  }
}

//===-- Name patterns -------------------------------------------------------===//

// The rule as written, recursion and all, as the reference: '*' any run,
// '?' zero or one character, anything else itself without regard to case.
bool ReferenceMatch(const std::u16string& p, size_t pi, const std::u16string& t, size_t ti) {
  if (pi == p.size())
    return ti == t.size();
  if (p[pi] == '*') {
    for (size_t k = ti; k <= t.size(); ++k)
      if (ReferenceMatch(p, pi + 1, t, k))
        return true;
    return false;
  }
  if (p[pi] == '?')
    return ReferenceMatch(p, pi + 1, t, ti) || (ti < t.size() && ReferenceMatch(p, pi + 1, t, ti + 1));
  return ti < t.size() && VnToLower(p[pi]) == VnToLower(t[ti]) && ReferenceMatch(p, pi + 1, t, ti + 1);
}

TEST(VnPathTest, PatternMatchingAgreesWithTheRecursiveRuleAndFinishesOnManyStars) {
  std::mt19937 rng(5);
  const char16_t alphabet[] = u"ab*?A";
  for (int round = 0; round < 3000; ++round) {
    std::u16string p, t;
    for (int i = static_cast<int>(rng() % 7); i > 0; --i)
      p += alphabet[rng() % 5];
    for (int i = static_cast<int>(rng() % 7); i > 0; --i)
      t += alphabet[rng() % 2];
    CString cp(CString::Storage(p.begin(), p.end())), ct(CString::Storage(t.begin(), t.end()));
    ASSERT_EQ(ReferenceMatch(p, 0, t, 0), MatchNamePattern(cp, ct)) << U8(cp) << " ~ " << U8(ct);
  }
  // Many stars against a long text that nearly matches: quick, not exponential.
  CString pattern, text(_T('a'), 2000);
  for (int i = 0; i < 200; ++i)
    pattern += _T("*a");
  pattern += _T("b");
  EXPECT_FALSE(MatchNamePattern(pattern, text));
  EXPECT_TRUE(MatchNamePattern(pattern.Left(pattern.GetLength() - 1), text));
}

TEST(VnPathTest, SpecListSplitsAtQuotesCommasSemicolonsAndBlanks) {
  struct Case { const char *name, *list; int match; } cases[] = {
      {"a.txt", "*.c;*.TXT", 1}, {"a b.txt", "\"a b.txt\" c.txt", 1}, {"c.txt", "\"a b.txt\" c.txt", 1},
      {"a.txt", "", 0},
      {"abc", "abc\"a.txt\"", 0},  // text before a quote is dropped
      {"a.txt", "abc\"a.txt\"", 1},
      {"a.txt", "\"a.txt", 0},  // no closing quote
      {"a.txt", "a.txt,\"b", 1},  // matched before the open quote
      {"readme", "*", 1},
      {"a.txt", "*", 0},  // '*' has no extension
      {"readme", "*.*", 0},  // '*.*' needs a dot
      {"ac.txt", "a?c.txt", 1}, {"x.txt", " , ;  x.txt ", 1},
      {"c:\\dir\\a.txt", "d:\\other\\*.txt", 1},  // directories are ignored
      {"a.tar.gz", "*.gz", 1},
      {"a.tar.gz", "a.*", 0},      // the name part is "a.tar"
      {"a.tar.gz", "a.tar.*", 1},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.match, NameIsInSpecList(W(c.name), W(c.list))) << c.name << " in " << c.list;
}

//===-- Long paths and roots ------------------------------------------------===//

// Texts around the 260-character limit of the file system functions: the
// text functions have no limit of their own and give the same answers at
// every length.
TEST(VnPathTest, TextFunctionsTreatPathsAroundTheLimitAlike) {
  for (int length : {259, 260, 261}) {
    CString p(_T("c:\\"));
    while (p.GetLength() < length - 10)
      p += _T("dir\\");
    p += CString(_T('f'), length - p.GetLength());
    ASSERT_EQ(length, p.GetLength());
    EXPECT_EQ(U8(p), U8(GetCanonicalPathName(p + _T("\\"), 1))) << length;
    EXPECT_TRUE(IsSamePath(p, p + _T("\\.\\x\\..")));
    CString relative, dir, file, full = p;
    EXPECT_EQ(1, GetRelativePath(p, _T("c:\\dir\\other.txt"), relative));
    EXPECT_EQ(U8(p.Mid(7)), U8(relative)) << length;
    SeparatePathAndFile(p, dir, file);
    EXPECT_EQ(length, dir.GetLength() + file.GetLength()) << length;
    EXPECT_EQ(1, GetValidPathName(full)) << length;
    EXPECT_EQ(U8(p), U8(full)) << length;
  }
}

//===-- Validity and the file system ----------------------------------------===//

// The guard of the full path refuses a drive followed by a blank.
TEST(VnPathTest, ValidPathNameRefusesWildcardsColonsAndSlips) {
  struct Case { const char* path; int valid; const char* full; } cases[] = {  // full null: left unchanged
      {"c:\\a:b", 0, nullptr}, {"c: x", 0, nullptr}, {"c:\\no\\such\\dir", 1, "c:\\no\\such\\dir"},
      {"c:\\a\\*.txt", 0, nullptr}, {"c:\\a?", 0, nullptr}, {"", 0, nullptr}, {"c:\\a\\..\\b\\", 1, "c:\\b\\"},
  };
  for (const Case& c : cases) {
    CString p = W(c.path);
    EXPECT_EQ(c.valid, GetValidPathName(p)) << c.path;
    EXPECT_EQ(c.full ? c.full : c.path, U8(p)) << c.path;
  }
  CString current, p(_T("some\\name"));  // relative: against the current directory
  GetCurrentPath(current);
  ASSERT_EQ(1, GetValidPathName(p));
  EXPECT_TRUE(IsSamePath(current + _T("some\\name"), p)) << U8(p);
  WCHAR buffer[300];
  EXPECT_EQ(0u, GetFullPathChecked(_T("c: x"), 300, buffer));
  EXPECT_EQ(0u, GetFullPathChecked(_T("c: "), 300, buffer));
  EXPECT_EQ(4u, GetFullPathChecked(_T("c:\\x"), 300, buffer));
  EXPECT_EQ(5u, GetFullPathChecked(_T("c:\\x"), 2, buffer));  // the size needed
}

// "  c:  " asks about c:\, a fixed disk on Windows and no root natively.
TEST(VnPathTest, RootTypesOfNetworkPathsAndShortTexts) {
  struct Case { const char* path; int type; } cases[] = {
      {"ab", 0}, {"", 0}, {"   ", 0}, {"\\\\srv", 4}, {"//srv/share", 4}, {"\\/x", 4},
#ifdef _WIN32
      {"  c:  ", 3},
#else
      {"  c:  ", 1}, {"/tmp", 3},
#endif
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.type, GetRootDirType(W(c.path))) << c.path;
  EXPECT_EQ(0, GetRootDirType(nullptr));
}

// The root needs no creating; a file standing where a directory should
// stops EnsureValidPath and stays.
TEST(VnPathTest, DirectoriesAndFilesAreToldApart) {
  ScratchDir scratch;
  const CString file = scratch.Path() + _T("f.txt"), sub = scratch.Path() + _T("sub");
  EXPECT_EQ(0, IsFile(file));
  std::filesystem::create_directory(FsPath(sub));
  { std::ofstream(FsPath(file)) << "x"; }
#ifdef _WIN32
  const CString root = _T("c:\\");
#else
  const CString root = _T("/");
#endif
  const struct { CString path; int dir, file; } cases[] = {
      {root, 1, 0}, {scratch.Path(), 1, 0}, {sub, 1, 0}, {file, 0, 1}, {scratch.Path() + _T("none"), 0, 0}};
  for (const auto& c : cases)
    EXPECT_EQ(std::make_pair(c.dir, c.file), std::make_pair(IsDir(c.path), IsFile(c.path))) << U8(c.path);
  EXPECT_EQ(1, EnsureValidPath(root));
  EXPECT_EQ(1, CreatePathTree(root));
  EXPECT_EQ(0, EnsureValidPath(file + _T("\\sub")));
  EXPECT_EQ(1, IsFile(file));
}

TEST(VnPathTest, EnsureValidPathCreatesEveryMissingLevel) {
  ScratchDir scratch;
  CString deep = scratch.Path() + _T("a/b\\c\\");
  EXPECT_EQ(0, IsDir(deep));
  EXPECT_EQ(1, EnsureValidPath(deep));
  EXPECT_EQ(1, IsDir(deep));
  EXPECT_EQ(1, EnsureValidPath(deep));  // and again: it exists
  CString resolved = scratch.Path() + _T("x\\..\\y");
  EXPECT_EQ(1, ResolveValidatePath(resolved));
  EXPECT_TRUE(IsSamePath(scratch.Path() + _T("y"), resolved)) << U8(resolved);
  EXPECT_EQ(1, IsDir(scratch.Path() + _T("y")));
  EXPECT_EQ(0, IsDir(scratch.Path() + _T("x")));
  EXPECT_EQ(0, EnsureValidPath(_T("")));
}

// A path of the given total length below the scratch directory, made of
// elements short enough for any file system.
CString PathOfLength(const CString& base, int length) {
  CString p = base;
  while (length - p.GetLength() > 60) {
    p += CString(_T('d'), 49);
    p += _T('\\');
  }
  p += CString(_T('d'), length - p.GetLength());
  return p;
}

TEST(VnPathTest, EnsureValidPathTakesUpTo260AndResolveUpTo258Characters) {
  ScratchDir scratch;
  CString full = scratch.Path();
  ASSERT_EQ(1, GetValidPathName(full));
  ASSERT_LT(full.GetLength(), 180);
  struct Case { int length, ensure, resolve; } cases[] = {
      {257, 1, 1}, {258, 1, 1}, {259, 1, 0}, {260, 1, 0}, {261, 0, 0}, {262, 0, 0}};
  for (const Case& c : cases) {
    CString p = PathOfLength(full, c.length);
    ASSERT_EQ(c.length, p.GetLength());
    CString q = PathOfLength(full, c.length);
    q.SetAt(q.GetLength() - 1, _T('r'));  // a sibling for the second function
    EXPECT_EQ(c.ensure, EnsureValidPath(p)) << c.length;
    EXPECT_EQ(c.ensure, IsDir(p)) << c.length;
    EXPECT_EQ(c.resolve, ResolveValidatePath(q)) << c.length;
    EXPECT_EQ(c.resolve, IsDir(q)) << c.length;
  }
}

TEST(VnPathTest, EnsureValidFileLeavesNoTrialFileBehind) {
  ScratchDir scratch;
  CString fresh = scratch.Path() + _T("new\\file.txt");
  EXPECT_EQ(1, EnsureValidFile(fresh));
  EXPECT_EQ(1, IsDir(scratch.Path() + _T("new")));
  EXPECT_FALSE(std::filesystem::exists(FsPath(fresh)));

  CString existing = scratch.Path() + _T("old.txt");
  { std::ofstream(FsPath(existing)) << "keep"; }
  EXPECT_EQ(1, EnsureValidFile(existing));
  EXPECT_EQ(4u, std::filesystem::file_size(FsPath(existing)));

  EXPECT_EQ(0, EnsureValidFile(_T("bare-name.txt")));  // no directory part
  EXPECT_EQ(0, EnsureValidFile(scratch.Path() + _T("new")));  // a directory
}

#ifdef _WIN32
// A file another handle holds exclusively can be neither opened nor
// created anew; the trial must not replace it.
TEST(VnPathTest, AnExclusivelyHeldFileIsNoFileAndStaysIntact) {
  ScratchDir scratch;
  CString held = scratch.Path() + _T("held.txt");
  { std::ofstream(FsPath(held)) << "data"; }
  HANDLE h = ::CreateFileW(held, GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(INVALID_HANDLE_VALUE, h);
  EXPECT_EQ(0, IsFile(held));
  EXPECT_EQ(0, EnsureValidFile(held));
  ::CloseHandle(h);
  EXPECT_EQ(1, IsFile(held));
  EXPECT_EQ(4u, std::filesystem::file_size(FsPath(held)));
}
#endif

TEST(VnPathTest, PathGettersEndInASeparator) {
  CString current, temp, app;
  GetCurrentPath(current);
  GetTemporaryPath(temp);
  GetAppPath(app);
  for (const CString* p : {&current, &temp, &app}) {
    EXPECT_EQ(1, PathHasEndSlash(*p)) << U8(*p);
    EXPECT_EQ(1, IsDir(*p)) << U8(*p);
  }
  EXPECT_EQ('\\', current[current.GetLength() - 1]);  // added in every case
#ifdef _WIN32
  EXPECT_EQ(1, IsFile(app + _T("foundation_tests.exe"))) << U8(app);
  const CString fsCurrent(std::filesystem::current_path().wstring().c_str());
#else
  EXPECT_EQ(1, IsFile(app + _T("foundation_tests"))) << U8(app);
  const CString fsCurrent = VnFromUtf8(std::filesystem::current_path().string());
#endif
  EXPECT_TRUE(IsSamePath(current, fsCurrent)) << U8(current) << " vs " << U8(fsCurrent);
}

#ifndef _WIN32
// The current directory can vanish under a process here; the getter then
// throws the system's error rather than giving an empty path.
TEST(VnPathTest, CurrentPathThrowsWhenTheDirectoryIsGone) {
  ScratchDir scratch;
  const std::filesystem::path home = std::filesystem::current_path();
  std::filesystem::current_path(FsPath(scratch.Path()));
  std::filesystem::remove(FsPath(scratch.Path()));
  const long long code = RaisedOsCode([] {
    CString p;
    GetCurrentPath(p);
  });
  std::filesystem::current_path(home);
  EXPECT_EQ(2, code);
}
#endif

}  // namespace
