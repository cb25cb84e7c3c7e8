#include "scene/image/ModUserData.h"
#include "scene/image/Visibility.h"
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
    for (int i = 0; i < 5; ++i)
      build.definition(i);
    build.texture(0, "none.rgb");
    sync();
  }

  void step()
  {
    static const std::vector<void (EditWalk::*)()> edits = {
        &EditWalk::addFace,  &EditWalk::addFace,    &EditWalk::addFace,    &EditWalk::addSubface,
        &EditWalk::addNode,  &EditWalk::moveVertex, &EditWalk::addVertex,  &EditWalk::setField,
        &EditWalk::setField, &EditWalk::removeNode, &EditWalk::toggleHide, &EditWalk::setSwitch,
        &EditWalk::setLod,   &EditWalk::setMatrix,  &EditWalk::reparent,   &EditWalk::setReplicate};
    (this->*edits[pick(edits.size())])();
  }

private:
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
      sync().translate(build.reference(parent, static_cast<int>(pick(6))));
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
    switch (pick(6)) {
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
  void forget(PrimNodeRecord& node)
  {
    std::erase(nodes_, &node);
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
};

class EditWalks : public EditWalk, public testing::WithParamInterface<unsigned> {};

} // namespace

TEST_P(EditWalks, EndWhereAFreshTranslationDoes)
{
  start(GetParam());
  for (int i = 0; i < 150; ++i) {
    step();
    if (i % 5 == 0) expectLikeFresh();
    if (HasFailure()) FAIL() << "after step " << i;
  }
  expectLikeFresh();
}

INSTANTIATE_TEST_SUITE_P(Numbers, EditWalks, testing::Range(0U, 12U));
