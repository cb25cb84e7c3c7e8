#include "tests/scene/image/SyncFixture.h"

#include <osg/BlendFunc>
#include <osg/CullFace>
#include <osg/Depth>
#include <osg/Material>
#include <osg/PolygonMode>
#include <osg/PolygonOffset>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

class Faces : public SyncFixture {
protected:
  template <class T>
  void change(FaceRecord& face, const Field<T>& field, const typename Field<T>::Value& value)
  {
    face.set(field, value);
    sync().update(face);
    expectLikeFresh();
  }
};

constexpr const auto& fields = FaceRecord::fields;

bool isOn(const osg::StateSet& state, GLenum mode)
{
  return state.getMode(mode) & osg::StateAttribute::ON;
}

} // namespace

TEST_F(Faces, EqualFacesOfOneParentShareAGeode)
{
  auto& one = build.square(object, 0, 0, red);
  auto& two = build.square(object, 1, 0, green);
  EXPECT_EQ(&geometry(one), &geometry(two));
  EXPECT_EQ(faceGeodes(object), 1);
  EXPECT_EQ(geometry(one).getParent(0)->getName(), "facegeode");
}

TEST_F(Faces, AnotherTextureMovesAFaceToAnotherGeode)
{
  auto& one = build.square(object, 0, 0);
  auto& two = build.square(object, 1, 0);
  build.texture(0, "missing.rgb");
  sync();
  change(one, fields.texture, 0);
  EXPECT_NE(&geometry(one), &geometry(two));
  EXPECT_EQ(faceGeodes(object), 2);
  change(one, fields.texture, -1);
  EXPECT_EQ(&geometry(one), &geometry(two));
  EXPECT_EQ(faceGeodes(object), 1);
}

TEST_F(Faces, RemovingAFaceMovesTheNextOneDown)
{
  auto& one = build.square(object, 0, 0);
  auto& two = build.face(object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  auto& three = build.square(object, 5, 5);
  EXPECT_EQ(polygon(two).getFirst(), 4);
  EXPECT_EQ(polygon(three).getFirst(), 7);
  sync().remove(one);
  EXPECT_EQ(polygon(two).getFirst(), 0);
  EXPECT_EQ(polygon(three).getFirst(), 3);
  EXPECT_EQ(corner(three, 0), osg::Vec3(5, 5, 0));
  EXPECT_EQ(geometry(two).cornerCount(), 7);
}

TEST_F(Faces, TheLastFaceTakesItsGeodeAway)
{
  auto& one = build.square(object, 0, 0);
  auto& two = build.square(object, 1, 0);
  EXPECT_EQ(faceGeodes(object), 1);
  sync().remove(one);
  EXPECT_EQ(faceGeodes(object), 1);
  sync().remove(two);
  EXPECT_EQ(faceGeodes(object), 0);
  EXPECT_EQ(sync().nodeOf(object)->asGroup()->getNumChildren(), 0U);
  EXPECT_FALSE(sync().polygonOf(two));
}

TEST_F(Faces, ManyFacesAreSpreadOverGeometriesOfLimitedSize)
{
  std::vector<FaceRecord*> faces;
  for (int i = 0; i < FaceGeometry::cornerLimit / 4 + 1; ++i)
    faces.push_back(&build.square(object, i, 0));
  EXPECT_EQ(faceGeodes(object), 2);
  sync().remove(std::vector<FaceRecord*>(faces.begin() + 1, faces.end()));
  EXPECT_EQ(faceGeodes(object), 1);
  EXPECT_TRUE(sync().polygonOf(*faces[0]));
}

TEST_F(Faces, AMovedVertexIsRewrittenInPlace)
{
  auto& face = build.square(object, 0, 0);
  const auto* before = &polygon(face);
  face.vertexAt(2)->setPosition({3, 3, 1});
  sync().update(*face.vertexList());
  EXPECT_EQ(sync().polygonOf(face), before);
  EXPECT_EQ(corner(face, 2), osg::Vec3(3, 3, 1));
  EXPECT_EQ(sync().root()->getBound().contains(osg::Vec3(3, 3, 1)), true);
}

TEST_F(Faces, AnotherNumberOfCornersIsTakenOver)
{
  auto& face = build.square(object, 0, 0);
  auto& next = build.square(object, 2, 0);
  sync();
  build.vertex(face, {-1, 0.5, 0});
  sync().update(face);
  EXPECT_EQ(polygon(face).getCount(), 5);
  EXPECT_EQ(geometry(next).cornerCount(), 9);
  expectLikeFresh();
  while (face.vertexCount())
    face.vertexList()->removeVertex(face.vertexAt(0));
  sync().update(face);
  EXPECT_FALSE(sync().polygonOf(face));
  expectLikeFresh();
}

TEST_F(Faces, EachNumberOfCornersHasItsMode)
{
  auto& point = build.face(object, {{0, 0, 0}});
  auto& line = build.face(object, {{0, 0, 0}, {1, 0, 0}});
  auto& triangle = build.face(object, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}});
  auto& quad = build.square(object, 0, 0);
  auto& pentagon = build.face(object, {{0, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 2, 0}, {0, 1, 0}});
  EXPECT_EQ(polygon(point).getMode(), GLenum{GL_POINTS});
  EXPECT_EQ(polygon(line).getMode(), GLenum{GL_LINES});
  EXPECT_EQ(polygon(triangle).getMode(), GLenum{GL_TRIANGLES});
  EXPECT_EQ(polygon(quad).getMode(), GLenum{GL_QUADS});
  EXPECT_EQ(polygon(pentagon).getMode(), GLenum{GL_POLYGON});
  EXPECT_EQ(&geometry(triangle), &geometry(pentagon));
}

