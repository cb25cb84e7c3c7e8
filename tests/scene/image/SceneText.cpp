#include "tests/scene/image/SceneText.h"

#include "scene/image/FaceGeometry.h"
#include "scene/image/Sync.h"

#include <osg/Material>
#include <osg/MatrixTransform>
#include <osg/PolygonOffset>
#include <osg/Switch>
#include <osg/Texture2D>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <vector>

namespace nalt::tests {

namespace {

using Lines = std::vector<std::string>;

std::string joined(Lines lines)
{
  std::ranges::sort(lines);
  std::string text;
  for (const auto& line : lines)
    text += line + "\n";
  return text;
}

template <class Vector>
void print(std::ostream& out, const Vector& vector)
{
  for (int i = 0; i < Vector::num_components; ++i)
    out << ' ' << +vector[i];
}

template <class Array>
void printRun(std::ostream& out, const char* label, const osg::Array* array, const NaltPolygon& polygon)
{
  if (!array) return;
  out << ' ' << label;
  const auto& values = static_cast<const Array&>(*array);
  for (int i = 0; i < polygon.getCount(); ++i)
    print(out, values[static_cast<std::size_t>(polygon.getFirst() + i)]);
}

void printState(std::ostream& out, const FaceStateKey& key)
{
  out << "state " << key.file << ' ' << static_cast<int>(key.kind) << key.lit << key.transparent << ' '
      << +key.lineStyle << ' ' << key.subfaceDepth << ' ' << key.material << ' ' << key.shader << ' ' << key.pointSize
      << ' ' << key.litColor << ' ' << key.transparency;
  for (const auto texture : key.textures)
    out << ' ' << texture;
}

void printMaterial(std::ostream& out, const osg::Material& material)
{
  for (const auto& color : {material.getAmbient(osg::Material::FRONT), material.getDiffuse(osg::Material::FRONT),
                            material.getSpecular(osg::Material::FRONT), material.getEmission(osg::Material::FRONT)})
    print(out, color);
  out << ' ' << material.getShininess(osg::Material::FRONT) << ' ' << material.getColorMode();
}

void printAttribute(std::ostream& out, const osg::StateAttribute& attribute)
{
  out << ' ' << attribute.className();
  if (const auto* material = dynamic_cast<const osg::Material*>(&attribute)) printMaterial(out, *material);
  if (const auto* offset = dynamic_cast<const osg::PolygonOffset*>(&attribute))
    out << ' ' << offset->getFactor() << ' ' << offset->getUnits();
  const auto* texture = dynamic_cast<const osg::Texture2D*>(&attribute);
  if (texture && texture->getImage())
    out << ' ' << texture->getImage()->getFileName() << ' ' << texture->getWrap(osg::Texture::WRAP_S);
}

/// What really draws, which comes from the palettes too.
std::string textOf(const osg::StateSet& state)
{
  std::ostringstream out;
  for (const auto& [kind, attribute] : state.getAttributeList())
    printAttribute(out, *attribute.first);
  for (const auto& layer : state.getTextureAttributeList()) {
    out << " layer";
    for (const auto& [kind, attribute] : layer)
      printAttribute(out, *attribute.first);
  }
  for (const auto& [mode, value] : state.getModeList())
    out << ' ' << mode << '=' << value;
  out << " bin " << state.getBinNumber() << ' ' << state.getRenderingHint();
  return out.str();
}

void addPolygons(const FaceGeometry& geometry, Lines& lines)
{
  const auto state = textOf(*geometry.getParent(0)->getStateSet());
  for (unsigned i = 0; i < static_cast<unsigned>(geometry.polygonCount()); ++i) {
    const auto& polygon = *geometry.polygonAt(i);
    std::ostringstream out;
    printState(out, geometry.state().key());
    out << " record " << polygon.record()->serial() << " mask " << polygon.mask() << " mode " << polygon.getMode();
    printRun<osg::Vec3Array>(out, "at", geometry.getVertexArray(), polygon);
    printRun<osg::Vec3Array>(out, "normals", geometry.getNormalArray(), polygon);
    printRun<osg::Vec4ubArray>(out, "colors", geometry.getColorArray(), polygon);
    for (unsigned unit = 0; unit < geometry.getNumTexCoordArrays(); ++unit)
      printRun<osg::Vec2Array>(out, "uvs", geometry.getTexCoordArray(unit), polygon);
    if (polygon.triangles()) {
      out << " triangles";
      for (const auto corner : *polygon.triangles())
        out << ' ' << corner;
    }
    lines.push_back(out.str() + " drawn with" + state);
  }
}

template <class Array>
void printAll(std::ostream& out, const char* label, const osg::Array* array)
{
  if (!array) return;
  out << ' ' << label;
  for (const auto& value : static_cast<const Array&>(*array))
    print(out, value);
}

std::string textOfNode(const osg::Node& node, bool inSwitchOn);

std::string textOfGroup(const osg::Group& group)
{
  const auto* switchNode = dynamic_cast<const osg::Switch*>(&group);
  Lines lines;
  for (unsigned i = 0; i < group.getNumChildren(); ++i) {
    const auto& child = *group.getChild(i);
    if (dynamic_cast<const NaltGeode*>(&child)) {
      const auto* geometry = dynamic_cast<const FaceGeometry*>(child.asGroup()->getChild(0));
      if (geometry) {
        addPolygons(*geometry, lines);
        continue;
      }
    }
    lines.push_back(textOfNode(child, !switchNode || switchNode->getValue(i)));
  }
  return joined(lines);
}

std::string textOfNode(const osg::Node& node, bool inSwitchOn)
{
  std::ostringstream out;
  out << node.className() << " \"" << node.getName() << "\" mask " << node.getNodeMask() << (inSwitchOn ? "" : " off");
  if (const auto* record = Sync::recordOf(node)) out << " record " << record->serial();
  if (const auto* state = dynamic_cast<const NaltGeode*>(&node) ? node.getStateSet() : nullptr)
    out << " drawn with" << textOf(*state);
  if (const auto* transform = dynamic_cast<const osg::MatrixTransform*>(&node)) {
    out << " matrix";
    std::copy_n(transform->getMatrix().ptr(), 16, std::ostream_iterator<double>(out, " "));
  }
  if (const auto* geometry = node.asGeometry()) {
    printAll<osg::Vec3Array>(out, "at", geometry->getVertexArray());
    printAll<osg::Vec3Array>(out, "normals", geometry->getNormalArray());
    printAll<osg::Vec4ubArray>(out, "colors", geometry->getColorArray());
    for (unsigned unit = 0; unit < geometry->getNumTexCoordArrays(); ++unit)
      printAll<osg::Vec2Array>(out, "uvs", geometry->getTexCoordArray(unit));
    for (unsigned i = 0; i < geometry->getNumPrimitiveSets(); ++i) {
      const auto& set = *geometry->getPrimitiveSet(i);
      out << " primitive " << set.getMode();
      for (unsigned k = 0; k < set.getNumIndices(); ++k)
        out << ' ' << set.index(k);
    }
  }
  if (const auto* group = node.asGroup()) {
    std::istringstream content(textOfGroup(*group));
    for (std::string line; std::getline(content, line);)
      out << "\n  " << line;
  }
  return out.str();
}

} // namespace

std::string textOf(const osg::Node& scene)
{
  return textOfNode(scene, true);
}

} // namespace nalt::tests
