#include "scene/image/Sync.h"

#include "fltapi/AllRecords.h"
#include "scene/image/RemoveVisitor.h"
#include "scene/image/ShrinkVisitor.h"
#include "scene/image/TranslateVisitor.h"

#include <algorithm>
#include <array>

namespace nalt {

namespace {

using namespace fltapi;

/// Records whose scene node the rest of the program may ask for.
constexpr std::array opcodesWithNode = {
    opcodes::group,
    opcodes::object,
    opcodes::dof,
    opcodes::external,
    opcodes::lod,
    opcodes::switchNode,
    opcodes::lightPoint,
    opcodes::indexedLightPoint,
    opcodes::lightPointSystem,
};

/// The node that changed when `record` did.
PrimNodeRecord* changedNode(Record& record)
{
  auto* node = record.asNode();
  if (!node) return changedNode(*record.parent());
  switch (node->opcode()) {
  case opcodes::vertexList:
  case opcodes::morphVertexList:
  case opcodes::localVertexPool:
  case opcodes::meshPrimitive:
    return node->parent();
  default:
    return node;
  }
}

bool isPaletteEntry(const Record& record)
{
  return record.isAncillary() && record.parent() && record.parent()->opcode() == opcodes::header;
}

} // namespace

Sync::Sync(FltFile& file) : file_(&file)
{
  clear();
}

Sync::~Sync()
{
  highlight_->detach();
}

void Sync::clear()
{
  root_->removeChildren(0, root_->getNumChildren());
  nodes_.clear();
  shownFiles_.clear();
  lods_.clear();
  instances_.clear();
  waitingSwitches_.clear();
  cutLinks_.clear();
  linksNest_ = false;
  faces_.clear();
  highlight_->placesChanged();
  headerSerial_ = 0;
  root_->setUserData(nullptr);
  auto* header = file_->header();
  if (!header) return;
  headerSerial_ = header->serial();
  const osg::ref_ptr<FaceGeodeParentUserData> data = new FaceGeodeParentUserData(header);
  root_->setUserData(data);
  auto& node = nodes_[headerSerial_];
  node.record = header;
  node.top = node.content = root_;
}

void Sync::translateAll()
{
  const bool nearest = lodState_ >= stateCount() - 1;
  clear();
  if (auto* header = file_->header()) translateOne(*header);
  finish();
  if (nearest) setLodState(stateCount() - 1);
}

void Sync::translate(Record& record)
{
  translateOne(record);
  finish();
}

void Sync::update(Record& record)
{
  updateOne(record);
  finish();
}

void Sync::remove(Record& record)
{
  removeOne(record);
  finish();
}

void Sync::translateOne(Record& record)
{
  auto* node = record.asNode();
  if (!node || node->externalFile()) return;
  TranslateVisitor visitor(*this, TraversalMode::all);
  node->accept(visitor);
}

void Sync::updateOne(Record& record)
{
  if (isPaletteEntry(record)) {
    updatePalette(record.opcode(), /*reload=*/true);
    return;
  }
  if (!record.asNode() && !record.parent()) return;
  auto* node = changedNode(record);
  if (!node || node->externalFile()) return;
  TranslateVisitor visitor(*this, TraversalMode::none);
  node->accept(visitor);
}

void Sync::removeOne(Record& record)
{
  auto* node = record.asNode();
  if (!node || node->externalFile() || node->serial() == headerSerial_) return;
  RemoveVisitor visitor(*this);
  node->accept(visitor);
}

void Sync::setShrinkingBits(std::uint32_t bits)
{
  const auto former = viewports_->shrinkingBits();
  viewports_->setShrinkingBits(bits);
  if ((bits != 0) == (former != 0)) return;
  ShrinkVisitor visitor(bits != 0);
  root_->accept(visitor);
}

void Sync::noteMove()
{
  ++revision_;
  highlight_->placesChanged();
}

void Sync::finish()
{
  ++revision_;
  faces_.flush();
  if (lodsChanged_) refreshLods();
  if (std::exchange(linksChanged_, false) && linksNest_) limitLinks();
  const auto switches = std::exchange(waitingSwitches_, {});
  for (const auto& [serial, record] : switches)
    refreshSwitch(*record);
  translator_ = FaceTranslator(complaints_);
}

void Sync::updatePalette(int opcode, bool reload)
{
  if (reload && opcode == opcodes::texturePalette) stateSets_.textures().forgetAll();
  if (reload && opcode == opcodes::shaderPalette) stateSets_.shaders().forgetAll();
  const bool isLook = opcode == opcodes::colorPalette || opcode == opcodes::lightPointAppearancePalette;
  if (stateSets_.rebuild() || isLook) recolorFaces();
}

/// Colors of corners are copies of what the palettes say.
void Sync::recolorFaces()
{
  translator_ = FaceTranslator(complaints_);
  TranslateVisitor visitor(*this, TraversalMode::none);
  for (auto* record : faces_.records())
    record->accept(visitor);
  std::vector<PrimNodeRecord*> meshes;
  for (const auto& [serial, node] : nodes_) {
    if (node.record->opcode() == opcodes::mesh) meshes.push_back(node.record);
  }
  for (auto* mesh : meshes)
    mesh->accept(visitor);
  finish();
}

// ---- from records to nodes and back
// ----------------------------------------------------------------------------------

SceneNode* Sync::find(const Record& record)
{
  const auto found = nodes_.find(record.serial());
  return found == nodes_.end() ? nullptr : &found->second;
}

const SceneNode* Sync::find(const Record& record) const
{
  return const_cast<Sync*>(this)->find(record);
}

osg::Node* Sync::nodeOf(const Record& record) const
{
  if (record.opcode() == opcodes::header) return record.serial() == headerSerial_ ? root_ : nullptr;
  if (std::ranges::find(opcodesWithNode, record.opcode()) == opcodesWithNode.end()) return nullptr;
  const auto* node = find(record);
  return node ? node->top : nullptr;
}

NaltGeode* Sync::meshGeodeOf(const MeshRecord& mesh) const
{
  const auto* node = find(mesh);
  return node ? static_cast<NaltGeode*>(node->top.get()) : nullptr;
}

PrimNodeRecord* Sync::recordOf(const osg::Node& node)
{
  if (const auto* data = FaceGeodeParentUserData::of(node)) return data->record();
  const auto* data = dynamic_cast<const FaceUserData*>(node.getUserData());
  return data ? &data->record() : nullptr;
}

PrimNodeRecord* Sync::recordOf(const osg::Drawable& drawable, unsigned primitiveSet)
{
  if (const auto* geometry = dynamic_cast<const FaceGeometry*>(&drawable)) {
    const auto* polygon = geometry->polygonAt(primitiveSet);
    return polygon ? polygon->record() : nullptr;
  }
  return recordOf(drawable);
}

void Sync::showMarks(const PrimNodeRecord& polygon)
{
  faces_.setMarks(polygon, highlight_->marksOf(polygon), *highlight_);
}

osg::Node* Sync::shownNodeOf(const PrimNodeRecord& record) const
{
  const auto* node = find(record);
  return node ? node->top.get() : nullptr;
}

std::vector<InstanceReferenceRecord*> Sync::referencesTo(const InstanceDefinitionRecord& definition) const
{
  const auto found = instances_.find(definition.serial());
  if (found == instances_.end()) return {};
  return {found->second.begin(), found->second.end()};
}

osg::Group* Sync::holderOf(const PrimNodeRecord& record)
{
  auto* parent = record.parent();
  while (parent && parent->holdsSubfaces())
    parent = parent->parent();
  auto* node = parent ? find(*parent) : nullptr;
  return node ? node->content : nullptr;
}

const SceneNode& Sync::ensureShown(PrimNodeRecord& shared)
{
  const auto [place, isNew] = nodes_.try_emplace(shared.serial());
  auto& node = place->second; // stays where it is when the map grows
  if (!isNew) return node;
  node = SceneNode::make(shared);
  if (shared.opcode() == opcodes::header) shownFiles_[shared.serial()] = shared.file();
  TranslateVisitor visitor(*this, TraversalMode::all);
  shared.traverse(visitor);
  return node;
}

} // namespace nalt
