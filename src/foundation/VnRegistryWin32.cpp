// VnRegistryWin32.cpp - CVnRegistry over the Win32 registry.
//
// Every value operation starts by choosing its key: the open section when no
// sub key is named, otherwise the sub key below the base, opened (never
// created) with KEY_ALL_ACCESS for this call only.  The result of that open
// is not looked at: a failed open leaves a null key, the next registry call
// fails on it, and the operation gives 0 or the caller's default.  Every
// status goes through CheckRegResult.
#include "foundation/VnRegistry.h"

#include <cstring>
#include <vector>

const long CVnRegistry::DEFAULT_INT = 0;
const int CVnRegistry::DEFAULT_BOOL = 0;
const CString CVnRegistry::DEFAULT_STRING;

namespace {

// The key one value operation works on; closes it afterwards when it was
// opened for this operation alone.
class ValueKey {
public:
  ValueKey(HKEY base, HKEY section, LPCWSTR subKey) : m_key(section), m_owned(false) {
    if (!subKey)
      return;
    m_key = nullptr;
    if (RegOpenKeyExW(base, subKey, 0, KEY_ALL_ACCESS, &m_key) != ERROR_SUCCESS)
      m_key = nullptr;
    m_owned = m_key != nullptr;
  }
  ~ValueKey() {
    if (m_owned)
      RegCloseKey(m_key);
  }
  ValueKey(const ValueKey&) = delete;
  ValueKey& operator=(const ValueKey&) = delete;
  HKEY Get() const { return m_key; }

private:
  HKEY m_key;
  bool m_owned;
};

}  // namespace

// Opens or creates path below parent; null on failure.
static HKEY OpenKey(HKEY parent, LPCWSTR path, int create, DWORD access) {
  HKEY key = nullptr;
  LONG status;
  if (create) {
    DWORD disposition = 0;
    status = RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr,
                             &key, &disposition);
  } else {
    status = RegOpenKeyExW(parent, path, 0, access, &key);
  }
  return status == ERROR_SUCCESS ? key : nullptr;
}

// A second handle on the same key, so that two objects never close one handle.
static HKEY DuplicateKey(HKEY key) {
  if (!key)
    return nullptr;
  HKEY copy = nullptr;
  return RegOpenKeyExW(key, nullptr, 0, KEY_ALL_ACCESS, &copy) == ERROR_SUCCESS ? copy : nullptr;
}

//===-- Life ---------------------------------------------------------------===//

CVnRegistry::CVnRegistry() { Init(); }

CVnRegistry::CVnRegistry(HKEY root, LPCWSTR path, LPCWSTR section, DWORD access) {
  Init();
  if (SetBaseKey(root, path, 1, access) && section)
    OpenSection(section, 1, access);
}

CVnRegistry::CVnRegistry(const CVnRegistry& other) {
  Init();
  SetBaseKey(other.m_hRootKey, other.m_strBaseSubKey, 1, KEY_ALL_ACCESS);
}

CVnRegistry& CVnRegistry::operator=(const CVnRegistry& other) {
  if (this == &other)
    return *this;
  CloseSection();
  CloseBaseKey();
  m_hRootKey = other.m_hRootKey;
  m_strBaseSubKey = other.m_strBaseSubKey;
  // The root is the caller's and shared as it is; anything opened below it
  // gets a handle of this object's own.
  m_hBaseKey = other.m_hBaseKey == other.m_hRootKey ? other.m_hBaseKey : DuplicateKey(other.m_hBaseKey);
  m_hSectionKey = DuplicateKey(other.m_hSectionKey);
  return *this;
}

CVnRegistry::~CVnRegistry() {
  CloseSection();
  CloseBaseKey();
}

void CVnRegistry::Init() {
  m_hRootKey = nullptr;
  m_strBaseSubKey.Empty();
  m_hBaseKey = nullptr;
  m_hSectionKey = nullptr;
}

void CVnRegistry::CloseBaseKey() {
  if (m_hBaseKey && m_hBaseKey != m_hRootKey)
    RegCloseKey(m_hBaseKey);
  m_hBaseKey = nullptr;
}

//===-- Base key and sections ----------------------------------------------===//

int CVnRegistry::SetBaseKey(HKEY root, LPCWSTR path, int create, DWORD access) {
  CloseBaseKey();
  m_hRootKey = root;
  m_strBaseSubKey = path ? path : _T("");
  if (m_strBaseSubKey.IsEmpty()) {
    m_hBaseKey = root;
    return 1;
  }
  m_hBaseKey = OpenKey(root, m_strBaseSubKey, create, access);
  return m_hBaseKey != nullptr;
}

int CVnRegistry::OpenSection(LPCWSTR subKey, int create, DWORD access) {
  CloseSection();
  m_hSectionKey = OpenKey(m_hBaseKey, subKey, create, access);
  return m_hSectionKey != nullptr;
}

int CVnRegistry::CloseSection() {
  if (!m_hSectionKey)
    return 1;
  const LONG status = RegCloseKey(m_hSectionKey);
  m_hSectionKey = nullptr;
  return CheckRegResult(status);
}

int CVnRegistry::Flush() { return CheckRegResult(RegFlushKey(m_hBaseKey)); }

//===-- Values -------------------------------------------------------------===//

int CVnRegistry::RegGetEntryInfo(HKEY key, LPCWSTR name, DWORD& type, DWORD& size) {
  type = REG_NONE;
  size = 0;
  return CheckRegResult(RegQueryValueExW(key, name, nullptr, &type, nullptr, &size));
}

static LONG SetValue(HKEY key, LPCWSTR name, DWORD type, const void* data, DWORD size) {
  return RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size);
}

