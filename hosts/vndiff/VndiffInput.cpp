// VndiffInput.cpp - reading the two files, and the failures on the way.
//
// Decoded mode goes through CVnDiffFile: the text comes back as UTF-16LE
// with CR LF line ends, cut into a Text16 line set.  To print lines as the
// file had them, the file's own line ends are read from its bytes with the
// rules of the intake's repair (CR LF, a lone LF, a lone CR, LF CR: one line
// end each).  Raw mode reads the bytes and cuts them at LF as Text8.  When
// one file is binary (and the user let it through), both are compared as
// 8-bit lines, since a comparison needs one unit width on both sides.
#include "VndiffHost.h"

#include "afx/os/OsSeam.h"
#include "foundation/LocalResources.h"
#include "intake/VnDiffFile.h"
#include "intake/VnFile.h"

#include <cstring>
#include <new>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vndiff {

CString Wide(const std::string& utf8) { return VnFromUtf8(utf8); }
std::string Narrow(const CString& text) { return VnToUtf8(text); }

bool InputText::endsInNewline() const {
  if (lines.GetLineCount() == 0)
    return true;
  if (wide)
    return !ends.empty() && ends.back() != LineEnd::None;
  return lines.GetFileInfo().HasEndingTerminator() != 0;
}

std::string DescribeException(CException* e, const std::string& path) {
  std::string text;
  if (CFileException* fe = dynamic_cast<CFileException*>(e)) {
    CString message;
    message.Format(LoadLocalString(GetResourceModule(), 153), Wide(path).GetString());
    text = Narrow(message);
    if (fe->m_lOsError > 0) {
      std::string reason = Narrow(CString(vn::os::SystemMessage(static_cast<DWORD>(fe->m_lOsError))));
      while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r'))
        reason.pop_back();
      if (!reason.empty())
        text += " " + reason;
    }
  } else {
    WCHAR buffer[1024];
    text = e->GetErrorMessage(buffer, 1024) ? Narrow(CString(buffer)) : std::string("unknown failure");
    if (!path.empty())
      text = path + ": " + text;
  }
  e->Delete();
  return text;
}

void CheckReadable(const std::string& path) {
  CVnFile::FileStatus status;
  if (!CVnFile::GetStatus(Wide(path), status, false))
    return;  // opening it will say why
  if (status.m_attribute & FILE_ATTRIBUTE_DIRECTORY)
    throw Failure(path + ": is a directory");
  if (status.m_sizeHigh != 0)
    throw Failure(path + ": file of 4 GiB or more; vndiff compares files below 4 GiB only");
}

static CVnTime ModifiedTime(const std::string& path) {
  CVnFile::FileStatus status;
  if (CVnFile::GetStatus(Wide(path), status, false))
    return status.m_mtime;
  return CVnTime();
}

// The whole file, or Failure naming it.
static std::unique_ptr<unsigned char[]> ReadBytes(const std::string& path, unsigned long& size) {
  CheckReadable(path);
  try {
    CVnFile file(Wide(path), CFile::modeRead);
    CVnSmartBytePtr bytes;
    size = file.ReadAll(bytes);
    file.Close();
    return std::unique_ptr<unsigned char[]>(bytes.Detach());
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

std::unique_ptr<InputText> ReadRaw(const std::string& path) {
  std::unique_ptr<InputText> text(new InputText(CVnFileInfo::Text8));
  unsigned long size = 0;
  text->own = ReadBytes(path, size);
  text->name = OperandLabel(path);
  text->modified = ModifiedTime(path);
  text->lines.Create(text->own.get(), size);
  return text;
}

//===-- Original line ends -------------------------------------------------===//

// The first byte at or after k that is 13 or below, or n.
static unsigned long SkipAbove13(const unsigned char* p, unsigned long k, unsigned long n) {
#if defined(__SSE2__)
  const __m128i limit = _mm_set1_epi8(13);
  for (; k + 16 <= n; k += 16) {
    const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + k));
    const int low = _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(x, limit), x));
    if (low)
      return k + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(low)));
  }
#else
  const uint64_t kLow = 0x0E0E0E0E0E0E0E0EULL, kHigh = 0x8080808080808080ULL;
  for (; k + 8 <= n; k += 8) {
    uint64_t x;
    memcpy(&x, p + k, sizeof x);
    if ((x - kLow) & ~x & kHigh)
      break;
  }
