// VnmergeApp.cpp - the merge tool's application: its command line, its
// window, and its exit status (0 saved with no conflict left, 1 not saved
// or saved with conflicts, 2 trouble), so that version control tools can
// trust it.
//
// With --headless every message goes to standard error instead of a box,
// and every question takes its default answer.
#include "VnmergeFrame.h"
#include "VnmergeResource.h"
#include "foundation/LocalResources.h"
#include "options/VnReconcileApp.h"

#include <string>

namespace {

struct Arguments {
  CString files[3];
  int fileCount = 0;
  CString merged;
  bool headless = false;
  bool help = false;
};

// false, with the offending word in bad, for an unknown option, a missing
// -o value or too many files.
bool ReadArguments(const CString* args, int count, Arguments& out, CString& bad) {
  for (int i = 0; i < count; ++i) {
    const CString& a = args[i];
    if (a == L"-o" || a == L"--output") {
      if (i + 1 >= count) {
        bad = a + L" without a file";
        return false;
      }
      out.merged = args[++i];
    } else if (a == L"--headless")
      out.headless = true;
    else if (a == L"-h" || a == L"--help" || a == L"/?")
      out.help = true;
    else if (a.GetLength() > 1 && a[0] == L'-' && a != L"--") {
      bad = L"unknown argument " + a;
      return false;
    } else if (a != L"--" && out.fileCount < 3)
      out.files[out.fileCount++] = a;
    else if (a != L"--") {
      bad = L"unknown argument " + a;
      return false;
    }
  }
  return true;
}

class CVnMergeApp : public CVnReconcileApp {
public:
  CVnMergeApp() { SetRegistryKey(L"Software\\VnReconcile\\vnmerge"); }

  BOOL InitInstance() override {
    CString args[16];
    int count = ParseCmdLine(args, 16);
    Arguments arguments;
    CString bad;
    int stored = count < 0 ? 16 : count > 16 ? 16 : count;
    bool ok = ReadArguments(args, stored, arguments, bad) && count >= 0 && count <= 16;
    if (count < 0)
      bad = L"an unclosed quote";
    if (arguments.headless)
      VnUseHeadlessPrompt(L"vnmerge");
    if (arguments.help) {
      AfxMessageBox(LoadLocalString(::GetModuleHandleW(nullptr), IDS_USAGE), MB_ICONINFORMATION);
      m_nStatus = 0;
      return FALSE;
    }
    if (ok && (arguments.fileCount < 2 || arguments.merged.IsEmpty())) {
      ok = false;
      bad = arguments.merged.IsEmpty() ? L"-o MERGED is needed" : L"LOCAL and REMOTE are needed";
    }
    if (!ok) {
      AfxMessageBox(bad + L"; vnmerge --help shows the usage", MB_ICONSTOP);
      return FALSE;
    }
    return Start(arguments);
  }

  int ExitInstance() override {
    CVnReconcileApp::ExitInstance();
    return m_nStatus;
  }

private:
  // The frame deletes itself when its window goes; it keeps its status in
  // m_nStatus.
  BOOL Start(const Arguments& a) {
    bool threeWay = a.fileCount == 3;
    auto* frame = new CVnMergeFrame(threeWay ? a.files[0] : CString(), a.files[threeWay ? 1 : 0],
                                    a.files[threeWay ? 2 : 1], a.merged, m_nStatus);
    if (!frame->CreateFrame()) {
      delete frame;
      return FALSE;
    }
    m_pMainWnd = frame;
    if (!frame->DiffAndDisplay()) {
      frame->DestroyWindow();
      return FALSE;
    }
    return TRUE;
  }

  int m_nStatus = 2;
};

CVnMergeApp theApp;

}  // namespace

extern "C" int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow) {
  return AfxWinMain(instance, previous, cmdLine, cmdShow);
}
