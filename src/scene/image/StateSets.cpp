#include "scene/image/StateSets.h"

#include "scene/image/StateSetContent.h"

namespace nalt {

FaceState& StateSets::find(const FaceStateKey& key, const fltapi::FltFile* file)
{
  const auto found = states_.find(key);
  if (found != states_.end()) return *found->second;
  prune();
  const osg::ref_ptr<FaceState> state = new FaceState(key, file);
  fillStateSet(*state, textures_, shaders_);
  states_[key] = state;
  return *state;
}

bool StateSets::rebuild()
{
  bool alphaChanged = false;
  for (auto& [key, state] : states_) {
    const auto alpha = state->alpha();
    fillStateSet(*state, textures_, shaders_);
    alphaChanged = alphaChanged || state->alpha() != alpha;
  }
  return alphaChanged;
}

/// Sliders leave a state behind for each color they pass through.
void StateSets::prune()
{
  if (states_.size() < pruneAt_) return;
  std::erase_if(states_, [](const auto& entry) { return entry.second->referenceCount() == 1; });
  pruneAt_ = 2 * states_.size() + 256;
}

} // namespace nalt
