// StringTableTest.cpp - the component's numbered texts, exact, in either build.
//
// The Windows build reads them from the DLL's string table, the native build
// from its compiled-in table; both come from one source, and this table is
// what both must give, blank for blank.
#include "foundation/LocalResources.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Entry {
  UINT id;
  const char* text;
};

const Entry kTable[] = {
    {1, "Select Directory"},
    {2, "OK"},
    {3, "The file name you have entered contains characters not allowed by the operating system.\n\nA file name cannot resolve to an empty string or contain any of the following characters: \\ / : * ? \" < > |"},
    {4, "Select File"},
    {5, "General|Server Error|Server Error|pf2a.wav"},
    {6, "The directory name you have entered is invalid, or contains characters not allowed by the operating system.\n\nA directory name cannot contain any of the following characters:  ! * ?  \" < > | ;"},
    {7, "Please enter a relative rather than an absolute path (e.g., \"myfolder\" or \"..\\my folder\", but not \"c:\\myfolder\" and not \"\\\\netdrive\\myfolder\")."},
    {8, "Template tag %s not found."},
    {9, "BeginRepeat"},
    {10, "EndRepeat"},
    {11, "HistoryRevision"},
    {12, "HistoryBranchRevision"},
    {13, "HistoryDate&Time"},
    {14, "HistoryReason"},
    {15, "HistoryAuthor"},
    {16, "HistoryView"},
    {101, "(Read-Only)"},
    {102, "Close"},
    {132, "Select only %d files, please."},
    {133, "Failed to open: too many files selected."},
    {147, "The search text was not  found."},
    {148, "Options"},
    {149, "Please click on a text pane first."},
    {150, "UTF-16 (Big Endian)"},
    {151, "UTF-16 (Little Endian)"},
    {152, "File Name goes here"},
    {153, "Cannot open file %s."},
    {154, "binary"},
    {155, "Matching Text"},
    {156, "Replaced Text"},
    {157, "Inserted Text"},
    {158, "Deleted Text"},
    {159, "-------  Sample Text  -------"},
    {160, "Unknown system-level error occured."},
    {161, "%s is a binary file.  Continue the compare or merge operation?"},
    {162, "Internal error with ID 101 has been encountered.  Operation was unsuccessful."},
    {163, "Internal error with ID 102 has been encountered.  Operation was unsuccessful."},
    {164, "Internal error with ID 103 has been encountered.  Operation was unsuccessful."},
    {165, "Unknown error."},
    {166, "Fails to copy to a temporary file."},
    {167, "%s is a binary file.  Operation was unsuccessful."},
    {168, "Close"},
    {169, "Reconcile"},
    {2897, "Some or all pages in this property sheet must be visited to enter or verify information."},
    {2899, "The specified path is blank."},
    {2900, "The specified path is incorrect."},
    {2901, "The file already exists."},
    {2902, "The specified file does not exist."},
    {2904, "Invalid number."},
    {2907, "Unknown"},
    {2909, "About Tessera"},
    {6000, ": %I64d of %I64d"},
    {6001, "Items loading... (%d of %d)"},
    {6002, ": %s of %s bytes"},
    {6010, "Step progress"},
    {6011, "Total progress"},
    {7000, "Operation aborted."},
    {7001, "Cancelling..."},
    {10000, "Please enter an integer."},
    {10001, "Please enter a positive integer."},
    {10002, "Please enter a number."},
    {32773, "Underline\nUnderline"},
    {32774, "Bullets\nBullets"},
    {32777, "Bold\nBold"},
    {32778, "Italic\nItalic"},
    {32781, "Color\nColor"},
    {32782, "Black"},
    {32783, "Maroon"},
    {32784, "Green"},
    {32785, "Olive"},
    {32786, "Navy"},
    {32787, "Purple"},
    {32788, "Teal"},
    {32789, "Gray"},
    {32790, "Silver"},
    {32791, "Red"},
    {32792, "Lime"},
    {32793, "Yellow"},
    {32794, "Blue"},
    {32795, "Fuchsia"},
    {32796, "Aqua"},
    {32797, "White"},
    {32798, "Automatic"},
    {32799, "The text cannot be empty"},
};

TEST(StringTableTest, EveryEntryLoadsWithItsExactText) {
  for (const Entry& e : kTable) {
    SCOPED_TRACE(e.id);
    EXPECT_EQ(std::string(e.text), VnToUtf8(LoadLocalString(GetResourceModule(), e.id)));
  }
}

TEST(StringTableTest, HoldsExactlyTheListedEntries) {
  ASSERT_EQ(84u, sizeof(kTable) / sizeof(kTable[0]));
  size_t found = 0;
  CString text;
  for (UINT id = 0; id <= 0xFFFF; ++id)
    found += LoadLocalString(GetResourceModule(), id, text) ? 1 : 0;
  EXPECT_EQ(84u, found);
}

}  // namespace
