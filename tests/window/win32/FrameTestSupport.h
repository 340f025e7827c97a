// FrameTestSupport.h - a comparison frame as a host makes it, for the
// frame's own tests: a hidden top-level frame whose host operations answer
// as scripted and note in one log what the frame asked of them, with a
// splitter of two real panes, the left of which notes the option messages it
// receives; and an application whose registry key is a test-only key under
// HKCU that each test starts and ends without.
#ifndef VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H
#define VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneWnd.h"
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vn {
namespace test {

constexpr UINT kFind = 0x8101, kFindNext = 0x8102, kCopy = 0x8103, kPosition = 0x8104;
constexpr const wchar_t* kTestKey = L"Software\\VnReconcileTests\\Frame";

class FrameTestApp : public CWinApp {
public:
  FrameTestApp() { Clear(), SetRegistryKey(kTestKey); }
  ~FrameTestApp() override { Clear(); }
  static void Clear() { ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnReconcileTests"); }
};

inline void PutDword(const wchar_t* section, const wchar_t* name, DWORD value) {
  std::wstring path = std::wstring(kTestKey) + L"\\" + section;
  ASSERT_EQ(ERROR_SUCCESS, ::RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name, REG_DWORD, &value, 4));
}

// The stored value; 0xDEADBEEF when there is none.
inline DWORD GetDword(const wchar_t* section, const wchar_t* name) {
  std::wstring path = std::wstring(kTestKey) + L"\\" + section;
  DWORD value = 0xDEADBEEF, size = sizeof(value);
  ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
  return value;
}

// The left pane notes "font HEIGHT FACE", "tabs SIZE HEIGHT" and "resize 0"
// or "resize w" (a width) in its frame's log.
class LoggingPaneWnd : public CVnPaneWnd {
  DECLARE_DYNCREATE(LoggingPaneWnd)
protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// What the host's operations give.
struct FrameScript {
  int status = 1, tool = 1, diff = 1, display = 7;
};

class TestFrame : public CVnReconcileFrame {
public:
  explicit TestFrame(FrameScript script = FrameScript()) : m_script(script) { m_bAutoDelete = FALSE; }
  ~TestFrame() override {
    if (m_hWnd)
      DestroyWindow();
  }

  // The frame and its bars, hidden; with a client, the splitter and panes.
  BOOL Make(bool client = true) {
    if (!Create(nullptr, L"frame test", WS_OVERLAPPEDWINDOW, CRect(10, 10, 610, 410)))
      return FALSE;
    if (client) {
      EXPECT_TRUE(m_splitter.CreateStatic(this, 1, 2));
      for (int c = 0; c < 2; ++c)
        EXPECT_TRUE(m_splitter.CreateView(0, c, RUNTIME_CLASS(LoggingPaneWnd), SIZE{280, 200}));
      m_pSplitterWnd = &m_splitter;
      EXPECT_TRUE(m_splitter.CreateInternalPanes());
      RecalcLayout();
    }
    return TRUE;
  }
  CVnPaneWnd* Pane(int column) { return static_cast<CVnPaneWnd*>(m_splitter.GetPane(0, column)); }
  CVnTextPane* Text(int column) { return Pane(column)->GetTextPane(); }

  using CVnReconcileFrame::CopyToTemp;
  const WINDOWPLACEMENT& Placement() const { return m_WindowPlacement; }
  const CArray<CString, const CString&>& TempNames() const { return m_TempFiles.GetNames(); }

  void GetOptionsFromRegistry() override { Note("read"), CVnReconcileFrame::GetOptionsFromRegistry(); }
  void SaveOptionsIntoRegistry() override { Note("save"), CVnReconcileFrame::SaveOptionsIntoRegistry(); }
  void Redisplay() override { Note("redisplay"); }
  void Recompare() override { Note("recompare"); }
  void ReopenFiles() override { Note("reopen"); }
  using CVnReconcileFrame::m_bIgnoreCase;
  using CVnReconcileFrame::m_bIgnoreWhiteSpace;
  using CVnReconcileFrame::m_bEditMergedFile;
  using CVnReconcileFrame::m_strEditor;
  void Note(const std::string& what) { m_log.push_back(what); }

  std::vector<std::string> m_log, m_setups;  // m_setups: the bar setups OnCreate ran
  CRect m_rectAtDisplay;                     // where the window stood in DoDisplay
  bool m_statusBarFirst = false;             // SetupStatusBar saw no toolbar window
  DWORD m_barStyleAtSetup = 0;               // the toolbar's bar style in SetupToolBar

protected:
  int SetupStatusBar() override {
    m_setups.push_back("status");
    m_statusBarFirst = m_wndStatusBar.m_hWnd && !m_wndToolBar.m_hWnd;
    const UINT parts[] = {ID_SEPARATOR, ID_SEPARATOR};
    m_wndStatusBar.SetIndicators(parts, 2);
    m_wndStatusBar.SetPaneInfo(1, kPosition, SBPS_NORMAL, 120);
    return m_script.status;
  }
  int SetupToolBar() override {
    m_setups.push_back("tool");
    m_barStyleAtSetup = m_wndToolBar.GetBarStyle();
    return m_script.tool;
  }
  int DoDiff() override { return Note("diff"), m_script.diff; }
  int DoDisplay() override { return Note("display"), GetWindowRect(&m_rectAtDisplay), m_script.display; }
  int CanFind() override { return 1; }
  void OnUpdatePosition(CCmdUI* cmdUI) {
    CString format = L"Ln %d, Col %d";
    UpdateIndicatorPosition(cmdUI, format);
  }
  DECLARE_MESSAGE_MAP()

private:
  FrameScript m_script;
  CVnRichEditSplitterWnd m_splitter;
};

inline void ShowAndActivate(CWnd& frame) {
  frame.ShowWindow(SW_SHOWNORMAL);
  ::SetForegroundWindow(frame.m_hWnd);
  ::SetActiveWindow(frame.m_hWnd);
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H
