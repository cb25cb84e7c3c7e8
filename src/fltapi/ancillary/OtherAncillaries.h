#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

struct ReplicateFields : FieldTable {
  Field<std::int16_t> count{*this, 4, "replication count"};
};

/// The node is shown once and `count` times more, each time moved on by its matrix.
class ReplicateRecord : public RecordOf<ReplicateRecord, AncillaryRecord, opcodes::replicate, ReplicateFields> {
public:
  using RecordOf::RecordOf;
  int count() const { return get(fields.count); }
};

struct VectorFields : FieldTable {
  Field<osg::Vec3f> direction{*this, 4, "direction"};
};

class VectorRecord : public RecordOf<VectorRecord, AncillaryRecord, opcodes::vector, VectorFields> {
public:
  using RecordOf::RecordOf;
};

struct RoadZoneFields : FieldTable {
  Field<Text<120>> fileName{*this, 4, "zone file name"};
  Field<double> lowerLeftX{*this, 128, "lower left x"};
  Field<double> lowerLeftY{*this, 136, "lower left y"};
  Field<double> upperRightX{*this, 144, "upper right x"};
  Field<double> upperRightY{*this, 152, "upper right y"};
  Field<double> gridInterval{*this, 160, "grid interval"};
  Field<std::int32_t> postsX{*this, 168, "posts along x"};
  Field<std::int32_t> postsY{*this, 172, "posts along y"};
};

class RoadZoneRecord : public RecordOf<RoadZoneRecord, AncillaryRecord, opcodes::roadZone, RoadZoneFields> {
public:
  using RecordOf::RecordOf;
};

/// A key table, or a piece of its data; carried as bytes.
class CatDataRecord : public RecordOf<CatDataRecord, AncillaryRecord, opcodes::catData> {
public:
  using RecordOf::RecordOf;
};

/// Stands alone only behind records that aren't joined with their continuations; its bytes are carried.
class ContinuationRecord : public RecordOf<ContinuationRecord, AncillaryRecord, opcodes::continuation> {
public:
  using RecordOf::RecordOf;
};

/// A record of a kind that the program has no class for. Its bytes survive.
class UnknownRecord : public RecordOf<UnknownRecord, AncillaryRecord, 0> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
