#include "script/bindings/PivotBindings.h"

#include "core/Model.h"
#include "core/selection/PivotCommand.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

int getPivot(Call& call)
{
  return call.give(call.model().selections().pivot().value_or(osg::Vec3d()));
}

int changePivot(Call& call)
{
  nalt::changePivot(call.model(), {call.number("x"), call.number("y"), call.number("z")}, call.records());
  return call.giveNothing();
}

constexpr Binding table[] = {{"changePivot", changePivot}, {"getPivot", getPivot}};

} // namespace

std::span<const Binding> pivotBindings()
{
  return table;
}

} // namespace nalt::bindings
