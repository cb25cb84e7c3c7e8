// Whatever the settings file holds: it is taken or left, and what was taken is written and read back as it is.
#include "app/SettingsLayout.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
  nalt::Settings settings;
  nalt::decodeSettings({reinterpret_cast<const char*>(data), size}, settings);
  const auto written = nalt::encodeSettings(settings);
  nalt::Settings read;
  if (!nalt::decodeSettings(written, read) || nalt::encodeSettings(read) != written) std::abort();
  return 0;
}
