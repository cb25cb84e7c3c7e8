#include "fltapi/nodes/LightRecords.h"

#include "fltapi/io/Output.h"
#include "fltapi/palettes/LightPointPaletteRecords.h"

#include <array>

namespace fltapi {

namespace {

/// Light points and the palettes number their flag bits differently. Each row: one meaning, where a light point keeps
/// it, where the palette entry does.
struct FlagPlace {
  std::uint32_t inPoint;
  std::uint32_t inPalette;
};

constexpr std::array<FlagPlace, 12> appearanceFlags = {{
    {0x40000000, 0x40000000}, // no back color
    {0x10000000, 0x20000000}, // calligraphic proximity occulting
    {0x08000000, 0x10000000}, // reflective
    {0x04000000, 0x08000000}, // randomize intensity, three bits
    {0x02000000, 0x04000000},
    {0x01000000, 0x02000000},
    {0x00800000, 0x01000000}, // perspective
    {0x00040000, 0x00400000}, // quality, two bits
    {0x00020000, 0x00200000},
    {0x00010000, 0x00100000}, // visible by day
    {0x00008000, 0x00080000}, // at dusk
    {0x00004000, 0x00040000}, // at night
}};

constexpr std::array<FlagPlace, 3> animationFlags = {{
    {0x00400000, 0x80000000}, // flashing
    {0x00200000, 0x40000000}, // rotating
    {0x00100000, 0x20000000}, // counter-clockwise
}};

std::uint32_t translated(std::uint32_t paletteFlags, std::span<const FlagPlace> places)
{
  std::uint32_t flags = 0;
  for (const auto& place : places)
    flags |= paletteFlags & place.inPalette ? place.inPoint : 0;
  return flags;
}

} // namespace

osg::ref_ptr<LightPointRecord> IndexedLightPointRecord::toLightPoint(const LightPointPalettes& palettes) const
{
  using Appearance = LightPointAppearancePaletteRecord;
  using Animation = LightPointAnimationPaletteRecord;
  osg::ref_ptr<LightPointRecord> point = new LightPointRecord(defaultBuffer(LightPointRecord::code));
  point->setFile(file());
  const auto& to = LightPointRecord::fields;
  point->set(to.id, get(fields.id));
  point->set(to.drawOrder, static_cast<std::int32_t>(get(fields.drawOrder)));

  std::uint32_t flags = point->get(to.flags);
  if (const auto* appearance = palettes.appearance(get(fields.appearance))) {
    const auto& from = Appearance::fields;
    std::memcpy(point->data() + to.appearance.surfaceMaterialCode.offset(),
                appearance->data() + from.appearance.surfaceMaterialCode.offset(), lightAppearanceSize);
    point->set(to.appearance.fogIntensity, 0.0f); // reserved there
    point->set(to.significance, appearance->get(from.significance));
    flags = translated(appearance->get(from.flags), appearanceFlags);
  }
  if (const auto* animation = palettes.animation(get(fields.animation))) {
    const auto& from = Animation::fields;
    point->set(to.animationPeriod, animation->get(from.period));
    point->set(to.animationPhaseDelay, animation->get(from.phaseDelay));
    point->set(to.animationEnabledPeriod, animation->get(from.enabledPeriod));
    point->set(to.rotationAxis, animation->get(from.rotationAxis));
    flags |= translated(animation->get(from.flags), animationFlags);
  }
  point->set(to.flags, flags);
  return point;
}

bool IndexedLightPointRecord::write(Output& output) const
{
  if (output.version() >= 1580) return PrimNodeRecord::write(output);
  return output.write(*toLightPoint(output.lightPointPalettes())) && writeAncillaries(output) && writeChildren(output);
}

} // namespace fltapi
