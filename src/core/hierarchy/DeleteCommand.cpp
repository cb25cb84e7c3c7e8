#include "core/hierarchy/DeleteCommand.h"

#include "core/ApiReference.h"
#include "core/Model.h"
#include "core/Shell.h"
#include "fltapi/FltFile.h"
#include "fltapi/Opcodes.h"
#include "fltapi/geometry/TextureLayerRecords.h"
#include "scene/image/Sync.h"

#include <algorithm>

namespace nalt {

using fltapi::PrimNodeRecord;
using fltapi::VertexListRecord;

DeleteCommand::DeleteCommand(Model& model)
    : Command("Delete"),
      model_(model),
      selection_(model.selections().current()),
      pivot_(model.selections().pivotState())
{}

void DeleteCommand::addRemovals(const std::vector<osg::ref_ptr<PrimNodeRecord>>& nodes)
{
  for (const auto& node : nodes)
    removals_.push_back({node->parent(), node, node->index()});
  std::ranges::sort(removals_, {},
                    [](const Removal& removal) { return std::pair(removal.parent->serial(), removal.index); });
  noteMasks();
}

void DeleteCommand::noteMasks()
{
  const PrimNodeRecord* last = nullptr;
  for (const auto& removal : removals_) {
    auto& parent = *removal.parent;
    if (&parent == last || parent.opcode() != fltapi::opcodes::switchNode) continue;
    last = &parent;
    masks_.push_back({&parent, {reinterpret_cast<const char*>(parent.data()), parent.length()}});
  }
}

void DeleteCommand::addListChange(VertexListRecord& list)
{
  lists_.push_back({&list, stateOf(list), {}});
}

void DeleteCommand::setRemaining(VertexListRecord& list, const std::vector<bool>& keep)
{
  const auto vertices = list.vertices();
  for (std::size_t i = 0; i < keep.size(); ++i) {
    if (!keep[i]) list.removeVertex(vertices[i]);
  }
  const auto change = std::ranges::find(lists_, &list, [](const ListChange& entry) { return entry.list.get(); });
  change->after = stateOf(list);
  restore(list, change->before);
}

DeleteCommand::ListState DeleteCommand::stateOf(const VertexListRecord& list)
{
  ListState state{list.vertices(), {}};
  if (const auto* layers = list.findChild<fltapi::UVListRecord>()) {
    state.layers.assign(reinterpret_cast<const char*>(layers->data()), layers->length());
  }
  return state;
}

void DeleteCommand::restore(VertexListRecord& list, const ListState& state)
{
  list.setVertices(state.vertices);
  auto* layers = list.findChild<fltapi::UVListRecord>();
  if (!layers || !layers->resize(state.layers.size())) return;
  std::memcpy(layers->data() + fltapi::recordHeadSize, state.layers.data() + fltapi::recordHeadSize,
              state.layers.size() - fltapi::recordHeadSize);
}

/// A list that belongs to no file takes no vertices; what else was deleted comes back all the same.
bool DeleteCommand::takesVertices(const ListChange& change)
{
  if (change.list->file()) return true;
  const auto& vertices = change.before.vertices;
  for (const auto& vertex : vertices) {
    if (std::ranges::find(change.after.vertices, vertex) != change.after.vertices.end()) continue;
    const std::string what = vertex == vertices.back() ? "add" : "insert";
    Shell::get().warning("DeleteCommand::undo: Failed to " + what + " vertex");
  }
  return false;
}

void DeleteCommand::updateLists(bool after)
{
  std::vector<osg::ref_ptr<fltapi::Record>> polygons;
  for (const auto& change : lists_) {
    if (!after && !takesVertices(change)) continue;
    restore(*change.list, after ? change.after : change.before);
    if (change.list->parent()) polygons.emplace_back(change.list->parent());
  }
  if (auto* sync = model_.sync()) sync->update(polygons);
}

void DeleteCommand::redo()
{
  model_.selections().clear({.undoable = false, .updatePivot = true, .script = {}, .comment = {}});
  updateLists(/*after=*/true);
  std::vector<osg::ref_ptr<fltapi::Record>> leaving;
  for (const auto& removal : removals_)
    leaving.emplace_back(removal.child);
  if (auto* sync = model_.sync()) sync->remove(leaving);
  for (const auto& record : leaving)
    model_.fltFile()->leaveNames(*record->asNode());

  for (auto first = removals_.begin(); first != removals_.end();) {
    const auto last =
        std::find_if(first, removals_.end(), [&](const Removal& other) { return other.parent != first->parent; });
    std::vector<fltapi::Record*> children;
    for (auto one = first; one != last; ++one)
      children.push_back(one->child);
    first->parent->removeChildren(children);
    first = last;
  }
  model_.checkParent();
  model_.setDirty(true);
}

void DeleteCommand::undo()
{
  std::vector<osg::ref_ptr<fltapi::Record>> coming;
  for (const auto& removal : removals_) {
    removal.parent->insertChildAt(removal.child, removal.index);
    model_.fltFile()->enterNames(*removal.child);
    coming.emplace_back(removal.child);
  }
  if (auto* sync = model_.sync()) sync->translate(coming);
  for (const auto& masks : masks_) {
    if (!masks.node->resize(masks.bytes.size())) continue;
    std::memcpy(masks.node->data() + fltapi::recordHeadSize, masks.bytes.data() + fltapi::recordHeadSize,
                masks.bytes.size() - fltapi::recordHeadSize);
    if (auto* sync = model_.sync()) sync->update(*masks.node);
  }
  updateLists(/*after=*/false);
  auto& selections = model_.selections();
  selections.exchange(Selections(selections.current()), selection_, pivot_);
  model_.setDirty(true);
}

void DeleteCommand::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  auto* node = newRecord.asNode();
  for (auto& removal : removals_) {
    if (removal.parent == &oldRecord && node) removal.parent = node;
    if (removal.child == &oldRecord && node) removal.child = node;
  }
  for (auto& masks : masks_) {
    if (masks.node == &oldRecord && node) masks.node = node;
  }
  for (auto& change : lists_) {
    if (change.list == &oldRecord) change.list = static_cast<VertexListRecord*>(&newRecord);
    for (auto* state : {&change.before, &change.after}) {
      for (auto& vertex : state->vertices)
        if (vertex == &oldRecord) vertex = static_cast<fltapi::VertexBaseRecord*>(&newRecord);
    }
  }
  selection_.replaceRecord(oldRecord, newRecord);
}

std::string DeleteCommand::scriptText() const
{
  return "nalt.delete()";
}

std::string DeleteCommand::commentText() const
{
  return ApiReference::commentText("delete");
}

} // namespace nalt
