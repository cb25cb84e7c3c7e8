#include "scene/image/ShrunkFaces.h"

#include "scene/image/FaceGeometry.h"

#include <algorithm>

namespace nalt {

ShrunkFaces::ShrunkFaces(const FaceGeometry& faces) : faces_(faces)
{
  positions_->resize(static_cast<unsigned>(faces.cornerCount()));
  for (unsigned i = 0; const auto* polygon = faces.polygonAt(i); ++i)
    shrink(*polygon);

  auto& source = const_cast<FaceGeometry&>(faces); // sharing arrays changes none of them
  arrays_->setUseDisplayList(false);
  arrays_->setUseVertexBufferObjects(true);
  positions_->setVertexBufferObject(new osg::VertexBufferObject); // not a place in that of the shared ones
  arrays_->setVertexArray(positions_);
  arrays_->setColorArray(source.getColorArray(), osg::Array::BIND_PER_VERTEX);
  if (source.getNormalArray()) arrays_->setNormalArray(source.getNormalArray(), osg::Array::BIND_PER_VERTEX);
  for (unsigned unit = 0; unit < source.getNumTexCoordArrays(); ++unit) {
    if (auto* layer = source.getTexCoordArray(unit))
      arrays_->setTexCoordArray(unit, layer, osg::Array::BIND_PER_VERTEX);
  }
}

void ShrunkFaces::shrink(const NaltPolygon& polygon)
{
  const auto& corners = static_cast<const osg::Vec3Array&>(*faces_.getVertexArray());
  const auto first = static_cast<std::size_t>(polygon.getFirst());
  const auto end = first + static_cast<std::size_t>(polygon.getCount());
  if (polygon.getMode() == GL_POINTS) { // lights, each for itself
    std::copy(corners.begin() + polygon.getFirst(), corners.begin() + polygon.getFirst() + polygon.getCount(),
              positions_->begin() + polygon.getFirst());
    return;
  }
  osg::Vec3d sum;
  for (auto i = first; i < end; ++i)
    sum += corners[i];
  const osg::Vec3 center = sum / polygon.getCount();
  for (auto i = first; i < end; ++i)
    (*positions_)[i] = Shrinkable::shrink(corners[i], center);
}

void ShrunkFaces::update(const NaltPolygon& polygon)
{
  shrink(polygon);
  positions_->dirty();
}

} // namespace nalt
