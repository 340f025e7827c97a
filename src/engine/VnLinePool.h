// VnLinePool.h - where line records live: slabs of fixed-size blocks.
//
// A comparison makes one record per line, hundreds of thousands at a time,
// and frees them all together.  The general heap spends a header and a
// search on each; the pool hands them out by bumping a cursor through 2 MiB
// slabs, each aligned to its own size, so that a record finds its slab by
// masking its address.  A slab counts its live records (plus one while it is
// some thread's current slab) and goes back to the heap when the count
// reaches 0.  A thread counts its own frees and gives them to the slab in
// one step, at the latest when it frees from another slab or ends; so a
// slab whose records two threads free may wait for one of them to do that.
// Freed blocks are not reused before their whole slab is freed.
#ifndef VN_ENGINE_VNLINEPOOL_H
#define VN_ENGINE_VNLINEPOOL_H

#include <cstddef>

// A block of `size` bytes (at most kVnLinePoolMaxBlock); raises
// std::bad_alloc when no slab can be had.  Thread-safe.
void* VnLinePoolAlloc(size_t size);
// Up to `count` blocks of `size` bytes laid end to end, VnLinePoolStride
// apart, for a caller that makes many records at once: as many as the
// thread's current slab has room for, or a new slab's worth.  `got` says how
// many (at least 1); each is freed on its own with VnLinePoolFree.  A new
// slab that the run will fill is backed with large pages where the system
// has them, which spares the faults of small pages and the address-cache
// misses of random reads; one that may stay partly empty is not, so no more
// memory becomes resident than is used.
void* VnLinePoolAllocRun(size_t size, size_t count, size_t& got);
// The distance between blocks of `size` bytes: every block is 8-aligned.
inline size_t VnLinePoolStride(size_t size) { return (size + 7) & ~static_cast<size_t>(7); }
// Gives back a block of `size` bytes from VnLinePoolAlloc, from any thread.
void VnLinePoolFree(void* block, size_t size) noexcept;

const size_t kVnLinePoolMaxBlock = 64;

#endif  // VN_ENGINE_VNLINEPOOL_H
