#include "scene/image/Meshes.h"

#include "fltapi/AllRecords.h"
#include "fltapi/FltFile.h"
#include "scene/image/FaceTranslator.h"
#include "scene/image/Finite.h"
#include "scene/image/Tessellation.h"

#include <algorithm>
#include <optional>

namespace nalt {

namespace {

using namespace fltapi;
using Pool = LocalVertexPoolRecord;

constexpr std::uint32_t indexBits = 0x00ffffff;

/// The wanted values of one attribute, vertex after vertex.
template <class Value>
Value valueAt(const Pool& pool, int vertex, std::uint32_t attribute)
{
  const auto at = pool.offsetOf(vertex, attribute);
  if (at == 0 || at + sizeof(Value) > pool.length()) return {};
  return loadAt<Value>(pool.data() + at);
}

osg::Vec3 positionAt(const Pool& pool, int vertex)
{
  const auto position = valueAt<std::array<double, 3>>(pool, vertex, Pool::position);
  return {static_cast<float>(position[0]), static_cast<float>(position[1]), static_cast<float>(position[2])};
}

osg::ref_ptr<osg::Vec3Array> positionsOf(const Pool& pool)
{
  osg::ref_ptr<osg::Vec3Array> positions = new osg::Vec3Array;
  for (int i = 0; i < pool.vertexCount(); ++i) {
    auto position = positionAt(pool, i);
    // Indices count on each vertex, so one that is nowhere goes where the one before it is.
    if (!isFinite(position)) position = positions->empty() ? osg::Vec3() : positions->back();
    positions->push_back(position);
  }
  return positions;
}

osg::ref_ptr<osg::Vec2Array> uvsOf(const Pool& pool, std::uint32_t attribute)
{
  osg::ref_ptr<osg::Vec2Array> uvs = new osg::Vec2Array;
  for (int i = 0; i < pool.vertexCount(); ++i) {
    const auto uv = valueAt<std::array<float, 2>>(pool, i, attribute);
    uvs->push_back(osg::Vec2(uv[0], uv[1]));
  }
  return uvs;
}

osg::ref_ptr<osg::Vec3Array> storedNormals(const Pool& pool)
{
  osg::ref_ptr<osg::Vec3Array> normals = new osg::Vec3Array;
  for (int i = 0; i < pool.vertexCount(); ++i) {
    const auto normal = valueAt<std::array<float, 3>>(pool, i, Pool::normal);
    normals->push_back(osg::Vec3(normal[0], normal[1], normal[2]));
  }
  return normals;
}

osg::ref_ptr<osg::Vec4ubArray> colorsOf(const Pool& pool, const osg::Vec4ub& whole, bool byVertex, const Colors& colors)
{
  osg::ref_ptr<osg::Vec4ubArray> array = new osg::Vec4ubArray;
  array->setNormalize(true);
  const float opacity = static_cast<float>(whole.a()) / 255.0F;
  for (int i = 0; i < pool.vertexCount(); ++i) {
    auto color = whole;
    if (byVertex && pool.has(Pool::rgbaColor)) {
      const auto packed = valueAt<PackedColor>(pool, i, Pool::rgbaColor);
      color = faded(Colors::from(packed, colors.hasVertexAlpha() ? packed.a : 255), opacity);
    } else if (byVertex && pool.has(Pool::colorIndex)) {
      color = faded(colors.indexed(valueAt<std::uint32_t>(pool, i, Pool::colorIndex) & indexBits), opacity);
    }
    array->push_back(color);
  }
  return array;
}

std::optional<GLenum> modeOf(int type)
{
  switch (type) {
  case MeshPrimitiveRecord::triangleStrip:
    return GL_TRIANGLE_STRIP;
  case MeshPrimitiveRecord::triangleFan:
    return GL_TRIANGLE_FAN;
  case MeshPrimitiveRecord::quadStrip:
    return GL_QUAD_STRIP;
  case MeshPrimitiveRecord::indexedPolygon:
    return GL_POLYGON;
  default:
    return std::nullopt;
  }
}

/// Concave polygons become triangles.
osg::ref_ptr<osg::DrawElementsUInt> polygonElements(const std::vector<std::uint32_t>& indices,
                                                    const osg::Vec3Array& positions)
{
  std::vector<osg::Vec3> corners;
  for (const auto index : indices)
    corners.push_back(positions[index]);
  const auto area = areaNormal(corners);
  if (isConvex(corners, area)) return new osg::DrawElementsUInt(GL_POLYGON, indices.begin(), indices.end());
  osg::ref_ptr<osg::DrawElementsUInt> elements = new osg::DrawElementsUInt(GL_TRIANGLES);
  for (const auto corner : tessellate(corners, area))
    elements->push_back(indices[corner]);
  return elements;
}

void addPrimitives(const MeshRecord& mesh, osg::Geometry& geometry, const osg::Vec3Array& positions,
                   Complaints& complaints)
{
  for (const auto* child : mesh.findChildren(MeshPrimitiveRecord::code)) {
    const auto& primitive = static_cast<const MeshPrimitiveRecord&>(*child);
    const auto mode = modeOf(primitive.get(MeshPrimitiveRecord::fields.type));
    if (!mode) {
      complaints.tell(primitive, "Mesh: Unknown primitive type");
      continue;
    }
    const auto indices = primitive.indices();
    if (std::ranges::any_of(indices, [&](auto index) { return index >= positions.size(); })) continue;
    if (*mode == GL_POLYGON)
      geometry.addPrimitiveSet(polygonElements(indices, positions));
    else
      geometry.addPrimitiveSet(new osg::DrawElementsUInt(*mode, indices.begin(), indices.end()));
  }
}

/// For pools without normals: each vertex gets the mean of those of its triangles, weighted by their areas.
class NormalSummer : public osg::PrimitiveIndexFunctor {
public:
  explicit NormalSummer(const osg::Vec3Array& positions) : positions_(positions), sums_(new osg::Vec3Array)
  {
    sums_->resize(positions.size());
  }
  osg::ref_ptr<osg::Vec3Array> take()
  {
    for (auto& normal : *sums_)
      normal.normalize();
    return sums_;
  }
  void setVertexArray(unsigned, const osg::Vec2*) override {}
  void setVertexArray(unsigned, const osg::Vec3*) override {}
  void setVertexArray(unsigned, const osg::Vec4*) override {}
  void setVertexArray(unsigned, const osg::Vec2d*) override {}
  void setVertexArray(unsigned, const osg::Vec3d*) override {}
  void setVertexArray(unsigned, const osg::Vec4d*) override {}
  void drawArrays(GLenum, GLint, GLsizei) override {}
  void drawElements(GLenum, GLsizei, const GLubyte*) override {}
  void drawElements(GLenum, GLsizei, const GLushort*) override {}
  void drawElements(GLenum mode, GLsizei count, const GLuint* indices) override
  {
    for (GLsizei i = 2; i < count; ++i) {
      switch (mode) {
      case GL_TRIANGLES:
        if (i % 3 == 2) add(indices[i - 2], indices[i - 1], indices[i]);
        break;
      case GL_TRIANGLE_STRIP:
      case GL_QUAD_STRIP:
        if (i % 2 == 0)
          add(indices[i - 2], indices[i - 1], indices[i]);
        else
          add(indices[i - 1], indices[i - 2], indices[i]);
        break;
      default:
        add(indices[0], indices[i - 1], indices[i]);
      }
    }
  }

private:
  void add(GLuint a, GLuint b, GLuint c)
  {
    const auto normal = (positions_[b] - positions_[a]) ^ (positions_[c] - positions_[a]);
    for (const auto index : {a, b, c})
      (*sums_)[index] += normal;
  }

