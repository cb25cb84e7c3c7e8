#include "core/ExternalReferences.h"

#include "core/Externals.h"
#include "core/Model.h"
#include "fltapi/AllRecords.h"
#include "fltapi/ExternalFiles.h"
#include "fltapi/visitors/ReadExternalVisitor.h"

#include <algorithm>
#include <map>

namespace nalt {

namespace {

using fltapi::ExternalRecord;

constexpr std::size_t longestPath = 199;

std::vector<ExternalRecord*> referencesTo(const Model& model, const std::vector<std::string>& paths)
{
  std::vector<ExternalRecord*> references = externalsOf(model);
  std::erase_if(references, [&](const ExternalRecord* reference) {
    return std::ranges::find(paths, reference->getName()) == paths.end();
  });
  return references;
}

} // namespace

std::vector<ExternalReferenceInfo> externalReferencesOf(const Model& model)
{
  std::vector<ExternalReferenceInfo> infos;
  if (!model.fltFile()) return infos;
  std::map<std::string, ExternalReferenceInfo> byPath;
  for (const ExternalRecord* reference : externalsOf(model)) {
    ExternalReferenceInfo& info = byPath[reference->getName()];
    info.path = reference->getName();
    ++info.references;
    if (!reference->referencedFile()) continue;
    info.loaded = true;
    info.foundPath = reference->resolvedPath();
  }
  for (const std::string& path : model.fltFile()->changedExternals())
    if (const auto found = byPath.find(path); found != byPath.end()) found->second.changed = found->second.loaded;
  for (auto& [path, info] : byPath)
    infos.push_back(std::move(info));
  return infos;
}

bool readExternals(Model& model, const std::vector<std::string>& paths)
{
  if (!model.fltFile()) return false;
  const std::vector<ExternalRecord*> references = referencesTo(model, paths);
  const fltapi::ExternalFiles::Loading loading(fltapi::canonicalPath(model.fltFile()->path()));
  fltapi::ReadExternalVisitor visitor(*model.fltFile());
  for (ExternalRecord* reference : references)
    if (!reference->referencedFile()) visitor.apply(*reference);
  return std::ranges::all_of(references, &ExternalRecord::referencedFile);
}

bool redirectExternals(Model& model, const std::string& path, const std::string& newPath)
{
  if (newPath.empty() || newPath.size() > longestPath || newPath == path) return false;
  const std::vector<ExternalRecord*> references = referencesTo(model, {path});
  if (references.empty()) return false;
  dropExternals(model, {path});
  for (ExternalRecord* reference : references)
    reference->set(ExternalRecord::fields.path, newPath);
  model.setDirty(true);
  return true;
}

} // namespace nalt
