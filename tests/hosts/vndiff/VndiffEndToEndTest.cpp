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
  const std::string said = "final newline: yes / no\n";
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
    if (out.compare(0, said.size(), said) == 0)
      out = out.substr(said.size());
    if (out.compare(0, 4, "--- ") == 0) {  // labels carry times; check their form, then the hunks
      EXPECT_EQ(0u, out.find("--- a\t"));
      EXPECT_NE(std::string::npos, out.find("\n+++ b\t"));
      out = out.substr(out.find("\n@@") + 1);
    }
    EXPECT_EQ(c.out, out);
    EXPECT_EQ(std::string(c.args).find("records") != std::string::npos ? said : "", r.err);
    EXPECT_NE(std::string(c.args).find("records") != std::string::npos, r.out.compare(0, said.size(), said) == 0);
  }
}

// In colour the changed words of a replaced line stand out in reverse video.
TEST_F(VndiffTest, ColourOnlyWhenAskedWithChangedWordsReversed) {
  Write("a", "the total is counted\tonce\n");
  Write("b", "the sum is counted\tonce\n");
  const std::string coloured = Vndiff("-y --color=always a b").out;
  EXPECT_NE(std::string::npos, coloured.find("\x1b[33m")) << coloured;
  EXPECT_NE(std::string::npos, coloured.find("the \x1b[7mtotal\x1b[27m is counted  ")) << coloured;
  EXPECT_NE(std::string::npos, coloured.find("the \x1b[7msum\x1b[27m is counted  ")) << coloured;
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
      {"--raw a crlf", 1}, {"--ignore-line-ends a crlf", 0}, {"--format=records b c", 1},
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
    EXPECT_EQ(c.status != 1, r.out.empty() || r.out == "line ends: LF / CR LF\n");
  }
}

