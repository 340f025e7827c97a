// CStringTest.cpp - the 16-bit string: construction, editing, formatting.
#include "afx/afx.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace vn::test;

TEST(CStringTest, ConstructsFromWideNarrowAndRepeats) {
  EXPECT_EQ("abc", U8(CString(_T("abc"))));
  EXPECT_EQ("ab", U8(CString(_T("abc"), 2)));
  EXPECT_EQ("xxx", U8(CString(_T('x'), 3)));
  EXPECT_TRUE(CString(static_cast<LPCWSTR>(nullptr)).IsEmpty());
  EXPECT_TRUE(CString(_T("abc"), -4).IsEmpty());
}

TEST(CStringTest, SubstringsClampLikeTheFramework) {
  CString s(_T("hello"));
  EXPECT_EQ("llo", U8(s.Mid(2)));
  EXPECT_EQ("el", U8(s.Mid(1, 2)));
  EXPECT_EQ("", U8(s.Mid(9)));
  EXPECT_EQ("hello", U8(s.Mid(-3, 99)));
  EXPECT_EQ("he", U8(s.Left(2)));
  EXPECT_EQ("hello", U8(s.Left(10)));
  EXPECT_EQ("lo", U8(s.Right(2)));
  EXPECT_EQ("", U8(s.Right(-1)));
}

TEST(CStringTest, FindsForwardAndBackward) {
  CString s(_T("a\\b/c\\d"));
  EXPECT_EQ(1, s.Find('\\'));
  EXPECT_EQ(5, s.Find('\\', 2));
  EXPECT_EQ(5, s.ReverseFind('\\'));
  EXPECT_EQ(1, s.FindOneOf(_T("/\\")));
  EXPECT_EQ(2, s.Find(_T("b/")));
  EXPECT_EQ(-1, s.Find(_T("zz")));
  EXPECT_EQ(-1, s.Find('a', 99));
}

TEST(CStringTest, EditsInPlace) {
  CString s(_T("  a-b-c \t"));
  s.Trim();
  EXPECT_EQ("a-b-c", U8(s));
  EXPECT_EQ(2, s.Replace('-', '+'));
  EXPECT_EQ("a+b+c", U8(s));
  EXPECT_EQ(2, s.Replace(_T("+"), _T("--")));
  EXPECT_EQ("a--b--c", U8(s));
  EXPECT_EQ(4, s.Remove('-'));
  s.Insert(1, _T("XY"));
  EXPECT_EQ("aXYbc", U8(s));
  s.Delete(1, 2);
  EXPECT_EQ("ABC", U8(s.MakeUpper()));
  EXPECT_EQ(0, s.CompareNoCase(_T("ABC")));
  EXPECT_GT(s.Compare(_T("ABB")), 0);
}

TEST(CStringTest, BufferRoundTrip) {
  CString s;
  LPWSTR p = s.GetBuffer(10);
  p[0] = 'h';
  p[1] = 'i';
  p[2] = 0;
  s.ReleaseBuffer();
  EXPECT_EQ(2, s.GetLength());
  p = s.GetBufferSetLength(3);
  p[2] = '!';
  s.ReleaseBuffer(3);
  EXPECT_EQ("hi!", U8(s));
}

TEST(CStringTest, IndexOutsideRaisesInvalidArgument) {
  CString s(_T("ab"));
  EXPECT_EQ(0, s.GetAt(2));  // the terminator is readable
  EXPECT_TRUE(RaisesInvalidArg([&] { s.GetAt(3); }));
}

TEST(CStringTest, FormatsNumbersAndTexts) {
  auto F = [](LPCWSTR fmt, auto... args) {
    CString s;
    s.Format(fmt, args...);
    return U8(s);
  };
  EXPECT_EQ("0000BEEF", F(_T("%08X"), 0xBEEFu));
  EXPECT_EQ("0000beef.7", F(_T("%08x.%d"), 0xBEEFu, 7));
  EXPECT_EQ(": 5000000000 of 6000000000", F(_T(": %I64d of %I64d"), 5000000000LL, 6000000000LL));
  EXPECT_EQ("Cannot open file a.txt.", F(_T("Cannot open file %s."), _T("a.txt")));
  EXPECT_EQ("[  ab][ab  ][a]", F(_T("[%4s][%-4s][%.1s]"), _T("ab"), _T("ab"), _T("ab")));
  EXPECT_EQ("narrow", F(_T("%hs"), "narrow"));
  EXPECT_EQ("x=-12 100%", F(_T("x=%ld %d%%"), -12L, 100));
  EXPECT_EQ("  7|7  |1.50", F(_T("%*d|%-*d|%.2f"), 3, 7, 3, 7, 1.5));
  EXPECT_EQ("c", F(_T("%c"), 'c'));
  EXPECT_EQ("(null)", F(_T("%s"), static_cast<LPCWSTR>(nullptr)));
}

TEST(CStringTest, Utf8RoundTripKeepsSurrogatePairs) {
  std::string text = "gr\xC3\xBC\xC3\x9F \xF0\x9F\x98\x80";  // grüß 😀
  CString w = VnFromUtf8(text);
  EXPECT_EQ(7, w.GetLength());
  EXPECT_EQ(text, VnToUtf8(w));
}

// Each length of sequence at its bounds; a surrogate without its partner
// becomes U+FFFD (EF BF BD), as Win32 makes it.
TEST(CStringTest, Utf8EncoderTakesEveryLengthAndReplacesLoneSurrogates) {
  const struct { std::vector<unsigned> units; const char* bytes; } cases[] = {
      {{0x41, 0x7F}, "A\x7F"}, {{0x80, 0x7FF}, "\xC2\x80\xDF\xBF"}, {{0x800, 0xFFFF}, "\xE0\xA0\x80\xEF\xBF\xBF"},
      {{0xD800, 0xDC00, 0xDBFF, 0xDFFF}, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}, {{0xD800, 0x41}, "\xEF\xBF\xBD" "A"},
      {{0xDC00, 0xD800}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
  };
  for (const auto& c : cases) {
    std::vector<WCHAR> units(c.units.begin(), c.units.end());
    std::string out = "<";
    VnAppendUtf8(units.data(), units.size(), out);
    EXPECT_EQ(std::string("<") + c.bytes, out);
    EXPECT_EQ(c.bytes, VnToUtf8(units.data(), static_cast<int>(units.size())));
  }
}

}  // namespace
