// VnRegistryWin32Test.cpp - CVnRegistry over the real registry: round trips,
// every failure kind giving the default, sections and sub keys, key lists,
// recursive deletion and copies.
//
// Every test works below HKCU\Software\VnReconcileTests\<test name>, which
// the fixture deletes before and after, so a failed run leaves nothing.
#include "foundation/VnRegistry.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

using vn::test::U8;

// Exposes the protected state the tests look at.
class ProbeRegistry : public CVnRegistry {
public:
  using CVnRegistry::CVnRegistry;
  using CVnRegistry::IsSectionOpen;
  using CVnRegistry::GetBaseKey;
  using CVnRegistry::GetBaseSubKey;
};

class VnRegistryTest : public testing::Test {
protected:
  void SetUp() override {
    const testing::TestInfo* info = testing::UnitTest::GetInstance()->current_test_info();
    m_path = CString(_T("Software\\VnReconcileTests\\")) + VnFromUtf8(info->name());
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path);
  }
  void TearDown() override {
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path);
    RegDeleteKeyW(HKEY_CURRENT_USER, _T("Software\\VnReconcileTests"));  // only if empty
  }

  // Whether HKCU\<path>\<rel> exists, asked without the class under test.
  bool KeyExists(LPCWSTR rel) const {
    HKEY key = nullptr;
    CString full = m_path + (rel && *rel ? CString(_T("\\")) + rel : CString());
    if (RegOpenKeyExW(HKEY_CURRENT_USER, full, 0, KEY_READ, &key) != ERROR_SUCCESS)
      return false;
    RegCloseKey(key);
    return true;
  }
  // Creates each key below HKCU\<path>, with a value in it.
  void Make(std::initializer_list<LPCWSTR> keys) {
    CVnRegistry maker(HKEY_CURRENT_USER, m_path);
    for (LPCWSTR key : keys) {
      EXPECT_EQ(1, maker.OpenSection(key));
      maker.PutInt(_T("V"), 1);
      maker.CloseSection();
    }
  }
  // Writes a raw value of any type and size under HKCU\<path>\<section>.
  void PutRaw(LPCWSTR section, LPCWSTR name, DWORD type, const void* data, DWORD size) {
    HKEY key = nullptr;
    CString full = m_path + _T("\\") + section;
    ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, full, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                             &key, nullptr));
    ASSERT_EQ(ERROR_SUCCESS, RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), size));
    RegCloseKey(key);
  }

  CString m_path;
};

TEST_F(VnRegistryTest, ValuesRoundTripThroughTheSectionAndThroughASubKey) {
  CVnRegistry reg(HKEY_CURRENT_USER, m_path, _T("Sec"));
  EXPECT_EQ(1, reg.InitOk());
  EXPECT_EQ(1, reg.PutString(_T("Text"), _T("Courier New")));
  EXPECT_EQ(1, reg.PutString(_T("Empty"), _T("")));
  EXPECT_EQ(1, reg.PutInt(_T("Number"), 0xFFFFFFF6u));  // -10 as a DWORD
  EXPECT_EQ(1, reg.PutBool(_T("Flag"), 2));
  const BYTE data[5] = {1, 2, 0, 4, 5};
  EXPECT_EQ(1, reg.PutBinary(_T("Data"), data, sizeof data));
  EXPECT_EQ(1, reg.CloseSection());

  // Read back through the sub key argument, with no section open.
  EXPECT_EQ("Courier New", U8(reg.GetString(_T("Text"), _T("def"), _T("Sec"))));
  EXPECT_EQ("", U8(reg.GetString(_T("Empty"), _T("def"), _T("Sec"))));
  EXPECT_EQ(0xFFFFFFF6u, reg.GetInt(_T("Number"), 7, _T("Sec")));
  EXPECT_EQ(1u, reg.GetInt(_T("Flag"), 7, _T("Sec"))) << "PutBool stores 1 for any value not 0";
  EXPECT_EQ(1, reg.GetBool(_T("Flag"), 0, _T("Sec")));
  BYTE back[5] = {};
  DWORD size = sizeof back, type = 0;
  EXPECT_EQ(1, reg.GetBinary(_T("Data"), back, size, nullptr, _T("Sec")));
  EXPECT_EQ(5u, size);
  EXPECT_EQ(0, std::memcmp(data, back, sizeof data));

  // Strings are stored with their terminator.
  size = 0;
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, m_path + _T("\\Sec"), 0, KEY_READ, &key));
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, _T("Text"), nullptr, &type, nullptr, &size));
  RegCloseKey(key);
  EXPECT_EQ(static_cast<DWORD>(REG_SZ), type);
  EXPECT_EQ(24u, size) << "(11 characters + 1) * 2 bytes";
}

