// VnPath.cpp - the path functions that work on the text alone.
//
// A path is taken apart by the C runtime's split rules: an optional drive
// (two characters, the second a colon), a directory up to and including the
// last separator, a name, and an extension from the name's last dot.  The
// normal form is made by a fixed sequence of passes over a private copy
// (see GetCanonicalPathName); relative forms, shortened display forms and
// pattern tests are built on these two.  Nothing here touches the file
// system except AbbreviatePath, which asks GetValidPathName whether its
// directory is a plain full path.
#include "foundation/VnPath.h"

#include <cwctype>
#include <string>
#include <vector>

typedef std::basic_string<WCHAR> Text;

// The longest drive, directory, name or extension a split keeps.
static const int kMaxPart = 255;

static bool IsSep(WCHAR c) { return c == '\\' || c == '/'; }
static bool IsLetter(WCHAR c) { return std::iswalpha(static_cast<wint_t>(c)) != 0; }

//===-- Separators ----------------------------------------------------------===//

LPCWSTR FindLastSlash(LPCWSTR path) {
  LPCWSTR last = nullptr;
  for (LPCWSTR p = path; p && *p; ++p)
    if (IsSep(*p))
      last = p;
  return last;
}

int PathHasEndSlash(LPCWSTR path) {
  if (!path || !*path)
    return 0;
  return IsSep(path[VnStrLen(path) - 1]) ? 1 : 0;
}

void AppendEndSlash(CString& path) { path += _T('\\'); }

void TrimEndSlash(CString& path) {
  if (PathHasEndSlash(path))
    path.Delete(path.GetLength() - 1);
}

//===-- Taking apart --------------------------------------------------------===//

namespace {
struct PathParts {
  CString drive, dir, name, ext;
};
}  // namespace

static CString Part(LPCWSTR from, size_t length) {
  return CString(from, static_cast<int>(length < static_cast<size_t>(kMaxPart) ? length : kMaxPart));
}

static PathParts SplitPath(LPCWSTR path) {
  PathParts parts;
  if (!path)
    return parts;
  if (path[0] && path[1] == ':') {
    parts.drive = CString(path, 2);
    path += 2;
  }
  LPCWSTR lastSep = FindLastSlash(path);
  LPCWSTR name = lastSep ? lastSep + 1 : path;
  parts.dir = Part(path, static_cast<size_t>(name - path));
  LPCWSTR dot = nullptr;
  for (LPCWSTR p = name; *p; ++p)
    if (*p == '.')
      dot = p;
  LPCWSTR end = name + VnStrLen(name);
  if (!dot)
    dot = end;
  parts.name = Part(name, static_cast<size_t>(dot - name));
  parts.ext = Part(dot, static_cast<size_t>(end - dot));
  return parts;
}

void SeparatePathAndFile(LPCWSTR path, CString& dir, CString& file) {
  PathParts parts = SplitPath(path);
  dir = parts.drive + parts.dir;
  file = parts.name + parts.ext;
}

void SeparatePathFileAndExt(LPCWSTR path, CString& dir, CString& name, CString& ext) {
  PathParts parts = SplitPath(path);
  dir = parts.drive + parts.dir;
  name = parts.name;
  ext = parts.ext.IsEmpty() ? parts.ext : parts.ext.Mid(1);
}

CString GetPathDrive(LPCWSTR path) { return SplitPath(path).drive; }

//===-- Classifying ---------------------------------------------------------===//

int IsDOSAbsolutePath(const CString& path) {
  if (path.GetLength() < 2)
    return 0;
  if (IsLetter(path[0]) && path[1] == ':')
    return 1;
  return path.GetLength() > 2 && path[0] == '\\' && path[1] == '\\' ? 1 : 0;
}

int IsUnixAbsolutePath(const CString& path) { return !path.IsEmpty() && path[0] == '/' ? 1 : 0; }

int IsAbsolutePath(const CString& path) { return IsDOSAbsolutePath(path) || IsUnixAbsolutePath(path) ? 1 : 0; }

int GetFilesCaseSensitive() { return 0; }

//===-- Normal form ---------------------------------------------------------===//

// An element starts at i when a separator stands before it, or i is 0.
static bool StartsElement(const Text& s, size_t i) { return i == 0 || s[i - 1] == '\\'; }

