// VndiffHost.h - the pieces of the console host and what they share.
//
// vndiff reads two files through the component's file intake, builds one
// line set per file, runs Compare and prints the records in one of four
// forms.  An InputText is one file ready for printing: its line set, the
// buffer the lines point into, and for decoded text the line end each line
// had in the file (the intake makes every line end CR LF; printing puts the
// original back, so that a patch made from the output rebuilds the file).
#ifndef VN_HOSTS_VNDIFF_VNDIFFHOST_H
#define VN_HOSTS_VNDIFF_VNDIFFHOST_H

#include "afx/afx.h"
#include "engine/VnDiffArg.h"
#include "engine/VnDiffChange.h"
#include "foundation/VnTime.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

class CVnDiffFile;

namespace vndiff {

const int kExitSame = 0;
const int kExitDifferent = 1;
const int kExitTrouble = 2;

enum class Format { Normal, Unified, SideBySide, Records };
enum class Binary { Ask, Yes, No };
enum class Color { Auto, Always, Never };
enum class Command { Compare, Info, ApplyDelta, Help, Version };

struct Options {
  Command command = Command::Compare;
  Format format = Format::Normal;
  int context = 3;
  int width = 130;
  Color color = Color::Auto;
  bool ignoreWhitespace = false;
  bool ignoreCase = false;
  bool ignoreLineEnds = false;
  unsigned sourceEncoding = 0;  // 0: detect
  unsigned targetEncoding = 0;
  Binary binary = Binary::Ask;
  bool raw = false;
  std::string saveDelta;  // directory, empty for none
  std::string deltaDir;   // --apply-delta
  std::string output;     // -o
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

// How each line ended in the file itself.
enum class LineEnd : unsigned char { None, LF, CRLF, CR, LFCR };

struct InputText {
  std::string name;                      // as the user gave it (UTF-8)
  CVnTime modified;                      // UTC
  std::unique_ptr<unsigned char[]> own;  // buffer the lines point into, when the host owns it
  CVnDiffArg lines;
  bool wide = false;               // Text16 lines, printed as UTF-8
  std::vector<LineEnd> ends;       // decoded text only: one per line
  LineEnd uniformEnd = LineEnd::None;  // the one kind all ends have, if the intake saw only one
  bool endsInNewline() const;      // the file's last line has a line end
  explicit InputText(CVnFileInfo::FileType type) : lines(type, 10) {}
};

// One changed region in 0-based, half-open terms on both sides.
struct Span {
  long srcBegin, srcCount, tgtBegin, tgtCount;
};

// Reads SOURCE and TARGET as the options say (decoded text, raw bytes, or raw
// bytes for both when one of them is a binary file the user let through).
// Raises Failure with a message naming the file and the reason.
void ReadPair(const Options& options, std::unique_ptr<InputText>& source, std::unique_ptr<InputText>& target,
              CVnDiffFile& sourceFile, CVnDiffFile& targetFile);
// Reads one file's bytes as they stand, split at LF.
std::unique_ptr<InputText> ReadRaw(const std::string& path);
// Raises Failure for a file the host must not read: missing size, a
// directory, or 4 GiB and more (the component would read it truncated).
void CheckReadable(const std::string& path);
// The message for a failure of the component, naming the file.
std::string DescribeException(CException* e, const std::string& path);

// The records turned into spans; contiguous records join into one span.
std::vector<Span> ToSpans(const CVnDiffChangeList& changes, bool join);
// A last line that differs only in its line end is a change the engine can't
// see (the lines hold no terminator): adds a Change record for it.
void AddFinalNewlineChange(const InputText& source, const InputText& target, CVnDiffChangeList& changes);
// Decoded text: lines paired as unchanged that differ in the files' bytes
// around them (LF against CR LF) become Change records.
void AddLineEndChanges(const InputText& source, const InputText& target, CVnDiffChangeList& changes);

// Appends the printable bytes of line i (UTF-8 for decoded text), without
// its line end.
void AppendLine(const InputText& text, int i, std::string& out);
// Appends line i as the file's bytes have it: its line end ("\n", or "\r\n"
// for a file's CR LF), a CR in front when the line before ended LF CR, and
// the no-newline notice when the line is the unterminated last one.
void AppendLineWithEnd(const InputText& text, int i, std::string& out, const char* prefix);

// Output sinks; each writes to `out` and flushes to stdout as it grows.
void WriteNormal(const InputText& s, const InputText& t, const std::vector<Span>& spans, std::FILE* out);
void WriteUnified(const InputText& s, const InputText& t, const std::vector<Span>& spans, int context, std::FILE* out);
void WriteSideBySide(const InputText& s, const InputText& t, const CVnDiffChangeList& changes, int width,
                     bool color, std::FILE* out);
void WriteRecords(const CVnDiffChangeList& changes, std::FILE* out);

// --info FILE...: prints what the intake finds in each file.
int RunInfo(const Options& options, std::FILE* out);
// Reads, compares and prints; gives the exit status.
int RunCompare(const Options& options, std::FILE* out);
// --save-delta DIR: records and delta text of the raw comparison.
void SaveDelta(const std::string& dir, const std::string& source, const std::string& target);
// --apply-delta DIR SOURCE -o OUT.
void ApplyDelta(const std::string& dir, const std::string& source, const std::string& output);

// "-" as a file operand: standard input, copied on first use into a private
// temporary file that is removed at exit.  ResolveOperand gives the path to
// read for an operand; OperandLabel gives back what the user wrote for such
// a path; Relabel puts "-" for the temporary path in a message.
std::string ResolveOperand(const std::string& operand);
std::string OperandLabel(const std::string& path);
std::string Relabel(std::string message);

// Answers the component's binary question as --binary says.
void InstallBinaryAnswer(Binary binary);

CString Wide(const std::string& utf8);
std::string Narrow(const CString& text);

}  // namespace vndiff

#endif  // VN_HOSTS_VNDIFF_VNDIFFHOST_H