// Raw values of every type and size: the readers take text up to its first
// zero, unexpanded, and give the caller's default for every kind of failure.
TEST_F(VnRegistryTest, ReadersTakeTextToItsFirstZeroAndGiveTheDefaultForEveryFailure) {
  const DWORD number = 42;
  const WORD shortNumber = 42;
  const BYTE bytes[4] = {42, 0, 0, 0}, odd[] = {'h', 0, 'i', 0, '!'};
  const WCHAR embedded[] = L"one\0two", unterminated[] = {'a', 'b', 'c'}, expand[] = L"%PATH%\\x";
  const struct { LPCWSTR name; DWORD type; const void* data; DWORD size; } raw[] = {
      {_T("Sz"), REG_SZ, L"text", 10}, {_T("Short"), REG_DWORD, &shortNumber, 2}, {_T("Long"), REG_DWORD, bytes, 3},
      {_T("Bin"), REG_BINARY, bytes, 4}, {_T("Num"), REG_DWORD, &number, 4},
      {_T("Multi"), REG_MULTI_SZ, L"a\0b\0", 10}, {_T("Embedded"), REG_SZ, embedded, sizeof embedded},
      {_T("Unterminated"), REG_SZ, unterminated, 6}, {_T("Expand"), REG_EXPAND_SZ, expand, sizeof expand},
      {_T("Odd"), REG_SZ, odd, 5}, {_T("Empty"), REG_SZ, nullptr, 0},
  };
  for (const auto& r : raw)
    PutRaw(_T("Sec"), r.name, r.type, r.data, r.size);
  CVnRegistry reg(HKEY_CURRENT_USER, m_path, _T("Sec"));
  struct Row { const char* what; LPCWSTR name; LPCWSTR subKey; } ints[] = {
      {"missing value", _T("Nothing"), nullptr}, {"text read as a number", _T("Sz"), nullptr},
      {"a two-byte DWORD", _T("Short"), nullptr}, {"a three-byte DWORD", _T("Long"), nullptr},
      {"binary read as a number", _T("Bin"), nullptr}, {"missing sub key", _T("Num"), _T("NoSuchKey")},
  };
  for (const Row& r : ints)
    EXPECT_EQ(777u, reg.GetInt(r.name, 777, r.subKey)) << r.what;
  const struct { LPCWSTR name; LPCWSTR subKey; const char* text; } strings[] = {
      {_T("Nothing"), nullptr, "fallback"}, {_T("Num"), nullptr, "fallback"}, {_T("Bin"), nullptr, "fallback"},
      {_T("Multi"), nullptr, "fallback"}, {_T("Sz"), _T("NoSuchKey"), "fallback"}, {_T("Embedded"), nullptr, "one"},
      {_T("Unterminated"), nullptr, "abc"}, {_T("Expand"), nullptr, "%PATH%\\x"}, {_T("Odd"), nullptr, "hi"},
      {_T("Empty"), nullptr, ""},
  };
  for (const auto& r : strings)
    EXPECT_EQ(r.text, U8(reg.GetString(r.name, _T("fallback"), r.subKey))) << U8(r.name);
  EXPECT_EQ("", U8(reg.GetString(_T("Nothing"), nullptr))) << "a null default counts as empty";

  EXPECT_EQ(1, reg.GetBool(_T("Nothing"), 2)) << "the default is reduced to 1";
  EXPECT_EQ(0, reg.GetBool(_T("Sz"), 0));

  // With no section open, readers without a sub key have no key at all.
  reg.CloseSection();
  EXPECT_EQ(777u, reg.GetInt(_T("Num"), 777));
  EXPECT_EQ("fallback", U8(reg.GetString(_T("Sz"), _T("fallback"))));
}

TEST_F(VnRegistryTest, GetBinaryReportsSizesAndFallsBackToTheDefaultData) {
  const BYTE stored[6] = {9, 8, 7, 6, 5, 4};
  PutRaw(_T("Sec"), _T("Bin"), REG_BINARY, stored, sizeof stored);
  PutRaw(_T("Sec"), _T("Sz"), REG_SZ, L"x", 4);
  CVnRegistry reg(HKEY_CURRENT_USER, m_path, _T("Sec"));

  DWORD size = 1;
  EXPECT_EQ(1, reg.GetBinary(_T("Bin"), nullptr, size));
  EXPECT_EQ(6u, size) << "a null buffer asks for the size";

  BYTE small[4] = {0xEE, 0xEE, 0xEE, 0xEE};
  size = sizeof small;
  EXPECT_EQ(0, reg.GetBinary(_T("Bin"), small, size));
  EXPECT_EQ(6u, size) << "too small: the needed size comes back";
  EXPECT_EQ(0xEE, small[0]) << "and the buffer is untouched";

  BYTE big[10] = {};
  size = sizeof big;
  EXPECT_EQ(1, reg.GetBinary(_T("Bin"), big, size));
  EXPECT_EQ(6u, size);
  EXPECT_EQ(0, std::memcmp(stored, big, 6));

  const BYTE def[3] = {1, 2, 3};
  BYTE out[3] = {};
  for (LPCWSTR name : {_T("Sz"), _T("Missing")}) {
    size = 2;
    std::memset(out, 0, sizeof out);
    EXPECT_EQ(1, reg.GetBinary(name, out, size, def)) << U8(name);
    EXPECT_EQ((std::vector<BYTE>{1, 2, 0}), std::vector<BYTE>(out, out + 3)) << "only the caller's size";
    EXPECT_EQ(0, reg.GetBinary(name, out, size)) << "no default data: 0";
  }
}

