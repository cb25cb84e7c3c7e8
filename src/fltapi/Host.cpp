#include "fltapi/Host.h"

#include "platform/Environment.h"

#include <utility>

namespace fltapi {

namespace {

Host silent;
Host* installed = &silent;

} // namespace

Host& Host::get()
{
  return *installed;
}

Host* Host::install(Host* host)
{
  return std::exchange(installed, host ? host : &silent);
}

std::string Host::externalSearchPath() const
{
  return nalt::environment("NALT_FILE_PATH").value_or("");
}

} // namespace fltapi
