#include "core/selection/SelectionSet.h"

#include "core/Model.h"
#include "core/ScriptRecorder.h"
#include "core/Shell.h"
#include "core/Tool.h"
#include "core/WaitCursor.h"
#include "core/selection/Collect.h"
#include "core/selection/RecordedChange.h"
#include "core/selection/SelectOperations.h"
#include "core/selection/SelectionCommand.h"
#include "core/selection/SelectionMarks.h"
#include "fltapi/FltFile.h"
#include "fltapi/nodes/HeaderRecord.h"
#include "platform/Memory.h"

#include <algorithm>
#include <utility>

namespace nalt {

namespace {

bool hasSelectedAncestor(const Selections& selections, const fltapi::PrimNodeRecord& node)
{
  for (const auto* above = node.parent(); above; above = above->parent()) {
    if (selections.containsNode(*above)) return true;
  }
  return false;
}

/// Looks for anything selected below nodes: sub-nodes, or corners and edges of polygons. The content of a file is
/// looked through once, though further files may show it along very many ways.
class SelectedBelow {
public:
  explicit SelectedBelow(const Selections& selections)
      : selections_(selections), edges_(static_cast<const EdgeSelection*>(selections.find(SelectionMode::edge)))
  {}

  bool find(const fltapi::PrimNodeRecord& node)
  {
    return std::ranges::any_of(node.primaryChildren(), [&](fltapi::PrimNodeRecord* child) {
      if (child->opcode() == fltapi::VertexListRecord::code) {
        return hasSelectedPart(static_cast<fltapi::VertexListRecord&>(*child));
      }
      if (selections_.containsNode(*child)) return true;
      return child->opcode() == fltapi::HeaderRecord::code ? findInFile(*child) : find(*child);
    });
  }

private:
  bool findInFile(const fltapi::PrimNodeRecord& header)
  {
    const auto [answer, isNew] = files_.try_emplace(&header, false);
    if (isNew) answer->second = find(header); // no file contains itself
    return answer->second;
  }

  bool hasSelectedPart(fltapi::VertexListRecord& list) const
  {
    const auto& vertices = list.vertices();
    for (std::size_t i = 0; i < vertices.size(); ++i) {
      if (selections_.containsVertex(list, *vertices[i])) return true;
      if (edges_ && edges_->elements().contains({&list, vertices[i], vertices[(i + 1) % vertices.size()]})) return true;
    }
    return false;
  }

  const Selections& selections_;
  const EdgeSelection* edges_;
  std::map<const fltapi::PrimNodeRecord*, bool> files_; ///< by header: whether anything is selected there
};

/// What two selections of one family both hold.
std::unique_ptr<Selection> commonPart(const Selection& a, const Selection& b)
{
  const auto others = a.clone();
  others->remove(b);
  auto common = a.clone();
  common->remove(*others);
  return common;
}

/// Tells the elements that left the document since they were selected. Those of one polygon stand together.
class IsGone {
public:
  explicit IsGone(Model& model) : header_(model.fltFile() ? model.fltFile()->header() : nullptr) {}

  bool operator()(fltapi::PrimNodeRecord& node, const fltapi::Record* vertex)
  {
    if (&node != last_) {
      last_ = &node;
      lastIsGone_ = !isInTree(node);
    }
    if (lastIsGone_ || !vertex) return lastIsGone_;
    const auto* list = node.findChild<fltapi::VertexListRecord>();
    return !list || list->indexOf(*vertex) < 0;
  }

private:
  bool isInTree(const fltapi::PrimNodeRecord& node) const
  {
    const auto* top = &node;
    while (top->parent())
      top = top->parent();
    return header_ && (top == header_ || top->opcode() == fltapi::opcodes::instanceDefinition);
  }

