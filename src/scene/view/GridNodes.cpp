#include "scene/view/GridNodes.h"

#include <osg/Depth>
#include <osg/Geometry>
#include <osg/LineWidth>

#include <cstdint>
#include <utility>

namespace nalt {

namespace {

constexpr int background = -1; // painted before the model
constexpr float thinWidth = 1.0F;
constexpr float thickWidth = 2.0F;
/// Of a larger grid only every so many-th line is drawn: nobody could tell them apart, and they would fill the memory.
constexpr std::int64_t mostLines = 50000;

/// Lines of one colour after the other.
class LineSet {
public:
  void add(const osg::Vec3d& from, const osg::Vec3d& to)
  {
    vertices_->push_back(from);
    vertices_->push_back(to);
  }
  /// The lines since the last call have this colour.
  void endColor(const osg::Vec4f& color)
  {
    const auto end = static_cast<int>(vertices_->size());
    if (end == begin_) return;
    geometry_->addPrimitiveSet(new osg::DrawArrays(GL_LINES, begin_, end - begin_));
    colors_->push_back(color);
    begin_ = end;
  }
  osg::ref_ptr<osg::Geometry> geometry()
  {
    geometry_->setUseDisplayList(false);
    geometry_->setVertexArray(vertices_);
    geometry_->setColorArray(colors_, osg::Array::BIND_PER_PRIMITIVE_SET);
    return geometry_;
  }

private:
  osg::ref_ptr<osg::Geometry> geometry_ = new osg::Geometry;
  osg::ref_ptr<osg::Vec3Array> vertices_ = new osg::Vec3Array;
  osg::ref_ptr<osg::Vec4Array> colors_ = new osg::Vec4Array;
  int begin_ = 0;
};

/// The lines of a grid by their number, counted from the one through the origin, in both directions.
class Lines {
public:
  explicit Lines(const Grid& grid)
      : axes_(grid.axes()), origin_(grid.points().origin), spacing_(grid.spacing()), half_(grid.halfSize())
  {}

  void add(LineSet& set, std::int64_t number) const
  {
    const auto i = static_cast<double>(number);
    addTo(set, axes_.first * (i * spacing_), axes_.second);
    addTo(set, axes_.second * (i * spacing_), axes_.first);
  }

private:
  void addTo(LineSet& set, const osg::Vec3d& place, const osg::Vec3d& direction) const
  {
    const osg::Vec3d reach = direction * (half_ * spacing_);
    set.add(origin_ + place - reach, origin_ + place + reach);
  }

  Grid::Axes axes_;
  osg::Vec3d origin_;
  double spacing_;
  double half_;
};

void replaceDrawable(osg::Geode& geode, osg::ref_ptr<osg::Geometry> geometry)
{
  geode.removeDrawables(0, geode.getNumDrawables());
  if (geometry->getNumPrimitiveSets() > 0) geode.addDrawable(geometry);
}

} // namespace

GridNodes::GridNodes()
{
  for (auto& [geode, width] : {std::pair{thin_, thinWidth}, std::pair{thick_, thickWidth}}) {
    osg::StateSet& state = *geode->getOrCreateStateSet();
    state.setMode(GL_LIGHTING, osg::StateAttribute::OFF);
    state.setAttribute(new osg::LineWidth(width));
  }
  setDepth(GridDepth::zBuffer);
}

void GridNodes::rebuild(const Grid& grid)
{
  LineSet thin;
  LineSet thick;
  const Lines lines(grid);
  const std::int64_t half = grid.halfSize();
  const std::int64_t step = (half - 1) / mostLines + 1;
  for (std::int64_t i = step; i <= half; i += step) {
    LineSet& set = i / step % grid.thickLineNumber() == 0 ? thick : thin;
    lines.add(set, i);
    lines.add(set, -i);
  }
  thin.endColor(grid.color());
  thick.endColor(grid.color());
  lines.add(thick, 0);
  thick.endColor(grid.axisColor());
  replaceDrawable(*thin_, thin.geometry());
  replaceDrawable(*thick_, thick.geometry());
}

void GridNodes::setDepth(GridDepth depth)
{
  for (auto& geode : {thin_, thick_}) {
    osg::StateSet& state = *geode->getOrCreateStateSet();
    switch (depth) {
    case GridDepth::zBuffer:
      state.setAttributeAndModes(new osg::Depth(osg::Depth::LESS, 0.0, 1.0));
      break;
    case GridDepth::alwaysOnTop:
      state.setAttributeAndModes(new osg::Depth(osg::Depth::LESS, 0.0, 0.0));
      break;
    case GridDepth::neverOnTop:
      state.setAttributeAndModes(new osg::Depth(osg::Depth::ALWAYS, 1.0, 1.0));
      break;
    }
    state.setRenderBinDetails(depth == GridDepth::neverOnTop ? background : 0, "RenderBin");
  }
}

void GridNodes::show(osg::Group& root, bool shown)
{
  for (auto& geode : {thin_, thick_}) {
    if (shown && !root.containsNode(geode))
      root.addChild(geode);
    else if (!shown)
      root.removeChild(geode);
  }
}

} // namespace nalt
