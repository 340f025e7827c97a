// VnDisplayOptionsTest.cpp - defaults, copying and comparison of the display
// option values and the frame's option state, and the bounded face name.
#include "options/VnDisplayOptions.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

std::string Face(const CHARFORMATW& cf) {
  return VnToUtf8(CString(cf.szFaceName, static_cast<int>(VnStrLen(cf.szFaceName))));
}

TEST(VnDisplayOptionsTest, DefaultsShowNumbersAndBarsWithNinePointCourier) {
  CVnDisplayOptions o;
  EXPECT_EQ(0, o.GetDisplayDiffOnly());
  EXPECT_EQ(0, o.GetDisplaySplashScreen());
  EXPECT_EQ(1, o.GetShowLineNum());
  EXPECT_EQ(4u, o.GetTabSize());
  EXPECT_EQ(1, o.GetDisplayStatusBar());
  EXPECT_EQ(1, o.GetDisplayToolbar());

  const CHARFORMATW& cf = o.GetCharFormat();
  EXPECT_EQ(0xF000001Fu, static_cast<DWORD>(cf.dwMask));
  EXPECT_EQ(0u, static_cast<DWORD>(cf.dwEffects));
  EXPECT_EQ(180, cf.yHeight);
  EXPECT_EQ(0, cf.yOffset);
  EXPECT_EQ(VnWindowTextColor(), cf.crTextColor);
  EXPECT_EQ(1, cf.bCharSet);
  EXPECT_EQ(0, cf.bPitchAndFamily);
  EXPECT_EQ("Courier New", Face(cf));
}

TEST(VnDisplayOptionsTest, OptionStateStartsWithTheChangeColoursAndNotepad) {
  CVnOptionState s;
  struct Row { const char* name; const CHARFORMATW& cf; DWORD mask; DWORD effects; COLORREF colour; } rows[] = {
      {"replace", s.GetReplaceCharFormat(), 0x40000000u, 0u, 0xFF0000u},
      {"delete", s.GetDeleteCharFormat(), 0x40000008u, 8u, 0x0000FFu},
      {"insert", s.GetInsertCharFormat(), 0x40000000u, 0u, 0x008000u},
  };
  for (const Row& r : rows) {
    EXPECT_EQ(r.mask, static_cast<DWORD>(r.cf.dwMask)) << r.name;
    EXPECT_EQ(r.effects, static_cast<DWORD>(r.cf.dwEffects)) << r.name;
    EXPECT_EQ(r.colour, r.cf.crTextColor) << r.name;
  }
  EXPECT_EQ(0, s.m_bIgnoreCase);
  EXPECT_EQ(0, s.m_bIgnoreWhiteSpace);
  EXPECT_EQ(1, s.m_bEditMergedFile);
  EXPECT_EQ("NOTEPAD.EXE", VnToUtf8(s.m_strEditor));
  EXPECT_TRUE(s.GetDisplayOptions() == CVnDisplayOptions());
  EXPECT_EQ(&s.GetDisplayOptions().GetCharFormat(), &s.GetDefaultCharFormat());
}

// One change per row, applied to a default set; `differs` says whether the
// changed set compares unequal to the default.
TEST(VnDisplayOptionsTest, ComparesLayoutFieldsButNotColoursOrEffects) {
  struct Row {
    const char* what;
    std::function<void(CVnDisplayOptions&)> change;
    bool differs;
  };
  auto withFormat = [](std::function<void(CHARFORMATW&)> f) {
    return [f](CVnDisplayOptions& o) {
      CHARFORMATW cf = o.GetCharFormat();
      f(cf);
      o.SetCharFormat(cf);
    };
  };
  const std::vector<Row> rows = {
      {"diff only", [](CVnDisplayOptions& o) { o.SetDisplayDiffOnly(1); }, true},
      {"splash", [](CVnDisplayOptions& o) { o.SetDisplaySplashScreen(1); }, true},
      {"line numbers", [](CVnDisplayOptions& o) { o.SetShowLineNum(0); }, true},
      {"tab size", [](CVnDisplayOptions& o) { o.SetTabSize(8); }, true},
      {"status bar", [](CVnDisplayOptions& o) { o.SetDisplayStatusBar(0); }, true},
      {"toolbar", [](CVnDisplayOptions& o) { o.SetDisplayToolbar(0); }, true},
      {"bool as 2", [](CVnDisplayOptions& o) { o.SetShowLineNum(2); }, true},
      {"height", withFormat([](CHARFORMATW& cf) { cf.yHeight = 200; }), true},
      {"face case", withFormat([](CHARFORMATW& cf) { VnSetFaceName(cf, _T("courier new")); }), true},
      {"face", withFormat([](CHARFORMATW& cf) { VnSetFaceName(cf, _T("Arial")); }), true},
      {"colour", withFormat([](CHARFORMATW& cf) { cf.crTextColor = 0x123456; }), false},
      {"effects", withFormat([](CHARFORMATW& cf) { cf.dwEffects = CFE_BOLD; }), false},
      {"offset", withFormat([](CHARFORMATW& cf) { cf.yOffset = 40; }), false},
      {"char set", withFormat([](CHARFORMATW& cf) { cf.bCharSet = 0; }), false},
      {"garbage behind face", withFormat([](CHARFORMATW& cf) { cf.szFaceName[20] = 'z'; }), false},
  };
  const CVnDisplayOptions base;
  for (const Row& r : rows) {
    CVnDisplayOptions changed;
    r.change(changed);
    EXPECT_EQ(r.differs ? 1 : 0, changed != base) << r.what;
    EXPECT_EQ(r.differs ? 0 : 1, changed == base) << r.what;
    EXPECT_EQ(changed != base, base != changed) << r.what;
  }
}

