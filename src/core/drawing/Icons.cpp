#include "core/drawing/Icons.h"

#include "core/drawing/IconTable.h"
#include "core/drawing/SvgPicture.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace nalt {

namespace {

constexpr int channels = 4;

std::unique_ptr<Fl_RGB_Image> imageOf(const std::vector<std::uint8_t>& pixels, int width, int height)
{
  auto* copy = new std::uint8_t[pixels.size()]; // the image owns it from here
  std::copy(pixels.begin(), pixels.end(), copy);
  auto image = std::make_unique<Fl_RGB_Image>(copy, width, height, channels);
  image->alloc_array = 1;
  return image;
}

std::vector<std::uint8_t> draw(const char* name, int width, int height)
{
  for (const IconSource& source : iconTable()) {
    if (std::string_view(source.name) != name) continue;
    return drawSvg(source.svg, width, height);
  }
  return {};
}

void fade(std::vector<std::uint8_t>& pixels)
{
  for (std::size_t i = 0; i < pixels.size(); i += channels) {
    const int grey = (pixels[i] * 30 + pixels[i + 1] * 59 + pixels[i + 2] * 11) / 100;
    const auto light = static_cast<std::uint8_t>(80 + grey / 2);
    pixels[i] = pixels[i + 1] = pixels[i + 2] = light;
    pixels[i + 3] = static_cast<std::uint8_t>(pixels[i + 3] * 65 / 100);
  }
}

using Cache = std::map<std::pair<std::string, int>, std::unique_ptr<Fl_RGB_Image>>;

Fl_RGB_Image* cached(Cache& cache, const char* name, int size, bool faded)
{
  auto& entry = cache[{name, size}];
  if (!entry) {
    std::vector<std::uint8_t> pixels = draw(name, size, size);
    if (pixels.empty()) return nullptr;
    if (faded) fade(pixels);
    entry = imageOf(pixels, size, size);
  }
  return entry.get();
}

} // namespace

std::unique_ptr<Fl_RGB_Image> makeIcon(const char* name, int width, int height)
{
  const std::vector<std::uint8_t> pixels = draw(name, width, height);
  return pixels.empty() ? nullptr : imageOf(pixels, width, height);
}

Fl_RGB_Image* icon(const char* name, int size)
{
  static Cache cache;
  return cached(cache, name, size, /*faded=*/false);
}

Fl_RGB_Image* disabledIcon(const char* name, int size)
{
  static Cache cache;
  return cached(cache, name, size, /*faded=*/true);
}

} // namespace nalt
