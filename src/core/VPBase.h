#pragma once

#include <cstdint>

class Fl_Widget;

namespace nalt {

class Grid;
class Model;

/// What shows a model inside its tile: a viewport, a texture coordinate panel, the tree view. How the model speaks to
/// them.
class VPBase {
public:
  virtual ~VPBase() = default;

  virtual Fl_Widget& widget() = 0;
  /// True for panels that draw the scene; false for those that only follow the model.
  virtual bool drawsScene() const = 0;
  /// Takes scene, switches and whatever else it shows from `model`, again after each change of these. `bit` is the
  /// panel's own bit in the node masks of the scene.
  virtual void bind(Model& model, std::uint32_t bit) = 0;
  /// Forgets the model and all that came from it.
  virtual void unbind() = 0;
  /// The active panel gets keyboard input and shows that it does.
  virtual void setActive(bool active) = 0;
  /// Null for panels without a grid of their own.
  virtual Grid* grid() { return nullptr; }
  /// Shows the grid as it is now.
  virtual void gridChanged() {}
};

} // namespace nalt
