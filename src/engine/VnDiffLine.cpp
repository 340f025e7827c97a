// VnDiffLine.cpp - line records come from the line pool.
//
// A class derived with a larger size (none is) would go to the general heap;
// the sized delete tells the two apart.
#include "engine/VnDiffLine.h"

#include "engine/VnLinePool.h"

#include <new>

void* CVnDiffLine::operator new(size_t size) {
  if (size > kVnLinePoolMaxBlock)
    return ::operator new(size);
  return VnLinePoolAlloc(size);
}

void CVnDiffLine::operator delete(void* p, size_t size) noexcept {
  if (size > kVnLinePoolMaxBlock)
    ::operator delete(p);
  else
    VnLinePoolFree(p, size);
}
