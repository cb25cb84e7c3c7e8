#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct HeaderFields : NodeFields {
  Field<std::int32_t> formatRevision{*this, 12, "format revision", all(currentVersion)};
  Field<std::int32_t> editRevision{*this, 16, "edit revision", all(1)};
  Field<Text<32>> dateAndTime{*this, 20, "date and time"};
  Field<std::uint16_t> nextGroup{*this, 52, "next group number"};
  Field<std::uint16_t> nextLod{*this, 54, "next LOD number"};
  Field<std::uint16_t> nextObject{*this, 56, "next object number"};
  Field<std::uint16_t> nextFace{*this, 58, "next face number"};
  Field<std::uint16_t> unitMultiplier{*this, 60, "unit multiplier", all(1)};
  Field<std::uint8_t> vertexUnits{*this, 62, "vertex coordinate units"};
  Field<std::uint8_t> textureWhite{*this, 63, "texture white"};
  Field<std::uint32_t> flags{*this, 64, "flags", all(0x80000000)};
  Field<std::int32_t> projectionType{*this, 92, "projection type"};
  Field<std::uint16_t> nextDof{*this, 124, "next DOF number"};
  Field<std::uint16_t> vertexStorageType{*this, 126, "vertex storage type", all(1)};
  Field<std::int32_t> databaseOrigin{*this, 128, "database origin", all(100)};
  Field<double> southWestX{*this, 132, "south-west x"};
  Field<double> southWestY{*this, 140, "south-west y"};
  Field<double> deltaX{*this, 148, "delta x"};
  Field<double> deltaY{*this, 156, "delta y"};
  Field<std::uint16_t> nextSound{*this, 164, "next sound number", {}, 13};
  Field<std::uint16_t> nextPath{*this, 166, "next path number", {}, 13};
  Field<std::uint16_t> nextClip{*this, 176, "next clip number", {}, 13};
  Field<std::uint16_t> nextText{*this, 178, "next text number", {}, 13};
  Field<std::uint16_t> nextBsp{*this, 180, "next BSP number", {}, 13};
  Field<std::uint16_t> nextSwitch{*this, 182, "next switch number", {}, 13};
  Field<double> southWestLatitude{*this, 188, "south-west latitude", {}, 13};
  Field<double> southWestLongitude{*this, 196, "south-west longitude", {}, 13};
  Field<double> northEastLatitude{*this, 204, "north-east latitude", {}, 13};
  Field<double> northEastLongitude{*this, 212, "north-east longitude", {}, 13};
  Field<double> originLatitude{*this, 220, "origin latitude", {}, 13};
  Field<double> originLongitude{*this, 228, "origin longitude", {}, 13};
  Field<double> lambertUpperLatitude{*this, 236, "Lambert upper latitude", {}, 13};
  Field<double> lambertLowerLatitude{*this, 244, "Lambert lower latitude", {}, 13};
  Field<std::uint16_t> nextLightSource{*this, 252, "next light source number", {}, 13};
  Field<std::uint16_t> nextLightPoint{*this, 254, "next light point number", {}, 1421};
  Field<std::uint16_t> nextRoad{*this, 256, "next road number", {}, 1421};
  Field<std::uint16_t> nextCat{*this, 258, "next CAT number", {}, 1421};
  Field<std::int32_t> ellipsoid{*this, 268, "earth ellipsoid model", {}, 1421};
  Field<std::uint16_t> nextAdaptive{*this, 272, "next adaptive number", {}, 1421};
  Field<std::uint16_t> nextCurve{*this, 274, "next curve number", {}, 1570};
  Field<std::int16_t> utmZone{*this, 276, "UTM zone", {}, 1570};
  Field<double> deltaZ{*this, 284, "delta z", {}, 1570};
  Field<double> radius{*this, 292, "radius", {}, 1570};
  Field<std::uint16_t> nextMesh{*this, 300, "next mesh number", {}, 1570};
  // New in 15.8, but the headers that are written for 15.7 reach over it.
  Field<std::uint16_t> nextLightPointSystem{*this, 302, "next light point system number", {}, 1570};
  Field<double> earthMajorAxis{*this, 308, "earth major axis", {}, 1580};
  Field<double> earthMinorAxis{*this, 316, "earth minor axis", {}, 1580};
};

/// The root of a file's tree.
class HeaderRecord : public RecordOf<HeaderRecord, PrimNodeRecord, opcodes::header, HeaderFields> {
public:
  using RecordOf::RecordOf;

  enum Flag : std::uint32_t { saveVertexNormalsFlag = 0x80000000, rgbModeFlag = 0x40000000, cadViewFlag = 0x20000000 };

  bool rgbMode() const { return get(fields.flags) & rgbModeFlag; }

  std::size_t size(int version) const override { return version < 1580 ? 304 : 324; }
  /// The header and the whole file below it: vertices behind the palette, definitions that nobody refers to at the end.
  bool write(Output& output) const override;
  void prepareForFile(std::byte* content, const Output& output) const override;

protected:
  bool writeChildren(Output& output) const override;

private:
  bool findsPalette() const;
};

} // namespace fltapi
