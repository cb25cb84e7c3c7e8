#include "scene/view/Overlays.h"

#include "scene/view/AxisColors.h"
#include "scene/view/WindowPixels.h"

#include <osg/GL>
#include <osg/Math>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace nalt {

namespace {

constexpr double cornerDistance = 50.0;
constexpr double axisLength = 25.0;
constexpr double tipLength = 1.4 * axisLength;
constexpr double letterPlace = 0.6;
constexpr double headRadius = 3.5;
constexpr int headSides = 12;
constexpr int markerMargin = 10;

constexpr int glyphSize = 8;
using Glyph = std::array<std::uint8_t, glyphSize>; // one byte a row, the top one first, the left pixel in the high bit

constexpr std::array<Glyph, 3> axisLetters = {{
    {0x00, 0x82, 0x44, 0x28, 0x10, 0x28, 0x44, 0x82},
    {0x00, 0x82, 0x44, 0x28, 0x10, 0x10, 0x10, 0x10},
    {0x00, 0xFE, 0x04, 0x08, 0x10, 0x20, 0x40, 0xFE},
}};
/// Edges that run together in the distance, and edges that don't.
constexpr Glyph perspectiveMarker = {0x18, 0x18, 0x24, 0x24, 0x42, 0x42, 0x81, 0xFF};
constexpr Glyph orthographicMarker = {0xFF, 0x81, 0x81, 0x81, 0x81, 0x81, 0x81, 0xFF};

struct Pixel {
  double x;
  double y;
};

constexpr int pickPointSize = 13;
/// One character a pixel: the white mark, its black rim, and nothing.
constexpr std::array<const char*, pickPointSize> pickPoint = {
    "     +++     ", //
    "     +#+     ", //
    "    ++#++    ", //
    "   ++###++   ", //
    "  ++##+##++  ", //
    "+++##+ +##+++", //
    "+####+ +####+", //
    "+++##+ +##+++", //
    "  ++##+##++  ", //
    "   ++###++   ", //
    "    ++#++    ", //
    "     +#+     ", //
    "     +++     ",
};

/// Puts `size` by `size` pixels on the window, the lower left one at (x, y).
void drawPixels(int size, double x, double y, const std::uint8_t* rgba)
{
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  // A raster position outside of the window would drop the whole picture; glBitmap moves it there unclipped.
  glRasterPos2i(0, 0);
  glBitmap(0, 0, 0, 0, static_cast<float>(std::lround(x)), static_cast<float>(std::lround(y)), nullptr);
  glDrawPixels(size, size, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
  glDisable(GL_BLEND);
}

/// Draws `glyph` centred on `at`, over a halo that keeps it readable on any ground.
void drawGlyph(const Glyph& glyph, Pixel at, const osg::Vec3f& color)
{
  constexpr int size = glyphSize + 2;
  std::array<std::uint8_t, size * size * 4> rgba{};
  const auto isSet = [&glyph](int x, int y) {
    return x >= 0 && y >= 0 && x < glyphSize && y < glyphSize && (glyph[y] >> (glyphSize - 1 - x) & 1) != 0;
  };
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      std::uint8_t* pixel = &rgba[((size - 1 - y) * size + x) * 4]; // OpenGL starts at the lowest row
      if (isSet(x - 1, y - 1)) {
        for (int i = 0; i < 3; ++i)
          pixel[i] = static_cast<std::uint8_t>(color[i] * 255.0F);
        pixel[3] = 255;
      } else {
        bool beside = false;
        for (int dy = -2; dy <= 0; ++dy)
          for (int dx = -2; dx <= 0; ++dx)
            beside = beside || isSet(x + dx, y + dy);
        pixel[0] = pixel[1] = pixel[2] = 255;
        pixel[3] = beside ? 110 : 0;
      }
    }
  }
  drawPixels(size, at.x - size / 2, at.y - size / 2, rgba.data());
}

void drawOutline(int width, int height, int inset)
{
  const float x0 = static_cast<float>(inset) + 0.5F;
  const float x1 = static_cast<float>(width - inset) - 0.5F;
  const float y1 = static_cast<float>(height - inset) - 0.5F;
  glBegin(GL_LINE_LOOP);
  glVertex2f(x0, x0);
  glVertex2f(x1, x0);
  glVertex2f(x1, y1);
  glVertex2f(x0, y1);
  glEnd();
}

bool isTop(AxesCorner corner)
{
  return corner == AxesCorner::topLeft || corner == AxesCorner::topRight;
}

bool isLeft(AxesCorner corner)
{
  return corner == AxesCorner::topLeft || corner == AxesCorner::bottomLeft;
}

