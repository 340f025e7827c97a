// CString.cpp - the 16-bit string and its printf-style formatter.
//
// The formatter handles what the component's texts use: flags, width,
// precision (also as '*'), the length prefixes h, l, ll, I64, I32, z, and the
// types d i u o x X c s S p e E f g G and %.  Numbers are formatted by the C
// library into narrow text and widened; strings are copied as 16-bit units.
#include "afx/portable/CString.h"

#include "afx/os/OsSeam.h"
#include "afx/portable/AfxExceptions.h"

#include <cassert>
#include <cstdio>
#include <cstring>
#include <cwctype>
#include <vector>

CString::CString(LPCWSTR text) {
  if (text)
    m_str.assign(text);
}

CString::CString(LPCWSTR text, int length) {
  if (text && length > 0)
    m_str.assign(text, static_cast<size_t>(length));
}

CString::CString(WCHAR ch, int repeat) {
  if (repeat > 0)
    m_str.assign(static_cast<size_t>(repeat), ch);
}

CString::CString(const char* ansi) {
  if (ansi && *ansi)
    m_str = vn::os::MultiByteToWide(CP_ACP, ansi, static_cast<int>(strlen(ansi)));
}

CString& CString::operator=(LPCWSTR text) {
  if (text)
    m_str.assign(text);
  else
    m_str.clear();
  return *this;
}

CString& CString::operator=(WCHAR ch) {
  m_str.assign(1, ch);
  return *this;
}

WCHAR CString::GetAt(int index) const {
  if (index < 0 || index > GetLength())
    AfxThrowInvalidArgException();
  return m_str.c_str()[index];
}

void CString::SetAt(int index, WCHAR ch) {
  if (index < 0 || index >= GetLength())
    AfxThrowInvalidArgException();
  m_str[static_cast<size_t>(index)] = ch;
}

CString& CString::operator+=(LPCWSTR s) {
  if (s)
    m_str += s;
  return *this;
}

void CString::Append(LPCWSTR s, int length) {
  if (s && length > 0)
    m_str.append(s, static_cast<size_t>(length));
}

