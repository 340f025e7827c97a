// VnLineIdentity.h - when two lines count as equal, the hash that filters
// candidates, and the hash chains that give every line a class number.
//
// Internal to the comparison.  Equal lines under the call's flags get the
// same class number; the search then never looks at text again.
#ifndef VN_ENGINE_VNLINEIDENTITY_H
#define VN_ENGINE_VNLINEIDENTITY_H

#include "engine/VnDiffLine.h"

#include <cstdint>
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

// A node of the hash chains; its index in the pool is the class number.
struct CVnEquivalence {
  CVnEquivalence* m_pNext;
  CVnLineSlot* m_pFounder;
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
  // the same hash is equal.  Throws the last visited node (CVnEquivalence *)
  // should the pool be full, which T >= lines + 1 rules out.
  int32_t ClassOf(CVnLineSlot& slot);
  // The next number to be handed out: every class number lies below it.
  int32_t Count() const { return m_nCounter; }

private:
  std::vector<CVnEquivalence*> m_buckets;
  std::vector<CVnEquivalence> m_pool;
  CVnLineFlags m_flags;
  int32_t m_nCounter = 1;  // class 0 is the common prefix's
};

#endif  // VN_ENGINE_VNLINEIDENTITY_H
