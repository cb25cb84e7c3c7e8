#include "scene/image/HighlightGeometry.h"

#include "fltapi/geometry/VertexListRecord.h"
#include "scene/image/FaceGeometry.h"
#include "scene/image/Marks.h"

#include <osg/State>

namespace nalt {

namespace {

/// The marked corners and edges of one polygon. Its corners in the arrays are those of its list, in the same order.
void addParts(const NaltPolygon& polygon, HighlightGeometry::Lists& lists)
{
  const auto* list = polygon.record()->findChild<fltapi::VertexListRecord>();
  if (!list || list->vertexCount() != polygon.getCount()) return;
  const auto first = static_cast<GLuint>(polygon.getFirst());
  const auto count = static_cast<GLuint>(polygon.getCount());
  for (GLuint i = 0; i < count; ++i) {
    const auto marks = list->vertices()[i]->marks();
    if (marks & Mark::selected) lists.corners->push_back(first + i);
    if (!(marks & Mark::edge)) continue;
    lists.edges->push_back(first + i);
    lists.edges->push_back(first + (i + 1) % count);
  }
}

} // namespace

HighlightGeometry::HighlightGeometry(FaceGeometry& source, osg::Vec3Array& positions) : source_(&source)
{
  setUseDisplayList(false);
  setSupportsDisplayList(false);
  setUseVertexBufferObjects(true);
  setDataVariance(osg::Object::DYNAMIC);
  setVertexArray(&positions);
}

const HighlightGeometry::Lists& HighlightGeometry::listsFor(std::uint32_t viewportBits) const
{
  for (const auto& lists : lists_) {
    if (lists->polygons->viewportBits() == viewportBits) return *lists;
  }
  auto& lists = *lists_.emplace_back(new Lists(viewportBits));
  lists.corners->setName(FaceGeometry::largeVerticesName);
  for (unsigned i = 0; const auto* polygon = source_->polygonAt(i); ++i) {
    if (!polygon->marks() || !polygon->isVisibleIn(viewportBits)) continue;
    if (polygon->marks() & Mark::selected) lists.polygons->add(*polygon);
    if (polygon->marks() & Mark::parts) addParts(*polygon, lists);
  }
  lists.polygons->finish();
  return lists;
}

osg::BoundingBox HighlightGeometry::computeBoundingBox() const
{
  return source_ ? source_->getBoundingBox() : osg::BoundingBox();
}

void HighlightGeometry::drawImplementation(osg::RenderInfo& renderInfo) const
{
  if (!source_) return;
  const bool shrinks = source_->viewports().shrinksIn(renderInfo.getContextID());
  (shrinks ? source_->shrunk().arrays() : *this).drawVertexArraysImplementation(renderInfo);
  auto& state = *renderInfo.getState();
  const bool buffers = state.useVertexBufferObject(_supportsVertexBufferObjects && _useVertexBufferObjects);
  const auto& lists = listsFor(source_->viewports().bitsOf(state.getContextID()));
  lists.polygons->draw(state, buffers, osg::PolygonMode::LINE);
  for (const auto* indices : {lists.edges.get(), lists.corners.get()}) {
    if (indices->empty()) continue;
    state.unbindElementBufferObject();
    glDrawElements(indices->getMode(), static_cast<GLsizei>(indices->size()), GL_UNSIGNED_INT,
                   indices->getDataPointer());
  }
}

void HighlightGeometry::resizeGLObjectBuffers(unsigned maxSize)
{
  osg::Geometry::resizeGLObjectBuffers(maxSize);
  for (const auto& lists : lists_)
    lists->polygons->resizeGLObjectBuffers(maxSize);
}

void HighlightGeometry::releaseGLObjects(osg::State* state) const
{
  osg::Geometry::releaseGLObjects(state);
  for (const auto& lists : lists_)
    lists->polygons->releaseGLObjects(state);
}

} // namespace nalt