int CVnRegistry::PutString(LPCWSTR name, LPCWSTR text, LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  if (!text)
    text = _T("");
  const DWORD bytes = static_cast<DWORD>((VnStrLen(text) + 1) * sizeof(WCHAR));
  return CheckRegResult(SetValue(key.Get(), name, REG_SZ, text, bytes));
}

int CVnRegistry::PutInt(LPCWSTR name, DWORD value, LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  return CheckRegResult(SetValue(key.Get(), name, REG_DWORD, &value, sizeof value));
}

int CVnRegistry::PutBool(LPCWSTR name, int value, LPCWSTR subKey) {
  return PutInt(name, value ? 1 : 0, subKey);
}

int CVnRegistry::PutBinary(LPCWSTR name, const BYTE* data, DWORD size, LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  return CheckRegResult(SetValue(key.Get(), name, REG_BINARY, data, size));
}

// A number counts only as a REG_DWORD of exactly four bytes; anything else
// is absent and leaves the default.
DWORD CVnRegistry::GetInt(LPCWSTR name, DWORD defaultValue, LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  DWORD type, size;
  if (!RegGetEntryInfo(key.Get(), name, type, size) || type != REG_DWORD || size != sizeof(DWORD))
    return defaultValue;
  DWORD value = 0;
  size = sizeof value;
  if (!CheckRegResult(RegQueryValueExW(key.Get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size)) ||
      type != REG_DWORD || size != sizeof value)
    return defaultValue;
  return value;
}

int CVnRegistry::GetBool(LPCWSTR name, int defaultValue, LPCWSTR subKey) {
  return GetInt(name, defaultValue ? 1 : 0, subKey) != 0;
}

// The stored size need not be even nor include the terminator, so the buffer
// has room for one more unit and starts zeroed; an odd last byte is dropped
// and the text is taken up to its first zero.  A value that grew between asking and reading fails the read
// and gives the default.
CString CVnRegistry::GetString(LPCWSTR name, LPCWSTR defaultText, LPCWSTR subKey) {
  CString text(defaultText ? defaultText : _T(""));
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  DWORD type, size;
  if (!RegGetEntryInfo(key.Get(), name, type, size) || (type != REG_SZ && type != REG_EXPAND_SZ))
    return text;
  std::vector<WCHAR> buffer(size / sizeof(WCHAR) + 2, 0);
  DWORD read = size;
  if (!CheckRegResult(RegQueryValueExW(key.Get(), name, nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &read)) ||
      (type != REG_SZ && type != REG_EXPAND_SZ))
    return text;
  buffer[read / sizeof(WCHAR)] = 0;  // an odd last byte is half a character
  return CString(buffer.data());
}

int CVnRegistry::GetBinary(LPCWSTR name, BYTE* buffer, DWORD& size, const BYTE* defaultData,
                           LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  DWORD type, stored;
  if (RegGetEntryInfo(key.Get(), name, type, stored) && type == REG_BINARY) {
    if (!buffer) {
      size = stored;
      return 1;
    }
    if (stored <= size)
      return CheckRegResult(RegQueryValueExW(key.Get(), name, nullptr, &type, buffer, &size));
    size = stored;
    return 0;
  }
  if (!defaultData || !buffer)
    return 0;
  if (size)
    std::memcpy(buffer, defaultData, size);
  return 1;
}

int CVnRegistry::DeleteEntry(LPCWSTR name, LPCWSTR subKey) {
  ValueKey key(m_hBaseKey, m_hSectionKey, subKey);
  return CheckRegResult(RegDeleteValueW(key.Get(), name));
}

//===-- Keys ---------------------------------------------------------------===//

// A null or empty sub key would name the base itself (the root, for an
// empty path): that is never deleted here.
static bool NamesAKey(LPCWSTR subKey) { return subKey && subKey[0] != 0; }

int CVnRegistry::DeleteSection(LPCWSTR subKey) {
  if (!NamesAKey(subKey))
    return 0;
  return CheckRegResult(RegDeleteKeyW(m_hBaseKey, subKey));
}

int CVnRegistry::GetKeyList(LPCWSTR subKey, CStringList& list) {
  list.RemoveAll();
  CloseSection();
  if (RegOpenKeyExW(m_hBaseKey, subKey, 0, KEY_ALL_ACCESS, &m_hSectionKey) != ERROR_SUCCESS)
    m_hSectionKey = nullptr;
  if (m_hSectionKey) {
    WCHAR name[513];
    for (DWORD index = 0;; ++index) {
      DWORD length = 513;
      if (RegEnumKeyExW(m_hSectionKey, index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
          ERROR_SUCCESS)
        break;
      list.AddTail(CString(name, static_cast<int>(length)));
    }
  }
  CloseSection();
  return !list.IsEmpty();
}

// Children first, depth first, then the key itself.  The child paths are
// root\path\subKey; with an empty path no leading backslash is added, since
// the registry does not take one.
int CVnRegistry::DeleteSection(HKEY root, LPCWSTR path, LPCWSTR subKey) {
  if (!NamesAKey(subKey))
    return 0;
  SetBaseKey(root, path, 0, KEY_ALL_ACCESS);
  CStringList children(10);
  GetKeyList(subKey, children);
  if (children.IsEmpty())
    return CheckRegResult(RegDeleteKeyW(m_hBaseKey, subKey));

  CString childPath(path);
  if (!childPath.IsEmpty())
    childPath += _T("\\");
  childPath += subKey;
  for (POSITION pos = children.GetHeadPosition(); pos;) {
    const CString& child = children.GetNext(pos);
    if (!DeleteSection(root, childPath, child))
      return 0;
  }
  return DeleteSection(root, path, subKey);
}
