// IntakeFuzzer.cpp - arbitrary bytes as an input file, read with detection or
// with a forced encoding, answered yes or no on the binary question, cut into
// a line set of the type a host would make, and compared against a copy of
// itself with lines taken out.  Converted text must come out as whole 16-bit
// units (UTF-16 input keeps an odd last byte as it stands); a binary file the
// user took must end in the marker.
#include "FuzzSupport.h"

#include "engine/VnDiffArg.h"
#include "engine/VnDiffChange.h"
#include "intake/VnDiffFile.h"

#include <cstdio>
#include <unistd.h>

namespace {

// Every code page the hosts accept, and 0 for detection.
const unsigned kCodePages[] = {0,    65001, 70001, 70000, 1200, 1201, 1252, 1250, 1251, 437,
                               850,  932,   936,   949,   950,  28591, 28605, 20127, 54936, 65000};

CString TempPath() {
  char name[64];
  snprintf(name, sizeof name, "/tmp/vn_intake_fuzz_%d.bin", static_cast<int>(getpid()));
  return CString(name);
}

void WriteFile(const CString& path, const std::vector<uint8_t>& bytes) {
  CFile f(path, CFile::modeCreate | CFile::modeWrite);
  if (!bytes.empty())
    f.Write(bytes.data(), static_cast<UINT>(bytes.size()));
  f.Close();
}

void CompareWithThinnedCopy(const unsigned char* text, unsigned long length, bool binary, uint8_t drop) {
  CVnDiffArg full(binary ? CVnFileInfo::Text8 : CVnFileInfo::Text16, 0);
  full.Create(text, length);
  // The copy: the same text without every line whose number hits `drop`.
  CVnDiffArg thinned(full.GetFileInfo());
  for (int i = 0; i < full.GetLineCount(); ++i)
    if (drop == 0 || i % (drop % 7 + 2) != 0)
      thinned.CopyLines(full, i, i + 1);
  CVnDiffChangeList changes;
  full.Compare(drop & 1, drop & 2, drop & 4, thinned, changes);
  for (INT_PTR i = 0; i < changes.GetSize(); ++i)
    FUZZ_CHECK(changes[i]->GetAction() != CVnDiffChange::Insert || (drop & 7) != 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  unsigned codePage = kCodePages[in.Byte() % (sizeof kCodePages / sizeof kCodePages[0])];
  uint8_t choices = in.Byte();
  std::vector<uint8_t> bytes = in.Rest();

  CString path = TempPath();
  WriteFile(path, bytes);
  VnFuzzSetAnswer((choices & 1) ? IDYES : IDNO);
  CVnDiffFile file;
  file.SetFileName(path);
  if (codePage)
    file.SetFileEncoding(codePage);
  unsigned char* text = nullptr;
  unsigned long length = 0;
  bool took = false;
  try {
    took = file.GetFileContents(text, length);
  } catch (CException* e) {
    e->Delete();
    FUZZ_CHECK(!"reading an existing, readable file raised");
  }
  if (took) {
    if (file.IsBinary())
      FUZZ_CHECK(length > 0 && text[length - 1] == CVnDiffFile::BINARY_MARKER);
    else if (file.GetEncoding() != CVnDiffFile::EncodingUTF16LE && file.GetEncoding() != CVnDiffFile::EncodingUTF16BE)
      FUZZ_CHECK(length % 2 == 0);  // converted text; UTF-16 keeps an odd last byte
    CompareWithThinnedCopy(text, length, file.IsBinary(), choices >> 1);
  }
  CFile::Remove(path);
  return 0;
}
