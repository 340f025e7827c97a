// VnPaneVocabularyTest.cpp - the private message numbers that the windows
// of a comparison share, which hosts send too: they must not move.
#include "window/VnPaneMessages.h"

#include <gtest/gtest.h>

namespace {

TEST(VnPaneMessages, NumbersAreFixedAndDistinct) {
  const struct { UINT message, value; } cases[] = {
      {WM_PANE_SYNCHRONIZE, 0x402},         {WM_PANE_SETDEFAULTCHARFORMAT, 0x403},
      {WM_PANE_SETTABSTOPS, 0x404},         {WM_PANE_GOTOBEGINNING, 0x405},
      {WM_PANE_RESIZEINTERNALPANES, 0x406}, {WM_PANE_GETMAXLINECOUNT, 0x407},
  };
  for (const auto& c : cases)
    EXPECT_EQ(c.value, c.message);
}

}  // namespace
