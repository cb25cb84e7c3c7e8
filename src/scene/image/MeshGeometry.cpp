#include "scene/image/MeshGeometry.h"

#include <osg/State>

#include <set>
#include <vector>

namespace nalt {

namespace {

using Corners = std::vector<GLuint>;

/// Takes the polygons of indexed primitive sets apart.
class ShrunkMesh {
public:
  explicit ShrunkMesh(const osg::Geometry& mesh) : mesh_(mesh)
  {
    for (unsigned i = 0; i < mesh.getNumPrimitiveSets(); ++i)
      add(*mesh.getPrimitiveSet(i));
  }

  osg::ref_ptr<osg::Geometry> take()
  {
    osg::ref_ptr<osg::Geometry> geometry = new osg::Geometry;
    geometry->setUseDisplayList(false);
    geometry->setUseVertexBufferObjects(true);
    Corners corners;
    osg::ref_ptr<osg::Vec3Array> positions = new osg::Vec3Array;
    const auto append = [&](const Run& run) {
      corners.insert(corners.end(), run.corners.begin(), run.corners.end());
      positions->insert(positions->end(), run.positions.begin(), run.positions.end());
    };
    const auto addRun = [&](const Run& run, GLenum mode) {
      if (run.corners.empty()) return;
      geometry->addPrimitiveSet(
          new osg::DrawArrays(mode, static_cast<GLint>(corners.size()), static_cast<GLsizei>(run.corners.size())));
      append(run);
    };
    addRun(triangles_, GL_TRIANGLES);
    addRun(quads_, GL_QUADS);
    if (!polygonSizes_.empty()) {
      const osg::ref_ptr<osg::DrawArrayLengths> lengths =
          new osg::DrawArrayLengths(GL_POLYGON, static_cast<GLint>(corners.size()));
      lengths->assign(polygonSizes_.begin(), polygonSizes_.end());
      geometry->addPrimitiveSet(lengths);
      append(polygons_);
    }
    geometry->setVertexArray(positions);
    const auto bound = osg::Array::BIND_PER_VERTEX;
    geometry->setColorArray(picked<osg::Vec4ubArray>(mesh_.getColorArray(), corners), bound);
    geometry->setNormalArray(picked<osg::Vec3Array>(mesh_.getNormalArray(), corners), bound);
    for (unsigned unit = 0; unit < mesh_.getNumTexCoordArrays(); ++unit)
      geometry->setTexCoordArray(unit, picked<osg::Vec2Array>(mesh_.getTexCoordArray(unit), corners), bound);
    return geometry;
  }

private:
  struct Run {
    Corners corners;
    std::vector<osg::Vec3> positions;
  };

  template <class Array>
  static osg::ref_ptr<Array> picked(const osg::Array* source, const Corners& corners)
  {
    if (!source) return nullptr;
    const auto& values = static_cast<const Array&>(*source);
    osg::ref_ptr<Array> array = new Array;
    array->setNormalize(source->getNormalize());
    array->reserve(corners.size());
    for (const auto corner : corners)
      array->push_back(values[corner]);
    return array;
  }

  void add(const osg::PrimitiveSet& set)
  {
    const auto count = set.getNumIndices();
    const auto at = [&](unsigned i) { return set.index(i); };
    Corners all;
    switch (set.getMode()) {
    case GL_TRIANGLE_STRIP:
      for (unsigned i = 2; i < count; ++i)
        put(triangles_, i % 2 == 0 ? Corners{at(i - 2), at(i - 1), at(i)} : Corners{at(i - 1), at(i - 2), at(i)});
      break;
    case GL_TRIANGLE_FAN:
      for (unsigned i = 2; i < count; ++i)
        put(triangles_, {at(0), at(i - 1), at(i)});
      break;
    case GL_QUAD_STRIP:
      for (unsigned i = 3; i < count; i += 2)
        put(quads_, {at(i - 3), at(i - 2), at(i), at(i - 1)});
      break;
    case GL_TRIANGLES: // one polygon that was filled with them
      for (unsigned i = 0; i < count; ++i)
        all.push_back(at(i));
      put(triangles_, all);
      break;
    default:
      for (unsigned i = 0; i < count; ++i)
        all.push_back(at(i));
      put(polygons_, all);
      polygonSizes_.push_back(static_cast<GLsizei>(count));
    }
  }

  void put(Run& run, const Corners& polygon)
  {
    if (polygon.empty()) return;
    const auto& positions = static_cast<const osg::Vec3Array&>(*mesh_.getVertexArray());
    const std::set<GLuint> distinct(polygon.begin(), polygon.end());
    osg::Vec3d sum;
    for (const auto corner : distinct)
      sum += positions[corner];
    const osg::Vec3 center = sum / static_cast<double>(distinct.size());
    for (const auto corner : polygon) {
      run.corners.push_back(corner);
      run.positions.push_back(Shrinkable::shrink(positions[corner], center));
    }
  }

  const osg::Geometry& mesh_;
  Run triangles_;
  Run quads_;
  Run polygons_;
  std::vector<GLsizei> polygonSizes_;
};

} // namespace

MeshGeometry::MeshGeometry(const ViewportTable& viewports) : viewports_(&viewports)
{
  setUseDisplayList(false);
  setSupportsDisplayList(false);
  setUseVertexBufferObjects(true);
}

void MeshGeometry::prepareShrunk(bool shrunk)
{
  if (!shrunk)
    shrunk_ = nullptr;
  else
    this->shrunk();
}

const osg::Geometry& MeshGeometry::shrunk() const
{
  if (!shrunk_) shrunk_ = ShrunkMesh(*this).take();
  return *shrunk_;
}

void MeshGeometry::drawImplementation(osg::RenderInfo& renderInfo) const
{
  if (viewports_->shrinksIn(renderInfo.getContextID()))
    shrunk().drawImplementation(renderInfo);
  else
    osg::Geometry::drawImplementation(renderInfo);
}

void MeshGeometry::resizeGLObjectBuffers(unsigned maxSize)
{
  osg::Geometry::resizeGLObjectBuffers(maxSize);
  if (shrunk_) shrunk_->resizeGLObjectBuffers(maxSize);
}

void MeshGeometry::releaseGLObjects(osg::State* state) const
{
  osg::Geometry::releaseGLObjects(state);
  if (shrunk_) shrunk_->releaseGLObjects(state);
}

} // namespace nalt
