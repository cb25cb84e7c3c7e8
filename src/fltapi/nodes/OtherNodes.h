#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

// Nodes that are read, shown by name, edited in their panels and written, and that the scene has nothing to draw for.

namespace fltapi {

struct SoundFields : NodeFields {
  Field<std::int32_t> paletteIndex{*this, 16, "palette index"};
  Field<osg::Vec3d> offset{*this, 24, "offset"};
  Field<osg::Vec3f> direction{*this, 48, "direction"};
  Field<float> amplitude{*this, 60, "amplitude"};
  Field<float> pitch{*this, 64, "pitch"};
  Field<float> priority{*this, 68, "priority"};
  Field<float> falloff{*this, 72, "falloff"};
  Field<float> width{*this, 76, "width"};
  Field<std::uint32_t> flags{*this, 80, "flags"};
};

class SoundRecord : public RecordOf<SoundRecord, PrimNodeRecord, opcodes::sound, SoundFields> {
public:
  using RecordOf::RecordOf;
};

struct TextFields : NodeFields {
  Field<std::int32_t> type{*this, 20, "type"};
  Field<std::int32_t> drawType{*this, 24, "draw type"};
  Field<std::int32_t> justification{*this, 28, "justification"};
  Field<double> floatValue{*this, 32, "float value"};
  Field<std::int32_t> integerValue{*this, 40, "integer value"};
  Field<std::uint32_t> flags{*this, 64, "flags"};
  Field<std::int32_t> color{*this, 68, "color"};
  Field<std::int32_t> secondColor{*this, 72, "second color"};
  Field<std::int32_t> material{*this, 76, "material"};
  Field<std::int32_t> maximumLines{*this, 84, "maximum number of lines"};
  Field<std::int32_t> maximumCharacters{*this, 88, "maximum number of characters"};
  Field<std::int32_t> textLength{*this, 92, "current text length"};
  Field<std::int32_t> nextFreeLine{*this, 96, "next free line"};
  Field<std::int32_t> topLine{*this, 100, "line at top"};
  Field<std::int32_t> lowInteger{*this, 104, "low integer value"};
  Field<std::int32_t> highInteger{*this, 108, "high integer value"};
  Field<double> lowFloat{*this, 112, "low float value"};
  Field<double> highFloat{*this, 120, "high float value"};
  Field<osg::Vec3d> lowerLeft{*this, 128, "lower left corner"};
  Field<osg::Vec3d> upperRight{*this, 152, "upper right corner"};
  Field<Text<120>> font{*this, 176, "font name"};
  Field<std::int32_t> vertical{*this, 296, "vertical"};
  Field<std::int32_t> italic{*this, 300, "italic"};
  Field<std::int32_t> bold{*this, 304, "bold"};
  Field<std::int32_t> underline{*this, 308, "underline"};
  Field<std::int32_t> lineStyle{*this, 312, "line style"};
};

class TextRecord : public RecordOf<TextRecord, PrimNodeRecord, opcodes::text, TextFields> {
public:
  using RecordOf::RecordOf;
};

struct ClipRegionFields : NodeFields {
  Field<std::array<std::uint8_t, 5>> planeEnabled{*this, 18, "plane enabled"};
  Field<osg::Vec3d> point1{*this, 24, "point 1"};
  Field<osg::Vec3d> point2{*this, 48, "point 2"};
  Field<osg::Vec3d> point3{*this, 72, "point 3"};
  Field<osg::Vec3d> point4{*this, 96, "point 4"};
  Field<std::array<double, 20>> planes{*this, 120, "plane coefficients"};
};

class ClipRegionRecord : public RecordOf<ClipRegionRecord, PrimNodeRecord, opcodes::clipRegion, ClipRegionFields> {
public:
  using RecordOf::RecordOf;
};

struct CatFields : NodeFields {
  Field<std::int32_t> irColorCode{*this, 16, "IR color code"};
  Field<std::uint8_t> drawType{*this, 20, "draw type"};
  Field<std::uint8_t> textureWhite{*this, 21, "texture white"};
  Field<std::uint16_t> colorNameIndex{*this, 24, "color name index"};
  Field<std::uint16_t> alternateColorNameIndex{*this, 26, "alternate color name index"};
  Field<std::int16_t> detailTexture{*this, 28, "detail texture index", all(-1)};
  Field<std::int16_t> texture{*this, 30, "texture index", all(-1)};
  Field<std::int16_t> material{*this, 32, "material index", all(-1)};
  Field<std::int16_t> surfaceMaterialCode{*this, 34, "surface material code"};
  Field<std::int32_t> irMaterialCode{*this, 36, "IR material code"};
  Field<std::int16_t> textureMapping{*this, 48, "texture mapping index", all(-1)};
  Field<std::uint32_t> colorIndex{*this, 52, "primary color index"};
  Field<std::uint32_t> alternateColorIndex{*this, 56, "alternate color index"};
  Field<double> reserved{*this, 64, "reserved"};
  Field<std::uint32_t> flags{*this, 72, "flags"};
};

class CatRecord : public RecordOf<CatRecord, PrimNodeRecord, opcodes::cat, CatFields> {
public:
  using RecordOf::RecordOf;
};

struct CurveFields : NodeFields {
  Field<std::int32_t> type{*this, 16, "curve type"};
  Field<std::int32_t> pointCount{*this, 20, "number of control points"};
};

/// Behind the fields: the control points, three doubles each.
class CurveRecord : public RecordOf<CurveRecord, PrimNodeRecord, opcodes::curve, CurveFields> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

class RoadSegmentRecord : public RecordOf<RoadSegmentRecord, PrimNodeRecord, opcodes::roadSegment, NodeFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
};

