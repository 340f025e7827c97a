// TestModule.cpp - the test module of either build.
#include "TestModule.h"

namespace vn {
namespace test {

#ifdef _WIN32
HINSTANCE TestModule() { return ::GetModuleHandleW(nullptr); }
#else
#define VN_STRING(id, text) {id, u"" text},
static const VnStringEntry kTestStrings[] = {
#include "TestModule.def"
};
#undef VN_STRING
static VnModule g_testModule = {kTestStrings, sizeof(kTestStrings) / sizeof(kTestStrings[0])};

HINSTANCE TestModule() { return &g_testModule; }
#endif

}  // namespace test
}  // namespace vn
