// VnTempFilesManager.h - the temporary files one comparison window made.
//
// A frame copies files to private temporary names (a read-only or locked
// input, a file about to change under it) and must remove every copy when it
// goes.  The list keeps each full name; a file deleted on its own leaves an
// empty entry, so positions never move until everything is deleted at once.
// Names compare without regard to case, as the file system does.  A file that
// can't be deleted is left behind without a word: the user has nothing to do
// about a stray temporary file.
#ifndef VN_WINDOW_VNTEMPFILESMANAGER_H
#define VN_WINDOW_VNTEMPFILESMANAGER_H

#include "afx/afx.h"

class VN_API CVnTempFilesManager {
public:
  CVnTempFilesManager() = default;
  ~CVnTempFilesManager();
  CVnTempFilesManager(const CVnTempFilesManager&) = delete;
  CVnTempFilesManager& operator=(const CVnTempFilesManager&) = delete;

  void AddNewTempFileName(const CString& name);
  // Empties every entry equal to name (letter case aside), then deletes the
  // file whether or not an entry matched.
  void DeleteThisTempFile(const CString& name);
  // Deletes the file of every non-empty entry in order, then forgets them.
  void DeleteAllTempFiles();

  const CArray<CString, const CString&>& GetNames() const { return m_aNames; }

private:
  CArray<CString, const CString&> m_aNames;
};

#endif  // VN_WINDOW_VNTEMPFILESMANAGER_H
