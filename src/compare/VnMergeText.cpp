// VnMergeText.cpp - the merged text: each region as its kind or choice says.
#include "compare/VnMergeText.h"

#include "compare/VnTextEncoding.h"
#include "intake/VnFile.h"

CVnMergeWriter::CVnMergeWriter(bool wide, unsigned codePage, const std::string& mark, VnLineEnd uniform,
                               VnLineEnd fallback)
    : m_bWide(wide), m_nCodePage(codePage), m_strMark(mark), m_nUniform(uniform), m_nFallback(fallback) {}

void CVnMergeWriter::End(VnLineEnd end) {
  static const char* const kEnds[] = {"", "\n", "\r\n", "\r", "\n\r", "\n"};
  for (const char* c = kEnds[static_cast<int>(end)]; *c; ++c) {
    if (m_bWide)
      m_units += static_cast<WCHAR>(*c);
    else
      m_bytes += *c;
  }
}

// A line left without an end gets one before anything follows it.
void CVnMergeWriter::Close() {
  if (m_bOpenLine)
    End(m_nFallback);
  m_bOpenLine = false;
}

void CVnMergeWriter::Lines(const CVnComparedFile& file, CVnLineRange range, bool foreign) {
  for (long i = range.m_nBegin; i < range.End(); ++i) {
    Close();
    size_t units = 0;
    const void* text = file.GetLineText(i, units);
    if (m_bWide)
      m_units.append(static_cast<const WCHAR*>(text), units);
    else
      m_bytes.append(static_cast<const char*>(text), units);
    VnLineEnd end = file.GetLineEnd(i);
    if (end != VnLineEnd::None && foreign && m_nUniform != VnLineEnd::None)
      end = m_nUniform;
    m_bOpenLine = end == VnLineEnd::None;
    End(end);
  }
}

void CVnMergeWriter::Marker(const char* sign, const CString& label) {
  Close();
  CString line(sign);
  if (!label.IsEmpty())
    line += _T(" ") + label;
  if (m_bWide)
    m_units.append(line.GetString(), static_cast<size_t>(line.GetLength()));
  else
    m_bytes += VnToUtf8(line);
  End(m_nFallback);
}

bool CVnMergeWriter::Finish(std::string& out) {
  if (!m_bWide) {
    out.swap(m_bytes);
    return true;
  }
  out = m_strMark;
  return VnEncodeUnits(m_nCodePage, m_units.data(), m_units.size(), out);
}

//===-- The merged text ----------------------------------------------------===//

namespace {

bool OneKind(VnLineEnd end) { return end != VnLineEnd::None && end != VnLineEnd::Mixed; }

}  // namespace

std::string CVnMerge::GetMergedText(const CVnMergeMarkers& markers) const {
  const CVnComparedFile& local = m_files[Local];
  const CVnComparedFile& base = m_files[Base];
  const CVnComparedFile& remote = m_files[Remote];
  const bool wide = local.IsWide();
  const VnLineEnd style = local.GetFacts().m_nLineEnds;
  // Markers end as LOCAL's lines do; a side without any line end has none
  // to give, so the next side's first one stands in.
  VnLineEnd fallback = VnLineEnd::LF;
  for (const CVnComparedFile* file : {&local, &remote, &base})
    if (wide && file->GetLineEnd(0) != VnLineEnd::None) {
      fallback = file->GetLineEnd(0);
      break;
    }
  const CVnFileFacts& facts = local.GetFacts();
  const unsigned page = GetMergedCodePage();
  CVnMergeWriter w(wide, page, facts.m_bHasBOM ? VnByteOrderMark(page) : std::string(),
                   wide && OneKind(style) ? style : VnLineEnd::None, fallback);
  for (const CVnMergeRegion& r : m_regions) {
    VnMergeChoice choice = r.m_nChoice;
    switch (r.m_nKind) {
    case VnMergeKind::Unchanged:
    case VnMergeKind::Local:
    case VnMergeKind::Both:
      choice = VnMergeChoice::Local;
      break;
    case VnMergeKind::Remote:
      choice = VnMergeChoice::Remote;
      break;
    case VnMergeKind::Conflict:
      break;
    }
    switch (choice) {
    case VnMergeChoice::Local:
      w.Lines(local, r.m_local, false);
      break;
    case VnMergeChoice::Remote:
      w.Lines(remote, r.m_remote, true);
      break;
    case VnMergeChoice::LocalThenRemote:
      w.Lines(local, r.m_local, false);
      w.Lines(remote, r.m_remote, true);
      break;
    case VnMergeChoice::RemoteThenLocal:
      w.Lines(remote, r.m_remote, true);
      w.Lines(local, r.m_local, false);
      break;
    case VnMergeChoice::None:
      w.Marker("<<<<<<<", markers.m_strLocal);
      w.Lines(local, r.m_local, false);
      if (markers.m_bShowBase && HasBase()) {
        w.Marker("|||||||", markers.m_strBase);
        w.Lines(base, r.m_base, true);
      }
      w.Marker("=======", CString());
      w.Lines(remote, r.m_remote, true);
      w.Marker(">>>>>>>", markers.m_strRemote);
      break;
    }
  }
  std::string out;
  if (!w.Finish(out))
    AfxThrowNotSupportedException();  // Merge checked the page; only a failing converter gets here
  return out;
}

void CVnMerge::Save(const CString& path, const CVnMergeMarkers& markers) const {
  const std::string text = GetMergedText(markers);
  VnWriteFileWhole(path, text.data(), static_cast<unsigned long>(text.size()));
}
