#include "core/Shell.h"

#include <cstdlib>
#include <utility>

namespace nalt {

namespace {
Shell* installed = nullptr;
}

Shell& Shell::get()
{
  if (!installed) std::abort(); // a model without a shell is a mistake of ours
  return *installed;
}

Shell* Shell::install(Shell* shell)
{
  return std::exchange(installed, shell);
}

std::string& Shell::storedView()
{
  static std::string text;
  return text;
}

} // namespace nalt
