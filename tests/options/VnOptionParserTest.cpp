// VnOptionParserTest.cpp - GNU-style arguments against a table.
#include "options/VnOptionParser.h"

#include <gtest/gtest.h>

namespace {

const std::vector<CVnOptionSpec> kSpecs = {
    {1, 'w', "ignore-whitespace", CVnOptionSpec::None}, {2, 'i', nullptr, CVnOptionSpec::None},
    {3, 'U', nullptr, CVnOptionSpec::Required}, {4, 'u', "unified", CVnOptionSpec::Optional},
    {5, 0, "width", CVnOptionSpec::Required},
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

}  // namespace
