#include "core/selection/SelectionMode.h"

#include "fltapi/Opcodes.h"
#include "fltapi/geometry/VertexRecords.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace nalt {

namespace {

namespace op = fltapi::opcodes;

constexpr std::array<SelectionModeInfo, 13> modes = {{
    {SelectionMode::unsupported, "UNSUPPORTED", "", "", 0},
    {SelectionMode::vertex, "VERTEX", "Vertex Mode", "vertex", 0},
    {SelectionMode::edge, "EDGE", "Edge Mode", "edge", 0},
    {SelectionMode::polygon, "POLYGON", "Polygon Mode", "polygon", op::face},
    {SelectionMode::object, "OBJECT", "Object Mode", "object", op::object},
    {SelectionMode::group, "GROUP", "Group Mode", "group", op::group},
    {SelectionMode::lod, "LOD", "LOD Mode", "LOD", op::lod},
    {SelectionMode::dof, "DOF", "DOF Mode", "DOF", op::dof},
    {SelectionMode::external, "EXTERNAL", "External Reference Mode", "external", op::external},
    {SelectionMode::switchNode, "SWITCH", "Switch Mode", "switch", op::switchNode},
    {SelectionMode::lightPoint, "LIGHTPOINT", "Light Point Mode", "light point", op::lightPoint, op::indexedLightPoint},
    {SelectionMode::header, "HEADER", "", "group", op::header},
    {SelectionMode::lightPointSystem, "LIGHTPOINTSYSTEM", "Light Point System Mode", "group", op::lightPointSystem},
}};

bool sameIgnoringCase(std::string_view a, std::string_view b)
{
  return std::ranges::equal(a, b, [](unsigned char x, unsigned char y) { return std::toupper(x) == std::toupper(y); });
}

} // namespace

std::span<const SelectionModeInfo> selectionModes()
{
  return modes;
}

const SelectionModeInfo& infoOf(SelectionMode mode)
{
  return modes[static_cast<std::size_t>(mode)];
}

std::optional<SelectionMode> selectionModeNamed(std::string_view name)
{
  for (const auto& info : std::span(modes).subspan(1)) {
    if (sameIgnoringCase(name, info.name)) return info.mode;
  }
  return std::nullopt;
}

SelectionMode selectionModeOf(int opcode)
{
  if (fltapi::isVertexOpcode(opcode)) return SelectionMode::vertex;
  for (const auto& info : modes) {
    if (opcode != 0 && (info.opcode == opcode || info.secondOpcode == opcode)) return info.mode;
  }
  return SelectionMode::unsupported;
}

} // namespace nalt
