// VndiffOptions.cpp - the command line of vndiff.
//
// GNU-style: short options may be grouped (-wi), -U takes its number
// attached or as the next word, long options take their value after "=" or
// as the next word, and "--" ends the options.
#include "VndiffHost.h"

#include "afx/os/OsSeam.h"
#include "afx/portable/VnCodePages.h"

#include <cstdlib>
#include <cstring>

namespace vndiff {

namespace {

bool AllDigits(const std::string& s) {
  return !s.empty() && s.find_first_not_of("0123456789") == std::string::npos && s.size() < 10;
}


int Number(const std::string& text, const char* what) {
  if (!AllDigits(text))
    throw Failure(std::string("invalid ") + what + " '" + text + "'");
  return atoi(text.c_str());
}

// The value of a long option: after "=", or the next word.
std::string TakeValue(const std::string& arg, size_t eq, const std::vector<std::string>& args, size_t& i) {
  if (eq != std::string::npos)
    return arg.substr(eq + 1);
  if (i + 1 >= args.size())
    throw Failure("option '" + arg + "' requires an argument");
  return args[++i];
}

Format FormatFromName(const std::string& name) {
  if (name == "normal")
    return Format::Normal;
  if (name == "unified")
    return Format::Unified;
  if (name == "side-by-side")
    return Format::SideBySide;
  if (name == "records")
    return Format::Records;
  throw Failure("invalid format '" + name + "' (normal, unified, side-by-side, records)");
}

// A long option; returns false when the name is not one of vndiff's.
bool ParseLong(const std::string& arg, const std::vector<std::string>& args, size_t& i, Options& o) {
  const size_t eq = arg.find('=');
  const std::string name = arg.substr(0, eq);
  if (name == "--help") {
    o.command = Command::Help;
  } else if (name == "--version") {
    o.command = Command::Version;
  } else if (name == "--format") {
    o.format = FormatFromName(TakeValue(arg, eq, args, i));
  } else if (name == "--unified") {
    o.format = Format::Unified;
    if (eq != std::string::npos)
      o.context = Number(arg.substr(eq + 1), "context length");
  } else if (name == "--side-by-side") {
    o.format = Format::SideBySide;
  } else if (name == "--width") {
    o.width = Number(TakeValue(arg, eq, args, i), "width");
  } else if (name == "--color" || name == "--colour") {
    const std::string when = eq == std::string::npos ? "auto" : arg.substr(eq + 1);
    if (when == "auto")
      o.color = Color::Auto;
    else if (when == "always")
      o.color = Color::Always;
    else if (when == "never")
      o.color = Color::Never;
    else
      throw Failure("invalid --color value '" + when + "' (auto, always, never)");
  } else if (name == "--ignore-whitespace" || name == "--ignore-all-space") {
    o.ignoreWhitespace = true;
  } else if (name == "--ignore-case") {
    o.ignoreCase = true;
  } else if (name == "--ignore-line-ends") {
    o.ignoreLineEnds = true;
  } else if (name == "--ignore-encoding") {
    o.ignoreEncoding = true;
  } else if (name == "--brief") {
    o.brief = true;
  } else if (name == "--encoding") {
    o.sourceEncoding = o.targetEncoding = CodePageFromName(TakeValue(arg, eq, args, i));
  } else if (name == "--source-encoding") {
    o.sourceEncoding = CodePageFromName(TakeValue(arg, eq, args, i));
  } else if (name == "--target-encoding") {
    o.targetEncoding = CodePageFromName(TakeValue(arg, eq, args, i));
  } else if (name == "--binary") {
    const std::string v = TakeValue(arg, eq, args, i);
    if (v == "ask")
      o.binary = Binary::Ask;
    else if (v == "yes")
      o.binary = Binary::Yes;
    else if (v == "no")
      o.binary = Binary::No;
    else
      throw Failure("invalid --binary value '" + v + "' (ask, yes, no)");
  } else if (name == "--raw") {
    o.raw = true;
  } else if (name == "--info") {
    o.command = Command::Info;
  } else if (name == "--save-delta") {
    o.saveDelta = TakeValue(arg, eq, args, i);
  } else if (name == "--apply-delta") {
    o.command = Command::ApplyDelta;
    o.deltaDir = TakeValue(arg, eq, args, i);
  } else if (name == "--output") {
    o.output = TakeValue(arg, eq, args, i);
  } else if (name == "--merge") {
    o.command = Command::Merge;
  } else if (name == "--diff3") {
    o.showBase = true;
  } else if (name == "--label") {
    o.labels.push_back(TakeValue(arg, eq, args, i));
  } else {
    return false;
  }
  return true;
}

// A group of short options such as -wi or -U5.
void ParseShort(const std::string& arg, const std::vector<std::string>& args, size_t& i, Options& o) {
  for (size_t k = 1; k < arg.size(); ++k) {
    const char c = arg[k];
    switch (c) {
    case 'u': o.format = Format::Unified; break;
    case 'y': o.format = Format::SideBySide; break;
    case 'w': o.ignoreWhitespace = true; break;
    case 'i': o.ignoreCase = true; break;
    case 'q': o.brief = true; break;
    case 'h': o.command = Command::Help; break;
    case 'v': o.command = Command::Version; break;
    case 'U': case 'W': case 'o': case 'L': {
      std::string value = arg.substr(k + 1);
      if (value.empty()) {
        if (i + 1 >= args.size())
          throw Failure(std::string("option '-") + c + "' requires an argument");
        value = args[++i];
      }
      if (c == 'U') {
        o.format = Format::Unified;
        o.context = Number(value, "context length");
      } else if (c == 'W') {
        o.width = Number(value, "width");
      } else if (c == 'L') {
        o.labels.push_back(value);
      } else {
        o.output = value;
      }
      return;
    }
    default:
      throw Failure(std::string("unknown option '-") + c + "'");
    }
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
  bool optionsEnded = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (optionsEnded || arg.size() < 2 || arg[0] != '-') {
      o.files.push_back(arg);
    } else if (arg == "--") {
      optionsEnded = true;
    } else if (arg[1] == '-') {
      if (!ParseLong(arg, args, i, o))
        throw Failure("unknown option '" + arg.substr(0, arg.find('=')) + "'");
    } else {
      ParseShort(arg, args, i, o);
    }
  }
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
