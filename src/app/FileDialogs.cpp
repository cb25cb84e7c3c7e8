#include "app/FileDialogs.h"

#include "platform/Paths.h"

#include <FL/Fl_Native_File_Chooser.H>

#include <algorithm>
#include <cctype>
#include <sstream>

namespace nalt {

namespace {

/// As FLTK wants it: a line of description, tab, pattern for each.
std::string fltkFilter(const std::vector<FileFilter>& filters)
{
  std::string text;
  for (const FileFilter& filter : filters)
    text += std::string(filter.description) + '\t' + filter.pattern + '\n';
  return text;
}

std::string lowerCase(std::string text)
{
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

/// The endings in "*.flt" or "*.{osg,ive}".
std::vector<std::string> endingsOf(const std::string& pattern)
{
  const auto dot = pattern.find('.');
  if (dot == std::string::npos) return {};
  std::string list = pattern.substr(dot + 1);
  std::erase_if(list, [](char c) { return c == '{' || c == '}'; });
  std::vector<std::string> endings;
  std::istringstream stream(list);
  for (std::string ending; std::getline(stream, ending, ',');)
    endings.push_back(ending);
  return endings;
}

} // namespace

const std::vector<FileFilter>& importFilters()
{
  static const std::vector<FileFilter> filters = {
      {"3DC Point Cloud", "*.3dc"},
      {"3D Studio MAX", "*.3ds"},
      {"AC3D", "*.ac"},
      {"COLLADA", "*.dae"},
      {"Autodesk DXF", "*.dxf"},
      {"Autodesk FBX", "*.fbx"},
      {"LightWave", "*.{lwo,lws}"},
      {"Quake Character Models", "*.md2"},
      {"Alias Wavefront OBJ", "*.obj"},
      {"OpenSceneGraph", "*.{osg,ive,osga,osgb,osgt,osgx}"},
      {"VBS2 P3D", "*.p3d"},
      {"Stanford Triangle Format", "*.ply"},
      {"ESRI Shape", "*.{shp}"},
      {"StereoLithography", "*.{stl,sta}"},
      {"Direct X", "*.x"},
      {"All supported import formats",
       "*.{3dc,3ds,ac,dae,dw,dxf,fbx,geo,lwo,lws,md2,obj,osg,ive,osga,osgb,osgt,osgx,p3d,ply,shp,stl,sta,x}"},
  };
  return filters;
}

bool isImportPath(const std::string& path)
{
  const std::string name = fileNamePart(path);
  const auto dot = name.find_last_of('.');
  if (dot == std::string::npos) return false;
  const std::vector<std::string> endings = endingsOf(importFilters().back().pattern);
  return std::find(endings.begin(), endings.end(), lowerCase(name.substr(dot + 1))) != endings.end();
}

std::string FileDialogs::startFolder(const std::string& near) const
{
  if (!folder_.empty()) return folder_;
  return folderPart(makeAbsolute(near.empty() ? "x" : near)); // without a file, the working folder
}

std::vector<std::string> FileDialogs::chooseToRead(const char* title, const std::vector<FileFilter>& filters,
                                                   std::size_t preset, const std::string& near)
{
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_MULTI_FILE);
  chooser.title(title);
  chooser.filter(fltkFilter(filters).c_str());
  chooser.filter_value(static_cast<int>(preset));
  chooser.directory(startFolder(near).c_str());
  if (chooser.show() != 0) return {};
  std::vector<std::string> paths;
  for (int i = 0; i < chooser.count(); ++i)
    paths.emplace_back(chooser.filename(i));
  if (!paths.empty()) folder_ = folderPart(paths.back());
  return paths;
}

std::string FileDialogs::chooseToWrite(const char* title, const std::vector<FileFilter>& filters,
                                       const std::string& near)
{
  Fl_Native_File_Chooser chooser(Fl_Native_File_Chooser::BROWSE_SAVE_FILE);
  chooser.title(title);
  chooser.filter(fltkFilter(filters).c_str());
  chooser.directory(startFolder(near).c_str());
  chooser.preset_file(fileNamePart(near).c_str());
  if (chooser.show() != 0 || !chooser.filename()) return "";
  const std::string path = chooser.filename();
  folder_ = folderPart(path);
  return path;
}

} // namespace nalt
