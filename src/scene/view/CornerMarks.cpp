#include "scene/view/CornerMarks.h"

#include "core/selection/SelectionSet.h"
#include "fltapi/geometry/VertexListRecord.h"
#include "scene/view/ViewScene.h"

namespace nalt {

namespace {

/// Nodes and corners that are selected; a selected edge has no corner of its own.
class IsSelected {
public:
  explicit IsSelected(const Selections& selections) : selections_(selections) {}

  bool operator()(const fltapi::Record& record) const
  {
    if (const auto* node = dynamic_cast<const fltapi::PrimNodeRecord*>(&record)) return selections_.containsNode(*node);
    // Selections are asked by elements, which hold what they name.
    auto* list = dynamic_cast<fltapi::VertexListRecord*>(record.parent());
    auto* vertex = dynamic_cast<fltapi::VertexBaseRecord*>(const_cast<fltapi::Record*>(&record));
    return list && vertex && selections_.containsVertex(*list, *vertex);
  }

private:
  const Selections& selections_;
};

void hang(osg::Group& root, osg::Node* child, bool shown)
{
  if (shown && !root.containsNode(child))
    root.addChild(child);
  else if (!shown)
    root.removeChild(child);
}

} // namespace

void CornerMarks::update(osg::Node& model, std::uint32_t bits, const ViewStyle& style,
                         const ViewportPreferences& preferences, const Selections& selections)
{
  hang(*root_, normals_.geode(), style.normals);
  hang(*root_, numbers_.group(), style.vertexNumbers);
  if (style.normals)
    updateNormals(model, bits, preferences, selections);
  else
    normals_.clear();
  if (style.vertexNumbers)
    numbers_.update(model, bits);
  else
    numbers_.clear();
}

void CornerMarks::updateNormals(osg::Node& model, std::uint32_t bits, const ViewportPreferences& preferences,
                                const Selections& selections)
{
  NormalLines::Settings settings;
  settings.length = preferences.normalsScale;
  settings.color = preferences.normalsColor;
  settings.copies = preferences.normalsEverywhere;
  settings.onlySelection = preferences.normalsOnlySelection;
  normals_.update(model, bits, settings, IsSelected(selections));
}

void CornerMarks::clear()
{
  normals_.clear();
  numbers_.clear();
}

} // namespace nalt
