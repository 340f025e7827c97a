// ScriptedPrompt.cpp - scripted answers for message boxes in tests.
#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace vn {
namespace test {

static ScriptedPrompt* g_active = nullptr;

ScriptedPrompt::ScriptedPrompt(std::deque<int> answers) : m_answers(std::move(answers)) {
  m_previous = VnSetPromptHandler(&ScriptedPrompt::Answer);
  g_active = this;
}

ScriptedPrompt::~ScriptedPrompt() {
  g_active = nullptr;
  VnSetPromptHandler(m_previous);
}

int ScriptedPrompt::Answer(LPCWSTR text, UINT type, UINT helpId) {
  ScriptedPrompt* self = g_active;
  self->m_asked.push_back({VnToUtf8(text), type, helpId});
  if (self->m_answers.empty()) {
    ADD_FAILURE() << "message box with no scripted answer: " << VnToUtf8(text);
    return VnDefaultAnswer(type);
  }
  int answer = self->m_answers.front();
  self->m_answers.pop_front();
  return answer;
}

static int Unexpected(LPCWSTR text, UINT type, UINT) {
  ADD_FAILURE() << "unexpected message box: " << VnToUtf8(text);
  return VnDefaultAnswer(type);
}

void InstallUnexpectedPrompt() { VnSetPromptHandler(&Unexpected); }

}  // namespace test
}  // namespace vn
