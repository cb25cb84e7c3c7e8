#include "core/Preferences.h"

namespace nalt {

Preferences& Preferences::get()
{
  static Preferences preferences;
  return preferences;
}

} // namespace nalt
