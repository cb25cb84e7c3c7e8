#pragma once

#include <osgDB/ReaderWriter>

namespace nalt {

/// Writes images as XPM: text that C programs include. It reads none.
class ReaderWriterXPM : public osgDB::ReaderWriter {
public:
  ReaderWriterXPM();

  const char* className() const override { return "XPM Image Reader/Writer"; }
  /// Looks for the file and then leaves it to others.
  ReadResult readImage(const std::string& path, const Options* options) const override;
  WriteResult writeImage(const osg::Image& image, const std::string& path, const Options* options) const override;
  /// The name of the array is that of the image's file.
  WriteResult writeImage(const osg::Image& image, std::ostream& out, const Options* options) const override;
  using osgDB::ReaderWriter::readImage;
};

} // namespace nalt
