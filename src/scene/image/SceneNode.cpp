#include "scene/image/SceneNode.h"

#include "fltapi/AllRecords.h"
#include "scene/image/Finite.h"

#include <osg/MatrixTransform>
#include <osg/Switch>

#include <unordered_set>
#include <vector>

namespace nalt {

namespace {

using namespace fltapi;
using Shape = SceneNode::Shape;

Shape shapeFor(const PrimNodeRecord& record)
{
  const bool hasMatrix = record.findChild<MatrixRecord>();
  switch (record.opcode()) {
  case opcodes::dof:
    return Shape::transform;
  case opcodes::switchNode:
    return hasMatrix ? Shape::switchInTransform : Shape::switchNode;
  case opcodes::group:
    if (record.findChild<ReplicateRecord>()) return Shape::replicated;
    break;
  default:
    break;
  }
  return hasMatrix ? Shape::transform : Shape::group;
}

osg::Matrixd matrixOf(const PrimNodeRecord& record)
{
  auto matrix = record.localMatrix();
  if (record.opcode() == opcodes::dof) matrix = static_cast<const DofRecord&>(record).matrix() * matrix;
  return isFinite(matrix) ? matrix : osg::Matrixd();
}

/// The step from one copy of a replicated group to the next.
osg::Matrixd replicationStep(const PrimNodeRecord& group)
{
  osg::Matrixd step;
  for (const auto* record : group.findChildren(opcodes::matrix))
    step = step * static_cast<const MatrixRecord*>(record)->matrix();
  return isFinite(step) ? step : osg::Matrixd();
}

void moveChildren(osg::Group& from, osg::Group& to)
{
  for (unsigned i = 0; i < from.getNumChildren(); ++i)
    to.addChild(from.getChild(i));
  from.removeChildren(0, from.getNumChildren());
}

} // namespace

FaceGeodeParentUserData* FaceGeodeParentUserData::of(const osg::Node& node)
{
  return dynamic_cast<FaceGeodeParentUserData*>(const_cast<osg::Node&>(node).getUserData());
}

SceneNode SceneNode::make(PrimNodeRecord& record)
{
  SceneNode node;
  node.record = &record;
  node.build(shapeFor(record));
  const osg::ref_ptr<FaceGeodeParentUserData> data = new FaceGeodeParentUserData(&record);
  node.top->setUserData(data);
  node.content->setUserData(data);
  node.setMatrices();
  return node;
}

SceneNode SceneNode::makeLeaf(PrimNodeRecord& record, osg::Geode* geode)
{
  SceneNode node;
  node.record = &record;
  node.shape = Shape::leaf;
  node.top = node.content = geode;
  geode->setUserData(new FaceGeodeParentUserData(&record));
  return node;
}

void SceneNode::build(Shape wanted)
{
  shape = wanted;
  switch (wanted) {
  case Shape::transform:
    top = content = new osg::MatrixTransform;
    break;
  case Shape::switchNode:
    top = content = new osg::Switch;
    break;
  case Shape::switchInTransform:
    top = new osg::MatrixTransform;
    content = new osg::Switch;
    break;
  case Shape::replicated:
    top = new osg::Group;
    content = new osg::Group;
    break;
  default:
    top = content = new osg::Group;
  }
  if (top != content) top->addChild(content);
}

void SceneNode::update()
{
  if (shape == Shape::leaf) return;
  if (const auto wanted = shapeFor(*record); wanted != shape) {
    const SceneNode former = *this;
    build(wanted);
    moveChildren(*former.content, *content);
    for (const auto& node : {top, content})
      node->setUserData(former.top->getUserData());
    top->setNodeMask(former.top->getNodeMask());
    const auto parents = former.top->getParents();
    for (auto* parent : parents)
      parent->replaceChild(former.top, top);
  }
  setMatrices();
}

void SceneNode::setMatrices()
{
  if (shape == Shape::transform || shape == Shape::switchInTransform) {
    static_cast<osg::MatrixTransform&>(*top).setMatrix(matrixOf(*record));
    return;
  }
  if (shape != Shape::replicated) return;
  const auto count = static_cast<unsigned>(std::max(record->findChild<ReplicateRecord>()->count(), 0));
  while (top->getNumChildren() > 1 + count)
    top->removeChild(top->getNumChildren() - 1);
  const auto step = replicationStep(*record);
  auto matrix = step;
  for (unsigned i = 1; i <= count; ++i, matrix = matrix * step) {
    if (i == top->getNumChildren()) {
      osg::ref_ptr<osg::MatrixTransform> copy = new osg::MatrixTransform;
      copy->setName(SceneNode::replicationName);
      copy->addChild(content);
      top->addChild(copy);
    }
    if (!isFinite(matrix)) matrix = step; // copies that grow fast leave the range of numbers
    static_cast<osg::MatrixTransform&>(*top->getChild(i)).setMatrix(matrix);
  }
  top->dirtyBound();
}

bool isAbove(const osg::Node& node, const osg::Node& below)
{
  // Each node once: there are many more ways up than nodes where instances show instances.
  std::unordered_set<const osg::Node*> seen{&below};
  std::vector<const osg::Node*> open{&below};
  while (!open.empty()) {
    const auto* current = open.back();
    open.pop_back();
    if (current == &node) return true;
    for (unsigned i = 0; i < current->getNumParents(); ++i) {
      if (seen.insert(current->getParent(i)).second) open.push_back(current->getParent(i));
    }
  }
  return false;
}

} // namespace nalt
