#include "exchange/xpm/ReaderWriterXPM.h"

#include <osgDB/FileNameUtils>
#include <osgDB/FileUtils>
#include <osgDB/fstream>

#include <array>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <map>
#include <string_view>
#include <vector>

namespace nalt {

namespace {

/// All that may stand in a C string as it is, "?" aside: two of them could begin a trigraph.
constexpr std::string_view codeLetters = " .+@#$%&*=-;>,')!~{]^/(_:<[}|1234567890"
                                         "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ`";

using Rgba = std::array<std::uint8_t, 4>;

Rgba pixelAt(const osg::Image& image, int column, int row)
{
  const osg::Vec4 color = image.getColor(static_cast<unsigned>(column), static_cast<unsigned>(row));
  Rgba pixel{};
  for (unsigned i = 0; i < pixel.size(); ++i)
    pixel[i] = static_cast<std::uint8_t>(osg::clampBetween(color[i], 0.0F, 1.0F) * 255.0F + 0.5F);
  return pixel;
}

/// How many letters it takes to tell so many colours apart.
unsigned codeLength(std::size_t colors)
{
  unsigned length = 1;
  for (std::size_t codes = codeLetters.size(); codes < colors; codes *= codeLetters.size())
    ++length;
  return length;
}

std::string codeOf(std::size_t number, unsigned length)
{
  std::string code;
  for (unsigned i = 0; i < length; ++i, number /= codeLetters.size())
    code += codeLetters[number % codeLetters.size()];
  return code;
}

/// Letters of a path that no C name can have become underscores.
std::string arrayName(const std::string& path)
{
  std::string name = osgDB::getStrippedName(path);
  if (name.empty()) return "osg";
  for (char& letter : name)
    if (!std::isalnum(static_cast<unsigned char>(letter))) letter = '_';
  return name;
}

} // namespace

ReaderWriterXPM::ReaderWriterXPM()
{
  supportsExtension("xpm", "X pixmap");
}

osgDB::ReaderWriter::ReadResult ReaderWriterXPM::readImage(const std::string& path, const Options* options) const
{
  if (!acceptsExtension(osgDB::getLowerCaseFileExtension(path))) return ReadResult::FILE_NOT_HANDLED;
  const std::string found = osgDB::findDataFile(path, options);
  if (found.empty()) return ReadResult::FILE_NOT_FOUND;
  const osgDB::ifstream file(found.c_str());
  if (!file) return ReadResult::ERROR_IN_READING_FILE;
  return ReadResult::FILE_NOT_HANDLED;
}

osgDB::ReaderWriter::WriteResult ReaderWriterXPM::writeImage(const osg::Image& image, const std::string& path,
                                                             const Options* options) const
{
  if (!acceptsExtension(osgDB::getLowerCaseFileExtension(path))) return WriteResult::FILE_NOT_HANDLED;
  osgDB::ofstream file(path.c_str(), std::ios::out | std::ios::trunc);
  if (!file) return WriteResult::ERROR_IN_WRITING_FILE;
  const osg::ref_ptr<osg::Image> named = new osg::Image(image, osg::CopyOp::SHALLOW_COPY);
  named->setFileName(path);
  const WriteResult result = writeImage(*named, file, options);
  file.close();
  return file ? result : WriteResult(WriteResult::ERROR_IN_WRITING_FILE);
}

osgDB::ReaderWriter::WriteResult ReaderWriterXPM::writeImage(const osg::Image& image, std::ostream& out,
                                                             const Options*) const
{
  if (!image.data()) return WriteResult::ERROR_IN_WRITING_FILE;
  std::map<Rgba, std::size_t> numbers;
  std::vector<Rgba> colors;
  for (int row = image.t() - 1; row >= 0; --row) {
    for (int column = 0; column < image.s(); ++column) {
      const Rgba pixel = pixelAt(image, column, row);
      if (numbers.try_emplace(pixel, colors.size()).second) colors.push_back(pixel);
    }
  }
  const unsigned length = codeLength(colors.size());

  out << "/* XPM */\nstatic char *" << arrayName(image.getFileName()) << "_xpm[] = {\n";
  out << "/* pixmap header */\n/* width height ncolors chars_per_pixel */\n";
  out << '"' << image.s() << ' ' << image.t() << ' ' << colors.size() << ' ' << length << "\",\n";
  out << "/* Colors */\n";
  const bool opaque = osg::Image::computeNumComponents(image.getPixelFormat()) < 4;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    std::array<char, 3> digits{};
    out << '"' << codeOf(i, length) << " c #";
    for (unsigned component = 0; component < (opaque ? 3U : 4U); ++component) {
      std::snprintf(digits.data(), digits.size(), "%02X", colors[i][component]);
      out << digits.data();
    }
    out << "\",\n";
  }
  out << "/* Pixels */\n";
  for (int row = image.t() - 1; row >= 0; --row) {
    out << '"';
    for (int column = 0; column < image.s(); ++column)
      out << codeOf(numbers.at(pixelAt(image, column, row)), length);
    out << (row > 0 ? "\",\n" : "\"\n");
  }
  out << "};\n";
  return out ? WriteResult::FILE_SAVED : WriteResult::ERROR_IN_WRITING_FILE;
}

} // namespace nalt
