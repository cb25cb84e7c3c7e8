#include "script/bindings/HierarchyBindings.h"

#include "core/Model.h"
#include "core/hierarchy/DeleteSelected.h"
#include "script/Call.h"

namespace nalt::bindings {

namespace {

int deleteNodes(Call& call)
{
  deleteSelected(call.model(), call.records());
  return call.giveNothing();
}

int getParent(Call& call)
{
  const auto* parent = call.model().currentParent();
  return call.give(parent ? parent->getName() : std::string{});
}

constexpr Binding table[] = {
    {"delete", deleteNodes},
    {"getParent", getParent},
};

} // namespace

std::span<const Binding> hierarchyBindings()
{
  return table;
}

} // namespace nalt::bindings
