#include "scene/image/FaceGeometry.h"

#include "scene/image/Marks.h"

#include <osg/State>

#include <algorithm>

namespace nalt {

namespace {

template <class Array, class Values>
void appendTo(Array& array, const Values& values)
{
  array.insert(array.end(), values.begin(), values.end());
}

template <class Array, class Values>
void overwrite(Array& array, int first, const Values& values)
{
  std::copy(values.begin(), values.end(), array.begin() + first);
  array.dirty();
}

template <class Array>
void moveDown(Array& array, int from, int to, int count)
{
  std::move(array.begin() + from, array.begin() + from + count, array.begin() + to);
}

osg::PolygonMode::Mode currentPolygonMode(const osg::State& state)
{
  const auto* attribute = state.getLastAppliedAttribute(osg::StateAttribute::POLYGONMODE);
  const auto* mode = dynamic_cast<const osg::PolygonMode*>(attribute);
  return mode ? mode->getMode(osg::PolygonMode::FRONT) : osg::PolygonMode::FILL;
}

} // namespace

FaceGeometry::FaceGeometry(FaceState& state, ViewportTable& viewports) : state_(&state), viewports_(&viewports)
{
  // A display list would freeze which polygons are shown.
  setUseDisplayList(false);
  setSupportsDisplayList(false);
  setUseVertexBufferObjects(true);
  setDataVariance(osg::Object::DYNAMIC);
  setVertexArray(positions_);
  colors_->setNormalize(true);
  setColorArray(colors_, osg::Array::BIND_PER_VERTEX);
  if (state.key().lit) {
    normals_ = new osg::Vec3Array;
    setNormalArray(normals_, osg::Array::BIND_PER_VERTEX);
  }
  for (int unit = 0; unit < textureLayers; ++unit) {
    if (!state.key().hasLayer(unit)) continue;
    uvs_[static_cast<std::size_t>(unit)] = new osg::Vec2Array;
    setTexCoordArray(static_cast<unsigned>(unit), uvs_[static_cast<std::size_t>(unit)], osg::Array::BIND_PER_VERTEX);
  }
}

FaceGeometry::~FaceGeometry()
{
  if (highlight_) highlight_->forgetSource();
  for (int i = 0; i < polygonCount_; ++i)
    static_cast<NaltPolygon*>(_primitives[static_cast<std::size_t>(i)].get())->geometry_ = nullptr;
}

NaltPolygon* FaceGeometry::polygonAt(unsigned primitiveSet) const
{
  if (primitiveSet >= static_cast<unsigned>(polygonCount_)) return nullptr;
  return static_cast<NaltPolygon*>(const_cast<osg::PrimitiveSet*>(getPrimitiveSet(primitiveSet)));
}

NaltPolygon* FaceGeometry::append(const PolygonShape& shape, fltapi::PrimNodeRecord* record)
{
  dropLargeVertices();
  auto* polygon = new NaltPolygon(*this, record, shape.mode, cornerCount(), shape.cornerCount());
  polygon->setTriangles(shape.triangles);
  insertPrimitiveSet(static_cast<unsigned>(polygonCount_++), polygon);

  appendTo(*positions_, shape.positions);
  appendTo(*colors_, shape.colors);
  if (normals_) appendTo(*normals_, shape.normals);
  for (std::size_t unit = 0; unit < uvs_.size(); ++unit) {
    if (uvs_[unit]) appendTo(*uvs_[unit], shape.uvs[unit]);
  }
  dirtyArrays();
  runsChanged();
  return polygon;
}

void FaceGeometry::rewrite(NaltPolygon& polygon, const PolygonShape& shape)
{
  dropLargeVertices();
  const int first = polygon.getFirst();
  overwrite(*positions_, first, shape.positions);
  overwrite(*colors_, first, shape.colors);
  if (normals_) overwrite(*normals_, first, shape.normals);
  for (std::size_t unit = 0; unit < uvs_.size(); ++unit) {
    if (uvs_[unit]) overwrite(*uvs_[unit], first, shape.uvs[unit]);
  }
  const bool otherMode = polygon.getMode() != shape.mode;
  polygon.setMode(shape.mode);
  if (polygon.setTriangles(shape.triangles) || otherMode) runsChanged();
  if (shrunk_) shrunk_->update(polygon);
  ++revision_;
  if (highlight_) highlight_->dirtyBound();
  dirtyBound();
}

void FaceGeometry::remove(NaltPolygon& polygon)
{
  polygon.setMask(0);
  setMarks(polygon, 0);
  polygon.geometry_ = nullptr;
  polygon.record_ = nullptr;
  ++removedCount_;
}

void FaceGeometry::compact()
{
  if (removedCount_ == 0) return;
  dropLargeVertices();
  int kept = 0;
  int corners = 0;
  for (int i = 0; i < polygonCount_; ++i) {
    auto& slot = _primitives[static_cast<std::size_t>(i)];
    auto& polygon = static_cast<NaltPolygon&>(*slot);
    if (!polygon.geometry_) {
      --maskedCount_;
      continue;
    }
    const int first = polygon.getFirst();
    const int count = polygon.getCount();
    if (first != corners) {
      moveDown(*positions_, first, corners, count);
      moveDown(*colors_, first, corners, count);
      if (normals_) moveDown(*normals_, first, corners, count);
      for (auto& layer : uvs_) {
        if (layer) moveDown(*layer, first, corners, count);
      }
      polygon.setFirst(corners);
    }
    corners += count;
    if (kept != i) _primitives[static_cast<std::size_t>(kept)] = slot;
    ++kept;
  }
  removePrimitiveSet(static_cast<unsigned>(kept), static_cast<unsigned>(polygonCount_ - kept));
  polygonCount_ = kept;
  removedCount_ = 0;

  const auto size = static_cast<unsigned>(corners);
  positions_->resize(size);
  colors_->resize(size);
  if (normals_) normals_->resize(size);
  for (auto& layer : uvs_) {
    if (layer) layer->resize(size);
  }
  dirtyArrays();
  runsChanged();
}

void FaceGeometry::dropLargeVertices()
{
  for (auto i = static_cast<int>(getNumPrimitiveSets()) - 1; i >= polygonCount_; --i) {
    if (getPrimitiveSet(static_cast<unsigned>(i))->getName() == largeVerticesName)
      removePrimitiveSet(static_cast<unsigned>(i));
  }
}

void FaceGeometry::dirtyArrays()
{
  positions_->dirty();
  colors_->dirty();
  if (normals_) normals_->dirty();
  for (auto& layer : uvs_) {
    if (layer) layer->dirty();
  }
  shrunk_.reset();
  dirtyBound();
}

void FaceGeometry::prepareShrunk(bool shrunk)
{
  if (!shrunk)
    shrunk_.reset();
  else
    this->shrunk();
}

const ShrunkFaces& FaceGeometry::shrunk() const
{
  if (!shrunk_) shrunk_ = std::make_unique<ShrunkFaces>(*this);
  return *shrunk_;
}

const osg::Vec3Array& FaceGeometry::positionsIn(std::uint32_t viewportBits) const
{
  return viewportBits & viewports_->shrinkingBits() ? shrunk().positions() : *positions_;
}

void FaceGeometry::runsChanged()
{
  runs_.clear();
  visibleMask_.reset();
  ++revision_;
  if (!highlight_) return;
  highlight_->changed();
  highlight_->dirtyBound();
}

void FaceGeometry::maskChanged(std::uint32_t before, std::uint32_t after)
{
  constexpr auto all = ViewportTable::allBits;
  if (before == all) ++maskedCount_;
  if (after == all) --maskedCount_;
  runsChanged();
}

bool FaceGeometry::setMarks(NaltPolygon& polygon, std::uint8_t marks)
{
  // Which of its vertices are marked can change while the polygon's own marks stay.
  const bool same = marks == polygon.marks_ && !(marks & Mark::parts);
  if (same) return false;
  if (highlight_) highlight_->changed();
  const bool before = hasMarks();
  markedCount_ += (marks ? 1 : 0) - (polygon.marks_ ? 1 : 0);
  polygon.marks_ = marks;
  return hasMarks() != before;
}

HighlightGeometry& FaceGeometry::highlight()
{
  if (!highlight_) highlight_ = new HighlightGeometry(*this, *positions_);
  return *highlight_;
}

std::uint32_t FaceGeometry::visibleMask() const
{
  if (visibleMask_) return *visibleMask_;
  visibleMask_ = maskedCount_ < polygonCount_ ? ViewportTable::allBits : 0;
  for (unsigned i = 0; *visibleMask_ != ViewportTable::allBits && i < static_cast<unsigned>(polygonCount_); ++i)
    *visibleMask_ |= polygonAt(i)->mask();
  return *visibleMask_;
}

const FaceRuns& FaceGeometry::runsFor(std::uint32_t viewportBits) const
{
  const auto bits = maskedCount_ == 0 ? ViewportTable::allBits : viewportBits;
  for (const auto& runs : runs_) {
    if (runs->viewportBits() == bits) return *runs;
  }
  auto& runs = *runs_.emplace_back(new FaceRuns(bits));
  for (unsigned i = 0; i < static_cast<unsigned>(polygonCount_); ++i)
    runs.add(*polygonAt(i));
  runs.finish();
  return runs;
}

void FaceGeometry::drawImplementation(osg::RenderInfo& renderInfo) const
{
  auto& state = *renderInfo.getState();
  const bool shrinks = viewports_->shrinksIn(state.getContextID());
  (shrinks ? shrunk().arrays() : *this).drawVertexArraysImplementation(renderInfo);
  const bool buffers = state.useVertexBufferObject(_supportsVertexBufferObjects && _useVertexBufferObjects);
  runsFor(viewports_->bitsOf(state.getContextID())).draw(state, buffers, currentPolygonMode(state));
  for (auto i = static_cast<unsigned>(polygonCount_); i < getNumPrimitiveSets(); ++i)
    getPrimitiveSet(i)->draw(state, buffers);
}

void FaceGeometry::resizeGLObjectBuffers(unsigned maxSize)
{
  osg::Geometry::resizeGLObjectBuffers(maxSize);
  for (auto& runs : runs_)
    runs->resizeGLObjectBuffers(maxSize);
  if (shrunk_) shrunk_->arrays().resizeGLObjectBuffers(maxSize);
}

void FaceGeometry::releaseGLObjects(osg::State* state) const
{
  osg::Geometry::releaseGLObjects(state);
  for (const auto& runs : runs_)
    runs->releaseGLObjects(state);
  if (shrunk_) shrunk_->arrays().releaseGLObjects(state);
}

} // namespace nalt
