#include "fltapi/visitors/MakeExternalVisitor.h"
#include "scene/image/ModUserData.h"
#include "scene/image/Visibility.h"
#include "tests/scene/image/MeshBuilder.h"
#include "tests/scene/image/OffscreenView.h"
#include "tests/scene/image/SyncFixture.h"

#include <functional>
#include <random>

using namespace nalt;
using namespace nalt::tests;
using namespace fltapi;

namespace {

/// Long series of edits as tools make them, each followed by the calls that bring the image up to date.
class EditWalk : public SyncFixture {
protected:
  using Record = PrimNodeRecord*;

  void start(unsigned number)
  {
    random_.seed(number);
    nodes_ = {&build.header(), &group, &object};
    for (int i = 0; i < definitions; ++i)
      nodes_.push_back(build.definition(i).primaryChildAt(0));
    for (int i = 0; i + 1 < definitions; ++i) // instances that show instances
      build.reference(*nodes_[nodes_.size() - static_cast<std::size_t>(definitions - i)], i + 1);
    build.texture(0, "none.rgb");
    for (int i = 0; i < 2; ++i) {
      materials_[i] = build.file().create<MaterialPaletteRecord>();
      materials_[i]->set(MaterialPaletteRecord::fields.index, i);
      build.header().insertAncillary(materials_[i]);
    }
    appearance_ = build.file().create<LightPointAppearancePaletteRecord>();
    appearance_->set(LightPointAppearancePaletteRecord::fields.index, 0);
    build.header().insertAncillary(appearance_);
    if (!build.file().colorPalette()) build.header().insertAncillary(build.file().create<ColorPaletteRecord>());
    other_.square(other_.header(), 3, 3);
    MakeExternalVisitor mark(&other_.file());
    other_.header().traverse(mark);
    external_ = &build.add<ExternalRecord>(group);
    sync();
  }

  void step()
  {
    static const std::vector<void (EditWalk::*)()> edits = {
        &EditWalk::addFace,     &EditWalk::addFace,       &EditWalk::addFace,        &EditWalk::addSubface,
        &EditWalk::addNode,     &EditWalk::moveVertex,    &EditWalk::addVertex,      &EditWalk::setField,
        &EditWalk::setField,    &EditWalk::removeNode,    &EditWalk::toggleHide,     &EditWalk::setSwitch,
        &EditWalk::setLod,      &EditWalk::setMatrix,     &EditWalk::reparent,       &EditWalk::setReplicate,
        &EditWalk::addMesh,     &EditWalk::editMesh,      &EditWalk::addLight,       &EditWalk::editLight,
        &EditWalk::setMaterial, &EditWalk::setColorEntry, &EditWalk::setAppearance,  &EditWalk::setLayers,
        &EditWalk::setObject,   &EditWalk::moveNode,      &EditWalk::toggleExternal, &EditWalk::replicateFace,
        &EditWalk::moveSubface, &EditWalk::updateMany};
    (this->*edits[pick(edits.size())])();
  }

  /// Both images look the same, too. Blending is off: what is drawn first of two equally far polygons may differ.
  void expectDrawnLikeFresh()
  {
    const auto view = OffscreenView::create(80, 80);
    if (!view) return;
    Sync fresh(build.file());
    fresh.translateAll();
    fresh.setShowsAllLods(sync().showsAllLods());
    fresh.setLodState(sync().lodState());
    const auto picture = [&](Sync& scene) {
      const osg::ref_ptr<osg::Group> top = new osg::Group;
      top->getOrCreateStateSet()->setMode(GL_BLEND, osg::StateAttribute::OFF | osg::StateAttribute::OVERRIDE);
      top->addChild(scene.root());
      view->setScene(top);
      view->lookAlong({1, 2, -1}, {0, 0, 1});
      const osg::ref_ptr<osg::Image> image = new osg::Image(*view->draw());
      view->setScene(nullptr);
      return image;
    };
    const auto stepwise = picture(sync());
    const auto whole = picture(fresh);
    int different = 0;
    for (unsigned i = 0; i < stepwise->getTotalSizeInBytes(); ++i)
      different += std::abs(stepwise->data()[i] - whole->data()[i]) > 2;
    EXPECT_LT(different, static_cast<int>(stepwise->getTotalSizeInBytes() / 500));
  }

private:
  static constexpr int definitions = 5;
  std::size_t pick(std::size_t count) { return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_); }
  double coordinate() { return static_cast<double>(pick(100)); }
  osg::Vec3d point() { return {coordinate(), coordinate(), coordinate()}; }
  Record anyNode() { return nodes_[pick(nodes_.size())]; }
  FaceRecord* anyFace() { return faces_.empty() ? nullptr : faces_[pick(faces_.size())]; }

