#include "fltapi/nodes/FaceRecord.h"

namespace fltapi {

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

void FaceRecord::prepareForFile(std::byte* content, const Output&) const
{
  auto* drawType = content + fields.drawType.offset();
  const auto value = std::to_integer<int>(*drawType);
  const bool known = value <= outline || (value >= omnidirectionalLight && value <= bidirectionalLight);
  if (!known) *drawType = std::byte{solidCulled};
}

} // namespace fltapi
