#include "core/selection/SelectionMarks.h"

#include "core/selection/SelectionSet.h"
#include "scene/image/Marks.h"
#include "scene/image/Sync.h"

#include <algorithm>

namespace nalt {

namespace {

/// Calls `work(record to mark, owner)` for each element, and `done(owner)` behind the last one of each owner.
template <class Work, class Done>
void forEachOwner(const Selection& selection, const Work& work, const Done& done)
{
  fltapi::PrimNodeRecord* last = nullptr;
  selection.forEach([&](fltapi::PrimNodeRecord& owner, fltapi::VertexBaseRecord* vertex) {
    if (last && last != &owner) done(*last);
    last = &owner;
    work(vertex ? static_cast<fltapi::Record&>(*vertex) : owner);
  });
  if (last) done(*last);
}

bool hasMarkedVertex(const fltapi::PrimNodeRecord& polygon)
{
  const auto* list = polygon.findChild<fltapi::VertexListRecord>();
  return list && std::ranges::any_of(list->vertices(), [](const auto& vertex) { return vertex->marks() != 0; });
}

bool isOfVertices(SelectionMode mode)
{
  return mode == SelectionMode::vertex || mode == SelectionMode::edge;
}

} // namespace

void markSelected(const Selections& selections, bool selected, Sync* sync)
{
  for (const auto& [mode, selection] : selections.families()) {
    const auto mark = mode == SelectionMode::edge ? Mark::edge : Mark::selected;
    forEachOwner(
        *selection, [&](fltapi::Record& record) { setMark(record, mark, selected); },
        [&](fltapi::PrimNodeRecord& owner) {
          if (isOfVertices(selection->mode())) setMark(owner, Mark::parts, selected || hasMarkedVertex(owner));
          if (sync) sync->highlight().markChanged(owner);
        });
  }
}

void showMarks(const Selections& selections, Sync& sync)
{
  for (const auto& [mode, selection] : selections.families()) {
    forEachOwner(
        *selection, [](fltapi::Record&) {},
        [&](fltapi::PrimNodeRecord& owner) { sync.highlight().markChanged(owner); });
  }
}

} // namespace nalt
