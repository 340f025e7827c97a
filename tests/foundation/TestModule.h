// TestModule.h - a module other than the component, for the loaders' tests.
//
// On Windows it is the test executable itself (TestModule.rc); natively a
// module made from the same TestModule.def.
#ifndef VN_TESTS_FOUNDATION_TESTMODULE_H
#define VN_TESTS_FOUNDATION_TESTMODULE_H

#include "foundation/LocalResources.h"

namespace vn {
namespace test {

HINSTANCE TestModule();

// Numbers in TestModule.def.
enum : UINT { kAtLimit = 1, kPastLimit = 2, kEmpty = 3, kPlain = 4, kShared = 160 };
// Numbers in TestModule.rc (Windows only).
enum : UINT { kMenu = 300, kMenuFirst = 301, kMenuSecond = 302, kBitmap = 400 };

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_FOUNDATION_TESTMODULE_H
