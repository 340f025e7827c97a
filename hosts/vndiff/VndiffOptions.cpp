// VndiffOptions.cpp - the command line of vndiff, read in the GNU style
// (VnOptionParser.h).
#include "VndiffHost.h"

#include "afx/os/OsSeam.h"
#include "afx/portable/VnCodePages.h"
#include "options/VnOptionParser.h"

#include <cstdlib>
#include <cstring>

namespace vndiff {

namespace {

enum Id {
  kHelp, kVersion, kFormat, kUnified, kContext, kSideBySide, kWidth, kColor, kIgnoreWhitespace, kIgnoreCase,
  kIgnoreLineEnds, kIgnoreEncoding, kBrief, kEncoding, kSourceEncoding, kTargetEncoding, kBinary, kRaw, kInfo,
  kSaveDelta, kApplyDelta, kOutput, kMerge, kDiff3, kLabel
};

const std::vector<CVnOptionSpec> kOptions = {
    {kHelp, 'h', "help", CVnOptionSpec::None},
    {kVersion, 'v', "version", CVnOptionSpec::None},
    {kFormat, 0, "format", CVnOptionSpec::Required},
    {kUnified, 'u', "unified", CVnOptionSpec::Optional},
    {kContext, 'U', nullptr, CVnOptionSpec::Required},
    {kSideBySide, 'y', "side-by-side", CVnOptionSpec::None},
    {kWidth, 'W', "width", CVnOptionSpec::Required},
    {kColor, 0, "color", CVnOptionSpec::Optional},
    {kColor, 0, "colour", CVnOptionSpec::Optional},
    {kIgnoreWhitespace, 'w', "ignore-whitespace", CVnOptionSpec::None},
    {kIgnoreWhitespace, 0, "ignore-all-space", CVnOptionSpec::None},
    {kIgnoreCase, 'i', "ignore-case", CVnOptionSpec::None},
    {kIgnoreLineEnds, 0, "ignore-line-ends", CVnOptionSpec::None},
    {kIgnoreEncoding, 0, "ignore-encoding", CVnOptionSpec::None},
    {kBrief, 'q', "brief", CVnOptionSpec::None},
    {kEncoding, 0, "encoding", CVnOptionSpec::Required},
    {kSourceEncoding, 0, "source-encoding", CVnOptionSpec::Required},
    {kTargetEncoding, 0, "target-encoding", CVnOptionSpec::Required},
    {kBinary, 0, "binary", CVnOptionSpec::Required},
    {kRaw, 0, "raw", CVnOptionSpec::None},
    {kInfo, 0, "info", CVnOptionSpec::None},
    {kSaveDelta, 0, "save-delta", CVnOptionSpec::Required},
    {kApplyDelta, 0, "apply-delta", CVnOptionSpec::Required},
    {kOutput, 'o', "output", CVnOptionSpec::Required},
    {kMerge, 0, "merge", CVnOptionSpec::None},
    {kDiff3, 0, "diff3", CVnOptionSpec::None},
    {kLabel, 'L', "label", CVnOptionSpec::Required},
};

int Number(const std::string& text, const char* what) {
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos || text.size() >= 10)
    throw Failure(std::string("invalid ") + what + " '" + text + "'");
  return atoi(text.c_str());
}

// The value among names (as "a, b, c" in the message) an option was given.
int OneOf(const CVnOption& option, const std::vector<std::string>& names) {
  for (size_t k = 0; k < names.size(); ++k)
    if (option.m_strValue == names[k])
      return static_cast<int>(k);
  std::string list;
  for (const std::string& name : names)
    list += (list.empty() ? "" : ", ") + name;
  throw Failure("invalid " + option.m_strName + " value '" + option.m_strValue + "' (" + list + ")");
}

void Apply(const CVnOption& option, Options& o) {
  const std::string& v = option.m_strValue;
  switch (option.m_nId) {
  case kHelp: o.command = Command::Help; break;
  case kVersion: o.command = Command::Version; break;
  case kFormat:
    o.format = static_cast<Format>(OneOf(option, {"normal", "unified", "side-by-side", "records"}));
    break;
  case kUnified:
    o.format = Format::Unified;
    if (option.m_bHasValue)
      o.context = Number(v, "context length");
    break;
  case kContext:
    o.format = Format::Unified;
    o.context = Number(v, "context length");
    break;
  case kSideBySide: o.format = Format::SideBySide; break;
  case kWidth: o.width = Number(v, "width"); break;
  case kColor:
    o.color = option.m_bHasValue ? static_cast<Color>(OneOf(option, {"auto", "always", "never"})) : Color::Auto;
    break;
  case kIgnoreWhitespace: o.ignoreWhitespace = true; break;
  case kIgnoreCase: o.ignoreCase = true; break;
  case kIgnoreLineEnds: o.ignoreLineEnds = true; break;
  case kIgnoreEncoding: o.ignoreEncoding = true; break;
  case kBrief: o.brief = true; break;
  case kEncoding: o.sourceEncoding = o.targetEncoding = CodePageFromName(v); break;
  case kSourceEncoding: o.sourceEncoding = CodePageFromName(v); break;
  case kTargetEncoding: o.targetEncoding = CodePageFromName(v); break;
  case kBinary: o.binary = static_cast<Binary>(OneOf(option, {"ask", "yes", "no"})); break;
  case kRaw: o.raw = true; break;
  case kInfo: o.command = Command::Info; break;
  case kSaveDelta: o.saveDelta = v; break;
  case kApplyDelta:
    o.command = Command::ApplyDelta;
    o.deltaDir = v;
    break;
  case kOutput: o.output = v; break;
  case kMerge: o.command = Command::Merge; break;
  case kDiff3: o.showBase = true; break;
  case kLabel: o.labels.push_back(v); break;
  }
}

// A merge compares exactly and writes one text: the comparison's output
// forms, ignore flags and deltas have no meaning there.
void CheckMergeOptions(const Options& o) {
  if (o.files.size() < 2 || o.files.size() > 3)
    throw Failure(o.files.size() < 2 ? "missing operand: --merge needs LOCAL BASE REMOTE (or LOCAL REMOTE)"
                                     : "extra operand '" + o.files[3] + "'");
  if (o.labels.size() > o.files.size())
    throw Failure("option '-L' given more often than there are files");
  if (o.format != Format::Normal || !o.saveDelta.empty())
    throw Failure("option for an output form or a delta given with --merge");
  if (o.ignoreWhitespace || o.ignoreCase || o.ignoreLineEnds || o.ignoreEncoding || o.brief)
    throw Failure("option -w, -i, -q or --ignore-... given with --merge, which compares lines exactly");
  if (o.sourceEncoding != o.targetEncoding)
    throw Failure("option --source-encoding or --target-encoding given with --merge; --encoding sets all files'");
  if (o.showBase && o.files.size() == 2)
    throw Failure("option '--diff3' needs BASE");
}

}  // namespace

