// VnMerge.h - the merge of two files that grew apart from one base.
//
// A three-way merge compares BASE with LOCAL and BASE with REMOTE (the
// engine's Compare, exactly: no ignore flags, so that a region never has two
// texts that count as one) and walks the two lists of changed spans in base
// order.  Spans of the two sides that overlap or touch form one region:
//   - lines neither side changed: Unchanged;
//   - a change on one side only: taken from that side (Local, Remote);
//   - the same lines on both sides: taken once (Both);
//   - anything else: a Conflict, with the LOCAL, BASE and REMOTE lines.
// Touching counts as meeting: an edit right beside another edit usually
// depends on it (a line changed next to a line the other side deleted), and
// taking both silently is how merges go wrong.  Before the walk, each
// comparison's changed runs are placed by one rule (VnCanonicalSpans.h), so
// that an edit both sides made is seen at one place and taken once.
//
// A two-way merge has no base: it compares LOCAL with REMOTE, and every
// difference is a Conflict with an empty base range, a choice for the user.
//
// A host resolves a conflict by a choice: LOCAL, REMOTE, or both in either
// order.  The merged text writes every region as its kind or choice says;
// an unresolved conflict is written between markers:
//   <<<<<<< LOCAL
//   LOCAL's lines
//   ||||||| BASE            (only when asked for, three-way only)
//   BASE's lines
//   =======
//   REMOTE's lines
//   >>>>>>> REMOTE
//
// Text and bytes: the sides are read as a comparison reads them (decoded
// text, or raw bytes cut at LF; a binary side the user lets through makes
// every side raw bytes, as its own bytes and not the intake's marked copy).
// Decoded text is merged line by line with the line ends set aside, so a
// side that only changed its line-end style changed nothing; the merged
// text is written in LOCAL's encoding, with LOCAL's byte order mark, and
// lines from the other sides take LOCAL's line end when LOCAL has one kind
// (their own otherwise).  Merge refuses sides it could not write back
// without loss: text in another encoding than LOCAL's (all-ASCII text in an
// ASCII-based page reads the same in any such page and passes), and text
// whose bytes don't come back from decoding (bytes invalid in the encoding).
// Raw bytes are written as they stand.
//
// Use:
//   CVnMerge merge;
//   if (!merge.Open(CVnMerge::Local, local) || !merge.Open(CVnMerge::Base, base) ||
//       !merge.Open(CVnMerge::Remote, remote))
//     return;  // the user declined a binary file
//   CString why;
//   if (!merge.Merge(why))
//     return Report(why);
//   for (size_t k = 0; k < merge.GetRegions().size(); ++k)
//     if (merge.GetRegions()[k].m_nKind == VnMergeKind::Conflict)
//       merge.Resolve(k, AskUser(merge.GetRegions()[k]));
//   merge.Save(path, CVnMergeMarkers());
//
// Line numbers in ranges are 0-based; a range is half-open, and an empty
// one still has its place (the line before which the other sides' lines
// stand).  The ranges of each side tile that side in region order.
#ifndef VN_COMPARE_VNMERGE_H
#define VN_COMPARE_VNMERGE_H

#include "compare/VnComparison.h"

#include <string>
#include <vector>

enum class VnMergeKind : unsigned char { Unchanged, Local, Remote, Both, Conflict };

// How a conflict is resolved; None leaves it to the markers.
enum class VnMergeChoice : unsigned char { None, Local, Remote, LocalThenRemote, RemoteThenLocal };

struct CVnLineRange {
  long m_nBegin;
  long m_nCount;
  long End() const { return m_nBegin + m_nCount; }
};

struct CVnMergeRegion {
  VnMergeKind m_nKind;
  CVnLineRange m_local, m_base, m_remote;
  VnMergeChoice m_nChoice;  // conflicts only
};

struct CVnMergeOptions {
  unsigned m_nCodePage = 0;  // every side's; 0: detect each
  bool m_bRaw = false;       // every side as bytes cut at LF, without the intake
  // A side without a byte order mark is read in the encoding its bytes show
  // (VnEncodingByContent.h).  LOCAL of plain ASCII then takes the page of
  // the side that chose one, so that adding one accented word on a side
  // does not make the files "of different encodings".
  bool m_bEncodingByContent = false;
};

// How unresolved conflicts are written.  An empty label leaves the marker
// bare ("<<<<<<<").
struct CVnMergeMarkers {
  CString m_strLocal = _T("LOCAL");
  CString m_strBase = _T("BASE");
  CString m_strRemote = _T("REMOTE");
  bool m_bShowBase = false;  // the ||||||| section with the base's lines
};

class VN_API CVnMerge {
public:
  enum Side { Local = 0, Base = 1, Remote = 2 };

  explicit CVnMerge(const CVnMergeOptions& options = CVnMergeOptions());
  ~CVnMerge();
  CVnMerge(const CVnMerge&) = delete;
  CVnMerge& operator=(const CVnMerge&) = delete;

  // Reads one side as the options say.  False when the user declined a
  // binary file; CException* when the file can't be read.  Without a Base
  // the merge is two-way.
  bool Open(Side side, const CString& path);
  // A side held in memory (an editor's text, a test's), taken as bytes cut
  // at LF, as raw reading takes a file.  Sides read from files then become
  // raw bytes too.
  void OpenBytes(Side side, const std::string& bytes, const CString& name);

  // Compares and merges the opened sides (LOCAL and REMOTE at least).
  // False, with the reason naming the side in `why`, when the sides can't be
  // written back without loss.  CException* when a file must be read again
  // and can't be.  Runs once.
  bool Merge(CString& why);

  bool HasBase() const { return m_bOpened[Base]; }
  const CVnComparedFile& GetFile(Side side) const { return m_files[side]; }
  CVnComparedFile& GetFile(Side side) { return m_files[side]; }
  const std::vector<CVnMergeRegion>& GetRegions() const { return m_regions; }
  // Conflicts not yet resolved.
  int GetConflictCount() const;
  // Resolves (or with None reopens) the conflict region k; any other region
  // raises the invalid-argument failure.
  void Resolve(size_t k, VnMergeChoice choice);

  // The code page the merged text is written in: LOCAL's, or for LOCAL of
  // plain ASCII read by content the page another side's content chose.
  unsigned GetMergedCodePage() const;
  // The merged text as the bytes of the file to write.
  std::string GetMergedText(const CVnMergeMarkers& markers) const;
  // Writes it to path whole or not at all (VnWriteFileWhole).
  void Save(const CString& path, const CVnMergeMarkers& markers) const;

private:
  void MatchWidths();
  CString WhyNotOneEncoding() const;
  CString WhyNotWrittenBack() const;

  CVnMergeOptions m_options;
  CVnComparedFile m_files[3];
  bool m_bOpened[3] = {false, false, false};
  std::vector<CVnMergeRegion> m_regions;
  bool m_bMerged = false;
};

#endif  // VN_COMPARE_VNMERGE_H
