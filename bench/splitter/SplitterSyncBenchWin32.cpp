// SplitterSyncBenchWin32.cpp - how long one synchronisation pass takes
// across two panes of a large comparison, under Wine or Windows.
//
// A plain program (Google Benchmark has no build for this target).  It
// builds what a compare host shows: a frame holding a splitter with two
// panes side by side, each filled with LINES code-like rows, numbers and
// bars set up.  Then, PASSES times, it moves the left text pane to another
// line far away (untimed, as the user's scroll does) and times the pass
// that follows: WM_PANE_SYNCHRONIZE to the left pane, which brings its
// numbers along and sends on to the splitter, which moves the right pane,
// its numbers and both bars.  It prints the fastest, median and slowest
// pass in milliseconds:
//
//   line          a new first line, the column unchanged (a scroll or a
//                 caret move up or down: the common pass)
//   line+column   a new first line and a column 40 to the right or back
//                 to 0 (the column is replayed one step at a time)
//
// Usage: splitter_bench.exe [LINES] [PASSES]     (100000 and 50 by default)
#include "../BenchClock.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnPaneWnd.h"
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

std::wstring CodeLikeText(int lines, const wchar_t* name) {
  std::wstring text;
  text.reserve(static_cast<size_t>(lines) * 48);
  for (int k = 0; k < lines; ++k) {
    if (k % 7 == 3)
      text += L"";
    else
      text += std::wstring(L"\t") + name + L"_" + std::to_wstring(k % 97) + L" = compute(" + std::to_wstring(k) +
              L", 42);";
    text += L"\r\n";
  }
  return text;
}

std::wstring Numbers(int count) {
  std::wstring text;
  for (int k = 1; k <= count; ++k)
    text += std::to_wstring(k) + (k < count ? L"\r\n" : L"");
  return text;
}

// The text into the control through EM_STREAMIN, in chunks that never end
// between CR and LF (the control would take them for two line ends).  Not
// WM_SETTEXT, which a pane's SetDefaultText uses: under Wine that takes time
// growing with the square of the line count (docs/synchronised-panes.md).
struct Stream {
  const std::wstring* text;
  size_t at;
};

DWORD CALLBACK StreamChunk(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* given) {
  Stream& stream = *reinterpret_cast<Stream*>(cookie);
  size_t units = std::min(stream.text->size() - stream.at, static_cast<size_t>(size) / sizeof(wchar_t));
  if (units > 1 && stream.at + units < stream.text->size() && (*stream.text)[stream.at + units - 1] == L'\r')
    --units;
  std::copy_n(stream.text->data() + stream.at, units, reinterpret_cast<wchar_t*>(buffer));
  stream.at += units;
  *given = static_cast<LONG>(units * sizeof(wchar_t));
  return 0;
}

void StreamIn(CRichEditCtrl& edit, const std::wstring& text) {
  Stream stream = {&text, 0};
  EDITSTREAM es = {reinterpret_cast<DWORD_PTR>(&stream), 0, &StreamChunk};
  edit.SendMessage(EM_STREAMIN, SF_TEXT | SF_UNICODE, reinterpret_cast<LPARAM>(&es));
}

// The least host frame: it only holds the splitter.
class BenchFrame : public CVnReconcileFrame {
public:
  void HoldSplitter(CVnRichEditSplitterWnd* splitter) { m_pSplitterWnd = splitter; }
  int CanFind() override { return 0; }

protected:
  int SetupStatusBar() override { return 1; }
  int SetupToolBar() override { return 1; }
  int DoDiff() override { return 1; }
  int DoDisplay() override { return 1; }
};

void Report(const char* what, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  std::printf("%-12s min %7.2f ms   median %7.2f ms   max %7.2f ms\n", what, times.front(), times[times.size() / 2],
              times.back());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  int lines = argc > 1 ? std::atoi(argv[1]) : 100000;
  int passes = argc > 2 ? std::atoi(argv[2]) : 50;
  if (lines < 100 || passes < 1) {
    std::fprintf(stderr, "usage: splitter_bench.exe [LINES >= 100] [PASSES]\n");
    return 2;
  }
  BenchFrame frame;
  CVnRichEditSplitterWnd splitter;
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
  if (!frame.Create(nullptr, L"splitter bench", WS_POPUP | WS_CLIPCHILDREN, RECT{0, 0, 1000, 700}) ||
      !splitter.CreateStatic(&frame, 1, 2, style | WS_HSCROLL | WS_VSCROLL) ||
      !splitter.CreateView(0, 0, RUNTIME_CLASS(CVnPaneWnd), SIZE{500, 700}) ||
      !splitter.CreateView(0, 1, RUNTIME_CLASS(CVnPaneWnd), SIZE{500, 700})) {
    std::fprintf(stderr, "splitter_bench: no window (is there a display?)\n");
    return 1;
  }
  frame.HoldSplitter(&splitter);
  frame.RecalcLayout();
  CVnPaneWnd* panes[2] = {static_cast<CVnPaneWnd*>(splitter.GetPane(0, 0)),
                          static_cast<CVnPaneWnd*>(splitter.GetPane(0, 1))};
  const wchar_t* names[2] = {L"left", L"right"};
  for (int side = 0; side < 2; ++side) {
    panes[side]->SetLineTerminator(L"\r\n");
    StreamIn(*panes[side]->GetTextPane(), CodeLikeText(lines, names[side]));
    StreamIn(*panes[side]->GetLineNumPane(), Numbers(panes[side]->GetTextPane()->GetLineCount()));
    panes[side]->GetTextPane()->SetSel(0, 0);
    panes[side]->GetLineNumPane()->SetSel(0, 0);
  }
  const CHARFORMATW& format = panes[0]->GetDefaultCharFormat();
  splitter.ResizeInternalPanes(splitter.GetLineNumWidth(format, 1));
  splitter.SetupVScrollBars();
  splitter.SetupHScrollBars();
  frame.ShowWindow(SW_SHOW);
  std::printf("%d rows a pane, %d passes\n", panes[1]->GetLineCount(), passes);

  CVnTextPane& origin = *panes[0]->GetTextPane();
  for (int withColumn = 0; withColumn < 2; ++withColumn) {
    std::vector<double> times;
    for (int k = 0; k < passes; ++k) {
      int line = static_cast<int>((static_cast<long long>(k + 1) * 7919) % (lines - 50));
      int column = withColumn && k % 2 == 0 ? 40 : 0;
      origin.LineScroll(line - origin.GetFirstVisibleLine());
      origin.HScroll(column, nullptr);
      CVnPaneSync sync(origin.GetFirstVisibleLine(), column);
      double start = NowMs();
      panes[0]->SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync), reinterpret_cast<LPARAM>(panes[0]));
      times.push_back(NowMs() - start);
      if (panes[1]->GetTextPane()->GetFirstVisibleLine() != sync.GetLine()) {
        std::fprintf(stderr, "splitter_bench: the right pane did not follow to line %d\n", sync.GetLine());
        return 1;
      }
    }
    Report(withColumn ? "line+column" : "line", times);
  }
  return 0;
}
