#include "scene/view/ViewScene.h"

#include "scene/image/PlainMaterial.h"
#include "scene/view/SmallFeatureCullingCallback.h"

#include <osg/BlendFunc>
#include <osg/Depth>
#include <osg/LineStipple>
#include <osg/PolygonMode>
#include <osg/PolygonOffset>
#include <osg/Program>

namespace nalt {

namespace {

using Value = osg::StateAttribute;
constexpr unsigned on = Value::ON;
constexpr unsigned forcedOn = Value::ON | Value::OVERRIDE;
constexpr unsigned forcedOff = Value::OFF | Value::OVERRIDE;
constexpr unsigned hidden = 0;
constexpr unsigned shown = ~0U;
constexpr unsigned textureUnits = 8;
constexpr unsigned noLayers = 0;

// Later bins are drawn over earlier ones.
constexpr int polygonBin = 0;
constexpr int lineBin = 21;
constexpr int outerVertexBin = 30;
constexpr int innerVertexBin = 31;

/// Leaves the texture units whose bits are set in `layers` to what is drawn, and keeps the others off.
void setTexturing(osg::StateSet& state, unsigned layers)
{
  for (unsigned unit = 0; unit < textureUnits; ++unit)
    state.setTextureMode(unit, GL_TEXTURE_2D, (layers >> unit & 1U) != 0 ? on : forcedOff);
}

void forceNoProgram(osg::StateSet& state)
{
  state.setAttributeAndModes(new osg::Program, forcedOn);
}

/// Draws the outlines or corners of the polygons in one colour over the polygons, whatever these ask for.
void setOverlayState(osg::StateSet& state, osg::PolygonMode::Mode mode, float offset, int bin)
{
  state.setRenderBinDetails(bin, "RenderBin", osg::StateSet::OVERRIDE_RENDERBIN_DETAILS);
  state.setAttributeAndModes(new osg::PolygonMode(osg::PolygonMode::FRONT_AND_BACK, mode), forcedOn);
  state.setAttributeAndModes(new osg::PolygonOffset(offset, offset), forcedOn);
  state.setMode(GL_LIGHTING, forcedOn);
  state.setMode(GL_BLEND, forcedOff);
  setTexturing(state, noLayers);
  forceNoProgram(state);
}

void setVertexState(osg::StateSet& state, osg::Point* point, int bin)
{
  setOverlayState(state, osg::PolygonMode::POINT, -2.0F, bin);
  point->setDistanceAttenuation(osg::Vec3(1, 0, 0));
  state.setAttribute(point, forcedOn); // with its modes it would switch smoothing on
  state.setMode(GL_POINT_SMOOTH, forcedOff);
  state.setAttributeAndModes(new osg::LineStipple(1, 0), forcedOn);
  state.setMode(GL_CULL_FACE, forcedOff);
}

} // namespace

ViewScene::ViewScene()
{
  for (auto& group : {polygons_, lines_, outerVertices_, innerVertices_})
    root_->addChild(group);

  osg::StateSet& polygons = *polygons_->getOrCreateStateSet();
  polygons.setRenderBinDetails(polygonBin, "RenderBin");

  osg::StateSet& lines = *lines_->getOrCreateStateSet();
  setOverlayState(lines, osg::PolygonMode::LINE, -1.0F, lineBin);
  lines.setAttributeAndModes(plainMaterial(osg::Vec4f(0, 0, 0, 1)), forcedOn);

  setVertexState(*outerVertices_->getOrCreateStateSet(), outerPoint_, outerVertexBin);
  setVertexState(*innerVertices_->getOrCreateStateSet(), innerPoint_, innerVertexBin);
  // The inner point lies on the outer one at the same depth.
  innerVertices_->getOrCreateStateSet()->setAttributeAndModes(new osg::Depth(osg::Depth::LEQUAL), forcedOn);

  apply(ViewStyle());
  apply(ViewportPreferences());
}

void ViewScene::setModel(osg::Node* model)
{
  if (model == model_) return;
  for (auto& group : {polygons_, lines_, outerVertices_, innerVertices_}) {
    group->removeChild(model_.get());
    if (model) group->addChild(model);
  }
  model_ = model;
}

void ViewScene::setExtras(osg::Node* extras)
{
  if (extras == extras_) return;
  root_->removeChild(extras_.get());
  if (extras) root_->addChild(extras);
  extras_ = extras;
}

void ViewScene::apply(const ViewStyle& style)
{
  polygons_->setNodeMask(style.appearance == Appearance::wireframe ? hidden : shown);
  lines_->setNodeMask(style.appearance == Appearance::solid ? hidden : shown);
  outerVertices_->setNodeMask(style.largeVertices ? shown : hidden);
  innerVertices_->setNodeMask(style.largeVertices ? shown : hidden);

  osg::StateSet& polygons = *polygons_->getOrCreateStateSet();
  polygons.setMode(GL_LIGHTING, style.lighting ? on : forcedOff);
  setTexturing(polygons, style.texture ? style.textureLayers : noLayers);
  if (style.shader)
    polygons.removeAttribute(osg::StateAttribute::PROGRAM);
  else
    forceNoProgram(polygons);
  lines_->getOrCreateStateSet()->setMode(GL_CULL_FACE, style.wireframeBackface ? forcedOff : forcedOn);
  grid_.setDepth(style.gridDepth);
}

void ViewScene::apply(const ViewportPreferences& preferences)
{
  outerPoint_->setSize(static_cast<float>(preferences.largeVertexSize));
  innerPoint_->setSize(static_cast<float>(preferences.largeVertexSize / 2.0));
  outerVertices_->getOrCreateStateSet()->setAttributeAndModes(
      plainMaterial(osg::Vec4f(preferences.largeVertexOuter, 1.0F)), forcedOn);
  innerVertices_->getOrCreateStateSet()->setAttributeAndModes(
      plainMaterial(osg::Vec4f(preferences.largeVertexInner, 1.0F)), forcedOn);

  osg::ref_ptr<SmallFeatureCullingCallback> culling =
      preferences.smallFeatureCulling ? new SmallFeatureCullingCallback : nullptr;
  polygons_->setCullCallback(culling);
  lines_->setCullCallback(culling);
}

void ViewScene::apply(const Grid& grid)
{
  if (grid.isVisible()) grid_.rebuild(grid);
  grid_.show(*root_, grid.isVisible());
}

} // namespace nalt
