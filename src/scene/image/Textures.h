#pragma once

#include <cstdint>
#include <map>
#include <osg/Referenced>
#include <osg/TexEnv>
#include <osg/Texture2D>
#include <osg/ref_ptr>
#include <string>

namespace fltapi {
class FltFile;
class TexturePaletteRecord;
} // namespace fltapi

namespace nalt {

/// An image file as the scene draws it.
struct LoadedTexture : osg::Referenced {
  osg::ref_ptr<osg::Texture2D> texture = new osg::Texture2D;
  osg::ref_ptr<osg::TexEnv> environment = new osg::TexEnv;
  bool hasAlpha = false; ///< some texel isn't opaque

protected:
  ~LoadedTexture() override = default;
};

/// The images of a scene, each loaded once however many palettes name it. What can't be loaded is tried only once.
class Textures {
public:
  /// The texture of a palette entry; null without such an entry or image. A null file is told to the log.
  LoadedTexture* find(const fltapi::FltFile* file, std::uint16_t index);
  /// Null without an image.
  LoadedTexture* load(const fltapi::TexturePaletteRecord& entry);
  /// Reads images and attributes again when they are next asked for.
  void forgetAll() { byPath_.clear(); }

private:
  std::map<std::string, osg::ref_ptr<LoadedTexture>> byPath_;
};

} // namespace nalt
