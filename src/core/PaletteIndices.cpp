#include "core/PaletteIndices.h"

#include "core/Model.h"
#include "core/SetIndexCommand.h"
#include "core/Shell.h"
#include "fltapi/FltFile.h"
#include "fltapi/Opcodes.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "fltapi/palettes/ColorPaletteRecord.h"
#include "fltapi/palettes/LightPointPaletteRecords.h"
#include "fltapi/palettes/MaterialPaletteRecords.h"
#include "fltapi/palettes/ShaderPaletteRecord.h"
#include "fltapi/palettes/TextureMappingPaletteRecord.h"
#include "fltapi/palettes/TexturePaletteRecord.h"

#include <algorithm>

namespace nalt {

namespace {

namespace op = fltapi::opcodes;

constexpr int lastColor = fltapi::ColorPaletteRecord::colorCount - 1;
constexpr int lastIntensity = fltapi::ColorPaletteRecord::intensityCount - 1;

constexpr std::array kinds = {
    PaletteKindInfo{PaletteKind::colorIndex, "Set Current Color Index", "setCurrentColorIndex", 0, 0, -1, lastColor},
    PaletteKindInfo{PaletteKind::colorIntensity, "Set Current Color Intensity", "setCurrentColorIntensity",
                    lastIntensity, 0, 0, lastIntensity},
    PaletteKindInfo{PaletteKind::texture, "Set Current Texture", "setCurrentTextureIndex", -1, op::texturePalette, 0,
                    0},
    PaletteKindInfo{PaletteKind::material, "Set Current Material", "setCurrentMaterialIndex", -1, op::materialPalette,
                    0, 0},
    PaletteKindInfo{PaletteKind::textureMapping, "Set Current Texture Mapping", "setCurrentTextureMappingIndex", -1,
                    op::textureMappingPalette, 0, 0},
    PaletteKindInfo{PaletteKind::lightPointAppearance, "Set Current Light Point Appearance",
                    "setCurrentLightPointAppearanceIndex", -1, op::lightPointAppearancePalette, 0, 0},
    PaletteKindInfo{PaletteKind::lightPointAnimation, "Set Current Light Point Animation",
                    "setCurrentLightPointAnimationIndex", -1, op::lightPointAnimationPalette, 0, 0},
    PaletteKindInfo{PaletteKind::shader, "Set Current Shader", "setCurrentShaderIndex", -1, op::shaderPalette, 0, 0},
};

int indexOf(const fltapi::Record& entry)
{
  const auto as = [&]<class T>(T*) { return static_cast<int>(entry.get(T::fields.index)); };
  switch (entry.opcode()) {
  case op::texturePalette:
    return as(static_cast<fltapi::TexturePaletteRecord*>(nullptr));
  case op::materialPalette:
    return as(static_cast<fltapi::MaterialPaletteRecord*>(nullptr));
  case op::textureMappingPalette:
    return as(static_cast<fltapi::TextureMappingPaletteRecord*>(nullptr));
  case op::lightPointAppearancePalette:
    return as(static_cast<fltapi::LightPointAppearancePaletteRecord*>(nullptr));
  case op::lightPointAnimationPalette:
    return as(static_cast<fltapi::LightPointAnimationPaletteRecord*>(nullptr));
  default:
    return as(static_cast<fltapi::ShaderPaletteRecord*>(nullptr));
  }
}

} // namespace

std::span<const PaletteKindInfo> paletteKinds()
{
  return kinds;
}

const PaletteKindInfo& infoOf(PaletteKind kind)
{
  return kinds[static_cast<std::size_t>(kind) - 1];
}

PaletteIndices::PaletteIndices(Model& model) : model_(model)
{
  for (const auto& info : kinds)
    store(info.kind, info.initial);
}

void PaletteIndices::store(PaletteKind kind, int value)
{
  values_[static_cast<std::size_t>(kind)] = value;
}

void PaletteIndices::store(RgbaColor color)
{
  rgbColor_ = color;
}

void PaletteIndices::set(PaletteKind kind, int value, bool undoable)
{
  const int before = get(kind);
  if (value == before) return;
  store(kind, value);
  Shell::get().paletteIndexChanged(model_);
  if (undoable) model_.commandStack().add(std::make_unique<SetIndexCommand>(model_, kind, before, value));
}

bool PaletteIndices::acceptable(PaletteKind kind, int& value) const
{
  const auto& info = infoOf(kind);
  if (info.paletteOpcode == 0) {
    value = std::clamp(value, info.smallest, info.largest);
    return true;
  }
  if (value == -1) return true;
  const auto* file = model_.fltFile();
  if (!file) return false;
  const auto entries = file->palette(info.paletteOpcode);
  return std::ranges::any_of(entries, [&](const fltapi::Record* entry) { return indexOf(*entry) == value; });
}

void PaletteIndices::setRgbColor(RgbaColor color, bool undoable)
{
  const auto before = rgbColor_;
  if (color == before) return;
  store(color);
  Shell::get().paletteIndexChanged(model_);
  if (undoable) model_.commandStack().add(std::make_unique<SetRgbColorCommand>(model_, before, color));
}

RgbaColor PaletteIndices::currentColor() const
{
  const auto* file = model_.fltFile();
  if (!file || !file->header() || file->header()->rgbMode() || !file->colorPalette()) return rgbColor_;
  const auto index =
      get(PaletteKind::colorIndex) * fltapi::ColorPaletteRecord::intensityCount + get(PaletteKind::colorIntensity);
  const auto color = file->colorPalette()->colorAt(static_cast<std::uint32_t>(index));
  return {.r = color.r, .g = color.g, .b = color.b, .a = 255};
}

} // namespace nalt
