// EngineFuzzer.cpp - two arbitrary buffers as line sets of every type, under
// every flag.  Beyond not crashing, the records must ascend, a Change must be
// even, and without flags the delta operations must rebuild the target byte
// for byte from the source, the records and the extracted delta text.  Where
// the processor runs the wide search, the portable one must give the same
// records.
#include "FuzzSupport.h"

#include "engine/VnCompareState.h"
#include "engine/VnDiffArg.h"
#include "engine/VnDiffChange.h"
#include "engine/VnWideSearch.h"

#include <cstring>

namespace {

const CVnFileInfo::FileType kTypes[] = {CVnFileInfo::Text8, CVnFileInfo::Text8Alt, CVnFileInfo::Text16,
                                        CVnFileInfo::Records8};

void CheckOrder(const CVnDiffChangeList& changes) {
  long lastSource = 0, lastTarget = 0;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange* c = changes[i];
    FUZZ_CHECK(c->GetAction() >= CVnDiffChange::Insert && c->GetAction() <= CVnDiffChange::Change);
    if (c->GetAction() != CVnDiffChange::Insert) {
      FUZZ_CHECK(c->StartSource() > lastSource && c->EndSource() >= c->StartSource());
      lastSource = c->EndSource();
    }
    if (c->GetAction() != CVnDiffChange::Delete) {
      FUZZ_CHECK(c->StartTarget() > lastTarget && c->EndTarget() >= c->StartTarget());
      lastTarget = c->EndTarget();
    }
    if (c->GetAction() == CVnDiffChange::Change)
      FUZZ_CHECK(c->SourceChangeLen() == c->TargetChangeLen());
  }
}

std::vector<uint8_t> Flatten(CVnDiffArg& set) {
  unsigned char* buffer = nullptr;
  int size = 0;
  set.GetBuffer(buffer, size);
  std::vector<uint8_t> out(buffer, buffer + size);
  delete[] buffer;
  return out;
}

void CheckRebuild(CVnDiffArg& source, CVnDiffArg& target, CVnDiffChangeList& changes) {
  unsigned long size = 0;
  unsigned char* text = nullptr;
  target.ExtractChangedLines(changes, size, text);
  CVnDiffArg delta(target.GetFileInfo());
  if (size)
    delta.Create(text, size);
  CVnDiffArg result(target.GetFileInfo());
  int sourcePos = 1, targetPos = 1, deltaPos = 0;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i)
    result.ProcessChange(*changes[i], source, delta, sourcePos, targetPos, deltaPos);
  result.CopyLines(source, sourcePos - 1, -1);
  FUZZ_CHECK(Flatten(result) == Flatten(target));
  delete[] text;
}

void CheckPortableAgrees(CVnDiffArg& source, CVnDiffArg& target, uint8_t flags, const CVnDiffChangeList& changes) {
  const CVnCompareHooks saved = VnGetCompareHooks();
  CVnCompareHooks portable = saved;
  portable.m_bWideSearch = false;
  VnSetCompareHooks(portable);
  CVnDiffChangeList again;
  source.Compare(flags & 1, flags & 2, flags & 4, target, again);
  VnSetCompareHooks(saved);
  FUZZ_CHECK(again.GetSize() == changes.GetSize());
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& a = *changes[i];
    const CVnDiffChange& b = *again[i];
    FUZZ_CHECK(a.GetAction() == b.GetAction() && a.StartSource() == b.StartSource() && a.EndSource() == b.EndSource() &&
               a.StartTarget() == b.StartTarget() && a.EndTarget() == b.EndTarget());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  CVnFileInfo::FileType type = kTypes[in.Byte() % 4];
  unsigned char eol = in.Byte();
  uint8_t flags = in.Byte();
  std::vector<uint8_t> sourceBytes = in.Take(in.Below(in.Left()));
  std::vector<uint8_t> targetBytes = in.Rest();

  CVnDiffArg source(type, eol), target(type, eol);
  source.Create(sourceBytes.data(), static_cast<unsigned long>(sourceBytes.size()));
  target.Create(targetBytes.data(), static_cast<unsigned long>(targetBytes.size()));
  CVnDiffChangeList changes;
  source.Compare(flags & 1, flags & 2, flags & 4, target, changes);
  CheckOrder(changes);
  if (VnWideSearchAvailable())
    CheckPortableAgrees(source, target, flags, changes);
  if ((flags & 7) == 0)
    CheckRebuild(source, target, changes);
  return 0;
}
