#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

#include <osg/Shader>
#include <osgDB/WriteFile>

#include "tests/support/TempFolder.h"

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

constexpr int size = 100;

/// Looks down on the square from (0, 0) to (10, 10), ten pixels to the unit.
class Drawing : public SyncFixture {
protected:
  void SetUp() override
  {
    view_ = OffscreenView::create(size, size);
    if (!view_) GTEST_SKIP() << "no OpenGL without a display";
  }
  /// The color at a place of the plane.
  osg::Vec4ub at(double x, double y) const { return view_->pixel(static_cast<int>(x * 10), static_cast<int>(y * 10)); }
  void draw()
  {
    view_->setScene(sync().root());
    view_->lookDown(10);
    view_->draw();
  }
  FaceRecord& block(PrimNodeRecord& parent, double x, double y, double side, PackedColor color, double z = 0)
  {
    return build.face(parent, {{x, y, z}, {x + side, y, z}, {x + side, y + side, z}, {x, y + side, z}}, color);
  }

  std::unique_ptr<OffscreenView> view_;
};

const osg::Vec4ub redPixel(255, 0, 0, 255);
const osg::Vec4ub greenPixel(0, 255, 0, 255);
const osg::Vec4ub bluePixel(0, 0, 255, 255);

/// Writes a picture of one color, or with a left and a right half.
std::string writePicture(const std::string& path, const std::vector<osg::Vec4ub>& columns)
{
  const osg::ref_ptr<osg::Image> image = new osg::Image;
  constexpr int side = 8;
  image->allocateImage(side, side, 1, GL_RGBA, GL_UNSIGNED_BYTE);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      const auto& color = columns[static_cast<std::size_t>(x) * columns.size() / side];
      std::copy_n(color.ptr(), 4, image->data(static_cast<unsigned>(x), static_cast<unsigned>(y)));
    }
  }
  EXPECT_TRUE(osgDB::writeImageFile(*image, path));
  return path;
}

} // namespace

TEST_F(Drawing, FacesAreWhereTheirCornersAre)
{
  block(object, 1, 1, 3, red);
  block(object, 6, 6, 3, green);
  draw();
  EXPECT_EQ(at(2, 2), redPixel);
  EXPECT_EQ(at(7, 7), greenPixel);
  EXPECT_EQ(at(7, 2), OffscreenView::background());
}

TEST_F(Drawing, BacksAreSeenOnlyWhereBothSidesAreDrawn)
{
  const std::vector<osg::Vec3d> back = {{1, 1, 0}, {1, 4, 0}, {4, 4, 0}, {4, 1, 0}};
  auto& face = build.face(object, back, red);
  draw();
  EXPECT_EQ(at(2, 2), OffscreenView::background());
  face.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::solidBothSides});
  sync().update(face);
  draw();
  EXPECT_EQ(at(2, 2), redPixel);
}

TEST_F(Drawing, ConcavePolygonsLeaveTheirNotchOpen)
{
  build.face(object, {{5, 4, 0}, {9, 1, 0}, {5, 9, 0}, {1, 1, 0}}, red);
  draw();
  EXPECT_EQ(at(5, 6), redPixel);
  EXPECT_EQ(at(2.5, 2.5), redPixel);
  EXPECT_EQ(at(5, 2), OffscreenView::background());
}

TEST_F(Drawing, OutlinesShowNoInnerEdges)
{
  build.face(object, {{1, 1, 0}, {5, 1, 0}, {9, 5, 0}, {9, 9, 0}, {1, 9, 0}}, red);
  build.face(object, {{5, 4, 0}, {8, 3, 0}, {7, 8, 0}, {2, 2, 0}}, red);
  view_->setWireframe(true);
  draw();
  EXPECT_LT(view_->drawnPixels(), 600);
  const double edges =
      4 + std::sqrt(32.0) + 4 + 8 + 8 + std::sqrt(10.0) + std::sqrt(26.0) + std::sqrt(61.0) + std::sqrt(13.0);
  EXPECT_LE(view_->drawnPixels(), static_cast<int>(10 * edges) + 10);
  EXPECT_EQ(at(3, 7), OffscreenView::background()) << "a fan of the first polygon has an edge here";
}

TEST_F(Drawing, SubfacesCoverTheirFace)
{
  auto& face = block(object, 1, 1, 8, red);
  auto& subface = block(face, 3, 3, 4, green);
  block(subface, 4, 4, 2, blue);
  draw();
  EXPECT_EQ(at(2, 2), redPixel);
  EXPECT_EQ(at(3.5, 3.5), greenPixel);
  EXPECT_EQ(at(5, 5), bluePixel);
}

