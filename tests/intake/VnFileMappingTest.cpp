// VnFileMappingTest.cpp - views of whole files, growth, and closing.
#include "intake/VnFileMapping.h"

#include "IntakeTestFiles.h"
#include "foundation/VnException.h"
#include "intake/VnFile.h"

#include <cstring>
#include <gtest/gtest.h>

using vn::test::TempFile;

namespace {

// An empty file has no view; Close takes a view away.
TEST(VnFileMappingTest, ReadOnlyViewShowsTheBytes) {
  for (const std::string& bytes : {std::string("mapped bytes"), std::string()}) {
    TempFile file(bytes);
    CVnFileMapping mapping;
    mapping.Open(file.Path(), 0);
    unsigned long size = 99;
    const void* view = &size;
    mapping.GetBuffer(size, view);
    ASSERT_EQ(bytes.size(), size);
    EXPECT_EQ(bytes.empty(), view == nullptr);
    EXPECT_EQ(bytes, vn::test::Bytes(static_cast<const unsigned char*>(view), size));
    mapping.Close();
    mapping.GetBuffer(size, view);
    EXPECT_EQ(nullptr, view);
  }
}

TEST(VnFileMappingTest, MissingFileIsCreatedEmpty) {
  TempFile file;
  const CString path = file.Path() + _T(".made");
  EXPECT_FALSE(CVnFile::IsBinary(path));
  EXPECT_EQ(1, CVnFile::IsFile(path));
  CVnFile::FileRemove(path);
}

TEST(VnFileMappingTest, WritableMappingGrowsTheFileOnDisk) {
  TempFile file("ab");
  {
    CVnFileMapping mapping;
    mapping.Open(file.Path(), 8);
    unsigned long size = 0;
    void* view = nullptr;
    mapping.GetBuffer(size, view);
    ASSERT_EQ(8u, size);
    memcpy(static_cast<char*>(view) + 2, "cdefgh", 6);
  }
  CVnFile::FileStatus status;
  CVnFile::GetStatus(file.Path(), status, true);
  EXPECT_EQ(8u, status.m_sizeLow);
  CVnFile open(file.Path(), CFile::modeRead);
  CVnSmartBytePtr bytes;
  EXPECT_EQ("abcdefgh", vn::test::Bytes(bytes, open.ReadAll(bytes)));
}

TEST(VnFileMappingTest, ClosingLeavesACallersFileOpen) {
  TempFile file("shared");
  CVnFile open(file.Path(), CFile::modeRead);
  {
    CVnFileMapping mapping;
    mapping.Open(open, 0);
    unsigned long size = 0;
    const void* view = nullptr;
    mapping.GetBuffer(size, view);
    EXPECT_EQ(6u, size);
    mapping.Close();
  }
  char buf[6];
  open.SeekToBegin();
  EXPECT_EQ(6u, open.ReadRaw(buf, 6));
  EXPECT_EQ(0, memcmp(buf, "shared", 6));
}

TEST(VnFileMappingTest, FailureRaisesTheOSExceptionWithTheSystemsCode) {
  TempFile file;
  CVnFileMapping mapping;
  try {
    mapping.Open(file.Path() + _T(".dir/inside"), 0);  // no such directory
    FAIL() << "mapping in a missing directory must raise";
  } catch (CVnOSException* e) {
    EXPECT_EQ(ERROR_PATH_NOT_FOUND, e->GetError());
    e->Delete();
  }
}

}  // namespace
