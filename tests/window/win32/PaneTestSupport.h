// PaneTestSupport.h - real rich edit panes for the window tests: a
// CVnPaneWnd (or a plain window) with a CVnRichEditPane in it, inside one
// shown top-level window, and the readings the tests compare: the lines as
// one string ("a|b||c": rows joined by '|'), a line's colour and strike-out,
// the selection.
#ifndef VN_TESTS_WINDOW_WIN32_PANETESTSUPPORT_H
#define VN_TESTS_WINDOW_WIN32_PANETESTSUPPORT_H

#include "afx/win32/CWnd.h"
#include "compare/VnComparison.h"
#include "engine/VnDiffArg.h"
#include "options/VnDisplayOptions.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneWnd.h"
#include "window/VnRichEditPane.h"
#include "window/VnTextPane.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace vn {
namespace test {

// The style the pane gives its children: no scroll bars of their own.
constexpr DWORD kPaneChildStyle = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN;

inline void PumpMessages() {
  MSG msg;
  while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&msg);
    ::DispatchMessageW(&msg);
  }
}

// Every row of the control, read through GetPaneLine, joined by '|'.
inline std::wstring Rows(CVnRichEditPane& edit) {
  std::wstring rows;
  int count = edit.GetLineCount();
  for (int line = 0; line < count; ++line) {
    CString text;
    edit.GetPaneLine(line, text);
    if (line)
      rows += L'|';
    rows += text.GetString();
  }
  return rows;
}

// "a|b|c" as the control's text, lines ended by CR LF.
inline std::wstring Text(std::wstring rows) {
  for (size_t at; (at = rows.find(L'|')) != std::wstring::npos;)
    rows.replace(at, 1, L"\r\n");
  return rows;
}

// The rows prefix+first, prefix+(first+1), ... joined by '|'.
inline std::wstring CountedRows(int count, const wchar_t* prefix = L"", int first = 1) {
  std::wstring rows;
  for (int k = first; k < first + count; ++k)
    rows += (k > first ? L"|" : L"") + (prefix + std::to_wstring(k));
  return rows;
}

struct LineFormat {
  bool uniformColor;
  COLORREF color;
  bool struck;
};

// The format of a 1-based line, read through GetLineCharFormat.
inline LineFormat FormatOfLine(CVnRichEditPane& edit, int line) {
  CHARFORMATW cf = {};
  edit.GetLineCharFormat(line, cf);
  return {(cf.dwMask & CFM_COLOR) != 0, cf.crTextColor, (cf.dwEffects & CFE_STRIKEOUT) != 0};
}

// The format of the characters [start, end).
inline LineFormat FormatOfRange(CVnRichEditPane& edit, long start, long end) {
  edit.SetSel(start, end);
  CHARFORMATW cf = {};
  edit.GetSelectionCharFormat(cf);
  return {(cf.dwMask & CFM_COLOR) != 0, cf.crTextColor, (cf.dwEffects & CFE_STRIKEOUT) != 0};
}

inline CHARFORMATW ColorFormat(COLORREF color, bool strike = false) {
  CHARFORMATW cf = {};
  cf.cbSize = sizeof(cf);
  cf.dwMask = CFM_COLOR | CFM_STRIKEOUT;
  cf.dwEffects = strike ? CFE_STRIKEOUT : 0;
  cf.crTextColor = color;
  return cf;
}

// A face that the system draws in fixed pitch, for measurements by
// character widths: the default face if it is installed, else one of the
// faces metric-compatible with it.
inline const wchar_t* FixedPitchFace() {
  static const wchar_t* face = [] {
    HDC dc = ::GetDC(nullptr);
    const wchar_t* found = nullptr;
    for (const wchar_t* candidate : {L"Courier New", L"Liberation Mono", L"DejaVu Sans Mono"}) {
      HGDIOBJ old = ::SelectObject(dc, ::CreateFontW(-12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, candidate));
      wchar_t given[LF_FACESIZE] = {};
      ::GetTextFaceW(dc, LF_FACESIZE, given);
      TEXTMETRICW tm = {};
      ::GetTextMetricsW(dc, &tm);
      ::DeleteObject(::SelectObject(dc, old));
      // TMPF_FIXED_PITCH set means variable pitch.
      if (!found && ::lstrcmpiW(given, candidate) == 0 && !(tm.tmPitchAndFamily & TMPF_FIXED_PITCH))
        found = candidate;
    }
    ::ReleaseDC(nullptr, dc);
    return found ? found : L"Courier New";
  }();
  return face;
}

