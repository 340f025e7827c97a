// VndiffHost.h - the pieces of the console host and what they share.
//
// vndiff runs the component's comparison of two files (CVnComparison) and
// prints its records in one of four forms, each line with the line end it
// had in the file, so that a patch made from the output rebuilds the file.
// With --merge it runs the component's merge (CVnMerge) and prints or writes
// the merged text.
#ifndef VN_HOSTS_VNDIFF_VNDIFFHOST_H
#define VN_HOSTS_VNDIFF_VNDIFFHOST_H

#include "afx/afx.h"
#include "compare/VnComparison.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace vndiff {

const int kExitSame = 0;
const int kExitDifferent = 1;
const int kExitTrouble = 2;

// In the order the command line names their values (VndiffOptions.cpp).
enum class Format { Normal, Unified, SideBySide, Records };
enum class Binary { Ask, Yes, No };
enum class Color { Auto, Always, Never };
enum class Command { Compare, Merge, Info, ApplyDelta, Help, Version };

struct Options {
  Command command = Command::Compare;
  Format format = Format::Normal;
  int context = 3;
  int width = 130;
  Color color = Color::Auto;
  bool ignoreWhitespace = false;
  bool ignoreCase = false;
  bool ignoreLineEnds = false;
  bool ignoreEncoding = false;
  bool brief = false;  // -q: only whether the files differ
  unsigned sourceEncoding = 0;  // 0: detect
  unsigned targetEncoding = 0;
  Binary binary = Binary::Ask;
  bool raw = false;
  std::string saveDelta;  // directory, empty for none
  std::string deltaDir;   // --apply-delta
  std::string output;     // -o
  std::vector<std::string> labels;  // -L, for the merge's markers
  bool showBase = false;            // --diff3
  std::vector<std::string> files;
};

// Trouble the host reports and ends with exit status 2.
struct Failure : std::runtime_error {
  explicit Failure(const std::string& message) : std::runtime_error(message) {}
};

// Parses argv (UTF-8) into options; raises Failure for a bad command line.
Options ParseCommandLine(const std::vector<std::string>& args);
const char* UsageText();
unsigned CodePageFromName(const std::string& name);

// Raises Failure for a file the host must not read: missing size, a
// directory, or 4 GiB and more (the component would read it truncated).
void CheckReadable(const std::string& path);
// The message for a failure of the component, naming the file.
std::string DescribeException(CException* e, const std::string& path);
// Opens one side of the comparison; false when the user declined a binary
// file.  Failure names the file.
bool OpenSide(CVnComparison& comparison, CVnComparison::Side side, const std::string& path);

// Appends line i with its prefix as the file's bytes have it, and the
// no-newline notice when it is the unterminated last line.
void AppendLineWithEnd(const CVnComparedFile& file, long i, std::string& out, const char* prefix);

// Output sinks; each writes to `out` and flushes to stdout as it grows.
void WriteNormal(const CVnComparison& comparison, std::FILE* out);
void WriteUnified(const CVnComparison& comparison, int context, std::FILE* out);
void WriteSideBySide(const CVnComparison& comparison, int width, bool color, std::FILE* out);
void WriteRecords(const CVnDiffChangeList& changes, std::FILE* out);

// --info FILE...: prints what the intake finds in each file.
int RunInfo(const Options& options, std::FILE* out);
// Reads, compares and prints; gives the exit status.
int RunCompare(const Options& options, std::FILE* out);
// --merge LOCAL [BASE] REMOTE: merges, prints or writes the result; 0 clean,
// 1 conflicts left.
int RunMerge(const Options& options, std::FILE* out);
// --save-delta DIR: records and delta text of the raw comparison.
void SaveDelta(const std::string& dir, const std::string& source, const std::string& target);
// --apply-delta DIR SOURCE -o OUT.
void ApplyDelta(const std::string& dir, const std::string& source, const std::string& output);

// "-" (standard input) and streams as operands: read through a private
// copy that is removed at exit (CVnStreamCopies).  ResolveOperand gives the
// path to read for an operand; OperandLabel gives back what the user wrote
// for such a path; Relabel puts the operands into a message.
std::string ResolveOperand(const std::string& operand);
std::string OperandLabel(const std::string& path);
std::string Relabel(std::string message);

// Answers the component's binary question as --binary says.
void InstallBinaryAnswer(Binary binary);

CString Wide(const std::string& utf8);
std::string Narrow(const CString& text);

}  // namespace vndiff

#endif  // VN_HOSTS_VNDIFF_VNDIFFHOST_H
