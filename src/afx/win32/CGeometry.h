// CGeometry.h - CPoint, CSize and CRect: the Win32 geometry records with
// constructors and the few comparisons and measures window code asks for.
//
// Each derives from its Win32 record, so it goes wherever a POINT, SIZE or
// RECT pointer is wanted and adds no member of its own.
#ifndef VN_AFX_WIN32_CGEOMETRY_H
#define VN_AFX_WIN32_CGEOMETRY_H

#include "afx/afx.h"

class CPoint : public POINT {
public:
  CPoint() { x = 0; y = 0; }
  CPoint(int px, int py) { x = px; y = py; }
  CPoint(POINT p) { x = p.x; y = p.y; }
  bool operator==(const POINT& p) const { return x == p.x && y == p.y; }
  bool operator!=(const POINT& p) const { return !(*this == p); }
};

class CSize : public SIZE {
public:
  CSize() { cx = 0; cy = 0; }
  CSize(int w, int h) { cx = w; cy = h; }
  // Width from the low and height from the high 16 bits, each signed: the
  // packed answer of GetTabbedTextExtent and its kin.
  explicit CSize(DWORD packed) {
    cx = static_cast<short>(LOWORD(packed));
    cy = static_cast<short>(HIWORD(packed));
  }
  bool operator==(const SIZE& s) const { return cx == s.cx && cy == s.cy; }
  bool operator!=(const SIZE& s) const { return !(*this == s); }
};

class CRect : public RECT {
public:
  CRect() { left = top = right = bottom = 0; }
  CRect(int l, int t, int r, int b) {
    left = l;
    top = t;
    right = r;
    bottom = b;
  }
  CRect(const RECT& r) { *static_cast<RECT*>(this) = r; }
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  CPoint TopLeft() const { return CPoint(left, top); }
  bool operator==(const RECT& r) const {
    return left == r.left && top == r.top && right == r.right && bottom == r.bottom;
  }
  bool operator!=(const RECT& r) const { return !(*this == r); }
};

#endif  // VN_AFX_WIN32_CGEOMETRY_H
