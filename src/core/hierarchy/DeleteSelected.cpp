#include "core/hierarchy/DeleteSelected.h"

#include "core/Model.h"
#include "core/Shell.h"
#include "core/WaitCursor.h"
#include "core/hierarchy/DeleteCommand.h"
#include "fltapi/Opcodes.h"

#include <algorithm>
#include <map>
#include <set>

namespace nalt {

namespace {

using fltapi::PrimNodeRecord;
using fltapi::VertexListRecord;

constexpr int fewestCorners = 3;

/// What a selection means for a deletion: whole nodes, and corners by polygon.
class Victims {
public:
  explicit Victims(const Selections& selections)
  {
    for (const auto& [mode, selection] : selections.families()) {
      selection->forEach([&](PrimNodeRecord& node, fltapi::VertexBaseRecord* vertex) { add(node, vertex, mode); });
    }
  }

  std::vector<osg::ref_ptr<PrimNodeRecord>> nodes;
  std::map<PrimNodeRecord*, std::vector<bool>> keptCorners; ///< by polygon

private:
  void add(PrimNodeRecord& node, const fltapi::VertexBaseRecord* vertex, SelectionMode mode)
  {
    if (node.externalFile()) {
      if (!refused_) Shell::get().warning("Can't delete external records.");
      refused_ = true;
    } else if (!node.parent()) {
      return; // the header, or what an earlier deletion took out of the tree
    } else if (mode == SelectionMode::vertex) {
      addCorner(node, *vertex);
    } else if (seen_.insert(&node).second) {
      nodes.emplace_back(&node);
    }
  }

  void addCorner(PrimNodeRecord& polygon, const fltapi::VertexBaseRecord& vertex)
  {
    const auto* list = polygon.findChild<VertexListRecord>();
    const int corner = list ? list->indexOf(vertex) : -1;
    if (corner < 0) {
      Shell::get().warning("Parent vertex list not found when removing vertex.");
      return;
    }
    auto& kept = keptCorners[&polygon];
    if (kept.empty()) kept.assign(static_cast<std::size_t>(list->vertexCount()), true);
    kept[static_cast<std::size_t>(corner)] = false;
  }

  std::set<const PrimNodeRecord*> seen_; // several edges of a polygon mean the polygon once
  bool refused_ = false;
};

} // namespace

void deleteSelected(Model& model, bool undoable)
{
  if (!model.fltFile() || model.selections().empty()) return;
  const WaitCursor cursor;
  Victims victims(model.selections().current());
  auto command = std::make_unique<DeleteCommand>(model);
  for (const auto& [polygon, kept] : victims.keptCorners) {
    const bool isPolygon = polygon->opcode() == fltapi::opcodes::face;
    if (isPolygon && std::ranges::count(kept, true) < fewestCorners) {
      victims.nodes.emplace_back(polygon);
      continue;
    }
    auto* list = polygon->findChild<VertexListRecord>();
    command->addListChange(*list);
    command->setRemaining(*list, kept);
  }
  command->addRemovals(victims.nodes);
  if (command->empty()) return;
  command->redo();
  if (undoable) model.commandStack().add(std::move(command));
}

} // namespace nalt
