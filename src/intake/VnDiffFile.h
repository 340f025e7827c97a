// VnDiffFile.h - one input file of a comparison.
//
// GetFileContents reads the file whole and hands out one buffer: for text,
// UTF-16LE with every line end made CR LF; for a binary file the user agreed
// to go on with, the raw bytes with BINARY_MARKER as the last byte.  A byte
// order mark decides the encoding; without one a single NUL byte anywhere
// makes the file binary, and anything else is text in the ANSI code page.
// SetFileEncoding overrides detection for every later load.
//
// Text handed out stays valid until the next load or the destructor, also
// across SetFileName and SetFileEncoding.
#ifndef VN_INTAKE_VNDIFFFILE_H
#define VN_INTAKE_VNDIFFFILE_H

#include "afx/afx.h"

#include <memory>

class CVnFile;
class CVnSmartBytePtr;

class VN_API CVnDiffFile {
public:
  static const unsigned char BINARY_MARKER;  // 0x01
  enum FileType { TypeText = 0, TypeUnicode = 1, TypeBinary = 2 };
  enum Encoding { EncodingNone = 0, EncodingUTF8 = 1, EncodingUTF16LE = 2, EncodingUTF16BE = 3 };

  CVnDiffFile();
  ~CVnDiffFile();
  // Copies every field; the copy gets its own buffer, holding the same bytes,
  // so that each buffer has exactly one owner.
  CVnDiffFile(const CVnDiffFile& other);
  CVnDiffFile& operator=(const CVnDiffFile& other);

  void SetFileName(const CString& name);
  void SetFileEncoding(unsigned int codePage);
  // True with the text and its length in bytes; false when the user declined
  // a binary file.  A file that can't be opened or read raises CFileException.
  bool GetFileContents(unsigned char*& text, unsigned long& length);
  unsigned int GetCodePage() const { return m_nCodePage; }
  bool IsBinary() const { return m_nFileType == TypeBinary; }
  CString GetEncodingDescription() const;

  // Read-only views of the detection result, for hosts that report it.
  const CString& GetFileName() const { return m_strFileName; }
  int GetFileType() const { return m_nFileType; }
  int GetEncoding() const { return m_nEncoding; }
  bool HasByteOrderMark() const { return m_bHasBOM; }
  // Whether SetFileEncoding chose the encoding, rather than detection.
  bool IsEncodingSet() const { return m_bEncodingSet; }

  // The kinds of line end the file itself had, for hosts that print lines
  // as they were: EndsKnown and one bit per kind met, when the load could
  // tell (plain ASCII text); 0 when it couldn't or nothing is loaded.
  enum LineEndKind { EndLf = 1, EndCrLf = 2, EndCr = 4, EndLfCr = 8, EndsKnown = 16 };
  unsigned GetLineEndKinds() const { return m_nLineEnds; }

protected:
  void DetermineFileTypeAndEncoding(unsigned char* data, unsigned long size);
  bool HasBOM(unsigned char* data, unsigned long size);
  void ConvertBufferToUTF16LE(unsigned char*& in, unsigned long& inSize, unsigned char*& out,
                              unsigned long& outSize);
  void NormalizeCrLfPairs(unsigned char*& text, unsigned long& size);
  void ConvertNullsToSpaces(unsigned char* data, unsigned long size);

private:
  bool Load();
  void Detect(unsigned char* data, unsigned long size);
  bool TakeBinary(CVnSmartBytePtr& bytes, unsigned long size);
  void Decode(CVnSmartBytePtr& bytes, unsigned long size);
  bool StreamAscii(CVnFile& file);
  bool DecodeAsciiRepaired(const unsigned char* in, unsigned long inSize);
  void ReleaseBuffer();
  void CopyFrom(const CVnDiffFile& other);

  CString m_strFileName;
  unsigned char* m_pText;  // inside m_pBuffer
  uint32_t m_dwTextLength;
  std::unique_ptr<unsigned char[]> m_pBuffer;
  size_t m_nBufferSize;  // bytes allocated at m_pBuffer: room the repair may grow into
  unsigned int m_nCodePage;
  int m_nFileType;
  int m_nEncoding;
  bool m_bLoaded;
  bool m_bHasBOM;
  bool m_bEncodingSet;
  unsigned m_nLineEnds;
};

#endif  // VN_INTAKE_VNDIFFFILE_H
