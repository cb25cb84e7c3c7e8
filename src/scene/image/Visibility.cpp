#include "scene/image/Visibility.h"

#include "fltapi/AllRecords.h"
#include "scene/image/ModUserData.h"
#include "scene/image/Sync.h"

namespace nalt {

namespace {

using namespace fltapi;

void setVisible(const Nodes& nodes, bool visible, std::uint32_t bits, Sync& scene)
{
  HideVisitor visitor(!visible, bits, scene);
  for (auto* node : nodes)
    node->accept(visitor);
}

/// Where a node is shown in several places, all of them count.
void showAbove(const PrimNodeRecord& node, std::uint32_t bits, Sync& scene)
{
  std::vector<PrimNodeRecord*> above;
  if (node.opcode() == opcodes::instanceDefinition) {
    for (auto* reference : scene.referencesTo(static_cast<const InstanceDefinitionRecord&>(node)))
      above.push_back(reference);
  } else if (node.parent()) {
    above.push_back(node.parent());
  }
  for (auto* record : above) {
    if (auto* data = ModUserData::find(*record)) data->setVisible(true, bits, scene, /*traverse=*/false);
    showAbove(*record, bits, scene);
  }
}

} // namespace

HideVisitor::HideVisitor(bool hide, std::uint32_t bits, Sync& scene)
    : RecordVisitor(TraversalMode::none), hide_(hide), bits_(bits), scene_(scene)
{}

void HideVisitor::apply(PrimNodeRecord& record)
{
  if (record.externalFile()) return;
  ModUserData::of(record).setVisible(!hide_, bits_, scene_, /*traverse=*/true);
}

UpdateVisibilityVisitor::UpdateVisibilityVisitor(Sync& scene)
    : RecordVisitor(TraversalMode::notExternals), scene_(scene)
{}

void UpdateVisibilityVisitor::apply(PrimNodeRecord& record)
{
  if (record.opcode() == opcodes::vertexList || record.externalFile()) return;
  if (auto* data = ModUserData::find(record)) data->setVisible(true, 0, scene_, /*traverse=*/false);
  scene_.setNodeMask(record, ModUserData::nodeMaskOf(record));
  RecordVisitor::apply(static_cast<Record&>(record));
}

void hide(const Nodes& nodes, std::uint32_t bits, Sync& scene)
{
  setVisible(nodes, false, bits, scene);
}

void unhide(const Nodes& nodes, std::uint32_t bits, Sync& scene)
{
  setVisible(nodes, true, bits, scene);
  for (const auto* node : nodes)
    showAbove(*node, bits, scene);
}

void unhideAll(std::uint32_t bits, Sync& scene)
{
  if (auto* header = scene.file().header()) unhide({header}, bits, scene);
}

/// The header itself stays, or nothing could be shown below it again.
void isolate(const Nodes& nodes, std::uint32_t bits, Sync& scene)
{
  auto* header = scene.file().header();
  if (!header) return;
  ModUserData::SetLodVisibleVisitor hideAll(false, bits, scene);
  header->traverse(hideAll);
  unhide(nodes, bits, scene);
}

} // namespace nalt