TEST_F(Faces, WireframesAreLines)
{
  auto& face = build.square(object, 0, 0);
  sync();
  change(face, fields.drawType, FaceRecord::wireframeClosed);
  EXPECT_EQ(polygon(face).getMode(), GLenum{GL_LINE_LOOP});
  change(face, fields.drawType, FaceRecord::wireframeOpen);
  EXPECT_EQ(polygon(face).getMode(), GLenum{GL_LINE_STRIP});
  change(face, fields.drawType, FaceRecord::omnidirectionalLight);
  EXPECT_EQ(polygon(face).getMode(), GLenum{GL_POINTS});
}

TEST_F(Faces, AnOutlineIsDrawnOverTheFaceInTheAlternateColor)
{
  auto& face = build.square(object, 0, 0, red);
  face.set(fields.alternatePackedColor, green);
  sync();
  change(face, fields.drawType, FaceRecord::outline);
  EXPECT_EQ(faceGeodes(object), 2);
  const auto& geodes = FaceGeodeParentUserData::of(*sync().nodeOf(object))->faceGeodes();
  for (auto* geode : geodes) {
    const auto& part = static_cast<const FaceGeometry&>(*geode->getDrawable(0));
    const auto& colors = static_cast<const osg::Vec4ubArray&>(*part.getColorArray());
    if (part.state().key().kind != DrawKind::outline) {
      EXPECT_EQ(colors[0], osg::Vec4ub(255, 0, 0, 255));
      continue;
    }
    EXPECT_EQ(colors[0], osg::Vec4ub(0, 255, 0, 255));
    EXPECT_EQ(geode->getStateSet()->getBinNumber(), 25);
    EXPECT_EQ(geode->getStateSet()->getBinName(), "RenderBin");
  }
  change(face, fields.drawType, FaceRecord::solidCulled);
  EXPECT_EQ(faceGeodes(object), 1);
}

TEST_F(Faces, TheDrawTypeSaysWhichSidesShow)
{
  auto& face = build.square(object, 0, 0);
  const auto* cull = static_cast<const osg::CullFace*>(stateSet(face).getAttribute(osg::StateAttribute::CULLFACE));
  ASSERT_TRUE(cull);
  EXPECT_EQ(cull->getMode(), osg::CullFace::BACK);
  EXPECT_TRUE(isOn(stateSet(face), GL_CULL_FACE));
  change(face, fields.drawType, FaceRecord::solidBothSides);
  EXPECT_FALSE(isOn(stateSet(face), GL_CULL_FACE));
}

