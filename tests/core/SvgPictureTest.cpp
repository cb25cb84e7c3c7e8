#include "core/drawing/SvgPicture.h"
#include "core/drawing/IconTable.h"
#include "core/drawing/Icons.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace nalt {

namespace {

using Pixel = std::array<int, 4>;

class Picture {
public:
  Picture(const std::string& body, int size)
      : raster_(*drawSvg("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'>" + body + "</svg>", size, size)),
        pixels_(raster_.pixels())
  {}
  Pixel at(int x, int y) const
  {
    const auto i = static_cast<std::size_t>((y * raster_.w() + x) * 4);
    return {pixels_[i], pixels_[i + 1], pixels_[i + 2], pixels_[i + 3]};
  }
  /// Covered area in units of the view box.
  double area() const
  {
    double sum = 0.0;
    for (std::size_t i = 3; i < pixels_.size(); i += 4)
      sum += pixels_[i] / 255.0;
    return sum * 100.0 / (raster_.w() * raster_.h());
  }

private:
  Raster raster_;
  std::vector<std::uint8_t> pixels_;
};

constexpr Pixel red = {255, 0, 0, 255};
constexpr Pixel nothing = {0, 0, 0, 0};

} // namespace

TEST(SvgPicture, FillsARectangleInItsPlace)
{
  const Picture picture("<rect x='2' y='4' width='3' height='2' fill='#ff0000'/>", 10);
  EXPECT_EQ(picture.at(2, 4), red);
  EXPECT_EQ(picture.at(4, 5), red);
  EXPECT_EQ(picture.at(5, 4), nothing);
  EXPECT_EQ(picture.at(2, 3), nothing);
}

TEST(SvgPicture, ScalesTheViewBox)
{
  const Picture picture("<rect x='2' y='4' width='3' height='2' fill='#f00'/>", 40);
  EXPECT_EQ(picture.at(8, 16), red);
  EXPECT_EQ(picture.at(7, 16), nothing);
  EXPECT_NEAR(picture.area(), 6.0, 1e-6);
}

TEST(SvgPicture, EdgesAreSmooth)
{
  const Picture picture("<rect x='2.5' y='2' width='3' height='2' fill='#f00'/>", 10);
  EXPECT_NEAR(picture.at(2, 2)[3], 128, 1);
}

TEST(SvgPicture, AreasAgreeWithGeometry)
{
  EXPECT_NEAR(Picture("<circle cx='5' cy='5' r='4'/>", 80).area(), 3.14159 * 16.0, 0.2);
  EXPECT_NEAR(Picture("<path d='M1 1 L9 1 L1 9 Z'/>", 80).area(), 32.0, 0.05);
  EXPECT_NEAR(Picture("<path d='m1 1 h8 l-8 8 z'/>", 80).area(), 32.0, 0.05);
  EXPECT_NEAR(Picture("<polygon points='1,1 9,1 1,9'/>", 80).area(), 32.0, 0.05);
  EXPECT_NEAR(Picture("<path d='M0 0 C0 10 10 10 10 0 Z'/>", 80).area(), 60.0, 0.5);  // cubic arch
  EXPECT_NEAR(Picture("<path d='M0 0 Q5 10 10 0 Z'/>", 80).area(), 100.0 / 3.0, 0.5); // parabola
}

TEST(SvgPicture, HolesAndOverlapsFollowTheWinding)
{
  EXPECT_NEAR(Picture("<path d='M1 1 H9 V9 H1 Z M3 3 V7 H7 V3 Z'/>", 40).area(), 64.0 - 16.0, 0.01);
  EXPECT_NEAR(Picture("<path d='M1 1 H9 V9 H1 Z M3 3 H7 V7 H3 Z'/>", 40).area(), 64.0, 0.01);
}

TEST(SvgPicture, LinesHaveRoundEnds)
{
  const Picture picture("<line x1='2' y1='5' x2='8' y2='5' fill='none' stroke='#f00' stroke-width='2'/>", 80);
  EXPECT_NEAR(picture.area(), 12.0 + 3.14159, 0.1);
}

TEST(SvgPicture, GroupsHandDownStyleAndTransform)
{
  const Picture picture(
      "<g fill='#f00' transform='translate(1 1) scale(2)'><rect x='1' y='1' width='2' height='2'/></g>", 10);
  EXPECT_EQ(picture.at(3, 3), red);
  EXPECT_EQ(picture.at(6, 6), red);
  EXPECT_EQ(picture.at(7, 7), nothing);
}

TEST(SvgPicture, GradientsRunAlongTheirLine)
{
  const Picture picture(
      "<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='0' y1='0' x2='0' y2='10'>"
      "<stop offset='0' stop-color='#000000'/><stop offset='1' stop-color='#ffffff'/></linearGradient>"
      "<rect width='10' height='10' fill='url(#g)'/>",
      10);
  EXPECT_NEAR(picture.at(5, 0)[0], 13, 1);
  EXPECT_NEAR(picture.at(5, 9)[0], 242, 1);
}

TEST(SvgPicture, LaterShapesCoverEarlierOnes)
{
  const Picture picture(
      "<rect width='10' height='10' fill='#00f'/><rect width='10' height='10' fill='#f00' opacity='0.5'/>", 4);
  EXPECT_NEAR(picture.at(1, 1)[0], 128, 1);
  EXPECT_NEAR(picture.at(1, 1)[2], 128, 1);
  EXPECT_EQ(picture.at(1, 1)[3], 255);
}

TEST(SvgPicture, WhatIsNoPictureGivesNone)
{
  EXPECT_FALSE(drawSvg("", 10, 10));
  EXPECT_FALSE(drawSvg("not a picture", 10, 10));
  EXPECT_FALSE(drawSvg("<svg viewBox='0 0 0 10'/>", 10, 10));
  EXPECT_FALSE(drawSvg("<html/>", 10, 10));
}

TEST(Icons, AllOfThemShowSomething)
{
  ASSERT_GT(iconTable().size(), 70U);
  for (const IconSource& source : iconTable()) {
    const auto raster = drawSvg(source.svg, 24, 24);
    ASSERT_TRUE(raster) << source.name;
    int visible = 0;
    const std::vector<std::uint8_t> pixels = raster->pixels();
    for (std::size_t i = 3; i < pixels.size(); i += 4)
      visible += pixels[i] > 128 ? 1 : 0;
    EXPECT_GT(visible, 40) << source.name;
  }
}

TEST(Icons, AreMadeOnceAndFadeWhenDisabled)
{
  Fl_RGB_Image* open = icon("open", 24);
  ASSERT_TRUE(open);
  EXPECT_EQ(open, icon("open", 24));
  EXPECT_EQ(open->w(), 24);
  Fl_RGB_Image* faded = disabledIcon("open", 24);
  ASSERT_TRUE(faded);
  const auto* pixels = reinterpret_cast<const unsigned char*>(faded->data()[0]);
  for (int i = 0; i < 24 * 24; ++i)
    EXPECT_EQ(pixels[i * 4], pixels[i * 4 + 2]);
  EXPECT_FALSE(icon("no such picture", 24));
}

} // namespace nalt
