// VnFormDifferenceTest.cpp - the encoding chosen by content, and what two
// files' facts say about their form.
#include "compare/VnFileCaption.h"
#include "compare/VnFormDifference.h"

#include <gtest/gtest.h>

#include <string>

namespace {

unsigned Choose(const std::string& bytes, unsigned ansi = 65001) {
  return VnCodePageByContent(VnScanContent(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()), ansi);
}

TEST(VnEncodingByContentTest, ValidUtf8WithNonAsciiIsUtf8AndAnythingElseIsLeftOrWestern) {
  const std::string ascii(100, 'a');
  const struct {
    const char* name;
    std::string bytes;
    unsigned page;  // under a UTF-8 ANSI code page
  } cases[] = {
      {"ascii", ascii, 0},
      {"two-byte", ascii + "caf\xC3\xA9", 65001},
      {"four-byte", "\xF0\x9F\x98\x80", 65001},
      {"max code point", "\xF4\x8F\xBF\xBF", 65001},
      {"latin-1", ascii + "caf\xE9" + ascii, 1252},
      {"overlong", "\xC0\xAF", 1252},
      {"overlong three", "\xE0\x80\xAF", 1252},
      {"surrogate", "\xED\xA0\x80", 1252},
      {"past U+10FFFF", "\xF4\x90\x80\x80", 1252},
      {"cut at the end", ascii + "\xE2\x82", 1252},
      {"stray continuation", "\x80", 1252},
      {"nul", std::string("caf\xC3\xA9\0", 6), 0},
      {"utf-8 mark", "\xEF\xBB\xBF" "caf\xE9", 0},
      {"utf-16 mark", "\xFF\xFE" "a\0", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.page, Choose(c.bytes));
    EXPECT_EQ(c.page == 1252 ? 0u : c.page, Choose(c.bytes, 1252));  // the ANSI page reads it
  }
}

CVnFileFacts Facts(const TCHAR* encoding, unsigned page, bool bom = false, bool ascii = false) {
  CVnFileFacts f;
  f.m_strEncoding = encoding;
  f.m_nCodePage = page;
  f.m_nFileType = page == 65001 || page >= 70000 || bom ? CVnDiffFile::TypeUnicode : CVnDiffFile::TypeText;
  f.m_bHasBOM = bom;
  f.m_bAscii = ascii;
  f.m_nLineEnds = VnLineEnd::LF;
  return f;
}

TEST(VnFormDifferenceTest, OneLinePerKindAndPlainAsciiMatchesAnyEightBitPage) {
  const CVnFileFacts utf8 = Facts(_T("65001 (UTF-8)"), 65001), ascii = Facts(_T("1252"), 1252, false, true);
  const CVnFileFacts utf16 = Facts(_T("UTF-16"), 70001, true), latin = Facts(_T("1252"), 1252);
  EXPECT_TRUE(VnFormDifferences(utf8, ascii).empty());
  EXPECT_TRUE(VnFormDifferences(ascii, latin).empty());
  ASSERT_EQ(1u, VnFormDifferences(ascii, utf16).size());
  EXPECT_EQ(CString(_T("encoding: UTF-8 / Windows-1252")), VnFormDifferenceText(VnFormDifferences(utf8, latin)[0]));

  CVnFileFacts crlf = utf8;
  crlf.m_nLineEnds = VnLineEnd::CRLF;
  crlf.m_bFinalNewline = false;
  crlf.m_bHasBOM = true;
  const std::vector<CVnFormDifference> all = VnFormDifferences(utf8, crlf);
  ASSERT_EQ(3u, all.size());
  EXPECT_EQ(CString(_T("encoding: UTF-8 / UTF-8 with BOM")), VnFormDifferenceText(all[0]));
  EXPECT_EQ(CString(_T("line ends: LF / CR LF")), VnFormDifferenceText(all[1]));
  EXPECT_EQ(CString(_T("final newline: yes / no")), VnFormDifferenceText(all[2]));

  CVnCompareOptions options;
  options.m_bIgnoreEncoding = true;
  EXPECT_FALSE(VnFormDifferenceCounts(VnFormKind::Encoding, options));
  EXPECT_TRUE(VnFormDifferenceCounts(VnFormKind::FinalNewline, options));

  CVnFileFacts none = utf8;  // one line without a line end has no style
  none.m_nLineEnds = VnLineEnd::None;
  none.m_bFinalNewline = false;
  ASSERT_EQ(1u, VnFormDifferences(utf8, none).size());
  EXPECT_EQ(VnFormKind::FinalNewline, VnFormDifferences(utf8, none)[0].m_nKind);
  crlf.m_nFileType = CVnDiffFile::TypeBinary;
  EXPECT_TRUE(VnFormDifferences(utf8, crlf).empty());  // bytes, not form
}

TEST(VnFileCaptionTest, NamesEncodingMarkLineEndsAndHowTheEncodingWasChosen) {
  CVnFileFacts facts;
  facts.m_strDisplayName = _T("a.txt");
  facts.m_strEncoding = _T("UTF-8");
  facts.m_nLineEnds = VnLineEnd::CRLF;
  facts.m_nEncodingSource = VnEncodingSource::Content;
  EXPECT_EQ(CString(_T("a.txt  (UTF-8 by content, CR LF)")), VnFileCaption(facts));
  facts.m_nEncodingSource = VnEncodingSource::ByteOrderMark;
  facts.m_bHasBOM = true;
  facts.m_nLineEnds = VnLineEnd::Mixed;
  facts.m_bFinalNewline = false;
  EXPECT_EQ(CString(_T("a.txt  (UTF-8, BOM, mixed line ends, no final newline)")), VnFileCaption(facts));
  facts.m_nFileType = CVnDiffFile::TypeBinary;
  EXPECT_EQ(CString(_T("a.txt  (binary)")), VnFileCaption(facts));
}

}  // namespace

namespace {

TEST(VnFormSummaryTest, NamesEveryKindThatDiffersAndWhetherTheTextDiffersToo) {
  const CVnFormDifference encoding = {VnFormKind::Encoding, _T("UTF-8"), _T("UTF-16LE with BOM")};
  const CVnFormDifference ends = {VnFormKind::LineEnds, _T("LF"), _T("CR LF")};
  const CVnFormDifference last = {VnFormKind::FinalNewline, _T("yes"), _T("no")};
  const struct {
    std::vector<CVnFormDifference> differences;
    bool sameText;
    const TCHAR* summary;
  } cases[] = {
      {{}, true, _T("")},
      {{}, false, _T("")},
      {{ends}, true, _T("Files differ only in line ends")},
      {{encoding}, true, _T("Files differ only in encoding")},
      {{last}, true, _T("Files differ only in final newline")},
      {{encoding, ends}, true, _T("Files differ only in encoding and line ends")},
      {{encoding, ends, last}, true, _T("Files differ only in encoding, line ends and final newline")},
      {{encoding}, false, _T("Also different: encoding")},
  };
  for (const auto& c : cases)
    EXPECT_EQ(CString(c.summary), VnFormSummary(c.differences, c.sameText));
}

}  // namespace