  const fltapi::PrimNodeRecord* header_;
  const fltapi::PrimNodeRecord* last_ = nullptr;
  bool lastIsGone_ = false;
};

} // namespace

std::size_t SelectionSet::size(SelectionMode mode) const
{
  const auto* family = current_.find(mode);
  return family ? family->size() : 0;
}

std::vector<std::string> SelectionSet::names() const
{
  std::vector<std::string> all;
  for (const auto& [mode, selection] : current_.families()) {
    const auto names = selection->names();
    all.insert(all.end(), names.begin(), names.end());
  }
  return all;
}

// ---- changing --------------------------------------------------------------------------------------------------

bool SelectionSet::toolRefuses(const Selections& selections) const
{
  auto* tool = model_.tool();
  if (!tool || !tool->writesRecords() || !selections.containsExternal()) return false;
  Shell::get().warning("Can't modify externally referenced geometry.");
  tool->selectionChanged();
  return true;
}

void SelectionSet::select(Selections selections, const SelectionChange& change)
{
  if (toolRefuses(selections)) return;
  const WaitCursor cursor;
  previous_ = current_;
  Selections before = std::move(current_);
  current_ = std::move(selections);
  markSelected(before, false, model_.sync());
  markSelected(current_, true, model_.sync());
  auto added = change.undoable ? current_ : Selections();
  finish(std::move(before), std::move(added), change);
}

void SelectionSet::select(std::unique_ptr<Selection> selection, const SelectionChange& change)
{
  Selections selections;
  selections.add(std::move(selection));
  select(std::move(selections), change);
}

std::unique_ptr<Selection> SelectionSet::withoutRelatives(const Selection& selection) const
{
  auto rest = selection.clone();
  if (current_.empty()) return rest;
  SelectedBelow below(current_);
  rest->discard([&](fltapi::PrimNodeRecord& node, const fltapi::Record* vertex) {
    if (hasSelectedAncestor(current_, node)) return true;
    // A corner of a polygon has the polygon itself above it, and nothing below.
    return vertex ? current_.containsNode(node) : below.find(node);
  });
  return rest;
}

bool SelectionSet::add(const Selection& selection, const SelectionChange& change)
{
  Selections selections;
  selections.add(selection);
  return add(selections, change);
}

bool SelectionSet::add(const Selections& selections, const SelectionChange& change)
{
  if (selections.empty()) {
    model_.redrawViewports();
    return false;
  }
  const WaitCursor cursor;
  if (toolRefuses(selections)) return false;
  Selections joining;
  for (const auto& [mode, selection] : selections.families())
    joining.add(withoutRelatives(*selection));
  if (joining.empty()) {
    Shell::get().warning("Recursive selection is not allowed.");
    return false;
  }
  auto added = joining;
  added.remove(current_);
  current_.add(added);
  markSelected(added, true, model_.sync());
  finish({}, std::move(added), change);
  return true;
}

bool SelectionSet::remove(const Selection& selection, const SelectionChange& change)
{
  const auto* family = current_.find(selection.mode());
  if (!family) return false;
  const WaitCursor cursor;
  Selections removed;
  removed.add(commonPart(selection, *family));
  if (removed.empty()) return false;
  current_.remove(removed);
  markSelected(removed, false, model_.sync());
  finish(std::move(removed), {}, change);
  return true;
}

bool SelectionSet::toggle(const Selection& selection, const SelectionChange& change)
{
  if (selection.empty()) {
    model_.redrawViewports();
    return false;
  }
  const WaitCursor cursor;
  Selections meant;
  meant.add(selection);
  if (toolRefuses(meant)) return false;
  Selections removed;
  Selections added;
  auto joining = selection.clone();
  if (const auto* family = current_.find(selection.mode())) {
    joining->remove(*family);
    removed.add(commonPart(selection, *family));
  }
  joining = withoutRelatives(*joining);
  added.add(*joining);
  if (removed.empty() && added.empty()) {
    Shell::get().warning("Recursive selection is not allowed.");
    return false;
  }
  current_.remove(removed);
  current_.add(added);
  markSelected(removed, false, model_.sync());
  markSelected(added, true, model_.sync());
  finish(std::move(removed), std::move(added), change);
  return true;
}

void SelectionSet::clear(const SelectionChange& change)
{
  if (current_.empty()) return;
  noteFreedElements(current_.size());
  Selections before = std::move(current_);
  current_.clear();
  markSelected(before, false, model_.sync());
  finish(std::move(before), {}, change);
  constexpr std::size_t large = 100'000;
  if (freedElements_ < large) return;
  freedElements_ = 0;
  giveBackFreedMemory();
}

void SelectionSet::selectPrevious(const SelectionChange& change)
{
  Selections previous;
  for (const auto& [mode, selection] : previous_.families()) {
    auto rest = selection->clone();
    rest->discard(IsGone(model_));
    previous.add(std::move(rest));
  }
  select(std::move(previous), change);
}

/// The line of a change by hand stands on its own, so that it can be run again after whatever else was selected.
SelectionChange SelectionSet::asRecorded(const SelectionChange& change) const
{
  if (!change.byHand) return change;
  const auto* recorder = Shell::get().scriptRecorder();
  if (!recorder || !recorder->recording() || !recorder->implicitSelections()) return {};
  const auto line = selectByNameLine({.names = names(), .caseSensitive = true});
  auto recorded = recordedChange("selectByName", line, change.undoable);
  recorded.byHand = true;
  return recorded;
}

void SelectionSet::finish(Selections removed, Selections added, const SelectionChange& change)
{
  const auto pivotBefore = pivot_;
  if (change.updatePivot) {
    pivot_.isStale = true;
    pivotIsNews_ = true;
  }
  tellListeners();
  if (!change.undoable) return;
  const auto recorded = asRecorded(change);
  const bool recordsEmpty = current_.empty() && (!change.byHand || recorded.byHand);
  model_.commandStack().add(std::make_unique<SelectionCommand>(model_, std::move(removed), std::move(added),
                                                               pivotBefore, pivot_, recordsEmpty, recorded));
}

void SelectionSet::exchange(const Selections& leaving, const Selections& joining, const PivotState& pivot)
{
  auto before = current_;
  current_.remove(leaving);
  current_.add(joining);
  if (!current_.empty()) previous_ = std::move(before);
  markSelected(leaving, false, model_.sync());
  markSelected(joining, true, model_.sync());
  pivot_ = pivot;
  pivotIsNews_ = true;
  tellListeners();
}

void SelectionSet::tellListeners()
{
  for (auto* listener : listeners)
    listener->selectionChanged(!current_.empty());
  if (auto* tool = model_.tool()) tool->selectionChanged();
  Shell::get().selectionChanged(model_);
  model_.redrawViewports();
}

// ---- pivot -----------------------------------------------------------------------------------------------------

std::optional<osg::Vec3d> SelectionSet::pivot() const
{
  if (!pivot_.isStale) return pivot_.place;
  pivot_.isStale = false;
  osg::BoundingBoxd box;
  for (const auto& [mode, selection] : current_.families())
    box.expandBy(selection->boundingBox());
  pivot_.place = box.valid() ? std::optional<osg::Vec3d>(box.center()) : std::nullopt;
  return pivot_.place;
}

void SelectionSet::setPivot(const PivotState& pivot)
{
  pivot_ = pivot;
  pivotIsNews_ = true;
  model_.redrawViewports();
}

void SelectionSet::settlePivot()
{
  if (pivotListeners.empty() || !std::exchange(pivotIsNews_, false)) return;
  const auto place = pivot();
  if (!place) return;
  for (auto* listener : pivotListeners)
    listener->pivotChanged(*place);
}

// ---- records that come and go ----------------------------------------------------------------------------------

void SelectionSet::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  current_.replaceRecord(oldRecord, newRecord);
  previous_.replaceRecord(oldRecord, newRecord);
  newRecord.setMarks(oldRecord.marks());
  oldRecord.setMarks(0);
  auto* sync = model_.sync();
  for (auto* record : {&oldRecord, &newRecord}) {
    auto* node = record->asNode();
    if (sync && node) sync->highlight().markChanged(*node);
  }
}

void SelectionSet::forgetAll()
{
  if (current_.empty() && previous_.empty()) return;
  markSelected(current_, false, model_.sync());
  current_.clear();
  previous_.clear();
  pivot_ = {};
  tellListeners();
}

} // namespace nalt
