#include "script/bindings/GridBindings.h"

#include "core/GridOperations.h"
#include "core/Model.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

template <void (*lay)(Model&, bool)>
int layGrid(Call& call)
{
  lay(call.model(), call.records());
  return call.giveNothing();
}

int setGridSpacing(Call& call)
{
  nalt::setGridSpacing(call.model(), call.number("spacing"), call.records());
  return call.giveNothing();
}

int addGridOffset(Call& call)
{
  nalt::addGridOffset(call.model(), call.number("offset"), call.records());
  return call.giveNothing();
}

int setGridOrigin(Call& call)
{
  nalt::setGridOrigin(call.model(), {call.number("originX"), call.number("originY"), call.number("originZ")},
                      call.records());
  return call.giveNothing();
}

int setGridPointOnAxis(Call& call)
{
  nalt::setGridPointOnAxis(call.model(),
                           {call.number("pointOnAxisX"), call.number("pointOnAxisY"), call.number("pointOnAxisZ")},
                           call.records());
  return call.giveNothing();
}

int setGridThirdPoint(Call& call)
{
  nalt::setGridThirdPoint(call.model(),
                          {call.number("thirdPointX"), call.number("thirdPointY"), call.number("thirdPointZ")},
                          call.records());
  return call.giveNothing();
}

int alignGridToPolygon(Call& call)
{
  return call.give(nalt::alignGridToPolygon(call.model(), call.records()));
}

template <osg::Vec3d Grid::Points::*point>
int getPoint(Call& call)
{
  return call.give(call.model().grid().points().*point);
}

constexpr Binding table[] = {
    {"setXYGrid", layGrid<setXYGrid>},
    {"setXZGrid", layGrid<setXZGrid>},
    {"setYZGrid", layGrid<setYZGrid>},
    {"setGridSpacing", setGridSpacing},
    {"addGridOffset", addGridOffset},
    {"setGridOrigin", setGridOrigin},
    {"setGridPointOnAxis", setGridPointOnAxis},
    {"setGridThirdPoint", setGridThirdPoint},
    {"alignGridToPolygon", alignGridToPolygon},
    {"getGridOrigin", getPoint<&Grid::Points::origin>},
    {"getGridPointOnAxis", getPoint<&Grid::Points::onAxis>},
    {"getGridThirdPoint", getPoint<&Grid::Points::third>},
};

} // namespace

std::span<const Binding> gridBindings()
{
  return table;
}

} // namespace nalt::bindings
