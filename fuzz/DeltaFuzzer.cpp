// DeltaFuzzer.cpp - a stored delta as `vndiff --apply-delta` reads it: the
// records file and the delta text come from the fuzzer, the source is a few
// fixed lines.  A damaged delta must be refused with vndiff's own failure,
// and a refused rebuild must leave neither the output nor its temporary file.
#include "FuzzSupport.h"

#include "../hosts/vndiff/VndiffHost.h"

#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::string Scratch() {
  static std::string dir;
  if (dir.empty()) {
    dir = "/tmp/vn_delta_fuzz_" + std::to_string(getpid());
    mkdir(dir.c_str(), 0700);
    mkdir((dir + "/delta").c_str(), 0700);
  }
  return dir;
}

void Put(const std::string& path, const std::vector<uint8_t>& bytes) {
  FILE* f = fopen(path.c_str(), "wb");
  FUZZ_CHECK(f != nullptr);
  if (!bytes.empty())
    fwrite(bytes.data(), 1, bytes.size(), f);
  fclose(f);
}

bool Exists(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  std::string dir = Scratch();
  std::vector<uint8_t> records = in.Take(in.Below(in.Left() < 400 ? in.Left() : 400));
  std::vector<uint8_t> text = in.Rest();
  Put(dir + "/delta/records", records);
  Put(dir + "/delta/text", text);
  const char kSource[] = "a\nb\nc\nd\n";
  Put(dir + "/source", std::vector<uint8_t>(kSource, kSource + sizeof kSource - 1));
  std::string out = dir + "/out";
  unlink(out.c_str());

  bool refused = false;
  try {
    vndiff::ApplyDelta(dir + "/delta", dir + "/source", out);
  } catch (const vndiff::Failure&) {
    refused = true;
  }
  // Any other exception escapes and is a finding: vndiff would die on it.
  if (refused)
    FUZZ_CHECK(!Exists(out));
  else
    FUZZ_CHECK(Exists(out));
  FUZZ_CHECK(!Exists(out + ".partial"));
  return 0;
}
