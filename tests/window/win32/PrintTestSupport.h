// PrintTestSupport.h - print jobs to a PostScript file through the real
// Print and Save As dialogs, and a pane whose page layout the tests can
// count on.
//
// FormattingPane answers EM_FORMATRANGE itself, as the message is defined:
// it draws as many whole lines of the range as fit the rectangle (one line
// every 240 twips, in the text's own colour, struck through where the text
// is) and gives the first character that didn't fit.  Wine's rich edit
// control leaves the message unimplemented (docs/printing.md), so the job's
// paging is tested over this one; everything else - the dialogs, the
// printer's context, the file - is the system's.  The pane records the first
// row (1-based) of every page it drew on a context that shows it, so a test
// reads the pages in the order they reached the paper.  On a context that
// clips everything away it draws nothing: Wine's PostScript driver would
// put such drawing after the last page on a page of its own.
#ifndef VN_TESTS_WINDOW_WIN32_PRINTTESTSUPPORT_H
#define VN_TESTS_WINDOW_WIN32_PRINTTESTSUPPORT_H

#include "PrintDialogs.h"
#include "PaneTestSupport.h"
#include "TestSupport.h"

#include <atomic>
#include <string>
#include <vector>

namespace vn {
namespace test {

constexpr int kTwipsPerLine = 240;

class FormattingPane : public CVnRichEditPane {
public:
  std::vector<int> m_printedRows;

protected:
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != EM_FORMATRANGE)
      return CVnRichEditPane::WindowProc(message, wParam, lParam);
    return lParam ? Format(wParam != 0, *reinterpret_cast<FORMATRANGE*>(lParam)) : 0;
  }

private:
  long Format(bool render, const FORMATRANGE& range) {
    long length = GetTextLengthEx(GTL_NUMCHARS | GTL_PRECISE);
    long end = range.chrg.cpMax < 0 || range.chrg.cpMax > length ? length : range.chrg.cpMax;
    int first = LineFromChar(range.chrg.cpMin);
    int fit = (range.rc.bottom - range.rc.top) / kTwipsPerLine;
    RECT clip;
    bool shown = ::GetClipBox(range.hdc, &clip) != NULLREGION;
    if (render && shown && range.chrg.cpMin < end)
      m_printedRows.push_back(first + 1);
    CHARRANGE saved;
    SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&saved));
    long next = end;
    for (int k = 0; k < fit; ++k) {
      long start = LineIndex(first + k);
      if (start < 0 || start >= end)
        break;
      next = LineIndex(first + k + 1) < 0 ? end : LineIndex(first + k + 1);
      if (render && shown)
        DrawLine(range, first + k, start, k);
    }
    SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&saved));
    return next < end ? next : end;
  }

  void DrawLine(const FORMATRANGE& range, int line, long start, int k) {
    CHARFORMATW cf = {};
    cf.cbSize = sizeof(cf);
    SetSel(start, start + 1);
    GetSelectionCharFormat(cf);
    HDC dc = range.hdc;
    int dpiX = ::GetDeviceCaps(dc, LOGPIXELSX), dpiY = ::GetDeviceCaps(dc, LOGPIXELSY);
    HFONT font = ::CreateFontW(-::MulDiv(200, dpiY, 1440), 0, 0, 0, FW_NORMAL, 0, 0,
                               (cf.dwEffects & CFE_STRIKEOUT) ? TRUE : FALSE, 0, 0, 0, 0, FIXED_PITCH,
                               L"Courier New");
    HGDIOBJ old = ::SelectObject(dc, font);
    ::SetTextColor(dc, cf.crTextColor);
    CString text;
    GetPaneLine(line, text);
    ::TextOutW(dc, ::MulDiv(range.rc.left, dpiX, 1440), ::MulDiv(range.rc.top + k * kTwipsPerLine, dpiY, 1440),
               text.GetString(), text.GetLength());
    ::DeleteObject(::SelectObject(dc, old));
  }
};

inline std::wstring TempPath(const wchar_t* name) {
  wchar_t dir[MAX_PATH] = {};
  ::GetTempPathW(MAX_PATH, dir);
  std::wstring path = std::wstring(dir) + name;
  ::DeleteFileW(path.c_str());
  return path;
}

inline int CountOf(const std::string& text, const std::string& what) {
  int count = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
    ++count;
  return count;
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_PRINTTESTSUPPORT_H
