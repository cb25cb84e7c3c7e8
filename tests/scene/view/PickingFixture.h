#pragma once

#include "core/Model.h"
#include "core/Preferences.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportLayout.h"
#include "tests/core/RecordingShell.h"
#include "tests/support/MakeRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace nalt {

using tests::make;
using tests::makeFace;
using tests::withCorners;

/// A shell in which the user chose a pick mode, and that notes what gestures tell it.
class PickingShell : public RecordingShell {
public:
  SelectionMode mode = SelectionMode::polygon;
  std::vector<osg::Vec3d> positions;
  std::vector<std::string> attributesOf;

  SelectionMode pickMode() const override { return mode; }
  void toolPointGiven(const osg::Vec3d& point) override { positions.push_back(point); }
  void toolPointMoved(const osg::Vec3d& point) override { positions.push_back(point); }
  void showAttributes(Model&, const Selection& picked) override
  {
    for (const auto& name : picked.names())
      attributesOf.push_back(name);
  }
};

/// A model with one object below one group, seen from above at ten pixels for each unit, with (0, 0, 0) in the middle
/// of a window of 800 by 600 pixels. Scenes are built before the first look at `view`.
class PickingFixture : public testing::Test {
protected:
  PickingFixture() : before_(Shell::install(&shell))
  {
    Preferences::get() = {};
    model->createEmpty();
    group = make<fltapi::GroupRecord>(*model->fltFile()->header());
    object = make<fltapi::ObjectRecord>(*group);
  }
  ~PickingFixture() override
  {
    model.reset();
    Shell::install(before_);
    Preferences::get() = {};
  }

  /// A square with its lower left corner at (x, y), seen from above.
  fltapi::FaceRecord* makeSquare(fltapi::PrimNodeRecord& parent, double x, double y, double z = 0.0, double side = 1.0)
  {
    return makeFace(parent, {{x, y, z}, {x + side, y, z}, {x + side, y + side, z}, {x, y + side, z}});
  }
  fltapi::MatrixRecord* makeTranslation(fltapi::PrimNodeRecord& node, const osg::Vec3d& by)
  {
    auto* matrix = node.file()->create<fltapi::MatrixRecord>();
    matrix->setMatrix(osg::Matrixd::translate(by));
    node.insertAncillary(matrix);
    return matrix;
  }

  Viewport& view()
  {
    if (view_) return *view_;
    createViewports(*model, 1);
    view_ = dynamic_cast<Viewport*>(model->viewports().front());
    lookDown();
    return *view_;
  }
  void lookDown(bool orthographic = true)
  {
    auto& camera = view().camera();
    camera.setOrthographic(orthographic);
    CameraPose pose;
    // Half the width of the window, 40 units, is what the lens shows at this distance.
    const double halfAngle = std::tan(osg::DegreesToRadians(camera.lens().fieldOfView / 2.0));
    pose.distance = orthographic ? 40.0 / (2.0 * halfAngle) : 100.0;
    camera.setPose(pose);
  }
  /// Where a position is in the window.
  osg::Vec2d at(const osg::Vec3d& position) { return view().projection().toWindow(position).value(); }
  osg::Vec2d at(double x, double y) { return at(osg::Vec3d(x, y, 0.0)); }

  /// The names of what a rectangle finds.
  std::vector<std::string> inRect(const osg::Vec2d& first, const osg::Vec2d& second)
  {
    const auto picked = view().pick({first, second});
    if (!picked) return {};
    const auto names = picked->names();
    return {names.begin(), names.end()};
  }
  std::vector<std::string> underMouse(const osg::Vec2d& window) { return inRect(window, window); }
  std::vector<std::string> selected() { return model->selections().names(); }

  PickingShell shell;
  std::unique_ptr<Model> model = std::make_unique<Model>(0, 0, 800, 600);
  fltapi::GroupRecord* group = nullptr;
  fltapi::ObjectRecord* object = nullptr;

private:
  Shell* before_;
  Viewport* view_ = nullptr;
};

} // namespace nalt