struct RoadConstructionFields : NodeFields {
  Field<std::int32_t> type{*this, 16, "road type"};
  Field<std::int32_t> toolsVersion{*this, 20, "road tools version"};
  Field<osg::Vec3d> entryPoint{*this, 24, "entry control point"};
  Field<osg::Vec3d> alignmentPoint{*this, 48, "alignment control point"};
  Field<osg::Vec3d> exitPoint{*this, 72, "exit control point"};
  Field<double> arcRadius{*this, 96, "arc radius"};
  Field<double> entrySpiralLength{*this, 104, "entry spiral length"};
  Field<double> exitSpiralLength{*this, 112, "exit spiral length"};
  Field<double> superelevation{*this, 120, "superelevation"};
  Field<std::int32_t> spiralType{*this, 128, "spiral type"};
  Field<std::int32_t> verticalParabola{*this, 132, "additional vertical parabola"};
  Field<double> verticalCurveLength{*this, 136, "vertical curve length"};
  Field<double> minimumCurveLength{*this, 144, "minimum curve length"};
  Field<double> entrySlope{*this, 152, "entry slope"};
  Field<double> exitSlope{*this, 160, "exit slope"};
};

class RoadConstructionRecord
    : public RecordOf<RoadConstructionRecord, PrimNodeRecord, opcodes::roadConstruction, RoadConstructionFields> {
public:
  using RecordOf::RecordOf;
};

struct RoadPathFields : NodeFields {
  Field<Text<120>> pathName{*this, 16, "path name"};
  Field<double> speedLimit{*this, 136, "speed limit"};
  Field<std::int32_t> noPassing{*this, 144, "no passing"};
  Field<std::int32_t> vertexNormalType{*this, 148, "vertex normal type"};
};

class RoadPathRecord : public RecordOf<RoadPathRecord, PrimNodeRecord, opcodes::roadPath, RoadPathFields> {
public:
  using RecordOf::RecordOf;
};

struct ExtensionFields : NodeFields {
  Field<Text<8>> siteId{*this, 12, "site ID"};
  Field<std::int8_t> revision{*this, 21, "revision"};
  Field<std::uint16_t> recordCode{*this, 22, "record code"};
};

/// Data of another program behind the fields, in a byte order that only it knows.
class ExtensionRecord : public RecordOf<ExtensionRecord, PrimNodeRecord, opcodes::extension, ExtensionFields> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
