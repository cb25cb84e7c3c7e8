#pragma once

#include "core/Preferences.h"
#include "core/dialogs/FormTable.h"
#include "scene/view/ViewportPreferences.h"

#include <span>

namespace nalt {

/// What the Preferences dialog shows, in its order.
const FormTable<Preferences>& preferencesTable();
/// Its part about the speed of the mouse, which has a dialog of its own too.
const FormTable<Preferences>& sensitivityTable();

/// One tab of the dialog Viewport Preferences.
struct ViewportPreferencesTab {
  const char* title;
  FormTable<ViewportPreferences> rows;
};
std::span<const ViewportPreferencesTab> viewportPreferencesTabs();

/// A pair of colours for the background.
struct BackgroundPreset {
  const char* label;
  osg::Vec3f top;
  osg::Vec3f bottom;
};
std::span<const BackgroundPreset> backgroundPresets();

/// What is wrong with values each of which is right on its own; empty when nothing is.
std::string contradictionIn(const ViewportPreferences& preferences);

} // namespace nalt
