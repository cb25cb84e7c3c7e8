#include "core/Clipboard.h"

#include <algorithm>

namespace nalt {

Clipboard& Clipboard::get()
{
  static Clipboard clipboard;
  return clipboard;
}

bool Clipboard::holdsFrom(const fltapi::FltFile* source) const
{
  return source && std::ranges::find(entries_, source, &Entry::source) != entries_.end();
}

} // namespace nalt
