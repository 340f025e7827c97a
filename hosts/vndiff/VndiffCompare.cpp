// VndiffCompare.cpp - one comparison, end to end, and the failures on the way.
#include "VndiffHost.h"

#include "afx/os/OsSeam.h"
#include "compare/VnFormDifference.h"
#include "foundation/LocalResources.h"
#include "intake/VnFile.h"

#include <cerrno>
#include <cstring>
#include <exception>
#include <mutex>
#include <thread>
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
std::mutex g_question;  // the two sides are read at once; their questions come one at a time

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
  std::lock_guard<std::mutex> one(g_question);
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

std::string FileMessage(CFileException* fe, const std::string& path) {
  CString message;
  const CString name = path.empty() ? fe->m_strFileName : Wide(path);
  message.Format(LoadLocalString(GetResourceModule(), 153), name.GetString());
  std::string text = Narrow(message);
  if (fe->m_lOsError > 0) {
    std::string reason = Narrow(CString(vn::os::SystemMessage(static_cast<DWORD>(fe->m_lOsError))));
    while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r'))
      reason.pop_back();
    if (!reason.empty())
      text += " " + reason;
  }
  return text;
}

CVnCompareOptions CompareOptions(const Options& o) {
  CVnCompareOptions c;
  c.m_bIgnoreCase = o.ignoreCase;
  c.m_bIgnoreWhitespace = o.ignoreWhitespace;
  c.m_bIgnoreLineEnds = o.ignoreLineEnds;
  c.m_bIgnoreEncoding = o.ignoreEncoding;
  c.m_bEncodingByContent = true;
  c.m_nSourceCodePage = o.sourceEncoding;
  c.m_nTargetCodePage = o.targetEncoding;
  c.m_bRaw = o.raw;
  // The records form shows Compare's own records; the others must rebuild
  // the target byte for byte, line ends included.
  c.m_bExactLineEnds = o.format != Format::Records;
  return c;
}

}  // namespace

CString Wide(const std::string& utf8) { return VnFromUtf8(utf8); }
std::string Narrow(const CString& text) { return VnToUtf8(text); }

std::string DescribeException(CException* e, const std::string& path) {
  std::string text;
  if (CFileException* fe = dynamic_cast<CFileException*>(e)) {
    text = FileMessage(fe, path);
  } else {
    WCHAR buffer[1024];
    text = e->GetErrorMessage(buffer, 1024) ? Narrow(CString(buffer)) : std::string("unknown failure");
    if (!path.empty())
      text = path + ": " + text;
  }
  e->Delete();
  return text;
}

void CheckReadable(const std::string& path) {
  CString why = VnWhyNotComparable(Wide(path));
  if (!why.IsEmpty())
    throw Failure(path + ": " + Narrow(why));
}

bool OpenSide(CVnComparison& comparison, CVnComparison::Side side, const std::string& path) {
  comparison.GetFile(side).SetDisplayName(Wide(OperandLabel(path)));
  try {
    return comparison.Open(side, Wide(path));
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

void AppendLineWithEnd(const CVnComparedFile& file, long i, std::string& out, const char* prefix) {
  out += prefix;
  file.AppendLineAsRead(i, out);
  if (file.GetLineEnd(i) == VnLineEnd::None)
    out += "\n\\ No newline at end of file\n";
}

void InstallBinaryAnswer(Binary binary) {
  g_binaryAnswer = binary;
  VnSetPromptHandler(&AnswerBinaryQuestion);
}

namespace {

// A binary file the user doesn't have compared as lines is compared by its
// bytes, as scripts expect of a compare tool.
int CompareBytes(const Options& o, std::FILE* out) {
  bool same = false;
  try {
    same = VnSameBytes(Wide(o.files[0]), Wide(o.files[1]));
  } catch (CException* e) {
    throw Failure(DescribeException(e, ""));
  }
  if (same)
    return kExitSame;
  fprintf(out, "%s %s and %s differ\n", o.brief ? "Files" : "Binary files", OperandLabel(o.files[0]).c_str(), OperandLabel(o.files[1]).c_str());
  return kExitDifferent;
}

// One line per kind of difference in form, ahead of the records: where a
// patch reader skips it as leading text.  The records form is read by
// programs, so there it goes to standard error.
void WriteFormDifferences(const CVnComparison& c, Format format, std::FILE* out) {
  std::FILE* to = format == Format::Records ? stderr : out;
  for (const CVnFormDifference& d :
       VnFormDifferences(c.GetFile(CVnComparison::Source).GetFacts(), c.GetFile(CVnComparison::Target).GetFacts()))
    fprintf(to, "%s\n", Narrow(VnFormDifferenceText(d)).c_str());
}

}  // namespace

// Reads and decodes both sides at once, each through its own intake: on
// two cores a pair reads in the time of its larger file.  False when the
// user declined a binary file; the source's failure wins, as it would in turn.
static bool OpenBoth(CVnComparison& comparison, const Options& o) {
  bool target = false;
  std::exception_ptr failure;
  std::thread reader([&] {
    try {
      target = OpenSide(comparison, CVnComparison::Target, o.files[1]);
    } catch (...) {
      failure = std::current_exception();
    }
  });
  bool source = false;
  try {
    source = OpenSide(comparison, CVnComparison::Source, o.files[0]);
  } catch (...) {
    reader.join();
    throw;
  }
  reader.join();
  if (failure)
    std::rethrow_exception(failure);
  return source && target;
}

// Reads, compares and prints; gives the exit status.
int RunCompare(const Options& o, std::FILE* out) {
  CheckReadable(o.files[0]);
  CheckReadable(o.files[1]);
  CVnCompareOptions options = CompareOptions(o);
  options.m_bRaw = options.m_bRaw || (!o.sourceEncoding && !o.targetEncoding &&
                                      VnPlainAsciiPair(Wide(o.files[0]), Wide(o.files[1])));
  CVnComparison comparison(options);
  if (!OpenBoth(comparison, o))
    return CompareBytes(o, out);
  try {
    comparison.Compare();
  } catch (CException* e) {
    throw Failure(DescribeException(e, ""));
  }
  if (!o.saveDelta.empty())
    SaveDelta(o.saveDelta, o.files[0], o.files[1]);

  if (o.brief) {
    if (comparison.Differs())
      fprintf(out, "Files %s and %s differ\n", OperandLabel(o.files[0]).c_str(), OperandLabel(o.files[1]).c_str());
    return comparison.Differs() ? kExitDifferent : kExitSame;
  }
  WriteFormDifferences(comparison, o.format, out);
  switch (o.format) {
  case Format::Normal: WriteNormal(comparison, out); break;
  case Format::Unified: WriteUnified(comparison, o.context, out); break;
  case Format::SideBySide: WriteSideBySide(comparison, o.width, UseColor(o.color), out); break;
  case Format::Records: WriteRecords(comparison.GetChanges(), out); break;
  }
  if (fflush(out) != 0 || ferror(out))
    throw Failure(std::string("write error: ") + strerror(errno));
  return comparison.Differs() ? kExitDifferent : kExitSame;
}

}  // namespace vndiff
