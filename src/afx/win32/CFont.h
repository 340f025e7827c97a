// CFont.h - an owned GDI font.
//
// CreatePointFont takes a height in tenths of a point and turns it into the
// logical height of a device context (the screen's when none is given), as
// the rich edit panes measure their text in the font of a character format.
#ifndef VN_AFX_WIN32_CFONT_H
#define VN_AFX_WIN32_CFONT_H

#include "afx/win32/CGdiObject.h"

class CDC;

class VN_API CFont : public CGdiObject {
  DECLARE_DYNAMIC(CFont)
public:
  operator HFONT() const { return static_cast<HFONT>(m_hObject); }

  BOOL CreateFontIndirect(const LOGFONTW* logFont);
  // pointSize in tenths of a point; face is cut to LF_FACESIZE - 1 units.
  BOOL CreatePointFont(int pointSize, LPCWSTR face, CDC* dc = nullptr);
  // As CreateFontIndirect, with lfHeight in tenths of a point.
  BOOL CreatePointFontIndirect(const LOGFONTW* logFont, CDC* dc = nullptr);
};

#endif  // VN_AFX_WIN32_CFONT_H
