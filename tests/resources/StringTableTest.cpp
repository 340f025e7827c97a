// StringTableTest.cpp - the component's numbered texts, in either build.
//
// The Windows build reads them from the DLL's string table, the native build
// from its compiled-in table; both come from one source.  The exact texts
// below are those whose characters a generator or a resource compiler could
// mangle (quotes, backslashes, line breaks, '%', '&', '|', doubled blanks)
// and the ends of the number ranges; the second test pins the set of numbers.
#include "foundation/LocalResources.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

struct Entry { UINT id; const char* text; };

const Entry kTexts[] = {
    {1, "Select Directory"},
    {3, "The file name you have entered contains characters not allowed by the operating system.\n\nA file name cannot resolve to an empty string or contain any of the following characters: \\ / : * ? \" < > |"},
    {5, "General|Server Error|Server Error|pf2a.wav"},
    {6, "The directory name you have entered is invalid, or contains characters not allowed by the operating system.\n\nA directory name cannot contain any of the following characters:  ! * ?  \" < > | ;"},
    {7, "Please enter a relative rather than an absolute path (e.g., \"myfolder\" or \"..\\my folder\", but not \"c:\\myfolder\" and not \"\\\\netdrive\\myfolder\")."},
    {13, "HistoryDate&Time"}, {16, "HistoryView"}, {101, "(Read-Only)"}, {132, "Select only %d files, please."},
    {147, "The search text was not  found."}, {159, "-------  Sample Text  -------"}, {169, "Reconcile"},
    {2897, "Some or all pages in this property sheet must be visited to enter or verify information."},
    {2909, "About Tessera"}, {6000, ": %I64d of %I64d"}, {6011, "Total progress"}, {7000, "Operation aborted."},
    {10002, "Please enter a number."}, {32773, "Underline\nUnderline"}, {32799, "The text cannot be empty"},
    {0xF040, "on %1"}, {0xF047, "Printer Files (*.prn)|*.prn|All Files (*.*)|*.*||"},
    {0xF106, "The print job could not be started.  Check that the printer is ready, or choose another one."},
};

TEST(StringTableTest, EntriesLoadWithTheirExactText) {
  for (const Entry& e : kTexts) {
    SCOPED_TRACE(e.id);
    EXPECT_EQ(std::string(e.text), VnToUtf8(LoadLocalString(GetResourceModule(), e.id)));
  }
}

TEST(StringTableTest, HoldsExactlyTheListedNumbers) {
  const std::pair<UINT, UINT> ranges[] = {
      {1, 16},      {101, 102},   {132, 133},   {147, 169},   {2897, 2897}, {2899, 2902}, {2904, 2904},
      {2907, 2907}, {2909, 2909}, {6000, 6002}, {6010, 6011}, {7000, 7001}, {10000, 10002}, {32773, 32774},
      {32777, 32778}, {32781, 32799}, {0xF040, 0xF040}, {0xF043, 0xF043}, {0xF045, 0xF049}, {0xF106, 0xF106},
  };
  std::set<UINT> expected, found;
  for (const auto& r : ranges)
    for (UINT id = r.first; id <= r.second; ++id)
      expected.insert(id);
  ASSERT_EQ(92u, expected.size());
  CString text;
  for (UINT id = 0; id <= 0xFFFF; ++id)
    if (LoadLocalString(GetResourceModule(), id, text))
      found.insert(id);
  EXPECT_EQ(expected, found);
}

}  // namespace
