// VnDiffChange.h - one change record and the list that owns them.
//
// A record says which 1-based, inclusive line ranges of source and target it
// concerns; the side an Action doesn't use holds 0 (Insert, Delete), and a
// whole-file delta holds -1 everywhere.  Saved, a record is five 32-bit
// little-endian integers: Action, StartSource, EndSource, StartTarget,
// EndTarget, 20 bytes with nothing around them.
#ifndef VN_ENGINE_VNDIFFCHANGE_H
#define VN_ENGINE_VNDIFFCHANGE_H

#include "afx/afx.h"
#include "engine/TypedOwnerPtrArray.h"

class VN_API CVnDiffChange {
public:
  enum Action : int32_t { Insert = 1, Delete = 2, Change = 3, FullFile = 4 };

  CVnDiffChange() {}  // leaves the fields unset, as a plain record does
  CVnDiffChange(Action action, long startSource, long endSource, long startTarget, long endTarget)
      : m_nAction(action), m_nStartSource(startSource), m_nEndSource(endSource),
        m_nStartTarget(startTarget), m_nEndTarget(endTarget) {}
  CVnDiffChange(const CVnDiffChange&) = default;
  CVnDiffChange& operator=(const CVnDiffChange&) = default;

  Action GetAction() const { return m_nAction; }
  long StartSource() const { return m_nStartSource; }
  long EndSource() const { return m_nEndSource; }
  long StartTarget() const { return m_nStartTarget; }
  long EndTarget() const { return m_nEndTarget; }
  // Plain arithmetic: 1 for the unused side of an Insert or Delete.
  long SourceChangeLen() const { return m_nEndSource - m_nStartSource + 1; }
  long TargetChangeLen() const { return m_nEndTarget - m_nStartTarget + 1; }

  // Five 4-byte writes or reads, one per field; the extra arguments are unused.
  void Save(CFile& file, unsigned long, unsigned long);
  void Load(CFile& file, unsigned long);

  void MarkFullFileDelta();
  int IsFullFileDelta() const { return m_nAction == FullFile; }

private:
  Action m_nAction;
  long m_nStartSource;
  long m_nEndSource;
  long m_nStartTarget;
  long m_nEndTarget;
};

class VN_API CVnDiffChangeList : public CTypedOwnerPtrArray<CVnDiffChange> {
public:
  CVnDiffChangeList() = default;
  ~CVnDiffChangeList() override = default;
};

#endif  // VN_ENGINE_VNDIFFCHANGE_H