// Trouble names the file and the reason.  Files of 4 GiB or more are
// refused instead of read short.
TEST_F(VndiffTest, TroubleNamesTheFileAndTheReason) {
  Write("a", "x\n");
  mkdir(Path("dir").c_str(), 0755);
  Write("huge", "");
  ASSERT_EQ(0, truncate(Path("huge").c_str(), (1LL << 32) + 2));  // sparse: costs no disk
  const struct {
    const char *args, *err;
  } cases[] = {
      {"a gone", "vndiff: Cannot open file gone. The system cannot find the file specified.\n"},
      {"a dir", "vndiff: dir: is a directory\n"},
      {"a huge", "vndiff: huge: file of 4 GiB or more; files below 4 GiB only are compared\n"},
      {"--raw a huge", "vndiff: huge: file of 4 GiB or more; files below 4 GiB only are compared\n"},
      {"--info huge", "vndiff: huge: file of 4 GiB or more; files below 4 GiB only are compared\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    Outcome r = Vndiff(c.args);
    EXPECT_EQ(2, r.status);
    EXPECT_EQ(c.err, r.err);
    EXPECT_EQ("", r.out);
  }
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
  EXPECT_EQ("Binary files - and old differ\n", Vndiff("- old", "nul").out);
  if (tmpdir)
    setenv("TMPDIR", saved.c_str(), 1);
  else
    unsetenv("TMPDIR");
  EXPECT_EQ(0, rmdir(spool.c_str())) << "a temporary copy was left behind";
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
  Write("utf16bare", Utf16Le("caf", false) + std::string("\xE9\0", 2) + Utf16Le("\nline\n", false));
  Write("utf16", Utf16Le("caf", true) + std::string("\xE9\0", 2) + Utf16Le("\nline\n", false));
  Write("utf16b", Utf16Le("caf", true) + std::string("\xE9\0", 2) + Utf16Le("\nLINE\n", false));
  Write("ab", "a\nb\n");
  Write("utf16-odd", std::string("\xFF\xFE" "a\0\n\0" "b", 7));
  Write("bad-utf8", "caf\xC3(\n");
  const struct {
    const char* args;
    int status;
    const char* out;  // null: not looked at
  } cases[] = {
      {"--source-encoding=latin1 latin1 utf16", 1, "encoding: ISO-8859-1 / UTF-16LE with BOM\n"},
      {"--ignore-encoding --source-encoding=utf-16le utf16bare utf8", 0, nullptr},
      {"--ignore-encoding --encoding=utf-8 utf8 utf8bom", 0, nullptr},
      {"--ignore-encoding --raw utf8 utf8bom", 1, nullptr},
      {"utf16 utf16b", 1, "2c2\n< line\n---\n> LINE\n"},
      {"utf16-odd ab", 1, "encoding: UTF-16LE with BOM / UTF-8\n1a2\n> b\n"},
      {"--encoding=utf-8 bad-utf8 utf8", 1, "1c1,2\n< caf\xEF\xBF\xBD(\n---\n> caf\xC3\xA9\n> line\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    Outcome r = Vndiff(c.args);
    EXPECT_EQ(c.status, r.status) << r.out << r.err;
    if (c.out) {
      EXPECT_EQ(c.out, r.out);
    }
    EXPECT_EQ("", r.err);
  }
}

// Pairs that differ in one way each: what counts, what is said, what the
// ignore flags take away, and that patch still rebuilds the target.
TEST_F(VndiffTest, EachKindOfDifferenceInFormIsCountedAndSaid) {
  const std::string padding(70000, 'x');  // past any sniffed head
  setenv("LC_ALL", "C.UTF-8", 1);  // where the ANSI code page can't read Latin-1
  const struct {
    const char* name;
    std::string source, target;
    const char* said;     // the first line of the output
    const char* ignore;   // the flag that makes the pair the same, or null
    bool patchable;
  } cases[] = {
      {"bom", "caf\xC3\xA9\n", "\xEF\xBB\xBF" "caf\xC3\xA9\n", "encoding: UTF-8 / UTF-8 with BOM", "--ignore-encoding", false},
      {"encoding", "caf\xC3\xA9\n", Utf16Le("caf", true) + std::string("\xE9\0", 2) + Utf16Le("\n", false),
       "encoding: UTF-8 / UTF-16LE with BOM", "--ignore-encoding", false},
      {"8-bit", "caf\xC3\xA9\n", "caf\xE9\n", "encoding: UTF-8 / Windows-1252", "--ignore-encoding", false},
      {"deep", padding + "\ncaf\xE9\n", padding + "\ncaf\xC3\xA9\n", "encoding: Windows-1252 / UTF-8",
       "--ignore-encoding", false},
      {"ascii", "cafe\n", "cafe\n\xC3\xA9\n", "1a2", nullptr, true},
      {"line ends", "a\nb\n", "a\r\nb\r\n", "line ends: LF / CR LF", "--ignore-line-ends", true},
      {"final newline", "a\nb\n", "a\nb", "final newline: yes / no", "--ignore-line-ends", true},
      {"binary", std::string("x\0y", 3), std::string("x\0z", 3), "Binary files s and t differ", nullptr, false},
      {"binary equal", std::string("x\0y", 3), std::string("x\0y", 3), nullptr, nullptr, false},
      {"text and binary", "x y\n", std::string("x\0y\n", 4), "Binary files s and t differ", nullptr, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Write("s", c.source);
    Write("t", c.target);
    Outcome r = Vndiff("s t");
    EXPECT_EQ(c.said ? 1 : 0, r.status) << r.err;
    EXPECT_EQ(c.said ? std::string(c.said) + "\n" : "", r.out.substr(0, r.out.find('\n') + 1));
    EXPECT_EQ(c.said ? "Files s and t differ\n" : "", Vndiff("-q s t").out);
    if (c.ignore) {
      Outcome ignored = Vndiff(std::string(c.ignore) + " s t");
      EXPECT_EQ(0, ignored.status);
      EXPECT_EQ(std::string(c.said) + "\n", ignored.out);  // still said
    }
    if (c.patchable && HavePatch()) {
      Write("p", Vndiff("-u s t").out);
      EXPECT_EQ(0, system(("cd '" + m_dir + "' && patch -s -o rebuilt s p > /dev/null 2>&1").c_str()));
      EXPECT_EQ(c.target, Read("rebuilt"));
    }
  }
  Outcome asked = Vndiff("--binary=yes s t");  // the last pair, line by line
  EXPECT_EQ(1, asked.status);
  EXPECT_EQ(0u, asked.out.find("1c1\n< x y\n---\n> x y"));
  unsetenv("LC_ALL");
}

// Under a UTF-8 locale a Latin-1 file is still read right: by its content.
TEST_F(VndiffTest, EncodingIsChosenByContentUnderAnyLocale) {
  Write("latin1", "caf\xE9\n");
  Write("utf8", "caf\xC3\xA9\n");
  for (const char* locale : {"C.UTF-8", "C"}) {
    SCOPED_TRACE(locale);
    setenv("LC_ALL", locale, 1);
    Outcome r = Vndiff("--ignore-encoding latin1 utf8");
    EXPECT_EQ(0, r.status) << r.out;
    r = Vndiff("--info latin1 utf8");
    EXPECT_NE(std::string::npos, r.out.find("1252  (ANSI - Latin I) (by content)\n")) << r.out;
    EXPECT_NE(std::string::npos, r.out.find("UTF-8) (by content)\n")) << r.out;
    EXPECT_NE(std::string::npos, Vndiff("--encoding=utf-8 --info latin1").out.find("(by user)"));
  }
  unsetenv("LC_ALL");
}

// Pipes and devices are streams whatever size they report: read to their
// end, and refused past 4 GiB instead of hanging or reading short.
TEST_F(VndiffTest, PipesAndDevicesAreReadAsStreams) {
  Write("f", "a\n");
  const std::string bash = "bash -c \"" + std::string(VNDIFF_PATH);
  const std::string quiet = " > '" + Path(".out") + "' 2> '" + Path(".err") + "'";
  const int differ = system((bash + " <(printf 'a\\nb\\n') <(printf 'a\\nc\\n')\"" + quiet).c_str());
  EXPECT_EQ(1, WEXITSTATUS(differ));
  EXPECT_NE(std::string::npos, Read(".out").find("2c2\n< b\n---\n> c\n")) << Read(".out") << Read(".err");
  EXPECT_EQ(0, WEXITSTATUS(system((bash + " <(printf 'a\\n') <(printf 'a\\n')\"" + quiet).c_str())));
  Outcome zero = Vndiff("/dev/zero f");
  EXPECT_EQ(2, zero.status);
  EXPECT_EQ("vndiff: /dev/zero: file of 4 GiB or more; files below 4 GiB only are compared\n", zero.err);
}

TEST_F(VndiffTest, InfoDescribesEachFile) {
  Write("utf16", Utf16Le("a\nb\nc", true));
  Write("latin1", "caf\xE9\n");
  Write("bin", std::string("\0", 1));
  Outcome r = Vndiff("--info utf16 bin");
  EXPECT_EQ(0, r.status);
  EXPECT_EQ("utf16\n  type:            Unicode\n  encoding:        UTF-16 (Little Endian) (by byte order mark)\n"
            "  code page:       70001\n  byte order mark: yes\n  lines:           3\n"
            "  line ends:       LF\n  final newline:   no\n"
            "bin\n  type:            binary\n  encoding:        binary (by content)\n"
            "  code page:       65001\n  byte order mark: no\n  lines:           1\n",
            r.out);
  r = Vndiff("--encoding=1252 --info latin1");
  EXPECT_NE(std::string::npos, r.out.find("encoding:        1252  (ANSI - Latin I) (by user)\n"));
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

// Plain ASCII with LF ends is compared as bytes, without the UTF-16 copy;
// the output must be what the decoded comparison gives (a code page given
// by the user keeps vndiff on the decoded road).
TEST_F(VndiffTest, PlainAsciiPairsGiveWhatTheDecodedComparisonGives) {
  std::mt19937 rng(5);
  static const char* const kLines[] = {"a", "B", "b", "", "int x;", "\tq ", "  x", "A"};
  std::uniform_int_distribution<int> count(0, 14), pick(0, 7);
  for (int i = 0; i < 40; ++i) {
    std::string text[2];
    for (std::string& t : text)
      for (int n = count(rng); n > 0; --n)
        t += std::string(kLines[pick(rng)]) + (n == 1 && i % 4 == 0 ? "" : "\n");
    Write("s", text[0]);
    Write("t", text[1]);
    for (const char* flags : {"", "-u", "-y", "--format=records", "-w", "-i"}) {
      SCOPED_TRACE(std::to_string(i) + " " + flags);
      Outcome bytes = Vndiff(std::string(flags) + " s t"), decoded = Vndiff(std::string(flags) + " --encoding=1252 s t");
      EXPECT_EQ(decoded.status, bytes.status);
      EXPECT_EQ(decoded.out, bytes.out);
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
