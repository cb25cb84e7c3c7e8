#include "script/bindings/PivotBindings.h"

#include "core/Model.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

int getPivot(Call& call)
{
  return call.give(call.model().selections().pivot().value_or(osg::Vec3d()));
}

constexpr Binding table[] = {{"getPivot", getPivot}};

} // namespace

std::span<const Binding> pivotBindings()
{
  return table;
}

} // namespace nalt::bindings
