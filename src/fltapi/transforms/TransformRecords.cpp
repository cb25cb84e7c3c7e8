#include "fltapi/transforms/TransformRecords.h"

#include "fltapi/FltFile.h"
#include "fltapi/Host.h"
#include "fltapi/transforms/Frame.h"

#include <osg/Math>

namespace fltapi {

namespace {

/// About `axis` through `center`; no rotation for an axis without direction.
osg::Matrixd rotationAbout(const osg::Vec3d& center, const osg::Vec3d& axis, double degrees)
{
  if (axis.length2() == 0) return osg::Matrixd::identity();
  return osg::Matrixd::translate(-center) * osg::Matrixd::rotate(osg::DegreesToRadians(degrees), axis) *
         osg::Matrixd::translate(center);
}

/// Scales by `factor` along the unit vector `direction` and leaves what is perpendicular to it.
osg::Matrixd scaleAlong(const osg::Vec3d& direction, double factor)
{
  osg::Matrixd matrix;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      matrix(row, column) += (factor - 1) * direction[row] * direction[column];
    }
  }
  return matrix;
}

} // namespace

osg::Matrixd matrixFrom(const Record& record)
{
  osg::Matrixd matrix;
  for (std::size_t i = 0; i < 16; ++i) {
    matrix.ptr()[i] = static_cast<double>(loadAt<float>(record.data() + recordHeadSize + 4 * i));
  }
  return matrix;
}

void storeMatrix(Record& record, const osg::Matrixd& matrix)
{
  for (std::size_t i = 0; i < 16; ++i) {
    storeAt(record.data() + recordHeadSize + 4 * i, static_cast<float>(matrix.ptr()[i]));
  }
}

osg::Matrixd TranslateRecord::matrix() const
{
  return osg::Matrixd::translate(get(fields.delta));
}

bool TranslateRecord::read(RecordReader&)
{
  if (!Host::get().repairsNotAvailable()) return true;
  auto from = get(fields.from);
  bool repaired = false;
  for (int i = 0; i < 3; ++i) {
    if (from[i] != notAvailable) continue;
    from[i] = 0;
    repaired = true;
  }
  if (repaired) {
    set(fields.from, from);
    file()->noteRepair("At least one N/A value was changed to zero.");
  }
  return true;
}

osg::Matrixd ScaleRecord::matrix() const
{
  const auto center = get(fields.center);
  const osg::Vec3d scale = get(fields.scale);
  const bool noCenter = center.x() <= notAvailable || center.y() <= notAvailable || center.z() <= notAvailable;
  if (noCenter) return osg::Matrixd::scale(scale);
  return osg::Matrixd::translate(-center) * osg::Matrixd::scale(scale) * osg::Matrixd::translate(center);
}

osg::Matrixd RotateAboutEdgeRecord::matrix() const
{
  const auto start = get(fields.point1);
  return rotationAbout(start, get(fields.point2) - start, static_cast<double>(get(fields.angle)));
}

osg::Matrixd RotateAboutPointRecord::matrix() const
{
  return rotationAbout(get(fields.center), osg::Vec3d(get(fields.axis)), static_cast<double>(get(fields.angle)));
}

osg::Matrixd RotateScaleToPointRecord::matrix() const
{
  const auto center = get(fields.center);
  auto toReference = get(fields.reference) - center;
  auto toTarget = get(fields.to) - center;
  toReference.normalize();
  toTarget.normalize();
  const auto axis = toReference ^ toTarget;
  const auto overall = static_cast<double>(get(fields.overallScale));
  return osg::Matrixd::translate(-center) * scaleAlong(toReference, static_cast<double>(get(fields.directionScale))) *
         osg::Matrixd::scale(overall, overall, overall) *
         rotationAbout({}, axis, static_cast<double>(get(fields.angle))) * osg::Matrixd::translate(center);
}

osg::Matrixd PutTransformRecord::matrix() const
{
  const auto from = frameOf(get(fields.fromOrigin), get(fields.fromAlign), get(fields.fromTrack));
  const auto to = frameOf(get(fields.toOrigin), get(fields.toAlign), get(fields.toTrack));
  return osg::Matrixd::inverse(from) * to;
}

} // namespace fltapi
