#include "core/hierarchy/SetParent.h"

#include "core/ApiReference.h"
#include "core/Model.h"
#include "core/Shell.h"
#include "fltapi/Containment.h"
#include "fltapi/Opcodes.h"

#include <memory>
#include <utility>

namespace nalt {

namespace {

using fltapi::PrimNodeRecord;
namespace op = fltapi::opcodes;

/// A polygon's nearest object; without one the nearest node above it that is no polygon.
PrimNodeRecord* holderOf(PrimNodeRecord& polygon)
{
  PrimNodeRecord* nearest = nullptr;
  for (auto* above = polygon.parent(); above; above = above->parent()) {
    if (above->opcode() == op::object) return above;
    if (!nearest && above->opcode() != op::face) nearest = above;
  }
  return nearest;
}

/// The node that the selection of a single element means.
PrimNodeRecord* meantBy(const Selections& selections)
{
  PrimNodeRecord* meant = nullptr;
  selections.families().begin()->second->forEach([&](PrimNodeRecord& node, fltapi::VertexBaseRecord*) {
    meant = node.opcode() == op::face ? holderOf(node) : &node;
  });
  return meant;
}

bool isExternal(const PrimNodeRecord& node)
{
  return node.externalFile() || node.opcode() == op::external;
}

bool refuse(const std::string& reason)
{
  Shell::get().warning("Can't set parent based on " + reason);
  return false;
}

} // namespace

SetParentCommand::SetParentCommand(Model& model, PrimNodeRecord* before, PrimNodeRecord* after)
    : Command("Set Parent"), model_(model), other_(before), current_(after)
{}

void SetParentCommand::exchange()
{
  model_.setCurrentParent(other_);
  model_.checkParent();
  std::swap(other_, current_);
}

void SetParentCommand::replaceRecord(fltapi::Record& oldRecord, fltapi::Record& newRecord)
{
  for (auto* record : {&other_, &current_})
    if (*record == &oldRecord) *record = newRecord.asNode();
}

std::string SetParentCommand::scriptText() const
{
  return "nalt.setParent()";
}

std::string SetParentCommand::commentText() const
{
  return ApiReference::commentText("setParent");
}

bool setParent(Model& model, bool undoable)
{
  const auto& selections = model.selections().current();
  if (selections.empty()) return false;
  if (selections.size() > 1) return refuse("multiple selection.");
  auto* node = meantBy(selections);
  if (!node) return false;
  if (isExternal(*node)) return refuse("externally referenced selection.");
  if (node->opcode() == op::instanceReference) return refuse("an instance reference selection.");
  if (!fltapi::canContain(node->opcode(), op::lightPoint)) return refuse("the type of primitive selected.");

  osg::ref_ptr<PrimNodeRecord> before = model.currentParent();
  model.setCurrentParent(node);
  if (undoable) model.commandStack().add(std::make_unique<SetParentCommand>(model, before, node));
  return true;
}

} // namespace nalt
