#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

// The nodes that do nothing but gather others: groups, objects, levels of detail, BSP planes.

namespace fltapi {

struct GroupFields : NodeFields {
  Field<std::int16_t> relativePriority{*this, 12, "relative priority"};
  Field<std::uint32_t> flags{*this, 16, "flags"};
  Field<std::int16_t> specialEffect1{*this, 20, "special effect 1"};
  Field<std::int16_t> specialEffect2{*this, 22, "special effect 2"};
  Field<std::int16_t> significance{*this, 24, "significance"};
  Field<std::uint8_t> layerCode{*this, 26, "layer code"};
  Field<std::uint8_t> lodGenerationControl{*this, 27, "LOD generation control"};
  Field<std::int32_t> loopCount{*this, 32, "loop count", {}, 1580};
  Field<float> loopDuration{*this, 36, "loop duration", {}, 1580};
  Field<float> lastFrameDuration{*this, 40, "last frame duration", {}, 1580};
};

class GroupRecord : public RecordOf<GroupRecord, PrimNodeRecord, opcodes::group, GroupFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 32 : 44; }
};

struct ObjectFields : NodeFields {
  Field<std::uint32_t> flags{*this, 12, "flags"};
  Field<std::int16_t> relativePriority{*this, 16, "relative priority"};
  Field<std::uint16_t> transparency{*this, 18, "transparency"};
  Field<std::int16_t> specialEffect1{*this, 20, "special effect 1"};
  Field<std::int16_t> specialEffect2{*this, 22, "special effect 2"};
  Field<std::int16_t> significance{*this, 24, "significance"};
};

class ObjectRecord : public RecordOf<ObjectRecord, PrimNodeRecord, opcodes::object, ObjectFields> {
public:
  using RecordOf::RecordOf;
};

struct LodFields : NodeFields {
  Field<double> switchIn{*this, 16, "switch-in distance", all(1.0e7)};
  Field<double> switchOut{*this, 24, "switch-out distance"};
  Field<std::int16_t> specialEffect1{*this, 32, "special effect 1"};
  Field<std::int16_t> specialEffect2{*this, 34, "special effect 2"};
  Field<std::int32_t> flags{*this, 36, "flags"};
  Field<osg::Vec3d> center{*this, 40, "center"};
  Field<double> transitionRange{*this, 64, "transition range"};
  Field<double> significantSize{*this, 72, "significant size", {}, 1580};
};

/// Shown while the eye is nearer than switch-in and not nearer than switch-out.
class LodRecord : public RecordOf<LodRecord, PrimNodeRecord, opcodes::lod, LodFields> {
public:
  using RecordOf::RecordOf;
  std::size_t size(int version) const override { return version < 1580 ? 72 : 80; }
};

/// A level of detail of very old files, carried as bytes.
class OldLodRecord : public RecordOf<OldLodRecord, PrimNodeRecord, opcodes::oldLod, NodeFields> {
public:
  using RecordOf::RecordOf;
};

struct BspFields : NodeFields {
  Field<std::array<double, 4>> plane{*this, 16, "plane"};
};

class BspRecord : public RecordOf<BspRecord, PrimNodeRecord, opcodes::bsp, BspFields> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