int CString::Compare(LPCWSTR s) const {
  int r = m_str.compare(s ? s : _T(""));
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(LPCWSTR s) const {
  if (!s)
    s = _T("");
  const WCHAR* a = m_str.c_str();
  for (;; ++a, ++s) {
    WCHAR ca = VnToLower(*a), cb = VnToLower(*s);
    if (ca != cb)
      return ca < cb ? -1 : 1;
    if (ca == 0)
      return 0;
  }
}

// Substrings clamp their arguments as the framework does: a negative start
// counts as 0 and a count past the end stops at the end.
CString CString::Mid(int first) const { return Mid(first, GetLength() - first); }

CString CString::Mid(int first, int count) const {
  if (first < 0)
    first = 0;
  if (count < 0)
    count = 0;
  if (first > GetLength())
    first = GetLength();
  if (count > GetLength() - first)
    count = GetLength() - first;
  return CString(Storage(m_str, static_cast<size_t>(first), static_cast<size_t>(count)));
}

CString CString::Left(int count) const { return Mid(0, count); }

CString CString::Right(int count) const {
  if (count < 0)
    count = 0;
  if (count > GetLength())
    count = GetLength();
  return Mid(GetLength() - count, count);
}

int CString::Find(WCHAR ch, int start) const {
  if (start < 0 || start > GetLength())
    return -1;
  size_t pos = m_str.find(ch, static_cast<size_t>(start));
  return pos == Storage::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(LPCWSTR sub, int start) const {
  if (!sub || start < 0 || start > GetLength())
    return -1;
  size_t pos = m_str.find(sub, static_cast<size_t>(start));
  return pos == Storage::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(WCHAR ch) const {
  size_t pos = m_str.rfind(ch);
  return pos == Storage::npos ? -1 : static_cast<int>(pos);
}

int CString::FindOneOf(LPCWSTR chars) const {
  if (!chars)
    return -1;
  size_t pos = m_str.find_first_of(chars);
  return pos == Storage::npos ? -1 : static_cast<int>(pos);
}

CString& CString::MakeLower() {
  for (auto& c : m_str)
    c = VnToLower(c);
  return *this;
}

CString& CString::MakeUpper() {
  for (auto& c : m_str)
    c = VnToUpper(c);
  return *this;
}

static bool IsSpaceUnit(WCHAR c) { return c == ' ' || (c >= 9 && c <= 13); }

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft() {
  size_t i = 0;
  while (i < m_str.size() && IsSpaceUnit(m_str[i]))
    ++i;
  m_str.erase(0, i);
  return *this;
}

CString& CString::TrimRight() {
  size_t n = m_str.size();
  while (n > 0 && IsSpaceUnit(m_str[n - 1]))
    --n;
  m_str.resize(n);
  return *this;
}

CString& CString::TrimLeft(WCHAR ch) {
  size_t i = 0;
  while (i < m_str.size() && m_str[i] == ch)
    ++i;
  m_str.erase(0, i);
  return *this;
}

CString& CString::TrimRight(WCHAR ch) {
  size_t n = m_str.size();
  while (n > 0 && m_str[n - 1] == ch)
    --n;
  m_str.resize(n);
  return *this;
}

int CString::Replace(WCHAR from, WCHAR to) {
  int count = 0;
  for (auto& c : m_str)
    if (c == from) {
      c = to;
      ++count;
    }
  return count;
}

int CString::Replace(LPCWSTR from, LPCWSTR to) {
  if (!from || !*from)
    return 0;
  Storage f(from), t(to ? to : _T(""));
  int count = 0;
  for (size_t pos = m_str.find(f); pos != Storage::npos; pos = m_str.find(f, pos + t.size())) {
    m_str.replace(pos, f.size(), t);
    ++count;
  }
  return count;
}

int CString::Remove(WCHAR ch) {
  size_t before = m_str.size();
  Storage out;
  out.reserve(before);
  for (WCHAR c : m_str)
    if (c != ch)
      out += c;
  m_str.swap(out);
  return static_cast<int>(before - m_str.size());
}

int CString::Insert(int index, WCHAR ch) {
  WCHAR s[2] = {ch, 0};
  return Insert(index, s);
}

int CString::Insert(int index, LPCWSTR s) {
  if (index < 0)
    index = 0;
  if (index > GetLength())
    index = GetLength();
  if (s)
    m_str.insert(static_cast<size_t>(index), s);
  return GetLength();
}

int CString::Delete(int index, int count) {
  if (index < 0)
    index = 0;
  if (index < GetLength() && count > 0)
    m_str.erase(static_cast<size_t>(index), static_cast<size_t>(count));
  return GetLength();
}

LPWSTR CString::GetBuffer(int minLength) {
  if (minLength > GetLength())
    m_str.resize(static_cast<size_t>(minLength));
  return &m_str[0];
}

LPWSTR CString::GetBufferSetLength(int length) {
  m_str.resize(static_cast<size_t>(length < 0 ? 0 : length));
  return &m_str[0];
}

void CString::ReleaseBuffer(int newLength) {
  if (newLength < 0) {
    size_t n = 0;
    while (n < m_str.size() && m_str[n] != 0)
      ++n;
    newLength = static_cast<int>(n);
  }
  assert(static_cast<size_t>(newLength) <= m_str.size() && "ReleaseBuffer past the buffer");
  m_str.resize(static_cast<size_t>(newLength));
}

//===-- Formatting ---------------------------------------------------------===//

namespace {

struct FormatSpec {
  std::string flags;
  int width = -1;
  int precision = -1;
  enum { None, Short, Long, LongLong, Size } length = None;
  bool wideForced = false;    // %ls / %lc / %ws
  bool narrowForced = false;  // %hs / %hc / %S / %C
  char type = 0;
};

void AppendPadded(CString::Storage& out, const CString::Storage& body, const FormatSpec& spec) {
  int pad = spec.width - static_cast<int>(body.size());
  bool left = spec.flags.find('-') != std::string::npos;
  if (pad > 0 && !left)
    out.append(static_cast<size_t>(pad), ' ');
  out += body;
  if (pad > 0 && left)
    out.append(static_cast<size_t>(pad), ' ');
}

CString::Storage Widen(const char* s, size_t n) {
  CString::Storage w;
  w.reserve(n);
  for (size_t i = 0; i < n; ++i)
    w += static_cast<WCHAR>(static_cast<unsigned char>(s[i]));
  return w;
}

// Reads flags, width, precision and length prefix; leaves p on the type.
const WCHAR* ParseSpec(const WCHAR* p, FormatSpec& spec, va_list& args) {
  while (*p == '-' || *p == '+' || *p == ' ' || *p == '#' || *p == '0')
    spec.flags += static_cast<char>(*p++);
  if (*p == '*') {
    spec.width = va_arg(args, int);
    if (spec.width < 0) {
      spec.flags += '-';
      spec.width = -spec.width;
    }
    ++p;
  } else if (*p >= '0' && *p <= '9') {
    spec.width = 0;
    while (*p >= '0' && *p <= '9')
      spec.width = spec.width * 10 + (*p++ - '0');
  }
  if (*p == '.') {
    ++p;
    spec.precision = 0;
    if (*p == '*') {
      spec.precision = va_arg(args, int);
      ++p;
    } else {
      while (*p >= '0' && *p <= '9')
        spec.precision = spec.precision * 10 + (*p++ - '0');
    }
  }
  if (p[0] == 'I' && p[1] == '6' && p[2] == '4') {
    spec.length = FormatSpec::LongLong;
    p += 3;
  } else if (p[0] == 'I' && p[1] == '3' && p[2] == '2') {
    p += 3;
  } else if (p[0] == 'l' && p[1] == 'l') {
    spec.length = FormatSpec::LongLong;
    p += 2;
  } else if (*p == 'l' || *p == 'w') {
    spec.length = FormatSpec::Long;
    spec.wideForced = true;
    ++p;
  } else if (p[0] == 'h' && p[1] == 'h') {
    p += 2;
  } else if (*p == 'h') {
    spec.length = FormatSpec::Short;
    spec.narrowForced = true;
    ++p;
  } else if (*p == 'z' || *p == 'I') {
    spec.length = FormatSpec::Size;
    ++p;
  }
  spec.type = static_cast<char>(*p);
  return p;
}

std::string NarrowSpec(const FormatSpec& spec, const char* lengthMod) {
  std::string f = "%" + spec.flags;
  if (spec.width >= 0)
    f += std::to_string(spec.width);
  if (spec.precision >= 0)
    f += "." + std::to_string(spec.precision);
  return f + lengthMod + spec.type;
}

CString::Storage FormatNumber(const FormatSpec& spec, va_list& args) {
  char buf[512];
  int n = 0;
  switch (spec.type) {
  case 'd':
  case 'i':
    if (spec.length == FormatSpec::LongLong)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "ll").c_str(), va_arg(args, long long));
    else if (spec.length == FormatSpec::Size)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "z").c_str(), va_arg(args, ptrdiff_t));
    else if (spec.length == FormatSpec::Long)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "l").c_str(), va_arg(args, long));
    else
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "").c_str(), va_arg(args, int));
    break;
  case 'u':
  case 'x':
  case 'X':
  case 'o':
    if (spec.length == FormatSpec::LongLong)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "ll").c_str(), va_arg(args, unsigned long long));
    else if (spec.length == FormatSpec::Size)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "z").c_str(), va_arg(args, size_t));
    else if (spec.length == FormatSpec::Long)
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "l").c_str(), va_arg(args, unsigned long));
    else
      n = snprintf(buf, sizeof buf, NarrowSpec(spec, "").c_str(), va_arg(args, unsigned int));
    break;
  case 'p':
    n = snprintf(buf, sizeof buf, "%p", va_arg(args, void*));
    break;
  default:  // e E f F g G
    n = snprintf(buf, sizeof buf, NarrowSpec(spec, "").c_str(), va_arg(args, double));
    break;
  }
  if (n < 0)
    n = 0;
  return Widen(buf, static_cast<size_t>(n) < sizeof buf ? static_cast<size_t>(n) : sizeof buf - 1);
}

