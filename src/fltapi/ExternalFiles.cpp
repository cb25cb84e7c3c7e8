#include "fltapi/ExternalFiles.h"

#include "fltapi/RecordVisitor.h"

#include <algorithm>

namespace fltapi {

namespace {

/// Opening one more file takes about as much of the stack as walking so many levels of nodes.
constexpr int levelsOfOneFile = 10;

} // namespace

ExternalFiles& ExternalFiles::get()
{
  static ExternalFiles files;
  return files;
}

osg::ref_ptr<FltFile> ExternalFiles::find(const Key& key)
{
  const auto found = files_.find(key);
  if (found == files_.end()) return nullptr;
  osg::ref_ptr<FltFile> file;
  const bool alive = found->second.lock(file);
  if (alive && !isOutdated(*file) && file->changedExternals().empty()) return file;
  files_.erase(found);
  return nullptr;
}

osg::ref_ptr<FltFile> ExternalFiles::findOneOfTooMany(const Key& key)
{
  constexpr int tooMany = 1024; // more than a landscape has tiles that show one tree
  const Key first{key.path, key.ownPalettes, nullptr};
  int count = 0;
  for (auto entry = files_.lower_bound(first); entry != files_.end(); ++entry) {
    const Key& other = entry->first;
    if (other.path != key.path || other.ownPalettes != key.ownPalettes) break;
    count += entry->second.valid() ? 1 : 0;
    if (count >= tooMany) return find(Key(other));
  }
  return nullptr;
}

void ExternalFiles::add(const Key& key, FltFile& file, std::filesystem::file_time_type time)
{
  if (loaded_.size() >= mostLoaded_) {
    std::erase_if(loaded_, [](const auto& entry) { return !entry.second.file.valid(); });
    mostLoaded_ = 64 + 2 * loaded_.size();
  }
  loaded_.insert_or_assign(&file, Loaded{&file, key.path, time});
  files_[key] = &file;
}

bool ExternalFiles::isOutdated(const FltFile& file) const
{
  const auto entry = loaded_.find(&file);
  return entry != loaded_.end() && entry->second.file.valid() && isNewerOnDisk(entry->second.path, entry->second.time);
}

void ExternalFiles::forget(const std::string& canonicalPath)
{
  std::erase_if(files_, [&](const auto& entry) { return entry.first.path == canonicalPath; });
}

ExternalFiles::Loading::Loading(const std::string& canonicalPath)
    : path_(canonicalPath), mine_(get().loading_.insert(canonicalPath).second)
{}

ExternalFiles::Loading::~Loading()
{
  if (mine_) get().loading_.erase(path_);
}

ExternalFiles::Nesting::Nesting(int levels) : levels_(levels + levelsOfOneFile)
{
  get().levels_ += levels_;
}

bool ExternalFiles::Nesting::tooDeep() const
{
  return get().levels_ > 2 * deepestLevel;
}

bool isNewerOnDisk(const std::string& path, std::filesystem::file_time_type time)
{
  std::error_code error;
  const auto now = std::filesystem::last_write_time(path, error);
  return !error && now > time;
}

std::string canonicalPath(const std::string& path)
{
  std::error_code error;
  const auto canonical = std::filesystem::canonical(path, error);
  return error ? path : canonical.string();
}

} // namespace fltapi
