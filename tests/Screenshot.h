// Screenshot.h - a window's picture as a PNG file, for the tests whose
// result a person looks at.
//
// A PNG file is the signature and a list of chunks (length, type, data,
// CRC-32 of type and data): IHDR with the size and pixel format, IDAT with
// the zlib stream of the rows, each row led by its filter byte (0, none),
// and IEND.  The zlib stream here uses stored blocks only (no compression:
// a header byte, the length and its complement, the bytes), closed by the
// Adler-32 of the raw data.  Every reader takes it; size doesn't matter.
#ifndef VN_TESTS_SCREENSHOT_H
#define VN_TESTS_SCREENSHOT_H

#include <windows.h>

#include <cstdint>
#include <cstdio>
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
inline Picture CaptureWindow(HWND window) {
  Picture picture;
  RECT rect;
  ::GetWindowRect(window, &rect);
  picture.width = rect.right - rect.left;
  picture.height = rect.bottom - rect.top;
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), picture.width, -picture.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  HDC source = ::GetWindowDC(window);
  HDC memory = ::CreateCompatibleDC(source);
  HBITMAP bitmap = ::CreateDIBSection(source, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ old = ::SelectObject(memory, bitmap);
  ::BitBlt(memory, 0, 0, picture.width, picture.height, source, 0, 0, SRCCOPY);
  ::GdiFlush();
  const unsigned char* bgrx = static_cast<const unsigned char*>(bits);
  picture.rgb.resize(static_cast<size_t>(picture.width) * picture.height * 3);
  for (size_t p = 0; p < picture.rgb.size(); ++p)
    picture.rgb[p] = bgrx[p / 3 * 4 + 2 - p % 3];
  ::SelectObject(memory, old);
  ::DeleteObject(bitmap);
  ::DeleteDC(memory);
  ::ReleaseDC(window, source);
  return picture;
}

inline uint32_t Crc32(const unsigned char* data, size_t size) {
  uint32_t crc = ~0u;
  for (size_t i = 0; i < size; ++i) {
    crc ^= data[i];
    for (int k = 0; k < 8; ++k)
      crc = (crc & 1) ? 0xEDB88320u ^ (crc >> 1) : crc >> 1;
  }
  return ~crc;
}

inline void PutBig32(std::vector<unsigned char>& out, uint32_t v) {
  for (int shift = 24; shift >= 0; shift -= 8)
    out.push_back(static_cast<unsigned char>(v >> shift));
}

inline void PutChunk(std::vector<unsigned char>& out, const char* type, const std::vector<unsigned char>& data) {
  PutBig32(out, static_cast<uint32_t>(data.size()));
  size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data.begin(), data.end());
  PutBig32(out, Crc32(out.data() + start, out.size() - start));
}

// The raw bytes as a zlib stream of stored blocks.
inline std::vector<unsigned char> StoredZlib(const std::vector<unsigned char>& raw) {
  std::vector<unsigned char> z = {0x78, 0x01};
  size_t at = 0;
  do {
    size_t n = raw.size() - at < 65535 ? raw.size() - at : 65535;
    z.push_back(at + n == raw.size() ? 1 : 0);  // the last block
    for (size_t v : {n, ~n}) {
      z.push_back(static_cast<unsigned char>(v));
      z.push_back(static_cast<unsigned char>(v >> 8));
    }
    z.insert(z.end(), raw.begin() + at, raw.begin() + at + n);
    at += n;
  } while (at < raw.size());
  uint32_t a = 1, b = 0;
  for (unsigned char c : raw) {
    a = (a + c) % 65521;
    b = (b + a) % 65521;
  }
  PutBig32(z, (b << 16) | a);
  return z;
}

// The picture as a PNG file (8-bit RGB, stored uncompressed).  Gives false
// when the file can't be written.
inline bool WritePng(const Picture& picture, const std::wstring& path) {
  std::vector<unsigned char> raw;
  size_t rowBytes = static_cast<size_t>(picture.width) * 3;
  for (int y = 0; y < picture.height; ++y) {
    raw.push_back(0);
    raw.insert(raw.end(), picture.rgb.begin() + y * rowBytes, picture.rgb.begin() + (y + 1) * rowBytes);
  }
  std::vector<unsigned char> header;
  PutBig32(header, static_cast<uint32_t>(picture.width));
  PutBig32(header, static_cast<uint32_t>(picture.height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter choice, no interlace
  std::vector<unsigned char> file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  PutChunk(file, "IHDR", header);
  PutChunk(file, "IDAT", StoredZlib(raw));
  PutChunk(file, "IEND", {});
  FILE* out = _wfopen(path.c_str(), L"wb");
  if (!out)
    return false;
  bool written = fwrite(file.data(), 1, file.size(), out) == file.size();
  return fclose(out) == 0 && written;
}

// <build directory>\screenshots\<name>, the directory made if need be: the
// build directory is the one above that of the running executable.
inline std::wstring ScreenshotPath(const std::wstring& name) {
  wchar_t module[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, module, MAX_PATH);
  std::wstring dir = module;
  for (int up = 0; up < 2; ++up)
    dir = dir.substr(0, dir.find_last_of(L"\\/"));
  dir += L"\\screenshots";
  ::CreateDirectoryW(dir.c_str(), nullptr);
  return dir + L"\\" + name;
}

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_SCREENSHOT_H
