// VndiffEndToEndTest.cpp - vndiff as users run it: output, exit status, deltas.
//
// GNU patch checks that normal and unified output rebuild the target.
#include "VndiffFixture.h"

#include "resources/VnVersion.h"

#include <random>

namespace {

using vn::test::Outcome;
using vn::test::VndiffTest;

//===-- Formats and exit status --------------------------------------------===//

TEST_F(VndiffTest, EachFormatPrintsTheRecords) {
  Write("a", "one\ntwo\nthree\nfour\n");
  Write("b", "one\n2\nthree\nfour\nfive");
  const struct {
    const char* args;
    const char* out;
  } cases[] = {
      {"a b", "2c2\n< two\n---\n> 2\n4a5\n> five\n\\ No newline at end of file\n"},
      {"--format=records a b", "Change 2 2 2 2\nInsert 0 0 5 5\n"},
      {"-U0 a b", "@@ -2 +2 @@\n-two\n+2\n@@ -4,0 +5 @@\n+five\n\\ No newline at end of file\n"},
      {"-u a b", "@@ -1,4 +1,5 @@\n one\n-two\n+2\n three\n four\n+five\n\\ No newline at end of file\n"},
      {"-y -W 40 --color=never a b", "     1 one                1 one\n     2 two         |      2 2\n"
                                     "     3 three              3 three\n     4 four               4 four\n"
                                     "                   >      5 five\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    Outcome r = Vndiff(c.args);
    EXPECT_EQ(1, r.status);
    std::string out = r.out;
    if (out.compare(0, 4, "--- ") == 0) {  // labels carry times; check their form, then the hunks
      EXPECT_EQ(0u, out.find("--- a\t"));
      EXPECT_NE(std::string::npos, out.find("\n+++ b\t"));
      out = out.substr(out.find("\n@@") + 1);
    }
    EXPECT_EQ(c.out, out);
    EXPECT_EQ("", r.err);
  }
}

TEST_F(VndiffTest, ColourOnlyWhenAsked) {
  Write("a", "x\n");
  Write("b", "y\n");
  EXPECT_NE(std::string::npos, Vndiff("-y --color=always a b").out.find("\x1b[33m"));
  EXPECT_EQ(std::string::npos, Vndiff("-y a b").out.find("\x1b["));  // stdout is no terminal
}

TEST_F(VndiffTest, ExitStatusSaysSameDifferentOrTrouble) {
  Write("a", "same\n");
  Write("b", "same\n");
  Write("c", "other\n");
  Write("crlf", "same\r\n");
  Write("empty1", "");
  Write("empty2", "");
  Write("spaced", "s a m e\n");
  Write("upper", "SAME\n");
  const struct {
    const char* args;
    int status;
  } cases[] = {
      {"a b", 0},          {"a c", 1},           {"empty1 empty2", 0},   {"a crlf", 1},
      {"--raw a crlf", 1}, {"--ignore-line-ends a crlf", 0}, {"--format=records a crlf", 0},
      {"a spaced", 1},     {"-w a spaced", 0},   {"--ignore-whitespace a spaced", 0},
      {"a upper", 1},      {"-i a upper", 0},    {"-wi spaced upper", 0}, {"--ignore-line-ends --raw a crlf", 0},
      {"a", 2},            {"a b c", 2},         {"--bogus a b", 2},     {"--format=fancy a b", 2},
      {"-U x a b", 2},     {"--encoding=nonesuch a b", 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    Outcome r = Vndiff(c.args);
    EXPECT_EQ(c.status, r.status);
    EXPECT_EQ(c.status == 2, !r.err.empty()) << r.err;
    EXPECT_EQ(c.status != 1, r.out.empty());
  }
}

TEST_F(VndiffTest, TroubleNamesTheFileAndTheReason) {
  Write("a", "x\n");
  Outcome r = Vndiff("a gone");
  EXPECT_EQ(2, r.status);
  EXPECT_EQ("vndiff: Cannot open file gone. The system cannot find the file specified.\n", r.err);
  EXPECT_EQ("", r.out);
  mkdir(Path("dir").c_str(), 0755);
  r = Vndiff("a dir");
  EXPECT_EQ(2, r.status);
  EXPECT_EQ("vndiff: dir: is a directory\n", r.err);
}

// "-" reads standard input (once, however often it is named); the output
// and messages call it "-", and its temporary copy does not outlive the run.
TEST_F(VndiffTest, DashReadsStandardInput) {
  Write("old", "a\nb\n");
  Write("new", "a\nc\n");
  Write("nul", std::string("x\0y", 3));
  const std::string spool = Path("spool");
  mkdir(spool.c_str(), 0700);
  const char* tmpdir = getenv("TMPDIR");
  const std::string saved = tmpdir ? tmpdir : "";
  setenv("TMPDIR", spool.c_str(), 1);  // where vndiff puts its copy
  Outcome r = Vndiff("-u - new", "old");
  EXPECT_EQ(1, r.status) << r.err;
  EXPECT_EQ(0u, r.out.find("--- -\t")) << r.out;
  EXPECT_NE(std::string::npos, r.out.find("-b\n+c\n"));
  EXPECT_EQ(1, Vndiff("old -", "new").status);
  EXPECT_EQ(0, Vndiff("- -", "new").status);
  EXPECT_EQ(0, Vndiff("--info -", "new").out.find("-\n  type:            text"));
  r = Vndiff("- old", "nul");
  EXPECT_EQ(2, r.status);
  EXPECT_EQ("vndiff: -: binary file not compared (--binary=yes compares it)\n", r.err);
  if (tmpdir)
    setenv("TMPDIR", saved.c_str(), 1);
  else
    unsetenv("TMPDIR");
  EXPECT_EQ(0, rmdir(spool.c_str())) << "a temporary copy was left behind";
}

TEST_F(VndiffTest, RefusesFilesOf4GiBInsteadOfReadingThemShort) {
  Write("a", "x\n");
  ASSERT_EQ(0, truncate(Path("a").c_str(), 0));
  Write("small", "x\n");
  Write("huge", "");
  ASSERT_EQ(0, truncate(Path("huge").c_str(), (1LL << 32) + 2));  // sparse: costs no disk
  for (const char* args : {"small huge", "--raw small huge", "--info huge"}) {
    SCOPED_TRACE(args);
    Outcome r = Vndiff(args);
    EXPECT_EQ(2, r.status);
    EXPECT_NE(std::string::npos, r.err.find("huge: file of 4 GiB or more")) << r.err;
  }
}

TEST_F(VndiffTest, HelpAndVersion) {
  Outcome help = Vndiff("--help");
  EXPECT_EQ(0, help.status);
  EXPECT_EQ(0u, help.out.find("Usage: vndiff [OPTION]... SOURCE TARGET\n"));
  Outcome version = Vndiff("--version");
  EXPECT_EQ(0, version.status);
  EXPECT_EQ("vndiff (Vn Reconcile) " VN_VERSION_TEXT "\n", version.out);
}

//===-- Encodings and binary files -----------------------------------------===//

std::string Utf16Le(const std::string& ascii, bool mark) {
  std::string out = mark ? "\xFF\xFE" : "";
  for (char c : ascii) {
    out += c;
    out += '\0';
  }
  return out;
}

// Each file is decoded before comparing and printed as UTF-8.  Damaged text
// is no trouble: it is compared as the decoder reads it, with the
// replacement character for bytes that are no UTF-8 and the half unit at
// the end of a UTF-16 file left out.
TEST_F(VndiffTest, DecodesEncodingsBeforeComparing) {
  Write("utf8", "caf\xC3\xA9\nline\n");
  Write("utf8bom", "\xEF\xBB\xBF" "caf\xC3\xA9\nline\n");
  Write("latin1", "caf\xE9\nline\n");
  Write("utf16", Utf16Le("caf", true) + std::string("\xE9\0", 2) + Utf16Le("\nline\n", false));
  Write("utf16bare", Utf16Le("caf", false) + std::string("\xE9\0", 2) + Utf16Le("\nline\n", false));
  Write("utf16b", Utf16Le("caf", true) + std::string("\xE9\0", 2) + Utf16Le("\nLINE\n", false));
  Write("ab", "a\nb\n");
  Write("utf16-odd", std::string("\xFF\xFE" "a\0\n\0" "b", 7));
  Write("bad-utf8", "caf\xC3(\n");
  const struct {
    const char* args;
    int status;
    const char* out;  // null: not looked at
  } cases[] = {
      {"utf8 utf8bom", 0, ""},
      {"utf8 utf16", 0, ""},
      {"--source-encoding=1252 latin1 utf8", 0, ""},
      {"--source-encoding=latin1 latin1 utf16", 0, ""},
      {"--source-encoding=utf-16le utf16bare utf8", 0, ""},
      {"--encoding=utf-8 utf8 utf8bom", 0, ""},
      {"--raw utf8 utf8bom", 1, nullptr},
      {"utf16 utf16b", 1, "2c2\n< line\n---\n> LINE\n"},
      {"utf16-odd ab", 1, "1a2\n> b\n"},
      {"bad-utf8 utf8", 1, "1c1,2\n< caf\xEF\xBF\xBD(\n---\n> caf\xC3\xA9\n> line\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    Outcome r = Vndiff(c.args);
    EXPECT_EQ(c.status, r.status) << r.out << r.err;
    if (c.out)
      EXPECT_EQ(c.out, r.out);
    EXPECT_EQ("", r.err);
  }
}

TEST_F(VndiffTest, BinaryQuestionFollowsTheFlag) {
  Write("text", "a\nb\n");
  Write("bin", std::string("a\nb\0c\n", 6));
  Outcome declined = Vndiff("text bin");  // no terminal: the answer is no
  EXPECT_EQ(2, declined.status);
  EXPECT_EQ("vndiff: bin: binary file not compared (--binary=yes compares it)\n", declined.err);
  EXPECT_EQ(2, Vndiff("--binary=no text bin").status);
  Outcome accepted = Vndiff("--binary=yes text bin");
  EXPECT_EQ(1, accepted.status);
  // NUL shows as a space, and the marker takes the place of the last byte
  // (the final LF), so the binary side ends without a line end.
  EXPECT_EQ("2c2\n< b\n---\n> b c\x01\n\\ No newline at end of file\n", accepted.out);
}

TEST_F(VndiffTest, InfoDescribesEachFile) {
  Write("utf16", Utf16Le("a\nb\nc", true));
  Write("latin1", "caf\xE9\n");
  Write("bin", std::string("\0", 1));
  Outcome r = Vndiff("--info utf16 bin");
  EXPECT_EQ(0, r.status);
  EXPECT_EQ("utf16\n  type:            Unicode\n  encoding:        UTF-16 (Little Endian)\n"
            "  code page:       70001\n  byte order mark: yes\n  lines:           3\n"
            "bin\n  type:            binary\n  encoding:        binary\n"
            "  code page:       65001\n  byte order mark: no\n  lines:           1\n",
            r.out);
  r = Vndiff("--encoding=1252 --info latin1");
  EXPECT_NE(std::string::npos, r.out.find("encoding:        1252  (ANSI - Latin I)\n"));
  r = Vndiff("--info latin1 missing");
  EXPECT_EQ(2, r.status);
  EXPECT_NE(std::string::npos, r.out.find("latin1\n"));
}

//===-- Patches and deltas on random pairs ---------------------------------===//

// Small texts over a few lines, so that random pairs share much and differ
// some; the line ends (from line to line as well), the final line end and
// (in raw mode) bytes vary.
std::string RandomText(std::mt19937& rng, bool rawBytes, const std::string& eol) {
  static const char* const kLines[] = {"a", "b", "c", "", "int x;", "\tq", "caf\xC3\xA9"};
  static const char* const kRawLines[] = {"a", "b", "\r", "", "x\ry", "\xFF", "z\r"};
  std::uniform_int_distribution<int> count(0, 14), pick(0, 6), coin(0, 3);
  std::string text;
  const int n = count(rng);
  for (int i = 0; i < n; ++i) {
    text += rawBytes ? kRawLines[pick(rng)] : kLines[pick(rng)];
    text += coin(rng) == 0 ? "\r\n" : eol;
  }
  if (!text.empty() && coin(rng) == 0)
    text.resize(text.size() - (text.back() == '\n' && text.size() > 1 && text[text.size() - 2] == '\r' ? 2 : 1));
  return text;
}

TEST_F(VndiffTest, PatchMadeFromTheOutputRebuildsTheTarget) {
  if (!HavePatch())
    GTEST_SKIP() << "GNU patch is not installed";
  std::mt19937 rng(7);
  for (int i = 0; i < 60; ++i) {
    const bool raw = i % 2 == 1;
    const std::string eol = i % 3 == 0 ? "\r\n" : "\n";
    Write("s", RandomText(rng, raw, eol));
    Write("t", RandomText(rng, raw, eol));
    for (const char* format : {"", "-u", "-U1"}) {
      SCOPED_TRACE(std::to_string(i) + (raw ? " raw " : " decoded ") + format);
      Outcome r = Vndiff(std::string(raw ? "--raw " : "") + format + " s t");
      ASSERT_NE(2, r.status) << r.err;
      Write("p", r.out);
      const std::string patch = "cd '" + m_dir + "' && patch -s -o rebuilt s p > /dev/null 2>&1";
      if (r.status == 1)
        ASSERT_EQ(0, system(patch.c_str()));
      else
        Write("rebuilt", Read("s"));
      EXPECT_EQ(Read("t"), Read("rebuilt"));
    }
  }
}

TEST_F(VndiffTest, DeltaRoundTripIsByteIdentical) {
  std::mt19937 rng(11);
  for (int i = 0; i < 80; ++i) {
    SCOPED_TRACE(i);
    Write("s", RandomText(rng, true, "\n"));
    Write("t", RandomText(rng, true, i % 2 ? "\n" : "\r\n"));
    system(("rm -rf '" + Path("d") + "' '" + Path("out") + "'").c_str());
    Outcome saved = Vndiff("--raw --format=records --save-delta d s t");
    ASSERT_NE(2, saved.status) << saved.err;
    EXPECT_EQ(0u, Read("d/records").size() % 20);
    Outcome applied = Vndiff("--apply-delta d s -o out");
    ASSERT_EQ(0, applied.status) << applied.err;
    EXPECT_EQ(Read("t"), Read("out"));
  }
}

std::string Record(int action, int s0, int e0, int s1, int e1) {
  std::string out;
  for (int v : {action, s0, e0, s1, e1})
    for (int b = 0; b < 4; ++b)
      out += static_cast<char>((static_cast<unsigned>(v) >> (8 * b)) & 0xFF);
  return out;
}

TEST_F(VndiffTest, DamagedDeltaIsRefusedAndLeavesNoOutput) {
  Write("s", "a\nb\nc\n");
  mkdir(Path("d").c_str(), 0755);
  const struct {
    const char* name;
    std::string records;
    std::string text;
    const char* why;
  } cases[] = {
      {"size", Record(3, 2, 2, 2, 2) + "xyz", "x\n", "not a multiple of 20"},
      {"records", Record(2, 3, 3, 0, 0) + Record(2, 1, 1, 0, 0), "", "record 2 (2 1 1 0 0) is not an ascending"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Write("d/records", c.records);
    Write("d/text", c.text);
    Write("out", "earlier");
    Outcome r = Vndiff("--apply-delta d s -o out");
    EXPECT_EQ(2, r.status);
    EXPECT_NE(std::string::npos, r.err.find("d: damaged delta: ")) << r.err;
    EXPECT_NE(std::string::npos, r.err.find(c.why)) << r.err;
    EXPECT_EQ("earlier", Read("out"));  // untouched
    EXPECT_FALSE(Exists("out.partial"));
  }
  Write("d/records", Record(3, 2, 2, 2, 2));
  Write("d/text", "B\n");
  system(("rm -f '" + Path("out") + "'").c_str());
  EXPECT_EQ(0, Vndiff("--apply-delta d s -o out").status);
  EXPECT_EQ("a\nB\nc\n", Read("out"));
}

// Root reads any file, so as root the program runs as nobody for this one.
TEST_F(VndiffTest, UnreadableFileIsTrouble) {
  std::string as = "";
  if (geteuid() == 0) {
    if (system("setpriv --version > /dev/null 2>&1") != 0)
      GTEST_SKIP() << "running as root without setpriv to drop privileges";
    as = "setpriv --reuid=65534 --regid=65534 --clear-groups ";
    if (system((as + "test -x " + VNDIFF_PATH).c_str()) != 0)
      GTEST_SKIP() << "the build directory is closed to an unprivileged user";
    chmod(m_dir.c_str(), 0777);
  }
  Write("a", "x\n");
  Write("locked", "x\n");
  chmod(Path("a").c_str(), 0644);
  chmod(Path("locked").c_str(), 0);
  const std::string cmd = "cd '" + m_dir + "' && " + as + VNDIFF_PATH + " a locked > .out 2> .err < /dev/null";
  const int raw = system(cmd.c_str());
  EXPECT_EQ(2, WIFEXITED(raw) ? WEXITSTATUS(raw) : -1);
  EXPECT_EQ("vndiff: Cannot open file locked. Access is denied.\n", Read(".err"));
}

}  // namespace
