#include "scene/image/NaltPolygon.h"

#include "scene/image/FaceGeometry.h"

#include <osg/State>

namespace nalt {

NaltPolygon::NaltPolygon(FaceGeometry& geometry, fltapi::PrimNodeRecord* record, GLenum mode, int first, int count)
    : osg::DrawArrays(mode, first, count), geometry_(&geometry), record_(record)
{}

void NaltPolygon::setMask(std::uint32_t mask)
{
  if (mask == mask_) return;
  const auto before = mask_;
  mask_ = mask;
  if (geometry_) geometry_->maskChanged(before, mask);
}

bool NaltPolygon::setTriangles(const std::vector<GLuint>& triangles)
{
  if (triangles.empty()) {
    if (!triangles_) return false;
    triangles_.reset();
    return true;
  }
  if (triangles_ && *triangles_ == triangles) return false;
  triangles_ = std::make_unique<std::vector<GLuint>>(triangles);
  return true;
}

std::vector<GLuint> NaltPolygon::trianglesInArrays() const
{
  std::vector<GLuint> indices;
  if (!triangles_) return indices;
  indices.reserve(triangles_->size());
  for (const auto corner : *triangles_)
    indices.push_back(corner + static_cast<GLuint>(getFirst()));
  return indices;
}

void NaltPolygon::draw(osg::State& state, bool useVertexBufferObjects) const
{
  if (geometry_ && !isVisibleIn(geometry_->viewports().bitsOf(state.getContextID()))) return;
  if (!triangles_) {
    osg::DrawArrays::draw(state, useVertexBufferObjects);
    return;
  }
  const auto indices = trianglesInArrays();
  state.unbindElementBufferObject();
  state.glDrawElementsInstanced(GL_TRIANGLES, static_cast<GLsizei>(indices.size()), GL_UNSIGNED_INT, indices.data(), 1);
}

void NaltPolygon::accept(osg::PrimitiveFunctor& functor) const
{
  if (!triangles_) {
    osg::DrawArrays::accept(functor);
    return;
  }
  const auto indices = trianglesInArrays();
  functor.drawElements(GL_TRIANGLES, static_cast<GLsizei>(indices.size()), indices.data());
}

void NaltPolygon::accept(osg::PrimitiveIndexFunctor& functor) const
{
  if (!triangles_) {
    osg::DrawArrays::accept(functor);
    return;
  }
  const auto indices = trianglesInArrays();
  functor.drawElements(GL_TRIANGLES, static_cast<GLsizei>(indices.size()), indices.data());
}

} // namespace nalt
