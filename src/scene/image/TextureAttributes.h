#pragma once

#include <osg/TexEnv>
#include <osg/Texture2D>
#include <string>

namespace nalt {

/// What the attribute file beside an image says about drawing it.
struct TextureAttributes {
  osg::Texture::FilterMode minification = osg::Texture::LINEAR_MIPMAP_LINEAR;
  osg::Texture::FilterMode magnification = osg::Texture::LINEAR;
  osg::Texture::WrapMode wrapU = osg::Texture::REPEAT;
  osg::Texture::WrapMode wrapV = osg::Texture::REPEAT;
  osg::TexEnv::Mode environment = osg::TexEnv::MODULATE;

  /// What the file leaves open, or a missing file, keeps the defaults.
  static TextureAttributes read(const std::string& path);
  void applyTo(osg::Texture2D& texture, osg::TexEnv& environmentState) const;
};

} // namespace nalt
