#pragma once

#include "scene/view/ViewportPreferences.h"

namespace nalt {

class Model;

/// Gives an open model another number of viewports, 1 to 4; any other number counts as 1. The new ones take camera,
/// style and preferences of the former ones over, in their order; what is left starts with `preferences`, at the camera
/// of the former active one. Does nothing when the model has that number already.
void changeViewportCount(Model& model, int count, const ViewportPreferences& preferences = {});

} // namespace nalt
