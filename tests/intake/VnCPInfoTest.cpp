// VnCPInfoTest.cpp - code page facts with and without GetCPInfoExW.
#include "intake/VnCPInfo.h"

#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

namespace {

std::string Name(const CPINFOEXW& info) { return VnToUtf8(info.CodePageName); }

// Puts GetCPInfoExW out of sight for one test.
struct WithoutCPInfoEx {
  WithoutCPInfoEx() { vn::os::HideGetCPInfoExForTesting(true); }
  ~WithoutCPInfoEx() { vn::os::HideGetCPInfoExForTesting(false); }
};

// Double-byte pages get their lead byte ranges.
TEST(VnCPInfoTest, FallbackNamesThePageByItsNumber) {
  WithoutCPInfoEx hidden;
  const struct { unsigned page; int ok; const char* name; unsigned maxCharSize; BYTE lead0, lead1; } cases[] = {
      {1252, 1, "CP1252", 1, 0, 0}, {65001, 1, "CP65001", 4, 0, 0}, {932, 1, "CP932", 2, 0x81, 0x9F},
      {12345, 0, "CP12345", 0, 0, 0},  // unknown: failure, but the record still says it
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.page);
    CPINFOEXW info;
    EXPECT_EQ(c.ok, GetVnCPInfo(c.page, 0, &info) ? 1 : 0);
    EXPECT_EQ(c.name, Name(info));
    EXPECT_EQ(c.page, info.CodePage);
    EXPECT_EQ(63, info.UnicodeDefaultChar);
    EXPECT_EQ(c.maxCharSize, info.MaxCharSize);
    EXPECT_EQ(c.lead0, info.LeadByte[0]);
    EXPECT_EQ(c.lead1, info.LeadByte[1]);
  }
}

TEST(VnCPInfoTest, PlatformNamesKnownPages) {
  CPINFOEXW info;
  ASSERT_NE(0, GetVnCPInfo(65001, 0, &info));
  EXPECT_EQ(65001u, info.CodePage);
  EXPECT_NE(std::string::npos, Name(info).find("65001"));
  EXPECT_EQ(0, GetVnCPInfo(70001, 0, &info));  // the system's own numbers are no code pages
}

}  // namespace
