// PrintDialogs.h - the system's Print dialog and the Print to File dialog
// that follows it, answered as a user would, for a job of this process or
// of a host under test.
#ifndef VN_TESTS_PRINTDIALOGS_H
#define VN_TESTS_PRINTDIALOGS_H

#include "DialogDriver.h"

#include <atomic>
#include <string>

namespace vn {
namespace test {

// The system's Print dialog: what the user chooses in it.
struct PrintChoice {
  int from = 0, to = 0;  // a page range, or 0 for the whole text
  bool cancel = false;
};

// Print dialog and Save As controls (the system's numbers).
constexpr int kPrintToFile = 1040, kSelection = 1057, kPageRange = 1058, kFromPage = 1152, kToPage = 1153, kFileNameCombo = 1148,
              kFileNameEdit = 1152;

// Answers the Print dialog as choice says, printing to a file, and the file
// dialog that follows with output.  Both drivers wait while the job runs.
// What the Print dialog offered of the selection is noted.
struct PrintDialogs {
  PrintDialogs(const PrintChoice& choice, const std::wstring& output)
      : print(nullptr,
              [this, choice](HWND d) {
                selectionOffered = ::IsWindowEnabled(::GetDlgItem(d, kSelection)) != 0;
                selectionChosen = ::IsDlgButtonChecked(d, kSelection) == BST_CHECKED;
                if (choice.cancel)
                  return PressButton(d, IDCANCEL);
                if (choice.from) {
                  PressButton(d, kPageRange);
                  SetItemText(d, kFromPage, std::to_wstring(choice.from).c_str());
                  SetItemText(d, kToPage, std::to_wstring(choice.to).c_str());
                }
                SetItemCheck(d, kPrintToFile, true);
                PressButton(d, IDOK);
              },
              L"Print", 10000),
        file(nullptr,
             [output](HWND d) {
               SetItemText(d, ::GetDlgItem(d, kFileNameCombo) ? kFileNameCombo : kFileNameEdit, output.c_str());
               PressButton(d, IDOK);
             },
             L"Print to File", choice.cancel ? 0 : 10000) {}
  std::atomic<bool> selectionOffered{false};
  std::atomic<bool> selectionChosen{false};
  DialogDriver print;
  DialogDriver file;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_PRINTDIALOGS_H
