// ScriptedPrompt.h - message boxes in tests.
//
// A ScriptedPrompt, while it lives, answers every AfxMessageBox with the
// answers it was given, in order, and records what was asked (text, type,
// help ID).  Outside one, a box fails the running test.
#ifndef VN_TESTS_SCRIPTEDPROMPT_H
#define VN_TESTS_SCRIPTEDPROMPT_H

#include "afx/afx.h"

#include <deque>
#include <string>
#include <vector>

namespace vn {
namespace test {

struct AskedBox {
  std::string text;  // UTF-8, for readable failures
  UINT type;
  UINT helpId;
};

class ScriptedPrompt {
public:
  explicit ScriptedPrompt(std::deque<int> answers = {});
  ~ScriptedPrompt();
  const std::vector<AskedBox>& Asked() const { return m_asked; }

private:
  static int Answer(LPCWSTR text, UINT type, UINT helpId);
  std::deque<int> m_answers;
  std::vector<AskedBox> m_asked;
  VnPromptHandler m_previous;
};

void InstallUnexpectedPrompt();

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_SCRIPTEDPROMPT_H
