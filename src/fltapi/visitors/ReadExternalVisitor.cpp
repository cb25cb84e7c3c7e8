#include "fltapi/visitors/ReadExternalVisitor.h"

#include "fltapi/Host.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/visitors/MakeExternalVisitor.h"
#include "platform/Paths.h"

#include <algorithm>
#include <filesystem>
#include <ranges>
#include <string_view>

namespace fltapi {

namespace {

/// The entries of a search path; no entry holds a separator.
std::vector<std::string> foldersOf(const std::string& searchPath)
{
  std::vector<std::string> folders;
  std::size_t start = 0;
  while (start <= searchPath.size()) {
    const auto end = std::min(searchPath.find_first_of(";:", start), searchPath.size());
    if (end > start) folders.push_back(searchPath.substr(start, end - start));
    start = end + 1;
  }
  return folders;
}

/// An absolute path goes below the folder as well, where a whole tree of folders was moved or copied to.
std::string joined(const std::string& folder, const std::string& path)
{
  if (folder.empty()) return path;
  return (std::filesystem::path(folder) / std::filesystem::path(path).relative_path()).string();
}

/// A path may name one node of the file in angle brackets; the whole file is shown all the same.
std::string withoutNodeName(const std::string& path)
{
  const auto bracket = path.rfind('<');
  return bracket != std::string::npos && path.ends_with('>') ? path.substr(0, bracket) : std::string{};
}

bool isFile(const std::string& path)
{
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

int levelsAbove(const PrimNodeRecord& node)
{
  int levels = 0;
  for (const auto* above = node.parent(); above; above = above->parent())
    ++levels;
  return levels;
}

} // namespace

std::vector<std::string> ReadExternalVisitor::candidates(const std::string& path) const
{
  const auto name = nalt::fileNamePart(path);
  std::vector<std::string> list{path};
  auto folders = foldersOf(Host::get().externalSearchPath());
  folders.push_back(nalt::folderPart(referrer_.path()));
  const auto add = [&list](std::string place) {
    if (std::ranges::find(list, place) == list.end()) list.push_back(std::move(place));
  };
  for (const auto& folder : folders) {
    add(joined(folder, path));
    add(joined(folder, name));
  }
  return list;
}

osg::ref_ptr<FltFile> ReadExternalVisitor::fileAt(const std::string& foundPath, const ExternalRecord& external)
{
  const auto canonical = canonicalPath(foundPath);
  auto& files = ExternalFiles::get();
  if (files.isLoading(canonical)) {
    leadsBack_ = true;
    return nullptr;
  }
  const auto ownPalettes = external.get(ExternalRecord::fields.flags) & ExternalRecord::paletteBits;
  const bool independent = ownPalettes == ExternalRecord::paletteBits;
  const ExternalFiles::Key key{canonical, ownPalettes, independent ? nullptr : &referrer_};
  auto& known = shown_[key];
  if (known || (known = files.find(key)) || (known = files.findOneOfTooMany(key))) return known;

  const ExternalFiles::Nesting nesting(levelsAbove(external));
  if (nesting.tooDeep()) return nullptr;
  std::error_code error;
  const auto time = std::filesystem::last_write_time(canonical, error);
  const osg::ref_ptr<FltFile> file = new FltFile;
  file->setQuiet(referrer_.quiet());
  if (!file->load(foundPath)) return nullptr;
  file->setReferrer(referrer_, ownPalettes);
  MakeExternalVisitor stamp(file);
  file->header()->accept(stamp);
  for (const auto& [number, definition] : file->instanceDefinitions())
    definition->accept(stamp);
  files.add(key, *file, time);
  known = file;
  return file;
}

osg::ref_ptr<FltFile> ReadExternalVisitor::loadFirst(const ExternalRecord& external, const std::string& path,
                                                     std::string& foundPath)
{
  if (path.empty()) return nullptr;
  const auto places = candidates(path);
  for (const auto& place : places) {
    if (!isFile(place)) continue;
    foundPath = place;
    if (auto file = fileAt(foundPath, external)) return file;
  }
  // Nowhere to be found as it is spelled: paths of other systems may differ in letter case.
  for (const auto& place : places) {
    foundPath = nalt::findFileIgnoringCase(place);
    if (foundPath.empty() || foundPath == place) continue;
    if (auto file = fileAt(foundPath, external)) return file;
  }
  return nullptr;
}

void ReadExternalVisitor::apply(ExternalRecord& external)
{
  if (external.referencedFile() || failed_.contains(external.getName())) return;
  leadsBack_ = false;
  const auto path = nalt::nativePath(external.getName());
  std::string foundPath;
  auto file = loadFirst(external, path, foundPath);
  if (!file) file = loadFirst(external, withoutNodeName(path), foundPath);
  if (!file) {
    failed_.insert(external.getName());
    referrer_.warn((leadsBack_ ? "External reference leads back to a file that refers to it "
                               : "Failed reading external reference ") +
                   external.getName());
    return;
  }
  std::error_code error;
  referrer_.externalStamps_[external.getName()] = {foundPath, std::filesystem::last_write_time(foundPath, error)};
  external.show(file, foundPath);
}

} // namespace fltapi
