// CFont.cpp - an owned GDI font, made from a LOGFONTW or a point size.
#include "afx/win32/CFont.h"

#include "afx/win32/CDC.h"

#include <cassert>
#include <cstdlib>

IMPLEMENT_DYNAMIC(CFont, CGdiObject)

BOOL CFont::CreateFontIndirect(const LOGFONTW* logFont) {
  assert(logFont && "a font description");
  return Attach(::CreateFontIndirectW(logFont));
}

BOOL CFont::CreatePointFont(int pointSize, LPCWSTR face, CDC* dc) {
  LOGFONTW logFont = {};
  logFont.lfCharSet = DEFAULT_CHARSET;
  logFont.lfHeight = pointSize;
  if (face)
    ::lstrcpynW(logFont.lfFaceName, face, LF_FACESIZE);
  return CreatePointFontIndirect(&logFont, dc);
}

// Tenths of a point become device pixels through the context's vertical
// resolution, then logical units through its mapping mode; a negative height
// asks for the character height rather than the cell height.
BOOL CFont::CreatePointFontIndirect(const LOGFONTW* logFont, CDC* dc) {
  assert(logFont && "a font description");
  HDC hdc = dc ? dc->m_hDC : ::GetDC(nullptr);
  LOGFONTW scaled = *logFont;
  POINT pt = {0, ::MulDiv(::GetDeviceCaps(hdc, LOGPIXELSY), logFont->lfHeight, 720)};
  POINT origin = {0, 0};
  ::DPtoLP(hdc, &pt, 1);
  ::DPtoLP(hdc, &origin, 1);
  scaled.lfHeight = -std::abs(pt.y - origin.y);
  if (!dc)
    ::ReleaseDC(nullptr, hdc);
  return CreateFontIndirect(&scaled);
}
