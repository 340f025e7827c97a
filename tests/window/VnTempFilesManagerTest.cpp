// VnTempFilesManagerTest.cpp - the list of a frame's temporary files: a file
// deleted on its own leaves an empty entry, names match without regard to
// case, and deleting all goes on past a file that won't go.
#include "TestSupport.h"
#include "foundation/VnFileSystem.h"
#include "window/VnTempFilesManager.h"

#include <gtest/gtest.h>

#include <vector>

using namespace vn::test;

namespace {

class TempFilesTest : public ::testing::Test {
protected:
  CString Make(const char* name) {
    CString path = m_dir.Path() + W(name);
    CVnFileSystem::CreateFileW(path, 1, "x");
    return path;
  }
  static bool Exists(const CString& path) { return std::filesystem::exists(FsPath(path)); }
  static std::vector<std::string> Names(const CVnTempFilesManager& files) {
    std::vector<std::string> names;
    for (INT_PTR i = 0; i < files.GetNames().GetSize(); ++i)
      names.push_back(U8(files.GetNames()[i]));
    return names;
  }
  ScratchDir m_dir;
};

}  // namespace

// Every entry equal to the name but for case is emptied; the name's own
// file goes whether or not it was listed.
TEST_F(TempFilesTest, DeleteThisTempFileEmptiesMatchingEntriesAndDeletesTheFile) {
  const struct {
    const char* deleted;
    bool firstEmptied;
  } cases[] = {{"a.tmp", true}, {"A.TMP", true}, {"other.tmp", false}};
  for (const auto& c : cases) {
    CVnTempFilesManager files;
    const CString a = Make("a.tmp"), b = Make("b.tmp"), deleted = Make(c.deleted);
    files.AddNewTempFileName(a);
    files.AddNewTempFileName(b);
    files.DeleteThisTempFile(deleted);
    EXPECT_FALSE(Exists(deleted)) << c.deleted;
    EXPECT_EQ((std::vector<std::string>{c.firstEmptied ? "" : U8(a), U8(b)}), Names(files)) << c.deleted;
  }
}

// A file deleted on its own is not deleted again (its name may belong to
// a new file by then); a directory that can't be deleted stops nothing;
// the manager's end deletes the rest.
TEST_F(TempFilesTest, DeleteAllTempFilesSkipsDeletedFilesAndGoesOnPastFailures) {
  const CString kept = Make("kept.tmp"), dir = m_dir.Path() + W("dir"), last = Make("last.tmp");
  CVnFileSystem::MakeDirectory(dir);
  const CString inside = Make("dir\\inside.tmp"), atEnd = Make("end.tmp");
  {
    CVnTempFilesManager files;
    for (const CString& name : {kept, dir, last})
      files.AddNewTempFileName(name);
    files.DeleteThisTempFile(kept);
    Make("kept.tmp");
    files.DeleteAllTempFiles();
    EXPECT_TRUE(Exists(kept) && Exists(inside));
    EXPECT_FALSE(Exists(last));
    EXPECT_TRUE(Names(files).empty());
    files.AddNewTempFileName(atEnd);
  }
  EXPECT_FALSE(Exists(atEnd));
}