#endif
  while (k < n && p[k] > 13)
    ++k;
  return k;
}

// The same for 16-bit units starting at byte k: the byte offset of the
// first unit that is 13 or below, or of a unit cut off by the end (then the
// caller carries its first byte), stepping two bytes at a time.
static unsigned long SkipUnitsAbove13(const unsigned char* p, unsigned long k, unsigned long n, bool bigEndian) {
#if defined(__SSE2__)
  // Units compare unsigned by flipping their top bit and comparing signed.
  const __m128i flip = _mm_set1_epi16(static_cast<short>(0x8000)), limit = _mm_set1_epi16(static_cast<short>(0x8000 + 14));
  for (; k + 16 <= n; k += 16) {
    __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + k));
    if (bigEndian)
      x = _mm_or_si128(_mm_slli_epi16(x, 8), _mm_srli_epi16(x, 8));
    const int low = _mm_movemask_epi8(_mm_cmplt_epi16(_mm_xor_si128(x, flip), limit));
    if (low)
      return k + static_cast<unsigned long>(__builtin_ctz(static_cast<unsigned>(low)));
  }
#endif
  for (; k + 1 < n; k += 2) {
    const unsigned unit = bigEndian ? (p[k] << 8) | p[k + 1] : p[k] | (p[k + 1] << 8);
    if (unit <= 13)
      return k;
  }
  return k;
}

// Collects line ends from a stream of units by the repair's rules: CR LF
// and LF CR are one line end each, a lone CR or LF one more.
class LineEndScanner {
public:
  void Unit(unsigned c) {
    if (c > 13 && m_pending == 0)
      return;  // the common case
    if (m_pending == 13) {
      m_pending = 0;
      if (c == 10) {
        m_ends.push_back(LineEnd::CRLF);
        return;
      }
      m_ends.push_back(LineEnd::CR);
    } else if (m_pending == 10) {
      m_pending = 0;
      if (c == 13) {
        m_ends.push_back(LineEnd::LFCR);
        return;
      }
      m_ends.push_back(LineEnd::LF);
    }
    if (c == 13 || c == 10)
      m_pending = c;
  }
  // Past bytes that can't be CR or LF sixteen at a time (SSE2), else eight.
  void Bytes(const unsigned char* p, unsigned long n) {
    unsigned long k = 0;
    while (k < n) {
      if (m_pending == 0) {
        k = SkipAbove13(p, k, n);
        if (k == n)
          break;
      }
      Unit(p[k++]);
    }
  }
  bool Idle() const { return m_pending == 0; }
  std::vector<LineEnd> Finish() {
    Unit(0);  // settles a pending CR or LF
    return std::move(m_ends);
  }

private:
  unsigned m_pending = 0;
  std::vector<LineEnd> m_ends;
};