  void addFace()
  {
    std::vector<osg::Vec3d> corners(1 + pick(6));
    std::ranges::generate(corners, [&] { return point(); });
    faces_.push_back(&build.face(*anyNode(), corners, {255, static_cast<std::uint8_t>(pick(256)), 0, 0}));
    sync().translate(*faces_.back());
  }
  void addSubface()
  {
    auto* face = anyFace();
    if (!face) return;
    faces_.push_back(&build.face(*face, {point(), point(), point()}));
    sync().translate(*faces_.back());
  }
  void addNode()
  {
    auto& parent = *anyNode();
    PrimNodeRecord* node = nullptr;
    switch (pick(7)) {
    case 0:
      node = &build.add<SwitchRecord>(parent);
      break;
    case 1:
      node = &build.add<LodRecord>(parent);
      break;
    case 2:
      node = &build.add<DofRecord>(parent);
      break;
    case 3:
      node = &build.add<ObjectRecord>(parent);
      break;
    case 4:
      // Of instances that lead back to themselves, what was translated first decides what is shown.
      if (isInDefinition(parent)) return;
      sync().translate(build.reference(parent, static_cast<int>(pick(definitions + 1))));
      return;
    default:
      node = &build.add<GroupRecord>(parent);
    }
    nodes_.push_back(node);
    sync().translate(*node);
  }
  void moveVertex()
  {
    auto* face = anyFace();
    if (!face || face->vertexCount() == 0) return;
    face->vertexAt(static_cast<int>(pick(static_cast<std::size_t>(face->vertexCount()))))->setPosition(point());
    sync().update(*face);
  }
  void addVertex()
  {
    auto* face = anyFace();
    if (!face) return;
    if (pick(2) && face->vertexCount())
      face->vertexList()->removeVertex(face->vertexAt(0));
    else
      build.vertex(*face, point());
    sync().update(*face->vertexList());
  }
  void setField()
  {
    auto* face = anyFace();
    if (!face) return;
    const auto& fields = FaceRecord::fields;
    switch (pick(8)) {
    case 6:
      face->set(fields.material, static_cast<std::int16_t>(pick(4)) - 1);
      break;
    case 7:
      face->set(fields.flags, 0);
      face->set(fields.colorIndex, static_cast<std::uint32_t>(pick(3 * 128)));
      break;
    case 0:
      face->set(fields.texture, static_cast<std::int16_t>(pick(3)) - 1);
      break;
    case 1:
      face->set(fields.lightMode, static_cast<std::uint8_t>(pick(4)));
      break;
    case 2:
      face->set(fields.drawType, static_cast<std::uint8_t>(pick(5)));
      break;
    case 3:
      face->set(fields.transparency, static_cast<std::uint16_t>(pick(2) * 30000));
      break;
    case 4:
      face->set(fields.flags, pick(2) ? FaceRecord::packedColorFlag : FaceRecord::hiddenFlag);
      break;
    default:
      face->set(fields.packedColor, {255, 0, static_cast<std::uint8_t>(pick(256)), 0});
    }
    sync().update(*face);
  }
  void removeNode()
  {
    if (faces_.size() + nodes_.size() < 20) return;
    const bool takesFace = pick(4) != 0 && !faces_.empty();
    Record node = takesFace ? anyFace() : nodes_[1 + pick(nodes_.size() - 1)];
    if (node == &group || node == &object) return;
    sync().remove(*node);
    const osg::ref_ptr<PrimNodeRecord> kept = node;
    forget(*node);
    node->parent()->removeChild(node);
    touchSwitch(kept->parent());
  }
  static bool isInDefinition(const PrimNodeRecord& node)
  {
    const auto* top = &node;
    while (top->parent())
      top = top->parent();
    return top->opcode() == InstanceDefinitionRecord::code;
  }
  void addMesh()
  {
    auto& mesh = build.add<MeshRecord>(*anyNode());
    setPool(build, mesh, {point(), point(), point(), point(), point()});
    addPrimitive(build, mesh, MeshPrimitiveRecord::triangleStrip, {0, 1, 2, 3});
    addPrimitive(build, mesh, MeshPrimitiveRecord::indexedPolygon, {0, 1, 2, 3, 4});
    meshes_.push_back(&mesh);
    sync().translate(mesh);
  }
  void editMesh()
  {
    if (meshes_.empty()) return;
    auto& mesh = *meshes_[pick(meshes_.size())];
    auto* pool = mesh.findChild<LocalVertexPoolRecord>();
    FieldTraits<osg::Vec3d>::store(pool->data() + pool->offsetOf(1, LocalVertexPoolRecord::position), point());
    mesh.set(MeshRecord::fields.lightMode, static_cast<std::uint8_t>(pick(4)));
    mesh.set(MeshRecord::fields.material, static_cast<std::int16_t>(pick(4)) - 1);
    mesh.set(MeshRecord::fields.flags, pick(3) ? FaceRecord::packedColorFlag : FaceRecord::hiddenFlag);
    sync().update(*pool);
  }
  void addLight()
  {
    auto& parent = *anyNode();
    PrimNodeRecord* light = nullptr;
    if (pick(2))
      light = &build.add<LightPointRecord>(parent);
    else
      light = &build.add<IndexedLightPointRecord>(parent);
    build.add<VertexListRecord>(*light);
    build.vertex(*light, point());
    lights_.push_back(light);
    sync().translate(*light);
  }
  void editLight()
  {
    if (lights_.empty()) return;
    auto& light = *lights_[pick(lights_.size())];
    light.findChild<VertexListRecord>()->vertexAt(0)->setPosition(point());
    build.vertex(light, point());
    if (light.opcode() == LightPointRecord::code)
      light.set(LightPointRecord::fields.appearance.maximumPixelSize, static_cast<float>(1 + pick(4)));
    sync().update(light);
  }
  void setMaterial()
  {
    auto& material = *materials_[pick(2)];
    const auto share = [&] { return static_cast<float>(pick(3)) / 2; };
    material.set(MaterialPaletteRecord::fields.diffuse, {share(), share(), share()});
    material.set(MaterialPaletteRecord::fields.alpha, share());
    sync().update(material);
  }
  void setColorEntry()
  {
    build.file().colorPalette()->setEntry(static_cast<int>(pick(3)), {255, static_cast<std::uint8_t>(pick(256)), 9, 1});
    sync().updatePalette(ColorPaletteRecord::code);
  }
  void setAppearance()
  {
    const auto& fields = LightPointAppearancePaletteRecord::fields.appearance;
    appearance_->set(fields.maximumPixelSize, static_cast<float>(1 + pick(4)));
    appearance_->set(fields.intensity, static_cast<float>(pick(3)) / 2);
    sync().update(*appearance_);
  }
  void setLayers()
  {
    auto* face = anyFace();
    if (!face) return;
    if (auto* layers = face->findChild<MultiTextureRecord>()) {
      face->removeChild(layers);
    } else {
      layers = build.file().create<MultiTextureRecord>();
      layers->resize(16);
      storeAt(layers->data() + 8, static_cast<std::uint16_t>(pick(2)));
      face->insertAncillary(layers);
    }
    sync().update(*face);
  }
  void setObject()
  {
    object.set(ObjectRecord::fields.transparency, static_cast<std::uint16_t>(pick(2) * 30000));
    sync().update(object);
  }
  void moveNode()
  {
    auto* node = nodes_[1 + pick(nodes_.size() - 1)];
    auto* target = anyNode();
    if (node == &group || node == &object) return; // the fixture's own stay where they are
    if (node == target || node->isAncestorOf(*target) || !node->parent() || isInDefinition(*node) ||
        isInDefinition(*target))
      return;
    sync().remove(*node);
    const osg::ref_ptr<PrimNodeRecord> kept = node;
    auto* former = node->parent();
    former->removeChild(node);
    touchSwitch(former);
    target->addChild(node, /*append=*/true);
    sync().translate(*node);
  }
  void toggleExternal()
  {
    const bool shows = external_->referencedFile();
    external_->show(shows ? nullptr : &other_.file(), "other.flt");
    sync().update(*external_);
  }
  void replicateFace()
  {
    auto* face = anyFace();
    if (!face) return;
    if (auto* replicate = face->findChild<ReplicateRecord>()) {
      face->removeChild(replicate);
    } else {
      replicate = build.file().create<ReplicateRecord>();
      replicate->set(ReplicateRecord::fields.count, static_cast<std::int16_t>(pick(3)));
      face->insertAncillary(replicate);
      if (!face->findChild<MatrixRecord>()) build.translation(*face, {1, 2, 3});
    }
    sync().update(*face);
  }
  /// A face with its own subfaces becomes a subface of another one, or one no longer.
  void moveSubface()
  {
    auto* face = anyFace();
    auto* target = pick(2) ? static_cast<Record>(anyFace()) : anyNode();
    if (!face || !target || face == target || face->isAncestorOf(*target)) return;
    sync().remove(*face);
    const osg::ref_ptr<FaceRecord> kept = face;
    auto* former = face->parent();
    former->removeChild(face);
    touchSwitch(former);
    target->addChild(face, /*append=*/true);
    sync().translate(*face);
  }
  void updateMany()
  {
    std::vector<FaceRecord*> some;
    for (auto* face : faces_) {
      if (!pick(2) || face->vertexCount() == 0) continue;
      face->vertexAt(0)->setPosition(point());
      some.push_back(face);
    }
    sync().update(some);
  }
  void forget(PrimNodeRecord& node)
  {
    std::erase(nodes_, &node);
    std::erase_if(meshes_, [&](const auto* mesh) { return mesh == &node; });
    std::erase(lights_, &node);
    std::erase_if(faces_, [&](const auto* face) { return face == &node; });
    for (auto* child : node.primaryChildren())
      forget(*child);
  }
  void toggleHide()
  {
    Record node = pick(2) && !faces_.empty() ? anyFace() : anyNode();
    const auto bits = static_cast<std::uint32_t>(1 + pick(3));
    if (pick(2))
      hide({node}, bits, sync());
    else
      unhide({node}, bits, sync());
  }
  void setSwitch()
  {
    for (auto* node : nodes_) {
      if (node->opcode() != SwitchRecord::code || node->primaryChildCount() == 0) continue;
      auto& choice = static_cast<SwitchRecord&>(*node);
      choice.setCurrentMask(static_cast<int>(pick(2)) - 1);
      choice.setBit(0, static_cast<int>(pick(static_cast<std::size_t>(node->primaryChildCount()))), pick(2));
      sync().update(choice);
    }
  }
  void setLod()
  {
    for (auto* node : nodes_) {
      if (node->opcode() != LodRecord::code) continue;
      node->set(LodRecord::fields.switchIn, coordinate());
      sync().update(*node);
    }
    if (sync().stateCount()) sync().setLodState(static_cast<int>(pick(static_cast<std::size_t>(sync().stateCount()))));
    sync().setShowsAllLods(pick(2));
  }
  void setMatrix()
  {
    auto& node = *anyNode();
    if (&node == &build.header()) return;
    if (auto* matrix = node.findChild<MatrixRecord>()) {
      node.removeChild(matrix);
      sync().update(node);
    } else {
      sync().update(build.translation(node, point()));
    }
  }
  void setReplicate()
  {
    if (auto* replicate = group.findChild<ReplicateRecord>()) {
      group.removeChild(replicate);
    } else {
      replicate = build.file().create<ReplicateRecord>();
      replicate->set(ReplicateRecord::fields.count, static_cast<std::int16_t>(pick(3)));
      group.insertAncillary(replicate);
    }
    sync().update(group);
  }
  void reparent()
  {
    auto* face = anyFace();
    if (!face) return;
    sync().remove(*face);
    const osg::ref_ptr<FaceRecord> kept = face;
    auto* former = face->parent();
    former->removeChild(face);
    touchSwitch(former);
    anyNode()->addChild(face, /*append=*/true);
    sync().translate(*face);
  }
  void touchSwitch(Record former)
  {
    if (former && former->opcode() == SwitchRecord::code) sync().update(*former);
  }

  std::mt19937 random_;
  std::vector<Record> nodes_;
  std::vector<FaceRecord*> faces_;
  std::vector<MeshRecord*> meshes_;
  std::vector<Record> lights_;
  MaterialPaletteRecord* materials_[2] = {};
  LightPointAppearancePaletteRecord* appearance_ = nullptr;
  TreeBuilder other_;
  ExternalRecord* external_ = nullptr;
};

class EditWalks : public EditWalk, public testing::WithParamInterface<unsigned> {};

} // namespace

TEST_P(EditWalks, EndWhereAFreshTranslationDoes)
{
  start(GetParam());
  for (int i = 0; i < 250; ++i) {
    step();
    if (i % 5 == 0) expectLikeFresh();
    if (HasFailure()) FAIL() << "after step " << i;
  }
  expectLikeFresh();
  expectDrawnLikeFresh();
}

INSTANTIATE_TEST_SUITE_P(Numbers, EditWalks, testing::Range(0U, 24U));