TEST_F(Faces, SubfacesLieCloserToTheEyeTheDeeperTheyAre)
{
  auto& face = build.square(object, 0, 0);
  auto& subface = build.square(face, 0, 0);
  auto& deeper = build.square(subface, 0, 0);
  EXPECT_FALSE(stateSet(face).getAttribute(osg::StateAttribute::POLYGONOFFSET));
  for (const auto& [polygonRecord, depth] : {std::pair{&subface, 1.0F}, {&deeper, 2.0F}}) {
    const auto* offset = static_cast<const osg::PolygonOffset*>(
        stateSet(*polygonRecord).getAttribute(osg::StateAttribute::POLYGONOFFSET));
    ASSERT_TRUE(offset);
    EXPECT_EQ(offset->getFactor(), -1 * depth);
    EXPECT_EQ(offset->getUnits(), -20 * depth);
  }
  const auto* depth = static_cast<const osg::Depth*>(stateSet(deeper).getAttribute(osg::StateAttribute::DEPTH));
  EXPECT_EQ(depth->getFunction(), osg::Depth::LESS);
  EXPECT_TRUE(depth->getWriteMask());
  sync().remove(face);
  EXPECT_FALSE(sync().polygonOf(deeper));
}

TEST_F(Faces, ColorsComeFromThePaletteWithTheirIntensity)
{
  auto& face = build.square(object, 0, 0);
  auto* palette = build.file().colorPalette();
  palette->setEntry(3, {.a = 255, .b = 0, .g = 100, .r = 254});
  face.set(fields.flags, 0U);
  face.set(fields.colorIndex, 3U * 128 + 127);
  EXPECT_EQ(color(face), osg::Vec4ub(254, 100, 0, 255));
  change(face, fields.colorIndex, 3U * 128 + 64);
  EXPECT_EQ(color(face), osg::Vec4ub(128, 50, 0, 255));
  palette->setEntry(3, {.a = 0, .b = 255, .g = 255, .r = 0});
  sync().update(*palette);
  EXPECT_EQ(color(face), osg::Vec4ub(0, 129, 129, 255));
  change(face, fields.flags, FaceRecord::noColorFlag);
  EXPECT_EQ(color(face), osg::Vec4ub(255, 255, 255, 255));
}

TEST_F(Faces, TheLightModeSaysWhoseColorsAndWhetherLit)
{
  auto& face = build.square(object, 0, 0, red);
  face.vertexAt(1)->setPackedColor(blue);
  sync();
  for (const int mode : {FaceRecord::flat, FaceRecord::lit}) {
    change(face, fields.lightMode, static_cast<std::uint8_t>(mode));
    EXPECT_EQ(color(face, 1), osg::Vec4ub(255, 0, 0, 255));
    EXPECT_EQ(isOn(stateSet(face), GL_LIGHTING), mode == FaceRecord::lit);
    EXPECT_EQ(geometry(face).getNormalArray() != nullptr, mode == FaceRecord::lit);
  }
  for (const int mode : {FaceRecord::gouraud, FaceRecord::litGouraud}) {
    change(face, fields.lightMode, static_cast<std::uint8_t>(mode));
    EXPECT_EQ(color(face, 0), osg::Vec4ub(255, 0, 0, 255)) << "a corner without color takes that of the face";
    EXPECT_EQ(color(face, 1), osg::Vec4ub(0, 0, 255, 255));
    EXPECT_EQ(isOn(stateSet(face), GL_LIGHTING), mode == FaceRecord::litGouraud);
  }
}

TEST_F(Faces, CornersWithoutANormalTakeThatOfTheFace)
{
  auto& face = build.square(object, 0, 0);
  face.set(fields.lightMode, std::uint8_t{FaceRecord::lit});
  auto* vertex = build.file().create<NormalVertexRecord>();
  vertex->setPosition({-1, 0.5, 0});
  vertex->setNormal({0, 1, 0});
  face.vertexList()->addVertex(vertex);
  const auto& normals = static_cast<const osg::Vec3Array&>(*geometry(face).getNormalArray());
  EXPECT_EQ(normals[0], osg::Vec3(0, 0, 1));
  EXPECT_EQ(normals[4], osg::Vec3(0, 1, 0));
}

