#include "exchange/xpm/ReaderWriterXPM.h"

#include "exchange/Formats.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>
#include <osgDB/Registry>
#include <osgDB/WriteFile>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace nalt {
namespace {

/// Two by two: red and green above, blue and red below.
osg::ref_ptr<osg::Image> fourPixels(GLenum format = GL_RGB)
{
  osg::ref_ptr<osg::Image> image = new osg::Image;
  image->allocateImage(2, 2, 1, format, GL_UNSIGNED_BYTE);
  image->setColor(osg::Vec4(0, 0, 1, 1), 0, 0);
  image->setColor(osg::Vec4(1, 0, 0, 1), 1, 0);
  image->setColor(osg::Vec4(1, 0, 0, 1), 0, 1);
  image->setColor(osg::Vec4(0, 1, 0, 0.5F), 1, 1);
  return image;
}

std::string written(const osg::Image& image)
{
  std::ostringstream out;
  EXPECT_TRUE(ReaderWriterXPM().writeImage(image, out, nullptr).success());
  return out.str();
}

TEST(ReaderWriterXPMTest, AnImageWithoutANameIsCalledOsg)
{
  EXPECT_EQ(written(*fourPixels()), "/* XPM */\n"
                                    "static char *osg_xpm[] = {\n"
                                    "/* pixmap header */\n"
                                    "/* width height ncolors chars_per_pixel */\n"
                                    "\"2 2 3 1\",\n"
                                    "/* Colors */\n"
                                    "\"  c #FF0000\",\n"
                                    "\". c #00FF00\",\n"
                                    "\"+ c #0000FF\",\n"
                                    "/* Pixels */\n"
                                    "\" .\",\n"
                                    "\"+ \"\n"
                                    "};\n");
}

TEST(ReaderWriterXPMTest, TheArrayHasTheNameOfTheFile)
{
  const auto image = fourPixels();
  image->setFileName("/some/folder/my shot.2.xpm");
  EXPECT_NE(written(*image).find("static char *my_shot_2_xpm[] = {"), std::string::npos);
}

TEST(ReaderWriterXPMTest, EachComponentOfThePixelIsWritten)
{
  EXPECT_NE(written(*fourPixels(GL_RGBA)).find("#00FF007F"), std::string::npos);
}

TEST(ReaderWriterXPMTest, ManyColorsGetLongerCodes)
{
  osg::ref_ptr<osg::Image> image = new osg::Image;
  image->allocateImage(200, 1, 1, GL_RGB, GL_UNSIGNED_BYTE);
  std::fill_n(image->data(), 600, static_cast<unsigned char>(0));
  for (unsigned x = 0; x < 200; ++x)
    *image->data(x) = static_cast<unsigned char>(x);
  const std::string text = written(*image);
  EXPECT_NE(text.find("\"200 1 200 2\",\n"), std::string::npos);
  const auto pixels = text.find("/* Pixels */\n\"");
  EXPECT_EQ(text.find("\"\n};\n") - pixels, 14U + 400U);
}

TEST(ReaderWriterXPMTest, ItIsFoundByTheEndingOfAFile)
{
  registerFormats();
  const tests::TempFolder folder;
  const std::string path = folder / "shot.xpm";
  ASSERT_TRUE(osgDB::writeImageFile(*fourPixels(), path));
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  std::getline(file, line);
  EXPECT_EQ(line, "static char *shot_xpm[] = {");
}

TEST(ReaderWriterXPMTest, ReadingFindsTheFileAndLeavesItToOthers)
{
  const tests::TempFolder folder;
  const std::string path = folder / "shot.xpm";
  std::ofstream(path) << written(*fourPixels());
  using Result = osgDB::ReaderWriter::ReadResult;
  EXPECT_EQ(ReaderWriterXPM().readImage(path, nullptr).status(), Result::FILE_NOT_HANDLED);
  EXPECT_EQ(ReaderWriterXPM().readImage(path + "x", nullptr).status(), Result::FILE_NOT_HANDLED);
  EXPECT_EQ(ReaderWriterXPM().readImage((folder / "none.xpm"), nullptr).status(), Result::FILE_NOT_FOUND);
}

TEST(ReaderWriterXPMTest, OtherEndingsAndMissingFoldersAreRefused)
{
  using Result = osgDB::ReaderWriter::WriteResult;
  EXPECT_EQ(ReaderWriterXPM().writeImage(*fourPixels(), "shot.png", nullptr).status(), Result::FILE_NOT_HANDLED);
  EXPECT_EQ(ReaderWriterXPM().writeImage(*fourPixels(), "/nonexistent/shot.xpm", nullptr).status(),
            Result::ERROR_IN_WRITING_FILE);
}

} // namespace
} // namespace nalt
