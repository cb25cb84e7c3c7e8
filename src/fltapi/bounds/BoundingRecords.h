#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

// Bounding volumes of groups. They say what the program that made them found; no edit updates them.

namespace fltapi {

struct BoundingBoxFields : FieldTable {
  Field<osg::Vec3d> minimum{*this, 8, "minimum"};
  Field<osg::Vec3d> maximum{*this, 32, "maximum"};
};
class BoundingBoxRecord : public RecordOf<BoundingBoxRecord, AncillaryRecord, opcodes::boundingBox, BoundingBoxFields> {
public:
  using RecordOf::RecordOf;
};

struct BoundingSphereFields : FieldTable {
  Field<double> radius{*this, 8, "radius"};
};
class BoundingSphereRecord
    : public RecordOf<BoundingSphereRecord, AncillaryRecord, opcodes::boundingSphere, BoundingSphereFields> {
public:
  using RecordOf::RecordOf;
};

struct BoundingCylinderFields : FieldTable {
  Field<double> radius{*this, 8, "radius"};
  Field<double> height{*this, 16, "height"};
};
class BoundingCylinderRecord
    : public RecordOf<BoundingCylinderRecord, AncillaryRecord, opcodes::boundingCylinder, BoundingCylinderFields> {
public:
  using RecordOf::RecordOf;
};

struct BoundingConvexHullFields : FieldTable {
  Field<std::int32_t> triangleCount{*this, 4, "number of triangles"};
};
/// Behind the count: three corners of three doubles for each triangle.
class BoundingConvexHullRecord : public RecordOf<BoundingConvexHullRecord, AncillaryRecord, opcodes::boundingConvexHull,
                                                 BoundingConvexHullFields> {
public:
  using RecordOf::RecordOf;
  void swapContent(std::byte* content, const SwapScope& scope) const override;
};

/// Bytes of unknown meaning.
class BoundingHistogramRecord : public RecordOf<BoundingHistogramRecord, AncillaryRecord, opcodes::boundingHistogram> {
public:
  using RecordOf::RecordOf;
};

struct BoundingVolumeCenterFields : FieldTable {
  Field<osg::Vec3d> center{*this, 8, "center"};
};
class BoundingVolumeCenterRecord : public RecordOf<BoundingVolumeCenterRecord, AncillaryRecord,
                                                   opcodes::boundingVolumeCenter, BoundingVolumeCenterFields> {
public:
  using RecordOf::RecordOf;
};

struct BoundingVolumeOrientationFields : FieldTable {
  Field<double> yaw{*this, 8, "yaw"};
  Field<double> pitch{*this, 16, "pitch"};
  Field<double> roll{*this, 24, "roll"};
};
class BoundingVolumeOrientationRecord
    : public RecordOf<BoundingVolumeOrientationRecord, AncillaryRecord, opcodes::boundingVolumeOrientation,
                      BoundingVolumeOrientationFields> {
public:
  using RecordOf::RecordOf;
};

} // namespace fltapi
