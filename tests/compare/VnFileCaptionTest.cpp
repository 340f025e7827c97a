// VnFileCaptionTest.cpp - a file's caption names what a reader of its bytes
// needs: encoding, byte order mark, line ends, a missing final newline.
#include "compare/VnFileCaption.h"

#include <gtest/gtest.h>

TEST(VnFileCaptionTest, NamesEncodingMarkAndLineEnds) {
  CVnFileFacts facts;
  facts.m_strDisplayName = _T("a.txt");
  facts.m_strEncoding = _T("UTF-8");
  facts.m_nLineEnds = VnLineEnd::CRLF;
  EXPECT_EQ(CString(_T("a.txt  (UTF-8, CR LF)")), VnFileCaption(facts));
  facts.m_bHasBOM = true;
  facts.m_nLineEnds = VnLineEnd::Mixed;
  facts.m_bFinalNewline = false;
  EXPECT_EQ(CString(_T("a.txt  (UTF-8, BOM, mixed line ends, no final newline)")), VnFileCaption(facts));
  facts.m_nFileType = CVnDiffFile::TypeBinary;
  EXPECT_EQ(CString(_T("a.txt  (binary)")), VnFileCaption(facts));
}
