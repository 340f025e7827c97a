// VncompareStartBenchWin32.cpp - how long the compare tool takes from
// process start to a filled window that answers, under Wine or Windows.
//
// A plain program.  It writes a pair of code-like files of LINES lines with
// one line in a hundred changed, inserted or deleted, then RUNS times starts
// vncompare.exe (beside this program) on them and times:
//
//   window     process start until the frame shows
//   answering  process start until the frame answers a message: the panes
//              are filled, the tool is in its message loop
//
// and, to tell where the time goes, the same on two three-line files (what
// a start costs at all) and the library's comparison of the pair in this
// process (reading, decoding, Compare, the aligned rows): what remains of
// "answering" is the filling of the panes.  Prints fastest and median.
//
// Usage: vncompare_bench.exe [LINES] [RUNS]     (100000 and 3 by default)
#include "../BenchClock.h"
#include "compare/VnComparison.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

std::wstring Beside(const wchar_t* name) {
  wchar_t module[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, module, MAX_PATH);
  std::wstring path = module;
  return path.substr(0, path.find_last_of(L"\\/") + 1) + name;
}

// Every hundredth line differs: changed, or gone, or with a new one after.
void WritePair(const std::wstring& oldPath, const std::wstring& newPath, int lines) {
  std::ofstream a(oldPath.c_str(), std::ios::binary), b(newPath.c_str(), std::ios::binary);
  for (int k = 0; k < lines; ++k) {
    std::string line = "\ttotal_" + std::to_string(k % 97) + " += weight(" + std::to_string(k) + ", 42);\r\n";
    a << line;
    switch (k % 300) {
    case 50: b << "\ttotal_" << k % 97 << " -= penalty(" << k << ");\r\n"; break;
    case 150: break;
    case 250: b << line << "\tlog_step(" << k << ");\r\n"; break;
    default: b << line;
    }
  }
}

struct Found {
  DWORD pid;
  HWND frame;
};

BOOL CALLBACK FindFrame(HWND hWnd, LPARAM lParam) {
  auto* found = reinterpret_cast<Found*>(lParam);
  DWORD pid = 0;
  ::GetWindowThreadProcessId(hWnd, &pid);
  if (pid != found->pid || !::IsWindowVisible(hWnd) || ::GetWindow(hWnd, GW_OWNER))
    return TRUE;
  found->frame = hWnd;
  return FALSE;
}

struct Start {
  double window = -1, answering = -1;
};

// One run of the tool on the pair, closed as a user would.
Start RunTool(const std::wstring& oldPath, const std::wstring& newPath) {
  std::wstring line = L"\"" + Beside(L"vncompare.exe") + L"\" --headless \"" + oldPath + L"\" \"" + newPath + L"\"";
  STARTUPINFOW startup = {sizeof(startup)};
  PROCESS_INFORMATION process = {};
  Start start;
  const double begin = NowMs();
  if (!::CreateProcessW(nullptr, &line[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
    return start;
  Found found = {process.dwProcessId, nullptr};
  while (!found.frame && ::WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT)
    ::EnumWindows(&FindFrame, reinterpret_cast<LPARAM>(&found));
  if (found.frame) {
    start.window = NowMs() - begin;
    DWORD_PTR ignored = 0;
    if (::SendMessageTimeoutW(found.frame, WM_NULL, 0, 0, SMTO_NORMAL, 600000, &ignored))
      start.answering = NowMs() - begin;
    ::PostMessageW(found.frame, WM_CLOSE, 0, 0);
  }
  if (::WaitForSingleObject(process.hProcess, 60000) == WAIT_TIMEOUT)
    ::TerminateProcess(process.hProcess, 99);
  ::CloseHandle(process.hProcess);
  ::CloseHandle(process.hThread);
  return start;
}

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v.empty() ? -1 : v[v.size() / 2];
}

double Fastest(const std::vector<double>& v) { return v.empty() ? -1 : *std::min_element(v.begin(), v.end()); }

void Report(const char* what, const std::vector<double>& ms) {
  std::printf("%-34s fastest %8.0f ms   median %8.0f ms\n", what, Fastest(ms), Median(ms));
}

}  // namespace

int main(int argc, char** argv) {
  const int lines = argc > 1 ? std::atoi(argv[1]) : 100000;
  const int runs = argc > 2 ? std::atoi(argv[2]) : 3;
  wchar_t temp[MAX_PATH] = {};
  ::GetTempPathW(MAX_PATH, temp);
  const std::wstring dir = std::wstring(temp) + L"vncompare_bench\\";
  ::CreateDirectoryW(dir.c_str(), nullptr);
  const std::wstring oldPath = dir + L"old.txt", newPath = dir + L"new.txt";
  const std::wstring tinyOld = dir + L"tiny-old.txt", tinyNew = dir + L"tiny-new.txt";
  WritePair(oldPath, newPath, lines);
  WritePair(tinyOld, tinyNew, 3);

  std::vector<double> library, window, answering, tiny;
  for (int run = 0; run < runs; ++run) {
    double begin = NowMs();
    CVnComparison comparison;
    if (comparison.Open(CVnComparison::Source, oldPath.c_str()) &&
        comparison.Open(CVnComparison::Target, newPath.c_str())) {
      comparison.Compare();
      comparison.GetRows();
      library.push_back(NowMs() - begin);
    }
    Start big = RunTool(oldPath, newPath), small = RunTool(tinyOld, tinyNew);
    if (big.window >= 0)
      window.push_back(big.window);
    if (big.answering >= 0)
      answering.push_back(big.answering);
    if (small.answering >= 0)
      tiny.push_back(small.answering);
  }
  std::printf("vncompare on %d lines, 1%% changed, %d runs\n", lines, runs);
  Report("start to window shown", window);
  Report("start to filled and answering", answering);
  Report("three-line pair, start to answering", tiny);
  Report("library comparison in-process", library);
  for (const std::wstring& path : {oldPath, newPath, tinyOld, tinyNew})
    ::DeleteFileW(path.c_str());
  ::RemoveDirectoryW(dir.c_str());
  return answering.empty() ? 1 : 0;
}
