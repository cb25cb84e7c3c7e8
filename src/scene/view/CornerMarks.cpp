#include "scene/view/CornerMarks.h"

#include "core/selection/SelectionSet.h"
#include "fltapi/geometry/VertexListRecord.h"
#include "scene/view/ViewScene.h"

#include <memory>
#include <unordered_set>

namespace nalt {

namespace {

/// Nodes and corners that are selected, and where selected edges begin.
class IsSelected {
public:
  explicit IsSelected(const Selections& selections) : selections_(selections)
  {
    for (const auto& [mode, selection] : selections.families()) {
      if (mode != SelectionMode::vertex && mode != SelectionMode::edge) continue;
      selection->forEach([this](fltapi::PrimNodeRecord&, fltapi::VertexBaseRecord* vertex) {
        if (vertex) corners_->insert(vertex);
      });
    }
  }

  bool operator()(const fltapi::Record& record) const
  {
    if (const auto* node = dynamic_cast<const fltapi::PrimNodeRecord*>(&record)) return selections_.containsNode(*node);
    return corners_->contains(&record);
  }

private:
  const Selections& selections_;
  // Shared by the copies that are made of functions.
  std::shared_ptr<std::unordered_set<const fltapi::Record*>> corners_ =
      std::make_shared<std::unordered_set<const fltapi::Record*>>();
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
  if (settings.onlySelection)
    normals_.update(model, bits, settings, IsSelected(selections));
  else
    normals_.update(model, bits, settings);
}

void CornerMarks::clear()
{
  normals_.clear();
  numbers_.clear();
}

} // namespace nalt
