#pragma once

#include "fltapi/Opcodes.h"
#include "fltapi/PrimNodeRecord.h"
#include "fltapi/RecordOf.h"

namespace fltapi {

/// One degree of freedom: what it may be and what it is.
struct DofRange {
  Field<double> minimum;
  Field<double> maximum;
  Field<double> current;
  Field<double> increment;

  constexpr DofRange(FieldTable& table, std::uint16_t offset, std::array<const char*, 4> names, double rest = 0)
      : minimum(table, offset, names[0]),
        maximum(table, static_cast<std::uint16_t>(offset + 8), names[1], all(rest)),
        current(table, static_cast<std::uint16_t>(offset + 16), names[2], all(rest)),
        increment(table, static_cast<std::uint16_t>(offset + 24), names[3])
  {}
};

struct DofFields : NodeFields {
  Field<osg::Vec3d> origin{*this, 16, "origin"};
  Field<osg::Vec3d> pointOnXAxis{*this, 40, "point on x axis", {1, 0, 0}};
  Field<osg::Vec3d> pointInXYPlane{*this, 64, "point in xy plane", {1, 1, 0}};
  DofRange z{*this, 88, {"minimum z", "maximum z", "current z", "increment z"}};
  DofRange y{*this, 120, {"minimum y", "maximum y", "current y", "increment y"}};
  DofRange x{*this, 152, {"minimum x", "maximum x", "current x", "increment x"}};
  DofRange pitch{*this, 184, {"minimum pitch", "maximum pitch", "current pitch", "increment pitch"}};
  DofRange roll{*this, 216, {"minimum roll", "maximum roll", "current roll", "increment roll"}};
  DofRange yaw{*this, 248, {"minimum yaw", "maximum yaw", "current yaw", "increment yaw"}};
  DofRange scaleZ{*this, 280, {"minimum z scale", "maximum z scale", "current z scale", "increment z scale"}, 1};
  DofRange scaleY{*this, 312, {"minimum y scale", "maximum y scale", "current y scale", "increment y scale"}, 1};
  DofRange scaleX{*this, 344, {"minimum x scale", "maximum x scale", "current x scale", "increment x scale"}, 1};
  Field<std::int32_t> flags{*this, 376, "flags"};
};

/// A part that can be moved in its own frame, which three points give.
class DofRecord : public RecordOf<DofRecord, PrimNodeRecord, opcodes::dof, DofFields> {
public:
  using RecordOf::RecordOf;

  /// The movement by the current values: F^-1 * scale * R(z, yaw) * R(y, roll) * R(x, pitch) * T * F for row vectors,
  /// with F the frame of the three points. Angles are in degrees. (OpenFlight, degrees of freedom.)
  osg::Matrixd matrix() const;
};

} // namespace fltapi
