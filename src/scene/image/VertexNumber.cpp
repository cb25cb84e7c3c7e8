#include "scene/image/VertexNumber.h"

#include <osg/BlendFunc>
#include <osg/Depth>
#include <osg/Image>
#include <osg/PolygonMode>
#include <osg/Program>
#include <osg/State>
#include <osg/TexEnv>
#include <osg/Texture2D>
#include <osg/Viewport>
#include <osgText/Font>

#include <algorithm>
#include <cmath>
#include <string>

namespace nalt {

namespace {

constexpr int digits = 10;
// Of one digit, in pixels. The rim around it lets it stand out from everything.
constexpr int digitWidth = 8;
constexpr int digitHeight = 12;
constexpr int rim = 1;
constexpr int cellWidth = digitWidth + 2 * rim;
constexpr int cellHeight = digitHeight + 2 * rim;
constexpr int numberBin = 30;
constexpr unsigned textureUnits = 8;

/// Which pixels of a cell the digit covers.
class Digit {
public:
  explicit Digit(int digit)
  {
    const auto font = osgText::Font::getDefaultFont();
    const auto* glyph =
        font ? font->getGlyph(osgText::FontResolution(digitWidth, digitHeight), static_cast<unsigned>('0' + digit))
             : nullptr;
    if (!glyph || !glyph->valid()) return;
    for (int y = 0; y < std::min(glyph->t(), digitHeight); ++y) {
      for (int x = 0; x < std::min(glyph->s(), digitWidth); ++x)
        covered_[y + rim][x + rim] = glyph->data(static_cast<unsigned>(x), static_cast<unsigned>(y))[0] >= 128;
    }
  }
  bool covers(int x, int y) const { return covered_[y][x]; }
  bool touches(int x, int y) const
  {
    for (int row = std::max(y - rim, 0); row <= std::min(y + rim, cellHeight - 1); ++row) {
      for (int column = std::max(x - rim, 0); column <= std::min(x + rim, cellWidth - 1); ++column) {
        if (covered_[row][column]) return true;
      }
    }
    return false;
  }

private:
  bool covered_[cellHeight][cellWidth] = {};
};

/// All digits side by side.
osg::ref_ptr<osg::Texture2D> digitTexture()
{
  const osg::ref_ptr<osg::Image> image = new osg::Image;
  image->allocateImage(digits * cellWidth, cellHeight, 1, GL_RGBA, GL_UNSIGNED_BYTE);
  for (int digit = 0; digit < digits; ++digit) {
    const Digit shape(digit);
    for (int y = 0; y < cellHeight; ++y) {
      for (int x = 0; x < cellWidth; ++x) {
        auto* pixel = image->data(static_cast<unsigned>(digit * cellWidth + x), static_cast<unsigned>(y));
        std::fill_n(pixel, 3, static_cast<unsigned char>(shape.covers(x, y) ? 255 : 0));
        pixel[3] = shape.touches(x, y) ? 255 : 0;
      }
    }
  }
  osg::ref_ptr<osg::Texture2D> texture = new osg::Texture2D(image);
  texture->setResizeNonPowerOfTwoHint(false);
  texture->setFilter(osg::Texture::MIN_FILTER, osg::Texture::NEAREST);
  texture->setFilter(osg::Texture::MAG_FILTER, osg::Texture::NEAREST);
  return texture;
}

osg::ref_ptr<osg::StateSet> makeState()
{
  constexpr unsigned on = osg::StateAttribute::ON | osg::StateAttribute::OVERRIDE | osg::StateAttribute::PROTECTED;
  constexpr unsigned off = osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE | osg::StateAttribute::PROTECTED;
  osg::ref_ptr<osg::StateSet> state = new osg::StateSet;
  state->setRenderBinDetails(numberBin, "RenderBin", osg::StateSet::PROTECTED_RENDERBIN_DETAILS);
  state->setAttributeAndModes(new osg::PolygonMode(osg::PolygonMode::FRONT_AND_BACK, osg::PolygonMode::FILL), on);
  state->setAttribute(new osg::Depth(osg::Depth::ALWAYS, 0, 1, /*writeMask=*/false), on);
  state->setMode(GL_DEPTH_TEST, off);
  state->setMode(GL_LIGHTING, off);
  state->setMode(GL_CULL_FACE, off);
  state->setAttributeAndModes(new osg::BlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), on);
  state->setAttributeAndModes(new osg::Program, on);
  state->setTextureAttributeAndModes(0, digitTexture(), on);
  state->setTextureAttribute(0, new osg::TexEnv(osg::TexEnv::MODULATE), on);
  for (unsigned unit = 1; unit < textureUnits; ++unit)
    state->setTextureMode(unit, GL_TEXTURE_2D, off);
  return state;
}

} // namespace

