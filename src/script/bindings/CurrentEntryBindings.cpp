#include "script/bindings/CurrentEntryBindings.h"

#include "core/Model.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "script/Call.h"

#include <algorithm>
#include <lua.hpp>

namespace nalt::bindings {

namespace {

bool usesRgbColors(const Model& model)
{
  const auto* header = model.fltFile() ? model.fltFile()->header() : nullptr;
  return header && header->rgbMode();
}

/// An entry that the palette doesn't have changes nothing.
void setEntry(Call& call, PaletteKind kind, const char* argument)
{
  auto& entries = call.model().paletteIndices();
  int value = call.integer(argument);
  if (entries.acceptable(kind, value)) entries.set(kind, value, call.records());
}

template <PaletteKind kind>
int setCurrent(Call& call)
{
  setEntry(call, kind, "index");
  return call.giveNothing();
}

template <PaletteKind kind>
int getCurrent(Call& call)
{
  return call.give(call.model().paletteIndices().get(kind));
}

int setCurrentColorIndex(Call& call)
{
  if (!usesRgbColors(call.model())) setEntry(call, PaletteKind::colorIndex, "index");
  return call.giveNothing();
}

int setCurrentColorIntensity(Call& call)
{
  setEntry(call, PaletteKind::colorIntensity, "intensity");
  return call.giveNothing();
}

std::uint8_t channel(const Call& call, const char* name)
{
  return static_cast<std::uint8_t>(std::clamp(call.integer(name), 0, 255));
}

int setCurrentColorRGB(Call& call)
{
  if (!usesRgbColors(call.model())) return call.giveNothing();
  auto& entries = call.model().paletteIndices();
  entries.setRgbColor({channel(call, "red"), channel(call, "green"), channel(call, "blue"), entries.rgbColor().a},
                      call.records());
  return call.giveNothing();
}

int getCurrentColorRGB(Call& call)
{
  if (!usesRgbColors(call.model())) return call.giveNeutral();
  const auto color = call.model().paletteIndices().rgbColor();
  for (const int value : {color.r, color.g, color.b})
    lua_pushinteger(call.lua(), value);
  return 3;
}

constexpr Binding table[] = {
    {"setCurrentColorIndex", setCurrentColorIndex},
    {"getCurrentColorIndex", getCurrent<PaletteKind::colorIndex>},
    {"setCurrentColorIntensity", setCurrentColorIntensity},
    {"getCurrentColorIntensity", getCurrent<PaletteKind::colorIntensity>},
    {"setCurrentColorRGB", setCurrentColorRGB},
    {"getCurrentColorRGB", getCurrentColorRGB},
    {"setCurrentTextureIndex", setCurrent<PaletteKind::texture>},
    {"getCurrentTextureIndex", getCurrent<PaletteKind::texture>},
    {"setCurrentMaterialIndex", setCurrent<PaletteKind::material>},
    {"getCurrentMaterialIndex", getCurrent<PaletteKind::material>},
    {"setCurrentTextureMappingIndex", setCurrent<PaletteKind::textureMapping>},
    {"getCurrentTextureMappingIndex", getCurrent<PaletteKind::textureMapping>},
    {"setCurrentLightPointAppearanceIndex", setCurrent<PaletteKind::lightPointAppearance>},
    {"getCurrentLightPointAppearanceIndex", getCurrent<PaletteKind::lightPointAppearance>},
    {"setCurrentLightPointAnimationIndex", setCurrent<PaletteKind::lightPointAnimation>},
    {"getCurrentLightPointAnimationIndex", getCurrent<PaletteKind::lightPointAnimation>},
    {"setCurrentShaderIndex", setCurrent<PaletteKind::shader>},
    {"getCurrentShaderIndex", getCurrent<PaletteKind::shader>},
};

} // namespace

std::span<const Binding> currentEntryBindings()
{
  return table;
}

} // namespace nalt::bindings
