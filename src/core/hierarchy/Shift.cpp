#include "core/hierarchy/Shift.h"

#include "core/ApiReference.h"
#include "core/Model.h"
#include "core/Shell.h"
#include "core/WaitCursor.h"
#include "fltapi/Opcodes.h"
#include "scene/image/Sync.h"

#include <algorithm>
#include <memory>
#include <ranges>
#include <unordered_set>

namespace nalt {

namespace {

using fltapi::PrimNodeRecord;
using fltapi::Record;
using Chosen = std::unordered_set<const Record*>;

constexpr ShiftInfo shifts[] = {
    {Shift::farLeft, "Shift Far Left", "shiftFarLeft"},
    {Shift::left, "Shift Left", "shiftLeft"},
    {Shift::right, "Shift Right", "shiftRight"},
    {Shift::farRight, "Shift Far Right", "shiftFarRight"},
};

/// A child that can change places: the vertices of a polygon stay where they are.
bool isMovable(const Record& child)
{
  return child.isPrimary() && child.opcode() != fltapi::opcodes::vertexList;
}

/// Each chosen one changes places with the one in front of it that isn't chosen.
template <std::ranges::random_access_range Nodes>
void stepForward(Nodes&& nodes, const Chosen& chosen)
{
  for (auto it = std::ranges::begin(nodes); it != std::ranges::end(nodes); ++it)
    if (it != std::ranges::begin(nodes) && chosen.contains(*it) && !chosen.contains(*std::prev(it)))
      std::swap(*it, *std::prev(it));
}

void reorder(std::vector<Record*>& nodes, const Chosen& chosen, Shift shift)
{
  const auto isChosen = [&](const Record* node) { return chosen.contains(node); };
  switch (shift) {
  case Shift::farLeft:
    std::ranges::stable_partition(nodes, isChosen);
    break;
  case Shift::left:
    stepForward(nodes, chosen);
    break;
  case Shift::right:
    stepForward(nodes | std::views::reverse, chosen);
    break;
  case Shift::farRight:
    std::ranges::stable_partition(nodes, std::not_fn(isChosen));
    break;
  }
}

/// All children of `parent` as they stand after the shift.
ShiftCommand::Order orderAfter(const PrimNodeRecord& parent, const Chosen& chosen, Shift shift)
{
  std::vector<Record*> movable;
  for (auto* child : parent.children())
    if (isMovable(*child)) movable.push_back(child);
  reorder(movable, chosen, shift);
  ShiftCommand::Order order;
  auto next = movable.begin();
  for (auto* child : parent.children())
    order.emplace_back(isMovable(*child) ? *next++ : child);
  return order;
}

bool refuse(const char* text)
{
  Shell::get().warning(text);
  return false;
}

} // namespace

const ShiftInfo& infoOf(Shift shift)
{
  return *std::ranges::find(shifts, shift, &ShiftInfo::shift);
}

ShiftCommand::ShiftCommand(Model& model, Shift shift, PrimNodeRecord& parent, Order after)
    : Command(infoOf(shift).commandName), model_(model), shift_(shift), parent_(&parent), after_(std::move(after))
{
  for (auto* child : parent.children())
    before_.emplace_back(child);
}

void ShiftCommand::arrange(const Order& order)
{
  auto& children = parent_->children();
  std::vector<osg::ref_ptr<Record>> moved;
  for (int i = 0; i < children.size(); ++i)
    if (children[i] != order[static_cast<std::size_t>(i)]) moved.emplace_back(children[i]);
  auto* sync = moved.empty() ? nullptr : model_.sync();
  if (sync) sync->remove(moved);
  for (int i = 0; i < children.size(); ++i) {
    const auto* wanted = order[static_cast<std::size_t>(i)].get();
    if (children[i] == wanted) continue;
    const bool oneGoesBack = i + 1 < children.size() && children[i + 1] == wanted;
    if (oneGoesBack) {
      const auto place = std::ranges::find(order, children[i], [](const auto& record) { return record.get(); });
      parent_->moveChild(i, static_cast<int>(place - order.begin()));
    } else {
      parent_->moveChild(wanted->index(), i);
    }
  }
  if (sync) {
    sync->translate(moved);
    sync->update(*parent_);
  }
  model_.setDirty(true);
}

void ShiftCommand::replaceRecord(Record& oldRecord, Record& newRecord)
{
  if (parent_ == &oldRecord) parent_ = newRecord.asNode();
  for (auto* order : {&before_, &after_})
    std::ranges::replace(*order, osg::ref_ptr<Record>(&oldRecord), osg::ref_ptr<Record>(&newRecord));
}

std::string ShiftCommand::scriptText() const
{
  return std::string("nalt.") + infoOf(shift_).function + "()";
}

std::string ShiftCommand::commentText() const
{
  return ApiReference::commentText(infoOf(shift_).function);
}

bool shiftSelected(Model& model, Shift shift, bool undoable)
{
  Chosen chosen;
  std::unordered_set<PrimNodeRecord*> parents;
  bool external = false;
  for (const auto& [mode, selection] : model.selections().current().families()) {
    selection->forEach([&](PrimNodeRecord& node, const fltapi::VertexBaseRecord* vertex) {
      if (vertex || !node.parent()) return;
      external = external || node.externalFile();
      chosen.insert(&node);
      parents.insert(node.parent());
    });
  }
  if (chosen.empty()) return false;
  if (external) return refuse("Can't modify externally referenced geometry.");
  if (parents.size() > 1) return refuse("Only records with the same parent can be shifted simultaneously.");

  const WaitCursor cursor;
  auto& parent = **parents.begin();
  auto command = std::make_unique<ShiftCommand>(model, shift, parent, orderAfter(parent, chosen, shift));
  const bool moves = !command->changesNothing();
  command->redo();
  if (undoable) model.commandStack().add(std::move(command));
  return moves;
}

} // namespace nalt
