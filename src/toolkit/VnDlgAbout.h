// VnDlgAbout.h - the About box that hosts open with one call.
//
// A small dialog with a tree of page names at the left and the selected
// page at the right: "About", the product's picture, and "Info", the
// product's name and build over a list of info rows, with buttons for the
// system's information and for a details file.  What it shows comes from a
// CVnAboutDlgParams, whose virtual operations a host overrides; the
// defaults fill everything:
//   - the caption "About Tessera", or the host's string 169;
//   - the product name "Tessera", or the host's application title (57344);
//   - the build text from the component's version resource;
//   - the rows "User" and "Company", "Unknown" until LoadUserAndCompany
//     reads them from the registry;
//   - the details file "Patches\Patches.html" beside the program, whose
//     button shows only while the file exists.
//
//   CVnAboutDlgParams params;
//   CVnDlgAbout::Execute(params);
//
// The dialog and its pages come from the component's own module.
#ifndef VN_TOOLKIT_VNDLGABOUT_H
#define VN_TOOLKIT_VNDLGABOUT_H

#include "afx/win32/CStatic.h"
#include "toolkit/VnDialog.h"
#include "toolkit/VnTreeCtrl.h"

class VN_API CVnAboutDlgParams {
public:
  enum Feature : DWORD {
    FeatureAboutPage = 0x1000000,   // the page named "About" exists
    FeatureInfoPage = 0x2000000,    // the page named "Info" exists
    FeatureSystemInfo = 0x2000001,  // the Info page shows its System Info button
    FeatureDetails = 0x2000002,     // the Info page shows its Details button
  };

  // The defaults; see the file comment.
  CVnAboutDlgParams();
  CVnAboutDlgParams(const CVnAboutDlgParams&) = default;
  CVnAboutDlgParams& operator=(const CVnAboutDlgParams&) = default;
  virtual ~CVnAboutDlgParams() = default;

  // False when the feature shares no bit with m_dwFeatures.  Beyond that,
  // System Info needs the NT family and Details an existing details file.
  virtual bool HasFeature(Feature feature) const;
  virtual const CString Caption() const { return m_strCaption; }
  virtual HBITMAP AboutGraphic() const { return m_hGraphic; }
  virtual const CString ProductName() const { return m_strProductName; }
  virtual const CString ProductBuild() const { return m_strProductBuild; }
  // The rows of the Info page's list.
  virtual int InfoCount() const { return 2; }
  // Row 0 "User", row 1 "Company"; any other row two empty texts.
  virtual void GetInfo(int index, CString& name, CString& value) const;
  // Starts the system's information program; a failure is dropped.
  virtual void OnInfoSystemInfo();
  // Opens the details file with its application; a failure is dropped.
  virtual void OnInfoDetails();

  CString m_strCaption;
  DWORD m_dwFeatures;
  // The component's picture is loaded once and shared by every object; a
  // host's own stays the host's.
  HBITMAP m_hGraphic;
  CString m_strProductName;
  CString m_strProductBuild;
  CString m_strUser;
  CString m_strCompany;
  CString m_strDetailsPath;

protected:
  // Reads the user and the company from the values "RegisteredOwner" and
  // "RegisteredOrganization" of section (created if missing) below key in
  // HKEY_LOCAL_MACHINE.  A key that won't open changes nothing; a missing
  // value leaves its text.
  void LoadUserAndCompany(const CString& key, const CString& section);

private:
  void LoadDefaults();
};

class CVnAboutPage;
class CVnInfoPage;

class VN_API CVnDlgAbout : public CVnLocalDialog {
  DECLARE_DYNAMIC(CVnDlgAbout)
public:
  // Runs the box modally over the application's main window.  True if it
  // ended with IDOK; its Close button cancels, so normally false.
  static bool Execute(CVnAboutDlgParams& params);

protected:
  BOOL OnInitDialog() override;
  HINSTANCE GetDialogResourceModule() override;
  void OnSelChanged(NMHDR* notify, LRESULT* result);

  DECLARE_MESSAGE_MAP()

private:
  explicit CVnDlgAbout(CVnAboutDlgParams& params);
  ~CVnDlgAbout() override;

  void SetCaption();
  void InitControls();
  void InitResizer();
  void CreatePages();
  void ResizeToPages();
  void RepositionPages();
  void SelectInitialPage();
  void DisplayPage(DWORD_PTR id);
  void AddPage(LPCWSTR title, DWORD data);

  CVnAboutDlgParams& m_params;
  CVnTreeCtrl m_tree;
  CStatic m_frame;
  CVnAboutPage* m_pAboutPage = nullptr;
  CVnInfoPage* m_pInfoPage = nullptr;
};

#endif  // VN_TOOLKIT_VNDLGABOUT_H
