#include "fltapi/AllRecords.h"
#include "scene/image/ModUserData.h"
#include "scene/image/Sync.h"

#include <osg/Switch>

// The parts of the image that depend on states: switches and levels of detail.

namespace nalt {

namespace {

using namespace fltapi;

/// Faces can say themselves that nobody sees them.
bool isHidden(const PrimNodeRecord& record)
{
  const auto flagsOf = [&]<class FaceLike>(const FaceLike& face) { return face.get(FaceLike::fields.flags); };
  switch (record.opcode()) {
  case opcodes::face:
    return flagsOf(static_cast<const FaceRecord&>(record)) & FaceRecord::hiddenFlag;
  case opcodes::mesh:
    return flagsOf(static_cast<const MeshRecord&>(record)) & FaceRecord::hiddenFlag;
  default:
    return false;
  }
}

/// Polygons have no node that the scene's switch could turn off.
void maskPolygons(FaceStore& faces, const PrimNodeRecord& record, bool shown)
{
  faces.setMask(record, shown && !isHidden(record) ? ModUserData::nodeMaskOf(record) : 0);
  for (const auto* child : record.primaryChildren()) {
    if (child->holdsSubfaces()) maskPolygons(faces, *child, shown);
  }
}

/// The child of the nearest node that isn't a polygon through which `record` is reached.
const PrimNodeRecord& childOfNode(const PrimNodeRecord& record)
{
  const auto* child = &record;
  while (child->parent() && child->parent()->holdsSubfaces())
    child = child->parent();
  return *child;
}

const SwitchRecord* switchAbove(const PrimNodeRecord& record)
{
  const auto* parent = childOfNode(record).parent();
  return parent && parent->opcode() == opcodes::switchNode ? static_cast<const SwitchRecord*>(parent) : nullptr;
}

} // namespace

void Sync::setNodeMask(const PrimNodeRecord& record, std::uint32_t mask)
{
  ++revision_;
  if (isHidden(record)) mask = 0;
  if (record.holdsSubfaces()) {
    const auto* above = switchAbove(record);
    const bool shown = !above || above->shows(above->primaryIndexOf(childOfNode(record)));
    faces_.setMask(record, shown ? mask : 0);
  }
  const auto* node = find(record);
  if (!node) return;
  if (record.opcode() == opcodes::mesh) {
    if (node->top->getNumChildren()) node->top->getChild(0)->setNodeMask(mask);
    return;
  }
  const auto lod = lods_.find(record.serial());
  const bool shown = lod == lods_.end() || allLods_ || lodStates_.shows(*lod->second, lodState_);
  node->top->setNodeMask(shown ? mask : 0);
}

/// Below a switch polygons wait for the end of the call, when all of them are looked at together.
void Sync::applyMask(const PrimNodeRecord& record)
{
  if (const auto* above = switchAbove(record)) {
    waitingSwitches_[above->serial()] = above;
    if (record.holdsSubfaces() && !find(record)) return; // light points have a node too
  }
  setNodeMask(record, ModUserData::nodeMaskOf(record));
}

void Sync::refreshSwitch(const SwitchRecord& record)
{
  const auto* node = find(record);
  if (!node) return;
  auto& scene = static_cast<osg::Switch&>(*node->content);
  std::unordered_map<const osg::Node*, unsigned> places;
  for (unsigned i = 0; i < scene.getNumChildren(); ++i)
    places[scene.getChild(i)] = i;

  int index = 0;
  for (const auto* child : record.primaryChildren()) {
    const bool shown = record.shows(index++);
    if (child->holdsSubfaces()) maskPolygons(faces_, *child, shown);
    const auto* childNode = find(*child);
    const auto place = childNode ? places.find(childNode->top) : places.end();
    if (place != places.end()) scene.setValue(place->second, shown);
  }
}

void Sync::refreshLods()
{
  lodsChanged_ = false;
  const bool nearest = lodState_ >= stateCount() - 1;
  CreateLodStatesVisitor visitor(TraversalMode::none);
  for (const auto& [serial, lod] : lods_)
    lod->accept(visitor);
  lodStates_ = visitor.states();
  if (nearest || lodState_ >= stateCount()) lodState_ = std::max(stateCount() - 1, 0);
  for (const auto& [serial, lod] : lods_)
    setNodeMask(*lod, ModUserData::nodeMaskOf(*lod));
}

void Sync::setLodState(int state)
{
  ++revision_;
  lodState_ = std::clamp(state, 0, std::max(stateCount() - 1, 0));
  for (const auto& [serial, lod] : lods_)
    setNodeMask(*lod, ModUserData::nodeMaskOf(*lod));
}

void Sync::setShowsAllLods(bool all)
{
  allLods_ = all;
  setLodState(lodState_);
}

} // namespace nalt
