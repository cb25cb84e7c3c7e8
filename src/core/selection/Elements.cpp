#include "core/selection/Elements.h"

namespace nalt {

std::string nameOf(const FltVertex& vertex)
{
  return vertex.owner()->getName() + "/V" + std::to_string(vertex.list->indexOf(*vertex.vertex));
}

std::string nameOf(const FltEdge& edge)
{
  return edge.owner()->getName() + "/E" + std::to_string(edge.list->indexOf(*edge.from));
}

std::string nameOf(const FltNode& node)
{
  return node.node->getName();
}

} // namespace nalt
