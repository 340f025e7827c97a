// VnDiffFileTest.cpp - detection, conversion, line-end repair and the binary question.
#include "intake/VnDiffFile.h"

#include "IntakeTestFiles.h"
#include "ScriptedPrompt.h"
#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

using vn::test::Bytes;
using vn::test::Le;
using vn::test::ScriptedPrompt;
using vn::test::TempFile;

namespace {

// Fixes the ANSI code page so that results don't follow the machine's locale.
class DiffFileTest : public ::testing::Test {
protected:
  void SetUp() override { vn::os::SetAnsiCodePage(1252); }
  void TearDown() override { vn::os::SetAnsiCodePage(0); }
};

struct Loaded {
  bool ok;
  std::string text;
  int type;
  int encoding;
  unsigned codePage;
  bool bom;
  std::string description;
};

Loaded Load(const std::string& bytes, unsigned encoding = 0) {
  TempFile file(bytes);
  CVnDiffFile diff;
  diff.SetFileName(file.Path());
  if (encoding)
    diff.SetFileEncoding(encoding);
  unsigned char* text = nullptr;
  unsigned long length = 0;
  Loaded r;
  r.ok = diff.GetFileContents(text, length);
  r.text = r.ok ? Bytes(text, length) : std::string();
  r.type = diff.GetFileType();
  r.encoding = diff.GetEncoding();
  r.codePage = diff.GetCodePage();
  r.bom = diff.HasByteOrderMark();
  r.description = VnToUtf8(diff.GetEncodingDescription());
  return r;
}

struct DetectCase {
  const char* name;
  std::string bytes;
  std::string text;  // UTF-16LE
  int type;
  int encoding;
  unsigned codePage;
  bool bom;
  const char* description;
};

// The names of code pages are the platform's own on Windows.
void ExpectDescription(const char* expected, const std::string& description) {
#ifdef _WIN32
  if (std::string(expected).find("UTF-16") == std::string::npos && std::string(expected) != "binary") {
    EXPECT_FALSE(description.empty());
    return;
  }
#endif
  EXPECT_EQ(expected, description);
}

TEST_F(DiffFileTest, DetectsEncodingByMarkAndConvertsToUtf16) {
  const std::string e9 = std::string("\xE9\x00", 2);
  const DetectCase cases[] = {
      {"utf-8 with mark", "\xEF\xBB\xBF" "a\xC3\xA9", Le("a") + e9, 1, 1, 65001, true, "65001 (UTF-8)"},
      {"utf-16le with mark", std::string("\xFF\xFE" "a\0b\0", 6), Le("ab"), 1, 2, 70001, true, "UTF-16 (Little Endian)"},
      {"utf-16be with mark", std::string("\xFE\xFF\0a\0b", 6), Le("ab"), 1, 3, 70000, true, "UTF-16 (Big Endian)"},
      {"ansi 1252 above 0x7F", "caf\xE9", Le("caf") + e9, 0, 0, 1252, false, "1252  (ANSI - Latin I)"},
      {"one byte is text", "A", Le("A"), 0, 0, 1252, false, "1252  (ANSI - Latin I)"},
      {"only a utf-8 mark", "\xEF\xBB\xBF", "", 1, 1, 65001, true, "65001 (UTF-8)"},
      {"only a utf-16le mark", "\xFF\xFE", "", 1, 2, 70001, true, "UTF-16 (Little Endian)"},
      {"utf-32le counts as utf-16le", std::string("\xFF\xFE\0\0", 4), std::string("\0\0", 2), 1, 2, 70001, true,
       "UTF-16 (Little Endian)"},
      {"empty file", "", "", 0, 0, 1252, false, "1252  (ANSI - Latin I)"},
  };
  for (const DetectCase& c : cases) {
    SCOPED_TRACE(c.name);
    Loaded r = Load(c.bytes);
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(c.text, r.text);
    EXPECT_EQ(c.type, r.type);
    EXPECT_EQ(c.encoding, r.encoding);
    EXPECT_EQ(c.codePage, r.codePage);
    EXPECT_EQ(c.bom, r.bom);
    ExpectDescription(c.description, r.description);
  }
  // A file taken as binary, and a page the caller chose.
  ScriptedPrompt prompt({IDYES});
  ExpectDescription("binary", Load(std::string("a\0", 2)).description);
  ExpectDescription("1251  (ANSI - Cyrillic)", Load("plain", 1251).description);
}

TEST_F(DiffFileTest, RepairsEveryLineEndMixToCrLf) {
  const struct { const char* in; const char* out; } cases[] = {
      {"a\nb", "a\r\nb"},           {"a\rb\n", "a\r\nb\r\n"},     {"a\n\rb", "a\r\nb"},
      {"\n", "\r\n"},               {"\r\n\r\n", "\r\n\r\n"},     {"\r\r\n", "\r\n\r\n"},
      {"a\r\nb\nc\rd", "a\r\nb\r\nc\r\nd"}, {"a", "a"},           {"\n\r\n", "\r\n\r\n"},
      {"x\n\n", "x\r\n\r\n"},       {"\r", "\r\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.in);
    EXPECT_EQ(Le(c.out), Load(c.in).text);
    // The same text as UTF-16 with a mark is repaired the same way, and so
    // is text that the converter (not the ASCII path) decodes.
    EXPECT_EQ(Le(c.out), Load("\xFF\xFE" + Le(c.in)).text);
    EXPECT_EQ(std::string("\xE9\x00", 2) + Le(c.out), Load("\xE9" + std::string(c.in)).text);
  }
}

// ASCII text is widened and repaired in one pass; text with one byte above
// 0x7F goes through the converter and the two-pass repair.  Line ends of
// every mix, at every offset around the 16-byte blocks, must come out the
// same both ways (and the UTF-8 mark path must agree too).
TEST_F(DiffFileTest, OnePassAsciiRepairMatchesTheConverterPath) {
  const char* const kEnds[] = {"\n", "\r", "\r\n", "\n\r", "\n\n", "\r\r", "\n\r\n", "\r\r\n"};
  uint32_t seed = 7;
  for (int round = 0; round < 40; ++round) {
    std::string text;
    for (int line = 0; line < 12; ++line) {
      seed = seed * 1103515245u + 12345u;
      text += std::string((seed >> 16) % 37, static_cast<char>('a' + line));
      text += kEnds[(seed >> 8) % 8];
    }
    if (round % 2)
      text += "tail";
    SCOPED_TRACE(round);
    const std::string viaConverter = Load("\xE9" + text).text;
    ASSERT_GE(viaConverter.size(), 2u);
    EXPECT_EQ(viaConverter.substr(2), Load(text).text);
    EXPECT_EQ(viaConverter.substr(2), Load("\xEF\xBB\xBF" + text).text);
  }
}

// Long ASCII files are read and repaired in 64 KiB chunks; a line end may
// straddle a chunk's edge in every way and must pair up as in one piece.
// A byte above 0x7F late in a file sends it back to the general path.
TEST_F(DiffFileTest, ChunkedAsciiRepairPairsLineEndsAcrossChunks) {
  const char* const kMixes[] = {"\r\n", "\n\r", "\r\r\n", "\n\n\r", "\r\n\r\n\r", "\n", "\r"};
  for (const char* mix : kMixes) {
    for (size_t lead = 65530; lead <= 65537; ++lead) {
      const std::string text = std::string(lead, 'a') + mix + "b\nc";
      SCOPED_TRACE(lead);
      const std::string viaConverter = Load("\xE9" + text).text;
      ASSERT_GE(viaConverter.size(), 2u);
      EXPECT_EQ(viaConverter.substr(2), Load(text).text) << static_cast<int>(mix[0]);
    }
  }
  const std::string late = std::string(200000, 'x') + "\n\xE9\n";
  EXPECT_EQ(Le(std::string(200000, 'x') + "\r\n") + std::string("\xE9\x00\r\x00\n\x00", 6), Load(late).text);
}

// Plain ASCII loads report the kinds of line end the file had; other loads
// can't tell and report 0, and so does a file object with nothing loaded.
TEST_F(DiffFileTest, ReportsTheKindsOfLineEndItSaw) {
  const unsigned K = CVnDiffFile::EndsKnown, LF = CVnDiffFile::EndLf, CRLF = CVnDiffFile::EndCrLf,
                 CR = CVnDiffFile::EndCr, LFCR = CVnDiffFile::EndLfCr;
  const struct { std::string bytes; unsigned kinds; } cases[] = {
      {"a\nb\n", K | LF}, {"a\r\nb", K | CRLF}, {"a\rb\r", K | CR}, {"a\n\rb", K | LFCR},
      {"a\r\nb\nc\r", K | CRLF | LF | CR}, {"\r\r\n", K | CR | CRLF}, {"no end", K},
      {"caf\xE9\n", 0},  // through the converter
      {"\xFF\xFE" + Le("a\n"), 0},  // UTF-16
      {std::string("a\n\0b", 4), 0},  // binary: the only case that asks
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    TempFile file(c.bytes);
    CVnDiffFile diff;
    EXPECT_EQ(0u, diff.GetLineEndKinds());
    diff.SetFileName(file.Path());
    unsigned char* text = nullptr;
    unsigned long length = 0;
    ScriptedPrompt prompt({IDYES});
    ASSERT_TRUE(diff.GetFileContents(text, length));
    EXPECT_EQ(c.bytes[0] == 'a' && c.bytes.find('\0') != std::string::npos, !prompt.Asked().empty());
    EXPECT_EQ(c.kinds, diff.GetLineEndKinds());
    EXPECT_EQ(c.kinds, CVnDiffFile(diff).GetLineEndKinds()) << "a copy keeps it";
  }
}

// A NUL unit ends the repair scan: with no lone line end before it the
// whole text stays, after a lone LF the text is cut there.  An odd last
// UTF-16BE byte stays; a single NUL byte is binary, its marker the text.
TEST_F(DiffFileTest, NulUnitsOddBytesAndLoneNulLoadAsTheyShould) {
  const std::string nul("\0\0", 2);
  const struct { std::string bytes, text; int type; } cases[] = {
      {"\xFF\xFE" + Le("a\r\n") + nul + Le("b\n"), Le("a\r\n") + nul + Le("b\n"), 1},
      {"\xFF\xFE" + Le("a\n") + nul + Le("b\n"), Le("a\r\n"), 1},
      {std::string("\xFE\xFF\0a\x7F", 5), std::string("a\0\x7F", 3), 1}, {std::string("\0", 1), "\x01", 2},
  };
  ScriptedPrompt prompt({IDYES});
  for (const auto& c : cases) {
    Loaded r = Load(c.bytes);
    EXPECT_EQ(std::make_pair(c.text, c.type), std::make_pair(r.text, r.type)) << c.bytes.size();
  }
  EXPECT_EQ(1u, prompt.Asked().size());
}

TEST_F(DiffFileTest, SetFileEncodingOverridesDetection) {
  // A UTF-8 file without its mark reads like the same file with one.
  EXPECT_EQ(Load("\xEF\xBB\xBFx\xC3\xA9").text, Load("x\xC3\xA9", 65001).text);
  // UTF-16 without a mark is binary until the encoding is set.
  const std::string bare = Le("ab\n");
  {
    ScriptedPrompt prompt({IDNO});
    Loaded detected = Load(bare);
    EXPECT_FALSE(detected.ok);
    EXPECT_EQ(2, detected.type);
  }
  Loaded set = Load(bare, 70001);
  EXPECT_EQ(Le("ab\r\n"), set.text);
  EXPECT_FALSE(set.bom);
  // 70001 skips a UTF-16LE mark; 70000 does not and reads it as U+FFFE.
  EXPECT_EQ(Le("a"), Load("\xFF\xFE" + Le("a"), 70001).text);
  Loaded be = Load(std::string("\xFF\xFE\0a", 4), 70000);
  EXPECT_EQ(std::string("\xFE\xFF" "a\0", 4), be.text);
  EXPECT_FALSE(be.bom);
  // An ordinary page converts the three mark bytes as text.
  Loaded ansi = Load("\xEF\xBB\xBFz", 1252);
  EXPECT_EQ(0, ansi.type);
  EXPECT_EQ(std::string("\xEF\x00\xBB\x00\xBF\x00z\x00", 8), ansi.text);
}

// A file object on a temporary file, and the buffer of its last load.
struct Opened {
  explicit Opened(const std::string& bytes) : file(bytes) { diff.SetFileName(file.Path()); }
  bool Load() { return diff.GetFileContents(text, length); }
  std::string Text() const { return Bytes(text, length); }
  TempFile file;
  CVnDiffFile diff;
  unsigned char* text = nullptr;
  unsigned long length = 0;
};

TEST_F(DiffFileTest, BinaryFileAsksAndFollowsTheAnswer) {
  ScriptedPrompt prompt({IDNO, IDYES});
  Opened a(std::string("ab\0c", 4));
  a.text = reinterpret_cast<unsigned char*>(1);
  a.length = 77;
  EXPECT_FALSE(a.Load());
  ASSERT_EQ(1u, prompt.Asked().size());
  EXPECT_EQ(VnToUtf8(a.file.Path()) + " is a binary file.  Continue the compare or merge operation?",
            prompt.Asked()[0].text);
  EXPECT_EQ(0x34u, prompt.Asked()[0].type);
  EXPECT_EQ(reinterpret_cast<unsigned char*>(1), a.text);  // untouched on No
  EXPECT_EQ(77u, a.length);
  EXPECT_TRUE(a.diff.IsBinary());
  ASSERT_TRUE(a.Load());
  // NUL becomes a space and the last byte the marker, whatever it was.
  EXPECT_EQ(std::string("ab \x01", 4), a.Text());
}

TEST_F(DiffFileTest, SecondLoadGivesTheSameBufferWithoutReading) {
  Opened a("one\r\ntwo");
  ASSERT_TRUE(a.Load());
  const unsigned char* first = a.text;
  a.file.Write("changed on disk");
  ASSERT_TRUE(a.Load());
  EXPECT_EQ(first, a.text);
  EXPECT_EQ(Le("one\r\ntwo"), a.Text());
  // A new name takes it back to not loaded; the next load reads again.
  a.diff.SetFileName(a.file.Path());
  ASSERT_TRUE(a.Load());
  EXPECT_EQ(Le("changed on disk"), a.Text());
}

TEST_F(DiffFileTest, CopyHasItsOwnBufferWithTheSameText) {
  Opened a("\xFF\xFE" + Le("x\ny"));
  ASSERT_TRUE(a.Load());
  CVnDiffFile copy(a.diff), assigned;
  assigned = a.diff;
  for (CVnDiffFile* c : {&copy, &assigned}) {
    unsigned char* t = nullptr;
    unsigned long l = 0;
    ASSERT_TRUE(c->GetFileContents(t, l));
    EXPECT_NE(a.text, t);
    EXPECT_EQ(a.Text(), Bytes(t, l));
    EXPECT_EQ(70001u, c->GetCodePage());
  }
}

TEST_F(DiffFileTest, MissingFileRaisesAndKeepsTheEarlierText) {
  Opened a("kept");
  ASSERT_TRUE(a.Load());
  a.diff.SetFileName(a.file.Path() + _T(".missing"));
  unsigned char* other = nullptr;
  unsigned long length = 0;
  int cause = -1;
  try {
    a.diff.GetFileContents(other, length);
  } catch (CFileException* e) {
    cause = e->m_cause;
    e->Delete();
  }
  EXPECT_EQ(CFileException::fileNotFound, cause);
  EXPECT_EQ(Le("kept"), a.Text());  // the old buffer is still alive
}

TEST_F(DiffFileTest, MegabyteLineSurvivesWhole) {
  std::string line(1 << 20, 'x');
  Loaded r = Load(line + "\n");
  ASSERT_EQ(2 * (line.size() + 2), r.text.size());
  EXPECT_EQ(Le("x\r\n"), r.text.substr(r.text.size() - 6));
}

}  // namespace
