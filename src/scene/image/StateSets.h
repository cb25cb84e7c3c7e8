#pragma once

#include "scene/image/FaceState.h"
#include "scene/image/Shaders.h"
#include "scene/image/Textures.h"

#include <map>

namespace nalt {

/// The state sets of a scene, one for each key that polygons need.
class StateSets {
public:
  /// The one for `key`, made when there is none yet. `file` holds the palettes.
  FaceState& find(const FaceStateKey& key, const fltapi::FltFile* file);
  /// Makes the content of all state sets anew from the palettes; the state sets stay, so nothing else has to change.
  /// True when the opacity of a material changed, which stands in colors of corners too.
  bool rebuild();
  Textures& textures() { return textures_; }
  Shaders& shaders() { return shaders_; }

private:
  void prune();

  Textures textures_;
  Shaders shaders_;
  std::map<FaceStateKey, osg::ref_ptr<FaceState>> states_;
  std::size_t pruneAt_ = 256;
};

} // namespace nalt
