#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "fltapi/VersionText.h"
#include "fltapi/io/FileInput.h"
#include "fltapi/io/RecordReader.h"
#include "fltapi/io/VertexPaletteBreaker.h"
#include "platform/Paths.h"

namespace fltapi {

bool FltFile::readRecords(const std::string& path, VertexPaletteBreaker& vertices)
{
  FileInput input(path);
  if (!input.isOpen()) {
    complain("Failed opening file " + path + " for reading.");
    return false;
  }
  RecordReader reader(input, *this, vertices);
  const auto first = reader.next();
  if (!first || first->opcode() != opcodes::header) {
    complain("Failed creating header record while reading " + path + ".");
    return false;
  }
  header_ = static_cast<HeaderRecord*>(first.get());
  checkVersion();
  totalBytes_ = header_->length();
  if (!header_->read(reader)) {
    const auto why = reader.failure().empty() ? std::string("The file is damaged.") : reader.failure();
    warn("Can't read " + nalt::fileNamePart(path) + ". " + why);
    return false;
  }
  // Damage in front of the first level costs what stands behind it, but what was read is whole.
  if (!reader.streamIsSound()) warn("Can't read all of " + nalt::fileNamePart(path) + ". " + reader.failure());
  return true;
}

void FltFile::checkVersion() const
{
  const int version = header_->get(HeaderRecord::fields.formatRevision);
  if (version >= oldestVersion && version <= currentVersion) return;
  const bool tooNew = version > currentVersion;
  warn(nalt::fileNamePart(path_) + " is of an unsupported flight version (" + versionText(version) + ") " +
       (tooNew ? "after " + versionText(currentVersion) : "prior to " + versionText(oldestVersion)) +
       ".\nNalt will try to load it, but the file may not appear as expected.");
}

/// Nothing that was in the file before, and nothing of a load that failed, stays.
void FltFile::clear()
{
  header_ = nullptr;
  instanceDefinitions_.clear();
  names_.clear();
  namesCollected_ = false;
  nextNumbers_.fill(1);
  externalStamps_.clear();
  repairsTold_.clear();
  totalBytes_ = 0;
  vertexListCount_ = 0;
  modified_ = false;
  reading_ = false;
}

bool FltFile::load(const std::string& path)
{
  if (path.empty()) return false;
  clear();
  path_ = path;
  reading_ = true;
  VertexPaletteBreaker vertices;
  if (!readRecords(path, vertices)) {
    clear();
    return false;
  }
  loadedVersion_ = header_->get(HeaderRecord::fields.formatRevision);
  if (loadedVersion_ != currentVersion) {
    warn("Converted " + nalt::fileNamePart(path) + " from version " + versionText(loadedVersion_) + " to version " +
         versionText(currentVersion) + ".");
    header_->set(HeaderRecord::fields.formatRevision, currentVersion);
  }
  readExternals();
  breakVertexPalette(vertices);
  reading_ = false;
  return true;
}

/// From here on every polygon owns its corners.
void FltFile::breakVertexPalette(VertexPaletteBreaker& vertices)
{
  auto* palette = vertexPalette();
  if (!palette) return;
  vertices.breakBelow(*header_);
  for (const auto& [number, definition] : instanceDefinitions_)
    vertices.breakBelow(*definition);
  palette->clear();
}

} // namespace fltapi