TEST_F(Drawing, TransparentFacesLetWhatIsBehindShineThrough)
{
  block(object, 1, 1, 8, red);
  auto& above = block(object, 3, 3, 4, blue, 1);
  above.set(FaceRecord::fields.transparency, std::uint16_t{32768});
  draw();
  EXPECT_NEAR(at(5, 5).r(), 128, 2);
  EXPECT_NEAR(at(5, 5).b(), 127, 2);
}

TEST_F(Drawing, LitFacesAreBrightestWhenSeenFromTheFront)
{
  auto& flat = block(object, 1, 1, 3, red);
  auto& steep = build.face(object, {{5, 1, 0}, {6, 1, 5}, {6, 4, 5}, {5, 4, 0}}, red);
  for (auto* face : {&flat, &steep})
    face->set(FaceRecord::fields.lightMode, std::uint8_t{FaceRecord::lit});
  steep.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::solidBothSides});
  draw();
  EXPECT_GT(at(2, 2).r(), 180);
  EXPECT_LT(at(5.5, 2).r(), at(2, 2).r() / 2);
  EXPECT_GT(at(5.5, 2).r(), 0);
}

TEST_F(Drawing, GouraudFacesBlendTheColorsOfTheirCorners)
{
  auto& face = block(object, 0, 0, 10, red);
  face.set(FaceRecord::fields.lightMode, std::uint8_t{FaceRecord::gouraud});
  for (int i = 0; i < 4; ++i)
    face.vertexAt(i)->setPackedColor(i == 1 || i == 2 ? blue : red);
  draw();
  EXPECT_GT(at(0.5, 5).r(), 230);
  EXPECT_NEAR(at(5, 5).r(), 128, 8);
  EXPECT_GT(at(9.5, 5).b(), 230);
}

TEST_F(Drawing, PointsAndLinesAreDrawn)
{
  auto& point = build.face(object, {{2.05, 2.05, 0}}, red);
  point.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::omnidirectionalLight});
  build.face(object, {{1, 5.05, 0}, {9, 5.05, 0}}, green);
  auto& loop = block(object, 6, 6, 3, blue);
  loop.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::wireframeClosed});
  draw();
  EXPECT_EQ(at(2, 2), redPixel);
  EXPECT_EQ(at(5, 5), greenPixel);
  EXPECT_EQ(at(7.5, 7.5), OffscreenView::background());
  EXPECT_GT(view_->drawnPixels(), 9 + 78 + 100);
}

TEST_F(Drawing, OutlinesHaveTheAlternateColor)
{
  auto& face = block(object, 2, 2, 6, red);
  face.set(FaceRecord::fields.drawType, std::uint8_t{FaceRecord::outline});
  face.set(FaceRecord::fields.alternatePackedColor, green);
  draw();
  EXPECT_EQ(at(5, 5), redPixel);
  int greens = 0;
  for (int x = 0; x < size; ++x)
    greens += view_->pixel(x, 50) == greenPixel;
  EXPECT_GE(greens, 2);
}

TEST_F(Drawing, LightPointsHaveTheirSizeAndColor)
{
  auto& light = build.add<LightPointRecord>(group);
  light.set(LightPointRecord::fields.appearance.maximumPixelSize, 8.0F);
  light.set(LightPointRecord::fields.appearance.intensity, 0.5F);
  build.add<VertexListRecord>(light);
  build.vertex(light, {5, 5, 0}).setPackedColor(green);
  draw();
  EXPECT_EQ(view_->drawnPixels(), 64);
  EXPECT_EQ(at(5, 5), osg::Vec4ub(0, 128, 0, 255));
}

TEST_F(Drawing, ReplicasAndInstancesAreDrawnInTheirPlaces)
{
  build.definition(1);
  build.translation(build.reference(group, 1), {3, 3, 0});
  build.translation(build.reference(group, 1), {6, 3, 0});
  auto& row = build.add<GroupRecord>(group);
  build.square(build.add<ObjectRecord>(row), 0, 0, red);
  build.translation(row, {2, 0, 0});
  auto* replicate = build.file().create<ReplicateRecord>();
  replicate->set(ReplicateRecord::fields.count, std::int16_t{2});
  row.insertAncillary(replicate);
  draw();
  for (const double x : {0.5, 2.5, 4.5})
    EXPECT_EQ(at(x, 0.5), redPixel);
  EXPECT_EQ(at(1.5, 0.5), OffscreenView::background());
  EXPECT_EQ(at(6.5, 0.5), OffscreenView::background());
  EXPECT_EQ(at(3.5, 3.5), osg::Vec4ub(255, 255, 255, 255));
  EXPECT_EQ(at(6.5, 3.5), osg::Vec4ub(255, 255, 255, 255));
}

