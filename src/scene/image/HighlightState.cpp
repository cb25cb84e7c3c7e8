#include "scene/image/HighlightState.h"

#include "scene/image/Highlight.h"
#include "scene/image/PlainMaterial.h"
#include "scene/image/PolygonShape.h"

#include <osg/AlphaFunc>
#include <osg/BlendFunc>
#include <osg/Depth>
#include <osg/LineStipple>
#include <osg/LineWidth>
#include <osg/Point>
#include <osg/PolygonMode>
#include <osg/PolygonOffset>
#include <osg/Program>

namespace nalt {

namespace {

constexpr unsigned forcedOn = osg::StateAttribute::ON | osg::StateAttribute::OVERRIDE;
constexpr unsigned forcedOff = osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE;

/// How one of the two colors is drawn. Widths are in pixels.
struct Look {
  const char* name;
  osg::Vec4f color;
  int bin; ///< behind everything that belongs to the model
  float lineWidth;
  float pointSize;
  GLushort dashes;
};

constexpr int dashLength = 4; // pixels for each bit of a pattern
const Look black = {Highlight::blackGroupName, {0, 0, 0, 1}, 40, 3, 8, 0xffff};
const Look white = {Highlight::whiteGroupName, {1, 1, 1, 1}, 41, 1, 5, 0x5555};

void setLook(osg::StateSet& state, const Look& look)
{
  state.setRenderBinDetails(look.bin, "RenderBin", osg::StateSet::OVERRIDE_RENDERBIN_DETAILS);
  state.setAttributeAndModes(plainMaterial(look.color), forcedOn);
  state.setMode(GL_LIGHTING, forcedOn);
  state.setMode(GL_BLEND, forcedOff);
  state.setMode(GL_ALPHA_TEST, forcedOff);
  state.setMode(GL_CULL_FACE, forcedOff);
  state.setAttribute(new osg::Depth(osg::Depth::ALWAYS, 0, 1, /*writeMask=*/false), forcedOn);
  state.setMode(GL_DEPTH_TEST, forcedOff);
  state.setAttributeAndModes(new osg::PolygonMode(osg::PolygonMode::FRONT_AND_BACK, osg::PolygonMode::LINE), forcedOn);
  state.setAttributeAndModes(new osg::PolygonOffset(0, 0), forcedOff);
  state.setAttributeAndModes(new osg::LineWidth(look.lineWidth), forcedOn);
  state.setAttributeAndModes(new osg::LineStipple(dashLength, look.dashes), forcedOn);
  const osg::ref_ptr<osg::Point> point = new osg::Point(look.pointSize);
  point->setDistanceAttenuation(osg::Vec3(1, 0, 0));
  state.setAttribute(point, forcedOn);
  state.setMode(GL_POINT_SMOOTH, forcedOff);
  for (unsigned unit = 0; unit < static_cast<unsigned>(textureLayers); ++unit)
    state.setTextureMode(unit, GL_TEXTURE_2D, forcedOff);
  state.setAttributeAndModes(new osg::Program, forcedOn);
}

osg::ref_ptr<osg::Group> groupWith(const Look& look)
{
  osg::ref_ptr<osg::Group> group = new osg::Group;
  group->setName(look.name);
  group->setCullingActive(false);
  setLook(*group->getOrCreateStateSet(), look);
  return group;
}

} // namespace

osg::ref_ptr<osg::Group> blackHighlightGroup()
{
  return groupWith(black);
}

osg::ref_ptr<osg::Group> whiteHighlightGroup()
{
  return groupWith(white);
}

} // namespace nalt
