// VndiffMergeTest.cpp - vndiff --merge as users run it: merged text, labels,
// the output file, exit status, bad input, and agreement with git merge-file.
#include "VndiffFixture.h"

#include <random>
#include <vector>

namespace {

class VndiffMergeTest : public vn::test::VndiffTest {
protected:
  void SetUp() override {
    VndiffTest::SetUp();
    Write("b", "a\nb\nc\n");
    Write("l", "a\nL\nc\n");
    Write("r", "a\nR\nc\n");
  }
};

TEST_F(VndiffMergeTest, PrintsTheMergedTextWithLabelsAndSaysWhetherConflictsRemain) {
  Write("far", "a\nb\nC\n");
  Write("near", "A\nb\nc\n");
  const struct {
    const char* args;
    int status;
    const char* out;
  } cases[] = {
      {"--merge near b far", 0, "A\nb\nC\n"},
      {"--merge l l l", 0, "a\nL\nc\n"},
      {"--merge l b r", 1, "a\n<<<<<<< l\nL\n=======\nR\n>>>>>>> r\nc\n"},
      {"--merge -L ours --label=old -Ltheirs --diff3 l b r", 1,
       "a\n<<<<<<< ours\nL\n||||||| old\nb\n=======\nR\n>>>>>>> theirs\nc\n"},
      {"--merge --label=ours l b r", 1, "a\n<<<<<<< ours\nL\n=======\nR\n>>>>>>> r\nc\n"},
      {"--merge -L ours -L old -L '' l b r", 1, "a\n<<<<<<< ours\nL\n=======\nR\n>>>>>>>\nc\n"},
      {"--merge l r", 1, "a\n<<<<<<< l\nL\n=======\nR\n>>>>>>> r\nc\n"},
      {"--merge l far", 1, "a\n<<<<<<< l\nL\nc\n=======\nb\nC\n>>>>>>> far\n"},
      {"--merge - b r", 1, "a\n<<<<<<< -\nL\n=======\nR\n>>>>>>> r\nc\n"},  // LOCAL from standard input
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    vn::test::Outcome r = Vndiff(c.args, "l");
    EXPECT_EQ(c.status, r.status) << r.err;
    EXPECT_EQ(c.out, r.out);
    EXPECT_EQ("", r.err);
  }
}

// -o writes the result whole; a run that fails leaves an existing file as
// it was and no partial file behind.
TEST_F(VndiffMergeTest, OutputFileIsWrittenWholeOrNotAtAll) {
  vn::test::Outcome r = Vndiff("--merge -o out l b r");
  EXPECT_EQ(1, r.status);
  EXPECT_EQ("", r.out);
  EXPECT_EQ("a\n<<<<<<< l\nL\n=======\nR\n>>>>>>> r\nc\n", Read("out"));
  EXPECT_EQ(0, Vndiff("--merge --output=l l b b").status);  // over LOCAL itself
  EXPECT_EQ("a\nL\nc\n", Read("l"));

  Write("out", "earlier");
  Write("bin", std::string("a\0", 2));
  r = Vndiff("--merge -o out l b bin");
  EXPECT_EQ(2, r.status);
  EXPECT_EQ("earlier", Read("out"));
  r = Vndiff("--merge -o gone/out l b r");
  EXPECT_EQ(2, r.status);
  EXPECT_EQ("vndiff: Cannot open file gone/out. The system cannot find the path specified.\n", r.err);
  EXPECT_FALSE(Exists("out.partial"));
  EXPECT_FALSE(Exists("gone"));
}

TEST_F(VndiffMergeTest, BadInputEndsWithStatusTwoAndNamesTheFile) {
  mkdir(Path("dir").c_str(), 0755);
  Write("bin", std::string("a\nb\0\n", 5));
  Write("u16", std::string("\xFF\xFE" "a\0\n\0", 6));
  Write("bad", "caf\xC3(\n");
  const struct {
    const char *args, *err;
  } cases[] = {
      {"--merge l b gone", "vndiff: Cannot open file gone. The system cannot find the file specified.\n"},
      {"--merge l dir r", "vndiff: dir: is a directory\n"},
      {"--merge l b bin", "vndiff: bin: binary file not merged (--binary=yes merges its bytes)\n"},
      {"--merge l b u16", "vndiff: u16: UTF-16 (Little Endian) text, but LOCAL (l) is "},
      {"--merge --encoding=utf-8 bad b r", "vndiff: bad: holds bytes that are no valid "},
      {"--merge l", "vndiff: missing operand"},
      {"--merge l b r x", "vndiff: extra operand 'x'"},
      {"--merge -L 1 -L 2 -L 3 -L 4 l b r", "vndiff: option '-L' given more often"},
      {"--merge -u l b r", "vndiff: option for an output form"},
      {"--merge -w l b r", "vndiff: option -w, -i, -q or --ignore-... given with --merge"},
      {"--merge --source-encoding=utf-8 l b r", "vndiff: option --source-encoding"},
      {"--merge --diff3 l r", "vndiff: option '--diff3' needs BASE"},
      {"--diff3 l r", "vndiff: option '--diff3' needs --merge"},
      {"-L x l r", "vndiff: option '-L' needs --merge"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    vn::test::Outcome r = Vndiff(c.args);
    EXPECT_EQ(2, r.status);
    EXPECT_EQ(0u, r.err.find(c.err)) << r.err;
    EXPECT_EQ("", r.out);
  }
}

// A binary side the user lets through makes the merge one of bytes, its
// NUL bytes and all.
TEST_F(VndiffMergeTest, BinarySideLetThroughMergesBytes) {
  Write("bl", std::string("x\0\nL\nc\nd\n", 9));
  Write("bb", std::string("x\0\nb\nc\nd\n", 9));
  Write("br", std::string("x\0\nb\nc\nD", 8));
  vn::test::Outcome r = Vndiff("--merge --binary=yes bl bb br");
  EXPECT_EQ(0, r.status) << r.err;
  EXPECT_EQ(std::string("x\0\nL\nc\nD", 8), r.out);
}

//===-- Agreement with git merge-file --------------------------------------===//

// Source-like lines and random edits of both sides, as bench/merge-agreement
// makes them, from a fixed seed (raw draws only, so the same everywhere).
std::string SourceLine(std::mt19937& rng) {
  static const char* const kWords[] = {"value", "count", "index", "node", "size", "name", "item", "state"};
  const unsigned kind = rng() % 10;
  const std::string indent(2 * (rng() % 4), ' ');
  if (kind == 0)
    return "";
  if (kind == 1)
    return indent + "}";
  return indent + kWords[rng() % 8] + " = " + kWords[rng() % 8] + "(" + std::to_string(rng() % 100) + ");";
}

std::vector<std::string> EditedLines(std::mt19937& rng, std::vector<std::string> lines) {
  for (unsigned edits = 1 + rng() % 3; edits > 0; --edits) {
    const size_t at = rng() % (lines.size() + 1);
    const unsigned kind = rng() % 3;
    if (kind != 2 && at < lines.size())
      lines.erase(lines.begin() + static_cast<long>(at));
    if (kind != 1)
      lines.insert(lines.begin() + static_cast<long>(at), SourceLine(rng));
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& l : lines)
    out += l + "\n";
  return out;
}

TEST_F(VndiffMergeTest, AgreesWithGitMergeFileOnRandomTriples) {
  if (system("git --version > /dev/null 2>&1") != 0)
    GTEST_SKIP() << "git is not installed";
  std::mt19937 rng(17);
  int clean = 0, agreed = 0, conflicts = 0, bothConflict = 0;
  for (int i = 0; i < 50; ++i) {
    std::vector<std::string> base;
    for (unsigned n = 5 + rng() % 25; n > 0; --n)
      base.push_back(SourceLine(rng));
    Write("B", Joined(base));
    Write("L", Joined(EditedLines(rng, base)));
    Write("R", Joined(EditedLines(rng, base)));
    const int raw = system(("cd '" + m_dir + "' && git merge-file -p L B R > .merged 2> /dev/null").c_str());
    const int git = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    ASSERT_TRUE(git >= 0 && git < 128) << "git merge-file failed";
    const vn::test::Outcome vn = Vndiff("--merge L B R");
    ASSERT_NE(2, vn.status) << vn.err;
    if (git == 0) {
      ++clean;
      agreed += vn.status == 0 && vn.out == Read(".merged");
    } else {
      ++conflicts;
      bothConflict += vn.status == 1;
    }
  }
  // Both kinds of triple occur, and at most one in twenty differs (where
  // the two tools' comparisons align a repeated line differently).
  ASSERT_GT(clean, 10);
  ASSERT_GT(conflicts, 10);
  EXPECT_GE(20 * agreed, 19 * clean) << agreed << " of " << clean << " clean merges agree";
  EXPECT_GE(20 * bothConflict, 19 * conflicts) << bothConflict << " of " << conflicts << " conflicts agree";
}

}  // namespace
