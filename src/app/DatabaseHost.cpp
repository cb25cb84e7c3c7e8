#include "app/DatabaseHost.h"

#include "app/Gui.h"
#include "core/Preferences.h"

namespace nalt {

namespace {

/// How much of the progress bar is for reading when a scene is built after it.
constexpr double readingShare = 85.0;

} // namespace

DatabaseHost::DatabaseHost(Gui& gui) : gui_(gui), before_(fltapi::Host::install(this)) {}

DatabaseHost::~DatabaseHost()
{
  fltapi::Host::install(before_);
}

void DatabaseHost::warning(const std::string& text)
{
  gui_.warning(text, /*append=*/true);
}

void DatabaseHost::error(const std::string& text)
{
  gui_.error(text);
}

void DatabaseHost::progress(double fraction)
{
  FileJob* job = FileJob::current();
  if (job) job->setProgress(fraction * (job->buildScene && job->built ? readingShare : 100.0));
}

bool DatabaseHost::repairsNotAvailable() const
{
  const FileJob* job = FileJob::current();
  return job ? job->options.repairNotAvailable : Preferences::get().convertNotAvailableToZero;
}

bool DatabaseHost::loadsExternals() const
{
  const FileJob* job = FileJob::current();
  return job ? job->options.loadExternals : Preferences::get().loadExternals;
}

} // namespace nalt
