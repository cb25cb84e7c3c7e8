#include "scene/view/ScreenCapture.h"

#include "core/Shell.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <osgDB/ReadFile>

#include <filesystem>
#include <fstream>

namespace nalt {
namespace {

/// Red on the left, green in the middle, blue on the right; black in the lowest row.
osg::ref_ptr<osg::Image> stripes(int width, int height)
{
  osg::ref_ptr<osg::Image> image = new osg::Image;
  image->allocateImage(width, height, 1, GL_RGB, GL_UNSIGNED_BYTE);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      unsigned char* pixel = image->data(static_cast<unsigned>(x), static_cast<unsigned>(y));
      for (int i = 0; i < 3; ++i)
        pixel[i] = y > 0 && x * 3 / width == i ? 255 : 0;
    }
  }
  return image;
}

class ScreenCaptureTest : public testing::Test {
protected:
  ScreenCaptureTest() : before_(Shell::install(&shell)) {}
  ~ScreenCaptureTest() override { Shell::install(before_); }

  RecordingShell shell;
  tests::TempFolder folder;

private:
  Shell* before_;
};

TEST_F(ScreenCaptureTest, ASizeOfZeroKeepsThePictureAsItIs)
{
  const auto picture = stripes(30, 20);
  EXPECT_EQ(captureOfSize(picture, 0, 0).get(), picture.get());
  EXPECT_EQ(captureOfSize(picture, 640, 0).get(), picture.get());
}

TEST_F(ScreenCaptureTest, AWidePictureLosesItsSides)
{
  const auto result = captureOfSize(stripes(90, 30), 60, 60);
  EXPECT_EQ(result->s(), 60);
  EXPECT_EQ(result->t(), 60);
  for (const unsigned x : {0U, 30U, 59U})
    EXPECT_EQ(result->getColor(x, 40U), osg::Vec4(0, 1, 0, 1)) << x; // only the middle stripe is left
}

TEST_F(ScreenCaptureTest, ATallPictureLosesItsEnds)
{
  const auto result = captureOfSize(stripes(30, 90), 60, 60);
  EXPECT_EQ(result->s(), 60);
  EXPECT_EQ(result->getColor(5U, 0U), osg::Vec4(1, 0, 0, 1)); // the black row is gone
  EXPECT_EQ(result->getColor(55U, 59U), osg::Vec4(0, 0, 1, 1));
}

TEST_F(ScreenCaptureTest, NamesGetTheFirstEndingOfTheChosenType)
{
  const char* endings[] = {".jpg", ".png", ".rgb", ".tif", ".xpm"};
  for (int i = 0; i < 5; ++i)
    EXPECT_EQ(withCaptureEnding("/tmp/a.b/shot", i), std::string("/tmp/a.b/shot") + endings[i]);
  EXPECT_EQ(withCaptureEnding("/tmp/shot.png", 0), "/tmp/shot.png");
}

TEST_F(ScreenCaptureTest, TheFirstProposalIsNamedAfterTheModel)
{
  EXPECT_EQ(firstCaptureFile("/models/tank.flt"), "/models/tank.jpg");
}

TEST_F(ScreenCaptureTest, TheTypesAreOfferedInTheirOrder)
{
  EXPECT_EQ(captureFilters(), "JPEG\t*.{jpg,jpe,jpeg}\nPNG\t*.png\nSGI\t*.{rgb,rgba,sgi}\nTIFF\t*.{tif,tiff}\n"
                              "XPM\t*.xpm\n");
}

TEST_F(ScreenCaptureTest, WhatIsWrittenCanBeReadBack)
{
  for (const std::string name : {"shot.png", "shot.rgb", "shot.tif", "shot.sgi"}) {
    SCOPED_TRACE(name);
    const std::string path = folder / name;
    ASSERT_TRUE(writeCapture(*stripes(30, 20), path));
    const auto image = osgDB::readRefImageFile(path);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->s(), 30);
    EXPECT_EQ(image->t(), 20);
    EXPECT_EQ(image->getColor(2U, 10U), osg::Vec4(1, 0, 0, 1));
    EXPECT_EQ(image->getColor(27U, 19U), osg::Vec4(0, 0, 1, 1));
    EXPECT_EQ(image->getColor(2U, 0U), osg::Vec4(0, 0, 0, 1));
  }
}

TEST_F(ScreenCaptureTest, JpegKeepsColorsNearly)
{
  for (const std::string name : {"shot.jpg", "SHOT.JPEG"}) {
    const std::string path = folder / name;
    ASSERT_TRUE(writeCapture(*stripes(96, 64), path)) << name;
    const auto image = osgDB::readRefImageFile(path);
    ASSERT_TRUE(image) << name;
    EXPECT_LT((image->getColor(10U, 40U) - osg::Vec4(1, 0, 0, 1)).length(), 0.1F);
  }
}

TEST_F(ScreenCaptureTest, TheRareEndingOfJpegIsOneToo)
{
  ASSERT_TRUE(writeCapture(*stripes(96, 64), folder / "shot.jpg"));
  ASSERT_TRUE(writeCapture(*stripes(96, 64), folder / "shot.jpe"));
  EXPECT_EQ(tests::readFile(folder / "shot.jpe"), tests::readFile(folder / "shot.jpg"));
}

TEST_F(ScreenCaptureTest, AnUnknownEndingFailsWithAMessage)
{
  const std::string path = folder / "shot.xyz";
  EXPECT_FALSE(writeCapture(*stripes(3, 2), path));
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Failed to write image: " + path));
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(ScreenCaptureTest, AMissingFolderFailsWithAMessage)
{
  const std::string path = folder / "missing/shot.png";
  EXPECT_FALSE(writeCapture(*stripes(3, 2), path));
  EXPECT_THAT(shell.messages, testing::ElementsAre("WARNING: Failed to write image: " + path));
}

} // namespace
} // namespace nalt
