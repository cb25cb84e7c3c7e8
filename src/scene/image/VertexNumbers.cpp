#include "scene/image/VertexNumbers.h"

#include "scene/image/FaceGeometry.h"
#include "scene/image/MeshGeometry.h"
#include "scene/image/VertexNumber.h"

#include <osg/MatrixTransform>

#include <algorithm>

namespace nalt {

namespace {

/// How far the number of a corner stands away from it, towards the middle of the polygon: 0 not at all, 1 there.
constexpr float inset = 0.15F;

/// By number, where corners have it.
using PlacesByNumber = std::vector<std::vector<osg::Vec3>>;

void put(PlacesByNumber& places, int number, const osg::Vec3& place)
{
  const auto index = static_cast<std::size_t>(number);
  if (index >= places.size()) places.resize(index + 1);
  places[index].push_back(place);
}

void gather(const FaceGeometry& faces, std::uint32_t viewportBits, PlacesByNumber& places)
{
  const auto kind = faces.state().key().kind;
  if (kind == DrawKind::outline) return; // the polygon below it has the numbers
  const auto& corners = static_cast<const osg::Vec3Array&>(*faces.getVertexArray());
  for (unsigned i = 0; const auto* polygon = faces.polygonAt(i); ++i) {
    if (!polygon->isVisibleIn(viewportBits)) continue;
    const auto first = static_cast<std::size_t>(polygon->getFirst());
    const auto count = static_cast<std::size_t>(polygon->getCount());
    osg::Vec3d sum;
    for (std::size_t k = 0; k < count; ++k)
      sum += corners[first + k];
    const osg::Vec3 center = sum / static_cast<double>(count);
    const float way = kind == DrawKind::points ? 0 : inset;
    for (std::size_t k = 0; k < count; ++k)
      put(places, static_cast<int>(k), corners[first + k] + (center - corners[first + k]) * way);
  }
}

unsigned revisionOf(const osg::Geometry& geometry)
{
  const auto* faces = dynamic_cast<const FaceGeometry*>(&geometry);
  return faces ? faces->revision() : 0; // that of a mesh never changes
}

} // namespace

void VertexNumbers::clear()
{
  group_->removeChildren(0, group_->getNumChildren());
  made_.clear();
  places_.clear();
}

bool VertexNumbers::isCurrent(const std::vector<GeometryPlaces::Place>& places) const
{
  return std::ranges::equal(places, places_, [&](const auto& now, const auto& before) {
    return now.geometry == before.geometry && now.toWorld == before.toWorld &&
           made_.at(before.geometry).revision == revisionOf(*now.geometry);
  });
}

void VertexNumbers::update(osg::Node& scene, std::uint32_t viewportBits)
{
  if (viewportBits != viewportBits_) clear();
  viewportBits_ = viewportBits;
  GeometryPlaces visitor(viewportBits);
  scene.accept(visitor);
  if (isCurrent(visitor.places())) return;

  group_->removeChildren(0, group_->getNumChildren());
  places_ = visitor.places();
  Cache made;
  for (const auto& place : visitor.places()) {
    auto& entry = made[place.geometry];
    if (!entry.geode) {
      const auto revision = revisionOf(*place.geometry);
      const auto former = made_.find(place.geometry);
      const bool isCurrent = former != made_.end() && former->second.revision == revision;
      entry = isCurrent ? former->second : Made{make(*place.geometry, viewportBits), revision};
    }
    const osg::ref_ptr<osg::MatrixTransform> transform = new osg::MatrixTransform(place.toWorld);
    transform->addChild(entry.geode);
    group_->addChild(transform);
  }
  made_ = std::move(made);
}

osg::ref_ptr<osg::Geode> VertexNumbers::make(const osg::Geometry& geometry, std::uint32_t viewportBits)
{
  PlacesByNumber places;
  if (const auto* faces = dynamic_cast<const FaceGeometry*>(&geometry)) {
    gather(*faces, viewportBits, places);
  } else {
    int number = 0;
    for (const auto& corner : static_cast<const osg::Vec3Array&>(*geometry.getVertexArray()))
      put(places, number++, corner);
  }
  osg::ref_ptr<osg::Geode> geode = new osg::Geode;
  geode->setName(geodeName);
  for (int number = 0; auto& corners : places)
    geode->addDrawable(new VertexNumber(number++, std::move(corners)));
  return geode;
}

} // namespace nalt