TEST_F(Faces, TransparencyBlends)
{
  auto& face = build.square(object, 0, 0);
  EXPECT_FALSE(isOn(stateSet(face), GL_BLEND));
  change(face, fields.transparency, std::uint16_t{32768});
  EXPECT_TRUE(isOn(stateSet(face), GL_BLEND));
  EXPECT_EQ(stateSet(face).getRenderingHint(), static_cast<int>(osg::StateSet::TRANSPARENT_BIN));
  const auto* blend = static_cast<const osg::BlendFunc*>(stateSet(face).getAttribute(osg::StateAttribute::BLENDFUNC));
  EXPECT_EQ(blend->getSource(), GLenum{GL_SRC_ALPHA});
  EXPECT_EQ(blend->getDestination(), GLenum{GL_ONE_MINUS_SRC_ALPHA});
  EXPECT_EQ(color(face).a(), 127);
}

TEST_F(Faces, TheTransparencyOfAnObjectIsThatOfItsFaces)
{
  auto& face = build.square(object, 0, 0);
  auto& subface = build.square(face, 0, 0);
  sync();
  object.set(ObjectRecord::fields.transparency, std::uint16_t{65535 / 2});
  sync().update(object);
  EXPECT_EQ(color(face).a(), 128);
  EXPECT_EQ(color(subface).a(), 128);
  expectLikeFresh();
}

TEST_F(Faces, AlphaOfCornersCountsUnlessAllAreClear)
{
  auto& face = build.square(object, 0, 0);
  face.set(fields.lightMode, std::uint8_t{FaceRecord::gouraud});
  for (int i = 0; i < 4; ++i)
    face.vertexAt(i)->setPackedColor({.a = 0, .b = 0, .g = 0, .r = 255});
  EXPECT_EQ(color(face).a(), 255);
  EXPECT_FALSE(isOn(stateSet(face), GL_BLEND));
  face.vertexAt(2)->setPackedColor({.a = 100, .b = 0, .g = 0, .r = 255});
  sync().update(face);
  EXPECT_EQ(color(face, 0).a(), 0);
  EXPECT_EQ(color(face, 2).a(), 100);
  EXPECT_TRUE(isOn(stateSet(face), GL_BLEND));
}

TEST_F(Faces, HiddenFacesAreNotDrawn)
{
  auto& face = build.square(object, 0, 0);
  sync();
  change(face, fields.flags, FaceRecord::packedColorFlag | FaceRecord::hiddenFlag);
  EXPECT_EQ(polygon(face).mask(), 0U);
  change(face, fields.flags, std::uint32_t{FaceRecord::packedColorFlag});
  EXPECT_EQ(polygon(face).mask(), ~0U);
}

TEST_F(Faces, AMaterialTakesTheColorOfTheFace)
{
  auto* palette = build.file().create<MaterialPaletteRecord>();
  palette->set(MaterialPaletteRecord::fields.index, 2);
  palette->set(MaterialPaletteRecord::fields.ambient, osg::Vec3f(0.4F, 0.4F, 0.4F));
  palette->set(MaterialPaletteRecord::fields.diffuse, osg::Vec3f(0.5F, 0.6F, 0.7F));
  palette->set(MaterialPaletteRecord::fields.specular, osg::Vec3f(0.1F, 0.2F, 0.3F));
  palette->set(MaterialPaletteRecord::fields.shininess, 50.0F);
  build.header().insertAncillary(palette);
  auto& face = build.square(object, 0, 0, red);
  face.set(fields.lightMode, std::uint8_t{FaceRecord::lit});
  face.set(fields.material, std::int16_t{2});

  const auto material = [&] {
    return static_cast<const osg::Material*>(stateSet(face).getAttribute(osg::StateAttribute::MATERIAL));
  };
  constexpr auto front = osg::Material::FRONT;
  ASSERT_TRUE(material());
  EXPECT_EQ(material()->getColorMode(), osg::Material::OFF);
  EXPECT_EQ(material()->getAmbient(front), osg::Vec4(0.4F, 0, 0, 1));
  EXPECT_EQ(material()->getDiffuse(front), osg::Vec4(0.5F, 0, 0, 1));
  EXPECT_EQ(material()->getSpecular(front), osg::Vec4(0.1F, 0.2F, 0.3F, 1));
  EXPECT_EQ(material()->getShininess(osg::Material::FRONT), 50.0F);
  EXPECT_EQ(material()->getShininess(osg::Material::BACK), 50.0F);

  change(face, fields.packedColor, green);
  EXPECT_EQ(material()->getDiffuse(front), osg::Vec4(0, 0.6F, 0, 1));
  palette->set(MaterialPaletteRecord::fields.alpha, 0.5F);
  sync().update(*palette);
  EXPECT_EQ(material()->getDiffuse(front).a(), 0.5F);
  EXPECT_TRUE(isOn(stateSet(face), GL_BLEND));
  EXPECT_EQ(color(face).a(), 128);
}