// %s, %S, %c, %C.  Lower-case takes the platform's wide text unless an 'h'
// narrows it; upper-case takes the other width, as the framework defines.
CString::Storage FormatText(const FormatSpec& spec, bool narrow, va_list& args) {
  CString::Storage body;
  if (spec.type == 'c' || spec.type == 'C') {
    body = CString::Storage(1, static_cast<WCHAR>(va_arg(args, int)));
  } else if (narrow) {
    const char* s = va_arg(args, const char*);
    body = CString(s ? s : "(null)").Str();
  } else {
    LPCWSTR s = va_arg(args, LPCWSTR);
    body = s ? CString::Storage(s) : CString(_T("(null)")).Str();
  }
  if (spec.precision >= 0 && static_cast<size_t>(spec.precision) < body.size() && spec.type != 'c' && spec.type != 'C')
    body.resize(static_cast<size_t>(spec.precision));
  return body;
}

}  // namespace

void CString::FormatV(LPCWSTR format, va_list args) {
  Storage out;
  va_list ap;
  va_copy(ap, args);
  for (const WCHAR* p = format; p && *p; ++p) {
    if (*p != '%') {
      out += *p;
      continue;
    }
    FormatSpec spec;
    p = ParseSpec(p + 1, spec, ap);
    switch (spec.type) {
    case 0:
      --p;  // a lone '%' at the end: stop at the terminator
      break;
    case '%':
      out += '%';
      break;
    case 's':
    case 'c':
      AppendPadded(out, FormatText(spec, spec.narrowForced, ap), spec);
      break;
    case 'S':
    case 'C':
      AppendPadded(out, FormatText(spec, !spec.wideForced, ap), spec);
      break;
    case 'd': case 'i': case 'u': case 'x': case 'X': case 'o': case 'p':
    case 'e': case 'E': case 'f': case 'F': case 'g': case 'G':
      out += FormatNumber(spec, ap);
      break;
    default:  // unknown type: keep it as written
      out += '%';
      out += *p;
      break;
    }
  }
  va_end(ap);
  m_str.swap(out);
}

