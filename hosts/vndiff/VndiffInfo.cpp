// VndiffInfo.cpp - what the intake finds in each file: --info FILE...
#include "VndiffHost.h"

#include "compare/VnFileCaption.h"

namespace vndiff {

static const char* TypeName(int type) {
  switch (type) {
  case CVnDiffFile::TypeUnicode: return "Unicode";
  case CVnDiffFile::TypeBinary: return "binary";
  default: return "text";
  }
}

// --source-encoding names the first file, --target-encoding the second,
// --encoding all of them.
static unsigned EncodingOf(const Options& o, size_t k) {
  if (k < 2)
    return k == 0 ? o.sourceEncoding : o.targetEncoding;
  return o.sourceEncoding == o.targetEncoding ? o.sourceEncoding : 0;
}

static void Describe(const std::string& path, unsigned encoding, std::FILE* out) {
  CheckReadable(path);
  CVnComparedFile file;
  file.SetDisplayName(Wide(OperandLabel(path)));
  try {
    file.Read(Wide(path), encoding, true);
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
  const CVnFileFacts& f = file.GetFacts();
  const bool text = f.m_nFileType != CVnDiffFile::TypeBinary;
  fprintf(out,
          "%s\n  type:            %s\n  encoding:        %s (%s)\n  code page:       %u\n"
          "  byte order mark: %s\n  lines:           %ld\n",
          Narrow(f.m_strDisplayName).c_str(), TypeName(f.m_nFileType), Narrow(f.m_strEncoding).c_str(),
          Narrow(VnEncodingSourceName(f.m_nEncodingSource)).c_str(), f.m_nCodePage, f.m_bHasBOM ? "yes" : "no",
          f.m_nLineCount);
  if (text)
    fprintf(out, "  line ends:       %s\n  final newline:   %s\n", Narrow(VnLineEndName(f.m_nLineEnds)).c_str(),
            f.m_bFinalNewline ? "yes" : "no");
}

// Gives 0, or 2 when a file could not be read (the others are still listed).
int RunInfo(const Options& o, std::FILE* out) {
  int status = kExitSame;
  InstallBinaryAnswer(Binary::Yes);  // describing a file is not comparing it
  for (size_t k = 0; k < o.files.size(); ++k) {
    try {
      Describe(o.files[k], EncodingOf(o, k), out);
    } catch (const Failure& f) {
      fflush(out);
      fprintf(stderr, "vndiff: %s\n", Relabel(f.what()).c_str());
      status = kExitTrouble;
    }
  }
  return status;
}

}  // namespace vndiff
