#include "scene/image/FaceRuns.h"

#include "scene/image/NaltPolygon.h"

#include <osg/GLExtensions>
#include <osg/State>

namespace nalt {

namespace {

/// In the order of FaceRuns::Kind.
constexpr GLenum modes[] = {GL_POINTS, GL_LINES, GL_TRIANGLES, GL_QUADS, GL_TRIANGLES, GL_POINTS};

void drawOutlines(const std::vector<GLint>& firsts, const std::vector<GLsizei>& counts)
{
  using MultiDrawArrays = void (*)(GLenum, const GLint*, const GLsizei*, GLsizei);
  static const auto multiDrawArrays = [] {
    MultiDrawArrays function = nullptr;
    osg::setGLExtensionFuncPtr(function, "glMultiDrawArrays");
    return function;
  }();
  if (multiDrawArrays) {
    multiDrawArrays(GL_POLYGON, firsts.data(), counts.data(), static_cast<GLsizei>(firsts.size()));
    return;
  }
  for (std::size_t i = 0; i < firsts.size(); ++i)
    glDrawArrays(GL_POLYGON, firsts[i], counts[i]);
}

} // namespace

osg::DrawElementsUInt& FaceRuns::indices(Kind kind)
{
  auto& list = indices_[kind];
  if (!list) list = new osg::DrawElementsUInt(modes[kind]);
  return *list;
}

void FaceRuns::add(const NaltPolygon& polygon)
{
  if (!polygon.isVisibleIn(viewportBits_)) return;
  const auto first = static_cast<GLuint>(polygon.getFirst());
  const auto count = static_cast<GLuint>(polygon.getCount());
  const auto addAll = [&](Kind kind) {
    auto& list = indices(kind);
    for (GLuint i = 0; i < count; ++i)
      list.push_back(first + i);
  };
  switch (polygon.getMode()) {
  case GL_POINTS:
    addAll(points);
    break;
  case GL_LINES:
  case GL_LINE_LOOP:
  case GL_LINE_STRIP:
    addLines(polygon);
    addAll(linePoints);
    break;
  case GL_TRIANGLES:
    addAll(triangles);
    break;
  default:
    if (count == 4 && !polygon.triangles())
      addAll(quads);
    else
      addFill(polygon);
  }
}

void FaceRuns::addLines(const NaltPolygon& polygon)
{
  auto& list = indices(lines);
  const auto first = static_cast<GLuint>(polygon.getFirst());
  const auto count = static_cast<GLuint>(polygon.getCount());
  for (GLuint i = 1; i < count; ++i) {
    list.push_back(first + i - 1);
    list.push_back(first + i);
  }
  if (polygon.getMode() == GL_LINE_LOOP && count > 2) {
    list.push_back(first + count - 1);
    list.push_back(first);
  }
}

void FaceRuns::addFill(const NaltPolygon& polygon)
{
  auto& list = indices(fills);
  const auto first = static_cast<GLuint>(polygon.getFirst());
  if (const auto* corners = polygon.triangles()) {
    for (const auto corner : *corners)
      list.push_back(first + corner);
  } else {
    for (GLuint i = 2; i < static_cast<GLuint>(polygon.getCount()); ++i) {
      list.push_back(first);
      list.push_back(first + i - 1);
      list.push_back(first + i);
    }
  }
  outlineFirsts_.push_back(polygon.getFirst());
  outlineCounts_.push_back(polygon.getCount());
}

void FaceRuns::finish()
{
  for (auto& list : indices_) {
    if (!list) continue;
    list->asVector().shrink_to_fit();
    list->setElementBufferObject(new osg::ElementBufferObject);
  }
}

void FaceRuns::draw(osg::State& state, bool useVertexBufferObjects, osg::PolygonMode::Mode mode) const
{
  const bool filled = mode == osg::PolygonMode::FILL;
  const auto drawKind = [&](Kind kind) {
    if (indices_[kind]) indices_[kind]->draw(state, useVertexBufferObjects);
  };
  drawKind(points);
  drawKind(mode == osg::PolygonMode::POINT ? linePoints : lines);
  drawKind(triangles);
  drawKind(quads);
  if (filled) drawKind(fills);
  if (!filled && !outlineFirsts_.empty()) drawOutlines(outlineFirsts_, outlineCounts_);
}

void FaceRuns::resizeGLObjectBuffers(unsigned maxSize)
{
  for (auto& list : indices_) {
    if (list) list->resizeGLObjectBuffers(maxSize);
  }
}

void FaceRuns::releaseGLObjects(osg::State* state) const
{
  for (const auto& list : indices_) {
    if (list) list->releaseGLObjects(state);
  }
}

} // namespace nalt
