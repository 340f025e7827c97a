// PaneBenchWin32.cpp - how long a pane takes to take in a large file: the
// text, the number column and the column's width, as a host's DoDisplay
// does it, under Wine or Windows.
//
// A plain program (Google Benchmark has no build for this target): it
// generates a file of code-like lines as the intake hands it over (UTF-16LE,
// CR LF) and times each step REPEATS times, each time in a new shown pane,
// printing the fastest and the slowest run in seconds:
//
//   SetDefaultText   the whole step: formats, text, number column
//   text only        CVnTextPane::SetPaneText (WM_SETTEXT into the control)
//   numbers only     CVnLineNumPane::DisplayLineNumbers
//   numbers string   building the column's text alone, without the control
//   width            GetLineNumWidth and WM_PANE_RESIZEINTERNALPANES
//   refill           SetDefaultText again on a pane that holds the text,
//                    with a twentieth of the lines: the control's deletion of
//                    the old text is what costs here
//
// Usage: window_bench.exe [LINES] [REPEATS]     (100000 and 3 by default)
#include "../BenchClock.h"
#include "afx/win32/CWnd.h"
#include "options/VnDisplayOptions.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneWnd.h"
#include "window/VnTextPane.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace {

double Now() { return NowMs() / 1000.0; }

// Lines as sources have them: statements, blank lines, lone braces, tabs.
std::wstring CodeLikeText(int lines) {
  std::wstring text;
  text.reserve(static_cast<size_t>(lines) * 36);
  for (int k = 0; k < lines; ++k) {
    if (k % 7 == 3)
      text += L"";
    else if (k % 11 == 5)
      text += L"}";
    else
      text += L"\tvalue_" + std::to_wstring(k % 97) + L" = compute(" + std::to_wstring(k) + L", 42);";
    text += L"\r\n";
  }
  return text;
}


// A new shown pane, in a top-level window of its own.
struct Fixture {
  Fixture() {
    RECT rect = {0, 0, 900, 700};
    ok = frame.CreateEx(0, nullptr, L"pane bench", WS_POPUP | WS_CLIPCHILDREN, rect, nullptr, 0) &&
         pane.CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rect, &frame, 1);
    if (ok) {
      frame.ShowWindow(SW_SHOW);
      pane.SetLineTerminator(L"\r\n");
    }
  }
  CWnd frame;
  CVnPaneWnd pane;
  bool ok = false;
};

struct Buffer {
  explicit Buffer(int lines) : text(CodeLikeText(lines)) {}
  unsigned char* Bytes() { return reinterpret_cast<unsigned char*>(&text[0]); }
  int Size() const { return static_cast<int>(text.size() * sizeof(wchar_t)); }
  std::wstring text;
};

// Times run on a new pane each repeat; prepare runs first, untimed.
void ReportFresh(const char* what, int repeats, const std::function<void(CVnPaneWnd&)>& run,
                 const std::function<void(CVnPaneWnd&)>& prepare = nullptr) {
  std::vector<double> times;
  for (int r = 0; r < repeats; ++r) {
    Fixture f;
    if (!f.ok) {
      std::fprintf(stderr, "window_bench: no window (is there a display?)\n");
      std::exit(1);
    }
    if (prepare)
      prepare(f.pane);
    double start = Now();
    run(f.pane);
    times.push_back(Now() - start);
  }
  std::sort(times.begin(), times.end());
  std::printf("%-16s min %7.3f s   max %7.3f s\n", what, times.front(), times.back());
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  int lines = argc > 1 ? std::atoi(argv[1]) : 100000;
  int repeats = argc > 2 ? std::atoi(argv[2]) : 3;
  if (lines < 1 || repeats < 1) {
    std::fprintf(stderr, "usage: window_bench.exe [LINES] [REPEATS]\n");
    return 2;
  }
  Buffer file(lines), twentieth(lines / 20 > 0 ? lines / 20 : 1);
  std::printf("%d lines, %d bytes, %d repeats\n", lines, file.Size(), repeats);
  auto fill = [&](CVnPaneWnd& pane) { pane.SetDefaultText(file.Bytes(), file.Size(), pane.GetDefaultCharFormat()); };

  ReportFresh("SetDefaultText", repeats, fill);
  ReportFresh("text only", repeats,
              [&](CVnPaneWnd& pane) { pane.GetTextPane()->SetPaneText(file.Bytes(), file.Size()); });
  ReportFresh("numbers only", repeats, [&](CVnPaneWnd& pane) { pane.GetLineNumPane()->DisplayLineNumbers(lines + 1); });
  ReportFresh("numbers string", repeats, [&](CVnPaneWnd&) {
    CString numbers;
    for (int i = 1; i <= lines + 1; ++i) {
      numbers.AppendFormat(L"%d", i);
      if (i <= lines)
        numbers += L"\r\n";
    }
  });
  ReportFresh("width", repeats, [&](CVnPaneWnd& pane) {
    long width = pane.GetLineNumWidth(pane.GetDefaultCharFormat(), pane.GetLineCount());
    pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, width);
  }, fill);
  auto fillTwentieth = [&](CVnPaneWnd& pane) {
    pane.SetDefaultText(twentieth.Bytes(), twentieth.Size(), pane.GetDefaultCharFormat());
  };
  std::printf("refill: %d lines\n", lines / 20);
  ReportFresh("refill", repeats, fillTwentieth, fillTwentieth);
  return 0;
}
