#include "script/bindings/HierarchyBindings.h"

#include "core/Model.h"
#include "core/hierarchy/DeleteSelected.h"
#include "core/hierarchy/SetParent.h"
#include "core/hierarchy/Shift.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

int deleteNodes(Call& call)
{
  deleteSelected(call.model(), call.records());
  return call.giveNothing();
}

int setParent(Call& call)
{
  nalt::setParent(call.model(), call.records());
  return call.giveNothing();
}

template <Shift shift>
int shiftNodes(Call& call)
{
  return call.give(shiftSelected(call.model(), shift, call.records()));
}

int getParent(Call& call)
{
  const auto* parent = call.model().currentParent();
  return call.give(parent ? parent->getName() : std::string{});
}

constexpr Binding table[] = {
    {"delete", deleteNodes},
    {"setParent", setParent},
    {"getParent", getParent},
    {"shiftFarLeft", shiftNodes<Shift::farLeft>},
    {"shiftLeft", shiftNodes<Shift::left>},
    {"shiftRight", shiftNodes<Shift::right>},
    {"shiftFarRight", shiftNodes<Shift::farRight>},
};

} // namespace

std::span<const Binding> hierarchyBindings()
{
  return table;
}

} // namespace nalt::bindings
