#include "fltapi/AllRecords.h"
#include "fltapi/ExternalFiles.h"
#include "fltapi/FltFile.h"
#include "fltapi/Host.h"
#include "fltapi/visitors/ReadExternalVisitor.h"

#include <algorithm>
#include <array>
#include <map>

namespace fltapi {

namespace {

/// Which bit of a reference says whose palette of that kind counts.
struct PaletteBit {
  int opcode;
  ExternalRecord::OwnPalette bit;
};

constexpr std::array paletteBits = {
    PaletteBit{opcodes::colorPalette, ExternalRecord::ownColors},
    PaletteBit{opcodes::materialPalette, ExternalRecord::ownMaterials},
    PaletteBit{opcodes::texturePalette, ExternalRecord::ownTextures},
    PaletteBit{opcodes::textureMappingPalette, ExternalRecord::ownTextures},
    PaletteBit{opcodes::lineStylePalette, ExternalRecord::ownLineStyles},
    PaletteBit{opcodes::soundPalette, ExternalRecord::ownSounds},
    PaletteBit{opcodes::lightSourcePalette, ExternalRecord::ownLightSources},
    PaletteBit{opcodes::lightPointAppearancePalette, ExternalRecord::ownLightPoints},
    PaletteBit{opcodes::lightPointAnimationPalette, ExternalRecord::ownLightPoints},
    PaletteBit{opcodes::shaderPalette, ExternalRecord::ownShaders},
};

/// Finds the references of one file.
class OwnReferences : public RecordVisitor {
public:
  OwnReferences() : RecordVisitor(TraversalMode::notExternals) {}

  using RecordVisitor::apply;
  void apply(ExternalRecord& reference) override { found.push_back(&reference); }
  void apply(InstanceReferenceRecord&) override {} // definitions are looked through where they stand

  std::vector<ExternalRecord*> found;
};

/// Answers each question once: files may show one another along very many ways.
class OutdatedFiles {
public:
  /// Whether a file that `shown` refers to, at whatever depth, is newer on disk than what was loaded of it.
  bool showsAny(const FltFile& shown)
  {
    const auto [entry, isNew] = answers_.try_emplace(&shown, false);
    if (!isNew) return entry->second;
    bool any = false;
    for (const auto* reference : shown.externalReferences()) {
      const auto* file = reference->referencedFile();
      any = any || (file && (ExternalFiles::get().isOutdated(*file) || showsAny(*file)));
    }
    return answers_[&shown] = any;
  }

private:
  std::map<const FltFile*, bool> answers_;
};

} // namespace

void FltFile::setReferrer(FltFile& referrer, std::uint32_t ownPalettes)
{
  referrer_ = &referrer;
  ownPalettes_ = ownPalettes;
}

const FltFile* FltFile::paletteOwner(int opcode) const
{
  const auto found = std::ranges::find(paletteBits, opcode, &PaletteBit::opcode);
  if (found == paletteBits.end() || ownPalettes_ & found->bit) return this;
  const auto* referrer = referrer_.get();
  return referrer ? referrer : this;
}

void FltFile::readExternals()
{
  if (!header_ || !Host::get().loadsExternals()) return;
  const ExternalFiles::Loading loading(canonicalPath(path_));
  ReadExternalVisitor visitor(*this);
  header_->accept(visitor);
  for (const auto& [number, definition] : instanceDefinitions_)
    definition->traverse(visitor);
}

std::vector<ExternalRecord*> FltFile::externalReferences() const
{
  OwnReferences visitor;
  if (header_) header_->accept(visitor);
  for (const auto& [number, definition] : instanceDefinitions_)
    definition->traverse(visitor);
  return std::move(visitor.found);
}

std::vector<std::string> FltFile::changedExternals() const
{
  std::vector<std::string> changed;
  if (externalStamps_.empty()) return changed;
  OutdatedFiles outdated;
  std::map<std::string, bool> newer; // thousands of references may bear a few paths
  for (const auto* reference : externalReferences()) {
    const auto path = reference->getName();
    const auto* shown = reference->referencedFile();
    const auto stamp = externalStamps_.find(path);
    if (!shown || stamp == externalStamps_.end() || std::ranges::find(changed, path) != changed.end()) continue;
    const auto [answer, isNew] = newer.try_emplace(path, false);
    if (isNew) answer->second = isNewerOnDisk(stamp->second.foundPath, stamp->second.time);
    if (answer->second || outdated.showsAny(*shown)) changed.push_back(path);
  }
  return changed;
}

void FltFile::reloadExternals(const std::vector<std::string>& paths)
{
  if (!header_) return;
  for (const auto& path : paths) {
    const auto stamp = externalStamps_.find(path);
    if (stamp != externalStamps_.end()) ExternalFiles::get().forget(canonicalPath(stamp->second.foundPath));
  }
  for (auto* reference : externalReferences())
    if (std::ranges::find(paths, reference->getName()) != paths.end()) reference->show(nullptr, {});
  readExternals();
}

} // namespace fltapi
