#include "scene/image/Textures.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "platform/Paths.h"
#include "scene/image/FileSearch.h"
#include "scene/image/SgiImage.h"
#include "scene/image/TextureAttributes.h"

#include <osg/Notify>
#include <osgDB/FileNameUtils>
#include <osgDB/ReadFile>

namespace nalt {

namespace {

using fltapi::TexturePaletteRecord;

osg::ref_ptr<osg::Image> readImage(const std::string& path)
{
  if (!isSoundImageFile(path)) return nullptr;
  // Rows of these files run from the top down.
  const bool flips = osgDB::getLowerCaseFileExtension(path) == "dds";
  const osg::ref_ptr<osgDB::Options> options = flips ? new osgDB::Options("dds_flip") : nullptr;
  return osgDB::readRefImageFile(path, options);
}

osg::ref_ptr<LoadedTexture> loadFrom(const std::string& path)
{
  const auto image = readImage(path);
  if (!image) return nullptr;
  osg::ref_ptr<LoadedTexture> loaded = new LoadedTexture;
  loaded->hasAlpha = image->isImageTranslucent();
  loaded->texture->setImage(image);
  loaded->texture->setResizeNonPowerOfTwoHint(false);
  TextureAttributes::read(findFileIgnoringCase(path + ".attr")).applyTo(*loaded->texture, *loaded->environment);
  return loaded;
}

} // namespace

LoadedTexture* Textures::find(const fltapi::FltFile* file, std::uint16_t index)
{
  if (!file) {
    OSG_WARN << "No FLT file found for retrieving texture palette." << std::endl;
    return nullptr;
  }
  for (const auto* record : file->palette(TexturePaletteRecord::code)) {
    const auto& entry = static_cast<const TexturePaletteRecord&>(*record);
    if (entry.get(TexturePaletteRecord::fields.index) == index) return load(entry);
  }
  return nullptr;
}

LoadedTexture* Textures::load(const TexturePaletteRecord& entry)
{
  const auto path = findFileOfModel(entry.getName(), entry.file() ? entry.file()->path() : std::string{});
  if (path.empty()) return nullptr;
  const auto [place, isNew] = byPath_.try_emplace(path);
  if (isNew) place->second = loadFrom(path);
  return place->second;
}

} // namespace nalt
