#include "scene/image/FaceStore.h"

#include "fltapi/PrimNodeRecord.h"
#include "scene/image/FaceCullCallback.h"
#include "scene/image/SceneNode.h"

namespace nalt {

namespace {

NaltGeode* geodeOf(const FaceGeometry& geometry)
{
  return geometry.getNumParents() ? static_cast<NaltGeode*>(const_cast<osg::Group*>(geometry.getParent(0))) : nullptr;
}

FaceGeometry& geometryOf(NaltGeode& geode)
{
  return static_cast<FaceGeometry&>(*geode.getDrawable(0));
}

bool hangsBelow(const FaceGeometry& geometry, const osg::Group& holder)
{
  const auto* geode = geodeOf(geometry);
  return geode && geode->getNumParents() && geode->getParent(0) == &holder;
}

void takeAway(FaceGeometry& geometry)
{
  const osg::ref_ptr<NaltGeode> geode = geodeOf(geometry);
  if (!geode) return;
  const auto parents = geode->getParents();
  for (auto* parent : parents) {
    if (auto* data = FaceGeodeParentUserData::of(*parent)) data->remove(geode);
    parent->removeChild(geode);
  }
}

} // namespace

FaceStore::FaceStore(ViewportTable& viewports) : viewports_(&viewports), cullCallback_(new FaceCullCallback(viewports))
{}

NaltPolygon* FaceStore::find(const fltapi::PrimNodeRecord& record) const
{
  const auto found = polygons_.find(record.serial());
  return found == polygons_.end() ? nullptr : found->second;
}

FaceStore::Polygons FaceStore::all(const fltapi::PrimNodeRecord& record) const
{
  Polygons polygons;
  if (auto* first = find(record)) polygons.push_back(first);
  if (const auto more = more_.find(record.serial()); more != more_.end())
    polygons.insert(polygons.end(), more->second.begin(), more->second.end());
  return polygons;
}

void FaceStore::put(fltapi::PrimNodeRecord& record, osg::Group& holder, std::span<const Part> parts)
{
  auto mask = ViewportTable::allBits;
  if (const auto polygons = all(record); !polygons.empty()) {
    if (rewrite(polygons, holder, parts)) return;
    mask = polygons.front()->mask();
    remove(record);
  }
  if (parts.empty()) return;
  polygons_[record.serial()] = append(record, holder, parts.front());
  for (const auto& part : parts.subspan(1))
    more_[record.serial()].push_back(append(record, holder, part));
  if (mask != ViewportTable::allBits) setMask(record, mask);
}

bool FaceStore::rewrite(const Polygons& polygons, const osg::Group& holder, std::span<const Part> parts)
{
  if (polygons.size() != parts.size()) return false;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto* geometry = polygons[i]->geometry();
    const bool fits = &geometry->state() == parts[i].state &&
                      polygons[i]->getCount() == parts[i].shape->cornerCount() && hangsBelow(*geometry, holder);
    if (!fits) return false;
  }
  for (std::size_t i = 0; i < parts.size(); ++i)
    polygons[i]->geometry()->rewrite(*polygons[i], *parts[i].shape);
  return true;
}

NaltPolygon* FaceStore::append(fltapi::PrimNodeRecord& record, osg::Group& holder, const Part& part)
{
  return geometryFor(holder, part).append(*part.shape, &record);
}

FaceGeometry& FaceStore::geometryFor(osg::Group& holder, const Part& part)
{
  openGeodesOf(holder);
  auto*& geode = openGeodes_[part.state];
  if (!geode || !geometryOf(*geode).hasRoomFor(part.shape->cornerCount())) geode = addGeode(holder, *part.state);
  return geometryOf(*geode);
}

void FaceStore::openGeodesOf(osg::Group& holder)
{
  if (openHolder_ == &holder) return;
  openHolder_ = &holder;
  openGeodes_.clear();
  for (auto* geode : FaceGeodeParentUserData::of(holder)->faceGeodes())
    openGeodes_[&geometryOf(*geode).state()] = geode;
}

NaltGeode* FaceStore::addGeode(osg::Group& holder, FaceState& state)
{
  const osg::ref_ptr<FaceGeometry> geometry = new FaceGeometry(state, *viewports_);
  geometry->setCullCallback(cullCallback_);
  // A point has no size; it isn't left out for being small.
  if (state.key().kind == DrawKind::points) geometry->setCullingActive(false);
  const osg::ref_ptr<NaltGeode> geode = new NaltGeode;
  geode->setStateSet(state.stateSetWithRoom());
  geode->addDrawable(geometry);
  holder.addChild(geode);
  FaceGeodeParentUserData::of(holder)->add(geode);
  return geode;
}

void FaceStore::setMask(const fltapi::PrimNodeRecord& record, std::uint32_t mask)
{
  auto* first = find(record);
  if (!first) return;
  first->setMask(mask);
  if (const auto more = more_.find(record.serial()); more != more_.end()) {
    for (auto* polygon : more->second)
      polygon->setMask(mask);
  }
}

void FaceStore::setMarks(const fltapi::PrimNodeRecord& record, std::uint8_t marks, Highlight& highlight)
{
  const auto mark = [&](NaltPolygon& polygon) {
    auto* geometry = polygon.geometry();
    if (geometry && geometry->setMarks(polygon, marks)) highlight.geometryChanged(*geometry);
  };
  if (auto* first = find(record)) mark(*first);
  if (more_.empty()) return;
  if (const auto more = more_.find(record.serial()); more != more_.end()) {
    for (auto* polygon : more->second)
      mark(*polygon);
  }
}

void FaceStore::remove(const fltapi::PrimNodeRecord& record)
{
  for (auto* polygon : all(record)) {
    auto* geometry = polygon->geometry();
    geometry->remove(*polygon);
    waiting_.insert(geometry);
  }
  forget(record);
}

void FaceStore::forget(const fltapi::PrimNodeRecord& record)
{
  polygons_.erase(record.serial());
  more_.erase(record.serial());
}

void FaceStore::flush()
{
  if (!waiting_.empty()) openHolder_ = nullptr;
  for (const auto& geometry : waiting_) {
    if (geometry->polygonCount() == 0)
      takeAway(*geometry);
    else
      geometry->compact();
  }
  waiting_.clear();
}

std::vector<fltapi::PrimNodeRecord*> FaceStore::records() const
{
  std::vector<fltapi::PrimNodeRecord*> records;
  records.reserve(polygons_.size());
  for (const auto& [serial, polygon] : polygons_)
    records.push_back(polygon->record());
  return records;
}

void FaceStore::clear()
{
  polygons_.clear();
  more_.clear();
  waiting_.clear();
  openHolder_ = nullptr;
}

} // namespace nalt
