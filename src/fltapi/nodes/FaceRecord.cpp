#include "fltapi/nodes/FaceRecord.h"

#include "fltapi/io/Output.h"

namespace fltapi {

namespace {

constexpr int firstVersionWithShaders = 1600;
constexpr std::int16_t noShader = -1;

} // namespace

void readReservedShader(std::byte* content, const Field<std::int16_t>& shader, const SwapScope& scope)
{
  auto* index = content + shader.offset();
  const bool reserved = scope.fromFile && scope.version < firstVersionWithShaders;
  if (reserved && loadAt<std::int16_t>(index) == 0) storeAt(index, noShader);
}

void writeReservedShader(std::byte* content, const Field<std::int16_t>& shader, int version)
{
  auto* index = content + shader.offset();
  if (version < firstVersionWithShaders && loadAt<std::int16_t>(index) == noShader) storeAt(index, std::int16_t{0});
}

int FaceRecord::vertexCount() const
{
  const auto* list = vertexList();
  return list ? list->vertexCount() : 0;
}

VertexBaseRecord* FaceRecord::vertexAt(int i) const
{
  const auto* list = vertexList();
  return list && list->file() ? list->vertexAt(i) : nullptr;
}

std::uint32_t FaceRecord::vertexIndexOf(const Record& vertex) const
{
  const auto* list = vertexList();
  const int i = list ? list->indexOf(vertex) : -1;
  return i < 0 ? noVertex : static_cast<std::uint32_t>(i);
}

std::vector<osg::Vec3d> FaceRecord::positions() const
{
  std::vector<osg::Vec3d> list;
  if (const auto* vertices = vertexList()) {
    list.reserve(vertices->vertices().size());
    for (const auto& vertex : vertices->vertices())
      list.push_back(vertex->position());
  }
  return list;
}

osg::Vec3d FaceRecord::normal() const
{
  const auto corners = positions();
  osg::Vec3d sum;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    sum += (corners[i - 1] - corners[0]) ^ (corners[i] - corners[0]);
  }
  sum.normalize();
  return sum;
}

void FaceRecord::swapContent(std::byte* content, const SwapScope& scope) const
{
  swapFieldsUnrolled<fields>(content, scope);
  readReservedShader(content, fields.shader, scope);
}

void FaceRecord::prepareForFile(std::byte* content, const Output& output) const
{
  auto* drawType = content + fields.drawType.offset();
  const auto value = std::to_integer<int>(*drawType);
  const bool known = value <= outline || (value >= omnidirectionalLight && value <= bidirectionalLight);
  if (!known) *drawType = std::byte{solidCulled};
  writeReservedShader(content, fields.shader, output.version());
}

} // namespace fltapi
