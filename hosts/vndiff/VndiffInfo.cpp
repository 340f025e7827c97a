// VndiffInfo.cpp - what the intake finds in each file: --info FILE...
#include "VndiffHost.h"

#include "intake/VnDiffFile.h"

namespace vndiff {

static const char* TypeName(const CVnDiffFile& file) {
  switch (file.GetFileType()) {
  case CVnDiffFile::TypeUnicode: return "Unicode";
  case CVnDiffFile::TypeBinary: return "binary";
  default: return "text";
  }
}

// Gives 0, or 2 when a file could not be read (the others are still listed).
int RunInfo(const Options& o, std::FILE* out) {
  int status = kExitSame;
  InstallBinaryAnswer(Binary::Yes);  // describing a file is not comparing it
  for (size_t k = 0; k < o.files.size(); ++k) {
    const std::string& path = o.files[k];
    try {
      CheckReadable(path);
      CVnDiffFile file;
      file.SetFileName(Wide(path));
      // --source-encoding names the first file, --target-encoding the second,
      // --encoding all of them.
      unsigned encoding = o.sourceEncoding == o.targetEncoding ? o.sourceEncoding : 0;
      if (k == 0)
        encoding = o.sourceEncoding;
      else if (k == 1)
        encoding = o.targetEncoding;
      if (encoding)
        file.SetFileEncoding(encoding);
      unsigned char* data = nullptr;
      unsigned long size = 0;
      try {
        file.GetFileContents(data, size);
      } catch (CException* e) {
        throw Failure(DescribeException(e, path));
      }
      CVnDiffArg lines(file.IsBinary() ? CVnFileInfo::Text8 : CVnFileInfo::Text16, 10);
      lines.Create(data, size);
      fprintf(out,
              "%s\n  type:            %s\n  encoding:        %s\n  code page:       %u\n"
              "  byte order mark: %s\n  lines:           %d\n",
              OperandLabel(path).c_str(), TypeName(file), Narrow(file.GetEncodingDescription()).c_str(), file.GetCodePage(),
              file.HasByteOrderMark() ? "yes" : "no", lines.GetLineCount());
    } catch (const Failure& f) {
      fflush(out);
      fprintf(stderr, "vndiff: %s\n", Relabel(f.what()).c_str());
      status = kExitTrouble;
    }
  }
  return status;
}

}  // namespace vndiff
