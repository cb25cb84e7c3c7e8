#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

// Vertices of files of very old versions, which stood as nodes below their polygons. They are carried along.

namespace fltapi {

struct OldVertexFields : FieldTable {
  Field<std::array<std::int32_t, 3>> position{*this, 4, "position"};
  Field<osg::Vec2f> uv{*this, 16, "uv"};
};

class OldVertexRecord : public RecordOf<OldVertexRecord, PrimNodeRecord, opcodes::oldVertex, OldVertexFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
};

struct OldVertexColorFields : FieldTable {
  Field<std::array<std::int32_t, 3>> position{*this, 4, "position"};
  Field<std::uint8_t> edgeFlag{*this, 16, "edge flag"};
  Field<std::uint8_t> shadingFlag{*this, 17, "shading flag"};
  Field<std::int16_t> colorIndex{*this, 18, "color index"};
  Field<osg::Vec2f> uv{*this, 20, "uv"};
};

class OldVertexColorRecord
    : public RecordOf<OldVertexColorRecord, PrimNodeRecord, opcodes::oldVertexColor, OldVertexColorFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
};

struct OldVertexColorNormalFields : FieldTable {
  Field<std::array<std::int32_t, 3>> position{*this, 4, "position"};
  Field<std::uint8_t> edgeFlag{*this, 16, "edge flag"};
  Field<std::uint8_t> shadingFlag{*this, 17, "shading flag"};
  Field<std::int16_t> colorIndex{*this, 18, "color index"};
  Field<std::array<std::int32_t, 3>> normal{*this, 20, "normal"};
  Field<osg::Vec2f> uv{*this, 32, "uv"};
};

class OldVertexColorNormalRecord : public RecordOf<OldVertexColorNormalRecord, PrimNodeRecord,
                                                   opcodes::oldVertexColorNormal, OldVertexColorNormalFields> {
public:
  using RecordOf::RecordOf;
  bool hasId() const override { return false; }
};

} // namespace fltapi
