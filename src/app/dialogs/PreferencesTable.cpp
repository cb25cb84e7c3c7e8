#include "app/dialogs/PreferencesTable.h"

namespace nalt {

namespace {

using General = RowsFor<Preferences>;
using View = RowsFor<ViewportPreferences>;

constexpr Limits percent = {0, 100};
constexpr Limits positive = {.least = 0, .leastExcluded = true};
constexpr Limits notNegative = {.least = 0};
constexpr Limits pictureSide = {0, 32768};

std::vector<const char*> presetLabels()
{
  std::vector<const char*> labels;
  for (const BackgroundPreset& preset : backgroundPresets())
    labels.push_back(preset.label);
  return labels;
}

FormTable<Preferences> makeSensitivityTable()
{
  return {
      General::slider<&Preferences::sensitivity, &Sensitivity::pan>("Pan:", "How far the view moves with the mouse",
                                                                    percent),
      General::check<&Preferences::sensitivity, &Sensitivity::autoPan>("Auto", "By the size of the model").onSameLine(),
      General::slider<&Preferences::sensitivity, &Sensitivity::zoom>("Zoom:", "How far the mouse and its wheel zoom",
                                                                     percent),
      General::check<&Preferences::sensitivity, &Sensitivity::autoZoom>("Auto", "By the size of the model")
          .onSameLine(),
      General::slider<&Preferences::sensitivity, &Sensitivity::rotate>(
          "Rotate:", "How far the view turns with the mouse", percent),
  };
}

FormTable<Preferences> makePreferencesTable()
{
  FormTable<Preferences> rows = {
      General::group("Viewports"),
      General::choice<&Preferences::viewportCount>("Number Of Viewports:", "How many views each model has", 1,
                                                   {"1", "2", "3", "4"}),
      General::buttons("", {"Viewport Preferences..."}, "Colors, clipping, light and grid of the active viewport"),
      General::group("Control"),
      General::number<&Preferences::pickTolerance>(
          "Select/Pick Tolerance [pixels]:", "How far beside a node a click still hits it", {0, 1000}),
      General::check<&Preferences::zoomViewpointToModel>(
          "Zoom Viewpoint To Model", "Top, Front and the other views along an axis show the whole model"),
      General::heading("Sensitivity:"),
  };
  rows.insert(rows.end(), sensitivityTable().begin(), sensitivityTable().end());
  const FormTable<Preferences> rest = {
      General::group("Gizmos"),
      General::number<&Preferences::gizmoSize>("Gizmo Size:", "Length of a handle's axes in pixels", {1, 1000}),
      General::check<&Preferences::showGizmos>("Show Gizmos", "Tools show handles in the viewports"),
      General::check<&Preferences::uniformScale>("Uniform Scale", "Handles for scaling change all axes together"),
      General::group("Misc"),
      General::number<&Preferences::tolerance>("Tolerance:", "Smallest distance that counts as different", notNegative),
      General::number<&Preferences::maxCommands>("Max Commands:", "Maximum number of commands in the command list",
                                                 {0, 1000000}),
      General::number<&Preferences::captureWidth>(
          "Screen Capture Size:", "Width of captured pictures in pixels; 0: as wide as the viewport", pictureSide)
          .namedInMessages("Screen Capture Size: Width"),
      General::number<&Preferences::captureHeight>(
          "x", "Height of captured pictures in pixels; 0: as high as the viewport", pictureSide)
          .onSameLine("Screen Capture Size: Height"),
      General::number<&Preferences::parameterPrecision>(
          "Parameter Precision:", "Maximum number of significant digits recorded to a script", {1, 17}),
      General::check<&Preferences::convertNotAvailableToZero>(
          "Convert N/A To Zero", "Values that a file marks as not available become 0 when it is opened"),
      General::check<&Preferences::reloadTextures>("Automatic Texture Reload",
                                                   "Textures that changed on disk are loaded again"),
      General::check<&Preferences::reloadExternals>("Automatic External Reference Reload",
                                                    "Asks to load external references again when they changed on disk"),
      General::check<&Preferences::reloadShaders>("Automatic Shader Reload",
                                                  "Shader programs that changed on disk are loaded again"),
      General::check<&Preferences::saveLatestVersion>("Always Save To Latest Version",
                                                      "Otherwise a file keeps the OpenFlight version that it has"),
      General::check<&Preferences::splash>("Activate Splash Screen", "Shows a welcome when the program starts"),
      General::check<&Preferences::loadExternals>("Load External References",
                                                  "Models open with the content of their external references"),
  };
  rows.insert(rows.end(), rest.begin(), rest.end());
  return rows;
}

std::vector<ViewportPreferencesTab> makeViewportTabs()
{
  using Values = ViewportPreferences;
  return {
      {"Background",
       {
           View::group("Color Gradient:"),
           View::color<&Values::backgroundTop>("Top Color", "Color of the background at the upper edge"),
           View::color<&Values::backgroundBottom>("Bottom Color", "Color of the background at the lower edge"),
           View::buttons("Presets", presetLabels(), "Sets both colors"),
       }},
      {"Frustum",
       {
           View::group("View Volume:"),
           View::number<&Values::nearClip>("Near Clip Distance:", "What is nearer to the eye isn't drawn", positive),
           View::number<&Values::farClip>("Far Clip Distance:", "What is farther from the eye isn't drawn", positive),
           View::number<&Values::fieldOfView>(
               "Horizontal Field Of View [deg]:", "Angle from the left to the right edge", {1, 179}),
           View::check<&Values::automaticClip>(
               "Calculate Near/Far Clip Distance Automatically",
               "By what is to be seen; the two distances above don't count for drawing"),
           View::group("Small Feature Culling:"),
           View::check<&Values::smallFeatureCulling>("Use Small Feature Culling",
                                                     "Leaves out what would be smaller than the pixel size"),
           View::number<&Values::smallFeaturePixels>("Pixel Size:", "Smallest size that is still drawn", notNegative),
       }},
      {"Light",
       {
           View::group("Light Source Colors:"),
           View::color<&Values::lightAmbient>("Ambient", "Light that comes from everywhere"),
           View::color<&Values::lightDiffuse>("Diffuse", "Light that surfaces scatter"),
           View::color<&Values::lightSpecular>("Specular", "Light of highlights"),
       }},
      {"Visual Cues",
       {
           View::group("Grid:"),
           View::color<&Values::gridColor>("Grid Color", "Color of the grid's lines"),
           View::color<&Values::gridAxisColor>("Grid Axis Color", "Color of the two lines through the grid's origin"),
           View::number<&Values::gridSpacing>("Spacing:", "Distance between two lines", positive),
           View::number<&Values::thickLineNumber>("Thick Line Number:", "Every n-th line is a thick one", {1, 1000000}),
           View::group("Large Vertices:"),
           View::color<&Values::largeVertexInner>("Inner Color", "Color of the middle of a large vertex"),
           View::color<&Values::largeVertexOuter>("Outer Color", "Color of the edge of a large vertex"),
           View::number<&Values::largeVertexSize>("Size:", "Size of a large vertex in pixels", {1, 255})
               .namedInMessages("Large Vertices: Size"),
           View::group("Orientation Axes:"),
           View::choice<&Values::axesCorner>("Position:", "Corner of the viewport that shows how the axes lie", 0,
                                             {"Top Left", "Top Right", "Bottom Left", "Bottom Right", "None"}),
           View::group("Normals:"),
           View::color<&Values::normalsColor>("Color", "Color of vertex normals"),
           View::number<&Values::normalsScale>("Scale:", "Length of a normal", positive)
               .namedInMessages("Normals: Scale"),
           View::check<&Values::normalsOnlySelection>("Only Selection", "Shows normals of what is selected only"),
           View::check<&Values::normalsEverywhere>("Show for Replications, Instances and Externals",
                                                   "Shows the normals of copies too"),
       }},
  };
}

} // namespace

const FormTable<Preferences>& sensitivityTable()
{
  static const FormTable<Preferences> table = makeSensitivityTable();
  return table;
}

const FormTable<Preferences>& preferencesTable()
{
  static const FormTable<Preferences> table = makePreferencesTable();
  return table;
}

std::span<const ViewportPreferencesTab> viewportPreferencesTabs()
{
  static const std::vector<ViewportPreferencesTab> tabs = makeViewportTabs();
  return tabs;
}

std::span<const BackgroundPreset> backgroundPresets()
{
  static const ViewportPreferences sky;
  static const BackgroundPreset presets[] = {
      {"Gray", osg::Vec3f(0.5F, 0.5F, 0.5F), osg::Vec3f(0.5F, 0.5F, 0.5F)},
      {"Sky", sky.backgroundTop, sky.backgroundBottom},
      {"Black", osg::Vec3f(), osg::Vec3f()},
      {"White", osg::Vec3f(1, 1, 1), osg::Vec3f(1, 1, 1)},
  };
  return presets;
}

std::string contradictionIn(const ViewportPreferences& preferences)
{
  if (preferences.farClip > preferences.nearClip) return "";
  return "Invalid value for \"Far Clip Distance\".\nIt must be greater than the near clip distance.";
}

} // namespace nalt