TEST_F(Drawing, TexturesLieOnTheirCoordinates)
{
  const TempFolder folder;
  writePicture(folder / "halves.png", {redPixel, greenPixel});
  build.file().setPath(folder / "model.flt");
  build.texture(4, "halves.png");
  auto& face = build.face(object, {});
  face.set(FaceRecord::fields.texture, std::int16_t{4});
  const osg::Vec2 corners[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
  for (const auto& corner : corners) {
    auto* vertex = build.file().create<TextureVertexRecord>();
    vertex->setPosition(osg::Vec3d(corner * 10.0F, 0));
    vertex->setUV(corner);
    face.vertexList()->addVertex(vertex);
  }
  draw();
  EXPECT_EQ(at(2, 5), redPixel);
  EXPECT_EQ(at(8, 5), greenPixel);

  face.set(FaceRecord::fields.packedColor, blue);
  sync().update(face);
  draw();
  EXPECT_EQ(at(2, 5), osg::Vec4ub(0, 0, 0, 255)) << "the texture is multiplied by the color of the face";
  face.set(FaceRecord::fields.textureWhite, std::uint8_t{1});
  sync().update(face);
  draw();
  EXPECT_EQ(at(2, 5), redPixel);
}

TEST_F(Drawing, LayersOfTexturesAreMultiplied)
{
  const TempFolder folder;
  build.texture(0, writePicture(folder / "base.png", {osg::Vec4ub(255, 255, 0, 255)}));
  build.texture(1, writePicture(folder / "layer.png", {osg::Vec4ub(0, 255, 255, 255)}));
  auto& face = block(object, 0, 0, 10, {});
  face.set(FaceRecord::fields.texture, std::int16_t{0});
  draw();
  EXPECT_EQ(at(5, 5), osg::Vec4ub(255, 255, 0, 255));

  auto* layers = static_cast<MultiTextureRecord*>(build.file().createRecord(opcodes::multiTexture));
  layers->resize(16);
  std::memset(layers->data() + 8, 0, 8);
  fltapi::storeAt(layers->data() + 8, std::uint16_t{1});
  face.insertAncillary(layers);
  ASSERT_TRUE(layers->hasLayer(1));
  sync().update(*layers);
  draw();
  EXPECT_EQ(at(5, 5), greenPixel);

  sync().translate(block(object, 0, 0, 10, blue, /*z=*/-5));
  writePicture(folder / "layer.png", {osg::Vec4ub(255, 255, 255, 0)});
  sync().updatePalette(opcodes::texturePalette, /*reload=*/true);
  draw();
  EXPECT_EQ(at(5, 5), bluePixel) << "a clear layer lets what is behind the face shine through";
}

TEST_F(Drawing, ShadersColorTheirFaces)
{
  const TempFolder folder;
  writeFile(folder / "blue.frag", "void main() { gl_FragColor = vec4(0.0, 0.0, 1.0, 1.0); }\n");
  auto* shader = build.file().create<ShaderPaletteRecord>();
  shader->resize(1044 + 1024);
  shader->set(ShaderPaletteRecord::fields.index, 5);
  shader->set(ShaderPaletteRecord::fields.type, std::int32_t{ShaderPaletteRecord::glsl});
  fltapi::storeAt(shader->data() + 1036, std::int32_t{0});
  fltapi::storeAt(shader->data() + 1040, std::int32_t{1});
  fltapi::FieldTraits<fltapi::Text<1024>>::store(shader->data() + 1044, "blue.frag");
  build.header().insertAncillary(shader);
  build.file().setPath(folder / "model.flt");
  auto& face = block(object, 0, 0, 10, red);
  face.set(FaceRecord::fields.shader, std::int16_t{5});
  draw();
  EXPECT_EQ(at(5, 5), bluePixel);

  writeFile(folder / "blue.frag", "void main() { gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0); }\n");
  sync().update(*shader);
  draw();
  EXPECT_EQ(at(5, 5), greenPixel);
  std::filesystem::remove(folder / "blue.frag");
  sync().update(*shader);
  draw();
  EXPECT_EQ(at(5, 5), redPixel) << "without its program a face is drawn plainly";
}

TEST_F(Drawing, EditsShowInTheNextFrame)
{
  auto& face = block(object, 1, 1, 3, red);
  draw();
  for (int i = 0; i < 4; ++i)
    face.vertexAt(i)->setPosition(face.vertexAt(i)->position() + osg::Vec3d(5, 5, 0));
  sync().update(face);
  auto& other = block(object, 1, 1, 2, green);
  sync().translate(other);
  draw();
  EXPECT_EQ(at(7, 7), redPixel);
  EXPECT_EQ(at(2, 2), greenPixel);
  sync().remove(face);
  draw();
  EXPECT_EQ(at(7, 7), OffscreenView::background());
  EXPECT_EQ(at(2, 2), greenPixel);
}
