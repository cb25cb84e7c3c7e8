#include "scene/view/ScreenCapture.h"

#include "core/Shell.h"
#include "platform/AtomicFile.h"
#include "platform/Paths.h"

#include <FL/Fl_Native_File_Chooser.H>
#include <osgDB/FileNameUtils>
#include <osgDB/Registry>

#include <algorithm>
#include <filesystem>
#include <sstream>

namespace nalt {

namespace {

struct CaptureFormat {
  const char* name;
  const char* pattern;
  const char* ending; ///< that a name without one gets
};

constexpr CaptureFormat formats[] = {
    {"JPEG", "*.{jpg,jpe,jpeg}", ".jpg"}, {"PNG", "*.png", ".png"}, {"SGI", "*.{rgb,rgba,sgi}", ".rgb"},
    {"TIFF", "*.{tif,tiff}", ".tif"},     {"XPM", "*.xpm", ".xpm"},
};

/// The largest part around the centre that has the proportions of `width` to `height`.
osg::ref_ptr<osg::Image> cropped(const osg::Image& picture, int width, int height)
{
  const double proportion = static_cast<double>(width) / height;
  const int w = std::clamp(static_cast<int>(picture.t() * proportion + 0.5), 1, picture.s());
  const int h = std::clamp(static_cast<int>(picture.s() / proportion + 0.5), 1, picture.t());
  const int left = (picture.s() - w) / 2;
  const int bottom = (picture.t() - h) / 2;
  osg::ref_ptr<osg::Image> part = new osg::Image;
  part->allocateImage(w, h, 1, picture.getPixelFormat(), picture.getDataType());
  for (int row = 0; row < h; ++row) {
    const unsigned char* from = picture.data(static_cast<unsigned>(left), static_cast<unsigned>(bottom + row));
    std::copy_n(from, part->getRowSizeInBytes(), part->data(0, static_cast<unsigned>(row)));
  }
  return part;
}

/// The bytes of the file, empty when there is no writer for that ending.
std::string encoded(osg::Image& picture, const std::string& path)
{
  std::string ending = osgDB::getLowerCaseFileExtension(path);
  if (ending == "jpe") ending = "jpg"; // the only one of the endings that OpenSceneGraph doesn't know
  osgDB::ReaderWriter* writer = osgDB::Registry::instance()->getReaderWriterForExtension(ending);
  if (!writer) return {};
  picture.setFileName(path);
  std::ostringstream bytes;
  const osg::ref_ptr<osgDB::Options> options = new osgDB::Options("JPEG_QUALITY 85");
  return writer->writeImage(picture, bytes, options).success() ? bytes.str() : std::string();
}

} // namespace

osg::ref_ptr<osg::Image> captureOfSize(osg::Image* picture, int width, int height)
{
  if (width <= 0 || height <= 0) return picture;
  osg::ref_ptr<osg::Image> part = cropped(*picture, width, height);
  part->scaleImage(width, height, 1);
  return part;
}

bool writeCapture(osg::Image& picture, const std::string& path)
{
  const std::string bytes = encoded(picture, path);
  bool written = false;
  if (!bytes.empty()) {
    AtomicFile file(path);
    file.write(bytes.data(), bytes.size());
    written = file.commit();
  }
  if (!written) Shell::get().warning("Failed to write image: " + path);
  return written;
}

std::string firstCaptureFile(const std::string& modelPath)
{
  return osgDB::getNameLessExtension(modelPath) + formats[0].ending;
}

std::string captureFilters()
{
  std::string text;
  for (const CaptureFormat& format : formats)
    text += std::string(format.name) + '\t' + format.pattern + '\n';
  return text;
}

std::string withCaptureEnding(const std::string& path, int filter)
{
  if (!osgDB::getFileExtension(path).empty()) return path;
  const int last = static_cast<int>(std::size(formats)) - 1;
  return path + formats[std::clamp(filter, 0, last)].ending;
}

std::string askForCaptureFile(const std::string& near)
{
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_SAVE_FILE);
  const std::string filters = captureFilters();
  chooser.title("Screen Capture File");
  chooser.filter(filters.c_str());
  chooser.filter_value(0);
  chooser.directory(folderPart(makeAbsolute(near)).c_str());
  chooser.preset_file(fileNamePart(near).c_str());
  if (chooser.show() != 0 || !chooser.filename()) return {};
  const std::string path = withCaptureEnding(chooser.filename(), chooser.filter_value());
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored) && Shell::get().ask("Overwrite file " + path + "?") != Answer::yes)
    return {};
  return path;
}

} // namespace nalt
