// PathFuzzer.cpp - the pure path functions on random text.  Each input is
// copied into a buffer that ends exactly at its terminator, so a read beyond
// the text is a finding; results must stay within what the input allows.
#include "FuzzSupport.h"

#include "foundation/VnPath.h"

#include <vector>

namespace {

// Separators, dots, wildcards, drive letters and colons are most of what the
// functions look at, so bytes map mostly onto them.
WCHAR UnitFor(uint8_t b) {
  static const char kAlphabet[] = "\\/.:*?Cc a;\\/..";
  return b < 128 ? static_cast<WCHAR>(kAlphabet[b % (sizeof kAlphabet - 1)]) : static_cast<WCHAR>(b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  size_t split = in.Below(in.Left());
  std::vector<uint8_t> first = in.Take(split), second = in.Rest();
  std::vector<WCHAR> a(first.size() + 1, 0), b(second.size() + 1, 0);
  for (size_t i = 0; i < first.size(); ++i)
    a[i] = UnitFor(first[i]);
  for (size_t i = 0; i < second.size(); ++i)
    b[i] = UnitFor(second[i]);
  CString pa(a.data()), pb(b.data());

  LPCWSTR slash = FindLastSlash(a.data());
  FUZZ_CHECK(!slash || (slash >= a.data() && slash < a.data() + first.size()));
  PathHasEndSlash(a.data());
  CString s = pa;
  AppendEndSlash(s);
  FUZZ_CHECK(PathHasEndSlash(s));
  TrimEndSlash(s);
  CString dir, file, name, ext;
  SeparatePathAndFile(a.data(), dir, file);
  FUZZ_CHECK(dir.GetLength() + file.GetLength() <= pa.GetLength() + 1);
  SeparatePathFileAndExt(a.data(), dir, name, ext);
  IsAbsolutePath(pa);
  CString rel;
  GetRelativePath(a.data(), b.data(), rel);
  CString abbreviated;
  int limit = static_cast<int>(second.size() % 64);
  if (AbbreviatePath(a.data(), limit, abbreviated))
    FUZZ_CHECK(abbreviated.GetLength() <= pa.GetLength() || abbreviated.GetLength() <= limit);
  NameIsInSpecList(a.data(), b.data());
  MatchNamePattern(b.data(), a.data());
  return 0;
}
