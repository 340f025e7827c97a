// FrameTestSupport.h - a comparison frame as a host would make it, for the
// frame's own tests: a hidden top-level CVnReconcileFrame whose pure
// operations answer as scripted and write what the frame asks of them into
// one log, with a splitter of two real panes, the left of which logs the
// font, tab stop and resize messages it receives; and an application object
// whose registry key is a test-only key under HKCU, deleted at the end.
#ifndef VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H
#define VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"
#include "window/VnPaneMessages.h"
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

// The application of one test: its options live below kTestKey, which the
// test starts without and leaves without.
class FrameTestApp : public CWinApp {
public:
  static constexpr const wchar_t* kTestKey = L"Software\\VnReconcileTests\\Frame";
  FrameTestApp() {
    Clear();
    SetRegistryKey(kTestKey);
  }
  ~FrameTestApp() override { Clear(); }
  static void Clear() { ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VnReconcileTests"); }
};

inline void PutDword(const wchar_t* section, const wchar_t* name, DWORD value) {
  HKEY key = nullptr;
  std::wstring path = std::wstring(FrameTestApp::kTestKey) + L"\\" + section;
  ASSERT_EQ(ERROR_SUCCESS, ::RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                                             nullptr, &key, nullptr));
  ::RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value));
  ::RegCloseKey(key);
}

// The stored value, or missing when there is none.
inline DWORD GetDword(const wchar_t* section, const wchar_t* name, DWORD missing = 0xDEADBEEF) {
  std::wstring path = std::wstring(FrameTestApp::kTestKey) + L"\\" + section;
  DWORD value = 0, size = sizeof(value);
  LONG got = ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name, RRF_RT_REG_DWORD, nullptr, &value, &size);
  return got == ERROR_SUCCESS ? value : missing;
}

class TestFrame;

// A real pane that notes, when it is the left one, the messages by which the
// frame's options reach it: "font HEIGHT FACE", "tabs SIZE HEIGHT", and
// "resize 0" or "resize w" (some width).
class LoggingPaneWnd : public CVnPaneWnd {
  DECLARE_DYNCREATE(LoggingPaneWnd)
protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// What the host's operations give.
struct FrameScript {
  int status = 1, tool = 1, diff = 1, display = 7, canFind = 1;
};

class TestFrame : public CVnReconcileFrame {
public:
  explicit TestFrame(FrameScript script = FrameScript()) : m_script(script) { m_bAutoDelete = FALSE; }
  ~TestFrame() override {
    if (m_hWnd)
      DestroyWindow();
  }

  // A hidden frame with its bars; with a client, the splitter of two panes.
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
  using CVnReconcileFrame::OnCreate;
  CVnDisplayOptions& Options() { return m_DisplayOptions; }
  const WINDOWPLACEMENT& Placement() const { return m_WindowPlacement; }
  const CArray<CString, const CString&>& TempNames() const { return m_TempFiles.GetNames(); }

  void GetOptionsFromRegistry() override {
    m_log.push_back("read");
    CVnReconcileFrame::GetOptionsFromRegistry();
  }
  void SaveOptionsIntoRegistry() override {
    m_log.push_back("save");
    CVnReconcileFrame::SaveOptionsIntoRegistry();
  }
  void Redisplay() override { m_log.push_back("redisplay"); }

  std::vector<std::string> m_log;
  std::vector<std::string> m_setups;  // the bar setups OnCreate ran
  CRect m_rectAtDisplay;           // where the window stood when DoDisplay ran
  bool m_statusBarFirst = false;   // SetupStatusBar ran with only the status bar made
  DWORD m_barStyleAtSetup = ~0u;   // the toolbar's bar style when SetupToolBar ran
  CString m_format = L"Ln %d, Col %d";

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
    m_barStyleAtSetup = m_wndToolBar.m_hWnd ? m_wndToolBar.GetBarStyle() : ~0u;
    return m_script.tool;
  }
  int DoDiff() override {
    m_log.push_back("diff");
    return m_script.diff;
  }
  int DoDisplay() override {
    m_log.push_back("display");
    GetWindowRect(&m_rectAtDisplay);
    return m_script.display;
  }
  int CanFind() override { return m_script.canFind; }

  void OnUpdatePosition(CCmdUI* cmdUI) { UpdateIndicatorPosition(cmdUI, m_format); }
  DECLARE_MESSAGE_MAP()

private:
  FrameScript m_script;
  CVnRichEditSplitterWnd m_splitter;
};

// Makes the frame the active window, shown where it stands.
inline void ShowAndActivate(CWnd& frame) {
  frame.ShowWindow(SW_SHOWNORMAL);
  ::SetForegroundWindow(frame.m_hWnd);
  ::SetActiveWindow(frame.m_hWnd);
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_FRAMETESTSUPPORT_H
