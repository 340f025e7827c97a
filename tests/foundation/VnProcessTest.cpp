// VnProcessTest.cpp - the plain parts of the OS services: the system's name
// by version, the 2000 family test, and the help file beside a module.
#include "foundation/VnProcess.h"

#include <gtest/gtest.h>

namespace {

TEST(VnProcessTest, NamesTheSystemByPlatformAndVersion) {
  struct Row { DWORD platform, major, minor; const char* name; } rows[] = {
      {2, 3, 51, "Windows NT"},   {2, 4, 0, "Windows NT"},    {2, 5, 0, "Windows 2000"},
      {2, 5, 1, "Windows XP"},    {2, 5, 2, "Windows 2003"},  {2, 5, 3, "Windows"},
      {2, 6, 0, "Windows"},       {2, 10, 0, "Windows"},      {1, 4, 0, "Windows 95"},
      {1, 4, 10, "Windows 98"},   {1, 4, 90, "Windows ME"},   {1, 4, 3, "Windows"},
      {1, 9, 10, "Windows 98"},   {0, 5, 0, "Windows"},       {3, 5, 1, "Windows"},
  };
  for (const Row& r : rows)
    EXPECT_EQ(r.name, VnToUtf8(VnDescribeOS(r.platform, r.major, r.minor)))
        << r.platform << " " << r.major << "." << r.minor;
}

TEST(VnProcessTest, TheTwoThousandFamilyIsNTAtMajorVersionFive) {
  struct Row { DWORD platform, major; int win2k; } rows[] = {
      {2, 5, 1}, {2, 4, 0}, {2, 6, 0}, {2, 10, 0}, {1, 5, 0}, {0, 5, 0}};
  for (const Row& r : rows)
    EXPECT_EQ(r.win2k, VnIsWin2KVersion(r.platform, r.major)) << r.platform << " " << r.major;
}

TEST(VnProcessTest, HelpFileReplacesTheLastDotOnwards) {
  struct Row { const char* module; const char* help; } rows[] = {
      {"C:\\tools\\tool.dll", "C:\\tools\\tool.hlp"}, {"C:\\tools\\tool", "C:\\tools\\tool.hlp"},
      {"C:\\tools\\tool.backup.exe", "C:\\tools\\tool.backup.hlp"}, {"C:\\my.tools\\tool", "C:\\my.hlp"},
      {"tool.", "tool.hlp"}, {"", ".hlp"},
  };
  for (const Row& r : rows)
    EXPECT_EQ(r.help, VnToUtf8(VnHelpFileFor(VnFromUtf8(r.module)))) << r.module;
}

}  // namespace
