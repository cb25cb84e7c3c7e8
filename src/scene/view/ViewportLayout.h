#pragma once

#include "scene/view/ViewportPreferences.h"

#include <vector>

namespace nalt {

class Model;
class VPBase;

/// Where one of the panels of a model lies.
struct PanelRect {
  const char* name; ///< "ul", "ur", "ll", "lr"
  int x;
  int y;
  int w;
  int h;
};

/// The panels of an area by their number, upper left first; a number other than 1 to 4 counts as 1. Halves are cut with
/// the remainder to the right and below.
std::vector<PanelRect> panelLayout(int x, int y, int w, int h, int count);

/// Makes the panels `viewports`, which lie over the whole area of `model`, its children, binds them and makes the first
/// one active.
void addViewports(Model& model, const std::vector<VPBase*>& viewports);

/// Gives `model` `count` viewports over its whole area, binds them and makes the first one active. Main thread only.
void createViewports(Model& model, int count, const ViewportPreferences& preferences = {});

} // namespace nalt