// Removes every ".\" element; a lone "." and a final "\." lose their dot.
static void DropDotElements(Text& s) {
  for (size_t i = 0; i + 1 < s.size();) {
    if (s[i] == '.' && s[i + 1] == '\\' && StartsElement(s, i))
      s.erase(i, 2);
    else
      ++i;
  }
  if (s == Text(1, '.'))
    s.clear();
  else if (s.size() >= 2 && s[s.size() - 1] == '.' && s[s.size() - 2] == '\\')
    s.pop_back();
}

// Where the element that ends with the separator at sepPos begins: behind
// the previous separator, or at 0.
static size_t ElementBefore(const Text& s, size_t sepPos) {
  size_t k = sepPos;
  while (k > 0 && s[k - 1] != '\\')
    --k;
  return k;
}

// Each "..\" element goes together with the element before it; the walk
// goes on from where the removed text began.
static void DropDotDotElements(Text& s) {
  for (size_t i = 0; i + 2 < s.size();) {
    if (s[i] == '.' && s[i + 1] == '.' && s[i + 2] == '\\' && StartsElement(s, i)) {
      size_t from = i == 0 ? 0 : ElementBefore(s, i - 1);
      s.erase(from, i + 3 - from);
      i = from;
    } else {
      ++i;
    }
  }
}

// A final "\.." takes the element before it along, keeping the separator
// in front of that element; a lone ".." goes entirely.
static void DropFinalDotDot(Text& s) {
  if (s == Text(2, '.')) {
    s.clear();
    return;
  }
  const size_t n = s.size();
  if (n < 3 || s[n - 1] != '.' || s[n - 2] != '.' || s[n - 3] != '\\')
    return;
  size_t start = ElementBefore(s, n - 3);
  if (start == 0)
    s.clear();
  else
    s.erase(start);
}

// Separator runs become one, except in the first two characters, which stay
// as they are so that a network path keeps its two leading backslashes.
static void CollapseSeparators(Text& s) {
  Text out;
  out.reserve(s.size());
  for (size_t i = 0; i < s.size(); ++i)
    if (i < 2 || s[i] != '\\' || out.back() != '\\')
      out += s[i];
  s.swap(out);
}

CString GetCanonicalPathName(const CString& path, int keepCase) {
  Text s = path.Str();
  for (WCHAR& c : s)
    if (c == '/')
      c = '\\';
  DropDotElements(s);
  DropDotDotElements(s);
  DropFinalDotDot(s);
  CollapseSeparators(s);
  if (!s.empty() && s.back() == '\\')
    s.pop_back();
  CString result(s);
  if (!keepCase)
    result.MakeLower();
  return result;
}

bool IsSamePath(const CString& a, const CString& b) {
  return GetCanonicalPathName(a, 0) == GetCanonicalPathName(b, 0);
}

//===-- Relative form -------------------------------------------------------===//

static int FirstSep(const CString& s) { return s.FindOneOf(_T("\\/")); }

static int CountSeps(const CString& s) {
  int count = 0;
  for (int i = 0; i < s.GetLength(); ++i)
    count += IsSep(s[i]) ? 1 : 0;
  return count;
}

static bool IsNetworkStart(const CString& s) {
  return s.GetLength() > 3 && ((s[0] == '\\' && s[1] == '\\') || (s[0] == '/' && s[1] == '/'));
}

int GetRelativePath(LPCWSTR path, LPCWSTR base, CString& result) {
  CString p(path), b(base);
  result = p;
  const CString pDrive = GetPathDrive(p), bDrive = GetPathDrive(b);
  if (pDrive.IsEmpty() && (p.IsEmpty() || !IsSep(p[0])))
    return 1;
  if (IsNetworkStart(p))
    return 0;
  if (!pDrive.IsEmpty() && pDrive.CompareNoCase(bDrive) != 0)
    return 0;
  p = p.Mid(pDrive.GetLength());
  b = b.Mid(bDrive.GetLength());

  // Drop the leading elements both share; the last element of each takes no
  // part, for it has no separator behind it.
  for (;;) {
    int ps = FirstSep(p), bs = FirstSep(b);
    if (ps < 0 || bs < 0 || ps != bs || p.Left(ps).CompareNoCase(b.Left(bs)) != 0)
      break;
    p = p.Mid(ps + 1);
    b = b.Mid(bs + 1);
  }
  CString up;
  for (int levels = CountSeps(b); levels > 0; --levels)
    up += _T("..\\");
  result = up + p;
  return 1;
}

