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

std::vector<std::string> FltFile::changedExternals() const
{
  std::vector<std::string> changed;
  if (externalStamps_.empty() || !header_) return changed;
  std::map<const FltFile*, bool> outdated; // thousands of references may show a few files
  std::string path;
  for (auto* record : header_->findDescendants(ExternalRecord::code, /*followInstances=*/true)) {
    // References inside what one of ours shows come right behind it, and have changed its content when they change.
    const bool ours = record->file() == this;
    if (ours) path = record->getName();
    const auto stamp = externalStamps_.find(path);
    const auto* shown = static_cast<const ExternalRecord*>(record)->referencedFile();
    if (!shown || stamp == externalStamps_.end() || std::ranges::find(changed, path) != changed.end()) continue;
    const auto [answer, isNew] = outdated.try_emplace(shown, false);
    if (isNew) {
      answer->second =
          ours ? isNewerOnDisk(stamp->second.foundPath, stamp->second.time) : ExternalFiles::get().isOutdated(*shown);
    }
    if (answer->second) changed.push_back(path);
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
  // References inside the content that is dropped go with it.
  auto references = header_->findDescendants(ExternalRecord::code, /*followInstances=*/true);
  std::erase_if(references, [&](const Record* record) {
    return record->file() != this || std::ranges::find(paths, record->getName()) == paths.end();
  });
  for (auto* reference : references)
    static_cast<ExternalRecord*>(reference)->show(nullptr, {});
  readExternals();
}

} // namespace fltapi