TEST(VnDisplayOptionsTest, CopiesCarryEveryFieldAndTheWholeFormat) {
  CVnDisplayOptions o;
  o.SetDisplayDiffOnly(1);
  o.SetDisplaySplashScreen(1);
  o.SetShowLineNum(0);
  o.SetTabSize(7);
  o.SetDisplayStatusBar(0);
  o.SetDisplayToolbar(0);
  CHARFORMATW cf = o.GetCharFormat();
  cf.crTextColor = 0xABCDEF;
  cf.dwEffects = CFE_ITALIC;
  cf.yHeight = 240;
  cf.cbSize = sizeof cf;
  VnSetFaceName(cf, _T("Lucida Console"));
  o.SetCharFormat(cf);

  CVnDisplayOptions copied(o);
  CVnDisplayOptions assigned;
  assigned = o;
  assigned = assigned;  // self-assignment keeps the values
  // The comparison covers every layout field (see the table above); the
  // bytes cover what it leaves out.
  for (const CVnDisplayOptions* c : {&copied, &assigned}) {
    EXPECT_TRUE(*c == o);
    EXPECT_EQ(0, std::memcmp(&cf, &c->GetCharFormat(), sizeof cf));
  }
}

TEST(VnDisplayOptionsTest, FaceNameNeverWrittenBeyondItsArray) {
  struct Row { const char* name; int fitted; const char* stored; } rows[] = {
      {"", 1, ""}, {"Courier New", 1, "Courier New"},
      {"0123456789012345678901234567890", 1, "0123456789012345678901234567890"},  // 31
      {"01234567890123456789012345678901", 0, "0123456789012345678901234567890"},  // 32
      {"0123456789012345678901234567890123456789", 0, "0123456789012345678901234567890"},
  };
  for (const Row& r : rows) {
    struct Guarded { CHARFORMATW cf; unsigned char after[16]; } g;
    std::memset(&g, 0xA5, sizeof g);
    EXPECT_EQ(r.fitted, VnSetFaceName(g.cf, VnFromUtf8(r.name))) << r.name;
    EXPECT_EQ(r.stored, Face(g.cf)) << r.name;
    EXPECT_EQ(0, g.cf.szFaceName[LF_FACESIZE - 1]) << r.name;
    for (unsigned char b : g.after)
      EXPECT_EQ(0xA5, b) << r.name;
  }
  CHARFORMATW cf;
  EXPECT_EQ(1, VnSetFaceName(cf, nullptr));
  EXPECT_EQ("", Face(cf));
}

TEST(VnDisplayOptionsTest, UnterminatedFaceNamesCompareWithinTheArray) {
  CHARFORMATW a, b;
  for (int i = 0; i < LF_FACESIZE; ++i)
    a.szFaceName[i] = b.szFaceName[i] = 'q';
  EXPECT_EQ(0, VnCompareFaceName(a, b));
  b.szFaceName[LF_FACESIZE - 1] = 'r';
  EXPECT_GT(0, VnCompareFaceName(a, b));
  EXPECT_LT(0, VnCompareFaceName(b, a));
}

}  // namespace
