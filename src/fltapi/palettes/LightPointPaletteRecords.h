#pragma once

#include "fltapi/nodes/LightRecords.h"

#include <map>

namespace fltapi {

struct LightPointAppearanceFields : FieldTable {
  Field<Text<256>> name{*this, 8, "name"};
  Field<std::int32_t> index{*this, 264, "index"};
  LightAppearanceFields appearance{*this, 268};
  Field<float> significance{*this, 376, "significance"};
  Field<std::uint32_t> flags{*this, 380, "flags"};
  Field<float> visibilityRange{*this, 384, "visibility range"};
  Field<float> fadeRangeRatio{*this, 388, "fade range ratio"};
  Field<float> fadeInDuration{*this, 392, "fade-in duration"};
  Field<float> fadeOutDuration{*this, 396, "fade-out duration"};
  Field<float> lodRangeRatio{*this, 400, "LOD range ratio"};
  Field<float> lodScale{*this, 404, "LOD scale"};
  Field<std::int16_t> texture{*this, 408, "texture index", all(-1), 1600};
};

class LightPointAppearancePaletteRecord
    : public RecordOf<LightPointAppearancePaletteRecord, AncillaryRecord, opcodes::lightPointAppearancePalette,
                      LightPointAppearanceFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 0 : version < 1600 ? 408 : 412; }
  std::string getName() const override { return get(fields.name); }
  bool setName(const std::string& name, bool = true) override
  {
    set(fields.name, name);
    return true;
  }
};

struct LightPointAnimationFields : FieldTable {
  Field<Text<256>> name{*this, 8, "name"};
  Field<std::int32_t> index{*this, 264, "index"};
  Field<float> period{*this, 268, "period", all(5)};
  Field<float> phaseDelay{*this, 272, "phase delay"};
  Field<float> enabledPeriod{*this, 276, "enabled period", all(5)};
  Field<osg::Vec3f> rotationAxis{*this, 280, "axis of rotation", {0, 0, 1}};
  Field<std::uint32_t> flags{*this, 292, "flags"};
  Field<std::int32_t> type{*this, 296, "animation type"};
  Field<std::int32_t> morseTiming{*this, 300, "Morse timing"};
  Field<std::int32_t> wordRate{*this, 304, "word rate"};
  Field<std::int32_t> characterRate{*this, 308, "character rate"};
  Field<Text<1024>> morseString{*this, 312, "Morse string"};
  Field<std::int32_t> sequenceLength{*this, 1336, "sequence length"};
};

/// Behind the fields: the entries of the sequence, each a state, a duration in seconds and a color.
class LightPointAnimationPaletteRecord
    : public RecordOf<LightPointAnimationPaletteRecord, AncillaryRecord, opcodes::lightPointAnimationPalette,
                      LightPointAnimationFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 0 : length(); }
  std::string getName() const override { return get(fields.name); }
  bool setName(const std::string& name, bool = true) override
  {
    set(fields.name, name);
    return true;
  }
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

/// The two light point palettes of a file by index. Of several entries with one index the first counts.
class LightPointPalettes {
public:
  explicit LightPointPalettes(const FltFile& file);

  /// Null when there is no such entry.
  const LightPointAppearancePaletteRecord* appearance(int index) const;
  const LightPointAnimationPaletteRecord* animation(int index) const;

private:
  std::map<int, const LightPointAppearancePaletteRecord*> appearances_;
  std::map<int, const LightPointAnimationPaletteRecord*> animations_;
};

} // namespace fltapi
