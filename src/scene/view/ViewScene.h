#pragma once

#include "scene/view/GridNodes.h"
#include "scene/view/ViewportPreferences.h"

#include <osg/Group>
#include <osg/Point>

#include <cstdint>

namespace nalt {

enum class Appearance { scribed = 1, solid = 2, wireframe = 3 };

/// How one viewport shows its model. Every switch can be seen in the viewport's menu.
struct ViewStyle {
  Appearance appearance = Appearance::scribed;
  bool wireframeBackface = true;
  bool lighting = true;
  bool texture = true;
  bool shader = true;
  bool largeVertices = false;
  bool shrunkPolygons = false;
  bool normals = false;
  bool vertexNumbers = false;
  GridDepth gridDepth = GridDepth::zBuffer;
  std::uint8_t textureLayers = 0xFF; ///< bit n: layer n is shown, as far as `texture` lets it
};

/// The scene of one viewport: the same model node under several groups, each of which draws it in its own way. The
/// model is shared, never copied, so the styles cost nothing while they are off.
class ViewScene {
public:
  ViewScene();
  ViewScene(const ViewScene&) = delete;
  ViewScene& operator=(const ViewScene&) = delete;

  osg::Group* root() { return root_.get(); }
  const osg::Group* root() const { return root_.get(); }
  osg::Node* model() const { return model_.get(); }
  /// Shows `model` in place of the one before; null shows nothing.
  void setModel(osg::Node* model);
  /// Draws `extras` beside the model, in its own way; null for nothing.
  void setExtras(osg::Node* extras);

  void apply(const ViewStyle& style);
  void apply(const ViewportPreferences& preferences);
  /// Shows the lines of `grid` as it is now, or none when it is hidden.
  void apply(const Grid& grid);

  // The groups by what they draw, for tests and for what hangs beside the model.
  osg::Group* polygons() { return polygons_.get(); }
  osg::Group* lines() { return lines_.get(); }
  osg::Group* outerVertices() { return outerVertices_.get(); }
  osg::Group* innerVertices() { return innerVertices_.get(); }
  GridNodes& grid() { return grid_; }

private:
  osg::ref_ptr<osg::Group> root_ = new osg::Group;
  osg::ref_ptr<osg::Group> polygons_ = new osg::Group;
  osg::ref_ptr<osg::Group> lines_ = new osg::Group;
  osg::ref_ptr<osg::Group> outerVertices_ = new osg::Group;
  osg::ref_ptr<osg::Group> innerVertices_ = new osg::Group;
  osg::ref_ptr<osg::Point> outerPoint_ = new osg::Point;
  osg::ref_ptr<osg::Point> innerPoint_ = new osg::Point;
  GridNodes grid_;
  osg::ref_ptr<osg::Node> model_;
  osg::ref_ptr<osg::Node> extras_;
};

} // namespace nalt
