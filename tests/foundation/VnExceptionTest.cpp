// VnExceptionTest.cpp - the component's failures, from throw to the text a
// user sees: message boxes through a scripted prompt (text, type, help ID),
// texts through HandleError.
#include "foundation/VnException.h"

#include "afx/os/OsSeam.h"
#include "foundation/LocalResources.h"

#include "ScriptedPrompt.h"
#include "TestModule.h"
#include "TestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

using vn::test::ScriptedPrompt;
using vn::test::TestModule;

const char kUnknownSystemError[] = "Unknown system-level error occured.";
// A code with the customer bit set: no system has a text for it.
const DWORD kCodeWithoutText = 0x2000DEAD;

std::string SystemText(DWORD code) { return VnToUtf8(vn::os::SystemMessage(code).c_str()); }

// What one ReportError call put in front of the user.
vn::test::AskedBox Report(CException& e, UINT type = MB_OK, UINT messageId = 0, int answer = IDOK) {
  ScriptedPrompt prompt({answer});
  EXPECT_EQ(answer, e.ReportError(type, messageId));
  EXPECT_EQ(1u, prompt.Asked().size());
  return prompt.Asked().empty() ? vn::test::AskedBox{"", 0, 0} : prompt.Asked()[0];
}

using Box = std::tuple<std::string, UINT, UINT>;  // text, type, help ID
Box Fields(const vn::test::AskedBox& b) { return Box(b.text, b.type, b.helpId); }

// What an exception was asked for its text, and whether it was freed.
struct Seen { UINT size = 0; bool helpPointer = false; UINT helpValue = 0xBAD; bool deleted = false; };

// An exception that gives a fixed text and records how it is asked for it.
class ProbeException : public CVnException {
public:
  ProbeException(const CString& text, BOOL result, UINT help, Seen* seen)
      : m_text(text), m_result(result), m_help(help), m_seen(seen) {}
  ~ProbeException() override { m_seen->deleted = true; }
  BOOL GetErrorMessage(LPWSTR buffer, UINT maxChars, PUINT helpContext) const override {
    m_seen->size = maxChars;
    m_seen->helpPointer = helpContext != nullptr;
    if (helpContext) {
      m_seen->helpValue = *helpContext;
      *helpContext = m_help;
    }
    VnCopyMessage(m_text, buffer, maxChars);
    return m_result;
  }
  CString m_text;
  BOOL m_result;
  UINT m_help;
  Seen* m_seen;
};

//===-- Internal failures --------------------------------------------------===//

// ReportError shows the text in a box, HandleError hands it back.
TEST(VnExceptionTest, ReconcileExceptionShowsTheTextOfItsIdentifier) {
  const struct { UINT id; const char* text; } cases[] = {
      {0, "Internal error with ID 101 has been encountered.  Operation was unsuccessful."},
      {2, "Internal error with ID 103 has been encountered.  Operation was unsuccessful."},
      {3, "Fails to copy to a temporary file."}, {4, "Unknown error."},
      {165, "Unknown error."},  // the number of that text's entry is no identifier
      {0x80000000, "Unknown error."},  // negative as a signed number
      {0xFFFFFFFF, "Unknown error."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.id);
    CVnReconcileException e(c.id);
    EXPECT_EQ(Box(c.text, MB_ICONSTOP, 0), Fields(Report(e, MB_ICONSTOP)));
    CString text(_T("whatever the text held before"));
    CVnException::HandleError(new CVnReconcileException(c.id), text);
    EXPECT_EQ(c.text, VnToUtf8(text));
  }
}

// Null buffer or size 0 gives 0 and writes nothing, for either kind.
TEST(VnExceptionTest, ReconcileMessageIsCutToTheBufferAndLeavesTheHelpContext) {
  CVnReconcileException e(4);
  WCHAR buffer[9] = {'x'};
  UINT help = 77;
  CVnOSException os(ERROR_FILE_NOT_FOUND);
  for (CException* either : {static_cast<CException*>(&e), static_cast<CException*>(&os)}) {
    EXPECT_EQ(FALSE, either->GetErrorMessage(nullptr, 100, nullptr));
    EXPECT_EQ(FALSE, either->GetErrorMessage(buffer, 0, nullptr));
    EXPECT_EQ('x', buffer[0]);
  }
  EXPECT_EQ(TRUE, e.GetErrorMessage(buffer, 9, &help));
  EXPECT_EQ("Unknown ", VnToUtf8(buffer));
  EXPECT_EQ(77u, help);
  EXPECT_EQ(TRUE, e.GetErrorMessage(buffer, 1, nullptr));
  EXPECT_EQ(0, buffer[0]);
}