// The default display options in a fixed-pitch face.
inline CVnDisplayOptions FixedPitchOptions() {
  CVnDisplayOptions options;
  CHARFORMATW cf = options.GetCharFormat();
  ::lstrcpynW(cf.szFaceName, FixedPitchFace(), LF_FACESIZE);
  options.SetCharFormat(cf);
  return options;
}

// The one shown top-level window that every test puts its windows in.  It
// lives as long as the process: a top-level window that is shown costs
// seconds to destroy under Wine without a window manager, its children
// don't.
inline CWnd& HostWindow() {
  static CWnd* host = [] {
    CWnd* wnd = new CWnd;
    RECT frame = {20, 20, 1220, 760};
    EXPECT_TRUE(wnd->CreateEx(0, nullptr, L"window tests", WS_POPUP | WS_BORDER | WS_CLIPCHILDREN, frame, nullptr, 0));
    wnd->ShowWindow(SW_SHOW);
    ::SetForegroundWindow(*wnd);
    return wnd;
  }();
  return *host;
}

// A pane window (or a plain window) in the host window, with a pane inside;
// both classes may be test doubles that watch messages.
template <class EditT, class PaneT = CVnPaneWnd>
class BasicPaneWindows {
public:
  explicit BasicPaneWindows(bool insidePane = true, int width = 520, int height = 300, CWnd* parent = nullptr,
                            int left = 0) {
    RECT outer = {left, 0, left + width, height}, inner = {0, 0, width, height};
    CWnd& holder = insidePane ? static_cast<CWnd&>(m_pane) : m_plain;
    EXPECT_TRUE(holder.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, outer,
                                parent ? parent : &HostWindow(), 1));
    EXPECT_TRUE(m_edit.Create(kPaneChildStyle, inner, &holder, 2));
    m_pane.SetDisplayOptions(FixedPitchOptions());
    PumpMessages();
  }

  EditT& Edit() { return m_edit; }
  PaneT& Pane() { return m_pane; }

  // Fills the control, lines ended by CR LF, in the pane's default format;
  // a terminator given becomes the pane window's.
  void Fill(const std::wstring& rows, const wchar_t* terminator = nullptr) {
    if (terminator)
      m_pane.SetLineTerminator(terminator);
    m_edit.SetWindowText(Text(rows).c_str());
    CHARFORMATW cf = m_pane.GetDefaultCharFormat();
    m_edit.SetDefaultCharFormat(cf);
  }

private:
  PaneT m_pane;
  CWnd m_plain;
  EditT m_edit;
};

using PaneWindows = BasicPaneWindows<CVnRichEditPane>;

// A pane that records the arguments of the messages of one kind it receives.
class RecordingPane : public CVnRichEditPane {
public:
  UINT m_watch = 0;
  std::vector<std::pair<WPARAM, LPARAM>> m_seen;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == m_watch)
      m_seen.emplace_back(wParam, lParam);
    return CVnRichEditPane::WindowProc(message, wParam, lParam);
  }
};

