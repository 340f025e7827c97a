// VnLineIdentity.h - when two lines count as equal, the hash that filters
// candidates, and the hash chains that give every line a class number.
//
// Internal to the comparison.  Equal lines under the call's flags get the
// same class number; the search then never looks at text again.
#ifndef VN_ENGINE_VNLINEIDENTITY_H
#define VN_ENGINE_VNLINEIDENTITY_H

#include "afx/portable/LargeBuffer.h"
#include "engine/VnDiffLine.h"

#include <cstdint>
#include <memory>
#include <vector>

struct CVnLineFlags {
  bool m_bIgnoreWhitespace = false;  // spaces and tabs anywhere are skipped
  bool m_bIgnoreCase = false;        // units compare lower-cased
  bool m_bIgnoreLineEnds = false;    // CR and LF alike; unpartnered ones at the end skipped
  bool Any() const { return m_bIgnoreWhitespace || m_bIgnoreCase || m_bIgnoreLineEnds; }
};

// One line of a side in play: the record, its index and its hash.
struct CVnLineSlot {
  CVnDiffLine* m_pLine;
  int32_t m_nIndex;
  uint32_t m_nHash;
};

// A node of the hash chains; its index in the pool is the class number.  It
// keeps the founder's hash and record, so that a chain is walked without
// touching the slots, and the hash decides before the line is read.
struct CVnEquivalence {
  uint32_t m_nNext;  // index of the next node in the chain; 0 ends it
  uint32_t m_nHash;
  const CVnDiffLine* m_pLine;
};

// Hashes the line under the flags, stores the value in the record and
// returns it.  The unit width comes from the record.
uint32_t VnHashLine(CVnDiffLine& line, const CVnLineFlags& flags);

// Equality of a and b under the flags, reading both by a's unit width.
// Looks at the stored hash fields, so both must hold this comparison's
// hashes (or both still be fresh).
bool VnLinesEqual(const CVnDiffLine& a, const CVnDiffLine& b, const CVnLineFlags& flags);

// Hands out class numbers from 1 through T buckets and a pool of T nodes.
// A line is tested only against the founder of each class in its chain.
class CVnClassTable {
public:
  CVnClassTable(uint32_t size, const CVnLineFlags& flags);
  // The class of the line in slot; founds a new class when no founder with
  // the same hash is equal.  Throws the last visited node (CVnEquivalence *,
  // null for an empty chain) should the pool be full, which T >= lines + 1
  // rules out.  The table keeps no reference to the slot itself.
  int32_t ClassOf(const CVnLineSlot& slot);
  // The next number to be handed out: every class number lies below it.
  int32_t Count() const { return m_nCounter; }

  // Starts the loads of a lookup for a line whose ClassOf comes some calls
  // later: its bucket first, then (a few lines on, once the bucket is in)
  // the chain's first node.
  void PrefetchBucket(uint32_t hash) const { Prefetch(&m_buckets[BucketOf(hash)]); }
  void PrefetchHead(uint32_t hash) const { Prefetch(&m_pool[m_buckets[BucketOf(hash)]]); }

private:
  static void Prefetch(const void* p) {
#if defined(__GNUC__)
    __builtin_prefetch(p);
#else
    (void)p;
#endif
  }
  // hash mod T by multiplying with a reciprocal: the low 64 bits of
  // reciprocal * hash are the fraction hash / T, and the high 64 bits of
  // that fraction times T are the remainder.  Exact for 32-bit hash and T.
  uint32_t BucketOf(uint32_t hash) const {
#if defined(__SIZEOF_INT128__)
    const uint64_t fraction = m_nReciprocal * hash;
    return static_cast<uint32_t>((static_cast<unsigned __int128>(fraction) * m_nSize) >> 64);
#else
    return hash % static_cast<uint32_t>(m_nSize);
#endif
  }

  // Buckets and nodes share one block.  The buckets are zeroed; nodes are
  // written as classes are founded, and the rest are never touched, so
  // their pages are never made resident.
  CVnLargeBuffer m_block;
  uint32_t* m_buckets;       // T: index of a chain's first node; 0 for none
  CVnEquivalence* m_pool;    // T nodes
  uint32_t m_nSize;          // T
  uint64_t m_nReciprocal;    // 2^64 / T, rounded up: hash mod T without a division
  CVnLineFlags m_flags;
  int32_t m_nCounter = 1;  // class 0 is the common prefix's
};

#endif  // VN_ENGINE_VNLINEIDENTITY_H
