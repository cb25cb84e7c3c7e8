#include "fltapi/Host.h"

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

} // namespace fltapi
