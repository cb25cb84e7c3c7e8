#include "scene/image/TranslateVisitor.h"

#include "fltapi/AllRecords.h"
#include "scene/image/Finite.h"
#include "scene/image/LightPoints.h"
#include "scene/image/Meshes.h"
#include "scene/image/ModUserData.h"
#include "scene/image/Sync.h"

#include <algorithm>

namespace nalt {

namespace {

using namespace fltapi;

constexpr const char* numberGeodeName = "numbergeode";

/// Corners that all copies of one polygon may have together.
constexpr int mostCopiedCorners = 1 << 22;

/// Matrices by which a replicated face or light point with that many corners is shown again.
std::vector<osg::Matrixd> copiesOf(const PrimNodeRecord& record, int corners)
{
  std::vector<osg::Matrixd> matrices;
  const auto* replicate = record.findChild<ReplicateRecord>();
  if (!replicate) return matrices;
  osg::Matrixd step;
  for (const auto* child : record.findChildren(opcodes::matrix))
    step = step * static_cast<const MatrixRecord*>(child)->matrix();
  auto matrix = step;
  const int most = mostCopiedCorners / std::max(corners, 1);
  for (int i = 0; i < std::min(replicate->count(), most) && isFinite(matrix); ++i, matrix = matrix * step)
    matrices.push_back(matrix);
  return matrices;
}

PolygonShape moved(PolygonShape shape, const osg::Matrixd& matrix)
{
  for (auto& position : shape.positions)
    position = osg::Vec3(osg::Vec3d(position) * matrix);
  for (auto& normal : shape.normals) {
    normal = osg::Vec3(osg::Matrixd::transform3x3(osg::Vec3d(normal), matrix));
    normal.normalize();
  }
  return shape;
}

/// The shape, its outline if there is one, and the copies of both.
void putFace(FaceStore& faces, PrimNodeRecord& record, osg::Group& holder, const FaceStore::Part& whole,
             const FaceStore::Part* outline)
{
  const auto copies = copiesOf(record, whole.shape->cornerCount());
  if (copies.empty() && !outline) {
    faces.put(record, holder, {&whole, 1});
    return;
  }
  std::vector<FaceStore::Part> parts{whole};
  if (outline) parts.push_back(*outline);
  const auto originals = parts.size();
  std::vector<PolygonShape> shapes;
  shapes.reserve(copies.size() * originals);
  for (const auto& copy : copies) {
    for (std::size_t i = 0; i < originals; ++i) {
      auto shape = moved(*parts[i].shape, copy);
      if (!std::ranges::all_of(shape.positions, [](const auto& corner) { return isFinite(corner); })) continue;
      parts.push_back({parts[i].state, &shapes.emplace_back(std::move(shape))});
    }
  }
  faces.put(record, holder, parts);
}

} // namespace

bool TranslateVisitor::translateNode(PrimNodeRecord& record)
{
  auto* holder = sync_.holderOf(record);
  if (!holder) return false;
  const auto [place, isNew] = sync_.nodes_.try_emplace(record.serial());
  auto& node = place->second;
  if (isNew)
    node = SceneNode::make(record);
  else
    node.update();
  if (node.top->getNumParents() == 0) holder->addChild(node.top);
  sync_.highlight_->placesChanged();
  sync_.applyMask(record);
  return true;
}

/// Goes on below a record. Instances can nest levels without end where no file is deep by itself; what is deeper than
/// anybody can walk isn't shown.
void TranslateVisitor::goOn(PrimNodeRecord& record)
{
  const auto depth = sync_.depth_++;
  if (depth < deepestLevel) RecordVisitor::apply(static_cast<Record&>(record));
  sync_.depth_ = depth;
}

void TranslateVisitor::apply(PrimNodeRecord& record)
{
  if (translateNode(record)) goOn(record);
}

void TranslateVisitor::apply(HeaderRecord& record)
{
  if (record.serial() != sync_.headerSerial_) {
    apply(static_cast<PrimNodeRecord&>(record));
    return;
  }
  sync_.applyMask(record);
  goOn(record);
}

void TranslateVisitor::apply(LodRecord& record)
{
  if (!translateNode(record)) return;
  sync_.lods_[record.serial()] = &record;
  sync_.lodsChanged_ = true;
  goOn(record);
}

void TranslateVisitor::apply(SwitchRecord& record)
{
  if (!translateNode(record)) return;
  sync_.waitingSwitches_[record.serial()] = &record;
  goOn(record);
}

/// The transparency of an object is in the corners of its polygons.
void TranslateVisitor::apply(ObjectRecord& record)
{
  if (!translateNode(record)) return;
  if (traversalMode == TraversalMode::none)
    retranslateFaces(record);
  else
    goOn(record);
}

void TranslateVisitor::apply(LightPointSystemRecord& record)
{
  if (!translateNode(record)) return;
  if (traversalMode == TraversalMode::none)
    retranslateFaces(record);
  else
    goOn(record);
}

void TranslateVisitor::retranslateFaces(PrimNodeRecord& parent)
{
  for (auto* child : parent.primaryChildren()) {
    if (!child->holdsSubfaces() && child->opcode() != opcodes::mesh) continue;
    child->accept(*this);
    retranslateFaces(*child);
  }
}

void TranslateVisitor::apply(FaceRecord& record)
{
  auto* holder = sync_.holderOf(record);
  if (!holder) return;
  auto& translator = sync_.translator_;
  const auto place = FacePlace::of(record);
  const auto key = translator.keyOf(record, place);
  auto& state = sync_.stateSets_.find(key, record.file());
  auto& shape = sync_.shape_;
  translator.describe(record, place, state, shape);
  if (shape.cornerCount() == 0) {
    sync_.faces_.remove(record);
  } else if (FaceTranslator::hasOutline(record)) {
    auto outlineShape = shape;
    translator.describeOutline(record, outlineShape);
    auto& outlineState = sync_.stateSets_.find(translator.outlineKeyOf(key), record.file());
    const FaceStore::Part outline{&outlineState, &outlineShape};
    putFace(sync_.faces_, record, *holder, {&state, &shape}, &outline);
  } else {
    putFace(sync_.faces_, record, *holder, {&state, &shape}, nullptr);
  }
  if (record.marks()) sync_.showMarks(record);
  maskPolygon(record);
  goOn(record);
}

/// Where only the polygon itself was touched, its siblings below a switch needn't be looked at.
void TranslateVisitor::maskPolygon(const PrimNodeRecord& record)
{
  if (traversalMode == TraversalMode::none)
    sync_.setNodeMask(record, ModUserData::nodeMaskOf(record));
  else
    sync_.applyMask(record);
}

void TranslateVisitor::apply(MeshRecord& record)
{
  auto* holder = sync_.holderOf(record);
  if (!holder) return;
  const auto place = FacePlace::of(record);
  auto& state = sync_.stateSets_.find(sync_.translator_.keyOf(record, place), record.file());
  const auto geometry = meshGeometry(record, place, state, sync_.translator_, *sync_.viewports_);

  auto& node = sync_.nodes_[record.serial()];
  if (!node.top) node = SceneNode::makeLeaf(record, new NaltGeode);
  if (node.top->getNumParents() == 0) {
    holder->addChild(node.top);
    sync_.highlight_->placesChanged();
  }
  node.top->setStateSet(state.stateSetWithRoom());
  node.top->removeChildren(0, node.top->getNumChildren());
  if (geometry) {
    geometry->setUserData(new Sync::FaceUserData(record));
    node.top->addChild(geometry);
  }
  sync_.applyMask(record);
}

void TranslateVisitor::translateLightPoint(PrimNodeRecord& record)
{
  auto* holder = sync_.holderOf(record);
  if (!holder) return;
  auto& node = sync_.nodes_[record.serial()];
  if (!node.top) {
    const osg::ref_ptr<osg::Geode> numbers = new osg::Geode;
    numbers->setName(numberGeodeName);
    node = SceneNode::makeLeaf(record, numbers);
  }
  if (node.top->getNumParents() == 0) holder->addChild(node.top);

  auto& state = sync_.stateSets_.find(keyOfLightPoint(record, FacePlace::of(record).subfaceDepth), record.file());
  auto& shape = sync_.shape_;
  describeLightPoint(record, sync_.translator_.colorsOf(record.file()), shape);
  if (shape.cornerCount() == 0)
    sync_.faces_.remove(record);
  else
    putFace(sync_.faces_, record, *holder, {&state, &shape}, nullptr);
  if (record.marks()) sync_.showMarks(record);
  sync_.applyMask(record);
  goOn(record);
}

void TranslateVisitor::apply(LightPointRecord& record)
{
  translateLightPoint(record);
}

void TranslateVisitor::apply(IndexedLightPointRecord& record)
{
  translateLightPoint(record);
}

/// The content of a file is translated once, below a node for its header that all references share.
void TranslateVisitor::apply(ExternalRecord& record)
{
  if (!translateNode(record)) return;
  auto* header = record.referencedFile() ? record.referencedFile()->header() : nullptr;
  auto& node = sync_.nodes_.at(record.serial());
  if (node.link == (header ? header->serial() : 0)) return;
  sync_.unlink(node);
  if (!header) return;
  const auto& content = sync_.ensureShown(*header);
  node.link = header->serial();
  sync_.link(node, content);
}

/// The body of an instance is translated once, below a node for its definition that all references share. One that
/// leads back to itself isn't shown inside itself.
void TranslateVisitor::apply(InstanceReferenceRecord& record)
{
  if (!translateNode(record)) return;
  auto* definition = record.file() ? record.file()->instanceDefinition(record.instanceNumber()) : nullptr;
  auto& node = sync_.nodes_.at(record.serial());
  if (node.link == (definition ? definition->serial() : 0)) return;
  sync_.unlink(node);
  if (!definition) return;
  sync_.instances_[definition->serial()].insert(&record);
  node.link = definition->serial();
  const auto& body = sync_.ensureShown(*definition);
  sync_.link(node, body);
}

/// References that found no definition when they were translated find it now.
void TranslateVisitor::apply(InstanceDefinitionRecord& record)
{
  if (traversalMode == TraversalMode::none || !record.file() || !record.file()->header()) return;
  std::vector<Record*> references = record.file()->header()->findDescendants(opcodes::instanceReference, false);
  for (auto* reference : references) {
    if (static_cast<InstanceReferenceRecord*>(reference)->instanceNumber() == record.instanceNumber())
      apply(static_cast<InstanceReferenceRecord&>(*reference));
  }
}

} // namespace nalt