void CString::Format(LPCWSTR format, ...) {
  va_list args;
  va_start(args, format);
  FormatV(format, args);
  va_end(args);
}

void CString::AppendFormat(LPCWSTR format, ...) {
  CString tail;
  va_list args;
  va_start(args, format);
  tail.FormatV(format, args);
  va_end(args);
  m_str += tail.m_str;
}

//===-- Free operators and helpers -----------------------------------------===//

CString operator+(const CString& a, const CString& b) { return CString(a.Str() + b.Str()); }
CString operator+(const CString& a, LPCWSTR b) { CString r(a); r += b; return r; }
CString operator+(LPCWSTR a, const CString& b) { CString r(a); r += b; return r; }
CString operator+(const CString& a, WCHAR b) { CString r(a); r += b; return r; }
bool operator==(const CString& a, const CString& b) { return a.Str() == b.Str(); }
bool operator==(const CString& a, LPCWSTR b) { return a.Compare(b) == 0; }
bool operator==(LPCWSTR a, const CString& b) { return b.Compare(a) == 0; }
bool operator!=(const CString& a, const CString& b) { return !(a == b); }
bool operator!=(const CString& a, LPCWSTR b) { return !(a == b); }
bool operator!=(LPCWSTR a, const CString& b) { return !(a == b); }
bool operator<(const CString& a, const CString& b) { return a.Str() < b.Str(); }

size_t VnStrLen(LPCWSTR s) {
  size_t n = 0;
  if (s)
    while (s[n])
      ++n;
  return n;
}

WCHAR VnToLower(WCHAR ch) { return static_cast<WCHAR>(towlower(static_cast<wint_t>(ch))); }
WCHAR VnToUpper(WCHAR ch) { return static_cast<WCHAR>(towupper(static_cast<wint_t>(ch))); }

std::string VnToUtf8(LPCWSTR s, int length) {
  std::string out;
  if (!s)
    return out;
  VnAppendUtf8(s, length < 0 ? VnStrLen(s) : static_cast<size_t>(length), out);
  return out;
}

static void AppendCodePoint(unsigned cp, std::string& out) {
  if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
  }
  out += static_cast<char>(0x80 | (cp & 0x3F));
}

// ASCII runs go through unchanged; a high surrogate joins a low one that
// follows it, and any other surrogate stands for U+FFFD.
void VnAppendUtf8(const WCHAR* s, size_t length, std::string& out) {
  for (size_t i = 0; i < length; ++i) {
    const unsigned u = static_cast<unsigned short>(s[i]);
    if (u < 0x80) {
      out += static_cast<char>(u);
      continue;
    }
    if (u >= 0xD800 && u < 0xDC00 && i + 1 < length) {
      const unsigned v = static_cast<unsigned short>(s[i + 1]);
      if (v >= 0xDC00 && v < 0xE000) {
        AppendCodePoint(0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00), out);
        ++i;
        continue;
      }
    }
    AppendCodePoint(u >= 0xD800 && u < 0xE000 ? 0xFFFD : u, out);
  }
}

CString VnFromUtf8(const std::string& s) {
  return CString(vn::os::MultiByteToWide(CP_UTF8, s.data(), static_cast<int>(s.size())));
}
