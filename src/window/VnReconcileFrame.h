// VnReconcileFrame.h - the main window of a comparison, which every host
// derives from.
//
// The frame owns what all hosts share: status bar and flat toolbar, the
// display options with the three formats of changed lines, the temporary
// files it made, and the order of one comparison:
//
//   DiffAndDisplay:  GetOptionsFromRegistry -> DoDiff -> place the window
//                    -> DoDisplay
//
// so the window takes its stored place only after a comparison succeeded,
// and before the panes are filled.  The host supplies the pure operations:
// its status bar indicators and toolbar (SetupStatusBar, SetupToolBar), the
// comparison (DoDiff), the filling of the panes (DoDisplay), whether Find
// may run (CanFind); and it fills Redisplay, Recompare and ReopenFiles,
// which option and encoding changes call.  The host builds the client area
// with a CVnRichEditSplitterWnd and sets the splitter pointer before the
// frame can be deactivated; the frame never deletes the splitter.
//
// Copy and Find go to the text pane that has the focus (a CVnTextPane
// child of this frame); the host's message map binds OnEditCopy, OnFind,
// OnFindNext and their update handlers to its own command identifiers.
//
// Options persist in the registry below the application's registry key,
// sections "Display", "DisplayOptions", "ColorOptions" and "MergeOptions": read at the start
// of DiffAndDisplay, written in OnClose when the window is visible.
#ifndef VN_WINDOW_VNRECONCILEFRAME_H
#define VN_WINDOW_VNRECONCILEFRAME_H

#include "afx/win32/CFrameWnd.h"
#include "options/VnDisplayOptions.h"
#include "toolkit/CFlatToolBar.h"
#include "window/VnReconcileStatusBar.h"
#include "window/VnTempFilesManager.h"

class CVnDiffFile;
class CVnRichEditSplitterWnd;
class CVnTextPane;

class VN_API CVnReconcileFrame : public CFrameWnd {
  DECLARE_DYNAMIC(CVnReconcileFrame)
public:
  CVnRichEditSplitterWnd* GetSplitterWnd() const { return m_pSplitterWnd; }
  const CVnDisplayOptions& GetDisplayOptions() const { return m_DisplayOptions; }
  const CHARFORMATW& GetDefaultCharFormat() const { return m_DisplayOptions.GetCharFormat(); }
  const CHARFORMATW& GetReplaceCharFormat() const { return m_cfReplace; }
  const CHARFORMATW& GetDeleteCharFormat() const { return m_cfDelete; }
  const CHARFORMATW& GetInsertCharFormat() const { return m_cfInsert; }
  CVnReconcileStatusBar& GetStatusBar() { return m_wndStatusBar; }
  CFlatToolBar& GetToolBar() { return m_wndToolBar; }

  virtual int CanFind() = 0;
  // The order of one comparison (see the file comment).  0 when DoDiff
  // gave 0; else what DoDisplay gave.
  virtual int DiffAndDisplay();

  // Option persistence and application (VnFramePersistenceWin32.cpp).
  virtual void SaveOptionsIntoRegistry();
  virtual void GetOptionsFromRegistry();
  void ApplyDisplayOptions(const CVnDisplayOptions& options, int force);
  void SetColors(unsigned long defaultColor, unsigned long replaceColor, unsigned long insertColor,
                 unsigned long deleteColor, bool guard);

  // The option sheet (VnFrameOptionsWin32.cpp); reduced: Display and Color
  // only, for a window without comparison settings.
  void OnOptions(int reduced);
  // The File Encoding dialog on the two files; a changed choice calls
  // ReopenFiles.
  void OnEncoding(CVnDiffFile& file1, CVnDiffFile& file2);

  virtual void Redisplay() {}
  virtual void Recompare() {}
  virtual void ReopenFiles() {}

  void SetInitialFocus(bool secondRow);
  // After the panes are filled: hands the font, tab size and number column
  // to the splitter, sets up its bars and goes to the top.
  void ArrangePanes();
  // Enables the indicator while a text pane has the focus, and shows its
  // caret's line and column, 1-based, through format (two %d or %ld).
  void UpdateIndicatorPosition(CCmdUI* cmdUI, CString& format);

protected:
  CVnReconcileFrame();
  ~CVnReconcileFrame() override;

  virtual int SetupStatusBar() = 0;
  virtual int SetupToolBar() = 0;
  virtual int DoDiff() = 0;
  virtual int DoDisplay() = 0;

  int OnCreate(LPCREATESTRUCTW create);
  void OnClose() override;
  void OnActivate(UINT state, CWnd* other, BOOL minimized);
  void OnSysColorChange();

  void OnEditCopy();
  void OnFind();
  void OnFindNext();
  void OnUpdateEditCopy(CCmdUI* cmdUI);
  void OnUpdateFind(CCmdUI* cmdUI);

  void RememberThisTempFileName(const CString& name) { m_TempFiles.AddNewTempFileName(name); }
  void DeleteThisTempFile(const CString& name) { m_TempFiles.DeleteThisTempFile(name); }
  void DeleteAllTempFiles() { m_TempFiles.DeleteAllTempFiles(); }
  // Replaces path by the name of a private, writable copy; false (path
  // unchanged, nothing left behind) when no name or no copy could be made.
  bool CopyToTemp(CString& path);

  // The text pane of this frame that has the focus, or null.
  CVnTextPane* GetFocusedTextPane() const;

  CVnRichEditSplitterWnd* m_pSplitterWnd;
  CVnReconcileStatusBar m_wndStatusBar;
  CFlatToolBar m_wndToolBar;
  WINDOWPLACEMENT m_WindowPlacement;
  CWnd* m_pLastActivePane;
  CVnDisplayOptions m_DisplayOptions;
  CHARFORMATW m_cfReplace;
  CHARFORMATW m_cfDelete;
  CHARFORMATW m_cfInsert;
  int m_bIgnoreCase;
  int m_bIgnoreWhiteSpace;
  int m_bEditMergedFile;
  CString m_strEditor;
  CVnTempFilesManager m_TempFiles;

  DECLARE_MESSAGE_MAP()

private:
  void ResizeLineNumbers(const CVnDisplayOptions& options);
};

#endif  // VN_WINDOW_VNRECONCILEFRAME_H
