#include "fltapi/ExternalFiles.h"

#include "fltapi/RecordVisitor.h"

#include <filesystem>

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
  if (!found->second.lock(file)) files_.erase(found);
  return file;
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

std::string canonicalPath(const std::string& path)
{
  std::error_code error;
  const auto canonical = std::filesystem::canonical(path, error);
  return error ? path : canonical.string();
}

} // namespace fltapi
