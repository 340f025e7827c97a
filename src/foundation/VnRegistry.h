// VnRegistry.h - the one door to the system registry.
//
// A CVnRegistry holds a base key (a predefined root plus a path below it,
// open for the object's life) and at most one open section below the base.
// Every value operation works on the open section, or, when given a sub key,
// on that key below the base, opened for that one call and never created.
//
// Nothing here throws or shows anything: writers give 1 or 0, readers give
// the caller's default for a missing key or value, a value of another type or
// size, and a null key alike.  Text is REG_SZ (REG_EXPAND_SZ is read too, not
// expanded), numbers REG_DWORD, data REG_BINARY.
//
// Windows only: the implementation is VnRegistryWin32.cpp over the real
// registry, which under Wine persists in the prefix.
#ifndef VN_FOUNDATION_VNREGISTRY_H
#define VN_FOUNDATION_VNREGISTRY_H

#include "afx/afx.h"

#ifdef _WIN32

class VN_API CVnRegistry {
public:
  // For callers to pass as defaults; the readers never look at them.
  static const long DEFAULT_INT;
  static const int DEFAULT_BOOL;
  static const CString DEFAULT_STRING;

  CVnRegistry();
  // SetBaseKey(root, path, create, access), then, when section is not null,
  // creates or opens it below the base as the open section.  A failure of
  // either leaves the object as it stands and is not reported.
  CVnRegistry(HKEY root, LPCWSTR path, LPCWSTR section = nullptr, DWORD access = KEY_ALL_ACCESS);
  // The other's root and path, created if missing, with KEY_ALL_ACCESS; the
  // other's open section is not carried over.
  CVnRegistry(const CVnRegistry& other);
  // Takes over the other's root, path and keys with handles of its own, so
  // each object closes only what it opened.
  CVnRegistry& operator=(const CVnRegistry& other);
  ~CVnRegistry();

  // Closes the present base (unless it is the root), then makes root\path
  // the base: opened, or created when create is not 0.  An empty or null path
  // makes the root itself the base.  Leaves an open section alone.
  int SetBaseKey(HKEY root, LPCWSTR path, int create = 1, DWORD access = KEY_ALL_ACCESS);
  // Opens (create 0) or creates the key below the base as the section.  An
  // earlier section is closed first rather than leaked.
  int OpenSection(LPCWSTR subKey, int create = 1, DWORD access = KEY_ALL_ACCESS);
  // 1 when no section is open or the close succeeded; the section is
  // forgotten in every case.
  int CloseSection();
  int InitOk() const { return m_hRootKey != nullptr; }

  int PutString(LPCWSTR name, LPCWSTR text, LPCWSTR subKey = nullptr);
  int PutInt(LPCWSTR name, DWORD value, LPCWSTR subKey = nullptr);
  int PutBool(LPCWSTR name, int value, LPCWSTR subKey = nullptr);  // stores 1 or 0
  int PutBinary(LPCWSTR name, const BYTE* data, DWORD size, LPCWSTR subKey = nullptr);

  CString GetString(LPCWSTR name, LPCWSTR defaultText, LPCWSTR subKey = nullptr);
  DWORD GetInt(LPCWSTR name, DWORD defaultValue, LPCWSTR subKey = nullptr);
  int GetBool(LPCWSTR name, int defaultValue, LPCWSTR subKey = nullptr);
  // Stored REG_BINARY: with a null buffer, size receives the stored size and
  // the result is 1; if it fits in size bytes it is read (size updated) and
  // the result is the read's; otherwise size receives the needed size, the
  // buffer is untouched and the result is 0.  Anything else: size bytes of
  // defaultData are copied (result 1), or without default data the result
  // is 0.
  int GetBinary(LPCWSTR name, BYTE* buffer, DWORD& size, const BYTE* defaultData = nullptr,
                LPCWSTR subKey = nullptr);

  int DeleteEntry(LPCWSTR name, LPCWSTR subKey = nullptr);
  // Deletes subKey below the base in one call; fails where the system
  // refuses to delete a key that has sub keys.
  int DeleteSection(LPCWSTR subKey);
  // Deletes root\path\subKey and everything below it.  Moves the base key to
  // root\path (after a failure, to where the failure occurred).
  int DeleteSection(HKEY root, LPCWSTR path, LPCWSTR subKey);
  // Empties list, then appends the names of subKey's children in enumeration
  // order.  1 when at least one name was found.  Leaves no section open.
  int GetKeyList(LPCWSTR subKey, CStringList& list);
  int Flush();

protected:
  int IsSectionOpen() const { return m_hSectionKey != nullptr; }
  HKEY GetBaseKey() const { return m_hRootKey; }
  const CString& GetBaseSubKey() const { return m_strBaseSubKey; }
  static int CheckRegResult(long status) { return status == 0; }
  void CloseBaseKey();
  void Init();
  int RegGetEntryInfo(HKEY key, LPCWSTR name, DWORD& type, DWORD& size);

private:
  HKEY m_hRootKey;
  CString m_strBaseSubKey;
  HKEY m_hBaseKey;
  HKEY m_hSectionKey;
};

#endif  // _WIN32

#endif  // VN_FOUNDATION_VNREGISTRY_H