TEST_F(VnRegistryTest, WritersNeedAnOpenSectionOrAnExistingSubKey) {
  ProbeRegistry reg(HKEY_CURRENT_USER, m_path);
  EXPECT_EQ(0, reg.IsSectionOpen());
  EXPECT_EQ(0, reg.PutInt(_T("N"), 1)) << "no section, no sub key";
  EXPECT_EQ(0, reg.PutInt(_T("N"), 1, _T("Missing")));
  EXPECT_EQ(0, reg.PutString(_T("S"), _T("x"), _T("Missing")));
  EXPECT_FALSE(KeyExists(_T("Missing"))) << "a sub key argument never creates";
  EXPECT_EQ(0, reg.DeleteEntry(_T("N"), _T("Missing")));

  EXPECT_EQ(0, reg.OpenSection(_T("Missing"), 0));
  EXPECT_EQ(0, reg.IsSectionOpen());
  EXPECT_EQ(1, reg.OpenSection(_T("Created"), 1));
  EXPECT_TRUE(KeyExists(_T("Created")));
  EXPECT_EQ(1, reg.PutInt(_T("N"), 5));
  EXPECT_EQ(1, reg.DeleteEntry(_T("N")));
  EXPECT_EQ(0, reg.DeleteEntry(_T("N"))) << "already gone";
  EXPECT_EQ(1, reg.CloseSection());
  EXPECT_EQ(1, reg.CloseSection()) << "closing with none open gives 1";
}

TEST_F(VnRegistryTest, SubKeysAreOpenedWithFullAccessWhateverTheSection) {
  { CVnRegistry create(HKEY_CURRENT_USER, m_path, _T("Sec")); }
  CVnRegistry reg(HKEY_CURRENT_USER, m_path, _T("Sec"), KEY_READ);
  EXPECT_EQ(0, reg.PutInt(_T("N"), 3)) << "the section itself was opened for reading";
  EXPECT_EQ(1, reg.PutInt(_T("N"), 3, _T("Sec"))) << "the sub key is opened with KEY_ALL_ACCESS";
  EXPECT_EQ(3u, reg.GetInt(_T("N"), 0));
}

// The root is the caller's handle: a key opened here stands in for it, so a
// destructor that closed it would leave the handle dead.
TEST_F(VnRegistryTest, AnEmptyPathMakesTheRootTheBase) {
  HKEY root = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_CURRENT_USER, m_path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                           &root, nullptr));
  for (LPCWSTR path : {static_cast<LPCWSTR>(nullptr), _T("")}) {
    {
      ProbeRegistry reg;
      EXPECT_EQ(0, reg.InitOk());
      EXPECT_EQ(1, reg.SetBaseKey(root, path, 0, KEY_ALL_ACCESS));
      EXPECT_EQ(1, reg.InitOk());
      EXPECT_EQ(root, reg.GetBaseKey());
      EXPECT_EQ("", U8(reg.GetBaseSubKey()));
      EXPECT_EQ(1, reg.OpenSection(_T("ViaRoot")));
      EXPECT_EQ(1, reg.PutInt(_T("N"), 11));
    }
    DWORD subKeys = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryInfoKeyW(root, nullptr, nullptr, nullptr, &subKeys, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr, nullptr))
        << "the root handle must still be open";
    EXPECT_EQ(1u, subKeys);
  }
  RegCloseKey(root);
  CVnRegistry again(HKEY_CURRENT_USER, m_path);
  EXPECT_EQ(11u, again.GetInt(_T("N"), 0, _T("ViaRoot")));
}

