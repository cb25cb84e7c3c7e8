#include "app/DeclinedExternals.h"

#include "core/Externals.h"
#include "core/Model.h"
#include "fltapi/nodes/ExternalRecord.h"

namespace nalt {

namespace {

std::string onDisk(const Model& model, const std::string& path)
{
  for (const fltapi::ExternalRecord* external : externalsOf(model))
    if (external->getName() == path && !external->resolvedPath().empty()) return external->resolvedPath();
  return path;
}

std::filesystem::file_time_type timeOf(const std::string& file)
{
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file, error);
  return error ? std::filesystem::file_time_type::min() : time;
}

} // namespace

void DeclinedExternals::add(const Model& model, const std::string& path)
{
  const std::string file = onDisk(model, path);
  times_[file] = timeOf(file);
}

bool DeclinedExternals::isNew(const Model& model, const std::string& path) const
{
  const std::string file = onDisk(model, path);
  const auto known = times_.find(file);
  return known == times_.end() || known->second != timeOf(file);
}

} // namespace nalt
