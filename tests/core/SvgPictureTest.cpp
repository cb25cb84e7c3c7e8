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
  Picture(const std::string& body, int width, int height)
      : width_(width),
        pixels_(
            drawSvg("<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'>" + body + "</svg>", width, height))
  {}
  Pixel at(int x, int y) const
  {
    const auto i = static_cast<std::size_t>((y * width_ + x) * 4);
    return {pixels_.at(i), pixels_.at(i + 1), pixels_.at(i + 2), pixels_.at(i + 3)};
  }

private:
  int width_;
  std::vector<std::uint8_t> pixels_;
};

constexpr Pixel nothing = {0, 0, 0, 0};

} // namespace

TEST(SvgPicture, ColoursStandInTheirOrder)
{
  const Picture picture("<rect x='2' y='4' width='3' height='2' fill='#ff8000'/>", 10, 10);
  EXPECT_EQ(picture.at(2, 4), (Pixel{255, 128, 0, 255}));
  EXPECT_EQ(picture.at(4, 5), (Pixel{255, 128, 0, 255}));
  EXPECT_EQ(picture.at(5, 4), nothing);
  EXPECT_EQ(picture.at(2, 3), nothing);
}

TEST(SvgPicture, HalfCoveredPixelsKeepTheirColour)
{
  const Picture picture("<rect x='2.5' y='2' width='3' height='2' fill='#ff8000'/>", 10, 10);
  const auto edge = picture.at(2, 2);
  EXPECT_EQ(edge[0], 255);
  EXPECT_NEAR(edge[1], 128, 1);
  EXPECT_EQ(edge[2], 0);
  EXPECT_NEAR(edge[3], 128, 1);
}

TEST(SvgPicture, IsAsLargeAsFitsAndInTheMiddle)
{
  const Picture picture("<rect width='10' height='10' fill='#00f'/>", 43, 20);
  EXPECT_EQ(picture.at(10, 10), nothing);
  EXPECT_EQ(picture.at(12, 0), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(picture.at(30, 19), (Pixel{0, 0, 255, 255}));
  EXPECT_EQ(picture.at(32, 10), nothing);
}

TEST(SvgPicture, WhatIsNoPictureGivesNone)
{
  EXPECT_TRUE(drawSvg("", 10, 10).empty());
  EXPECT_TRUE(drawSvg("not a picture", 10, 10).empty());
  EXPECT_TRUE(drawSvg("<html/>", 10, 10).empty());
  EXPECT_TRUE(drawSvg(iconTable().front().svg, -1, 10).empty());
}

TEST(Icons, AllOfThemShowSomething)
{
  ASSERT_GT(iconTable().size(), 70U);
  for (const IconSource& source : iconTable()) {
    const auto pixels = drawSvg(source.svg, 24, 24);
    int visible = 0;
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
