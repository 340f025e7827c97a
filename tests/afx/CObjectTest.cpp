// CObjectTest.cpp - run-time class information and the exception classes.
#include "afx/afx.h"
#include "afx/os/OsSeam.h"

#include "ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace {

class CShape : public CObject {
  DECLARE_DYNAMIC(CShape)
};
class CCircle : public CShape {
  DECLARE_DYNCREATE(CCircle)
};
IMPLEMENT_DYNAMIC(CShape, CObject)
IMPLEMENT_DYNCREATE(CCircle, CShape)

TEST(CObjectTest, KnowsItsClassChainAndIsMadeByClassOnlyWhereAsked) {
  CObject* made = RUNTIME_CLASS(CCircle)->CreateObject();
  ASSERT_NE(nullptr, made);
  for (CRuntimeClass* cls : {RUNTIME_CLASS(CCircle), RUNTIME_CLASS(CShape), RUNTIME_CLASS(CObject)})
    EXPECT_TRUE(made->IsKindOf(cls)) << cls->m_lpszClassName;
  EXPECT_STREQ("CCircle", made->GetRuntimeClass()->m_lpszClassName);
  delete made;
  EXPECT_FALSE(CShape().IsKindOf(RUNTIME_CLASS(CCircle)));
  EXPECT_EQ(nullptr, RUNTIME_CLASS(CShape)->CreateObject());
}

TEST(CExceptionTest, MessagesFitTheCallersBuffer) {
  CInvalidArgException e;
  WCHAR small[6];
  EXPECT_TRUE(e.GetErrorMessage(small, 6));
  EXPECT_EQ(CString(_T("Encou")), CString(small));
  EXPECT_FALSE(e.GetErrorMessage(nullptr, 6));
  EXPECT_FALSE(e.GetErrorMessage(small, 0));
}

TEST(CExceptionTest, ReportErrorAsksThePrompt) {
  vn::test::ScriptedPrompt prompt({IDOK});
  CFileException e(CFileException::fileNotFound, static_cast<LONG>(ERROR_FILE_NOT_FOUND), _T("x.txt"));
  EXPECT_EQ(IDOK, e.ReportError(MB_ICONSTOP));
  ASSERT_EQ(1u, prompt.Asked().size());
  // The reason is the system's own text, whose wording differs under Wine.
  CString reason(vn::os::SystemMessage(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ("x.txt: " + VnToUtf8(reason.TrimRight()), prompt.Asked()[0].text);
#ifndef _WIN32
  EXPECT_EQ("x.txt: The system cannot find the file specified.", prompt.Asked()[0].text);
#endif
  EXPECT_EQ(MB_ICONSTOP, prompt.Asked()[0].type);
}

}  // namespace