unsigned CodePageFromName(const std::string& text) {
  const unsigned page = VnCodePageFromName(text);
  if (page == 70001 || page == 70000 || page == 65001)
    return page;
  if (page == 0 || !vn::os::IsValidCodePage(page))
    throw Failure("unknown encoding '" + text + "'");
  return page;
}

Options ParseCommandLine(const std::vector<std::string>& args) {
  Options o;
  std::vector<CVnOption> options;
  std::string error;
  if (!VnParseOptions(args, kOptions, options, o.files, error))
    throw Failure(error);
  for (const CVnOption& option : options)
    Apply(option, o);
  if (o.command == Command::Help || o.command == Command::Version)
    return o;
  if (o.command != Command::Merge && (o.showBase || !o.labels.empty()))
    throw Failure(std::string(o.showBase ? "option '--diff3'" : "option '-L'") + " needs --merge");
  if (o.command == Command::Merge) {
    CheckMergeOptions(o);
  } else if (o.command == Command::Info) {
    if (o.files.empty())
      throw Failure("--info needs at least one file");
  } else if (o.command == Command::ApplyDelta) {
    if (o.files.size() != 1 || o.output.empty())
      throw Failure("usage: vndiff --apply-delta DIR SOURCE -o OUT");
  } else if (o.files.size() != 2) {
    throw Failure(o.files.size() < 2 ? "missing operand: SOURCE and TARGET are needed"
                                     : "extra operand '" + o.files[2] + "'");
  }
  if (o.width < 20)
    throw Failure("width must be at least 20");
  return o;
}

