// CDCTest.cpp - device contexts, fonts by point size and the geometry
// records, against the real GDI.
#include "afx/win32/CDC.h"
#include "afx/win32/CFont.h"
#include "afx/win32/CWnd.h"

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

TEST(CDC, MeasuresTextInTheSelectedFont) {
  RECT frame = {0, 0, 200, 100};
  CWnd wnd;
  ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"dc", WS_OVERLAPPEDWINDOW, frame, nullptr, 0));
  CClientDC dc(&wnd);
  ASSERT_NE(nullptr, dc.GetSafeHdc());
  CFont small, large;
  ASSERT_TRUE(small.CreatePointFont(90, L"Liberation Mono"));
  ASSERT_TRUE(large.CreatePointFont(180, L"Liberation Mono"));
  HGDIOBJ original = dc.SelectObject(&small);
  int smallWidth = dc.GetTextExtent(L"abcd", 4).cx;
  EXPECT_EQ(small.m_hObject, dc.SelectObject(&large));
  EXPECT_GT(dc.GetTextExtent(L"abcd", 4).cx, smallWidth);
  EXPECT_EQ(0, dc.GetTextExtent(L"", 0).cx);
  // One tab stop: tabs run to its multiples.
  int stop = 40;
  EXPECT_EQ(40, dc.GetTabbedTextExtent(L"\t", 1, 1, &stop).cx);
  EXPECT_EQ(80, dc.GetTabbedTextExtent(L"\t\t", 2, 1, &stop).cx);
  EXPECT_EQ(large.m_hObject, dc.SelectObject(original));
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
