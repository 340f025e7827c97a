// CDCTest.cpp - fonts by point size and the geometry records, against the
// real GDI.  What a device context measures in them is checked through the
// panes' widths (VnRichEditPaneMeasureTest).
#include "afx/win32/CFont.h"
#include "afx/win32/CGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(CFont, PointFontHeightFollowsTheScreensResolution) {
  HDC screen = ::GetDC(nullptr);
  int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  for (int tenths : {90, 95, 120, 180, 360}) {
    SCOPED_TRACE(tenths);
    CFont font;
    ASSERT_TRUE(font.CreatePointFont(tenths, L"Liberation Mono"));
    LOGFONTW lf = {};
    ASSERT_NE(0, ::GetObjectW(font, sizeof(lf), &lf));
    EXPECT_EQ(-::MulDiv(dpi, tenths, 720), lf.lfHeight);  // negative: character height
    EXPECT_STREQ(L"Liberation Mono", lf.lfFaceName);
    EXPECT_EQ(DEFAULT_CHARSET, lf.lfCharSet);
  }
}

TEST(CFont, ALongFaceNameIsCutAndAHeldFontIsNotReplaced) {
  CFont font;
  ASSERT_TRUE(font.CreatePointFont(100, L"A face name that is far longer than the record holds"));
  LOGFONTW lf = {};
  ::GetObjectW(font, sizeof(lf), &lf);
  EXPECT_EQ(LF_FACESIZE - 1, lstrlenW(lf.lfFaceName));
  HGDIOBJ held = font.m_hObject;
  EXPECT_FALSE(font.CreatePointFont(200, L"Liberation Mono"));
  EXPECT_EQ(held, font.m_hObject);
}

TEST(CGeometry, PackedSizesAreSignedHalves) {
  const struct { DWORD packed; LONG cx, cy; } cases[] = {
      {0x00100020u, 0x20, 0x10}, {0xFFFF0010u, 16, -1}, {0x0000FFFEu, -2, 0}, {0, 0, 0}};
  for (const auto& c : cases) {
    CSize size(c.packed);
    EXPECT_EQ(c.cx, size.cx) << std::hex << c.packed;
    EXPECT_EQ(c.cy, size.cy) << std::hex << c.packed;
  }
}

}  // namespace