  const osg::Vec3Array& positions_;
  osg::ref_ptr<osg::Vec3Array> sums_;
};

} // namespace

osg::ref_ptr<MeshGeometry> meshGeometry(const MeshRecord& mesh, const FacePlace& place, const FaceState& state,
                                        FaceTranslator& translator, const ViewportTable& viewports)
{
  const auto* pool = mesh.findChild<Pool>();
  if (!pool) return nullptr;
  osg::ref_ptr<MeshGeometry> geometry = new MeshGeometry(viewports);
  const auto positions = positionsOf(*pool);
  geometry->setVertexArray(positions);

  const int lightMode = mesh.get(MeshRecord::fields.lightMode);
  const bool byVertex = lightMode == FaceRecord::gouraud || lightMode == FaceRecord::litGouraud;
  const auto whole = translator.colorOf(mesh, place, state);
  geometry->setColorArray(colorsOf(*pool, whole, byVertex, translator.colorsOf(mesh.file())),
                          osg::Array::BIND_PER_VERTEX);
  for (int unit = 0; unit < textureLayers; ++unit) {
    if (!state.key().hasLayer(unit)) continue;
    geometry->setTexCoordArray(static_cast<unsigned>(unit), uvsOf(*pool, Pool::baseUV >> unit),
                               osg::Array::BIND_PER_VERTEX);
  }
  addPrimitives(mesh, *geometry, *positions, translator.complaints());
  if (pool->has(Pool::normal)) {
    geometry->setNormalArray(storedNormals(*pool), osg::Array::BIND_PER_VERTEX);
  } else {
    NormalSummer summer(*positions);
    geometry->accept(summer);
    geometry->setNormalArray(summer.take(), osg::Array::BIND_PER_VERTEX);
  }
  return geometry;
}

} // namespace nalt
