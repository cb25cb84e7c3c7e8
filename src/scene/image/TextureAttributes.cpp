#include "scene/image/TextureAttributes.h"

#include "fltapi/Bytes.h"

#include <array>
#include <filesystem>
#include <fstream>

namespace nalt {

namespace {

using osg::TexEnv;
using osg::Texture;

// Byte offsets of the big-endian integers in an attribute file.
constexpr std::size_t minificationAt = 28;
constexpr std::size_t magnificationAt = 32;
constexpr std::size_t wrapBothAt = 36;
constexpr std::size_t wrapUAt = 40;
constexpr std::size_t wrapVAt = 44;
constexpr std::size_t environmentAt = 60;
constexpr std::size_t headSize = 64;

constexpr int wrapByBoth = 3;

/// By the file's number: point, bilinear, four kinds of mipmaps and the old one without a kind, none, and six more that
/// come closest to a trilinear filter here.
constexpr std::array minifications = {
    Texture::NEAREST,
    Texture::LINEAR,
    Texture::LINEAR_MIPMAP_LINEAR,
    Texture::NEAREST_MIPMAP_NEAREST,
    Texture::NEAREST_MIPMAP_LINEAR,
    Texture::LINEAR_MIPMAP_NEAREST,
    Texture::LINEAR_MIPMAP_LINEAR,
};
constexpr std::array environments = {TexEnv::MODULATE, TexEnv::BLEND, TexEnv::DECAL, TexEnv::REPLACE, TexEnv::ADD};

/// The bytes that a short file doesn't have stay what they are.
class Head {
public:
  explicit Head(std::ifstream& file)
  {
    file.read(reinterpret_cast<char*>(bytes_.data()), static_cast<std::streamsize>(bytes_.size()));
    size_ = static_cast<std::size_t>(file.gcount());
  }
  int at(std::size_t offset, int otherwise) const
  {
    if (offset + 4 > size_) return otherwise;
    auto bytes = std::array<std::byte, 4>{};
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), bytes.size(), bytes.begin());
    fltapi::swap32(bytes.data());
    return fltapi::loadAt<std::int32_t>(bytes.data());
  }

private:
  std::array<std::byte, headSize> bytes_{};
  std::size_t size_ = 0;
};

template <class Modes>
auto modeOf(const Modes& modes, int number, typename Modes::value_type otherwise)
{
  return number >= 0 && number < static_cast<int>(modes.size()) ? modes[static_cast<std::size_t>(number)] : otherwise;
}

Texture::WrapMode wrapOf(int number, int both)
{
  switch (number == wrapByBoth ? both : number) {
  case 1:
    return Texture::CLAMP_TO_EDGE;
  case 4:
    return Texture::MIRROR;
  default:
    return Texture::REPEAT;
  }
}

} // namespace

TextureAttributes TextureAttributes::read(const std::string& path)
{
  TextureAttributes attributes;
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return attributes; // a pipe would keep us waiting
  std::ifstream file(path, std::ios::binary);
  if (!file) return attributes;
  const Head head(file);
  attributes.minification = modeOf(minifications, head.at(minificationAt, -1), attributes.minification);
  if (head.at(magnificationAt, 1) == 0) attributes.magnification = Texture::NEAREST;
  const int both = head.at(wrapBothAt, 0);
  attributes.wrapU = wrapOf(head.at(wrapUAt, wrapByBoth), both);
  attributes.wrapV = wrapOf(head.at(wrapVAt, wrapByBoth), both);
  attributes.environment = modeOf(environments, head.at(environmentAt, 0), attributes.environment);
  return attributes;
}

void TextureAttributes::applyTo(osg::Texture2D& texture, osg::TexEnv& environmentState) const
{
  texture.setFilter(Texture::MIN_FILTER, minification);
  texture.setFilter(Texture::MAG_FILTER, magnification);
  texture.setWrap(Texture::WRAP_S, wrapU);
  texture.setWrap(Texture::WRAP_T, wrapV);
  environmentState.setMode(environment);
}

} // namespace nalt