//===-- Display form --------------------------------------------------------===//

// The next backslash at or after from, or the text's end when there is none.
static int NextBackslash(const CString& s, int from) {
  int at = from < s.GetLength() ? s.Find('\\', from) : -1;
  return at < 0 ? s.GetLength() : at;
}

// Where the part kept at the front ends: after the drive and first
// directory, or after a network path's server and share.
static int PrefixEnd(const CString& path, const CString& dir) {
  int pos = 2;
  if (path.GetLength() > 2 && path[0] == '\\' && path[1] == '\\' && path[2] != '\\')
    pos = NextBackslash(path, 2);
  if (dir.GetLength() > 3)
    pos = NextBackslash(path, pos + 1);
  return pos;
}

int AbbreviatePath(LPCWSTR path, int maxLength, CString& result) {
  const CString p(path);
  result = p;
  CString dir, file;
  SeparatePathAndFile(p, dir, file);
  CString resolved = dir;
  if (!GetValidPathName(resolved) || resolved.Compare(dir) != 0)
    return maxLength;
  if (p.GetLength() <= maxLength)
    return p.GetLength();
  if (file.GetLength() > maxLength)
    return maxLength;

  const int prefixLength = PrefixEnd(p, dir);
  if (maxLength < prefixLength + file.GetLength() + 5)
    return maxLength;
  // Drop whole directories from the front of the tail until it fits.
  int tail = prefixLength;
  while (tail < p.GetLength() && prefixLength + 4 + (p.GetLength() - tail) > maxLength)
    tail = NextBackslash(p, tail + 1);
  result.Format(_T("%s\\...%s"), p.Left(prefixLength).GetString(), p.Mid(tail).GetString());
  return result.GetLength();
}

//===-- Name patterns -------------------------------------------------------===//

// The recursive definition, computed bottom-up over pattern positions so
// that runs of '*' cost quadratic time, never exponential:
//   end of pattern: the text must be at its end too;
//   '*': the rest of the pattern at any later text position (none skipped);
//   '?': the rest here, or after one character;
//   other: equal to the text character after lower-casing both.
bool MatchNamePattern(LPCWSTR pattern, LPCWSTR text) {
  const Text p = pattern ? Text(pattern) : Text(), t = text ? Text(text) : Text();
  const size_t n = t.size();
  std::vector<char> next(n + 1, 0), cur(n + 1, 0);
  next[n] = 1;
  for (size_t pi = p.size(); pi-- > 0;) {
    const WCHAR c = p[pi];
    char any = 0;
    for (size_t ti = n + 1; ti-- > 0;) {
      if (c == '*') {
        any = any || next[ti];
        cur[ti] = any;
      } else if (c == '?') {
        cur[ti] = next[ti] || (ti < n && next[ti + 1]);
      } else {
        cur[ti] = ti < n && VnToLower(c) == VnToLower(t[ti]) && next[ti + 1];
      }
    }
    next.swap(cur);
  }
  return next[0] != 0;
}

int NameMatchesSpec(LPCWSTR name, LPCWSTR spec) {
  PathParts n = SplitPath(name), s = SplitPath(spec);
  return MatchNamePattern(s.name, n.name) && MatchNamePattern(s.ext, n.ext) ? 1 : 0;
}

int NameIsInSpecList(LPCWSTR name, LPCWSTR specList) {
  CString rest(specList);
  for (bool last = false; !last;) {
    CString element;
    int at = rest.FindOneOf(_T("\",; "));
    if (at < 0) {
      element = rest;
      last = true;
    } else if (rest[at] == '"') {
      int close = rest.Find('"', at + 1);
      if (close < 0)
        return 0;
      element = rest.Mid(at + 1, close - at - 1);
      rest = rest.Mid(close + 1);
    } else {
      element = rest.Left(at);
      rest = rest.Mid(at + 1);
    }
    element.Trim();
    if (!element.IsEmpty() && NameMatchesSpec(name, element))
      return 1;
  }
  return 0;
}
