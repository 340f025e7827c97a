// VndiffCompare.cpp - one comparison, end to end, and the binary question.
#include "VndiffHost.h"

#include "intake/VnDiffFile.h"

#include <cstring>
#ifdef _WIN32
#include <io.h>
#define VN_ISATTY(fd) _isatty(fd)
#else
#include <unistd.h>
#define VN_ISATTY(fd) isatty(fd)
#endif

namespace vndiff {

namespace {

Binary g_binaryAnswer = Binary::Ask;

// The component asks whether to go on with a binary file.  On a terminal the
// question is put to the user; otherwise the answer is no, so that scripts
// never wait for an answer nobody will give.
int AnswerBinaryQuestion(LPCWSTR text, UINT type, UINT) {
  if ((type & MB_TYPEMASK) != MB_YESNO)
    return VnDefaultAnswer(type);
  if (g_binaryAnswer == Binary::Yes)
    return IDYES;
  if (g_binaryAnswer == Binary::No || !VN_ISATTY(0) || !VN_ISATTY(2))
    return IDNO;
  fprintf(stderr, "%s [y/N] ", Narrow(CString(text)).c_str());
  fflush(stderr);
  char answer[32] = {0};
  if (!fgets(answer, sizeof answer, stdin))
    return IDNO;
  return answer[0] == 'y' || answer[0] == 'Y' ? IDYES : IDNO;
}

bool UseColor(Color color) {
  if (color == Color::Always)
    return true;
  return color == Color::Auto && VN_ISATTY(1);
}

}  // namespace

void InstallBinaryAnswer(Binary binary) {
  g_binaryAnswer = binary;
  VnSetPromptHandler(&AnswerBinaryQuestion);
}

// Reads, compares and prints; gives the exit status.
int RunCompare(const Options& o, std::FILE* out) {
  CVnDiffFile sourceFile, targetFile;  // their buffers hold decoded text
  std::unique_ptr<InputText> source, target;
  ReadPair(o, source, target, sourceFile, targetFile);
  CVnDiffChangeList changes;
  source->lines.Compare(o.ignoreWhitespace, o.ignoreCase, o.ignoreLineEnds, target->lines, changes);
  // The output must rebuild the target byte for byte, line ends included,
  // which the lines alone can't tell: raw lines hold no terminator (only the
  // last line can lack one), decoded lines all end in CR LF.  The records
  // form shows Compare's own records.
  if (!o.ignoreLineEnds && o.format != Format::Records) {
    if (source->wide && target->wide)
      AddLineEndChanges(*source, *target, changes);
    else if (!source->wide && !target->wide)
      AddFinalNewlineChange(*source, *target, changes);
  }
  if (!o.saveDelta.empty())
    SaveDelta(o.saveDelta, o.files[0], o.files[1]);

  switch (o.format) {
  case Format::Normal: WriteNormal(*source, *target, ToSpans(changes, true), out); break;
  case Format::Unified: WriteUnified(*source, *target, ToSpans(changes, true), o.context, out); break;
  case Format::SideBySide: WriteSideBySide(*source, *target, changes, o.width, UseColor(o.color), out); break;
  case Format::Records: WriteRecords(changes, out); break;
  }
  if (fflush(out) != 0 || ferror(out))
    throw Failure(std::string("write error: ") + strerror(errno));
  return changes.GetSize() ? kExitDifferent : kExitSame;
}

}  // namespace vndiff
