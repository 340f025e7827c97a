// VnPathPlatformPosix.cpp - the path functions' file system questions,
// answered through the OS seam on a system without drives.
//
// The full path of a text is made the way Win32 makes it, by text: "." and
// ".." elements are resolved, separator runs collapse, an end separator
// stays.  Three forms are told apart:
//   "c:..." (a drive)         stays a Windows path, with backslashes;
//   "\\server\share\..."      stays a network path, with backslashes, and
//                             ".." never climbs above the share;
//   anything else             is a file system path here: a relative one is
//                             taken from the current directory, and the
//                             result uses slashes.
// So the text functions give the same answers on a drive path as on
// Windows, while real files are reached by their real names.  Drive types:
// the one root "/" is a fixed disk, a drive letter names no root.
#include "foundation/VnPathPlatform.h"

#include "afx/os/OsSeam.h"

#include <cwctype>
#include <vector>

namespace vn {
namespace pathsys {

typedef os::WideText Text;

static bool IsSep(WCHAR c) { return c == '\\' || c == '/'; }

static const UINT kDriveNoRootDir = 1;
static const UINT kDriveFixed = 3;

namespace {
// A path cut into its root, its elements, and the separator it is written with.
struct FullForm {
  Text root;
  std::vector<Text> elements;
  size_t keep = 0;  // elements that ".." must not remove (server, share)
  WCHAR sep = '/';
};
}  // namespace

static void AddElements(FullForm& form, const Text& rest) {
  size_t start = 0;
  for (size_t i = 0; i <= rest.size(); ++i) {
    if (i < rest.size() && !IsSep(rest[i]))
      continue;
    Text element = rest.substr(start, i - start);
    start = i + 1;
    if (element.empty() || element == Text(1, '.'))
      continue;
    if (element == Text(2, '.')) {
      if (form.elements.size() > form.keep)
        form.elements.pop_back();
      continue;
    }
    form.elements.push_back(element);
  }
}

static bool MakeFullForm(const Text& text, FullForm& form) {
  if (text.size() >= 2 && std::iswalpha(static_cast<wint_t>(text[0])) && text[1] == ':') {
    form.root = text.substr(0, 2) + Text(1, '\\');
    form.sep = '\\';
    AddElements(form, text.substr(2));
  } else if (text.size() >= 2 && IsSep(text[0]) && IsSep(text[1])) {
    form.root = Text(2, '\\');
    form.sep = '\\';
    form.keep = 2;
    AddElements(form, text.substr(2));
  } else if (IsSep(text[0])) {
    form.root = Text(1, '/');
    AddElements(form, text.substr(1));
  } else {
    Text cwd = os::CurrentDirectory();
    if (cwd.empty())
      return false;
    form.root = Text(1, '/');
    AddElements(form, cwd);
    AddElements(form, text);
  }
  return true;
}

DWORD FullPathName(LPCWSTR path, DWORD bufferLength, LPWSTR buffer) {
  if (!path || !*path) {
    os::SetLastError(ERROR_INVALID_NAME);
    return 0;
  }
  const Text text(path);
  FullForm form;
  if (!MakeFullForm(text, form))
    return 0;
  Text full = form.root;
  for (size_t i = 0; i < form.elements.size(); ++i)
    full += (i ? Text(1, form.sep) : Text()) + form.elements[i];
  if (IsSep(text.back()) && !form.elements.empty())
    full += form.sep;
  const DWORD length = static_cast<DWORD>(full.size());
  if (!buffer || bufferLength <= length)
    return length + 1;
  full.copy(buffer, length);
  buffer[length] = 0;
  return length;
}

DWORD FileAttributes(LPCWSTR path) { return os::GetFileAttributes(path); }
DWORD LastError() { return os::GetLastError(); }
bool CreateOneDirectory(LPCWSTR path) { return os::CreateDirectory(path); }

bool CanOpenForReading(LPCWSTR path) {
  os::FileHandle h = os::OpenFile(path, os::kRead, os::kOpenExisting);
  if (h == os::kInvalidFile)
    return false;
  os::CloseFile(h);
  return true;
}

bool CanCreateAndDiscard(LPCWSTR path) {
  os::FileHandle h = os::OpenFile(path, os::kReadWrite, os::kCreateNew);
  if (h == os::kInvalidFile)
    return false;
  os::CloseFile(h);
  os::DeleteFile(path);
  return true;
}

UINT DriveType(LPCWSTR root) { return root && IsSep(root[0]) ? kDriveFixed : kDriveNoRootDir; }

// Copies text into a caller's buffer with Win32's result: the length, or 0
// when it is empty or does not fit.
static DWORD Give(const Text& text, DWORD bufferLength, LPWSTR buffer) {
  if (text.empty() || text.size() >= bufferLength) {
    if (!text.empty())
      os::SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return 0;
  }
  text.copy(buffer, text.size());
  buffer[text.size()] = 0;
  return static_cast<DWORD>(text.size());
}

DWORD CurrentDirectory(DWORD bufferLength, LPWSTR buffer) {
  return Give(os::CurrentDirectory(), bufferLength, buffer);
}
DWORD TempPath(DWORD bufferLength, LPWSTR buffer) { return Give(os::TempDirectory(), bufferLength, buffer); }
DWORD ModuleFileName(DWORD bufferLength, LPWSTR buffer) {
  return Give(os::ModuleFileName(), bufferLength, buffer);
}

}  // namespace pathsys
}  // namespace vn
