#pragma once

#include <osg/NodeVisitor>
#include <osg/Vec3>

#include <set>

namespace nalt {

/// A drawable that can show its polygons shrunk, in the viewports that ask for it. Where the polygons really are stays
/// as it is.
class Shrinkable {
public:
  /// Makes ready what the shrunk polygons need, or gives it back.
  virtual void prepareShrunk(bool shrunk) = 0;

  /// How far a corner moves towards the centre of its polygon: 0 not at all, 1 the whole way.
  static constexpr float shrinkFactor = 0.1F;
  /// Where a corner lies in the shrunk polygon.
  static osg::Vec3 shrink(const osg::Vec3& corner, const osg::Vec3& center)
  {
    return corner + (center - corner) * shrinkFactor;
  }

protected:
  ~Shrinkable() = default;
};

/// Prepares all drawables of a scene for showing their polygons shrunk, or gives back what that took. What is shown in
/// several places is visited once.
class ShrinkVisitor : public osg::NodeVisitor {
public:
  explicit ShrinkVisitor(bool shrunk);
  using osg::NodeVisitor::apply;
  void apply(osg::Node& node) override;
  void apply(osg::Drawable& drawable) override;

private:
  bool shrunk_;
  std::set<const osg::Node*> visited_;
};

} // namespace nalt
