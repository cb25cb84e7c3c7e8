#pragma once

#include "fltapi/nodes/FaceRecord.h"

#include <set>

namespace fltapi {

/// Sums the positions of all vertices of the vertex lists that it meets.
class CalculatePivotVisitor : public RecordVisitor {
public:
  CalculatePivotVisitor() { revisit = true; }

  using RecordVisitor::apply;
  void apply(VertexListRecord& list) override
  {
    for (const auto& vertex : list.vertices())
      sum += vertex->position();
    count += list.vertexCount();
  }
  /// The origin when there were no vertices.
  osg::Vec3d mean() const { return count ? sum / count : sum; }

  osg::Vec3d sum;
  int count = 0;
};

/// Sums the unit normals of all polygons that it meets.
class CalculateAverageNormalVisitor : public RecordVisitor {
public:
  CalculateAverageNormalVisitor() { revisit = true; }

  using RecordVisitor::apply;
  void apply(FaceRecord& face) override
  {
    sum += face.normal();
    ++count;
    RecordVisitor::apply(face);
  }

  osg::Vec3d sum;
  int count = 0;
};

/// Transforms every vertex that it meets, each once. Normals turn with it and keep their unit length.
class TransformVerticesVisitor : public RecordVisitor {
public:
  explicit TransformVerticesVisitor(const osg::Matrixd& matrix) : matrix_(matrix) {}

  using RecordVisitor::apply;
  void apply(VertexListRecord& list) override
  {
    if (!done_.insert(&list).second) return;
    for (const auto& vertex : list.vertices()) {
      vertex->setPosition(vertex->position() * matrix_);
      if (const auto normal = vertex->normal()) {
        auto turned = osg::Matrixd::transform3x3(osg::Vec3d(*normal), matrix_);
        turned.normalize();
        vertex->setNormal(osg::Vec3f(turned));
      }
    }
  }

private:
  osg::Matrixd matrix_;
  std::set<const VertexListRecord*> done_;
};

} // namespace fltapi