TEST_F(VnRegistryTest, SetBaseKeyOpensOrCreatesAndLeavesTheSectionAlone) {
  ProbeRegistry reg;
  EXPECT_EQ(0, reg.SetBaseKey(HKEY_CURRENT_USER, m_path + _T("\\Base"), 0, KEY_ALL_ACCESS));
  EXPECT_EQ(1, reg.InitOk()) << "the root is stored even when the open fails";
  EXPECT_FALSE(KeyExists(_T("Base")));
  EXPECT_EQ(1, reg.SetBaseKey(HKEY_CURRENT_USER, m_path + _T("\\Base"), 1, KEY_ALL_ACCESS));
  EXPECT_TRUE(KeyExists(_T("Base")));
  EXPECT_EQ(1, reg.OpenSection(_T("Sec")));
  EXPECT_EQ(1, reg.SetBaseKey(HKEY_CURRENT_USER, m_path, 1, KEY_ALL_ACCESS));
  EXPECT_EQ(1, reg.IsSectionOpen());
  EXPECT_EQ(1, reg.PutInt(_T("N"), 4)) << "still writes into Base\\Sec";
  EXPECT_EQ(4u, reg.GetInt(_T("N"), 0, _T("Base\\Sec")));
}

TEST_F(VnRegistryTest, KeyListsNameChildrenAndLeaveNoSectionOpen) {
  Make({_T("Parent\\beta"), _T("Parent\\alpha"), _T("Parent\\gamma\\deep"), _T("Lonely")});
  ProbeRegistry reg(HKEY_CURRENT_USER, m_path, _T("Lonely"));
  CStringList names;
  names.AddTail(_T("stale"));
  EXPECT_EQ(1, reg.GetKeyList(_T("Parent"), names));
  EXPECT_EQ(0, reg.IsSectionOpen());
  std::vector<std::string> got;
  for (POSITION pos = names.GetHeadPosition(); pos;)
    got.push_back(U8(names.GetNext(pos)));
  // The registry enumerates sub keys in alphabetical order.
  EXPECT_EQ((std::vector<std::string>{"alpha", "beta", "gamma"}), got);

  EXPECT_EQ(0, reg.GetKeyList(_T("Lonely"), names)) << "childless";
  EXPECT_TRUE(names.IsEmpty());
  EXPECT_EQ(0, reg.GetKeyList(_T("Missing"), names)) << "missing looks the same";
}

TEST_F(VnRegistryTest, DeleteSectionRemovesWholeTreesAndOnlyThem) {
  Make({_T("Tree\\a\\b\\c\\d"), _T("Tree\\a\\x"), _T("Tree\\e"), _T("Keep\\k")});
  CVnRegistry reg(HKEY_CURRENT_USER, m_path);
  EXPECT_EQ(0, reg.DeleteSection(_T("Tree"))) << "one call refuses a key with children";
  EXPECT_TRUE(KeyExists(_T("Tree\\a\\b\\c\\d")));

  EXPECT_EQ(1, reg.DeleteSection(HKEY_CURRENT_USER, m_path, _T("Tree")));
  EXPECT_FALSE(KeyExists(_T("Tree")));
  EXPECT_TRUE(KeyExists(_T("Keep\\k")));
  EXPECT_EQ(0, reg.DeleteSection(HKEY_CURRENT_USER, m_path, _T("Tree"))) << "already gone";
  EXPECT_EQ(0, reg.DeleteSection(HKEY_CURRENT_USER, m_path + _T("\\Nowhere"), _T("Keep")));
  EXPECT_EQ(0, reg.DeleteSection(_T("Keep\\k"))) << "the base stands where the failure was";
  EXPECT_TRUE(KeyExists(_T("Keep\\k")));

  reg.SetBaseKey(HKEY_CURRENT_USER, m_path, 0, KEY_ALL_ACCESS);
  EXPECT_EQ(1, reg.DeleteSection(_T("Keep\\k")));
  EXPECT_EQ(1, reg.DeleteSection(_T("Keep")));
  EXPECT_FALSE(KeyExists(_T("Keep")));
  EXPECT_EQ(0, reg.DeleteSection(_T(""))) << "never the base itself";
  EXPECT_EQ(0, reg.DeleteSection(HKEY_CURRENT_USER, m_path, nullptr));
  EXPECT_TRUE(KeyExists(nullptr));
}

TEST_F(VnRegistryTest, CopiesOwnTheirKeys) {
  auto original = new ProbeRegistry(HKEY_CURRENT_USER, m_path, _T("Sec"));
  original->PutInt(_T("N"), 21);

  ProbeRegistry copied(*original);
  EXPECT_EQ(0, copied.IsSectionOpen()) << "the section is not carried over";
  EXPECT_EQ(21u, copied.GetInt(_T("N"), 0, _T("Sec")));

  ProbeRegistry assigned;
  assigned = *original;
  EXPECT_EQ(1, assigned.IsSectionOpen());
  delete original;  // closes its own handles only
  EXPECT_EQ(21u, assigned.GetInt(_T("N"), 0));
  EXPECT_EQ(1, assigned.PutInt(_T("M"), 22));
  EXPECT_EQ(22u, copied.GetInt(_T("M"), 0, _T("Sec")));
  EXPECT_EQ(1, assigned.CloseSection());
}

}  // namespace
