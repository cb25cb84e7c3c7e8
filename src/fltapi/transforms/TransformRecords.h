#pragma once

#include "fltapi/Families.h"
#include "fltapi/Opcodes.h"
#include "fltapi/RecordOf.h"

#include <osg/Matrixd>

namespace fltapi {

/// One step of a chain of transformations. Row vectors: p' = p M.
class TransformRecord : public AncillaryRecord {
public:
  using AncillaryRecord::AncillaryRecord;
  virtual osg::Matrixd matrix() const = 0;
};

struct MatrixFields : FieldTable {
  Field<osg::Vec3f> xAxis{*this, 4, "x axis", {1, 0, 0}};
  Field<float> xWeight{*this, 16, "x weight"};
  Field<osg::Vec3f> yAxis{*this, 20, "y axis", {0, 1, 0}};
  Field<float> yWeight{*this, 32, "y weight"};
  Field<osg::Vec3f> zAxis{*this, 36, "z axis", {0, 0, 1}};
  Field<float> zWeight{*this, 48, "z weight"};
  Field<osg::Vec3f> translation{*this, 52, "translation"};
  Field<float> weight{*this, 64, "weight", all(1)};
};

/// 16 floats, row after row, widened to doubles.
osg::Matrixd matrixFrom(const Record& record);
void storeMatrix(Record& record, const osg::Matrixd& matrix);

/// The finished matrix of a node. A chain of steps may stand behind it to say how it came about.
class MatrixRecord : public RecordOf<MatrixRecord, AncillaryRecord, opcodes::matrix, MatrixFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const { return matrixFrom(*this); }
  void setMatrix(const osg::Matrixd& matrix) { storeMatrix(*this, matrix); }
};

class GeneralMatrixRecord
    : public RecordOf<GeneralMatrixRecord, TransformRecord, opcodes::generalMatrix, MatrixFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override { return matrixFrom(*this); }
  void setMatrix(const osg::Matrixd& matrix) { storeMatrix(*this, matrix); }
};

struct TranslateFields : FieldTable {
  Field<osg::Vec3d> from{*this, 8, "from"};
  Field<osg::Vec3d> delta{*this, 32, "delta"};
};

class TranslateRecord : public RecordOf<TranslateRecord, TransformRecord, opcodes::translate, TranslateFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
  /// Values that aren't available become zero if the user wants that.
  bool read(RecordReader& reader) override;
};

struct ScaleFields : FieldTable {
  Field<osg::Vec3d> center{*this, 8, "center"};
  Field<osg::Vec3f> scale{*this, 32, "scale", all(1)};
};

class ScaleRecord : public RecordOf<ScaleRecord, TransformRecord, opcodes::scale, ScaleFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
};

struct RotateAboutEdgeFields : FieldTable {
  Field<osg::Vec3d> point1{*this, 8, "point 1"};
  Field<osg::Vec3d> point2{*this, 32, "point 2"};
  Field<float> angle{*this, 56, "angle"}; ///< degrees
};

class RotateAboutEdgeRecord
    : public RecordOf<RotateAboutEdgeRecord, TransformRecord, opcodes::rotateAboutEdge, RotateAboutEdgeFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
};

struct RotateAboutPointFields : FieldTable {
  Field<osg::Vec3d> center{*this, 8, "center"};
  Field<osg::Vec3f> axis{*this, 32, "axis"};
  Field<float> angle{*this, 44, "angle"}; ///< degrees
};

class RotateAboutPointRecord
    : public RecordOf<RotateAboutPointRecord, TransformRecord, opcodes::rotateAboutPoint, RotateAboutPointFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
};

struct RotateScaleToPointFields : FieldTable {
  Field<osg::Vec3d> center{*this, 8, "center"};
  Field<osg::Vec3d> reference{*this, 32, "reference point"};
  Field<osg::Vec3d> to{*this, 56, "to point"};
  Field<float> overallScale{*this, 80, "overall scale"};
  Field<float> directionScale{*this, 84, "scale in direction"};
  Field<float> angle{*this, 88, "angle"}; ///< degrees
};

class RotateScaleToPointRecord : public RecordOf<RotateScaleToPointRecord, TransformRecord, opcodes::rotateScaleToPoint,
                                                 RotateScaleToPointFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
};

struct PutTransformFields : FieldTable {
  Field<osg::Vec3d> fromOrigin{*this, 8, "from origin"};
  Field<osg::Vec3d> fromAlign{*this, 32, "from align"};
  Field<osg::Vec3d> fromTrack{*this, 56, "from track"};
  Field<osg::Vec3d> toOrigin{*this, 80, "to origin"};
  Field<osg::Vec3d> toAlign{*this, 104, "to align"};
  Field<osg::Vec3d> toTrack{*this, 128, "to track"};
};

class PutTransformRecord
    : public RecordOf<PutTransformRecord, TransformRecord, opcodes::putTransform, PutTransformFields> {
public:
  using RecordOf::RecordOf;
  osg::Matrixd matrix() const override;
};

} // namespace fltapi
