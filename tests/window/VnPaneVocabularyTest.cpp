// VnPaneVocabularyTest.cpp - what the windows of a comparison share: the
// private message numbers, which hosts send too, and the position record of
// a synchronisation.
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"

#include <gtest/gtest.h>

namespace {

TEST(VnPaneMessages, NumbersAreFixedAndDistinct) {
  const struct {
    UINT message;
    UINT value;
  } cases[] = {
      {WM_PANE_SYNCHRONIZE, 0x402},         {WM_PANE_SETDEFAULTCHARFORMAT, 0x403},
      {WM_PANE_SETTABSTOPS, 0x404},         {WM_PANE_GOTOBEGINNING, 0x405},
      {WM_PANE_RESIZEINTERNALPANES, 0x406}, {WM_PANE_GETMAXLINECOUNT, 0x407},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.value, c.message);
}

TEST(VnPaneSync, StartsAtTheTopLeftAndCopiesBothFields) {
  CVnPaneSync start;
  EXPECT_EQ(0, start.GetLine());
  EXPECT_EQ(0, start.GetChar());
  const struct {
    int line, ch;
  } cases[] = {{12, 0}, {0, 7}, {-1, 3}, {100000, 250}};
  for (const auto& c : cases) {
    CVnPaneSync sync(c.line, c.ch);
    CVnPaneSync copy;
    copy = sync;
    EXPECT_EQ(c.line, copy.GetLine());
    EXPECT_EQ(c.ch, copy.GetChar());
    copy.SetLine(c.ch);
    copy.SetChar(c.line);
    EXPECT_EQ(c.ch, copy.GetLine());
    EXPECT_EQ(c.line, copy.GetChar());
    EXPECT_EQ(c.line, sync.GetLine());  // the copy is its own
  }
}

}  // namespace
