#include "scene/image/Highlight.h"

#include "scene/image/FaceGeometry.h"
#include "scene/image/HighlightState.h"
#include "scene/image/Marks.h"
#include "scene/image/Sync.h"

#include <osg/MatrixTransform>
#include <osg/Switch>

#include <algorithm>

namespace nalt {

namespace {

/// Shows a node of the model a second time without becoming its parent: the model knows nothing of it.
class SceneLink : public osg::Node {
public:
  explicit SceneLink(osg::Node& target) : target_(&target) { setCullingActive(false); }
  void traverse(osg::NodeVisitor& visitor) override { target_->accept(visitor); }
  osg::BoundingSphere computeBound() const override { return target_->getBound(); }

protected:
  ~SceneLink() override = default;

private:
  osg::ref_ptr<osg::Node> target_;
};

/// Keeps what hangs below a highlighted place away where the place itself isn't shown: it is hidden in that viewport,
/// or a switch above it is off.
class WayCallback : public osg::NodeCallback {
public:
  explicit WayCallback(const osg::NodePath& way) : way_(way.begin(), way.end()) {}

  void operator()(osg::Node* node, osg::NodeVisitor* visitor) override
  {
    if (isOpen(visitor->getTraversalMask())) traverse(node, visitor);
  }

private:
  bool isOpen(osg::Node::NodeMask bits) const
  {
    for (std::size_t i = 0; i < way_.size(); ++i) {
      if (!(way_[i]->getNodeMask() & bits)) return false;
      const auto* node = way_[i]->asSwitch();
      if (node && i + 1 < way_.size() && !node->getChildValue(way_[i + 1])) return false;
    }
    return true;
  }

  std::vector<osg::ref_ptr<osg::Node>> way_;
};

osg::ref_ptr<osg::Group> wayTo(const osg::NodePath& path)
{
  const auto matrix = osg::computeLocalToWorld(path);
  osg::ref_ptr<osg::Group> way;
  if (matrix.isIdentity()) {
    way = new osg::Group;
  } else {
    way = new osg::MatrixTransform(matrix);
    way->setName(Highlight::transformName);
  }
  way->setCullingActive(false);
  way->setCullCallback(new WayCallback(path));
  return way;
}

osg::Group* holderOf(const HighlightGeometry& geometry)
{
  const auto* source = geometry.source();
  if (!source || !source->hasMarks() || source->getNumParents() == 0) return nullptr;
  const auto* geode = source->getParent(0);
  return geode->getNumParents() ? const_cast<osg::Group*>(geode->getParent(0)) : nullptr;
}

} // namespace

Highlight::Highlight(Sync& sync) : sync_(&sync)
{
  setCullingActive(false);
  for (const auto& group : {blackHighlightGroup(), whiteHighlightGroup()}) {
    group->addChild(places_);
    addChild(group);
  }
}

void Highlight::detach()
{
  sync_ = nullptr;
  placeOf_.clear();
  places_->removeChildren(0, places_->getNumChildren());
}

void Highlight::markChanged(fltapi::PrimNodeRecord& node)
{
  if (node.externalFile()) {
    if (node.marks())
      foreign_.insert(node.serial());
    else
      foreign_.erase(node.serial());
  }
  if (node.holdsSubfaces())
    sync_->showMarks(node);
  else
    waitingNodes_.emplace_back(&node);
}

std::uint8_t Highlight::marksOf(const fltapi::PrimNodeRecord& polygon) const
{
  return polygon.externalFile() && !foreign_.contains(polygon.serial()) ? 0 : polygon.marks();
}

void Highlight::geometryChanged(FaceGeometry& geometry)
{
  waitingGeometries_.emplace_back(&geometry.highlight());
}

void Highlight::update()
{
  if (!sync_) return;
  for (const auto& node : std::exchange(waitingNodes_, {})) {
    if (node->marks() & Mark::selected)
      nodes_[node->serial()] = node;
    else
      nodes_.erase(node->serial());
    if (!stale_) hangLink(node->serial(), *node);
  }
  for (const auto& geometry : std::exchange(waitingGeometries_, {})) {
    geometries_.insert(geometry);
    if (!stale_) hang(*geometry);
  }
  if (stale_) rebuild();
}

void Highlight::rebuild()
{
  stale_ = false;
  placeOf_.clear();
  links_.clear();
  places_->removeChildren(0, places_->getNumChildren());
  std::erase_if(geometries_, [](const auto& geometry) { return !holderOf(*geometry); });
  for (const auto& geometry : geometries_)
    hang(*geometry);
  for (const auto& [serial, node] : nodes_)
    hangLink(serial, *node);
}

void Highlight::hang(HighlightGeometry& geometry)
{
  const osg::ref_ptr<HighlightGeometry> keep = &geometry;
  takeOut(geometry);
  if (auto* holder = holderOf(geometry))
    addBelow(*holder, geometry);
  else
    geometries_.erase(keep);
}

void Highlight::hangLink(std::uint32_t serial, fltapi::PrimNodeRecord& record)
{
  if (const auto former = links_.find(serial); former != links_.end()) {
    takeOut(*former->second);
    links_.erase(former);
  }
  auto* shown = sync_->shownNodeOf(record);
  if (!shown || !nodes_.contains(serial)) return;
  const osg::ref_ptr<SceneLink> link = new SceneLink(*shown);
  links_[serial] = link;
  if (shown == sync_->root())
    places_->addChild(link);
  else if (shown->getNumParents())
    addBelow(*shown->getParent(0), *link);
}

void Highlight::addBelow(osg::Group& holder, osg::Node& item)
{
  auto& place = placeOf_[&holder];
  place.content->addChild(&item);
  if (!place.ways.empty()) return;
  place.content->setCullingActive(false);
  for (const auto& path : holder.getParentalNodePaths(sync_->root())) {
    if (path.front() != sync_->root()) continue;
    const auto way = wayTo(path);
    way->addChild(place.content);
    places_->addChild(way);
    place.ways.push_back(way);
  }
}

/// Empty places stay until the next rebuild: the same is often selected again.
void Highlight::takeOut(osg::Node& item)
{
  while (item.getNumParents())
    item.getParent(item.getNumParents() - 1)->removeChild(&item);
}

void Highlight::traverse(osg::NodeVisitor& visitor)
{
  if (visitor.getVisitorType() == osg::NodeVisitor::CULL_VISITOR) update();
  osg::Group::traverse(visitor);
}

} // namespace nalt
