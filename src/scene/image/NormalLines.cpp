#include "scene/image/NormalLines.h"

#include "fltapi/AllRecords.h"
#include "scene/image/FaceGeometry.h"
#include "scene/image/MeshGeometry.h"
#include "scene/image/Tessellation.h"

#include <span>

namespace nalt {

namespace {

constexpr unsigned textureUnits = 8;

unsigned revisionOf(const osg::Geometry& geometry)
{
  const auto* faces = dynamic_cast<const FaceGeometry*>(&geometry);
  return faces ? faces->revision() : 0; // that of a mesh never changes
}

const osg::Vec3Array* vectors(const osg::Array* array)
{
  return static_cast<const osg::Vec3Array*>(array);
}

/// Lines of one geometry, moved to where it stands.
class Lines {
public:
  Lines(const osg::Matrixd& toWorld, double length)
      : toWorld_(toWorld), toLocal_(osg::Matrixd::inverse(toWorld)), length_(length)
  {}
  void add(const osg::Vec3& corner, const osg::Vec3& normal)
  {
    auto direction = osg::Matrixd::transform3x3(toLocal_, osg::Vec3d(normal));
    direction.normalize();
    const auto from = osg::Vec3d(corner) * toWorld_;
    ends_->push_back(osg::Vec3(from));
    ends_->push_back(osg::Vec3(from + direction * length_));
  }
  osg::ref_ptr<osg::Vec3Array> take() { return ends_; }

private:
  osg::Matrixd toWorld_;
  osg::Matrixd toLocal_;
  double length_;
  osg::ref_ptr<osg::Vec3Array> ends_ = new osg::Vec3Array;
};

/// The normals of a polygon that isn't lit, and so keeps none in its geometry.
std::vector<osg::Vec3> unlitNormals(const fltapi::VertexListRecord* list, std::span<const osg::Vec3> corners)
{
  auto whole = areaNormal(corners);
  whole.normalize();
  std::vector<osg::Vec3> normals(corners.size(), whole);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const auto* vertex = list ? list->vertexAt(static_cast<int>(i)) : nullptr;
    const auto normal = vertex ? vertex->normal().value_or(osg::Vec3f()) : osg::Vec3f();
    if (normal.length2() > 0) normals[i] = normal;
  }
  return normals;
}

bool hasNormals(const FaceGeometry& faces)
{
  const auto kind = faces.state().key().kind;
  return kind != DrawKind::outline && kind != DrawKind::points;
}

} // namespace

NormalLines::NormalLines()
{
  auto& state = *geode_->getOrCreateStateSet();
  state.setMode(GL_LIGHTING, osg::StateAttribute::OFF);
  for (unsigned unit = 0; unit < textureUnits; ++unit)
    state.setTextureMode(unit, GL_TEXTURE_2D, osg::StateAttribute::OFF);
  geode_->setName("normals");
}

void NormalLines::clear()
{
  geode_->removeChildren(0, geode_->getNumChildren());
  made_.clear();
}

bool NormalLines::isCurrent(std::size_t i, const GeometryPlaces::Place& place) const
{
  if ((settings_.onlySelection && !sameSelection_) || i >= made_.size()) return false;
  const auto& made = made_[i];
  return made.place.geometry == place.geometry && made.place.toWorld == place.toWorld &&
         made.place.isSelected == place.isSelected && made.revision == revisionOf(*place.geometry);
}

void NormalLines::update(osg::Node& scene, std::uint32_t viewportBits, const Settings& settings,
                         const IsSelected& isSelected, bool sameSelection)
{
  if (settings != settings_ || viewportBits != viewportBits_) clear();
  settings_ = settings;
  viewportBits_ = viewportBits;
  isSelected_ = settings.onlySelection ? isSelected : IsSelected();
  sameSelection_ = sameSelection;
  color_->front() = settings.color;

  GeometryPlaces visitor(viewportBits, settings.copies, isSelected_);
  scene.accept(visitor);
  const auto& places = visitor.places();
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (isCurrent(i, places[i])) continue;
    const auto lines = make(places[i]);
    const Made made{places[i], revisionOf(*places[i].geometry)};
    if (i < made_.size()) {
      geode_->setDrawable(static_cast<unsigned>(i), lines);
      made_[i] = made;
    } else {
      geode_->addDrawable(lines);
      made_.push_back(made);
    }
  }
  const auto count = static_cast<unsigned>(places.size());
  geode_->removeDrawables(count, geode_->getNumDrawables() - count);
  made_.resize(places.size());
  isSelected_ = {}; // may know things that don't outlive the call
}

osg::ref_ptr<osg::Geometry> NormalLines::make(const GeometryPlaces::Place& place) const
{
  Lines lines(place.toWorld, settings_.length);
  const auto& corners = *vectors(place.geometry->getVertexArray());
  const auto* normals = vectors(place.geometry->getNormalArray());
  const bool all = !settings_.onlySelection || place.isSelected;
  if (const auto* faces = dynamic_cast<const FaceGeometry*>(place.geometry.get())) {
    for (unsigned i = 0; const auto* polygon = hasNormals(*faces) ? faces->polygonAt(i) : nullptr; ++i) {
      const auto* record = polygon->record();
      if (!record || !polygon->isVisibleIn(viewportBits_)) continue;
      const auto first = static_cast<std::size_t>(polygon->getFirst());
      const auto count = static_cast<std::size_t>(polygon->getCount());
      const std::span<const osg::Vec3> own(&corners[first], count);
      const auto* list = record->findChild<fltapi::VertexListRecord>();
      const auto ownNormals =
          normals ? std::vector(&(*normals)[first], &(*normals)[first] + count) : unlitNormals(list, own);
      const bool whole = all || (isSelected_ && isSelected_(*record));
      for (std::size_t k = 0; k < count; ++k) {
        const auto* vertex = list && !whole ? list->vertexAt(static_cast<int>(k)) : nullptr;
        if (whole || (vertex && isSelected_ && isSelected_(*vertex))) lines.add(own[k], ownNormals[k]);
      }
    }
  } else if (normals && all) {
    for (std::size_t i = 0; i < corners.size(); ++i)
      lines.add(corners[i], (*normals)[i]);
  }

  osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
  geometry->setUseDisplayList(false);
  geometry->setUseVertexBufferObjects(true);
  const auto ends = lines.take();
  geometry->setVertexArray(ends);
  geometry->setColorArray(color_, osg::Array::BIND_OVERALL);
  geometry->addPrimitiveSet(new osg::DrawArrays(GL_LINES, 0, static_cast<GLsizei>(ends->size())));
  return geometry;
}

} // namespace nalt
