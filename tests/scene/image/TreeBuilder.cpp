#include "tests/scene/image/TreeBuilder.h"

namespace nalt::tests {

using namespace fltapi;

TreeBuilder::TreeBuilder()
{
  file_->setQuiet(true);
  file_->initNew();
}

FaceRecord& TreeBuilder::face(PrimNodeRecord& parent, const std::vector<osg::Vec3d>& corners, PackedColor color)
{
  auto& face = add<FaceRecord>(parent);
  face.set(FaceRecord::fields.flags, FaceRecord::packedColorFlag);
  face.set(FaceRecord::fields.packedColor, color);
  add<VertexListRecord>(face);
  for (const auto& corner : corners)
    vertex(face, corner);
  return face;
}

FaceRecord& TreeBuilder::square(PrimNodeRecord& parent, double x, double y, PackedColor color)
{
  return face(parent, {{x, y, 0}, {x + 1, y, 0}, {x + 1, y + 1, 0}, {x, y + 1, 0}}, color);
}

VertexBaseRecord& TreeBuilder::vertex(PrimNodeRecord& polygon, const osg::Vec3d& position)
{
  auto* vertex = file_->create<VertexRecord>();
  vertex->setPosition(position);
  polygon.findChild<VertexListRecord>()->addVertex(vertex);
  return *vertex;
}

MatrixRecord& TreeBuilder::translation(PrimNodeRecord& node, const osg::Vec3d& by)
{
  auto* matrix = file_->create<MatrixRecord>();
  matrix->setMatrix(osg::Matrixd::translate(by));
  node.insertAncillary(matrix);
  return *matrix;
}

TexturePaletteRecord& TreeBuilder::texture(int index, const std::string& path)
{
  auto* texture = file_->create<TexturePaletteRecord>();
  texture->set(TexturePaletteRecord::fields.index, index);
  texture->set(TexturePaletteRecord::fields.fileName, path);
  header().insertAncillary(texture);
  return *texture;
}

InstanceDefinitionRecord& TreeBuilder::definition(int number)
{
  auto* definition = file_->create<InstanceDefinitionRecord>();
  definition->set(InstanceDefinitionRecord::fields.instanceNumber, static_cast<std::uint16_t>(number));
  file_->addInstanceDefinition(*definition);
  square(add<ObjectRecord>(*definition), 0, 0);
  return *definition;
}

InstanceReferenceRecord& TreeBuilder::reference(PrimNodeRecord& parent, int number)
{
  auto& reference = add<InstanceReferenceRecord>(parent);
  reference.set(InstanceReferenceRecord::fields.instanceNumber, static_cast<std::uint16_t>(number));
  return reference;
}

} // namespace nalt::tests
