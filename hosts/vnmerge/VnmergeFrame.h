// VnmergeFrame.h - the merge tool's window: LOCAL and REMOTE side by side
// above, the merged result below.
//
// DoDiff runs the library's merge (CVnMerge); Show fills the three panes
// from its regions.  Above, each region takes as many rows as its longer
// side, the shorter side padded with blank rows, so the regions stand level.
// Below, the merged text as it would be saved, unresolved conflicts between
// their markers.  Colours say where lines come from: LOCAL the insert
// colour, REMOTE the replace colour, a conflict the delete colour.  In a
// region a side changed, like LOCAL and REMOTE lines stand level and the
// changed words have a light shade of that colour (VnChangedWords.h).
//
// The Merge menu resolves the current conflict (the one the caret is on,
// else the one last gone to) and refills the panes; File > Save writes the
// merged file whole.  Exit status: 0 saved with no conflict left, 1 not
// saved or saved with conflicts, 2 trouble.
#ifndef VN_HOSTS_VNMERGE_VNMERGEFRAME_H
#define VN_HOSTS_VNMERGE_VNMERGEFRAME_H

#include "compare/VnDifferenceBlocks.h"
#include "compare/VnMerge.h"
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"

#include <memory>
#include <vector>

// Where each region stands: its first row and row count above and below.
struct CVnMergeLayout {
  std::vector<long> m_top, m_topCount, m_merged, m_mergedCount;
  // The row in the other arrangement that shows the same region; fromMerged
  // says which arrangement row belongs to.
  long Map(long row, bool fromMerged) const;
};

// The outer splitter: the merged pane has its own rows, so it follows the
// panes above region by region instead of line by line.
class CVnMergeSplitterWnd : public CVnRichEditSplitterWnd {
public:
  const CVnMergeLayout* m_pLayout = nullptr;
  int GetSyncLine(CVnPaneWnd* pane, CVnPaneWnd* origin, int line) override;
};

class CVnMergeFrame : public CVnReconcileFrame {
public:
  // status is where the exit status is kept: the frame deletes itself
  // when its window goes, and saving changes the status.
  CVnMergeFrame(const CString& base, const CString& local, const CString& remote, const CString& merged,
                int& status);

  BOOL CreateFrame();
  int GetExitStatus() const { return m_nExitStatus; }

protected:
  int CanFind() override { return m_pMerge != nullptr; }
  int SetupStatusBar() override;
  int SetupToolBar() override;
  int DoDiff() override;
  int DoDisplay() override;
  void Redisplay() override;

  int OnCreate(LPCREATESTRUCTW create);
  void OnNextConflict();
  void OnPreviousConflict();
  void OnFirstConflict();
  void OnLastConflict();
  void OnUpdateNextConflict(CCmdUI* cmdUI);
  void OnUpdatePreviousConflict(CCmdUI* cmdUI);
  void OnTake(UINT id);
  void OnUpdateTake(CCmdUI* cmdUI);
  void OnSave();
  void OnUpdatePosition(CCmdUI* cmdUI);
  void OnUpdateConflicts(CCmdUI* cmdUI);
  void OnAbout();
  void OnExit();
  void OnToolsOptions();

  DECLARE_MESSAGE_MAP()

private:
  CVnPaneWnd* Pane(int k) const;  // 0 LOCAL, 1 REMOTE, 2 merged
  bool FocusIsMerged() const;
  long CurrentRow() const;
  int CurrentConflict() const;
  void GoToConflict(int conflict);
  void Show();
  void Fill();

  CString m_strBase, m_strLocal, m_strRemote, m_strMerged;
  CVnMergeSplitterWnd m_wndSplitter;
  CVnRichEditSplitterWnd m_wndTop;
  std::unique_ptr<CVnMerge> m_pMerge;
  CVnMergeMarkers m_markers;
  CVnMergeLayout m_layout;
  std::vector<size_t> m_conflicts;  // indexes of the conflict regions
  std::vector<CVnRowBlock> m_topBlocks, m_mergedBlocks;
  int m_nConflict = -1;
  int& m_nExitStatus;
};

// Why MERGED can't be written, or empty: its directory must exist and take
// a new file.
CString VnWhyNotWritable(const CString& path);

#endif  // VN_HOSTS_VNMERGE_VNMERGEFRAME_H
