// VnUTF8Test.cpp - storage choice, foreign bytes and the two conversions.
#include "intake/VnUTF8.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

const unsigned char* U(const char* s) { return reinterpret_cast<const unsigned char*>(s); }

TEST(VnUTF8Test, ConvertsTextAndTerminatesIt) {
  const struct { const char* utf8; int size; } cases[] = {
      {"abc", 3}, {"", 0}, {"caf\xC3\xA9", 5}, {"\xF0\x9F\x98\x80", 4}};
  for (const auto& c : cases) {
    CString text = VnFromUtf8(c.utf8);
    CVnUTF8 u(text);
    EXPECT_EQ(c.size, u.Size());
    ASSERT_NE(nullptr, u.UTF8Str());
    EXPECT_STREQ(c.utf8, u.UTF8Str());
    EXPECT_EQ(0, u.UTF8Bytes()[c.size]);
    EXPECT_EQ(text, u.Text());
  }
}

// Unlike one made from an empty text, an object made from nothing holds no
// storage at all.
TEST(VnUTF8Test, AnObjectOfNothingHasNoText) {
  CVnUTF8 none;
  EXPECT_EQ(nullptr, none.UTF8Str());
  EXPECT_EQ(nullptr, none.UTF8Bytes());
  EXPECT_TRUE(none.Text().IsEmpty());
}

TEST(VnUTF8Test, WrapsForeignBytesWithoutCopying) {
  const char bytes[] = "hello world";
  CVnUTF8 u(U(bytes), 5);
  EXPECT_EQ(U(bytes), u.UTF8Bytes());
  EXPECT_EQ(nullptr, u.UTF8Str());
  EXPECT_EQ(_T("hello"), u.Text());
  u.SetUTF8(U(bytes + 6), 5);
  EXPECT_EQ(_T("world"), u.Text());
}

TEST(VnUTF8Test, ShortStringsStayInsideTheObject) {
  CVnUTF8 u;
  const struct { int size; bool inside; } cases[] = {{0, true}, {4095, true}, {4096, false}, {100000, false}};
  for (const auto& c : cases) {
    unsigned char* p = u.AllocUTF8(c.size);
    const bool inside = p >= reinterpret_cast<unsigned char*>(&u) &&
                        p < reinterpret_cast<unsigned char*>(&u) + sizeof u;
    EXPECT_EQ(c.inside, inside) << c.size;
    EXPECT_EQ(0, p[c.size]);
    EXPECT_EQ(c.size, u.Size());
  }
  // Converted text counts its terminator: 4,095 bytes go to the heap.
  CVnUTF8 text(CString(_T('x'), 4095));
  const unsigned char* p = text.UTF8Bytes();
  EXPECT_FALSE(p >= reinterpret_cast<const unsigned char*>(&text) &&
               p < reinterpret_cast<const unsigned char*>(&text) + sizeof text);
}

TEST(VnUTF8Test, DetachHandsTheHeapArrayOver) {
  unsigned char* array = nullptr;
  int size = 0;
  {
    CVnUTF8 u;
    u.AllocAndSetUTF8(U(std::string(5000, 'z').c_str()), 5000);
    array = u.Detach(&size);
    EXPECT_EQ(array, u.UTF8Bytes());  // still shown, no longer owned
  }
  EXPECT_EQ(5000, size);
  EXPECT_EQ('z', array[4999]);
  delete[] array;
}

TEST(VnUTF8Test, AssignmentGivesEachObjectItsOwnStorage) {
  CVnUTF8 big(CString(_T('q'), 6000));
  CVnUTF8 small(VnFromUtf8("tiny"));
  CVnUTF8 a, b;
  a = big;
  b = small;
  EXPECT_NE(big.UTF8Bytes(), a.UTF8Bytes());
  EXPECT_NE(small.UTF8Bytes(), b.UTF8Bytes());
  EXPECT_EQ(big.Text(), a.Text());
  EXPECT_STREQ("tiny", b.UTF8Str());
  CVnUTF8 copy(b);
  EXPECT_STREQ("tiny", copy.UTF8Str());
}

}  // namespace
