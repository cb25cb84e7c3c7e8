#include "app/dialogs/PreferencesTable.h"

#include "app/SettingsLayout.h"
#include "core/dialogs/FormTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace nalt {

namespace {

using testing::ElementsAre;
using Kind = FormRow::Kind;

template <class Values>
std::vector<std::string> labelsOf(std::span<const FormRowOf<Values>> rows)
{
  std::vector<std::string> labels;
  for (const auto& row : rows)
    labels.emplace_back(row.label);
  return labels;
}

template <class Values>
const FormRowOf<Values>& rowNamed(const FormTable<Values>& rows, const std::string& title)
{
  return *std::ranges::find(rows, title, [](const auto& row) { return row.title(); });
}

/// Gives the value of a row another value that is allowed.
template <class Values>
void change(const FormRowOf<Values>& row, Values& values)
{
  const FieldValue value = row.value(values);
  if (auto* const* flag = std::get_if<bool*>(&value)) {
    **flag = !**flag;
  } else if (auto* const* rgb = std::get_if<osg::Vec3f*>(&value)) {
    **rgb = osg::Vec3f(0.25F, 0.5F, 0.75F);
  } else if (auto* const* rgba = std::get_if<osg::Vec4f*>(&value)) {
    **rgba = osg::Vec4f(0.25F, 0.5F, 0.75F, (**rgba).w());
  } else if (const auto* choice = std::get_if<ChoiceValue>(&value)) {
    choice->set(choice->target, choice->get(choice->target) == 1 ? 2 : 1);
  } else {
    const std::string number = textOf(value) == "3" ? "4" : "3";
    EXPECT_TRUE(setFromText(value, row.limits, number)) << row.label;
  }
}

template <class Values>
std::string shownBy(const FormTable<Values>& rows, Values values)
{
  std::string text;
  for (const auto& row : rows) {
    if (row.value) text += stateOf(row.value(values)) + ' ';
  }
  return text;
}

FormTable<ViewportPreferences> allViewportRows()
{
  FormTable<ViewportPreferences> rows;
  for (const ViewportPreferencesTab& tab : viewportPreferencesTabs())
    rows.insert(rows.end(), tab.rows.begin(), tab.rows.end());
  return rows;
}

} // namespace

TEST(PreferencesTable, HasItsGroupsInOrder)
{
  std::vector<std::string> groups;
  for (const auto& rows : groupsOf<Preferences>(preferencesTable()))
    groups.emplace_back(rows.front().label);
  EXPECT_THAT(groups, ElementsAre("Viewports", "Control", "Gizmos", "Misc"));
}

TEST(PreferencesTable, HasItsLabelsInOrder)
{
  const auto groups = groupsOf<Preferences>(preferencesTable());
  EXPECT_THAT(labelsOf<Preferences>(groups[1]),
              ElementsAre("Control", "Select/Pick Tolerance [pixels]:", "Zoom Viewpoint To Model",
                          "Sensitivity:", "Pan:", "Auto", "Zoom:", "Auto", "Rotate:"));
  EXPECT_THAT(labelsOf<Preferences>(groups[2]), ElementsAre("Gizmos", "Gizmo Size:", "Show Gizmos", "Uniform Scale"));
  EXPECT_THAT(labelsOf<Preferences>(groups[3]),
              ElementsAre("Misc", "Tolerance:", "Max Commands:", "Screen Capture Size:", "x",
                          "Parameter Precision:", "Convert N/A To Zero", "Automatic Texture Reload",
                          "Automatic External Reference Reload", "Automatic Shader Reload",
                          "Always Save To Latest Version", "Activate Splash Screen", "Load External References"));
}

TEST(PreferencesTable, TheTwoGivenTooltipsAreThere)
{
  EXPECT_STREQ(rowNamed(preferencesTable(), "Max Commands").tooltip, "Maximum number of commands in the command list");
  EXPECT_STREQ(rowNamed(preferencesTable(), "Parameter Precision").tooltip,
               "Maximum number of significant digits recorded to a script");
}

TEST(PreferencesTable, ShowsTheDefaults)
{
  const auto shown = [](const char* title) {
    Preferences defaults;
    return textOf(rowNamed(preferencesTable(), title).value(defaults));
  };
  EXPECT_EQ(shown("Select/Pick Tolerance [pixels]"), "6");
  EXPECT_EQ(shown("Pan"), "50");
  EXPECT_EQ(shown("Gizmo Size"), "75");
  EXPECT_EQ(shown("Tolerance"), "0.0001");
  EXPECT_EQ(shown("Max Commands"), "50");
  EXPECT_EQ(shown("Parameter Precision"), "12");
  EXPECT_EQ(shown("Screen Capture Size: Width"), "0");
}