// Reads the file in chunks, so that finding its line ends costs no copy of it.
static std::vector<LineEnd> ScanFileLineEnds(const std::string& path, unsigned long skip, int width,
                                             bool bigEndian) {
  LineEndScanner scanner;
  try {
    CVnFile file(Wide(path), CFile::modeRead);
    unsigned char chunk[1 << 16];
    int carry = -1;  // the first byte of a unit split between chunks
    for (;;) {
      unsigned long n = file.ReadRaw(chunk, sizeof chunk);
      if (n == 0)
        break;
      unsigned long k = 0;
      if (skip) {
        k = skip < n ? skip : n;
        skip -= k;
      }
      if (width == 1) {
        scanner.Bytes(chunk + k, n - k);
        continue;
      }
      for (; k < n; ++k) {
        if (carry < 0 && scanner.Idle()) {
          k = SkipUnitsAbove13(chunk, k, n, bigEndian);
          if (k >= n)
            break;
        }
        if (carry < 0) {
          carry = chunk[k];
          continue;
        }
        scanner.Unit(bigEndian ? (carry << 8) | chunk[k] : carry | (chunk[k] << 8));
        carry = -1;
      }
    }
    file.Close();
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
  return scanner.Finish();
}

// The one kind of line end a file had, when the intake saw exactly one
// (and so no NUL cut the text short); None otherwise.
static LineEnd SingleKind(unsigned kinds) {
  switch (kinds) {
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndLf: return LineEnd::LF;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndCrLf: return LineEnd::CRLF;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndCr: return LineEnd::CR;
  case CVnDiffFile::EndsKnown | CVnDiffFile::EndLfCr: return LineEnd::LFCR;
  default: return LineEnd::None;
  }
}

static void FillLineEnds(InputText& text, const CVnDiffFile& file, const std::string& path) {
  const int count = text.lines.GetLineCount();
  const bool terminated = text.lines.GetFileInfo().HasEndingTerminator() != 0;
  const LineEnd single = SingleKind(file.GetLineEndKinds());
  if (single != LineEnd::None) {
    // Every line but an unterminated last one ends the same way: no need to
    // read the file again.
    text.ends.assign(static_cast<size_t>(count), single);
    text.uniformEnd = single;
    if (count > 0 && !terminated)
      text.ends.back() = LineEnd::None;
    return;
  }
  int width = 1;
  bool bigEndian = false;
  unsigned long skip = 0;
  if (file.GetFileType() == CVnDiffFile::TypeUnicode) {
    if (file.GetEncoding() != CVnDiffFile::EncodingUTF8) {
      width = 2;
      bigEndian = file.GetEncoding() == CVnDiffFile::EncodingUTF16BE;
    }
    if (file.HasByteOrderMark())
      skip = file.GetEncoding() == CVnDiffFile::EncodingUTF8 ? 3 : 2;
  }
  std::vector<LineEnd> ends = ScanFileLineEnds(path, skip, width, bigEndian);
  if (count > 0 && !terminated)
    ends.push_back(LineEnd::None);
  if (static_cast<int>(ends.size()) != count) {
    // A NUL unit cut the repaired text short: print plain LF ends.
    ends.assign(count, LineEnd::LF);
    if (count > 0 && !terminated)
      ends.back() = LineEnd::None;
  }
  text.ends.swap(ends);
}

//===-- The pair -----------------------------------------------------------===//

// Runs the intake on one file; false when the user declined a binary file.
static bool Load(CVnDiffFile& file, const std::string& path, unsigned encoding, unsigned char*& data,
                 unsigned long& size) {
  CheckReadable(path);
  file.SetFileName(Wide(path));
  if (encoding)
    file.SetFileEncoding(encoding);
  try {
    return file.GetFileContents(data, size);
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

static std::unique_ptr<InputText> Decoded(CVnDiffFile& file, const std::string& path, unsigned char* data,
                                          unsigned long size) {
  std::unique_ptr<InputText> text(new InputText(CVnFileInfo::Text16));
  text->name = OperandLabel(path);
  text->modified = ModifiedTime(path);
  text->wide = true;
  text->lines.Create(data, size);
  FillLineEnds(*text, file, path);
  return text;
}

static std::unique_ptr<InputText> BinaryLines(const std::string& path, unsigned char* data, unsigned long size) {
  std::unique_ptr<InputText> text(new InputText(CVnFileInfo::Text8));
  text->name = OperandLabel(path);
  text->modified = ModifiedTime(path);
  text->lines.Create(data, size);
  return text;
}

void ReadPair(const Options& o, std::unique_ptr<InputText>& source, std::unique_ptr<InputText>& target,
              CVnDiffFile& sourceFile, CVnDiffFile& targetFile) {
  const std::string& sp = o.files[0];
  const std::string& tp = o.files[1];
  if (o.raw) {
    source = ReadRaw(sp);
    target = ReadRaw(tp);
    return;
  }
  unsigned char *sd = nullptr, *td = nullptr;
  unsigned long ss = 0, ts = 0;
  if (!Load(sourceFile, sp, o.sourceEncoding, sd, ss))
    throw Failure(sp + ": binary file not compared (--binary=yes compares it)");
  if (!Load(targetFile, tp, o.targetEncoding, td, ts))
    throw Failure(tp + ": binary file not compared (--binary=yes compares it)");
  if (sourceFile.IsBinary() || targetFile.IsBinary()) {
    source = sourceFile.IsBinary() ? BinaryLines(sp, sd, ss) : ReadRaw(sp);
    target = targetFile.IsBinary() ? BinaryLines(tp, td, ts) : ReadRaw(tp);
    return;
  }
  source = Decoded(sourceFile, sp, sd, ss);
  target = Decoded(targetFile, tp, td, ts);
}

}  // namespace vndiff
