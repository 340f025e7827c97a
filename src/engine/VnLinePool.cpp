// VnLinePool.cpp - slabs of line records.
//
// Slab layout: a 64-byte header (the live count) and then blocks laid end to
// end.  Each thread bumps through its own current slab, so allocation takes
// no lock and no atomic step; only the live count is shared, since a record
// may be freed on another thread.  The thread's hold on its current slab is dropped when the
// slab is full and a new one is taken, or when the thread ends.
//
// Under AddressSanitizer a freed block is poisoned, so a use after free of a
// record is still caught although the slab lives on.
#include "engine/VnLinePool.h"

#include "afx/os/OsSeam.h"

#include <atomic>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <new>
#ifdef _WIN32
#include <malloc.h>
#endif

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#define VN_POISON(p, n) ASAN_POISON_MEMORY_REGION(p, n)
#define VN_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION(p, n)
#else
#define VN_POISON(p, n) ((void)(p), (void)(n))
#define VN_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace {

const size_t kSlabSize = 2 * 1024 * 1024;
const size_t kHeaderSize = 64;

// The most blocks a slab can hand out (all of the smallest size).  A new
// slab's count starts at this plus one for the thread's hold, as if every
// block were already out, so that handing one out needs no atomic add; when
// the thread lets the slab go it takes back the blocks it never handed out.
const uint32_t kMaxBlocks = static_cast<uint32_t>((kSlabSize - kHeaderSize) / 8);

struct Slab {
  std::atomic<uint32_t> live;
};

void Release(unsigned char* slab, uint32_t count);

// A thread's current slab; the thread's hold on it goes when the thread ends.
// A thread's slab to allocate from, and its frees not yet given back.
// Frees are counted on the freeing thread and given back to their slab's
// count in one step: when the thread frees from another slab, when its count
// reaches what the slab has left, and when the thread ends.  A locked update
// for each record cost more than all the rest of freeing it.
struct Cursor {
  unsigned char* slab = nullptr;  // current slab, or null
  size_t used = 0;                // bytes handed out from it, header included
  uint32_t handed = 0;            // blocks handed out from it
  unsigned char* freeing = nullptr;  // the slab of the frees counted, or null
  uint32_t freed = 0;
  bool ended = false;  // the thread is ending: frees go back one by one
  void Retire() {
    if (slab)
      Release(slab, 1 + kMaxBlocks - handed);
    slab = nullptr;
  }
  void GiveBack() {
    if (freeing)
      Release(freeing, freed);
    freeing = nullptr;
    freed = 0;
  }
  ~Cursor() {
    Retire();
    GiveBack();
    ended = true;
  }
};

thread_local Cursor t_cursor;

unsigned char* NewSlab(bool large) {
  void* p = nullptr;
#ifdef _WIN32
  p = _aligned_malloc(kSlabSize, kSlabSize);
#else
  if (posix_memalign(&p, kSlabSize, kSlabSize) != 0)
    p = nullptr;
#endif
  if (!p)
    throw std::bad_alloc();
  if (large)
    vn::os::PrepareLargeWrite(p, kSlabSize);
  new (p) Slab{{1 + kMaxBlocks}};
  return static_cast<unsigned char*>(p);
}

void DeleteSlab(unsigned char* slab) {
  static_cast<Slab*>(static_cast<void*>(slab))->~Slab();
  VN_UNPOISON(slab, kSlabSize);
#ifdef _WIN32
  _aligned_free(slab);
#else
  free(slab);
#endif
}

// Drops count from the slab's count; the last drop frees it.
void Release(unsigned char* slab, uint32_t count) {
  if (reinterpret_cast<Slab*>(slab)->live.fetch_sub(count, std::memory_order_acq_rel) == count)
    DeleteSlab(slab);
}

}  // namespace

void* VnLinePoolAllocRun(size_t size, size_t count, size_t& got) {
  assert(size <= kVnLinePoolMaxBlock && "the pool serves small records only");
  assert(count > 0 && "a run has at least one block");
  size = VnLinePoolStride(size);
  Cursor& c = t_cursor;
  if (!c.slab || c.used + size > kSlabSize) {
    // A slab that the run will fill is worth large pages; one that may
    // stay partly empty is not, as its unused part would be resident too.
    unsigned char* fresh = NewSlab(count >= (kSlabSize - kHeaderSize) / size);
    VN_POISON(fresh + kHeaderSize, kSlabSize - kHeaderSize);
    c.Retire();
    c.slab = fresh;
    c.used = kHeaderSize;
    c.handed = 0;
  }
  const size_t room = (kSlabSize - c.used) / size;
  got = count < room ? count : room;
  unsigned char* block = c.slab + c.used;
  c.used += got * size;
  c.handed += static_cast<uint32_t>(got);
  VN_UNPOISON(block, got * size);
  return block;
}

void* VnLinePoolAlloc(size_t size) {
  size_t got = 0;
  return VnLinePoolAllocRun(size, 1, got);
}

void VnLinePoolFree(void* block, size_t size) noexcept {
  if (!block)
    return;
  unsigned char* slab = reinterpret_cast<unsigned char*>(reinterpret_cast<uintptr_t>(block) & ~(kSlabSize - 1));
  assert(static_cast<unsigned char*>(block) >= slab + kHeaderSize && "a block lies behind its slab's header");
  VN_POISON(block, size);
  Cursor& c = t_cursor;
  if (c.ended) {
    Release(slab, 1);
    return;
  }
  if (c.freeing != slab) {
    c.GiveBack();
    c.freeing = slab;
  }
  if (++c.freed == reinterpret_cast<Slab*>(slab)->live.load(std::memory_order_relaxed))
    c.GiveBack();
}
