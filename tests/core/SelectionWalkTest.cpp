// Whatever is selected in whatever order: undo and redo go through the same selections, and the marks of the records
// tell what is selected.

#include "core/hierarchy/DeleteSelected.h"
#include "core/selection/Collect.h"
#include "core/selection/SelectOperations.h"
#include "scene/image/Marks.h"
#include "tests/core/ModelFixture.h"

#include <random>

namespace nalt {
namespace {

/// A step of the walk works on a random part of all elements.
class SelectionWalk : public ModelFixture, public testing::WithParamInterface<unsigned> {
protected:
  SelectionWalk()
  {
    for (int i = 0; i < 3; ++i) {
      auto* group = make<fltapi::GroupRecord>(header());
      make<fltapi::LodRecord>(*group);
      auto* object = make<fltapi::ObjectRecord>(*group);
      for (int j = 0; j < 4; ++j) {
        const double x = j;
        auto* face = makeFace(*object, {{x, 0, 0}, {x + 1, 0, 0}, {x + 1, 1, 0}, {x, 1, 0}});
        if (j == 0) makeFace(*face, {{x, 0, 1}, {x + 1, 0, 1}, {x, 1, 1}});
      }
    }
    model->sceneRoot();
  }

  std::size_t upTo(std::size_t most) { return std::uniform_int_distribution<std::size_t>(0, most)(random_); }

  SelectionMode anyMode()
  {
    constexpr SelectionMode modes[] = {SelectionMode::vertex, SelectionMode::edge,  SelectionMode::polygon,
                                       SelectionMode::object, SelectionMode::group, SelectionMode::lod};
    return modes[upTo(std::size(modes) - 1)];
  }

  std::unique_ptr<Selection> anything()
  {
    auto all = Selection::make(anyMode());
    collect(header(), *all);
    const auto share = upTo(4);
    all->discard([&](fltapi::PrimNodeRecord&, const fltapi::Record*) { return upTo(5) > share; });
    return all;
  }

  void step()
  {
    switch (upTo(12)) {
    case 0:
      return selections().select(anything());
    case 1:
    case 2:
      return void(selections().add(*anything()));
    case 3: {
      Selections several;
      several.add(*anything());
      several.add(*anything());
      return void(selections().add(several));
    }
    case 4:
    case 5:
      return void(selections().remove(*anything()));
    case 6:
    case 7:
      return void(selections().toggle(*anything()));
    case 8:
      return selectPrevious(*model, true);
    case 9:
      return void(convertSelection(*model, anyMode(), true));
    case 10:
      return upTo(1) ? selectParents(*model, true) : selectChildren(*model, true);
    case 11:
      if (selections().size() <= 2) deleteSelected(*model, true); // more of it would soon leave nothing
      return;
    default:
      return selectNone(*model, true);
    }
  }

  /// The names of all elements, and the pivot.
  struct State {
    std::vector<std::string> names;
    std::optional<osg::Vec3d> pivot;
    friend bool operator==(const State&, const State&) = default;
  };
  State state() { return {names(), selections().pivot()}; }

  bool isSelected(fltapi::PrimNodeRecord& node) { return selections().current().containsNode(node); }

  void expectMarksOfTheSelected()
  {
    forEachNode(header(), [&](fltapi::PrimNodeRecord& node) {
      EXPECT_EQ(node.marks() & Mark::selected, isSelected(node) ? Mark::selected : 0) << node.getName();
      auto* list = node.findChild<fltapi::VertexListRecord>();
      if (!list) return;
      bool parts = false;
      const auto* edges = static_cast<const EdgeSelection*>(selections().current().find(SelectionMode::edge));
      for (int i = 0; i < list->vertexCount(); ++i) {
        auto* corner = list->vertexAt(i);
        auto* next = list->vertexAt((i + 1) % list->vertexCount());
        const bool asCorner = selections().current().containsVertex(*list, *corner);
        const bool asEdge = edges && edges->elements().contains({list, corner, next});
        parts = parts || asCorner || asEdge;
        EXPECT_EQ(corner->marks(), (asCorner ? Mark::selected : 0) | (asEdge ? Mark::edge : 0)) << node.getName() << i;
      }
      EXPECT_EQ(node.marks() & Mark::parts, parts ? Mark::parts : 0) << node.getName();
    });
  }

private:
  std::mt19937 random_{GetParam()};
};

} // namespace

TEST_P(SelectionWalk, IsGoneThroughAgainByUndoAndRedo)
{
  constexpr int steps = 300;
  Preferences::get().maxCommands = 10 * steps;
  auto& stack = model->commandStack();
  std::vector<State> states{state()};
  for (int i = 0; i < steps; ++i) {
    step();
    if (stack.undoCommands().size() == states.size()) states.push_back(state());
    ASSERT_EQ(stack.undoCommands().size(), states.size() - 1) << "a step is one command or none";
    ASSERT_EQ(state(), states.back()) << "without a command nothing changed";
    expectMarksOfTheSelected();
    ASSERT_FALSE(HasFailure()) << "after step " << i;
  }
  for (int turn = 0; turn < 2; ++turn) {
    for (std::size_t i = states.size() - 1; i-- > 0;) {
      stack.undo();
      ASSERT_EQ(state(), states[i]) << "undone to step " << i;
      expectMarksOfTheSelected();
    }
    for (std::size_t i = 1; i < states.size(); ++i) {
      stack.redo();
      ASSERT_EQ(state(), states[i]) << "redone to step " << i;
      expectMarksOfTheSelected();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SelectionWalk, testing::Range(1U, 9U));

} // namespace nalt
