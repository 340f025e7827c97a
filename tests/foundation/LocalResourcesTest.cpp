// LocalResourcesTest.cpp - texts by module and number, in either build.
#include "foundation/LocalResources.h"

#include "TestModule.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using vn::test::TestModule;

using vn::test::U8;

// Both forms of LoadLocalString, for one module and number each.
struct LoadCase {
  const char* what;
  bool component;  // else the test module
  UINT id;
  int length;           // of the loaded text
  const char* tail;     // its last characters
};

const LoadCase kLoads[] = {
    {"plain text", false, vn::test::kPlain, 26, "test module."},
    {"exactly the limit", false, vn::test::kAtLimit, 4096, "89ABCDEF"},
    {"past the limit is cut", false, vn::test::kPastLimit, 4096, "89ABCDEF"},
    {"empty entry", false, vn::test::kEmpty, 0, ""}, {"number without entry", false, 999, 0, ""},
    {"same number, other module", false, vn::test::kShared, 31, "own text 160."},
    {"the component's 160", true, 160, 35, "error occured."},
    {"high word ignored, as Win32 does", true, 0x10000 + 160, 35, "error occured."},
};

TEST(LocalResourcesTest, LoadsByModuleAndNumberCutAtTheLimit) {
  for (const LoadCase& c : kLoads) {
    SCOPED_TRACE(c.what);
    HINSTANCE module = c.component ? GetResourceModule() : TestModule();
    const CString value = LoadLocalString(module, c.id);
    EXPECT_EQ(c.length, value.GetLength());
    std::string text = U8(value);
    std::string tail = c.tail;
    ASSERT_GE(text.size(), tail.size());
    EXPECT_EQ(tail, text.substr(text.size() - tail.size()));

    CString into(_T("previous content"));
    BOOL loaded = LoadLocalString(module, c.id, into);
    EXPECT_EQ(c.length > 0 ? TRUE : FALSE, loaded);
    EXPECT_EQ(U8(value), U8(into));
  }
  // The cut keeps the text's beginning.
  EXPECT_EQ("0123456789", U8(LoadLocalString(TestModule(), vn::test::kPastLimit).Left(10)));
}

}  // namespace
