#include "core/drawing/SvgPicture.h"

#include <librsvg/rsvg.h>

#include <cstring>
#include <memory>

namespace nalt {

namespace {

struct Release {
  void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

/// Cairo's pixels are numbers of 32 bits, premultiplied, with alpha on top.
std::vector<std::uint8_t> pixelsOf(cairo_surface_t* surface, int width, int height)
{
  cairo_surface_flush(surface);
  const auto* rows = cairo_image_surface_get_data(surface);
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface));
  std::vector<std::uint8_t> pixels;
  pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
      std::uint32_t pixel = 0;
      std::memcpy(&pixel, rows + y * stride + x * sizeof(pixel), sizeof(pixel));
      const std::uint32_t alpha = pixel >> 24;
      for (const int shift : {16, 8, 0}) {
        const std::uint32_t value = pixel >> shift & 255U;
        pixels.push_back(static_cast<std::uint8_t>(alpha == 0 ? 0 : (value * 255 + alpha / 2) / alpha));
      }
      pixels.push_back(static_cast<std::uint8_t>(alpha));
    }
  }
  return pixels;
}

} // namespace

std::vector<std::uint8_t> drawSvg(std::string_view svg, int width, int height)
{
  const auto* data = reinterpret_cast<const guint8*>(svg.data());
  const std::unique_ptr<RsvgHandle, Release> picture(rsvg_handle_new_from_data(data, svg.size(), nullptr));
  if (!picture) return {};
  const std::unique_ptr<cairo_surface_t, Release> surface(
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return {};
  const std::unique_ptr<cairo_t, Release> context(cairo_create(surface.get()));
  const RsvgRectangle whole{0, 0, static_cast<double>(width), static_cast<double>(height)};
  if (!rsvg_handle_render_document(picture.get(), context.get(), &whole, nullptr)) return {};
  return pixelsOf(surface.get(), width, height);
}

} // namespace nalt
