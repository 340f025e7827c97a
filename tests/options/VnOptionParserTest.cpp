// VnOptionParserTest.cpp - GNU-style arguments against a table.
#include "options/VnOptionParser.h"

#include <gtest/gtest.h>

namespace {

const std::vector<CVnOptionSpec> kSpecs = {
    {1, 'w', "ignore-whitespace", CVnOptionSpec::None}, {2, 'i', nullptr, CVnOptionSpec::None},
    {3, 'U', nullptr, CVnOptionSpec::Required}, {4, 'u', "unified", CVnOptionSpec::Optional},
    {5, 0, "width", CVnOptionSpec::Required}, {6, 0, "headless", CVnOptionSpec::None},
};

// Each option as "id=value" (or "id" without one), then the operands.
std::string Parse(const std::vector<std::string>& args) {
  std::vector<CVnOption> options;
  std::vector<std::string> operands;
  std::string error;
  if (!VnParseOptions(args, kSpecs, options, operands, error))
    return "error: " + error;
  std::string out;
  for (const CVnOption& o : options)
    out += std::to_string(o.m_nId) + (o.m_bHasValue ? "=" + o.m_strValue : "") + " ";
  for (const std::string& operand : operands)
    out += "[" + operand + "]";
  return out;
}

TEST(VnOptionParserTest, GroupsValuesAndTheEndOfOptions) {
  const struct { std::vector<std::string> args; const char* parsed; } cases[] = {
      {{"-wi", "a", "b"}, "1 2 [a][b]"}, {{"-U5", "-U", "7"}, "3=5 3=7 "}, {{"-wU3", "x"}, "1 3=3 [x]"},
      {{"--width=40", "--width", "50"}, "5=40 5=50 "}, {{"--unified", "--unified=2", "-u"}, "4 4=2 4 "},
      {{"-", "--", "-w", "--width"}, "[-][-w][--width]"}, {{"-x"}, "error: unknown option '-x'"},
      {{"--nonesuch=1"}, "error: unknown option '--nonesuch'"}, {{"-U"}, "error: option '-U' requires an argument"},
      {{"--width"}, "error: option '--width' requires an argument"},
      {{"--ignore-whitespace=yes"}, "error: option '--ignore-whitespace' takes no value"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.parsed, Parse(c.args)) << c.args[0];
}

// A window host's line: quoting as ParseCmdLine splits it, the operands as
// wide text, and "--headless" and "/?" seen even where the line is wrong.
TEST(VnOptionParserTest, HostCommandLines) {
  const struct { LPCWSTR line; const char* error; size_t files; bool headless, help; } cases[] = {
      {_T("-w --headless \"two words.txt\" b"), "", 2, true, false},
      {_T("a b c"), "extra operand 'c'", 2, false, false},
      {_T("--headless \"unclosed a b"), "a quote left open or closed inside a word", 0, true, false},
      {_T("-x --headless"), "unknown option '-x'", 0, true, false},
      {_T("/? -x"), "", 0, false, true},
  };
  for (const auto& c : cases) {
    const CVnHostCommandLine line = VnReadHostCommandLine(c.line, kSpecs, 2);
    const std::string text = VnToUtf8(c.line);
    EXPECT_EQ(c.error, line.m_strError) << text;
    EXPECT_EQ(c.files, line.m_files.size()) << text;
    EXPECT_EQ(c.headless, line.m_bHeadless) << text;
    EXPECT_EQ(c.help, line.m_bHelpAsked) << text;
  }
  const CVnHostCommandLine line = VnReadHostCommandLine(_T("-w \"two w\u00f6rds.txt\" b"), kSpecs, 2);
  ASSERT_EQ(2u, line.m_files.size());
  EXPECT_EQ(CString(_T("two w\u00f6rds.txt")), line.m_files[0]);
  ASSERT_EQ(1u, line.m_options.size());
  EXPECT_EQ(1, line.m_options[0].m_nId);
}

}  // namespace
