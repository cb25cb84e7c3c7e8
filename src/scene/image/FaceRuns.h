#pragma once

#include <cstdint>
#include <osg/PolygonMode>
#include <osg/PrimitiveSet>
#include <osg/Referenced>
#include <vector>

namespace osg {
class RenderInfo;
class State;
} // namespace osg

namespace nalt {

class NaltPolygon;

/// The polygons of one geometry that one set of viewports shows, joined by kind so that each kind takes one call.
///
/// Filled, a polygon of many corners is a bunch of triangles. As an outline or as corners it must stay one polygon, or
/// its inner edges would show.
class FaceRuns : public osg::Referenced {
public:
  explicit FaceRuns(std::uint32_t viewportBits) : viewportBits_(viewportBits) {}

  std::uint32_t viewportBits() const { return viewportBits_; }
  void add(const NaltPolygon& polygon);
  /// To be called once, behind the last `add`.
  void finish();

  void draw(osg::State& state, bool useVertexBufferObjects, osg::PolygonMode::Mode mode) const;
  void resizeGLObjectBuffers(unsigned maxSize);
  void releaseGLObjects(osg::State* state) const;

protected:
  ~FaceRuns() override = default;

private:
  using Indices = osg::ref_ptr<osg::DrawElementsUInt>;
  enum Kind { points, lines, triangles, quads, fills, linePoints, kinds };
  osg::DrawElementsUInt& indices(Kind kind);
  void addLines(const NaltPolygon& polygon);
  void addFill(const NaltPolygon& polygon);

  std::uint32_t viewportBits_;
  Indices indices_[kinds];
  std::vector<GLint> outlineFirsts_;
  std::vector<GLsizei> outlineCounts_;
};

} // namespace nalt
