// VnTempFilesManagerTest.cpp - the list of a frame's temporary files: an
// entry deleted on its own stays as an empty name, names match without
// regard to case, and deleting all skips the emptied entries and goes on
// past a file that won't go.
#include "TestSupport.h"
#include "foundation/VnFileSystem.h"
#include "window/VnTempFilesManager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace vn::test;

namespace {

bool Exists(const CString& path) { return std::filesystem::exists(FsPath(path)); }

std::vector<std::string> Names(const CVnTempFilesManager& files) {
  std::vector<std::string> names;
  for (INT_PTR i = 0; i < files.GetNames().GetSize(); ++i)
    names.push_back(U8(files.GetNames()[i]));
  return names;
}

class TempFilesTest : public ::testing::Test {
protected:
  CString Make(const char* name) {
    CString path = m_dir.Path() + W(name);
    CVnFileSystem::CreateFileW(path, 1, "x");
    return path;
  }
  std::string Full(const char* name) { return U8(m_dir.Path() + W(name)); }
  ScratchDir m_dir;
};

}  // namespace

// Letter case aside, every entry equal to the name is emptied; the name's
// own file goes whether or not it was listed.
TEST_F(TempFilesTest, DeleteThisTempFileEmptiesMatchingEntriesAndDeletesTheFile) {
  struct Case {
    const char* deleted;
    std::vector<const char*> emptied;  // entries left empty, by file name
  } cases[] = {{"a.tmp", {"a.tmp"}}, {"A.TMP", {"a.tmp"}}, {"other.tmp", {}}};
  for (const Case& c : cases) {
    CVnTempFilesManager files;
    files.AddNewTempFileName(Make("a.tmp"));
    files.AddNewTempFileName(Make("b.tmp"));
    CString deleted = Make(c.deleted);
    files.DeleteThisTempFile(deleted);
    EXPECT_FALSE(Exists(deleted)) << c.deleted;
    std::vector<std::string> expected = {Full("a.tmp"), Full("b.tmp")};
    for (std::string& name : expected)
      for (const char* gone : c.emptied)
        if (name == Full(gone))
          name.clear();
    EXPECT_EQ(expected, Names(files)) << c.deleted;
  }
}

// An emptied entry is not deleted again (its name may since belong to
// another file); a failure on one file doesn't stop the others.
TEST_F(TempFilesTest, DeleteAllTempFilesSkipsEmptiedEntriesAndGoesOnPastFailures) {
  CString kept = Make("kept.tmp"), directory = m_dir.Path() + W("dir"), last = Make("last.tmp");
  CVnFileSystem::MakeDirectory(directory);
  CString inside = Make("dir\\inside.tmp");
  CVnTempFilesManager files;
  for (const CString& name : {kept, directory, last})
    files.AddNewTempFileName(name);
  files.DeleteThisTempFile(kept);
  Make("kept.tmp");
  files.DeleteAllTempFiles();
  EXPECT_TRUE(Exists(kept));
  EXPECT_TRUE(Exists(inside));
  EXPECT_FALSE(Exists(last));
  EXPECT_TRUE(Names(files).empty());
}

TEST_F(TempFilesTest, TheFilesGoWithTheManager) {
  CString first = Make("first.tmp"), second = Make("second.tmp");
  {
    CVnTempFilesManager files;
    files.AddNewTempFileName(first);
    files.AddNewTempFileName(second);
  }
  EXPECT_FALSE(Exists(first));
  EXPECT_FALSE(Exists(second));
}
