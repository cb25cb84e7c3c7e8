#include "core/selection/SelectOperations.h"

#include "core/LuaText.h"
#include "core/Model.h"
#include "core/WaitCursor.h"
#include "core/selection/Collect.h"
#include "core/selection/RecordedChange.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/FaceRecord.h"
#include "fltapi/nodes/HeaderRecord.h"

namespace nalt {

namespace {

/// Everything of a family in the whole file.
std::unique_ptr<Selection> allOf(Model& model, SelectionMode mode)
{
  auto all = Selection::make(mode);
  if (auto* header = headerOf(model)) collect(*header, *all);
  return all;
}

/// The selected nodes, or the header when nothing is selected.
std::vector<fltapi::PrimNodeRecord*> scopeOf(Model& model)
{
  std::vector<fltapi::PrimNodeRecord*> nodes;
  for (const auto& [mode, selection] : model.selections().current().families()) {
    selection->forEach([&](fltapi::PrimNodeRecord& node, fltapi::VertexBaseRecord*) { nodes.push_back(&node); });
  }
  if (nodes.empty() && headerOf(model)) nodes.push_back(headerOf(model));
  return nodes;
}

bool replaceWith(Model& model, std::unique_ptr<Selection> found, const SelectionChange& change)
{
  if (found->empty()) return false;
  model.selections().select(std::move(found), change);
  return true;
}

} // namespace

bool selectAll(Model& model, SelectionMode mode, bool undoable)
{
  const WaitCursor cursor;
  return replaceWith(model, allOf(model, mode),
                     recordedChange("selectAll", luaCall("selectAll", infoOf(mode).name), undoable));
}

void selectNone(Model& model, bool undoable)
{
  SelectionChange change;
  change.undoable = undoable;
  model.selections().clear(change);
}

bool invertSelection(Model& model, SelectionMode mode, bool undoable)
{
  const WaitCursor cursor;
  auto rest = allOf(model, mode);
  if (const auto* selected = model.selections().current().find(mode)) rest->remove(*selected);
  const auto change = recordedChange("invertSelection", luaCall("invertSelection", infoOf(mode).name), undoable);
  if (rest->empty()) {
    model.selections().clear(change);
    return false;
  }
  return replaceWith(model, std::move(rest), change);
}

bool convertSelection(Model& model, SelectionMode mode, bool undoable)
{
  const WaitCursor cursor;
  return replaceWith(model, converted(model.selections().current(), mode),
                     recordedChange("convertSelection", luaCall("convertSelection", infoOf(mode).name), undoable));
}

void selectPrevious(Model& model, bool undoable)
{
  model.selections().selectPrevious(recordedChange("selectPrevious", luaCall("selectPrevious"), undoable));
}

void selectParents(Model& model, bool undoable)
{
  Selections parents;
  for (const auto& [mode, selection] : model.selections().current().families()) {
    selection->forEach([&](fltapi::PrimNodeRecord& node, const fltapi::VertexBaseRecord* vertex) {
      // A corner's or edge's parent is the polygon that it belongs to.
      auto* parent = vertex ? &node : node.parent();
      if (parent) parents.add(*selectionOf(*parent));
    });
  }
  if (!parents.empty())
    model.selections().select(parents, recordedChange("selectParents", luaCall("selectParents"), undoable));
}

void selectChildren(Model& model, bool undoable)
{
  Selections children;
  for (const auto& [mode, selection] : model.selections().current().families()) {
    selection->forEach([&](fltapi::PrimNodeRecord& node, const fltapi::VertexBaseRecord* vertex) {
      if (vertex) return;
      for (auto* child : node.primaryChildren()) {
        if (child->opcode() != fltapi::VertexListRecord::code) {
          children.add(*selectionOf(*child));
          continue;
        }
        VertexSelection corners(SelectionMode::vertex);
        auto& list = static_cast<fltapi::VertexListRecord&>(*child);
        for (const auto& corner : list.vertices())
          corners.insert({&list, corner});
        children.add(corners);
      }
    });
  }
  if (!children.empty()) {
    model.selections().select(children, recordedChange("selectChildren", luaCall("selectChildren"), undoable));
  }
}

bool selectByNumberOfVertices(Model& model, int count, bool fromCurrent, bool undoable)
{
  std::unique_ptr<Selection> found = std::make_unique<NodeSelection>(SelectionMode::polygon);
  NodeSelection all(SelectionMode::polygon);
  if (fromCurrent) {
    for (auto* node : scopeOf(model))
      collect(*node, all);
  } else if (auto* header = headerOf(model)) {
    collect(*header, all);
  }
  for (const auto& element : all.elements()) {
    if (static_cast<fltapi::FaceRecord&>(*element.node).vertexCount() == count)
      static_cast<NodeSelection&>(*found).insert(element);
  }
  return replaceWith(
      model, std::move(found),
      recordedChange("selectByNumberOfVertices", luaCall("selectByNumberOfVertices", count, fromCurrent), undoable));
}

} // namespace nalt