TEST(PreferencesTable, EveryValueCanBeChangedAndComesBackFromTheSettingsFile)
{
  for (const auto& row : preferencesTable()) {
    if (!row.value) continue;
    Settings written;
    const std::string before = shownBy(preferencesTable(), written.preferences);
    change(row, written.preferences);
    EXPECT_NE(shownBy(preferencesTable(), written.preferences), before) << row.label;
    Settings read;
    ASSERT_TRUE(decodeSettings(encodeSettings(written), read));
    EXPECT_EQ(shownBy(preferencesTable(), read.preferences), shownBy(preferencesTable(), written.preferences))
        << row.label;
  }
}

TEST(ViewportPreferencesTable, HasItsFourTabs)
{
  std::vector<std::string> titles;
  for (const ViewportPreferencesTab& tab : viewportPreferencesTabs())
    titles.emplace_back(tab.title);
  EXPECT_THAT(titles, ElementsAre("Background", "Frustum", "Light", "Visual Cues"));
}

TEST(ViewportPreferencesTable, HasItsLabelsInOrder)
{
  const auto tabs = viewportPreferencesTabs();
  EXPECT_THAT(labelsOf<ViewportPreferences>(tabs[0].rows),
              ElementsAre("Color Gradient:", "Top Color", "Bottom Color", "Presets"));
  EXPECT_THAT(labelsOf<ViewportPreferences>(tabs[1].rows),
              ElementsAre("View Volume:", "Near Clip Distance:", "Far Clip Distance:",
                          "Horizontal Field Of View [deg]:", "Calculate Near/Far Clip Distance Automatically",
                          "Small Feature Culling:", "Use Small Feature Culling", "Pixel Size:"));
  EXPECT_THAT(labelsOf<ViewportPreferences>(tabs[2].rows),
              ElementsAre("Light Source Colors:", "Ambient", "Diffuse", "Specular"));
  EXPECT_THAT(labelsOf<ViewportPreferences>(tabs[3].rows),
              ElementsAre("Grid:", "Grid Color", "Grid Axis Color", "Spacing:", "Thick Line Number:", "Large Vertices:",
                          "Inner Color", "Outer Color", "Size:", "Orientation Axes:", "Position:", "Normals:", "Color",
                          "Scale:", "Only Selection", "Show for Replications, Instances and Externals"));
  EXPECT_THAT(rowNamed(tabs[3].rows, "Position").choices,
              ElementsAre(testing::StrEq("Top Left"), testing::StrEq("Top Right"), testing::StrEq("Bottom Left"),
                          testing::StrEq("Bottom Right"), testing::StrEq("None")));
}

TEST(ViewportPreferencesTable, EveryValueCanBeChangedAndComesBackFromTheSettingsFile)
{
  const auto rows = allViewportRows();
  for (const auto& row : rows) {
    if (!row.value) continue;
    Settings written;
    const std::string before = shownBy(rows, written.viewport);
    change(row, written.viewport);
    EXPECT_NE(shownBy(rows, written.viewport), before) << row.label;
    Settings read;
    ASSERT_TRUE(decodeSettings(encodeSettings(written), read));
    EXPECT_EQ(shownBy(rows, read.viewport), shownBy(rows, written.viewport)) << row.label;
  }
}

TEST(ViewportPreferencesTable, AThickLineNumberOfZeroIsRefused)
{
  ViewportPreferences values;
  const auto& row = rowNamed(viewportPreferencesTabs()[3].rows, "Thick Line Number");
  EXPECT_FALSE(setFromText(row.value(values), row.limits, "0"));
  EXPECT_EQ(values.thickLineNumber, 10);
}

TEST(ViewportPreferencesTable, TheFarClipDistanceMustBeBeyondTheNearOne)
{
  ViewportPreferences values;
  EXPECT_EQ(contradictionIn(values), "");
  values.farClip = values.nearClip;
  EXPECT_EQ(contradictionIn(values),
            "Invalid value for \"Far Clip Distance\".\nIt must be greater than the near clip distance.");
}

TEST(ViewportPreferencesTable, ThePresetSkyIsTheDefault)
{
  std::vector<std::string> labels;
  for (const BackgroundPreset& preset : backgroundPresets())
    labels.emplace_back(preset.label);
  EXPECT_THAT(labels, ElementsAre("Gray", "Sky", "Black", "White"));
  EXPECT_EQ(backgroundPresets()[1].top, ViewportPreferences().backgroundTop);
  EXPECT_EQ(backgroundPresets()[1].bottom, ViewportPreferences().backgroundBottom);
  EXPECT_EQ(backgroundPresets()[2].top, osg::Vec3f(0, 0, 0));
  EXPECT_EQ(backgroundPresets()[3].bottom, osg::Vec3f(1, 1, 1));
}

} // namespace nalt
