#include "tests/scene/image/MeshBuilder.h"

namespace nalt::tests {

using namespace fltapi;

void setPool(TreeBuilder& build, MeshRecord& mesh, const std::vector<osg::Vec3d>& positions, PackedColor color)
{
  using Pool = LocalVertexPoolRecord;
  auto& pool = build.add<Pool>(mesh);
  constexpr std::uint32_t mask = Pool::position | Pool::rgbaColor;
  pool.resize(12 + Pool::stride(mask) * positions.size());
  pool.set(Pool::fields.vertexCount, static_cast<std::uint32_t>(positions.size()));
  pool.set(Pool::fields.attributeMask, mask);
  for (int i = 0; i < static_cast<int>(positions.size()); ++i) {
    FieldTraits<osg::Vec3d>::store(pool.data() + pool.offsetOf(i, Pool::position),
                                   positions[static_cast<std::size_t>(i)]);
    storeAt(pool.data() + pool.offsetOf(i, Pool::rgbaColor), color);
  }
}

void addPrimitive(TreeBuilder& build, MeshRecord& mesh, int type, const std::vector<std::uint32_t>& indices)
{
  auto& primitive = build.add<MeshPrimitiveRecord>(mesh);
  primitive.resize(12 + 4 * indices.size());
  primitive.set(MeshPrimitiveRecord::fields.type, static_cast<std::int16_t>(type));
  primitive.set(MeshPrimitiveRecord::fields.indexSize, std::int16_t{4});
  primitive.set(MeshPrimitiveRecord::fields.vertexCount, static_cast<std::uint32_t>(indices.size()));
  for (std::size_t i = 0; i < indices.size(); ++i)
    storeAt(primitive.data() + 12 + 4 * i, indices[i]);
}

} // namespace nalt::tests
