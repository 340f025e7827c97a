// VnPath.h - path utilities: taking a path apart, its normal form,
// comparison, relative forms, shortening for display, name patterns, and
// making sure a directory or file can exist.
//
// Two separators count alike everywhere, the backslash and the slash; where
// a function adds one, it adds a backslash.  Names compare without regard to
// case.  The text functions never ask the file system; those that do
// (IsDir, IsFile, the validity tests, CreatePathTree, GetRootDirType and the
// three path getters) are told apart below.  Only the path getters throw
// (CVnOSException); all others report 1 or 0 and show nothing.
#ifndef VN_FOUNDATION_VNPATH_H
#define VN_FOUNDATION_VNPATH_H

#include "afx/afx.h"

//===-- Separators ----------------------------------------------------------===//

// The last separator of either kind, null when there is none.
VN_API LPCWSTR FindLastSlash(LPCWSTR path);
// 1 when the last character of a non-empty text is a separator.
VN_API int PathHasEndSlash(LPCWSTR path);
// Adds one backslash, whatever the text ends in.
VN_API void AppendEndSlash(CString& path);
// Removes one end separator, if there is one.
VN_API void TrimEndSlash(CString& path);

//===-- Taking apart --------------------------------------------------------===//

// Drive and directory into dir, name and extension into file.  The drive is
// the first two characters when the second is a colon; the directory runs to
// the last separator, inclusive.  Each part is cut at 255 characters.
VN_API void SeparatePathAndFile(LPCWSTR path, CString& dir, CString& file);
// As above, with the name alone and the extension without its dot; the
// extension starts at the name's last dot ("a.tar.gz": "a.tar", "gz").
VN_API void SeparatePathFileAndExt(LPCWSTR path, CString& dir, CString& name, CString& ext);
// The drive of a text: its first two characters when the second is a colon.
CString GetPathDrive(LPCWSTR path);

//===-- Classifying ---------------------------------------------------------===//

// A letter and a colon ("c:x" counts), or two backslashes before more text.
VN_API int IsDOSAbsolutePath(const CString& path);
VN_API int IsUnixAbsolutePath(const CString& path);
VN_API int IsAbsolutePath(const CString& path);
// File names here never depend on case: always 0.
VN_API int GetFilesCaseSensitive();

//===-- Normal form, comparison, relative form ------------------------------===//

// The path with slashes turned into backslashes, "." and ".." elements
// resolved by text alone, separator runs collapsed (the first two characters
// kept, for network paths) and no end separator; lower case unless keepCase.
VN_API CString GetCanonicalPathName(const CString& path, int keepCase);
// The two normal forms, in lower case, are equal.
VN_API bool IsSamePath(const CString& a, const CString& b);
// path relative to the directory of base (base's last element counts as a
// file name).  1 with the relative form, or with path itself when it was
// relative already; 0 with path itself when there is none (another drive,
// a network path).
VN_API int GetRelativePath(LPCWSTR path, LPCWSTR base, CString& result);

//===-- Display and patterns ------------------------------------------------===//

// Shortens a full path to at most maxLength characters by putting "\..."
// for directories in the middle.  Gives the new length; when the path cannot
// be shortened (or needs no shortening and is not a plain full path), result
// is the path and the value is maxLength.
VN_API int AbbreviatePath(LPCWSTR path, int maxLength, CString& result);
// 1 when one pattern of the list (separated by '"', ',', ';', ' ',
// with quotes around names that hold those) matches the name.
VN_API int NameIsInSpecList(LPCWSTR name, LPCWSTR specList);
// The name's name part and extension (with its dot) each match those of
// spec as patterns; drive and directory are ignored.
int NameMatchesSpec(LPCWSTR name, LPCWSTR spec);
// '*' matches any run, '?' zero or one character, anything else itself
// without regard to case.
bool MatchNamePattern(LPCWSTR pattern, LPCWSTR text);

//===-- Asking the file system ----------------------------------------------===//

// Root kinds beyond those of the platform's drive type query.
enum : int { VN_ROOT_MAPPED_DRIVE = 100 };

VN_API int IsDir(LPCWSTR path);
// 1 when the file can be opened for reading, sharing reading and writing.
VN_API int IsFile(LPCWSTR path);
// 0 (too short, unknown), the drive type 1..6, 4 for a network path, 100 for
// a drive letter that names a network share.
VN_API int GetRootDirType(LPCWSTR path);
// Without wildcards and resolvable to a full form that the file system does
// not call an invalid name and that holds at most one colon: 1, and path
// becomes the full form.
VN_API int GetValidPathName(CString& path);
// The directory exists or could be made (full form up to 258 characters);
// path becomes the full form.
VN_API int ResolveValidatePath(CString& path);
// The directory exists or could be made (full form up to 260 characters).
VN_API int EnsureValidPath(LPCWSTR path);
// The file's directory exists or could be made, and the file exists or could
// be created (a trial that leaves nothing behind).
VN_API int EnsureValidFile(LPCWSTR path);
// The current directory with a backslash added, always.
VN_API void GetCurrentPath(CString& path);
// The temporary directory, ending in a separator.
VN_API void GetTemporaryPath(CString& path);
// The running program's directory, ending in a separator.
VN_API void GetAppPath(CString& path);

// The platform's full path query behind a guard: a text whose second and
// third characters are a colon and a blank gives 0 unasked.  Same contract
// as the query: the length written, the size needed when buffer is too
// small, 0 on failure.
DWORD GetFullPathChecked(LPCWSTR path, DWORD bufferLength, LPWSTR buffer);
// Creates a directory and any missing parents; 1 when it exists afterwards.
int CreatePathTree(LPCWSTR dir);

#endif  // VN_FOUNDATION_VNPATH_H