osg::StateSet* VertexNumber::sharedState()
{
  static const auto state = makeState();
  return state;
}

VertexNumber::VertexNumber(int number, std::vector<osg::Vec3> places) : number_(number), places_(std::move(places))
{
  const auto text = std::to_string(number);
  float left = -std::floor(static_cast<float>(digitWidth * static_cast<int>(text.size())) / 2) - rim;
  for (const auto digit : text) {
    const float right = left + cellWidth;
    constexpr float top = cellHeight / 2.0F;
    for (const auto& corner : {osg::Vec3(left, -top, 0), {right, -top, 0}, {right, top, 0}, {left, top, 0}})
      digitCorners_.push_back(corner);
    const float u = static_cast<float>(digit - '0') / digits;
    constexpr float width = 1.0F / digits;
    for (const auto& uv : {osg::Vec2(u, 0), {u + width, 0}, {u + width, 1}, {u, 1}})
      digitUvs_.push_back(uv);
    left += digitWidth;
  }

  setUseDisplayList(false);
  setSupportsDisplayList(false);
  setUseVertexBufferObjects(false);
  setDataVariance(osg::Object::DYNAMIC);
  setStateSet(sharedState());
  setVertexArray(corners_);
  setTexCoordArray(0, uvs_, osg::Array::BIND_PER_VERTEX);
  const osg::ref_ptr<osg::Vec4Array> white = new osg::Vec4Array(1);
  white->front().set(1, 1, 1, 1);
  setColorArray(white, osg::Array::BIND_OVERALL);
  addPrimitiveSet(quads_);
}

osg::BoundingBox VertexNumber::computeBoundingBox() const
{
  osg::BoundingBox box;
  for (const auto& place : places_)
    box.expandBy(place);
  return box;
}

void VertexNumber::layOut(const osg::Matrixd& toWindow, double width, double height) const
{
  corners_->clear();
  uvs_->clear();
  for (const auto& place : places_) {
    const auto clip = osg::Vec4d(osg::Vec3d(place), 1) * toWindow;
    if (!(clip.w() > 0)) continue; // behind the eye
    const double x = clip.x() / clip.w();
    const double y = clip.y() / clip.w();
    if (!(x >= 0 && x <= width && y >= 0 && y <= height)) continue;
    const osg::Vec3 middle(static_cast<float>(std::floor(x)), static_cast<float>(std::floor(y)), 0);
    for (const auto& corner : digitCorners_)
      corners_->push_back(middle + corner);
    uvs_->insert(uvs_->end(), digitUvs_.begin(), digitUvs_.end());
  }
  corners_->dirty();
  uvs_->dirty();
  quads_->setCount(static_cast<GLsizei>(corners_->size()));
}

void VertexNumber::drawImplementation(osg::RenderInfo& renderInfo) const
{
  auto& state = *renderInfo.getState();
  const auto* viewport = state.getCurrentViewport();
  if (!viewport) return;
  const auto modelView = state.getModelViewMatrix();
  const auto projection = state.getProjectionMatrix();
  const double width = viewport->width();
  const double height = viewport->height();
  // Pixels count from the lower left corner of the viewport.
  const auto toWindow =
      modelView * projection * osg::Matrixd::translate(1, 1, 1) * osg::Matrixd::scale(width / 2, height / 2, 0.5);
  layOut(toWindow, width, height);
  if (corners_->empty()) return;
  state.applyModelViewMatrix(osg::Matrixd());
  state.applyProjectionMatrix(new osg::RefMatrix(osg::Matrixd::ortho2D(0, width, 0, height)));
  osg::Geometry::drawImplementation(renderInfo);
  state.applyProjectionMatrix(new osg::RefMatrix(projection));
  state.applyModelViewMatrix(modelView);
}

} // namespace nalt
