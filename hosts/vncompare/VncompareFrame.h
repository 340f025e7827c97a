// VncompareFrame.h - the compare tool's window: two files side by side.
//
// DoDiff runs the library's comparison of the two files; DoDisplay shows it
// in the two panes of a splitter (CVnComparisonView) and goes to the first
// difference.  The toolbar, menus and keys step through the differences,
// which are selected in both panes at once.  The exit status of the tool
// follows the comparison: 0 same, 1 different, 2 trouble.
#ifndef VN_HOSTS_VNCOMPARE_VNCOMPAREFRAME_H
#define VN_HOSTS_VNCOMPARE_VNCOMPAREFRAME_H

#include "compare/VnComparison.h"
#include "window/VnComparisonView.h"
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"

#include <memory>

class CVnCompareFrame : public CVnReconcileFrame {
public:
  CVnCompareFrame(const CString& source, const CString& target, const CVnCompareOptions& options,
                  bool differencesOnly);

  // Makes the window (hidden until DiffAndDisplay places it).
  BOOL CreateFrame();
  // Asks for two files through the Open dialog, as many times as it takes;
  // false on Cancel.
  static bool AskForFiles(CString& source, CString& target);
  int GetExitStatus() const { return m_nExitStatus; }

protected:
  int CanFind() override { return m_pComparison != nullptr; }
  int SetupStatusBar() override;
  int SetupToolBar() override;
  int DoDiff() override;
  int DoDisplay() override;
  void Redisplay() override;
  void Recompare() override;
  void ReopenFiles() override;

  int OnCreate(LPCREATESTRUCTW create);
  void OnNextDiff();
  void OnPreviousDiff();
  void OnFirstDiff();
  void OnLastDiff();
  void OnUpdateNextDiff(CCmdUI* cmdUI);
  void OnUpdatePreviousDiff(CCmdUI* cmdUI);
  void OnDifferencesOnly();
  void OnUpdateDifferencesOnly(CCmdUI* cmdUI);
  void OnUpdatePosition(CCmdUI* cmdUI);
  void OnUpdateDifferences(CCmdUI* cmdUI);
  void OnPrint();
  void OnAbout();
  void OnExit();
  void OnOpen();
  void OnToolsOptions();
  void OnToolsEncoding();
  void OnUpdateHasComparison(CCmdUI* cmdUI);

  DECLARE_MESSAGE_MAP()

private:
  CVnPaneWnd* Pane(int column) const;
  long CurrentRow() const;
  void GoToBlock(int block);
  void Show();

  CString m_strSource, m_strTarget;
  CVnCompareOptions m_options;
  CVnRichEditSplitterWnd m_wndSplitter;
  std::unique_ptr<CVnComparison> m_pComparison;
  CVnComparisonView m_view;
  int m_nBlock = -1;
  int m_nExitStatus = 2;
};

#endif  // VN_HOSTS_VNCOMPARE_VNCOMPAREFRAME_H
