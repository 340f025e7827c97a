// SplitterTestSupport.h - comparison panes in a CVnRichEditSplitterWnd, in
// either arrangement, in a frame in the shown host window: two panes side by side,
// or a nested splitter of two panes above a third (the merge layout).  The
// readings the tests compare: each pane's first visible line in its text
// and its number column, and the shared bars' positions.
#ifndef VN_TESTS_WINDOW_WIN32_SPLITTERTESTSUPPORT_H
#define VN_TESTS_WINDOW_WIN32_SPLITTERTESTSUPPORT_H

#include "PaneTestSupport.h"

#include "window/VnLineNumPane.h"
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

#include <string>
#include <vector>

namespace vn {
namespace test {

// The least frame a host derives: no bars to fill, no comparison of its
// own.  It holds the top splitter, as a host's frame does, so the panes
// below find it and their synchronisation reaches the splitter.
class SplitterFrame : public CVnReconcileFrame {
public:
  void HoldSplitter(CVnRichEditSplitterWnd* splitter) { m_pSplitterWnd = splitter; }
  int CanFind() override { return 1; }

protected:
  int SetupStatusBar() override { return 1; }
  int SetupToolBar() override { return 1; }
  int DoDiff() override { return 1; }
  int DoDisplay() override { return 1; }
};

// Rows "<prefix> <n> ...", the row number padded to a long line so that
// the text can scroll sideways.
inline std::wstring NumberedRows(int count, const wchar_t* prefix, int width = 300) {
  std::wstring text;
  for (int n = 1; n <= count; ++n) {
    std::wstring row = std::wstring(prefix) + L" " + std::to_wstring(n) + L" ";
    row.resize(static_cast<size_t>(width), L'.');
    text += row + (n < count ? L"\r\n" : L"");
  }
  return text;
}

class SplitterWindows {
public:
  enum Arrangement { SideBySide, Merge };

  explicit SplitterWindows(Arrangement arrangement, int width = 900, int height = 480) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    EXPECT_TRUE(m_frame.Create(nullptr, L"", style, RECT{0, 0, width, height}, &HostWindow()));
    CWnd* parent = &m_frame;
    if (arrangement == SideBySide) {
      EXPECT_TRUE(m_top.CreateStatic(parent, 1, 2, style | WS_HSCROLL | WS_VSCROLL));
      MakePane(m_top, 0, 0, width / 2, height);
      MakePane(m_top, 0, 1, width / 2, height);
    } else {
      EXPECT_TRUE(m_top.CreateStatic(parent, 2, 1, style | WS_HSCROLL | WS_VSCROLL));
      EXPECT_TRUE(m_nested.CreateStatic(&m_top, 1, 2, style, static_cast<UINT>(m_top.IdFromRowCol(0, 0))));
      MakePane(m_nested, 0, 0, width / 2, height / 2);
      MakePane(m_nested, 0, 1, width / 2, height / 2);
      MakePane(m_top, 1, 0, width, height / 2);
    }
    m_frame.HoldSplitter(&m_top);
    m_frame.RecalcLayout();
  }

  CVnRichEditSplitterWnd& Top() { return m_top; }
  CVnRichEditSplitterWnd& Nested() { return m_nested; }
  SplitterFrame& Frame() { return m_frame; }
  // Row by row, column by column, nested panes where the nested splitter is.
  const std::vector<CVnPaneWnd*>& Panes() const { return m_panes; }
  CVnPaneWnd& Pane(size_t k) { return *m_panes[k]; }

  // Each pane gets its terminator and text, the number columns a width, the bars their
  // ranges: what a host does once the panes are filled.
  void Fill(const std::vector<std::wstring>& texts) {
    const CHARFORMATW& format = m_panes[0]->GetDefaultCharFormat();
    for (size_t k = 0; k < m_panes.size(); ++k) {
      std::wstring text = texts[k < texts.size() ? k : texts.size() - 1];
      m_panes[k]->SetLineTerminator(GetLineTerminator(nullptr, 0));
      m_panes[k]->SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]),
                                 static_cast<int>(text.size() * sizeof(wchar_t)), format);
    }
    Rewind();
    m_top.ResizeInternalPanes(m_top.GetLineNumWidth(format, 1));
    m_top.SetupVScrollBars();
    m_top.SetupHScrollBars();
    PumpMessages();
  }

  // The caret to the start of every text and number column.  Filling leaves
  // it at the end, where the control scrolled to show it: a scroll position
  // between two lines, which scrolling by lines keeps (docs/synchronised-panes.md).
  void Rewind() {
    for (CVnPaneWnd* pane : m_panes) {
      pane->GetTextPane()->SetSel(0, 0);
      pane->GetLineNumPane()->SetSel(0, 0);
    }
  }

  HWND Bar(UINT id) { return ::GetDlgItem(m_top, static_cast<int>(id)); }
  int BarPos(UINT id) { return static_cast<int>(::SendMessageW(Bar(id), SBM_GETPOS, 0, 0)); }
  int BarMax(UINT id) {
    int min = 0, max = 0;
    ::SendMessageW(Bar(id), SBM_GETRANGE, reinterpret_cast<WPARAM>(&min), reinterpret_cast<LPARAM>(&max));
    return max;
  }
  // A scroll message from one of the top splitter's bars, as the bar sends it.
  void Scroll(UINT message, UINT barId, UINT code, UINT pos = 0) {
    m_top.SendMessage(message, MAKEWPARAM(code, pos), reinterpret_cast<LPARAM>(Bar(barId)));
  }
  int TextLine(size_t k) { return m_panes[k]->GetTextPane()->GetFirstVisibleLine(); }
  int NumberLine(size_t k) { return m_panes[k]->GetLineNumPane()->GetFirstVisibleLine(); }
  int Column(size_t k) { return m_panes[k]->GetTextPane()->GetFirstVisibleChar(); }
  // Where the text pane shows its first character, in its client area.
  int FirstCharX(size_t k) { return m_panes[k]->GetTextPane()->PosFromChar(0).x; }

private:
  void MakePane(CVnRichEditSplitterWnd& splitter, int row, int col, int width, int height) {
    EXPECT_TRUE(splitter.CreateView(row, col, RUNTIME_CLASS(CVnPaneWnd), SIZE{width, height}));
    CVnPaneWnd* pane = static_cast<CVnPaneWnd*>(splitter.GetPane(row, col));
    pane->SetDisplayOptions(FixedPitchOptions());
    m_panes.push_back(pane);
  }

  SplitterFrame m_frame;  // made before, and destroyed after, the splitters in it
  CVnRichEditSplitterWnd m_top;
  CVnRichEditSplitterWnd m_nested;
  std::vector<CVnPaneWnd*> m_panes;  // deleted by the splitters as their windows go
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_SPLITTERTESTSUPPORT_H