/// A cone along `axis` from the end of the line to the tip. Orthographic, so screen offsets are just x and y.
void drawHead(const osg::Vec3d& axis, const osg::Vec3f& color, Pixel origin)
{
  osg::Vec3d side = axis ^ osg::Vec3d(0, 0, 1);
  if (side.normalize() < 1e-6) side.set(1, 0, 0);
  osg::Vec3d other = axis ^ side;
  other.normalize();
  std::array<osg::Vec3d, headSides + 1> ring;
  for (int i = 0; i <= headSides; ++i) {
    const double angle = 2.0 * osg::PI * i / headSides;
    ring[i] = axis * axisLength + (side * std::cos(angle) + other * std::sin(angle)) * headRadius;
  }
  const auto fan = [&](const osg::Vec3d& apex, float shade) {
    glColor3f(color.x() * shade, color.y() * shade, color.z() * shade);
    glBegin(GL_TRIANGLE_FAN);
    glVertex2d(origin.x + apex.x(), origin.y + apex.y());
    for (const osg::Vec3d& point : ring)
      glVertex2d(origin.x + point.x(), origin.y + point.y());
    glEnd();
  };
  // What points away shows its base last, what points here its tip.
  const bool towardsViewer = axis.z() > 0.0;
  if (towardsViewer) fan(axis * axisLength, 0.6F);
  fan(axis * tipLength, 1.0F);
  if (!towardsViewer) fan(axis * axisLength, 0.6F);
}

} // namespace

void drawBackground(int width, int height, const osg::Vec3f& top, const osg::Vec3f& bottom)
{
  const WindowPixels pixels(width, height);
  glShadeModel(GL_SMOOTH);
  glBegin(GL_QUADS);
  glColor3fv(bottom.ptr());
  glVertex2i(0, 0);
  glVertex2i(width, 0);
  glColor3fv(top.ptr());
  glVertex2i(width, height);
  glVertex2i(0, height);
  glEnd();
}

void drawRubberBand(int width, int height, const RubberBand& band)
{
  const WindowPixels pixels(width, height);
  const auto rectangle = [&band](double dx, double dy) {
    glBegin(GL_LINE_LOOP);
    glVertex2d(band.first.x() + dx, band.first.y() + dy);
    glVertex2d(band.second.x() + dx, band.first.y() + dy);
    glVertex2d(band.second.x() + dx, band.second.y() + dy);
    glVertex2d(band.first.x() + dx, band.second.y() + dy);
    glEnd();
  };
  glColor3f(0.0F, 0.0F, 0.0F);
  rectangle(1.5, -0.5);
  glColor3f(1.0F, 1.0F, 1.0F);
  rectangle(0.5, 0.5);
}

void drawPickPoint(int width, int height, const osg::Vec2d& place)
{
  const WindowPixels pixels(width, height);
  std::array<std::uint8_t, pickPointSize * pickPointSize * 4> rgba{};
  for (int y = 0; y < pickPointSize; ++y) {
    for (int x = 0; x < pickPointSize; ++x) {
      const char mark = pickPoint[y][x];
      std::uint8_t* pixel = &rgba[((pickPointSize - 1 - y) * pickPointSize + x) * 4];
      pixel[0] = pixel[1] = pixel[2] = mark == '#' ? 255 : 0;
      pixel[3] = mark == ' ' ? 0 : 255;
    }
  }
  drawPixels(pickPointSize, place.x() - pickPointSize / 2, place.y() - pickPointSize / 2, rgba.data());
}

void drawFrame(int width, int height, bool active)
{
  const WindowPixels pixels(width, height);
  glColor3f(0.25F, 0.28F, 0.33F);
  drawOutline(width, height, 0);
  if (active)
    glColor3f(1.0F, 0.76F, 0.20F);
  else
    glColor3f(0.62F, 0.66F, 0.72F);
  drawOutline(width, height, 1);
  if (active) drawOutline(width, height, 2);
}

void drawOrientationAxes(int width, int height, AxesCorner corner, const osg::Quat& orientation)
{
  if (corner == AxesCorner::none) return;
  const WindowPixels pixels(width, height);
  const Pixel origin{isLeft(corner) ? cornerDistance : width - cornerDistance,
                     isTop(corner) ? height - cornerDistance : cornerDistance};
  const osg::Quat toView = orientation.inverse();
  struct Axis {
    osg::Vec3d direction;
    int index;
  };
  std::array<Axis, 3> axes = {
      {{toView * osg::Vec3d(1, 0, 0), 0}, {toView * osg::Vec3d(0, 1, 0), 1}, {toView * osg::Vec3d(0, 0, 1), 2}}};
  // No depth here: the farthest first.
  std::sort(axes.begin(), axes.end(), [](const Axis& a, const Axis& b) { return a.direction.z() < b.direction.z(); });
  for (const Axis& axis : axes) {
    const osg::Vec3f color = axisColor(axis.index);
    glLineWidth(2.0F);
    glColor3fv(color.ptr());
    glBegin(GL_LINES);
    glVertex2d(origin.x, origin.y);
    glVertex2d(origin.x + axis.direction.x() * axisLength, origin.y + axis.direction.y() * axisLength);
    glEnd();
    drawHead(axis.direction, color, origin);
    const osg::Vec3d letter = axis.direction * (letterPlace * axisLength);
    drawGlyph(axisLetters[axis.index], {origin.x + letter.x(), origin.y + letter.y()}, color * 0.7F);
  }
}

void drawProjectionMarker(int width, int height, AxesCorner axes, bool orthographic)
{
  const WindowPixels pixels(width, height);
  const bool left = !isLeft(axes);
  const bool top = isTop(axes) || axes == AxesCorner::none;
  const Pixel at{static_cast<double>(left ? markerMargin : width - markerMargin),
                 static_cast<double>(top ? height - markerMargin : markerMargin)};
  drawGlyph(orthographic ? orthographicMarker : perspectiveMarker, at, osg::Vec3f(0.1F, 0.12F, 0.15F));
}

} // namespace nalt