//===-- Operating system failures ------------------------------------------===//

TEST(VnExceptionTest, OsExceptionShowsTheSystemsTextForItsCode) {
  // 0 included: it carries 0, and the system's text for 0 is shown.
  const DWORD codes[] = {0, ERROR_FILE_NOT_FOUND, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, 1155, 1156, 1157};
  for (DWORD code : codes) {
    SCOPED_TRACE(code);
    CVnOSException e(code);
    EXPECT_EQ(code, e.GetError());
    ASSERT_FALSE(SystemText(code).empty());
    EXPECT_EQ(Box(SystemText(code), MB_ICONEXCLAMATION, 0), Fields(Report(e, MB_ICONEXCLAMATION)));
  }
#ifndef _WIN32
  // The native texts use the Win32 wording, line end included.
  CString text;
  CVnException::HandleError(new CVnOSException(ERROR_FILE_NOT_FOUND), text);
  EXPECT_EQ("The system cannot find the file specified.\r\n", VnToUtf8(text));
#endif
}

TEST(VnExceptionTest, AllOnesStandsForTheLastErrorWhenTheExceptionIsMade) {
  vn::os::SetLastError(ERROR_ACCESS_DENIED);
  CVnOSException made(0xFFFFFFFF);
  vn::os::SetLastError(0);
  EXPECT_EQ(ERROR_ACCESS_DENIED, made.GetError());

  vn::os::SetLastError(ERROR_SHARING_VIOLATION);
  EXPECT_EQ(ERROR_SHARING_VIOLATION, vn::test::RaisedOsCode([] { AfxThrowOSException(0xFFFFFFFF); }));
}

TEST(VnExceptionTest, OsMessageIsAllOrNothingAndLeavesTheHelpContext) {
  CVnOSException e(ERROR_FILE_NOT_FOUND);
  UINT length = static_cast<UINT>(vn::os::SystemMessage(ERROR_FILE_NOT_FOUND).size());
  ASSERT_GT(length, 0u);
  WCHAR buffer[512];
  UINT help = 77;
  // The system gets size - 1 characters and needs one for its terminator.
  EXPECT_EQ(static_cast<BOOL>(length), e.GetErrorMessage(buffer, length + 2, &help));
  EXPECT_EQ(SystemText(ERROR_FILE_NOT_FOUND), VnToUtf8(buffer));
  EXPECT_EQ(77u, help);

  buffer[0] = 'x';
  EXPECT_EQ(FALSE, e.GetErrorMessage(buffer, length + 1, &help));
  EXPECT_EQ(0, buffer[0]);

  CVnOSException unknown(kCodeWithoutText);
  buffer[0] = 'x';
  EXPECT_EQ(FALSE, unknown.GetErrorMessage(buffer, 512, nullptr));
  EXPECT_EQ(0, buffer[0]);
}

TEST(VnExceptionTest, ShellResultsBecomeSystemCodes) {
  const struct { DWORD result; DWORD code; } cases[] = {
      {2, 2}, {3, 3}, {5, 5}, {11, 11}, {26, 32}, {27, 1155}, {28, 1156}, {29, 1156}, {30, 1156}, {31, 1155},
      {32, 1157},
      // No failure, or a failure without its own code: out of memory.
      {0, 8}, {1, 8}, {4, 8}, {25, 8}, {33, 8}, {42, 8}, {0xFFFFFFFF, 8},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.result);
    vn::os::SetLastError(ERROR_ACCESS_DENIED);  // must not leak into the result
    EXPECT_EQ(c.code, vn::test::RaisedOsCode([&] { AfxThrowShellException(c.result); }));
  }
}

//===-- Throwing and run-time classes ---------------------------------------===//

// Caught by the common base, across the DLL boundary.
TEST(VnExceptionTest, ThrowHelperThrowsAHeapObjectOfItsClass) {
  DWORD code = 0;
  try {
    AfxThrowReconcileException(CVnReconcileException::CopyToTempFailed);
  } catch (CVnException* e) {
    code = e->IsKindOf(RUNTIME_CLASS(CVnReconcileException)) ? static_cast<CVnReconcileException*>(e)->GetError() : 9;
    e->Delete();
  }
  EXPECT_EQ(3u, code);
}

