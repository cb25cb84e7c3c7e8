#include "scene/view/CornerMarks.h"

#include "fltapi/geometry/VertexListRecord.h"
#include "scene/image/Sync.h"
#include "scene/view/ViewScene.h"

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

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

void CornerMarks::watch(SelectionSet* selections)
{
  if (selections == selections_) return;
  SelectionListener* const self = this;
  if (selections_) std::erase(selections_->listeners, self);
  selections_ = selections;
  if (selections_) selections_->listeners.push_back(self);
  selectionChanged_ = true;
}

void CornerMarks::selectionChanged(bool)
{
  selectionChanged_ = true;
}

void CornerMarks::update(const Sync& scene, std::uint32_t bits, const ViewStyle& style,
                         const ViewportPreferences& preferences)
{
  NormalLines::Settings settings;
  settings.length = preferences.normalsScale;
  settings.color = preferences.normalsColor;
  settings.copies = preferences.normalsEverywhere;
  settings.onlySelection = preferences.normalsOnlySelection;
  const Source source{scene.root(), scene.revision(), bits, style.vertexNumbers, style.normals, settings};
  const bool selectionCounts = style.normals && settings.onlySelection;
  if (source == source_ && !(selectionCounts && selectionChanged_)) return;
  source_ = source;

  hang(*root_, normals_.geode(), style.normals);
  hang(*root_, numbers_.group(), style.vertexNumbers);
  if (!style.normals)
    normals_.clear();
  else if (settings.onlySelection)
    updateSelected(*scene.root(), bits, settings);
  else
    normals_.update(*scene.root(), bits, settings);
  if (style.vertexNumbers)
    numbers_.update(*scene.root(), bits);
  else
    numbers_.clear();
}

void CornerMarks::updateSelected(osg::Node& root, std::uint32_t bits, const NormalLines::Settings& settings)
{
  const bool same = !std::exchange(selectionChanged_, false);
  const Selections nothing;
  normals_.update(root, bits, settings, IsSelected(selections_ ? selections_->current() : nothing), same);
}

void CornerMarks::clear()
{
  selectionChanged_ = true;
  source_ = {};
  normals_.clear();
  numbers_.clear();
}

} // namespace nalt
