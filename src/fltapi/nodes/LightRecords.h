#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

class LightPointPalettes;

/// What a light point and an entry of the appearance palette have in common, in one order at two places.
struct LightAppearanceFields {
  Field<std::int16_t> surfaceMaterialCode;
  Field<std::int16_t> featureId;
  Field<std::uint32_t> backColorIndex;
  Field<std::int32_t> displayMode;
  Field<float> intensity;
  Field<float> backIntensity;
  Field<float> minimumDefocus;
  Field<float> maximumDefocus;
  Field<std::int32_t> fadingMode;
  Field<std::int32_t> fogPunchMode;
  Field<std::int32_t> directionalMode;
  Field<std::int32_t> rangeMode;
  Field<float> minimumPixelSize;
  Field<float> maximumPixelSize;
  Field<float> actualSize;
  Field<float> falloffPixelSize;
  Field<float> falloffExponent;
  Field<float> falloffScalar;
  Field<float> falloffClamp;
  Field<float> fogScalar;
  Field<float> fogIntensity; ///< reserved in a light point
  Field<float> sizeDifferenceThreshold;
  Field<std::int32_t> directionality;
  Field<float> horizontalLobeAngle; ///< degrees
  Field<float> verticalLobeAngle;   ///< degrees
  Field<float> lobeRollAngle;       ///< degrees
  Field<float> directionalFalloffExponent;
  Field<float> directionalAmbientIntensity;

  constexpr LightAppearanceFields(FieldTable& table, int start)
      : surfaceMaterialCode(table, at(start, 0), "surface material code"),
        featureId(table, at(start, 2), "feature ID"),
        backColorIndex(table, at(start, 4), "back color index", all(127)),
        displayMode(table, at(start, 8), "display mode"),
        intensity(table, at(start, 12), "intensity", all(1)),
        backIntensity(table, at(start, 16), "back intensity", all(1)),
        minimumDefocus(table, at(start, 20), "minimum defocus"),
        maximumDefocus(table, at(start, 24), "maximum defocus", all(1)),
        fadingMode(table, at(start, 28), "fading mode", all(1)),
        fogPunchMode(table, at(start, 32), "fog punch mode", all(1)),
        directionalMode(table, at(start, 36), "directional mode"),
        rangeMode(table, at(start, 40), "range mode"),
        minimumPixelSize(table, at(start, 44), "minimum pixel size", all(0.25)),
        maximumPixelSize(table, at(start, 48), "maximum pixel size", all(4)),
        actualSize(table, at(start, 52), "actual size", all(0.25)),
        falloffPixelSize(table, at(start, 56), "transparent falloff pixel size", all(0.25)),
        falloffExponent(table, at(start, 60), "transparent falloff exponent", all(1)),
        falloffScalar(table, at(start, 64), "transparent falloff scalar", all(1)),
        falloffClamp(table, at(start, 68), "transparent falloff clamp"),
        fogScalar(table, at(start, 72), "fog scalar", all(0.25)),
        fogIntensity(table, at(start, 76), "fog intensity"),
        sizeDifferenceThreshold(table, at(start, 80), "size difference threshold"),
        directionality(table, at(start, 84), "directionality"),
        horizontalLobeAngle(table, at(start, 88), "horizontal lobe angle", all(180)),
        verticalLobeAngle(table, at(start, 92), "vertical lobe angle", all(180)),
        lobeRollAngle(table, at(start, 96), "lobe roll angle"),
        directionalFalloffExponent(table, at(start, 100), "directional falloff exponent", all(1)),
        directionalAmbientIntensity(table, at(start, 104), "directional ambient intensity", all(0.1))
  {}

private:
  static constexpr std::uint16_t at(int start, int offset) { return static_cast<std::uint16_t>(start + offset); }
};
/// Bytes from the first to the end of the last field of the common part.
inline constexpr std::size_t lightAppearanceSize = 108;

struct LightPointFields : NodeFields {
  LightAppearanceFields appearance{*this, 12};
  Field<float> animationPeriod{*this, 120, "animation period", all(5)};
  Field<float> animationPhaseDelay{*this, 124, "animation phase delay"};
  Field<float> animationEnabledPeriod{*this, 128, "animation enabled period", all(5)};
  Field<float> significance{*this, 132, "significance"};
  Field<std::int32_t> drawOrder{*this, 136, "calligraphic draw order"};
  Field<std::uint32_t> flags{*this, 140, "flags", all(0x5A00C000)};
  Field<osg::Vec3f> rotationAxis{*this, 144, "axis of rotation", {0, 0, 1}};
};

/// A light point that says itself how it looks. Its vertices stand in its vertex list.
class LightPointRecord : public RecordOf<LightPointRecord, PrimNodeRecord, opcodes::lightPoint, LightPointFields> {
public:
  using RecordOf::RecordOf;
  bool holdsSubfaces() const override { return true; }
  bool read(RecordReader& reader) override { return readBody(reader) && readSubfaces(reader); }
};

struct IndexedLightPointFields : NodeFields {
  Field<std::int32_t> appearance{*this, 12, "appearance index"};
  Field<std::int32_t> animation{*this, 16, "animation index", all(-1)};
  Field<std::uint32_t> drawOrder{*this, 20, "draw order"};
};

/// A light point that looks as an entry of the file's palettes says. Versions before 15.8 don't have it; there it is
/// written as a light point of the other kind.
class IndexedLightPointRecord
    : public RecordOf<IndexedLightPointRecord, PrimNodeRecord, opcodes::indexedLightPoint, IndexedLightPointFields> {
public:
  using RecordOf::RecordOf;
  bool holdsSubfaces() const override { return true; }
  bool read(RecordReader& reader) override { return readBody(reader) && readSubfaces(reader); }
  std::size_t size(int version) const override { return version < 1580 ? 0 : 28; }
  bool write(Output& output) const override;
  /// A light point of the same name that looks the same, without children, belonging to the same file.
  osg::ref_ptr<LightPointRecord> toLightPoint(const LightPointPalettes& palettes) const;
};

struct LightPointSystemFields : NodeFields {
  Field<float> intensity{*this, 12, "intensity", all(1)};
  Field<std::int32_t> animationState{*this, 16, "animation state"};
  Field<std::int32_t> flags{*this, 20, "flags"};
};

class LightPointSystemRecord
    : public RecordOf<LightPointSystemRecord, PrimNodeRecord, opcodes::lightPointSystem, LightPointSystemFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 0 : 24; }
};

struct LightSourceFields : NodeFields {
  Field<std::int32_t> paletteIndex{*this, 16, "palette index"};
  Field<std::int32_t> flags{*this, 24, "flags"};
  Field<osg::Vec3d> position{*this, 32, "position"};
  Field<float> yaw{*this, 56, "yaw"};
  Field<float> pitch{*this, 60, "pitch"};
};

class LightSourceRecord : public RecordOf<LightSourceRecord, PrimNodeRecord, opcodes::lightSource, LightSourceFields> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