// A CVnPaneWnd of the component's own making (caption, text pane, number
// column), in the host window, measuring in a fixed-pitch face.
template <class PaneT = CVnPaneWnd>
struct HostedPane {
  explicit HostedPane(int width = 520, int height = 300, UINT id = 100, CWnd* parent = nullptr) {
    pane.SetDisplayOptions(FixedPitchOptions());
    RECT rect = {0, 0, width, height};
    EXPECT_TRUE(pane.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rect,
                              parent ? parent : &HostWindow(), id));
    pane.SetLineTerminator(L"\r\n");
    PumpMessages();
  }
  // "a|b|c" as the intake's buffer: 16-bit text, lines ended by CR LF.
  void Load(const std::wstring& rows) {
    std::wstring text = Text(rows);
    pane.SetDefaultText(reinterpret_cast<unsigned char*>(&text[0]), static_cast<int>(text.size() * sizeof(wchar_t)),
                        pane.GetDefaultCharFormat());
  }
  CVnTextPane& TextPane() { return *pane.GetTextPane(); }
  CVnLineNumPane& Numbers() { return *pane.GetLineNumPane(); }
  PaneT pane;
};

// Where a child window stands in its parent's client area.
inline CRect PlaceInParent(HWND child) {
  CRect rect;
  ::GetWindowRect(child, &rect);
  ::MapWindowPoints(nullptr, ::GetParent(child), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

inline std::pair<long, long> Selection(CRichEditCtrl& edit) {
  long start = 0, end = 0;
  edit.GetSel(start, end);
  return {start, end};
}

// The host's walk over the records of Compare, on two panes holding the
// files (rich edit panes or pane windows): each record colours its lines on
// the side(s) it has in the default replace, delete or insert format, and
// pads the shorter side below them with blank rows; where an insertion or a
// deletion falls on the other side comes from the comparison's spans.
// Gives each side's rows up to its last line: the 1-based line shown there,
// 0 for padding.
template <class Pane>
std::array<std::vector<int>, 2> AlignAsAHost(Pane* (&panes)[2], const CVnDiffChangeList& changes,
                                             const long (&lineCounts)[2]) {
  CVnOptionState formats;
  std::array<std::vector<int>, 2> rows;
  const std::vector<CVnChangeSpan> spans = VnChangeSpans(changes, false);
  EXPECT_EQ(static_cast<size_t>(changes.GetSize()), spans.size());
  long done[2] = {0, 0};
  for (size_t k = 0; k < spans.size(); ++k) {
    const CVnDiffChange::Action action = changes[static_cast<INT_PTR>(k)]->GetAction();
    const long start[2] = {spans[k].m_nSourceBegin, spans[k].m_nTargetBegin};
    const long count[2] = {spans[k].m_nSourceCount, spans[k].m_nTargetCount};
    const CHARFORMATW* format[2] = {&formats.GetReplaceCharFormat(), &formats.GetReplaceCharFormat()};
    if (action == CVnDiffChange::Delete)
      format[0] = &formats.GetDeleteCharFormat();
    if (action == CVnDiffChange::Insert)
      format[1] = &formats.GetInsertCharFormat();
    for (int side = 0; side < 2; ++side) {
      for (; done[side] < start[side] + count[side]; rows[side].push_back(static_cast<int>(++done[side]))) {
      }
      const int end = static_cast<int>(rows[side].size()) + 1, gap = static_cast<int>(count[1 - side] - count[side]);
      if (count[side] > 0)
        panes[side]->ColorSelection(end - static_cast<int>(count[side]), end - 1, *format[side]);
      if (gap > 0)
        panes[side]->InsertBlankLines(end, gap, 0, 0);
      rows[side].insert(rows[side].end(), static_cast<size_t>(gap > 0 ? gap : 0), 0);
    }
  }
  for (int side = 0; side < 2; ++side)
    for (; done[side] < lineCounts[side]; rows[side].push_back(static_cast<int>(++done[side]))) {
    }
  return rows;
}

// A line set over 16-bit text, which must outlive it.
struct WideLineSet {
  explicit WideLineSet(const std::wstring& text) : units(text), arg(CVnFileInfo::Text16, 10) {
    arg.Create(units.data(), static_cast<unsigned long>(units.size() * sizeof(wchar_t)));
  }
  std::wstring units;
  CVnDiffArg arg;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_PANETESTSUPPORT_H