//===-- ReportError and HandleError -----------------------------------------===//

TEST(VnExceptionTest, ReportErrorAsksWith4096AndShowsTheHelpContextGiven) {
  Seen seen;
  ProbeException e(_T("probe text"), TRUE, 77, &seen);
  EXPECT_EQ(Box("probe text", MB_YESNO, 77), Fields(Report(e, MB_YESNO, 0, IDNO)));
  EXPECT_EQ(4096u, seen.size);
  EXPECT_TRUE(seen.helpPointer);
  EXPECT_EQ(0u, seen.helpValue);
  EXPECT_FALSE(seen.deleted);  // the catcher still owns it
}

// The message ID plays no part, whatever it names.
TEST(VnExceptionTest, ReportErrorReplacesTheTextWhenGetErrorMessageGivesZero) {
  Seen seen;
  ProbeException probe(_T("a text nobody should see"), FALSE, 0, &seen);
  CVnException plain;  // keeps the framework's GetErrorMessage, which has none
  CVnOSException unknown(kCodeWithoutText);
  for (CException* e : {static_cast<CException*>(&probe), static_cast<CException*>(&plain),
                        static_cast<CException*>(&unknown)}) {
    EXPECT_EQ(kUnknownSystemError, Report(*e).text);
    EXPECT_EQ(kUnknownSystemError, Report(*e, MB_OK, 149).text);
  }
}

// A text longer than any buffer: HandleError offers 4095 characters, so
// 4094 come back.
TEST(VnExceptionTest, HandleErrorAsksWith4095AndNoHelpContextAndFreesTheException) {
  Seen seen;
  CString text(_T("old"));
  CVnException::HandleError(new ProbeException(CString(_T('x'), 5000), TRUE, 77, &seen), text);
  EXPECT_EQ(4095u, seen.size);
  EXPECT_FALSE(seen.helpPointer);
  EXPECT_TRUE(seen.deleted);
  EXPECT_EQ(CString(_T('x'), 4094), text);
}

TEST(VnExceptionTest, HandleErrorTexts) {
  const struct { const char* what; CException* exception; const char* text; } cases[] = {
      {"null exception", nullptr, kUnknownSystemError},
      {"OS code without text: no fallback", new CVnOSException(kCodeWithoutText), ""},
      {"the framework's own kind", new CInvalidArgException, "Encountered an improper argument."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    CString text(_T("whatever the text held before"));
    CVnException::HandleError(c.exception, text);
    EXPECT_EQ(c.text, VnToUtf8(text));
  }
}

//===-- AfxLocalMessageBox -------------------------------------------------===//

TEST(VnExceptionTest, LocalMessageBoxShowsTheNamedModulesString) {
  const struct { const char* what; bool component; UINT id; UINT type; UINT help; const char* text; } cases[] = {
      {"a validation failure", true, 149, MB_ICONSTOP, 0, "Please click on a text pane first."},
      {"a question", true, 161, MB_YESNO | MB_ICONEXCLAMATION, 0,
       "%s is a binary file.  Continue the compare or merge operation?"},
      {"the caller's own module and help", false, vn::test::kPlain, MB_OKCANCEL, 4711, "A text of the test module."},
      {"same number, other module", false, vn::test::kShared, MB_OK, 0, "The test module's own text 160."},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScriptedPrompt prompt({IDCANCEL});
    HINSTANCE module = c.component ? GetResourceModule() : TestModule();
    EXPECT_EQ(IDCANCEL, AfxLocalMessageBox(module, c.id, c.type, c.help));
    ASSERT_EQ(1u, prompt.Asked().size());
    EXPECT_EQ(Box(c.text, c.type, c.help), Fields(prompt.Asked()[0]));
  }
}

TEST(VnExceptionTest, LocalMessageBoxWithoutATextShowsNothingAndGivesZero) {
  ScriptedPrompt prompt({IDOK});
  EXPECT_EQ(0, AfxLocalMessageBox(TestModule(), 999, MB_OK, 0));
  EXPECT_EQ(0, AfxLocalMessageBox(TestModule(), vn::test::kEmpty, MB_OK, 0));
  EXPECT_EQ(0, AfxLocalMessageBox(GetResourceModule(), 17, MB_OK, 0));
  EXPECT_TRUE(prompt.Asked().empty());
}

}  // namespace
