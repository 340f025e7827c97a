// TestMain.cpp - the one main of every test executable.
//
// Installs a prompt that fails the test if a message box is shown without a
// test having scripted an answer (tests/ScriptedPrompt.h), so no suite ever
// waits on a box nobody can press.
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  vn::test::InstallUnexpectedPrompt();
  return RUN_ALL_TESTS();
}
