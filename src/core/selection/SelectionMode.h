#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace nalt {

/// What a click selects, and the families that a selection consists of.
enum class SelectionMode {
  unsupported = 0, ///< nodes of kinds that have no mode of their own
  vertex = 1,
  edge = 2,
  polygon = 3,
  object = 4,
  group = 5,
  lod = 6,
  dof = 7,
  external = 8,
  switchNode = 9,
  lightPoint = 10,
  header = 11,
  lightPointSystem = 12,
};

/// One row for each family.
struct SelectionModeInfo {
  SelectionMode mode;
  const char* name;      ///< as scripts write it
  const char* menuLabel; ///< empty where there is no button
  const char* word;      ///< in messages
  int opcode;            ///< of the family's nodes; 0 for vertices, edges and the unsupported
  int secondOpcode = 0;
};

std::span<const SelectionModeInfo> selectionModes();
const SelectionModeInfo& infoOf(SelectionMode mode);
/// Any case; "UNSUPPORTED" isn't one that can be asked for.
std::optional<SelectionMode> selectionModeNamed(std::string_view name);
/// `vertex` for the vertex records, `unsupported` for whatever has no mode.
SelectionMode selectionModeOf(int opcode);

} // namespace nalt
