#pragma once

#include "core/Model.h"
#include "core/Preferences.h"
#include "core/Shell.h"
#include "scene/view/Viewport.h"
#include "scene/view/ViewportActions.h"
#include "scene/view/ViewportLayout.h"
#include "tests/core/RecordingShell.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace nalt {

/// A new model with one viewport, without a display.
class ViewportFixture : public testing::Test {
protected:
  void SetUp() override
  {
    Preferences::get() = Preferences();
    before_ = Shell::install(&shell);
    model = std::make_unique<Model>(0, 0, 800, 600);
    model->createEmpty();
    createViewports(*model, 1);
    view = viewport(0);
  }
  void TearDown() override
  {
    model.reset();
    Shell::install(before_);
  }

  Viewport* viewport(std::size_t i) { return dynamic_cast<Viewport*>(model->viewports().at(i)); }
  /// Picks the entry of the menu with that label.
  void pick(const std::string& label)
  {
    for (const ViewportAction& action : viewportActions())
      if (label == action.label) return runViewportAction(action, *view, /*byKey=*/false);
    ADD_FAILURE() << "no entry " << label;
  }

  RecordingShell shell;
  std::unique_ptr<Model> model;
  Viewport* view = nullptr;

private:
  Shell* before_ = nullptr;
};

} // namespace nalt