TEST_F(Faces, AMissingMaterialIsLeftOut)
{
  auto& face = build.square(object, 0, 0, red);
  face.set(fields.lightMode, std::uint8_t{FaceRecord::lit});
  face.set(fields.material, std::int16_t{9});
  const auto* material = static_cast<const osg::Material*>(stateSet(face).getAttribute(osg::StateAttribute::MATERIAL));
  EXPECT_EQ(material->getColorMode(), osg::Material::AMBIENT_AND_DIFFUSE);
}

TEST_F(Faces, ConcavePolygonsAreFilledWithinTheirEdges)
{
  // An arrow head, once beginning at the notch and once at a corner from which a fan would be wrong.
  const std::vector<osg::Vec3d> arrow = {{2, 1, 0}, {4, 0, 0}, {2, 4, 0}, {0, 0, 0}};
  auto rotated = arrow;
  std::ranges::rotate(rotated, rotated.begin() + 1);
  for (const auto& corners : {arrow, rotated}) {
    auto& face = build.face(object, corners);
    sync().translate(face);
    EXPECT_TRUE(polygon(face).triangles());
    EXPECT_NEAR(areaOf(geometry(face)), 6, 1e-5);
    sync().remove(face);
  }
}

TEST_F(Faces, BendingAPolygonInwardsTessellatesIt)
{
  auto& face = build.square(object, 0, 0);
  EXPECT_FALSE(polygon(face).triangles());
  face.vertexAt(2)->setPosition({0.25, 0.25, 0});
  sync().update(face);
  EXPECT_TRUE(polygon(face).triangles());
  EXPECT_NEAR(areaOf(geometry(face)), 0.25, 1e-5);
  face.vertexAt(2)->setPosition({1, 1, 0});
  sync().update(face);
  EXPECT_FALSE(polygon(face).triangles());
}

TEST_F(Faces, APolygonWithoutAreaIsNoTrouble)
{
  auto& face = build.face(object, {{1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}, {1, 1, 1}});
  face.set(fields.lightMode, std::uint8_t{FaceRecord::lit});
  EXPECT_EQ(polygon(face).getCount(), 5);
}

TEST_F(Faces, AReplicatedFaceIsShownAgain)
{
  auto& face = build.square(object, 0, 0);
  build.translation(face, {3, 0, 0});
  auto* replicate = build.file().create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, std::int16_t{2});
  face.insertAncillary(replicate);
  EXPECT_EQ(geometry(face).polygonCount(), 3);
  EXPECT_EQ(sync().root()->getBound().center().x(), 3.5F);
  sync().setNodeMask(face, 2);
  for (unsigned i = 0; i < 3; ++i)
    EXPECT_EQ(geometry(face).polygonAt(i)->mask(), 2U);
  sync().remove(face);
  EXPECT_EQ(faceGeodes(object), 0);
}

TEST_F(Faces, APrimitiveSetLeadsBackToItsFace)
{
  auto& one = build.square(object, 0, 0);
  auto& two = build.square(object, 1, 0);
  EXPECT_EQ(Sync::recordOf(geometry(one), 0), &one);
  EXPECT_EQ(Sync::recordOf(geometry(one), 1), &two);
  EXPECT_EQ(Sync::recordOf(geometry(one), 2), nullptr);
}

TEST_F(Faces, PointsOfSelectedVerticesGoWhenTheGeometryChanges)
{
  auto& one = build.square(object, 0, 0);
  auto& two = build.square(object, 1, 0);
  const osg::ref_ptr<osg::DrawArrays> points = new osg::DrawArrays(GL_POINTS, 0, 1);
  points->setName("largevertices");
  const_cast<FaceGeometry&>(geometry(one)).addPrimitiveSet(points);
  EXPECT_EQ(geometry(one).getNumPrimitiveSets(), 3U);
  sync().remove(one);
  EXPECT_EQ(geometry(two).getNumPrimitiveSets(), 1U);
}
