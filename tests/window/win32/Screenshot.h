// Screenshot.h - a window's picture as a PNG file, for the tests whose
// result a person looks at.
#ifndef VN_TESTS_WINDOW_WIN32_SCREENSHOT_H
#define VN_TESTS_WINDOW_WIN32_SCREENSHOT_H

#include <windows.h>

#include <string>
#include <vector>

namespace vn {
namespace test {

// Rows of 24-bit pixels, top row first, each pixel red, green, blue.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<unsigned char> rgb;
};

// What the window shows on the screen now, child windows included.
Picture CaptureWindow(HWND window);

// The picture as a PNG file (8-bit RGB, stored uncompressed).  Gives false
// when the file can't be written.
bool WritePng(const Picture& picture, const std::wstring& path);

// <build directory>\screenshots\<name>, the directory made if need be: the
// build directory is the one above that of the running executable.
std::wstring ScreenshotPath(const std::wstring& name);

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_WINDOW_WIN32_SCREENSHOT_H