const char* UsageText() {
  return "Usage: vndiff [OPTION]... SOURCE TARGET\n"
         "       vndiff --merge [-L LABEL]... [--diff3] [-o OUT] LOCAL BASE REMOTE\n"
         "       vndiff --info FILE...\n"
         "       vndiff --apply-delta DIR SOURCE -o OUT\n"
         "Compare two files line by line, or merge three.  A file named - is standard input.\n"
         "Files that differ in encoding, byte order mark, line ends or final newline differ.\n"
         "\n"
         "Output:\n"
         "      --format=FORMAT        normal (default), unified, side-by-side or records\n"
         "  -u, -U N, --unified[=N]    unified form with N lines of context (default 3)\n"
         "  -y, --side-by-side         the two texts aligned as the panes show them\n"
         "  -W N, --width=N            width of the side-by-side form (default 130)\n"
         "      --color[=WHEN]         colour side by side: auto, always or never\n"
         "Comparison:\n"
         "  -w, --ignore-whitespace    ignore spaces and tabs\n"
         "  -i, --ignore-case          ignore case\n"
         "      --ignore-line-ends     take CR and LF as equal, ignore unpaired ones at line ends;\n"
         "                             line-end style and final newline don't count\n"
         "      --ignore-encoding      encoding and byte order mark don't count\n"
         "  -q, --brief                say only whether the files differ\n"
         "      --raw                  compare the bytes as they stand, split at LF\n"
         "Input:\n"
         "      --encoding=CP          read both files in code page CP, not as their byte order\n"
         "                             mark or content shows (number or name:\n"
         "                             utf-8, utf-16le, utf-16be, 1252, latin1, ...)\n"
         "      --source-encoding=CP   the same for SOURCE only\n"
         "      --target-encoding=CP   the same for TARGET only\n"
         "      --binary=ask|yes|no    compare a binary file line by line? (ask: on a terminal);\n"
         "                             otherwise binary files are compared by their bytes\n"
         "      --info FILE...         type, encoding, code page, BOM and lines of files\n"
         "Merge:\n"
         "      --merge LOCAL BASE REMOTE\n"
         "                             merge the changes BASE->LOCAL and BASE->REMOTE; without\n"
         "                             BASE every difference of LOCAL and REMOTE is a conflict\n"
         "  -L LABEL, --label=LABEL    conflict marker labels, for LOCAL, BASE, REMOTE in turn\n"
         "      --diff3                show the base's lines in conflicts (||||||| section)\n"
         "  -o OUT, --output=OUT       write the merged text to OUT instead of standard output\n"
         "Deltas:\n"
         "      --save-delta DIR       also write the change records and delta text to DIR\n"
         "      --apply-delta DIR SOURCE -o OUT\n"
         "                             rebuild the target from SOURCE and a saved delta\n"
         "  -h, --help                 this text\n"
         "  -v, --version              the version\n"
         "\n"
         "Exit status: 0 no differences, 1 differences, 2 trouble;\n"
         "with --merge: 0 merged cleanly, 1 conflicts left, 2 trouble.\n";
}

}  // namespace vndiff
