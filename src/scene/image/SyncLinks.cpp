#include "fltapi/AllRecords.h"
#include "scene/image/RemoveVisitor.h"
#include "scene/image/ShownWays.h"
#include "scene/image/Sync.h"

#include <algorithm>
#include <utility>

// What references to instances and files show.

namespace nalt {

namespace {

using namespace fltapi;

/// How often a frame may come again to nodes that it has drawn: far more than models for any simulator need, and still
/// a matter of seconds.
constexpr double mostRepetitions = 1 << 18;

/// Whether a record belongs to what references show.
bool isInSharedPart(const PrimNodeRecord& record)
{
  if (record.externalFile()) return true;
  const auto* node = &record;
  while (node && node->opcode() != opcodes::instanceDefinition)
    node = node->parent();
  return node;
}

} // namespace

void Sync::link(SceneNode& node, const SceneNode& linked)
{
  if (isAbove(*linked.top, *node.content)) return;
  node.content->addChild(linked.top);
  linksChanged_ = true;
  linksNest_ = linksNest_ || isInSharedPart(*node.record);
}

void Sync::unlink(SceneNode& node)
{
  const auto serial = std::exchange(node.link, 0);
  const auto linked = nodes_.find(serial);
  if (serial == 0 || linked == nodes_.end()) return;
  node.content->removeChild(linked->second.top);
  linksChanged_ = true;
  cutLinks_.erase(node.record->serial());
  highlight_->placesChanged();
  if (node.record->opcode() == opcodes::instanceReference)
    instances_[serial].erase(static_cast<InstanceReferenceRecord*>(node.record.get()));
  dropIfUnused(serial);
}

void Sync::dropIfUnused(std::uint32_t linkedSerial)
{
  const auto linked = nodes_.find(linkedSerial);
  if (linked == nodes_.end() || linked->second.top->getNumParents() > 0) return;
  const auto waits = [&](std::uint32_t reference) {
    const auto found = nodes_.find(reference);
    return found != nodes_.end() && found->second.link == linkedSerial;
  };
  if (std::ranges::any_of(cutLinks_, waits)) return;
  instances_.erase(linkedSerial);
  const auto record = linked->second.record;
  UnassociateChildVisitor visitor(*this);
  record->accept(visitor);
  shownFiles_.erase(linkedSerial);
}

void Sync::limitLinks()
{
  for (const auto reference : std::exchange(cutLinks_, {})) {
    auto* node = nodes_.contains(reference) ? &nodes_.at(reference) : nullptr;
    const auto linked = node ? nodes_.find(node->link) : nodes_.end();
    if (linked != nodes_.end()) link(*node, linked->second);
  }
  linksChanged_ = false;

  SharedGroups shared;
  for (const auto& [serial, node] : nodes_) {
    if (const auto linked = node.link ? nodes_.find(node.link) : nodes_.end(); linked != nodes_.end())
      shared.insert(linked->second.top);
  }
  const auto tooOften = shownTooOften(*root_, shared, mostRepetitions);
  if (tooOften.empty()) return;
  const SharedGroups cut(tooOften.begin(), tooOften.end());
  for (auto& [serial, node] : nodes_) {
    const auto linked = node.link ? nodes_.find(node.link) : nodes_.end();
    if (linked == nodes_.end() || !cut.contains(linked->second.top)) continue;
    if (node.content->removeChild(linked->second.top)) cutLinks_.insert(serial);
  }
  highlight_->placesChanged();
  if (!std::exchange(toldOfLimit_, true))
    file_->warn("References to references show the same things more often than can be drawn. Some are left out.");
}

} // namespace nalt
